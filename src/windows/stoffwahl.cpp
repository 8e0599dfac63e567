#include "windows/stoffwahl.h"

#include <filesystem>
#include <utility>

#include "session/codepage.h"
#include "substances/bank.h"
#include "substances/q07.h"
#include "substances/synonym.h"
#include "substances/unifacfiles.h"
#include "windows/shell.h"

namespace peq {

namespace {

constexpr std::size_t kPlatzBreite = 6;
constexpr std::size_t kFormelBreite = 12;
constexpr std::size_t kNameBreite = 40;

// The directory of the open database, where SYNOM.TXT stands.
std::string BankVerzeichnis(const Session& s) {
  return std::filesystem::path(BankPfadDatei(s)).parent_path().string();
}

std::string PlatzFeld(int place) {
  std::string t = std::to_string(place);
  if (t.size() < kPlatzBreite) t.append(kPlatzBreite - t.size(), ' ');
  return t;
}

}  // namespace

std::string StoffListenEintrag(const Session& s, int place) {
  const std::size_t k = static_cast<std::size_t>(place);
  return PlatzFeld(place) + FixedField(s.BankFormel[k], kFormelBreite) + " " +
         FixedField(s.BankName[k], kNameBreite);
}

bool frmStoffwahl::Vergeben(int index) const {
  return index >= 0 && index < static_cast<int>(StoffListe.size()) &&
         Utf8Length(StoffListe[static_cast<std::size_t>(index)]) < 5;
}

int frmStoffwahl::PlatzRechts(int i) const {
  const std::string& e = lstSelected[static_cast<std::size_t>(i - 1)];
  return static_cast<int>(ValText(e.substr(0, 4)));
}

void frmStoffwahl::Load(mdiPEQ& f) {
  const Session& s = f.s;
  Caption = "  Selection of mixing components (available:   " + std::to_string(s.BankAnz) + " substances)";
  StoffListe.clear();
  for (int p = 1; p <= s.BankAnz; ++p) StoffListe.push_back(StoffListenEintrag(s, p));
  lstSelected.clear();
  lstSelectedIndex = -1;
  Label3Visible.fill(false);
  NGewaehlt = 0;
  NameCombo.clear();
  NameComboMarkiert = false;
  Text1.clear();
  lblCAS.clear();
  StoffListeIndex = -1;
  if (!StoffListe.empty()) Markieren(f, 0);
  // The current mixture, entry by entry as if moved by the user.
  for (int i = 1; i <= s.NKomp && i < static_cast<int>(s.KompIdx.size()); ++i) {
    const int p = s.KompIdx[static_cast<std::size_t>(i)];
    if (p < 1 || p > s.BankAnz) continue;
    Markieren(f, p - 1);
    cmdRightOne(f);
  }
  AuswahlGeaendert = false;
}

void frmStoffwahl::Markieren(mdiPEQ& f, int index) {
  if (index < 0 || index >= static_cast<int>(StoffListe.size())) return;
  const std::size_t k = static_cast<std::size_t>(index + 1);
  StoffListeIndex = index;
  ListenPos = static_cast<int16_t>(index + 1);
  Text1 = std::to_string(f.s.BankNr[k]);
  lblCAS = " CAS-RN: " + Trim(f.s.BankCAS[k]);
}

void frmStoffwahl::BoxenZuruecksetzen(mdiPEQ& f) {
  if (StoffListeIndex < 0) return;
  const std::size_t k = static_cast<std::size_t>(StoffListeIndex + 1);
  Text1 = std::to_string(f.s.BankNr[k]);
  NameCombo = Trim(f.s.BankName[k]);
  ListenPos = static_cast<int16_t>(StoffListeIndex + 1);
}

void frmStoffwahl::NameCombo_Return(mdiPEQ& f) {
  if (NameCombo.empty()) return;
  MsgSink sink;
  const StoffSucheErgebnis r = StoffSuchen(f.s, NameCombo, BankVerzeichnis(f.s), &sink);
  ShowMessages(f.ui, sink);
  switch (r.art) {
    case StoffSucheErgebnis::Art::Direkt:
    case StoffSucheErgebnis::Art::Synonym:
      Markieren(f, r.place - 1);
      break;
    case StoffSucheErgebnis::Art::NichtGefunden:
    case StoffSucheErgebnis::Art::NichtInBank:
      BoxenZuruecksetzen(f);
      break;
    case StoffSucheErgebnis::Art::DateiFehlt:
      break;
  }
  const std::size_t semi = NameCombo.find(';');
  if (semi != std::string::npos) NameCombo.erase(semi);
  NameHistorie.push_back(NameCombo);
  if (NameHistorie.size() >= kNameHistorie) NameHistorie.erase(NameHistorie.begin());
  NameComboMarkiert = true;
}

void frmStoffwahl::Text1_Change(mdiPEQ& f, const std::string& text) {
  Text1 = text;
  if (text.empty() || text.size() > 4) return;
  const double v = ValText(text);
  if (v < 1 || v > 1999) return;
  const int place = NummerSuchen(f.s, static_cast<int>(v));
  if (place > 0) {
    const std::size_t k = static_cast<std::size_t>(place);
    StoffListeIndex = place - 1;
    ListenPos = static_cast<int16_t>(place);
    NameCombo = Trim(f.s.BankName[k]);
    lblCAS = " CAS-RN: " + Trim(f.s.BankCAS[k]);
  } else {
    ListenPos = static_cast<int16_t>(StoffListeIndex + 1);
  }
}

void frmStoffwahl::StoffListe_Click(mdiPEQ& f, int index) {
  if (index < 0 || index >= static_cast<int>(StoffListe.size())) return;
  Markieren(f, index);
  // The record itself: record ListenPos + 1, the first record being the head of the file.
  Q07Record rec;
  std::string err;
  if (ReadQ07Record(BankPfadDatei(f.s), ListenPos + 1, rec, err)) {
    const std::string& name = f.s.NamenEnglisch ? rec.Name1 : rec.Name2;
    NameCombo = Trim(name.substr(0, name.find(';')));
    Text1 = std::to_string(rec.Nr);
    lblCAS = " CAS-RN: " + Trim(rec.CasNr);
  } else {
    NameCombo = Trim(f.s.BankName[static_cast<std::size_t>(ListenPos)]);
  }
}

void frmStoffwahl::Label3_Click(mdiPEQ& f, int k) {
  if (k < 0 || k >= NGewaehlt) return;
  // The substance editor on this substance, which need not belong to the mixture.
  if (!f.ui.Provides(WindowId::frmAEdit)) {
    f.NichtVerfuegbar(WindowId::frmAEdit);
    return;
  }
  if (f.IsLoaded(WindowId::frmAEdit) && !f.AEdit.Verlassen(f)) return;
  if (!f.AEdit.LoadPlatz(f, PlatzRechts(k + 1))) return;
  f.Unload(WindowId::frmAEdit);
  f.Show(WindowId::frmAEdit);
}

void frmStoffwahl::cmdRightOne(mdiPEQ& f) {
  const int idx = StoffListeIndex;
  if (idx < 0 || idx >= static_cast<int>(StoffListe.size())) return;
  AuswahlGeaendert = true;
  if (Vergeben(idx)) {
    f.ui.MsgBox("Note", "This substance was already selected!", MsgIcon::Information);
    return;
  }
  ++NGewaehlt;
  if (NGewaehlt >= kMaxKomponenten + 1) {
    --NGewaehlt;
    f.ui.MsgBox(kTitleNotPossible,
                " Maximum " + std::to_string(kMaxKomponenten) + " components possible!", MsgIcon::Stop);
    return;
  }
  Label3Visible[static_cast<std::size_t>(NGewaehlt - 1)] = true;
  std::string& entry = StoffListe[static_cast<std::size_t>(idx)];
  lstSelected.push_back(entry.substr(0, kPlatzBreite) + (entry.size() > 18 ? entry.substr(18) : std::string()));
  entry = Trim(entry.substr(0, kPlatzBreite));
  if (idx + 1 < static_cast<int>(StoffListe.size())) {
    // The name box follows the mark, as the number box and the CAS-RN do.
    Markieren(f, idx + 1);
    NameCombo = Trim(f.s.BankName[static_cast<std::size_t>(idx + 2)]);
  }
  lstSelectedIndex = static_cast<int>(lstSelected.size()) - 1;
}

void frmStoffwahl::cmdLeftOne(mdiPEQ& f) {
  const int r = lstSelectedIndex;
  if (r < 0 || r >= static_cast<int>(lstSelected.size())) return;
  const int place = PlatzRechts(r + 1);
  if (place >= 1 && place <= static_cast<int>(StoffListe.size()))
    StoffListe[static_cast<std::size_t>(place - 1)] = StoffListenEintrag(f.s, place);
  lstSelected.erase(lstSelected.begin() + r);
  if (NGewaehlt > 0) {
    Label3Visible[static_cast<std::size_t>(NGewaehlt - 1)] = false;
    --NGewaehlt;
  }
  AuswahlGeaendert = true;
  if (lstSelectedIndex >= static_cast<int>(lstSelected.size()))
    lstSelectedIndex = static_cast<int>(lstSelected.size()) - 1;
}

void frmStoffwahl::cmdLeftAll(mdiPEQ& f) {
  while (!lstSelected.empty()) {
    lstSelectedIndex = 0;
    cmdLeftOne(f);
  }
}

void frmStoffwahl::cmdUp() {
  const int r = lstSelectedIndex;
  if (r < 1 || r >= static_cast<int>(lstSelected.size())) return;
  std::swap(lstSelected[static_cast<std::size_t>(r)], lstSelected[static_cast<std::size_t>(r - 1)]);
  lstSelectedIndex = r - 1;
  AuswahlGeaendert = true;
}

void frmStoffwahl::cmdDown() {
  const int r = lstSelectedIndex;
  if (r < 0 || r + 1 >= static_cast<int>(lstSelected.size())) return;
  std::swap(lstSelected[static_cast<std::size_t>(r)], lstSelected[static_cast<std::size_t>(r + 1)]);
  lstSelectedIndex = r + 1;
  AuswahlGeaendert = true;
}

void frmStoffwahl::GemischOK(mdiPEQ& f) {
  Session& s = f.s;
  if (NGewaehlt < 2) {
    f.ui.MsgBox(kTitleNotPossible, "At least two substances!", MsgIcon::Stop);
    Gating(GateEvent::MixtureTooFew, s, f.cmds);
    f.CommandsChanged();
    return;
  }
  if (AuswahlGeaendert) {
    AuswahlGeaendert = false;
    Vec<int16_t> idx(static_cast<std::size_t>(NGewaehlt) + 1, 0);
    for (int i = 1; i <= NGewaehlt; ++i) {
      const std::string& e = lstSelected[static_cast<std::size_t>(i - 1)];
      idx[static_cast<std::size_t>(i)] = static_cast<int16_t>(ValText(e.substr(0, 5)));
    }
    // Windows that worked on the old mixture go.
    for (WindowId w : kToolbarUnloads) f.Unload(w);
    MsgSink sink;
    SelectionCommit(s, NGewaehlt, idx, &sink);  // arrays, model reset, state reset, LoadSubstances
    ShowMessages(f.ui, sink);
    // The models must be confirmed again: the commands that need them wait for "Models OK".
    Gating(GateEvent::ResetModels, s, f.cmds);
  }
  f.Unload(WindowId::frmStoffwahl);
  Gating(GateEvent::MixtureOK, s, f.cmds);
  f.CommandsChanged();
  if (s.LoadOK) f.mnuModell_Click();
  f.UpdateKomponentenMenue();
}

void frmStoffwahl::cmdStoffwahlEsc(mdiPEQ& f) { f.Unload(WindowId::frmStoffwahl); }

void frmStoffwahl::cmdHilfe(mdiPEQ& f) { f.ui.ShowHelp(kStoffwahlHelp); }

}  // namespace peq
