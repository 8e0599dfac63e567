// The main window through its widgets: menus and toolbar gated by the stages, the substance
// window, the model window and its parameter window, the options, a project saved and loaded.
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QLabel>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include "substances/bank.h"
#include "substances/synonym.h"
#include "ui/cmndlgdialog.h"
#include "ui/geinputdialog.h"
#include "ui/optionsdialog.h"
#include "ui/stoffwahldialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"
#include "windows/geinput.h"

namespace {

using peq::Cmd;
using peq::WindowId;
using peqtest::ChooseByKeys;
using peqtest::PickByName;
using peqtest::UiTest;

class Walk : public UiTest {
 protected:
  // Database, ethanol and water by name, "Mixture OK".
  void ToMixture() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
    ASSERT_NE(sw, nullptr);
    PickByName(sw, QStringLiteral("ethyl alcohol"));
    PickByName(sw, QStringLiteral("water"));
    ASSERT_EQ(sw->Selected()->count(), 2);
    QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
    QApplication::processEvents();
  }
};

TEST_F(UiTest, TheFrameIsTitledAndHasItsMenus) {
  Open();
  EXPECT_EQ(win->windowTitle(), QStringLiteral("PEQ - Phase Equilibria"));
  QStringList top;
  // The captions as shown: trimmed, each with its access key.
  for (QAction* a : win->menuBar()->actions()) top << a->text();
  EXPECT_EQ(top, (QStringList{QStringLiteral("&Data..."), QStringLiteral("&Substances"), QStringLiteral("&Models"),
                              QStringLiteral("Diagram &2D (binary)..."), QStringLiteral("Diagram &3D (binary)..."),
                              QStringLiteral("&Calculations..."), QStringLiteral("D&istillation..."),
                              QStringLiteral("&Options"), QStringLiteral("&Windows"), QStringLiteral("&Help")}));
  EXPECT_EQ(A(Cmd::mnuEditXY)->text().remove(QLatin1Char('&')), QStringLiteral("XY Editor (Load | Input | Edit X-Y data)"));
  EXPECT_EQ(A(Cmd::Toolbar1, 6)->toolTip(), QStringLiteral(" Load an existing project  "));
}

TEST_F(UiTest, AtStartOnlyTheFirstStageIsEnabled) {
  Open();
  for (Cmd c : {Cmd::mnuOpenBank, Cmd::mnuLoadLastSession, Cmd::mnuLoadProject, Cmd::mnuEditXY, Cmd::mnuOUnif,
                Cmd::mnuMUnif, Cmd::mnuExit, Cmd::mnuAbout, Cmd::mnuTip, Cmd::mnuWindow})
    EXPECT_TRUE(Reachable(c)) << peq::CmdName(peq::CmdId{c});
  for (Cmd c : {Cmd::mnuSaveProject, Cmd::mnuStatus, Cmd::mnuExpInput, Cmd::mnuEdit, Cmd::mnuStoff, Cmd::mnuModell,
                Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuDest, Cmd::mnuCalc, Cmd::mnuOptions})
    EXPECT_FALSE(Reachable(c)) << peq::CmdName(peq::CmdId{c});
  EXPECT_FALSE(A(Cmd::Toolbar1, 7)->isEnabled());
  EXPECT_TRUE(A(Cmd::Toolbar1, 2)->isEnabled());
  for (int16_t i = 4; i <= 7; ++i) EXPECT_FALSE(A(Cmd::graf2, i)->isVisible());
  EXPECT_FALSE(A(Cmd::mnuSubEdit, 1)->isVisible());
}

