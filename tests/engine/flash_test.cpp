// The three flashes: the Rachford-Rice form without K values in both concepts, the resets of
// eta(V), the round limits and failure values, and the round trips to the kernel's bubble and
// dew points.
#include "engine/flash.h"

#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_solve.h"
#include "models/pureprops.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

namespace {

using peqtest::Comp;

// z(i) = (1 - eta) x(i) + eta y(i) for every component, to tol.
void ExpectMaterialBalance(const peq::Session& s, const peq::Vec<double>& z, double eta, double tol) {
  for (int i = 1; i <= s.NKomp; ++i)
    EXPECT_NEAR((1.0 - eta) * s.XLiq[i] + eta * s.YGas[i], z[i], tol) << "component " << i;
}

double Sum(const peq::Vec<double>& v, int n) {
  double t = 0;
  for (int i = 1; i <= n; ++i) t += v[i];
  return t;
}

double BubbleP(peq::Session& s, double T, const peq::Vec<double>& x) {
  const peq::Vec<double> y0(x.size(), 0.0);
  double vL, vV;
  return peq::CalcBubbleP(s, T, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
}

double BubbleT(peq::Session& s, double p, const peq::Vec<double>& x) {
  const peq::Vec<double> y0(x.size(), 0.0);
  double vL, vV, Tin = 0;
  int16_t warn;
  return peq::CalcBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
}

// Ten hydrocarbons of the bundled database, equal parts: n-butane, isobutane, n-pentane,
// isopentane, n-hexane, cyclohexane, benzene, n-heptane, toluene, n-octane.
const std::vector<std::string> kTenHydrocarbons = {"106-97-8", "75-28-5",  "109-66-0", "78-78-4",  "110-54-3",
                                                   "110-82-7", "71-43-2",  "142-82-5", "108-88-3", "111-65-9"};

peq::Vec<double> EqualParts(int n) {
  peq::Vec<double> z(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) z[i] = 1.0 / n;
  return z;
}

// ------------------------------------------------------------------------------- FlashTP

TEST(FlashTP, IdealBinaryMatchesTheClosedRachfordRiceSolution) {
  // Raoult's law, K(i) = P0(i)/p: for two components the flash function
  // z1 a/(1 + eta a) + z2 b/(1 + eta b) = 0 (a = K1 - 1, b = K2 - 1) has the root
  // eta = -(z1 a + z2 b)/(a b), and x(i) = z(i)/(1 + eta (K(i) - 1)) (hand derivation).
  peq::Session s = peqtest::BenzeneToluene();
  const double T = 365.0, p = 101.325;
  const peq::Vec<double> z = Comp({0.6, 0.4});
  const double eta = peq::FlashTP(s, T, p, z);
  const double a = double(s.P0[1]) / p - 1.0, b = double(s.P0[2]) / p - 1.0;
  const double expected = -(z[1] * a + z[2] * b) / (a * b);
  ASSERT_GT(expected, 0.0);
  ASSERT_LT(expected, 1.0);
  EXPECT_REL(eta, expected, 1e-7);
  EXPECT_REL(s.XLiq[1], z[1] / (1.0 + expected * a), 1e-7);
  EXPECT_REL(s.YGas[1], z[1] * (a + 1.0) / (1.0 + expected * a), 1e-7);
  EXPECT_EQ(s.Gamma[1], 1.0);
  EXPECT_EQ(s.PhiKorr[2], 1.0);
}

TEST(FlashTP, BetweenBubbleAndDewPointGivesInteriorEtaAndMaterialBalance) {
  peq::Session s = peqtest::BenzeneToluene();
  const double T = 365.0;
  const peq::Vec<double> z = Comp({0.6, 0.4});
  const double pb = BubbleP(s, T, z);
  ASSERT_GT(pb, 0.0);
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, T, err, dT);
  const double pd = peq::CalcDewP(s, T, z);
  ASSERT_GT(pd, 0.0);
  for (double f : {0.1, 0.5, 0.9}) {
    const double p = pd + f * (pb - pd);
    const double eta = peq::FlashTP(s, T, p, z);
    EXPECT_GT(eta, 0.0) << "p = " << p;
    EXPECT_LT(eta, 1.0) << "p = " << p;
    ExpectMaterialBalance(s, z, eta, 1e-9);
    EXPECT_NEAR(Sum(s.XLiq, 2), 1.0, 1e-15);
    EXPECT_NEAR(Sum(s.YGas, 2), 1.0, 1e-15);
  }
}

TEST(FlashTP, NonIdealBinaryWithVirialVapourKeepsTheMaterialBalance) {
  // Ethanol/water, NRTL and the virial equation: Gamma and PhiKorr are renewed by CalcKValues.
  peq::Session s = peqtest::EthanolWater(2);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  const double T = 358.0, p = 101.325;
  const double eta = peq::FlashTP(s, T, p, z);
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  // Gamma and PhiKorr of the last pass come from the new liquid, x from the old ones: the balance
  // holds to the order of the round tolerance (1E-7 on eta), not to rounding.
  ExpectMaterialBalance(s, z, eta, 1e-7);
  EXPECT_NE(s.PhiKorr[1], 1.0);
  EXPECT_GT(s.Gamma[1], 1.0);
  // The phases are in equilibrium: y(i) = K(i) x(i) with the K of the final liquid.
  for (int i = 1; i <= 2; ++i) EXPECT_REL(s.YGas[i], s.KWert[i] * s.XLiq[i], 1e-6);
}

TEST(FlashTP, FeedWithBubblePressureBelowPIsPinnedByTheResetsAndFailsWithMinusOne) {
  // Subcooled liquid: F(eta) < 0 on the whole of 0..1, so every secant step leaves the range
  // and the resets to 0.1 and 0.9 hold eta inside until the round limit of 100 ends it.
  peq::Session s = peqtest::BenzeneToluene();
  const peq::Vec<double> z = Comp({0.5, 0.5});
  const double T = 350.0;
  const double pb = BubbleP(s, T, z);
  ASSERT_GT(pb, 0.0);
  EXPECT_EQ(peq::FlashTP(s, T, 1.5 * pb, z), -1.0);
  EXPECT_TRUE(peqtest::SessionFinite(s));
  // The last liquid is that of the flash function at a reset value of eta, 0.1 or 0.9, not at an
  // edge of the range (0 or 1) and not outside it: x(i) = E(i) z(i)/(D(i) eta + E(i)), normalised,
  // with the coefficients of the last round.
  const auto& w = s.FlashWork;
  auto liquidAt = [&](double eta) {
    peq::Vec<double> x(3, 0.0);
    for (int i = 1; i <= 2; ++i) x[i] = w.E[i] * w.Z[i] / (w.D[i] * eta + w.E[i]);
    const double sum = x[1] + x[2];
    for (int i = 1; i <= 2; ++i) x[i] /= sum;
    return x;
  };
  int pinned = 0;
  for (double eta : {0.1, 0.9}) {
    const peq::Vec<double> x = liquidAt(eta);
    if (std::fabs(x[1] - s.XLiq[1]) < 1e-12 && std::fabs(x[2] - s.XLiq[2]) < 1e-12) ++pinned;
  }
  EXPECT_EQ(pinned, 1);
  for (double eta : {0.0, 1.0, 0.5}) {
    const peq::Vec<double> x = liquidAt(eta);
    EXPECT_GT(std::fabs(x[1] - s.XLiq[1]), 1e-6) << eta;
  }
}

TEST(FlashTP, SuperheatedVapourFailsWithMinusOne) {
  peq::Session s = peqtest::BenzeneToluene();
  const peq::Vec<double> z = Comp({0.5, 0.5});
  const double T = 350.0;
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, T, err, dT);
  const double pd = peq::CalcDewP(s, T, z);
  ASSERT_GT(pd, 0.0);
  EXPECT_EQ(peq::FlashTP(s, T, 0.5 * pd, z), -1.0);
}

