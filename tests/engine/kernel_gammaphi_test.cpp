// Equilibrium kernel, gamma-phi concept: K values, bubble and dew points.
#include "engine/kernel.h"

#include <cmath>

#include <gtest/gtest.h>

#include "engine/kernel_test_sessions.h"
#include "models/activity.h"
#include "models/eos_sat.h"
#include "models/pureprops.h"
#include "session/constants.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

using namespace peq;
using peqtest::Comp;

namespace {

double BubbleP(Session& s, double T, const Vec<double>& x, double pStart = 0) {
  double vL = -1, vV = -1;
  const Vec<double> y0 = Comp({0.0, 0.0});
  const double p = CalcBubbleP(s, T, x, pStart, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  EXPECT_EQ(vL, 0.0);
  EXPECT_EQ(vV, 0.0);
  return p;
}

double BubbleT(Session& s, double p, const Vec<double>& x, double Tin = 0) {
  double vL, vV;
  int16_t warn = 0;
  Vec<double> y0(x.size(), 0.0);
  return CalcBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
}

// Methanol(1)/methyl acetate(2), reference case 5 (SVNA Example 10.3): one-parameter Margules
// ln gamma1 = A x2^2 with A = 2.771 - 0.00523 T (as a Redlich-Kister A at the fixed T), and
// ln(p/kPa) = 16.59158 - 3643.31/(T - 33.424), 14.25326 - 2665.54/(T - 53.424).
Session MethanolMethylAcetate(double T) {
  Session s = peqtest::MakeSession({{"Methanol", 32.042, 512.5, 8084, 275.6, 0.565},
                                    {"Methyl acetate", 74.079, 506.5, 4750, 325.0, 0.331}});
  peqtest::SetAntoineLn(s, 1, 16.59158, 3643.31, 273.15 - 33.424);
  peqtest::SetAntoineLn(s, 2, 14.25326, 2665.54, 273.15 - 53.424);
  s.GEModel = 4;
  peqtest::SetSlot(s, 1, 1, 2, 2.771 - 0.00523 * T);
  s.VapModel = 0;
  return s;
}

}  // namespace

// ------------------------------------------------------------------------------- CalcKValues

TEST(CalcKValues, IdealGasIsPressureOverVapourPressureTimesGamma) {
  Session s = peqtest::EthanolWater(0);
  const double T = 350.0, p = 5000.0;  // a high p: still no Poynting term
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  const Vec<double> x = Comp({0.3, 0.7});
  Vec<double> y(3, 0.0);
  CalcKValues(s, T, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  ASSERT_EQ(err, 0);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(s.PhiKorr[i], 1.0);
    EXPECT_REL(s.KWert[i], double(s.P0[i]) * s.Gamma[i] / p, 1e-15);
    EXPECT_REL(y[i], x[i] * s.KWert[i], 1e-15);
  }
  EXPECT_GT(s.Gamma[1], 1.0);
}

TEST(CalcKValues, VirialKValuesCarryTheInvertedPoyntingTerm) {
  Session s = peqtest::EthanolWater(1);
  const double T = 350.0, p = 80.0;
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  ASSERT_EQ(err, 0);
  const Vec<double> x = Comp({0.3, 0.7});
  Vec<double> y(3, 0.0);
  CalcKValues(s, T, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  ASSERT_EQ(err, 0);
  for (int i = 1; i <= 2; ++i) {
    const double vl = s.VLiq[i], p0 = s.P0[i];
    const double pk = s.PhiVMix[i] / s.Phi0[i] * std::exp(-vl * (p - p0) / (kR * T));
    EXPECT_REL(s.PhiKorr[i], pk, 1e-14);
    EXPECT_REL(s.KWert[i], p0 * s.Gamma[i] / (p * pk), 1e-14);
    EXPECT_NE(s.PhiKorr[i], 1.0);
  }
}

TEST(CalcKValues, PhiPhiConceptOnlyResetsTheArrays) {
  Session s = peqtest::EthanolWater(1);
  s.Konzept = true;
  const Vec<double> x = Comp({0.3, 0.7});
  Vec<double> y(3, 5.0);
  s.Gamma[1] = s.PhiKorr[1] = s.KWert[1] = 9;
  int16_t err = 3;
  CalcKValues(s, 350, 80, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.Gamma[1], 1.0);
  EXPECT_EQ(s.PhiKorr[1], 1.0);
  EXPECT_EQ(s.KWert[1], 1.0);
  EXPECT_EQ(y[1], 0.3);
}

TEST(CalcKValues, VapourPressureZeroIsErrWithARealVapourModel) {
  Session s = peqtest::EthanolWater(1);
  const double T = 350.0;
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  s.P0[2] = 0.0f;
  Vec<double> y(3, 0.0);
  CalcKValues(s, T, 80, s.BVir, Comp({0.3, 0.7}), s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  EXPECT_EQ(err, -1);
  EXPECT_TRUE(peqtest::SessionFinite(s));
}

TEST(CalcKValues, VapourPressureZeroWithIdealGasIsNoError) {
  Session s = peqtest::EthanolWater(0);
  const double T = 350.0;
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  s.P0[2] = 0.0f;
  Vec<double> y(3, 0.0);
  CalcKValues(s, T, 80, s.BVir, Comp({0.3, 0.7}), s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.KWert[2], 0.0);
}

TEST(CalcKValues, PressureZeroFaultsThroughTheTrap) {
  Session s = peqtest::EthanolWater(0);
  int16_t err, dT;
  AllPureProps(s, 350, err, dT);
  Vec<double> y(3, 0.0);
  CalcKValues(s, 350, 0.0, s.BVir, Comp({0.3, 0.7}), s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  EXPECT_EQ(err, -1);
  EXPECT_TRUE(peqtest::SessionFinite(s));
}

// ------------------------------------------------------------------------------- Raoult's law

TEST(CalcBubbleP, RaoultsLawExactlyForIdealMixtureAndIdealGas) {
  Session s = peqtest::BenzeneToluene();
  const double T = 363.15;
  const Vec<double> x = Comp({0.4, 0.6});
  const double p = BubbleP(s, T, x);
  // p = sum x(i) P0(i) of the single-precision vapour pressures, y(i) = x(i) P0(i)/p.
  const double p1 = s.P0[1], p2 = s.P0[2];
  EXPECT_REL(p, 0.4 * p1 + 0.6 * p2, 1e-15);
  EXPECT_REL(s.YGas[1], 0.4 * p1 / p, 1e-15);
  EXPECT_REL(s.YGas[2], 0.6 * p2 / p, 1e-15);
  EXPECT_REL(s.KWert[1], p1 / p, 1e-15);
  EXPECT_EQ(s.Gamma[1], 1.0);
  EXPECT_EQ(s.PhiKorr[1], 1.0);
  // Reference case 4 (benzene/toluene, x1 = 0.4, 90 °C): p = 87.185 kPa, y1 = 0.6262.
  EXPECT_REL(p, 87.185, 2e-5);
  EXPECT_NEAR(s.YGas[1], 0.6262, 1e-4);
}

TEST(CalcBubbleT, RaoultEquimolarBenzeneToluene) {
  // Reference case 4: equimolar liquid at 101.325 kPa boils at 365.18 K with y1 = 0.7139.
  Session s = peqtest::BenzeneToluene();
  const double T = BubbleT(s, 101.325, Comp({0.5, 0.5}));
  EXPECT_NEAR(T, 365.18, 0.01);
  EXPECT_NEAR(s.YGas[1], 0.7139, 1e-4);
  // At the answer the bubble condition holds: sum x P0 = p.
  EXPECT_REL(0.5 * double(s.P0[1]) + 0.5 * double(s.P0[2]), 101.325, 1e-5);
}

TEST(CalcDewP, RaoultBenzeneToluene) {
  // Reference case 4: y1 = 0.4 at 90 °C: p = 71.540 kPa, x1 = 0.2096.
  Session s = peqtest::BenzeneToluene();
  const double T = 363.15;
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  const float p = CalcDewP(s, T, Comp({0.4, 0.6}));
  EXPECT_REL(p, 71.540, 1e-4);
  EXPECT_NEAR(s.XLiq[1], 0.2096, 1e-4);
}

TEST(CalcDewT, RaoultEquimolarBenzeneToluene) {
  // Reference case 4: equimolar vapour at 101.325 kPa: dew point 371.87 K.
  Session s = peqtest::BenzeneToluene();
  const float T = CalcDewT(s, 101.325, Comp({0.5, 0.5}), 0.0);
  EXPECT_NEAR(T, 371.87, 0.01);
}

TEST(CalcBubbleP, MargulesReferenceMethanolMethylAcetate) {
  // Reference case 5 (SVNA Example 10.3), T = 318.15 K: BUBL P at x1 = 0.25 gives 73.50 kPa and
  // y1 = 0.2822; DEW P at y1 = 0.60 gives 62.89 kPa and x1 = 0.8169.
  const double T = 318.15;
  Session s = MethanolMethylAcetate(T);
  const double p = BubbleP(s, T, Comp({0.25, 0.75}));
  EXPECT_REL(p, 73.50, 1e-4);
  EXPECT_NEAR(s.YGas[1], 0.2822, 1e-4);
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  const float pd = CalcDewP(s, T, Comp({0.6, 0.4}));
  EXPECT_REL(pd, 62.89, 1e-4);
  EXPECT_NEAR(s.XLiq[1], 0.8169, 1e-4);
}

// ------------------------------------------------------------------------------- round trips

TEST(CalcBubbleP, InvertedByTheMatchingDewPoint) {
  for (int vap : {0, 1, 2}) {
    Session s = peqtest::EthanolWater(vap);
    const double T = 343.15;
    for (double x1 : {0.05, 0.252, 0.6, 0.95}) {
      const Vec<double> x = Comp({x1, 1 - x1});
      const double p = BubbleP(s, T, x);
      ASSERT_GT(p, 0) << vap << " " << x1;
      const Vec<double> y = s.YGas;
      int16_t err, dT;
      AllPureProps(s, T, err, dT);
      const float pd = CalcDewP(s, T, y);
      EXPECT_REL(pd, p, 1e-4) << vap << " " << x1;
      // x follows within the dew routine's tolerances; on the flat part of the ethanol/water
      // bubble line (near the azeotrope) dx = dp/(dp/dx) is larger than dp/p.
      EXPECT_NEAR(s.XLiq[1], x1, 5e-3) << vap << " " << x1;
    }
  }
}

TEST(CalcBubbleP, RaoultInvertedByTheMatchingDewPoint) {
  Session s = peqtest::BenzeneToluene();
  const double T = 363.15;
  for (double x1 : {0.1, 0.4, 0.8}) {
    const double p = BubbleP(s, T, Comp({x1, 1 - x1}));
    const Vec<double> y = s.YGas;
    const float pd = CalcDewP(s, T, y);
    EXPECT_REL(pd, p, 1e-4) << x1;
    EXPECT_NEAR(s.XLiq[1], x1, 1e-4) << x1;
    double Tin = 0;
    const float Td = CalcDewT(s, p, y, Tin);
    EXPECT_NEAR(Td, T, 1e-4 * T) << x1;
  }
}

TEST(CalcBubbleT, InvertedByTheMatchingDewPoint) {
  for (int vap : {0, 1}) {
    Session s = peqtest::EthanolWater(vap);
    const double p = 101.325;
    for (double x1 : {0.05, 0.252, 0.6, 0.95}) {
      const Vec<double> x = Comp({x1, 1 - x1});
      const double T = BubbleT(s, p, x);
      ASSERT_GT(T, 0) << vap << " " << x1;
      const Vec<double> y = s.YGas;
      const float Td = CalcDewT(s, p, y, 0.0);
      EXPECT_NEAR(Td, T, 1e-4 * T) << vap << " " << x1;
      EXPECT_NEAR(s.XLiq[1], x1, 5e-3) << vap << " " << x1;
    }
  }
}

TEST(CalcBubbleP, BubbleAndBubbleTemperatureAgree) {
  Session s = peqtest::EthanolWater(1);
  const Vec<double> x = Comp({0.3, 0.7});
  const double p = BubbleP(s, 350.0, x);
  EXPECT_NEAR(BubbleT(s, p, x), 350.0, 1e-3);
  EXPECT_NEAR(BubbleT(s, p, x, 340.0), 350.0, 1e-3);  // with a start
}

TEST(CalcBubbleP, SumOfYIsOneAtTheBubblePoint) {
  Session s = peqtest::EthanolWater(2);
  const double p = BubbleP(s, 340.0, Comp({0.4, 0.6}));
  ASSERT_GT(p, 0);
  EXPECT_NEAR(s.YGas[1] + s.YGas[2], 1.0, 2e-5);
}

TEST(CalcBubbleP, StartPressureGivesTheSameAnswer) {
  Session s = peqtest::EthanolWater(1);
  const Vec<double> x = Comp({0.4, 0.6});
  const double p0 = BubbleP(s, 340.0, x);
  EXPECT_REL(BubbleP(s, 340.0, x, p0 * 1.02), p0, 1e-5);
}

// ------------------------------------------------------------------------------- pure branch

TEST(CalcBubbleP, PureComponentTakesTheSinglePrecisionVapourPressure) {
  Session s = peqtest::EthanolWater(1);
  const double T = 340.0;
  const double p = BubbleP(s, T, Comp({1.0, 0.0}));
  EXPECT_EQ(p, static_cast<double>(s.P0[1]));
  EXPECT_REL(s.YGas[1], 1.0, 1e-12);
  EXPECT_EQ(s.YGas[2], 0.0);
  // 0.9999999 is a mixture: the result is not the bare vapour pressure.
  const double pm = BubbleP(s, T, Comp({0.9999999, 1e-7}));
  EXPECT_NE(pm, static_cast<double>(s.P0[1]));
  EXPECT_REL(pm, p, 1e-5);
}

TEST(CalcBubbleT, PureComponentIsTheBoilingTemperature) {
  Session s = peqtest::BenzeneToluene();
  const double T = BubbleT(s, 101.325, Comp({0.0, 1.0}));
  // Toluene by the SVNA constants: 110.63 °C at 1 atm (383.78 K, hand: t = B/(A - ln p) - C).
  EXPECT_NEAR(T, 3056.96 / (13.9320 - std::log(101.325)) - 217.625 + 273.15, 2e-3);
  EXPECT_REL(s.YGas[2], 1.0, 1e-4);
}

// ------------------------------------------------------------------------------- limits

TEST(CalcBubbleP, ReturnsZeroAtOrAboveTKritMax) {
  Session s = peqtest::EthanolWater(0);
  EXPECT_EQ(BubbleP(s, s.TKritMax, Comp({0.5, 0.5})), 0.0);
  EXPECT_EQ(BubbleP(s, s.TKritMax + 50, Comp({0.5, 0.5})), 0.0);
  EXPECT_GT(BubbleP(s, s.TKritMax - 150, Comp({0.5, 0.5})), 0.0);
}

TEST(CalcBubbleT, EqualFunctionValuesEndThroughTheTrap) {
  // Vapour pressures that do not depend on T (B = 0): F2 = F1 in round 2, dT is set to 0.5 and
  // the division by F2 - F1 = 0 ends the routine with 0.
  Session s = peqtest::BenzeneToluene();
  s.ParALP[1].B = 0.0f;
  s.ParALP[2].B = 0.0f;
  s.ParALP[1].A = 2.0f;
  s.ParALP[2].A = 1.8f;
  EXPECT_EQ(BubbleT(s, 80.0, Comp({0.5, 0.5}), 350.0), 0.0);
  EXPECT_TRUE(peqtest::SessionFinite(s));
}

TEST(CalcBubbleP, CubicVapourModelRoundTrip) {
  // SRK for the vapour. Phi0 of the cubic is filled here at the T of the point (the pure
  // properties keep it as it stood while their own EOS branch is not joined in).
  Session s = peqtest::EthanolWater(4);
  const double T = 343.15;
  int16_t err, dT;
  AllPureProps(s, T, err, dT);
  ASSERT_EQ(EOSPhi0(s, T, 4), 0);
  const Vec<double> x = Comp({0.3, 0.7});
  const double p = BubbleP(s, T, x);
  ASSERT_GT(p, 0);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_LT(s.PhiVMix[i], 1.0);
    EXPECT_NE(s.PhiKorr[i], 1.0);
  }
  const Vec<double> y = s.YGas;
  const float pd = CalcDewP(s, T, y);
  EXPECT_REL(pd, p, 1e-4);
  // Close to the virial result at these low pressures.
  Session v = peqtest::EthanolWater(1);
  EXPECT_REL(BubbleP(v, T, x), p, 2e-3);
}

namespace {

// Ethanol(1)/water(2) of the bundled database under UNIFAC with the shipped parameter file and
// the ideal gas, as a project of the program would have it.
Session EthanolWaterUnifac() {
  Session s;
  EXPECT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"64-17-5", "7732-18-5"}));
  s.GEModel = 21;
  s.VapModel = 0;
  s.OUnifFile = peqtest::SourceDir() + "/data/OUNIF6PLUS.PAR";
  s.UnifacNeu = true;
  return s;
}

}  // namespace

