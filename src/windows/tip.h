// frmTip: a random hint at start and from the menu "Show tips".
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace peq {

class mdiPEQ;

inline constexpr const char* kTipsFileEnglish = "PEQTIPS_E.TXT";
inline constexpr const char* kTipsFileGerman = "PEQTIPS.TXT";
inline constexpr const char* kTipsSection = "Options";
inline constexpr const char* kTipsKey = "Show Tips at Startup";
inline constexpr const char* kTipCaption = "Tip of the Day";
inline constexpr const char* kTipCheckCaption = "Show Tips at Startup";
inline constexpr const char* kTipNextCaption = "&Next Tip";
inline constexpr const char* kTipCloseCaption = "&OK";

struct frmTip {
  std::string Datei;              // tips file of the language, bare name
  std::vector<std::string> Tips;  // one tip a line
  int Aktuell = 0;                // place of the tip shown, 1-based; 0 none
  std::string lblTipText;         // the text shown
  bool chkLoadTipsAtStartup = true;
  bool TipVomMenue = false;       // called from the menu
  bool TipsAus = false;           // the window decided not to show itself
  std::function<double()> Zufall; // a number in [0, 1); a seeded generator when empty

  // Loading: picks the file, reads the setting; false (TipsAus) when the tips are switched off
  // and the window was not called from the menu.
  bool Load(mdiPEQ& f, bool vomMenue);
  // Reads the tips file, one tip per line; a missing file gives no tips.
  void LoadTips(const std::filesystem::path& file);
  // The next tip, wrapping to the first after the last.
  void cmdNextTip();
  // Loads the file from the program's directory and shows a tip at a random place.
  void cmdTipsZeigen(mdiPEQ& f);
  // The check box: writes the setting. False when the store could not be written.
  bool chkLoadTipsAtStartup_Click(mdiPEQ& f, bool on);
  void cmdOK(mdiPEQ& f);
};

}  // namespace peq
