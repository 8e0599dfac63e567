// bubble-p T x1 .. xn and bubble-t p x1 .. xn: the bubble pressure and bubble temperature of the
// liquid x by the kernel routines CalcBubbleP and CalcBubbleT under the project's models, with
// the made start values (no previous point).
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "engine/kernel.h"

namespace peqcalc {

namespace {

bool CheckNumbers(const Args& args, const char* what, std::string& why) {
  if (args.size() < 2) {
    why = std::string(what) + " and the mole fractions x1 .. xn";
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

bool CheckP(const Args& args, std::string& why) { return CheckNumbers(args, "bubble-p needs T in K", why); }
bool CheckT(const Args& args, std::string& why) { return CheckNumbers(args, "bubble-t needs p in kPa", why); }

// The state value and the n mole fractions; false (with the message) when the count is wrong.
bool Read(peq::Session& s, const Args& args, const char* name, double& v, peq::Vec<double>& x,
          peq::MsgSink& msgs) {
  const int n = s.NKomp;
  if (static_cast<int>(args.size()) - 1 != n) {
    peq::Post(&msgs, "Execution not possible",
              std::string(name) + " needs " + std::to_string(n) + " mole fractions for the " +
                  std::to_string(n) + " components of the project",
              peq::MsgIcon::Stop);
    return false;
  }
  ArgNumber(args[0], v);
  x.assign(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) ArgNumber(args[static_cast<std::size_t>(i)], x[i]);
  return true;
}

std::vector<double> Of(const peq::Vec<double>& v, int n) {
  std::vector<double> r;
  for (int i = 1; i <= n; ++i) r.push_back(v[i]);
  return r;
}

int RunP(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double T = 0;
  peq::Vec<double> x;
  if (!Read(s, args, "bubble-p", T, x, msgs)) return kExitRefused;
  const int n = s.NKomp;
  const peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  double vL = 0, vV = 0;
  const double p = peq::CalcBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  out.Num("p", p);
  out.NumArray("y", Of(s.YGas, n));
  out.NumArray("K", Of(s.KWert, n));
  out.NumArray("gamma", Of(s.Gamma, n));
  out.Num("vL", vL);
  out.Num("vV", vV);
  return kExitOk;
}

int RunT(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double p = 0;
  peq::Vec<double> x;
  if (!Read(s, args, "bubble-t", p, x, msgs)) return kExitRefused;
  const int n = s.NKomp;
  const peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  double Tin = 0, vL = 0, vV = 0;
  int16_t warn = 0;
  const double T = peq::CalcBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
  out.Num("T", T);
  out.NumArray("y", Of(s.YGas, n));
  out.NumArray("K", Of(s.KWert, n));
  out.NumArray("gamma", Of(s.Gamma, n));
  out.Num("vL", vL);
  out.Num("vV", vV);
  return kExitOk;
}

const CommandEntry kEntryP{Command{
    "bubble-p", "T x1 .. xn",
    "bubble pressure of the liquid x1 .. xn at T (K) under the project's models (CalcBubbleP):\n"
    "p (kPa; 0: no bubble point, the arrays then mean nothing), y, K, gamma per component,\n"
    "vL, vV (m^3/kmol, the molar volumes of the phi-phi concept, 0 otherwise)",
    CheckP, RunP}};

const CommandEntry kEntryT{Command{
    "bubble-t", "p x1 .. xn",
    "bubble temperature of the liquid x1 .. xn at p (kPa) under the project's models\n"
    "(CalcBubbleT, made start values): T (K; 0: no bubble point), y, K, gamma, vL, vV",
    CheckT, RunT}};

}  // namespace

}  // namespace peqcalc
