// The curve tracer, case by case: end points, extra points, comments, fail counters, the
// abscissa unit, the inside test and the run-time error box.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

#include "diagrams/curve_fixture.h"
#include "diagrams/curve_run.h"
#include "diagrams/kurven.h"
#include "engine/excess.h"
#include "models/eos_phi.h"
#include "models/activity.h"
#include "models/vappressure.h"
#include "support/fuzzy.h"

using curvetest::Coords;
using curvetest::Draw;
using curvetest::Drawn;
using curvetest::Posted;

TEST(CalcCurveCases, KValuesAtTGetTheExtraPointAtXTwoEqualOne) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 10;
  Coords(s, 0, 1, 0, 10);
  // Benzene (lower T(cr)) is Komp1: the walk runs 1 -> 0, and the extra point at x2 = 1 stands
  // in walk order, first, so that no line runs back from x2 = 0 to 1.
  const Drawn d = Draw(s, 5, 363.15, 101.325);
  ASSERT_GT(d.n1(), 5u);
  EXPECT_EQ(d.k1[1].x, 1.0f);
  EXPECT_EQ(d.k1[2].x, 1.0f);
  EXPECT_EQ(d.k2[1].x, 1.0f);
  for (std::size_t i = 2; i < d.k1.size(); ++i) {
    EXPECT_LE(d.k1[i].x, d.k1[i - 1].x) << i;
    EXPECT_LE(d.k2[i].x, d.k2[i - 1].x) << i;
  }
  EXPECT_LT(d.k1.back().x, 0.02f);
  // Ideal pair: K(i) = p0(i)/p with p the bubble pressure (the third quantity).
  std::string c = "ALP";
  int16_t dT = 0;
  const double p01 = peq::VapPressure(s, 1, 363.15, c, false, dT);
  for (std::size_t i = 1; i < d.k1.size(); ++i) EXPECT_REL(d.k1[i].y, p01 / d.k1[i].z, 1e-5);
  EXPECT_EQ(d.n1(), d.n2());
  // Not when the visible range ends before 1.
  // DX = 0.09: the walk from 1 stops at 0.01, and no point at x2 = 1 follows.
  Coords(s, 0, 0.9f, 0, 10);
  const Drawn e = Draw(s, 5, 363.15, 101.325);
  EXPECT_NEAR(e.k1.back().x, 0.01f, 1e-6);
  EXPECT_EQ(e.n1(), 12u);
}

TEST(CalcCurveCases, KValuesAtTKeepWalkOrderFromTheWaterEnd) {
  // Ethanol(1)/water(2): water has the higher T(cr), the walk runs from x2 = 1 (K1 at infinite
  // dilution, about 13) to 0.01 (K1 about 1); the extra point at x2 = 1 must not follow 0.01.
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, 0, 20);
  const Drawn d = Draw(s, 5, 343.15, 101.325);
  ASSERT_GT(d.n1(), 50u);
  EXPECT_GT(d.k1[1].y, 5.0f);
  EXPECT_LT(d.k1.back().x, 0.02f);
  EXPECT_LT(d.k1.back().y, 2.0f);
  for (std::size_t i = 2; i < d.k1.size(); ++i) EXPECT_LE(d.k1[i].x, d.k1[i - 1].x) << i;
}

TEST(CalcCurveCases, LnF2F1EndsWithThePointAtXMax) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 0.95f, -10, 10);
  const Drawn d = Draw(s, 9, 343.15, 101.325);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_EQ(d.k1.back().x, 0.95f);
  EXPECT_EQ(d.k1[1].x, 0.0f);
  // ln(f2/f1) at x2 = XMax from the model itself.
  peq::Vec<double> x = peqtest::Comp({0.05, 0.95}), g(3, 1.0);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 343.15, x, g, err);
  EXPECT_REL(d.k1.back().y, std::log(g[2]) - std::log(g[1]), 1e-5);
}

