// The 2D diagram window state: drawing through the curve tracer, legends and labels per diagram,
// the reports of the tracer, exchange of the components, delete, zoom, read-out and the curve
// as clipboard text, and the frame's diagram command that draws at once.
#include "windows/graph2d.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>

#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "windows/frame_fixture.h"

namespace {

using namespace peq;
using peqtest::FrameEnv;

struct Graph2DEnv : FrameEnv {
  frmGraph2D g;
  Graph2DEnv() {
    s.PfadBank = peqtest::BinaryDir() + "/";
    MsgSink sink;
    EXPECT_EQ(ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink), LoadStage::Loaded);
    EXPECT_TRUE(EOSTabellenBerechnen(s));
    f.DiagrammRechnen = [this] { Graph2DRechnen(f, g); };
  }
  // The diagram as the input window leaves it: NoDia, the fixed quantity, "Draw curve now".
  void Oeffne(int16_t noDia, double T, double p, bool sofort = true) {
    s.NoDia = noDia;
    s.TIso = T;
    s.PIso = p;
    s.SofortZeichnen = sofort;
    ui.boxes.clear();
    Graph2DRechnen(f, g);
  }
  int Boxes(const std::string& title, const std::string& text) const {
    int n = 0;
    for (const auto& b : ui.boxes)
      if (b.title == title && b.text == text) ++n;
    return n;
  }
};

TEST(Graph2D, PxDiagramDrawsTwoCurvesWithLegendsAndLabels) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_FALSE(e.s.SofortZeichnen);
  const Graph2DDoc& d = e.g.Doc;
  ASSERT_EQ(d.AnzKurven, 2);
  EXPECT_EQ(e.g.AnzGezeichnet, 2);
  EXPECT_EQ(d.Serien[1].Legende, "343.15 K  LV");
  EXPECT_EQ(d.Serien[2].Legende, "343.15 K  VL");
  EXPECT_EQ(d.Serien[1].Label, "LV");
  EXPECT_EQ(d.Serien[2].Label, "VL");
  EXPECT_GT(d.Serien[1].Punkte(), 100);
  EXPECT_GT(d.Serien[2].Punkte(), 100);
  // The T of each point behind the p-x curves.
  EXPECT_EQ(d.KurvenZ(1, 0), -1.0f);
  EXPECT_FLOAT_EQ(d.KurvenZ(1, 1), 343.15f);
  EXPECT_FALSE(d.Titel.empty());
  EXPECT_EQ(e.Boxes("WARNING", kAusserhalbText), 0);
  EXPECT_EQ(e.g.cmdTauschCaption, "1 - 2");
}

TEST(Graph2D, GoToTheDiagramOpensWithoutDrawing) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_EQ(e.g.Doc.AnzKurven, 0);
  e.g.cmdDraw_Click(e.f);
  EXPECT_EQ(e.g.Doc.AnzKurven, 2);
}

TEST(Graph2D, SecondTemperatureAddsTwoMoreCurvesWithStaggeredLabels) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  e.s.TIso = 353.15;
  e.g.cmdDraw_Click(e.f);
  const Graph2DDoc& d = e.g.Doc;
  ASSERT_EQ(d.AnzKurven, 4);
  EXPECT_EQ(d.Serien[3].Legende, "353.15 K  LV");
  EXPECT_EQ(d.Serien[4].Legende, "353.15 K  VL");
  EXPECT_EQ(d.AktKurve, 4);
  // Higher T, higher pressures.
  EXPECT_GT(d.Serien[3].y[0], d.Serien[1].y[0]);
  EXPECT_NE(d.Serien[1].LabelPunkt, 0);
}

TEST(Graph2D, ExchangeOfComponentsMirrorsTheDrawnCurvesWithoutRecomputing) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  const std::vector<float> x = e.g.Doc.Serien[1].x, y = e.g.Doc.Serien[1].y;
  const int zaehler = e.s.DiagrammZaehler;
  e.g.cmdTausch_Click(e.f);
  EXPECT_EQ(e.s.Komp1, 2);
  EXPECT_EQ(e.s.Komp2, 1);
  EXPECT_EQ(e.g.cmdTauschCaption, "2 - 1");
  EXPECT_EQ(e.s.DiagrammZaehler, zaehler);  // no new calculation
  ASSERT_EQ(e.g.Doc.Serien[1].x.size(), x.size());
  for (std::size_t i = 0; i < x.size(); ++i) {
    EXPECT_FLOAT_EQ(e.g.Doc.Serien[1].x[i], 1.0f - x[i]);
    EXPECT_FLOAT_EQ(e.g.Doc.Serien[1].y[i], y[i]);
  }
  e.g.cmdTausch_Click(e.f);
  EXPECT_EQ(e.s.Komp1, 1);
  EXPECT_EQ(e.s.Komp2, 2);
}

