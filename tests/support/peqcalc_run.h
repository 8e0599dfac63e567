// Running the built command-line calculator from a test and reading its printed JSON.
#pragma once

#include <string>
#include <vector>

namespace peqtest {

struct PeqcalcRun {
  int code = -1;        // exit code, -1 when it did not end normally
  std::string out, err;  // stdout and stderr
};

// Runs build/peqcalc with the arguments (each quoted for the shell).
PeqcalcRun RunPeqcalc(const std::vector<std::string>& args);

// The numbers of the array behind "key": in printed JSON; empty when the key is absent.
std::vector<double> JsonNumbers(const std::string& json, const std::string& key);

}  // namespace peqtest
