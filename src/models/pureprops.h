// All pure-component properties at one T: the call the equilibrium kernel makes whenever T
// changes.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// P0, liquid volumes, virial coefficients and Phi0 at T. err: 0 all well; -i for a component i
// with p0 = 0 (the rest is still done, Phi0 skipped when err is exactly -1); 4 when
// SecondVirial failed; 3 when Phi0 failed. dT: limit distance handed up from AllP0.
void AllPureProps(Session& s, double T, int16_t& err, int16_t& dT);

// Phi0(i) of every component at T from the current P0: 1, or exp(P0*BVir(i,i)/(R T)) for the
// virial models. Returns 0, or -1 on a fault (Phi0 then as it stood).
int16_t CalcPhi0(Session& s, double T);

}  // namespace peq
