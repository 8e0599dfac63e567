// The 3D diagram window state: the surface commands of the frame, the refusal when the chart
// cannot be created, the bounds dialog, the grid size, draw, and the sections at T (or p) shown
// in a 2D diagram window and at x2.
#include "windows/graph3d.h"

#include <gtest/gtest.h>

#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "windows/frame_fixture.h"

namespace {

using namespace peq;
using peqtest::C;
using peqtest::FrameEnv;

struct Graph3DEnv : FrameEnv {
  Graph3DEnv() {
    s.PfadBank = peqtest::BinaryDir() + "/";
    MsgSink sink;
    EXPECT_EQ(ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink), LoadStage::Loaded);
    EXPECT_TRUE(EOSTabellenBerechnen(s));
  }
};

TEST(Graph3D, SurfaceCommandOpensTheWindowWithItsTextsAndBounds) {
  Graph3DEnv e;
  e.Start();
  e.s.TOffsetOut = 273.15;
  e.f.mnu3DSub_Click(0);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph3D));
  const frmGraph3D& g = e.f.Graph3D;
  EXPECT_EQ(g.Aufbau.Titel, "p = Fu(x2(L), T)");
  EXPECT_EQ(g.Aufbau.YAchse, "t/°C ");
  EXPECT_EQ(g.IXDim, 40);
  EXPECT_EQ(g.IYDim, 40);
  EXPECT_FALSE(g.Gezeichnet);
  EXPECT_EQ(g.Caption, "Diagram 3D: p = Fu(x2(L), T)");
  e.f.mnu3DSub_Click(7);
  EXPECT_EQ(e.f.Graph3D.Aufbau.Titel, "enthalpy of mixing");
  e.f.mnu3DSub_Click(3);
  EXPECT_EQ(e.f.Graph3D.Aufbau.GrenzText[5], "x2(V)(max");
}

TEST(Graph3D, RefusedWhenTheChartCannotBeCreated) {
  Graph3DEnv e;
  e.Start();
  e.ui.failShow.insert(WindowId::frmGraph3D);
  e.ui.boxes.clear();
  e.f.mnu3DSub_Click(0);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text,
            "The 3D-graph module olch3x8.ocx was not registrated properly in the installation procedure for PEQ.\n"
            "Please try to registrate it manually (see our homepage).");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmGraph3D));
  // Once the chart can be created the command works again.
  e.ui.failShow.clear();
  e.f.mnu3DSub_Click(0);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph3D));
}

TEST(Graph3D, BoundsDialogChecksAndTakesTheBounds) {
  Graph3DEnv e;
  e.Start();
  e.f.mnu3DSub_Click(0);
  frmGraph3D& g = e.f.Graph3D;
  std::string m;
  Grenzen3D b = g.Grenzen;
  b.XMin = 0.6f;
  b.XMax = 0.4f;
  EXPECT_FALSE(g.cmdGrenzen_OK(b, m));
  EXPECT_EQ(m, " input was not in the valid range ");
  b.XMin = -0.1f;
  b.XMax = 1;
  EXPECT_FALSE(g.cmdGrenzen_OK(b, m));
  b = g.Grenzen;
  b.YMin = -300;  // below 0 K
  EXPECT_FALSE(g.cmdGrenzen_OK(b, m));
  b = g.Grenzen;
  b.ZMin = 10;
  b.ZMax = 5;
  EXPECT_FALSE(g.cmdGrenzen_OK(b, m));
  b.ZMax = kOhneZMax;  // no upper bound: any lower bound goes
  EXPECT_TRUE(g.cmdGrenzen_OK(b, m));
  b = g.Grenzen;
  b.YMin = 30;
  b.YMax = 60;
  EXPECT_TRUE(g.cmdGrenzen_OK(b, m)) << m;
  EXPECT_EQ(g.Grenzen.YMin, 30.0f);
  EXPECT_FALSE(g.Gittergroesse(1, 40, m));
  EXPECT_FALSE(g.Gittergroesse(40, 201, m));
  EXPECT_TRUE(g.Gittergroesse(10, 5, m));
  EXPECT_EQ(g.IXDim, 10);
  EXPECT_EQ(g.IYDim, 5);
}

