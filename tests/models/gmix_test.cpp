// GMix: delta(M)g of a binary and its first two derivatives with respect to x2.
#include <gtest/gtest.h>

#include <cmath>

#include "models/gmix.h"
#include "unifac_fixture.h"

using acttest::Inkr;
using acttest::MakeSession;
using acttest::SetSlot;

namespace {

constexpr double kRgas = 8.31451;

peq::Session Binary(int16_t model) {
  switch (model) {
    case 1: {
      peq::Session s = MakeSession(2, 1);
      s.ParUnitWilson = 2;
      SetSlot(s, 1, 1, 2, 0.154);
      SetSlot(s, 4, 1, 2, 0.888);
      return s;
    }
    case 2: {
      peq::Session s = MakeSession(2, 2);
      s.ParUnitNRTL = 3;
      SetSlot(s, 1, 1, 2, -61.02);
      SetSlot(s, 4, 1, 2, 673.2);
      SetSlot(s, 7, 1, 2, 0.2974);
      return s;
    }
    case 4: {
      peq::Session s = MakeSession(2, 4);
      SetSlot(s, 1, 1, 2, 0.8);
      SetSlot(s, 4, 1, 2, 0.2);
      SetSlot(s, 7, 1, 2, 0.1);
      SetSlot(s, 10, 1, 2, 0.05);
      return s;
    }
    case 9: {
      peq::Session s = MakeSession(2, 9);
      s.ParUnitUNIQUAC = 3;
      s.StoffData[1].RUniquac = 2.11f;
      s.StoffData[1].QUniquac = 1.97f;
      s.StoffData[2].RUniquac = 0.92f;
      s.StoffData[2].QUniquac = 1.40f;
      SetSlot(s, 1, 1, 2, 87.46);
      SetSlot(s, 4, 1, 2, 55.29);
      return s;
    }
    case 20:
      return acttest::ModSession({Inkr({{1, 1}, {1, 18}}), Inkr({{6, 9}})}, acttest::ShippedModFile());
    default:
      return acttest::OUnifSession({Inkr({{2, 1}, {4, 2}}), Inkr({{1, 1}, {1, 2}, {1, 18}})},
                                   acttest::ShippedOUnifFile());
  }
}

double Mode0(peq::Session& s, double T, double x2, double& gid, double& ge) {
  double gm = 0;
  int16_t err = 1;
  peq::GMix(s, T, 0, x2, gid, ge, gm, err);
  EXPECT_EQ(err, 0);
  return gm;
}

class GMixEveryModel : public ::testing::TestWithParam<int> {};

}  // namespace

// Mode 1 is the first and mode 2 the second derivative of mode 0 with respect to x2 (central
// differences of mode 0 here): GE, Gid and GM each.
TEST_P(GMixEveryModel, Modes1And2AreDerivativesOfMode0) {
  peq::Session s = Binary(static_cast<int16_t>(GetParam()));
  const double T = 340.0;
  for (double x2 : {0.2, 0.5, 0.8}) {
    const double h = 1E-4;
    double gidP, geP, gidM, geM, gid0, ge0;
    const double gmP = Mode0(s, T, x2 + h, gidP, geP);
    const double gmM = Mode0(s, T, x2 - h, gidM, geM);
    const double gm0 = Mode0(s, T, x2, gid0, ge0);
    double gid1 = 0, ge1 = 0, gm1 = 0, gid2 = 0, ge2 = 0, gm2 = 0;
    int16_t err = 1;
    peq::GMix(s, T, 1, x2, gid1, ge1, gm1, err);
    EXPECT_EQ(err, 0);
    peq::GMix(s, T, 2, x2, gid2, ge2, gm2, err);
    EXPECT_EQ(err, 0);
    const double scale = kRgas * T;
    EXPECT_NEAR(ge1, (geP - geM) / (2 * h), 1e-5 * scale) << "x2 " << x2;
    EXPECT_NEAR(gid1, (gidP - gidM) / (2 * h), 1e-5 * scale) << "x2 " << x2;
    EXPECT_NEAR(gm1, (gmP - gmM) / (2 * h), 1e-5 * scale) << "x2 " << x2;
    // Mode 2 is a forward difference with step 1E-5: its own error is about 1E-5 times the
    // third derivative.
    EXPECT_NEAR(ge2, (geP - 2 * ge0 + geM) / (h * h), 2e-3 * scale) << "x2 " << x2;
    EXPECT_NEAR(gid2, (gidP - 2 * gid0 + gidM) / (h * h), 1e-3 * scale) << "x2 " << x2;
    EXPECT_NEAR(gm2, (gmP - 2 * gm0 + gmM) / (h * h), 3e-3 * scale) << "x2 " << x2;
  }
}

