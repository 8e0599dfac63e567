// Closed composition derivatives of gE/(R T) (GMFor) and of the ideal-mixing term (GMIdeal).
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "engine/excess.h"
#include "engine/kernel_test_sessions.h"
#include "engine/singlecalc.h"
#include "session/numeric.h"
#include "models/activity_fixture.h"
#include "models/gmix.h"
#include "support/fuzzy.h"

namespace {

// n-th derivative by central differences: delta^n f / h^n with the points x + (n/2 - k) h,
// k = 0..n (error of order h^2), extrapolated twice by Richardson (h, h/2, h/4: error h^6).
double FD(const std::function<double(double)>& f, int n, double x, double h) {
  auto central = [&](double hh) {
    double sum = 0.0, c = 1.0;  // binomial coefficient C(n, k)
    for (int k = 0; k <= n; ++k) {
      const double sign = (k % 2 == 0) ? 1.0 : -1.0;
      sum += sign * c * f(x + (0.5 * n - k) * hh);
      c = c * (n - k) / (k + 1);
    }
    return sum / std::pow(hh, n);
  };
  const double d1 = central(h), d2 = central(h / 2), d3 = central(h / 4);
  const double r1 = (4.0 * d2 - d1) / 3.0, r2 = (4.0 * d3 - d2) / 3.0;
  return (16.0 * r2 - r1) / 15.0;
}

struct Model {
  const char* name;
  int16_t code;
  double P1, P2, P3;
};

// Parameter sets of each model: Wilson Lambda12, Lambda21; NRTL tau12, tau21, alpha;
// Redlich-Kister A, B, C; UNIQUAC ln tau21, ln tau12, ln(r2/r1) (q1 = 1.4, q2 = 1.97).
const Model kModels[] = {
    {"Wilson", 1, 0.35, 0.75, 0},
    {"NRTL", 2, 1.6, 0.4, 0.3},
    {"RedlichKister", 4, 1.1, -0.3, 0.25},
    {"UNIQUAC", 9, -0.45, 0.2, std::log(2.1055 / 0.92)},
};

peq::Session SessionOf(int16_t code) {
  peq::Session s = acttest::MakeSession(2, code);
  s.StoffData[1].QUniquac = 1.4f;
  s.StoffData[2].QUniquac = 1.97f;
  s.StoffData[1].RUniquac = 0.92f;
  s.StoffData[2].RUniquac = 2.1055f;
  return s;
}

TEST(GMFor, DerivativesOneToSixMatchDifferencesOfOrderZero) {
  for (const Model& m : kModels) {
    const peq::Session s = SessionOf(m.code);
    auto f0 = [&](double x) { return peq::GMFor(s, 0, x, m.P1, m.P2, m.P3, 0.0); };
    for (double x : {0.3, 0.5, 0.7}) {
      for (int n = 1; n <= 6; ++n) {
        const double got = peq::GMFor(s, n, x, m.P1, m.P2, m.P3, 0.0);
        const double fd = FD(f0, n, x, 0.08);
        EXPECT_NEAR(got, fd, 2E-4 * std::fmax(1.0, std::fabs(got))) << m.name << " n " << n << " x " << x;
      }
    }
  }
}

TEST(GMFor, EachOrderIsTheDerivativeOfTheOrderBelow) {
  for (const Model& m : kModels) {
    const peq::Session s = SessionOf(m.code);
    for (int n = 1; n <= 6; ++n) {
      auto fl = [&](double x) { return peq::GMFor(s, n - 1, x, m.P1, m.P2, m.P3, 0.0); };
      for (double x : {0.15, 0.45, 0.85}) {
        const double got = peq::GMFor(s, n, x, m.P1, m.P2, m.P3, 0.0);
        EXPECT_NEAR(got, FD(fl, 1, x, 0.02), 1E-7 * std::fmax(1.0, std::fabs(got))) << m.name << " n " << n;
      }
    }
  }
}

TEST(GMFor, RedlichKisterHasNoFifthOrSixthDerivative) {
  const peq::Session s = SessionOf(4);
  EXPECT_EQ(peq::GMFor(s, 5, 0.3, 1.1, -0.3, 0.25, 0.0), 0.0);
  EXPECT_EQ(peq::GMFor(s, 6, 0.3, 1.1, -0.3, 0.25, 0.0), 0.0);
  // Fourth derivative of -q2 x^4 with q2 = 4 C: -24 * 4 C.
  EXPECT_NEAR(peq::GMFor(s, 4, 0.3, 1.1, -0.3, 0.25, 0.0), -96.0 * 0.25, 1E-12);
}

TEST(GMFor, OrderZeroAndOneAgreeWithTheActivityModels) {
  // Sessions with the same pair parameters as GEPar slots: gE/(R T) of the model
  // (GMix mode 0) and ln(gamma2/gamma1) (mode 1, the first derivative by Gibbs-Duhem).
  for (const Model& m : kModels) {
    peq::Session s = SessionOf(m.code);
    switch (m.code) {
      case 1:
        s.ParUnitWilson = 2;
        acttest::SetSlot(s, 1, 1, 2, m.P1);
        acttest::SetSlot(s, 4, 1, 2, m.P2);
        break;
      case 2:
        s.ParUnitNRTL = 2;
        acttest::SetSlot(s, 1, 1, 2, m.P1);
        acttest::SetSlot(s, 4, 1, 2, m.P2);
        acttest::SetSlot(s, 7, 1, 2, m.P3);
        break;
      case 4:
        acttest::SetSlot(s, 1, 1, 2, m.P1);
        acttest::SetSlot(s, 4, 1, 2, m.P2);
        acttest::SetSlot(s, 7, 1, 2, m.P3);
        break;
      default:
        // tau = exp(-par) with the dimensionless code: par12 = -ln tau12, par21 = -ln tau21.
        s.ParUnitUNIQUAC = 2;
        acttest::SetSlot(s, 1, 1, 2, -m.P2);
        acttest::SetSlot(s, 4, 1, 2, -m.P1);
        break;
    }
    const double T = 320.0;
    double P[4];
    int16_t err = 1;
    peq::GMForParams(s, T, 1, 2, P, err);
    ASSERT_EQ(err, 0) << m.name;
    EXPECT_NEAR(P[0], m.P1, 1E-6) << m.name;
    EXPECT_NEAR(P[1], m.P2, 1E-12) << m.name;
    for (double x : {0.1, 0.5, 0.8}) {
      double Gid = 0, GE = 0, GM = 0;
      int16_t e = 0;
      peq::GMix(s, T, 0, x, Gid, GE, GM, e);
      ASSERT_EQ(e, 0);
      EXPECT_NEAR(peq::GMFor(s, 0, x, P[0], P[1], P[2], P[3]), GE / (8.31451 * T), 1E-10) << m.name;
      peq::GMix(s, T, 1, x, Gid, GE, GM, e);
      EXPECT_NEAR(peq::GMFor(s, 1, x, P[0], P[1], P[2], P[3]), GE / (8.31451 * T), 1E-9) << m.name;
    }
  }
}

TEST(GMFor, ParametersFromEnergiesAtT) {
  // Wilson with energies in J/mol and the fixed volumes, UNIQUAC in K with T terms: the pair
  // parameters of GMForParams give the gE of the activity models (GMix mode 0) at two T.
  peq::Session w = SessionOf(1);
  w.ParUnitWilson = 0;
  w.WilsonVFix = true;
  w.AlleVWilson = true;
  w.VLiqCm3[1] = 58.68f;
  w.VLiqCm3[2] = 18.07f;
  // Densities for LiquidVolumes, which Wilson runs with these codes (constant-density records).
  for (int i = 1; i <= 2; ++i) {
    w.MolMasse[i] = i == 1 ? 46.07f : 18.02f;
    w.ParRho[i][1] = i == 1 ? 785.0f : 997.0f;
    w.ParRho[i][8] = 600.0f;
    w.ParRho[i].TLo = 250;
    w.ParRho[i].THi = 500;
  }
  acttest::SetSlot(w, 1, 1, 2, 1600.0);
  acttest::SetSlot(w, 2, 1, 2, -3.0);
  acttest::SetSlot(w, 4, 1, 2, 4000.0);
  acttest::SetSlot(w, 6, 1, 2, 0.02);
  peq::Session u = SessionOf(9);
  u.ParUnitUNIQUAC = 3;
  acttest::SetSlot(u, 1, 1, 2, -87.46);
  acttest::SetSlot(u, 2, 1, 2, 0.3);
  acttest::SetSlot(u, 4, 1, 2, -55.29);
  for (peq::Session* s : {&w, &u}) {
    for (double T : {300.0, 350.0}) {
      double P[4];
      int16_t err = 1;
      peq::GMForParams(*s, T, 1, 2, P, err);
      ASSERT_EQ(err, 0);
      double Gid = 0, GE = 0, GM = 0;
      int16_t e = 0;
      peq::GMix(*s, T, 0, 0.35, Gid, GE, GM, e);
      ASSERT_EQ(e, 0);
      EXPECT_NEAR(peq::GMFor(*s, 0, 0.35, P[0], P[1], P[2], P[3]), GE / (8.31451 * T), 1E-10) << s->GEModel;
    }
  }
}

TEST(GMFor, SwappedPairMirrorsTheDerivatives) {
  // Pair (2, 1): the abscissa is x(1); d^n/dx1^n = (-1)^n d^n/dx2^n.
  for (int16_t code : {int16_t{1}, int16_t{2}, int16_t{4}}) {
    peq::Session s = SessionOf(code);
    s.ParUnitWilson = 2;
    s.ParUnitNRTL = 2;
    acttest::SetSlot(s, 1, 1, 2, 0.6);
    acttest::SetSlot(s, 4, 1, 2, 0.3);
    acttest::SetSlot(s, 7, 1, 2, 0.2);
    double P[4], Q[4];
    int16_t err = 0;
    peq::GMForParams(s, 300.0, 1, 2, P, err);
    ASSERT_EQ(err, 0);
    peq::GMForParams(s, 300.0, 2, 1, Q, err);
    ASSERT_EQ(err, 0);
    for (int n = 0; n <= 6; ++n) {
      const double a = peq::GMFor(s, n, 0.3, P[0], P[1], P[2], P[3]);
      const double b = peq::GMFor(s, n, 0.7, Q[0], Q[1], Q[2], Q[3]);
      EXPECT_NEAR(b, (n % 2 == 0 ? a : -a), 1E-9 * std::fmax(1.0, std::fabs(a))) << code << " n " << n;
    }
  }
}

TEST(GMFor, PureEndsGiveZeroExcessGibbsEnergy) {
  for (const Model& m : kModels) {
    const peq::Session s = SessionOf(m.code);
    EXPECT_NEAR(peq::GMFor(s, 0, 0.0, m.P1, m.P2, m.P3, 0.0), 0.0, 1E-14) << m.name;
    EXPECT_NEAR(peq::GMFor(s, 0, 1.0, m.P1, m.P2, m.P3, 0.0), 0.0, 1E-14) << m.name;
  }
}

TEST(GMFor, OutsideTheRangeOrModelGivesZero) {
  const peq::Session nrtl = SessionOf(2);
  EXPECT_EQ(peq::GMFor(nrtl, 2, -0.01, 1.6, 0.4, 0.3, 0.0), 0.0);
  EXPECT_EQ(peq::GMFor(nrtl, 2, 1.01, 1.6, 0.4, 0.3, 0.0), 0.0);
  EXPECT_EQ(peq::GMFor(nrtl, 7, 0.5, 1.6, 0.4, 0.3, 0.0), 0.0);
  EXPECT_EQ(peq::GMFor(nrtl, -1, 0.5, 1.6, 0.4, 0.3, 0.0), 0.0);
  for (int16_t code : {int16_t{0}, int16_t{20}, int16_t{21}, int16_t{-1}}) {
    const peq::Session s = SessionOf(code);
    EXPECT_EQ(peq::GMFor(s, 1, 0.5, 1.6, 0.4, 0.3, 0.0), 0.0) << code;
  }
}

TEST(GMFor, GuardedDenominatorsStayFinite) {
  // Wilson Lambda12 = 0: x1 + Lambda12 x vanishes at x = 1; the guard at 1E-10 keeps every order
  // finite.
  const peq::Session s = SessionOf(1);
  for (int n = 0; n <= 6; ++n) {
    const double v = peq::GMFor(s, n, 1.0, 0.0, 0.5, 0.0, 0.0);
    EXPECT_TRUE(std::isfinite(v)) << n;
  }
}

TEST(GMIdeal, SecondOrderAtOneHalfIsFour) {
  // 0! (1/0.5 + 1/0.5) = 4.
  EXPECT_EQ(peq::GMIdeal(2, 0.5), 4.0);
}

TEST(GMIdeal, OrdersAndEnds) {
  EXPECT_NEAR(peq::GMIdeal(0, 0.25), 0.25 * std::log(0.25) + 0.75 * std::log(0.75), 1E-15);
  EXPECT_NEAR(peq::GMIdeal(1, 0.25), std::log(1.0 / 3.0), 1E-15);
  // Order 3 at 0.25: 1! (-1/0.0625 + 1/0.5625) = -16 + 1.7777...
  EXPECT_NEAR(peq::GMIdeal(3, 0.25), -16.0 + 1.0 / 0.5625, 1E-12);
  for (int n = 0; n <= 6; ++n) {
    EXPECT_EQ(peq::GMIdeal(n, 0.0), 0.0) << n;
    EXPECT_EQ(peq::GMIdeal(n, 1.0), 0.0) << n;
    EXPECT_EQ(peq::GMIdeal(n, -0.1), 0.0) << n;
    EXPECT_EQ(peq::GMIdeal(n, 1.1), 0.0) << n;
  }
  EXPECT_EQ(peq::GMIdeal(-1, 0.5), 0.0);
  auto f0 = [](double x) { return peq::GMIdeal(0, x); };
  for (int n = 1; n <= 6; ++n)
    EXPECT_NEAR(peq::GMIdeal(n, 0.4), FD(f0, n, 0.4, 0.04), 2E-4 * std::fmax(1.0, std::fabs(peq::GMIdeal(n, 0.4))))
        << n;
}

TEST(GMIdeal, ValueBeyondTheDoubleRangeFaults) {
  // Order 6 at x2 = 1E-70: 4! / x2^5 = 2.4E351, beyond the double range. The routine faults (the
  // caller flags the point) instead of giving 0 as if the mixture were ideal there.
  EXPECT_THROW(peq::GMIdeal(6, 1e-70), peq::NumericFault);
  EXPECT_THROW(peq::GMIdeal(4, 1e-200), peq::NumericFault);
  EXPECT_NO_THROW(peq::GMIdeal(6, 1e-8));  // 2.4E41: large, but a double
  // The one-point calculator flags such a point.
  peq::Session s = peqtest::EthanolWater(0);
  peq::Vec<double> x = peqtest::Comp({1.0 - 1e-70, 1e-70});
  peq::SingleOut out;
  peq::SingleCalcExcess(s, 126, 1e-70, 343.15, 101.325, x, 1, 2, out);
  EXPECT_EQ(out.F1, -1);
  EXPECT_EQ(out.Y1, 0.0f);
  peq::SingleCalcExcess(s, 126, 0.3, 343.15, 101.325, peqtest::Comp({0.7, 0.3}), 1, 2, out);
  EXPECT_EQ(out.F1, 0);
}

}  // namespace
