// Where fitted values land: the twelve slots of the fitting window are the slots L1..L12 of the
// pair (1, 2) (slot i is L(i + 1)), for every model: Wilson and UNIQUAC use L1..L6 (par12 and
// par21 with their T terms), NRTL adds alpha on L7..L9, Redlich-Kister A..D on L1..L12, the k(ij)
// of the cubic equation L1..L3, the gE models of its GE rules L1..L9. Wilson, NRTL and UNIQUAC
// parameters are fitted in kelvin, so their unit code becomes 3; Redlich-Kister and the cubic
// equation's parameters are dimensionless or kelvin by their model.
#pragma once

#include <array>
#include <cstdint>

#include "companions/fitfiles.h"
#include "session/session.h"

namespace peq {

// Writes v into slot L(n), n = 1..24, of the pair i < j.
void SetGESlot(Session& s, int n, int i, int j, double v);

// The parameter list of the pair (1, 2), L1..Ln.
std::vector<double> PairList(const Session& s, int n);

// True when the slot (0..11) enters the model fitted: by GEModel in the gamma-phi concept; in
// the phi-phi concept k(1-2) (three slots) under the quadratic rules, the model GEModelEOS under
// the GE rules (MixRule 5, 6).
bool SlotGenutzt(const Session& s, int slot);

// The twelve slot values of an answer, in the window's order (slot i = L(i + 1)).
std::array<double, kFitSlots> AntwortSlots(const FitAntwort& a);

// Writes the answer into GEPar of the pair (1, 2) and, in the gamma-phi concept, sets the unit
// code of the model fitted to "K" (3), so that the engine computes exactly what was fitted.
void AntwortInGEPar(Session& s, const FitAntwort& a, bool phiPhi);

// The twelve slot values into L1..L12 of the pair (1, 2), as the companion computes with them.
void SlotsInGEPar(Session& s, const double* slots);

// The unit code of the model fitted set to "K" (Wilson, NRTL, UNIQUAC in the gamma-phi concept).
void FitEinheitSetzen(Session& s);

}  // namespace peq
