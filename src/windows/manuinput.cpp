#include "windows/manuinput.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "session/filewrite.h"
#include "session/numformat.h"
#include "session/writefmt.h"
#include "windows/shell.h"

namespace peq {

namespace {

std::string Zahl(double v) { return ZahlG(v, 7); }

std::string Verzeichnis(const std::string& datei) {
  std::string d = std::filesystem::path(datei).parent_path().string();
  while (!d.empty() && (d.back() == '\\' || d.back() == '/')) d.pop_back();
  return d;
}

}  // namespace

void frmManuInput::Form_Load(mdiPEQ& f) {
  Caption = kManuLoadTitel;
  Liste = Kurve(1);
  f.s.XYAnz = 0;
  f.s.XYDatei.clear();
  txtComment.clear();
  AddMode = true;
  MarkA = MarkB = 0;
  y = {};
  XYUngespeichert = false;
  fraManipulation = false;
  const auto it = std::find(kManuTrenner.begin(), kManuTrenner.end(), f.s.ListTrenner);
  cmbSep = it == kManuTrenner.end() ? 0 : static_cast<int>(it - kManuTrenner.begin());
  ZeileZeigen();
}

std::vector<std::array<std::string, 3>> frmManuInput::Zeilen() const {
  std::vector<std::array<std::string, 3>> z;
  const int n = XYAnzahl(Liste);
  if (n == 0) {
    z.push_back({kXYLeer, "", ""});
    return z;
  }
  z.reserve(static_cast<std::size_t>(n));
  for (int i = 1; i <= n; ++i) {
    const KurvenPunkt& p = Liste[static_cast<std::size_t>(i)];
    z.push_back({p.z != 0 ? "(" + std::to_string(i) + ")" : " " + std::to_string(i), Zahl(p.x), Zahl(p.y)});
  }
  return z;
}

void frmManuInput::ZeileZeigen() {
  Kopf = AddMode ? "Input mode = Add line" : "Input mode = Edit line";
  const int n = XYAnzahl(Liste);
  ZeileText = AddMode ? "Add line #" + std::to_string(n + 1) : "Line " + std::to_string(MarkA > 0 ? MarkA : 1);
}

void frmManuInput::Markieren(int a, int b) {
  MarkA = std::min(a, b);
  MarkB = std::max(a, b);
}

void frmManuInput::Grid_Click(int zeile, int spalte) {
  Markieren(zeile, zeile);
  MarkSpalte = std::clamp(spalte, 1, 2);
  if (zeile >= 1 && zeile <= XYAnzahl(Liste)) {
    const KurvenPunkt& p = Liste[static_cast<std::size_t>(zeile)];
    y = {Zahl(p.x), Zahl(p.y)};
  }
  ZeileZeigen();
}

void frmManuInput::optInputMode_Click(bool add) {
  AddMode = add;
  ZeileZeigen();
}

void frmManuInput::OKinput_Click(mdiPEQ& f) {
  double v[2];
  for (int k = 0; k < 2; ++k) {
    std::string t = y[static_cast<std::size_t>(k)];
    std::replace(t.begin(), t.end(), ',', '.');
    if (!ParseNumber(t, v[k]) || std::fabs(v[k]) > 3.402823e38) {
      f.ui.Beep();
      return;
    }
  }
  const int n = XYAnzahl(Liste);
  if (AddMode) {
    if (n >= 32767) return;
    XYAnzahlSetzen(Liste, n + 1);
    Liste[static_cast<std::size_t>(n + 1)] = KurvenPunkt{static_cast<float>(v[1]), static_cast<float>(v[0]), 0};
  } else {
    if (MarkA < 1 || MarkA > n) return;
    KurvenPunkt& p = Liste[static_cast<std::size_t>(MarkA)];
    p.x = static_cast<float>(v[0]);
    p.y = static_cast<float>(v[1]);
  }
  f.s.XYAnz = static_cast<int16_t>(XYAnzahl(Liste));
  XYUngespeichert = true;
  ZeileZeigen();
}

void frmManuInput::XYSaveFrage(mdiPEQ& f) {
  if (!XYUngespeichert || XYAnzahl(Liste) == 0) return;
  if (f.ui.MsgBox(kXYNichtGespeichert, kXYJetztSpeichern, MsgIcon::Question, Buttons::YesNo) == Answer::Yes)
    cmdSave_Click(f);
}

void frmManuInput::cmdLoad_Click(mdiPEQ& f) {
  XYSaveFrage(f);
  FileDialogRequest req;
  req.title = kManuOeffnenTitel;
  req.filter = kManuOeffnenFilter;
  req.initialDir = f.s.PfadXY;
  req.defaultExt = "*.XY";
  const FileDialogResult r = f.ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty()) return;
  f.s.PfadXY = Verzeichnis(r.fileName);
  Laden(f, r.fileName);
}

