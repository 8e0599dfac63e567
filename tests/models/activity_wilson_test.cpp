// Wilson's equation: Lambda from the unit codes and the two choices of volumes, the failure of
// a non-positive sum, and reference values.
#include <gtest/gtest.h>

#include <cmath>

#include "activity_fixture.h"
#include "models/activity.h"
#include "models/wilson.h"
#include "support/fuzzy.h"

using acttest::MakeSession;
using acttest::SetSlot;
using acttest::X;

namespace {

// A density function rho = r1 (kg/m^3, constant below r8 = 1000 K), so that LiquidVolumes
// succeeds with VLiq = MolMasse/rho.
void ConstantDensity(peq::Session& s, int i, float rho, float molMasse) {
  s.ParRho[i][1] = rho;
  s.ParRho[i][8] = 1000.0f;
  s.MolMasse[i] = molMasse;
}

}  // namespace

// Gmehling, Kolbe, Kleiber, Rarey, Chemical Thermodynamics for Process Simulation (2012),
// problem P05.01a (ethanol(1)/water(2), 343.15 K, x1 = 0.252, Lambda12 = 0.154,
// Lambda21 = 0.888), gamma as quoted in reference_cases.md case 7: 1.881493, 1.165577.
// By hand: S1 = x1 + L12 x2 = 0.252 + 0.154*0.748 = 0.367192;
//          S2 = L21 x1 + x2 = 0.888*0.252 + 0.748 = 0.971776;
//          ln g1 = 1 - ln S1 - (x1/S1 + L21 x2/S2) = 1 + 1.0018704 - (0.6862895 + 0.6835155)
//                = 0.6320654 -> g1 = 1.881493;
//          ln g2 = 1 - ln S2 - (L12 x1/S1 + x2/S2) = 1 + 0.0286300 - (0.1056886 + 0.7697247)
//                = 0.1532167 -> g2 = 1.165577.
TEST(WilsonModel, LambdaCode2PublishedEthanolWater) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 2;
  SetSlot(s, 1, 1, 2, 0.154);
  SetSlot(s, 4, 1, 2, 0.888);
  auto x = X({0.252, 0.748});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 343.15, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.881493, 1e-6);
  EXPECT_REL(g[2], 1.165577, 1e-6);
}

// Hand calculation, code 0 (J/mol), fixed volumes v1 = 58.7, v2 = 18.07 cm^3/mol, T = 350 K,
// par12 = 1000, par21 = 2000 J/mol, x1 = 0.3:
//   R T = 8.31451*350 = 2910.0785; par12/(R T) = 0.3436333; par21/(R T) = 0.6872667;
//   L12 = (18.07/58.7) exp(-0.3436333) = 0.2183142; L21 = (58.7/18.07) exp(-0.6872667) = 1.6338185;
//   S1 = 0.3 + 0.2183142*0.7 = 0.4528199; S2 = 1.6338185*0.3 + 0.7 = 1.1901456;
//   ln g1 = 1 - ln S1 - (0.3/S1 + L21*0.7/S2) = 0.1687935 -> g1 = 1.1838757;
//   ln g2 = 1 - ln S2 - (L12*0.3/S1 + 0.7/S2) = 0.0931246 -> g2 = 1.0975985.
TEST(WilsonModel, JmolFixedVolumesHandCalculation) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 0;
  s.WilsonVFix = true;
  s.AlleVWilson = true;
  s.VLiqCm3[1] = 58.7f;
  s.VLiqCm3[2] = 18.07f;
  ConstantDensity(s, 1, 789.0f, 46.07f);
  ConstantDensity(s, 2, 997.0f, 18.015f);
  SetSlot(s, 1, 1, 2, 1000.0);
  SetSlot(s, 4, 1, 2, 2000.0);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 350.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.1838757, 1e-6);
  EXPECT_REL(g[2], 1.0975985, 1e-6);
}

// CalebBell/thermo tests/test_wilson.py test_Wilson_chemsep, ethanol(1)/water(2) at 343.15 K,
// x1 = 0.252 (reference_cases.md case 9): Lambda12 = (v2/v1) exp(-192.380828/T),
// Lambda21 = (v1/v2) exp(-480.801103/T), v2/v1 = exp(-1.1769275); gamma 1.957331, 1.160068.
// Here with code 3 (K) and the fixed volumes v1 = 58, v2 = 58 exp(-1.1769275) cm^3/mol.
TEST(WilsonModel, KelvinCodeChemsepEthanolWater) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 3;
  s.WilsonVFix = true;
  s.AlleVWilson = true;
  s.VLiqCm3[1] = 58.0f;
  s.VLiqCm3[2] = static_cast<float>(58.0 * std::exp(-1.1769275));
  ConstantDensity(s, 1, 789.0f, 46.07f);
  ConstantDensity(s, 2, 997.0f, 18.015f);
  SetSlot(s, 1, 1, 2, 192.380828);
  SetSlot(s, 4, 1, 2, 480.801103);
  auto x = X({0.252, 0.748});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 343.15, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.957331, 2e-6);
  EXPECT_REL(g[2], 1.160068, 2e-6);
}

