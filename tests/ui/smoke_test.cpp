// Smoke test of the desktop program: the way of a newcomer up to the models, with screenshots
// of the main window, the substance window and the model window saved to screenshots/ in the
// build tree, and the time from the construction of the main window to its first idle event
// loop. scripts/smoke-gui runs it under xvfb-run on a real X server; under the offscreen
// platform it runs as well.
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <cstdio>

#include "ui/geinputdialog.h"
#include "ui/stoffwahldialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;

QString ShotDir() {
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots"));
  return d.filePath(QStringLiteral("screenshots"));
}

bool Save(QWidget* w, const char* name) {
  QApplication::processEvents();
  const QPixmap p = w->grab();
  return !p.isNull() && p.save(QDir(ShotDir()).filePath(QString::fromLatin1(name)));
}

class Smoke : public peqtest::UiTest {};

TEST_F(Smoke, StartsToAnIdleMainWindowQuickly) {
  QElapsedTimer t;
  t.start();
  Open();
  bool idle = false;
  QTimer::singleShot(0, [&idle] { idle = true; });
  while (!idle) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  const qint64 ms = t.elapsed();
  std::printf("main window constructed, started, exposed and idle after %lld ms\n", static_cast<long long>(ms));
  EXPECT_LT(ms, 1000);
}

TEST_F(Smoke, Screenshots) {
  Open();
  win->resize(1100, 700);
  QTest::mouseClick(win->FirstStepsButton(), Qt::LeftButton);
  EXPECT_TRUE(Save(win.get(), "main_start.png"));
  QTest::mouseClick(win->FirstStepsButton(), Qt::LeftButton);

  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(sw));
  for (const char* name : {"ethyl alcohol", "water"}) {
    QLineEdit* box = sw->NameCombo()->lineEdit();
    box->setFocus();
    box->selectAll();
    peqtest::TypeText(box, QString::fromLatin1(name));
    QTest::keyClick(box, Qt::Key_Return);
    QTest::mouseClick(sw->RightOne(), Qt::LeftButton);
  }
  QLineEdit* box = sw->NameCombo()->lineEdit();
  box->selectAll();
  peqtest::TypeText(box, QStringLiteral("Essigsäure"));
  QTest::keyClick(box, Qt::Key_Return);
  EXPECT_TRUE(Save(sw, "substance_window.png"));
  QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
  QApplication::processEvents();

  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(vm));
  vm->GEKombi()->setFocus();
  for (int k = 0; k < vm->GEKombi()->count() && vm->GEKombi()->currentText() != QStringLiteral("NRTL"); ++k)
    QTest::keyClick(vm->GEKombi(), Qt::Key_Down);
  vm->DampfKombi()->setFocus();
  QTest::keyClick(vm->DampfKombi(), Qt::Key_Down);
  QTest::keyClick(vm->DampfKombi(), Qt::Key_Down);  // virial equation with k(ij)
  EXPECT_TRUE(Save(vm, "model_window.png"));

  QTest::mouseClick(vm->GEParButton(), Qt::LeftButton);
  auto* ge = Window<pequi::GEInputDialog>(WindowId::frmGEInput);
  ASSERT_NE(ge, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(ge));
  QTest::mouseClick(ge->findChild<QRadioButton*>(QStringLiteral("opt_parEinheit_0")), Qt::LeftButton, {}, QPoint(8, 8));
  peqtest::TypeText(ge->Box(0, 0), QStringLiteral("-517.9"));
  peqtest::TypeText(ge->Box(1, 0), QStringLiteral("5068.2"));
  peqtest::TypeText(ge->Box(2, 0), QStringLiteral("0.3031"));
  EXPECT_TRUE(Save(ge, "parameter_window.png"));
  QTest::mouseClick(ge->OK(), Qt::LeftButton);
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  F().ui.ShowHelp(32800);
  QApplication::processEvents();
  EXPECT_TRUE(Save(win.get(), "main_models_accepted.png"));

  // The p-x diagram through its menu command and "Draw curve now": it opens inside the frame,
  // below the menu bar.
  answer.onModal = [](QWidget* m) {
    for (QPushButton* b : m->findChildren<QPushButton*>())
      if (b->text().remove(QLatin1Char('&')) == QStringLiteral("Draw curve now") && b->isVisible()) {
        QTest::mouseClick(b, Qt::LeftButton);
        return true;
      }
    return false;
  };
  A(Cmd::graf, 0)->trigger();
  QApplication::processEvents();
  QWidget* diagram = win->WindowOf(WindowId::frmGraph2D);
  ASSERT_NE(diagram, nullptr);
  EXPECT_EQ(diagram->window(), win.get());
  EXPECT_TRUE(Save(win.get(), "main_diagram.png"));
  // What the screen shows: the frame with its menu bar and the diagram in it.
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    QApplication::processEvents();
    const QPixmap shot = screen->grabWindow(0);
    if (!shot.isNull()) shot.save(QDir(ShotDir()).filePath(QStringLiteral("screen_diagram.png")));
  }
  std::printf("screenshots in %s\n", qPrintable(ShotDir()));
}

}  // namespace
