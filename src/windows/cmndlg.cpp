#include "windows/cmndlg.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "session/anycase.h"
#include "session/codepage.h"
#include "substances/bank.h"
#include "substances/unifacfiles.h"
#include "windows/shell.h"

namespace peq {

namespace {

namespace fs = std::filesystem;

bool ReadLine(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
  return true;
}

bool GlobMatch(const char* n, const char* p) {
  // Iterative match of '*' and '?' with backtracking to the last '*'.
  const char* star = nullptr;
  const char* after = nullptr;
  while (*n) {
    if (*p == '?' || (*p && *p == *n)) {
      ++n;
      ++p;
    } else if (*p == '*') {
      star = p++;
      after = n;
    } else if (star) {
      p = star + 1;
      n = ++after;
    } else {
      return false;
    }
  }
  while (*p == '*') ++p;
  return *p == 0;
}

std::string MitTrenner(std::string dir) {
  for (char& c : dir)
    if (c == '\\') c = '/';
  if (!dir.empty() && dir.back() != '/') dir += '/';
  return dir;
}

}  // namespace

bool MusterPasst(const std::string& name, const std::string& pattern) {
  const std::string n = ToUpper(name);
  std::size_t a = 0;
  for (;;) {
    const std::size_t b = pattern.find(';', a);
    const std::string one = ToUpper(Trim(pattern.substr(a, b == std::string::npos ? std::string::npos : b - a)));
    if (!one.empty() && GlobMatch(n.c_str(), one.c_str())) return true;
    if (b == std::string::npos) return false;
    a = b + 1;
  }
}

bool ViewExpFile(const std::string& file, std::string& nam1, std::string& nam2,
                 std::string& comment1, std::string& comment2, int& noOfSets) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return false;
  std::string l[5];
  for (std::string& x : l)
    if (!ReadLine(in, x)) return false;
  nam1 = Cp1252ToUtf8(Trim(l[0]));
  nam2 = Cp1252ToUtf8(Trim(l[1]));
  comment1 = Cp1252ToUtf8(l[2]);
  comment2 = Cp1252ToUtf8(l[3]);
  const std::string count = Trim(l[4]);
  if (count.empty() || count.find_first_not_of("+-0123456789") != std::string::npos) return false;
  noOfSets = static_cast<int>(ValText(count));
  return true;
}

ProjektVorschau ViewProjectFile(Session& s, const std::string& sFile) {
  ProjektVorschau v;
  v.bank = " none";
  std::ifstream in(sFile, std::ios::binary);
  if (!in) return v;
  std::string date, comment, bankLine, konzept, count;
  if (!ReadLine(in, date) || !ReadLine(in, comment) || !ReadLine(in, bankLine)) return v;
  v.comment = Cp1252ToUtf8(comment);
  // The database name is one item: it ends at a comma.
  std::string bank = Cp1252ToUtf8(Trim(bankLine.substr(0, bankLine.find(','))));
  if (!bank.empty() && bank.front() == '"' && bank.back() == '"' && bank.size() >= 2)
    bank = bank.substr(1, bank.size() - 2);
  bool notFound = false, empty = false;
  if (!bank.empty()) {
    BankOeffnen(s, bank, notFound, empty);
    if (!notFound && !empty) {
      std::string bare = bank;
      s.BankDatei = BankNurName(bare);
    }
    v.bank = bank;
  }
  if (!ReadLine(in, konzept) || !ReadLine(in, count)) return v;
  const std::string c = Trim(count);
  if (c.empty() || c.find_first_not_of("+-0123456789") != std::string::npos) return v;
  const int n = static_cast<int>(ValText(c));
  if (n < 1 || n > 10) return v;
  std::string list;
  bool all = true;
  for (int i = 1; i <= n; ++i) {
    std::string cas;
    if (!ReadLine(in, cas)) return v;
    const int place = s.BankOffen ? CASSuchen(s, cas) : 0;
    if (place > 0) {
      list += Trim(s.BankName[static_cast<std::size_t>(place)]) + kNL;
    } else {
      list += "Substance " + std::to_string(i) + " not involved in actual database " + kNL;
      all = false;
    }
  }
  v.substances = list;
  v.okAllowed = all;
  return v;
}

