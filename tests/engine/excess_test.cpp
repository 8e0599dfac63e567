// Excess functions of the liquid: gE, hE, T sE, cpE by the five-point temperature derivatives,
// the phi-phi branch, and the excess codes of the one-point calculator.
#include <cmath>

#include <gtest/gtest.h>

#include "engine/excess.h"
#include "engine/kernel_test_sessions.h"
#include "engine/singlecalc.h"
#include "models/activity.h"
#include "models/activity_fixture.h"
#include "models/eos_phi.h"
#include "support/fuzzy.h"

namespace {

constexpr double R = 8.31451;

// NRTL with temperature-dependent parameters in J/mol (code 0), T1 = T - 273.15:
// par12 = 1500 + 4 T1 - 0.01 T1^2, par21 = 600 - 2.5 T1 + 0.004 T1^2, alpha = 0.3 + 0.0005 T1.
struct NrtlT {
  double a12 = 1500, b12 = 4, c12 = -0.01, a21 = 600, b21 = -2.5, c21 = 0.004, aa = 0.3, ba = 0.0005;
};

peq::Session NrtlSession(const NrtlT& p) {
  peq::Session s = acttest::MakeSession(2, 2);
  s.ParUnitNRTL = 0;
  acttest::SetSlot(s, 1, 1, 2, p.a12);
  acttest::SetSlot(s, 2, 1, 2, p.b12);
  acttest::SetSlot(s, 3, 1, 2, p.c12);
  acttest::SetSlot(s, 4, 1, 2, p.a21);
  acttest::SetSlot(s, 5, 1, 2, p.b21);
  acttest::SetSlot(s, 6, 1, 2, p.c21);
  acttest::SetSlot(s, 7, 1, 2, p.aa);
  acttest::SetSlot(s, 8, 1, 2, p.ba);
  return s;
}

// hE = -R T^2 d(gE/(R T))/dT of the binary NRTL by the chain rule (hand derivation):
// gE/(R T) = x1 x2 [t(tau21; x1, x2) + t(tau12; x2, x1)], t = tau G/(xa + xb G), G = exp(-alpha tau),
// dt/dtau = G [(1 - alpha tau) D + alpha tau xb G]/D^2, dt/dalpha = -tau^2 G xa/D^2 (D = xa + xb G),
// dtau/dT = (par' T - par)/(R T^2).
double NrtlHE(const NrtlT& p, double T, double x1) {
  const double x2 = 1.0 - x1, t1 = T - 273.15;
  const double par12 = p.a12 + p.b12 * t1 + p.c12 * t1 * t1, dpar12 = p.b12 + 2 * p.c12 * t1;
  const double par21 = p.a21 + p.b21 * t1 + p.c21 * t1 * t1, dpar21 = p.b21 + 2 * p.c21 * t1;
  const double al = p.aa + p.ba * t1, dal = p.ba;
  const double tau12 = par12 / (R * T), tau21 = par21 / (R * T);
  const double dtau12 = (dpar12 * T - par12) / (R * T * T), dtau21 = (dpar21 * T - par21) / (R * T * T);
  auto dterm = [&](double tau, double dtau, double xa, double xb) {
    const double G = std::exp(-al * tau), D = xa + xb * G;
    const double dtdtau = G * ((1 - al * tau) * D + al * tau * xb * G) / (D * D);
    const double dtdal = -tau * tau * G * xa / (D * D);
    return dtdtau * dtau + dtdal * dal;
  };
  const double df = x1 * x2 * (dterm(tau21, dtau21, x1, x2) + dterm(tau12, dtau12, x2, x1));
  return -R * T * T * df;
}

// Redlich-Kister A = a + b/T + c ln T (B = C = 0): gE = R T x1 x2 A, hE = R x1 x2 (b - c T),
// cpE = -R c x1 x2 (hand derivation from hE = -R T^2 d(gE/(R T))/dT).
peq::Session RkSession(double a, double b, double c) {
  peq::Session s = acttest::MakeSession(2, 4);
  acttest::SetSlot(s, 1, 1, 2, a);
  acttest::SetSlot(s, 2, 1, 2, b);
  acttest::SetSlot(s, 3, 1, 2, c);
  return s;
}

TEST(ExcessGE, IsRTSumOfXLnGamma) {
  peq::Session s = NrtlSession(NrtlT{});
  const peq::Vec<double> x = acttest::X({0.35, 0.65});
  peq::Vec<double> g = acttest::G(2);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 330.0, x, g, err);
  ASSERT_EQ(err, 0);
  const double expected = R * 330.0 * (0.35 * std::log(g[1]) + 0.65 * std::log(g[2]));
  int16_t Err = 5;
  EXPECT_REL(peq::ExcessGE(s, 330.0, x, Err), expected, 1E-14);
  EXPECT_EQ(Err, 0);
}

