// A frame over a fresh session, with the scripted Ui and a program directory of its own in a
// temporary directory. Data files of the source tree are copied there on request.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"
#include "windows/scripted_ui.h"
#include "windows/shell.h"

namespace peqtest {

namespace fs = std::filesystem;

inline peq::CmdId C(peq::Cmd c, int16_t i = -1) { return peq::CmdId{c, i}; }

struct FrameEnv {
  TempDir dir;
  peq::Session s;
  peq::ScriptedUi ui;
  peq::mdiPEQ f{s, ui, dir.path()};

  // Copies files of the source tree's data directory beside the "program".
  void CopyData(const std::vector<std::string>& names) {
    for (const std::string& n : names)
      fs::copy_file(fs::path(SourceDir()) / "data" / n, fs::path(dir.path()) / n,
                    fs::copy_options::overwrite_existing);
  }

  // Start-up with the tips switched off (no tip window in the records).
  void Start() {
    ui.settings["Options/Show Tips at Startup"] = "0";
    f.Startup();
  }

  // Opens the bundled database (copied beside the program, with SYNOM.TXT) through the menu.
  void OpenBank() {
    CopyData({"PEQBASE.Q07", "SYNOM.TXT", "KIJ_PR.DAT", "KIJ_RKS.DAT"});
    peq::FileDialogResult r;
    r.cancelled = false;
    r.fileName = (fs::path(dir.path()) / "PEQBASE.Q07").string();
    r.fileTitle = "PEQBASE.Q07";
    ui.files.push_back(r);
    f.Run(C(peq::Cmd::mnuOpenBank));
  }

  // Marks the substance of this CAS-RN in the substance window and moves it to the right.
  void Pick(const std::string& cas) {
    f.Stoffwahl.NameCombo = cas;
    f.Stoffwahl.NameCombo_Return(f);
    f.Stoffwahl.cmdRightOne(f);
  }

  // Opens the database and commits the mixture through the substance window.
  void Mixture(const std::vector<std::string>& cas) {
    OpenBank();
    for (const std::string& c : cas) Pick(c);
    f.Stoffwahl.GemischOK(f);
  }

  bool Reachable(peq::Cmd c, int16_t i = -1) const { return f.cmds.Reachable(C(c, i)); }
  bool Enabled(peq::Cmd c, int16_t i = -1) const { return f.cmds.Enabled(C(c, i)); }

  // True when a box of this title and text was shown.
  bool Shown(const std::string& title, const std::string& text) const {
    for (const auto& b : ui.boxes)
      if (b.title == title && b.text == text) return true;
    return false;
  }
};

}  // namespace peqtest
