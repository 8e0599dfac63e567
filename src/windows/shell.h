// The main frame mdiPEQ: start-up of the session, the commands of the menu and toolbar with
// their gating, the status boxes, the loading and saving of projects, and the exit. It holds
// the states of the windows it opens; the window layer shows them and forwards the user's
// actions to their commands.
#pragma once

#include <array>
#include <ctime>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "session/session.h"
#include "windows/aedit.h"
#include "windows/cmndlg.h"
#include "windows/commands.h"
#include "windows/gating.h"
#include "windows/geinput.h"
#include "windows/graph2d.h"
#include "windows/thielemccabe.h"
#include "windows/distprotokoll.h"
#include "windows/graphcalc.h"
#include "windows/graph3d.h"
#include "windows/kijinput.h"
#include "windows/manuinput.h"
#include "windows/options.h"
#include "windows/stoffwahl.h"
#include "windows/tip.h"
#include "windows/tpxedit.h"
#include "windows/ui.h"
#include "windows/unifinkr.h"
#include "windows/vmodell.h"

namespace peq {

inline constexpr const char* kLastSessionName = "PEQLASTSESSION2.PQC";
inline constexpr const char* kFrameTitle = "PEQ - Phase Equilibria";
inline constexpr const char* kTitleNotPossible = "Execution not possible";
inline constexpr const char* kHelpCaption = "Help";
// The words of a chart layer that cannot be created (the 2D and the 3D diagram document).
inline constexpr const char* k2DModulFehler =
    "The 2D-graph module olch2x8.ocx was not registrated properly in the installation procedure for PEQ.";
inline constexpr const char* k3DModulFehler =
    "The 3D-graph module olch3x8.ocx was not registrated properly in the installation procedure for PEQ.";
inline constexpr const char* kModulRegistrieren = "Please try to registrate it manually (see our homepage).";

// FensterKurztitel: a path shortened for a title bar. Longer than maxLength: the first three
// characters, "...", and the end of the text from the first path separator at or after place
// length - maxLength + 6 (1-based). Otherwise the text itself.
std::string FensterKurztitel(const std::string& text, int maxLength);

// NeueProtokollDatei: the name of the result record in dir: the date as yymmdd, "01", ".CSV";
// while that file exists the serial is raised by one (leading zero under 10, three digits
// after 99), so an existing file is never chosen.
std::string NeueProtokollDatei(const std::filesystem::path& dir, const std::tm& date);
std::string NeueProtokollDatei(const std::filesystem::path& dir);

// Texts of the two status boxes.
inline constexpr const char* kKompStatusTitle = " loaded now ...";
inline constexpr const char* kBatchStatusTitle = "Experimental data";
std::string KompStatusText(const Session& s);
std::string BatchStatusText(const Session& s);

// The help page of a topic number in the help directory: "<topic>.html", or the page that says
// the topic is not yet written ("notyet.html").
std::filesystem::path HelpPage(const std::filesystem::path& helpDir, int topic);

// Text of the information box of mnuInfo.
inline constexpr const char* kInfoTitle = "Information";
std::string InfoText();

// The windows the toolbar unloads before its command.
inline constexpr WindowId kToolbarUnloads[] = {WindowId::frmGraph2D,  WindowId::frmGraph3D,
                                               WindowId::frmAEdit,    WindowId::frmCalcInput,
                                               WindowId::frmCalcOut,  WindowId::frmVModell};

class mdiPEQ {
 public:
  // progDir: the program's directory (parameter files, tips, help, the default database);
  // dataDir: the user's data directory, where the files the program writes go when progDir
  // cannot be written.
  mdiPEQ(Session& s, Ui& ui, std::filesystem::path progDir, std::filesystem::path dataDir = {});

  Session& s;
  Ui& ui;
  CommandStates cmds;

  std::filesystem::path ProgDir;
  std::filesystem::path DataDir;
  std::filesystem::path HelpDir;
  std::string LastSessionFile;     // the last session's name, "PEQLASTSESSION2.PQC"
  bool Picture1Visible = false;    // the first-steps panel
  bool NeuEingabe = false;         // the T-p-x window opens for new input
  bool DestillAktiv = false;       // the distillation flags
  std::string TpxEditTitel;        // title of the T-p-x window when it opens on held data
  std::vector<int> StartSteps;     // the start-up steps in the order they ran

