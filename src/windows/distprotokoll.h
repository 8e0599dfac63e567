// frmDistProtokoll: the record window of the distillation runs. It collects one row per run
// (McCabe-Thiele design or batch distillation) in memory and writes them, with the head, the
// legend and the component table, to a date-named file when it closes or when a new file is
// begun; the rows also go to the clipboard.
#pragma once

#include <array>
#include <ctime>
#include <string>

#include "distillation/record.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kDistProtCaption = "Generate a record of the results";
inline constexpr const char* kCmdProtokollCaption = "Write the record";
inline constexpr const char* kCmdProtokollTip =
    " ... writes the actual results of calculation in a special record (to CSV-file and clipboard)";
inline constexpr const char* kCmdOpenNewCaption = "Close file / Open new file";
inline constexpr const char* kCmdOpenNewCaptionClip = "Send record to clipboard";
inline constexpr const char* kCmdOpenNewTip = " the clipboard format is Excel-compatible";
inline constexpr const char* kCmbSepLabel = "delimitet for CSV-file";
inline constexpr const char* kCmbSepTip = "semicolon recommended";
inline constexpr std::array<const char*, 3> kDistSepItems = {"Semicolon", "Comma", "Tab"};
inline constexpr std::array<const char*, 3> kDistTrenner = {";", ",", "\t"};
// The warning about a comma delimiter under a decimal comma.
std::string KommaWarnung();
inline constexpr const char* kDistTitelFehler = "Error";

struct frmDistProtokoll {
  DistProtokoll P;
  int cmbSep = 0;       // 0 semicolon, 1 comma, 2 tab
  std::string Status;   // the file the rows go to, as shown
  std::string LetzterFehler;  // the system's text of the last failed write

  void Form_Load(mdiPEQ& f);
  // cmbSep changed: the delimiter for the file.
  void cmbSep_Click(mdiPEQ& f, int index);
  // Appends the row of the last run. false when no run has filled one.
  bool cmdProtokoll_Click(mdiPEQ& f);
  // Writes the file and sends the rows to the clipboard, then begins a new file name.
  bool cmdOpenNew_Click(mdiPEQ& f);
  // Query-unload: writes what is held.
  bool QueryUnload(mdiPEQ& f);
  // Closes the window after writing what is held; it stays open when the file cannot be written.
  void cmdClose(mdiPEQ& f);
  // Writes the held rows to ProtokollDatei (through a temporary name). false with a box "Error"
  // when the file cannot be written; the rows are kept then.
  bool schreibProtFileAndClose(mdiPEQ& f, const std::tm& jetzt);
  bool schreibProtFileAndClose(mdiPEQ& f);
};

}  // namespace peq
