// Liquid molar volumes and enthalpy of vaporisation.
#include "models/liquid.h"

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "models/pure_fixtures.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

namespace {

using peq::Session;
namespace pf = peqtest::pure;

struct LCall {
  int16_t ok = 99;
  peq::Vec<int16_t> dT;
};

LCall LV(Session& s, double T) {
  LCall c;
  c.dT.assign(static_cast<std::size_t>(s.NKomp) + 1, 77);
  peq::LiquidVolumes(s, T, c.dT, c.ok);
  return c;
}

// A polynomial density function:
// rho = r1 + r2 T + r3 T^2 + r4 T^3 + r5/(r6 + T) [+ r7 (1 - T/r8)^(1/3)]
void SetPolynomial(peq::ParDensity& r, bool withR7) {
  r = peq::ParDensity{};
  r[1] = 1000.0f;
  r[2] = -0.5f;
  r[3] = 1e-3f;
  r[4] = -2e-6f;
  r[5] = 50.0f;
  r[6] = -100.0f;
  r[7] = withR7 ? 30.0f : 0.0f;
  r[8] = 600.0f;
  r.TLo = 250;
  r.THi = 550;
}

// ---- LiquidVolumes -----------------------------------------------------------------------

TEST(LiquidVolumes, RackettFormMatchesReference) {
  // Benzene, Perry DIPPR-105: rho = 1.0259/0.26666^(1 + (1 - 298.15/562.05)^0.28394)
  // = 11.17613 mol/dm^3, V = 89.4764 cm^3/mol (data tables, worked check: 89.48 cm^3/mol);
  // ethanol: 17.05909 mol/dm^3, V = 58.6198 cm^3/mol (CRC-based table value 58.62).
  Session s;
  pf::Make(s, {"Benzene", "Ethanol"});
  const LCall c = LV(s, 298.15);
  EXPECT_EQ(c.ok, -1);
  EXPECT_TRUE(s.RhoOK);
  EXPECT_REL(s.VLiq[1], 0.0894764, 2e-6);
  EXPECT_REL(s.VLiq[1], 0.08948, 1e-4);
  EXPECT_REL(s.VLiq[2], 0.0586198, 2e-6);
  EXPECT_EQ(c.dT[1], 0);
  EXPECT_EQ(c.dT[2], 0);
}

TEST(LiquidVolumes, PolynomialFormHandComputed) {
  // At 350 K: 1000 - 0.5*350 + 1E-3*350^2 - 2E-6*350^3 + 50/(-100 + 350)
  //         = 1000 - 175 + 122.5 - 85.75 + 0.2 = 861.95 kg/m^3;
  // with r7: + 30 (1 - 350/600)^(1/3) = 30*0.74690079 = 22.407024, rho = 884.357024.
  Session s;
  pf::Make(s, {"Water", "Water"});
  SetPolynomial(s.ParRho[1], false);
  SetPolynomial(s.ParRho[2], true);
  const LCall c = LV(s, 350.0);
  EXPECT_EQ(c.ok, -1);
  EXPECT_REL(s.VLiq[1], 18.0153 / 861.95, 1e-6);
  EXPECT_REL(s.VLiq[2], 18.0153 / 884.357024, 1e-6);
}

TEST(LiquidVolumes, DensityAboveTheFunctionsTcReusesThePreviousComponents) {
  // Methanol's function ends at 512.5 K, benzene's at 562.05 K. At 530 K methanol (second)
  // takes benzene's density, so its volume is its molar mass over benzene's rho.
  Session s;
  pf::Make(s, {"Benzene", "Methanol"});
  const LCall c = LV(s, 530.0);
  EXPECT_EQ(c.ok, -1);
  const double rhoBenzene = 78.1118 / s.VLiq[1];
  EXPECT_REL(s.VLiq[2], 32.0419 / rhoBenzene, 1e-6);
}

TEST(LiquidVolumes, TAsSingleComparedWithTheFunctionsTc) {
  // T just below r8 in f64 but equal to it as f32 counts as "not below": the density of the
  // component before is taken.
  Session s;
  pf::Make(s, {"Benzene", "Methanol"});
  const double T = 512.5 - 1e-6;  // (float)T == 512.5f
  ASSERT_EQ(static_cast<float>(T), s.ParRho[2][8]);
  LV(s, T);
  const double rhoBenzene = 78.1118 / s.VLiq[1];
  EXPECT_REL(s.VLiq[2], 32.0419 / rhoBenzene, 1e-6);
}

TEST(LiquidVolumes, FirstComponentWithoutDensityFails) {
  Session s;
  pf::Make(s, {"Water", "Ethanol"});  // water has no density function
  s.VLiq[1] = 1.5f;
  s.VLiq[2] = 2.5f;
  s.RhoOK = true;
  const LCall c = LV(s, 298.15);
  EXPECT_EQ(c.ok, 0);
  EXPECT_FALSE(s.RhoOK);
  EXPECT_EQ(s.VLiq[1], 1.5f);
  EXPECT_EQ(s.VLiq[2], 2.5f);  // the walk stopped before ethanol
  EXPECT_EQ(c.dT[1], 77);
  EXPECT_EQ(c.dT[2], 77);
}

TEST(LiquidVolumes, EarlyReturnLeavesTheLaterComponentsVolumes) {
  Session s;
  pf::Make(s, {"Ethanol", "Benzene", "n-Hexane"});
  s.ParRho[2][2] = -5.0f;  // benzene: negative density
  s.VLiq[1] = 1.5f;
  s.VLiq[2] = 2.5f;
  s.VLiq[3] = 3.5f;
  const LCall c = LV(s, 298.15);
  EXPECT_EQ(c.ok, 0);
  EXPECT_FALSE(s.RhoOK);
  EXPECT_REL(s.VLiq[1], 0.0586198, 2e-6);  // done before the stop
  EXPECT_EQ(c.dT[1], 0);
  EXPECT_EQ(s.VLiq[2], 2.5f);
  EXPECT_EQ(s.VLiq[3], 3.5f);
  EXPECT_EQ(c.dT[2], 77);
  EXPECT_EQ(c.dT[3], 77);
}

TEST(LiquidVolumes, LimitDistanceRoundedHalfToEvenOnlyWithBothLimits) {
  Session s;
  pf::Make(s, {"Water", "Water"});
  SetPolynomial(s.ParRho[1], false);  // 250..550 K
  SetPolynomial(s.ParRho[2], false);
  s.ParRho[2].THi = 0;
  LCall c = LV(s, 247.5);
  EXPECT_EQ(c.dT[1], -2);  // -2.5 -> -2
  EXPECT_EQ(c.dT[2], 0);
  c = LV(s, 552.5);
  EXPECT_EQ(c.dT[1], 2);   // 2.5 -> 2
  c = LV(s, 553.5);
  EXPECT_EQ(c.dT[1], 4);   // 3.5 -> 4
  c = LV(s, 400.0);
  EXPECT_EQ(c.dT[1], 0);
}

TEST(LiquidVolumes, FaultLeavesArraysAsTheyStood) {
  Session s;
  pf::Make(s, {"Ethanol", "Benzene"});
  s.ParRho[2][3] = -0.26f;  // negative base to a fractional power
  s.VLiq[1] = 1.5f;
  s.VLiq[2] = 2.5f;
  s.RhoOK = true;
  const LCall c = LV(s, 298.15);
  EXPECT_EQ(c.ok, 0);
  EXPECT_FALSE(s.RhoOK);
  EXPECT_EQ(s.VLiq[1], 1.5f);  // not even the component before the fault is changed
  EXPECT_EQ(s.VLiq[2], 2.5f);
  EXPECT_EQ(c.dT[1], 77);
}

TEST(LiquidVolumes, NonPositiveHugeOrNaNTFails) {
  Session s;
  pf::Make(s, {"Ethanol"});
  s.VLiq[1] = 1.5f;
  for (double T : {0.0, -10.0, 1e300, std::nan(""), double(INFINITY)}) {
    const LCall c = LV(s, T);
    EXPECT_EQ(c.ok, 0) << T;
    EXPECT_EQ(s.VLiq[1], 1.5f);
  }
  // A large but representable T lies above r8: no density for the first component.
  EXPECT_EQ(LV(s, 1e30).ok, 0);
  EXPECT_EQ(s.VLiq[1], 1.5f);
}

TEST(LiquidVolumes, ShortDTVectorIsSized) {
  Session s;
  pf::Make(s, {"Ethanol", "Benzene"});
  peq::Vec<int16_t> dT;
  int16_t ok = 0;
  peq::LiquidVolumes(s, 298.15, dT, ok);
  EXPECT_EQ(ok, -1);
  ASSERT_EQ(dT.size(), 3u);
  EXPECT_EQ(dT[2], 0);
}

TEST(LiquidVolumes, NoComponentsReturnsAtOnce) {
  Session s;
  s.RhoOK = true;
  peq::Vec<int16_t> dT;
  int16_t ok = 0;
  peq::LiquidVolumes(s, 298.15, dT, ok);
  EXPECT_EQ(dT.size(), 0u);
  EXPECT_TRUE(s.RhoOK);
  EXPECT_EQ(s.VLiq.size(), 0u);
}

// ---- EnthalpyVap -------------------------------------------------------------------------

double Dippr106(const peq::ParEnthalpy& a, double T) {
  const double Tr = T / double(a[6]);
  return double(a[0]) * std::exp(-double(a[1]) * Tr) *
         std::pow(1 - Tr, double(a[2]) + a[3] * Tr + a[4] * Tr * Tr + a[5] * Tr * Tr * Tr);
}

TEST(EnthalpyVap, WaterAtItsNormalBoilingPointMatchesReference) {
  // Perry DIPPR-106: A = 52053000 J/kmol, B = 0.3199, C = -0.212, D = 0.25795, Tc = 647.096 K;
  // Tr = 373.124/647.096 = 0.5766131, exponent 0.2834219, dh = 52053 * 0.4233869^0.2834219
  // = 40799.5 J/mol (data tables, worked check: 40.80 kJ/mol; CRC 40.65 kJ/mol).
  Session s;
  pf::Make(s, {"Water"});
  const int32_t h = peq::EnthalpyVap(s, 1, 373.124, false);
  EXPECT_REL(h, 40800, 5e-5);
  EXPECT_REL(h, 40650, 0.01);
}

TEST(EnthalpyVap, IsAWholeNumberOfJoulesPerMoleRoundedHalfToEven) {
  Session s;
  pf::Make(s, {"Ethanol"});
  for (double T : {280.0, 300.0, 351.39, 450.0}) {
    const double exact = Dippr106(s.ParLVH[1], T);
    EXPECT_EQ(peq::EnthalpyVap(s, 1, T, false), static_cast<int32_t>(std::nearbyint(exact))) << T;
  }
  // a0 = 2.5 or 3.5 with a zero exponent: exactly x.5, rounded to the even neighbour.
  peq::ParEnthalpy& a = s.ParLVH[1];
  a = peq::ParEnthalpy{};
  a[6] = 514;
  a.TLo = 200;
  a.THi = 500;
  a[0] = 2.5f;
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 300.0, false), 2);
  a[0] = 3.5f;
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 300.0, false), 4);
  a[0] = -2.5f;
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 300.0, false), -2);
}

