// The program driven the way a user drives it: keys go to the widget that has the focus (or to
// the window when none has it), clicks to what is visible. Choosing substances by typed names,
// CAS-RN and number with Return; "Mixture OK" and "Models OK" with Enter; a p-x diagram drawn
// and its components exchanged; a project opened whose name the dialog spells in another case;
// every child window inside the main frame with the menu bar in view; the keyboard access keys.
#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSet>
#include <QStatusBar>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QXYSeries>

#include "session/codepage.h"
#include "substances/bank.h"
#include "windows/geinput.h"
#include "ui/calcinputdialog.h"
#include "ui/calcoutdialog.h"
#include "ui/cmndlgdialog.h"
#include "ui/curvedesigndialog.h"
#include "ui/graph2dwindow.h"
#include "ui/tipdialog.h"
#include "ui/tpxinputdialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;

// The widget the user's keys reach.
QWidget* KeyTarget() {
  if (QWidget* w = QApplication::focusWidget()) return w;
  if (QWidget* m = QApplication::activeModalWidget()) return m;
  return QApplication::activeWindow();
}

void Key(int key, Qt::KeyboardModifiers mod = Qt::NoModifier) {
  QWidget* t = KeyTarget();
  ASSERT_NE(t, nullptr);
  QTest::keyClick(t, static_cast<Qt::Key>(key), mod);
  QApplication::processEvents();
}

void Type(const QString& text) {
  for (QChar c : text) {
    QWidget* t = KeyTarget();
    ASSERT_NE(t, nullptr);
    peqtest::TypeText(t, QString(c));
  }
}

class UserPath : public peqtest::UiTest {
 protected:
  // The database through the menu; the substance window is then the active window.
  pequi::StoffwahlDialog* OpenDatabase() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    QApplication::processEvents();
    auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
    if (!sw) return nullptr;
    sw->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(sw));
    return sw;
  }
  int Place(const char* cas) { return peq::CASSuchen(win->Sess(), cas); }
  // Alt+N to the name box, the text, Return.
  void Search(const QString& text, bool keypad = false) {
    Key(Qt::Key_N, Qt::AltModifier);
    Key(Qt::Key_A, Qt::ControlModifier);  // all of the old text marked: typing replaces it
    Type(text);
    if (keypad)
      Key(Qt::Key_Enter, Qt::KeypadModifier);
    else
      Key(Qt::Key_Return);
  }
  // Acetone and methanol by name, "Mixture OK" with Return; the model window is then open.
  void AcetoneMethanol() {
    auto* sw = OpenDatabase();
    ASSERT_NE(sw, nullptr);
    Search(QStringLiteral("acetone"));
    ASSERT_EQ(sw->StoffListe()->currentRow(), Place("67-64-1") - 1);
    QTest::mouseClick(sw->RightOne(), Qt::LeftButton);
    Search(QStringLiteral("methanol"));
    ASSERT_EQ(sw->StoffListe()->currentRow(), Place("67-56-1") - 1);
    QTest::mouseClick(sw->RightOne(), Qt::LeftButton);
    Key(Qt::Key_Return);  // the focus stands on ">": Return is "Mixture OK"
    ASSERT_EQ(win->Sess().NKomp, 2);
  }
  // The model window accepted with Enter (NRTL chosen by keys, with parameters of the pair).
  void ModelsByEnter(bool nrtl) {
    auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
    ASSERT_NE(vm, nullptr);
    vm->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(vm));
    if (nrtl) {
      ASSERT_TRUE(peqtest::ChooseByKeys(vm->GEKombi(), QStringLiteral("NRTL")));
      // Acetone (1) / methanol (2), NRTL in J/mol: the parameter slots of the pair.
      peq::ParSlot(win->Sess(), 1, 1, 2) = 771.0;
      peq::ParSlot(win->Sess(), 4, 1, 2) = 787.0;
      peq::ParSlot(win->Sess(), 7, 1, 2) = 0.3;
    }
    Key(Qt::Key_Return);
  }
  // The isothermal p-x diagram at 50 degrees C, drawn at once.
  void DrawPx() {
    win->Sess().NoDia = 1;
    win->Sess().IsoArt = 1;
    win->Sess().TIso = 323.15;
    win->Sess().SofortZeichnen = true;
    F().DiagrammRechnen();
    QApplication::processEvents();
  }
};

