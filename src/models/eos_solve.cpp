#include "models/eos_solve.h"

#include <cmath>
#include <utility>

#include "session/constants.h"

namespace peq {

void EOSSolve(double T, double p, double vStart, double a, double b, double c, double d, EOSRoots& roots,
              int16_t& nRoots, int16_t& err) {
  err = 0;
  roots[2] = 0.0;
  roots[3] = 0.0;
  if (p == 0.0) {
    err = -1;
    return;
  }
  const double RT = kR * T;
  const double S = RT / p + b;
  const double A2 = c + d - S;
  const double A1 = c * d + a / p - (c + d) * S;
  const double A0 = -a * b / p - c * d * S;
  if (!std::isfinite(A2) || !std::isfinite(A1) || !std::isfinite(A0)) {
    err = -1;
    return;
  }
  // Attempt 1 starts at vStart (if given) or at the ideal-gas volume, attempt 2 at 2 b;
  // attempt 3 is failure.
  int attempt = 1;
  double v = vStart > 0.0 ? vStart : RT / p;
  bool found = false;
  while (!found) {
    for (int step = 0; step < 200; ++step) {
      const double fp = (3.0 * v + 2.0 * A2) * v + A1;
      if (std::fabs(fp) < 1e-80) break;
      const double f = ((v + A2) * v + A1) * v + A0;
      const double dv = -f / fp;
      v += dv;
      if (!std::isfinite(v)) break;
      if (std::fabs(dv / v) <= 1e-6) {
        found = true;
        break;
      }
    }
    if (found) break;
    ++attempt;
    if (attempt == 2) {
      v = 2.0 * b;
    } else {
      err = -1;
      return;
    }
  }
  // Deflation: the remaining quadratic v^2 + (v1 + A2) v + ((v1 + A2) v1 + A1).
  roots[1] = v;
  const double h = -0.5 * (v + A2);
  const double disc = h * h - ((v + A2) * v + A1);
  if (!(disc >= 0.0)) {
    nRoots = 1;
    return;
  }
  nRoots = 3;
  const double sq = std::sqrt(disc);
  roots[2] = h - sq;
  roots[3] = h + sq;
  if (roots[1] > roots[2]) std::swap(roots[1], roots[2]);
  if (roots[2] > roots[3]) std::swap(roots[2], roots[3]);
  if (roots[1] > roots[2]) std::swap(roots[1], roots[2]);
}

}  // namespace peq
