// The Redlich-Kister expansion in its multicomponent form (Redlich, Kister, Ind. Eng. Chem. 40
// (1948) 345): gE/(R T) = sum over pairs i < j of x(i) x(j) [A + B d + C d^2 + D d^3],
// d = x(i) - x(j).
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// The exact value of ln gamma that marks a failure of the expansion.
inline constexpr double kRKFailure = 20.0;

// gamma(1..NKomp) at T (K) and x (used as given). For the pair i < j (always dimensionless):
// A = L1 + L2/T + L3 ln T, B = L4 + L5/T + L6 ln T, C = L7 + L8/T + L9 ln T,
// D = L10 + L11/T + L12 ln T. T below 1E-10, a ln gamma of exactly 20.0 or an arithmetic fault:
// err -1, gamma 1.
void RedlichKisterGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma,
                        int16_t& err);

}  // namespace peq