bool frmManuInput::Laden(mdiPEQ& f, const std::string& datei) {
  std::ifstream in(datei, std::ios::binary);
  std::string bytes, err;
  if (in) bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  bool ok = false;
  if (!in && bytes.empty())
    err = "File not found: " + datei;
  else
    ok = XYLesen(bytes, Liste, txtComment, err);
  if (!ok) {
    f.ui.MsgBox(kXYFehlerTitel, err, MsgIcon::Stop);
    Liste = Kurve(1);
    f.s.XYAnz = 0;
    y = {};
    ZeileZeigen();
    return false;
  }
  f.s.XYAnz = static_cast<int16_t>(XYAnzahl(Liste));
  f.s.XYDatei = datei;
  XYUngespeichert = false;
  Caption = "loaded:" + datei;
  Markieren(0, 0);
  ZeileZeigen();
  return true;
}

void frmManuInput::cmdSave_Click(mdiPEQ& f) {
  FileDialogRequest req;
  req.save = true;
  req.title = kManuSpeichernTitel;
  req.filter = kManuSpeichernFilter;
  req.initialDir = f.s.PfadXY;
  req.initialFile = f.s.XYDatei;
  req.defaultExt = ".XY";
  const FileDialogResult r = f.ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty()) return;
  f.s.PfadXY = Verzeichnis(r.fileName);
  Speichern(f, r.fileName);
}

bool frmManuInput::Speichern(mdiPEQ& f, const std::string& datei) {
  const std::string sep = kManuTrenner[static_cast<std::size_t>(std::clamp(cmbSep, 0, 3))];
  std::string err;
  if (!WriteReplacing(datei, XYText(txtComment, Liste, sep), err)) {
    f.ui.MsgBox(kXYFehlerTitel, err, MsgIcon::Stop);
    return false;
  }
  f.s.ListTrenner = sep;
  f.s.XYDatei = datei;
  XYUngespeichert = false;
  return true;
}

void frmManuInput::XSort_Click() {
  XYSortieren(Liste, false);
  XYUngespeichert = true;
}
void frmManuInput::YSort_Click() {
  XYSortieren(Liste, true);
  XYUngespeichert = true;
}
void frmManuInput::cmdChangeXY_Click() {
  XYSpaltenTausch(Liste);
  XYUngespeichert = true;
}

void frmManuInput::cmdErase_Click(mdiPEQ& f) {
  const int n = XYAnzahl(Liste);
  if (MarkA < 1 || MarkA > n) {
    f.ui.MsgBox("WARNING", "No marked item!", MsgIcon::Warning);
    return;
  }
  const int b = std::min(MarkB, n);
  const std::string frage = MarkA == b ? " Line  " + std::to_string(MarkA) + " really remove?"
                                       : "Lines " + std::to_string(MarkA) + " to " + std::to_string(b) +
                                             " really remove?";
  if (f.ui.MsgBox("WARNING", frage, MsgIcon::Question, Buttons::YesNo) != Answer::Yes) return;
  XYZeilenLoeschen(Liste, MarkA, b);
  f.s.XYAnz = static_cast<int16_t>(XYAnzahl(Liste));
  XYUngespeichert = true;
  Markieren(0, 0);
  ZeileZeigen();
}

void frmManuInput::cmdAus_Click(mdiPEQ& f) {
  if (MarkA < 1 || MarkA > XYAnzahl(Liste)) {
    f.ui.MsgBox("WARNING", "No marked item!", MsgIcon::Warning);
    return;
  }
  XYAktivUmschalten(Liste, MarkA, MarkB);
  XYUngespeichert = true;
}