TEST(Graph2D, ExchangeRefusedForTheIsostericDiagram) {
  Graph2DEnv e;
  e.s.XIso = 0.5;
  e.Oeffne(7, 343.15, 101.325, false);
  EXPECT_FALSE(e.g.cmdTauschEnabled);
  e.g.Doc.Serien[1].x = {350.0f};
  e.g.Doc.Serien[1].y = {50.0f};
  e.g.cmdTausch_Click(e.f);
  EXPECT_EQ(e.s.Komp1, 1);
  EXPECT_FLOAT_EQ(e.g.Doc.Serien[1].x[0], 350.0f);
}

TEST(Graph2D, CurveOutsideTheCoordinatesWarnsAndIsDrawnAllTheSame) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  std::string m;
  ASSERT_TRUE(e.g.cmdCoord_OK(e.f, Achsenbereich{0, 1, 5000, 6000}, m));
  EXPECT_EQ(e.s.YMin, 5000.0f);
  e.g.cmdDraw_Click(e.f);
  EXPECT_EQ(e.Boxes("WARNING", "Curve outside the actual coordinates\n\nEnlarge the coordinates"), 1);
  EXPECT_EQ(e.g.Doc.AnzKurven, 2);
}

TEST(Graph2D, StopOfTheTracerDrawsNothing) {
  Graph2DEnv e;
  // The binodal curve of a mixture without a mixing gap: the tracer stops.
  e.Oeffne(1, 343.15, 101.325, false);
  e.g.Doc.NoDia = 41;
  e.g.cmdDraw_Click(e.f);
  EXPECT_EQ(e.Boxes("Note", "No mixing gap calculated!"), 1);
  EXPECT_EQ(e.g.LetzterFehler, -1);
  EXPECT_EQ(e.g.Doc.AnzKurven, 0);
  bool aborted = false;
  for (const auto& b : e.ui.boxes)
    if (b.title == "Aborted" && b.text.rfind("Critical error occured:", 0) == 0) aborted = true;
  EXPECT_TRUE(aborted);
}

TEST(Graph2D, TwentyFifthCurveIsRefusedWithTheWarning) {
  Graph2DEnv e;
  e.s.KurvenPunkte = 60;
  e.Oeffne(1, 330.0, 101.325);
  for (int k = 1; k < 12; ++k) {
    e.s.TIso = 330.0 + k;
    e.g.cmdDraw_Click(e.f);
  }
  ASSERT_EQ(e.g.Doc.AnzKurven, 24);
  e.ui.boxes.clear();
  e.s.TIso = 345.0;
  e.g.cmdDraw_Click(e.f);
  EXPECT_EQ(e.Boxes("WARNING", "Maximum 24 curves possible\nDelete existing curves"), 1);
  EXPECT_EQ(e.g.Doc.AnzKurven, 24);
  EXPECT_EQ(e.g.AnzGezeichnet, 0);
}

TEST(Graph2D, IsobaricXYDiagramOneCurveAndTheAzeotropeInTheStatusLine) {
  Graph2DEnv e;
  e.s.NoDia = 6;
  e.Oeffne(6, 343.15, 101.325);
  EXPECT_EQ(e.g.Doc.AnzKurven, 1);
  EXPECT_NE(e.g.Kommentar.find("azeotrope, x("), std::string::npos) << e.g.Kommentar;
}

TEST(Graph2D, TxDiagramLegendsCarryThePressure) {
  Graph2DEnv e;
  e.Oeffne(4, 343.15, 101.325);
  ASSERT_EQ(e.g.Doc.AnzKurven, 2);
  EXPECT_EQ(e.g.Doc.Serien[1].Legende, "101.325 kPa  LV");
  EXPECT_EQ(e.g.Doc.Serien[2].Legende, "101.325 kPa  VL");
  EXPECT_EQ(e.g.Doc.KurvenZ(1, 0), -2.0f);
}

