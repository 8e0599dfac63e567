// The tangent to the curve of a mixing or excess function at one composition (gE, delta(M)g,
// delta(M)h, T sE, cpE): its value, its slope, and its intercepts at x2 = 0 and x2 = 1, which are
// the partial molar values of the two components of the pair.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// What an intercept holds: a value, zero at the component's own pure end, or minus infinity (the
// partial molar Gibbs function of mixing of a component at infinite dilution).
enum class TangentEnde : int16_t { Wert, Null, MinusUnendlich };

struct TangentWerte {
  double x = 0;       // x(K2), mole fraction
  double y = 0;       // the function at x, display unit (times FuFaktor)
  double Steigung = 0;
  // Intercepts at x2 = 0 (component K1) and x2 = 1 (K2); 0 where the flag is not Wert, and the
  // slope then 0 too.
  double Partial1 = 0, Partial2 = 0;
  TangentEnde Ende1 = TangentEnde::Wert, Ende2 = TangentEnde::Wert;
};

// The diagrams with a tangent: 110 (gE), 120 (delta(M)g), 15 (delta(M)h), 16 (T sE), 17 (cpE).
bool TangenteMoeglich(int16_t NoDia);

// The tangent of diagram NoDia at x (mole fraction of K2, 0..1) and T (K), p (kPa; used in the
// phi-phi concept). gE and delta(M)g take the slope from the closed first derivative of the gE
// model (GMix for the group models); the others, and the phi-phi concept, a central difference
// of step 1E-5 in x. A pure end of delta(M)g gives Null at its own side and MinusUnendlich at the
// other. false when the function has no value there (or for another diagram); t then as it was.
bool TangenteRechnen(Session& s, int16_t NoDia, double x, double T, double p, int16_t K1, int16_t K2,
                     TangentWerte& t);

}  // namespace peq
