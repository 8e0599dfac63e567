// Mixing rules of the cubic equations of state: values, composition derivatives, T derivatives.
#include "models/eos_mix.h"

#include <cmath>

#include <gtest/gtest.h>

#include "models/eos_gemix.h"
#include "models/eos_pure.h"
#include "models/eos_test_session.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

using namespace peq;
using peqtest::Comp;
using peqtest::SetSlot;

namespace {

Session Ternary(int model) {
  Session s = peqtest::MakeSession({peqtest::kAcetone, peqtest::kBenzene, peqtest::kWater});
  s.StoffData[1].RUniquac = 2.5735f;
  s.StoffData[1].QUniquac = 2.336f;
  s.StoffData[2].RUniquac = 3.1878f;
  s.StoffData[2].QUniquac = 2.4f;
  s.StoffData[3].RUniquac = 0.92f;
  s.StoffData[3].QUniquac = 1.4f;
  int16_t err;
  EOSSetPure(s, model, err);
  return s;
}

// k(ij) of a (L1..L3) and of b, c, d (L13.., L16.., L19..) on every pair, with T dependence.
void SetKij(Session& s) {
  const double base[4] = {0.05, 0.01, -0.02, 0.015};
  const int slot[4] = {1, 13, 16, 19};
  for (int i = 1; i <= s.NKomp; ++i)
    for (int j = i + 1; j <= s.NKomp; ++j)
      for (int k = 0; k < 4; ++k) {
        SetSlot(s, slot[k], i, j, base[k] * (i + j) / 3.0);
        SetSlot(s, slot[k] + 1, i, j, 1e-4 * (k + 1));
        SetSlot(s, slot[k] + 2, i, j, -2e-7 * (i + k));
      }
}

// gE parameters on L1..L9 of every pair (P12, P21, P3 with T dependence).
void SetGE(Session& s, int geModel) {
  const double p12[3] = {150, 420, -80}, p21[3] = {260, 900, 310};
  int pair = 0;
  for (int i = 1; i <= s.NKomp; ++i)
    for (int j = i + 1; j <= s.NKomp; ++j, ++pair) {
      SetSlot(s, 1, i, j, p12[pair]);
      SetSlot(s, 2, i, j, 0.8);
      SetSlot(s, 3, i, j, 1e-3);
      SetSlot(s, 4, i, j, p21[pair]);
      SetSlot(s, 5, i, j, -0.5);
      SetSlot(s, 6, i, j, 2e-3);
      SetSlot(s, 7, i, j, geModel == 2 ? 0.3 : 0.4 + 0.1 * pair);
      SetSlot(s, 8, i, j, geModel == 2 ? 1e-4 : 2e-3);
      SetSlot(s, 9, i, j, 1e-6);
      // k(ij) of b, c, d stay in use with a GE rule.
      SetSlot(s, 13, i, j, 0.01 * (pair + 1));
      SetSlot(s, 16, i, j, -0.01 * pair);
      SetSlot(s, 19, i, j, 0.02);
    }
}

EOSMixPar MixAt(Session& s, const Vec<double>& x, double T, int model, int rule, int ge) {
  EOSMixPar out;
  out.Alloc(x.size());
  EOSMixAtT(s, T, model, rule, ge, false);
  EOSMixAtX(s, 0, x, T, model, rule, ge, out);
  return out;
}

// n dS/dn(k) by central differences in the mole numbers, around n = x (sum 1).
void CheckCompositionDerivatives(Session& s, const Vec<double>& x, double T, int model, int rule, int ge) {
  const EOSMixPar m = MixAt(s, x, T, model, rule, ge);
  const double h = 1e-6;
  for (int k = 1; k <= s.NKomp; ++k) {
    Vec<double> xp = x, xm = x;
    xp[k] += h;
    xm[k] -= h;
    for (int i = 1; i <= s.NKomp; ++i) {
      xp[i] /= 1.0 + h;
      xm[i] /= 1.0 - h;
    }
    const EOSMixPar p = MixAt(s, xp, T, model, rule, ge);
    const EOSMixPar q = MixAt(s, xm, T, model, rule, ge);
    // n S = (1 +- h) s at the shifted points.
    const double fa = ((1 + h) * p.a - (1 - h) * q.a) / (2 * h) - m.a;
    const double fb = ((1 + h) * p.b - (1 - h) * q.b) / (2 * h) - m.b;
    const double fc = ((1 + h) * p.c - (1 - h) * q.c) / (2 * h) - m.c;
    const double fd = ((1 + h) * p.d - (1 - h) * q.d) / (2 * h) - m.d;
    SCOPED_TRACE(testing::Message() << "model " << model << " rule " << rule << " ge " << ge << " k " << k);
    EXPECT_TRUE(peqtest::Near(m.da[k], fa, 1e-6, 1e-6 * std::fabs(m.a)));
    EXPECT_TRUE(peqtest::Near(m.db[k], fb, 1e-6, 1e-6 * std::fabs(m.b)));
    EXPECT_TRUE(peqtest::Near(m.dc[k], fc, 1e-6, 1e-6 * std::fabs(m.b)));
    EXPECT_TRUE(peqtest::Near(m.dd[k], fd, 1e-6, 1e-6 * std::fabs(m.b)));
  }
}

void CheckTemperatureDerivatives(Session& s, const Vec<double>& x, double T, int model, int rule, int ge) {
  const double h = 1e-2;
  EOSMixPar v0, v1, v2, p, q, p1, q1;
  for (EOSMixPar* e : {&v0, &v1, &v2, &p, &q, &p1, &q1}) e->Alloc(x.size());
  const std::array<Vec<double>, 2> cm{x, x};
  EOSMix(s, 1, cm, T, model, rule, ge, 1, v1);
  EOSMix(s, 2, cm, T, model, rule, ge, 0, v2);
  EOSMix(s, 0, cm, T + h, model, rule, ge, 0, p);
  EOSMix(s, 0, cm, T - h, model, rule, ge, 0, q);
  EOSMix(s, 1, cm, T + h, model, rule, ge, 0, p1);
  EOSMix(s, 1, cm, T - h, model, rule, ge, 0, q1);
  SCOPED_TRACE(testing::Message() << "model " << model << " rule " << rule << " ge " << ge);
  const double fl = 1e-12;
  EXPECT_TRUE(peqtest::Near(v1.a, (p.a - q.a) / (2 * h), 1e-6, fl));
  EXPECT_TRUE(peqtest::Near(v1.b, (p.b - q.b) / (2 * h), 1e-6, fl));
  EXPECT_TRUE(peqtest::Near(v1.c, (p.c - q.c) / (2 * h), 1e-6, fl));
  EXPECT_TRUE(peqtest::Near(v1.d, (p.d - q.d) / (2 * h), 1e-6, fl));
  EXPECT_TRUE(peqtest::Near(v2.a, (p1.a - q1.a) / (2 * h), 1e-6, 1e-14));
  EXPECT_TRUE(peqtest::Near(v2.b, (p1.b - q1.b) / (2 * h), 1e-6, 1e-16));
  EXPECT_TRUE(peqtest::Near(v2.c, (p1.c - q1.c) / (2 * h), 1e-6, 1e-16));
  EXPECT_TRUE(peqtest::Near(v2.d, (p1.d - q1.d) / (2 * h), 1e-6, 1e-16));
}

}  // namespace

