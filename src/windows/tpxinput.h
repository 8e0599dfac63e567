// frmTpxInput: the input window of a binary diagram (and of the two distillation commands). It
// asks for the fixed quantity of the diagram (T, p or x2), resolves the pseudo numbers of the
// menu (activity coefficients, relative volatility, K values) into a diagram number, checks the
// input against the critical data and the vapour-pressure equations, and on acceptance stores
// the state in the session and runs the catalogue's title routine.
#pragma once

#include <cstdint>
#include <string>

#include "diagrams/catalogue.h"
#include "session/session.h"

namespace peq {

class mdiPEQ;

// Captions of the window.
inline constexpr const char* kTpxTempCaption = " Temperature input";
inline constexpr const char* kTpxDruckCaption = " Pressure input";
inline constexpr const char* kTpxXCaption = "input of mole fraction x2(L)";
inline constexpr const char* kTpxKolonneCaption = "  Pressure at the top of the column:";
inline constexpr const char* kTpxWeiterCaption = "Continue >";
inline constexpr const char* kChkRealKurveCaption = "draw real curve in case of a mixung gap";
inline constexpr const char* kTpxOKCaption = "Go to the diagram";
inline constexpr const char* kTpxOKAndDrawCaption = "Draw curve now";
inline constexpr const char* kTpxEscCaption = "&Cancel";
inline constexpr const char* kOptTUnitCaptions[2] = {"K", "°C"};
inline constexpr const char* kOptIsoCaptions[2] = {"isothermal", "isobaric"};
inline constexpr const char* kOptLogCaption = "ln f(i)";
// Titles of the window for the pseudo numbers of the menu.
inline constexpr const char* kTpxTitelAktiv = "Activity coefficients";
inline constexpr const char* kTpxTitelK = "K values";
inline constexpr const char* kTpxTitelAlpha = "Realtive volatility";
// The words of an input that cannot be read or lies outside the valid range.
inline constexpr const char* kTpxUngueltig = " input was not in the valid range ";

// Valid ranges of the input: T in K, p in kPa, x2.
inline constexpr double kTpxTMax = 5000.0;
inline constexpr double kTpxPMax = 1.0e6;

// The pseudo numbers of the menu.
inline constexpr int16_t kPseudoAktiv = 800, kPseudoAlpha = 100, kPseudoK = 500;

// The diagram number of a pseudo number: OptIso 0 isothermal, 1 isobaric; OptLog the logarithm
// of the activity coefficients. Any other number is returned as it is.
int16_t AufgeloesteNoDia(int16_t NoDia, int16_t OptIso, bool OptLog);

struct frmTpxInput {
  std::string Caption;       // title of the window
  std::string lblpT;         // caption of the input
  std::string txtpT;         // the fixed quantity as typed
  int16_t optTUnit = 1;      // 0 K, 1 degrees Celsius
  bool optTUnitVisible = true;
  int16_t OptIso = 0;        // pseudo numbers: 0 isothermal, 1 isobaric
  bool OptIsoVisible = false;
  bool OptLog = false;       // activity coefficients: their logarithm
  bool OptLogVisible = false;
  bool chkRealKurve = false;
  bool chkRealKurveVisible = true;
  std::string cmdOKCaption;
  bool cmdOKAndDrawVisible = true;
  std::string lblFehler;     // " input was not in the valid range " or empty

  bool Destillation = false;  // opened by the McCabe-Thiele or the batch command
  int16_t NoDia = 0;          // as the command set it (possibly a pseudo number)
  bool Fertig = false;        // the window closed
  bool Abbruch = false;       // ... as cancelled
  bool AufbauOK = false;      // the title routine knew the diagram
  GraphAufbau Aufbau;         // its texts and number of curves

  // Form_Load: from the session and the frame's distillation flag.
  void Load(mdiPEQ& f);
  void optTUnit_Click(int index);
  void OptIso_Click(mdiPEQ& f, int index);
  void OptLog_Click(bool on) { OptLog = on; }
  void chkRealKurve_Click(bool on) { chkRealKurve = on; }
  // "Go to the diagram" / "Continue >" and "Draw curve now": the checks in order; true when the
  // window closed accepted.
  bool cmdOK_Click(mdiPEQ& f);
  bool cmdOKAndDraw_Click(mdiPEQ& f);
  void cmdEsc_Click(mdiPEQ& f);

  // Kind of the fixed quantity of the current choice: 1 T, 2 p, 3 x2.
  int16_t IsoArtJetzt(const Session& s) const;

 private:
  bool Pruefen(mdiPEQ& f, bool sofort);
  bool PruefeT(mdiPEQ& f, double T);
  bool PruefeP(mdiPEQ& f, double p, int16_t nr);
  void Beschriften(const Session& s);
  double TOffset() const { return optTUnit == 0 ? 0.0 : 273.15; }
};

// The value of the fixed quantity as the input box shows it (up to ten significant digits).
std::string TpxZahl(double v);

}  // namespace peq
