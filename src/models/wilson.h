// Wilson's equation (G. M. Wilson, J. Am. Chem. Soc. 86 (1964) 127).
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma(1..NKomp) at T (K) and x (used as given). Parameters of the pair i < j: with
// ParUnitWilson 2 the slots L1 and L4 are Lambda(i,j) and Lambda(j,i) themselves; otherwise
// par12 = L1 + L2 T1 + L3 T1^2 and par21 = L4 + L5 T1 + L6 T1^2 (T1 = T - 273.15) are energies
// of the unit code, and Lambda(i,j) = v(j)/v(i) exp(-par12/(R T)), Lambda(j,i) = v(i)/v(j)
// exp(-par21/(R T)) with the volumes VLiqCm3 when WilsonVFix and AlleVWilson, else VLiq
// (LiquidVolumes runs first; its failure sets err -1 and the calculation goes on).
// A sum S(k) = sum_j Lambda(k,j) x(j) at or below 0, or an arithmetic fault: err -1, gamma 1.
void WilsonGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

}  // namespace peq
