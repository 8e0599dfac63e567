// Roots of the general cubic of state in the molar volume.
#pragma once

#include <array>
#include <cstdint>

namespace peq {

// Roots[1..3] (slot 0 unused).
using EOSRoots = std::array<double, 4>;

// Solves p = R T/(v - b) - a/((v + c)(v + d)) for v (m^3/kmol) at T (K) and p (kPa), written as
// v^3 + A2 v^2 + A1 v + A0 = 0 with S = R T/p + b:
//   A2 = c + d - S, A1 = c d + a/p - (c + d) S, A0 = -a b/p - c d S.
// Newton from at most two starts (vStart when above 0, else R T/p; then 2 b), 200 steps each,
// a root accepted at |dv/v| <= 1E-6; the quadratic left by deflation gives the other two.
// Roots(2) and Roots(3) are cleared before every solve. NRoots 1 or 3, three roots ascending.
// err 0, or -1 for p = 0 or when both starts fail.
void EOSSolve(double T, double p, double vStart, double a, double b, double c, double d, EOSRoots& roots,
              int16_t& nRoots, int16_t& err);

// The liquid root (root 1, or root 2 when root 1 is not positive) and the vapour root (root 3,
// or root 1 when there is one real root).
inline double LiquidRoot(const EOSRoots& r) { return r[1] <= 0.0 ? r[2] : r[1]; }
inline double VapourRoot(const EOSRoots& r, int16_t nRoots) { return nRoots == 1 ? r[1] : r[3]; }

}  // namespace peq
