// The command table of the main frame mdiPEQ: every menu, command, separator and toolbar button
// with its menu name, caption, place in the menu tree, action and state at start. The window
// layer builds its menus and toolbar from this table alone; the gating (windows/gating.h) and
// the frame's commands (windows/shell.h) work on the ids.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace peq {

// Menu names. A control array (graf, calc, mnuSubEdit, ...) is one name with an index.
enum class Cmd : int16_t {
  None,
  mnuDaten,
  mnuOpenBank,
  mnuLoadLastSession,
  mnuLoadProject,
  mnuSaveProject,
  mnuStatus,
  mnuKompStatus,
  mnuBatchStatus,
  mnuExpInput,
  mnuExpEdit,
  mnuEditXY,
  mnuFit,
  mnuKonsTest,
  mnuEdit,
  mnuSubEdit,
  mnuOUnif,
  mnuMUnif,
  mnuExit,
  mnuStoff,
  mnuModell,
  mnuGraph2D,
  graf,
  graf2,
  graf1,
  mnuGraph3D,
  mnu3DSub,
  mnuDest,
  mnuThiele,
  mnuBatchDist,
  mnuCalc,
  calc,
  mnuOptions,
  mnuWindow,
  mnuHelp,
  mnuAbout,
  mnuIndex,
  mnuTip,
  mnuInfo,
  Sep,       // a separator of a menu without a control array (index: its place)
  Toolbar1,  // buttons of the toolbar, by button number
};

// A command: its menu name and, for a control array, the index (-1 otherwise).
struct CmdId {
  Cmd name = Cmd::None;
  int16_t index = -1;
  bool operator==(const CmdId&) const = default;
};

enum class CmdKind : int16_t { Menu, Command, Separator, Button };

// What a command does; the frame dispatches on it.
enum class Action : int16_t {
  None,             // a submenu or separator
  OpenDaten,        // opening mnuDaten recomputes mnuFit, mnuExpEdit, mnuKonsTest
  OpenBank,
  LoadLastSession,
  LoadProject,
  SaveProject,
  KompStatus,
  BatchStatus,
  ExpInput,
  ExpEdit,
  EditXY,
  Fit,
  KonsTest,
  SubEdit,
  OUnifTable,
  MUnifTable,
  Exit,
  Stoff,
  Modell,
  Diagram2D,        // graf, graf1, graf2 with a NoDia
  Diagram3D,        // mnu3DSub with a surface number
  Thiele,
  BatchDist,
  Calc,
  Options,
  WindowList,
  Help,             // help topic helpTopic
  Tip,
  Info,
};

struct CommandDef {
  CmdId id;
  CmdKind kind = CmdKind::Command;
  const char* caption = "";
  CmdId parent;  // the menu it stands in; Cmd::None for the menu bar (and the toolbar)
  Action action = Action::None;
  bool enabledAtStart = true;
  bool visibleAtStart = true;
  int16_t noDia = 0;      // graf, graf1, graf2: the diagram number; mnu3DSub: the surface
  int16_t isoArt = 0;     // graf, graf1, graf2: 1 isothermal, 2 isobaric, 3 isosteric
  int helpTopic = 0;      // Action::Help
  const char* tip = "";   // tool tip of a toolbar button
};

// The whole table, in menu order: the menu bar's entries, each followed by its items.
const std::vector<CommandDef>& CommandTable();

// The entry of an id; nullptr when the table has none.
const CommandDef* FindCommand(CmdId id);
// Place of the entry in CommandTable(); -1 when none.
int CommandPlace(CmdId id);

// "mnuOpenBank", "graf(6)".
std::string CmdName(CmdId id);

// IsoArt of a diagram number: 1 isothermal, 2 isobaric, 3 isosteric, 0 for a number of none.
int16_t IsoArtOf(int noDia);
// True for the diagrams that can carry experimental points: 1, 3, 4, 6, 15, 16, 17, and the
// two 0th-derivative entries 110 and 120.
bool DiagMitExpOf(int noDia);

// The help page of the first-steps panel Picture1: the texts of Label1(0..4).
extern const char* const kErstnutzerTexte[5];
// Caption of cmdErstnutzer.
inline constexpr const char* kErstnutzerCaption = "First Steps    (on/off)  ";

}  // namespace peq
