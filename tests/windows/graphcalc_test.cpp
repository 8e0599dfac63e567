// The point calculator of a drawn 2D diagram: labels by diagram, the ordinates of the single-point
// routine in "0.00000####", "  !  " for what has no value, the mixing-gap message, the tangent
// with its intercepts (the partial molar values), " 0" and "- infinite" at a pure end of
// delta(M)g, and cmdTangente drawing the tangent through the stored point.
#include "windows/graphcalc.h"

#include <gtest/gtest.h>

#include <cmath>

#include "engine/gap_sessions.h"
#include "engine/singlecalc.h"
#include "engine/tangent.h"
#include "models/activity.h"
#include "models/eos_pure.h"
#include "session/constants.h"
#include "session/loadpath.h"
#include "session/numformat.h"
#include "support/fuzzy.h"
#include "windows/frame_fixture.h"
#include "windows/graph2dmarker.h"

namespace {

using namespace peq;
using peqtest::FrameEnv;

struct CalcEnv : FrameEnv {
  frmGraph2D g;
  explicit CalcEnv(bool gap = false) {
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
  void Oeffne(int16_t noDia, double T, double p, bool zeichnen = true) {
    s.NoDia = noDia;
    s.IsoArt = IsoArtOf(noDia);
    s.TIso = T;
    s.PIso = p;
    s.SofortZeichnen = false;
    GraphAufbau a;
    ASSERT_TRUE(ZentraleGraph(s, noDia, a));
    g.Form_Load(f, a);
    if (zeichnen) g.cmdDraw_Click(f);
    f.GraphCalc.Form_Load(f, g);
    ui.boxes.clear();
  }
  frmGraphCalc& C() { return f.GraphCalc; }
};

// R T ln gamma(i) of the ethanol/water liquid x2 at T, kJ/kmol.
double RTLnGamma(Session& s, double T, double x2, int i) {
  Vec<double> x = peqtest::Comp({1.0 - x2, x2});
  Vec<double> g(3, 1.0);
  int16_t err = 0;
  ActivityCoeffs(s, T, x, g, err);
  EXPECT_EQ(err, 0);
  return kR * T * std::log(g[static_cast<std::size_t>(i)]);
}

TEST(GraphCalc, NumberPatternKeepsFiveDecimalsAndUpToFourMore) {
  EXPECT_EQ(FormatZahl(0.5, kZahlMuster), "0.50000");
  EXPECT_EQ(FormatZahl(101.325, kZahlMuster), "101.32500");
  EXPECT_EQ(FormatZahl(0.123456789, kZahlMuster), "0.123456789");
  EXPECT_EQ(FormatZahl(0.12345678912, kZahlMuster), "0.123456789");
  EXPECT_EQ(FormatZahl(2.675, "0.00"), "2.68");  // a decimal tie stays a tie
  // A single-precision result by its own digits.
  EXPECT_EQ(ZahlAnzeige(0.1f), "0.10000");
  EXPECT_EQ(ZahlAnzeige(101.325f), "101.32500");
  EXPECT_EQ(ZahlAnzeige(0.1), "0.10000");
}

TEST(GraphCalc, LabelsFollowTheDiagram) {
  CalcEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  EXPECT_EQ(e.C().lblX, " x(2) =");
  EXPECT_EQ(e.C().lblKonode, "xL(2)     tie-line     xV(2)");
  EXPECT_EQ(e.C().lblXL2, "xL2(2)");
  EXPECT_FALSE(e.C().chkTangenteEnabled);
  EXPECT_EQ(e.C().chkTangenteCaption,
            " active only for the mixing and excess functions delta(M)h, T*sE, cpE, delta(M)G, gE");
  e.s.XIso = 0.4;
  e.s.TOffsetOut = 273.15;
  e.Oeffne(7, 343.15, 101.325, false);
  EXPECT_EQ(e.C().lblX, " t/°C =");
  EXPECT_EQ(e.C().lblZ, "z(2)");
  e.s.TOffsetOut = 0;
  e.Oeffne(7, 343.15, 101.325, false);
  EXPECT_EQ(e.C().lblX, " T/K =");
  e.Oeffne(120, 343.15, 101.325, false);
  EXPECT_TRUE(e.C().chkTangenteEnabled);
  EXPECT_TRUE(e.C().lblKonode.empty());
}

TEST(GraphCalc, PxPointGivesBubbleAndDewPressureAndTheVapour) {
  CalcEnv e;
  e.Oeffne(1, 343.15, 101.325);
  e.C().txtX = "0,5";  // a comma is taken for the point
  ASSERT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  double T = 343.15, p = 101.325, y2 = 0;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
  SingleOut o;
  SingleCalc(e.s, 1, 0.5, T, p, y2, R1, R2, R3, R4, 1, 2, outX, o, nullptr);
  ASSERT_EQ(o.F1, 0);
  EXPECT_EQ(e.C().txtY1, ZahlAnzeige(o.Y1));
  EXPECT_EQ(e.C().txtY2, ZahlAnzeige(o.Y2));
  EXPECT_EQ(e.C().txtXL, "0.50000");
  EXPECT_EQ(e.C().txtXV, ZahlAnzeige(outX));
  EXPECT_LE(e.C().txtY1.size(), 15u);
  EXPECT_GT(o.Y1, o.Y2);  // bubble above dew
  EXPECT_TRUE(e.C().PunktDa);
  EXPECT_DOUBLE_EQ(e.C().LetztX, 0.5);
}

TEST(GraphCalc, InputOutsideTheRangeShowsNotAvailable) {
  CalcEnv e;
  e.Oeffne(1, 343.15, 101.325, false);
  e.C().txtX = "1.5";
  EXPECT_FALSE(e.C().cmdCalc_Click(e.f, e.g));
  EXPECT_EQ(e.C().txtY1, "  !  ");
  EXPECT_EQ(e.C().txtY2, "  !  ");
  e.C().txtX = "abc";
  EXPECT_FALSE(e.C().cmdCalc_Click(e.f, e.g));
  EXPECT_EQ(e.C().txtY1, "  !  ");
  EXPECT_FALSE(e.C().PunktDa);
}

TEST(GraphCalc, InputInsideTheMixingGapOfWaterButanolShowsBothLiquidsAndTheVapour) {
  CalcEnv e(true);
  e.Oeffne(1, 365.0, 101.325);
  ASSERT_TRUE(e.s.HatGap);
  e.C().txtX = "0.2";
  ASSERT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  const std::string dampf = ZahlAnzeige(e.s.GapY);
  EXPECT_TRUE(e.Shown("Mixing gap", "Your input concentration is inside a mixing gap.\nThere are coexisting two liqid "
                                    "phases and a vapour phase (x2(V) = " + dampf + "."));
  EXPECT_EQ(e.C().txtXL, ZahlAnzeige(std::fmin(e.s.GapX1, e.s.GapX2)));
  EXPECT_EQ(e.C().txtXL2, ZahlAnzeige(std::fmax(e.s.GapX1, e.s.GapX2)));
  EXPECT_EQ(e.C().txtXV, dampf);
  EXPECT_EQ(e.C().txtY1, ZahlAnzeige(e.s.GapW1));
  // Outside the gap the single-point routine answers, without the box.
  e.ui.boxes.clear();
  e.C().txtX = "0.8";
  EXPECT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST(GraphCalc, TangentInterceptsOfGEAreThePartialMolarExcessGibbsEnergies) {
  CalcEnv e;
  for (double x : {0.05, 0.3, 0.5, 0.85}) {
    TangentWerte t;
    ASSERT_TRUE(TangenteRechnen(e.s, 110, x, 343.15, 101.325, 1, 2, t)) << x;
    EXPECT_EQ(t.Ende1, TangentEnde::Wert);
    const double g1 = RTLnGamma(e.s, 343.15, x, 1), g2 = RTLnGamma(e.s, 343.15, x, 2);
    EXPECT_NEAR(t.Partial1, g1, 1e-8 * std::fabs(g1)) << x;
    EXPECT_NEAR(t.Partial2, g2, 1e-8 * std::fabs(g2)) << x;
    // gE = x1 RT ln gamma1 + x2 RT ln gamma2 (the tangent passes through the point).
    EXPECT_NEAR(t.y, (1 - x) * g1 + x * g2, 1e-8 * std::fabs(t.y)) << x;
  }
}

TEST(GraphCalc, TangentOfTheExchangedPairSwapsTheIntercepts) {
  CalcEnv e;
  TangentWerte a, b;
  ASSERT_TRUE(TangenteRechnen(e.s, 110, 0.3, 343.15, 101.325, 1, 2, a));
  ASSERT_TRUE(TangenteRechnen(e.s, 110, 0.7, 343.15, 101.325, 2, 1, b));
  EXPECT_NEAR(a.Partial1, b.Partial2, 1e-8 * std::fabs(a.Partial1));
  EXPECT_NEAR(a.Partial2, b.Partial1, 1e-8 * std::fabs(a.Partial2));
}

TEST(GraphCalc, CheckedTangentShowsTheInterceptsInTheDialog) {
  CalcEnv e;
  e.Oeffne(110, 343.15, 101.325, false);
  e.C().chkTangente = true;
  e.C().txtX = "0.3";
  ASSERT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  EXPECT_EQ(e.C().txtPartial1, FormatZahl(RTLnGamma(e.s, 343.15, 0.3, 1), "0.00000####"));
  EXPECT_EQ(e.C().txtPartial2, FormatZahl(RTLnGamma(e.s, 343.15, 0.3, 2), "0.00000####"));
  EXPECT_TRUE(e.C().TangenteDa);
}

TEST(GraphCalc, PureEndOfDeltaMgShowsZeroAndMinusInfinite) {
  CalcEnv e;
  e.Oeffne(120, 343.15, 101.325, false);
  e.C().chkTangente = true;
  e.C().txtX = "0";
  e.C().cmdCalc_Click(e.f, e.g);
  EXPECT_EQ(e.C().txtPartial1, " 0");
  EXPECT_EQ(e.C().txtPartial2, "- infinite");
  e.C().txtX = "1";
  e.C().cmdCalc_Click(e.f, e.g);
  EXPECT_EQ(e.C().txtPartial1, "- infinite");
  EXPECT_EQ(e.C().txtPartial2, " 0");
  // Such a tangent cannot be drawn.
  EXPECT_FALSE(cmdTangente_Click(e.f, e.g));
  EXPECT_TRUE(e.Shown("Execution not possible", kKeineTangente));
  // Inside, delta(M)g has finite intercepts: RT ln(x gamma) of each component.
  e.C().txtX = "0.4";
  e.C().cmdCalc_Click(e.f, e.g);
  const double m1 = RTLnGamma(e.s, 343.15, 0.4, 1) + kR * 343.15 * std::log(0.6);
  EXPECT_NEAR(e.C().Tangente.Partial1, m1, 1e-8 * std::fabs(m1));
}

TEST(GraphCalc, TangentIsDrawnThroughTheStoredPoint) {
  CalcEnv e;
  e.Oeffne(110, 343.15, 101.325);
  e.C().chkTangente = true;
  e.C().txtX = "0.3";
  ASSERT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  ASSERT_TRUE(cmdTangente_Click(e.f, e.g));
  const Serie& s = e.g.Doc.Serien[kSerieTangente];
  ASSERT_EQ(s.Punkte(), 3);
  EXPECT_EQ(s.x[0], 0.0f);
  EXPECT_FLOAT_EQ(s.x[1], 0.3f);
  EXPECT_EQ(s.x[2], 1.0f);
  EXPECT_FLOAT_EQ(s.y[0], static_cast<float>(e.C().Tangente.Partial1));
  EXPECT_FLOAT_EQ(s.y[1], static_cast<float>(e.C().Tangente.y));
  // The line is straight in mole fractions.
  EXPECT_NEAR((s.y[1] - s.y[0]) / 0.3, (s.y[2] - s.y[1]) / 0.7, 1e-3 * std::fabs(s.y[2] - s.y[0]));
  mnuDelTangente_Click(e.f, e.g);
  EXPECT_EQ(e.g.Doc.Serien[kSerieTangente].Punkte(), 0);
}

TEST(GraphCalc, TangentInMassFractionsTurnsTheAbscissa) {
  CalcEnv e;
  e.s.ConcUnit = 1;
  e.Oeffne(110, 343.15, 101.325, false);
  e.C().chkTangente = true;
  const double m1 = e.s.MolMasse[1], m2 = e.s.MolMasse[2];
  const double x = 0.3, ksi = x * m2 / (x * m2 + (1 - x) * m1);
  e.C().txtX = FormatZahl(ksi, "0.000000000");
  ASSERT_TRUE(e.C().cmdCalc_Click(e.f, e.g));
  EXPECT_NEAR(e.C().LetztX, x, 1e-8);
  ASSERT_TRUE(cmdTangente_Click(e.f, e.g));
  EXPECT_NEAR(e.g.Doc.Serien[kSerieTangente].x[1], ksi, 1e-6);
}

}  // namespace
