// gE models inside the GE mixing rules: values, activity coefficients, T derivatives.
#include "models/eos_gemix.h"

#include <cmath>

#include <gtest/gtest.h>

#include "models/eos_test_session.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

using namespace peq;
using peqtest::Comp;
using peqtest::SetSlot;

namespace {

// Pair polynomials P12 = L1 + L2 T1 + L3 T1^2 etc. of the pair i < j.
void SetPair(Session& s, int i, int j, double p12, double p21, double p3, double slope = 0, double curv = 0) {
  SetSlot(s, 1, i, j, p12);
  SetSlot(s, 2, i, j, slope);
  SetSlot(s, 3, i, j, curv);
  SetSlot(s, 4, i, j, p21);
  SetSlot(s, 5, i, j, -0.7 * slope);
  SetSlot(s, 6, i, j, 0.5 * curv);
  SetSlot(s, 7, i, j, p3);
  SetSlot(s, 8, i, j, 1e-4 * slope);
  SetSlot(s, 9, i, j, 1e-3 * curv);
}

Session Ternary() {
  Session s = peqtest::MakeSession({peqtest::kWater, peqtest::kEthanol, peqtest::kBenzene});
  s.StoffData[1].RUniquac = 0.92f;
  s.StoffData[1].QUniquac = 1.4f;
  s.StoffData[2].RUniquac = 2.1055f;
  s.StoffData[2].QUniquac = 1.972f;
  s.StoffData[3].RUniquac = 3.1878f;
  s.StoffData[3].QUniquac = 2.4f;
  return s;
}

// n gE/(RT) at mole numbers n (total N): N g(n/N).
double NG(const Session& s, int model, double T, const Vec<double>& b, const Vec<double>& n) {
  GEMixPairs p;
  p.Alloc(n.size());
  GEMixPrepare(s, model, T, b, p);
  double N = 0;
  for (std::size_t i = 1; i < n.size(); ++i) N += n[i];
  Vec<double> x(n.size(), 0.0);
  for (std::size_t i = 1; i < n.size(); ++i) x[i] = n[i] / N;
  return N * GEMixValue(p, x);
}

}  // namespace

TEST(GEMix, NRTLReferenceActivityCoefficientsEthanolWater) {
  // Reference case 6 (Gmehling et al. 2012, P05.01b): x1 = 0.252, T = 343.15 K, dg12 = -121.2691,
  // dg21 = 1337.8574 cal/mol (R = 1.98721 cal/(mol K)), alpha = 0.2974: gamma = 1.936052, 1.153663.
  // Here the pair quantities are in kelvin: P12 = dg12/R, P21 = dg21/R.
  Session s = peqtest::MakeSession({peqtest::kEthanol, peqtest::kWater});
  SetPair(s, 1, 2, -121.2691 / 1.98721, 1337.8574 / 1.98721, 0.2974);
  GEMixPairs p;
  p.Alloc(3);
  const Vec<double> b = Comp({0.05, 0.02});
  GEMixPrepare(s, 2, 343.15, b, p);
  const Vec<double> x = Comp({0.252, 0.748});
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 1)), 1.936052, 2e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 2)), 1.153663, 2e-6);
  // gE = R T sum x ln gamma = 780.053 J/mol (same case).
  EXPECT_REL(GEMixValue(p, x) * 8.314462618 * 343.15, 780.053, 1e-5);
}

TEST(GEMix, WilsonReferenceActivityCoefficients) {
  // Reference case 7: Lambda12 = 0.154, Lambda21 = 0.888, x1 = 0.252: gamma = 1.881493, 1.165577.
  // Equal covolumes, so Lambda = exp(-P/T) with P = -T ln(Lambda); no added term (P3 = 0).
  Session s = peqtest::MakeSession({peqtest::kEthanol, peqtest::kWater});
  const double T = 343.15;
  SetPair(s, 1, 2, -T * std::log(0.154), -T * std::log(0.888), 0.0);
  GEMixPairs p;
  p.Alloc(3);
  GEMixPrepare(s, 1, T, Comp({0.03, 0.03}), p);
  EXPECT_REL(p.A(1, 2), 0.154, 1e-12);
  EXPECT_REL(p.A(2, 1), 0.888, 1e-12);
  const Vec<double> x = Comp({0.252, 0.748});
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 1)), 1.881493, 1e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 2)), 1.165577, 1e-6);
}

