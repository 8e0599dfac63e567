// The input window of the diagrams through the real menu: "p-x diagram" -> frmTpxInput -> the
// user's keys and buttons -> the session and the diagram.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>

#include "models/eos_pure.h"
#include "ui/geinputdialog.h"
#include "ui/stoffwahldialog.h"
#include "ui/tpxinputdialog.h"
#include "ui/vmodelldialog.h"
#include "ui_fixture.h"

namespace {

using peq::Cmd;
using peq::WindowId;
using peqtest::UiTest;

// A click after the handler of the modal window has returned: a box the click opens is then
// answered by the answerer's timer (which does not fire inside its own handler).
void SpaeterKlicken(QPushButton* b) {
  QTimer::singleShot(0, b, [b] { QTest::mouseClick(b, Qt::LeftButton); });
}

class TpxWalk : public UiTest {
 protected:
  // Database, ethanol and water, NRTL with parameters, "Models OK".
  void ToModels() {
    Open();
    NextFile(ProgFile("PEQBASE.Q07"));
    A(Cmd::mnuOpenBank)->trigger();
    auto* sw = Window<pequi::StoffwahlDialog>(WindowId::frmStoffwahl);
    ASSERT_NE(sw, nullptr);
    for (const char* name : {"ethyl alcohol", "water"}) {
      QLineEdit* box = sw->NameCombo()->lineEdit();
      box->setFocus();
      box->selectAll();
      peqtest::TypeText(box, QString::fromLatin1(name));
      QTest::keyClick(box, Qt::Key_Return);
      QTest::mouseClick(sw->RightOne(), Qt::LeftButton);
    }
    ASSERT_EQ(sw->Selected()->count(), 2);
    QTest::mouseClick(sw->GemischOK(), Qt::LeftButton);
    QApplication::processEvents();
    auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
    ASSERT_NE(vm, nullptr);
    // NRTL chosen with the arrow keys, as a user does.
    QComboBox* ge = vm->GEKombi();
    ge->setFocus();
    QTest::keyClick(ge, Qt::Key_Home);
    for (int k = 0; k <= ge->count() && ge->currentText() != QStringLiteral("NRTL"); ++k)
      QTest::keyClick(ge, Qt::Key_Down);
    ASSERT_EQ(win->Sess().GEModel, 2);
    // The reference-case parameters in cal/mol (L1 = A12, L4 = A21, L7 = alpha).
    win->Sess().ParUnitNRTL = 1;
    peq::ParSlot(win->Sess(), 1, 1, 2) = -121.2691;
    peq::ParSlot(win->Sess(), 4, 1, 2) = 1337.8574;
    peq::ParSlot(win->Sess(), 7, 1, 2) = 0.2974;
    QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_TRUE(Reachable(Cmd::graf, 0));
    answer.boxes.clear();
  }
};

TEST_F(TpxWalk, PxDiagramAt70CThroughTheMenu) {
  ToModels();
  win->Sess().TOffsetIn = 273.15;
  QString titel, label, okText;
  bool drawVisible = false, realVisible = false;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::TpxInputDialog*>(m);
    if (!d) return false;
    titel = d->windowTitle();
    label = d->InputLabel()->text();
    okText = d->OK()->text().remove(QLatin1Char('&'));
    drawVisible = d->OKAndDraw()->isVisible();
    realVisible = d->RealKurve()->isVisible();
    EXPECT_EQ(d->RealKurve()->text(), QStringLiteral("draw real curve in case of a mixung gap"));
    QTest::mouseClick(d->RealKurve(), Qt::LeftButton);
    d->Input()->setFocus();
    d->Input()->selectAll();
    QTest::keyClicks(d->Input(), QStringLiteral("70"));
    SpaeterKlicken(d->OK());
    return true;
  };
  A(Cmd::graf, 0)->trigger();
  QApplication::processEvents();
  EXPECT_EQ(titel, QStringLiteral("Temperature input"));
  EXPECT_EQ(label, QStringLiteral(" Temperature input"));
  EXPECT_EQ(okText, QStringLiteral("Go to the diagram"));
  EXPECT_TRUE(drawVisible);
  EXPECT_TRUE(realVisible);
  const peq::Session& s = win->Sess();
  EXPECT_FALSE(s.DiagAbbruch);
  EXPECT_DOUBLE_EQ(s.TIso, 343.15);
  EXPECT_EQ(s.NoDia, 1);
  EXPECT_EQ(s.IsoArt, 1);
  EXPECT_EQ(s.RealKurve, -1);
  EXPECT_EQ(s.YMin, 0);
  EXPECT_GT(s.YMax, 72);   // above the vapour pressure of ethanol at 70 °C
  EXPECT_LE(s.YMax, 100);
  EXPECT_TRUE(answer.boxes.empty());
  EXPECT_EQ(win->WindowOf(WindowId::frmTpxInput), nullptr);
  EXPECT_NE(win->WindowOf(WindowId::frmGraph2D), nullptr);  // the frame went on to the diagram
}