TEST(CalcCurveCases, ActivityCoefficientCommentGivesBothLimitingValues) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 50;
  Coords(s, 0, 1, 0, 10);
  peq::Vec<double> g(3, 1.0);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 343.15, peqtest::Comp({1.0, 0.0}), g, err);
  const double g2 = g[2];
  peq::ActivityCoeffs(s, 343.15, peqtest::Comp({0.0, 1.0}), g, err);
  const double g1 = g[1];
  const Drawn d = Draw(s, 8, 343.15, 101.325);
  EXPECT_EQ(d.kommentar, "limiting activity coeff. at t/°C = 70.0     f2 = " + peq::FormatZahl(g2, "#####.0##") +
                             "     f1 = " + peq::FormatZahl(g1, "#####.0##"));
  const Drawn e = Draw(s, 81, 343.15, 101.325);
  EXPECT_EQ(e.kommentar, "limiting activity coeff. at t/°C = 70.0     ln(f2) = " +
                             peq::FormatZahl(std::log(g2), "###.000##") + "     ln(f1) = " +
                             peq::FormatZahl(std::log(g1), "###.000##"));
  // Kurve1 carries Komp2, Kurve2 Komp1; the first point at x2 = 0 is gamma2 at infinite dilution.
  EXPECT_REL(d.k1[1].y, g2, 1e-6);
  EXPECT_REL(e.k2[1].y, 0.0, 1e-6);
}

TEST(CalcCurveCases, IsobaricActivityCoefficientsSetIsoArtAndTellThePressure) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 50;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 10);
  const Drawn d = Draw(s, 83, 343.15, 101.325);
  EXPECT_EQ(s.IsoArt, 2);
  EXPECT_EQ(d.kommentar.rfind("limiting activity coeff. at p/kPa = 101.325     ln(f2) = ", 0), 0u) << d.kommentar;
  // The third quantity is the bubble temperature: between the two boiling points.
  for (std::size_t i = 1; i < d.k1.size(); ++i) {
    EXPECT_GT(d.k1[i].z, 350.0f);
    EXPECT_LT(d.k1[i].z, 374.0f);
  }
}

TEST(CalcCurveCases, CpECurveEndsAtXMinWithoutTheDisplayFactor) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 60;  // step 1.5/60 = 0.025 from 1: x2 = 0.5 is a point of the walk
  s.FuFaktor = 2.0f;
  Coords(s, 0, 1, 1e6f, 2e6f);  // nothing inside but the closing point
  const Drawn d = Draw(s, 17, 343.15, 101.325);
  ASSERT_GT(d.n1(), 5u);
  EXPECT_EQ(d.ausserhalb, 0);
  EXPECT_EQ(d.k1.back().x, 0.0f);
  peq::Vec<double> x = peqtest::Comp({1.0, 0.0});
  double cp = 0;
  int16_t err = 0;
  peq::ExcessCp(s, 343.15, x, cp, err);
  EXPECT_NEAR(d.k1.back().y, cp, 1e-6);
  // The point at x2 = 0.5 of the walk carries the factor.
  x = peqtest::Comp({0.5, 0.5});
  peq::ExcessCp(s, 343.15, x, cp, err);
  bool seen = false;
  for (std::size_t i = 1; i + 1 < d.k1.size(); ++i)
    if (std::fabs(d.k1[i].x - 0.5f) < 1e-6f) {
      EXPECT_REL(d.k1[i].y, 2.0 * cp, 1e-5);
      seen = true;
    }
  EXPECT_TRUE(seen);
}

TEST(CalcCurveCases, EnthalpyAndEntropyComeFromOneRoutineTimesTheFactor) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 40;
  s.FuFaktor = 1.0f;
  Coords(s, 0, 1, -1e5f, 1e5f);
  const Drawn h = Draw(s, 15, 343.15, 101.325);
  const Drawn t = Draw(s, 16, 343.15, 101.325);
  EXPECT_TRUE(s.GapAktiv);
  ASSERT_EQ(h.n1(), t.n1());
  peq::Vec<double> x(3, 0.0);
  for (std::size_t i = 1; i < h.k1.size(); ++i) {
    x[2] = h.k1[i].x;
    x[1] = 1.0 - x[2];
    double hE, TsE, gE;
    int16_t err = 0;
    peq::ExcessT(s, 343.15, 101.325, x, hE, TsE, gE, err);
    EXPECT_NEAR(h.k1[i].y, hE, 1e-3 * std::fabs(hE) + 1e-2);
    EXPECT_NEAR(t.k1[i].y, TsE, 1e-3 * std::fabs(TsE) + 1e-2);
  }
}

