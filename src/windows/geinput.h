// frmGEInput: the binary parameters of the gE model, one pair at a time; in the phi-phi concept
// with a van der Waals mixing rule the k(ij) of that rule.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

// Slot L (1..24) of the parameter list of the pair i < j, as it lies in GEPar: L1..L4 are
// GEPar(1,i,j), GEPar(2,i,j), GEPar(1,j,i), GEPar(2,j,i), L5..L8 the same for k = 3, 4, and so
// on up to k = 12.
double& ParSlot(Session& s, int L, int i, int j);

// The pairs i < j in the order of i, then j: the pair after (or before) (i, j), wrapping.
void NaechstesPaar(int nKomp, int& i, int& j, int richtung);
// Number of pairs of n components.
inline int PaarAnzahl(int n) { return n * (n - 1) / 2; }

// Parameter input boxes. A box holds a number or nothing (0). Values beyond this bound are
// refused.
inline constexpr double kParGrenze = 1E+07;
// R and Q of UNIQUAC: above 0 and at most this.
inline constexpr double kRQGrenze = 1000.0;
inline constexpr const char* kEingabeFehlerTitel = "input error";

// Reads a box: empty gives 0. ok false when the text is not a whole number text; range false
// when the number lies beyond the bound.
bool ZahlLesen(const std::string& text, double& value);
// The text of a stored value in a box: empty for 0, else the shortest text that reads back.
std::string ZahlText(double v);
// Checks a box as the user leaves it: the box "input error" and false when the text is not a
// number or out of [lo, hi].
bool ZahlPruefen(mdiPEQ& f, const std::string& text, double lo, double hi);

inline constexpr const char* kUnitNames[4] = {"J/mol", "cal/mol", "dimensionless", "K"};
inline constexpr const char* kUnitSuffix[4] = {"/J/mol", "/cal/mol", "", "/K"};
inline constexpr const char* kOptVGCaptions[2] = {"WILSON volume-parameter", "T-dependent"};
inline constexpr const char* kOptVGNote = "...calculated from the database function rho(T)";
inline constexpr const char* kGEInputOK = "&OK";
inline constexpr const char* kRQStoff[2] = {"Stoff 1", "Stoff 2"};
inline constexpr const char* kRQLabel[2] = {"R =", "Q ="};
inline constexpr const char* kSpaltenKopf[3] = {"a", "b", "c"};
inline constexpr const char* kVorCaption = "next >";
inline constexpr const char* kRueckCaption = "< back";
inline constexpr const char* kSuchKIJCaption = "Search for k(ij)";
inline constexpr int kGEInputHelp = 32774;
inline constexpr int kWilsonHelp = 21252;

struct frmGEInput {
  // One row of boxes: a label and 1 or 3 boxes (a, b, c) on consecutive slots from slot.
  struct Zeile {
    std::string label;
    int slot = 1;
    int felder = 3;
  };

  int i = 1, j = 2;        // the pair shown
  int modell = 0;          // gE model of the window (1, 2, 4, 9), 0 for the k(ij) of the vdW rule
  bool kijModus = false;   // phi-phi concept with a van der Waals mixing rule
  std::string Caption;     // "System (i - j)"
  std::string lblKomp1, lblKomp2;
  std::string lblAnzahl;
  std::string lblKopf;
  std::string lblTFunktion;
  std::vector<Zeile> Zeilen;
  std::vector<std::vector<std::string>> txt;  // texts of the boxes, by row and box
  bool optEinheitSichtbar = false;
  int16_t optEinheit = 0;  // unit code of the model
  bool optVGSichtbar = false;
  bool WilsonVFix = true;
  bool rqSichtbar = false;
  std::string txtR[2], txtQ[2];  // R and Q of the two components of the pair
  bool cmdSuchKIJSichtbar = false;

  void Load(mdiPEQ& f);
  // The pair stepping; richtung +1 forwards, -1 backwards.
  void vor_rueck(mdiPEQ& f, int richtung);
  // A box was edited: a whole number (or an empty box, 0) inside the bound is stored at once.
  void txt_Change(mdiPEQ& f, int zeile, int feld, const std::string& text);
  // The box is left: a text that is no number or out of range is refused with a message and
  // the box shows the stored value again. False when refused.
  bool txt_Validate(mdiPEQ& f, int zeile, int feld);
  // R (rq 0) or Q (rq 1) of the first (k 0) or second (k 1) component of the pair.
  void txtRQ_Change(mdiPEQ& f, int rq, int k, const std::string& text);
  bool txtRQ_Validate(mdiPEQ& f, int rq, int k);
  void opt_parEinheit_Click(mdiPEQ& f, int16_t code);
  void opt_VG_Click(mdiPEQ& f, bool fix);
  void cmdSuchKIJ(mdiPEQ& f);
  // OK_GE: closes unless UNIQUAC lacks R or Q.
  bool OK_GE(mdiPEQ& f);
  void cmdHilfe(mdiPEQ& f);

  // Builds rows, labels and box texts for the current pair from the session.
  void Aufbauen(mdiPEQ& f);
};

}  // namespace peq
