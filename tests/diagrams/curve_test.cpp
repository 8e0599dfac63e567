// The curve tracer: walks, steps, end points, sorting, header codes, comments and messages.
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <string>

#include "diagrams/curve_fixture.h"
#include "diagrams/kurven.h"
#include "engine/azeotrope.h"
#include "engine/excess.h"
#include "engine/gap.h"
#include "engine/kernel.h"
#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/vappressure.h"
#include "session/constants.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"

using curvetest::Coords;
using curvetest::Draw;
using curvetest::Drawn;
using curvetest::Posted;

namespace {

double P0At(const peq::Session& s, int i, double T) {
  std::string c = s.P0Eq[i];
  int16_t dT = 0;
  return peq::VapPressure(s, i, T, c, false, dT);
}

bool Descending(const peq::Kurve& k) {
  for (std::size_t i = 1; i + 1 < k.size(); ++i)
    if (!(k[i].x > k[i + 1].x)) return false;
  return true;
}
bool Ascending(const peq::Kurve& k) {
  for (std::size_t i = 1; i + 1 < k.size(); ++i)
    if (k[i].x > k[i + 1].x) return false;
  return true;
}

peq::Session EthanolWaterProject() {
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  EXPECT_EQ(peq::ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink), peq::LoadStage::Loaded);
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  return s;
}

}  // namespace

// ---- edge cases of the tracer ----

// Ethanol (T(cr) 514 K) before water (647 K): the walk starts at x2 = 1 and runs down to 0.
TEST(CalcCurve, WalkFromOneEndsAtZeroInDescendingOrderUnsorted) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 50;
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 1, 343.15, 101.325);
  ASSERT_GT(d.n1(), 40u);
  EXPECT_FLOAT_EQ(d.k1[1].x, 1.0f);
  EXPECT_NEAR(d.k1.back().x, 0.0f, 1e-6);
  EXPECT_TRUE(Descending(d.k1));
  EXPECT_TRUE(Descending(d.k2) || d.n2() < 2);
}

TEST(CalcCurve, EmptyCurveHasHeaderCountZeroAndNoPoint) {
  peq::Session s = peqtest::BenzeneToluene();
  Coords(s, 0, 1, 0, 200);
  // Above both critical temperatures no bubble point exists: five fails end the walk, and no
  // pure end point is added above T(cr).
  const Drawn d = Draw(s, 1, 600.0, 101.325);
  ASSERT_EQ(d.k1.size(), 1u);
  ASSERT_EQ(d.k2.size(), 1u);
  EXPECT_EQ(d.k1[0].x, 0.0f);
  EXPECT_EQ(d.k2[0].x, 0.0f);
  EXPECT_EQ(d.k1[0].z, -1.0f);
  EXPECT_EQ(d.ausserhalb, -1);
  // NoDia 2 produces nothing at all.
  const Drawn e = Draw(s, 2, 363.15, 101.325);
  EXPECT_EQ(e.k1.size(), 1u);
  EXPECT_EQ(e.k1[0].x, 0.0f);
}

// DX = (0.6 - 0.4)/100 = 0.002: the isothermal walk still runs over the whole of 0..1.
TEST(CalcCurve, ZoomedCoordinatesRefineTheIsothermalWalkOverZeroToOne) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 100;
  Coords(s, 0.4f, 0.6f, 0, 300);
  const Drawn d = Draw(s, 1, 363.15, 101.325);
  // Benzene (562 K) has the lower T(cr): walk from x2 = 1 to 0, 501 points of step 0.002
  // (the last loop value or the pure end point at 0).
  ASSERT_GE(d.n1(), 500u);
  ASSERT_LE(d.n1(), 502u);
  EXPECT_FLOAT_EQ(d.k1[1].x, 1.0f);
  EXPECT_NEAR(d.k1.back().x, 0.0f, 1e-6);
  for (std::size_t i = 2; i + 1 < d.k1.size(); ++i) EXPECT_NEAR(d.k1[i - 1].x - d.k1[i].x, 0.002, 1e-6) << i;
  // The x-y curve walks the same grid.
  const Drawn e = Draw(s, 3, 363.15, 101.325);
  EXPECT_GE(e.n1(), 495u);
}

TEST(CalcCurve, ActivityCurveStartsExactlyAtXMinAndMayFallShortOfXMax) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 600;
  Coords(s, 0, 1, 0, 10);
  const Drawn d = Draw(s, 8, 343.15, 101.325);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_EQ(d.k1[1].x, 0.0f);
  const double step = 1.5 / 600;
  EXPECT_LE(d.k1.back().x, 1.0f);
  EXPECT_GT(d.k1.back().x, 1.0 - step - 1e-6);
  for (std::size_t i = 2; i < d.k1.size(); ++i) EXPECT_NEAR(d.k1[i].x - d.k1[i - 1].x, step, 1e-6);
  EXPECT_EQ(d.n1(), d.n2());
}

