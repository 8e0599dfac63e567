// Pair critical data, second virial coefficients and the fugacity coefficient of the saturated
// pure vapour.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// Fills TcMix, PcMix, OmegaMix; err -1 when a component has no rho(cr).
void PairCrit(Session& s, int16_t& err);

// Fills BVir(i,j) (m^3/kmol) at T by Pitzer-Curl with the k(ij) of GEPar layers 7 and 8.
// Does nothing unless VapModel is 1 or 2. Returns 0, or -1 on an arithmetic fault.
int16_t SecondVirial(Session& s, double T);

}  // namespace peq