TEST(CalcBubbleP, UnifacReplacementOfAZeroMoleFractionStaysInTheCallersArray) {
  // x1 = 0 becomes 1E-10 in the array the bubble routine gets, so the vapour carries
  // y1 = 1E-10 K1 (about 1.6E-9 at 343.15 K), not 0.
  Session s = EthanolWaterUnifac();
  Vec<double> x = Comp({0.0, 0.999});
  const Vec<double> y0 = Comp({0.0, 0.0});
  double vL = 0, vV = 0;
  const double p = CalcBubbleP(s, 343.15, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  ASSERT_GT(p, 0.0);
  EXPECT_EQ(x[1], 1E-10);
  EXPECT_EQ(x[2], 0.999);
  EXPECT_GT(s.KWert[1], 10.0);
  EXPECT_EQ(s.YGas[1], 1E-10 * s.KWert[1]);
  EXPECT_GT(s.YGas[1], 1e-9);
  EXPECT_LT(s.YGas[1], 1e-8);
  // The bubble pressure holds the replaced fraction: p = sum x(i) p0(i) gamma(i) with the ideal gas.
  EXPECT_REL(p, 1E-10 * s.P0[1] * s.Gamma[1] + 0.999 * s.P0[2] * s.Gamma[2], 1e-5);
  // A read-only composition stays as it was and gives the same numbers.
  Session s2 = EthanolWaterUnifac();
  const Vec<double> xc = Comp({0.0, 0.999});
  const double pc = CalcBubbleP(s2, 343.15, xc, 0.0, y0, s2.Gamma, s2.PhiKorr, s2.KWert, vL, vV);
  EXPECT_EQ(xc[1], 0.0);
  EXPECT_EQ(pc, p);
  EXPECT_EQ(s2.YGas[1], s.YGas[1]);
}

TEST(CalcBubbleT, UnifacReplacementOfAZeroMoleFractionStaysInTheCallersArray) {
  Session s = EthanolWaterUnifac();
  Vec<double> x = Comp({0.0, 0.999});
  const Vec<double> y0 = Comp({0.0, 0.0});
  double vL = 0, vV = 0, Tin = 0;
  int16_t warn = 0;
  const double T = CalcBubbleT(s, 101.325, x, Tin, y0, warn, s.KWert, vL, vV);
  ASSERT_GT(T, 0.0);
  EXPECT_EQ(x[1], 1E-10);
  EXPECT_EQ(s.YGas[1], 1E-10 * s.KWert[1]);
  EXPECT_GT(s.YGas[1], 0.0);
}

TEST(CalcKValues, UnifacReplacementOfAZeroMoleFractionStaysInTheCallersArray) {
  Session s = EthanolWaterUnifac();
  int16_t err = 0, dT = 0;
  AllPureProps(s, 343.15, err, dT);
  Vec<double> x = Comp({0.0, 1.0});
  Vec<double> y(3, 0.0);
  CalcKValues(s, 343.15, 31.0, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, y, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(x[1], 1E-10);
  EXPECT_EQ(y[1], 1E-10 * s.KWert[1]);
  EXPECT_GT(y[1], 0.0);
}
