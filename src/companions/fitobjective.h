// The objective of the parameter fit, computed by the engine: for each active point at its T
// and x2(L) the bubble pressure of the current models (gamma-phi: the gE model with the vapour
// model; phi-phi: the cubic equation of state with its mixing rule). FitArt 0 takes the relative
// pressure deviation (p_calc - p_exp)/p_exp, 2 the vapour deviation y2_calc - y2_exp, 1 both. A
// point whose bubble point fails gives each of its residuals the value kFitStrafe.
#pragma once

#include <cstdint>
#include <vector>

#include "companions/fitfiles.h"
#include "session/session.h"

namespace peq {

inline constexpr double kFitStrafe = 10.0;

// Residuals of one point.
inline int ResiduenJePunkt(int16_t fitArt) { return fitArt == 1 ? 2 : 1; }

// Work arrays of one fit, sized once for the mixture.
struct FitArbeit {
  Vec<double> X, YStart, Gamma, PhiK, K;
  int Fehlschlaege = 0;  // points whose bubble point failed at the last call
};

void FitArbeitAnlegen(const Session& s, FitArbeit& w);

// Writes the twelve slots into GEPar of the pair (1, 2) and fills r (points times
// ResiduenJePunkt values) at them.
void FitResiduen(Session& s, const std::vector<FitPunkt>& pts, int16_t fitArt, const double* slots, double* r,
                 FitArbeit& w);

// The sum of the squared residuals at the parameters now in GEPar.
double FitZielfunktion(Session& s, const std::vector<FitPunkt>& pts, int16_t fitArt);

}  // namespace peq
