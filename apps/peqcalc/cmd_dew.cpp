// dew-p T y1 .. yn and dew-t p y1 .. yn: the dew pressure and dew temperature of the vapour y by
// CalcDewP and CalcDewT (gamma-phi concept; the phi-phi concept has no dew routine and gives 0).
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/pureprops.h"

namespace peqcalc {

namespace {

bool CheckP(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "dew-p needs T in K and the vapour mole fractions y1 .. yn", why);
}
bool CheckT(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "dew-t needs p in kPa and the vapour mole fractions y1 .. yn", why);
}

int RunP(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double T = 0;
  peq::Vec<double> y;
  if (!ReadComposition(s, args, "dew-p", 1, &T, y, msgs)) return kExitRefused;
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, T, err, dT);  // the calling order of the kernel: pure properties at T first
  const float p = peq::CalcDewP(s, T, y);
  out.Num("p", p);
  out.NumArray("x", PerComponent(s.XLiq, s.NKomp));
  out.NumArray("K", PerComponent(s.KWert, s.NKomp));
  return kExitOk;
}

int RunT(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double p = 0;
  peq::Vec<double> y;
  if (!ReadComposition(s, args, "dew-t", 1, &p, y, msgs)) return kExitRefused;
  const float T = peq::SafeDewT(s, p, y, 0.0);
  out.Num("T", T);
  out.NumArray("x", PerComponent(s.XLiq, s.NKomp));
  out.NumArray("K", PerComponent(s.KWert, s.NKomp));
  out.Int("retried", s.Retried);
  return kExitOk;
}

const CommandEntry kEntryP{Command{
    "dew-p", "T y1 .. yn",
    "dew pressure of the vapour y1 .. yn at T (K) (CalcDewP, gamma-phi concept): p (kPa, single\n"
    "precision; 0: no dew point), x, K per component",
    CheckP, RunP}};

const CommandEntry kEntryT{Command{
    "dew-t", "p y1 .. yn",
    "dew temperature of the vapour y1 .. yn at p (kPa) (CalcDewT, gamma-phi concept, made start):\n"
    "T (K, single precision; 0: no dew point), x, K per component, retried (-1: found by the\n"
    "safeguard's retry from Wilson's dew temperature)",
    CheckT, RunT}};

}  // namespace

}  // namespace peqcalc
