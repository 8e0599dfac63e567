// The NRTL equation (Renon, Prausnitz, AIChE J. 14 (1968) 135).
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma(1..NKomp) at T (K) and x (used as given). For the pair i < j: par12 and par21 from
// L1..L6 and alpha12 = L7 + L8 T1 + L9 T1^2 (T1 = T - 273.15); tau(i,j) = par12/(R T),
// tau(j,i) = par21/(R T) by ParUnitNRTL; G = exp(-alpha tau). ln gamma at or above 20, or an
// arithmetic fault: err -1, gamma 1.
void NRTLGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

}  // namespace peq