TEST(ExcessGE, PureEndsGiveZero) {
  peq::Session s = NrtlSession(NrtlT{});
  int16_t Err = 5;
  EXPECT_EQ(peq::ExcessGE(s, 330.0, acttest::X({1.0, 0.0}), Err), 0.0);
  EXPECT_EQ(Err, 0);
  EXPECT_EQ(peq::ExcessGE(s, 330.0, acttest::X({0.0, 1.0}), Err), 0.0);
  EXPECT_EQ(Err, 0);
}

TEST(ExcessGE, ComponentWithZeroFractionIsSkipped) {
  // Three components with x3 = 0: only the terms of components 1 and 2 count.
  peq::Session s = acttest::MakeSession(3, 2);
  s.ParUnitNRTL = 2;
  acttest::SetSlot(s, 1, 1, 2, 0.8);
  acttest::SetSlot(s, 4, 1, 2, 0.3);
  acttest::SetSlot(s, 7, 1, 2, 0.3);
  acttest::SetSlot(s, 1, 1, 3, 2.0);
  acttest::SetSlot(s, 4, 1, 3, 1.0);
  acttest::SetSlot(s, 7, 1, 3, 0.3);
  const peq::Vec<double> x = acttest::X({0.4, 0.6, 0.0});
  peq::Vec<double> g = acttest::G(3);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  ASSERT_NE(g[3], 1.0);  // the limiting gamma of component 3 is not 1, its term still counts 0
  int16_t Err = 0;
  EXPECT_REL(peq::ExcessGE(s, 300.0, x, Err), R * 300.0 * (0.4 * std::log(g[1]) + 0.6 * std::log(g[2])), 1E-14);
}

TEST(ExcessT, EnthalpyMatchesTheAnalyticNRTLDerivative) {
  const NrtlT p;
  peq::Session s = NrtlSession(p);
  for (double x1 : {0.2, 0.5, 0.8}) {
    double hE = 0, TsE = 0, gE = 0;
    int16_t Err = 5;
    peq::ExcessT(s, 330.0, 101.325, acttest::X({x1, 1.0 - x1}), hE, TsE, gE, Err);
    ASSERT_EQ(Err, 0);
    EXPECT_REL(hE, NrtlHE(p, 330.0, x1), 1E-7);
    int16_t e = 0;
    EXPECT_REL(gE, peq::ExcessGE(s, 330.0, acttest::X({x1, 1.0 - x1}), e), 1E-14);
    EXPECT_EQ(TsE, hE - gE);
  }
}

