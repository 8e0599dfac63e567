#pragma once

namespace peq {

inline constexpr double kR = 8.31451;        // J/(mol K)
inline constexpr double kRcal = 1.98584;     // cal/(mol K), the program's value
inline constexpr double kT0 = 273.15;        // K
inline constexpr double kLn10 = 2.302585092994046;
inline constexpr double kPresent = 1E-6;     // a datum at or below this counts as empty
inline constexpr float kTrueZero = 1E-37f;   // how a true zero is stored in the database

}  // namespace peq
