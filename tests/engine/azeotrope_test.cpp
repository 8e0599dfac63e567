// Azeotrope search of a binary: the march on ln(K1/K2), the kind of the azeotrope, the end of
// the walk and the box of a run-time error.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "engine/azeotrope.h"
#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/pureprops.h"
#include "support/fuzzy.h"

namespace {

// Ethanol(1)/water(2) with the DECHEMA NRTL set of the example project (DECHEMA CDS Vol. I
// Part 1a, via ChemSep nrtl.ipd: A12 = -57.9601, A21 = 1241.7396 cal/mol, alpha 0.2937; here as
// A/R in K with R = 1.98721 cal/(mol K)), Antoine constants of Poling et al., ideal gas.
peq::Session EthanolWaterDechema() {
  peq::Session s = peqtest::EthanolWater(0);
  s.GEPar.fill(0.0);
  s.ParUnitNRTL = 3;
  peqtest::SetSlot(s, 1, 1, 2, -29.166654);
  peqtest::SetSlot(s, 4, 1, 2, 624.867622);
  peqtest::SetSlot(s, 7, 1, 2, 0.2937);
  return s;
}

// Benzene(1)/toluene(2) with gE/(R T) = A x1 x2 (one-constant Redlich-Kister): with the ideal gas
// K1/K2 = P01 gamma1/(P02 gamma2), so ln(K1/K2) = ln(P01/P02) + A (x2 - x1) is 0 at
// x2 = (1 - ln(P01/P02)/A)/2. A is chosen to put the azeotrope at xAz.
peq::Session MargulesAzeotrope(double T, double xAz, double& A) {
  peq::Session s = peqtest::BenzeneToluene();
  int16_t err = 0, warn = 0;
  peq::AllPureProps(s, T, err, warn);
  const double lr = std::log(static_cast<double>(s.P0[1]) / static_cast<double>(s.P0[2]));
  A = lr / (1.0 - 2.0 * xAz);
  s.GEModel = 4;
  peqtest::SetSlot(s, 1, 1, 2, A);
  s.IsoArt = 1;
  return s;
}

TEST(IsBinaerAzeotrop, EthanolWaterAtOneAtmosphere) {
  // Published: x(ethanol) = 0.89 to 0.90 at 101.325 kPa, a minimum-boiling (pressure-maximum)
  // azeotrope at 351.3 K (reference case 1 of the shared data: Evans 1916; Lange's, CRC).
  peq::Session s = EthanolWaterDechema();
  s.IsoArt = 2;
  double x = 0;
  int16_t kind = 5, overrun = 5;
  peq::MsgSink sink;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 0.0, 101.325, x, kind, overrun, &sink));
  EXPECT_NEAR(1.0 - x, 0.89, 0.015);
  EXPECT_EQ(kind, -1);
  EXPECT_EQ(overrun, 0);
  EXPECT_TRUE(sink.empty());
  // At the azeotrope the bubble point has y = x: K1 = K2.
  const peq::Vec<double> xv = peqtest::Comp({1.0 - x, x}), y0(3, 0.0);
  double T = 0, vL = 0, vV = 0;
  int16_t w = 0;
  const double Tb = peq::CalcBubbleT(s, 101.325, xv, T, y0, w, s.KWert, vL, vV);
  EXPECT_NEAR(Tb, 351.3, 1.0);
  EXPECT_NEAR(s.KWert[1] / s.KWert[2], 1.0, 1E-4);
}

TEST(IsBinaerAzeotrop, EthanolWaterIsothermal) {
  peq::Session s = EthanolWaterDechema();
  s.IsoArt = 1;
  double x = 0;
  int16_t kind = 5, overrun = 5;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 343.15, 0.0, x, kind, overrun, nullptr));
  EXPECT_GT(x, 0.05);
  EXPECT_LT(x, 0.2);
  EXPECT_EQ(kind, -1);
  EXPECT_EQ(overrun, 0);
}