TEST(FlashTP, FailedVapourPressureReturnsMinusOne) {
  peq::Session s = peqtest::BenzeneToluene();
  s.P0Eq[2] = "";  // no equation: p0 = 0, AllPureProps fails
  s.ParALP[2] = peq::ParAntoine{};
  EXPECT_EQ(peq::FlashTP(s, 365.0, 101.325, Comp({0.6, 0.4})), -1.0);
}

TEST(FlashTP, ArithmeticFaultEndsWithMinusOneAndNoNaN) {
  // p = 0: every x(i) is 0 and the normalisation divides by zero.
  peq::Session s = peqtest::BenzeneToluene();
  EXPECT_EQ(peq::FlashTP(s, 365.0, 0.0, Comp({0.6, 0.4})), -1.0);
  EXPECT_TRUE(peqtest::SessionFinite(s));
}

TEST(FlashTP, PhiPhiFailedCubicReturnsMinusOne) {
  // The cubic has no root at p = 0.
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  EXPECT_EQ(peq::FlashTP(s, 380.0, 0.0, Comp({0.5, 0.5})), -1.0);
  EXPECT_TRUE(peqtest::SessionFinite(s));
}

TEST(FlashTP, NoComponentsReturnAtOnce) {
  peq::Session s;
  const peq::Vec<double> z(1, 0.0);
  EXPECT_EQ(peq::FlashTP(s, 300.0, 100.0, z), -1.0);
  EXPECT_EQ(peq::FlashPEta(s, 100.0, 0.5, z), 0.0);
  EXPECT_EQ(peq::FlashTEta(s, 300.0, 0.5, z), 0.0);
}

