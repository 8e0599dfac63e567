// Vapour-phase fugacity coefficients of the gamma-phi concept.
#include "models/vapourphi.h"

#include <cmath>

#include <gtest/gtest.h>

#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_solve.h"
#include "models/eos_test_session.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

using namespace peq;
using peqtest::Comp;

namespace {

Session Binary(int vapModel) {
  Session s = peqtest::MakeSession({peqtest::kBenzene, peqtest::kToluene});
  s.VapModel = static_cast<int16_t>(vapModel);
  // Second virial coefficients of a benzene/toluene-like pair near 360 K, m^3/kmol.
  s.BVir(1, 1) = -1.05;
  s.BVir(2, 2) = -1.70;
  s.BVir(1, 2) = s.BVir(2, 1) = -1.32;
  if (vapModel >= 3) {
    int16_t err;
    EOSSetPure(s, vapModel, err);
  }
  return s;
}

}  // namespace

TEST(VapourPhi, VirialBranchByHand) {
  Session s = Binary(1);
  const double T = 360, p = 150;
  const Vec<double> y = Comp({0.6, 0.4});
  Vec<double> phi(3, 0.0);
  double vV = 0;
  int16_t err = 5;
  CalcVapourPhi(s, T, p, s.BVir, y, phi, vV, err);
  EXPECT_EQ(err, 0);
  // Bm = 0.36 (-1.05) + 2 (0.24) (-1.32) + 0.16 (-1.70) = -1.2868
  const double bm = 0.36 * -1.05 + 0.48 * -1.32 + 0.16 * -1.70;
  EXPECT_REL(std::log(phi[1]), (2 * (0.6 * -1.05 + 0.4 * -1.32) - bm) * p / (kR * T), 1e-14);
  EXPECT_REL(std::log(phi[2]), (2 * (0.6 * -1.32 + 0.4 * -1.70) - bm) * p / (kR * T), 1e-14);
  EXPECT_REL(vV, kR * T / p + bm, 1e-14);
}

TEST(VapourPhi, VirialTakesYUnnormalised) {
  Session s = Binary(2);
  const double T = 360, p = 150;
  Vec<double> phi1(3, 0.0), phi2(3, 0.0);
  double vV;
  int16_t err;
  CalcVapourPhi(s, T, p, s.BVir, Comp({0.6, 0.4}), phi1, vV, err);
  CalcVapourPhi(s, T, p, s.BVir, Comp({0.72, 0.48}), phi2, vV, err);  // same ratio, sum 1.2
  EXPECT_NE(phi1[1], phi2[1]);
  const double bm = 1.44 * (0.36 * -1.05 + 0.48 * -1.32 + 0.16 * -1.70);
  EXPECT_REL(std::log(phi2[1]), (2 * (0.72 * -1.05 + 0.48 * -1.32) - bm) * p / (kR * T), 1e-14);
}

TEST(VapourPhi, VirialAtLowTemperatureStillEvaluates) {
  Session s = Binary(1);
  s.BVir(1, 1) = -25.0;  // a T far below the pair's critical temperature
  Vec<double> phi(3, 0.0);
  double vV;
  int16_t err;
  CalcVapourPhi(s, 150.0, 1.0, s.BVir, Comp({0.5, 0.5}), phi, vV, err);
  EXPECT_EQ(err, 0);
  EXPECT_TRUE(std::isfinite(phi[1]));
}

TEST(VapourPhi, IdealGasGivesOne) {
  Session s = Binary(0);
  Vec<double> phi(3, 7.0);
  double vV;
  int16_t err;
  CalcVapourPhi(s, 360, 150, s.BVir, Comp({0.6, 0.4}), phi, vV, err);
  EXPECT_EQ(phi[1], 1.0);
  EXPECT_EQ(phi[2], 1.0);
  EXPECT_REL(vV, kR * 360 / 150, 1e-14);
}