TEST(GEMix, WilsonLambdaCarriesTheCovolumeRatio) {
  Session s = peqtest::MakeSession({peqtest::kEthanol, peqtest::kWater});
  SetPair(s, 1, 2, 100.0, 200.0, 0.0);
  GEMixPairs p;
  p.Alloc(3);
  GEMixPrepare(s, 1, 300.0, Comp({0.05, 0.02}), p);
  EXPECT_REL(p.A(1, 2), 0.02 / 0.05 * std::exp(-100.0 / 300.0), 1e-14);
  EXPECT_REL(p.A(2, 1), 0.05 / 0.02 * std::exp(-200.0 / 300.0), 1e-14);
  EXPECT_EQ(p.A(1, 1), 1.0);
}

TEST(GEMix, WilsonAddedPairTermEntersGE) {
  // With Lambda = 1 (P12 = P21 = 0, equal b) the Wilson part vanishes and gE/(RT) = x1 x2 P3.
  Session s = peqtest::MakeSession({peqtest::kEthanol, peqtest::kWater});
  SetPair(s, 1, 2, 0.0, 0.0, 0.8);
  GEMixPairs p;
  p.Alloc(3);
  GEMixPrepare(s, 1, 300.0, Comp({0.03, 0.03}), p);
  const Vec<double> x = Comp({0.3, 0.7});
  EXPECT_REL(GEMixValue(p, x), 0.3 * 0.7 * 0.8, 1e-12);
  // ln gamma1 = P3 x2^2 (two-suffix Margules form of the added term).
  EXPECT_REL(GEMixLnGamma(p, x, 1), 0.8 * 0.7 * 0.7, 1e-12);
}

TEST(GEMix, UNIQUACReferenceTernary) {
  // Reference case 8 (Gmehling et al. 2012, Example 5.19): water/ethanol/benzene at 298.15 K,
  // phase I x = (0.7273, 0.0909, 0.1818): gamma = 1.570393, 0.294824, 18.114329.
  Session s = Ternary();
  SetPair(s, 1, 2, 526.02, -318.06, 0.0);
  SetPair(s, 1, 3, 309.64, 1325.1, 0.0);
  SetPair(s, 2, 3, -91.532, 302.57, 0.0);
  GEMixPairs p;
  p.Alloc(4);
  GEMixPrepare(s, 9, 298.15, Comp({1, 1, 1}), p);
  const Vec<double> x = Comp({0.7273, 0.0909, 0.1818});
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 1)), 1.570393, 2e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 2)), 0.294824, 2e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x, 3)), 18.114329, 2e-6);
  const Vec<double> x2 = Comp({1.0 / 6, 1.0 / 6, 2.0 / 3});
  EXPECT_REL(std::exp(GEMixLnGamma(p, x2, 1)), 8.855991, 2e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x2, 2)), 0.859524, 2e-6);
  EXPECT_REL(std::exp(GEMixLnGamma(p, x2, 3)), 1.425460, 2e-6);
}

TEST(GEMix, SumOfXLnGammaIsGE) {
  Session s = Ternary();
  SetPair(s, 1, 2, 300, -100, 0.3, 2.0, 0.01);
  SetPair(s, 1, 3, 500, 800, 0.25, -1.0, 0.02);
  SetPair(s, 2, 3, -50, 200, 0.4, 0.5, -0.01);
  const Vec<double> x = Comp({0.2, 0.5, 0.3});
  for (int model : {1, 2, 9}) {
    GEMixPairs p;
    p.Alloc(4);
    GEMixPrepare(s, model, 330.0, Comp({0.02, 0.05, 0.08}), p);
    double sum = 0;
    for (int i = 1; i <= 3; ++i) sum += x[i] * GEMixLnGamma(p, x, i);
    EXPECT_REL(sum, GEMixValue(p, x), 1e-12) << model;
  }
}