TEST_F(TpxWalk, AnInvalidInputKeepsTheWindowAndCancelLeavesIt) {
  ToModels();
  QString fehler;
  bool nochDa = false;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::TpxInputDialog*>(m);
    if (!d) return false;
    d->Input()->setFocus();
    d->Input()->selectAll();
    QTest::keyClicks(d->Input(), QStringLiteral("-300"));
    QTest::mouseClick(d->OK(), Qt::LeftButton);
    fehler = d->Error()->text();
    nochDa = d->isVisible();
    QTest::mouseClick(d->Esc(), Qt::LeftButton);
    return true;
  };
  A(Cmd::graf, 0)->trigger();
  QApplication::processEvents();
  EXPECT_EQ(fehler, QStringLiteral(" input was not in the valid range "));
  EXPECT_TRUE(nochDa);
  EXPECT_TRUE(win->Sess().DiagAbbruch);
  EXPECT_EQ(win->WindowOf(WindowId::frmGraph2D), nullptr);
}

TEST_F(TpxWalk, ExceededCriticalTemperaturesAreRefusedInABox) {
  ToModels();
  int phase = 0;
  bool nochDa = false;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::TpxInputDialog*>(m);
    if (!d) return false;
    if (phase == 0) {
      d->Input()->setFocus();
      d->Input()->selectAll();
      QTest::keyClicks(d->Input(), QStringLiteral("450"));
      SpaeterKlicken(d->OK());
      phase = 1;
      return false;
    }
    if (answer.boxes.empty()) return false;  // the box is answered first; the window stays
    nochDa = d->isVisible();
    QTest::mouseClick(d->Esc(), Qt::LeftButton);
    return true;
  };
  A(Cmd::graf, 0)->trigger();
  QApplication::processEvents();
  EXPECT_TRUE(nochDa);
  ASSERT_EQ(answer.boxes.size(), 1u);
  EXPECT_EQ(answer.boxes[0].title, QStringLiteral("Execution not possible"));
  EXPECT_TRUE(answer.boxes[0].text.startsWith(
      QStringLiteral("the critical temperatures of both components are exceeded\nTcr(1)/K =")));
  EXPECT_TRUE(win->Sess().DiagAbbruch);
}

TEST_F(TpxWalk, ActivityCoefficientsIsobaricLogarithmAndDrawNow) {
  ToModels();
  QString titel, vorher, nachher;
  answer.onModal = [&](QWidget* m) {
    auto* d = qobject_cast<pequi::TpxInputDialog*>(m);
    if (!d) return false;
    titel = d->windowTitle();
    vorher = d->InputLabel()->text();
    EXPECT_TRUE(d->Iso(1)->isVisible());
    EXPECT_TRUE(d->Log()->isVisible());
    QTest::mouseClick(d->Iso(1), Qt::LeftButton, {}, QPoint(8, d->Iso(1)->height() / 2));
    nachher = d->InputLabel()->text();
    d->Log()->setChecked(true);
    d->Input()->setFocus();
    d->Input()->selectAll();
    QTest::keyClicks(d->Input(), QStringLiteral("101,325"));  // the comma arrives as a point
    EXPECT_EQ(d->Input()->text(), QStringLiteral("101.325"));
    SpaeterKlicken(d->OKAndDraw());
    return true;
  };
  A(Cmd::graf, 6)->trigger();
  QApplication::processEvents();
  EXPECT_EQ(titel, QStringLiteral("Activity coefficients"));
  EXPECT_EQ(vorher, QStringLiteral(" Temperature input"));
  EXPECT_EQ(nachher, QStringLiteral(" Pressure input"));
  const peq::Session& s = win->Sess();
  EXPECT_FALSE(s.DiagAbbruch);
  EXPECT_EQ(s.NoDia, 83);
  EXPECT_EQ(s.IsoArt, 2);
  EXPECT_DOUBLE_EQ(s.PIso, 101.325);
  EXPECT_LT(s.YMin, 0);  // ln gamma, symmetric
  EXPECT_EQ(s.YMin, -s.YMax);
}

}  // namespace
