// frmAEdit: the substance data editor. It shows all data of one substance on five tabs and lets
// the user change the session's copy of a component ("Apply"); the open database is never
// written. A second command writes the whole mixture into a private database file. EditKomp is
// the component at hand; 0 marks a substance reached from the selection window, shown read-only.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "session/session.h"
#include "substances/inkrtext.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kAEditCaption = " View /Edit Data of Substances";
inline constexpr const char* kAEditTabs[5] = {"Single values", "Vapour press.", "L-Density", "Mod-UNIFAC",
                                              "Original UNIFAC"};
inline constexpr const char* kAEditNurLesen =
    " from this site no changing of data is possible; this can be done via \"Models\" or via "
    "\"Data/View/Edit data...\"";
inline constexpr const char* kAEditTemporaer =
    " all your changes ate temporary; after a new choice of substances the original data are available again. ";
inline constexpr const char* kAEditOhneApply = "  Note: All changes are lost without \"Apply\"";
inline constexpr const char* kAEditOKCaption = "Apply";
inline constexpr const char* kAEditEscCaption = "Close";
inline constexpr const char* kAEditEscFrage1 = " Your changes are lost here. ";
inline constexpr const char* kAEditEscFrage2 = "Close nevertheless?";
inline constexpr const char* kAugustCaption1 = " recalculate";
inline constexpr const char* kAugustCaption2 = " using crit. point and normal boiling point";
inline constexpr const char* kWriteBankCaption =
    "apply data and save the changed data in a special Q07-database file => Click";
inline constexpr const char* kWriteBankNote = " the mini-database *.Q07 only contains the components of this project";
inline constexpr const char* kWriteBankTitle = "Save a private database file *.Q07 for the actual mixture";
inline constexpr const char* kWriteBankFilter = "Database (*.Q07)|*.Q07";
inline constexpr const char* kWriteBankExt = ".Q07";
inline constexpr const char* kAktuelleGleichung = "actual vapour-pressure equation:";
inline constexpr const char* kInkrPaar = "times group #";
inline constexpr const char* kInkrHinweis =
    "Note: increments alone do not make the model available in the window \"Models\", since not every "
    "pair of groups has parameters.";
inline constexpr const char* kUNIFTabCaption = "Mod-UNIFAC groups";
inline constexpr const char* kOUnifTabCaption = "UNIFAC groups";
// The forms of the equations as the vapour-pressure tab shows them.
inline constexpr const char* kFormAntoine = "lg(p/kPa) = A - B/(C + t/°C)";
inline constexpr const char* kFormFrost = "lg(p/kPa) = A + B/(C + t/°C) + D lg(T) + E p/T^(2 + F) + G*T + H*T^I";
inline constexpr const char* kFormWagner = "ln(p/pcr) = [sum(i) Ai(ni) (1 - Tred)^ni]/Tred";
inline constexpr const char* kFormAugust = "ln(p/kPa) = A + B/T";
// Heads of the field groups.
inline constexpr const char* kGruppeWagner = " WAGNER";
inline constexpr const char* kGruppeALP = "ANTOINE (low-p)";
inline constexpr const char* kGruppeAHP = "ANTOINE (high-p)";
inline constexpr const char* kGruppeFrost = " FROST/KALKW/MILLER";
inline constexpr const char* kGruppeAugust = " AUGUST";
inline constexpr const char* kGruppeRho = " rho(T)";
inline constexpr const char* kGruppeModUnif = "Mod. UNIFAC increments";
inline constexpr const char* kGruppeOUnif = "UNIFAC increments";
// What an empty field shows.
inline constexpr const char* kLeerFeld = "<>";
// Help topics: the editor, its UNIFAC tabs, its density tab, its vapour-pressure tab.
inline constexpr int kAEditHelp = 18870, kAEditHelpUnifac = 32920, kAEditHelpDichte = 3333,
                     kAEditHelpDampfdruck = 32440;
// The help topic of a tab.
int AEditHelpTopic(int tab);

// Kind of a field: a text, a 32-bit real (empty "<>" is 0, a typed 0 is 1E-37), a T limit
// (whole number), or a count or group of an increment pair.
enum class AEditArt : int16_t { Text, Zahl, Grenze, Anzahl, Gruppe };

struct AEditFeldDef {
  int16_t Tab;          // 0..4
  const char* Gruppe;   // head of the group of fields, "" for the single values
  const char* Caption;  // caption of the field
  const char* Einheit;  // unit shown behind it, "" none
  AEditArt Art;
};

// The fields of the editor in the order of the session record.
const std::vector<AEditFeldDef>& AEditFelder();
// Place of a field in AEditFelder() by group head and caption; -1 when there is none.
int AEditFeld(const std::string& gruppe, const std::string& caption);

// The text a field shows for a 32-bit value: "<>" for 0, else the shortest text that reads back
// to the same value ("1E-37" for a typed zero).
std::string AEditZahlText(float v);

struct frmAEdit {
  std::string Caption;
  int16_t EditKomp = 0;            // component at hand, 0: a substance of the selection window
  bool NurLesen = false;           // read-only (EditKomp = 0)
  int Tab = 0;                     // the tab shown
  std::vector<std::string> Text;   // one text per field of AEditFelder()
  std::vector<std::string> Stand;  // the texts as last shown or applied
  std::string lblGleichung;        // "actual vapour-pressure equation:" and the code
  std::string lblSystemNr;         // "KDB Syst.No:" and the number of the record
  std::string Hinweis;             // the last flags of values outside physical sense
  bool cmdUpEnabled = false, cmdDownEnabled = false;

  // The editor on component i of the mixture (1..NKomp).
  void Load(mdiPEQ& f, int i);
  // The editor read-only on the database place (1-based), from the selection window. False
  // (with the box shown) when the record cannot be read.
  bool LoadPlatz(mdiPEQ& f, int place);

  // Whether a field changed since it was last shown or applied.
  bool Geaendert() const { return Text != Stand; }

  // "Apply": the four steps of AEditUebernehmen. Nothing in read-only mode.
  void OK(mdiPEQ& f);
  // "Close": asks when fields changed; true when the window closed.
  bool esc(mdiPEQ& f);
  void cmdUp(mdiPEQ& f);
  void cmdDown(mdiPEQ& f);
  void cmdCorrelateAUGUST(mdiPEQ& f);
  // Applies, asks for the file and writes the private database of the mixture.
  void WriteDataBaseQ07(mdiPEQ& f);
  void cmdUNIFTab(mdiPEQ& f);
  void cmdOUnifTab(mdiPEQ& f);
  void cmdHilfe(mdiPEQ& f);
  // Before the editor leaves the substance at hand (stepping, another substance, closing):
  // asks " Your changes are lost here. " when fields changed; true when it may leave.
  bool Verlassen(mdiPEQ& f);

  // The four steps of "Apply" on the session; the names of fields that do not read as numbers
  // (their old values kept) come back in bad, the flags of values outside physical sense in
  // flags.
  void AEditUebernehmen(Session& s, std::vector<std::string>& bad, std::vector<std::string>& flags);

 private:
  std::unique_ptr<Session> fremd_;  // the substance of the selection window (EditKomp = 0)
  void Anzeigen(Session& s, int i);
};

}  // namespace peq
