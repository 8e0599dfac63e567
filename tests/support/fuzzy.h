// One comparison helper for all tests: relative difference with an absolute floor near zero.
#pragma once

#include <cmath>
#include <string>

#include <gtest/gtest.h>

namespace peqtest {

inline ::testing::AssertionResult Near(double got, double expected, double relTol,
                                       double absFloor = 1e-300) {
  const double diff = std::fabs(got - expected);
  const double scale = std::fmax(std::fabs(expected), absFloor);
  if (std::isfinite(got) && diff <= relTol * scale) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "got " << got << ", expected " << expected << ", relative difference "
         << (diff / scale) << " > " << relTol;
}

// Directory of the source tree and of the build tree (beside the executables: the data files).
inline std::string SourceDir() { return PEQ_SOURCE_DIR; }
inline std::string BinaryDir() { return PEQ_BINARY_DIR; }

}  // namespace peqtest

#define EXPECT_REL(got, expected, tol) EXPECT_TRUE(::peqtest::Near((got), (expected), (tol)))
