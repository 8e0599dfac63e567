// gamma T x1 .. xn: the activity coefficients of the project's gE model at T (K) and the mole
// fractions of components 1..NKomp, from ActivityCoeffs, the call of every curve and flash.
#include <cstdint>

#include "command.h"
#include "models/activity.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  if (args.size() < 2) {
    why = "gamma needs the temperature T in K and the mole fractions x1 .. xn";
    return false;
  }
  for (const std::string& a : args) {
    double v = 0;
    if (!ArgNumber(a, v)) {
      why = "not a number: " + a;
      return false;
    }
  }
  return true;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  const int n = s.NKomp;
  if (static_cast<int>(args.size()) - 1 != n) {
    peq::Post(&msgs, "Execution not possible",
              "gamma needs " + std::to_string(n) + " mole fractions for the " + std::to_string(n) +
                  " components of the project",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  double T = 0;
  ArgNumber(args[0], T);
  peq::Vec<double> x(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) ArgNumber(args[static_cast<std::size_t>(i)], x[i]);
  int16_t err = 0;
  peq::ActivityCoeffs(s, T, x, s.Gamma, err);
  std::vector<double> gamma;
  for (int i = 1; i <= n; ++i) gamma.push_back(s.Gamma[i]);
  out.NumArray("gamma", gamma);
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