TEST(CalcCurveCases, SecondDerivativeOfGEAvoidsThePolesAndSetsGapAktivOnlyForOrderZero) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, -1e9f, 1e9f);
  const Drawn d = Draw(s, 112, 343.15, 101.325);
  EXPECT_FALSE(s.GapAktiv);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_FLOAT_EQ(d.k1[1].x, static_cast<float>(1.0 - 1e-8));
  double P[4];
  int16_t err = 0;
  peq::GMForParams(s, 343.15, 1, 2, P, err);
  const double x = 1.0 - 1e-8;
  EXPECT_REL(d.k1[1].y, peq::kR * 343.15 * peq::GMFor(s, 2, x, P[0], P[1], P[2], P[3]), 1e-5);
  // delta(M)g of order 2 adds R T (1/x2 + 1/x1) (hand: at 0.5 the ideal term is 4 R T).
  s.KurvenPunkte = 150;  // step 0.01 from 1 - 1E-8: x2 = 0.5 - 1E-8 is a point of the walk
  const Drawn g2 = Draw(s, 112, 343.15, 101.325);
  const Drawn m = Draw(s, 122, 343.15, 101.325);
  ASSERT_EQ(m.n1(), g2.n1());
  int seen = 0;
  for (std::size_t i = 1; i < m.k1.size(); ++i) {
    if (std::fabs(m.k1[i].x - 0.5f) < 1e-6f) {
      EXPECT_REL(m.k1[i].y - g2.k1[i].y, 4 * peq::kR * 343.15, 1e-4);
      ++seen;
    }
  }
  EXPECT_EQ(seen, 1);
  Draw(s, 110, 343.15, 101.325);
  EXPECT_TRUE(s.GapAktiv);
  Draw(s, 120, 343.15, 101.325);
  EXPECT_TRUE(s.GapAktiv);
  Draw(s, 121, 343.15, 101.325);
  EXPECT_FALSE(s.GapAktiv);
}

TEST(CalcCurveCases, MassFractionAbscissa) {
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 20;
  s.ConcUnit = 1;
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 1, 343.15, 101.325);
  // The point at x2 = 0.5 (the 11th of the walk from 1): ksi = 0.5/((M1/M2) 0.5 + 0.5).
  const double m1 = s.MolMasse[1], m2 = s.MolMasse[2];
  EXPECT_REL(d.k1[11].x, 0.5 / ((m1 / m2) * 0.5 + 0.5), 1e-6);
  EXPECT_FLOAT_EQ(d.k1[1].x, 1.0f);
}

TEST(CalcCurveCases, CurveOutsideTheCoordinatesKeepsAusserhalb) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 20;
  Coords(s, 0, 1, 500, 600);  // far above the bubble pressures of 90 °C
  const Drawn d = Draw(s, 1, 363.15, 101.325);
  EXPECT_GT(d.n1(), 10u);
  EXPECT_EQ(d.ausserhalb, -1);
  Coords(s, 0, 1, 100, 120);
  EXPECT_EQ(Draw(s, 1, 363.15, 101.325).ausserhalb, 0);
}

TEST(CalcCurveCases, RunTimeErrorIsReportedAndTheWalkGoesOn) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 10;
  s.ConcUnit = 1;
  s.MolMasse[2] = 0;  // the mass fraction divides by M2
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 1, 363.15, 101.325);
  int boxes = 0;
  for (const peq::Message& m : d.msgs)
    if (m.title == "Message from Sub CalcCurve") ++boxes;
  EXPECT_GT(boxes, 5);  // one for every point of the walk: it went on after each
  EXPECT_EQ(d.n1(), 0u);
  EXPECT_EQ(d.fehler, 0);
}

TEST(CalcCurveCases, VapourPressureFailureAtTheStartStopsTheCall) {
  peq::Session s = peqtest::BenzeneToluene();
  s.P0Eq[2] = "";  // no equation: no vapour pressure
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 1, 363.15, 101.325);
  EXPECT_EQ(d.fehler, -1);
  EXPECT_EQ(d.n1(), 0u);
}

TEST(CalcCurveCases, IsostericCurveRisesWithTAndStopsAtTheCriticalTemperatures) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 100;
  s.TOffsetOut = 0;
  Coords(s, 300, 700, 0, 5000);
  const Drawn d = Draw(s, 7, 363.15, 101.325, 0.5f);
  ASSERT_GT(d.n1(), 50u);
  EXPECT_EQ(d.k1[1].x, 300.0f);
  for (std::size_t i = 2; i < d.k1.size(); ++i) {
    EXPECT_GT(d.k1[i].y, d.k1[i - 1].y);
    EXPECT_LT(d.k1[i].x, 591.76f);
    EXPECT_EQ(d.k1[i].z, 0.5f);
  }
}