// ---- the name search from the keyboard ----

TEST_F(UserPath, TheNameBoxHasTheFocusAndReturnSearches) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  // The user starts typing at once: the keys reach the name box.
  ASSERT_EQ(QApplication::focusWidget(), sw->NameCombo());
  Type(QStringLiteral("acetone"));
  Key(Qt::Key_Return);
  EXPECT_EQ(sw->StoffListe()->currentRow(), Place("67-64-1") - 1);
  EXPECT_EQ(sw->Text1()->text(), QString::number(win->Sess().BankNr[static_cast<std::size_t>(Place("67-64-1"))]));
  // The window stays; Return did not press "Mixture OK".
  EXPECT_TRUE(sw->isVisible());
  EXPECT_EQ(win->Sess().NKomp, 0);
  EXPECT_EQ(sw->NameCombo()->count(), 1);
}

TEST_F(UserPath, ASynonymAndACasNumberAreFoundAndKeypadEnterWorks) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  Search(QStringLiteral("Aceton"), true);
  EXPECT_EQ(sw->StoffListe()->currentRow(), Place("67-64-1") - 1);
  Search(QStringLiteral("67-56-1"));
  EXPECT_EQ(sw->StoffListe()->currentRow(), Place("67-56-1") - 1);
  EXPECT_TRUE(answer.boxes.empty());
}

TEST_F(UserPath, NothingFoundIsTold) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  answer.boxes.clear();
  Search(QStringLiteral("xyzzy"));
  ASSERT_EQ(answer.boxes.size(), 1u);
  EXPECT_EQ(answer.boxes[0].text, QStringLiteral("Nothing found under this name"));
  EXPECT_EQ(answer.boxes[0].title, QStringLiteral("input error or substance not available resp."));
}

TEST_F(UserPath, TwoSubstancesByNumberAndReturn) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  const peq::Session& s = win->Sess();
  for (const char* cas : {"64-17-5", "7732-18-5"}) {
    Key(Qt::Key_K, Qt::AltModifier);  // to "KDB Syst.No:"
    ASSERT_EQ(QApplication::focusWidget(), sw->Text1());
    // The old number out, key by key (the box takes number keys only).
    Key(Qt::Key_End);
    for (int k = 0; k < 6; ++k) Key(Qt::Key_Backspace);
    Type(QString::number(s.BankNr[static_cast<std::size_t>(Place(cas))]));
    EXPECT_EQ(sw->StoffListe()->currentRow(), Place(cas) - 1);
    Key(Qt::Key_Return);  // Return in the number box moves the substance to the right
  }
  ASSERT_EQ(sw->Selected()->count(), 2);
  EXPECT_TRUE(sw->Selected()->item(0)->text().contains(QStringLiteral("Ethanol")));
  EXPECT_TRUE(sw->Selected()->item(1)->text().contains(QStringLiteral("Water")));
}

TEST_F(UserPath, TwoSubstancesByNameMixtureOKAndModelsOKWithEnter) {
  AcetoneMethanol();
  const peq::Session& s = win->Sess();
  EXPECT_EQ(s.KompIdx[1], Place("67-64-1"));
  EXPECT_EQ(s.KompIdx[2], Place("67-56-1"));
  EXPECT_EQ(win->WindowOf(WindowId::frmStoffwahl), nullptr);
  ModelsByEnter(true);
  EXPECT_EQ(win->WindowOf(WindowId::frmVModell), nullptr);
  EXPECT_EQ(s.GEModel, 2);
  EXPECT_TRUE(Reachable(Cmd::calc, 1));
  EXPECT_TRUE(Reachable(Cmd::graf, 0));
}

