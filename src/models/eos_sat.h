// Saturation states of a pure component on its cubic equation of state (equal-area rule), and
// the EOS forms of the pure-component vapour pressure and saturated-vapour fugacity coefficient.
#pragma once

#include <cstdint>

#include "models/eos_solve.h"
#include "session/session.h"

namespace peq {

// A saturation state: p (kPa), T (K), liquid and vapour molar volume (m^3/kmol).
struct EOSSatOut {
  double p = 0, T = 0, vL = 0, vV = 0;
};

// Equal-area test on the three roots v1 <= v2 <= v3 at T, p. With
//   A(u, w) = R T ln((w - b)/(u - b)) + a (1/(w + c) - 1/(u + c))                      (c = d)
//   A(u, w) = R T ln((w - b)/(u - b)) + (a/(c - d)) ln((w + c)(u + d)/((u + c)(w + d)))  (c != d)
// (the integral of the cubic's p over v), A1 = A(v2, v3) - (v3 - v2) p, A2 = A(v1, v2) - (v2 - v1) p:
// F = (A1 + A2)/(A1 - A2). F < 0: p lies above the saturation pressure. Throws NumericFault.
double MaxwellTest(double T, double p, double a, double b, double c, double d, const EOSRoots& roots);

// Saturation pressure of component i at T with its parameters a .. d at T. T at or above TKrit(i)
// returns -1 with out untouched. Secant on p over the equal-area test, at most 300 rounds.
// Returns 0 with out.p, out.vL, out.vV (out.T = T), or -1 on failure.
int16_t EOSPureSatP(const Session& s, int i, double T, double pStart, double a, double b, double c, double d,
                    EOSSatOut& out);

// Saturation temperature of component i at p (kPa); T in: a start when above 0, else
// T = ln(PKrit) TKrit/ln(p); out: the saturation T. p at or above PKrit(i) returns -1 with T
// untouched. vStart: start root of the cubic (0 for none). For p/PKrit at 0.02 and above the
// point is first bracketed by a march down from TKrit (at most 60 steps of (PKrit - p)/100).
// Secant on T over the equal-area test, at most 200 rounds, steps at most 0.01 T.
// Returns 0, or -1 on failure (also for p at or below 1 kPa without a start: ln p <= 0).
int16_t EOSPureSatT(const Session& s, int i, double p, double vStart, double& T, EOSSatOut* out = nullptr);

// The phi-phi branch of the vapour pressures: P0(i) at T from the EOS tables for every component
// below its TKrit, 0 at or above it and wherever the search fails; bad = the last component with
// P0 = 0, else 0.
void EOSAllP0(Session& s, double T, int16_t& bad);

// The EOS branch of Phi0: the fugacity coefficient of each pure component on its vapour root at
// T and p = P0(i), with the EOS of model (EOSModel in the phi-phi concept, VapModel otherwise).
// Returns 0, or -1 on a failure (Phi0 then as it stood).
int16_t EOSPhi0(Session& s, double T, int model);

}  // namespace peq
