// frmStoffwahl: the choice of the components out of the open database, by list place, database
// number, name, synonym or CAS-RN; "Mixture OK" commits the selection.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr int kMaxKomponenten = 10;
inline constexpr std::size_t kNameHistorie = 8;
inline constexpr const char* kStoffListeKopf = "  No.       Formula             Name";
inline constexpr const char* kLabel3Tip = "Click on index-no = show data";
inline constexpr const char* kNameComboLabel = "Name / CAS-RN:";
inline constexpr const char* kText1Label = "KDB Syst.No:";
inline constexpr const char* kGemischOKCaption = "Mixture OK";
inline constexpr const char* kStoffwahlEscCaption = "&Cancel";
inline constexpr const char* kStoffwahlHilfeCaption = "Hilfe";
inline constexpr int kStoffwahlHelp = 40000;

// An entry of the left list: the place in a field of 6, the 12-character formula, a blank, the
// 40-character name.
std::string StoffListenEintrag(const Session& s, int place);

struct frmStoffwahl {
  std::string Caption;
  std::vector<std::string> StoffListe;  // entry k is the substance of place k+1
  int StoffListeIndex = -1;             // the marked entry, -1 none
  std::vector<std::string> lstSelected;
  int lstSelectedIndex = -1;
  std::array<bool, 10> Label3Visible{};
  std::string NameCombo;                  // text of the name box
  std::vector<std::string> NameHistorie;  // its list, oldest first
  bool NameComboMarkiert = false;         // focus on the text, all of it marked
  std::string Text1;                      // database number box
  std::string lblCAS;                     // " CAS-RN: " and the CAS-RN of the clicked entry

  int16_t NGewaehlt = 0;
  bool AuswahlGeaendert = false;
  int16_t ListenPos = 0;

  void Load(mdiPEQ& f);

  // Input boxes.
  void NameCombo_Return(mdiPEQ& f);
  void Text1_Change(mdiPEQ& f, const std::string& text);
  void StoffListe_Click(mdiPEQ& f, int index);
  void StoffListe_DblClick(mdiPEQ& f) { cmdRightOne(f); }
  void lstSelected_DblClick(mdiPEQ& f) { cmdLeftOne(f); }
  void Label3_Click(mdiPEQ& f, int k);

  // Moves.
  void cmdRightOne(mdiPEQ& f);
  void cmdLeftOne(mdiPEQ& f);
  void cmdLeftAll(mdiPEQ& f);
  void cmdUp();
  void cmdDown();

  void GemischOK(mdiPEQ& f);
  void cmdStoffwahlEsc(mdiPEQ& f);
  void cmdHilfe(mdiPEQ& f);

  // Whether the entry of a place is taken (its text shorter than 5 characters).
  bool Vergeben(int index) const;
  // The database place of the i-th right entry (1-based i), from its first characters.
  int PlatzRechts(int i) const;

 private:
  // Marks the left entry: ListenPos, the number box and the CAS label follow.
  void Markieren(mdiPEQ& f, int index);
  // The input boxes back to the marked entry.
  void BoxenZuruecksetzen(mdiPEQ& f);
};

}  // namespace peq
