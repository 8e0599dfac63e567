// Starting a companion program and waiting for it: one driver for LSQRUN.EXE, LSQRUNZ.EXE and
// PEQBATCH.EXE. POSIX spawn underneath; no window system, so the window layer can poll it from
// its event loop and the command-line calculator can simply wait.
#pragma once

#include <string>
#include <sys/types.h>

namespace peq {

// How long the fitting waits for LSQRUN.EXE; a run past it counts as failed. LSQRUNZ.EXE and
// PEQBATCH.EXE are waited for without a limit.
inline constexpr int kLsqrunLimitMs = 50000;
inline constexpr int kNoLimit = -1;

// The wait limit of the fitting companion: 50 s for LSQRUN.EXE (gamma-phi), none for
// LSQRUNZ.EXE (phi-phi).
inline int FitWaitLimitMs(bool phiPhi) { return phiPhi ? kNoLimit : kLsqrunLimitMs; }

enum class WaitResult {
  Ended,       // the process ended; ExitCode() tells how
  TimedOut,    // still running when the limit passed; it is left running
  NotStarted,  // nothing was started (or it was already collected)
};

class CompanionProcess {
 public:
  CompanionProcess() = default;
  // A process still running when the object goes is left running (it is never killed here).
  ~CompanionProcess();
  CompanionProcess(const CompanionProcess&) = delete;
  CompanionProcess& operator=(const CompanionProcess&) = delete;

  // Starts `program` (a full path, no arguments) with `workDir` as its working directory.
  // False with the system's text in err when the start fails.
  bool Start(const std::string& program, const std::string& workDir, std::string& err);

  // True while the started process has not ended. Collects it when it has.
  bool Running();

  // Waits until the process ends or limitMs milliseconds pass (kNoLimit: no limit, 0: one look).
  WaitResult Wait(int limitMs);

  // Ends the process at once (the user's Cancel) and collects it.
  void Cancel();

  // Exit code of an ended process; a process ended by a signal gives 128 + the signal number.
  int ExitCode() const { return exitCode_; }
  bool Ended() const { return ended_; }
  pid_t Pid() const { return pid_; }

 private:
  bool Collect(bool block);

  pid_t pid_ = -1;
  bool ended_ = false;
  int exitCode_ = -1;
};

// Outcome of a whole companion run as the fitting and the batch distillation judge it.
enum class CompanionOutcome {
  Ok,           // ended with exit code 0 within the limit
  StartFailed,  // could not be started
  TimedOut,     // still running at the limit (left running)
  Failed,       // ended with a non-zero exit code
};

// Starts the program in workDir and waits up to limitMs. err carries the system's text of a
// failed start; exitCode the code of an ended process (-1 otherwise).
CompanionOutcome RunCompanion(const std::string& program, const std::string& workDir, int limitMs,
                              std::string& err, int& exitCode);

}  // namespace peq
