// Shared parts of the fuzz targets: a private working directory with the bundled data files,
// writing the fuzzer's input as a file, and the checks a target makes after a reader ran.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "session/session.h"

namespace peqfuzz {

// The process's own working directory (created once under TMPDIR or /tmp, removed at exit),
// holding copies of the bundled data files (database, synonyms, k(ij) and group parameter
// files). Ends with "/".
const std::string& WorkDir();

// Writes the bytes to WorkDir()/name and returns the full path.
std::string WriteInput(const std::string& name, const uint8_t* data, std::size_t size);

// Stops the run with a report when cond is false (libFuzzer saves the input).
void Require(bool cond, const std::string& what);

// Stops the run when a data or result field of the session holds a NaN or an infinity.
void RequireFinite(const peq::Session& s, const char* after);

// A session as the program has it after start: the group parameter files of the working
// directory chosen, the bundled database opened from it.
peq::Session FreshSession();

// The bundled project in examples/ loaded as the program loads it ("Models OK" included), for
// the targets that need a mixture.
peq::Session LoadedSession(const char* example);

// Index of the open database, for the check that a refused file leaves it as it was.
struct BankIndex {
  int16_t BankAnz = 0;
  bool BankOffen = false;
  std::string BankDatei, PfadBank;
  peq::Vec<std::string> BankCAS, BankName, BankFormel;
  peq::Vec<int16_t> BankNr;
  bool operator==(const BankIndex&) const = default;
};
BankIndex IndexOf(const peq::Session& s);

}  // namespace peqfuzz
