// Helpers of the curve tracer: status-line texts of the pure components and the largest
// critical data of the pair.
#include "diagrams/kurven.h"

#include <cmath>
#include <cstdio>

#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/vappressure.h"
#include "session/numeric.h"

namespace peq {

namespace {

// Vapour pressure of component i at T, 0 when there is none.
double PureP0(const Session& s, int i, double T) {
  try {
    if (s.Konzept) {
      double a, b, c, d;
      EOSPureAtOne(s, i, T, a, b, c, d);
      EOSSatOut out;
      if (EOSPureSatP(s, i, T, 0.0, a, b, c, d, out) != 0) return 0.0;
      return out.p;
    }
    std::string code = s.P0Eq[i];
    int16_t dT = 0;
    return VapPressure(s, i, T, code, false, dT);
  } catch (const NumericFault&) {
    return 0.0;
  }
}

// Boiling temperature of component i at p, 0 when there is none.
double PureTSiede(const Session& s, int i, double p) {
  try {
    if (s.Konzept) {
      double T = 0;
      if (EOSPureSatT(s, i, p, 0.0, T) != 0) return 0.0;
      return T;
    }
    std::string code = s.P0Eq[i];
    int16_t dT = 0, err = 0;
    const float T = BoilingTAtP(s, i, p, code, false, dT, err);
    return err != 0 ? 0.0 : T;
  } catch (const NumericFault&) {
    return 0.0;
  }
}

const char* const kFuenf = "     ";

}  // namespace

void SiedeText(const Session& s, double T, int16_t Komp1, int16_t Komp2, std::string& Kommentar) {
  std::string text;
  for (int16_t i : {Komp1, Komp2}) {
    if (!(T < s.TKrit[i])) continue;
    const double p0 = PureP0(s, i, T);
    text += kFuenf;
    text += "p0," + std::to_string(i) + "/kPa = " + FormatZahl(p0, p0 < 9.999 ? "#.0######" : "########.0##");
  }
  Kommentar = std::string("pure-substance vapour pressures at ") + (s.TOffsetOut == 0 ? "T/K = " : "t/°C = ") +
              FormatZahl(T - s.TOffsetOut, "####.00") + text;
}

void SiedeTextP(const Session& s, double p, int16_t Komp1, int16_t Komp2, std::string& Kommentar) {
  std::string text;
  const char* unit = s.TOffsetOut == 0 ? "/K = " : "/°C = ";
  for (int16_t i : {Komp1, Komp2}) {
    if (!(p < s.PKrit[i])) continue;
    const double T0 = PureTSiede(s, i, p);
    text += kFuenf;
    text += "T0," + std::to_string(i) + unit + FormatZahl(T0 > 0 ? T0 - s.TOffsetOut : 0.0, "####.0#");
  }
  Kommentar = "pure-substance boiling temp. at p/kPa =  " + FormatZahl(p, "####.00") + text;
}

void KritMax(const Session& s, int16_t Komp1, int16_t Komp2, double& TcMax, double& PcMax, int16_t& KompMax,
             MsgSink* sink) {
  const double tc1 = s.TKrit[Komp1], tc2 = s.TKrit[Komp2];
  KompMax = tc1 >= tc2 ? Komp1 : Komp2;
  TcMax = std::fmax(tc1, tc2);
  PcMax = std::fmax(static_cast<double>(s.PKrit[Komp1]), static_cast<double>(s.PKrit[Komp2]));
  if (s.IsoArt != 2) return;
  const double tc = TcMax - s.TOffsetOut;
  if (tc >= s.YMin && tc <= s.YMax)
    Post(sink, "Note", "Advice: Add marker T(cr) to have a better orientation", MsgIcon::Information);
  if (PcMax >= s.YMin && PcMax <= s.YMax)
    Post(sink, "Note", "Advice: Add marker p(cr) to have a better orientation", MsgIcon::Information);
}

}  // namespace peq
