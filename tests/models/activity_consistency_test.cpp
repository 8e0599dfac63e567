// Thermodynamic identities of every gE model on a ternary: Gibbs-Duhem along a composition line
// (by central differences here in the test), the pure-component limit, and the infinite-dilution
// limits of the binary forms.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

#include "models/activity.h"
#include "unifac_fixture.h"

using acttest::Inkr;
using acttest::MakeSession;
using acttest::SetSlot;
using acttest::X;

namespace {

// A ternary of each model with non-trivial parameters.
peq::Session Ternary(int16_t model) {
  switch (model) {
    case 1: {
      peq::Session s = MakeSession(3, 1);
      s.ParUnitWilson = 2;
      SetSlot(s, 1, 1, 2, 0.154);
      SetSlot(s, 4, 1, 2, 0.888);
      SetSlot(s, 1, 1, 3, 0.45);
      SetSlot(s, 4, 1, 3, 1.3);
      SetSlot(s, 1, 2, 3, 0.6);
      SetSlot(s, 4, 2, 3, 0.35);
      return s;
    }
    case 2: {
      peq::Session s = MakeSession(3, 2);
      s.ParUnitNRTL = 0;
      SetSlot(s, 1, 1, 2, -500.0);
      SetSlot(s, 4, 1, 2, 5500.0);
      SetSlot(s, 7, 1, 2, 0.3);
      SetSlot(s, 1, 1, 3, 1200.0);
      SetSlot(s, 4, 1, 3, 800.0);
      SetSlot(s, 7, 1, 3, 0.47);
      SetSlot(s, 1, 2, 3, 3000.0);
      SetSlot(s, 4, 2, 3, -200.0);
      SetSlot(s, 7, 2, 3, 0.2);
      return s;
    }
    case 4: {
      peq::Session s = MakeSession(3, 4);
      const double p[3][4] = {{0.8, 0.2, 0.1, 0.05}, {0.5, -0.3, 0.05, 0.0}, {-0.4, 0.1, 0.0, 0.02}};
      const int pr[3][2] = {{1, 2}, {1, 3}, {2, 3}};
      for (int k = 0; k < 3; ++k) {
        SetSlot(s, 1, pr[k][0], pr[k][1], p[k][0]);
        SetSlot(s, 4, pr[k][0], pr[k][1], p[k][1]);
        SetSlot(s, 7, pr[k][0], pr[k][1], p[k][2]);
        SetSlot(s, 10, pr[k][0], pr[k][1], p[k][3]);
      }
      return s;
    }
    case 9: {
      // Water / ethanol / benzene of Gmehling et al. Example 5.19 (du/R in K).
      peq::Session s = MakeSession(3, 9);
      s.ParUnitUNIQUAC = 3;
      const float r[3] = {0.92f, 2.1055f, 3.1878f}, q[3] = {1.4f, 1.972f, 2.4f};
      for (int i = 1; i <= 3; ++i) {
        s.StoffData[i].RUniquac = r[i - 1];
        s.StoffData[i].QUniquac = q[i - 1];
      }
      SetSlot(s, 1, 1, 2, 526.02);
      SetSlot(s, 4, 1, 2, -318.06);
      SetSlot(s, 1, 1, 3, 309.64);
      SetSlot(s, 4, 1, 3, 1325.1);
      SetSlot(s, 1, 2, 3, -91.532);
      SetSlot(s, 4, 2, 3, 302.57);
      return s;
    }
    case 20:
      return acttest::ModSession({Inkr({{1, 1}, {1, 18}}), Inkr({{1, 1}, {1, 2}, {1, 14}}), Inkr({{6, 9}})},
                                 acttest::ShippedModFile());
    default:
      return acttest::OUnifSession({Inkr({{2, 1}, {4, 2}}), Inkr({{1, 1}, {1, 2}, {1, 18}}),
                                    Inkr({{2, 1}, {1, 3}, {1, 14}})},
                                   acttest::ShippedOUnifFile());
  }
}

void LnGamma(peq::Session& s, double T, const peq::Vec<double>& x, double out[4]) {
  auto g = acttest::G(3);
  int16_t err = 1;
  peq::Vec<double> xc = x;
  peq::ActivityCoeffs(s, T, xc, g, err);
  ASSERT_EQ(err, 0);
  for (int i = 1; i <= 3; ++i) out[i] = std::log(g[i]);
}

class EveryModel : public ::testing::TestWithParam<int> {};

}  // namespace

// Gibbs-Duhem at constant T: sum over i of x(i) d ln gamma(i) = 0 along a line of compositions
// x(t) = x0 + t d with sum d = 0; d ln gamma by central differences (step 1E-5).
TEST_P(EveryModel, GibbsDuhemAlongACompositionLine) {
  const int16_t model = static_cast<int16_t>(GetParam());
  peq::Session s = Ternary(model);
  const double T = 335.0;
  const double h = 1E-5;
  const double d[4] = {0, 1.0, -0.4, -0.6};
  for (double t : {0.0, 0.15, 0.3, 0.45}) {
    const double x0[4] = {0, 0.15 + t, 0.4 - 0.4 * t, 0.45 - 0.6 * t};
    peq::Vec<double> xp(4, 0.0), xm(4, 0.0);
    for (int i = 1; i <= 3; ++i) {
      xp[i] = x0[i] + h * d[i];
      xm[i] = x0[i] - h * d[i];
    }
    double lp[4], lm[4];
    LnGamma(s, T, xp, lp);
    LnGamma(s, T, xm, lm);
    double sum = 0.0, scale = 0.0;
    for (int i = 1; i <= 3; ++i) {
      const double dl = (lp[i] - lm[i]) / (2.0 * h);
      sum += x0[i] * dl;
      scale += std::fabs(x0[i] * dl);
    }
    EXPECT_LT(std::fabs(sum), 1e-6 * scale + 1e-9) << "GEModel " << model << " at t = " << t;
  }
}

