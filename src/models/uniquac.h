// The UNIQUAC equation (Abrams, Prausnitz, AIChE J. 21 (1975) 116), z = 10.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma(1..NKomp) at T (K) and x (used as given), with r and q the RUniquac and QUniquac of the
// components. For the pair i < j: tau(i,j) = exp(-par12/(R T)), tau(j,i) = exp(-par21/(R T)),
// par12 and par21 from L1..L6 by ParUnitUNIQUAC. S(k) or Rbar at or below 0, ln gamma at or
// above 20, or an arithmetic fault: err -1, gamma 1.
void UniquacGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

}  // namespace peq
