// The main frame: a Qt main window with an MDI area, menus and toolbar built from the command
// table, the first-steps panel, and the Ui of the window states.
#pragma once

#include <QMainWindow>
#include <QMdiSubWindow>
#include <QSize>
#include <QPointer>
#include <array>
#include <map>
#include <vector>

#include "session/session.h"
#include "windows/shell.h"
#include "windows/ui.h"

class QAction;
class QFrame;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
class QPushButton;
class QToolBar;

namespace pequi {

class MainWindow : public QMainWindow, public peq::Ui {
  Q_OBJECT
 public:
  // progDir: the program's directory; dataDir: the user's data directory.
  MainWindow(const QString& progDir, const QString& dataDir, QWidget* parent = nullptr);
  ~MainWindow() override;

  // The start-up steps of the frame; call once the window is shown.
  void Start();

  peq::mdiPEQ& Frame() { return frame_; }
  peq::Session& Sess() { return session_; }
  // The action of a command (for a menu its menu action); nullptr when the table has none.
  QAction* ActionOf(peq::CmdId id) const;
  QMenu* MenuOf(peq::CmdId id) const;
  // The view of a window, nullptr when it is not shown.
  QWidget* WindowOf(peq::WindowId id) const;
  QMdiArea* Mdi() const { return mdi_; }
  // The MDI sub-window of a window, nullptr when it is none or not shown.
  QMdiSubWindow* SubOf(peq::WindowId id) const { return subs_[static_cast<std::size_t>(id)].data(); }
  QWidget* FirstStepsPanel() const;
  QPushButton* FirstStepsButton() const { return cmdErstnutzer_; }
  QToolBar* Toolbar() const { return toolbar_; }

  // ---- Ui ----
  peq::Answer MsgBox(const std::string& title, const std::string& text, peq::MsgIcon icon,
                     peq::Buttons buttons) override;
  std::optional<std::string> InputBox(const std::string& title, const std::string& prompt,
                                      const std::string& defaultText) override;
  peq::FileDialogResult FileDialog(const peq::FileDialogRequest& req) override;
  std::string GetSetting(const std::string& section, const std::string& key,
                         const std::string& defaultValue) override;
  bool SaveSetting(const std::string& section, const std::string& key, const std::string& value) override;
  std::string SystemNumberText(double v) override;
  bool Provides(peq::WindowId id) override;
  void ShowWindow(peq::WindowId id) override;
  bool RunModal(peq::WindowId id) override;
  void UnloadWindow(peq::WindowId id) override;
  void Refresh(peq::WindowId id) override;
  void CommandsChanged() override;
  void FrameTitleChanged() override;
  void SetClipboard(const std::string& text) override;
  std::string GetClipboard() override;
  void Beep() override;
  bool PrintText(const std::string& title, const std::string& text) override;
  void StatusLine(const std::string& text) override;
  void WaitCursor(bool on) override;
  void ShowHelp(int topic) override;
  void CloseHelp() override;
  void Quit() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildMenus();
  void BuildToolbar();
  void BuildFirstSteps();
  void RenderCommands();
  void RenderFirstSteps();
  void FillWindowMenu(QMenu* menu);
  // A view that was unloaded: hidden at once, deleted once no command of it is running.
  void Bury(QWidget* w);
  void Sweep();
  // Shows a widget as a child of the MDI area: sized to fit it (wanted: the size it asks for),
  // placed a step below the child before.
  QMdiSubWindow* AddMdiChild(QWidget* content, const QString& title, QSize wanted = QSize());

  peq::Session session_;
  peq::mdiPEQ frame_;
  std::vector<QAction*> actions_;  // by place in the command table
  std::map<int, QMenu*> menus_;    // by place in the command table
  std::array<QPointer<QWidget>, static_cast<std::size_t>(peq::WindowId::Count)> windows_{};
  // The sub-windows of the windows shown in the workspace.
  std::array<QPointer<QMdiSubWindow>, static_cast<std::size_t>(peq::WindowId::Count)> subs_{};
  QMdiArea* mdi_ = nullptr;
  QFrame* picture1_ = nullptr;
  std::array<QLabel*, 5> label1_{};
  QPushButton* cmdErstnutzer_ = nullptr;
  QToolBar* toolbar_ = nullptr;
  bool exiting_ = false;
  std::vector<QPointer<QWidget>> graveyard_;
};

}  // namespace pequi