TEST_F(UiTest, FirstStepsPanelTogglesAndHidesOnAClick) {
  Open();
  QWidget* panel = win->FirstStepsPanel();
  EXPECT_FALSE(panel->isVisible());
  QTest::mouseClick(win->FirstStepsButton(), Qt::LeftButton);
  EXPECT_TRUE(panel->isVisible());
  EXPECT_LT(panel->width(), win->centralWidget()->width());
  QLabel* label = panel->findChild<QLabel*>(QStringLiteral("Label1_2"));
  ASSERT_NE(label, nullptr);
  QTest::mouseClick(label, Qt::LeftButton);
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(Walk, DatabaseOpensTheSubstanceWindowAndTheSecondStage) {
  Open();
  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  EXPECT_TRUE(sw->isVisible());
  EXPECT_EQ(sw->windowTitle(), QStringLiteral("  Selection of mixing components (available:   156 substances)"));
  EXPECT_EQ(sw->StoffListe()->count(), 156);
  EXPECT_TRUE(Reachable(Cmd::mnuStoff));
  EXPECT_TRUE(Reachable(Cmd::mnuKompStatus));
  EXPECT_FALSE(Reachable(Cmd::mnuModell));
  EXPECT_TRUE(win->windowTitle().contains(QStringLiteral("PEQBASE.Q07")));
}

TEST_F(Walk, TheNameBoxFindsSynonymsAndTheNumberBoxFiltersKeys) {
  Open();
  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  QLineEdit* box = sw->NameCombo()->lineEdit();
  peqtest::TypeText(box, QStringLiteral("Essigsäure"));
  QTest::keyClick(box, Qt::Key_Return);
  const int place = peq::CASSuchen(win->Sess(), "64-19-7");
  EXPECT_EQ(sw->StoffListe()->currentRow(), place - 1);
  EXPECT_EQ(box->text(), QStringLiteral("Essigsäure"));
  EXPECT_EQ(sw->NameCombo()->count(), 1);
  // Only number keys reach the number box.
  sw->Text1()->clear();
  QTest::keyClicks(sw->Text1(), QStringLiteral("x1a2"));
  EXPECT_EQ(sw->Text1()->text(), QStringLiteral("12"));
  EXPECT_EQ(sw->StoffListe()->currentRow(), peq::NummerSuchen(win->Sess(), 12) - 1);
}

TEST_F(Walk, MixtureOKOpensTheModelWindowAndTheThirdStage) {
  ToMixture();
  EXPECT_EQ(win->WindowOf(WindowId::frmStoffwahl), nullptr);
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  EXPECT_EQ(vm->windowTitle(), QStringLiteral("Models for the calculation"));
  for (Cmd c : {Cmd::mnuModell, Cmd::mnuStoff, Cmd::mnuExpInput, Cmd::mnuSaveProject, Cmd::mnuEdit})
    EXPECT_TRUE(Reachable(c)) << peq::CmdName(peq::CmdId{c});
  EXPECT_TRUE(A(Cmd::Toolbar1, 7)->isEnabled());
  EXPECT_FALSE(Reachable(Cmd::mnuCalc));
  EXPECT_FALSE(Reachable(Cmd::mnuGraph2D));
  EXPECT_EQ(A(Cmd::mnuSubEdit, 1)->text().remove(QLatin1Char('&')), QStringLiteral("Ethanol"));
  EXPECT_TRUE(A(Cmd::mnuSubEdit, 2)->isVisible());
  EXPECT_FALSE(A(Cmd::mnuSubEdit, 3)->isVisible());
}

TEST_F(Walk, ModelsOKWithNRTLParametersOpensTheCalculations) {
  ToMixture();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  ASSERT_TRUE(ChooseByKeys(vm->GEKombi(), QStringLiteral("NRTL")));
  EXPECT_EQ(win->Sess().GEModel, 2);
  ASSERT_TRUE(vm->GEParButton()->isEnabled());
  QTest::mouseClick(vm->GEParButton(), Qt::LeftButton);
  auto* ge = Window<pequi::GEInputDialog>(WindowId::frmGEInput);
  ASSERT_NE(ge, nullptr);
  EXPECT_EQ(ge->windowTitle(), QStringLiteral("System (1 - 2)"));
  QTest::keyClicks(ge->Box(0, 0), QStringLiteral("-517,9"));
  QTest::keyClicks(ge->Box(1, 0), QStringLiteral("5068.2"));
  QTest::keyClicks(ge->Box(2, 0), QStringLiteral("0.3031"));
  EXPECT_EQ(ge->Box(0, 0)->text(), QStringLiteral("-517.9"));
  QTest::mouseClick(ge->OK(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(peq::ParSlot(win->Sess(), 1, 1, 2), -517.9);
  EXPECT_EQ(peq::ParSlot(win->Sess(), 4, 1, 2), 5068.2);
  EXPECT_EQ(win->WindowOf(WindowId::frmGEInput), nullptr);
  const std::size_t before = answer.boxes.size();
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(answer.boxes.size(), before) << answer.boxes.back().title.toStdString() << ": "
                                         << answer.boxes.back().text.toStdString();
  EXPECT_EQ(win->WindowOf(WindowId::frmVModell), nullptr);
  for (Cmd c : {Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuDest, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuThiele,
                Cmd::mnuBatchDist})
    EXPECT_TRUE(Reachable(c)) << peq::CmdName(peq::CmdId{c});
  EXPECT_TRUE(Reachable(Cmd::calc, 3));
  EXPECT_TRUE(A(Cmd::graf2, 5)->isVisible());  // a parameter model: the derivatives are offered
  EXPECT_FALSE(A(Cmd::graf, 18)->isEnabled());
}

TEST_F(Walk, ThePhiPhiConceptDisablesTheGammaPhiItems) {
  ToMixture();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  vm->Tabs()->setCurrentIndex(1);
  EXPECT_TRUE(win->Sess().Konzept);
  ASSERT_TRUE(ChooseByKeys(vm->CEOS(), QStringLiteral("CEOS Peng / Robinson")));
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(win->Sess().EOSModel, 5);
  EXPECT_TRUE(Reachable(Cmd::mnuGraph2D));
  EXPECT_FALSE(A(Cmd::mnuBatchDist)->isEnabled());
  EXPECT_FALSE(A(Cmd::calc, 3)->isEnabled());
  EXPECT_FALSE(A(Cmd::graf, 6)->isEnabled());
  EXPECT_TRUE(A(Cmd::graf, 18)->isEnabled());
  EXPECT_GT(win->Sess().EOSb0[1], 0.0);
}

TEST_F(Walk, AOneComponentMixtureIsRefused) {
  Open();
  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
  ASSERT_NE(sw, nullptr);
  PickByName(sw, QStringLiteral("water"));
  QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral("Execution not possible"));
  EXPECT_EQ(answer.boxes.back().text, QStringLiteral("At least two substances!"));
  EXPECT_NE(win->WindowOf(WindowId::frmStoffwahl), nullptr);
  EXPECT_FALSE(Reachable(Cmd::mnuModell));
}

TEST_F(Walk, OptionsThroughTheMenu) {
  ToMixture();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);  // ideal mixture
  QApplication::processEvents();
  ASSERT_TRUE(Reachable(Cmd::mnuOptions));
  A(Cmd::mnuOptions)->trigger();
  auto* od = Window<pequi::OptionsDialog>(WindowId::frmOptions);
  ASSERT_NE(od, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(od));
  EXPECT_EQ(od->windowTitle(), QStringLiteral("  Options"));
  // A click on the round indicator of each option.
  for (const char* name : {"OptTOut_0", "optConcUnit_1"}) {
    auto* r = od->findChild<QRadioButton*>(QString::fromLatin1(name));
    ASSERT_NE(r, nullptr);
    QTest::mouseClick(r, Qt::LeftButton, {}, QPoint(8, r->height() / 2));
  }
  // The safeguard of the equilibrium routines: on, and switched off by a click.
  auto* sg = od->findChild<QCheckBox*>(QStringLiteral("chkSafeguard"));
  ASSERT_NE(sg, nullptr);
  EXPECT_EQ(sg->text(), QStringLiteral("Safeguarded equilibrium calculation (retry failed or trivial points)"));
  EXPECT_TRUE(sg->isChecked());
  sg->click();
  QTest::mouseClick(od->findChild<QPushButton*>(QStringLiteral("cmdOK")), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(win->Sess().TOffsetOut, 0.0);
  EXPECT_EQ(win->Sess().ConcUnit, 1);
  EXPECT_FALSE(win->Sess().Safeguard);
  EXPECT_EQ(win->GetSetting("Options", "Safeguarded Equilibrium", "1"), "0");
  EXPECT_EQ(win->WindowOf(WindowId::frmOptions), nullptr);
}

TEST_F(Walk, SaveAndLoadAProjectThroughTheDialogs) {
  ToMixture();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  ASSERT_TRUE(ChooseByKeys(vm->GEKombi(), QStringLiteral("Redlich/Kister")));
  peq::ParSlot(win->Sess(), 1, 1, 2) = 0.25;
  QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
  QApplication::processEvents();
  // Save with a comment.
  NextFile(ProgFile("EW.PQC"));
  answer.inputs.push_back(QStringLiteral("ethanol, water"));
  win->Toolbar()->widgetForAction(A(Cmd::Toolbar1, 7))->setFocus();
  QTest::mouseClick(win->Toolbar()->widgetForAction(A(Cmd::Toolbar1, 7)), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_TRUE(QFile::exists(ProgFile("EW.PQC")));
  // A new database: back to the second stage.
  NextFile(ProgFile("PEQBASE.Q07"));
  A(Cmd::mnuOpenBank)->trigger();
  if (auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl)) static_cast<QDialog*>(sw)->reject();
  QApplication::processEvents();
  ASSERT_FALSE(Reachable(Cmd::mnuCalc));
  // Load it through the project dialog: a click on the file shows the preview.
  QString preview;
  answer.onModal = [&preview](QWidget* m) {
    auto* d = qobject_cast<pequi::CmnDlgDialog*>(m);
    if (!d) return false;
    const auto items = d->Files()->findItems(QStringLiteral("EW.PQC"), Qt::MatchExactly);
    if (items.isEmpty()) return false;
    QTest::mouseClick(d->Files()->viewport(), Qt::LeftButton, {}, d->Files()->visualItemRect(items[0]).center());
    preview = d->findChild<QLabel*>(QStringLiteral("lblStoffe"))->text();
    QTest::mouseClick(d->OK(), Qt::LeftButton);
    return true;
  };
  A(Cmd::mnuLoadProject)->trigger();
  QApplication::processEvents();
  EXPECT_EQ(preview, QStringLiteral("Ethanol\nWater\n"));
  EXPECT_EQ(win->Sess().NKomp, 2);
  EXPECT_EQ(win->Sess().GEModel, 4);
  EXPECT_EQ(peq::ParSlot(win->Sess(), 1, 1, 2), 0.25);
  EXPECT_EQ(win->Sess().ProjektKommentar, "ethanol, water");
  EXPECT_TRUE(Reachable(Cmd::mnuCalc));
  EXPECT_TRUE(Reachable(Cmd::mnuGraph2D));
  EXPECT_NE(win->WindowOf(WindowId::frmVModell), nullptr);
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral(" loaded now ..."));
}

TEST_F(UiTest, TheGroupTableOpensInTheMdiArea) {
  Open();
  A(Cmd::mnuOUnif)->trigger();
  QApplication::processEvents();
  QWidget* w = win->WindowOf(WindowId::frmUnifInkr);
  ASSERT_NE(w, nullptr);
  EXPECT_EQ(w->windowTitle(), QStringLiteral("UNIFAC groups"));
  EXPECT_EQ(win->Mdi()->subWindowList().size(), 1);
}

TEST_F(UiTest, HelpOpensTheBundledPageByTopic) {
  Open();
  A(Cmd::mnuAbout)->trigger();
  QApplication::processEvents();
  QWidget* help = win->WindowOf(WindowId::frmHelp);
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->windowTitle().contains(QStringLiteral("About this program")));
  F().ui.ShowHelp(55555);
  QApplication::processEvents();
  EXPECT_TRUE(win->WindowOf(WindowId::frmHelp)->windowTitle().contains(QStringLiteral("Not yet written")));
}

TEST_F(UiTest, AStoreThatCannotBeWrittenDoesNotStopTheProgram) {
  QFile::setPermissions(store.path(), QFileDevice::ReadOwner | QFileDevice::ExeOwner);
  Open();
  EXPECT_TRUE(Reachable(Cmd::mnuOpenBank));
  F().Tip.chkLoadTipsAtStartup_Click(F(), false);
  EXPECT_TRUE(win->isVisible());
  QFile::setPermissions(store.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

}  // namespace
