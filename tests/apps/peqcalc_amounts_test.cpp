// peqcalc refuses a negative amount or mole fraction in every command that takes a composition,
// with a message naming the command and the component, exit code 2 and nothing on stdout; a
// composition given by --x2 must lie between 0 and 1.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

struct Case {
  std::vector<std::string> args;  // the command and its leading values
};

// Every command whose trailing arguments are the amounts or mole fractions of the components.
const std::vector<Case> kCompositionCommands = {
    {{"flash-tp", "350", "101.325"}},  {{"flash-peta", "101.325", "0.5"}}, {{"flash-teta", "350", "0.5"}},
    {{"bubble-p", "350"}},             {{"bubble-t", "101.325"}},          {{"dew-p", "350"}},
    {{"dew-t", "101.325"}},            {{"gamma", "350"}},                 {{"excess", "350"}},
    {{"eos", "350", "101.325"}},
};

TEST(PeqcalcAmounts, ANegativeAmountIsRefusedByEveryCommandThatTakesAComposition) {
  for (const Case& c : kCompositionCommands) {
    std::vector<std::string> args = {kProject};
    args.insert(args.end(), c.args.begin(), c.args.end());
    args.push_back("-0.5");
    args.push_back("1.5");
    const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(args);
    const std::string& name = c.args[0];
    EXPECT_EQ(r.code, 2) << name << ": " << r.out;
    EXPECT_TRUE(r.out.empty()) << name << ": " << r.out;
    EXPECT_NE(r.err.find("Execution not possible: " + name +
                         ": the amount of component 1 is negative (-0.5); amounts and mole fractions must be 0 "
                         "or more"),
              std::string::npos)
        << name << ": " << r.err;
  }
}

TEST(PeqcalcAmounts, TheFlashOfTheIssueIsRefusedAndTheSecondComponentIsCheckedToo) {
  // flash-tp 350 101.325 -0.5 1.5 once gave x1 = -0.004.
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "flash-tp", "350", "101.325", "-0.5", "1.5"});
  EXPECT_EQ(r.code, 2);
  EXPECT_EQ(r.out.find("\"x\""), std::string::npos);
  const peqtest::PeqcalcRun r2 = peqtest::RunPeqcalc({kProject, "bubble-p", "350", "1.2", "-0.2"});
  EXPECT_EQ(r2.code, 2);
  EXPECT_NE(r2.err.find("bubble-p: the amount of component 2 is negative (-0.2)"), std::string::npos) << r2.err;
  // Zero amounts stay legal.
  const peqtest::PeqcalcRun ok = peqtest::RunPeqcalc({kProject, "bubble-p", "350", "0", "1"});
  EXPECT_EQ(ok.code, 0) << ok.err;
}

TEST(PeqcalcAmounts, ACompositionByX2MustLieBetween0And1) {
  for (const char* x2 : {"-0.1", "1.5"}) {
    const peqtest::PeqcalcRun c = peqtest::RunPeqcalc({kProject, "curve", "7", "--x2", x2, "--points", "10"});
    EXPECT_EQ(c.code, 2) << x2;
    EXPECT_NE(c.err.find("Execution not possible: curve: --x2 " + std::string(x2) +
                         " is no mole fraction; it must lie between 0 and 1"),
              std::string::npos)
        << c.err;
    const peqtest::PeqcalcRun s = peqtest::RunPeqcalc({kProject, "single", "7", "350", "--x2", x2});
    EXPECT_EQ(s.code, 2) << x2;
    EXPECT_NE(s.err.find("single: --x2 " + std::string(x2) + " is no mole fraction"), std::string::npos) << s.err;
  }
  const peqtest::PeqcalcRun ok = peqtest::RunPeqcalc({kProject, "single", "7", "350", "--x2", "0.5"});
  EXPECT_EQ(ok.code, 0) << ok.err;
}

}  // namespace
