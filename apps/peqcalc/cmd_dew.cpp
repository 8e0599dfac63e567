// dew-p T y1 .. yn and dew-t p y1 .. yn: the dew pressure and dew temperature of the vapour y by
// CalcDewP and CalcDewT (gamma-phi concept; the phi-phi concept has no dew routine and gives 0).
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "engine/kernel.h"
#include "models/pureprops.h"

namespace peqcalc {

namespace {

bool CheckNumbers(const Args& args, const char* what, std::string& why) {
  if (args.size() < 2) {
    why = std::string(what) + " and the vapour mole fractions y1 .. yn";
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

bool CheckP(const Args& args, std::string& why) { return CheckNumbers(args, "dew-p needs T in K", why); }
bool CheckT(const Args& args, std::string& why) { return CheckNumbers(args, "dew-t needs p in kPa", why); }

bool Read(peq::Session& s, const Args& args, const char* name, double& v, peq::Vec<double>& y,
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
  y.assign(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) ArgNumber(args[static_cast<std::size_t>(i)], y[i]);
  return true;
}

std::vector<double> Of(const peq::Vec<double>& v, int n) {
  std::vector<double> r;
  for (int i = 1; i <= n; ++i) r.push_back(v[i]);
  return r;
}

int RunP(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double T = 0;
  peq::Vec<double> y;
  if (!Read(s, args, "dew-p", T, y, msgs)) return kExitRefused;
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, T, err, dT);  // the calling order of the kernel: pure properties at T first
  const float p = peq::CalcDewP(s, T, y);
  out.Num("p", p);
  out.NumArray("x", Of(s.XLiq, s.NKomp));
  out.NumArray("K", Of(s.KWert, s.NKomp));
  return kExitOk;
}

int RunT(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double p = 0;
  peq::Vec<double> y;
  if (!Read(s, args, "dew-t", p, y, msgs)) return kExitRefused;
  const float T = peq::CalcDewT(s, p, y, 0.0);
  out.Num("T", T);
  out.NumArray("x", Of(s.XLiq, s.NKomp));
  out.NumArray("K", Of(s.KWert, s.NKomp));
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
    "T (K, single precision; 0: no dew point), x, K per component",
    CheckT, RunT}};

}  // namespace

}  // namespace peqcalc
