// Helpers of the curve tracer: status-line texts of the pure components and the largest
// critical data of the pair.
#include "diagrams/kurven.h"

#include <cmath>
#include <cstdio>

#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/vappressure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

double ReinDampfdruck(const Session& s, int i, double T) {
  if (!s.Konzept) {
    std::string code = s.P0Eq[static_cast<std::size_t>(i)];
    int16_t dT = 0;
    return VapPressure(s, i, T, code, false, dT);
  }
  if (s.TKrit[i] <= kPresent || T >= s.TKrit[i]) return 0;
  double a = 0, b = 0, c = 0, d = 0;
  EOSPureAtOne(s, i, T, a, b, c, d);
  EOSSatOut out;
  if (EOSPureSatP(s, i, T, 0, a, b, c, d, out) != 0) return 0;
  return out.p > 0 ? out.p : 0;
}

double ReinSiedeT(const Session& s, int i, double p) {
  if (!s.Konzept) {
    std::string code = s.P0Eq[static_cast<std::size_t>(i)];
    int16_t dT = 0, err = 0;
    const float T = BoilingTAtP(s, i, p, code, false, dT, err);
    return err != 0 ? 0 : T;
  }
  if (s.PKrit[i] <= kPresent || p >= s.PKrit[i]) return 0;
  double T = 0;
  if (EOSPureSatT(s, i, p, 0, T) != 0) return 0;
  return T > 0 ? T : 0;
}

namespace {

// The same with an arithmetic fault counted as no value: the status texts show 0 then.
double OhneFehler(double (*f)(const Session&, int, double), const Session& s, int i, double v) {
  try {
    return f(s, i, v);
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
    const double p0 = OhneFehler(ReinDampfdruck, s, i, T);
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
    const double T0 = OhneFehler(ReinSiedeT, s, i, p);
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
