// Mixing gap of a binary: spinodal points, binodal (common tangent), three-phase point at p and
// the gap of a diagram.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "engine/gap.h"
#include "engine/gap_sessions.h"
#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/activity.h"
#include "models/activity_fixture.h"
#include "models/gmix.h"
#include "support/fuzzy.h"

namespace {

const char* kHomogeneous = "for the 2nd derivation of GM to x2 no solution found => homogeneous mixture";

// Binary with the one-constant Redlich-Kister (two-suffix Margules) form gE/(R T) = A x1 x2,
// A dimensionless and independent of T. Stability needs d2(delta(M)g/(R T))/dx2^2 =
// 1/(x1 x2) - 2 A > 0, so the mixture splits for A > 2 (hand derivation; the classical result
// of the two-suffix Margules equation, e.g. Prausnitz, Lichtenthaler, de Azevedo, Molecular
// Thermodynamics of Fluid-Phase Equilibria, 3rd ed.).
peq::Session Margules(double A) {
  peq::Session s = acttest::MakeSession(2, 4);
  acttest::SetSlot(s, 1, 1, 2, A);
  return s;
}

using peqtest::WaterButanol;

// x ln(gamma) of component i in the binary liquid x2 at T.
double LnActivity(peq::Session& s, double T, double x2, int i) {
  const peq::Vec<double> x = acttest::X({1.0 - x2, x2});
  peq::Vec<double> g = acttest::G(2);
  int16_t err = 0;
  peq::ActivityCoeffs(s, T, x, g, err);
  EXPECT_EQ(err, 0);
  return std::log(x[static_cast<std::size_t>(i)] * g[static_cast<std::size_t>(i)]);
}

// The binodal of the symmetric mixture: x2' = x solves ln((1 - x)/x) = A (1 - 2x) (equal
// activity of component 1 in x and 1 - x), x2'' = 1 - x; found by bisection here.
double MargulesBinodal(double A) {
  double lo = 1E-9, hi = 0.5 - 1E-9;
  for (int k = 0; k < 200; ++k) {
    const double m = 0.5 * (lo + hi);
    const double f = std::log((1.0 - m) / m) - A * (1.0 - 2.0 * m);
    if (f > 0.0) lo = m;
    else hi = m;
  }
  return 0.5 * (lo + hi);
}

// NRTL with dimensionless tau12 = 3, tau21 = 20, alpha = 0.2: ln gamma1 reaches 20 (the model's
// failure) near pure component 2, so the downward march stops at its first point.
peq::Session FailingNearPureTwo() {
  peq::Session s = acttest::MakeSession(2, 2);
  s.ParUnitNRTL = 2;
  acttest::SetSlot(s, 1, 1, 2, 3.0);
  acttest::SetSlot(s, 4, 1, 2, 20.0);
  acttest::SetSlot(s, 7, 1, 2, 0.2);
  return s;
}

TEST(SolveGMDeriv, FindsTheSlopeOfTheIdealMixture) {
  // Ideal mixture: GM' = R T ln(x/(1 - x)); GM' = 0 at x = 0.5.
  peq::Session s = Margules(0.0);
  s.GEModel = 0;
  double x = 0.3;
  int16_t ok = 0;
  peq::SolveGMDeriv(s, 300.0, 0.0, x, 1E-9, ok, 1);
  EXPECT_EQ(ok, -1);
  EXPECT_NEAR(x, 0.5, 1E-8);
  // GM' = R T ln 3 at x = 0.75.
  x = 0.6;
  peq::SolveGMDeriv(s, 300.0, 8.31451 * 300.0 * std::log(3.0), x, 1E-9, ok, 1);
  EXPECT_EQ(ok, -1);
  EXPECT_NEAR(x, 0.75, 1E-7);
}

TEST(SolveGMDeriv, FailureLeavesXZero) {
  // GM'' of the ideal mixture is R T/(x1 x2) > 0: no zero, the 150 rounds run out.
  peq::Session s = Margules(0.0);
  s.GEModel = 0;
  double x = 0.999;
  int16_t ok = 5;
  peq::SolveGMDeriv(s, 300.0, 0.0, x, 1E-7, ok, 2);
  EXPECT_EQ(ok, 0);
  EXPECT_EQ(x, 0.0);
}

TEST(FindGM2Zeros, IdealMixtureHasNoZero) {
  peq::Session s = Margules(0.0);
  s.GEModel = 0;
  double a = -1, b = -1;
  std::string msg;
  peq::FindGM2Zeros(s, 300.0, a, b, msg);
  EXPECT_EQ(msg, kHomogeneous);
}

TEST(FindGM2Zeros, SpinodalsOfTheSymmetricMixture) {
  // GM''/(R T) = 1/(x1 x2) - 2 A = 0: x = (1 -+ sqrt(1 - 2/A))/2; A = 3: 0.2113249, 0.7886751.
  peq::Session s = Margules(3.0);
  double a = 0, b = 0;
  std::string msg = "x";
  peq::FindGM2Zeros(s, 300.0, a, b, msg);
  EXPECT_EQ(msg, "");
  const double r = std::sqrt(1.0 - 2.0 / 3.0);
  EXPECT_NEAR(a, (1.0 - r) / 2.0, 3E-5);
  EXPECT_NEAR(b, (1.0 + r) / 2.0, 3E-5);
}

TEST(FindGM2Zeros, CriticalSolutionPointGivesDoubleSolution) {
  // A = 2/(1 - 4 d^2) puts the spinodals at 0.5 -+ d; d = 3E-5: both marches catch the narrow
  // unstable band (their grids pass 0.50001 and 0.49999), the zeros lie closer than 1E-4.
  const double d = 3E-5;
  peq::Session s = Margules(2.0 / (1.0 - 4.0 * d * d));
  double a = 0, b = 0;
  std::string msg;
  peq::FindGM2Zeros(s, 300.0, a, b, msg);
  EXPECT_EQ(msg, "(double solution)");
  EXPECT_NEAR(a, 0.5, 1E-4);
  EXPECT_NEAR(b, 0.5, 1E-4);
}

TEST(FindGM2Zeros, UpwardZeroAloneGivesOneSolution) {
  peq::Session s = FailingNearPureTwo();
  double a = 0, b = -3;
  std::string msg;
  peq::FindGM2Zeros(s, 300.0, a, b, msg);
  EXPECT_EQ(msg, "for GM2 only found one solution");
  EXPECT_GT(a, 0.0);
  EXPECT_LT(a, 0.5);
  EXPECT_EQ(b, -3);  // no second zero was stored
  // The upward zero is a sign change of GM'': GM'' changes sign across it.
  double Gid = 0, GE = 0, g1 = 0, g2 = 0;
  int16_t err = 0;
  peq::GMix(s, 300.0, 2, a - 1E-3, Gid, GE, g1, err);
  peq::GMix(s, 300.0, 2, a + 1E-3, Gid, GE, g2, err);
  EXPECT_LT(g1 * g2, 0.0);
}

TEST(FindGM2Zeros, ZeroTemperatureStopsTheMarch) {
  // At T = 0 GM'' is 0 everywhere: the Newton start fails and nothing is found.
  peq::Session s = Margules(3.0);
  double a = 0, b = 0;
  std::string msg;
  peq::FindGM2Zeros(s, 0.0, a, b, msg);
  EXPECT_EQ(msg, kHomogeneous);
}

TEST(Binodal, IdealMixtureIsHomogeneous) {
  peq::Session s = Margules(0.0);
  s.GEModel = 0;
  double a = 0, b = 0;
  std::string msg;
  EXPECT_FALSE(peq::Binodal(s, 300.0, a, b, msg));
  EXPECT_EQ(msg, kHomogeneous);
}

TEST(Binodal, MargulesBelowTwoIsHomogeneous) {
  peq::Session s = Margules(1.9);
  double a = 0, b = 0;
  std::string msg;
  EXPECT_FALSE(peq::Binodal(s, 300.0, a, b, msg));
  EXPECT_EQ(msg, kHomogeneous);
}

TEST(Binodal, OneZeroEndsWithItsMessage) {
  peq::Session s = FailingNearPureTwo();
  double a = 0, b = 0;
  std::string msg;
  EXPECT_FALSE(peq::Binodal(s, 300.0, a, b, msg));
  EXPECT_EQ(msg, "for GM2 only found one solution");
}

TEST(Binodal, DoubleSolutionEndsWithItsMessage) {
  const double d = 3E-5;
  peq::Session s = Margules(2.0 / (1.0 - 4.0 * d * d));
  double a = 0, b = 0;
  std::string msg;
  EXPECT_FALSE(peq::Binodal(s, 300.0, a, b, msg));
  EXPECT_EQ(msg, "(double solution)");
}

TEST(Binodal, SymmetricMargulesGivesItsClosedBinodal) {
  // A = 3: x' = 0.0707202 (bisection of the closed condition), x'' = 1 - x'.
  for (double A : {2.5, 3.0, 4.0}) {
    peq::Session s = Margules(A);
    double a = 0, b = 0;
    std::string msg = "x";
    ASSERT_TRUE(peq::Binodal(s, 320.0, a, b, msg)) << A;
    EXPECT_EQ(msg, "");
    const double xe = MargulesBinodal(A);
    EXPECT_NEAR(a, xe, 2E-6) << A;
    EXPECT_NEAR(b, 1.0 - xe, 2E-6) << A;
  }
}

TEST(Binodal, WaterButanolGivesTheCommonTangent) {
  // Water(1)/1-butanol(2), NRTL of DECHEMA: at 365 K (near the heteroazeotrope) the two
  // liquids hold about 2 mol % butanol (aqueous) and 35 to 40 mol % butanol (organic) (mutual
  // solubilities near the boiling point, Soerensen and Arlt, Liquid-Liquid Equilibrium Data
  // Collection, DECHEMA Chemistry Data Series Vol. V/1). The brackets are wide: the parameters
  // were fitted to vapour-liquid data.
  peq::Session s = WaterButanol();
  double a = 0, b = 0;
  std::string msg;
  ASSERT_TRUE(peq::Binodal(s, 365.0, a, b, msg)) << msg;
  EXPECT_GT(a, 0.01);
  EXPECT_LT(a, 0.03);
  EXPECT_GT(b, 0.33);
  EXPECT_LT(b, 0.46);
  // Equal chemical potentials: x gamma of each component equal in both liquids.
  for (int i = 1; i <= 2; ++i)
    EXPECT_NEAR(LnActivity(s, 365.0, a, i), LnActivity(s, 365.0, b, i), 2E-5) << i;
  // Equal slopes of GM at both ends: the tangent is common.
  double Gid = 0, GE = 0, gA = 0, gB = 0, dA = 0, dB = 0;
  int16_t err = 0;
  peq::GMix(s, 365.0, 0, a, Gid, GE, gA, err);
  peq::GMix(s, 365.0, 0, b, Gid, GE, gB, err);
  peq::GMix(s, 365.0, 1, a, Gid, GE, dA, err);
  peq::GMix(s, 365.0, 1, b, Gid, GE, dB, err);
  EXPECT_NEAR(dA, dB, 0.01);
  EXPECT_NEAR((gB - gA) / (b - a), dA, 0.01);
}

TEST(GapRange, WaterButanolThreePhasePoint) {
  // The heteroazeotrope of water/1-butanol at 101.325 kPa boils at about 92.5 °C (92.4 to
  // 92.7 °C in the azeotrope tables of the CRC Handbook and Lange's Handbook); the model places
  // the three-phase point within 2 K of 365.85 K.
  peq::Session s = WaterButanol();
  double T = 0, a = 0, b = 0;
  int16_t K = 0;
  std::string msg = "x";
  ASSERT_TRUE(peq::GapRange(s, 101.325, 340.0, 390.0, T, a, b, K, msg)) << msg;
  EXPECT_EQ(msg, "");
  EXPECT_NEAR(T, 365.85, 2.0);
  // xA and xB belong to the final T, and both liquids boil there together.
  double a2 = 0, b2 = 0;
  std::string m2;
  ASSERT_TRUE(peq::Binodal(s, T, a2, b2, m2));
  EXPECT_EQ(a, a2);
  EXPECT_EQ(b, b2);
  const peq::Vec<double> y0(3, 0.0);
  peq::Vec<double> x = acttest::X({1.0 - a, a});
  double vL = 0, vV = 0, t1 = 0, t2 = 0;
  int16_t w = 0;
  const double Ta = peq::CalcBubbleT(s, 101.325, x, t1, y0, w, s.KWert, vL, vV);
  x = acttest::X({1.0 - b, b});
  const double Tb = peq::CalcBubbleT(s, 101.325, x, t2, y0, w, s.KWert, vL, vV);
  EXPECT_NEAR(Ta, Tb, 0.01);
  EXPECT_NEAR(Ta, T, 0.5);
}

TEST(GapRange, IdealMixtureHasNoGapInTheRange) {
  peq::Session s = peqtest::BenzeneToluene();
  double T = 0, a = 0, b = 0;
  int16_t K = 0;
  std::string msg;
  EXPECT_FALSE(peq::GapRange(s, 101.325, 340.0, 390.0, T, a, b, K, msg));
  EXPECT_EQ(msg, "no mixing gap in the T-range considered");
}

TEST(GapRange, NoBubblePointGivesCalculationFailed) {
  // p = 0: every bubble temperature is 0 at once.
  peq::Session s = WaterButanol();
  double T = 0, a = 0, b = 0;
  int16_t K = 0;
  std::string msg;
  EXPECT_FALSE(peq::GapRange(s, 0.0, 340.0, 390.0, T, a, b, K, msg));
  EXPECT_EQ(msg, "calculation failed");
}

TEST(GapRange, GapClosingBelowTheBubbleTemperatureGivesE4) {
  // Redlich-Kister A = -2 + 900 K/T: A > 2 below 225 K, so the gap found at 200 K is gone at the
  // bubble temperature of the water-butanol vapour pressures at 101.325 kPa.
  peq::Session s = WaterButanol();
  s.GEModel = 4;
  s.GEPar.fill(0.0);
  peqtest::SetSlot(s, 1, 1, 2, -2.0);
  peqtest::SetSlot(s, 2, 1, 2, 900.0);
  double T = 0, a = 0, b = 0;
  int16_t K = 0;
  std::string msg;
  EXPECT_FALSE(peq::GapRange(s, 101.325, 200.0, 220.0, T, a, b, K, msg));
  EXPECT_EQ(msg, "calculation failed (E4)");
}

TEST(GapSuche, IsothermalGapInThePairsOrientation) {
  peq::Session s = WaterButanol();
  s.IsoArt = 1;
  s.TIso = 330.0;
  s.NoDia = 1;
  double xA = 0, xB = 0, a = 0, b = 0;
  std::string msg;
  ASSERT_TRUE(peq::Binodal(s, 330.0, a, b, msg));
  int16_t found = 0, code = 5;
  float X1 = 0, X2 = 0, W1 = 0, W2 = 0;
  peq::GapSuche(s, found, 1, 2, xA, xB, X1, X2, W1, W2, code);
  EXPECT_EQ(found, -1);
  EXPECT_EQ(code, 0);
  EXPECT_EQ(xA, a);
  EXPECT_EQ(xB, b);
  EXPECT_EQ(X1, static_cast<float>(a));
  EXPECT_EQ(X2, static_cast<float>(b));
  EXPECT_GT(W1, 0.0f);  // the pressure of the three-phase line
  EXPECT_EQ(W1, W2);
  // The pair (2, 1): GapX = (2 - 1) - (2 - 1) x = 1 - x.
  peq::GapSuche(s, found, 2, 1, xA, xB, X1, X2, W1, W2, code);
  EXPECT_EQ(found, -1);
  EXPECT_EQ(X1, static_cast<float>(1.0 - a));
  EXPECT_EQ(X2, static_cast<float>(1.0 - b));
}

TEST(GapSuche, XYDiagramGetsTheVapourAtTheGap) {
  peq::Session s = WaterButanol();
  s.IsoArt = 1;
  s.TIso = 330.0;
  s.NoDia = 3;
  double xA = 0, xB = 0;
  int16_t found = 0, code = 0;
  float X1 = 0, X2 = 0, W1 = 0, W2 = 0;
  peq::GapSuche(s, found, 1, 2, xA, xB, X1, X2, W1, W2, code);
  ASSERT_EQ(found, -1);
  // y2 = K2 x2 of the bubble point of the first liquid.
  peq::Session k = WaterButanol();
  const peq::Vec<double> x = acttest::X({1.0 - xA, xA}), y0(3, 0.0);
  double vL = 0, vV = 0;
  ASSERT_GT(peq::CalcBubbleP(k, 330.0, x, 0.0, y0, k.Gamma, k.PhiKorr, k.KWert, vL, vV), 0.0);
  EXPECT_EQ(W1, static_cast<float>(k.KWert[2] * xA));
  EXPECT_EQ(W2, W1);
  EXPECT_GT(W1, X1);  // butanol-poor liquid, vapour richer in butanol (heteroazeotrope)
}

TEST(GapSuche, IsobaricGapAtTheThreePhaseTemperature) {
  peq::Session s = WaterButanol();
  s.IsoArt = 2;
  s.PIso = 101.325;
  s.NoDia = 4;
  double xA = 0, xB = 0;
  int16_t found = 0, code = 0;
  float X1 = 0, X2 = 0, W1 = 0, W2 = 0;
  peq::GapSuche(s, found, 1, 2, xA, xB, X1, X2, W1, W2, code);
  ASSERT_EQ(found, -1);
  EXPECT_NEAR(W1, 365.85, 2.0);
  EXPECT_EQ(W2, W1);
}

TEST(GapSuche, FailedBoilingTemperatureGivesCodeOne) {
  peq::Session s = WaterButanol();
  s.IsoArt = 2;
  s.PIso = 101.325;
  s.P0Eq[2] = "";
  double xA = 0, xB = 0;
  int16_t found = 0, code = 0;
  float X1 = 0, X2 = 0, W1 = 0, W2 = 0;
  peq::GapSuche(s, found, 1, 2, xA, xB, X1, X2, W1, W2, code);
  EXPECT_EQ(found, 0);
  EXPECT_EQ(code, 1);
}

TEST(GapSuche, HomogeneousMixtureFindsNothing) {
  peq::Session s = peqtest::BenzeneToluene();
  s.IsoArt = 1;
  s.TIso = 350.0;
  double xA = 0, xB = 0;
  int16_t found = 7, code = 7;
  float X1 = 0, X2 = 0, W1 = 0, W2 = 0;
  peq::GapSuche(s, found, 1, 2, xA, xB, X1, X2, W1, W2, code);
  EXPECT_EQ(found, 0);
  EXPECT_EQ(code, 0);
}

}  // namespace
