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
void SingleCalc(Session& s, int16_t DiaCode, double Xval, double& T, double& p, double& Y2, float& R1, float& R2,
                float& R3, float& R4, int16_t K1, int16_t K2, float& OutX, SingleOut& Out, MsgSink* sink);

// The codes of the excess functions and their composition derivatives (110..116, 120..126, 15,
// 16, 17 and every code SingleCalc does not list), with x(K1), x(K2) already set in x.
void SingleCalcExcess(Session& s, int16_t DiaCode, double Xval, double T, double p, const Vec<double>& x,
                      int16_t K1, int16_t K2, SingleOut& Out);

}  // namespace peq
