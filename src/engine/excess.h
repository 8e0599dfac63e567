// Excess functions of the liquid from the activity coefficients: gE, hE (= delta(M)h), T sE,
// cpE, and the closed composition derivatives of gE/(R T) of the binary parameter models.
// Units kJ/kmol, R = 8.31451 kJ/(kmol K).
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gE = R T sum x(i) ln gamma(i); components with x(i) = 0 are skipped. Err -1 on failure.
double ExcessGE(Session& s, double T, const Vec<double>& x, int16_t& Err);

// hE, T sE and gE at T by the central five-point derivative of gE/(R T) with step
// s.Excess.h (0.75 K). In the phi-phi concept the equation of state gives them (p used there).
void ExcessT(Session& s, double T, double p, const Vec<double>& x, double& hE, double& TsE, double& gE,
             int16_t& Err);

// cpE by the same five-point formula on hE (ExcessT at T + k h, k = -2..2). In the phi-phi
// concept the equation of state gives it at p.
void ExcessCp(Session& s, double T, double p, const Vec<double>& x, double& cpE, int16_t& Err);

// The same at the session's PIso (the pressure matters only in the phi-phi concept).
void ExcessCp(Session& s, double T, const Vec<double>& x, double& cpE, int16_t& Err);

// Order-th derivative to x2 of x1 ln x1 + x2 ln x2 (x = x2); 0 at x = 0 or 1, outside 0..1 and
// for a negative order. A value beyond the double range (a high order very close to an end) is a
// NumericFault.
double GMIdeal(int Order, double x);

// Order-th derivative (0..6) to x = x2 of gE/(R T) of the binary under the session's GEModel
// (1 Wilson, 2 NRTL, 4 Redlich-Kister, 9 UNIQUAC) with the pair parameters P1..P4 at T.
// 0 for any other model or x outside 0..1.
double GMFor(const Session& s, int Order, double x, double P1, double P2, double P3, double P4);

// The pair parameters P1..P4 of GMFor for the pair (K1, K2) at T, from the slots of the pair and
// their temperature functions: Wilson Lambda12, Lambda21; NRTL tau12, tau21, alpha; Redlich-
// Kister A, B, C (B with the sign of t = x(K1) - x(K2)), 0; UNIQUAC ln tau21, ln tau12,
// ln(r(K2)/r(K1)), 0. err -1 on failure or for another model (P then 0). GMFor takes the UNIQUAC
// q1, q2 of the session's pair (Komp1, Komp2).
void GMForParams(Session& s, double T, int16_t K1, int16_t K2, double P[4], int16_t& err);

}  // namespace peq
