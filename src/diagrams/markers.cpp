#include "diagrams/markers.h"

#include <algorithm>

namespace peq {

float MarkerLabelX(const Graph2DDoc& d) { return (d.Bereich.XMax - d.Bereich.XMin) / 7.0f + d.Bereich.XMin; }
float MarkerLabelY(const Graph2DDoc& d) { return (d.Bereich.YMax - d.Bereich.YMin) / 7.0f + d.Bereich.YMin; }

bool LoescheMarker(Graph2DDoc& d, int serie) {
  if (serie <= kMaxKurven || serie > kSerienAnz) return false;
  Serie& s = d.Serien[static_cast<std::size_t>(serie)];
  bool hatte = s.Punkte() > 0;
  s.Leeren();
  const auto alt = d.MarkerLabels.size();
  std::erase_if(d.MarkerLabels, [serie](const ChartLabel& l) { return l.Serie == serie; });
  return hatte || alt != d.MarkerLabels.size();
}

namespace {

// A fresh marker series with the marker style; what it held before goes.
Serie& Neu(Graph2DDoc& d, int serie) {
  LoescheMarker(d, serie);
  Serie& s = d.Serien[static_cast<std::size_t>(serie)];
  s.Stil = StandardStil(serie);
  return s;
}

void Punkt(Serie& s, float x, float y) {
  s.x.push_back(x);
  s.y.push_back(y);
}

void Label(Graph2DDoc& d, int serie, float x, float y, const std::string& text) {
  if (!text.empty()) d.MarkerLabels.push_back(ChartLabel{serie, x, y, text});
}

}  // namespace

void MarkeWaagerecht(Graph2DDoc& d, int serie, const float* y, const std::string* label, int n) {
  Serie& s = Neu(d, serie);
  const float lx = MarkerLabelX(d);
  for (int i = 0; i < n; ++i) {
    if (i > 0) Punkt(s, kLoch, kLoch);
    Punkt(s, d.Bereich.XMin, y[i]);
    Punkt(s, d.Bereich.XMax, y[i]);
    Label(d, serie, lx, y[i], label ? label[i] : std::string());
  }
}

void MarkeSenkrecht(Graph2DDoc& d, int serie, const float* x, const std::string* label, int n) {
  Serie& s = Neu(d, serie);
  const float ly = MarkerLabelY(d);
  for (int i = 0; i < n; ++i) {
    if (i > 0) Punkt(s, kLoch, kLoch);
    Punkt(s, x[i], -kMarkerSenkrecht);
    Punkt(s, x[i], kMarkerSenkrecht);
    Label(d, serie, x[i], ly, label ? label[i] : std::string());
  }
}

void MarkeDiagonale(Graph2DDoc& d) {
  Serie& s = Neu(d, kSerieDiagonale);
  Punkt(s, 0.0f, 0.0f);
  Punkt(s, 1.0f, 1.0f);
}

void MarkeY(Graph2DDoc& d, int serie, float v) { MarkeWaagerecht(d, serie, &v, nullptr, 1); }

void Marke3Phasen(Graph2DDoc& d, float xA, float xV, float xB, float w, const std::string& label) {
  Serie& s = Neu(d, kSerie3Phasen);
  float x[3] = {xA, xV, xB};
  std::sort(x, x + 3);
  for (float v : x) Punkt(s, v, w);
  s.Stil.Muster = LinienMuster::Voll;
  s.Stil.Sym = Symbol::Raute;
  s.Stil.Breite = 1.5f;
  Label(d, kSerie3Phasen, MarkerLabelX(d), w, label);
}

void MarkeTangente(Graph2DDoc& d, const float* x, const float* y, int n) {
  Serie& s = Neu(d, kSerieTangente);
  for (int i = 0; i < n; ++i) Punkt(s, x[i], y[i]);
  s.Stil.Muster = LinienMuster::Voll;
  s.Stil.Farbe = 0xb03060;
}

}  // namespace peq
