// Flash calculations of a feed of NKomp components into liquid and vapour, in both concepts.
// The flash function is the Rachford-Rice form written without K values, so that no division by
// p or by a fugacity coefficient is needed. Results land in the session: liquid in XLiq, vapour
// in YGas (both normalised), Gamma, PhiKorr, P0.
#pragma once

#include "session/session.h"

namespace peq {

// z: the feed as mole fractions (1..NKomp); it may be one of the session's arrays. Each flash runs
// under an error trap: an arithmetic fault ends it with its failure value, the arrays then as
// they stood at the fault. phi-phi: phi of both phases stand in EOSScratch.PhiL, PhiV.

// T in K and p in kPa given: returns the molar vapour fraction eta(V), -1 when there is no
// solution (failed vapour pressure or EOS, or more than 100 rounds). Secant on eta from 0.5 with
// a first step of 0.001 until |d/eta| < 1E-7; an eta below 0 is reset to 0.1, above 1 to 0.9.
// A feed outside the two-phase region therefore ends with -1, never with 0 or 1.
double FlashTP(Session& s, double T, double p, const Vec<double>& z);

// p and eta(V) given: returns T, 0 when there is no solution. Secant on T from the bubble
// temperature of the feed with a first step of 0.1 K until |d/T| < 1E-8, at most 500 rounds.
double FlashPEta(Session& s, double p, double eta, const Vec<double>& z);

// T and eta(V) given: returns p, 0 or less when there is no solution. Secant on p from a bubble
// pressure (gamma-phi: of the feed; phi-phi: of the feed without component 1, the others in
// equal parts) with a first step of 0.01 kPa until |d/p| < 1E-11, at most 500 rounds.
double FlashTEta(Session& s, double T, double eta, const Vec<double>& z);

}  // namespace peq
