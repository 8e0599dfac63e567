// Pure-component parameters of the cubic equations of state.
#include "models/eos_pure.h"

#include <cmath>

#include <gtest/gtest.h>

#include "models/eos_test_session.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

using namespace peq;
using peqtest::kBenzene;
using peqtest::kHexane;
using peqtest::kWater;
using peqtest::MakeSession;

TEST(EOSPure, PengRobinsonOmegasFromTheClosedForm) {
  // Published values of the exact constants: Omega_b = 0.0777960739, Omega_a = 0.4572355289
  // (the reference table of the shared data quotes 0.077796074 and 0.457235529).
  const double A = EOSOmegaA(5), B = EOSOmegaB(5);
  EXPECT_REL(B, 0.0777960739, 1e-9);
  EXPECT_REL(A, 0.4572355289, 1e-9);
  // At the critical point the PR cubic in Z, Z^3 - (1 - B) Z^2 + (A - 3 B^2 - 2 B) Z
  // - (A B - B^2 - B^3) = 0, has the triple root Zc: 3 Zc = 1 - B, 3 Zc^2 = A - 3 B^2 - 2 B,
  // Zc^3 = A B - B^2 - B^3 (Peng and Robinson, 1976).
  const double zc = (1.0 - B) / 3.0;
  EXPECT_REL(3.0 * zc * zc, A - 3.0 * B * B - 2.0 * B, 1e-12);
  EXPECT_REL(zc * zc * zc, A * B - B * B - B * B * B, 1e-12);
  EXPECT_REL(zc, 0.3074, 1e-4);
}

TEST(EOSPure, RedlichKwongOmegas) {
  // Oa = 1/(9 (2^(1/3) - 1)) = 0.4274802336, Ob = (2^(1/3) - 1)/3 = 0.0866403500 (Redlich and
  // Kwong, Chem. Rev. 44 (1949) 233).
  EXPECT_REL(EOSOmegaA(3), 0.4274802336, 1e-9);
  EXPECT_REL(EOSOmegaB(3), 0.0866403500, 1e-8);
  EXPECT_EQ(EOSOmegaA(4), EOSOmegaA(3));
  EXPECT_EQ(EOSOmegaB(4), EOSOmegaB(3));
  EXPECT_REL(EOSOmegaA(6), 27.0 / 64.0, 1e-15);
  EXPECT_REL(EOSOmegaB(6), 1.0 / 8.0, 1e-15);
}

TEST(EOSPure, CriticalCompressibilityOfEachModel) {
  EXPECT_EQ(EOSZc(3), 1.0 / 3.0);
  EXPECT_EQ(EOSZc(4), 1.0 / 3.0);
  EXPECT_EQ(EOSZc(5), 0.3074);
  EXPECT_EQ(EOSZc(6), 3.0 / 8.0);
  EXPECT_EQ(EOSZc(7), 3.0 / 8.0);
}

