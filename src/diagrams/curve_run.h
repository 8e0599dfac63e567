// Inside the curve tracer: the state of one CalcCurve call and the steps every case shares
// (composition of the point, start vapour, bubble points, abscissa unit, appending, the walk).
#pragma once

#include <cmath>
#include <cstdint>
#include <string>

#include "diagrams/curve.h"
#include "session/numeric.h"

namespace peq::curve {

// Header codes of the third quantity.
inline constexpr float kZT = -1.0f;   // T/K
inline constexpr float kZp = -2.0f;   // p/kPa
inline constexpr float kZx2 = -5.0f;  // fixed x2 of an isosteric curve

inline constexpr const char* kSubCaption = "Message from Sub CalcCurve";

// The fail counter of a walk: each failed point adds one, and the walk ends when the count
// reaches the limit (5, or 10 for the isosteric vapour-pressure curve). Good points do not reset
// it, except in the T-x walk.
struct FailCounter {
  int limit = 5;
  bool resetOnGood = false;
  int count = 0;
  // A failed point; false when the walk must end.
  bool Fail() { return ++count < limit; }
  void Good() {
    if (resetOnGood) count = 0;
  }
  bool Reached() const { return count >= limit; }
};

struct Run {
  Session& s;
  int16_t NoDia;
  double T, p;
  float x2Iso;
  Kurve& K1;
  Kurve& K2;
  Vec<double>& x;
  Vec<float>& P0;
  int16_t k1, k2;
  int16_t& Ausserhalb;
  bool Real;
  float TOben;
  float &GapX1, &GapW1, &GapX2, &GapW2, &GapY;
  std::string& Kommentar;
  int16_t& Fehler;
  MsgSink* sink;

  double DX = 0, DY = 0;
  double GapLo = 0, GapHi = 0;
  Vec<double> ys{};   // start vapour handed to the bubble routines
  double yPrev = 0;   // y(Komp2) of the previous good point
  double vL = 0, vV = 0;
  int16_t warn = 0;   // status of the last bubble temperature

  // x(Komp2) = v, x(Komp1) = 1 - v, the other components 0.
  void SetX(double v) {
    x[static_cast<std::size_t>(k2)] = v;
    x[static_cast<std::size_t>(k1)] = 1.0 - v;
  }
  // Start vapour: y(Komp2) = y, y(Komp1) = 1 - y, also into YGas.
  void SetY(double y) {
    ys[static_cast<std::size_t>(k2)] = y;
    ys[static_cast<std::size_t>(k1)] = 1.0 - y;
    s.YGas[static_cast<std::size_t>(k2)] = y;
    s.YGas[static_cast<std::size_t>(k1)] = 1.0 - y;
  }
  double K(int16_t i) const { return s.KWert[static_cast<std::size_t>(i)]; }

  // Bubble pressure at T of the composition v with the previous point's vapour as the start; on
  // success the new y(Komp2) = K(Komp2) x(Komp2) becomes the next start.
  double BubbleP(double v, double pStart);
  // Bubble temperature at p; TStart of 1 or more is used as the start.
  double BubbleT(double v, double TStart);

  // The abscissa in the display unit: the mass fraction of Komp2 when ConcUnit is set.
  double Ksi(double v) const;
  // Appends a point (narrowed to single precision, a fault beyond its range).
  static void Append(Kurve& k, double xv, double yv, double zv) {
    k.push_back(KurvenPunkt{CSng(yv), CSng(xv), CSng(zv)});
  }
  bool InX(double v) const { return v >= s.XMin && v <= s.XMax; }
  bool InY(double v) const { return v >= s.YMin && v <= s.YMax; }
  void Inside() { Ausserhalb = 0; }

  // A run-time error of a statement: its description in a box, and on with the next point.
  void Fault(const std::exception& e) { Post(sink, kSubCaption, e.what(), MsgIcon::Stop); }

  // The walk over x2 (or T) from `from` towards `to` by `step`, as a counted loop on a real
  // variable: it goes on while the variable has not passed `to`. With jumpGap, a value inside
  // GapLo..GapHi is moved to the edge that lies ahead and the walk goes on from there. body(v)
  // returns false to end the walk. A fault inside one point is reported and the walk goes on.
  template <class F>
  void Walk(double from, double to, double step, bool jumpGap, F&& body) {
    if (!(step != 0.0) || !std::isfinite(step) || !std::isfinite(from) || !std::isfinite(to)) return;
    const double edge = step > 0 ? GapHi : GapLo;
    for (double v = from; step > 0 ? v <= to : v >= to; v += step) {
      if (jumpGap && v >= GapLo && v <= GapHi) v = edge;
      try {
        if (!body(v)) break;
      } catch (const NumericFault& e) {
        Fault(e);
      }
    }
  }
  // Room for the points of a walk of this range and step (the curves grow by append only).
  void Reserve(double range, double step, int curves);
};

// Largest of the two critical temperatures and pressures of the pair.
inline double TcMaxPaar(const Run& r) {
  return std::fmax(static_cast<double>(r.s.TKrit[r.k1]), static_cast<double>(r.s.TKrit[r.k2]));
}
inline double PcMaxPaar(const Run& r) {
  return std::fmax(static_cast<double>(r.s.PKrit[r.k1]), static_cast<double>(r.s.PKrit[r.k2]));
}

// The cases, by family.
void CaseIsothermPx(Run& r);   // 1
void CaseIsothermXY(Run& r);   // 3
void CaseIsobarTx(Run& r);     // 4
void CaseBinodal(Run& r);      // 41
void CaseKIsotherm(Run& r);    // 5
void CaseKIsobar(Run& r);      // 51
void CaseIsobarXY(Run& r);     // 6
void CaseIsosterPT(Run& r);    // 7
void CaseAlphaIsotherm(Run& r);  // 10
void CaseAlphaIsobar(Run& r);    // 11
void CaseGamma(Run& r);        // 8, 81, 82, 83
void CaseLnF2F1(Run& r);       // 9
void CaseGE(Run& r);           // 110..116, 120..126
void CaseHS(Run& r);           // 15, 16
void CaseCpE(Run& r);          // 17
void CaseDensity(Run& r);      // 181, 182, 183

}  // namespace peq::curve
