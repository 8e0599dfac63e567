// The random-state sweep tool: it runs every routine, reports no NaN on a short run, and a state
// run by itself behaves exactly as it did inside the run (the draws depend on the seed and the
// state number only).
#include <sys/wait.h>

#include <cstdio>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/fuzzy.h"

namespace {

struct SweepRun {
  int code = -1;
  std::string out;
};

SweepRun RunSweep(const std::string& args) {
  SweepRun r;
  const std::string cmd = "'" + peqtest::BinaryDir() + "/peqsweep' " + args + " 2>/dev/null";
  FILE* p = ::popen(cmd.c_str(), "r");
  if (!p) return r;
  char buf[4096];
  std::size_t n;
  while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) r.out.append(buf, n);
  const int status = ::pclose(p);
  r.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return r;
}

// Counts of one routine: calls, successes, failure values, trivial answers, NaN/inf.
using Counts = std::vector<long long>;

std::map<std::string, Counts> Table(const std::string& out) {
  std::map<std::string, Counts> t;
  std::istringstream in(out);
  std::string line;
  while (std::getline(in, line)) {
    if (line.size() < 2 || line[0] != '|' || line.find("---") != std::string::npos ||
        line.find("routine") != std::string::npos)
      continue;
    std::vector<std::string> cells;
    std::string cell;
    std::istringstream ls(line.substr(1));
    while (std::getline(ls, cell, '|')) cells.push_back(cell);
    if (cells.size() < 6) continue;
    Counts c;
    for (int k = 1; k <= 5; ++k) c.push_back(std::stoll(cells[static_cast<std::size_t>(k)]));
    std::string name = cells[0];
    name.erase(0, name.find_first_not_of(' '));
    name.erase(name.find_last_not_of(' ') + 1);
    t[name] = c;
  }
  return t;
}

TEST(SweepTool, RunsEveryRoutineAndFindsNoNonFiniteValue) {
  const SweepRun r = RunSweep("--states 60 --seed 7");
  ASSERT_EQ(r.code, 0) << r.out;
  const auto t = Table(r.out);
  ASSERT_EQ(t.size(), 23u) << r.out;
  for (const auto& [name, c] : t) {
    EXPECT_GT(c[0], 0) << name;                   // called
    EXPECT_EQ(c[1] + c[2], c[0]) << name;         // each call a success or a failure value
    EXPECT_LE(c[3], c[1]) << name;                // a trivial answer is a returned result
    EXPECT_EQ(c[4], 0) << name;                   // no NaN or infinity
  }
  EXPECT_EQ(t.at("AllPureProps")[0], 60);
  EXPECT_NE(r.out.find("non-finite 0"), std::string::npos);
}

TEST(SweepTool, AStateRunAloneBehavesAsInsideTheRun) {
  const SweepRun all = RunSweep("--states 2 --first 10 --seed 3");
  ASSERT_EQ(all.code, 0);
  std::map<std::string, Counts> sum;
  for (int k = 10; k < 12; ++k) {
    const SweepRun one = RunSweep("--states 1 --first " + std::to_string(k) + " --seed 3");
    ASSERT_EQ(one.code, 0);
    for (const auto& [name, c] : Table(one.out)) {
      Counts& s = sum[name];
      s.resize(c.size(), 0);
      for (std::size_t i = 0; i < c.size(); ++i) s[i] += c[i];
    }
  }
  EXPECT_EQ(sum, Table(all.out));
}

TEST(SweepTool, BadUsageEndsWith64) {
  EXPECT_EQ(RunSweep("--states").code, 64);
  EXPECT_EQ(RunSweep("--nonsense 3").code, 64);
}

}  // namespace