TEST_F(UserPath, AfterAMoveTheNameBoxShowsTheMarkedSubstance) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  Search(QStringLiteral("acetone"));
  QTest::mouseClick(sw->RightOne(), Qt::LeftButton);
  const int next = sw->StoffListe()->currentRow() + 1;
  EXPECT_EQ(sw->NameCombo()->currentText(),
            QString::fromStdString(peq::Trim(win->Sess().BankName[static_cast<std::size_t>(next)])));
}

TEST_F(UserPath, TheHeadOfTheListStandsOverItsColumns) {
  auto* sw = OpenDatabase();
  ASSERT_NE(sw, nullptr);
  QListWidget* list = sw->StoffListe();
  const QFontMetrics fm(list->font());
  const int zeichen = fm.horizontalAdvance(QLatin1Char('0'));
  // Where the text of an entry starts, in window coordinates.
  const QRect r = list->visualItemRect(list->item(0));
  const int links = list->viewport()->mapTo(sw, r.topLeft()).x();
  const int spalten[3] = {0, 6, 19};
  const char* worte[3] = {"No.", "Formula", "Name"};
  for (int k = 0; k < 3; ++k) {
    QLabel* l = sw->Kopf(k);
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->text(), QString::fromLatin1(worte[k]));
    const int x = l->mapTo(sw, l->contentsRect().topLeft()).x();
    // Within two characters of the text margin: the word starts over its column.
    EXPECT_NEAR(x, links + spalten[k] * zeichen, zeichen) << worte[k];
  }
}

// ---- diagram, exchange, child windows ----

TEST_F(UserPath, PxDiagramDrawnExchangedAndInsideTheFrame) {
  AcetoneMethanol();
  ModelsByEnter(true);
  bool drawn = false;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::TpxInputDialog*>(m);
    if (!d) return false;
    for (QPushButton* b : d->findChildren<QPushButton*>())
      if (b->text().remove(QLatin1Char('&')) == QStringLiteral("Draw curve now") && b->isVisible()) {
        QTest::mouseClick(b, Qt::LeftButton);
        drawn = true;
        return true;
      }
    return false;
  };
  A(Cmd::graf, 0)->trigger();
  QApplication::processEvents();
  ASSERT_TRUE(drawn);
  auto* w = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(w, nullptr);
  EXPECT_EQ(w->GezeichneteSerien(), 2);
  // Inside the frame's workspace, within its bounds, listed there, and the menu bar in view.
  QMdiSubWindow* sub = win->SubOf(WindowId::frmGraph2D);
  ASSERT_NE(sub, nullptr);
  EXPECT_EQ(w->window(), win.get());
  EXPECT_TRUE(win->Mdi()->subWindowList().contains(sub));
  EXPECT_TRUE(win->Mdi()->viewport()->rect().contains(sub->geometry())) << sub->geometry().width();
  EXPECT_TRUE(win->menuBar()->isVisible());
  const QRect bar(win->menuBar()->mapToGlobal(QPoint(0, 0)), win->menuBar()->size());
  const QRect child(sub->mapToGlobal(QPoint(0, 0)), sub->size());
  EXPECT_FALSE(bar.intersects(child));
  // The subtitle names the component of the abscissa; the exchange turns it and the status.
  const QString methanol = QString::fromStdString(peq::Trim(win->Sess().StoffData[2].Name));
  const QString acetone = QString::fromStdString(peq::Trim(win->Sess().StoffData[1].Name));
  EXPECT_TRUE(w->Chart()->title().contains(QStringLiteral("x: ") + methanol)) << w->Chart()->title().toStdString();
  const QString vorher = win->statusBar()->currentMessage();
  ASSERT_LT(vorher.indexOf(QStringLiteral("p0,1")), vorher.indexOf(QStringLiteral("p0,2")));
  const qreal x0 = w->SerieVon(1)->at(0).x();
  QTest::mouseClick(w->cmdTausch(), Qt::LeftButton);
  EXPECT_NEAR(w->SerieVon(1)->at(0).x(), 1.0 - x0, 1e-6);
  EXPECT_TRUE(w->Chart()->title().contains(QStringLiteral("x: ") + acetone));
  const QString nachher = win->statusBar()->currentMessage();
  EXPECT_GT(nachher.indexOf(QStringLiteral("p0,1")), nachher.indexOf(QStringLiteral("p0,2"))) << nachher.toStdString();
  // The delete menu of the diagram offers each curve; one goes.
  QMenu* del = w->mnuDelete()->menu();
  ASSERT_NE(del, nullptr);
  emit del->aboutToShow();
  auto* eine = del->findChild<QMenu*>(QStringLiteral("mnuSubDelKurv"));
  ASSERT_NE(eine, nullptr);
  ASSERT_EQ(eine->actions().size(), 2);
  eine->actions()[0]->trigger();
  QApplication::processEvents();
  EXPECT_EQ(F().Graph2D.Doc.AnzKurven, 1);
  EXPECT_EQ(w->GezeichneteSerien(), 1);
}