INSTANTIATE_TEST_SUITE_P(ActivityModels, GMixEveryModel, ::testing::Values(1, 2, 4, 9, 20, 21));

// Mode 0 by hand for Wilson (Lambda 0.154, 0.888) at x2 = 0.748: GE = R T (x1 ln g1 + x2 ln g2)
// with ln g1 = 0.6320654, ln g2 = 0.1532167 (the hand calculation of the Wilson test), Gid =
// R T (x1 ln x1 + x2 ln x2); the Gamma array is left with the gamma of the call.
TEST(GMix, Mode0ByHand) {
  peq::Session s = Binary(1);
  double gid = 0, ge = 0, gm = 0;
  int16_t err = 1;
  peq::GMix(s, 343.15, 0, 0.748, gid, ge, gm, err);
  EXPECT_EQ(err, 0);
  const double RT = kRgas * 343.15;
  EXPECT_REL(ge, RT * (0.252 * 0.6320654 + 0.748 * 0.1532167), 1e-6);
  EXPECT_REL(gid, RT * (0.252 * std::log(0.252) + 0.748 * std::log(0.748)), 1e-12);
  EXPECT_EQ(gm, gid + ge);
  EXPECT_REL(s.Gamma[1], 1.881493, 1e-6);
}

// x2 above 1 is taken as 1; at the ends Gid of mode 0 is 0; modes 1 and 2 leave Gid unchanged.
TEST(GMix, EndsOfTheCompositionRange) {
  peq::Session s = Binary(1);
  double gid = 99, ge = 0, gm = 0;
  int16_t err = 1;
  peq::GMix(s, 343.15, 0, 1.5, gid, ge, gm, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(gid, 0.0);
  EXPECT_NEAR(ge, 0.0, 1e-9);
  gid = 99;
  peq::GMix(s, 343.15, 0, 0.0, gid, ge, gm, err);
  EXPECT_EQ(gid, 0.0);
  gid = 99;
  peq::GMix(s, 343.15, 1, 0.0, gid, ge, gm, err);
  EXPECT_EQ(gid, 99.0);
  EXPECT_EQ(gm, 99.0 + ge);
  // ln(g2/g1) at x2 = 0 for Wilson: ln g1 = 0, ln g2(x2 -> 0) = 1 - ln L21 - L12.
  EXPECT_REL(ge, kRgas * 343.15 * (1.0 - std::log(0.888) - 0.154), 1e-12);
  gid = 99;
  peq::GMix(s, 343.15, 2, 1.2, gid, ge, gm, err);
  EXPECT_EQ(gid, 99.0);
  // Mode 2 at x2 = 0.5: Gid = R T/(x1 x2) = 4 R T.
  peq::GMix(s, 343.15, 2, 0.5, gid, ge, gm, err);
  EXPECT_REL(gid, 4.0 * kRgas * 343.15, 1e-14);
}

// A failed gamma call gives err -1 (gamma 1, GE 0).
TEST(GMix, FailureOfTheModel) {
  peq::Session s = MakeSession(2, 1);
  s.ParUnitWilson = 2;
  SetSlot(s, 1, 1, 2, -5.0);
  double gid = 0, ge = 1, gm = 0;
  int16_t err = 0;
  peq::GMix(s, 300.0, 0, 0.5, gid, ge, gm, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(ge, 0.0);
}
