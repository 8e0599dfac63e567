#include "windows/options.h"

#include "session/constants.h"
#include "session/numeric.h"
#include "windows/shell.h"

namespace peq {

float FuFaktorVon(int fuUnit, double TIso, float oldFactor) {
  try {
    switch (fuUnit) {
      case 1:
        return CSng(chk::Div(1.0, kR));
      case 2:
        return CSng(chk::Div(1.0, kR * TIso));
      default:
        return 1.0f;
    }
  } catch (const NumericFault&) {
    return oldFactor;
  }
}

void frmOptions::Load(const Session& s) {
  optFuUnit = (s.FuUnit >= 0 && s.FuUnit <= 2) ? s.FuUnit : 0;
  OptTOut = s.TOffsetOut == 0 ? 0 : 1;
  optConcUnit = s.ConcUnit == 1 ? 1 : 0;
  Slider1_Punktdichte = SliderWert(s.KurvenPunkte);
  chk3DKonnoden = s.Konoden3D;
  chkSafeguard = s.Safeguard;
}

int16_t frmOptions::SliderWert(int v) {
  if (v < kPunkteMin) v = kPunkteMin;
  if (v > kPunkteMax) v = kPunkteMax;
  return static_cast<int16_t>(v);
}

void frmOptions::cmdOK(mdiPEQ& f) {
  Session& s = f.s;
  // 1. Unit of the functions and its factor.
  s.FuUnit = optFuUnit;
  const float factor = FuFaktorVon(s.FuUnit, s.TIso, s.FuFaktor);
  if (factor != s.FuFaktor) {
    s.FuFaktor = factor;
    f.Unload(WindowId::frmGraph2D);
  }
  // 2. Output temperature.
  s.TOffsetOut = OptTOut == 0 ? 0.0 : kT0;
  // 3. Concentration unit.
  const int16_t oldConc = s.ConcUnit;
  s.ConcUnit = optConcUnit;
  // 4. Tie-lines.
  s.Konoden3D = chk3DKonnoden;
  // 5. A drawn diagram in the other concentration unit must go, or the change is dropped.
  if (f.IsLoaded(WindowId::frmGraph2D) && s.NoDia != 7 && s.NoDia != 183 && s.ConcUnit != oldConc) {
    const Answer a = f.ui.MsgBox(
        "WARNING",
        std::string("The actual diagram is drawn for different concentration units; for this rason "
                    "it must be deleted.") +
            kNL + "(if aborted: your change of the concentration unit will be ignored)",
        MsgIcon::Warning, Buttons::OkCancel);
    if (a == Answer::Cancel) {
      s.ConcUnit = oldConc;
    } else {
      f.Unload(WindowId::frmGraph2D);
      f.Unload(WindowId::frmThieleMcCabe);
      f.Unload(WindowId::frmGraphCalc);
    }
  }
  // 6. Points per curve; close.
  s.KurvenPunkte = SliderWert(Slider1_Punktdichte);
  // The safeguard of the equilibrium routines, kept for the next start as well.
  f.ui.SaveSetting(kSafeguardSection, kSafeguardKey, chkSafeguard ? "1" : "0");
  s.Safeguard = chkSafeguard;
  f.Unload(WindowId::frmOptions);
}

void frmOptions::cmdClose(mdiPEQ& f) { f.Unload(WindowId::frmOptions); }

}  // namespace peq