TEST(CalcCurve, XYPointsCloseToTheDiagonalVanishNearThePureEnds) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 20000;  // step 5E-5: the first points off the ends lie within 0.0005 of y = x
  Coords(s, 0, 1, 0, 1);
  const Drawn d = Draw(s, 3, 363.15, 101.325);
  ASSERT_GT(d.n1(), 100u);
  // The diagonal end points (0, 0) and (1, 1) are there; in between no point within 0.0005.
  EXPECT_EQ(d.k1[1].x, 0.0f);
  EXPECT_EQ(d.k1[1].y, 0.0f);
  EXPECT_EQ(d.k1.back().x, 1.0f);
  EXPECT_EQ(d.k1.back().y, 1.0f);
  for (std::size_t i = 2; i + 1 < d.k1.size(); ++i) EXPECT_GT(std::fabs(d.k1[i].y - d.k1[i].x), 0.0005f) << i;
  // So the curve joins the end straight: its first inner point lies clearly off the end.
  EXPECT_GT(d.k1[2].x, 0.0005f);
  EXPECT_TRUE(Ascending(d.k1));
  EXPECT_EQ(d.k1[0].z, -2.0f);
}

// ---- physics of the curves ----

TEST(CalcCurve, BubbleAndDewCurvesMeetAtThePureVapourPressures) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, 0, 200);
  const double T = 343.15;
  const Drawn d = Draw(s, 1, T, 101.325);
  const double p01 = P0At(s, 1, T), p02 = P0At(s, 2, T);
  // Start of the walk (x2 = 1, pure water) and its end (x2 = 0, pure ethanol), both curves.
  EXPECT_FLOAT_EQ(d.k1[1].x, 1.0f);
  EXPECT_FLOAT_EQ(d.k2[1].x, 1.0f);
  EXPECT_REL(d.k1[1].y, p02, 1e-6);
  EXPECT_REL(d.k2[1].y, p02, 1e-6);
  EXPECT_FLOAT_EQ(d.k1.back().x, 0.0f);
  EXPECT_NEAR(d.k2.back().x, 0.0f, 1e-6);
  EXPECT_REL(d.k1.back().y, p01, 1e-6);
  EXPECT_REL(d.k2.back().y, p01, 1e-6);
  EXPECT_EQ(d.n1(), d.n2());
  EXPECT_EQ(d.ausserhalb, 0);
  // Every point carries T as its third quantity.
  for (std::size_t i = 1; i < d.k1.size(); ++i) EXPECT_FLOAT_EQ(d.k1[i].z, static_cast<float>(T));
}

// Raoult's law: p = x1 p01 + x2 p02 along the whole bubble line.
TEST(CalcCurve, IdealMixtureBubbleLineIsStraight) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 200;
  Coords(s, 0, 1, 0, 200);
  const double T = 363.15;
  const Drawn d = Draw(s, 1, T, 101.325);
  const double p01 = P0At(s, 1, T), p02 = P0At(s, 2, T);
  ASSERT_GT(d.n1(), 199u);
  for (std::size_t i = 1; i < d.k1.size(); ++i) {
    const double x = d.k1[i].x;
    EXPECT_REL(d.k1[i].y, (1 - x) * p01 + x * p02, 2e-6) << x;
  }
  // The dew line: y2 = x2 p02/p.
  for (std::size_t i = 1; i < d.k2.size(); ++i) {
    const double x = d.k1[i].x, p = d.k1[i].y;
    EXPECT_NEAR(d.k2[i].x, x * p02 / p, 2e-6);
  }
}

// Phi-phi (Peng-Robinson, vdW rule): the T-x walk starts at the component of higher T(cr).
TEST(CalcCurve, TxCurveWalksFromTheHigherCriticalTemperatureEnd) {
  peq::Session s = peqtest::PhiPhi({peqtest::kToluene, peqtest::kBenzene}, 5, 2);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, 0, 200);
  s.IsoArt = 2;
  const Drawn d = Draw(s, 4, 363.15, 101.325);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_EQ(d.k1[1].x, 0.0f);  // toluene, component 1, has the higher T(cr)
  EXPECT_TRUE(Ascending(d.k1));
  peq::Session t = peqtest::PhiPhi({peqtest::kBenzene, peqtest::kToluene}, 5, 2);
  t.KurvenPunkte = 100;
  Coords(t, 0, 1, 0, 200);
  t.IsoArt = 2;
  const Drawn e = Draw(t, 4, 363.15, 101.325);
  ASSERT_GT(e.n1(), 10u);
  EXPECT_EQ(e.k1[1].x, 1.0f);
  EXPECT_TRUE(Descending(e.k1));
  // Step 0.4 * 1.3 DX under phi-phi.
  EXPECT_NEAR(e.k1[1].x - e.k1[2].x, 0.4 * 1.3 / 100, 1e-6);
  EXPECT_EQ(e.k1[0].z, -2.0f);
}

