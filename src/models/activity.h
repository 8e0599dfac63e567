// Activity coefficients of the gE models: the dispatcher over GEModel.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma(1..NKomp) at T and x(1..NKomp) (x used as given, not normalised) for GEModel.
// err 0, or -1 with every gamma set to 1. GEModel 0 gives gamma 1; an unknown code leaves gamma
// as it was with err 0; the group models clear UnifacNeu.
void ActivityCoeffs(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

}  // namespace peq
