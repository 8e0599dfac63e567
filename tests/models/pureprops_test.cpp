// All pure-component properties at one T, and Phi0.
#include "models/pureprops.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "models/eos_pure.h"
#include "models/liquid.h"
#include "models/pure_fixtures.h"
#include "models/vappressure.h"
#include "models/virial.h"
#include "support/fuzzy.h"

namespace {

using peq::Session;
namespace pf = peqtest::pure;

constexpr double kR = 8.31451;

Session Mixture(std::initializer_list<const char*> names, int16_t vapModel) {
  Session s;
  pf::Make(s, names);
  int16_t err = 0;
  peq::PairCrit(s, err);
  s.VapModel = vapModel;
  return s;
}

bool AnyNaN(const Session& s) {
  for (int i = 0; i <= s.NKomp; ++i) {
    if (std::isnan(s.P0[i]) || std::isnan(s.VLiq[i]) || std::isnan(s.Phi0[i])) return true;
    for (int j = 0; j <= s.NKomp; ++j)
      if (std::isnan(s.BVir(i, j))) return true;
  }
  return false;
}

// ---- Phi0 --------------------------------------------------------------------------------

TEST(Phi0, VirialModelIsExpOfP0BOverRT) {
  // p0 = 101.325 kPa, B = -1 m^3/kmol, T = 350 K: ln phi0 = -101.325/(8.31451*350) = -0.0348184,
  // phi0 = 0.9657808
  for (int16_t model : {1, 2}) {
    Session s = Mixture({"Benzene"}, model);
    s.P0[1] = 101.325f;
    s.BVir(1, 1) = -1.0;
    EXPECT_EQ(peq::CalcPhi0(s, 350.0), 0);
    EXPECT_REL(s.Phi0[1], 0.9657808, 1e-6);
    EXPECT_REL(s.Phi0[1], std::exp(double(101.325f) * -1.0 / (kR * 350.0)), 1e-14);
  }
}

TEST(Phi0, IdealGasIsOne) {
  Session s = Mixture({"Benzene", "Ethanol"}, 0);
  s.P0[1] = 101.325f;
  s.BVir(1, 1) = -1.0;
  EXPECT_EQ(peq::CalcPhi0(s, 350.0), 0);
  EXPECT_EQ(s.Phi0[1], 1.0);
  EXPECT_EQ(s.Phi0[2], 1.0);
}

// The EOS branch: phi of the saturated vapour of benzene at 350 K (p0 = 91.7 kPa) from RK, SRK
// and PR. A real gas this far below Tc sits close to the second-virial value exp(B p0/(R T))
// with B of Pitzer-Curl (about -1.0 m^3/kmol): phi0 = 0.97; the cubic equations agree within 1 %.
TEST(Phi0, EquationOfStateBranchUsesTheVapourRootOfThePureComponent) {
  for (int16_t model : {3, 4, 5}) {
    Session s = Mixture({"Benzene"}, model);
    int16_t err = 0;
    peq::EOSSetPure(s, model, err);
    ASSERT_EQ(err, 0);
    std::string code = "WAG";
    int16_t dT = 0;
    s.P0[1] = peq::VapPressure(s, 1, 350.0, code, false, dT);
    ASSERT_GT(s.P0[1], 80.0f);
    ASSERT_EQ(peq::CalcPhi0(s, 350.0), 0);
    Session v = Mixture({"Benzene"}, 1);
    ASSERT_EQ(peq::SecondVirial(v, 350.0), 0);
    const double virial = std::exp(double(s.P0[1]) * v.BVir(1, 1) / (kR * 350.0));
    EXPECT_LT(s.Phi0[1], 1.0) << model;
    EXPECT_REL(s.Phi0[1], virial, 0.01) << model;
  }
}

TEST(Phi0, EquationOfStateBranchFailsWithoutAVapourPressureAndLeavesPhi0) {
  Session s = Mixture({"Benzene"}, 5);
  int16_t err = 0;
  peq::EOSSetPure(s, 5, err);
  s.P0[1] = 0;
  s.Phi0[1] = 0.5;
  EXPECT_EQ(peq::CalcPhi0(s, 350.0), -1);
  EXPECT_EQ(s.Phi0[1], 0.5);
}

TEST(Phi0, FaultLeavesPhi0AsItStood) {
  Session s = Mixture({"Benzene", "Ethanol"}, 1);
  s.P0[1] = 100;
  s.P0[2] = 1e30f;
  s.BVir(1, 1) = -1;
  s.BVir(2, 2) = 1;  // exp(1E30/(R T)) overflows
  s.Phi0[1] = s.Phi0[2] = 0.5;
  EXPECT_EQ(peq::CalcPhi0(s, 350.0), -1);
  EXPECT_EQ(s.Phi0[1], 0.5);
  EXPECT_EQ(s.Phi0[2], 0.5);
  EXPECT_EQ(peq::CalcPhi0(s, 0.0), -1);
}

// ---- AllPureProps ------------------------------------------------------------------------

TEST(AllPureProps, FillsEveryArrayAsTheSingleRoutinesDo) {
  Session s = Mixture({"Ethanol", "Benzene", "n-Hexane"}, 1);
  s.P0Eq[2] = "WAG";
  s.P0Eq[3] = "FRO";
  int16_t err = 9, dT = 9;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(dT, 0);

  Session r = Mixture({"Ethanol", "Benzene", "n-Hexane"}, 1);
  r.P0Eq = s.P0Eq;
  for (int i = 1; i <= 3; ++i) {
    int16_t d = 0;
    EXPECT_EQ(s.P0[i], peq::VapPressure(r, i, 340.0, r.P0Eq[i], false, d)) << i;
  }
  peq::Vec<int16_t> dTl(4);
  int16_t ok = 0;
  peq::LiquidVolumes(r, 340.0, dTl, ok);
  ASSERT_EQ(ok, -1);
  EXPECT_TRUE(s.RhoOK);
  ASSERT_EQ(peq::SecondVirial(r, 340.0), 0);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(s.VLiq[i], r.VLiq[i]);
    for (int j = 1; j <= 3; ++j) EXPECT_EQ(s.BVir(i, j), r.BVir(i, j));
    EXPECT_REL(s.Phi0[i], std::exp(double(s.P0[i]) * s.BVir(i, i) / (kR * 340.0)), 1e-14);
    EXPECT_LT(s.Phi0[i], 1.0);
    EXPECT_GT(s.Phi0[i], 0.9);
  }
}

