// single NODIA X [--T v] [--p v] [--x2 v]: one point of the binary diagram NODIA for the pair
// (Komp1, Komp2) by the single-point routine SingleCalc. X is the abscissa: x2 of the pair, or
// for the isosteric diagrams 7 and 183 the temperature in the project's display unit (K or °C),
// whose composition x2 is --x2 (default the project's XIso). T (K) and p (kPa) default to the
// project's TIso and PIso. The diagram's kind (isothermal, isobaric, isosteric) is set as the
// diagram menu sets it. Prints the two ordinates y1, y2, their flags flag1, flag2 (0 valid, -1
// none), outx, and T and p as the routine leaves them.
#include <cmath>
#include <cstdint>
#include <string>

#include "command.h"
#include "engine/singlecalc.h"

namespace peqcalc {

namespace {

// IsoArt of a diagram number: 2 isobaric, 3 isosteric, 1 every other.
int16_t IsoArtOf(int code) {
  switch (code) {
    case 4:
    case 51:
    case 6:
    case 11:
    case 82:
    case 83:
    case 182:
      return 2;
    case 7:
    case 183:
      return 3;
    default:
      return 1;
  }
}

struct Input {
  double nodia = 0, x = 0, T = 0, p = 0, x2 = 0;
  bool haveT = false, haveP = false, haveX2 = false;
};

bool Parse(const Args& args, Input& in, std::string& why) {
  return ParseDiagramPoint(args, "single", "abscissa", in.nodia, in.x,
                           {{"--T", &in.T, &in.haveT}, {"--p", &in.p, &in.haveP}, {"--x2", &in.x2, &in.haveX2}},
                           why);
}

bool Check(const Args& args, std::string& why) {
  Input in;
  return Parse(args, in, why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  Input in;
  std::string why;
  Parse(args, in, why);
  if (s.NKomp < 2) {
    peq::Post(&msgs, "Execution not possible", "single needs a mixture of at least two components",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (in.haveX2 && !CheckMolFraction("single", "--x2", in.x2, msgs)) return kExitRefused;
  const int16_t code = static_cast<int16_t>(in.nodia);
  s.NoDia = code;
  s.IsoArt = IsoArtOf(code);
  double T = in.haveT ? in.T : s.TIso;
  double p = in.haveP ? in.p : s.PIso;
  double y2 = in.haveX2 ? in.x2 : s.XIso;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
  peq::SingleOut res;
  s.Retried = 0;
  peq::SingleCalc(s, code, in.x, T, p, y2, R1, R2, R3, R4, s.Komp1, s.Komp2, outX, res, &msgs);
  out.Num("y1", res.Y1);
  out.Num("y2", res.Y2);
  out.Int("flag1", res.F1);
  out.Int("flag2", res.F2);
  out.Num("outx", outX);
  out.Num("T", T);
  out.Num("p", p);
  out.Int("retried", s.Retried);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "single", "NODIA X [--T v] [--p v] [--x2 v]",
    "one point of the binary diagram NODIA at the abscissa X (x2 of the pair; for 7 and 183 the\n"
    "temperature in the display unit, with the composition --x2) by SingleCalc; T (K) and p (kPa)\n"
    "default to the project's: y1, y2 (the two ordinates), flag1, flag2 (0 valid, -1 none), outx\n"
    "(the vapour composition of the bubble-line diagrams), T and p as the routine leaves them,\n"
    "retried (-1: its last bubble or dew point was found by the safeguard's retry)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
