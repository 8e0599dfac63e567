// The markers of the 2D diagram window on drawn diagrams: each marker's series, label text and
// position (one seventh into the plot), the refusals with their words, the tie line and the
// three-phase point at the gap of water/1-butanol, the binodal curve in its slot, and the
// delete commands.
#include "windows/graph2dmarker.h"

#include <gtest/gtest.h>

#include "diagrams/markers.h"
#include "engine/gap.h"
#include "engine/gap_sessions.h"
#include "engine/kernel.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "windows/frame_fixture.h"

namespace {

using namespace peq;
using peqtest::FrameEnv;

struct MarkerEnv : FrameEnv {
  frmGraph2D g;
  // The ethanol/water example project, or water/1-butanol built by hand (gap = true).
  explicit MarkerEnv(bool gap = false) {
    if (gap) {
      s = peqtest::WaterButanol();
      s.TOffsetOut = 0;
    } else {
      s.PfadBank = peqtest::BinaryDir() + "/";
      MsgSink sink;
      EXPECT_EQ(ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink), LoadStage::Loaded);
      EXPECT_TRUE(EOSTabellenBerechnen(s));
    }
  }
  void Oeffne(int16_t noDia, double T, double p, float xmin, float xmax, float ymin, float ymax) {
    s.NoDia = noDia;
    s.IsoArt = IsoArtOf(noDia);
    s.TIso = T;
    s.PIso = p;
    s.SofortZeichnen = false;
    GraphAufbau a;
    ASSERT_TRUE(ZentraleGraph(s, noDia, a));
    g.Form_Load(f, a);
    std::string m;
    ASSERT_TRUE(g.cmdCoord_OK(f, Achsenbereich{xmin, xmax, ymin, ymax}, m)) << m;
    g.cmdDraw_Click(f);
    ui.boxes.clear();
  }
  const Serie& S(int k) const { return g.Doc.Serien[static_cast<std::size_t>(k)]; }
  std::vector<ChartLabel> Labels(int serie) const {
    std::vector<ChartLabel> l;
    for (const ChartLabel& c : g.Doc.MarkerLabels)
      if (c.Serie == serie) l.push_back(c);
    return l;
  }
};

TEST(Markers, CriticalTemperaturesOnTheTAxisOfTheTxDiagram) {
  MarkerEnv e;
  e.s.TOffsetOut = 0;
  e.Oeffne(4, 350, 101.325, 0, 1, 300, 700);
  ASSERT_GT(e.g.Doc.AnzKurven, 0);
  mnuMarkTcr_Click(e.f, e.g);
  const Serie& s = e.S(kSerieTcr);
  // Two horizontal lines parted by a hole: XMin..XMax at T(cr) of each component.
  ASSERT_EQ(s.Punkte(), 5);
  EXPECT_FLOAT_EQ(s.x[0], 0.0f);
  EXPECT_FLOAT_EQ(s.x[1], 1.0f);
  EXPECT_FLOAT_EQ(s.y[0], e.s.TKrit[1]);
  EXPECT_FLOAT_EQ(s.y[1], e.s.TKrit[1]);
  EXPECT_TRUE(IstLoch(s.x[2]));
  EXPECT_FLOAT_EQ(s.y[3], e.s.TKrit[2]);
  const auto l = e.Labels(kSerieTcr);
  ASSERT_EQ(l.size(), 2u);
  EXPECT_EQ(l[0].Text, "Tcr (1)");
  EXPECT_EQ(l[1].Text, "Tcr (2)");
  EXPECT_FLOAT_EQ(l[0].x, 1.0f / 7.0f);
  EXPECT_FLOAT_EQ(l[1].y, e.s.TKrit[2]);
  // The curves stay where they were.
  EXPECT_EQ(e.g.Doc.AnzKurven, 2);
  mnuDelTcr_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerieTcr).Punkte(), 0);
  EXPECT_TRUE(e.Labels(kSerieTcr).empty());
}

TEST(Markers, CriticalTemperaturesInDegreesAreVerticalOnTheVapourPressureCurve) {
  MarkerEnv e;
  e.s.TOffsetOut = 273.15;
  e.s.XIso = 0.5;
  e.Oeffne(7, 350, 101.325, 0, 400, 0, 30000);
  mnuMarkTcr_Click(e.f, e.g);
  const Serie& s = e.S(kSerieTcr);
  ASSERT_EQ(s.Punkte(), 5);
  EXPECT_FLOAT_EQ(s.x[0], static_cast<float>(e.s.TKrit[1] - 273.15));
  EXPECT_FLOAT_EQ(s.x[1], s.x[0]);
  EXPECT_FLOAT_EQ(s.y[0], -kMarkerSenkrecht);
  EXPECT_FLOAT_EQ(s.y[1], kMarkerSenkrecht);
  const auto l = e.Labels(kSerieTcr);
  ASSERT_EQ(l.size(), 2u);
  EXPECT_FLOAT_EQ(l[0].y, 30000.0f / 7.0f);
  EXPECT_FLOAT_EQ(l[0].x, s.x[0]);
}