TEST(Graph3D, DrawFillsTheGridUnderTheWaitCursor) {
  Graph3DEnv e;
  e.s.TOffsetOut = 273.15;
  e.f.mnu3DSub_Click(0);
  frmGraph3D& g = e.f.Graph3D;
  std::string m;
  ASSERT_TRUE(g.Gittergroesse(6, 4, m));
  e.ui.refreshed.clear();
  g.cmdDraw_Click(e.f);
  EXPECT_TRUE(g.Gezeichnet);
  EXPECT_EQ(g.Loecher, 0);
  ASSERT_EQ(g.ResFeld.IXDim(), 6);
  ASSERT_EQ(g.ResFeld.IYDim(), 4);
  EXPECT_NEAR(g.ResFeld(1, 1), 5.9, 0.3);  // ethanol at 20 °C
  EXPECT_EQ(e.ui.waitCursorOn, 0);
  ASSERT_FALSE(e.ui.refreshed.empty());
  EXPECT_EQ(e.ui.refreshed.back(), WindowId::frmGraph3D);
  // A change of the grid asks for a new drawing.
  ASSERT_TRUE(g.Gittergroesse(8, 4, m));
  EXPECT_FALSE(g.Gezeichnet);
}

TEST(Graph3D, SectionAtTIsThePxCurveInA2DWindow) {
  Graph3DEnv e;
  e.s.TOffsetOut = 273.15;
  e.f.mnu3DSub_Click(0);
  frmGraph3D& g = e.f.Graph3D;
  std::string m;
  ASSERT_TRUE(g.Gittergroesse(10, 8, m));
  ASSERT_TRUE(g.SchnittZeigenY(e.f, 70.0));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  const Graph2DDoc& d = e.f.Graph2D.Doc;
  EXPECT_EQ(d.NoDia, 1);
  EXPECT_NEAR(e.s.TIso, 343.15, 1e-9);
  ASSERT_EQ(d.AnzKurven, 1);
  ASSERT_EQ(d.Serien[1].Punkte(), 10);
  EXPECT_EQ(d.Serien[1].Legende, "t/°C = 70");
  // The points: the bubble pressures of the surface's row at 70 °C.
  Grenzen3D b = g.Grenzen;
  b.YMin = 70;
  b.YMax = 71;
  Feld3D f;
  ASSERT_EQ(Calc_3DArray(e.s, 0, 10, 1, f, b, false), 0);
  for (int i = 1; i <= 10; ++i) {
    EXPECT_FLOAT_EQ(d.Serien[1].x[static_cast<std::size_t>(i - 1)], static_cast<float>((i - 1) * 0.1));
    EXPECT_EQ(d.Serien[1].y[static_cast<std::size_t>(i - 1)], f(i, 1));
  }
  // Outside the bounds there is no section.
  e.ui.boxes.clear();
  EXPECT_FALSE(g.SchnittZeigenY(e.f, 150.0));
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
}

TEST(Graph3D, SectionAtX2RunsOverTheSecondAxis) {
  Graph3DEnv e;
  e.s.TOffsetOut = 273.15;
  e.f.mnu3DSub_Click(0);
  frmGraph3D& g = e.f.Graph3D;
  std::string m;
  ASSERT_TRUE(g.Gittergroesse(10, 8, m));
  Kurve k;
  ASSERT_TRUE(g.SchnittX(e.s, 0.5, k));
  ASSERT_EQ(k[0].x, 8.0f);
  // t = 20, 30, ... 90 °C; the pressure rises with T.
  EXPECT_FLOAT_EQ(k[1].x, 20.0f);
  EXPECT_FLOAT_EQ(k[8].x, 90.0f);
  for (int j = 2; j <= 8; ++j) EXPECT_GT(k[static_cast<std::size_t>(j)].y, k[static_cast<std::size_t>(j - 1)].y);
  ASSERT_TRUE(g.SchnittZeigenX(e.f, 0.5));
  EXPECT_EQ(e.f.Graph2D.Doc.Serien[1].Punkte(), 8);
  EXPECT_EQ(e.f.Graph2D.Doc.XTitel, "t/°C ");
  EXPECT_EQ(e.f.Graph2D.Doc.YTitel, "p/kPa");
}

}  // namespace
