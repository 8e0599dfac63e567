// The mixing gap of a binary liquid: spinodal points, the binodal at T, and the three-phase
// point at p, from delta(M)g of GMix (mode 0 the function, 1 and 2 its derivatives to x2).
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace peq {

// Newton in x2 on GM of mode Order equal to Target. ok -1 on success; 0 on failure, x then 0.
void SolveGMDeriv(Session& s, double T, double Target, double& x, double eps, int16_t& ok, int16_t Order);

// The two zeros of the second derivative of GM (spinodal points) at T; Msg empty with two
// distinct zeros.
void FindGM2Zeros(Session& s, double T, double& x1, double& x2, std::string& Msg);

// The two liquid compositions in equilibrium at T (common tangent). true with xA, xB.
bool Binodal(Session& s, double T, double& xA, double& xB, std::string& Msg);

// A binodal somewhere in TLo..THi at p, and then the three-phase point: true with T, xA, xB.
// K: the rounds of the secant on T (0 when it was not reached). Msg: "no mixing gap in the
// T-range considered", "calculation failed" (no starting bubble point), "calculation failed (E3)"
// (no convergence), "calculation failed (E4)" (a binodal failed during the secant).
bool GapRange(Session& s, double p, double TLo, double THi, double& T, double& xA, double& xB, int16_t& K,
              std::string& Msg);

// The gap of the current diagram (IsoArt 1 at TIso, 2 at PIso) for the pair (Komp1, Komp2):
// found -1 with the compositions xA, xB (pair (1, 2)), GapX1, GapX2 in the pair's orientation,
// GapW1, GapW2 the p (kPa, bubble point of the first liquid at TIso) or T (K, GapRange) of the
// three-phase line, for the x-y diagrams (NoDia 3 and 6) instead the vapour y of Komp2 in
// equilibrium with the gap; code 1 when a boiling temperature failed.
void GapSuche(Session& s, int16_t& found, int16_t Komp1, int16_t Komp2, double& xA, double& xB, float& GapX1,
              float& GapX2, float& GapW1, float& GapW2, int16_t& code);

}  // namespace peq