TEST(Markers, CriticalAndNormalPressureOnThePxDiagram) {
  MarkerEnv e;
  e.Oeffne(1, 343.15, 101.325, 0, 1, 0, 100);
  mnuMarkPcr_Click(e.f, e.g);
  mnuMarkPnp_Click(e.f, e.g);
  const auto pc = e.Labels(kSeriePcr);
  ASSERT_EQ(pc.size(), 2u);
  EXPECT_EQ(pc[0].Text, "p(cr(1)");
  EXPECT_EQ(pc[1].Text, "p(cr(2)");
  EXPECT_FLOAT_EQ(e.S(kSeriePcr).y[0], e.s.PKrit[1]);
  EXPECT_FLOAT_EQ(e.S(kSeriePcr).y[3], e.s.PKrit[2]);
  const auto np = e.Labels(kSerieNormalP);
  ASSERT_EQ(np.size(), 1u);
  EXPECT_EQ(np[0].Text, "Normal-p");
  EXPECT_FLOAT_EQ(np[0].x, 1.0f / 7.0f);
  EXPECT_FLOAT_EQ(np[0].y, 101.325f);
  ASSERT_EQ(e.S(kSerieNormalP).Punkte(), 2);
  EXPECT_FLOAT_EQ(e.S(kSerieNormalP).y[1], 101.325f);
  mnuDelpCr_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSeriePcr).Punkte(), 0);
  EXPECT_EQ(e.S(kSerieNormalP).Punkte(), 2);
  mnuDelPnd_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerieNormalP).Punkte(), 0);
  EXPECT_TRUE(e.g.Doc.MarkerLabels.empty());
}

TEST(Markers, DiagonalAndTheLinesYZeroAndOne) {
  MarkerEnv e;
  e.Oeffne(3, 343.15, 101.325, 0.2f, 0.9f, 0, 1);
  mnuAddDiagonale_Click(e.f, e.g);
  mnuMarky1_Click(e.f, e.g);
  mnuMarky0_Click(e.f, e.g);
  const Serie& d = e.S(kSerieDiagonale);
  ASSERT_EQ(d.Punkte(), 2);
  EXPECT_EQ(d.x[0], 0.0f);
  EXPECT_EQ(d.y[0], 0.0f);
  EXPECT_EQ(d.x[1], 1.0f);
  EXPECT_EQ(d.y[1], 1.0f);
  // y = 1 and y = 0 from XMin to XMax, without a label.
  ASSERT_EQ(e.S(kSerieY1).Punkte(), 2);
  EXPECT_FLOAT_EQ(e.S(kSerieY1).x[0], 0.2f);
  EXPECT_FLOAT_EQ(e.S(kSerieY1).x[1], 0.9f);
  EXPECT_EQ(e.S(kSerieY1).y[0], 1.0f);
  EXPECT_EQ(e.S(kSerieY0).y[1], 0.0f);
  EXPECT_TRUE(e.g.Doc.MarkerLabels.empty());
  mnuDelDiagonale_Click(e.f, e.g);
  mnuDely1_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerieDiagonale).Punkte(), 0);
  EXPECT_EQ(e.S(kSerieY1).Punkte(), 0);
  EXPECT_EQ(e.S(kSerieY0).Punkte(), 2);
  mnuDely0_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerieY0).Punkte(), 0);
}

TEST(Markers, MixingGapLinesAndTieLineRefusedWithoutAGap) {
  MarkerEnv e;
  e.Oeffne(1, 343.15, 101.325, 0, 1, 0, 100);
  ASSERT_FALSE(e.s.HatGap);
  EXPECT_FALSE(mnuMarkML_Click(e.f, e.g));
  EXPECT_TRUE(e.Shown("Execution not possible", "No mixing gap calculated!"));
  EXPECT_EQ(e.S(kSerieML).Punkte(), 0);
  e.ui.boxes.clear();
  EXPECT_FALSE(mnuAddKonnode_Click(e.f, e.g));
  EXPECT_TRUE(e.Shown("Execution not possible", "No mixing gap calculated!"));
  EXPECT_FALSE(mnuMark3PhasePoint_Click(e.f, e.g));
  EXPECT_EQ(e.g.Doc.AnzKurven, 2);
}

