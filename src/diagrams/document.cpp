#include "diagrams/document.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "session/numeric.h"
#include "session/numformat.h"

namespace peq {

Graph2DDoc::Graph2DDoc() : KurvenZTab(static_cast<std::size_t>(kKurvenZSpalten) * kKurvenZZeilen, 0.0f) {
  KurveFrei.fill(true);
  KurveFrei[0] = false;
  for (int k = 1; k <= kSerienAnz; ++k) Serien[static_cast<std::size_t>(k)].Stil = StandardStil(k);
}

void SetzeKoordinaten(Graph2DDoc& d, const Achsenbereich& b) {
  d.Bereich = b;
  d.Gespeichert = b;
  d.Gezoomt = false;
}

SerienStil StandardStil(int slot) {
  // Eight well separated colours; the pattern changes after every eight slots.
  static constexpr uint32_t kFarben[8] = {0x1f4e9c, 0xc0392b, 0x1e8449, 0x8e44ad,
                                          0xd35400, 0x117a8b, 0x7d6608, 0x555555};
  SerienStil st;
  if (slot < 1) slot = 1;
  st.Farbe = kFarben[(slot - 1) % 8];
  const int runde = (slot - 1) / 8;
  st.Muster = runde == 0 ? LinienMuster::Voll : runde == 1 ? LinienMuster::Strich : LinienMuster::StrichPunkt;
  if (slot >= kMarkerErste) {
    st.Farbe = 0x606060;
    st.Muster = LinienMuster::Strich;
    st.Breite = 1.0f;
  }
  return st;
}

int16_t NaechsterSlot(const Graph2DDoc& d) {
  for (int16_t k = 1; k <= kMaxKurven; ++k)
    if (d.KurveFrei[static_cast<std::size_t>(k)]) return k;
  return 0;
}

int LabelPunkt(int n, int slot) {
  if (n <= 0) return 0;
  const double p = static_cast<double>(n) / 1.2 - 0.03 * n * slot;
  int i = static_cast<int>(RoundEven(p));
  return std::clamp(i, 1, n);
}

std::string ZuVieleKurvenText() {
  return "Maximum " + std::to_string(kMaxKurven) + " curves possible" + kNL + "Delete existing curves";
}

void DrawCurve(Graph2DDoc& d, const Kurve& k, int16_t& slot, bool& Fehler, MsgSink* sink) {
  Fehler = false;
  slot = NaechsterSlot(d);
  if (slot == 0) {
    slot = kMaxKurven;
    Post(sink, kTitelWarnung, ZuVieleKurvenText(), MsgIcon::Warning);
    Fehler = true;
    return;
  }
  int n = k.empty() ? 0 : static_cast<int>(k[0].x);
  n = std::clamp(n, 0, static_cast<int>(k.size()) - 1);
  Serie& s = d.Serien[static_cast<std::size_t>(slot)];
  s.x.resize(static_cast<std::size_t>(n));
  s.y.resize(static_cast<std::size_t>(n));
  int letzter = 0;  // last point with x below XMax
  for (int i = 1; i <= n; ++i) {
    const KurvenPunkt& pt = k[static_cast<std::size_t>(i)];
    s.x[static_cast<std::size_t>(i - 1)] = pt.x;
    s.y[static_cast<std::size_t>(i - 1)] = pt.y;
    if (pt.x < d.Bereich.XMax) letzter = i;
  }
  s.Stil = StandardStil(slot);
  s.Legende.clear();
  s.Label = std::to_string(slot);
  s.LabelPunkt = LabelPunkt(letzter, slot);
  // The state behind each point.
  d.KurvenZ(slot, 0) = k.empty() ? 0.0f : k[0].z;
  for (int i = 1; i < kKurvenZZeilen; ++i)
    d.KurvenZ(slot, i) = i <= n ? k[static_cast<std::size_t>(i)].z : 0.0f;
  d.KurveFrei[static_cast<std::size_t>(slot)] = false;
  ++d.AnzKurven;
  d.AktKurve = slot;
}

bool TauschErlaubt(int16_t NoDia) { return NoDia != 7 && NoDia != 183; }

namespace {

void Spiegeln(Serie& s, bool auchY) {
  for (float& v : s.x)
    if (!IstLoch(v)) v = 1.0f - v;
  if (auchY)
    for (float& v : s.y)
      if (!IstLoch(v)) v = 1.0f - v;
}

}  // namespace

bool TauscheKomponenten(Graph2DDoc& d) {
  if (!TauschErlaubt(d.NoDia)) return false;
  const bool auchY = d.NoDia == 3 || d.NoDia == 6 || d.NoDia == 502;
  for (int k = 1; k <= kMaxKurven; ++k) Spiegeln(d.Serien[static_cast<std::size_t>(k)], auchY);
  for (int k = kMarkerErste; k <= kMarkerLetzte; ++k) Spiegeln(d.Serien[static_cast<std::size_t>(k)], auchY);
  for (ExpSatz& e : d.ExpSaetze) {
    Spiegeln(e.L, auchY);
    Spiegeln(e.V, auchY);
  }
  // The labels of the mixing-gap lines stand at a composition: they move along.
  for (ChartLabel& l : d.MarkerLabels)
    if (l.Serie == kSerieML && !IstLoch(l.x)) l.x = 1.0f - l.x;
  return true;
}

bool LoescheKurve(Graph2DDoc& d, int slot) {
  if (slot < 1 || slot > kMaxKurven || d.KurveFrei[static_cast<std::size_t>(slot)]) return false;
  d.Serien[static_cast<std::size_t>(slot)].Leeren();
  for (int i = 0; i < kKurvenZZeilen; ++i) d.KurvenZ(slot, i) = 0.0f;
  d.KurveFrei[static_cast<std::size_t>(slot)] = true;
  if (d.AnzKurven > 0) --d.AnzKurven;
  if (d.BinodalSlot == slot) d.BinodalSlot = 0;
  if (d.AktKurve == slot) d.AktKurve = 0;
  return true;
}

bool LoeschePunkt(Graph2DDoc& d, int serie, int punkt) {
  if (serie < 1 || serie > kSerienAnz) return false;
  Serie& s = d.Serien[static_cast<std::size_t>(serie)];
  if (punkt < 1 || punkt > s.Punkte()) return false;
  s.x[static_cast<std::size_t>(punkt - 1)] = kLoch;
  s.y[static_cast<std::size_t>(punkt - 1)] = kLoch;
  return true;
}

void LoescheAlleKurven(Graph2DDoc& d) {
  for (int k = 1; k <= kMaxKurven; ++k) LoescheKurve(d, k);
  d.AnzKurven = 0;
  d.AktKurve = 0;
  d.BinodalSlot = 0;
}

void LoescheAlles(Graph2DDoc& d) {
  LoescheAlleKurven(d);
  for (int k = kMaxKurven + 1; k <= kSerienAnz; ++k) d.Serien[static_cast<std::size_t>(k)].Leeren();
  d.ExpSaetze.clear();
  d.MarkerLabels.clear();
}

std::string PruefeKoordinaten(const Graph2DDoc& d, const Achsenbereich& b) {
  for (float v : {b.XMin, b.XMax, b.YMin, b.YMax})
    if (!std::isfinite(v) || IstLoch(v)) return kKoordUngueltig;
  if (!(b.XMin < b.XMax) || !(b.YMin < b.YMax)) return kKoordUngueltig;
  if ((d.XLog && !(b.XMin > 0)) || (d.YLog && !(b.YMin > 0))) return kKoordLog;
  return {};
}

bool SchreibeKoordinaten(Graph2DDoc& d, const Achsenbereich& b, std::string& Meldung) {
  Meldung = PruefeKoordinaten(d, b);
  if (!Meldung.empty()) return false;
  SetzeKoordinaten(d, b);
  return true;
}

namespace {

bool ToggleLog(bool& flag, float& lo, float& hi, float& gLo) {
  if (flag) {
    flag = false;
    return true;
  }
  if (!(hi > 0)) return false;
  if (!(lo > 0)) lo = hi / 1000.0f;
  if (!(gLo > 0)) gLo = lo;
  flag = true;
  return true;
}

}  // namespace

bool ToggleXLog(Graph2DDoc& d) { return ToggleLog(d.XLog, d.Bereich.XMin, d.Bereich.XMax, d.Gespeichert.XMin); }
bool ToggleYLog(Graph2DDoc& d) { return ToggleLog(d.YLog, d.Bereich.YMin, d.Bereich.YMax, d.Gespeichert.YMin); }

bool Zoom(Graph2DDoc& d, float x1, float y1, float x2, float y2) {
  const float xa = std::min(x1, x2), xb = std::max(x1, x2);
  const float ya = std::min(y1, y2), yb = std::max(y1, y2);
  if (!(xa < xb) || !(ya < yb) || !std::isfinite(xa) || !std::isfinite(xb) || !std::isfinite(ya) ||
      !std::isfinite(yb))
    return false;
  if ((d.XLog && !(xa > 0)) || (d.YLog && !(ya > 0))) return false;
  d.Bereich = Achsenbereich{xa, xb, ya, yb};
  d.Gezoomt = true;
  return true;
}

void ZoomZurueck(Graph2DDoc& d) {
  d.Bereich = d.Gespeichert;
  d.Gezoomt = false;
}

std::string PunktZahl(double v) { return ZahlG(v, 7); }

std::string PunktText(const Graph2DDoc& d, int serie, int punkt) {
  if (serie < 1 || serie > kSerienAnz) return {};
  const Serie& s = d.Serien[static_cast<std::size_t>(serie)];
  if (punkt < 1 || punkt > s.Punkte()) return {};
  return "point x =" + PunktZahl(s.x[static_cast<std::size_t>(punkt - 1)]) +
         ",  y =" + PunktZahl(s.y[static_cast<std::size_t>(punkt - 1)]);
}

std::string ZustandText(const Graph2DDoc& d, int slot, int punkt) {
  if (slot < 1 || slot > kMaxKurven || punkt < 1 || punkt >= kKurvenZZeilen) return {};
  if (punkt > d.Serien[static_cast<std::size_t>(slot)].Punkte()) return {};
  const float code = d.KurvenZ(slot, 0);
  const float z = d.KurvenZ(slot, punkt);
  if (code == -1.0f) return "T/K = " + PunktZahl(z);
  if (code == -2.0f) return "p/kPa = " + PunktZahl(z);
  if (code == -5.0f) return "x2 = " + PunktZahl(z);
  return {};
}

std::string FormatE7(double v) {
  if (!std::isfinite(v)) v = 0;
  if (v == 0) return ".0000000E+00";
  const bool neg = v < 0;
  char buf[40];
  std::snprintf(buf, sizeof buf, "%.6E", std::fabs(v));  // d.ddddddE+xx: 7 significant digits
  const char* e = std::strchr(buf, 'E');
  const int expo = std::atoi(e + 1) + 1;
  std::string digits;
  for (const char* c = buf; c < e; ++c)
    if (*c >= '0' && *c <= '9') digits += *c;
  char ex[16];
  std::snprintf(ex, sizeof ex, "E%c%02d", expo < 0 ? '-' : '+', std::abs(expo));
  return std::string(neg ? "-" : "") + "." + digits + ex;
}

std::string KurveAlsText(const Serie& s) {
  std::string out;
  out.reserve(static_cast<std::size_t>(s.Punkte()) * 28);
  for (int i = 0; i < s.Punkte(); ++i) {
    const float x = s.x[static_cast<std::size_t>(i)], y = s.y[static_cast<std::size_t>(i)];
    if (IstLoch(x) || IstLoch(y)) continue;
    out += FormatE7(x);
    out += '\t';
    out += FormatE7(y);
    out += "\r\n";
  }
  return out;
}

bool NeuerExpSatz(Graph2DDoc& d, ExpSatz satz) {
  if (static_cast<int>(d.ExpSaetze.size()) >= kMaxExpSaetze) return false;
  d.ExpSaetze.push_back(std::move(satz));
  return true;
}

}  // namespace peq
