#include "companions/process.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

#include "session/filewrite.h"

extern char** environ;

namespace peq {

CompanionProcess::~CompanionProcess() {
  // Collect it if it has ended meanwhile; a running one keeps on.
  if (pid_ > 0 && !ended_) Collect(false);
}

bool CompanionProcess::Start(const std::string& program, const std::string& workDir, std::string& err) {
  err.clear();
  if (pid_ > 0 && !ended_) {
    err = "a companion is still running";
    return false;
  }
  pid_ = -1;
  ended_ = false;
  exitCode_ = -1;

  posix_spawn_file_actions_t actions;
  if (int rc = posix_spawn_file_actions_init(&actions); rc != 0) {
    err = SystemText(rc);
    return false;
  }
  int rc = 0;
  if (!workDir.empty()) rc = posix_spawn_file_actions_addchdir_np(&actions, workDir.c_str());
  pid_t pid = -1;
  if (rc == 0) {
    std::string arg0 = program;
    char* argv[] = {arg0.data(), nullptr};
    rc = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv, environ);
  }
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) {
    err = SystemText(rc);
    return false;
  }
  pid_ = pid;
  // glibc reports a failed chdir or exec through the return value of posix_spawn.
  return true;
}

bool CompanionProcess::Collect(bool block) {
  if (pid_ <= 0 || ended_) return ended_;
  int status = 0;
  pid_t r;
  do {
    r = waitpid(pid_, &status, block ? 0 : WNOHANG);
  } while (r < 0 && errno == EINTR);
  if (r == pid_) {
    ended_ = true;
    if (WIFEXITED(status))
      exitCode_ = WEXITSTATUS(status);
    else if (WIFSIGNALED(status))
      exitCode_ = 128 + WTERMSIG(status);
    return true;
  }
  if (r < 0) {
    // Not our child any more (collected elsewhere): nothing left to wait for.
    ended_ = true;
    exitCode_ = -1;
    return true;
  }
  return false;
}

bool CompanionProcess::Running() {
  if (pid_ <= 0) return false;
  return !Collect(false);
}

WaitResult CompanionProcess::Wait(int limitMs) {
  if (pid_ <= 0) return WaitResult::NotStarted;
  if (ended_) return WaitResult::Ended;
  if (limitMs < 0) {
    Collect(true);
    return WaitResult::Ended;
  }
  // Poll with a short sleep that grows to 10 ms: a companion that ends at once costs little,
  // one that runs long costs no processor time.
  using Clock = std::chrono::steady_clock;
  const auto end = Clock::now() + std::chrono::milliseconds(limitMs);
  auto nap = std::chrono::microseconds(200);
  for (;;) {
    if (Collect(false)) return WaitResult::Ended;
    const auto now = Clock::now();
    if (now >= end) return WaitResult::TimedOut;
    std::this_thread::sleep_for(std::min<Clock::duration>(nap, end - now));
    if (nap < std::chrono::milliseconds(10)) nap *= 2;
  }
}

void CompanionProcess::Cancel() {
  if (pid_ <= 0 || ended_) return;
  kill(pid_, SIGKILL);
  Collect(true);
}

CompanionOutcome RunCompanion(const std::string& program, const std::string& workDir, int limitMs,
                              std::string& err, int& exitCode) {
  exitCode = -1;
  CompanionProcess p;
  if (!p.Start(program, workDir, err)) return CompanionOutcome::StartFailed;
  if (p.Wait(limitMs) != WaitResult::Ended) return CompanionOutcome::TimedOut;
  exitCode = p.ExitCode();
  return exitCode == 0 ? CompanionOutcome::Ok : CompanionOutcome::Failed;
}

}  // namespace peq