TEST(IsBinaerAzeotrop, MarchNarrowsToTheSixthDecimal) {
  double A = 0;
  peq::Session s = MargulesAzeotrope(360.0, 0.2123457, A);
  double x = 0;
  int16_t kind = 5, overrun = 5;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 360.0, 0.0, x, kind, overrun, nullptr));
  EXPECT_NEAR(x, 0.2123457, 2E-6);
  EXPECT_EQ(kind, -1);  // A > 0: positive deviation, pressure maximum
}

TEST(IsBinaerAzeotrop, FourthDecimalAzeotropeNearAnEndIsFound) {
  // Azeotrope at x2 = 0.0055347, between the first bubble point (0.001) and the first step (0.01).
  double A = 0;
  peq::Session s = MargulesAzeotrope(360.0, 0.0055347, A);
  double x = 0;
  int16_t kind = 5, overrun = 5;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 360.0, 0.0, x, kind, overrun, nullptr));
  EXPECT_NEAR(x, 0.0055347, 2E-6);
  EXPECT_EQ(overrun, 0);
}

TEST(IsBinaerAzeotrop, NegativeDeviationIsAPressureMinimum) {
  // A < 0 with the azeotrope at x2 = 0.7012345: ln(P01/P02) = A (1 - 2 x2) needs A = ln(P01/P02)/(-0.402469).
  double A = 0;
  peq::Session s = MargulesAzeotrope(360.0, 0.7012345, A);
  ASSERT_LT(A, 0.0);
  double x = 0;
  int16_t kind = 5, overrun = 5;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 360.0, 0.0, x, kind, overrun, nullptr));
  EXPECT_NEAR(x, 0.7012345, 2E-6);
  EXPECT_EQ(kind, 0);
}

TEST(IsBinaerAzeotrop, KindShiftsTheCompositionNotOneFraction) {
  // The kind compares p at x(1) + 0.02 with x(2) = 1 - x(1): a maximum azeotrope near x2 = 0.5
  // must come out as a maximum (raising x(1) alone would lift p and call it a minimum).
  double A = 0;
  peq::Session s = MargulesAzeotrope(360.0, 0.5, A);
  s.GEPar.fill(0.0);
  peqtest::SetSlot(s, 1, 1, 2, 1.5);  // a strong positive deviation, azeotrope near the middle
  double x = 0;
  int16_t kind = 5, overrun = 5;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 360.0, 0.0, x, kind, overrun, nullptr));
  EXPECT_EQ(kind, -1);
}

TEST(IsBinaerAzeotrop, IdealMixtureWalksToTheEndWithoutOverrun) {
  peq::Session s = peqtest::BenzeneToluene();
  s.IsoArt = 1;
  double x = -4;
  int16_t kind = 5, overrun = 5;
  peq::MsgSink sink;
  EXPECT_FALSE(peq::IsBinaerAzeotrop(s, 360.0, 0.0, x, kind, overrun, &sink));
  EXPECT_EQ(overrun, 0);
  EXPECT_EQ(x, -4);
  EXPECT_TRUE(sink.empty());
  s.IsoArt = 2;
  EXPECT_FALSE(peq::IsBinaerAzeotrop(s, 0.0, 101.325, x, kind, overrun, &sink));
  EXPECT_EQ(overrun, 0);
}

TEST(IsBinaerAzeotrop, RunTimeErrorShowsItsBox) {
  // T = 0: no bubble point, the K values stay 0 and ln(K1/K2) is a division by zero.
  peq::Session s = peqtest::BenzeneToluene();
  s.IsoArt = 1;
  double x = 0;
  int16_t kind = 5, overrun = 5;
  peq::MsgSink sink;
  EXPECT_FALSE(peq::IsBinaerAzeotrop(s, 0.0, 0.0, x, kind, overrun, &sink));
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Message from Function IsBinaerAzeotrop");
  EXPECT_FALSE(sink[0].text.empty());
}

}  // namespace
