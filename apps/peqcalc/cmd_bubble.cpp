// bubble-p T x1 .. xn and bubble-t p x1 .. xn: the bubble pressure and bubble temperature of the
// liquid x by the kernel routines CalcBubbleP and CalcBubbleT under the project's models, with
// the made start values (no previous point), safeguarded unless --exact is given.
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "engine/safeguard.h"

namespace peqcalc {

namespace {

bool CheckP(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "bubble-p needs T in K and the mole fractions x1 .. xn", why);
}
bool CheckT(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "bubble-t needs p in kPa and the mole fractions x1 .. xn", why);
}

int RunP(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double T = 0;
  peq::Vec<double> x;
  if (!ReadComposition(s, args, "bubble-p", 1, &T, x, msgs)) return kExitRefused;
  const int n = s.NKomp;
  const peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  double vL = 0, vV = 0;
  const double p = peq::SafeBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  out.Num("p", p);
  out.NumArray("y", PerComponent(s.YGas, n));
  out.NumArray("K", PerComponent(s.KWert, n));
  out.NumArray("gamma", PerComponent(s.Gamma, n));
  out.Num("vL", vL);
  out.Num("vV", vV);
  out.Int("retried", s.Retried);
  return kExitOk;
}

int RunT(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double p = 0;
  peq::Vec<double> x;
  if (!ReadComposition(s, args, "bubble-t", 1, &p, x, msgs)) return kExitRefused;
  const int n = s.NKomp;
  const peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  double Tin = 0, vL = 0, vV = 0;
  int16_t warn = 0;
  const double T = peq::SafeBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
  out.Num("T", T);
  out.NumArray("y", PerComponent(s.YGas, n));
  out.NumArray("K", PerComponent(s.KWert, n));
  out.NumArray("gamma", PerComponent(s.Gamma, n));
  out.Num("vL", vL);
  out.Num("vV", vV);
  out.Int("retried", s.Retried);
  return kExitOk;
}

const CommandEntry kEntryP{Command{
    "bubble-p", "T x1 .. xn",
    "bubble pressure of the liquid x1 .. xn at T (K) under the project's models (CalcBubbleP):\n"
    "p (kPa; 0: no bubble point, the arrays then mean nothing), y, K, gamma per component,\n"
    "vL, vV (m^3/kmol, the molar volumes of the phi-phi concept, 0 otherwise), retried (-1:\n"
    "found by the safeguard's retry)",
    CheckP, RunP}};

const CommandEntry kEntryT{Command{
    "bubble-t", "p x1 .. xn",
    "bubble temperature of the liquid x1 .. xn at p (kPa) under the project's models\n"
    "(CalcBubbleT, made start values): T (K; 0: no bubble point), y, K, gamma, vL, vV,\n"
    "retried",
    CheckT, RunT}};

}  // namespace

}  // namespace peqcalc
