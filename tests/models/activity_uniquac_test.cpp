// The UNIQUAC equation with z/2 = 5 and no extra term.
#include <gtest/gtest.h>

#include <cmath>

#include "activity_fixture.h"
#include "models/activity.h"
#include "models/uniquac.h"
#include "support/fuzzy.h"

using acttest::MakeSession;
using acttest::SetSlot;
using acttest::X;

namespace {

void SetRQ(peq::Session& s, int i, float r, float q) {
  s.StoffData[i].RUniquac = r;
  s.StoffData[i].QUniquac = q;
}

}  // namespace

// Hand calculation, code 0 (J/mol), T = 320 K, par12 = 500, par21 = -200 J/mol, r = (2.1055,
// 0.92), q = (1.972, 1.4) (as f32), x1 = 0.35:
//   tau12 = exp(-500/2660.6432) = 0.8286773, tau21 = exp(200/2660.6432) = 1.0780672;
//   Rbar = 2.1055*0.35 + 0.92*0.65 = 1.3349250; Qbar = 1.972*0.35 + 1.4*0.65 = 1.6002000;
//   l = 5 (r - q) - (r - 1): l1 = -0.4380001, l2 = -2.3199998; Lsum = x.l = -1.6612999;
//   theta1 = 1.972*0.35/1.6002 = 0.4313211, theta2 = 0.5686789;
//   S1 = theta1 + theta2 tau21 = 1.0443952, S2 = theta1 tau12 + theta2 = 0.9261049;
//   ln g1 = ln(r1/Rbar) + l1 - r1 Lsum/Rbar + q1 [5 ln(q1 Rbar/(r1 Qbar)) + 1 - ln S1
//           - (theta1/S1 + theta2 tau12/S2)] = 0.2733870 -> g1 = 1.3144088;
//   ln g2 = 0.1473563 -> g2 = 1.1587668.
TEST(UniquacModel, JmolHandCalculation) {
  peq::Session s = MakeSession(2, 9);
  s.ParUnitUNIQUAC = 0;
  SetRQ(s, 1, 2.1055f, 1.972f);
  SetRQ(s, 2, 0.92f, 1.4f);
  SetSlot(s, 1, 1, 2, 500.0);
  SetSlot(s, 4, 1, 2, -200.0);
  auto x = X({0.35, 0.65});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 320.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.3144088, 1e-7);
  EXPECT_REL(g[2], 1.1587668, 1e-7);
}

// Gmehling, Kolbe, Kleiber, Rarey (2012), Example 5.19, water(1)/ethanol(2)/benzene(3) at
// 298.15 K, du_ij/R in K (code 3), as quoted in reference_cases.md case 8. Published gamma:
// phase I (0.7273, 0.0909, 0.1818): 1.570, 0.2948, 18.11; phase II (1/6, 1/6, 2/3): 8.856,
// 0.860, 1.425; recomputed 1.570393, 0.294824, 18.114329 and 8.855991, 0.859524, 1.425460.
TEST(UniquacModel, PublishedTernaryTwoPhases) {
  peq::Session s = MakeSession(3, 9);
  s.ParUnitUNIQUAC = 3;
  SetRQ(s, 1, 0.92f, 1.4f);
  SetRQ(s, 2, 2.1055f, 1.972f);
  SetRQ(s, 3, 3.1878f, 2.4f);
  SetSlot(s, 1, 1, 2, 526.02);
  SetSlot(s, 4, 1, 2, -318.06);
  SetSlot(s, 1, 1, 3, 309.64);
  SetSlot(s, 4, 1, 3, 1325.1);
  SetSlot(s, 1, 2, 3, -91.532);
  SetSlot(s, 4, 2, 3, 302.57);
  auto g = acttest::G(3);
  int16_t err = 1;
  auto x1 = X({0.7273, 0.0909, 0.1818});
  peq::ActivityCoeffs(s, 298.15, x1, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.570393, 2e-6);
  EXPECT_REL(g[2], 0.294824, 2e-6);
  EXPECT_REL(g[3], 18.114329, 2e-6);
  auto x2 = X({1.0 / 6.0, 1.0 / 6.0, 2.0 / 3.0});
  peq::ActivityCoeffs(s, 298.15, x2, g, err);
  EXPECT_EQ(err, 0);
  // The published values to their printed digits (half a unit of the last digit).
  EXPECT_NEAR(g[1], 8.856, 0.0005);
  EXPECT_NEAR(g[2], 0.860, 0.0005);
  EXPECT_NEAR(g[3], 1.425, 0.0005);
  EXPECT_REL(g[1], 8.855991, 2e-6);
  EXPECT_REL(g[2], 0.859524, 2e-6);
  EXPECT_REL(g[3], 1.425460, 2e-6);
}

// CalebBell/thermo tests/test_uniquac.py test_UNIQUAC_chemsep, ethanol(1)/water(2), 343.15 K,
// x1 = 0.252, tau12 = exp(-87.460058/T), tau21 = exp(-55.288076/T), r = (2.11, 0.92),
// q = (1.97, 1.40): gamma 1.977455, 1.139770 (reference_cases.md case 9).
TEST(UniquacModel, ChemsepEthanolWater) {
  peq::Session s = MakeSession(2, 9);
  s.ParUnitUNIQUAC = 3;
  SetRQ(s, 1, 2.11f, 1.97f);
  SetRQ(s, 2, 0.92f, 1.40f);
  SetSlot(s, 1, 1, 2, 87.460058);
  SetSlot(s, 4, 1, 2, 55.288076);
  auto x = X({0.252, 0.748});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 343.15, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], 1.977455, 2e-6);
  EXPECT_REL(g[2], 1.139770, 2e-6);
}

// Rbar at or below 0 (no r): err -1, gamma 1.
TEST(UniquacModel, NonPositiveRbarFails) {
  peq::Session s = MakeSession(2, 9);
  s.ParUnitUNIQUAC = 2;
  SetRQ(s, 1, 0.0f, 1.0f);
  SetRQ(s, 2, 0.0f, 1.0f);
  auto x = X({0.5, 0.5});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::UniquacGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
}

// S(k) at or below 0: with x = (1.5, -0.5) theta2 is negative and a large tau21 drives S1 below 0.
TEST(UniquacModel, NonPositiveSumFails) {
  peq::Session s = MakeSession(2, 9);
  s.ParUnitUNIQUAC = 2;
  SetRQ(s, 1, 2.0f, 2.0f);
  SetRQ(s, 2, 1.0f, 1.0f);
  SetSlot(s, 4, 1, 2, -5.0);  // tau21 = e^5
  auto x = X({1.5, -0.5});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
}

// ln gamma at or above 20: err -1; a strong interaction at infinite dilution gives it.
TEST(UniquacModel, LnGammaAtOrAbove20Fails) {
  peq::Session s = MakeSession(2, 9);
  s.ParUnitUNIQUAC = 2;
  SetRQ(s, 1, 1.0f, 1.0f);
  SetRQ(s, 2, 1.0f, 1.0f);
  // r = q = 1: the combinatorial part vanishes; at x1 = 0: ln g1 = 1 - ln tau21 - tau12.
  SetSlot(s, 1, 1, 2, 0.0);    // tau12 = 1
  SetSlot(s, 4, 1, 2, 20.5);   // ln tau21 = -20.5 -> ln g1 = 20.5
  auto x = X({0.0, 1.0});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::UniquacGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  SetSlot(s, 4, 1, 2, 19.5);   // ln g1 = 19.5
  peq::UniquacGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], std::exp(19.5), 1e-12);
}
