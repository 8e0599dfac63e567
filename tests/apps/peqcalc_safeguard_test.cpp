// peqcalc with the safeguard (the default) and with --exact: the commands of the cases where the
// plain routines fail or answer trivially, with "retried" and the same numbers as the engine.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/safeguard.h"
#include "engine/safeguard_sessions.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

namespace fs = std::filesystem;

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

class PeqcalcSafeguard : public ::testing::Test {
 protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("peqcalc_safeguard_" + std::to_string(::getpid()));
    fs::create_directories(dir);
  }
  void TearDown() override { fs::remove_all(dir); }

  // The project file of a session made by make (the safeguard of the session is not stored).
  template <class Make>
  std::string Project(const std::string& name, Make make) {
    peq::Session s;
    EXPECT_TRUE(make(s));
    const std::string file = (dir / (name + ".PQC")).string();
    std::string err;
    EXPECT_TRUE(peq::ProjektSchreiben(s, file, "safeguard test", err)) << err;
    return file;
  }

  // peqcalc on the project, with "--exact" in front of the command when exact.
  peqtest::PeqcalcRun Run(const std::string& file, bool exact, std::vector<std::string> cmd) {
    std::vector<std::string> a = {file, "--bank-dir", peqtest::BinaryDir()};
    if (exact) a.push_back("--exact");
    a.insert(a.end(), cmd.begin(), cmd.end());
    return peqtest::RunPeqcalc(a);
  }

  fs::path dir;
};

auto PR(const char* a, const char* b) {
  return [a, b](peq::Session& s) { return sgtest::PR(s, a, b, true); };
}

TEST_F(PeqcalcSafeguard, MethaneEthaneBubblePressureIsRetriedAndExactIsTheTrivialAnswer) {
  const std::string f = Project("me", PR(sgtest::kMethane, sgtest::kEthane));
  const auto on = Run(f, false, {"bubble-p", "200", "0.5", "0.5"});
  const auto off = Run(f, true, {"bubble-p", "200", "0.5", "0.5"});
  ASSERT_EQ(on.code, 0) << on.err;
  ASSERT_EQ(off.code, 0) << off.err;
  EXPECT_REL(NumberOf(on.out, "p"), 2638.04, 1e-5);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_REL(NumberOf(off.out, "p"), 3337.1972108126815, 1e-9);
  EXPECT_EQ(NumberOf(off.out, "retried"), 0);
  // The same number as the engine's safeguarded routine.
  peq::Session s;
  ASSERT_TRUE(sgtest::PR(s, sgtest::kMethane, sgtest::kEthane, true));
  const peq::Vec<double> x = sgtest::Binary(0.5, 0.5), y0(3, 0.0);
  double vL = 0, vV = 0;
  EXPECT_EQ(NumberOf(on.out, "p"), peq::SafeBubbleP(s, 200, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV));
  EXPECT_EQ(NumberOf(on.out, "vV"), vV);
}

TEST_F(PeqcalcSafeguard, MethaneEthaneBubbleTemperatureExactAsThePlainRoutine) {
  const std::string f = Project("me", PR(sgtest::kMethane, sgtest::kEthane));
  const auto off = Run(f, true, {"bubble-t", "6000", "0.5", "0.5"});
  ASSERT_EQ(off.code, 0) << off.err;
  EXPECT_REL(NumberOf(off.out, "T"), 263.7427663025889, 1e-9);
  // Safeguarded: the bubble point below, the same number as the engine's routine.
  const auto on = Run(f, false, {"bubble-t", "6000", "0.5", "0.5"});
  ASSERT_EQ(on.code, 0) << on.err;
  EXPECT_NEAR(NumberOf(on.out, "T"), 247.638, 1e-3);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  peq::Session s;
  ASSERT_TRUE(sgtest::PR(s, sgtest::kMethane, sgtest::kEthane, true));
  const peq::Vec<double> x = sgtest::Binary(0.5, 0.5), y0(3, 0.0);
  double Tin = 0, vL = 0, vV = 0;
  int16_t warn = 0;
  EXPECT_EQ(NumberOf(on.out, "T"), peq::SafeBubbleT(s, 6000, x, Tin, y0, warn, s.KWert, vL, vV));
}

TEST_F(PeqcalcSafeguard, EthanolWaterAt30KIsNoAnswerUnlessExact) {
  const std::string f = Project("ew", PR(sgtest::kEthanol, sgtest::kWater));
  const auto on = Run(f, false, {"bubble-p", "30", "0.5", "0.5"});
  const auto off = Run(f, true, {"bubble-p", "30", "0.5", "0.5"});
  EXPECT_EQ(NumberOf(on.out, "p"), 0);
  EXPECT_EQ(NumberOf(on.out, "retried"), 0);
  EXPECT_REL(NumberOf(off.out, "p"), 9.5498799068113319e-55, 1e-6);
}

