// frmTpxEdit: the window of the experimental T-p-x(L)-x(V) points of the session. A grid of the
// points (line number, T, p, x(L), x(V)), an edit box with the line at hand, four input fields
// with their unit choices, add and edit mode, and the commands on the list: load, add a file,
// save, active/inactive, delete, sort, exchange of the components, paste, print, close.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "expdata/tpxdaten.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kTpxEditCaption = " Input / Edit batch data";
inline constexpr const char* kTpxOKinputCaption = "Transfer input data to the list <+>";
inline constexpr const char* kTpxAusCaption = "Line active/inactive";
inline constexpr const char* kTpxAusTip = "...excluding line from drawing and fitting";
inline constexpr const char* kTpxEraseCaption = "Delete marked lines";
inline constexpr const char* kTpxChange12Caption = "compon. 1 <=> 2";
inline constexpr const char* kTpxChange12Tip = "exchanging mole fractions of the components (1) and (2)";
inline constexpr const char* kTpxPasteCaption = " Paste from clipboard";
inline constexpr const char* kTpxPasteTip = "...in the marked range";
inline constexpr const char* kTpxSaveCaption = "Save as ...";
inline constexpr const char* kTpxPrintCaption = "Print table";
inline constexpr const char* kTpxKonsTestCaption = "Consistency test";
inline constexpr const char* kTpxFitCaption = "Fitting";
inline constexpr const char* kTpxEditEscCaption = "Close <Esc>";
inline constexpr const char* kTpxAddCaption = "&Add file *.EX5";
inline constexpr const char* kTpxLoadCaption = "Load file *.EX5";
inline constexpr const char* kTpxLadenTitel = "T-p-x(L)-x(V)-data file";
inline constexpr const char* kTpxAddTitel = "Add data from selected file";
inline constexpr const char* kTpxSpeichernTitel = "Save experimental data as ...";
inline constexpr const char* kTpxSpeichernFilter = "Data file (*.EX5)|*.EX5";
inline constexpr uint32_t kTpxSpeichernFlags = 2623494;
inline constexpr const char* kTpxLeer = "empty list";
inline constexpr const char* kTpxKeineMarke = "No marked item!";
inline constexpr const char* kTpxModusCaptions[2] = {"Edit line", "Add line"};

struct frmTpxEdit {
  std::string Caption = kTpxEditCaption;
  std::string Kopf;         // "Add data set #n" or "Edit data set #n"
  std::string ZeileText;    // "Line n" or "Add line #n"
  std::string EditBox;      // the line at hand, tab-separated
  bool AddMode = true;      // optInputMode: "Add line"
  TpxEinheiten Einheiten;
  std::array<std::string, 4> y;  // the input fields T, p, x(L), x(V)
  int MarkA = 0, MarkB = 0;  // marked lines (1-based, MarkA <= MarkB); 0 none
  int MarkSpalte = 1;        // marked column 1..4 (T, p, x(L), x(V))
  int Fokus = -1;            // the input field that took the focus after a beep
  int Beeps = 0;             // how often the window beeped
  bool cmdKonsTestEnabled = false, cmdFitEnabled = false;  // the fitting window is not there yet

  void Form_Load(mdiPEQ& f);
  // The heads of the grid and its rows (line number, T, p, x(L), x(V)); one row "empty list"
  // when the list is empty. An inactive line shows its number in brackets.
  static std::array<std::string, 5> Koepfe();
  static std::vector<std::array<std::string, 5>> Zeilen(const Session& s);
  // The heads of the input fields by their units.
  std::array<std::string, 4> EingabeKoepfe() const;

  // A click on a grid row (1-based) and column marks it and shows it in the edit box and fields.
  void Grid_Click(const Session& s, int zeile, int spalte);
  // Marks rows a..b.
  void Markieren(int a, int b);
  void optInputMode_Click(const Session& s, bool add);
  void Einheiten_Click(const Session& s, const TpxEinheiten& e);
  void OKinput_Click(mdiPEQ& f);
  void cmdLoad_Click(mdiPEQ& f);
  void cmdAdd_Click(mdiPEQ& f);
  void cmdSave_Click(mdiPEQ& f);
  void cmdAus_Click(mdiPEQ& f);
  void cmdErase_Click(mdiPEQ& f);
  void cmdSort_Click(mdiPEQ& f, const char* key);  // "T", "p", "xL"
  void cmdChange12_Click(mdiPEQ& f);
  void cmdClipEinfuegen_Click(mdiPEQ& f);
  // The closing of a cell edit: the text into point zeile, column spalte (1..4).
  void Zelle_Edit(mdiPEQ& f, int zeile, int spalte, const std::string& text);
  void cmdPrintTpx_Click(mdiPEQ& f);
  // cmdEsc: asks about unsaved points, then closes.
  void cmdEsc_Click(mdiPEQ& f);

  // The table as printed: heads "T/K", "p/kPa", "xL(2)", "xV(2)" in fixed columns.
  static std::string DruckText(const Session& s);

 private:
  void Laden(mdiPEQ& f, bool add);
  void NachAenderung(mdiPEQ& f);
  void ZeileZeigen(const Session& s);
};

// ExpSpeichernFrage: with points not yet saved, asks " Experimental data not yet saved " /
// "Save now?" and saves on Yes.
void ExpSpeichernFrage(mdiPEQ& f);
// ExpDateiSpeichern: the save dialog and the writer; cancel when the dialog was left.
void ExpDateiSpeichern(mdiPEQ& f, bool& cancel);

}  // namespace peq
