// Azeotrope of the binary (1, 2): a march over x2 on f = ln(K1/K2), which changes sign at the
// azeotrope, narrowed by a tenth at each sign change.
#include "engine/azeotrope.h"

#include <cmath>
#include <string>

#include "engine/kernel.h"
#include "session/numeric.h"

namespace peq {

namespace {

constexpr double kFirstX = 0.001;
constexpr double kStep = 0.01;
constexpr double kStepEnd = 1E-6;
constexpr int kRounds = 200;
// Shift of x(1) that tells a pressure maximum from a minimum.
constexpr double kKindShift = 0.02;

struct Walk {
  Session& s;
  double T, p;
  Vec<double> x, y0;
  double TReached = 0.0;

  // Bubble point of the liquid x2 (at T when IsoArt is 1, at p otherwise); f = ln(K1/K2).
  double F(double x2) {
    x[1] = 1.0 - x2;
    x[2] = x2;
    double vL = 0.0, vV = 0.0;
    if (s.IsoArt == 1) {
      CalcBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
      TReached = T;
    } else {
      double Tin = 0.0;
      int16_t warn = 0;
      TReached = CalcBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
    }
    return chk::Ln(chk::Div(s.KWert[1], s.KWert[2]));
  }

  // Bubble pressure at the T reached of the liquid with x(1) = x1.
  double BubbleP(double x1) {
    x[1] = x1;
    x[2] = 1.0 - x1;
    double vL = 0.0, vV = 0.0;
    return CalcBubbleP(s, TReached, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  }
};

}  // namespace

bool IsBinaerAzeotrop(Session& s, double T, double p, double& x, int16_t& kind, int16_t& overrun, MsgSink* sink) {
  kind = 0;
  overrun = 0;
  if (s.NKomp < 2) return false;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  Walk w{s, T, p, Vec<double>(m, 0.0), Vec<double>(m, 0.0)};
  try {
    double fLast = w.F(kFirstX);
    double step = kStep;
    double xx = 0.0;
    int count = 0;
    do {
      ++count;
      xx += step;
      if (!(xx > 0.0 && xx < 1.0)) return false;
      const double f = w.F(xx);
      const double r = chk::Div(fLast, f);
      fLast = f;
      if (!(r > 0.0)) step = -0.1 * step;
    } while (std::fabs(step) > kStepEnd && count <= kRounds);
    if (count > kRounds) {
      overrun = -1;
      return false;
    }
    x = xx;
    // The kind: the bubble pressure of a liquid shifted to x(1) + 0.02 (x(2) = 1 - x(1)) lies
    // below that of the azeotrope at a pressure maximum.
    const double pAz = w.BubbleP(1.0 - xx);
    const double p2 = w.BubbleP(1.0 - xx + kKindShift);
    kind = p2 < pAz ? int16_t{-1} : int16_t{0};
    return true;
  } catch (const NumericFault& e) {
    Post(sink, "Message from Function IsBinaerAzeotrop", e.what(), MsgIcon::Warning);
    return false;
  }
}

}  // namespace peq
