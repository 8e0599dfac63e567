// frmCmnDlg: the file dialog of projects and T-p-x files, with a preview of the file marked.
// The filter "*.PQC" gives the project mode (substances of the project, its editable comment,
// its database); any other the T-p-x mode (the two substances, the count of points and the
// comments of an EX5 file).
#pragma once

#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kProjektFilter = "*.PQC";
inline constexpr const char* kCmnDlgOK = "OK";
inline constexpr const char* kCmnDlgCancel = "Cancel";
inline constexpr const char* kCmnDlgReturn = "higher directory";
inline constexpr const char* kCmnDlgHelp = "Help";
inline constexpr const char* kCmnDlgDateiLabel = "File name:";
inline constexpr int kHelpTpxDatei = 9977, kHelpProjektDatei = 9876;

// The preview of an EX5 file: its first five lines are the two substance names, two comment
// lines and the number of points. False when the file cannot be read.
bool ViewExpFile(const std::string& file, std::string& nam1, std::string& nam2,
                 std::string& comment1, std::string& comment2, int& noOfSets);

// The preview of a project: date, comment and database of its head; the database is opened as
// BankOeffnen does, without a report, and becomes the open one when found; then the count and
// each CAS-RN. substances: a name and a line break for each CAS-RN of the database, "Substance
// i not involved in actual database " for one that is not. okAllowed false when a substance is
// missing, the count is 0 or the file fails (the substance text is then empty).
struct ProjektVorschau {
  std::string comment;
  std::string bank;        // database name of the project, " none" when there is none
  std::string substances;
  bool okAllowed = false;
};
ProjektVorschau ViewProjectFile(Session& s, const std::string& sFile);

// Whether a file name matches a pattern of "*" and "?" (any case); several patterns may be
// given separated by ";".
bool MusterPasst(const std::string& name, const std::string& pattern);

struct frmCmnDlg {
  std::string Caption;
  std::string Modus = "Open";  // the mode word, "Open" or "Save"
  std::string Muster;          // the pattern of the file list
  bool ProjektModus = false;

  // Texts of the preview pane.
  std::string fraTitel;        // "Project information" / "File information"
  std::string lblStoffeTitel;  // "substances of this project: " / "substances of this data set: "
  std::string fraProjekt;      // " Project information "
  std::string lblKommentarTitel;  // "Comment (editable):"

  std::vector<std::string> drvOpenList;  // the roots of the file system
  int drvIndex = 0;
  std::string Verzeichnis;               // the directory shown, ending with a separator
  std::vector<std::string> dirOpenList;  // its subdirectories
  std::vector<std::string> filOpenList;  // its files matching the pattern
  int filIndex = -1;
  std::string txtOpenFile;

  // Preview.
  std::string lblStoffe;     // substances (project or data set)
  std::string lblInfo;       // T-p-x mode: count of points and comments
  std::string txtKommentar;  // project comment, editable
  std::string lblBank;       // database of the project
  bool cmdOpenOKEnabled = true;

  // Result.
  bool Abbruch = true;
  std::string ErgebnisPfad, ErgebnisDatei;

  void Load(mdiPEQ& f, const std::string& mode, const std::string& path, const std::string& file,
            const std::string& filter, const std::string& title);
  void drvOpenList_Change(mdiPEQ& f, int index);
  void dirOpenList_Click(mdiPEQ& f, int index);
  void cmdReturn(mdiPEQ& f);
  void filOpenList_Click(mdiPEQ& f, int index);
  void txtOpenFile_Change(const std::string& text) { txtOpenFile = text; }
  void txtKommentar_Change(mdiPEQ& f, const std::string& text);
  // True when the dialog ends with a file.
  bool cmdOpenOK(mdiPEQ& f);
  void cmdOpenCancel(mdiPEQ& f);
  void cmdHelp(mdiPEQ& f);
  // Fills the directory and file lists of Verzeichnis.
  void ListenFuellen();

 private:
  void VorschauLeeren();
  void NameNachVerzeichniswechsel();
};

}  // namespace peq