TEST(ExcessT, RedlichKisterClosedEnthalpyAndHeatCapacity) {
  // a = 0.5, b = 300 K, c = -0.05: hE = R x1 x2 (300 + 0.05 T), cpE = 0.05 R x1 x2.
  peq::Session s = RkSession(0.5, 300.0, -0.05);
  const double T = 310.0, x1 = 0.3, x2 = 0.7;
  const peq::Vec<double> x = acttest::X({x1, x2});
  double hE = 0, TsE = 0, gE = 0, cpE = 0;
  int16_t Err = 0;
  peq::ExcessT(s, T, 101.325, x, hE, TsE, gE, Err);
  ASSERT_EQ(Err, 0);
  EXPECT_REL(gE, R * T * x1 * x2 * (0.5 + 300.0 / T - 0.05 * std::log(T)), 1E-12);
  EXPECT_REL(hE, R * x1 * x2 * (300.0 + 0.05 * T), 1E-8);
  EXPECT_REL(TsE, hE - gE, 1E-15);
  peq::ExcessCp(s, T, x, cpE, Err);
  ASSERT_EQ(Err, 0);
  EXPECT_REL(cpE, 0.05 * R * x1 * x2, 1E-5);
  peq::ExcessCp(s, T, 101.325, x, cpE, Err);
  EXPECT_REL(cpE, 0.05 * R * x1 * x2, 1E-5);
}

TEST(ExcessT, KeepsTheFivePointsInTheSession) {
  peq::Session s = RkSession(0.5, 300.0, -0.05);
  EXPECT_EQ(s.Excess.h, 0.75);
  const peq::Vec<double> x = acttest::X({0.3, 0.7});
  double hE = 0, TsE = 0, gE = 0;
  int16_t Err = 0;
  peq::ExcessT(s, 310.0, 101.325, x, hE, TsE, gE, Err);
  EXPECT_EQ(s.Excess.T, 310.0);
  for (int k = -2; k <= 2; ++k) {
    const double Tk = 310.0 + 0.75 * k;
    EXPECT_REL(s.Excess.f[static_cast<std::size_t>(k + 2)], 0.21 * (0.5 + 300.0 / Tk - 0.05 * std::log(Tk)), 1E-12);
  }
  // The formula: hE = -R T^2 (f(-2) - 8 f(-1) + 8 f(1) - f(2))/(12 h).
  const auto& f = s.Excess.f;
  EXPECT_REL(hE, -R * 310.0 * 310.0 * (f[0] - 8 * f[1] + 8 * f[3] - f[4]) / (12 * 0.75), 1E-14);
  // Another step changes the result only in the truncation error.
  s.Excess.h = 0.5;
  double h2 = 0;
  peq::ExcessT(s, 310.0, 101.325, x, h2, TsE, gE, Err);
  EXPECT_REL(h2, hE, 1E-9);
}

TEST(ExcessT, NeedsNoVapourPressureBelowItsLimit) {
  // Vapour-pressure equations valid only from 300 K on, and T - 2h = 298.5 K: the excess
  // functions use none, nothing fails. The second component has no equation at all.
  peq::Session s = peqtest::EthanolWater(0);
  s.ParALP[1].TLo = 300;
  s.P0Eq[2] = "";
  double hE = 0, TsE = 0, gE = 0, cpE = 0;
  int16_t Err = 5;
  peq::ExcessT(s, 300.0, 101.325, acttest::X({0.4, 0.6}), hE, TsE, gE, Err);
  EXPECT_EQ(Err, 0);
  EXPECT_NE(hE, 0.0);
  peq::ExcessCp(s, 300.0, acttest::X({0.4, 0.6}), cpE, Err);
  EXPECT_EQ(Err, 0);
  EXPECT_TRUE(std::isfinite(cpE));
}

TEST(ExcessT, FailingGammaStopsWithErr) {
  // NRTL tau21 = 25, alpha = 0: ln gamma1 = 25 x2^2 + ... reaches 20 near pure component 2.
  peq::Session s = acttest::MakeSession(2, 2);
  s.ParUnitNRTL = 2;
  acttest::SetSlot(s, 4, 1, 2, 25.0);
  double hE = -7, TsE = -7, gE = -7, cpE = -7;
  int16_t Err = 0;
  peq::ExcessT(s, 300.0, 101.325, acttest::X({0.01, 0.99}), hE, TsE, gE, Err);
  EXPECT_EQ(Err, -1);
  EXPECT_EQ(hE, -7);
  EXPECT_EQ(TsE, -7);
  EXPECT_EQ(gE, -7);
  peq::ExcessCp(s, 300.0, acttest::X({0.01, 0.99}), cpE, Err);
  EXPECT_EQ(Err, -1);
  EXPECT_EQ(cpE, -7);
  EXPECT_EQ(peq::ExcessGE(s, 300.0, acttest::X({0.01, 0.99}), Err), 0.0);
  EXPECT_EQ(Err, -1);
}