void frmCmnDlg::VorschauLeeren() {
  lblStoffe.clear();
  lblInfo.clear();
  txtKommentar.clear();
  lblBank.clear();
  cmdOpenOKEnabled = true;
}

void frmCmnDlg::Load(mdiPEQ& f, const std::string& mode, const std::string& path,
                     const std::string& file, const std::string& filter, const std::string& title) {
  Caption = title;
  Modus = mode;
  Muster = filter.empty() ? "*.*" : filter;
  ProjektModus = ToUpper(filter) == kProjektFilter;
  if (ProjektModus) {
    fraTitel = "Project information";
    lblStoffeTitel = "substances of this project: ";
    fraProjekt = " Project information ";
    lblKommentarTitel = "Comment (editable):";
  } else {
    fraTitel = "File information";
    lblStoffeTitel = "substances of this data set: ";
    fraProjekt.clear();
    lblKommentarTitel.clear();
  }
  drvOpenList.clear();
  drvOpenList.push_back(fs::path(f.ProgDir).root_path().string().empty()
                            ? std::string("/")
                            : fs::path(f.ProgDir).root_path().string());
  drvIndex = 0;
  std::string dir = path.empty() ? f.ProgDir.string() : path;
  std::error_code ec;
  if (!fs::is_directory(fs::path(MitTrenner(dir)), ec)) dir = f.ProgDir.string();
  Verzeichnis = MitTrenner(dir);
  txtOpenFile = ToUpper(file);
  filIndex = -1;
  Abbruch = true;
  ErgebnisPfad.clear();
  ErgebnisDatei.clear();
  VorschauLeeren();
  ListenFuellen();
}

void frmCmnDlg::ListenFuellen() {
  dirOpenList.clear();
  filOpenList.clear();
  filIndex = -1;
  std::error_code ec;
  for (fs::directory_iterator it(fs::path(Verzeichnis), ec), end; !ec && it != end; it.increment(ec)) {
    std::error_code e2;
    const std::string name = it->path().filename().string();
    if (it->is_directory(e2)) {
      if (!name.empty() && name[0] != '.') dirOpenList.push_back(name);
    } else if (MusterPasst(name, Muster)) {
      filOpenList.push_back(name);
    }
  }
  const auto byUpper = [](const std::string& a, const std::string& b) { return ToUpper(a) < ToUpper(b); };
  std::sort(dirOpenList.begin(), dirOpenList.end(), byUpper);
  std::sort(filOpenList.begin(), filOpenList.end(), byUpper);
}

void frmCmnDlg::NameNachVerzeichniswechsel() {
  // A name of the old directory would name a file that is not here: the box shows the pattern,
  // unless the same name stands in the new directory too.
  const std::string name = Trim(txtOpenFile);
  std::error_code ec;
  if (!name.empty() && name.find_first_of("?*/\\") == std::string::npos &&
      fs::is_regular_file(FindFileAnyCase(fs::path(Verzeichnis + name)), ec))
    return;
  txtOpenFile = Muster;
}

void frmCmnDlg::drvOpenList_Change(mdiPEQ&, int index) {
  if (index < 0 || index >= static_cast<int>(drvOpenList.size())) return;
  drvIndex = index;
  Verzeichnis = MitTrenner(drvOpenList[static_cast<std::size_t>(index)]);
  VorschauLeeren();
  NameNachVerzeichniswechsel();
  ListenFuellen();
}

void frmCmnDlg::dirOpenList_Click(mdiPEQ&, int index) {
  if (index < 0 || index >= static_cast<int>(dirOpenList.size())) return;
  Verzeichnis = MitTrenner(Verzeichnis + dirOpenList[static_cast<std::size_t>(index)]);
  VorschauLeeren();
  NameNachVerzeichniswechsel();
  ListenFuellen();
}

