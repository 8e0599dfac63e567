// The substance data editor driven as a user drives it: opened from the menu of the frame, T(cr)
// typed and applied, the model window asking for the models again, the private database written
// and opened; the read-only editor of the selection window; a screenshot of each tab.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include "session/codepage.h"
#include "ui/aeditdialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"
#include "windows/aedit.h"

namespace {

using peq::Cmd;
using peq::WindowId;
using peqtest::UiTest;

class AEditWalk : public UiTest {
 protected:
  // Database, ethanol and water, the ideal mixture, "Models OK".
  void ToModels() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
    ASSERT_NE(sw, nullptr);
    peqtest::PickByName(sw, QStringLiteral("ethyl alcohol"));
    peqtest::PickByName(sw, QStringLiteral("water"));
    ASSERT_EQ(sw->Selected()->count(), 2);
    QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
    QApplication::processEvents();
    auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
    ASSERT_NE(vm, nullptr);
    QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(win->Sess().GEModel, 0);
    ASSERT_TRUE(Reachable(Cmd::calc, 1));
    answer.boxes.clear();  // the model window's own warnings
  }
  pequi::AEditDialog* Editor() { return Window<pequi::AEditDialog>(WindowId::frmAEdit); }
  QPushButton* Button(QWidget* w, const char* name) { return w->findChild<QPushButton*>(QString::fromLatin1(name)); }
};

