// T(p) by each equation code, the normal boiling point, and all p0 of a mixture.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "models/pure_fixtures.h"
#include "models/vappressure.h"
#include "support/fuzzy.h"

namespace {

using peq::Session;
namespace pf = peqtest::pure;

struct TCall {
  float T = 0;
  int16_t dT = 0;
  int16_t err = 0;
  peq::MsgSink sink;
};

TCall BT(const Session& s, int i, double p, std::string code, bool showWarn = false) {
  TCall c;
  c.dT = 99;
  c.err = 99;  // the call must set both
  c.T = peq::BoilingTAtP(s, i, p, code, showWarn, c.dT, c.err, &c.sink);
  return c;
}

float P0(const Session& s, int i, double T, std::string code) {
  int16_t dT = 0;
  return peq::VapPressure(s, i, T, code, false, dT);
}

Session Water() {
  Session s;
  pf::Make(s, {"Water"});
  return s;
}

// ---- BoilingTAtP -------------------------------------------------------------------------

TEST(BoilingTAtP, InvertsVapPressureForEachCode) {
  for (const char* name : {"Water", "Ethanol", "Benzene", "n-Hexane"}) {
    Session s;
    pf::Make(s, {name});
    s.ParAHP[1] = s.ParALP[1];
    const pf::Row& r = pf::Find(name);
    for (const char* code : {"ALP", "AHP", "AUG", "FRO", "WAG", "THO"}) {
      for (double T : {0.8 * r.tb, r.tb, 1.2 * r.tb}) {
        SCOPED_TRACE(std::string(name) + " " + code + " T=" + std::to_string(T));
        const float p = P0(s, 1, T, code);
        ASSERT_GT(p, 0);
        const TCall c = BT(s, 1, p, code);
        EXPECT_EQ(c.err, 0);
        EXPECT_REL(c.T, T, 1e-5);
      }
    }
  }
}

TEST(BoilingTAtP, FrostWithEInvertsTheImplicitEquation) {
  Session s = Water();
  s.ParFRO[1][5] = 200.0f;  // E p/T^2.5 ~ 7.4E-5 p at 373 K
  s.ParFRO[1][6] = 0.5f;
  for (double T : {320.0, 373.15, 450.0}) {
    const float p = P0(s, 1, T, "FRO");
    ASSERT_GT(p, 0);
    const TCall c = BT(s, 1, p, "FRO");
    EXPECT_EQ(c.err, 0);
    EXPECT_REL(c.T, T, 1e-5);
  }
}

TEST(BoilingTAtP, WaterNormalBoilingPointByEachCode) {
  // CRC: 373.124 K. The equations deviate by their fit error (ANTOINE -0.27 % in p at 100 degC).
  Session s = Water();
  for (const char* code : {"ALP", "AUG", "FRO", "WAG", "THO"}) {
    const TCall c = BT(s, 1, 101.325, code);
    EXPECT_EQ(c.err, 0) << code;
    EXPECT_REL(c.T, 373.124, 3e-4);
  }
  // ANTOINE by hand: T = 1687.537/(7.11564 - 2.0057166) - 230.17 + 273.15
  //                    = 1687.537/5.1099234 + 42.98 = 330.24703 + 42.98 = 373.22703 K
  EXPECT_REL(BT(s, 1, 101.325, "ALP").T, 373.22703, 1e-6);
}

TEST(BoilingTAtP, NonPositivePressureFails) {
  Session s = Water();
  for (const char* code : {"ALP", "AHP", "AUG", "FRO", "WAG", "THO"}) {
    for (double p : {0.0, -1.0, std::nan("")}) {
      const TCall c = BT(s, 1, p, code, true);
      EXPECT_EQ(c.T, 0.0f) << code << " " << p;
      EXPECT_EQ(c.err, -1);
      EXPECT_EQ(c.dT, 0);
      EXPECT_TRUE(c.sink.empty());
    }
  }
}

TEST(BoilingTAtP, FrostFlatSlopeFails) {
  // B = D = E = G = H = 0: f' = 0 at the start T = 0 - C + 273.15.
  Session s;
  peq::AllocSession(s, 1);
  s.NKomp = 1;
  s.ParFRO[1][1] = 2.0f;
  const TCall c = BT(s, 1, 101.325, "FRO");
  EXPECT_EQ(c.T, 0.0f);
  EXPECT_EQ(c.err, -1);
}

TEST(BoilingTAtP, WagnerAboveTheCriticalPressureFails) {
  // No T below Tc has p > pc: the Newton walks past Tc, tau < 0 ends it.
  Session s = Water();
  const TCall c = BT(s, 1, 2 * 22064.0, "WAG");
  EXPECT_EQ(c.T, 0.0f);
  EXPECT_EQ(c.err, -1);
}

TEST(BoilingTAtP, WagnerStartsFromTheAugustLineOrFromEightTenthsOfTc) {
  Session s = Water();
  const float fromLine = BT(s, 1, 50.0, "WAG").T;
  s.TSiede[1] = 0;  // start at 0.8 TKrit instead
  const TCall c = BT(s, 1, 50.0, "WAG");
  EXPECT_EQ(c.err, 0);
  EXPECT_REL(c.T, fromLine, 1e-5);
  EXPECT_REL(P0(s, 1, c.T, "WAG"), 50.0, 1e-4);
}

TEST(BoilingTAtP, LimitChecksPerCode) {
  Session s = Water();
  // ANTOINE (273..473 K): both.
  EXPECT_EQ(BT(s, 1, P0(s, 1, 263.0, "ALP"), "ALP").dT, -10);
  EXPECT_EQ(BT(s, 1, P0(s, 1, 483.0, "ALP"), "ALP").dT, 10);
  // AUGUST (373..647 K): lower only.
  EXPECT_EQ(BT(s, 1, P0(s, 1, 363.0, "AUG"), "AUG").dT, -10);
  EXPECT_EQ(BT(s, 1, 1.2 * 22064, "AUG").dT, 0);
  // WAGNER: only with both limits.
  EXPECT_EQ(BT(s, 1, P0(s, 1, 263.0, "WAG"), "WAG").dT, -10);
  s.ParWAG[1].THi = 0;
  EXPECT_EQ(BT(s, 1, P0(s, 1, 263.0, "WAG"), "WAG").dT, 0);
  // FROST: only with both limits.
  EXPECT_EQ(BT(s, 1, P0(s, 1, 263.0, "FRO"), "FRO").dT, -10);
  s.ParFRO[1].TLo = 0;
  EXPECT_EQ(BT(s, 1, P0(s, 1, 263.0, "FRO"), "FRO").dT, 0);
  // THO: none.
  EXPECT_EQ(BT(s, 1, 0.01, "THO").dT, 0);
}

TEST(BoilingTAtP, WarningTextMoreThanFiveKelvinAboveTheUpperLimit) {
  Session s = Water();
  const TCall c = BT(s, 1, P0(s, 1, 480.0, "ALP"), "ALP", true);
  EXPECT_EQ(c.dT, 7);
  ASSERT_EQ(c.sink.size(), 1u);
  EXPECT_EQ(c.sink[0].title, "WARNING");
  EXPECT_EQ(c.sink[0].text, "Warning:  T outside validity of parameters! (T - T(lim)=7)");
  EXPECT_TRUE(BT(s, 1, P0(s, 1, 478.0, "ALP"), "ALP", true).sink.empty());  // dT = 5
  EXPECT_TRUE(BT(s, 1, P0(s, 1, 250.0, "ALP"), "ALP", true).sink.empty());  // below
  EXPECT_TRUE(BT(s, 1, P0(s, 1, 480.0, "ALP"), "ALP", false).sink.empty());
}

TEST(BoilingTAtP, UnknownCodeGivesZero) {
  Session s = Water();
  const TCall c = BT(s, 1, 101.325, "XYZ", true);
  EXPECT_EQ(c.T, 0.0f);
  EXPECT_EQ(c.err, 0);  // no equation, nothing solved: T = 0 is the whole answer
  EXPECT_EQ(c.dT, 0);
  EXPECT_TRUE(c.sink.empty());
}

TEST(BoilingTAtP, ComponentOutsideTheMixtureFails) {
  Session s = Water();
  EXPECT_EQ(BT(s, 2, 101.325, "ALP").err, -1);
  Session empty;
  EXPECT_EQ(BT(empty, 1, 101.325, "ALP").err, -1);
}

// ---- BoilingT ----------------------------------------------------------------------------

TEST(BoilingT, DatabaseValueComesFirst) {
  Session s = Water();
  std::string code = "ALP", info;
  int16_t err = 5;
  EXPECT_EQ(peq::BoilingT(s, 1, code, err, info), 373.124f);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(info, "normal boiling T from database");
  EXPECT_EQ(code, "ALP");
}

TEST(BoilingT, GivenCodeSolvesAtNormalPressure) {
  Session s = Water();
  s.StoffData[1].TSiedeDb = 0;
  std::string code = "FRO", info;
  int16_t err = 0;
  const float T = peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(err, 0);
  EXPECT_REL(P0(s, 1, T, "FRO"), 101.325, 1e-5);
  EXPECT_EQ(info, "normal boiling T from FRO equation");
  EXPECT_EQ(code, "FRO");
}

TEST(BoilingT, EmptyCodeTakesTheLastPresentOfAhpAlpFroWag) {
  Session s = Water();
  s.StoffData[1].TSiedeDb = 0;
  s.ParAHP[1] = s.ParALP[1];
  std::string info;
  int16_t err = 0;

  std::string code;
  float T = peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(code, "WAG");  // WAG outranks FRO here
  EXPECT_EQ(info, "normal boiling temp. of WAG equation");
  EXPECT_REL(P0(s, 1, T, "WAG"), 101.325, 1e-5);

  s.ParWAG[1].TLo = 0;
  code.clear();
  peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(code, "FRO");

  s.ParFRO[1].TLo = -273;  // a negative FROST limit counts, by its absolute value
  code.clear();
  peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(code, "FRO");

  s.ParFRO[1].TLo = 0;
  code.clear();
  peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(code, "ALP");

  s.ParALP[1].TLo = 0;
  code.clear();
  T = peq::BoilingT(s, 1, code, err, info);
  EXPECT_EQ(code, "AHP");
  EXPECT_EQ(info, "normal boiling temp. of AHP equation");
  EXPECT_GT(T, 0);
}

TEST(BoilingT, FailureGivesZero) {
  Session s = Water();
  s.StoffData[1].TSiedeDb = 0;
  s.ParWAG[1][9] = 0;  // Tc of the record 0: a division by zero
  std::string code = "WAG", info;
  int16_t err = 0;
  EXPECT_EQ(peq::BoilingT(s, 1, code, err, info), 0.0f);
  EXPECT_EQ(err, -1);
}

TEST(BoilingT, ThoCodeDoesNotAskForItselfAgain) {
  Session s = Water();
  s.StoffData[1].TSiedeDb = 0;
  std::string code = "THO", info;
  int16_t err = 0;
  const float T = peq::BoilingT(s, 1, code, err, info);
  // THO's Tb is that of BoilingT with no code of its own (WAG here), and THO passes through it.
  std::string wag;
  int16_t e2 = 0;
  std::string info2;
  EXPECT_REL(T, peq::BoilingT(s, 1, wag, e2, info2), 1e-5);
  EXPECT_EQ(info, "normal boiling T from THO equation");
}

// ---- AllP0 -------------------------------------------------------------------------------

TEST(AllP0, FillsP0AndHandsUpBadComponentAndLastLimitDistance) {
  Session s;
  pf::Make(s, {"Water", "Ethanol", "Benzene"});
  s.P0Eq[2] = "WAG";
  s.P0Eq[3] = "XYZ";
  int16_t bad = 9, dT = 9;
  peq::AllP0(s, 380.0, bad, dT);
  EXPECT_EQ(s.P0[1], P0(s, 1, 380.0, "ALP"));
  EXPECT_EQ(s.P0[2], P0(s, 2, 380.0, "WAG"));
  EXPECT_EQ(s.P0[3], 0.0f);
  EXPECT_EQ(bad, 3);
  EXPECT_EQ(dT, 0);

  // Ethanol's ANTOINE ends at 370 K, benzene's at 377 K: the last non-zero dT is handed up.
  s.P0Eq[2] = "ALP";
  s.P0Eq[3] = "ALP";
  peq::AllP0(s, 380.0, bad, dT);
  EXPECT_EQ(bad, 0);
  EXPECT_EQ(dT, 3);
  s.P0Eq[3] = "WAG";
  peq::AllP0(s, 380.0, bad, dT);
  EXPECT_EQ(dT, 10);
}

TEST(AllP0, GlobalConceptBranchReportsNoVapourPressureYet) {
  Session s;
  pf::Make(s, {"Water", "Ethanol"});
  s.Konzept = true;
  s.P0[1] = 5;
  s.P0[2] = 5;
  int16_t bad = 0, dT = 0;
  peq::AllP0(s, 350.0, bad, dT);
  EXPECT_EQ(s.P0[1], 0.0f);
  EXPECT_EQ(s.P0[2], 0.0f);
  EXPECT_EQ(bad, 2);
}

TEST(AllP0, NoComponentsReturnsAtOnce) {
  Session s;
  int16_t bad = 4, dT = 4;
  peq::AllP0(s, 350.0, bad, dT);
  EXPECT_EQ(bad, 0);
  EXPECT_EQ(dT, 0);
  EXPECT_EQ(s.P0.size(), 0u);
}

}  // namespace