void frmManuInput::cmdExecManip_Click(mdiPEQ& f) {
  double W = 0;
  std::string t = txtW;
  std::replace(t.begin(), t.end(), ',', '.');
  if (!ParseNumber(t, W)) W = 0;
  if (!XYManipulieren(Liste, optManip, W)) {
    f.ui.MsgBox(kXYNichtMoeglichTitel, kXYManipFehler, MsgIcon::Stop);
    return;
  }
  XYUngespeichert = true;
}

void frmManuInput::cmdClipEinfuegen_Click(mdiPEQ& f) {
  const int r0 = MarkA >= 1 ? MarkA - 1 : XYAnzahl(Liste);
  if (XYEinfuegen(Liste, f.ui.GetClipboard(), r0, MarkSpalte) == 0) return;
  f.s.XYAnz = static_cast<int16_t>(XYAnzahl(Liste));
  XYUngespeichert = true;
  ZeileZeigen();
}

void frmManuInput::mnuKopieren_Click(mdiPEQ& f) {
  const int n = XYAnzahl(Liste);
  if (MarkA < 1 || MarkA > n) {
    f.ui.MsgBox("WARNING", "No marked item!", MsgIcon::Warning);
    return;
  }
  std::string t;
  for (int i = MarkA; i <= std::min(MarkB, n); ++i) {
    const KurvenPunkt& p = Liste[static_cast<std::size_t>(i)];
    t += Zahl(p.x) + "\t" + Zahl(p.y) + "\r\n";
  }
  f.ui.SetClipboard(t);
}

void frmManuInput::mnuNull_Click(mdiPEQ& f) {
  const int n = XYAnzahl(Liste);
  if (MarkA < 1 || MarkA > n) {
    f.ui.MsgBox("WARNING", "No marked item!", MsgIcon::Warning);
    return;
  }
  for (int i = MarkA; i <= std::min(MarkB, n); ++i) {
    KurvenPunkt& p = Liste[static_cast<std::size_t>(i)];
    (MarkSpalte == 1 ? p.x : p.y) = 0.0f;
  }
  XYUngespeichert = true;
  ZeileZeigen();
}

void frmManuInput::cmdDrawManu_Click(mdiPEQ& f) {
  Kurve aktiv;
  if (!XYAktive(Liste, aktiv)) {
    f.ui.MsgBox(kXYNichtMoeglichTitel, "Values beyond +-1E+37", MsgIcon::Stop);
    return;
  }
  if (XYAnzahl(Liste) == 0) return;
  const int n = XYAnzahl(aktiv);
  if (!AlsPunkte && n < 2) {
    f.ui.MsgBox(kXYNichtMoeglichTitel, kXYZweiPunkte, MsgIcon::Stop);
    return;
  }
  if (AlsPunkte && n < 1) {
    f.ui.MsgBox(kXYNichtMoeglichTitel, kXYEinPunkt, MsgIcon::Stop);
    return;
  }
  f.Graph2D.ManuZeichnen(f, aktiv, AlsPunkte, txtComment);
}

std::string frmManuInput::DruckText(const std::string& kopf, const Kurve& liste) {
  std::string out = kopf + "\n\n";
  char buf[96];
  std::snprintf(buf, sizeof buf, "%6s %16s %16s\n", "", "x", "y");
  out += buf;
  for (int i = 1; i <= XYAnzahl(liste); ++i) {
    const KurvenPunkt& p = liste[static_cast<std::size_t>(i)];
    std::snprintf(buf, sizeof buf, "%6d %16s %16s%s\n", i, FormatE7(p.x).c_str(), FormatE7(p.y).c_str(),
                  p.z != 0 ? "  inactive" : "");
    out += buf;
  }
  return out;
}

void frmManuInput::cmdPrint_Click(mdiPEQ& f) {
  std::string kopf;
  if (!f.s.XYDatei.empty()) {
    kopf = "List from XY-data file " + f.s.XYDatei;
  } else {
    const std::time_t t = std::time(nullptr);
    char zeit[32];
    std::strftime(zeit, sizeof zeit, "%H:%M:%S", std::localtime(&t));
    kopf = std::string("List from ") + zeit + " Uhr";
  }
  f.ui.PrintText(Caption, DruckText(kopf, Liste));
}

void frmManuInput::cmdEsc_Click(mdiPEQ& f) {
  XYSaveFrage(f);
  f.Unload(WindowId::frmXYEdit);
}

}  // namespace peq