// Gamma-phi: the largest T(cr) lies above the boiling T of Komp2, so the walk goes from 1 to 0
// whichever component holds it; the boiling T of Komp1 plays no part. Step 0.4 DX.
TEST(CalcCurve, TxDeliberateTestLooksOnlyAtTheBoilingTemperatureOfKomp2) {
  peq::Session s = peqtest::MakeSession({peqtest::kToluene, peqtest::kBenzene});
  peqtest::SetAntoineLn(s, 1, 13.9320, 3056.96, 217.625);
  peqtest::SetAntoineLn(s, 2, 13.7819, 2726.81, 217.572);
  s.GEModel = 0;
  s.VapModel = 0;
  s.KurvenPunkte = 100;
  s.IsoArt = 2;
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 4, 363.15, 101.325);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_EQ(d.k1[1].x, 1.0f);
  EXPECT_NEAR(d.k1[1].x - d.k1[2].x, 0.004, 1e-6);
  EXPECT_NEAR(d.k1.back().x, 0.0f, 1e-6);
  // Bubble and dew temperature of pure benzene (x2 = 1) and toluene (x2 = 0), in °C.
  EXPECT_NEAR(d.k1[1].y, 80.1, 0.2);
  EXPECT_NEAR(d.k1.back().y, 110.6, 0.2);
  EXPECT_EQ(d.k1[1].z, 101.325f);
  EXPECT_NE(d.kommentar.find("pure-substance boiling temp. at p/kPa =  101.33"), std::string::npos);
}

TEST(CalcCurve, TxWarnsOnceOutsideTheLimitsOfAVapourPressureEquation) {
  peq::Session s = peqtest::BenzeneToluene();
  s.ParALP[1].THi = 300;  // benzene boils at 353 K: far above its equation's upper limit
  s.ParALP[2].THi = 300;
  s.KurvenPunkte = 50;
  s.IsoArt = 2;
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 4, 363.15, 101.325);
  int n = 0;
  for (const peq::Message& m : d.msgs)
    if (m.title == "WARNING" && m.text == "calculation in parts outside the T-limits of a vapour pressure equation") ++n;
  EXPECT_EQ(n, 1);
}

TEST(CalcCurve, HeaderCountsEqualTheNumberOfPoints) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 60;
  const int dias[] = {1, 3, 5, 8, 81, 9, 10, 110, 111, 112, 120, 121, 15, 16, 17, 181};
  for (int nd : dias) {
    Coords(s, 0, 1, -1e6f, 1e6f);
    s.IsoArt = 1;
    const Drawn d = Draw(s, nd, 343.15, 101.325);
    EXPECT_EQ(static_cast<std::size_t>(d.k1[0].x), d.n1()) << nd;
    EXPECT_EQ(static_cast<std::size_t>(d.k2[0].x), d.n2()) << nd;
    EXPECT_GT(d.n1(), 5u) << nd;
    EXPECT_EQ(d.fehler, 0) << nd;
  }
  const int iso[] = {4, 51, 6, 11, 82, 83, 182};
  for (int nd : iso) {
    Coords(s, 0, 1, -1e6f, 1e6f);
    s.IsoArt = 2;
    const Drawn d = Draw(s, nd, 343.15, 101.325);
    EXPECT_EQ(static_cast<std::size_t>(d.k1[0].x), d.n1()) << nd;
    EXPECT_EQ(static_cast<std::size_t>(d.k2[0].x), d.n2()) << nd;
    EXPECT_GT(d.n1(), 5u) << nd;
  }
  for (int nd : {7, 183}) {
    Coords(s, 250, 600, -1e6f, 1e6f);
    s.IsoArt = 3;
    s.TOffsetOut = 0;
    const Drawn d = Draw(s, nd, 343.15, 101.325, 0.5f);
    EXPECT_EQ(static_cast<std::size_t>(d.k1[0].x), d.n1()) << nd;
    EXPECT_GT(d.n1(), 5u) << nd;
    s.TOffsetOut = 273.15;
  }
}

TEST(CalcCurve, HeaderCodesOfTheThirdQuantity) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 20;
  Coords(s, 0, 1, -1e6f, 1e6f);
  const std::pair<int, float> codes[] = {{1, -1}, {5, -2}, {3, -2}, {4, -2}, {6, -1}, {51, -1}, {9, -2},
                                         {10, -2}, {11, -1}, {110, -2}, {126, -2}, {8, -2}, {81, -2}, {82, -1},
                                         {83, -1}, {7, -5}, {183, -5}, {15, 0}, {181, 0}};
  for (auto [nd, z] : codes) {
    const Drawn d = Draw(s, nd, 343.15, 101.325);
    EXPECT_EQ(d.k1[0].z, z) << nd;
  }
}

