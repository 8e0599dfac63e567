// gamma T x1 .. xn: the activity coefficients of the project's gE model at T (K) and the mole
// fractions of components 1..NKomp, from ActivityCoeffs, the call of every curve and flash.
#include <cstdint>

#include "command.h"
#include "models/activity.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "gamma needs the temperature T in K and the mole fractions x1 .. xn", why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  const int n = s.NKomp;
  double T = 0;
  peq::Vec<double> x;
  if (!ReadComposition(s, args, "gamma", 1, &T, x, msgs)) return kExitRefused;
  int16_t err = 0;
  peq::ActivityCoeffs(s, T, x, s.Gamma, err);
  out.NumArray("gamma", PerComponent(s.Gamma, n));
  out.Int("err", err);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "gamma", "T x1 .. xn",
    "activity coefficients of the project's gE model (ideal, Wilson, NRTL, Redlich-Kister,\n"
    "UNIQUAC, Mod. UNIFAC, UNIFAC) at T (K) and the liquid mole fractions x1 .. xn (used as\n"
    "given): gamma per component; err (0, or -1 with every gamma 1). A project without a model\n"
    "(GEModel -1) leaves gamma as it stood after loading",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
