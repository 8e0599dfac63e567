// frmCalcInput: the input of one state calculation. It takes which two quantities are given
// (p and T, p and eta(V), T and eta(V)) and the feed of the mixture as amounts or masses, and
// hands over to the result window frmCalcOut, which calculates in its load step. It also serves
// the activity coefficients (CalcArt 2), where only T and the feed count.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kCalcInputCaption = "Input for the calculation";
inline constexpr const char* kVorgabeRahmen = "quantities to specify";
// optVorgabe(k) belongs to CalcVorgabe k: 0 T and eta(V), 1 p and eta(V), 2 p and T.
inline constexpr const char* kVorgabeCaption[3] = {"T and eta(V)", "p and eta(V)", "p and T"};
inline constexpr const char* kTUnitCaption[2] = {"K", "\xC2\xB0" "C"};
inline constexpr const char* kInputUnitRahmen = "choose your input quantity";
inline constexpr const char* kInputUnitCaption[2] = {"amount of subst. n(i,o)/kmol", "mass m(i,0)/kg"};
inline constexpr const char* kSumIsVariableCaption = "sum adjustable";
inline constexpr const char* kSummeLabel = "sum";
inline constexpr const char* kTLabel = "T";
inline constexpr const char* kPLabel = "p/kPa";
inline constexpr const char* kEtaLabel = "eta(V)";
inline constexpr const char* kWeiterCaption = "go on";
inline constexpr const char* kCalcCancelCaption = "&Cancel";
// Messages of the window.
inline constexpr const char* kKeineZusammensetzung = "no composition of the mixture given";
inline constexpr const char* kNoteTitle = "Note";
inline constexpr const char* kTKritAnfang = "For the component)s) ";
inline constexpr const char* kTKritEnde = " is T > T(cr).";
inline constexpr const char* kTKritRat = "Please change to phi-phi model.";

// The note on components above their critical temperature at T, or empty when there is none:
// the names of the components with T > TKrit(i) (collected as the bit mask of 2^(i-1)), and in
// the gamma-phi concept, where the vapour pressure of such a component has no meaning, the
// advice to change the concept.
std::string TKritHinweis(const Session& s, double T);

// A number as the input boxes show it: up to 7 significant digits, a decimal point.
std::string EingabeZahl(double v);

// The key filter of the amount boxes (the feed and its sum): true for the digits, the decimal
// character, Enter (13) and the control keys 3 and 22 (copy and paste); a comma is turned into
// the point of the boxes in place. No sign and no exponent: an amount is never negative.
bool MengenTaste(int& keyAscii);

// The message when box text is not an amount of 0 or more: the name, the text as it stands.
std::string KeineMengeText(const std::string& name, const std::string& text);

struct frmCalcInput {
  std::string Caption;
  int16_t Art = 1;  // CalcArt: 1 flash, 2 activity coefficients

  // optVorgabe: the index is CalcVorgabe; enabled only for a flash.
  int16_t optVorgabe = 2;
  bool optVorgabeEnabled = true;
  // optTUnit: 0 K, 1 degrees C; TOffset is the shown T's offset.
  int16_t optTUnit = 1;
  double TOffset = 273.15;
  std::string txtT, txtp, txtetaV;
  bool txtTEnabled = true, txtpEnabled = true, txtetaVEnabled = false;

  // Feed: optInput_Unit 0 amounts (kmol), 1 masses (kg); txtCInput(1..NKomp), slot 0 unused.
  int16_t optInput_Unit = 0;
  std::vector<std::string> lblKomp;
  std::vector<std::string> txtCInput;
  std::string txtSumN0;
  bool chkSumIsVariable = true;
  // The box that has the focus: 1..NKomp a feed box, NKomp + 1 the sum box.
  int Fokus = 1;
  bool Weiter = false;  // cmdWeiter handed over to the result window

  // Fills the window from the session: CalcArt from the calculation command's Rechenart.
  void Load(mdiPEQ& f);
  void optVorgabe_Click(mdiPEQ& f, int16_t index);
  void optTUnit_Click(mdiPEQ& f, int16_t index);
  void optInput_Unit_Click(mdiPEQ& f, int16_t index);
  void txtT_Change(mdiPEQ& f, const std::string& text);
  void txtp_Change(mdiPEQ& f, const std::string& text);
  void txtetaV_Change(mdiPEQ& f, const std::string& text);
  void txtCInput_Change(mdiPEQ& f, int i, const std::string& text);
  // Enter in box i: the next box, from the last the sum box.
  void txtCInput_Return(mdiPEQ& f, int i);
  void txtSumN0_Change(mdiPEQ& f, const std::string& text);
  // Enter in the sum box: the feed is scaled to the sum as typed.
  void txtSumN0_Return(mdiPEQ& f);
  void chkSumIsVariable_Click(mdiPEQ& f, bool checked);
  // Go on: the feed normalised, the note on critical temperatures, the result window.
  void cmdWeiter(mdiPEQ& f);
  void cmdCancel(mdiPEQ& f);

  // The shown quantity of component i (kmol or kg) from FeedN.
  double Gezeigt(const Session& s, int i) const;
  // Shows the feed and its sum from FeedN.
  void FeedZeigen(const Session& s);
  void Freigeben();
};

}  // namespace peq
