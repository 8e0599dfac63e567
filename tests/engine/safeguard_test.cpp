// The safeguarded bubble points and flashes on the points where the plain routines fail or give
// a trivial answer: each case with the safeguard on (the real answer, checked against the p-x
// curve walk or a converged flash or bubble point from a warm start) and off (the plain
// routine's answer as it stands). Mixtures: Peng-Robinson with the van der Waals rule and
// k(ij) = 0, and ethanol/water with UNIFAC and the virial equation, from the bundled database.
#include <cmath>

#include <gtest/gtest.h>

#include "engine/flash.h"
#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "engine/safeguard_sessions.h"
#include "support/alloc_counter.h"

namespace {

using sgtest::Binary;

bool MethaneEthane(peq::Session& s, bool on) { return sgtest::PR(s, sgtest::kMethane, sgtest::kEthane, on); }
bool EthanolWaterPR(peq::Session& s, bool on) { return sgtest::PR(s, sgtest::kEthanol, sgtest::kWater, on); }
bool CO2Hexane(peq::Session& s, bool on) { return sgtest::PR(s, sgtest::kCO2, sgtest::kHexane, on); }
bool CO2Butane(peq::Session& s, bool on) { return sgtest::PR(s, sgtest::kCO2, sgtest::kButane, on); }
bool BenzeneToluene(peq::Session& s, bool on) { return sgtest::PR(s, sgtest::kBenzene, sgtest::kToluene, on); }

struct BubbleP {
  double p = 0, vL = 0, vV = 0;
};

BubbleP ColdBubbleP(peq::Session& s, double T, const peq::Vec<double>& x) {
  const peq::Vec<double> y0(3, 0.0);
  BubbleP r;
  r.p = peq::SafeBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, r.vL, r.vV);
  return r;
}

double ColdBubbleT(peq::Session& s, double p, const peq::Vec<double>& x, double& vL, double& vV) {
  const peq::Vec<double> y0(3, 0.0);
  double Tin = 0;
  int16_t warn = 0;
  return peq::SafeBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
}

