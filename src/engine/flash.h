// Flash calculations of a feed of NKomp components into liquid and vapour, in both concepts.
// The flash function is the Rachford-Rice form written without K values, so that no division by
// p or by a fugacity coefficient is needed. Results land in the session: liquid in XLiq, vapour
// in YGas (both normalised), Gamma, PhiKorr, P0.
#pragma once

#include "session/session.h"

namespace peq {

// T in K and p in kPa given: returns the molar vapour fraction eta(V), -1 when there is no
// solution (failed vapour pressure or EOS, or more than 100 rounds).
double FlashTP(Session& s, double T, double p, const Vec<double>& z);

// p and eta(V) given: returns T, 0 when there is no solution.
double FlashPEta(Session& s, double p, double eta, const Vec<double>& z);

// T and eta(V) given: returns p, 0 or less when there is no solution.
double FlashTEta(Session& s, double T, double eta, const Vec<double>& z);

}  // namespace peq
