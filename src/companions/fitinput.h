// What a fitting companion reads: TO_FIT.DAT or TO_FITZ.DAT turned into the parameter table,
// the active points and a session of the two components with the models of the fit, so that
// the companion computes with the very routines the program uses.
#pragma once

#include <string_view>
#include <vector>

#include "companions/fitfiles.h"
#include "session/session.h"

namespace peq {

struct FitAufgabe {
  FitTabelle Tabelle;
  int16_t FitArt = 0;
  std::vector<FitPunkt> Punkte;  // the active points
  bool PhiPhi = false;
  int Zaehler = 0;  // the run counter of TO_FITZ.DAT
  Session S;        // two components, models committed
};

// Reads TO_FIT.DAT (phiPhi false) or TO_FITZ.DAT (true) into a. Throws ExchangeError when the
// text is short, holds something that is no number where one belongs, has an unknown model
// code, a point outside 0 < T, 0 < p, 0 <= x <= 1, a lower limit above the upper one, or no
// active point.
void ReadFitAufgabe(std::string_view text, bool phiPhi, FitAufgabe& a);

}  // namespace peq