TEST(AllPureProps, LimitDistanceComesFromTheVapourPressures) {
  Session s = Mixture({"Ethanol", "Benzene"}, 1);  // ANTOINE limits 277..370 and 280..377 K
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, 385.0, err, dT);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(dT, 8);  // benzene, the last one found
}

TEST(AllPureProps, ComponentWithoutP0GivesMinusIAndTheRestIsDone) {
  Session s = Mixture({"Ethanol", "Benzene", "n-Hexane"}, 1);
  s.P0Eq[2] = "XYZ";
  s.Phi0.fill(0.5);
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, -2);
  EXPECT_EQ(s.P0[2], 0.0f);
  EXPECT_GT(s.VLiq[3], 0.0f);
  EXPECT_LT(s.BVir(3, 3), 0.0);
  EXPECT_REL(s.Phi0[1], std::exp(double(s.P0[1]) * s.BVir(1, 1) / (kR * 340.0)), 1e-14);
  EXPECT_EQ(s.Phi0[2], 1.0);  // exp(0)
}

TEST(AllPureProps, Phi0SkippedOnlyWhenErrIsExactlyMinusOne) {
  Session s = Mixture({"Ethanol", "Benzene"}, 1);
  s.P0Eq[1] = "XYZ";
  s.Phi0.fill(0.5);
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(s.Phi0[1], 0.5);
  EXPECT_EQ(s.Phi0[2], 0.5);
  EXPECT_LT(s.BVir(2, 2), 0.0);  // the virial coefficients are still computed

  // Both without p0: the last one found is reported, -2, and Phi0 runs.
  s.P0Eq[2] = "XYZ";
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, -2);
  EXPECT_EQ(s.Phi0[1], 1.0);
}

TEST(AllPureProps, SecondVirialFailureGivesFour) {
  Session s = Mixture({"Ethanol", "Benzene"}, 2);
  s.PcMix(2, 2) = 0;
  s.BVir(1, 1) = -0.7;
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, 4);
  EXPECT_EQ(s.BVir(1, 1), -0.7);  // as it stood; Phi0 then runs on it
  EXPECT_REL(s.Phi0[1], std::exp(double(s.P0[1]) * -0.7 / (kR * 340.0)), 1e-14);
}

TEST(AllPureProps, Phi0FailureGivesThree) {
  // Equation-of-state vapour: the Phi0 of the cubic equation is not there yet.
  Session s = Mixture({"Ethanol", "Benzene"}, 4);
  int16_t err = 0, dT = 0;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, 3);

  // Virial vapour with an overflowing exp(p0 B/(R T)): A = 30 gives p0 ~ 1E30 kPa, and at
  // 3000 K B(1,1) of ethanol is positive.
  s = Mixture({"Ethanol", "Benzene"}, 1);
  s.ParALP[1].A = 30.0f;
  s.Phi0.fill(0.5);
  peq::AllPureProps(s, 3000.0, err, dT);
  EXPECT_EQ(err, 3);
  EXPECT_EQ(s.Phi0[1], 0.5);
  EXPECT_EQ(s.Phi0[2], 0.5);
  EXPECT_FALSE(AnyNaN(s));
}

