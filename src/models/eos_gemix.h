// gE models inside the GE mixing rules of the cubic equations of state: Wilson, NRTL and UNIQUAC
// with pair polynomials in kelvin,
//   P12 = L1 + L2 T1 + L3 T1^2, P21 = L4 + L5 T1 + L6 T1^2, P3 = L7 + L8 T1 + L9 T1^2,
// T1 = T - 273.15, on the parameter slots of each pair i < j.
//
//   Wilson   Lambda(i,j) = (b(j)/b(i)) exp(-P12/T), Lambda(j,i) = (b(i)/b(j)) exp(-P21/T):
//            gE/(RT) = -sum x(i) ln(sum x(j) Lambda(i,j)) + sum(i<j) x(i) x(j) P3(i,j)
//   NRTL     tau(i,j) = P12/T, tau(j,i) = P21/T, alpha = P3, G = exp(-alpha tau) (Renon and
//            Prausnitz, AIChE J. 14 (1968) 135)
//   UNIQUAC  tau(i,j) = exp(-P12/T), tau(j,i) = exp(-P21/T), z/2 = 5 (Abrams and Prausnitz,
//            AIChE J. 21 (1975) 116)
//
// The covolumes b(i) of the Wilson ratios are taken at the T of the preparation and treated as
// independent of T in the derivatives (every model in use has a constant b). The composition
// is taken to sum to 1. All functions throw NumericFault on an arithmetic fault.
#pragma once

#include "models/eos_types.h"
#include "session/session.h"

namespace peq {

// Pair quantities of the model (1 Wilson, 2 NRTL, 9 UNIQUAC) at T with their first and second T
// derivatives; b(i): covolumes at T, used by Wilson. Another model code throws NumericFault.
void GEMixPrepare(const Session& s, int model, double T, const Vec<double>& b, GEMixPairs& p);

// gE/(RT) of the prepared model at x, and its first and second temperature derivatives.
double GEMixValue(GEMixPairs& p, const Vec<double>& x);
double GEMixDT(GEMixPairs& p, const Vec<double>& x);
double GEMixD2T(GEMixPairs& p, const Vec<double>& x);

// ln gamma(i) = d(n gE/(RT))/dn(i) of the prepared model at x, and its T derivatives.
double GEMixLnGamma(GEMixPairs& p, const Vec<double>& x, int i);
double GEMixLnGammaDT(GEMixPairs& p, const Vec<double>& x, int i);
double GEMixLnGammaD2T(GEMixPairs& p, const Vec<double>& x, int i);

// All at once: g[0..order] = gE/(RT) and its T derivatives; when lnGamma is given, lnGamma(i)
// (order 0 only) for every component.
void GEMixEval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lnGamma);

}  // namespace peq
