// The equilibrium kernel: bubble and dew points of a mixture of NKomp components under the
// session's models. Each routine branches on Konzept (gamma-phi or phi-phi) inside.
//
// Units: T in K, p in kPa, molar volumes in m^3/kmol, R = 8.31451 kJ/(kmol K).
//
// Failure reaches the caller as a result of 0 (Err in CalcKValues). Every routine runs under an
// error trap: an arithmetic fault ends it with 0 and leaves the session arrays as they stood at
// the fault (never a NaN); callers must not read the arrays after a 0. Three exits differ on
// purpose: the gamma-phi CalcBubbleT at its round limit returns the last T, the phi-phi
// CalcBubbleP at its round limit returns the last p, and CalcBubbleT checks vL and vV only in the
// phi-phi concept, where they are set. A T (bubble/dew pressure) or p (bubble/dew temperature)
// at or below 0 gives 0 at once.
//
// Arrays left behind (slot 0 unused):
//   YGas     vapour composition of the last bubble calculation (y = K x, not normalised)
//   XLiq     liquid composition of the last dew calculation (normalised)
//   KWert, Gamma, PhiKorr, PhiVMix as the callers pass them, see each routine
//   CompMat  [0] liquid and [1] vapour compositions handed to the EOS (phi-phi)
//   KernScratch.Rounds  rounds of the last phi-phi bubble-pressure or bubble-temperature iteration
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// gamma-phi K values at T, p for the liquid x:
//   K(i) = P0(i) gamma(i)/(p PhiK(i)), PhiK(i) = [PhiVMix(i)/Phi0(i)] exp(-VLiq(i) (p - P0(i))/(R T)),
// y(i) = x(i) K(i) (not normalised). Needs AllPureProps at this T first. PhiK, gamma, K are set
// to 1 and y to x; in the phi-phi concept that is all. gamma comes from x once (its failure is
// not reported here). The ideal gas (VapModel 0) gives K = P0 gamma/p with PhiK = 1. Otherwise
// the vapour correction is iterated on the unnormalised y until y(1) moves by less than 0.001
// (component 1 only); more than 10 rounds, a vapour pressure of 0, a failed vapour EOS or an
// arithmetic fault set err = -1.
// UNIFAC (GEModel 21) replaces a mole fraction of exactly 0 by 1E-10 in x, and the replacement
// stays in the caller's array (so y of that component is 1E-10 K, not 0). The same holds for
// CalcBubbleP and CalcBubbleT in the gamma-phi concept. The overloads for a constant x work on a
// copy of it (KernScratch.XIn) with the same results.
void CalcKValues(Session& s, double T, double p, const Mat<double>& BVir, Vec<double>& x, Vec<double>& gamma,
                 Vec<double>& PhiVMix, Vec<double>& PhiK, Vec<double>& K, Vec<double>& y, int16_t& err);
void CalcKValues(Session& s, double T, double p, const Mat<double>& BVir, const Vec<double>& x, Vec<double>& gamma,
                 Vec<double>& PhiVMix, Vec<double>& PhiK, Vec<double>& K, Vec<double>& y, int16_t& err);

// Bubble pressure at T of the liquid x. pStart > 0: the previous p (gamma-phi) or the start
// (phi-phi, from 1E-4). yStart(1) = 0 asks for a made vapour start (phi-phi). gamma, PhiK, K: the
// caller's arrays (usually Gamma, PhiKorr, KWert); y lands in YGas. vL, vV: phi-phi molar
// volumes, 0 on entry. Returns p, 0 when there is none (T = 0, T at or above TKritMax, failure).
double CalcBubbleP(Session& s, double T, Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV);
double CalcBubbleP(Session& s, double T, const Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV);

// Bubble temperature at p of the liquid x. T in: a start when 1 or more; below 1 a start is made
// (and written back in the phi-phi concept). yStart(1) = 0: made vapour start (phi-phi). Warn:
// the limit status of the vapour-pressure equations (dT of the last AllPureProps). y lands in
// YGas, gamma in Gamma, the correction in PhiKorr. Returns T, 0 when there is none; a T equal to
// the T argument or to it + 1E-5 counts as the trivial solution and gives 0.
double CalcBubbleT(Session& s, double p, Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV);
double CalcBubbleT(Session& s, double p, const Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV);

// Dew pressure at T of the vapour y (gamma-phi only; AllPureProps must have run at T). Returns p
// in single precision, 0 when there is none; XLiq, KWert, Gamma, PhiKorr carry the rest.
float CalcDewP(Session& s, double T, const Vec<double>& y);

// Dew temperature at p of the vapour y (gamma-phi only). TStart of 1 or more is used, below 1 a
// start is made. Returns T in single precision, 0 when there is none.
float CalcDewT(Session& s, double p, const Vec<double>& y, double TStart);

}  // namespace peq
