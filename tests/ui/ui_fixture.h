// Qt tests of the window layer: one QApplication, a main window over a program directory of
// its own (a temporary copy of the data files of the build), the settings in a temporary
// store, and helpers that answer the modal boxes and dialogs the way a user would.
#pragma once

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QInputDialog>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ui/cmndlgdialog.h"
#include "ui/mainwindow.h"
#include "ui/stoffwahldialog.h"
#include "ui/vmodelldialog.h"

namespace peqtest {

inline QApplication* App() {
  static int argc = 1;
  static char name[] = "pequitests";
  static char* argv[] = {name, nullptr};
  static QApplication* app = [] {
    auto* a = new QApplication(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("PEQ-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("PEQ-tests"));
    return a;
  }();
  return app;
}

// Types text key by key; characters outside ASCII arrive as key events carrying their text.
inline void TypeText(QWidget* w, const QString& text) {
  for (QChar c : text) {
    if (c.unicode() < 128) {
      QTest::keyClick(w, static_cast<char>(c.unicode()));
    } else {
      QTest::sendKeyEvent(QTest::Press, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
      QTest::sendKeyEvent(QTest::Release, w, Qt::Key_unknown, QString(c), Qt::NoModifier);
    }
  }
}

// Types a name into the name box of the substance window, presses Return and moves the
// substance to the right.
inline void PickByName(pequi::StoffwahlDialog* d, const QString& name) {
  QLineEdit* box = d->NameCombo()->lineEdit();
  box->setFocus();
  box->selectAll();
  TypeText(box, name);
  QTest::keyClick(box, Qt::Key_Return);
  QTest::mouseClick(d->RightOne(), Qt::LeftButton);
}

// Steps a combo box with the arrow keys until it shows the text.
inline bool ChooseByKeys(QComboBox* c, const QString& text) {
  c->setFocus();
  QTest::keyClick(c, Qt::Key_Home);
  for (int k = 0; k <= c->count(); ++k) {
    if (c->currentText() == text) return true;
    QTest::keyClick(c, Qt::Key_Down);
  }
  return c->currentText() == text;
}

// Answers every message box with its default button and records title and text; input boxes
// are cancelled unless an answer was prepared.
class BoxAnswerer : public QObject {
 public:
  struct Box {
    QString title, text;
  };
  BoxAnswerer() {
    timer_.setInterval(15);
    QObject::connect(&timer_, &QTimer::timeout, [this] { Poll(); });
    timer_.start();
  }
  std::vector<Box> boxes;
  std::vector<QString> inputs;           // answers of input boxes, in order
  std::function<bool(QWidget*)> onModal;  // a handler for other modal widgets; true when done

 private:
  void Poll() {
    QWidget* m = QApplication::activeModalWidget();
    if (!m) return;
    if (auto* box = qobject_cast<QMessageBox*>(m)) {
      boxes.push_back({box->windowTitle(), box->text()});
      QAbstractButton* b = box->defaultButton() ? static_cast<QAbstractButton*>(box->defaultButton())
                                                : box->buttons().value(0);
      if (b) b->click();
      return;
    }
    if (auto* in = qobject_cast<QInputDialog*>(m)) {
      if (!inputs.empty()) {
        in->setTextValue(inputs.front());
        inputs.erase(inputs.begin());
        in->accept();
      } else {
        in->reject();
      }
      return;
    }
    if (onModal && onModal(m)) onModal = nullptr;
  }
  QTimer timer_;
};

struct AppGuard {
  AppGuard() { App(); }
};

class UiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    App();
    ASSERT_TRUE(prog.isValid());
    ASSERT_TRUE(store.isValid());
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, store.path());
    {
      QSettings s;
      s.setValue(QStringLiteral("Options/Show Tips at Startup"), QStringLiteral("0"));
      s.sync();
    }
    const QDir bin(QStringLiteral(PEQ_BINARY_DIR));
    for (const char* n : {"PEQBASE.Q07", "SYNOM.TXT", "PEQTIPS_E.TXT", "PEQTIPS.TXT", "KIJ_PR.DAT", "KIJ_RKS.DAT",
                          "MODUNIF5PLUS.PAR", "OUNIF6PLUS.PAR"})
      QFile::copy(bin.filePath(QString::fromLatin1(n)), QDir(prog.path()).filePath(QString::fromLatin1(n)));
    QDir(prog.path()).mkdir(QStringLiteral("help"));
    const QDir help(bin.filePath(QStringLiteral("help")));
    for (const QString& f : help.entryList(QDir::Files))
      QFile::copy(help.filePath(f), QDir(prog.path()).filePath(QStringLiteral("help/") + f));
  }
  void TearDown() override {
    win.reset();
    QApplication::processEvents();
  }

  void Open() {
    win = std::make_unique<pequi::MainWindow>(prog.path(), prog.path() + QStringLiteral("/userdata"));
    win->show();
    win->Start();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(win.get()));
  }
  peq::mdiPEQ& F() { return win->Frame(); }
  QAction* A(peq::Cmd c, int16_t i = -1) { return win->ActionOf(peq::CmdId{c, i}); }
  // Enabled and visible, and so every menu above it: what the user can reach.
  bool Reachable(peq::Cmd c, int16_t i = -1) {
    for (peq::CmdId id{c, i}; id.name != peq::Cmd::None;) {
      QAction* a = win->ActionOf(id);
      if (!a || !a->isEnabled() || !a->isVisible()) return false;
      id = peq::FindCommand(id)->parent;
    }
    return true;
  }
  // Answers the next file dialog with this file.
  void NextFile(const QString& file) {
    answer.onModal = [file](QWidget* m) {
      auto* fd = qobject_cast<QFileDialog*>(m);
      if (!fd) return false;
      // The name typed into the name box, as a user does (a new file of a save dialog is not
      // selectable); the dialog may still be reading its directory: try again until it closes.
      const QFileInfo info(file);
      fd->setDirectory(info.absolutePath());
      if (auto* name = fd->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
        name->setText(info.fileName());
      else
        fd->selectFile(file);
      static_cast<QDialog*>(fd)->accept();
      return !fd->isVisible();
    };
  }
  template <class T>
  T* Window(peq::WindowId id) {
    return qobject_cast<T*>(win->WindowOf(id));
  }
  QString ProgFile(const char* name) const { return QDir(prog.path()).filePath(QString::fromLatin1(name)); }
  // Opens the program and loads the ethanol/water example through "Load project" and the file
  // dialog, as a user does, then accepts the models.
  void LoadEthanolWater() {
    Open();
    ASSERT_TRUE(QFile::copy(QStringLiteral(PEQ_SOURCE_DIR "/examples/ethanol-water.PQC"), ProgFile("EW.PQC")));
    answer.onModal = [](QWidget* m) {
      auto* d = qobject_cast<pequi::CmnDlgDialog*>(m);
      if (!d) return false;
      const auto items = d->Files()->findItems(QStringLiteral("EW.PQC"), Qt::MatchExactly);
      if (items.isEmpty()) return false;
      QTest::mouseClick(d->Files()->viewport(), Qt::LeftButton, {}, d->Files()->visualItemRect(items[0]).center());
      QTest::mouseClick(d->OK(), Qt::LeftButton);
      return true;
    };
    A(peq::Cmd::mnuLoadProject)->trigger();
    QApplication::processEvents();
    ASSERT_EQ(win->Sess().NKomp, 2);
    if (auto* vm = Window<pequi::VModellDialog>(peq::WindowId::frmVModell)) {
      QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
      QApplication::processEvents();
    }
  }

  AppGuard guard;
  QTemporaryDir prog;
  QTemporaryDir store;
  BoxAnswerer answer;
  std::unique_ptr<pequi::MainWindow> win;
};

}  // namespace peqtest
