#include "windows/distprotokoll.h"

#include <filesystem>

#include "session/filewrite.h"
#include "windows/protokoll.h"
#include "windows/shell.h"

namespace peq {

namespace fs = std::filesystem;

std::string KommaWarnung() {
  return std::string("For computer setting \"Germany\" (decimal character = comma)") + kNL +
         "it is not reasonable to take the comma as delimiter character;" + kNL +
         "the content of the clipboard is not Excel-compatible." + kNL + "recommended: semicolon";
}

namespace {

std::tm Jetzt() {
  const std::time_t t = std::time(nullptr);
  std::tm tm{};
  localtime_r(&t, &tm);
  return tm;
}

// A new name in the program's (or the user's) directory that no file has yet.
std::string NeuerName(mdiPEQ& f, const std::tm& jetzt) {
  return ProtokollDateiName(f.WriteDir(), DatumText(jetzt));
}

}  // namespace

void frmDistProtokoll::Form_Load(mdiPEQ& f) {
  P.ProtTrenner = kDistTrenner[static_cast<std::size_t>(cmbSep)];
  if (P.ProtokollDatei.empty()) P.ProtokollDatei = NeuerName(f, Jetzt());
  Status = P.ProtokollDatei;
}

void frmDistProtokoll::cmbSep_Click(mdiPEQ& f, int index) {
  if (index < 0 || index > 2) return;
  cmbSep = index;
  P.ProtTrenner = kDistTrenner[static_cast<std::size_t>(index)];
  (void)f;
}

bool frmDistProtokoll::cmdProtokoll_Click(mdiPEQ& f) {
  if (P.ProtTrenner == "," && f.s.DezKomma) f.ui.MsgBox("WARNING", KommaWarnung(), MsgIcon::Warning);
  if (!P.AktuellGueltig) return false;
  std::vector<float> z = P.Aktuell;
  z[0] = static_cast<float>(P.Zeilen.size() + 1);
  P.Zeilen.push_back(std::move(z));
  return true;
}

bool frmDistProtokoll::schreibProtFileAndClose(mdiPEQ& f, const std::tm& jetzt) {
  f.ui.WaitCursor(true);
  fs::path ziel(P.ProtokollDatei);
  if (ziel.empty()) ziel = NeuerName(f, jetzt);
  if (!ziel.has_parent_path()) ziel = f.WriteDir() / ziel;
  // A file of that name written meanwhile is never replaced: the next serial is taken.
  std::error_code ec;
  if (fs::exists(ziel, ec)) ziel = ProtokollDateiName(ziel.parent_path(), DatumText(jetzt));
  P.ProtokollDatei = ziel.string();
  const std::string text = DistProtokollText(f.s, P, DatumText(jetzt), ZeitText(jetzt));
  std::string err;
  const bool ok = WriteReplacing(P.ProtokollDatei, text, err);
  f.ui.WaitCursor(false);
  if (!ok) {
    LetzterFehler = err;
    f.ui.MsgBox(kDistTitelFehler, err, MsgIcon::Stop);
  }
  return ok;
}

bool frmDistProtokoll::schreibProtFileAndClose(mdiPEQ& f) { return schreibProtFileAndClose(f, Jetzt()); }

bool frmDistProtokoll::cmdOpenNew_Click(mdiPEQ& f) {
  const std::tm jetzt = Jetzt();
  if (!schreibProtFileAndClose(f, jetzt)) return false;
  f.ui.SetClipboard(DistClipboardText(P, f.s.DezKomma));
  P.Zeilen.clear();
  P.ProtokollDatei = NeuerName(f, jetzt);
  Status = P.ProtokollDatei;
  return true;
}

bool frmDistProtokoll::QueryUnload(mdiPEQ& f) {
  if (P.Zeilen.empty()) return true;
  if (!schreibProtFileAndClose(f)) return false;
  P.Zeilen.clear();
  P.ProtokollDatei.clear();
  return true;
}

void frmDistProtokoll::cmdClose(mdiPEQ& f) {
  if (QueryUnload(f)) f.Unload(WindowId::frmDistProtokoll);
}

}  // namespace peq