TEST(VapourPhi, EOSBranchUsesTheVapourRootAndKijAt) {
  for (int model : {3, 4, 5}) {
    Session s = Binary(model);
    peqtest::SetSlot(s, 1, 1, 2, 500.0);  // a gE parameter: must not act as k(ij)
    peqtest::SetSlot(s, 13, 1, 2, 0.02);
    const double T = 360, p = 150;
    const Vec<double> y = Comp({0.6, 0.4});
    Vec<double> phi(3, 0.0);
    double vV = 0;
    int16_t err = 5;
    CalcVapourPhi(s, T, p, s.BVir, y, phi, vV, err);
    ASSERT_EQ(err, 0);
    EXPECT_EQ(s.CompMat[1][1], 0.6);
    // Same by hand: geometric rule with k = 0.02 on a, linear b, c, d.
    EOSPureAt(s, T);
    const double a1 = s.EOSPar[1][1], a2 = s.EOSPar[1][2];
    const double a = 0.36 * a1 + 2 * 0.24 * std::sqrt(a1 * a2) * 0.98 + 0.16 * a2;
    double bcd[3];
    for (int k = 0; k < 3; ++k) bcd[k] = 0.6 * s.EOSPar[k + 2][1] + 0.4 * s.EOSPar[k + 2][2];
    EOSRoots r{};
    int16_t nr, e;
    EOSSolve(T, p, 0, a, bcd[0], bcd[1], bcd[2], r, nr, e);
    EXPECT_REL(vV, VapourRoot(r, nr), 1e-12);
    const double da1 = 2 * (0.6 * a1 + 0.4 * std::sqrt(a1 * a2) * 0.98 - a);
    const double phi1 = EOSLnPhi(T, p, vV, model, a, bcd[0], bcd[1], bcd[2], da1, s.EOSPar[2][1] - bcd[0],
                                 s.EOSPar[3][1] - bcd[1], s.EOSPar[4][1] - bcd[2]);
    EXPECT_REL(phi[1], phi1, 1e-12) << model;
    // sum y ln phi = ln phi of the vapour.
    EXPECT_REL(0.6 * std::log(phi[1]) + 0.4 * std::log(phi[2]),
               EOSLnPhiMix(T, p, vV, model, a, bcd[0], bcd[1], bcd[2]), 1e-8);
  }
}

TEST(VapourPhi, EOSFailureSetsErrOneAndPhiOne) {
  Session s = Binary(4);
  Vec<double> phi(3, 7.0);
  double vV = 3;
  int16_t err = 0;
  CalcVapourPhi(s, 360, 0.0, s.BVir, Comp({0.6, 0.4}), phi, vV, err);
  EXPECT_EQ(err, 1);
  EXPECT_EQ(phi[1], 1.0);
  EXPECT_EQ(phi[2], 1.0);
}

TEST(VapourPhi, PhiFactorJoinsPoyntingAndSaturatedVapour) {
  Session s = Binary(1);
  s.VLiq[1] = 0.0958f;
  s.VLiq[2] = 0.1142f;
  s.P0[1] = 130.0f;
  s.P0[2] = 52.0f;
  s.Phi0[1] = 0.96;
  s.Phi0[2] = 0.975;
  const Vec<double> phi = Comp({0.95, 0.93});
  Vec<double> pk(3, 0.0);
  const double T = 360, p = 100;
  CalcPhiFactor(s, phi, T, p, pk);
  const double v1 = s.VLiq[1], p01 = s.P0[1];
  EXPECT_REL(pk[1], std::exp(-v1 * (p - p01) / (kR * T)) * 0.95 / 0.96, 1e-14);
  const double v2 = s.VLiq[2], p02 = s.P0[2];
  EXPECT_REL(pk[2], std::exp(-v2 * (p - p02) / (kR * T)) * 0.93 / 0.975, 1e-14);
  s.Phi0[2] = 0.0;
  EXPECT_THROW(CalcPhiFactor(s, phi, T, p, pk), NumericFault);
}