TEST_F(UserPath, ADialogIsWideEnoughForItsTitle) {
  Open();
  const QString titel = QStringLiteral("curve design: 101.325 kPa  LV");
  pequi::CurveDesignDialog d(peq::SerienStil{}, titel, win.get());
  d.show();
  QApplication::processEvents();
  EXPECT_GE(d.width(), d.fontMetrics().horizontalAdvance(titel) + 100);
}

TEST_F(UserPath, EnterInTheParameterWindowIsOK) {
  AcetoneMethanol();
  auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
  ASSERT_NE(vm, nullptr);
  ASSERT_TRUE(peqtest::ChooseByKeys(vm->GEKombi(), QStringLiteral("NRTL")));
  QTest::mouseClick(vm->GEParButton(), Qt::LeftButton);
  QApplication::processEvents();
  QWidget* ge = win->WindowOf(WindowId::frmGEInput);
  ASSERT_NE(ge, nullptr);
  ge->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(ge));
  ASSERT_NE(QApplication::focusWidget(), nullptr);
  ASSERT_TRUE(ge->isAncestorOf(QApplication::focusWidget()));
  Type(QStringLiteral("771"));
  Key(Qt::Key_Return);
  EXPECT_EQ(win->WindowOf(WindowId::frmGEInput), nullptr);
}

TEST_F(UserPath, EveryChildWindowOpensInsideTheFrame) {
  AcetoneMethanol();
  ModelsByEnter(true);
  // The result window, the diagram, the group table and help (the calculation command closes
  // a diagram, so it comes first).
  A(Cmd::calc, 1)->trigger();
  QApplication::processEvents();
  auto* ci = Window<pequi::CalcInputDialog>(WindowId::frmCalcInput);
  ASSERT_NE(ci, nullptr);
  QTest::keyClicks(ci->CInput(1), QStringLiteral("1"));
  QTest::keyClicks(ci->CInput(2), QStringLiteral("1"));
  QTest::mouseClick(ci->Weiter(), Qt::LeftButton);
  QApplication::processEvents();
  DrawPx();
  A(Cmd::mnuOUnif)->trigger();
  A(Cmd::mnuAbout)->trigger();
  QApplication::processEvents();
  for (WindowId id : {WindowId::frmGraph2D, WindowId::frmCalcOut, WindowId::frmUnifInkr, WindowId::frmHelp}) {
    QWidget* w = win->WindowOf(id);
    ASSERT_NE(w, nullptr) << static_cast<int>(id);
    QMdiSubWindow* sub = win->SubOf(id);
    ASSERT_NE(sub, nullptr) << static_cast<int>(id);
    EXPECT_EQ(w->window(), win.get());
    EXPECT_FALSE(w->isWindow());
    EXPECT_TRUE(win->Mdi()->subWindowList().contains(sub));
    EXPECT_TRUE(win->Mdi()->viewport()->rect().contains(sub->geometry())) << static_cast<int>(id);
  }
  EXPECT_TRUE(win->menuBar()->isVisible());
  // Each is listed in "Windows".
  QMenu* fenster = win->MenuOf(peq::CmdId{Cmd::mnuWindow});
  ASSERT_NE(fenster, nullptr);
  emit fenster->aboutToShow();
  EXPECT_GE(fenster->actions().size(), 4);
  // Cascaded: no two start at the same place.
  QList<QPoint> orte;
  for (QMdiSubWindow* s : win->Mdi()->subWindowList()) {
    EXPECT_FALSE(orte.contains(s->pos()));
    orte << s->pos();
  }
}