TEST(EOSMix, GeometricRuleByHandForABinary) {
  Session s = peqtest::MakeSession({peqtest::kHexane, peqtest::kBenzene});
  int16_t err;
  EOSSetPure(s, 5, err);
  SetSlot(s, 1, 1, 2, 0.02);
  SetSlot(s, 2, 1, 2, 1e-4);
  SetSlot(s, 3, 1, 2, 1e-6);
  const double T = 350.0, t1 = T - 273.15;
  const Vec<double> x = Comp({0.3, 0.7});
  const EOSMixPar m = MixAt(s, x, T, 5, 2, 0);
  const double a1 = s.EOSPar[1][1], a2 = s.EOSPar[1][2];
  const double k = 0.02 + 1e-4 * t1 + 1e-6 * t1 * t1;
  const double a = 0.09 * a1 + 2 * 0.21 * std::sqrt(a1 * a2) * (1 - k) + 0.49 * a2;
  EXPECT_REL(m.a, a, 1e-14);
  EXPECT_REL(m.b, 0.3 * s.EOSPar[2][1] + 0.7 * s.EOSPar[2][2], 1e-14);
  EXPECT_REL(m.c, 0.3 * s.EOSPar[3][1] + 0.7 * s.EOSPar[3][2], 1e-14);
  EXPECT_REL(m.d, 0.3 * s.EOSPar[4][1] + 0.7 * s.EOSPar[4][2], 1e-14);
  // ds(m) = 2 (sum_j x_j S(m,j) F(m,j) - s): for a linear b, db(i) = b(i) - b.
  EXPECT_REL(m.db[1], s.EOSPar[2][1] - m.b, 1e-12);
  EXPECT_REL(m.da[1], 2 * (0.3 * a1 + 0.7 * std::sqrt(a1 * a2) * (1 - k) - a), 1e-12);
}

