// A full disk for this process: files may not grow beyond a given number of bytes (SIGXFSZ
// ignored, so a write reports EFBIG instead of ending the process). Restored on destruction.
#pragma once

#include <sys/resource.h>

#include <csignal>

namespace peqtest {

class DiskFull {
 public:
  explicit DiskFull(rlim_t limit) {
    getrlimit(RLIMIT_FSIZE, &old_);
    oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit r = old_;
    r.rlim_cur = limit;
    setrlimit(RLIMIT_FSIZE, &r);
  }
  ~DiskFull() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, oldHandler_);
  }
  DiskFull(const DiskFull&) = delete;
  DiskFull& operator=(const DiskFull&) = delete;

 private:
  rlimit old_{};
  void (*oldHandler_)(int) = SIG_DFL;
};

}  // namespace peqtest