// Volumes from rho(T) when WilsonVFix is false: v = VLiq = MolMasse/rho. The same numbers as
// with fixed volumes equal to those VLiq (the scale of v cancels in v(j)/v(i)).
TEST(WilsonModel, VolumesFromDensityWhenNotFixed) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 0;
  s.WilsonVFix = false;
  s.AlleVWilson = true;
  s.VLiqCm3[1] = 1.0f;  // would give another Lambda if it were used
  s.VLiqCm3[2] = 1.0f;
  ConstantDensity(s, 1, 789.0f, 46.07f);
  ConstantDensity(s, 2, 997.0f, 18.015f);
  SetSlot(s, 1, 1, 2, 1000.0);
  SetSlot(s, 4, 1, 2, 2000.0);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 350.0, x, g, err);
  ASSERT_EQ(err, 0);
  EXPECT_FLOAT_EQ(s.VLiq[1], 46.07f / 789.0f);
  // Dimensionless Lambda of the same values, computed directly.
  const double RT = 8.31451 * 350.0;
  const double v1 = s.VLiq[1], v2 = s.VLiq[2];
  peq::Session d = MakeSession(2, 1);
  d.ParUnitWilson = 2;
  SetSlot(d, 1, 1, 2, v2 / v1 * std::exp(-1000.0 / RT));
  SetSlot(d, 4, 1, 2, v1 / v2 * std::exp(-2000.0 / RT));
  auto gd = acttest::G(2);
  peq::ActivityCoeffs(d, 350.0, x, gd, err);
  EXPECT_REL(g[1], gd[1], 1e-13);
  EXPECT_REL(g[2], gd[2], 1e-13);
}

// WilsonVFix true but not every component has a WILSON volume: the density volumes are used.
TEST(WilsonModel, FixedVolumesNeedAlleVWilson) {
  peq::Session a = MakeSession(2, 1);
  a.ParUnitWilson = 0;
  a.WilsonVFix = true;
  a.AlleVWilson = false;
  a.VLiqCm3[1] = 1.0f;
  a.VLiqCm3[2] = 5.0f;
  ConstantDensity(a, 1, 789.0f, 46.07f);
  ConstantDensity(a, 2, 997.0f, 18.015f);
  SetSlot(a, 1, 1, 2, 300.0);
  SetSlot(a, 4, 1, 2, 900.0);
  peq::Session b = a;
  b.WilsonVFix = false;
  auto x = X({0.4, 0.6});
  auto ga = acttest::G(2), gb = acttest::G(2);
  int16_t ea = 1, eb = 1;
  peq::ActivityCoeffs(a, 320.0, x, ga, ea);
  peq::ActivityCoeffs(b, 320.0, x, gb, eb);
  EXPECT_EQ(ea, 0);
  EXPECT_EQ(eb, 0);
  EXPECT_EQ(ga[1], gb[1]);
  EXPECT_EQ(ga[2], gb[2]);
  // With AlleVWilson the fixed volumes decide, and the result differs.
  a.AlleVWilson = true;
  peq::ActivityCoeffs(a, 320.0, x, ga, ea);
  EXPECT_NE(ga[1], gb[1]);
}

// Code 2 takes L1 and L4 as Lambda and never runs the density: no density data, err 0, VLiq and
// RhoOK untouched. The temperature slots L2, L3, L5, L6 do not count.
TEST(WilsonModel, Code2NeverTouchesLiquidDensity) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 2;
  s.VLiq[1] = 0.123f;
  s.VLiq[2] = 0.456f;
  s.RhoOK = true;
  SetSlot(s, 1, 1, 2, 0.5);
  SetSlot(s, 4, 1, 2, 0.7);
  auto x = X({0.5, 0.5});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.VLiq[1], 0.123f);
  EXPECT_EQ(s.VLiq[2], 0.456f);
  EXPECT_TRUE(s.RhoOK);
  SetSlot(s, 2, 1, 2, 11.0);
  SetSlot(s, 3, 1, 2, 13.0);
  SetSlot(s, 5, 1, 2, 17.0);
  SetSlot(s, 6, 1, 2, 19.0);
  auto g2 = acttest::G(2);
  peq::ActivityCoeffs(s, 300.0, x, g2, err);
  EXPECT_EQ(g2[1], g[1]);
  EXPECT_EQ(g2[2], g[2]);
}