TEST(GEMix, LnGammaIsTheMoleNumberDerivativeOfNGE) {
  Session s = Ternary();
  SetPair(s, 1, 2, 300, -100, 0.3, 2.0, 0.01);
  SetPair(s, 1, 3, 500, 800, 0.25, -1.0, 0.02);
  SetPair(s, 2, 3, -50, 200, 0.4, 0.5, -0.01);
  const Vec<double> b = Comp({0.02, 0.05, 0.08});
  const double T = 330.0, h = 1e-5;
  const Vec<double> n = Comp({0.2, 0.5, 0.3});
  for (int model : {1, 2, 9}) {
    GEMixPairs p;
    p.Alloc(4);
    GEMixPrepare(s, model, T, b, p);
    for (int k = 1; k <= 3; ++k) {
      Vec<double> np = n, nm = n;
      np[k] += h;
      nm[k] -= h;
      const double fd = (NG(s, model, T, b, np) - NG(s, model, T, b, nm)) / (2 * h);
      EXPECT_TRUE(peqtest::Near(GEMixLnGamma(p, n, k), fd, 1e-6, 1e-8)) << model << " " << k;
    }
  }
}

TEST(GEMix, TemperatureDerivativesMatchCentralDifferences) {
  Session s = Ternary();
  SetPair(s, 1, 2, 300, -100, 0.3, 2.0, 0.01);
  SetPair(s, 1, 3, 500, 800, 0.25, -1.0, 0.02);
  SetPair(s, 2, 3, -50, 200, 0.4, 0.5, -0.01);
  const Vec<double> b = Comp({0.02, 0.05, 0.08});
  const Vec<double> x = Comp({0.2, 0.5, 0.3});
  const double T = 330.0, h = 1e-2;
  for (int model : {1, 2, 9}) {
    GEMixPairs p, pp, pm;
    for (GEMixPairs* q : {&p, &pp, &pm}) q->Alloc(4);
    GEMixPrepare(s, model, T, b, p);
    GEMixPrepare(s, model, T + h, b, pp);
    GEMixPrepare(s, model, T - h, b, pm);
    SCOPED_TRACE(model);
    EXPECT_TRUE(peqtest::Near(GEMixDT(p, x), (GEMixValue(pp, x) - GEMixValue(pm, x)) / (2 * h), 1e-6, 1e-12));
    EXPECT_TRUE(peqtest::Near(GEMixD2T(p, x), (GEMixDT(pp, x) - GEMixDT(pm, x)) / (2 * h), 1e-6, 1e-14));
    for (int k = 1; k <= 3; ++k) {
      const double d1 = (GEMixLnGamma(pp, x, k) - GEMixLnGamma(pm, x, k)) / (2 * h);
      const double d2 = (GEMixLnGammaDT(pp, x, k) - GEMixLnGammaDT(pm, x, k)) / (2 * h);
      EXPECT_TRUE(peqtest::Near(GEMixLnGammaDT(p, x, k), d1, 1e-6, 1e-12)) << k;
      EXPECT_TRUE(peqtest::Near(GEMixLnGammaD2T(p, x, k), d2, 1e-6, 1e-14)) << k;
    }
  }
}

TEST(GEMix, PureComponentHasGammaOne) {
  Session s = Ternary();
  SetPair(s, 1, 2, 300, -100, 0.3);
  SetPair(s, 1, 3, 500, 800, 0.25);
  SetPair(s, 2, 3, -50, 200, 0.4);
  const Vec<double> x = Comp({0.0, 1.0, 0.0});
  for (int model : {1, 2, 9}) {
    GEMixPairs p;
    p.Alloc(4);
    GEMixPrepare(s, model, 330.0, Comp({0.02, 0.05, 0.08}), p);
    EXPECT_NEAR(GEMixLnGamma(p, x, 2), 0.0, 1e-14) << model;
    EXPECT_NEAR(GEMixValue(p, x), 0.0, 1e-14) << model;
    // The infinitely dilute components still get a finite limiting value.
    EXPECT_TRUE(std::isfinite(GEMixLnGamma(p, x, 1)));
  }
}

TEST(GEMix, UnknownModelFaults) {
  Session s = Ternary();
  GEMixPairs p;
  p.Alloc(4);
  EXPECT_THROW(GEMixPrepare(s, 4, 330.0, Comp({1, 1, 1}), p), NumericFault);
  EXPECT_THROW(GEMixValue(p, Comp({0.2, 0.3, 0.5})), NumericFault);
}
