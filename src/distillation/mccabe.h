// McCabe-Thiele design of a binary column at the pressure of an isobaric x-y diagram: the
// operating lines, the minimum reflux ratio and the stepping of theoretical plates.
//
// All compositions are x2 (the share of Komp2) in the unit the dialog shows: mole fractions, or
// mass fractions when ConcUnit is set. The equilibrium is always computed in mole fractions; the
// conversions happen at the calls to it.
#pragma once

#include <cstdint>
#include <vector>

#include "session/message.h"
#include "session/session.h"

namespace peq {

// The design data and the results of one design.
struct ThieleDaten {
  float XKopf = 0.95f, XSumpf = 0.05f, XFeed = 0.5f;  // top, bottom, feed
  float RR = 1e10f;                                   // reflux ratio; 1e10 is total reflux
  double p = 101.325;                                 // column pressure, kPa
  int16_t OhneFeed = 0;   // -1: no feed, the whole column is one section
  int16_t MitHLV = 0;     // -1: the enthalpies of vaporisation bend the upper operating line
  float EnthFaktor = 1e10f;  // E of the curved operating line
  float SteigOben = 0, AchsOben = 0, SteigUnten = 0, AchsUnten = 0;
  int16_t BoedenOben = 0, BoedenUnten = 0;
  float XEnde = 0;
};

// The enthalpy factor when r2 equals r1 (the straight line).
inline constexpr float kEnthFaktorGerade = 1e10f;
// Stepping stops after this many stored points (about 1000 plates).
inline constexpr int kMaxStufenPunkte = 3000;
// Newton of the minimum reflux ratio with the curved line: step, start, reset, limits.
inline constexpr double kRRMinH = 1e-7;
inline constexpr double kRRMinStart = 5.0;
inline constexpr double kRRMinReset = 0.5;
inline constexpr double kRRMinTol = 1e-5;
inline constexpr int kRRMinRunden = 150;

// Mole fraction x2 of the mass fraction w2 of the pair (Komp1, Komp2), and back.
double MolAusMasse(const Session& s, double w2);
double MasseAusMol(const Session& s, double x2);
// To and from the dialog's unit (no change unless ConcUnit).
double ZuMol(const Session& s, double v);
double AusMol(const Session& s, double x2);

// The curved upper operating line with the enthalpy factor E at reflux ratio R:
// ((R/(R+1) - XKopf/E) x + XKopf/(R+1)) / (1 - (x/(R+1))/E - XKopf R/((R+1) E)).
// Throws NumericFault on a division by zero or overflow.
double YOpKurve(double R, double x, double XKopf, double E);

// E = r2/(r2 - r1) from the enthalpies of vaporisation of Komp2 (r2) and Komp1 (r1) at the mean
// of their boiling temperatures at p; E = 1e10 when r2 equals r1. Messages of the enthalpy
// function about its T limits go to sink. false when a boiling temperature cannot be found.
bool EnthalpieFaktor(Session& s, double p, float& E, MsgSink* sink);

// The straight operating lines: SteigOben = RR/(RR+1), AchsOben = (1 - SteigOben) XKopf, and when
// XFeed > XSumpf the lower line through (XSumpf, XSumpf) and the upper line's point at XFeed.
// With XFeed = XSumpf the lower line keeps its earlier values.
void Betriebsgeraden(ThieleDaten& d);

// The operating value at x: the upper line (or the curved one with MitHLV) when x >= XFeed or
// without a feed, the lower line otherwise.
double Betriebswert(const ThieleDaten& d, double x);

// The equilibrium y2 of the liquid x2 at p, both in the dialog's unit; false when the bubble
// point fails.
bool GleichgewichtY(Session& s, double p, double x, double& y);
// The same with the bubble temperature T (K) of the liquid.
bool GleichgewichtY(Session& s, double p, double x, double& y, double& T);

// RRMin: the minimum reflux ratio, rounded to three decimals. Fehler -1 when the equilibrium
// fails, the Newton of the curved line runs out of its 150 rounds, or an arithmetic fault
// occurs; the result is then 0.
float RRMin(Session& s, const ThieleDaten& d, int16_t& Fehler);

// Plate stepping from XKopf down to XSumpf on the operating lines and the dew points at p.
// The points go to xs, ys (cleared first, capacity kept): per plate three points, (x, op(x)),
// (x', y) and (x', op(x')), x' the liquid in equilibrium with y. Sets BoedenOben, BoedenUnten and
// XEnde. A failed dew point ends the walk at the plate reached. Returns the number of points.
int StufenZeichnen(Session& s, ThieleDaten& d, std::vector<float>& xs, std::vector<float>& ys);

}  // namespace peq
