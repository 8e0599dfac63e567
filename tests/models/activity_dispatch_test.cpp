// The dispatcher over GEModel: ideal mixture, codes without a model, the failure value, the
// group models' UnifacNeu.
#include <gtest/gtest.h>

#include "activity_fixture.h"
#include "models/activity.h"
#include "models/geparams.h"
#include "support/fuzzy.h"

using acttest::MakeSession;
using acttest::SetSlot;
using acttest::X;

TEST(ActivityDispatch, IdealMixtureGivesGammaOne) {
  peq::Session s = MakeSession(3, 0);
  auto x = X({0.2, 0.3, 0.5});
  auto g = acttest::G(3);
  int16_t err = 5;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(g[i], 1.0);
}

// GEModel -1 (no model yet) and the codes without a model leave gamma as it was, err 0.
TEST(ActivityDispatch, NoModelAndUnknownCodesLeaveGamma) {
  for (int16_t code : {-1, 3, 5, 6, 7, 8, 10, 15, 19, 22, 99, -5}) {
    peq::Session s = MakeSession(2, code);
    auto x = X({0.4, 0.6});
    auto g = acttest::G(2, 3.25);
    int16_t err = 5;
    peq::ActivityCoeffs(s, 300.0, x, g, err);
    EXPECT_EQ(err, 0) << "GEModel " << code;
    EXPECT_EQ(g[1], 3.25) << "GEModel " << code;
    EXPECT_EQ(g[2], 3.25) << "GEModel " << code;
    EXPECT_TRUE(s.UnifacNeu);
  }
}

// NKomp 0: the dispatcher returns at once.
TEST(ActivityDispatch, NoComponentsReturnsAtOnce) {
  peq::Session s = MakeSession(0, 0);
  peq::Vec<double> x(1, 0.0), g(1, 4.0);
  int16_t err = 5;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(g[0], 4.0);
}

// A failure of a model: err -1 and every gamma 1.
TEST(ActivityDispatch, FailureSetsEveryGammaOne) {
  peq::Session s = MakeSession(3, 1);
  s.ParUnitWilson = 2;
  SetSlot(s, 1, 1, 2, -10.0);
  auto x = X({0.3, 0.3, 0.4});
  auto g = acttest::G(3);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(g[i], 1.0);
}

// An arithmetic fault inside a model (exp overflow of a huge tau) ends with the failure value.
TEST(ActivityDispatch, ArithmeticFaultGivesFailureValue) {
  peq::Session s = MakeSession(2, 2);
  s.ParUnitNRTL = 2;
  SetSlot(s, 1, 1, 2, -1E6);
  SetSlot(s, 7, 1, 2, 0.3);
  auto x = X({0.5, 0.5});
  auto g = acttest::G(2);
  int16_t err = 0;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(g[1], 1.0);
  EXPECT_EQ(g[2], 1.0);
}

// Mod. UNIFAC and UNIFAC clear UnifacNeu after the call, failed or not (here: no file).
TEST(ActivityDispatch, GroupModelsClearUnifacNeu) {
  for (int16_t code : {20, 21}) {
    peq::Session s = MakeSession(2, code);
    s.UnifacNeu = true;
    auto x = X({0.5, 0.5});
    auto g = acttest::G(2);
    int16_t err = 0;
    peq::ActivityCoeffs(s, 300.0, x, g, err);
    EXPECT_EQ(err, -1) << "GEModel " << code;
    EXPECT_FALSE(s.UnifacNeu) << "GEModel " << code;
    EXPECT_EQ(g[1], 1.0);
    EXPECT_EQ(g[2], 1.0);
  }
}

// The parameter models clear nothing of the group models.
TEST(ActivityDispatch, ParameterModelsKeepUnifacNeu) {
  for (int16_t code : {0, 1, 2, 4, 9}) {
    peq::Session s = MakeSession(2, code);
    s.StoffData[1].RUniquac = s.StoffData[1].QUniquac = 1.0f;
    s.StoffData[2].RUniquac = s.StoffData[2].QUniquac = 1.0f;
    s.ParUnitWilson = 2;
    SetSlot(s, 1, 1, 2, 1.0);
    SetSlot(s, 4, 1, 2, 1.0);
    s.UnifacNeu = true;
    auto x = X({0.5, 0.5});
    auto g = acttest::G(2);
    int16_t err = 0;
    peq::ActivityCoeffs(s, 300.0, x, g, err);
    EXPECT_EQ(err, 0) << "GEModel " << code;
    EXPECT_TRUE(s.UnifacNeu);
  }
}

// x is used as given: a non-normalised x is not scaled (Redlich-Kister with A = 1 gives
// ln g1 = G - x2 (dG2 - dG1) = x1 x2 + x2 (x2 - x1) for x = (1, 1): 1).
TEST(ActivityDispatch, MoleFractionsUsedAsGiven) {
  peq::Session s = MakeSession(2, 4);
  SetSlot(s, 1, 1, 2, 1.0);
  auto x = X({1.0, 1.0});
  auto g = acttest::G(2);
  int16_t err = 1;
  peq::ActivityCoeffs(s, 300.0, x, g, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(std::log(g[1]), 1.0, 1e-15);
  EXPECT_EQ(x[1], 1.0);
  EXPECT_EQ(x[2], 1.0);
}

// The slot table: L1..L4 = GEPar(1,i,j), GEPar(2,i,j), GEPar(1,j,i), GEPar(2,j,i); L5..L8 with
// k = 3, 4; L9..L12 with k = 5, 6; L13..L16 with k = 7, 8.
TEST(ActivityDispatch, SlotTableOfGEPar) {
  peq::Session s = MakeSession(3, 1);
  s.GEPar(1, 1, 3) = 1;
  s.GEPar(2, 1, 3) = 2;
  s.GEPar(1, 3, 1) = 3;
  s.GEPar(2, 3, 1) = 4;
  s.GEPar(3, 1, 3) = 5;
  s.GEPar(4, 3, 1) = 8;
  s.GEPar(5, 1, 3) = 9;
  s.GEPar(6, 3, 1) = 12;
  s.GEPar(7, 1, 3) = 13;
  s.GEPar(8, 3, 1) = 16;
  for (int n : {1, 2, 3, 4, 5, 8, 9, 12, 13, 16}) EXPECT_EQ(peq::GESlot(s, n, 1, 3), n);
  EXPECT_EQ(peq::GESlot(s, 6, 1, 3), 0.0);
}

// The unit divisors: R = 8.31451 J/(mol K), 1.98584 cal/(mol K), 1 for code 2, T for code 3.
TEST(ActivityDispatch, UnitDivisorTable) {
  EXPECT_EQ(peq::UnitDivisor(0, 300.0), 8.31451 * 300.0);
  EXPECT_EQ(peq::UnitDivisor(1, 300.0), 1.98584 * 300.0);
  EXPECT_EQ(peq::UnitDivisor(2, 300.0), 1.0);
  EXPECT_EQ(peq::UnitDivisor(3, 300.0), 300.0);
  EXPECT_EQ(peq::UnitDivisor(4, 300.0), 0.0);
}