  // Window states.
  frmStoffwahl Stoffwahl;
  frmVModell VModell;
  frmGEInput GEInput;
  frmKijInput KijInput;
  frmOptions Options;
  frmTip Tip;
  frmCmnDlg CmnDlg;
  frmUnifInkr UnifInkr;
  frmGraph2D Graph2D;
  frmAEdit AEdit;
  frmThieleMcCabe Thiele;
  frmDistProtokoll DistProtokoll;
  frmGraphCalc GraphCalc;
  frmGraph3D Graph3D;
  frmTpxEdit TpxEdit;
  frmManuInput ManuInput;

  // Hooks of parts the frame hands over to (diagram calculation, result record, experimental
  // points). Empty: the frame goes on without them.
  std::function<void()> DiagrammRechnen;        // after a diagram's T/p input was accepted
  std::function<void()> ProtokollSchreiben;     // at exit, with ProtokollAktiv
  std::function<void(double&, double&)> ExpSummen;  // sums of x(L) and x(V) of the held points

  // ---- frame ----
  void Startup();  // steps 1 to 10
  void Activated();
  void Run(CmdId id);  // a menu command or a toolbar button
  void Exit();         // steps 1 to 5
  std::string Title() const;
  // The directory the program writes its own files to: the program's, or the user's data
  // directory when the program's cannot be written.
  std::filesystem::path WriteDir() const;

  // First-steps panel (widths in twips, 15 to a pixel on a 96 dpi screen).
  void cmdErstnutzer_Click();
  void Picture1_Click();
  void Label1_Click(int index);
  static int Picture1Breite(int innerWidth) { return innerWidth - 200; }

  // ---- windows ----
  bool IsLoaded(WindowId id) const { return loaded_[static_cast<std::size_t>(id)]; }
  // Marks the window loaded and shows it.
  void Show(WindowId id);
  bool RunModal(WindowId id);
  void Unload(WindowId id);
  // Tells the user that this front end has no such window yet.
  void NichtVerfuegbar(WindowId id);
  // Refreshes the commands in the window layer.
  // The title follows too: it marks a project that changed since it was saved or loaded.
  void CommandsChanged() {
    ui.CommandsChanged();
    ui.FrameTitleChanged();
  }
  // The project the title names: the file last saved or loaded, empty for a new one.
  std::string TitelProjekt;
  // The session holds a mixture that differs from the project as last saved or loaded.
  bool Ungespeichert() const;
  // The session as it now stands counts as saved.
  void AlsGespeichertMerken();

  // ---- commands and routines of the frame ----
  void SelectAndLoadBank(bool& cancel);
  void UpdateKomponentenMenue();
  void ResetModelsFrame();  // ResetModels with its menu side
  void mnuOpenBank_Click();
  void mnuLoadLastSession_Click();
  void mnuLoadProject_Click();
  void mnuSaveProject_Click();
  void mnuKompStatus_Click();
  void mnuBatchStatus_Click();
  void mnuDaten_Click();
  void mnuExpInput_Click();
  void mnuExpEdit_Click();
  void mnuEditXY_Click();
  void mnuKonsTest_Click();
  void mnuFit_Click();
  void mnuBatchDist_Click();
  void mnuThiele_Click();
  void calc_Click(int index);
  void graf_Click(CmdId id);
  void mnu3DSub_Click(int index);
  void mnuStoff_Click();
  void mnuModell_Click();
  void mnuOptions_Click();
  void mnuTip_Click();
  void mnuOUnif_Click();
  void mnuMUnif_Click();
  void mnuSubEdit_Click(int index);
  void ToolbarClick(int button);

  // Writes the project (the comment box unless it is the last session). False on failure, with
  // the box shown.
  bool ProjektSpeichern(const std::string& fileName);
  // The file dialog frmCmnDlg. mode "Open" or "Save"; path and file in and out.
  void DateiDialog(const std::string& mode, std::string& path, std::string& file,
                   std::string& comment, bool& cancel, const std::string& filter,
                   const std::string& title);
  // ProjektAuswaehlen: the dialog in project mode; returns the chosen file, empty on cancel.
  // comment: the comment of the preview as the user left it.
  std::string ProjektAuswaehlen(std::string* comment = nullptr);
  // What a load restores after the file was read (and the substances loaded).
  void NachProjektLaden();

  // The file of the last session: where the program writes it.
  std::filesystem::path LastSessionPath() const;

 private:
  std::array<bool, static_cast<std::size_t>(WindowId::Count)> loaded_{};
  bool writable_ = true;  // the program's directory can be written
  std::string gespeichert_;  // ProjektStand at the last save or load
  void Step(int n) { StartSteps.push_back(n); }
  void ShowBox(const std::string& title, const std::string& text, MsgIcon icon);
};

}  // namespace peq