TEST(FlashTP, FeedMayBeASessionArrayThatTheFlashOverwrites) {
  peq::Session a = peqtest::BenzeneToluene(), b = peqtest::BenzeneToluene();
  const peq::Vec<double> z = Comp({0.6, 0.4});
  const double eta = peq::FlashTP(a, 365.0, 101.325, z);
  b.XLiq = z;
  EXPECT_EQ(peq::FlashTP(b, 365.0, 101.325, b.XLiq), eta);
}

TEST(FlashTP, PhiPhiBinaryIsInEquilibriumOfFugacities) {
  // n-hexane/toluene, Peng-Robinson with the van der Waals rule.
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  const peq::Vec<double> z = Comp({0.5, 0.5});
  const double T = 380.0;
  const double pb = BubbleP(s, T, z);
  ASSERT_GT(pb, 0.0);
  const double p = 0.8 * pb;
  const double eta = peq::FlashTP(s, T, p, z);
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  ExpectMaterialBalance(s, z, eta, 1e-9);
  // Equal fugacities x(i) phiL(i) = y(i) phiV(i), with phi of both final phases.
  peq::EOSMixAtT(s, T, 5, 2, 2, false);
  for (int c = 0; c < 2; ++c)
    for (int i = 1; i <= 2; ++i) s.CompMat[static_cast<std::size_t>(c)][i] = c == 0 ? s.XLiq[i] : s.YGas[i];
  peq::EOSMixPar L, V;
  L.Alloc(3);
  V.Alloc(3);
  peq::EOSMix(s, 0, s.CompMat, T, 5, 2, 2, 0, L);
  peq::EOSMix(s, 0, s.CompMat, T, 5, 2, 2, 1, V);
  peq::EOSRoots r{};
  int16_t nr = 0, err = 0;
  peq::EOSSolve(T, p, 0, L.a, L.b, L.c, L.d, r, nr, err);
  const double vL = peq::LiquidRoot(r);
  peq::EOSSolve(T, p, 0, V.a, V.b, V.c, V.d, r, nr, err);
  const double vV = peq::VapourRoot(r, nr);
  for (int i = 1; i <= 2; ++i) {
    const double fL = s.XLiq[i] * peq::EOSLnPhi(T, p, vL, 5, L.a, L.b, L.c, L.d, L.da[i], L.db[i], L.dc[i], L.dd[i]);
    const double fV = s.YGas[i] * peq::EOSLnPhi(T, p, vV, 5, V.a, V.b, V.c, V.d, V.da[i], V.db[i], V.dc[i], V.dd[i]);
    EXPECT_REL(fL, fV, 1e-6) << "component " << i;
  }
}