TEST(EOSMix, ArithmeticRuleCodeOne) {
  Session s = peqtest::MakeSession({peqtest::kHexane, peqtest::kBenzene});
  int16_t err;
  EOSSetPure(s, 4, err);
  const double T = 350.0;
  const Vec<double> x = Comp({0.3, 0.7});
  const EOSMixPar m = MixAt(s, x, T, 4, 1, 0);
  const double a1 = s.EOSPar[1][1], a2 = s.EOSPar[1][2];
  EXPECT_REL(m.a, 0.09 * a1 + 2 * 0.21 * 0.5 * (a1 + a2) + 0.49 * a2, 1e-14);
}

TEST(EOSMix, PairCoefficientsOfBCDFromTheirOwnSlots) {
  Session s = peqtest::MakeSession({peqtest::kHexane, peqtest::kBenzene});
  int16_t err;
  EOSSetPure(s, 5, err);
  SetSlot(s, 13, 1, 2, 0.1);   // b
  SetSlot(s, 16, 1, 2, 0.2);   // c
  SetSlot(s, 19, 1, 2, -0.1);  // d
  const double T = 300.0;
  const Vec<double> x = Comp({0.5, 0.5});
  const EOSMixPar m = MixAt(s, x, T, 5, 2, 0);
  auto mix = [&](int k, double kij) {
    const double s1 = s.EOSPar[k][1], s2 = s.EOSPar[k][2];
    return 0.25 * s1 + 0.5 * 0.5 * (s1 + s2) * (1 - kij) + 0.25 * s2;
  };
  EXPECT_REL(m.b, mix(2, 0.1), 1e-14);
  EXPECT_REL(m.c, mix(3, 0.2), 1e-14);
  EXPECT_REL(m.d, mix(4, -0.1), 1e-14);
}

TEST(EOSMix, VapourPhaseTakesKijAtForAAndNothingForBCD) {
  Session s = peqtest::MakeSession({peqtest::kHexane, peqtest::kBenzene});
  int16_t err;
  EOSSetPure(s, 4, err);
  SetSlot(s, 1, 1, 2, 350.0);  // a gE parameter of the gamma-phi concept: not a k(ij)
  SetSlot(s, 13, 1, 2, 0.03);
  SetSlot(s, 14, 1, 2, 2.0);
  const double T = 320.0;
  const Vec<double> x = Comp({0.4, 0.6});
  EOSMixPar m;
  m.Alloc(3);
  const std::array<Vec<double>, 2> cm{x, x};
  EOSMix(s, 0, cm, T, 4, 2, 0, 1, m, KijSource::Vapour);
  const double a1 = s.EOSPar[1][1], a2 = s.EOSPar[1][2];
  const double k = 0.03 + 2.0 / T;
  EXPECT_REL(m.a, 0.16 * a1 + 2 * 0.24 * std::sqrt(a1 * a2) * (1 - k) + 0.36 * a2, 1e-14);
  EXPECT_REL(m.b, 0.4 * s.EOSPar[2][1] + 0.6 * s.EOSPar[2][2], 1e-14);
}

TEST(EOSMix, CompositionDerivativesOfQuadraticRules) {
  for (int model : {3, 4, 5, 6, 7}) {
    Session s = Ternary(model);
    SetKij(s);
    for (int rule : {1, 2}) CheckCompositionDerivatives(s, Comp({0.2, 0.5, 0.3}), 360.0, model, rule, 0);
  }
}

TEST(EOSMix, CompositionDerivativesOfRuleCodeThree) {
  Session s = Ternary(5);
  for (int i = 1; i <= 3; ++i)
    for (int j = i + 1; j <= 3; ++j) {
      SetSlot(s, 1, i, j, 0.05 * i);
      SetSlot(s, 4, i, j, 0.02 * j);
      SetSlot(s, 5, i, j, 1e-4);
    }
  CheckCompositionDerivatives(s, Comp({0.2, 0.5, 0.3}), 360.0, 5, 3, 0);
}

