// azeotrope (--T v | --p v): the azeotrope of the pair (1, 2) by IsBinaerAzeotrop, with the march
// of bubble points at T (K, isothermal) or at p (kPa, isobaric). Prints found (0 or -1), x2 (the
// azeotropic mole fraction of component 2, 0 when none), kind (-1 pressure maximum, 0 pressure
// minimum) and overrun (-1 when the march ran out of rounds).
#include <cstdint>
#include <string>

#include "command.h"
#include "engine/azeotrope.h"

namespace peqcalc {

namespace {

bool Parse(const Args& args, bool& isothermal, double& v, std::string& why) {
  if (args.size() != 2 || (args[0] != "--T" && args[0] != "--p")) {
    why = "azeotrope needs --T T (K) or --p p (kPa)";
    return false;
  }
  if (!ArgNumber(args[1], v)) {
    why = args[0] + " needs a number";
    return false;
  }
  isothermal = args[0] == "--T";
  return true;
}

bool Check(const Args& args, std::string& why) {
  bool iso = false;
  double v = 0;
  return Parse(args, iso, v, why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  bool iso = false;
  double v = 0;
  std::string why;
  Parse(args, iso, v, why);
  if (s.NKomp != 2) {
    peq::Post(&msgs, "Execution not possible", "azeotrope needs a binary mixture", peq::MsgIcon::Stop);
    return kExitRefused;
  }
  s.IsoArt = iso ? 1 : 2;
  const double T = iso ? v : s.TIso, p = iso ? s.PIso : v;
  double x = 0;
  int16_t kind = 0, overrun = 0;
  const bool found = peq::IsBinaerAzeotrop(s, T, p, x, kind, overrun, &msgs);
  out.Int("found", found ? -1 : 0);
  out.Num("x2", found ? x : 0.0);
  out.Int("kind", kind);
  out.Int("overrun", overrun);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "azeotrope", "(--T T | --p p)",
    "azeotrope of the pair (1, 2) at T (K) or at p (kPa) (IsBinaerAzeotrop): found (-1 yes, 0 no),\n"
    "x2 (mole fraction of component 2 at the azeotrope), kind (-1 pressure maximum, 0 pressure\n"
    "minimum), overrun (-1 when the march exceeded its rounds)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