TEST_F(UserPath, AProjectWhoseNameDiffersInCaseOpens) {
  Open();
  ASSERT_TRUE(QFile::copy(QStringLiteral(PEQ_SOURCE_DIR "/examples/ethanol-water.PQC"), ProgFile("ethanol-water.pqc")));
  win->Sess().PfadProjekt = QDir(prog.path()).path().toStdString() + "/";
  win->Sess().ProjektDatei = "ethanol-water.pqc";
  bool seen = false;
  QString name;
  int versuche = 0;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::CmnDlgDialog*>(m);
    if (!d) return false;
    if (!seen) name = d->Name()->text();
    seen = true;
    if (++versuche > 40) {  // the keys never reached it: give up, the test fails below
      static_cast<QDialog*>(d)->reject();
      return true;
    }
    if (!d->isActiveWindow()) {
      d->activateWindow();
      return false;
    }
    // The user clicks into the name box, where the name stands upper-cased, and presses Return.
    QTest::mouseClick(d->Name(), Qt::LeftButton);
    QWidget* fw = QApplication::focusWidget();
    if (!fw || !d->isAncestorOf(fw)) return false;
    QTest::keyClick(fw, Qt::Key_Return);
    return !d->isVisible();
  };
  A(Cmd::mnuLoadProject)->trigger();
  QApplication::processEvents();
  EXPECT_TRUE(seen);
  EXPECT_EQ(name, QStringLiteral("ETHANOL-WATER.PQC"));
  EXPECT_LE(versuche, 40);
  for (const auto& b : answer.boxes) EXPECT_NE(b.title, QStringLiteral("File not found"));
  EXPECT_EQ(win->Sess().NKomp, 2);
  EXPECT_TRUE(win->windowTitle().contains(QStringLiteral("ethanol-water.pqc")));
}

// ---- keyboard ----

TEST_F(UserPath, AltDOpensTheDataMenu) {
  Open();
  win->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(win.get()));
  QMenu* daten = win->MenuOf(peq::CmdId{Cmd::mnuDaten});
  ASSERT_NE(daten, nullptr);
  bool opened = false;
  QObject::connect(daten, &QMenu::aboutToShow, [&] {
    opened = true;
    QTimer::singleShot(0, daten, &QMenu::close);
  });
  QTest::keyClick(win.get(), Qt::Key_D, Qt::AltModifier);
  QApplication::processEvents();
  EXPECT_TRUE(opened);
  // Every entry of the menu bar has its own key.
  QSet<QChar> keys;
  for (QAction* a : win->menuBar()->actions()) {
    const int amp = a->text().indexOf(QLatin1Char('&'));
    ASSERT_GE(amp, 0) << a->text().toStdString();
    const QChar c = a->text().at(amp + 1).toUpper();
    EXPECT_FALSE(keys.contains(c)) << a->text().toStdString();
    keys.insert(c);
  }
  // "Exit" shows its shortcut once, as the shortcut.
  QAction* exit = A(Cmd::mnuExit);
  EXPECT_FALSE(exit->text().contains(QStringLiteral("Alt+F4")));
  EXPECT_EQ(exit->shortcut(), QKeySequence(Qt::ALT | Qt::Key_F4));
  // An empty "Windows" menu tells so, not with a lone "-".
  QMenu* fenster = win->MenuOf(peq::CmdId{Cmd::mnuWindow});
  emit fenster->aboutToShow();
  ASSERT_EQ(fenster->actions().size(), 1);
  EXPECT_NE(fenster->actions()[0]->text(), QStringLiteral("-"));
}

