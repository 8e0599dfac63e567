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
//
// T (K) is the fixed temperature of the isothermal diagrams, p (kPa) the fixed pressure of the
// isobaric ones, x2Iso the fixed x(Komp2) of the isosteric ones (7, 183). Ordinates and the
// abscissa of the isosteric curves are in display units (T less TOffsetOut, energies times
// FuFaktor, mass fractions when ConcUnit is set). The caller sets the session's IsoArt, TIso,
// PIso and NoDia of the diagram first: the mixing-gap search (gamma-phi) reads them. TOben is
// the upper end (K) of the binodal's T walk. x is the caller's composition array (sized to
// 0..NKomp when smaller); the pure vapour pressures at T of the diagrams below 4 and of 10 land
// in P0 (and in the session's P0). Written: HatGap, GapAktiv (true for 110, 120, 15, 16, false
// for 111..116, 121..126), IsoArt (2 for 82, 83), YGas, Gamma, PhiKorr, KWert. Both headers
// carry the same code. A run-time error inside is posted as "Message from Sub CalcCurve" and
// the walk goes on with the next point.
void CalcCurve(Session& s, int16_t& NoDia, double T, double p, float x2Iso, Kurve& Kurve1, Kurve& Kurve2,
               Vec<double>& x, Vec<float>& P0, int16_t& Komp1, int16_t& Komp2, int16_t& Ausserhalb, int16_t RealKurve,
               float TOben, float& GapX1, float& GapW1, float& GapX2, float& GapW2, float& GapY,
               std::string& Kommentar, int16_t& Fehler, MsgSink* sink);

// Exchange sort of the points 1..n ascending in x; equal x keep their order.
void SortKurve(Kurve& k);

}  // namespace peq