// --------------------------------------------------------------- ten hydrocarbons, both concepts

TEST(FlashTP, TenHydrocarbonsGammaPhiIdealMixtureAndIdealGas) {
  peq::Session s;
  ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), kTenHydrocarbons));
  s.Konzept = false;
  s.GEModel = 0;
  s.VapModel = 0;
  const int n = s.NKomp;
  ASSERT_EQ(n, 10);
  const peq::Vec<double> z = EqualParts(n);
  const double T = 360.0;
  const double pb = BubbleP(s, T, z);
  ASSERT_GT(pb, 0.0);
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, T, err, dT);
  const double pd = peq::CalcDewP(s, T, z);
  ASSERT_GT(pd, 0.0);
  const double p = 0.5 * (pb + pd);
  const double eta = peq::FlashTP(s, T, p, z);
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  ExpectMaterialBalance(s, z, eta, 1e-9);
  // Raoult's law between the phases.
  for (int i = 1; i <= n; ++i) EXPECT_REL(s.YGas[i] * p, s.XLiq[i] * double(s.P0[i]), 1e-6);
}

TEST(FlashTP, TenHydrocarbonsPengRobinson) {
  peq::Session s;
  ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), kTenHydrocarbons));
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  ASSERT_TRUE(peq::EOSTabellenBerechnen(s));
  const int n = s.NKomp;
  const peq::Vec<double> z = EqualParts(n);
  const double T = 360.0;
  const double pb = BubbleP(s, T, z);
  ASSERT_GT(pb, 0.0);
  const double p = 0.6 * pb;
  const double eta = peq::FlashTP(s, T, p, z);
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  ExpectMaterialBalance(s, z, eta, 1e-9);
  // The lightest component gathers in the vapour, the heaviest in the liquid.
  EXPECT_GT(s.YGas[2], s.XLiq[2]);
  EXPECT_LT(s.YGas[10], s.XLiq[10]);
}

// ------------------------------------------------------------------------------ FlashPEta

TEST(FlashPEta, EtaZeroReproducesTheBubbleTemperatureAfterAStepOfOneTenth) {
  // At eta = 0 the first round's F is already near 0 (the start is the bubble T); the first
  // step of 0.1 K is still made and the secant comes back: the answer agrees with the bubble
  // temperature within its tolerance (0.0002 K) but is not the start itself.
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  const double Tb = BubbleT(k, 101.325, z);
  ASSERT_GT(Tb, 0.0);
  const double T = peq::FlashPEta(s, 101.325, 0.0, z);
  EXPECT_NEAR(T, Tb, 2e-4);
  EXPECT_NE(T, Tb);
  EXPECT_NEAR(s.XLiq[1], 0.3, 1e-12);
}

TEST(FlashPEta, EtaOneReproducesTheDewTemperature) {
  peq::Session s = peqtest::EthanolWater(2), k = peqtest::EthanolWater(2);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  const float Td = peq::CalcDewT(k, 101.325, z, 0.0);
  ASSERT_GT(Td, 0.0f);
  const double T = peq::FlashPEta(s, 101.325, 1.0, z);
  EXPECT_NEAR(T, Td, 1e-3);
  EXPECT_NEAR(s.YGas[1], 0.3, 1e-6);
  EXPECT_NEAR(s.XLiq[1], k.XLiq[1], 1e-4);
}

TEST(FlashPEta, InteriorEtaLiesBetweenBubbleAndDewAndKeepsTheBalance) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  const double Tb = BubbleT(k, 101.325, z);
  const double Td = peq::CalcDewT(k, 101.325, z, 0.0);
  const double T = peq::FlashPEta(s, 101.325, 0.4, z);
  EXPECT_GT(T, Tb);
  EXPECT_LT(T, Td);
  ExpectMaterialBalance(s, z, 0.4, 1e-7);
}

