// The 2D diagram document as plain data: the 24 curve slots with their series, the table of the
// third quantity behind every point, the marker series, the sets of experimental points, the
// coordinates with their stored range, and the operations on them (draw a curve into a slot,
// exchange the components, delete, zoom, point read-out, a curve as clipboard text). The window
// layer only renders it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "diagrams/curve.h"
#include "session/message.h"

namespace peq {

inline constexpr int16_t kMaxKurven = 24;         // curve slots 1..24
inline constexpr int kKurvenZZeilen = 2501;       // rows 0..2500 of KurvenZ
inline constexpr int kKurvenZSpalten = 25;        // columns 0..24 (slot)
inline constexpr int kSerienAnz = kMaxKurven + 16;  // series 1..40: curves, then fixed series
inline constexpr int kMarkerErste = kMaxKurven + 8;  // marker lines 24+8 .. 24+11
inline constexpr int kMarkerLetzte = kMaxKurven + 11;
inline constexpr int kMaxExpSaetze = 12;
// The McCabe-Thiele construction: the diagonal, the upper and lower operating line, the plate
// steps (28) and the feed point.
inline constexpr int kSerieThieleDiagonale = kMaxKurven + 1;
inline constexpr int kSerieOben = kMaxKurven + 2;
inline constexpr int kSerieUnten = kMaxKurven + 3;
inline constexpr int kSerieStufen = 28;
inline constexpr int kSerieFeed = kMaxKurven + 5;
// The series of each marker. Those of the marker lines that stand at a composition (24+8 ..
// 24+11) follow an exchange of the components; the others stand at a T, p or y and lie behind
// the McCabe-Thiele series, so that both can be on one diagram.
inline constexpr int kSerieML = kMaxKurven + 8;
inline constexpr int kSerie3Phasen = kMaxKurven + 9;
inline constexpr int kSerieTangente = kMaxKurven + 10;
inline constexpr int kSerieDiagonale = kMaxKurven + 11;
inline constexpr int kSerieTcr = kMaxKurven + 12;
inline constexpr int kSeriePcr = kMaxKurven + 13;
inline constexpr int kSerieNormalP = kMaxKurven + 14;
inline constexpr int kSerieY1 = kMaxKurven + 15;
inline constexpr int kSerieY0 = kMaxKurven + 16;

// The hole value: a point that is hidden. It is never moved by an operation on the points.
inline constexpr float kLoch = 3.0e38f;
inline bool IstLoch(float v) { return !(v < 1.0e38f && v > -1.0e38f); }

inline constexpr const char* kTitelWarnung = "WARNING";

enum class LinienMuster : int16_t { Keine, Voll, Strich, Punkt, StrichPunkt };
enum class Symbol : int16_t { Keins, Punkt, Kreis, Quadrat, Dreieck, Raute, Kreuz, Stern };

struct SerienStil {
  LinienMuster Muster = LinienMuster::Voll;
  float Breite = 1.5f;          // line width in pixels
  uint32_t Farbe = 0x000000;    // 0xRRGGBB
  Symbol Sym = Symbol::Keins;
  float SymGroesse = 7.0f;      // symbol size in pixels
  bool operator==(const SerienStil&) const = default;
};

// One series of the chart: points by x and y arrays, style, legend text and a label attached to
// one of its points (LabelPunkt 1-based, 0 when there is none).
struct Serie {
  std::vector<float> x, y;
  SerienStil Stil;
  std::string Legende;
  std::string Label;
  int LabelPunkt = 0;
  int Punkte() const { return static_cast<int>(x.size()); }
  void Leeren() {
    x.clear();
    y.clear();
    Legende.clear();
    Label.clear();
    LabelPunkt = 0;
  }
};

// A set of experimental points: liquid and vapour compositions as two series.
struct ExpSatz {
  Serie L, V;
  std::string Legende;
};

// A chart label attached to coordinates: the text of a marker, kept with the series it belongs
// to so that deleting the marker removes it.
struct ChartLabel {
  int Serie = 0;
  float x = 0, y = 0;
  std::string Text;
  bool operator==(const ChartLabel&) const = default;
};

struct Achsenbereich {
  float XMin = 0, XMax = 1, YMin = 0, YMax = 1;
  bool operator==(const Achsenbereich&) const = default;
};

struct Graph2DDoc {
  int16_t AnzKurven = 0;
  std::array<bool, kMaxKurven + 1> KurveFrei{};  // 1..24, true when free
  int16_t AktKurve = 0;
  int16_t BinodalSlot = 0;
  // KurvenZ(slot, row): row 0 the code of the third quantity, rows 1..2500 the z of each point.
  std::vector<float> KurvenZTab;
  std::array<Serie, kSerienAnz + 1> Serien;  // 1..40
  std::vector<ExpSatz> ExpSaetze;            // at most 12
  std::vector<ChartLabel> MarkerLabels;      // labels of the markers, at coordinates

  int16_t NoDia = 0;
  int16_t KurvenAnzahl = 1;
  double T = 0, p = 0;
  float x2 = 0;

