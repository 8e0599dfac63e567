// One point of one binary diagram: the diagram code and an abscissa give up to two ordinates with
// a validity flag each. Diagram drawing, fitting and the McCabe-Thiele design call it.
#pragma once

#include <cstdint>

#include "session/message.h"
#include "session/session.h"

namespace peq {

// Two single-precision ordinates and their flags: 0 valid, -1 no value.
struct SingleOut {
  float Y1 = 0, Y2 = 0;
  int16_t F1 = -1, F2 = -1;
};

// DiaCode: the diagram number; Xval: the abscissa (x2 of the pair, or the temperature in the
// display unit for the isosteric codes 7 and 183, which take Y2 as x2). T, p: the state of the
// diagram (the isobaric codes return the bubble T in T). R1..R4: the limits of an active mixing
// gap. K1, K2: the pair (Komp1, Komp2). OutX: the vapour composition of the bubble-line codes.
// The vapour-pressure limit warning goes to sink.
//
// Ordinates by code: 1 bubble p, dew p (gamma-phi); 3, 250, 6 y(K2); 4 bubble T, dew T (gamma-phi)
// less TOffsetOut; 5, 51 K(K1), K(K2); 7 p of the mixture x(K2) = Y2 at T = Xval + TOffsetOut;
// 8, 82 gamma(K2), gamma(K1); 81, 83 their logarithms; 9 ln gamma(1) - ln gamma(2); 10, 11
// K(K2)/K(K1); 181, 182, 183 rho(L), rho(V) in kg/m^3. The isothermal codes leave the bubble p in
// p, the isobaric ones the bubble T in T. TLim (gamma-phi the smaller T(cr) of components 1 and 2,
// phi-phi TKritMax) refuses an isobaric bubble T at or above it and the T of 7 and 183 above it.
// Any other code goes to SingleCalcExcess. An arithmetic fault gives both flags -1.
void SingleCalc(Session& s, int16_t DiaCode, double Xval, double& T, double& p, double& Y2, float& R1, float& R2,
                float& R3, float& R4, int16_t K1, int16_t K2, float& OutX, SingleOut& Out, MsgSink* sink);

// The limits of the active mixing gap for the pair: when HatGap and GapAktiv are both set, R1 and
// R2 get the two liquid compositions x(K2) of the gap (GapX1, GapX2 when K1 is 1, in the other
// order otherwise), R3 and R4 the three-phase ordinates that belong to them (GapW1, GapW2: p in
// kPa or T in K). Returns true when Xval lies between the two compositions (edges included); the
// R values are left alone when no gap is active.
bool GapLimits(const Session& s, double Xval, int16_t K1, float& R1, float& R2, float& R3, float& R4);

// The liquid in equilibrium with the vapour y(K2) = Xval at p, for the dew line of the T-x
// diagram in both concepts: successive substitution x(K2) = Xval/K(K2) on CalcBubbleT, at most
// 2500 rounds, until x(K2) moves by less than 1E-7. xL: x(K2) of the liquid, T the dew
// temperature (K). flag 0, or -1 when a bubble point fails, when its T reaches TKritMax or after
// 2500 rounds. An Xval outside 0..1 returns at once with flag -1.
void SingleCalcXY(Session& s, double Xval, double p, int16_t K1, int16_t K2, double& xL, double& T, int16_t& flag);

// The codes of the excess functions and their composition derivatives (110..116, 120..126, 15,
// 16, 17 and every code SingleCalc does not list), with x(K1), x(K2) already set in x.
void SingleCalcExcess(Session& s, int16_t DiaCode, double Xval, double T, double p, const Vec<double>& x,
                      int16_t K1, int16_t K2, SingleOut& Out);

// Derivative n of gE (withIdeal false) or of delta(M)g (true) to x(K2) at T, in double
// precision and kJ/kmol (without FuFaktor), as the codes 110..116 and 120..126 compute it; false
// when there is no value. x holds x(K1), x(K2).
bool ExcessDerivative(Session& s, int n, bool withIdeal, double Xval, double T, double p, const Vec<double>& x,
                      int16_t K1, int16_t K2, double& v);

}  // namespace peq
