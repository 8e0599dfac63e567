// The companion process driver with stand-in companions: small shell scripts that end at once,
// sleep past a short limit, or exit with a non-zero code.
#include "companions/process.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace {

namespace fs = std::filesystem;
using peq::CompanionOutcome;
using peq::CompanionProcess;
using peq::WaitResult;

// Writes an executable shell script into dir.
std::string Script(const peqtest::TempDir& dir, const std::string& name, const std::string& body) {
  const std::string path = dir.File(name);
  {
    std::ofstream f(path);
    f << "#!/bin/sh\n" << body << "\n";
  }
  fs::permissions(path, fs::perms::owner_all, fs::perm_options::add);
  return path;
}

bool Exists(const std::string& p) {
  std::error_code ec;
  return fs::exists(p, ec);
}

TEST(CompanionProcess, QuickCompanionEndsWithExitZeroInItsWorkingDirectory) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "QUICK.EXE", "echo done > ANSWER.TXT");
  CompanionProcess p;
  std::string err;
  ASSERT_TRUE(p.Start(prog, work.path(), err)) << err;
  EXPECT_EQ(p.Wait(5000), WaitResult::Ended);
  EXPECT_EQ(p.ExitCode(), 0);
  EXPECT_FALSE(p.Running());
  // The answer lands in the working directory, not beside the program.
  EXPECT_TRUE(Exists(work.File("ANSWER.TXT")));
  EXPECT_FALSE(Exists(bin.File("ANSWER.TXT")));
}

TEST(CompanionProcess, WaitWithoutLimitWaitsForTheEnd) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "SLOW.EXE", "sleep 0.3; echo x > DONE");
  CompanionProcess p;
  std::string err;
  ASSERT_TRUE(p.Start(prog, work.path(), err)) << err;
  EXPECT_EQ(p.Wait(peq::kNoLimit), WaitResult::Ended);
  EXPECT_EQ(p.ExitCode(), 0);
  EXPECT_TRUE(Exists(work.File("DONE")));
}

TEST(CompanionProcess, NonZeroExitIsReported) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "BAD.EXE", "exit 3");
  std::string err;
  int code = 0;
  EXPECT_EQ(peq::RunCompanion(prog, work.path(), 5000, err, code), CompanionOutcome::Failed);
  EXPECT_EQ(code, 3);
}

TEST(CompanionProcess, RunPastTheLimitIsFailedAndTheProcessKeepsRunning) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "LATE.EXE", "sleep 0.8; echo late > LATE.TXT");
  std::string err;
  int code = 0;
  const auto t0 = std::chrono::steady_clock::now();
  EXPECT_EQ(peq::RunCompanion(prog, work.path(), 100, err, code), CompanionOutcome::TimedOut);
  const double waited =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
  EXPECT_LT(waited, 0.6);
  EXPECT_EQ(code, -1);
  EXPECT_FALSE(Exists(work.File("LATE.TXT")));
  // It was not ended: it finishes later and writes its file all the same.
  for (int i = 0; i < 100 && !Exists(work.File("LATE.TXT")); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_TRUE(Exists(work.File("LATE.TXT")));
}

TEST(CompanionProcess, PollReportsRunningUntilTheEnd) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "POLL.EXE", "sleep 0.3");
  CompanionProcess p;
  std::string err;
  ASSERT_TRUE(p.Start(prog, work.path(), err)) << err;
  EXPECT_TRUE(p.Running());
  EXPECT_EQ(p.Wait(0), WaitResult::TimedOut);
  EXPECT_EQ(p.Wait(5000), WaitResult::Ended);
  EXPECT_FALSE(p.Running());
}

TEST(CompanionProcess, CancelEndsTheCompanion) {
  peqtest::TempDir bin, work;
  const std::string prog = Script(bin, "HANG.EXE", "sleep 30; echo x > NEVER");
  CompanionProcess p;
  std::string err;
  ASSERT_TRUE(p.Start(prog, work.path(), err)) << err;
  const auto t0 = std::chrono::steady_clock::now();
  p.Cancel();
  EXPECT_TRUE(p.Ended());
  EXPECT_FALSE(p.Running());
  EXPECT_NE(p.ExitCode(), 0);
  EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count(), 5.0);
  EXPECT_FALSE(Exists(work.File("NEVER")));
}

TEST(CompanionProcess, MissingProgramFailsToStart) {
  peqtest::TempDir work;
  std::string err;
  int code = 0;
  EXPECT_EQ(peq::RunCompanion(work.File("NOPE.EXE"), work.path(), 1000, err, code),
            CompanionOutcome::StartFailed);
  EXPECT_FALSE(err.empty());
}

TEST(CompanionProcess, MissingWorkingDirectoryFailsToStart) {
  peqtest::TempDir bin;
  const std::string prog = Script(bin, "QUICK.EXE", "exit 0");
  CompanionProcess p;
  std::string err;
  EXPECT_FALSE(p.Start(prog, bin.File("no-such-dir"), err));
  EXPECT_FALSE(err.empty());
  EXPECT_EQ(p.Wait(100), WaitResult::NotStarted);
}

TEST(CompanionProcess, FittingWaitsFiftySecondsForLsqrunAndWithoutLimitForLsqrunz) {
  EXPECT_EQ(peq::FitWaitLimitMs(false), 50000);
  EXPECT_EQ(peq::FitWaitLimitMs(true), peq::kNoLimit);
}

}  // namespace
