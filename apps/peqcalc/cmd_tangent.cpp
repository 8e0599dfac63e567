// tangent NODIA X [--T v] [--p v]: the tangent to the mixing or excess function of diagram NODIA
// (110 gE, 120 delta(M)g, 15 delta(M)h, 16 T sE, 17 cpE) at x2 = X of the pair (Komp1, Komp2),
// by the routine of the point calculator. T (K) and p (kPa) default to the project's TIso and
// PIso. Prints y (the function at X), slope, and the intercepts at x2 = 0 and 1: partial1 and
// partial2, the partial molar values of Komp1 and Komp2; null for an end that diverges.
#include <cmath>
#include <cstdint>
#include <string>

#include "command.h"
#include "engine/tangent.h"

namespace peqcalc {

namespace {

struct Input {
  double nodia = 0, x = 0, T = 0, p = 0;
  bool haveT = false, haveP = false;
};

bool Parse(const Args& args, Input& in, std::string& why) {
  return ParseDiagramPoint(args, "tangent", "composition", in.nodia, in.x,
                           {{"--T", &in.T, &in.haveT}, {"--p", &in.p, &in.haveP}}, why);
}

bool Check(const Args& args, std::string& why) {
  Input in;
  return Parse(args, in, why);
}

double Ende(peq::TangentEnde e, double v) {
  if (e == peq::TangentEnde::MinusUnendlich) return -HUGE_VAL;  // written as null
  return v;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  Input in;
  std::string why;
  Parse(args, in, why);
  const int16_t code = static_cast<int16_t>(in.nodia);
  if (s.NKomp < 2) {
    peq::Post(&msgs, "Execution not possible", "tangent needs a mixture of at least two components",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (!peq::TangenteMoeglich(code)) {
    peq::Post(&msgs, "Execution not possible",
              "tangent is only for the diagrams 110 (gE), 120 (delta(M)g), 15 (delta(M)h), 16 (T*sE), 17 (cpE)",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (!CheckMolFraction("tangent", "X", in.x, msgs)) return kExitRefused;
  const double T = in.haveT ? in.T : s.TIso;
  const double p = in.haveP ? in.p : s.PIso;
  s.NoDia = code;
  s.IsoArt = 1;
  peq::TangentWerte t;
  if (!peq::TangenteRechnen(s, code, in.x, T, p, s.Komp1, s.Komp2, t)) {
    peq::Post(&msgs, "Execution not possible", "no value of the function at this point", peq::MsgIcon::Stop);
    return kExitRefused;
  }
  out.Num("y", t.y);
  const bool divergent = t.Ende1 == peq::TangentEnde::MinusUnendlich || t.Ende2 == peq::TangentEnde::MinusUnendlich;
  out.Num("slope", divergent ? (t.Ende1 == peq::TangentEnde::MinusUnendlich ? HUGE_VAL : -HUGE_VAL) : t.Steigung);
  out.Num("partial1", Ende(t.Ende1, t.Partial1));
  out.Num("partial2", Ende(t.Ende2, t.Partial2));
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "tangent", "NODIA X [--T v] [--p v]",
    "the tangent to the mixing or excess function of diagram NODIA (110 gE, 120 delta(M)g, 15\n"
    "delta(M)h, 16 T*sE, 17 cpE) at x2 = X; T (K) and p (kPa) default to the project's: y (the\n"
    "function at X), slope, partial1 and partial2 (the intercepts at x2 = 0 and 1, the partial\n"
    "molar values of the two components; null where one diverges)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