TEST(Graph2D, LegendsAndLabelsPerDiagramNumber) {
  EXPECT_EQ(LegendeUndLabel(41, 1, 300, 100, 0.5f, 1, 2).Legende, "binodal curve");
  EXPECT_TRUE(LegendeUndLabel(41, 1, 300, 100, 0.5f, 1, 2).Label.empty());
  EXPECT_EQ(LegendeUndLabel(5, 1, 300, 100, 0.5f, 1, 2).Label, "1");
  EXPECT_EQ(LegendeUndLabel(51, 2, 300, 100, 0.5f, 1, 2).Label, "2");
  EXPECT_EQ(LegendeUndLabel(5, 1, 300, 100, 0.5f, 2, 1).Label, "2");
  EXPECT_EQ(LegendeUndLabel(7, 1, 300, 100, 0.25f, 1, 2).Legende, "x2 =0.25");
  EXPECT_EQ(LegendeUndLabel(183, 2, 300, 100, 0.5f, 1, 2).Legende, "x2 =0.5");
  EXPECT_EQ(LegendeUndLabel(8, 1, 300, 100, 0.5f, 1, 2).Legende, "f2");
  EXPECT_EQ(LegendeUndLabel(82, 2, 300, 100, 0.5f, 1, 2).Legende, "f1");
  EXPECT_EQ(LegendeUndLabel(81, 1, 300, 100, 0.5f, 1, 2).Legende, "ln(f2)");
  EXPECT_EQ(LegendeUndLabel(83, 2, 300, 100, 0.5f, 1, 2).Legende, "ln(f1)");
  EXPECT_EQ(LegendeUndLabel(1, 2, 298.15, 100, 0.5f, 1, 2).Legende, "298.15 K  VL");
  EXPECT_EQ(LegendeUndLabel(4, 1, 300, 101.325, 0.5f, 1, 2).Legende, "101.325 kPa  LV");
}

TEST(Graph2D, ActivityCoefficientsTwoCurvesNamedF2AndF1) {
  Graph2DEnv e;
  e.Oeffne(8, 343.15, 101.325);
  ASSERT_EQ(e.g.Doc.AnzKurven, 2);
  EXPECT_EQ(e.g.Doc.Serien[1].Legende, "f2");
  EXPECT_EQ(e.g.Doc.Serien[2].Legende, "f1");
  EXPECT_NE(e.g.Kommentar.find("limiting activity coeff."), std::string::npos);
}

TEST(Graph2D, ReadOutOnClickShowsPointStateAndTheHintOnce) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  const Serie& s = e.g.Doc.Serien[1];
  e.g.Chart_Click(e.f, 1, 3);
  const std::string erwartet = "point x =" + PunktZahl(s.x[2]) + ",  y =" + PunktZahl(s.y[2]);
  EXPECT_EQ(e.g.Status.rfind(erwartet, 0), 0u) << e.g.Status;
  EXPECT_NE(e.g.Status.find("T/K = 343.15"), std::string::npos);
  EXPECT_NE(e.g.Status.find(kHinweisRechtsklick), std::string::npos);
  e.g.Chart_Click(e.f, 1, 4);
  EXPECT_EQ(e.g.Status.find("Hint"), std::string::npos);
  e.g.Chart_MouseMove(2, 1);
  EXPECT_EQ(e.g.Status.rfind("point x =", 0), 0u);
  EXPECT_TRUE(e.g.Chart_RightClick(1));
  EXPECT_FALSE(e.g.Chart_RightClick(5));
}