TEST(Markers, MixingGapLinesOfWaterButanolAtBothCompositions) {
  MarkerEnv e(true);
  e.Oeffne(1, 365.0, 101.325, 0, 1, 0, 120);
  ASSERT_TRUE(e.s.HatGap);
  ASSERT_TRUE(mnuMarkML_Click(e.f, e.g));
  double a = 0, b = 0;
  std::string msg;
  ASSERT_TRUE(Binodal(e.s, 365.0, a, b, msg));
  const Serie& s = e.S(kSerieML);
  ASSERT_EQ(s.Punkte(), 5);
  EXPECT_NEAR(s.x[0], a, 1e-6);
  EXPECT_NEAR(s.x[3], b, 1e-6);
  EXPECT_FLOAT_EQ(s.y[0], -1e8f);
  EXPECT_FLOAT_EQ(s.y[1], 1e8f);
  const auto l = e.Labels(kSerieML);
  ASSERT_EQ(l.size(), 2u);
  EXPECT_FLOAT_EQ(l[0].y, 120.0f / 7.0f);
  EXPECT_EQ(e.g.Status.rfind("Mixing gap x(2)1 = 0.0", 0), 0u) << e.g.Status;
  EXPECT_NE(e.g.Status.find("   , x(2)2 = 0.", 0), std::string::npos) << e.g.Status;
  // The lines stand at a composition: an exchange of the components mirrors them.
  e.g.cmdTausch_Click(e.f);
  EXPECT_NEAR(e.S(kSerieML).x[0], 1.0 - a, 1e-6);
  EXPECT_NEAR(e.Labels(kSerieML)[0].x, 1.0 - a, 1e-6);
  mnuDelML_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerieML).Punkte(), 0);
}

TEST(Markers, MixingGapLinesInMassFractions) {
  MarkerEnv e(true);
  e.s.ConcUnit = 1;
  e.Oeffne(1, 365.0, 101.325, 0, 1, 0, 120);
  ASSERT_TRUE(mnuMarkML_Click(e.f, e.g));
  // ksi = x M2 / (x M2 + (1 - x) M1)
  const double x = e.s.GapX1, m1 = e.s.MolMasse[1], m2 = e.s.MolMasse[2];
  EXPECT_NEAR(e.S(kSerieML).x[0], x * m2 / (x * m2 + (1 - x) * m1), 1e-6);
  EXPECT_GT(e.S(kSerieML).x[0], 2 * x);
}

TEST(Markers, TieLineOfWaterButanolJoinsTheTwoLiquidsAtTheThreePhasePressure) {
  MarkerEnv e(true);
  e.Oeffne(1, 365.0, 101.325, 0, 1, 0, 120);
  const int16_t vorher = e.g.Doc.AnzKurven;
  ASSERT_TRUE(mnuAddKonnode_Click(e.f, e.g));
  EXPECT_EQ(e.g.Doc.AnzKurven, vorher + 1);
  const int slot = e.g.Doc.AktKurve;
  const Serie& s = e.S(slot);
  EXPECT_EQ(s.Legende, "tie-line L-L");
  ASSERT_EQ(s.Punkte(), 2);
  double a = 0, b = 0;
  std::string msg;
  ASSERT_TRUE(Binodal(e.s, 365.0, a, b, msg));
  EXPECT_NEAR(s.x[0], a, 1e-6);
  EXPECT_NEAR(s.x[1], b, 1e-6);
  // Both liquids boil at one pressure: the bubble pressure of each is the tie line's ordinate.
  for (int i = 0; i < 2; ++i) {
    const double xi = i == 0 ? a : b;
    Vec<double> x = peqtest::Comp({1.0 - xi, xi}), y0(3, 0.0);
    double vL = 0, vV = 0;
    const double p = CalcBubbleP(e.s, 365.0, x, 0, y0, e.s.Gamma, e.s.PhiKorr, e.s.KWert, vL, vV);
    EXPECT_REL(s.y[static_cast<std::size_t>(i)], p, 2e-3) << i;
  }
  EXPECT_EQ(s.y[0], s.y[1]);
}

TEST(Markers, TieLineRefusedWhenAllSlotsAreTaken) {
  MarkerEnv e(true);
  e.Oeffne(1, 365.0, 101.325, 0, 1, 0, 120);
  for (int k = 1; k <= kMaxKurven; ++k) e.g.Doc.KurveFrei[static_cast<std::size_t>(k)] = false;
  e.g.Doc.AnzKurven = kMaxKurven;
  EXPECT_FALSE(mnuAddKonnode_Click(e.f, e.g));
  EXPECT_TRUE(e.Shown("Drawing tie-line not possible", "Maximum 24 curves possible\nDelete existing curves"));
  EXPECT_FALSE(mnuAddLLE_Click(e.f, e.g));
  EXPECT_TRUE(e.Shown("Binodal curve not more possible", "Maximum 24 curves possible\n\nDelete existing curves"));
}

