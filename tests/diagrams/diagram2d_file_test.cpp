// The diagram file of the 2D document: a saved and loaded diagram equals the saved one in every
// series, label, axis, style, experimental set and KurvenZ row; a second save gives the same
// bytes; files that are no such document, of another version or kind, or damaged are refused
// with a clear text and leave the document as it was.
#include "diagrams/diagram2d_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "diagrams/diagram_file_envelope.h"
#include "diagrams/markers.h"
#include "support/fixtures.h"

namespace {

using namespace peq;

void ExpectSameSerie(const Serie& a, const Serie& b, const std::string& where) {
  EXPECT_EQ(a.x, b.x) << where;
  EXPECT_EQ(a.y, b.y) << where;
  EXPECT_EQ(a.Stil, b.Stil) << where;
  EXPECT_EQ(a.Legende, b.Legende) << where;
  EXPECT_EQ(a.Label, b.Label) << where;
  EXPECT_EQ(a.LabelPunkt, b.LabelPunkt) << where;
}

// Every datum of the document.
void ExpectSameDoc(const Graph2DDoc& a, const Graph2DDoc& b) {
  EXPECT_EQ(a.AnzKurven, b.AnzKurven);
  EXPECT_EQ(a.KurveFrei, b.KurveFrei);
  EXPECT_EQ(a.AktKurve, b.AktKurve);
  EXPECT_EQ(a.BinodalSlot, b.BinodalSlot);
  EXPECT_TRUE(a.KurvenZTab == b.KurvenZTab);
  for (int k = 1; k <= kSerienAnz; ++k)
    ExpectSameSerie(a.Serien[static_cast<std::size_t>(k)], b.Serien[static_cast<std::size_t>(k)], "series " + std::to_string(k));
  ASSERT_EQ(a.ExpSaetze.size(), b.ExpSaetze.size());
  for (std::size_t i = 0; i < a.ExpSaetze.size(); ++i) {
    EXPECT_EQ(a.ExpSaetze[i].Legende, b.ExpSaetze[i].Legende);
    ExpectSameSerie(a.ExpSaetze[i].L, b.ExpSaetze[i].L, "exp L");
    ExpectSameSerie(a.ExpSaetze[i].V, b.ExpSaetze[i].V, "exp V");
  }
  EXPECT_EQ(a.MarkerLabels, b.MarkerLabels);
  EXPECT_EQ(a.NoDia, b.NoDia);
  EXPECT_EQ(a.KurvenAnzahl, b.KurvenAnzahl);
  EXPECT_EQ(a.T, b.T);
  EXPECT_EQ(a.p, b.p);
  EXPECT_EQ(a.x2, b.x2);
  EXPECT_EQ(a.Titel, b.Titel);
  EXPECT_EQ(a.XTitel, b.XTitel);
  EXPECT_EQ(a.YTitel, b.YTitel);
  EXPECT_EQ(a.Bereich, b.Bereich);
  EXPECT_EQ(a.Gespeichert, b.Gespeichert);
  EXPECT_EQ(a.Gezoomt, b.Gezoomt);
  EXPECT_EQ(a.XLog, b.XLog);
  EXPECT_EQ(a.YLog, b.YLog);
  EXPECT_EQ(a.XFormat, b.XFormat);
  EXPECT_EQ(a.YFormat, b.YFormat);
}

Kurve Punkte(int n, float dy, float z) {
  Kurve k(static_cast<std::size_t>(n) + 1);
  k[0].x = static_cast<float>(n);
  k[0].z = -1.0f;
  for (int i = 1; i <= n; ++i)
    k[static_cast<std::size_t>(i)] = KurvenPunkt{std::sqrt(static_cast<float>(i)) * 3.3f + dy, i / static_cast<float>(n), z + 0.1f * i};
  return k;
}

// A document with curves, a hole, markers, an experimental set, styles and axes set.
Graph2DDoc Voll() {
  Graph2DDoc d;
  d.NoDia = 1;
  d.KurvenAnzahl = 2;
  d.T = 343.15;
  d.p = 101.325;
  d.x2 = 0.3f;
  d.Titel = "p-x diagram (NRTL, ideal gas)";
  d.XTitel = "mole fraction x(L)";
  d.YTitel = "p/kPa";
  SetzeKoordinaten(d, Achsenbereich{0, 1, 10, 90});
  Zoom(d, 0.1f, 20, 0.6f, 70);
  d.YLog = true;
  d.XFormat = "%.2f";
  for (int c = 0; c < 3; ++c) {
    int16_t slot = 0;
    bool full = false;
    DrawCurve(d, Punkte(50 + c, 1.7f * c, 343.15f), slot, full, nullptr);
    d.Serien[static_cast<std::size_t>(slot)].Legende = "343.15 K  LV " + std::to_string(c);
  }
  d.Serien[2].Stil.Sym = Symbol::Dreieck;
  d.Serien[2].Stil.Farbe = 0x123456;
  d.Serien[2].Label = "VL";
  LoeschePunkt(d, 1, 7);
  LoescheKurve(d, 2);  // a free slot between used ones
  d.BinodalSlot = 3;
  const float v[2] = {513.9f, 647.1f};
  const std::string l[2] = {"Tcr (1)", "Tcr (2)"};
  MarkeWaagerecht(d, kSerieTcr, v, l, 2);
  const float x[2] = {0.1f, 0.7f};
  const std::string lx[2] = {"0.1000", "0.7000"};
  MarkeSenkrecht(d, kSerieML, x, lx, 2);
  Marke3Phasen(d, 0.1f, 0.25f, 0.7f, 80.5f, "3-phase point: x(2) = 0.2500, T/K = 343.15, p/kPa = 80.500");
  ExpSatz e;
  e.Legende = "Smith 1990 \xc2\xb0""C";
  e.L.x = {0.1f, 0.2f};
  e.L.y = {30.5f, 40.25f};
  e.V.x = {0.3f};
  e.V.y = {30.5f};
  e.L.Stil.Sym = Symbol::Kreis;
  NeuerExpSatz(d, e);
  return d;
}

TEST(Diagram2DFile, SavedAndLoadedDiagramEqualsTheSavedOne) {
  const Graph2DDoc d = Voll();
  const std::string text = Diagramm2DText(d);
  Graph2DDoc g;
  std::string msg;
  ASSERT_TRUE(Diagramm2DLesen(text, g, msg)) << msg;
  ExpectSameDoc(d, g);
  // A second save gives the same bytes.
  EXPECT_EQ(Diagramm2DText(g), text);
}

TEST(Diagram2DFile, EnvelopeComesFirst) {
  const std::string text = Diagramm2DText(Voll());
  EXPECT_EQ(text.rfind("{\n \"format\": \"PEQ diagram\",\n \"version\": 1,\n \"kind\": \"2d\",", 0), 0u)
      << text.substr(0, 80);
}

TEST(Diagram2DFile, EveryFloatComesBackBitForBit) {
  Graph2DDoc d;
  Kurve k(6);
  k[0].x = 5;
  const float v[5] = {0.1f, 1.0f / 3.0f, 3.4028234e38f * 0.25f, 1.17549435e-38f, -7.0e-45f};
  for (int i = 1; i <= 5; ++i) k[static_cast<std::size_t>(i)] = KurvenPunkt{v[i - 1], v[5 - i], v[i - 1]};
  int16_t slot = 0;
  bool full = false;
  DrawCurve(d, k, slot, full, nullptr);
  Graph2DDoc g;
  std::string msg;
  ASSERT_TRUE(Diagramm2DLesen(Diagramm2DText(d), g, msg)) << msg;
  ExpectSameDoc(d, g);
}

TEST(Diagram2DFile, ALabelAtAPointWithoutTextIsNamedByThePoint) {
  Graph2DDoc d = Voll();
  d.Serien[1].Label.clear();
  d.Serien[1].LabelPunkt = 12;
  Graph2DDoc g;
  std::string msg;
  ASSERT_TRUE(Diagramm2DLesen(Diagramm2DText(d), g, msg)) << msg;
  EXPECT_EQ(g.Serien[1].Label, "P. 12");
}

TEST(Diagram2DFile, FileRoundTripThroughTheDisk) {
  peqtest::TempDir dir;
  const Graph2DDoc d = Voll();
  std::string err;
  ASSERT_TRUE(Diagramm2DSpeichern(d, dir.File("a.oc2"), err)) << err;
  Graph2DDoc g;
  ASSERT_TRUE(Diagramm2DLaden(dir.File("a.oc2"), g, err)) << err;
  ExpectSameDoc(d, g);
  EXPECT_FALSE(Diagramm2DLaden(dir.File("none.oc2"), g, err));
  EXPECT_EQ(err, "The file " + dir.File("none.oc2") + " cannot be read.");
}

// The refusals: the text, and the document as it was.
void ExpectRefused(const std::string& bytes, const std::string& text) {
  Graph2DDoc d = Voll();
  std::string msg;
  EXPECT_FALSE(Diagramm2DLesen(bytes, d, msg));
  EXPECT_EQ(msg, text);
  ExpectSameDoc(d, Voll());
}

TEST(Diagram2DFile, ForeignFilesAreRefusedAndChangeNothing) {
  ExpectRefused("", "The file is not a PEQ diagram file.");
  ExpectRefused("hello", "The file is not a PEQ diagram file.");
  ExpectRefused("\x89PNG\r\n\x1a\n", "The file is not a PEQ diagram file.");
  ExpectRefused("[1, 2, 3]", "The file is not a PEQ diagram file.");
  ExpectRefused("{\"format\": \"other\", \"version\": 1, \"kind\": \"2d\"}", "The file is not a PEQ diagram file.");
  ExpectRefused("{\"format\": \"PEQ diagram\", \"version\": 2, \"kind\": \"2d\"}",
                "The diagram file has version 2; this program reads version 1.");
  ExpectRefused("{\"format\": \"PEQ diagram\", \"version\": 1, \"kind\": \"3d\"}",
                "The file holds a 3d diagram, not a 2d diagram.");
  ExpectRefused("{\"format\": \"PEQ diagram\", \"version\": 1, \"kind\": \"2d\"}",
                "The diagram file is damaged: \"diagram\" is missing.");
}

TEST(Diagram2DFile, DamagedFilesAreRefusedAndChangeNothing) {
  const std::string good = Diagramm2DText(Voll());
  // Cut short.
  ExpectRefused(good.substr(0, good.size() / 2), "The file is not a PEQ diagram file.");
  auto ersetze = [&](const std::string& from, const std::string& to) {
    std::string t = good;
    const std::size_t p = t.find(from);
    EXPECT_NE(p, std::string::npos) << from;
    if (p != std::string::npos) t.replace(p, from.size(), to);
    return t;
  };
  ExpectRefused(ersetze("\"NoDia\": 1", "\"NoDia\": \"1\""), "The diagram file is damaged: NoDia is not a whole number.");
  ExpectRefused(ersetze("\"series\": 1,", "\"series\": 41,"), "The diagram file is damaged: series is out of range.");
  ExpectRefused(ersetze("\"colour\": \"#123456\"", "\"colour\": \"blue\""),
                "The diagram file is damaged: colour is not #rrggbb.");
  ExpectRefused(ersetze("\"xmin\": 0.0,", "\"xmin\": 1e300,"), "The diagram file is damaged: xmin is out of range.");
  ExpectRefused(ersetze("\"min\": 0.1,", "\"min\": 0.9,"), "The diagram file is damaged: an axis range is empty.");
  ExpectRefused(ersetze("\"slots\": [\n  1,", "\"slots\": [\n  1,\n  1,"),
                "The diagram file is damaged: a slot is named twice.");
}

TEST(Diagram2DFile, EnvelopeCheckServesBothKinds) {
  nlohmann::ordered_json d = DiagrammHuelle("3d");
  EXPECT_EQ(d.dump(), "{\"format\":\"PEQ diagram\",\"version\":1,\"kind\":\"3d\"}");
  EXPECT_EQ(PruefeDiagrammHuelle(d, "3d"), "");
  EXPECT_EQ(PruefeDiagrammHuelle(d, "2d"), "The file holds a 3d diagram, not a 2d diagram.");
  d["version"] = "1";
  EXPECT_EQ(PruefeDiagrammHuelle(d, "3d"), "The file is not a PEQ diagram file.");
  nlohmann::ordered_json j;
  std::string msg;
  EXPECT_TRUE(LiesDiagrammHuelle("{\"format\":\"PEQ diagram\",\"version\":1,\"kind\":\"3d\",\"grid\":[]}", "3d", j, msg));
  EXPECT_TRUE(j.contains("grid"));
  EXPECT_FALSE(LiesDiagrammHuelle("{\"format\":\"PEQ diagram\",\"version\":1,\"kind\":\"3d\"", "3d", j, msg));
  EXPECT_EQ(msg, "The file is not a PEQ diagram file.");
}

}  // namespace