// In the global concept p0 comes from the EOS: below Tc a saturation pressure, 0 at or above Tc.
TEST(AllPureProps, GlobalConceptTakesP0FromTheEquationOfState) {
  Session s = Mixture({"Ethanol", "Benzene"}, 0);
  s.Konzept = true;
  s.EOSModel = 5;
  int16_t err = 0, dT = 0;
  peq::EOSSetPure(s, 5, err);
  ASSERT_EQ(err, 0);
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, 0);
  // Peng-Robinson reproduces the vapour pressure of these substances within a few per cent.
  std::string code = "WAG";
  int16_t d = 0;
  EXPECT_REL(s.P0[2], peq::VapPressure(s, 2, 340.0, code, false, d), 0.05);
  EXPECT_GT(s.P0[1], 0.0f);
  EXPECT_LT(s.Phi0[2], 1.0);
  peq::AllPureProps(s, 600.0, err, dT);  // above both critical temperatures
  EXPECT_EQ(s.P0[1], 0.0f);
  EXPECT_EQ(s.P0[2], 0.0f);
  // err -2 from the p0 of component 2; Phi0 still runs (err is not -1) and fails on p0 = 0: 3.
  EXPECT_EQ(err, 3);
}

TEST(AllPureProps, NoComponentsReturnsAtOnceWithNoChange) {
  Session s;
  s.VapModel = 1;
  s.RhoOK = true;
  int16_t err = 7, dT = 7;
  peq::AllPureProps(s, 340.0, err, dT);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(dT, 0);
  EXPECT_TRUE(s.RhoOK);
  EXPECT_EQ(s.P0.size(), 0u);
  EXPECT_EQ(s.PureWork.DTLiq.size(), 0u);
}

TEST(AllPureProps, SlotZeroIsNeverRead) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  Session clean = Mixture({"Ethanol", "Benzene"}, 1);
  Session dirty = Mixture({"Ethanol", "Benzene"}, 1);
  dirty.MolMasse[0] = dirty.TKrit[0] = dirty.PKrit[0] = dirty.RhoKrit[0] = dirty.Omega[0] =
      static_cast<float>(nan);
  dirty.TSiede[0] = dirty.P0[0] = dirty.VLiq[0] = static_cast<float>(nan);
  dirty.Phi0[0] = nan;
  for (int j = 0; j <= 2; ++j) {
    dirty.TcMix(0, j) = dirty.TcMix(j, 0) = nan;
    dirty.PcMix(0, j) = dirty.PcMix(j, 0) = nan;
    dirty.OmegaMix(0, j) = dirty.OmegaMix(j, 0) = nan;
    dirty.BVir(0, j) = dirty.BVir(j, 0) = nan;
  }
  for (int k = 0; k < 10; ++k) dirty.ParFRO[0][k] = static_cast<float>(nan);
  dirty.ParRho[0][8] = 1e9f;
  dirty.ParRho[0][2] = static_cast<float>(nan);
  dirty.P0Eq[0] = "ALP";
  dirty.ParALP[0].A = static_cast<float>(nan);

  int16_t e1 = 0, d1 = 0, e2 = 0, d2 = 0;
  peq::AllPureProps(clean, 340.0, e1, d1);
  peq::AllPureProps(dirty, 340.0, e2, d2);
  EXPECT_EQ(e1, e2);
  EXPECT_EQ(d1, d2);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(clean.P0[i], dirty.P0[i]);
    EXPECT_EQ(clean.VLiq[i], dirty.VLiq[i]);
    EXPECT_EQ(clean.Phi0[i], dirty.Phi0[i]);
    for (int j = 1; j <= 2; ++j) EXPECT_EQ(clean.BVir(i, j), dirty.BVir(i, j));
  }
  EXPECT_TRUE(std::isnan(dirty.P0[0]));
  EXPECT_TRUE(std::isnan(dirty.Phi0[0]));
  EXPECT_TRUE(std::isnan(dirty.BVir(0, 1)));
}

TEST(AllPureProps, NoNaNAfterAnyFault) {
  for (double T : {0.0, -1.0, 1e-300, 1e300, std::nan(""), 1e6}) {
    Session s = Mixture({"Ethanol", "Benzene", "Water"}, 1);
    int16_t err = 0, dT = 0;
    peq::AllPureProps(s, T, err, dT);
    EXPECT_NE(err, 0) << T;
    EXPECT_FALSE(AnyNaN(s)) << T;
  }
}

}  // namespace