TEST(CalcCurveCases, IsobaricDensitiesWalkFromZeroUnlessPKritOfKomp1IsZero) {
  peq::Session s = peqtest::BenzeneToluene();
  s.KurvenPunkte = 50;
  Coords(s, 0, 1, -10, 1000);
  s.IsoArt = 2;
  const Drawn d = Draw(s, 182, 363.15, 101.325);
  ASSERT_GT(d.n1(), 10u);
  EXPECT_EQ(d.k1[1].x, 0.0f);
  EXPECT_NEAR(d.k1[1].x - d.k1[2].x, -0.4 / 50, 1e-6);
  // Liquid densities of the two aromatics near their boiling points: 700 to 900 kg/m^3; the
  // vapour about p M/(R T), 2.6 to 3.2 kg/m^3.
  for (std::size_t i = 1; i < d.k1.size(); ++i) {
    EXPECT_GT(d.k1[i].y, 700.0f);
    EXPECT_LT(d.k1[i].y, 900.0f);
    EXPECT_GT(d.k2[i].y, 2.4f);
    EXPECT_LT(d.k2[i].y, 3.4f);
  }
  EXPECT_EQ(d.k1[0].z, 0.0f);
}

// The counter of failed points: the limit ends the walk; only the T-x walk resets it on a good
// point.
TEST(CalcCurveCases, FailCounterEndsAtItsLimitAndResetsOnlyWhenAsked) {
  peq::curve::FailCounter plain;  // 5, no reset
  EXPECT_TRUE(plain.Fail());
  EXPECT_TRUE(plain.Fail());
  plain.Good();
  EXPECT_TRUE(plain.Fail());
  EXPECT_TRUE(plain.Fail());
  EXPECT_FALSE(plain.Fail());  // the fifth, good points between notwithstanding
  EXPECT_TRUE(plain.Reached());
  peq::curve::FailCounter tx{5, true};
  for (int k = 0; k < 4; ++k) EXPECT_TRUE(tx.Fail());
  tx.Good();
  for (int k = 0; k < 4; ++k) EXPECT_TRUE(tx.Fail());
  EXPECT_FALSE(tx.Fail());
  peq::curve::FailCounter isoster{10};
  for (int k = 0; k < 9; ++k) EXPECT_TRUE(isoster.Fail());
  EXPECT_FALSE(isoster.Fail());
}

// Both vapour pressures 2.2E-6 kPa (Antoine with B = 0) and a negative regular-solution term
// A = -4: p/p0 = x1 exp(-4 x2^2) + x2 exp(-4 x1^2) dips below 1E-6/2.2E-6 = 0.4545 between
// x2 = 0.36 and 0.64 (hand: 0.4628 at 0.65, 0.4511 at 0.64). The K-value walk from x2 = 1 by
// 0.01 fails five times (0.64 .. 0.60) and ends there, although the points below 0.36 would be
// good again; the extra point at x2 = 1 stands first, in walk order.
TEST(CalcCurveCases, FiveFailsEndTheKValueWalk) {
  peq::Session s = peqtest::BenzeneToluene();
  for (int i = 1; i <= 2; ++i) {
    s.ParALP[i].A = static_cast<float>(std::log10(2.2e-6));
    s.ParALP[i].B = 0;
  }
  s.GEModel = 4;
  peqtest::SetSlot(s, 1, 1, 2, -4.0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, 0, 10);
  const Drawn d = Draw(s, 5, 363.15, 101.325);
  float lowest = 1;
  for (std::size_t i = 1; i < d.k1.size(); ++i) lowest = std::fmin(lowest, d.k1[i].x);
  EXPECT_NEAR(lowest, 0.65f, 1e-5);
  EXPECT_EQ(d.n1(), 37u);  // the extra point at 1 and 1.00 .. 0.65
  EXPECT_EQ(d.k1[1].x, 1.0f);
  EXPECT_EQ(d.k1[2].x, 1.0f);
  EXPECT_NEAR(d.k1.back().x, 0.65f, 1e-5);
}

// An isobaric gap search whose boiling temperature fails stops the call with the box of the
// vapour-pressure equation.
TEST(CalcCurveCases, FailedBoilingTemperatureOfTheGapSearchIsExecutionNotPossible) {
  peq::Session s = peqtest::BenzeneToluene();
  s.P0Eq[2] = "";  // no vapour-pressure equation for toluene
  s.IsoArt = 2;
  Coords(s, 0, 1, 0, 200);
  const Drawn d = Draw(s, 4, 363.15, 101.325);
  EXPECT_TRUE(Posted(d.msgs, "Execution not possible",
                     "Error while calculating vapour pressure\nTry to change the vapour pressure equation"));
  EXPECT_EQ(d.n1(), 0u);
  EXPECT_EQ(d.n2(), 0u);
}

namespace {

// Carbon dioxide(1)/n-butane(2), Peng-Robinson with the quadratic rule and k(12) = 0 (IUPAC
// critical constants, PSRK acentric factors).
peq::Session CO2Butane() {
  return peqtest::PhiPhi({{"Carbon dioxide", 44.0095, 304.13, 7377.3, 467.6, 0.2236},
                          {"n-Butane", 58.1222, 425.125, 3796, 228.0, 0.2002}},
                         5, 2);
}

}  // namespace

