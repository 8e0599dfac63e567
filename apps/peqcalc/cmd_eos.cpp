// eos T p z1 .. zn: the project's cubic equation of state (EOSModel) with its mixing rule
// (MixRule, GEModelEOS) for the composition z at T and p: the roots of the cubic, the liquid and
// vapour volumes chosen from them and the fugacity coefficients of every component on both.
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "command.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_solve.h"
#include "session/numeric.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  return CheckNumbers(args, 3, "eos needs T in K, p in kPa and the mole fractions z1 .. zn", why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  const int n = s.NKomp;
  double Tp[2] = {0, 0};
  peq::Vec<double>& z = s.CompMat[0];
  if (!ReadComposition(s, args, "eos", 2, Tp, z, msgs)) return kExitRefused;
  const double T = Tp[0], p = Tp[1];
  // The phi-phi parameters: in a gamma-phi project they wait in GEParAlt.
  if (!s.Konzept) std::swap(s.GEPar, s.GEParAlt);
  int16_t err = 0;
  peq::EOSSetPure(s, s.EOSModel, err);
  if (err != 0) {
    peq::Post(&msgs, "Execution not possible", "Error while calculating the EOS-parameters", peq::MsgIcon::Stop);
    return kExitRefused;
  }
  peq::EOSRoots roots{};
  int16_t nRoots = 0;
  double vL = 0, vV = 0;
  std::vector<double> phiL(static_cast<std::size_t>(n), 0.0), phiV(static_cast<std::size_t>(n), 0.0);
  try {
    peq::EOSMixPar& m = s.EOSScratch.Liq;
    peq::EOSMix(s, 0, s.CompMat, T, s.EOSModel, s.MixRule, s.GEModelEOS, 0, m);
    peq::EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, roots, nRoots, err);
    if (err == 0) {
      vL = peq::LiquidRoot(roots);
      vV = peq::VapourRoot(roots, nRoots);
      for (int i = 1; i <= n; ++i) {
        const auto k = static_cast<std::size_t>(i - 1);
        phiL[k] = peq::EOSLnPhi(T, p, vL, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]);
        phiV[k] = peq::EOSLnPhi(T, p, vV, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]);
      }
    }
  } catch (const peq::NumericFault&) {
    err = -1;
  }
  out.NumArray("roots", {roots[1], roots[2], roots[3]});
  out.Int("nroots", nRoots);
  out.Num("vL", vL);
  out.Num("vV", vV);
  out.NumArray("phiL", phiL);
  out.NumArray("phiV", phiV);
  out.Int("err", err);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "eos", "T p z1 .. zn",
    "the project's cubic equation of state (EOSModel, MixRule, GEModelEOS; in a gamma-phi\n"
    "project the parameters of the phi-phi concept) for the composition z1 .. zn at T (K) and\n"
    "p (kPa): roots (m^3/kmol, ascending; 0 beyond nroots), nroots (1 or 3), vL (root 1, or\n"
    "root 2 when root 1 is not positive), vV (root 3, or root 1), phiL and phiV per component\n"
    "(fugacity coefficients on vL and vV), err (0, or -1: no root or an arithmetic fault)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
