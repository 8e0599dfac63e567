#include "windows/graph2dfile.h"

#include <algorithm>

#include "diagrams/diagram2d_file.h"
#include "session/filewrite.h"
#include "windows/shell.h"

namespace peq {

namespace {

std::string Verzeichnis(const std::string& file) {
  std::string t = file;
  while (!t.empty() && t.back() != '/' && t.back() != '\\') t.pop_back();
  return t;
}

FileDialogRequest Anfrage(bool save, const char* title, const char* filter, const std::string& dir,
                          const std::string& initial, const char* ext) {
  FileDialogRequest r;
  r.save = save;
  r.title = title;
  r.filter = filter;
  r.initialDir = dir;
  r.initialFile = initial;
  r.defaultExt = ext;
  return r;
}

std::string CsvText(const std::string& t, const std::string& sep) {
  if (t.find(sep) == std::string::npos && t.find('"') == std::string::npos) return t;
  std::string q = "\"";
  for (char c : t) {
    if (c == '"') q += '"';
    q += c;
  }
  return q + "\"";
}

}  // namespace

bool mnuSaveOC2_Click(mdiPEQ& f, frmGraph2D& g) {
  const FileDialogResult r = f.ui.FileDialog(Anfrage(true, kOC2SpeichernTitel, kOC2Filter, f.s.PfadOC2, "*.oc2", "oc2"));
  if (r.cancelled || r.fileTitle.empty()) return false;
  std::string err;
  if (!Diagramm2DSpeichern(g.Doc, r.fileName, err)) {
    f.ui.MsgBox("Error", "The diagram could not be written to " + r.fileName + ":" + kNL + err, MsgIcon::Stop);
    return false;
  }
  f.s.PfadOC2 = Verzeichnis(r.fileName);
  return true;
}

bool mnuLoadOC2_Click(mdiPEQ& f, frmGraph2D& g) {
  f.ui.MsgBox(kSingleNoteTitel, kSingleNoteText, MsgIcon::Information);
  const FileDialogResult r = f.ui.FileDialog(Anfrage(false, kOC2LadenTitel, kOC2Filter, f.s.PfadOC2, "*.oc2", "oc2"));
  if (r.cancelled || r.fileTitle.empty()) return false;
  std::string msg;
  if (!Diagramm2DLaden(r.fileName, g.Doc, msg)) {
    f.ui.MsgBox("Error", msg, MsgIcon::Stop);
    return false;
  }
  f.s.PfadOC2 = Verzeichnis(r.fileName);
  // The window follows the loaded diagram.
  g.cmdTauschEnabled = TauschErlaubt(g.Doc.NoDia);
  g.MarkSerie = g.MarkPunkt = 0;
  g.Status.clear();
  f.s.XMin = g.Doc.Bereich.XMin;
  f.s.XMax = g.Doc.Bereich.XMax;
  f.s.YMin = g.Doc.Bereich.YMin;
  f.s.YMax = g.Doc.Bereich.YMax;
  return true;
}

std::string AlleKurvenCsv(const Graph2DDoc& d, const std::string& sep) {
  std::vector<int> slots;
  int zeilen = 0;
  for (int k = 1; k <= kMaxKurven; ++k) {
    const Serie& s = d.Serien[static_cast<std::size_t>(k)];
    if (s.Punkte() == 0) continue;
    slots.push_back(k);
    zeilen = std::max(zeilen, s.Punkte());
  }
  std::string out;
  for (std::size_t i = 0; i < slots.size(); ++i) {
    const Serie& s = d.Serien[static_cast<std::size_t>(slots[i])];
    const std::string name = s.Legende.empty() ? "curve " + std::to_string(slots[i]) : s.Legende;
    if (i > 0) out += sep;
    out += CsvText(name + " x", sep) + sep + CsvText(name + " y", sep);
  }
  out += "\r\n";
  for (int r = 0; r < zeilen; ++r) {
    for (std::size_t i = 0; i < slots.size(); ++i) {
      const Serie& s = d.Serien[static_cast<std::size_t>(slots[i])];
      if (i > 0) out += sep;
      if (r < s.Punkte()) {
        const float x = s.x[static_cast<std::size_t>(r)], y = s.y[static_cast<std::size_t>(r)];
        if (!IstLoch(x) && !IstLoch(y)) {
          out += PunktZahl(x) + sep + PunktZahl(y);
          continue;
        }
      }
      out += sep;
    }
    out += "\r\n";
  }
  return out;
}

bool mnuCsvAlle_Click(mdiPEQ& f, frmGraph2D& g) {
  if (g.Doc.AnzKurven <= 0) return false;
  std::string name = g.BildDateiName();
  name = name.substr(0, name.rfind('.')) + ".csv";
  const FileDialogResult r = f.ui.FileDialog(Anfrage(true, kCsvTitel, kCsvFilter, f.s.PfadXY, name, "csv"));
  if (r.cancelled || r.fileTitle.empty()) return false;
  std::string err;
  if (!WriteReplacing(r.fileName, AlleKurvenCsv(g.Doc, f.s.ListTrenner), err)) {
    f.ui.MsgBox("Error", "The file could not be written to " + r.fileName + ":" + kNL + err, MsgIcon::Stop);
    return false;
  }
  return true;
}

bool SchwarzesDiagrammErlaubt(mdiPEQ& f, bool schwarz) {
  if (!schwarz) return true;
  return f.ui.MsgBox(kTitelWarnung, kSchwarzText, MsgIcon::Warning, Buttons::YesNo) == Answer::Yes;
}

}  // namespace peq
