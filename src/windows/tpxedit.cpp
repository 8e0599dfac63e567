#include "windows/tpxedit.h"

#include <algorithm>
#include <filesystem>
#include <cstdio>

#include "session/numformat.h"
#include "windows/shell.h"

namespace peq {

namespace {

std::string Zahl(double v) { return ZahlG(v, 7); }

std::string NurName(const std::string& pfad) {
  const std::size_t sep = pfad.find_last_of("\\/");
  return sep == std::string::npos ? pfad : pfad.substr(sep + 1);
}

}  // namespace

void frmTpxEdit::Form_Load(mdiPEQ& f) {
  Session& s = f.s;
  s.ExpNeuEingabe = f.NeuEingabe;
  Caption = f.NeuEingabe || f.TpxEditTitel.empty() ? std::string(kTpxEditCaption) : f.TpxEditTitel;
  AddMode = true;
  MarkA = MarkB = 0;
  MarkSpalte = 1;
  Fokus = -1;
  y = {};
  cmdKonsTestEnabled = false;
  cmdFitEnabled = false;
  ZeileZeigen(s);
}

std::array<std::string, 5> frmTpxEdit::Koepfe() { return {"No.", "T/K", "p/kPa", "x2(L)", "x2(V)"}; }

std::vector<std::array<std::string, 5>> frmTpxEdit::Zeilen(const Session& s) {
  std::vector<std::array<std::string, 5>> z;
  const int n = ExpGehalten(s);
  if (n <= 0) {
    z.push_back({kTpxLeer, "", "", "", ""});
    return z;
  }
  z.reserve(static_cast<std::size_t>(n));
  for (int i = 1; i <= n; ++i) {
    const ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    const std::string nr = p.Inaktiv != 0 ? "(" + std::to_string(i) + ")" : std::to_string(i);
    z.push_back({nr, Zahl(p.T), Zahl(p.p), Zahl(p.x2L), Zahl(p.x2V)});
  }
  return z;
}

std::array<std::string, 4> frmTpxEdit::EingabeKoepfe() const {
  return {kTEinheitText[static_cast<std::size_t>(Einheiten.TEinheit == 1)],
          kpEinheitText[static_cast<std::size_t>(std::clamp<int>(Einheiten.pEinheit, 0, 2))], XLKopf(Einheiten.iKomp),
          XVKopf(Einheiten.iKomp)};
}

void frmTpxEdit::ZeileZeigen(const Session& s) {
  const int n = s.ExpAnz;
  if (AddMode) {
    Kopf = "Add data set #" + std::to_string(n + 1);
    ZeileText = "Add line #" + std::to_string(n + 1);
  } else {
    const int z = MarkA > 0 ? MarkA : std::max(n, 1);
    Kopf = "Edit data set #" + std::to_string(z);
    ZeileText = "Line " + std::to_string(z);
  }
  EditBox.clear();
  if (MarkA >= 1 && MarkA <= ExpGehalten(s)) {
    const auto zeilen = Zeilen(s);
    const auto& r = zeilen[static_cast<std::size_t>(MarkA - 1)];
    EditBox = r[0] + "\t" + r[1] + "\t" + r[2] + "\t" + r[3] + "\t" + r[4];
  }
}

void frmTpxEdit::Markieren(int a, int b) {
  MarkA = std::min(a, b);
  MarkB = std::max(a, b);
}

void frmTpxEdit::Grid_Click(const Session& s, int zeile, int spalte) {
  Markieren(zeile, zeile);
  MarkSpalte = std::clamp(spalte, 1, 4);
  if (zeile >= 1 && zeile <= ExpGehalten(s)) y = TpxAnzeige(s.ExpPunkte[static_cast<std::size_t>(zeile)], Einheiten);
  ZeileZeigen(s);
}

void frmTpxEdit::optInputMode_Click(const Session& s, bool add) {
  AddMode = add;
  ZeileZeigen(s);
}

void frmTpxEdit::Einheiten_Click(const Session& s, const TpxEinheiten& e) {
  Einheiten = e;
  ZeileZeigen(s);
}

void frmTpxEdit::NachAenderung(mdiPEQ& f) {
  ZeileZeigen(f.s);
  f.mnuDaten_Click();  // mnuExpEdit and the fitting commands follow ExpAnz
}

void frmTpxEdit::OKinput_Click(mdiPEQ& f) {
  Fokus = -1;
  const TpxUebernahme u = OKinput(f.s, y, Einheiten, AddMode, MarkA);
  if (!u.ok) {
    if (!u.Meldung.empty()) f.ui.MsgBox(kExpStopTitel, u.Meldung, MsgIcon::Stop);
    if (u.Fokus >= 0) {
      Fokus = u.Fokus;
      ++Beeps;
      f.ui.Beep();
    }
    return;
  }
  y = u.Anzeige;
  if (AddMode) Markieren(0, 0);
  NachAenderung(f);
}

void frmTpxEdit::Laden(mdiPEQ& f, bool add) {
  Session& s = f.s;
  if (s.NKomp != 2) {
    f.ui.MsgBox(kExpStopTitel, kExpNurBinaer, MsgIcon::Stop);
    return;
  }
  std::string pfad = s.PfadProjekt, datei, kommentar;
  bool cancel = false;
  f.DateiDialog("Open", pfad, datei, kommentar, cancel, "*.EX5", add ? kTpxAddTitel : kTpxLadenTitel);
  if (cancel || datei.empty()) return;
  const std::string voll = (std::filesystem::path(pfad) / datei).string();
  MsgSink msgs;
  const JaNeinFrage frage = [&f](const std::string& t, const std::string& text) {
    return f.ui.MsgBox(t, text, MsgIcon::Warning, Buttons::YesNo) == Answer::Yes;
  };
  const bool ok = ExpDateiLaden(s, add, voll, frage, &msgs);
  ShowMessages(f.ui, msgs);
  if (ok) {
    Caption = add ? "Edit data set #" + std::to_string(s.ExpAnz) + " (from " + NurName(voll) + ")"
                  : "File: " + NurName(voll) + " experimental data, ";
  }
  Markieren(0, 0);
  NachAenderung(f);
}

void frmTpxEdit::cmdLoad_Click(mdiPEQ& f) { Laden(f, false); }
void frmTpxEdit::cmdAdd_Click(mdiPEQ& f) { Laden(f, true); }

void ExpDateiSpeichern(mdiPEQ& f, bool& cancel) {
  FileDialogRequest req;
  req.save = true;
  req.title = kTpxSpeichernTitel;
  req.filter = kTpxSpeichernFilter;
  req.initialFile = f.s.ExpDatei;
  req.defaultExt = ".EX5";
  req.flags = kTpxSpeichernFlags;
  const FileDialogResult r = f.ui.FileDialog(req);
  cancel = r.cancelled || r.fileTitle.empty();
  if (cancel) return;
  std::string err;
  if (!ExpDateiSchreiben(f.s, r.fileName, err)) f.ui.MsgBox(kExpFehlerTitel, err, MsgIcon::Stop);
}

void ExpSpeichernFrage(mdiPEQ& f) {
  if (f.s.ExpAnz < 1 || !f.s.ExpUngespeichert) return;
  if (f.ui.MsgBox(kExpNichtGespeichertTitel, kExpJetztSpeichern, MsgIcon::Question, Buttons::YesNo) != Answer::Yes)
    return;
  bool cancel = false;
  ExpDateiSpeichern(f, cancel);
}

void frmTpxEdit::cmdSave_Click(mdiPEQ& f) {
  bool cancel = false;
  ExpDateiSpeichern(f, cancel);
}

void frmTpxEdit::cmdAus_Click(mdiPEQ& f) {
  if (MarkA < 1 || MarkA > f.s.ExpAnz) {
    f.ui.MsgBox(kExpWarnTitel, kTpxKeineMarke, MsgIcon::Warning);
    return;
  }
  ExpAktivUmschalten(f.s, MarkA, MarkB);
  NachAenderung(f);
}

void frmTpxEdit::cmdErase_Click(mdiPEQ& f) {
  Session& s = f.s;
  if (MarkA < 1 || MarkA > s.ExpAnz) {
    f.ui.MsgBox(kExpWarnTitel, kTpxKeineMarke, MsgIcon::Warning);
    return;
  }
  const int b = std::min(MarkB, static_cast<int>(s.ExpAnz));
  const std::string frage = MarkA == b ? "Line " + std::to_string(MarkA) + " Really delete?"
                                       : "Lines " + std::to_string(MarkA) + " to " + std::to_string(b) +
                                             " really delete?";
  if (f.ui.MsgBox(kExpWarnTitel, frage, MsgIcon::Question, Buttons::YesNo) != Answer::Yes) return;
  ExpZeilenLoeschen(s, MarkA, b);
  Markieren(0, 0);
  NachAenderung(f);
}

void frmTpxEdit::cmdSort_Click(mdiPEQ& f, const char* key) {
  ExpSortieren(f.s, key);
  NachAenderung(f);
}

void frmTpxEdit::cmdChange12_Click(mdiPEQ& f) {
  ExpKomponentenTausch(f.s);
  f.s.ExpUngespeichert = true;
  NachAenderung(f);
}

void frmTpxEdit::cmdClipEinfuegen_Click(mdiPEQ& f) {
  const std::string text = f.ui.GetClipboard();
  const int r0 = MarkA >= 1 ? MarkA - 1 : f.s.ExpAnz;
  if (ExpEinfuegen(f.s, text, r0, MarkSpalte) == 0) return;
  NachAenderung(f);
}

void frmTpxEdit::Zelle_Edit(mdiPEQ& f, int zeile, int spalte, const std::string& text) {
  if (ExpZelleSetzen(f.s, zeile, spalte, text)) NachAenderung(f);
}

std::string frmTpxEdit::DruckText(const Session& s) {
  std::string out = s.ExpTitel.empty() ? std::string() : s.ExpTitel + "\n";
  char buf[96];
  std::snprintf(buf, sizeof buf, "%5s %12s %12s %10s %10s\n", "", "T/K", "p/kPa", "xL(2)", "xV(2)");
  out += buf;
  for (int i = 1; i <= ExpGehalten(s); ++i) {
    const ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    std::snprintf(buf, sizeof buf, "%5d %12s %12s %10s %10s%s\n", i, FormatZahl(p.T, "0.00").c_str(),
                  FormatZahl(p.p, "0.000").c_str(), FormatZahl(p.x2L, "0.0000").c_str(),
                  FormatZahl(p.x2V, "0.0000").c_str(), p.Inaktiv != 0 ? "  inactive" : "");
    out += buf;
  }
  return out;
}

void frmTpxEdit::cmdPrintTpx_Click(mdiPEQ& f) { f.ui.PrintText(Caption, DruckText(f.s)); }

void frmTpxEdit::cmdEsc_Click(mdiPEQ& f) {
  ExpSpeichernFrage(f);
  f.Unload(WindowId::frmTpxEdit);
  f.mnuDaten_Click();
}

}  // namespace peq