// The plain bubble pressure from a warm start (the previous point of a walk), as an independent
// check of a bubble temperature found: it must give p back at that T.
double WarmBubbleP(peq::Session& s, double T, const peq::Vec<double>& x, double pStart, const peq::Vec<double>& y) {
  double vL = 0, vV = 0;
  return peq::CalcBubbleP(s, T, x, pStart, y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
}

// ---------------------------------------------------------------- methane/ethane bubble-p 200 K

TEST(Safeguard, MethaneEthaneBubblePressureOffIsTheTrivialSolution) {
  peq::Session s;
  ASSERT_TRUE(MethaneEthane(s, false));
  const BubbleP b = ColdBubbleP(s, 200, Binary(0.5, 0.5));
  // The plain secant stops on x = y with one cubic root for both phases.
  EXPECT_REL(b.p, 3337.1972108126815, 1e-9);
  EXPECT_NEAR(s.KWert[1], 1.0, 1e-5);
  EXPECT_NEAR(s.KWert[2], 1.0, 1e-5);
  EXPECT_REL(b.vL, b.vV, 1e-6);
  EXPECT_EQ(s.Retried, 0);
}

TEST(Safeguard, MethaneEthaneBubblePressureOnIsTheCurvePoint) {
  peq::Session s;
  ASSERT_TRUE(MethaneEthane(s, true));
  const BubbleP b = ColdBubbleP(s, 200, Binary(0.5, 0.5));
  const double walk = sgtest::PxCurvePoint([](peq::Session& w) { return MethaneEthane(w, false); }, 200, 0.5);
  ASSERT_GT(walk, 0);
  EXPECT_REL(b.p, walk, 1e-6);
  EXPECT_REL(b.p, 2638.04, 1e-5);  // the curve walk's 2638.04 kPa
  EXPECT_NEAR(s.YGas[1], 0.914, 5e-4);
  EXPECT_GT(b.vV, 5 * b.vL);
  EXPECT_EQ(s.Retried, -1);
}

// ---------------------------------------------------------------- methane/ethane bubble-t 6000

TEST(Safeguard, MethaneEthaneBubbleTemperatureOffAsThePlainRoutineGivesIt) {
  peq::Session s;
  ASSERT_TRUE(MethaneEthane(s, false));
  double vL = 0, vV = 0;
  EXPECT_REL(ColdBubbleT(s, 6000, Binary(0.5, 0.5), vL, vV), 263.7427663025889, 1e-9);
  EXPECT_EQ(s.Retried, 0);
}

TEST(Safeguard, MethaneEthaneBubbleTemperatureOnIsTheBubblePointBelow) {
  // The plain iteration stops at 263.74 K on a liquid that is not stable there (its tangent
  // plane lies above a heavier phase); the real bubble point lies below, at about 247.64 K.
  peq::Session s;
  ASSERT_TRUE(MethaneEthane(s, true));
  double vL = 0, vV = 0;
  const double T = ColdBubbleT(s, 6000, Binary(0.5, 0.5), vL, vV);
  EXPECT_NEAR(T, 247.638, 1e-3);
  EXPECT_EQ(s.Retried, -1);
  EXPECT_GT(vV, 1.02 * vL);
  EXPECT_NEAR(s.YGas[1], 0.6957, 1e-3);
  EXPECT_NEAR(s.YGas[1] + s.YGas[2], 1.0, 1e-5);
  // Independent check: the p-x curve walk at that T gives 6000 kPa back at x2 = 0.5.
  const double walk = sgtest::PxCurvePoint([](peq::Session& w) { return MethaneEthane(w, false); }, T, 0.5);
  EXPECT_REL(walk, 6000.0, 1e-6);
}

TEST(Safeguard, MethaneEthaneBubbleTemperaturesNearTheCriticalLocusAreBubblePoints) {
  // Cold starts at 6000 and 6500 kPa where the plain iteration stops on two near-critical phases
  // (volumes 2 to 12 % apart) above the bubble point; checked by the plain bubble pressure at the
  // T found, started near p with the vapour found.
  struct Case {
    double p, x1, plain;
  };
  for (const Case c : {Case{6000, 0.40, 267.667865}, Case{6000, 0.45, 261.118437}, Case{6000, 0.75, 224.990642},
                       Case{6500, 0.50, 259.542033}, Case{6500, 0.60, 246.901326}, Case{6500, 0.75, 230.070939}}) {
    const peq::Vec<double> x = Binary(c.x1, 1.0 - c.x1);
    peq::Session off, on;
    ASSERT_TRUE(MethaneEthane(off, false));
    ASSERT_TRUE(MethaneEthane(on, true));
    double vL = 0, vV = 0;
    EXPECT_NEAR(ColdBubbleT(off, c.p, x, vL, vV), c.plain, 1e-5) << c.p << " " << c.x1;
    const double T = ColdBubbleT(on, c.p, x, vL, vV);
    ASSERT_GT(T, 0) << c.p << " " << c.x1;
    EXPECT_LT(T, c.plain - 1.0) << c.p << " " << c.x1;
    EXPECT_EQ(on.Retried, -1);
    EXPECT_GT(vV, 1.3 * vL) << c.p << " " << c.x1;
    peq::Vec<double> y = on.YGas;
    peq::Session chk;
    ASSERT_TRUE(MethaneEthane(chk, false));
    EXPECT_REL(WarmBubbleP(chk, T, x, 0.995 * c.p, y), c.p, 1e-5) << c.p << " " << c.x1;
  }
}

TEST(Safeguard, ANearCriticalBubbleTemperatureFoundFirstTimeIsThePlainOne) {
  // Started close to the real bubble point with its vapour, the plain iteration converges; the
  // stability test of the critical region accepts it as it stands.
  peq::Session s, c;
  ASSERT_TRUE(MethaneEthane(s, true));
  ASSERT_TRUE(MethaneEthane(c, false));
  const peq::Vec<double> x = Binary(0.55, 0.45), y = Binary(0.7, 0.3);
  double T1 = 246.0, T2 = 246.0, vL = 0, vV = 0, vL2 = 0, vV2 = 0;
  int16_t w1 = 0, w2 = 0;
  const double Tc = peq::CalcBubbleT(c, 6500, x, T2, y, w2, c.KWert, vL2, vV2);
  ASSERT_NEAR(Tc, 248.8608, 1e-3);
  ASSERT_LT(vV2, 2 * vL2);  // inside the critical region, where the test runs
  EXPECT_GT(vV2, 1.5 * vL2);
  // Independent check: the p-x curve walk at that T gives 6500 kPa back at x2 = 0.45.
  const double walk = sgtest::PxCurvePoint([](peq::Session& w) { return MethaneEthane(w, false); }, Tc, 0.45);
  EXPECT_REL(walk, 6500.0, 1e-5);
  EXPECT_EQ(peq::SafeBubbleT(s, 6500, x, T1, y, w1, s.KWert, vL, vV), Tc);
  EXPECT_EQ(s.YGas, c.YGas);
  EXPECT_EQ(vL, vL2);
  EXPECT_EQ(s.Retried, 0);
}

// ---------------------------------------------------------------- ethanol/water bubble-p 30 K

TEST(Safeguard, EthanolWaterBubblePressureAt30KOffIsTheCollapsedPoint) {
  peq::Session s;
  ASSERT_TRUE(EthanolWaterPR(s, false));
  const BubbleP b = ColdBubbleP(s, 30, Binary(0.5, 0.5));
  EXPECT_REL(b.p, 9.5498799068113319e-55, 1e-6);
  EXPECT_EQ(b.vL, b.vV);
}

TEST(Safeguard, EthanolWaterBubblePressureAt30KOnFailsWithTheArraysOfTheFirstAttempt) {
  peq::Session off, on;
  ASSERT_TRUE(EthanolWaterPR(off, false));
  ASSERT_TRUE(EthanolWaterPR(on, true));
  const BubbleP a = ColdBubbleP(off, 30, Binary(0.5, 0.5));
  const BubbleP b = ColdBubbleP(on, 30, Binary(0.5, 0.5));
  // Trivial (both volumes the same root) and not found again from Wilson's start: the failure
  // value, and every result array as the plain routine left it.
  EXPECT_EQ(b.p, 0.0);
  EXPECT_EQ(on.Retried, 0);
  EXPECT_EQ(b.vL, a.vL);
  EXPECT_EQ(b.vV, a.vV);
  EXPECT_EQ(on.YGas, off.YGas);
  EXPECT_EQ(on.KWert, off.KWert);
  EXPECT_EQ(on.Gamma, off.Gamma);
  EXPECT_EQ(on.PhiKorr, off.PhiKorr);
  EXPECT_EQ(on.CompMat[0], off.CompMat[0]);
  EXPECT_EQ(on.CompMat[1], off.CompMat[1]);
  EXPECT_EQ(on.P0, off.P0);
}

// ---------------------------------------------------------------- CO2/n-hexane bubble-p 300 K

TEST(Safeguard, CO2HexaneBubblePressureOffFails) {
  peq::Session s;
  ASSERT_TRUE(CO2Hexane(s, false));
  EXPECT_EQ(ColdBubbleP(s, 300, Binary(0.15, 0.85)).p, 0.0);
}

TEST(Safeguard, CO2HexaneBubblePressureOnIsTheCurvePoint) {
  peq::Session s;
  ASSERT_TRUE(CO2Hexane(s, true));
  const BubbleP b = ColdBubbleP(s, 300, Binary(0.15, 0.85));
  const double walk = sgtest::PxCurvePoint([](peq::Session& w) { return CO2Hexane(w, false); }, 300, 0.85);
  ASSERT_GT(walk, 0);
  EXPECT_REL(b.p, walk, 1e-6);
  EXPECT_REL(b.p, 681.2029, 1e-6);  // the curve walk's 681.2029 kPa
  EXPECT_EQ(s.Retried, -1);
}

// ---------------------------------------------------------------- benzene/toluene flash-teta

TEST(Safeguard, BenzeneTolueneFlashTEtaOffIsTheTrivialFlash) {
  peq::Session s;
  ASSERT_TRUE(BenzeneToluene(s, false));
  const double p = peq::SafeFlashTEta(s, 350, 0.1, Binary(0.5, 0.5));
  EXPECT_REL(p, 983.50842480160509, 1e-9);
  EXPECT_NEAR(s.XLiq[1], s.YGas[1], 1e-7);
}

TEST(Safeguard, BenzeneTolueneFlashTEtaOnAgreesWithFlashTP) {
  peq::Session s;
  ASSERT_TRUE(BenzeneToluene(s, true));
  const peq::Vec<double> z = Binary(0.5, 0.5);
  const double p = peq::SafeFlashTEta(s, 350, 0.1, z);
  EXPECT_EQ(s.Retried, -1);
  EXPECT_NEAR(p, 62.6, 0.5);
  const double x1 = s.XLiq[1], y1 = s.YGas[1];
  EXPECT_GT(y1 - x1, 0.1);
  // The plain FlashTP at that p splits the feed with eta 0.1 into the same phases.
  peq::Session c;
  ASSERT_TRUE(BenzeneToluene(c, false));
  EXPECT_NEAR(peq::FlashTP(c, 350, p, z), 0.1, 1e-7);
  EXPECT_NEAR(c.XLiq[1], x1, 1e-6);
  EXPECT_NEAR(c.YGas[1], y1, 1e-6);
}

TEST(Safeguard, BenzeneTolueneFlashTEtaOfTheRichFeedOffFails) {
  peq::Session s;
  ASSERT_TRUE(BenzeneToluene(s, false));
  EXPECT_EQ(peq::SafeFlashTEta(s, 350, 0.5, Binary(0.8, 0.2)), 0.0);
}

TEST(Safeguard, BenzeneTolueneFlashTEtaOfTheRichFeedOnAgreesWithFlashTP) {
  peq::Session s;
  ASSERT_TRUE(BenzeneToluene(s, true));
  const peq::Vec<double> z = Binary(0.8, 0.2);
  const double p = peq::SafeFlashTEta(s, 350, 0.5, z);
  EXPECT_EQ(s.Retried, -1);
  EXPECT_GT(p, 75);
  EXPECT_LT(p, 80);
  peq::Session c;
  ASSERT_TRUE(BenzeneToluene(c, false));
  EXPECT_NEAR(peq::FlashTP(c, 350, p, z), 0.5, 1e-6);
  // The vapour fraction falls with p across the bracket of the plain FlashTP.
  EXPECT_GT(peq::FlashTP(c, 350, 75, z), 0.5);
  EXPECT_LT(peq::FlashTP(c, 350, 80, z), 0.5);
}

// ---------------------------------------------------------------- ethanol/water UNIFAC + virial

TEST(Safeguard, EthanolWaterUnifacFlashTEtaOffFails) {
  peq::Session s;
  ASSERT_TRUE(sgtest::EthanolWaterUnifacVirial(s, false));
  EXPECT_LE(peq::SafeFlashTEta(s, 355, 0.5, Binary(0.3, 0.7)), 0.0);
}

TEST(Safeguard, EthanolWaterUnifacFlashTEtaOnAgreesWithFlashTP) {
  peq::Session s;
  ASSERT_TRUE(sgtest::EthanolWaterUnifacVirial(s, true));
  const peq::Vec<double> z = Binary(0.3, 0.7);
  const double p = peq::SafeFlashTEta(s, 355, 0.5, z);
  EXPECT_EQ(s.Retried, -1);
  EXPECT_NEAR(p, 90, 2);
  const double x1 = s.XLiq[1];
  // Between the answers at eta 0.4 and 0.6, which the plain routine finds.
  peq::Session c;
  ASSERT_TRUE(sgtest::EthanolWaterUnifacVirial(c, false));
  const double p4 = peq::FlashTEta(c, 355, 0.4, z), p6 = peq::FlashTEta(c, 355, 0.6, z);
  EXPECT_LT(p, p4);
  EXPECT_GT(p, p6);
  EXPECT_NEAR(peq::FlashTP(c, 355, p, z), 0.5, 1e-6);
  EXPECT_NEAR(c.XLiq[1], x1, 1e-6);
}

// ---------------------------------------------------------------- ethanol/water PR flash-tp

TEST(Safeguard, EthanolWaterFlashTPNearTheDewPointOffFails) {
  peq::Session s;
  ASSERT_TRUE(EthanolWaterPR(s, false));
  for (double T : {354.0, 355.0, 356.0, 356.4}) EXPECT_EQ(peq::SafeFlashTP(s, T, 101.325, Binary(0.5, 0.5)), -1.0) << T;
}

TEST(Safeguard, EthanolWaterFlashTPNearTheDewPointOnAgreesWithFlashPEta) {
  for (double T : {354.0, 355.0, 356.0, 356.4}) {
    peq::Session s;
    ASSERT_TRUE(EthanolWaterPR(s, true));
    const peq::Vec<double> z = Binary(0.5, 0.5);
    const double eta = peq::SafeFlashTP(s, T, 101.325, z);
    EXPECT_EQ(s.Retried, -1) << T;
    ASSERT_GT(eta, 0.8) << T;
    ASSERT_LT(eta, 1.0) << T;
    // The plain FlashPEta at that vapour fraction finds T again.
    peq::Session c;
    ASSERT_TRUE(EthanolWaterPR(c, false));
    EXPECT_REL(peq::FlashPEta(c, 101.325, eta, z), T, 1e-6);
    EXPECT_NEAR(c.XLiq[1], s.XLiq[1], 1e-6) << T;
    EXPECT_NEAR(c.YGas[1], s.YGas[1], 1e-6) << T;
  }
}

// ---------------------------------------------------------------- CO2/n-butane bubble-t

TEST(Safeguard, CO2ButaneBubbleTemperatureOffFailsAt1000kPa) {
  peq::Session s;
  ASSERT_TRUE(CO2Butane(s, false));
  double vL = 0, vV = 0;
  EXPECT_EQ(ColdBubbleT(s, 1000, Binary(0.5, 0.5), vL, vV), 0.0);
}

TEST(Safeguard, CO2ButaneBubbleTemperaturesOnAreBubblePointsFrom1000To2000kPa) {
  for (double p : {1000.0, 1250.0, 1500.0, 1750.0, 2000.0}) {
    for (double x1 : {0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8}) {
      peq::Session s;
      ASSERT_TRUE(CO2Butane(s, true));
      const peq::Vec<double> x = Binary(x1, 1.0 - x1);
      double vL = 0, vV = 0;
      const double T = ColdBubbleT(s, p, x, vL, vV);
      ASSERT_GT(T, 0) << p << " " << x1;
      EXPECT_GT(vV, 2 * vL) << p << " " << x1;
      // The plain bubble pressure at that T, started from a nearby point, gives p back.
      peq::Vec<double> y = s.YGas;
      peq::Session c;
      ASSERT_TRUE(CO2Butane(c, false));
      EXPECT_REL(WarmBubbleP(c, T, x, 0.995 * p, y), p, 1e-6) << p << " " << x1;
    }
  }
}

// ---------------------------------------------------------------- general

TEST(Safeguard, APointThatConvergesFirstTimeIsThePlainAnswerAndAllocatesNothing) {
  peq::Session s, c;
  ASSERT_TRUE(CO2Butane(s, true));
  ASSERT_TRUE(CO2Butane(c, false));
  const peq::Vec<double> x = Binary(0.3, 0.7), y0(3, 0.0);
  double vL = 0, vV = 0, vL2 = 0, vV2 = 0;
  const double p0 = peq::CalcBubbleP(c, 280, x, 0, y0, c.Gamma, c.PhiKorr, c.KWert, vL2, vV2);
  ASSERT_GT(p0, 0);
  double p = 0;
  EXPECT_EQ(peqtest::NewCallsOf([&] { p = peq::SafeBubbleP(s, 280, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV); }), 0);
  EXPECT_EQ(p, p0);
  EXPECT_EQ(vL, vL2);
  EXPECT_EQ(s.YGas, c.YGas);
  EXPECT_EQ(s.Retried, 0);
}

TEST(Safeguard, ADewTemperatureFoundFirstTimeIsThePlainOne) {
  peq::Session s, c;
  ASSERT_TRUE(sgtest::EthanolWaterUnifacVirial(s, true));
  ASSERT_TRUE(sgtest::EthanolWaterUnifacVirial(c, false));
  const peq::Vec<double> y = Binary(0.6, 0.4);
  const float T = peq::SafeDewT(s, 101.325, y, 0.0);
  ASSERT_GT(T, 0.0f);
  EXPECT_EQ(T, peq::CalcDewT(c, 101.325, y, 0.0));
  EXPECT_EQ(s.XLiq, c.XLiq);
  EXPECT_EQ(s.Retried, 0);
}

TEST(Safeguard, WilsonKFallsWithPressureAndFavoursTheLighterComponent) {
  // K(i) = pc(i)/p exp(5.373 (1 + omega(i)) (1 - Tc(i)/T)): inversely proportional to p.
  peq::Session s;
  ASSERT_TRUE(BenzeneToluene(s, true));
  EXPECT_GT(peq::WilsonK(s, 1, 350, 50), peq::WilsonK(s, 2, 350, 50));
  EXPECT_REL(peq::WilsonK(s, 1, 350, 50) * 50, peq::WilsonK(s, 1, 350, 1), 1e-14);
  const double tc = s.TKrit[1], pc = s.PKrit[1], w = s.Omega[1];
  EXPECT_REL(peq::WilsonK(s, 1, 350, 50), pc / 50 * std::exp(5.373 * (1 + w) * (1 - tc / 350)), 1e-14);
}

}  // namespace