TEST(Markers, BinodalCurveTakesItsSlotAndReplacesAnEarlierOne) {
  MarkerEnv e(true);
  e.Oeffne(4, 365.0, 101.325, 0, 1, 330, 400);
  ASSERT_TRUE(e.s.HatGap);
  const int16_t vorher = e.g.Doc.AnzKurven;
  ASSERT_TRUE(mnuAddLLE_Click(e.f, e.g));
  const int16_t slot = e.g.Doc.BinodalSlot;
  ASSERT_NE(slot, 0);
  EXPECT_EQ(e.g.Doc.AnzKurven, vorher + 1);
  EXPECT_EQ(e.S(slot).Legende, "binodal curve");
  EXPECT_TRUE(e.S(slot).Label.empty());
  EXPECT_GT(e.S(slot).Punkte(), 4);
  // A second binodal replaces the first.
  ASSERT_TRUE(mnuAddLLE_Click(e.f, e.g));
  EXPECT_EQ(e.g.Doc.AnzKurven, vorher + 1);
  EXPECT_EQ(e.g.Doc.BinodalSlot, slot);
}

TEST(Markers, ThreePhasePointOfWaterButanolAtNormalPressure) {
  MarkerEnv e(true);
  e.Oeffne(4, 365.0, 101.325, 0, 1, 330, 400);
  ASSERT_TRUE(mnuMark3PhasePoint_Click(e.f, e.g));
  const Serie& s = e.S(kSerie3Phasen);
  ASSERT_EQ(s.Punkte(), 3);
  // A horizontal line at the three-phase temperature (within 2 K of 365.85 K, see the gap test).
  EXPECT_NEAR(s.y[0], 365.85, 2.0);
  EXPECT_EQ(s.y[0], s.y[2]);
  EXPECT_LT(s.x[0], s.x[1]);
  EXPECT_LT(s.x[1], s.x[2]);
  const auto l = e.Labels(kSerie3Phasen);
  ASSERT_EQ(l.size(), 1u);
  EXPECT_EQ(l[0].Text.rfind("3-phase point: x(2) = 0.", 0), 0u) << l[0].Text;
  EXPECT_NE(l[0].Text.find(", T/K = 36"), std::string::npos) << l[0].Text;
  EXPECT_NE(l[0].Text.find(", p/kPa = 101.325"), std::string::npos) << l[0].Text;
  EXPECT_FLOAT_EQ(l[0].x, 1.0f / 7.0f);
  EXPECT_FLOAT_EQ(l[0].y, s.y[0]);
  mnuDel3PhasePoint_Click(e.f, e.g);
  EXPECT_EQ(e.S(kSerie3Phasen).Punkte(), 0);
  EXPECT_TRUE(e.g.Doc.MarkerLabels.empty());
}

TEST(Markers, DeleteAllRemovesTheMarkersAndTheirLabels) {
  MarkerEnv e;
  e.Oeffne(1, 343.15, 101.325, 0, 1, 0, 100);
  mnuMarkPcr_Click(e.f, e.g);
  mnuMarkPnp_Click(e.f, e.g);
  e.g.mnuDelTotal_Click(e.f);
  EXPECT_TRUE(e.g.Doc.MarkerLabels.empty());
  EXPECT_EQ(e.S(kSeriePcr).Punkte(), 0);
}

TEST(Markers, MenuOffersEachMarkerWhereItHasAMeaning) {
  EXPECT_TRUE(MarkerAngeboten(4, Marker::Tcr));
  EXPECT_FALSE(MarkerAngeboten(1, Marker::Tcr));
  EXPECT_TRUE(MarkerAngeboten(1, Marker::Pnp));
  EXPECT_TRUE(MarkerAngeboten(4, Marker::LLE));
  EXPECT_FALSE(MarkerAngeboten(1, Marker::LLE));
  EXPECT_TRUE(MarkerAngeboten(3, Marker::Diagonale));
  EXPECT_TRUE(MarkerAngeboten(120, Marker::Tangente));
  EXPECT_FALSE(MarkerAngeboten(1, Marker::Tangente));
  EXPECT_TRUE(MarkerAngeboten(81, Marker::Y0));
  EXPECT_TRUE(MarkerAngeboten(8, Marker::Y1));
}

}  // namespace
