// frmOptions: how results are expressed (unit of the thermodynamic functions, output
// temperature, concentration unit, points per curve, tie-lines of 3D diagrams), and whether
// failed or trivial equilibrium points are retried (the safeguard of engine/safeguard.h).
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kOptionsCaption = "  Options";
inline constexpr const char* kOptFuUnitCaptions[3] = {"SI unit (kJ/kmol or kJ/(kmol K))", "SI unit/R",
                                                      "SI unit/(R T)"};
inline constexpr const char* kOptTOutCaptions[2] = {"K", "°C"};
inline constexpr const char* kOptConcUnitCaptions[2] = {"mole fraction x", "mass fraction"};
inline constexpr const char* kSliderCaption = "Points per curve";
inline constexpr const char* kChk3DKonnodenCaption = "Draw tie-line if mixing gap";
inline constexpr const char* kChkSafeguardCaption = "Safeguarded equilibrium calculation (retry failed or trivial points)";
// Where the settings store keeps the choice, beside "Show Tips at Startup": "1" on, "0" off.
inline constexpr const char* kSafeguardSection = "Options";
inline constexpr const char* kSafeguardKey = "Safeguarded Equilibrium";
inline constexpr const char* kOptionsOK = "&OK";
inline constexpr const char* kOptionsCancel = "&Cancel";

// The slider Slider1_Punktdichte.
inline constexpr int kPunkteMin = 200, kPunkteMax = 5000, kPunkteSmallStep = 50,
                     kPunkteLargeStep = 200, kPunkteTick = 400;

// The factor every function value is multiplied with: 1 for FuUnit 0, 1/R for 1, 1/(R TIso)
// for 2 (R = 8.31451). A fault (TIso 0) gives the old factor back.
float FuFaktorVon(int fuUnit, double TIso, float oldFactor);

struct frmOptions {
  int16_t optFuUnit = 0;          // 0, 1, 2
  int16_t OptTOut = 1;            // 0 K, 1 degrees Celsius
  int16_t optConcUnit = 0;        // 0 mole fraction, 1 mass fraction
  int16_t Slider1_Punktdichte = 600;
  bool chk3DKonnoden = false;
  bool chkSafeguard = true;

  void Load(const Session& s);
  // Accepting, steps 1 to 6, then the safeguard switch into the session and the settings
  // store; closes the window.
  void cmdOK(mdiPEQ& f);
  // Closes with nothing changed.
  void cmdClose(mdiPEQ& f);
  // A slider value moved onto the slider's range.
  static int16_t SliderWert(int v);
};

}  // namespace peq
