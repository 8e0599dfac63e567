// peqcalc flash-tp, flash-peta, flash-teta and single: the numbers of FlashTP, FlashPEta,
// FlashTEta and SingleCalc for the example project, printed with 17 significant digits.
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/flash.h"
#include "engine/singlecalc.h"
#include "models/eos_pure.h"
#include "models/eos_test_session.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

peq::Session Loaded() {
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  EXPECT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  return s;
}

// x, y and gamma of the printed object equal the session's arrays.
void ExpectPhases(const std::string& json, const peq::Session& s) {
  const auto x = peqtest::JsonNumbers(json, "x"), y = peqtest::JsonNumbers(json, "y"),
             g = peqtest::JsonNumbers(json, "gamma");
  ASSERT_EQ(x.size(), 2u);
  ASSERT_EQ(y.size(), 2u);
  ASSERT_EQ(g.size(), 2u);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(x[i - 1], s.XLiq[i]);
    EXPECT_EQ(y[i - 1], s.YGas[i]);
    EXPECT_EQ(g[i - 1], s.Gamma[i]);
  }
}

TEST(PeqcalcFlash, FlashTPIsFlashTPOfTheNormalisedFeed) {
  // The feed 3 : 7 is normalised as the calculation input window does.
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-tp", "358", "101.325", "3", "7"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  const double eta = peq::FlashTP(s, 358.0, 101.325, peqtest::Comp({0.3, 0.7}));
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  EXPECT_EQ(NumberOf(r.out, "eta"), eta);
  ExpectPhases(r.out, s);
}

TEST(PeqcalcFlash, FlashTPOutsideTheTwoPhaseRegionPrintsMinusOne) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-tp", "340", "101.325", "0.3", "0.7"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(NumberOf(r.out, "eta"), -1.0);
}

TEST(PeqcalcFlash, FlashPEtaIsFlashPEta) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-peta", "101.325", "0.4", "0.3", "0.7"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  const double T = peq::FlashPEta(s, 101.325, 0.4, peqtest::Comp({0.3, 0.7}));
  ASSERT_GT(T, 0.0);
  EXPECT_EQ(NumberOf(r.out, "T"), T);
  ExpectPhases(r.out, s);
}

TEST(PeqcalcFlash, FlashTEtaIsFlashTEta) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-teta", "353.15", "0.5", "0.3", "0.7"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  const double p = peq::FlashTEta(s, 353.15, 0.5, peqtest::Comp({0.3, 0.7}));
  ASSERT_GT(p, 0.0);
  EXPECT_EQ(NumberOf(r.out, "p"), p);
  ExpectPhases(r.out, s);
}

TEST(PeqcalcFlash, FeedOfZerosIsRefused) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-tp", "358", "101.325", "0", "0"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Execution not possible: no composition of the mixture given"), std::string::npos) << r.err;
}

TEST(PeqcalcFlash, WrongCountOrMissingNumbersAreRefusedOrBadUsage) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "flash-teta", "353.15", "0.5"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "flash-teta", "353.15", "0.5", "1"}).code, 2);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "flash-peta", "101.325", "0.5", "1", "1", "1"}).code, 2);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "flash-tp", "358", "abc", "1", "1"}).code, 64);
}

TEST(PeqcalcSingle, Code1IsSingleCalc) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "single", "1", "0.3", "--T", "343.15"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  s.IsoArt = 1;
  double T = 343.15, p = s.PIso, y2 = s.XIso;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
  peq::SingleOut o;
  peq::SingleCalc(s, 1, 0.3, T, p, y2, R1, R2, R3, R4, 1, 2, outX, o, nullptr);
  ASSERT_EQ(o.F1, 0);
  EXPECT_EQ(NumberOf(r.out, "y1"), o.Y1);
  EXPECT_EQ(NumberOf(r.out, "y2"), o.Y2);
  EXPECT_EQ(NumberOf(r.out, "flag1"), 0);
  EXPECT_EQ(NumberOf(r.out, "flag2"), o.F2);
  EXPECT_EQ(NumberOf(r.out, "outx"), outX);
  EXPECT_EQ(NumberOf(r.out, "p"), p);
}

TEST(PeqcalcSingle, IsobaricCodeReturnsTheBubbleTemperature) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "single", "4", "0.3", "--p", "101.325"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  s.IsoArt = 2;
  double T = s.TIso, p = 101.325, y2 = s.XIso;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
  peq::SingleOut o;
  peq::SingleCalc(s, 4, 0.3, T, p, y2, R1, R2, R3, R4, 1, 2, outX, o, nullptr);
  ASSERT_EQ(o.F1, 0);
  EXPECT_EQ(NumberOf(r.out, "y1"), o.Y1);
  EXPECT_EQ(NumberOf(r.out, "y2"), o.Y2);
  EXPECT_EQ(NumberOf(r.out, "T"), T);
}

TEST(PeqcalcSingle, AbscissaOutsideZeroToOneGivesBothFlags) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "single", "1", "1.00000001", "--T", "343.15"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(NumberOf(r.out, "flag1"), -1);
  EXPECT_EQ(NumberOf(r.out, "flag2"), -1);
  EXPECT_EQ(NumberOf(r.out, "y1"), 0);
}

TEST(PeqcalcSingle, VapourPressureWarningGoesToStderr) {
  // 700 K lies far above the limits of the project's vapour-pressure equations.
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "single", "8", "0.3", "--T", "700"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.err.find("WARNING: calculation outside the T-limits of a vapour pressure equation"), std::string::npos)
      << r.err;
}

TEST(PeqcalcSingle, BadUsage) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "single", "1"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "single", "1.5", "0.3"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "single", "1", "0.3", "--q", "1"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "single", "1", "0.3", "--T"}).code, 64);
}

}  // namespace