TEST_F(PeqcalcSafeguard, CO2HexaneBubblePressure) {
  const std::string f = Project("ch", PR(sgtest::kCO2, sgtest::kHexane));
  const auto on = Run(f, false, {"bubble-p", "300", "0.15", "0.85"});
  const auto off = Run(f, true, {"bubble-p", "300", "0.15", "0.85"});
  EXPECT_REL(NumberOf(on.out, "p"), 681.2029, 1e-6);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_EQ(NumberOf(off.out, "p"), 0);
}

TEST_F(PeqcalcSafeguard, BenzeneTolueneFlashTEta) {
  const std::string f = Project("bt", PR(sgtest::kBenzene, sgtest::kToluene));
  const auto on = Run(f, false, {"flash-teta", "350", "0.1", "0.5", "0.5"});
  const auto off = Run(f, true, {"flash-teta", "350", "0.1", "0.5", "0.5"});
  EXPECT_NEAR(NumberOf(on.out, "p"), 62.6, 0.5);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_REL(NumberOf(off.out, "p"), 983.50842480160509, 1e-9);
  const auto on2 = Run(f, false, {"flash-teta", "350", "0.5", "0.8", "0.2"});
  const auto off2 = Run(f, true, {"flash-teta", "350", "0.5", "0.8", "0.2"});
  EXPECT_GT(NumberOf(on2.out, "p"), 75);
  EXPECT_LT(NumberOf(on2.out, "p"), 80);
  EXPECT_EQ(NumberOf(on2.out, "retried"), -1);
  EXPECT_EQ(NumberOf(off2.out, "p"), 0);
  EXPECT_EQ(NumberOf(off2.out, "retried"), 0);
}

TEST_F(PeqcalcSafeguard, EthanolWaterUnifacFlashTEta) {
  const std::string f = Project("eu", [](peq::Session& s) { return sgtest::EthanolWaterUnifacVirial(s, true); });
  const auto on = Run(f, false, {"flash-teta", "355", "0.5", "0.3", "0.7"});
  const auto off = Run(f, true, {"flash-teta", "355", "0.5", "0.3", "0.7"});
  ASSERT_EQ(on.code, 0) << on.err;
  EXPECT_NEAR(NumberOf(on.out, "p"), 90, 2);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_LE(NumberOf(off.out, "p"), 0);
}

TEST_F(PeqcalcSafeguard, EthanolWaterFlashTPBelowTheDewPoint) {
  const std::string f = Project("ew", PR(sgtest::kEthanol, sgtest::kWater));
  const auto on = Run(f, false, {"flash-tp", "355", "101.325", "0.5", "0.5"});
  const auto off = Run(f, true, {"flash-tp", "355", "101.325", "0.5", "0.5"});
  const double eta = NumberOf(on.out, "eta");
  EXPECT_GT(eta, 0.8);
  EXPECT_LT(eta, 1.0);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_EQ(NumberOf(off.out, "eta"), -1);
  // flash-peta at that vapour fraction gives 355 K back.
  char e[64];
  std::snprintf(e, sizeof e, "%.17g", eta);
  const auto back = Run(f, true, {"flash-peta", "101.325", e, "0.5", "0.5"});
  EXPECT_REL(NumberOf(back.out, "T"), 355.0, 1e-6);
}

TEST_F(PeqcalcSafeguard, CO2ButaneBubbleTemperature) {
  const std::string f = Project("cb", PR(sgtest::kCO2, sgtest::kButane));
  const auto on = Run(f, false, {"bubble-t", "1000", "0.5", "0.5"});
  const auto off = Run(f, true, {"bubble-t", "1000", "0.5", "0.5"});
  EXPECT_GT(NumberOf(on.out, "T"), 240);
  EXPECT_LT(NumberOf(on.out, "T"), 270);
  EXPECT_EQ(NumberOf(on.out, "retried"), -1);
  EXPECT_EQ(NumberOf(off.out, "T"), 0);
}

TEST_F(PeqcalcSafeguard, AConvergedPointIsNotRetried) {
  const auto r = peqtest::RunPeqcalc({peqtest::SourceDir() + "/examples/ethanol-water.PQC", "--bank-dir",
                                      peqtest::BinaryDir(), "bubble-p", "343.15", "0.252", "0.748"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(NumberOf(r.out, "retried"), 0);
  EXPECT_GT(NumberOf(r.out, "p"), 0);
}

TEST(PeqcalcHelp, TellsTheExactOption) {
  const auto r = peqtest::RunPeqcalc({"--help"});
  EXPECT_EQ(r.code, 0);
  EXPECT_NE(r.out.find("--exact"), std::string::npos);
}

}  // namespace