// Ethanol/water of the example project, NRTL, at 70 °C: a pressure-maximum azeotrope near
// x(water) = 0.1 (the published 1 atm azeotrope lies at 89.4 mol-% ethanol).
TEST(CalcCurve, IsothermalXYNamesTheAzeotropeOfEthanolWater) {
  peq::Session s = EthanolWaterProject();
  s.KurvenPunkte = 200;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 1);
  const Drawn d = Draw(s, 3, 343.15, 101.325);
  EXPECT_TRUE(std::regex_match(d.kommentar, std::regex(R"(p-Maximum azeotrope, x\(2\) = 0\.\d{4})"))) << d.kommentar;
  double xaz = 0;
  int16_t kind = 0, over = 0;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 343.15, 101.325, xaz, kind, over, nullptr));
  EXPECT_EQ(d.kommentar, "p-Maximum azeotrope, x(2) = " + peq::FormatZahl(xaz, "0.0000"));
  EXPECT_GT(xaz, 0.05);
  EXPECT_LT(xaz, 0.2);
  EXPECT_TRUE(Ascending(d.k1));
  // The isobaric x-y diagram words it in lower case.
  s.IsoArt = 2;
  const Drawn e = Draw(s, 6, 343.15, 101.325);
  EXPECT_TRUE(std::regex_match(e.kommentar, std::regex(R"(p-maximum azeotrope, x\(2\) = 0\.\d{4})"))) << e.kommentar;
  EXPECT_EQ(e.k1[0].z, -1.0f);
}

TEST(CalcCurve, BinodalWithoutGapSaysSoAndStops) {
  peq::Session s = peqtest::EthanolWater(0);
  Coords(s, 0, 1, 0, 100);
  s.IsoArt = 1;
  const Drawn d = Draw(s, 41, 343.15, 101.325);
  EXPECT_EQ(d.fehler, -1);
  EXPECT_TRUE(Posted(d.msgs, "Note", "No mixing gap calculated!"));
  EXPECT_EQ(d.n1(), 0u);
}

// gE of NRTL at 70 °C: each point is R T GMFor(0, x2) with the pair parameters at T; the point
// (0, 0) closes the curve.
TEST(CalcCurve, ExcessGibbsCurveIsRTTimesGMFor) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, -1e4f, 1e4f);
  const double T = 343.15;
  const Drawn d = Draw(s, 110, T, 101.325);
  double P[4] = {0, 0, 0, 0};
  int16_t err = 0;
  peq::GMForParams(s, T, 1, 2, P, err);
  ASSERT_EQ(err, 0);
  ASSERT_GT(d.n1(), 60u);
  EXPECT_FLOAT_EQ(d.k1[1].x, 1.0f);  // from XMax downward
  for (std::size_t i = 1; i + 1 < d.k1.size(); ++i) {
    const double x = d.k1[i].x;
    const double want = static_cast<float>(peq::kR * T * peq::GMFor(s, 0, d.k1[i].x, P[0], P[1], P[2], P[3]));
    EXPECT_NEAR(d.k1[i].y, want, 1e-3 * std::fabs(want) + 1e-3) << x;
  }
  EXPECT_EQ(d.k1.back().x, 0.0f);
  EXPECT_EQ(d.k1.back().y, 0.0f);
}

// Phi-phi p-x: the step is halved, and both curves end at the pure saturation pressure of the
// equation of state.
TEST(CalcCurve, PhiPhiPxHalvesTheStepAndEndsAtTheEquationOfStateVapourPressure) {
  peq::Session s = peqtest::PhiPhi({peqtest::kBenzene, peqtest::kToluene}, 5, 2);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, 0, 300);
  const double T = 363.15;
  const Drawn d = Draw(s, 1, T, 101.325);
  ASSERT_GT(d.n1(), 150u);
  EXPECT_EQ(d.k1[1].x, 1.0f);
  EXPECT_NEAR(d.k1[1].x - d.k1[2].x, 0.005, 1e-6);
  double a, b, c, dd;
  peq::EOSPureAtOne(s, 1, T, a, b, c, dd);
  peq::EOSSatOut sat;
  ASSERT_EQ(peq::EOSPureSatP(s, 1, T, 0.0, a, b, c, dd, sat), 0);
  EXPECT_NEAR(d.k1.back().x, 0.0f, 1e-6);
  EXPECT_REL(d.k1.back().y, sat.p, 1e-5);
  EXPECT_REL(d.k2.back().y, sat.p, 1e-5);
  // Peng-Robinson gives benzene about 136 kPa at 90 °C (the Antoine value is 136.1 kPa).
  EXPECT_NEAR(sat.p, 136, 4);
}
