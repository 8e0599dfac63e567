// excess T x1 .. xn: the excess functions of the liquid x at T (K): gE, hE (= delta(M)h) and
// T sE by ExcessT (five-point in T, h = 0.75 K), cpE by ExcessCp, all in kJ/kmol (cpE in
// kJ/(kmol K)); err -1 when one of them failed (its numbers are then 0). In the phi-phi concept
// the equation of state gives them at the project's pressure PIso.
#include <cstdint>
#include <string>

#include "command.h"
#include "engine/excess.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  return CheckNumbers(args, 2, "excess needs T in K and the mole fractions x1 .. xn", why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double T = 0;
  peq::Vec<double> x;
  if (!ReadComposition(s, args, "excess", 1, &T, x, msgs)) return kExitRefused;
  double hE = 0, TsE = 0, gE = 0, cpE = 0;
  int16_t e1 = 0, e2 = 0;
  peq::ExcessT(s, T, s.PIso, x, hE, TsE, gE, e1);
  if (e1 != 0) hE = TsE = gE = 0;
  peq::ExcessCp(s, T, s.PIso, x, cpE, e2);
  if (e2 != 0) cpE = 0;
  out.Num("gE", gE);
  out.Num("hE", hE);
  out.Num("TsE", TsE);
  out.Num("cpE", cpE);
  out.Int("err", (e1 != 0 || e2 != 0) ? -1 : 0);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "excess", "T x1 .. xn",
    "excess functions of the liquid x1 .. xn at T (K) (ExcessT, ExcessCp): gE, hE, TsE (kJ/kmol),\n"
    "cpE (kJ/(kmol K)), err (-1 when one failed)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