void frmCmnDlg::cmdReturn(mdiPEQ&) {
  fs::path p(Verzeichnis);
  p = p.parent_path();  // the directory itself (the trailing separator gives an empty name)
  if (p.has_parent_path() && p != p.root_path()) Verzeichnis = MitTrenner(p.parent_path().string());
  VorschauLeeren();
  NameNachVerzeichniswechsel();
  ListenFuellen();
}

void frmCmnDlg::filOpenList_Click(mdiPEQ& f, int index) {
  if (index < 0 || index >= static_cast<int>(filOpenList.size())) return;
  filIndex = index;
  const std::string& name = filOpenList[static_cast<std::size_t>(index)];
  txtOpenFile = name;
  VorschauLeeren();
  const std::string ext = ToUpper(name.size() >= 3 ? name.substr(name.size() - 3) : name);
  const std::string full = Verzeichnis + name;
  if (ext == "EX5") {
    std::string n1, n2, c1, c2;
    int sets = 0;
    if (ViewExpFile(full, n1, n2, c1, c2, sets)) {
      lblStoffe = n1 + kNL + n2;
      lblInfo = "(" + std::to_string(sets) + " sets of exper. points)" + kNL +
                (c1.empty() ? std::string("(no comment)") : c1) + kNL + c2;
    }
  } else if (ext == "PQC") {
    const ProjektVorschau v = ViewProjectFile(f.s, full);
    lblStoffe = v.substances;
    cmdOpenOKEnabled = v.okAllowed;
    txtKommentar = v.comment;
    f.s.ProjektKommentar = v.comment;
    lblBank = v.bank;
    f.ui.FrameTitleChanged();
  }
}

void frmCmnDlg::txtKommentar_Change(mdiPEQ& f, const std::string& text) {
  txtKommentar = text;
  f.s.ProjektKommentar = text;
}

bool frmCmnDlg::cmdOpenOK(mdiPEQ& f) {
  if (!cmdOpenOKEnabled) return false;
  std::string name = Trim(txtOpenFile);
  if (name.find_first_of("?*") != std::string::npos) {
    Muster = name;
    VorschauLeeren();
    ListenFuellen();
    return false;
  }
  if (filIndex >= 0 && filIndex < static_cast<int>(filOpenList.size()) &&
      (name.empty() || name == filOpenList[static_cast<std::size_t>(filIndex)])) {
    ErgebnisPfad = Verzeichnis;
    ErgebnisDatei = filOpenList[static_cast<std::size_t>(filIndex)];
    Abbruch = false;
    return true;
  }
  if (name.empty()) return false;
  fs::path full = (name.find_first_of("/\\") != std::string::npos) ? fs::path(MitTrenner(name)) : fs::path(Verzeichnis + name);
  std::string fullText = full.string();
  if (!fullText.empty() && fullText.back() == '/') fullText.pop_back();
  full = fs::path(fullText);
  std::error_code ec;
  // The name box may spell the name in another case than the file system (it is upper-cased
  // when the dialog opens): the file is looked up regardless of case.
  if (Modus == "Open" && !fs::is_regular_file(full, ec)) full = FindFileAnyCase(full);
  if (fs::is_regular_file(full, ec) || Modus != "Open") {
    ErgebnisPfad = MitTrenner(full.parent_path().string());
    ErgebnisDatei = full.filename().string();
    Abbruch = false;
    return true;
  }
  f.ui.MsgBox("File not found", fullText, MsgIcon::Warning);
  return false;
}

void frmCmnDlg::cmdOpenCancel(mdiPEQ&) { Abbruch = true; }

void frmCmnDlg::cmdHelp(mdiPEQ& f) { f.ui.ShowHelp(ProjektModus ? kHelpProjektDatei : kHelpTpxDatei); }

}  // namespace peq