TEST(CalcCurveCases, PhiPhiExcessCurveCarriesThePressureFromPointToPoint) {
  // At 344.26 K (above the T(cr) of CO2) the walk from pure n-butane follows the bubble line up to
  // the critical point of the mixture near x2 = 0.2 and 8150 kPa. Each bubble point starts from
  // the previous one, so none of them fails or lands on the trivial solution above that maximum,
  // and gE changes smoothly along the line.
  peq::Session s = CO2Butane();
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, -1e5f, 1e5f);
  const Drawn d = Draw(s, 110, 344.26, 101.325);
  ASSERT_GT(d.n1(), 50u);
  std::size_t i = 1;
  double pMax = 0;
  for (; i < d.k1.size() && d.k1[i].z > 0; ++i) {
    if (i > 1) {
      EXPECT_GT(d.k1[i].z, d.k1[i - 1].z) << d.k1[i].x;
      EXPECT_LT(std::fabs(d.k1[i].y - d.k1[i - 1].y), 100.0) << d.k1[i].x;
    }
    pMax = std::max(pMax, static_cast<double>(d.k1[i].z));
  }
  EXPECT_LT(d.k1[i - 1].x, 0.25f);  // the bubble line holds down to the critical region
  EXPECT_LT(pMax, 8200.0);
  EXPECT_GT(pMax, 7500.0);
}

TEST(CalcCurveCases, PhiPhiExcessHasNoValueWhereAPureLiquidHasNoRoot) {
  // At 280 K the cubic of pure CO2 has only its vapour root below about 660 kPa: the excess
  // functions, which refer to the pure liquids, then have no value, instead of jumping by x1 times
  // the difference of the vapour and the liquid residual functions (605 against 15.6 kJ/kmol
  // between x2 = 0.835 and 0.82, where the bubble pressure crosses that limit).
  peq::Session s = CO2Butane();
  const peq::Vec<double> x = peqtest::Comp({0.165, 0.835});
  double hE = 0, TsE = 0, gE = 0;
  EXPECT_EQ(peq::EOSExcess(s, 280.0, 631.4, x, hE, TsE, gE), -1);
  ASSERT_EQ(peq::EOSExcess(s, 280.0, 678.4, x, hE, TsE, gE), 0);
  EXPECT_LT(std::fabs(gE), 100.0);
  // Along the curve: no jump between neighbouring points.
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, -1e5f, 1e5f);
  const Drawn d = Draw(s, 110, 280.0, 101.325);
  ASSERT_GT(d.n1(), 30u);
  for (std::size_t i = 2; i < d.k1.size(); ++i)
    EXPECT_LT(std::fabs(d.k1[i].y - d.k1[i - 1].y), 50.0) << d.k1[i].x;
}

TEST(CalcCurveCases, PointsBeyondTheSinglePrecisionRangeAreLeftOutWithoutABox) {
  // Order 6 of delta(M)g: the ends, moved in by 1E-8, give 4! 1E40 from the ideal term, beyond
  // single precision. Those points fail and are left out; no "Message from Sub CalcCurve" box.
  peq::Session s = peqtest::EthanolWater(0);
  s.KurvenPunkte = 100;
  Coords(s, 0, 1, -1e9f, 1e9f);
  const Drawn d = Draw(s, 126, 343.15, 101.325);
  EXPECT_TRUE(d.msgs.empty()) << (d.msgs.empty() ? "" : d.msgs.front().title + ": " + d.msgs.front().text);
  ASSERT_GT(d.n1(), 50u);
  for (std::size_t i = 1; i < d.k1.size(); ++i) {
    EXPECT_TRUE(std::isfinite(d.k1[i].y));
    EXPECT_GT(d.k1[i].x, 1e-7f);
    EXPECT_LT(d.k1[i].x, 1.0f);
  }
  // The point next to the start end is the first of the curve: x2 = 1 - 1E-8 - 0.015.
  EXPECT_NEAR(d.k1[1].x, 0.985f, 1e-6);
  // Order 6 of gE alone stays within range at the end and keeps that point.
  const Drawn g = Draw(s, 116, 343.15, 101.325);
  EXPECT_TRUE(g.msgs.empty());
  EXPECT_EQ(g.n1(), d.n1() + 1);
  EXPECT_FLOAT_EQ(g.k1[1].x, static_cast<float>(1.0 - 1e-8));
}