// The density fails (no density data): err -1, and the calculation goes on with the fixed
// volumes; through the dispatcher every gamma is then 1.
TEST(WilsonModel, DensityFailureOnlySetsErr) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 0;
  s.WilsonVFix = true;
  s.AlleVWilson = true;
  s.VLiqCm3[1] = 58.7f;
  s.VLiqCm3[2] = 18.07f;
  SetSlot(s, 1, 1, 2, 1000.0);
  SetSlot(s, 4, 1, 2, 2000.0);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::WilsonGamma(s, 350.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_REL(g[1], 1.1838757, 1e-6);  // the hand calculation above
  EXPECT_REL(g[2], 1.0975985, 1e-6);
  auto gd = acttest::G(2);
  peq::ActivityCoeffs(s, 350.0, x, gd, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(gd[1], 1.0);
  EXPECT_EQ(gd[2], 1.0);
}

// A pair of zeros with code 2: Lambda = 0, S(k) = x(k), ln g(k) = 1 - ln x(k) - 1: g = 1/x.
TEST(WilsonModel, ZeroLambdaCode2GivesInverseMoleFraction) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 2;
  auto x = X({0.25, 0.75});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 4.0, 1e-14);
  EXPECT_REL(g[2], 1.0 / 0.75, 1e-14);
}

// A pair of zeros with the other codes: Lambda(i,j) = v(j)/v(i).
TEST(WilsonModel, ZeroParametersOtherCodesGiveVolumeRatio) {
  for (int16_t code : {0, 1, 3}) {
    peq::Session s = MakeSession(2, 1);
    s.ParUnitWilson = code;
    s.WilsonVFix = true;
    s.AlleVWilson = true;
    s.VLiqCm3[1] = 40.0f;
    s.VLiqCm3[2] = 100.0f;
    ConstantDensity(s, 1, 789.0f, 46.07f);
    ConstantDensity(s, 2, 997.0f, 18.015f);
    peq::Session d = MakeSession(2, 1);
    d.ParUnitWilson = 2;
    SetSlot(d, 1, 1, 2, 100.0 / 40.0);
    SetSlot(d, 4, 1, 2, 40.0 / 100.0);
    auto x = X({0.3, 0.7});
    auto g = acttest::G(2), gd = acttest::G(2);
    int16_t err = 1, errd = 1;
    peq::ActivityCoeffs(s, 330.0, x, g, err);
    peq::ActivityCoeffs(d, 330.0, x, gd, errd);
    EXPECT_EQ(err, 0) << "code " << code;
    EXPECT_EQ(g[1], gd[1]) << "code " << code;
    EXPECT_EQ(g[2], gd[2]) << "code " << code;
  }
}

// S(k) at or below 0 (a negative Lambda): err -1 and every gamma 1.
TEST(WilsonModel, NonPositiveSumFails) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 2;
  SetSlot(s, 1, 1, 2, -5.0);
  SetSlot(s, 4, 1, 2, 0.5);
  auto x = X({0.5, 0.5});  // S1 = 0.5 - 2.5 < 0
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::WilsonGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
  // Exactly zero: Lambda12 = -1 and x = (0.5, 0.5) give S1 = 0.
  SetSlot(s, 1, 1, 2, -1.0);
  g = acttest::G(2);
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
}

// The temperature functions par = L1 + L2 T1 + L3 T1^2, T1 = T - 273.15, for both directions:
// T = 323.15 (T1 = 50): par12 = 100 + 2*50 + 0.04*2500 = 300, par21 = 500 + 3*50 + 0.1*2500 = 900.
TEST(WilsonModel, TemperatureFunctionOfParameters) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 3;
  s.WilsonVFix = true;
  s.AlleVWilson = true;
  s.VLiqCm3[1] = 40.0f;
  s.VLiqCm3[2] = 20.0f;
  ConstantDensity(s, 1, 789.0f, 46.07f);
  ConstantDensity(s, 2, 997.0f, 18.015f);
  SetSlot(s, 1, 1, 2, 100.0);
  SetSlot(s, 2, 1, 2, 2.0);
  SetSlot(s, 3, 1, 2, 0.04);
  SetSlot(s, 4, 1, 2, 500.0);
  SetSlot(s, 5, 1, 2, 3.0);
  SetSlot(s, 6, 1, 2, 0.1);
  peq::Session c = s;
  for (int k = 1; k <= 12; ++k)
    for (int i = 0; i <= 2; ++i)
      for (int j = 0; j <= 2; ++j) c.GEPar(k, i, j) = 0;
  SetSlot(c, 1, 1, 2, 300.0);
  SetSlot(c, 4, 1, 2, 900.0);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2), gc = acttest::G(2);
  int16_t err = 1, errc = 1;
  peq::ActivityCoeffs(s, 323.15, x, g, err);
  peq::ActivityCoeffs(c, 323.15, x, gc, errc);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], gc[1], 1e-12);
  EXPECT_REL(g[2], gc[2], 1e-12);
}
