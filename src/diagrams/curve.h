// The curve tracer: one diagram number gives one or two point lists of a binary pair of the
// current mixture. Each case walks x2 (or T) over a grid, asks the engine for one state point,
// tests it, converts the abscissa to the display unit and appends the point.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/message.h"
#include "session/session.h"

namespace peq {

// One point of a curve: ordinate, abscissa and the third quantity of the state (in this order).
struct KurvenPunkt {
  float y = 0;
  float x = 0;
  float z = 0;
};

// A curve: element 0 is the header (x = number of points, z = code of the third quantity: -1 T/K,
// -2 p/kPa, -5 fixed x2 of an isosteric curve); the points are elements 1..n.
using Kurve = std::vector<KurvenPunkt>;

// Fehler: 0 good, -1 stop (nothing to draw), 2 aborted below the melting T (curve kept),
// 3 no critical density (nothing to draw). Ausserhalb -1 when no point lies inside the
// coordinates XMin..XMax, YMin..YMax of the session. Boxes go to sink.
void CalcCurve(Session& s, int16_t& NoDia, double T, double p, float x2Iso, Kurve& Kurve1, Kurve& Kurve2,
               Vec<double>& x, Vec<float>& P0, int16_t& Komp1, int16_t& Komp2, int16_t& Ausserhalb, int16_t RealKurve,
               float TOben, float& GapX1, float& GapW1, float& GapX2, float& GapW2, float& GapY,
               std::string& Kommentar, int16_t& Fehler, MsgSink* sink);

// Exchange sort of the points 1..n ascending in x; equal x keep their order.
void SortKurve(Kurve& k);

}  // namespace peq
