// Base of the dialogs that show a window state of src/windows: the dialog renders the state and
// forwards the user's actions to the state's commands; closing it from the title bar or with
// Escape runs the window's own cancel command.
#pragma once

#include <QDialog>

#include "windows/shell.h"

namespace pequi {

// Gives every push button of the widget an access key: captions that mark their own keep it,
// the others get the first free letter (shown without padding blanks).
void ZugriffstastenSetzen(QWidget* w);

class StateDialog : public QDialog {
  Q_OBJECT
 public:
  StateDialog(peq::mdiPEQ& f, peq::WindowId id, QWidget* parent);
  // Sets every widget from the state, with the widgets' signals blocked.
  virtual void Render() = 0;
  // A command of the state is running: the dialog must not be deleted now.
  bool Busy() const { return busy_ > 0; }

 protected:
  // The window's cancel command (it unloads the window).
  virtual void Cancel() = 0;
  void reject() override;
  // At the first showing every push button gets an access key (those of the captions kept).
  void showEvent(QShowEvent* e) override;
  // After a command: render again while the window is still loaded.
  void After();
  bool Loaded() const { return f_.IsLoaded(id_); }
  // Runs a command of the window state and renders again; the dialog stays alive meanwhile,
  // even when the command unloads its window.
  template <class F>
  void Do(F&& command) {
    ++busy_;
    command();
    --busy_;
    After();
  }

  peq::mdiPEQ& f_;
  peq::WindowId id_;

 private:
  int busy_ = 0;
  bool tastenGesetzt_ = false;
};

}  // namespace pequi