TEST(EnthalpyVap, AboveTKritAsSingleIsZero) {
  Session s;
  pf::Make(s, {"Ethanol"});  // TKrit 514 K
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 514.5, true), 0);
  // At Tr = 1 the enthalpy is 0. 514 + 1E-6 is 514 as f32, so not above TKrit; but it lies above
  // the function's Tc (514 K), where the power of a negative base faults: 0 as well.
  peq::MsgSink sink;
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 514.0, true, &sink), 0);
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 514.0 + 1e-6, true, &sink), 0);
  EXPECT_TRUE(sink.empty());
  EXPECT_GT(peq::EnthalpyVap(s, 1, 513.0, true, &sink), 0);
  // With the function's Tc above TKrit the f32 comparison shows: 514 + 1E-6 is computed,
  // 514.001 (above TKrit also as f32) is not.
  s.ParLVH[1][6] = 520.0f;
  EXPECT_GT(peq::EnthalpyVap(s, 1, 514.0 + 1e-6, false), 0);
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 514.001, false), 0);
}

TEST(EnthalpyVap, WarningWhenSixKelvinOrMoreOutside) {
  Session s;
  pf::Make(s, {"Ethanol"});  // limits 159 and 514 K
  s.ParLVH[1].THi = 400;
  peq::MsgSink sink;
  EXPECT_GT(peq::EnthalpyVap(s, 1, 406.0, true, &sink), 0);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "WARNING");
  EXPECT_EQ(sink[0].text,
            "T 406 K outside the T-limit of the parameters\n"
            "(cf. Data/Parameters delta(LV)h = Fu(T))");
  sink.clear();
  peq::EnthalpyVap(s, 1, 405.4, true, &sink);  // dT = 5
  EXPECT_TRUE(sink.empty());
  // Below: dT = Round(TLo - T) counts positive and warns too.
  peq::EnthalpyVap(s, 1, 150.25, true, &sink);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].text,
            "T 150.25 K outside the T-limit of the parameters\n"
            "(cf. Data/Parameters delta(LV)h = Fu(T))");
  sink.clear();
  peq::EnthalpyVap(s, 1, 150.25, false, &sink);
  EXPECT_TRUE(sink.empty());
}

TEST(EnthalpyVap, FaultsGiveZero) {
  Session s;
  pf::Make(s, {"Ethanol"});
  peq::MsgSink sink;
  for (double T : {0.0, -5.0, std::nan("")}) EXPECT_EQ(peq::EnthalpyVap(s, 1, T, true, &sink), 0);
  s.ParLVH[1][6] = 0;  // Tc of the function 0
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 300.0, true, &sink), 0);
  s.ParLVH[1][6] = 400;  // Tr > 1 below TKrit: a negative base to a fractional power
  EXPECT_EQ(peq::EnthalpyVap(s, 1, 450.0, true, &sink), 0);
  EXPECT_TRUE(sink.empty());
  Session zero;
  peq::AllocSession(zero, 1);
  zero.NKomp = 1;
  EXPECT_EQ(peq::EnthalpyVap(zero, 1, 300.0, true, &sink), 0);
  EXPECT_EQ(peq::EnthalpyVap(zero, 2, 300.0, true, &sink), 0);
}

}  // namespace
