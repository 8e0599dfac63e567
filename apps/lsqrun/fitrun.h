// The work of the fitting companions LSQRUN.EXE and LSQRUNZ.EXE: read TO_FIT.DAT or TO_FITZ.DAT
// from the working directory, fit the free parameters by least squares (Ceres Solver), write
// FROM_FIT.DAT or FROM_FITZ.DAT through a temporary name.
#pragma once

#include <array>
#include <iosfwd>

#include "companions/fitinput.h"

namespace lsqrun {

struct FitErgebnis {
  std::array<double, peq::kFitSlots> Slots{};  // the parameters found (fixed ones as given)
  int Frei = 0;                                // number of free parameters
  long Auswertungen = 0;                       // residual evaluations, at most the limit
  double Zielfunktion = 0;                     // sum of squares at Slots, as the engine computes it
};

// Fits the free slots of the task (not fixed, limits with room, used by the model) within their
// limits, at most `limit` residual evaluations. Leaves the slots found in task.S's GEPar.
FitErgebnis FitLoesen(peq::FitAufgabe& task, long limit = peq::kFitMaxIterationen);

// Exit codes: 0 answer written; 1 the input is missing or bad (no answer written); 2 the
// answer could not be written.
int Run(bool phiPhi, std::ostream& out, std::ostream& err);

}  // namespace lsqrun