TEST_F(UserPath, EnterOnTheTipClosesIt) {
  Open();
  A(Cmd::mnuTip)->trigger();
  QApplication::processEvents();
  auto* tip = Window<pequi::TipDialog>(WindowId::frmTip);
  ASSERT_NE(tip, nullptr);
  tip->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(tip));
  Key(Qt::Key_Return);
  EXPECT_EQ(win->WindowOf(WindowId::frmTip), nullptr);
}

TEST_F(UserPath, EscapeOnADiagramWithCurvesAsksFirst) {
  AcetoneMethanol();
  ModelsByEnter(true);
  DrawPx();
  auto* w = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(w, nullptr);
  ASSERT_EQ(F().Graph2D.Doc.AnzKurven, 2);
  // Escape, as on any dialog, closes: first it asks.
  win->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(win.get()));
  answer.boxes.clear();
  win->Mdi()->setActiveSubWindow(win->SubOf(WindowId::frmGraph2D));
  QApplication::processEvents();
  w->cmdDraw()->setFocus();
  ASSERT_EQ(QApplication::focusWidget(), w->cmdDraw()) << QApplication::focusWidget()->metaObject()->className();
  Key(Qt::Key_Escape);
  int asked = 0;
  for (const auto& b : answer.boxes)
    if (b.title == QString::fromLatin1(peq::kSchliessenTitel)) ++asked;
  EXPECT_EQ(asked, 1);
  // The answer decides: the diagram with its curves stays, or goes.
  if (win->WindowOf(WindowId::frmGraph2D)) {
    EXPECT_EQ(F().Graph2D.Doc.AnzKurven, 2);
  }
  // Without curves it closes without a question.
  if (auto* w2 = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D)) {
    F().Graph2D.cmdDelKurv_Click(F());
    answer.boxes.clear();
    w2->cmdDraw()->setFocus();
    Key(Qt::Key_Escape);
    EXPECT_TRUE(answer.boxes.empty());
    QApplication::processEvents();
    EXPECT_EQ(win->WindowOf(WindowId::frmGraph2D), nullptr);
  }
}

TEST_F(UserPath, TheReadOutDoesNotShrinkThePlotAndLogXIsQuiet) {
  AcetoneMethanol();
  ModelsByEnter(true);
  DrawPx();
  auto* w = Window<pequi::Graph2DWindow>(WindowId::frmGraph2D);
  ASSERT_NE(w, nullptr);
  const int hoehe = w->View()->height();
  const peq::Serie& s = F().Graph2D.Doc.Serien[1];
  const QPoint p = w->PixelVon(s.x[50], s.y[50]);
  QTest::mouseClick(w->View()->viewport(), Qt::LeftButton, {}, p);
  QApplication::processEvents();
  EXPECT_FALSE(w->StatusLabel()->text().isEmpty());
  EXPECT_EQ(w->View()->height(), hoehe);
  // The logarithmic x axis: no complaint about the points at x = 0.
  static int klagen = 0;
  klagen = 0;
  const QtMessageHandler alt = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& m) {
    if (m.contains(QStringLiteral("Logarithms"))) ++klagen;
  });
  QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("cmdXLog")), Qt::LeftButton);
  QApplication::processEvents();
  qInstallMessageHandler(alt);
  EXPECT_TRUE(F().Graph2D.Doc.XLog);
  EXPECT_EQ(klagen, 0);
  // The image button's menu arrow has room beside its text.
  QPushButton* bild = w->mnuBild();
  ASSERT_NE(bild->menu(), nullptr);
  EXPECT_GE(bild->width(), bild->fontMetrics().horizontalAdvance(bild->text().remove(QLatin1Char('&'))) + 16);
}

}  // namespace