TEST(ExcessT, PhiPhiTakesTheEquationOfState) {
  peq::Session s = peqtest::PhiPhi({peqtest::kBenzene, peqtest::kToluene}, 5, 2);
  const peq::Vec<double> x = acttest::X({0.4, 0.6});
  double h0 = 0, t0 = 0, g0 = 0, c0 = 0;
  ASSERT_EQ(peq::EOSExcess(s, 320.0, 101.325, x, h0, t0, g0, &c0), 0);
  double hE = 0, TsE = 0, gE = 0, cpE = 0;
  int16_t Err = 5;
  peq::ExcessT(s, 320.0, 101.325, x, hE, TsE, gE, Err);
  EXPECT_EQ(Err, 0);
  EXPECT_EQ(hE, h0);
  EXPECT_EQ(TsE, t0);
  EXPECT_EQ(gE, g0);
  peq::ExcessCp(s, 320.0, 101.325, x, cpE, Err);
  EXPECT_EQ(Err, 0);
  EXPECT_EQ(cpE, c0);
}

// ---- the excess codes of the one-point calculator ----

peq::SingleOut Point(peq::Session& s, int16_t code, double x2, double T, int16_t K1 = 1, int16_t K2 = 2) {
  peq::Vec<double> x(3, 0.0);
  x[static_cast<std::size_t>(K2)] = x2;
  x[static_cast<std::size_t>(K1)] = 1.0 - x2;
  peq::SingleOut out;
  peq::SingleCalcExcess(s, code, x2, T, 101.325, x, K1, K2, out);
  return out;
}

TEST(SingleCalcExcess, DerivativeCodesAreRTGMForTimesFuFaktor) {
  peq::Session s = NrtlSession(NrtlT{});
  s.FuFaktor = static_cast<float>(1.0 / 8.31451);
  double P[4];
  int16_t err = 0;
  peq::GMForParams(s, 330.0, 1, 2, P, err);
  ASSERT_EQ(err, 0);
  for (int n = 0; n <= 6; ++n) {
    const peq::SingleOut a = Point(s, static_cast<int16_t>(110 + n), 0.3, 330.0);
    EXPECT_EQ(a.F1, 0);
    EXPECT_EQ(a.F2, -1);
    const double ge = R * 330.0 * peq::GMFor(s, n, 0.3, P[0], P[1], P[2], P[3]);
    EXPECT_REL(a.Y1, ge * s.FuFaktor, 1E-6) << n;
    const peq::SingleOut b = Point(s, static_cast<int16_t>(120 + n), 0.3, 330.0);
    EXPECT_REL(b.Y1, (ge + R * 330.0 * peq::GMIdeal(n, 0.3)) * s.FuFaktor, 1E-6) << n;
  }
}

TEST(SingleCalcExcess, PureEndsGiveZeroGEAndMixingG) {
  peq::Session s = NrtlSession(NrtlT{});
  for (double x2 : {0.0, 1.0}) {
    for (int16_t code : {int16_t{110}, int16_t{120}}) {
      const peq::SingleOut o = Point(s, code, x2, 330.0);
      EXPECT_EQ(o.F1, 0);
      EXPECT_EQ(o.Y1, 0.0f) << code << " " << x2;
    }
  }
}