TEST(EOSPure, SetPureFillsTheTableOfEveryModel) {
  Session s = MakeSession({kHexane, kWater});
  const double R = kR;
  for (int model = 3; model <= 7; ++model) {
    int16_t err = 5;
    EOSSetPure(s, model, err);
    ASSERT_EQ(err, 0) << model;
    for (int i = 1; i <= 2; ++i) {
      const double tc = s.TKrit[i], pc = s.PKrit[i], w = s.Omega[i];
      const double ob = EOSOmegaB(model), oa = EOSOmegaA(model);
      SCOPED_TRACE(model * 10 + i);
      EXPECT_REL(s.EOSb0[i], ob * R * tc / pc, 1e-14);
      EXPECT_EQ(s.EOSbExp[i], 0.0);
      EXPECT_EQ(s.EOScExp[i], 0.0);
      EXPECT_EQ(s.EOSdExp[i], 0.0);
      EXPECT_REL(s.VKrit[i], EOSZc(model) * R * tc / pc, 1e-14);
      EXPECT_REL(s.RhoKritEOS[i], s.MolMasse[i] / s.VKrit[i], 1e-14);
      switch (model) {
        case 3:
          EXPECT_REL(s.EOSa0[i], oa * R * R * std::pow(tc, 2.5) / pc, 1e-14);
          EXPECT_EQ(s.EOSaExp[i], -0.5);
          EXPECT_EQ(s.EOSc0[i], 0.0);
          EXPECT_EQ(s.EOSd0[i], s.EOSb0[i]);
          EXPECT_EQ(s.AlphaArt[i], 1);
          break;
        case 4:
          EXPECT_REL(s.EOSa0[i], oa * R * R * tc * tc / pc, 1e-14);
          EXPECT_REL(s.EOSaExp[i], 0.48 + 1.574 * w - 0.176 * w * w, 1e-14);
          EXPECT_EQ(s.EOSc0[i], 0.0);
          EXPECT_EQ(s.EOSd0[i], s.EOSb0[i]);
          EXPECT_EQ(s.AlphaArt[i], 2);
          break;
        case 5:
          EXPECT_REL(s.EOSa0[i], oa * R * R * tc * tc / pc, 1e-14);
          EXPECT_REL(s.EOSaExp[i], 0.37464 + 1.54226 * w - 0.26992 * w * w, 1e-14);
          EXPECT_REL(s.EOSc0[i], (1.0 - std::sqrt(2.0)) * s.EOSb0[i], 1e-14);
          EXPECT_REL(s.EOSd0[i], (1.0 + std::sqrt(2.0)) * s.EOSb0[i], 1e-14);
          EXPECT_EQ(s.AlphaArt[i], 2);
          break;
        case 6:
          EXPECT_REL(s.EOSa0[i], 27.0 / 64.0 * R * R * tc * tc / pc, 1e-14);
          EXPECT_EQ(s.EOSaExp[i], 0.0);
          EXPECT_EQ(s.EOSc0[i], 0.0);
          EXPECT_EQ(s.EOSd0[i], 0.0);
          EXPECT_EQ(s.AlphaArt[i], 1);
          break;
        case 7:
          EXPECT_EQ(s.EOSaExp[i], -1.0);
          EXPECT_REL(s.EOSb0[i], R * tc / (8.0 * pc), 1e-14);
          EXPECT_EQ(s.AlphaArt[i], 1);
          break;
      }
    }
  }
}

TEST(EOSPure, SetPureRejectsAnUnknownCode) {
  Session s = MakeSession({kHexane});
  for (int model : {0, 1, 2, 8, -1}) {
    int16_t err = 0;
    EOSSetPure(s, model, err);
    EXPECT_EQ(err, -1) << model;
  }
}

TEST(EOSPure, SetPureFailsWithoutCriticalPressure) {
  Session s = MakeSession({kHexane, kBenzene});
  s.PKrit[2] = 0;
  int16_t err = 0;
  EOSSetPure(s, 5, err);
  EXPECT_NE(err, 0);
}

TEST(EOSPure, ParametersAtTForEachAlphaForm) {
  Session s = MakeSession({kHexane});
  const double T = 400.0;
  int16_t err;
  EOSSetPure(s, 3, err);
  EOSPureAt(s, T);
  EXPECT_REL(s.EOSPar[1][1], s.EOSa0[1] / std::sqrt(T), 1e-14);
  EOSSetPure(s, 5, err);
  EOSPureAt(s, T);
  const double m = s.EOSaExp[1];
  const double alpha = 1.0 + (1.0 - std::sqrt(T / s.TKrit[1])) * m;
  EXPECT_REL(s.EOSPar[1][1], alpha * alpha * s.EOSa0[1], 1e-14);
  EXPECT_EQ(s.EOSPar[2][1], s.EOSb0[1]);
  EXPECT_EQ(s.EOSPar[3][1], s.EOSc0[1]);
  EXPECT_EQ(s.EOSPar[4][1], s.EOSd0[1]);
  // At T = Tc the Soave alpha is 1.
  EOSPureAt(s, s.TKrit[1]);
  EXPECT_REL(s.EOSPar[1][1], s.EOSa0[1], 1e-14);
  EOSSetPure(s, 7, err);
  EOSPureAt(s, T);
  EXPECT_REL(s.EOSPar[1][1], s.EOSa0[1] / T, 1e-14);
}

