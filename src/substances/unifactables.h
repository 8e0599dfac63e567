// The group tables of the two group-contribution models as read from their parameter files:
// interaction parameters by main-group pair, R, Q and main group by subgroup. They live in the
// session, are read at the first Mod. UNIFAC calculation and again whenever UnifacNeu is set.
#pragma once

#include <cstdint>

#include "session/arrays.h"

namespace peq {

// Bounds of the tables (indices 0..max are allocated; main groups in use start at 1).
inline constexpr int kModMainMax = 150;
inline constexpr int kModSubMax = 300;
inline constexpr int kOUnifMainMax = 79;
inline constexpr int kOUnifSubMax = 232;

// Initial a of a Mod. UNIFAC main-group pair that the file does not set; anything above 8999
// marks the pair as missing.
inline constexpr float kModUnset = 9000.0f;
inline constexpr float kModMissingAbove = 8999.0f;

struct UnifacTables {
  // Modified UNIFAC (Dortmund): psi(m,n) = exp(-(a + b T + c T^2)/T), a in K, b dimensionless,
  // c in 1/K, indexed by main groups (0..150). Subgroup R, Q and main group (0..300).
  Mat<float> ModA, ModB, ModC;
  Vec<float> ModR, ModQ;
  Vec<int16_t> ModMain;

  // Original UNIFAC: psi(m,n) = exp(-a/T), a in K, main groups 0..79; subgroups 0..232.
  Mat<float> OUnifA;
  Vec<float> OUnifR, OUnifQ;
  Vec<int16_t> OUnifMain;

  // The Mod. UNIFAC file has been read (or its reading tried) in this session.
  bool ModGeladen = false;
  // Raised each time a table set is reset for a new load; the group models key their
  // structures and temperature terms on it.
  uint32_t ModStand = 0, OUnifStand = 0;
};

}  // namespace peq