// A pure-component point: gamma of that component is 1.
TEST_P(EveryModel, PureComponentGammaOne) {
  const int16_t model = static_cast<int16_t>(GetParam());
  peq::Session s = Ternary(model);
  for (int k = 1; k <= 3; ++k) {
    auto x = X({0.0, 0.0, 0.0});
    x[k] = 1.0;
    double l[4];
    LnGamma(s, 320.0, x, l);
    EXPECT_NEAR(l[k], 0.0, model == 21 ? 1e-8 : 1e-13) << "GEModel " << model << " k " << k;
  }
}

// At x(k) = 0 each model gives the limiting gamma(k): finite, and the value approached from
// small x(k) (UNIFAC through its 1E-10).
TEST_P(EveryModel, InfiniteDilutionIsTheLimit) {
  const int16_t model = static_cast<int16_t>(GetParam());
  peq::Session s = Ternary(model);
  double l0[4], ls[4];
  LnGamma(s, 320.0, X({0.0, 0.4, 0.6}), l0);
  LnGamma(s, 320.0, X({1E-9, 0.4 - 0.4E-9, 0.6 - 0.6E-9}), ls);
  EXPECT_TRUE(std::isfinite(l0[1]));
  EXPECT_NEAR(l0[1], ls[1], 1e-7 * (1.0 + std::fabs(l0[1]))) << "GEModel " << model;
}

INSTANTIATE_TEST_SUITE_P(ActivityModels, EveryModel, ::testing::Values(1, 2, 4, 9, 20, 21),
                         [](const ::testing::TestParamInfo<int>& i) {
                           switch (i.param) {
                             case 1: return std::string("Wilson");
                             case 2: return std::string("NRTL");
                             case 4: return std::string("RedlichKister");
                             case 9: return std::string("UNIQUAC");
                             case 20: return std::string("ModUNIFAC");
                             default: return std::string("UNIFAC");
                           }
                         });

// Analytic infinite-dilution limits of the binaries:
//   Wilson: ln g1(x1 -> 0) = 1 - ln L12 - L21 (Wilson 1964);
//   NRTL:   ln g1(x1 -> 0) = tau21 + tau12 exp(-alpha tau12) (Renon, Prausnitz 1968);
//   UNIQUAC: ln g1 = ln(r1/r2) + 5 q1 ln(q1 r2/(r1 q2)) + l1 - r1 l2/r2
//            + q1 (1 - ln tau21 - tau12) (Abrams, Prausnitz 1975).
TEST(ActivityLimits, AnalyticInfiniteDilutionOfBinaries) {
  auto x = X({0.0, 1.0});
  auto g = acttest::G(2);
  int16_t err = 1;
  {
    peq::Session s = MakeSession(2, 1);
    s.ParUnitWilson = 2;
    SetSlot(s, 1, 1, 2, 0.154);
    SetSlot(s, 4, 1, 2, 0.888);
    peq::ActivityCoeffs(s, 343.15, x, g, err);
    EXPECT_EQ(err, 0);
    EXPECT_REL(std::log(g[1]), 1.0 - std::log(0.154) - 0.888, 1e-14);
  }
  {
    peq::Session s = MakeSession(2, 2);
    s.ParUnitNRTL = 2;
    SetSlot(s, 1, 1, 2, -0.2);
    SetSlot(s, 4, 1, 2, 1.9);
    SetSlot(s, 7, 1, 2, 0.3);
    peq::ActivityCoeffs(s, 343.15, x, g, err);
    EXPECT_EQ(err, 0);
    EXPECT_REL(std::log(g[1]), 1.9 + (-0.2) * std::exp(-0.3 * -0.2), 1e-14);
  }
  {
    peq::Session s = MakeSession(2, 9);
    s.ParUnitUNIQUAC = 2;
    const double r1 = 2.5f, q1 = 2.0f, r2 = 0.92f, q2 = 1.4f;
    s.StoffData[1].RUniquac = 2.5f;
    s.StoffData[1].QUniquac = 2.0f;
    s.StoffData[2].RUniquac = 0.92f;
    s.StoffData[2].QUniquac = 1.4f;
    SetSlot(s, 1, 1, 2, 0.4);   // tau12 = exp(-0.4)
    SetSlot(s, 4, 1, 2, -0.7);  // tau21 = exp(0.7)
    peq::ActivityCoeffs(s, 343.15, x, g, err);
    EXPECT_EQ(err, 0);
    const double l1 = 5 * (r1 - q1) - (r1 - 1), l2 = 5 * (r2 - q2) - (r2 - 1);
    const double expect = std::log(r1 / r2) + 5 * q1 * std::log(q1 * r2 / (r1 * q2)) + l1 -
                          r1 * l2 / r2 + q1 * (1 - 0.7 - std::exp(-0.4));
    EXPECT_REL(std::log(g[1]), expect, 1e-12);
  }
}
