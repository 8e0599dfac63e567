// Sessions with hand-made component data for the tests of the activity-coefficient models, and
// a temporary directory for parameter files.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <string>
#include <unistd.h>

#include "session/session.h"

namespace acttest {

// A session of n components with GEModel set; all parameters zero.
inline peq::Session MakeSession(int n, int16_t geModel) {
  peq::Session s;
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  s.GEModel = geModel;
  return s;
}

// Sets slot L(n), n = 1..24, of the pair i < j (the inverse of the slot table).
inline void SetSlot(peq::Session& s, int n, int i, int j, double v) {
  const std::size_t k = static_cast<std::size_t>((n - 1) / 4 * 2 + 1);
  const std::size_t a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
  switch ((n - 1) % 4) {
    case 0: s.GEPar(k, a, b) = v; break;
    case 1: s.GEPar(k + 1, a, b) = v; break;
    case 2: s.GEPar(k, b, a) = v; break;
    default: s.GEPar(k + 1, b, a) = v; break;
  }
}

// x(1..n) with slot 0 unused.
inline peq::Vec<double> X(std::initializer_list<double> v) {
  peq::Vec<double> x(v.size() + 1, 0.0);
  std::size_t i = 1;
  for (double d : v) x[i++] = d;
  return x;
}

// gamma(1..n) preset to a marker value.
inline peq::Vec<double> G(int n, double v = -7.0) {
  return peq::Vec<double>(static_cast<std::size_t>(n) + 1, v);
}

// A fresh directory under the system's temporary directory, removed at the end of the test.
struct TempDir {
  std::filesystem::path path;
  explicit TempDir(const std::string& tag) {
    path = std::filesystem::temp_directory_path() /
           ("peqact-" + tag + "-" + std::to_string(::getpid()));
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path, ec);
  }
  std::string Write(const std::string& name, const std::string& text) const {
    const std::filesystem::path p = path / name;
    std::ofstream out(p, std::ios::binary);
    out << text;
    return p.string();
  }
};

}  // namespace acttest