TEST(Graph2D, DeletingAPointAsksFirst) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  e.ui.answers.push_back(Answer::No);
  EXPECT_FALSE(e.g.cmdMsgDelPoint(e.f, 1, 5));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.Last().title, "Delete a Curve Point");
  EXPECT_EQ(e.ui.Last().text, " Really delete?");
  EXPECT_FALSE(IstLoch(e.g.Doc.Serien[1].x[4]));
  e.ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(e.g.cmdMsgDelPoint(e.f, 1, 5));
  EXPECT_TRUE(IstLoch(e.g.Doc.Serien[1].x[4]));
  // The hidden point leaves the clipboard text.
  ASSERT_TRUE(e.g.cmdClipboard_Click(e.f, 1));
  std::size_t zeilen = 0;
  for (std::size_t p = 0; (p = e.ui.clipboard.find("\r\n", p)) != std::string::npos; p += 2) ++zeilen;
  EXPECT_EQ(zeilen, static_cast<std::size_t>(e.g.Doc.Serien[1].Punkte() - 1));
}

TEST(Graph2D, OneCurveToTheClipboardAsText) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  ASSERT_TRUE(e.g.cmdClipboard_Click(e.f, 2));
  const Serie& s = e.g.Doc.Serien[2];
  std::size_t zeilen = 0;
  for (std::size_t p = 0; (p = e.ui.clipboard.find("\r\n", p)) != std::string::npos; p += 2) ++zeilen;
  EXPECT_EQ(zeilen, static_cast<std::size_t>(s.Punkte()));
  const std::string erste = FormatE7(s.x[0]) + "\t" + FormatE7(s.y[0]) + "\r\n";
  EXPECT_EQ(e.ui.clipboard.substr(0, erste.size()), erste);
  EXPECT_FALSE(e.g.cmdClipboard_Click(e.f, 7));
}

TEST(Graph2D, DeleteOneCurveAndAll) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  e.g.mnuSubDelKurv_Click(e.f, 1);
  EXPECT_EQ(e.g.Doc.AnzKurven, 1);
  EXPECT_TRUE(e.g.Doc.KurveFrei[1]);
  e.g.cmdDraw_Click(e.f);  // refills slot 1, then takes slot 3
  EXPECT_EQ(e.g.Doc.AnzKurven, 3);
  EXPECT_FALSE(e.g.Doc.KurveFrei[3]);
  e.g.cmdDelKurv_Click(e.f);
  EXPECT_EQ(e.g.Doc.AnzKurven, 0);
}

TEST(Graph2D, ZoomSetsTheCoordinatesOfTheNextCurveAndGoesBack) {
  Graph2DEnv e;
  e.s.KurvenPunkte = 100;
  e.Oeffne(1, 343.15, 101.325);
  const Achsenbereich voll = e.g.Doc.Bereich;
  const int grob = e.g.Doc.Serien[1].Punkte();
  ASSERT_TRUE(e.g.cmdZoom(e.f, 0.0f, voll.YMin, 0.5f, voll.YMax));
  EXPECT_EQ(e.s.XMax, 0.5f);
  e.g.cmdDraw_Click(e.f);
  // A narrower view gives a finer step over the same walk.
  EXPECT_GT(e.g.Doc.Serien[3].Punkte(), grob);
  e.g.cmdZoomReset(e.f);
  EXPECT_EQ(e.g.Doc.Bereich, voll);
  EXPECT_EQ(e.s.XMax, voll.XMax);
}

TEST(Graph2D, FrameDiagramCommandDrawsAtOnceAfterDrawCurveNow) {
  Graph2DEnv e;
  e.ui.modalHandlers[WindowId::frmTpxInput] = [&e] {
    e.s.TIso = 343.15;
    e.s.SofortZeichnen = true;
    return true;
  };
  e.f.graf_Click(peqtest::C(Cmd::graf, 0));
  EXPECT_EQ(e.s.NoDia, 1);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_EQ(e.g.Doc.AnzKurven, 2);
}

// 600 points, NRTL: the drawing of one p-x set (tracer and document).
TEST(Graph2D, DrawingAPxSetOf600PointsIsQuick) {
  Graph2DEnv e;
  e.s.KurvenPunkte = 600;
  e.Oeffne(1, 343.15, 101.325, false);
  const auto t0 = std::chrono::steady_clock::now();
  e.g.cmdDraw_Click(e.f);
  const double ms = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
  std::printf("p-x set of %d + %d points drawn into the document in %.1f ms\n", e.g.Doc.Serien[1].Punkte(),
              e.g.Doc.Serien[2].Punkte(), ms);
  EXPECT_GE(e.g.Doc.Serien[1].Punkte(), 500);
  EXPECT_LT(ms, 100.0);
}

}  // namespace

