// The catalogue of binary diagrams: for a diagram number the titles and axis texts, the number of
// curves a drawing yields, the kind of the fixed quantity and the coordinates it opens with.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace peq {

struct DiagrammTexte {
  std::string Titel;   // title text, model label and ")"
  std::string XAchse;  // abscissa
  std::string YAchse;  // ordinate
};

// Coordinates of a diagram in display units.
struct Koordinaten {
  float XMin = 0, XMax = 1, YMin = 0, YMax = 1;
};

// The model label appended to the titles (" L: NRTL, V: ideal gas " and the like).
std::string ModellText(const Session& s);

// Title and axis texts of NoDia under the session's units (ConcUnit, TOffsetOut, FuUnit).
// false for an unknown number (no title, no diagram).
bool DiagrammTitel(const Session& s, int16_t NoDia, DiagrammTexte& t);

// Curves a drawing of NoDia yields: 2 for p-x, K values, T-x, activity coefficients and
// densities, 1 otherwise (NKomp for the batch-distillation concentration diagrams).
int16_t KurvenAnzahlVon(const Session& s, int16_t NoDia);

// Default coordinates of NoDia at T (K), p (kPa) for the pair (Komp1, Komp2). false when the
// number is unknown or the pure-component values they rest on cannot be computed.
bool StandardKoordinaten(Session& s, double T, double p, int16_t Komp1, int16_t Komp2, int16_t NoDia,
                         Koordinaten& k);

// Kind of the fixed quantity of NoDia: 1 isothermal, 2 isobaric, 3 isosteric, 0 for a number of
// none (the batch and consistency plots keep what they had).
int16_t IsoArtVon(int16_t NoDia);

// Whether the diagram honours a mixing gap: p-x, T-x, both x-y diagrams and the 0th derivatives
// of gE and delta(M)g.
bool GapAktivVon(int16_t NoDia);

// The title routine: texts, KurvenAnzahl, IsoArt, GapAktiv, and the default coordinates copied into
// XMin, XMax, YMin, YMax of the session. false for an unknown number.
struct GraphAufbau {
  DiagrammTexte Texte;
  int16_t KurvenAnzahl = 1;
};
bool ZentraleGraph(Session& s, int16_t NoDia, GraphAufbau& g);

}  // namespace peq
