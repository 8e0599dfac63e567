// The Redlich-Kister expansion in its multicomponent form.
#include <gtest/gtest.h>

#include <cmath>

#include "activity_fixture.h"
#include "models/activity.h"
#include "models/redlichkister.h"
#include "support/fuzzy.h"

using acttest::MakeSession;
using acttest::SetSlot;
using acttest::X;

namespace {

// A, B, C, D of the pair i < j as constants (slots L1, L4, L7, L10).
void SetABCD(peq::Session& s, int i, int j, double A, double B, double C, double D) {
  SetSlot(s, 1, i, j, A);
  SetSlot(s, 4, i, j, B);
  SetSlot(s, 7, i, j, C);
  SetSlot(s, 10, i, j, D);
}

}  // namespace

// Binary by hand, A = 0.8, B = 0.2, C = 0.1, D = 0.05, x1 = 0.3:
//   d = x1 - x2 = -0.4; Q = A + B d + C d^2 + D d^3 = 0.8 - 0.08 + 0.016 - 0.0032 = 0.7328;
//   Q' = B + 2 C d + 3 D d^2 = 0.2 - 0.08 + 0.024 = 0.144; G = x1 x2 Q = 0.153888;
//   dG/dx1 = x2 (Q + x1 Q') = 0.7*(0.7328 + 0.0432) = 0.5432;
//   dG/dx2 = x1 (Q - x2 Q') = 0.3*(0.7328 - 0.1008) = 0.1896;
//   ln g1 = G - x2 (dG/dx2 - dG/dx1) = 0.153888 + 0.7*0.3536 = 0.401408;
//   ln g2 = G - x1 (dG/dx1 - dG/dx2) = 0.153888 - 0.3*0.3536 = 0.047808.
// The classic binary form (Walas, Phase Equilibria in Chemical Engineering, Table 4.3):
//   ln g1 = x2^2 [(A+3B+5C+7D) - 4(B+4C+9D) x2 + 12(C+5D) x2^2 - 32 D x2^3] = 0.401408.
TEST(RedlichKisterModel, BinaryHandCalculation) {
  peq::Session s = MakeSession(2, 4);
  SetABCD(s, 1, 2, 0.8, 0.2, 0.1, 0.05);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(std::log(g[1]), 0.401408, 1e-12);
  EXPECT_REL(std::log(g[2]), 0.047808, 1e-12);
}

// A = L1 + L2/T + L3 ln T (and likewise B, C, D) at T = 350: L1 = 0.1, L2 = 70, L3 = 0.05 give
// A = 0.1 + 0.2 + 0.05 ln 350.
TEST(RedlichKisterModel, TemperatureFunction) {
  const double T = 350.0;
  peq::Session s = MakeSession(2, 4);
  SetSlot(s, 1, 1, 2, 0.1);
  SetSlot(s, 2, 1, 2, 70.0);
  SetSlot(s, 3, 1, 2, 0.05);
  SetSlot(s, 4, 1, 2, 0.02);
  SetSlot(s, 5, 1, 2, 7.0);
  SetSlot(s, 6, 1, 2, -0.01);
  SetSlot(s, 7, 1, 2, 0.03);
  SetSlot(s, 8, 1, 2, 3.5);
  SetSlot(s, 9, 1, 2, 0.002);
  SetSlot(s, 10, 1, 2, 0.01);
  SetSlot(s, 11, 1, 2, -1.75);
  SetSlot(s, 12, 1, 2, 0.001);
  const double lt = std::log(T);
  peq::Session c = MakeSession(2, 4);
  SetABCD(c, 1, 2, 0.1 + 70.0 / T + 0.05 * lt, 0.02 + 7.0 / T - 0.01 * lt,
          0.03 + 3.5 / T + 0.002 * lt, 0.01 - 1.75 / T + 0.001 * lt);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2), gc = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, T, x, g, err);
  EXPECT_EQ(err, 0);
  peq::ActivityCoeffs(c, T, x, gc, err);
  EXPECT_REL(g[1], gc[1], 1e-13);
  EXPECT_REL(g[2], gc[2], 1e-13);
}

// Infinite dilution of the binary: ln g1(x1 -> 0) = A - B + C - D, ln g2(x2 -> 0) = A + B + C + D.
TEST(RedlichKisterModel, InfiniteDilutionLimits) {
  peq::Session s = MakeSession(2, 4);
  SetABCD(s, 1, 2, 0.8, 0.2, 0.1, 0.05);
  auto g = acttest::G(2);
  int16_t err = 1;
  auto x0 = X({0.0, 1.0});
  peq::ActivityCoeffs(s, 300.0, x0, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(std::log(g[1]), 0.8 - 0.2 + 0.1 - 0.05, 1e-13);
  EXPECT_EQ(g[2], 1.0);
  auto x1 = X({1.0, 0.0});
  peq::ActivityCoeffs(s, 300.0, x1, g, err);
  EXPECT_REL(std::log(g[2]), 0.8 + 0.2 + 0.1 + 0.05, 1e-13);
  EXPECT_EQ(g[1], 1.0);
}

// T below 1E-10: err -1, gamma 1.
TEST(RedlichKisterModel, TemperatureBelow1Em10Fails) {
  peq::Session s = MakeSession(2, 4);
  SetABCD(s, 1, 2, 0.8, 0.2, 0.1, 0.05);
  auto x = X({0.3, 0.7});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 0.9E-10, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
  peq::ActivityCoeffs(s, -5.0, x, g, err);
  EXPECT_EQ(err, -1);
}

// ln gamma of exactly 20.0 is the sign of failure; 21 is not (only the exact value counts).
// With A = 20 and B = C = D = 0 at x1 = 0: G = 0, dG/dx1 = 20, dG/dx2 = 0, ln g1 = 20.0 exactly.
TEST(RedlichKisterModel, ExactlyTwentyIsFailure) {
  peq::Session s = MakeSession(2, 4);
  SetABCD(s, 1, 2, 20.0, 0.0, 0.0, 0.0);
  auto x = X({0.0, 1.0});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::RedlichKisterGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
  SetABCD(s, 1, 2, 21.0, 0.0, 0.0, 0.0);
  peq::RedlichKisterGamma(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(g[1], std::exp(21.0), 1e-14);
}

// A ternary by hand: pairs (1,2) A = 1, (1,3) A = 0.5, (2,3) A = -0.3, B = C = D = 0, so that
// G = x1 x2 + 0.5 x1 x3 - 0.3 x2 x3 and ln g_k = G + dG/dx_k - sum x_m dG/dx_m (sum x = 1).
// x = (0.2, 0.3, 0.5): G = 0.06 + 0.05 - 0.045 = 0.065; dG/dx = (0.55, 0.05, 0.01);
// sum x dG/dx = 0.11 + 0.015 + 0.005 = 0.13; ln g = (0.485, -0.015, -0.055).
TEST(RedlichKisterModel, TernaryHandCalculation) {
  peq::Session s = MakeSession(3, 4);
  SetABCD(s, 1, 2, 1.0, 0, 0, 0);
  SetABCD(s, 1, 3, 0.5, 0, 0, 0);
  SetABCD(s, 2, 3, -0.3, 0, 0, 0);
  auto x = X({0.2, 0.3, 0.5});
  auto g = acttest::G(3);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(std::log(g[1]), 0.485, 1e-13);
  EXPECT_REL(std::log(g[2]), -0.015, 1e-12);
  EXPECT_REL(std::log(g[3]), -0.055, 1e-12);
}