TEST_F(AEditWalk, ChangeTcrApplySeeTheModelWindowAskAgainWriteThePrivateDatabaseAndOpenIt) {
  ToModels();
  // The editor from the frame's menu, on water.
  ASSERT_TRUE(Reachable(Cmd::mnuSubEdit, 2));
  EXPECT_EQ(A(Cmd::mnuSubEdit, 2)->text().remove(QLatin1Char('&')), QStringLiteral("Water"));
  A(Cmd::mnuSubEdit, 2)->trigger();
  QApplication::processEvents();
  auto* ed = Editor();
  ASSERT_NE(ed, nullptr);
  EXPECT_EQ(ed->windowTitle(), QStringLiteral(" View /Edit Data of Substances"));
  ASSERT_EQ(ed->Tabs()->count(), 5);
  EXPECT_EQ(ed->Tabs()->tabText(1), QStringLiteral("Vapour press."));
  EXPECT_TRUE(answer.boxes.empty());  // no "not yet part" note any more

  QLineEdit* tc = ed->Box(peq::AEditFeld("", "T(cr)"));
  ASSERT_NE(tc, nullptr);
  EXPECT_FALSE(tc->isReadOnly());
  tc->setFocus();
  tc->selectAll();
  QTest::keyClicks(tc, QStringLiteral("640"));
  QTest::mouseClick(Button(ed, "OK"), Qt::LeftButton);
  QApplication::processEvents();
  const peq::Session& s = win->Sess();
  EXPECT_EQ(s.TKrit[2], 640.0f);
  EXPECT_EQ(s.GEModel, -1);
  EXPECT_FALSE(Reachable(Cmd::calc, 1));
  EXPECT_TRUE(Reachable(Cmd::mnuModell));

  // The private database: a new file in a directory of its own.
  QTemporaryDir out;
  const QString file = QDir(out.path()).filePath(QStringLiteral("PRIVATE.Q07"));
  NextFile(file);
  QTest::mouseClick(Button(ed, "WriteDataBaseQ07"), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_TRUE(QFileInfo::exists(file));
  EXPECT_EQ(QFileInfo(file).size(), 3 * 684);
  EXPECT_TRUE(answer.boxes.empty());

  // Nothing left to lose: "Close" asks nothing.
  QTest::mouseClick(Button(ed, "esc"), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(answer.boxes.empty());

  // The model window asks for the models again; "Models OK" opens the calculations again.
  A(Cmd::mnuModell)->trigger();
  QApplication::processEvents();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  EXPECT_EQ(vm->GEKombi()->currentText(), QStringLiteral("ideal mixture"));
  EXPECT_FALSE(Reachable(Cmd::calc, 1));
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(s.GEModel, 0);
  EXPECT_TRUE(Reachable(Cmd::calc, 1));

  // The private file opens as a database of the two substances in the mixture's order, with
  // the changed T(cr).
  NextFile(file);
  A(Cmd::mnuOpenBank)->trigger();
  QApplication::processEvents();
  EXPECT_EQ(s.BankAnz, 2);
  EXPECT_EQ(peq::Trim(s.BankCAS[1]), "64-17-5");
  EXPECT_EQ(peq::Trim(s.BankCAS[2]), "7732-18-5");
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  EXPECT_TRUE(sw->windowTitle().contains(QStringLiteral("2 substances")));
  peqtest::PickByName(sw, QStringLiteral("7732-18-5"));
  peqtest::PickByName(sw, QStringLiteral("64-17-5"));
  QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_EQ(s.NKomp, 2);
  EXPECT_EQ(s.TKrit[1], 640.0f);  // water, now the first component
}

TEST_F(AEditWalk, ChangedFieldsAreNotLostWithoutTheQuestion) {
  ToModels();
  A(Cmd::mnuSubEdit, 1)->trigger();
  QApplication::processEvents();
  auto* ed = Editor();
  ASSERT_NE(ed, nullptr);
  QLineEdit* om = ed->Box(peq::AEditFeld("", "omega"));
  om->setFocus();
  om->selectAll();
  QTest::keyClicks(om, QStringLiteral("0.7"));
  QTest::mouseClick(Button(ed, "esc"), Qt::LeftButton);  // the box is answered with its default
  QApplication::processEvents();
  ASSERT_EQ(answer.boxes.size(), 1u);
  EXPECT_EQ(answer.boxes[0].title, QStringLiteral("WARNING"));
  EXPECT_EQ(answer.boxes[0].text, QStringLiteral(" Your changes are lost here. \nClose nevertheless?"));
  EXPECT_NE(win->Sess().Omega[1], 0.7f);
}

TEST_F(AEditWalk, TheSelectionWindowOpensTheEditorReadOnly) {
  Open();
  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  peqtest::PickByName(sw, QStringLiteral("water"));
  ASSERT_TRUE(sw->Label3(0)->isVisible());
  QTest::mouseClick(sw->Label3(0), Qt::LeftButton);
  QApplication::processEvents();
  auto* ed = Editor();
  ASSERT_NE(ed, nullptr);
  EXPECT_TRUE(answer.boxes.empty());
  EXPECT_TRUE(ed->Box(peq::AEditFeld("", "T(cr)"))->isReadOnly());
  EXPECT_EQ(ed->Box(peq::AEditFeld("", "name"))->text(), QStringLiteral("Water"));
  EXPECT_FALSE(Button(ed, "OK")->isEnabled());
  EXPECT_FALSE(Button(ed, "WriteDataBaseQ07")->isEnabled());
  auto* note = ed->findChild<QLabel*>(QStringLiteral("lblNurLesen"));
  ASSERT_NE(note, nullptr);
  EXPECT_TRUE(note->isVisible());
  EXPECT_EQ(note->text(), QString::fromUtf8(peq::kAEditNurLesen));
}

}  // namespace

namespace {

// A screenshot of each tab of the editor on water, to build/…/screenshots/aedit_tab<N>.png
// (scripts/smoke-gui runs it on a virtual X server).
class SmokeAEdit : public peqtest::UiTest {};

TEST_F(SmokeAEdit, ScreenshotOfEachTab) {
  Open();
  win->resize(1100, 760);
  NextFile(ProgFile("PEQBASE.Q07"));
  A(peq::Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(peq::WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  peqtest::PickByName(sw, QStringLiteral("ethyl alcohol"));
  peqtest::PickByName(sw, QStringLiteral("water"));
  QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
  QApplication::processEvents();
  if (auto* vm = Window<pequi::VModellDialog>(peq::WindowId::frmVModell)) QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  A(peq::Cmd::mnuSubEdit, 2)->trigger();
  QApplication::processEvents();
  auto* ed = Window<pequi::AEditDialog>(peq::WindowId::frmAEdit);
  ASSERT_NE(ed, nullptr);
  QDir d(QStringLiteral(PEQ_BINARY_DIR));
  d.mkpath(QStringLiteral("screenshots"));
  for (int t = 0; t < ed->Tabs()->count(); ++t) {
    ed->Tabs()->setCurrentIndex(t);
    QApplication::processEvents();
    const QPixmap p = ed->grab();
    ASSERT_FALSE(p.isNull());
    EXPECT_TRUE(p.save(d.filePath(QStringLiteral("screenshots/aedit_tab%1.png").arg(t))));
  }
}

}  // namespace
