// peqcalc PROJECT writebank FILE.Q07: the private database of the project's mixture.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "substances/bank.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

std::string Bytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

TEST(PeqcalcWriteBank, WritesTheMixtureOfTheProjectInItsOrder) {
  peqtest::TempDir dir;
  const std::string file = dir.File("AMW.Q07");
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {peqtest::SourceDir() + "/examples/acetone-methanol-water.PQC", "--bank-dir", peqtest::BinaryDir(), "writebank", file});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("\"BankAnz\": 3"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"cas\": [\"67-64-1\", \"67-56-1\", \"7732-18-5\"]"), std::string::npos) << r.out;
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, file));
  EXPECT_EQ(s.BankAnz, 3);
  EXPECT_EQ(peq::Trim(s.BankCAS[1]), "67-64-1");
  EXPECT_EQ(peq::Trim(s.BankCAS[3]), "7732-18-5");
  // Nothing in the project changes the data: the records are the database's.
  const std::string mine = Bytes(file), orig = Bytes(peqtest::BundledBankPath());
  peq::Session b;
  ASSERT_TRUE(peqtest::OpenBank(b, peqtest::BundledBankPath()));
  for (int i = 1; i <= 3; ++i) {
    const int place = peq::CASSuchen(b, s.BankCAS[static_cast<std::size_t>(i)]);
    ASSERT_GT(place, 0);
    EXPECT_EQ(mine.substr(static_cast<std::size_t>(i) * 684, 684), orig.substr(static_cast<std::size_t>(place) * 684, 684));
  }
}

TEST(PeqcalcWriteBank, AFailedWriteIsRefusedWithTheSystemsTextAndLeavesNoFile) {
  peqtest::TempDir dir;
  const std::string file = dir.File("missing-dir/AMW.Q07");
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {peqtest::SourceDir() + "/examples/ethanol-water.PQC", "--bank-dir", peqtest::BinaryDir(), "writebank", file});
  EXPECT_EQ(r.code, 2);
  EXPECT_EQ(r.err.rfind("Error: ", 0), 0u) << r.err;
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST(PeqcalcWriteBank, WithoutAFileItIsBadUsage) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {peqtest::SourceDir() + "/examples/ethanol-water.PQC", "--bank-dir", peqtest::BinaryDir(), "writebank"});
  EXPECT_EQ(r.code, 64);
}

}  // namespace
