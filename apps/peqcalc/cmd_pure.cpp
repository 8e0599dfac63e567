// pure T: the pure-component properties of every component at T (K), from AllPureProps, the
// call the equilibrium kernel makes whenever T changes.
#include <cstdint>

#include "command.h"
#include "models/pureprops.h"
#include "models/vappressure.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  double t = 0;
  if (args.size() != 1) {
    why = "pure needs exactly one argument, the temperature T in K";
    return false;
  }
  if (!ArgNumber(args[0], t)) {
    why = "T is not a number: " + args[0];
    return false;
  }
  return true;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink&) {
  double T = 0;
  ArgNumber(args[0], T);
  int16_t err = 0, dTall = 0;
  peq::AllPureProps(s, T, err, dTall);

  const int n = s.NKomp;
  std::vector<double> p0, vliq, phi0, tsiede;
  std::vector<long> dT;
  std::vector<std::string> code;
  std::vector<std::vector<double>> bvir;
  for (int i = 1; i <= n; ++i) {
    p0.push_back(s.P0[i]);
    code.push_back(s.P0Eq[i]);
    // Distance of T from the limits of the component's vapour-pressure equation.
    std::string c = s.P0Eq[i];
    int16_t d = 0;
    peq::VapPressure(s, i, T, c, false, d);
    dT.push_back(d);
    vliq.push_back(s.VLiq[i]);
    phi0.push_back(s.Phi0[i]);
    tsiede.push_back(s.TSiede[i]);
    std::vector<double> row;
    for (int j = 1; j <= n; ++j) row.push_back(s.BVir(i, j));
    bvir.push_back(std::move(row));
  }
  out.NumArray("p0", p0);
  out.StrArray("code", code);
  out.IntArray("dT", dT);
  out.NumArray("vliq", vliq);
  out.NumArray("phi0", phi0);
  out.NumArray("tsiede", tsiede);
  out.NumMatrix("bvir", bvir);
  out.Int("err", err);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "pure", "T",
    "pure-component properties at T (K): per component p0 (kPa), code (vapour-pressure\n"
    "equation), dT (K beyond the limits of that equation, 0 inside), vliq (m^3/kmol), phi0,\n"
    "tsiede (normal boiling T, K); bvir (second virial coefficients, m^3/kmol, rows over the\n"
    "components); err (0, -i: no vapour pressure of component i, 3: phi0 failed, 4: virial\n"
    "coefficients failed)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