  std::string Titel, XTitel, YTitel;
  Achsenbereich Bereich;      // what is shown
  Achsenbereich Gespeichert;  // the range a zoom returns to
  bool Gezoomt = false;
  bool XLog = false, YLog = false;
  // Number format of the tick labels of each axis (a printf pattern such as "%.2f"); empty for
  // the automatic one that suits the range.
  std::string XFormat, YFormat;

  Graph2DDoc();
  float& KurvenZ(int slot, int row) {
    return KurvenZTab[static_cast<std::size_t>(slot) * kKurvenZZeilen + static_cast<std::size_t>(row)];
  }
  float KurvenZ(int slot, int row) const {
    return KurvenZTab[static_cast<std::size_t>(slot) * kKurvenZZeilen + static_cast<std::size_t>(row)];
  }
};

// Sets the coordinates (shown and stored) and forgets a zoom.
void SetzeKoordinaten(Graph2DDoc& d, const Achsenbereich& b);

// The style a curve slot gets by default (colour and pattern cycle with the slot).
SerienStil StandardStil(int slot);

// The slot a new curve takes: the lowest free one, which is AnzKurven + 1 while no curve was
// deleted in between; 0 when all 24 are in use.
int16_t NaechsterSlot(const Graph2DDoc& d);

// The point of a curve of n points (n the last point with x below XMax) that carries its label:
// n / 1.2 - 0.03 n slot, rounded half-even, kept within 1..n; 0 for n = 0.
int LabelPunkt(int n, int slot);

// DrawCurve: hands the points 1..count (count from the header) of k to the next free slot,
// marks it used, gives it the style and the numeric label at the staggered point. All 24 slots
// in use: the warning "Maximum 24 curves possible" / "Delete existing curves" (title "WARNING"),
// Fehler true and nothing drawn. KurvenZ of the slot gets the header code and the z of each
// point up to 2500.
void DrawCurve(Graph2DDoc& d, const Kurve& k, int16_t& slot, bool& Fehler, MsgSink* sink);
std::string ZuVieleKurvenText();

// Exchange of the components on the drawn diagram: x := 1 - x on every point of the curve
// slots, the marker series 24+8..24+11 and the experimental sets; y := 1 - y as well for NoDia 3,
// 6 and 502. Holes stay. Nothing is recomputed. false (and no change) for NoDia 7 and 183.
bool TauscheKomponenten(Graph2DDoc& d);
bool TauschErlaubt(int16_t NoDia);

// Removes one curve: clears its series and its KurvenZ column, frees the slot, AnzKurven - 1.
// false when the slot holds no curve.
bool LoescheKurve(Graph2DDoc& d, int slot);
// Hides one point (1-based) of a series by the hole value; false when there is no such point.
bool LoeschePunkt(Graph2DDoc& d, int serie, int punkt);
// Removes every curve.
void LoescheAlleKurven(Graph2DDoc& d);
// Removes every curve, the markers and the experimental sets.
void LoescheAlles(Graph2DDoc& d);

// Coordinates from the coordinates dialog: both ranges must be finite with min < max, and a
// logarithmic axis needs min > 0. Returns the text to show when they are refused, else empty
// (and the coordinates are written, shown and stored).
std::string PruefeKoordinaten(const Graph2DDoc& d, const Achsenbereich& b);
bool SchreibeKoordinaten(Graph2DDoc& d, const Achsenbereich& b, std::string& Meldung);
inline constexpr const char* kKoordUngueltig = "The minimum must be smaller than the maximum.";
inline constexpr const char* kKoordLog = "A logarithmic axis needs a minimum above 0.";

// Toggles a logarithmic axis. Switching on with a minimum not above 0 moves the minimum to a
// thousandth of the maximum; false (no change) when the maximum is not above 0 either.
bool ToggleXLog(Graph2DDoc& d);
bool ToggleYLog(Graph2DDoc& d);

// Zoom on a rectangle (corners in any order, in data units) and back to the stored range.
// A rectangle without extent is ignored (false).
bool Zoom(Graph2DDoc& d, float x1, float y1, float x2, float y2);
void ZoomZurueck(Graph2DDoc& d);

// Point read-out: "point x =" + x + ",  y =" + y of point i (1-based) of series s.
std::string PunktText(const Graph2DDoc& d, int serie, int punkt);
// The state behind a point of a curve slot from KurvenZ: "T/K = ", "p/kPa = " or "x2 = " and the
// value; empty when the slot carries no third quantity or the point lies beyond row 2500.
std::string ZustandText(const Graph2DDoc& d, int slot, int punkt);
// A number as the read-out shows it (up to 7 significant digits, no trailing zeros).
std::string PunktZahl(double v);

inline constexpr const char* kHinweisRechtsklick =
    "(Hint: Right-click on a curve\nopens curve-design window)";

// One curve as clipboard text: per point x, tab, y, CR LF, each number as ".0000000E+00".
// Holes are left out.
std::string KurveAlsText(const Serie& s);
std::string FormatE7(double v);

// Adds an experimental set (at most 12); false when 12 are held. x := mole or mass fraction as
// the caller gives it.
bool NeuerExpSatz(Graph2DDoc& d, ExpSatz satz);

}  // namespace peq