TEST(EOSMix, RuleCodeThreeIsTheVanLaarFormOfF) {
  Session s = peqtest::MakeSession({peqtest::kHexane, peqtest::kBenzene});
  int16_t err;
  EOSSetPure(s, 5, err);
  SetSlot(s, 1, 1, 2, 0.04);  // k12
  SetSlot(s, 4, 1, 2, 0.01);  // k21
  const double T = 350.0, x1 = 0.3, x2 = 0.7;
  const EOSMixPar m = MixAt(s, Comp({x1, x2}), T, 5, 3, 0);
  const double a1 = s.EOSPar[1][1], a2 = s.EOSPar[1][2];
  const double F = 1 - 0.04 * 0.01 / (x1 * 0.04 + x2 * 0.01);
  EXPECT_REL(m.a, x1 * x1 * a1 + 2 * x1 * x2 * std::sqrt(a1 * a2) * F + x2 * x2 * a2, 1e-14);
}

TEST(EOSMix, CompositionDerivativesOfGERules) {
  for (int model : {4, 5, 6}) {
    for (int ge : {1, 2, 9}) {
      Session s = Ternary(model);
      SetGE(s, ge);
      for (int rule : {5, 6}) CheckCompositionDerivatives(s, Comp({0.2, 0.5, 0.3}), 360.0, model, rule, ge);
    }
  }
}

TEST(EOSMix, TemperatureDerivativesOfQuadraticRules) {
  for (int model : {3, 4, 5, 6, 7}) {
    Session s = Ternary(model);
    SetKij(s);
    for (int rule : {1, 2}) CheckTemperatureDerivatives(s, Comp({0.2, 0.5, 0.3}), 360.0, model, rule, 0);
  }
}

TEST(EOSMix, TemperatureDerivativesOfGERules) {
  for (int model : {3, 4, 5, 6, 7}) {
    for (int ge : {1, 2, 9}) {
      Session s = Ternary(model);
      SetGE(s, ge);
      for (int rule : {5, 6}) CheckTemperatureDerivatives(s, Comp({0.2, 0.5, 0.3}), 360.0, model, rule, ge);
    }
  }
}

TEST(EOSMix, HuronVidalFormForSoaveAtInfinitePressure) {
  // SRK: c = 0, d = b, u = 1 gives Q = ln 2/b, so a/b = sum x a(i)/b(i) - gE/ln 2 when b, c, d
  // mix linearly (Huron and Vidal, 1979).
  Session s = Ternary(4);
  SetGE(s, 2);
  for (int i = 1; i <= 3; ++i)
    for (int j = i + 1; j <= 3; ++j)
      for (int L : {13, 16, 19}) SetSlot(s, L, i, j, 0.0);
  const double T = 350.0;
  const Vec<double> x = Comp({0.2, 0.5, 0.3});
  const EOSMixPar m = MixAt(s, x, T, 4, 5, 2);
  double sum = 0;
  for (int i = 1; i <= 3; ++i) sum += x[i] * s.EOSPar[1][i] / s.EOSPar[2][i];
  GEMixPairs p;
  p.Alloc(4);
  GEMixPrepare(s, 2, T, s.EOSPar[2], p);
  const double gE = kR * T * GEMixValue(p, x);
  EXPECT_REL(m.a / m.b, sum - gE / std::log(2.0), 1e-12);
}

TEST(EOSMix, GERuleOfAPureComponentGivesItsOwnA) {
  for (int rule : {5, 6}) {
    Session s = Ternary(5);
    SetGE(s, 1);
    const EOSMixPar m = MixAt(s, Comp({0.0, 1.0, 0.0}), 330.0, 5, rule, 1);
    EXPECT_REL(m.a, s.EOSPar[1][2], 1e-12) << rule;
  }
}

TEST(EOSMix, UnbuiltOrUnknownRulesFault) {
  Session s = Ternary(5);
  const Vec<double> x = Comp({0.2, 0.5, 0.3});
  EOSMixPar m;
  m.Alloc(4);
  const std::array<Vec<double>, 2> cm{x, x};
  EXPECT_THROW(EOSMix(s, 0, cm, 330.0, 5, 4, 0, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 1, cm, 330.0, 5, 3, 0, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 0, cm, 330.0, 5, 7, 0, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 0, cm, 330.0, 5, 0, 0, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 0, cm, 330.0, 5, 5, 4, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 0, cm, 0.0, 5, 2, 0, 0, m), NumericFault);
  EXPECT_THROW(EOSMix(s, 0, cm, -20.0, 5, 2, 0, 0, m), NumericFault);
}