TEST(EOSPure, PureAtBelowOneMicroKelvinDoesNothing) {
  Session s = MakeSession({kHexane});
  int16_t err;
  EOSSetPure(s, 5, err);
  EOSPureAt(s, 350.0);
  const double a = s.EOSPar[1][1];
  EOSPureAt(s, 0.0);
  EOSPureAt(s, 9e-7);
  EOSPureAt(s, -5.0);
  EXPECT_EQ(s.EOSPar[1][1], a);
}

TEST(EOSPure, PureAtNegativeTemperatureFaultsForSoaveAlpha) {
  Session s = MakeSession({kHexane});
  int16_t err;
  EOSSetPure(s, 4, err);
  double a, b, c, d;
  EXPECT_THROW(EOSPureAtOne(s, 1, -10.0, a, b, c, d), NumericFault);
}

TEST(EOSPure, TemperatureDerivativesMatchCentralDifferences) {
  Session s = MakeSession({kHexane, kWater});
  for (int model = 3; model <= 7; ++model) {
    int16_t err;
    EOSSetPure(s, model, err);
    // Give b, c, d a T dependence too so that their derivatives are exercised.
    s.EOSbExp[2] = 0.3;
    s.EOScExp[2] = -0.2;
    s.EOSdExp[2] = 0.1;
    if (model == 6 || model == 7) s.EOSc0[2] = s.EOSd0[2] = 0.01;
    // First derivatives against central differences of the parameters, second derivatives
    // against central differences of the analytic first derivatives.
    const double T = 410.0, h = 1e-2;
    Session sp = s, sm = s;
    EOSPureDT(sp, T + h);
    EOSPureDT(sm, T - h);
    EOSPureDT(s, T);
    for (int i = 1; i <= 2; ++i)
      for (int k = 1; k <= 4; ++k) {
        double vp[5], vm[5];
        EOSPureAtOne(s, i, T + h, vp[1], vp[2], vp[3], vp[4]);
        EOSPureAtOne(s, i, T - h, vm[1], vm[2], vm[3], vm[4]);
        const double d1 = (vp[k] - vm[k]) / (2 * h);
        const double d2 = (sp.EOSParDT[k][i] - sm.EOSParDT[k][i]) / (2 * h);
        SCOPED_TRACE(model * 100 + i * 10 + k);
        EXPECT_TRUE(peqtest::Near(s.EOSParDT[k][i], d1, 1e-6, 1e-14));
        EXPECT_TRUE(peqtest::Near(s.EOSParD2T[k][i], d2, 1e-6, 1e-16));
      }
  }
}

TEST(EOSPure, KijAtIsTheFourTermFunctionOfTheSlots13To16) {
  Session s = MakeSession({kHexane, kBenzene});
  peqtest::SetSlot(s, 13, 1, 2, 0.01);
  peqtest::SetSlot(s, 14, 1, 2, 3.0);
  peqtest::SetSlot(s, 15, 1, 2, -0.002);
  peqtest::SetSlot(s, 16, 1, 2, 1e-5);
  const double T = 350.0;
  // Hand: 0.01 + 3/350 - 0.002 ln 350 + 1e-5 (350 - 273.15)
  const double expect = 0.01 + 3.0 / 350.0 - 0.002 * std::log(350.0) + 1e-5 * (350.0 - 273.15);
  EXPECT_REL(KijAt(s, 1, 2, T), expect, 1e-14);
  EXPECT_REL(KijAt(s, 2, 1, T), expect, 1e-14);
  // The slots are GEPar(7,i,j), GEPar(8,i,j), GEPar(7,j,i), GEPar(8,j,i).
  EXPECT_EQ(s.GEPar(7, 1, 2), 0.01);
  EXPECT_EQ(s.GEPar(8, 1, 2), 3.0);
  EXPECT_EQ(s.GEPar(7, 2, 1), -0.002);
  EXPECT_EQ(s.GEPar(8, 2, 1), 1e-5);
}