TEST(SingleCalcExcess, EnthalpyEntropyAndHeatCapacityCodes) {
  peq::Session s = RkSession(0.5, 300.0, -0.05);
  s.FuFaktor = 2.0f;
  const double x1 = 0.3, x2 = 0.7, T = 310.0;
  EXPECT_REL(Point(s, 15, x2, T).Y1, 2.0 * R * x1 * x2 * (300.0 + 0.05 * T), 1E-6);
  double hE = 0, TsE = 0, gE = 0;
  int16_t Err = 0;
  peq::ExcessT(s, T, 101.325, acttest::X({x1, x2}), hE, TsE, gE, Err);
  EXPECT_EQ(Point(s, 16, x2, T).Y1, static_cast<float>(2.0 * TsE));
  EXPECT_REL(Point(s, 17, x2, T).Y1, 2.0 * 0.05 * R * x1 * x2, 1E-5);
  // Any other code: gE.
  EXPECT_REL(Point(s, 99, x2, T).Y1, 2.0 * gE, 1E-6);
}

TEST(SingleCalcExcess, FailingModelGivesNoValue) {
  peq::Session s = acttest::MakeSession(2, 2);
  s.ParUnitNRTL = 2;
  acttest::SetSlot(s, 4, 1, 2, 25.0);
  for (int16_t code : {int16_t{15}, int16_t{16}, int16_t{17}, int16_t{99}}) {
    const peq::SingleOut o = Point(s, code, 0.99, 300.0);
    EXPECT_EQ(o.F1, -1) << code;
    EXPECT_EQ(o.F2, -1) << code;
  }
}

TEST(SingleCalcExcess, SwappedPairTakesXOfKomp1AsAbscissa) {
  peq::Session s = NrtlSession(NrtlT{});
  // (K1, K2) = (2, 1): the abscissa is x(1); the first derivative changes sign.
  const peq::SingleOut a = Point(s, 111, 0.3, 330.0);
  const peq::SingleOut b = Point(s, 111, 0.7, 330.0, 2, 1);
  EXPECT_REL(b.Y1, -a.Y1, 1E-6);
  const peq::SingleOut c = Point(s, 112, 0.3, 330.0);
  const peq::SingleOut d = Point(s, 112, 0.7, 330.0, 2, 1);
  EXPECT_REL(d.Y1, c.Y1, 1E-6);
}

TEST(SingleCalcExcess, IdealModelHasOnlyTheMixingTerm) {
  peq::Session s = acttest::MakeSession(2, 0);
  EXPECT_EQ(Point(s, 110, 0.5, 300.0).Y1, 0.0f);
  EXPECT_REL(Point(s, 122, 0.5, 300.0).Y1, R * 300.0 * 4.0, 1E-6);
}

TEST(SingleCalcExcess, GroupModelsHaveOrdersUpToTwo) {
  peq::Session s = acttest::MakeSession(2, 20);
  EXPECT_EQ(Point(s, 113, 0.5, 300.0).F1, -1);
  EXPECT_EQ(Point(s, 126, 0.5, 300.0).F1, -1);
}

TEST(SingleCalcExcess, PhiPhiTakesTheEquationOfStateForEveryOrder) {
  peq::Session s = peqtest::PhiPhi({peqtest::kBenzene, peqtest::kToluene}, 5, 2);
  const peq::Vec<double> x = acttest::X({0.6, 0.4});
  double h0 = 0, t0 = 0, g0 = 0;
  ASSERT_EQ(peq::EOSExcess(s, 320.0, 101.325, x, h0, t0, g0), 0);
  for (int16_t code : {int16_t{110}, int16_t{113}}) {
    const peq::SingleOut o = Point(s, code, 0.4, 320.0);
    EXPECT_EQ(o.F1, 0);
    EXPECT_EQ(o.Y1, static_cast<float>(g0)) << code;
  }
  EXPECT_EQ(Point(s, 120, 0.4, 320.0).Y1, static_cast<float>(g0 + R * 320.0 * peq::GMIdeal(0, 0.4)));
}

}  // namespace
