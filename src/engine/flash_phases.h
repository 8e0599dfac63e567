// The two phases of a flash in the phi-phi concept, shared by the flashes and their retry.
#pragma once

#include "session/session.h"

namespace peq {

// phi-phi: CompMat columns from XLiq and YGas; the liquid cubic at T, p from the start vL
// (vL = root 1, or root 2 when root 1 is not positive) and the vapour cubic from vV (root 3, or
// root 1 when only one real root exists); phiL and phiV land in EOSScratch.PhiL, PhiV. The
// T tables must stand (EOSMixAtT). False when a cubic fails. Arithmetic faults throw
// NumericFault to the caller's trap.
bool BothPhases(Session& s, double T, double p, double& vL, double& vV);

}  // namespace peq
