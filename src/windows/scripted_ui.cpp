#include "windows/scripted_ui.h"

namespace peq {

void ScriptedUi::Clear() {
  boxes.clear();
  inputPrompts.clear();
  inputDefaults.clear();
  fileDialogs.clear();
  shown.clear();
  modal.clear();
  unloaded.clear();
  refreshed.clear();
  helpTopics.clear();
}

Answer ScriptedUi::MsgBox(const std::string& title, const std::string& text, MsgIcon icon,
                          Buttons buttons) {
  boxes.push_back(Box{title, text, icon, buttons});
  if (!answers.empty()) {
    Answer a = answers.front();
    answers.pop_front();
    return a;
  }
  return (buttons == Buttons::YesNo || buttons == Buttons::YesNoCancel) ? Answer::Yes : Answer::Ok;
}

std::optional<std::string> ScriptedUi::InputBox(const std::string& title, const std::string& prompt,
                                                const std::string& defaultText) {
  inputPrompts.emplace_back(title, prompt);
  inputDefaults.push_back(defaultText);
  if (inputs.empty()) return std::nullopt;
  std::optional<std::string> a = inputs.front();
  inputs.pop_front();
  return a;
}

FileDialogResult ScriptedUi::FileDialog(const FileDialogRequest& req) {
  fileDialogs.push_back(req);
  if (files.empty()) return FileDialogResult{};
  FileDialogResult r = files.front();
  files.pop_front();
  return r;
}

std::string ScriptedUi::GetSetting(const std::string& section, const std::string& key,
                                   const std::string& defaultValue) {
  auto it = settings.find(section + "/" + key);
  return it == settings.end() ? defaultValue : it->second;
}

bool ScriptedUi::SaveSetting(const std::string& section, const std::string& key,
                             const std::string& value) {
  if (!settingsWritable) return false;
  settings[section + "/" + key] = value;
  return true;
}

std::string ScriptedUi::SystemNumberText(double) { return numberText; }

bool ScriptedUi::RunModal(WindowId id) {
  modal.push_back(id);
  auto it = modalHandlers.find(id);
  if (it == modalHandlers.end() || !it->second) return false;
  return it->second();
}

}  // namespace peq
