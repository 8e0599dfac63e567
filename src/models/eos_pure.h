// Cubic equations of state: the pure-component parameters.
//
// Every model is written as the one general cubic
//   p = R T/(v - b) - a/((v + c)(v + d))
// with R = 8.31451 kJ/(kmol K), p in kPa, v in m^3/kmol. Model codes: 3 Redlich-Kwong,
// 4 Soave-Redlich-Kwong, 5 Peng-Robinson, 6 van der Waals, 7 a van der Waals form with a = a0/T.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// Omega constants. Redlich-Kwong and Soave: Oa = 1/(9 (2^(1/3) - 1)), Ob = (2^(1/3) - 1)/3.
// Peng-Robinson: the smallest real root of the critical-point conditions, in closed form with
// y = (13 + 2^4.5)^(1/3): Ob = -1/32 - 21/(32 y) + 3 y/32, Oa = (10/3) Ob^2 + (4/3) Ob + 1/3
// (Peng and Robinson, Ind. Eng. Chem. Fundam. 15 (1976) 59).
double EOSOmegaA(int model);
double EOSOmegaB(int model);
// Critical compressibility factor of the model: 1/3 (3, 4), 0.3074 (5), 3/8 (6, 7).
double EOSZc(int model);

// Commits the coefficient arrays EOSa0 .. EOSdExp, VKrit, RhoKritEOS and AlphaArt of every
// component for the model code. err 0, or -1 for an unknown code or an arithmetic fault (a
// component without TKrit or PKrit).
void EOSSetPure(Session& s, int model, int16_t& err);

// EOSPar[1..4][i] = a, b, c, d of every component at T. T below 1E-6: nothing is done.
// Throws NumericFault on an arithmetic fault (Soave alpha at a negative T, for instance).
void EOSPureAt(Session& s, double T);
// a, b, c, d of one component at T, without touching the session arrays.
void EOSPureAtOne(const Session& s, int i, double T, double& a, double& b, double& c, double& d);

// EOSParDT and EOSParD2T: the first and second temperature derivatives of a, b, c, d at T.
void EOSPureDT(Session& s, double T);

// k(ij) = a + b/T + c ln(T) + d (T - 273.15) of the pair i, j, with a, b, c, d the slots L13 to
// L16 of the pair (the coefficients of the k(ij) input window).
double KijAt(const Session& s, int i, int j, double T);

// Slot L (1..24) of the parameter list of the pair i < j, as laid into GEPar.
double PairSlot(const Session& s, int L, int i, int j);

// "Models OK" step 6: the EOS parameter tables of the equation in use, EOSModel in the phi-phi
// concept, the cubic vapour model (VapModel 3 to 5) otherwise; nothing for the ideal gas and the
// virial equation. False when EOSSetPure failed (the caller shows "Error while calculating the
// EOS-parameters").
bool EOSTabellenBerechnen(Session& s);

}  // namespace peq