TEST(FlashPEta, NoBubbleTemperatureReturnsZero) {
  peq::Session s = peqtest::BenzeneToluene();
  s.P0Eq[1] = "";
  s.ParALP[1] = peq::ParAntoine{};
  EXPECT_EQ(peq::FlashPEta(s, 101.325, 0.5, Comp({0.5, 0.5})), 0.0);
}

TEST(FlashPEta, PhiPhiEtaZeroReproducesTheBubbleTemperature) {
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  peq::Session k = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  const peq::Vec<double> z = Comp({0.4, 0.6});
  const double Tb = BubbleT(k, 200.0, z);
  ASSERT_GT(Tb, 0.0);
  const double T = peq::FlashPEta(s, 200.0, 0.0, z);
  EXPECT_NEAR(T, Tb, 1e-3);
  const double T5 = peq::FlashPEta(s, 200.0, 0.5, z);
  EXPECT_GT(T5, Tb);
  ExpectMaterialBalance(s, z, 0.5, 1e-7);
}

// ------------------------------------------------------------------------------ FlashTEta

TEST(FlashTEta, EtaZeroReproducesTheBubblePressure) {
  peq::Session s = peqtest::EthanolWater(2), k = peqtest::EthanolWater(2);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  const double pb = BubbleP(k, 353.15, z);
  ASSERT_GT(pb, 0.0);
  const double p = peq::FlashTEta(s, 353.15, 0.0, z);
  EXPECT_REL(p, pb, 1e-5);  // the bubble pressure's own tolerance
}

TEST(FlashTEta, EtaOneReproducesTheDewPressure) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const peq::Vec<double> z = Comp({0.3, 0.7});
  int16_t err = 0, dT = 0;
  peq::AllPureProps(k, 353.15, err, dT);
  const float pd = peq::CalcDewP(k, 353.15, z);
  ASSERT_GT(pd, 0.0f);
  const double p = peq::FlashTEta(s, 353.15, 1.0, z);
  EXPECT_REL(p, pd, 1e-4);  // the dew pressure's own tolerance
  EXPECT_NEAR(s.YGas[1], 0.3, 1e-6);
}

TEST(FlashTEta, InteriorEtaAgreesWithFlashTP) {
  peq::Session s = peqtest::BenzeneToluene(), k = peqtest::BenzeneToluene();
  const peq::Vec<double> z = Comp({0.6, 0.4});
  const double p = peq::FlashTEta(s, 365.0, 0.35, z);
  ASSERT_GT(p, 0.0);
  ExpectMaterialBalance(s, z, 0.35, 1e-9);
  EXPECT_NEAR(peq::FlashTP(k, 365.0, p, z), 0.35, 1e-6);
}

TEST(FlashTEta, PhiPhiStartsFromTheFeedWithoutComponentOne) {
  // The start pressure of the global concept is the bubble pressure of (0, 1): pure toluene.
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  peq::Session k = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  const peq::Vec<double> z = Comp({0.4, 0.6});
  const double T = 380.0;
  const double pb = BubbleP(k, T, z);
  ASSERT_GT(pb, 0.0);
  const double p0 = peq::FlashTEta(s, T, 0.0, z);
  EXPECT_REL(p0, pb, 1e-6);
  const double p5 = peq::FlashTEta(s, T, 0.5, z);
  EXPECT_GT(p5, 0.0);
  EXPECT_LT(p5, pb);
  ExpectMaterialBalance(s, z, 0.5, 1e-9);
}

TEST(FlashTEta, FailedVapourPressureReturnsZero) {
  peq::Session s = peqtest::BenzeneToluene();
  s.P0Eq[1] = "";
  s.ParALP[1] = peq::ParAntoine{};
  EXPECT_LE(peq::FlashTEta(s, 365.0, 0.5, Comp({0.5, 0.5})), 0.0);
}

}  // namespace
