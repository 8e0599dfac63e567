// Every contact of the windows with the user: message and input boxes, file dialogs, the
// settings store, the clipboard, the help window, and the showing and unloading of windows.
// The desktop program implements it with Qt; the tests with a scripted implementation that
// records each call and gives prepared answers (windows/scripted_ui.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "session/message.h"

namespace peq {

// The windows of the program. The frame keeps which of them are loaded.
enum class WindowId : int16_t {
  frmPhantom,      // empty child that keeps the frame's child area alive
  frmStoffwahl,    // substance selection
  frmVModell,      // model window
  frmGEInput,      // gE parameters
  frmKijInput,     // k(ij) of the virial equation
  frmOptions,      // options
  frmTip,          // tips
  frmCmnDlg,       // file dialog with preview
  frmUnifInkr,     // group table, read only
  frmHelp,         // help pages
  frmAEdit,        // substance data editor
  frmTpxEdit,      // T-p-x data
  frmTpxInput,     // T/p input of a diagram
  frmXYEdit,       // XY editor
  frmFitting,      // parameter fitting and consistency test
  frmGraph2D,
  frmGraph3D,
  frmGraphCalc,
  frmCalcInput,
  frmCalcOut,
  frmThieleMcCabe,
  frmBatchDist,
  frmDistProtokoll,
  Count
};

// The name of a window as the program spells it ("frmStoffwahl").
const char* WindowName(WindowId id);

enum class Buttons : int16_t { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer : int16_t { Ok, Cancel, Yes, No };

// A standard open or save dialog. filter in the form "Description (*.Q07)|*.Q07" (pairs of
// description and pattern separated by "|"); flags as the platform's dialog knows them.
struct FileDialogRequest {
  bool save = false;
  std::string title;
  std::string filter;
  std::string initialDir;   // directory, with or without a trailing separator
  std::string initialFile;  // file name shown at the start
  std::string defaultExt;
  uint32_t flags = 0;
};

struct FileDialogResult {
  bool cancelled = true;
  std::string fileName;   // full path of the chosen file
  std::string fileTitle;  // the file name alone; empty means cancel
};

class Ui {
 public:
  virtual ~Ui() = default;

  // A modal message box. Returns the button pressed (Ok for a box with only OK).
  virtual Answer MsgBox(const std::string& title, const std::string& text, MsgIcon icon,
                        Buttons buttons = Buttons::Ok) = 0;
  // A modal input box; nullopt on cancel.
  virtual std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                              const std::string& defaultText) = 0;
  virtual FileDialogResult FileDialog(const FileDialogRequest& req) = 0;

  // Settings store: one value by section and key. SaveSetting returns false when the store
  // cannot be written; the program goes on.
  virtual std::string GetSetting(const std::string& section, const std::string& key,
                                 const std::string& defaultValue) = 0;
  virtual bool SaveSetting(const std::string& section, const std::string& key,
                           const std::string& value) = 0;

  // The number as the system shows it (decimal point or comma).
  virtual std::string SystemNumberText(double v) = 0;

  // Windows. ShowWindow shows a window whose state the frame has just loaded; RunModal shows
  // one modally and returns when it closes, true unless it was cancelled. UnloadWindow closes
  // the window's view; Refresh re-renders it from its state. Provides tells whether this
  // front end has a view for the window at all.
  virtual bool Provides(WindowId id) = 0;
  virtual void ShowWindow(WindowId id) = 0;
  virtual bool RunModal(WindowId id) = 0;
  virtual void UnloadWindow(WindowId id) = 0;
  virtual void Refresh(WindowId id) = 0;

  // The enabled, visible and caption states of the commands changed.
  virtual void CommandsChanged() = 0;
  // The frame's title changed.
  virtual void FrameTitleChanged() = 0;

  virtual void SetClipboard(const std::string& text) = 0;
  // The text on the clipboard; empty when it holds none.
  virtual std::string GetClipboard() { return {}; }
  // The short warning sound of a key or an input that is refused.
  virtual void Beep() {}
  // Prints a text in a fixed font through the platform's print dialog; false when cancelled.
  virtual bool PrintText(const std::string& title, const std::string& text) {
    (void)title;
    (void)text;
    return false;
  }
  virtual void WaitCursor(bool on) = 0;
  // A short confirmation in the frame's status line ("Project saved: ...").
  virtual void StatusLine(const std::string& text) { (void)text; }

  // Help pages by topic number; CloseHelp closes every help window.
  virtual void ShowHelp(int topic) = 0;
  virtual void CloseHelp() = 0;

  // Ends the process after the exit steps.
  virtual void Quit() = 0;
};

// Shows each message of a sink in its own box, in order.
void ShowMessages(Ui& ui, const MsgSink& sink);

}  // namespace peq
