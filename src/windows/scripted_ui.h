// The Ui of the tests: records every call (message boxes with title, text and icon verbatim,
// dialogs, windows shown and unloaded, help topics) and gives prepared answers. An answer that
// was not prepared is the first button (OK or Yes), a cancelled input or file dialog, and a
// modal window that closes as cancelled.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "windows/ui.h"

namespace peq {

class ScriptedUi : public Ui {
 public:
  // One recorded message box.
  struct Box {
    std::string title, text;
    MsgIcon icon = MsgIcon::None;
    Buttons buttons = Buttons::Ok;
  };

  // ---- prepared answers ----
  std::deque<Answer> answers;
  std::deque<std::optional<std::string>> inputs;
  std::deque<FileDialogResult> files;
  // Called by RunModal for the window; its result is RunModal's. None: RunModal gives false.
  std::map<WindowId, std::function<bool()>> modalHandlers;
  std::map<std::string, std::string> settings;  // "Section/Key" -> value
  bool settingsWritable = true;
  std::string numberText = "0.75";
  std::set<WindowId> notProvided;
  // Windows whose view cannot be created: ShowWindow throws, as the Qt layer does when the 3D
  // chart has no OpenGL.
  std::set<WindowId> failShow;

  // ---- records ----
  std::vector<Box> boxes;
  std::vector<std::pair<std::string, std::string>> inputPrompts;  // title, prompt
  std::vector<std::string> inputDefaults;
  std::vector<FileDialogRequest> fileDialogs;
  std::vector<WindowId> shown, modal, unloaded, refreshed;
  std::vector<int> helpTopics;
  int helpClosed = 0;
  int commandsChanged = 0;
  int titleChanged = 0;
  bool quit = false;
  std::string clipboard;
  int waitCursorOn = 0;
  std::vector<std::string> statusLines;

  // The last box (an empty one when there is none).
  Box Last() const { return boxes.empty() ? Box{} : boxes.back(); }
  void Clear();

  Answer MsgBox(const std::string& title, const std::string& text, MsgIcon icon,
                Buttons buttons) override;
  std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                      const std::string& defaultText) override;
  FileDialogResult FileDialog(const FileDialogRequest& req) override;
  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& defaultValue) override;
  bool SaveSetting(const std::string& section, const std::string& key,
                   const std::string& value) override;
  std::string SystemNumberText(double v) override;
  bool Provides(WindowId id) override { return notProvided.count(id) == 0; }
  void ShowWindow(WindowId id) override {
    if (failShow.count(id) != 0) throw std::runtime_error("the window could not be created");
    shown.push_back(id);
  }
  bool RunModal(WindowId id) override;
  void UnloadWindow(WindowId id) override { unloaded.push_back(id); }
  void Refresh(WindowId id) override { refreshed.push_back(id); }
  void CommandsChanged() override { ++commandsChanged; }
  void FrameTitleChanged() override { ++titleChanged; }
  void SetClipboard(const std::string& text) override { clipboard = text; }
  std::string GetClipboard() override { return clipboard; }
  void Beep() override { ++beeps; }
  bool PrintText(const std::string& title, const std::string& text) override {
    printed.push_back(title + "\n" + text);
    return true;
  }
  int beeps = 0;
  std::vector<std::string> printed;
  void WaitCursor(bool on) override { waitCursorOn += on ? 1 : -1; }
  void StatusLine(const std::string& text) override { statusLines.push_back(text); }
  void ShowHelp(int topic) override { helpTopics.push_back(topic); }
  void CloseHelp() override { ++helpClosed; }
  void Quit() override { quit = true; }
};

}  // namespace peq