namespace {

TEST(Graph2DUser, TheExchangeReordersThePureSubstanceStatus) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  const std::string vorher = e.g.Kommentar;
  ASSERT_EQ(vorher.rfind("pure-substance vapour pressures at ", 0), 0u) << vorher;
  ASSERT_LT(vorher.find("p0,1/kPa"), vorher.find("p0,2/kPa"));
  e.g.cmdTausch_Click(e.f);
  const std::string nachher = e.g.Kommentar;
  ASSERT_NE(nachher.find("p0,1/kPa"), std::string::npos);
  EXPECT_LT(nachher.find("p0,2/kPa"), nachher.find("p0,1/kPa")) << nachher;
  // The same numbers, in the new order.
  const std::string p01 = vorher.substr(vorher.find("p0,1/kPa"), vorher.find("p0,2") - vorher.find("p0,1/kPa"));
  EXPECT_NE(nachher.find(peq::Trim(p01)), std::string::npos);
}

TEST(Graph2DUser, TheSubtitleNamesTheComponentOfTheAbscissa) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  EXPECT_EQ(e.g.Untertitel, "x: " + peq::Trim(e.s.StoffData[2].Name));
  e.g.cmdTausch_Click(e.f);
  EXPECT_EQ(e.g.Untertitel, "x: " + peq::Trim(e.s.StoffData[1].Name));
  // The vapour-pressure diagram has T on its abscissa: no subtitle.
  e.Oeffne(7, 343.15, 101.325, false);
  EXPECT_EQ(e.g.Untertitel, "");
}

TEST(Graph2DUser, OneCurveAndOnePointAreDeletedFromTheMenu) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325);
  const auto liste = e.g.KurvenListe();
  ASSERT_EQ(liste.size(), 2u);
  EXPECT_EQ(liste[0].first, 1);
  EXPECT_EQ(liste[0].second, "1: 343.15 K  LV");
  e.g.mnuSubDelKurv_Click(e.f, 1);
  EXPECT_EQ(e.g.Doc.AnzKurven, 1);
  EXPECT_TRUE(e.g.Doc.KurveFrei[1]);
  ASSERT_EQ(e.g.KurvenListe().size(), 1u);
  // A click marks a point; the delete asks " Really delete?" and hides it on Yes.
  EXPECT_FALSE(e.g.mnuDelPoint_Click(e.f));  // nothing marked yet
  e.g.Chart_Click(e.f, 2, 5);
  EXPECT_EQ(e.g.MarkSerie, 2);
  e.ui.boxes.clear();
  e.ui.answers.push_back(Answer::No);
  EXPECT_FALSE(e.g.mnuDelPoint_Click(e.f));
  EXPECT_FALSE(IstLoch(e.g.Doc.Serien[2].x[4]));
  e.ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(e.g.mnuDelPoint_Click(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 2u);
  EXPECT_EQ(e.ui.Last().title, "Delete a Curve Point");
  EXPECT_EQ(e.ui.Last().text, " Really delete?");
  EXPECT_TRUE(IstLoch(e.g.Doc.Serien[2].x[4]) || IstLoch(e.g.Doc.Serien[2].y[4]));
}

TEST(Graph2DUser, ClosingADiagramWithCurvesAsksFirst) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  e.ui.boxes.clear();
  EXPECT_TRUE(e.g.SchliessenErlaubt(e.f));  // no curves: no question
  EXPECT_TRUE(e.ui.boxes.empty());
  e.g.cmdDraw_Click(e.f);
  e.ui.boxes.clear();
  e.ui.answers.push_back(Answer::No);
  EXPECT_FALSE(e.g.SchliessenErlaubt(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, kSchliessenTitel);
  e.ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(e.g.SchliessenErlaubt(e.f));
}

TEST(Graph2DUser, TheImageFileIsNamedAfterTheDiagramInLowerCase) {
  Graph2DEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  const std::string n = e.g.BildDateiName();
  ASSERT_GT(n.size(), 4u);
  EXPECT_EQ(n.substr(n.size() - 4), ".png");
  EXPECT_EQ(n.find('*'), std::string::npos);
  EXPECT_EQ(n.find(' '), std::string::npos);
  EXPECT_NE(n, "diagram.png");
}

}  // namespace
