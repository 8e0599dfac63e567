#include "diagrams/diagram2d_file.h"

#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "diagrams/diagram_file_envelope.h"
#include "session/filewrite.h"

namespace peq {

using Json = nlohmann::ordered_json;

namespace {

// A float as the number of the file: the shortest decimal that reads back as the same float, so
// that the file stays short and a load gives every point bit for bit.
double Zahl(float v) {
  if (!std::isfinite(v)) v = kLoch;  // nothing that is no number reaches a file
  char buf[32];
  const auto r = std::to_chars(buf, buf + sizeof buf, v);
  double d = 0;
  std::from_chars(buf, r.ptr, d);
  if (static_cast<float>(d) != v) d = static_cast<double>(v);
  return d;
}

Json Zahlen(const std::vector<float>& v) {
  Json a = Json::array();
  a.get_ref<Json::array_t&>().reserve(v.size());
  for (float f : v) a.push_back(Zahl(f));
  return a;
}

std::string Farbe(uint32_t c) {
  char buf[8];
  std::snprintf(buf, sizeof buf, "#%06x", static_cast<unsigned>(c & 0xffffffu));
  return buf;
}

Json Stil(const SerienStil& s) {
  Json j = Json::object();
  j["pattern"] = static_cast<int>(s.Muster);
  j["width"] = Zahl(s.Breite);
  j["colour"] = Farbe(s.Farbe);
  j["symbol"] = static_cast<int>(s.Sym);
  j["symbolSize"] = Zahl(s.SymGroesse);
  return j;
}

Json Bereich(const Achsenbereich& b) {
  Json j = Json::object();
  j["xmin"] = Zahl(b.XMin);
  j["xmax"] = Zahl(b.XMax);
  j["ymin"] = Zahl(b.YMin);
  j["ymax"] = Zahl(b.YMax);
  return j;
}

Json Punkte(const Serie& s) {
  Json a = Json::array();
  for (int i = 0; i < s.Punkte(); ++i)
    a.push_back(Json::array({Zahl(s.x[static_cast<std::size_t>(i)]), Zahl(s.y[static_cast<std::size_t>(i)])}));
  return a;
}

// ---- reading: every value checked, a bad one ends the load with its place ----

struct Kaputt : std::runtime_error {
  using std::runtime_error::runtime_error;
};

const Json& Feld(const Json& o, const char* key) {
  if (!o.is_object()) throw Kaputt(std::string("\"") + key + "\" is not in an object");
  const auto it = o.find(key);
  if (it == o.end()) throw Kaputt(std::string("\"") + key + "\" is missing");
  return *it;
}

float LiesFloat(const Json& v, const char* what) {
  if (!v.is_number()) throw Kaputt(std::string(what) + " is not a number");
  const double d = v.get<double>();
  if (!std::isfinite(d) || std::fabs(d) > static_cast<double>(FLT_MAX)) throw Kaputt(std::string(what) + " is out of range");
  return static_cast<float>(d);
}

double LiesDouble(const Json& v, const char* what) {
  if (!v.is_number()) throw Kaputt(std::string(what) + " is not a number");
  const double d = v.get<double>();
  if (!std::isfinite(d)) throw Kaputt(std::string(what) + " is out of range");
  return d;
}

long LiesInt(const Json& v, const char* what, long lo, long hi) {
  if (!v.is_number_integer()) throw Kaputt(std::string(what) + " is not a whole number");
  if (v.is_number_unsigned() && v.get<unsigned long>() > static_cast<unsigned long>(hi))
    throw Kaputt(std::string(what) + " is out of range");
  const long n = v.get<long>();
  if (n < lo || n > hi) throw Kaputt(std::string(what) + " is out of range");
  return n;
}

bool LiesBool(const Json& v, const char* what) {
  if (!v.is_boolean()) throw Kaputt(std::string(what) + " is not true or false");
  return v.get<bool>();
}

std::string LiesText(const Json& v, const char* what) {
  if (!v.is_string()) throw Kaputt(std::string(what) + " is not a text");
  return v.get<std::string>();
}

std::vector<float> LiesZahlen(const Json& v, const char* what) {
  if (!v.is_array()) throw Kaputt(std::string(what) + " is not a list");
  if (v.size() > static_cast<std::size_t>(kMaxDateiPunkte)) throw Kaputt(std::string(what) + " has too many points");
  std::vector<float> r;
  r.reserve(v.size());
  for (const Json& e : v) r.push_back(LiesFloat(e, what));
  return r;
}

uint32_t LiesFarbe(const Json& v) {
  const std::string t = LiesText(v, "colour");
  if (t.size() != 7 || t[0] != '#') throw Kaputt("colour is not #rrggbb");
  uint32_t c = 0;
  const auto r = std::from_chars(t.data() + 1, t.data() + 7, c, 16);
  if (r.ec != std::errc() || r.ptr != t.data() + 7) throw Kaputt("colour is not #rrggbb");
  return c;
}

SerienStil LiesStil(const Json& j) {
  SerienStil s;
  s.Muster = static_cast<LinienMuster>(LiesInt(Feld(j, "pattern"), "pattern", 0, 4));
  s.Breite = LiesFloat(Feld(j, "width"), "width");
  s.Farbe = LiesFarbe(Feld(j, "colour"));
  s.Sym = static_cast<Symbol>(LiesInt(Feld(j, "symbol"), "symbol", 0, 7));
  s.SymGroesse = LiesFloat(Feld(j, "symbolSize"), "symbolSize");
  if (!(s.Breite >= 0 && s.Breite <= 100) || !(s.SymGroesse >= 0 && s.SymGroesse <= 100))
    throw Kaputt("a line width or symbol size is out of range");
  return s;
}

Achsenbereich LiesBereich(const Json& j) {
  Achsenbereich b;
  b.XMin = LiesFloat(Feld(j, "xmin"), "xmin");
  b.XMax = LiesFloat(Feld(j, "xmax"), "xmax");
  b.YMin = LiesFloat(Feld(j, "ymin"), "ymin");
  b.YMax = LiesFloat(Feld(j, "ymax"), "ymax");
  return b;
}

void LiesPunkte(const Json& v, Serie& s) {
  if (!v.is_array()) throw Kaputt("points is not a list");
  if (v.size() > static_cast<std::size_t>(kMaxDateiPunkte)) throw Kaputt("a set has too many points");
  for (const Json& p : v) {
    if (!p.is_array() || p.size() != 2) throw Kaputt("a point is not [x, y]");
    s.x.push_back(LiesFloat(p[0], "x"));
    s.y.push_back(LiesFloat(p[1], "y"));
  }
}

}  // namespace

std::string Diagramm2DText(const Graph2DDoc& d) {
  Json j = DiagrammHuelle("2d");
  Json dia = Json::object();
  dia["NoDia"] = d.NoDia;
  dia["KurvenAnzahl"] = d.KurvenAnzahl;
  dia["T"] = d.T;
  dia["p"] = d.p;
  dia["x2"] = Zahl(d.x2);
  dia["title"] = d.Titel;
  dia["AktKurve"] = d.AktKurve;
  dia["BinodalSlot"] = d.BinodalSlot;
  j["diagram"] = std::move(dia);

  Json ax = Json::object();
  Json x = Json::object();
  x["title"] = d.XTitel;
  x["min"] = Zahl(d.Bereich.XMin);
  x["max"] = Zahl(d.Bereich.XMax);
  x["log"] = d.XLog;
  x["format"] = d.XFormat;
  Json y = Json::object();
  y["title"] = d.YTitel;
  y["min"] = Zahl(d.Bereich.YMin);
  y["max"] = Zahl(d.Bereich.YMax);
  y["log"] = d.YLog;
  y["format"] = d.YFormat;
  ax["x"] = std::move(x);
  ax["y"] = std::move(y);
  ax["stored"] = Bereich(d.Gespeichert);
  ax["zoomed"] = d.Gezoomt;
  j["axes"] = std::move(ax);

  Json slots = Json::array();
  for (int k = 1; k <= kMaxKurven; ++k)
    if (!d.KurveFrei[static_cast<std::size_t>(k)]) slots.push_back(k);
  j["slots"] = std::move(slots);

  Json serien = Json::array();
  for (int k = 1; k <= kSerienAnz; ++k) {
    const Serie& s = d.Serien[static_cast<std::size_t>(k)];
    const bool benutzt = k <= kMaxKurven && !d.KurveFrei[static_cast<std::size_t>(k)];
    // A series is written when it holds something or differs from a fresh one in its style.
    const bool zcode = k <= kMaxKurven && d.KurvenZ(k, 0) != 0.0f;
    if (s.Punkte() == 0 && !benutzt && !zcode && s.Legende.empty() && s.Label.empty() && s.Stil == StandardStil(k))
      continue;
    Json o = Json::object();
    o["series"] = k;
    o["legend"] = s.Legende;
    o["label"] = s.Label;
    o["labelPoint"] = s.LabelPunkt;
    o["style"] = Stil(s.Stil);
    o["x"] = Zahlen(s.x);
    o["y"] = Zahlen(s.y);
    if (k <= kMaxKurven) {
      // The third quantity behind each point: the code of row 0 and the rows that carry points.
      Json z = Json::object();
      z["code"] = Zahl(d.KurvenZ(k, 0));
      const int n = std::min(s.Punkte(), kKurvenZZeilen - 1);
      Json werte = Json::array();
      werte.get_ref<Json::array_t&>().reserve(static_cast<std::size_t>(n));
      for (int i = 1; i <= n; ++i) werte.push_back(Zahl(d.KurvenZ(k, i)));
      z["z"] = std::move(werte);
      o["KurvenZ"] = std::move(z);
    }
    serien.push_back(std::move(o));
  }
  j["series"] = std::move(serien);

  Json labels = Json::array();
  for (const ChartLabel& l : d.MarkerLabels) {
    Json o = Json::object();
    o["series"] = l.Serie;
    o["x"] = Zahl(l.x);
    o["y"] = Zahl(l.y);
    o["text"] = l.Text;
    labels.push_back(std::move(o));
  }
  j["labels"] = std::move(labels);

  Json exp = Json::array();
  for (const ExpSatz& e : d.ExpSaetze) {
    Json o = Json::object();
    o["legend"] = e.Legende;
    Json l = Json::object();
    l["points"] = Punkte(e.L);
    l["style"] = Stil(e.L.Stil);
    l["legend"] = e.L.Legende;
    Json v = Json::object();
    v["points"] = Punkte(e.V);
    v["style"] = Stil(e.V.Stil);
    v["legend"] = e.V.Legende;
    o["liquid"] = std::move(l);
    o["vapour"] = std::move(v);
    exp.push_back(std::move(o));
  }
  j["experimental"] = std::move(exp);
  return j.dump(1) + "\n";
}

bool Diagramm2DLesen(std::string_view bytes, Graph2DDoc& ziel, std::string& msg) {
  Json j;
  if (!LiesDiagrammHuelle(bytes, "2d", j, msg)) return false;
  Graph2DDoc d;  // everything is read into a fresh document; the target changes only at the end
  try {
    const Json& dia = Feld(j, "diagram");
    d.NoDia = static_cast<int16_t>(LiesInt(Feld(dia, "NoDia"), "NoDia", -32768, 32767));
    d.KurvenAnzahl = static_cast<int16_t>(LiesInt(Feld(dia, "KurvenAnzahl"), "KurvenAnzahl", 0, 100));
    d.T = LiesDouble(Feld(dia, "T"), "T");
    d.p = LiesDouble(Feld(dia, "p"), "p");
    d.x2 = LiesFloat(Feld(dia, "x2"), "x2");
    d.Titel = LiesText(Feld(dia, "title"), "title");
    const auto akt = static_cast<int16_t>(LiesInt(Feld(dia, "AktKurve"), "AktKurve", 0, kMaxKurven));
    const auto bin = static_cast<int16_t>(LiesInt(Feld(dia, "BinodalSlot"), "BinodalSlot", 0, kMaxKurven));

    const Json& ax = Feld(j, "axes");
    const Json& x = Feld(ax, "x");
    const Json& y = Feld(ax, "y");
    d.XTitel = LiesText(Feld(x, "title"), "title");
    d.YTitel = LiesText(Feld(y, "title"), "title");
    d.Bereich = Achsenbereich{LiesFloat(Feld(x, "min"), "min"), LiesFloat(Feld(x, "max"), "max"),
                              LiesFloat(Feld(y, "min"), "min"), LiesFloat(Feld(y, "max"), "max")};
    d.XLog = LiesBool(Feld(x, "log"), "log");
    d.YLog = LiesBool(Feld(y, "log"), "log");
    d.XFormat = LiesText(Feld(x, "format"), "format");
    d.YFormat = LiesText(Feld(y, "format"), "format");
    d.Gespeichert = LiesBereich(Feld(ax, "stored"));
    d.Gezoomt = LiesBool(Feld(ax, "zoomed"), "zoomed");
    for (const Achsenbereich* b : {&d.Bereich, &d.Gespeichert})
      if (!(b->XMin < b->XMax) || !(b->YMin < b->YMax)) throw Kaputt("an axis range is empty");

    const Json& slots = Feld(j, "slots");
    if (!slots.is_array()) throw Kaputt("slots is not a list");
    for (const Json& k : slots) {
      const auto slot = static_cast<std::size_t>(LiesInt(k, "slot", 1, kMaxKurven));
      if (!d.KurveFrei[slot]) throw Kaputt("a slot is named twice");
      d.KurveFrei[slot] = false;
      ++d.AnzKurven;
    }
    if (akt != 0 && d.KurveFrei[static_cast<std::size_t>(akt)]) throw Kaputt("AktKurve names a free slot");
    if (bin != 0 && d.KurveFrei[static_cast<std::size_t>(bin)]) throw Kaputt("BinodalSlot names a free slot");
    d.AktKurve = akt;
    d.BinodalSlot = bin;

    const Json& serien = Feld(j, "series");
    if (!serien.is_array()) throw Kaputt("series is not a list");
    std::array<bool, kSerienAnz + 1> gelesen{};
    for (const Json& o : serien) {
      const int k = static_cast<int>(LiesInt(Feld(o, "series"), "series", 1, kSerienAnz));
      if (gelesen[static_cast<std::size_t>(k)]) throw Kaputt("a series is named twice");
      gelesen[static_cast<std::size_t>(k)] = true;
      Serie& s = d.Serien[static_cast<std::size_t>(k)];
      s.Legende = LiesText(Feld(o, "legend"), "legend");
      s.Label = LiesText(Feld(o, "label"), "label");
      s.Stil = LiesStil(Feld(o, "style"));
      s.x = LiesZahlen(Feld(o, "x"), "x");
      s.y = LiesZahlen(Feld(o, "y"), "y");
      if (s.x.size() != s.y.size()) throw Kaputt("x and y of a series differ in length");
      s.LabelPunkt = static_cast<int>(LiesInt(Feld(o, "labelPoint"), "labelPoint", 0, s.Punkte()));
      // A label at a point without a text of its own is named by the point.
      if (s.LabelPunkt > 0 && s.Label.empty()) s.Label = "P. " + std::to_string(s.LabelPunkt);
      if (k <= kMaxKurven) {
        const Json& z = Feld(o, "KurvenZ");
        d.KurvenZ(k, 0) = LiesFloat(Feld(z, "code"), "code");
        const std::vector<float> werte = LiesZahlen(Feld(z, "z"), "z");
        if (werte.size() > static_cast<std::size_t>(kKurvenZZeilen - 1)) throw Kaputt("KurvenZ has too many rows");
        for (std::size_t i = 0; i < werte.size(); ++i) d.KurvenZ(k, static_cast<int>(i) + 1) = werte[i];
      }
    }

    const Json& labels = Feld(j, "labels");
    if (!labels.is_array() || labels.size() > static_cast<std::size_t>(kMaxDateiLabels))
      throw Kaputt("labels is not a list of at most 1000");
    for (const Json& o : labels) {
      ChartLabel l;
      l.Serie = static_cast<int>(LiesInt(Feld(o, "series"), "series", kMaxKurven + 1, kSerienAnz));
      l.x = LiesFloat(Feld(o, "x"), "x");
      l.y = LiesFloat(Feld(o, "y"), "y");
      l.Text = LiesText(Feld(o, "text"), "text");
      d.MarkerLabels.push_back(std::move(l));
    }

    const Json& exp = Feld(j, "experimental");
    if (!exp.is_array() || exp.size() > static_cast<std::size_t>(kMaxExpSaetze))
      throw Kaputt("experimental is not a list of at most 12 sets");
    for (const Json& o : exp) {
      ExpSatz e;
      e.Legende = LiesText(Feld(o, "legend"), "legend");
      for (auto [key, ser] : {std::pair<const char*, Serie*>{"liquid", &e.L}, {"vapour", &e.V}}) {
        const Json& t = Feld(o, key);
        LiesPunkte(Feld(t, "points"), *ser);
        ser->Stil = LiesStil(Feld(t, "style"));
        ser->Legende = LiesText(Feld(t, "legend"), "legend");
      }
      d.ExpSaetze.push_back(std::move(e));
    }
  } catch (const Kaputt& e) {
    msg = std::string(kDiagrammBeschaedigt) + e.what() + ".";
    return false;
  } catch (const nlohmann::json::exception& e) {
    msg = std::string(kDiagrammBeschaedigt) + e.what();
    return false;
  }
  ziel = std::move(d);
  return true;
}

bool Diagramm2DSpeichern(const Graph2DDoc& d, const std::string& fileName, std::string& err) {
  return WriteReplacing(fileName, Diagramm2DText(d), err);
}

bool Diagramm2DLaden(const std::string& fileName, Graph2DDoc& d, std::string& msg) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    msg = "The file " + fileName + " cannot be read.";
    return false;
  }
  std::ostringstream ss;
  ss << in.rdbuf();
  return Diagramm2DLesen(ss.str(), d, msg);
}

}  // namespace peq
