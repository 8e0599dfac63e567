// Activity coefficients of the gE models: the dispatcher over GEModel.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma(1..NKomp) at T and x(1..NKomp) (x used as given, not normalised) for GEModel.
// err 0, or -1 with every gamma set to 1. GEModel 0 gives gamma 1; an unknown code leaves gamma
// as it was with err 0; the group models clear UnifacNeu.
// UNIFAC (GEModel 21) replaces a mole fraction of exactly 0 by 1E-10; with this overload the
// replacement is made in a scratch copy, the caller's x stays as it was.
void ActivityCoeffs(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

// The same for a caller's array that may be changed: UNIFAC's replacement of a zero mole
// fraction by 1E-10 stays in x.
void ActivityCoeffs(Session& s, double T, Vec<double>& x, Vec<double>& gamma, int16_t& err);

}  // namespace peq
