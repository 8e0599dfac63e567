// The state calculation through the real widgets: the database, ethanol and water, NRTL with a
// parameter set and the ideal gas, "Models OK", the flash command, the feed, the result, one
// line recorded; the line is checked against the flash computed directly.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <fstream>

#include "engine/flash.h"
#include "session/writefmt.h"
#include "ui/calcinputdialog.h"
#include "ui/calcoutdialog.h"
#include "ui/geinputdialog.h"
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

// Replaces the text of a box by typing, as a user does.
void Retype(QLineEdit* box, const QString& text) {
  box->setFocus();
  box->selectAll();
  QTest::keyClick(box, Qt::Key_Backspace);
  QTest::keyClicks(box, text);
}

void ClickOption(QRadioButton* r) { QTest::mouseClick(r, Qt::LeftButton, {}, QPoint(8, r->height() / 2)); }

std::vector<std::string> Lines(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::vector<std::string> out;
  std::string line;
  while (std::getline(f, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    out.push_back(line);
  }
  return out;
}

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> out(1);
  for (char c : line) {
    if (c == ';')
      out.emplace_back();
    else
      out.back().push_back(c);
  }
  return out;
}

std::string Sgl(double v) { return peq::WriteSgl(static_cast<float>(v)); }

class CalcWalk : public UiTest {
 protected:
  // Database, ethanol and water, NRTL with a parameter set, the ideal gas, "Models OK".
  void ToModels() {
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
    auto* vm = Window<pequi::VModellDialog>(WindowId::frmVModell);
    ASSERT_NE(vm, nullptr);
    ASSERT_TRUE(ChooseByKeys(vm->GEKombi(), QStringLiteral("NRTL")));
    ASSERT_TRUE(ChooseByKeys(vm->DampfKombi(), QStringLiteral("ideal gas equation")));
    QTest::mouseClick(vm->GEParButton(), Qt::LeftButton);
    auto* ge = Window<pequi::GEInputDialog>(WindowId::frmGEInput);
    ASSERT_NE(ge, nullptr);
    // NRTL of ethanol (1) - water (2), J/mol: dg12, dg21, alpha.
    QTest::keyClicks(ge->Box(0, 0), QStringLiteral("-517.9"));
    QTest::keyClicks(ge->Box(1, 0), QStringLiteral("5068.2"));
    QTest::keyClicks(ge->Box(2, 0), QStringLiteral("0.3031"));
    QTest::mouseClick(ge->OK(), Qt::LeftButton);
    QApplication::processEvents();
    QTest::mouseClick(vm->ModelsOK(), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(win->Sess().GEModel, 2);
    ASSERT_EQ(win->Sess().VapModel, 0);
    ASSERT_TRUE(Reachable(Cmd::calc, 1));
  }

  // The flash command, p and T given, 1 kmol of each; returns the input window.
  pequi::CalcInputDialog* Input(const QString& tCelsius, const QString& p) {
    A(Cmd::calc, 1)->trigger();
    QApplication::processEvents();
    auto* d = Window<pequi::CalcInputDialog>(WindowId::frmCalcInput);
    if (!d) return nullptr;
    EXPECT_EQ(d->windowTitle(), QStringLiteral("Input for the calculation"));
    ClickOption(d->Vorgabe(2));
    ClickOption(d->TUnit(1));
    Retype(d->TBox(), tCelsius);
    Retype(d->PBox(), p);
    Retype(d->CInput(1), QStringLiteral("1"));
    QTest::keyClick(d->CInput(1), Qt::Key_Return);
    EXPECT_TRUE(d->CInput(2)->hasFocus());
    Retype(d->CInput(2), QStringLiteral("1"));
    QTest::keyClick(d->CInput(2), Qt::Key_Return);
    EXPECT_TRUE(d->SumBox()->hasFocus());
    return d;
  }
};

TEST_F(CalcWalk, AFlashRecordedThroughTheWindowsMatchesTheFlash) {
  ToModels();
  // 82 degrees C and 1 atm lie between the bubble (about 353.6 K) and the dew point (about
  // 358.0 K) of the equimolar feed with these parameters.
  auto* d = Input(QStringLiteral("82"), QStringLiteral("101,325"));
  ASSERT_NE(d, nullptr);
  peq::Session& s = win->Sess();
  EXPECT_EQ(d->PBox()->text(), QStringLiteral("101.325"));  // the comma arrives as a point
  EXPECT_EQ(s.CalcVorgabe, 2);
  EXPECT_DOUBLE_EQ(s.TCalc, 82 + 273.15);
  EXPECT_DOUBLE_EQ(s.PCalc, 101.325);
  EXPECT_EQ(d->SumBox()->text(), QStringLiteral("2"));
  EXPECT_FALSE(d->EtaBox()->isEnabled());
  const std::size_t boxes = answer.boxes.size();
  QTest::mouseClick(d->Weiter(), Qt::LeftButton);
  QApplication::processEvents();
  EXPECT_EQ(answer.boxes.size(), boxes);  // no note, no failure
  EXPECT_EQ(win->WindowOf(WindowId::frmCalcInput), nullptr);
  auto* o = Window<pequi::CalcOutDialog>(WindowId::frmCalcOut);
  ASSERT_NE(o, nullptr);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(o));
  EXPECT_EQ(o->windowTitle(), QStringLiteral("Result of the calculation (partial calculation)"));
  EXPECT_EQ(o->Heading()->text(), QStringLiteral("Vapour fraction and composition foe p/kPa = 101.325, T/K = 355.150"));
  EXPECT_FALSE(o->Result()->isVisible());
  EXPECT_FALSE(o->Note()->isVisible());  // found by the first attempt: no note of the safeguard
  EXPECT_EQ(o->Field("txtRhoV")->text(), QString());
  EXPECT_EQ(o->P0List()->itemText(0), QStringLiteral("pure-subst. vapour pressures p0/kPa"));
  EXPECT_EQ(o->Values()->item(0, 0)->text(), QStringLiteral("0.5000000"));
  ClickOption(o->ResUnit(0));
  EXPECT_EQ(o->Values()->item(0, 0)->text(), QStringLiteral(".10000E+01"));

  QTest::mouseClick(o->Protokoll(), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_TRUE(s.ProtokollAktiv);
  const std::vector<std::string> z = Lines(s.ProtokollDatei);
  ASSERT_EQ(z.size(), 12u);
  EXPECT_EQ(z[0].rfind("Phase Equilibria PEQ - protocol from ", 0), 0u);
  EXPECT_EQ(z[8].rfind("1;Ethanol;", 0), 0u);
  EXPECT_EQ(z[9].rfind("2;Water;", 0), 0u);
  const std::vector<std::string> f = Fields(z[11]);
  ASSERT_EQ(f.size(), 25u);

  // The flash computed directly on the same session.
  peq::Vec<double> feed = s.Feed;
  const double eta = peq::FlashTP(s, s.TCalc, s.PCalc, feed);
  ASSERT_GT(eta, 0.0);
  ASSERT_LT(eta, 1.0);
  EXPECT_EQ(f[0], "1");
  EXPECT_EQ(f[1], "1");
  EXPECT_EQ(f[2], "2");
  EXPECT_EQ(f[5], Sgl(s.TCalc));
  EXPECT_EQ(f[6], Sgl(101.325));
  EXPECT_EQ(f[7], Sgl(eta));
  EXPECT_EQ(f[8], "");
  EXPECT_EQ(f[9], "");
  for (std::size_t i = 1; i <= 2; ++i) {
    EXPECT_EQ(f[9 + i], peq::WriteSgl(s.P0[i]));
    EXPECT_EQ(f[11 + i], peq::WriteSgl(s.VLiq[i]));
    EXPECT_EQ(f[13 + i], "1");
    EXPECT_EQ(f[15 + i], "0.5");
    EXPECT_EQ(f[17 + i], Sgl(s.XLiq[i]));
    EXPECT_EQ(f[19 + i], Sgl(s.YGas[i]));
    EXPECT_EQ(f[21 + i], Sgl(s.Gamma[i]));
  }

  // Close file / new file: the record goes to the clipboard, tab-separated with CR LF.
  const std::string first = s.ProtokollDatei;
  QTest::mouseClick(o->OpenNew(), Qt::LeftButton);
  QApplication::processEvents();
  const QString clip = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(clip.startsWith(QStringLiteral("Phase Equilibria PEQ - protocol from ")));
  EXPECT_TRUE(clip.contains(QStringLiteral("\r\nLine#\tConcept\tGE-model\tEOS\tMix. Rule\tT\tp\teta(V)\t")));
  EXPECT_TRUE(clip.endsWith(QStringLiteral("\r\n")));
  EXPECT_NE(s.ProtokollDatei, first);
  EXPECT_EQ(s.ProtokollDatei.substr(s.ProtokollDatei.size() - 6), "02.CSV");

  // The delimiter warning appears only with a decimal comma.
  s.DezKomma = true;
  ASSERT_TRUE(ChooseByKeys(o->Sep(), QStringLiteral("Comma")));
  QApplication::processEvents();
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral("Warning"));
  EXPECT_EQ(s.ListTrenner, ",");
  s.DezKomma = false;

  // Screenshots for a person to look at, when asked for.
  const QByteArray shots = qgetenv("PEQ_SHOT_DIR");
  if (!shots.isEmpty()) {
    o->grab().save(QString::fromLocal8Bit(shots) + QStringLiteral("/calcout.png"));
    A(Cmd::calc, 1)->trigger();
    QApplication::processEvents();
    if (auto* again = Window<pequi::CalcInputDialog>(WindowId::frmCalcInput)) {
      EXPECT_TRUE(QTest::qWaitForWindowExposed(again));
      again->grab().save(QString::fromLocal8Bit(shots) + QStringLiteral("/calcinput.png"));
    }
  }
}

TEST_F(CalcWalk, AnAllZeroFeedIsRefusedInTheWindow) {
  ToModels();
  A(Cmd::calc, 1)->trigger();
  QApplication::processEvents();
  auto* d = Window<pequi::CalcInputDialog>(WindowId::frmCalcInput);
  ASSERT_NE(d, nullptr);
  Retype(d->CInput(1), QStringLiteral("0"));
  Retype(d->CInput(2), QStringLiteral("0"));
  QTest::mouseClick(d->Weiter(), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_EQ(answer.boxes.back().title, QStringLiteral("Execution not possible"));
  EXPECT_EQ(answer.boxes.back().text, QStringLiteral("no composition of the mixture given"));
  EXPECT_NE(win->WindowOf(WindowId::frmCalcInput), nullptr);
  EXPECT_EQ(win->WindowOf(WindowId::frmCalcOut), nullptr);
}

TEST_F(CalcWalk, TheAmountBoxesTakeNeitherSignNorExponentNorShortcutsButCopyAndPaste) {
  ToModels();
  A(Cmd::calc, 1)->trigger();
  QApplication::processEvents();
  auto* d = Window<pequi::CalcInputDialog>(WindowId::frmCalcInput);
  ASSERT_NE(d, nullptr);
  QLineEdit* box = d->CInput(1);
  Retype(box, QStringLiteral("-0,5E1"));
  EXPECT_EQ(box->text(), QStringLiteral("0.51"));
  EXPECT_FLOAT_EQ(win->Sess().FeedN[1], 0.51f);
  // Select-all (Ctrl+A) and undo (Ctrl+Z) do nothing; the next digit is appended.
  QTest::keyClick(box, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(box, Qt::Key_Z, Qt::ControlModifier);
  QTest::keyClicks(box, QStringLiteral("7"));
  EXPECT_EQ(box->text(), QStringLiteral("0.517"));
  // Copy and paste pass.
  box->selectAll();
  QTest::keyClick(box, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("0.517"));
  Retype(d->CInput(2), QStringLiteral("1"));
  d->CInput(2)->selectAll();
  QTest::keyClick(d->CInput(2), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(d->CInput(2)->text(), QStringLiteral("0.517"));
  // The sum box is an amount box as well; the temperature box still takes a sign.
  Retype(d->SumBox(), QStringLiteral("-3"));
  EXPECT_EQ(d->SumBox()->text(), QStringLiteral("3"));
  Retype(d->TBox(), QStringLiteral("-5"));
  EXPECT_EQ(d->TBox()->text(), QStringLiteral("-5"));
}

TEST_F(CalcWalk, OutsideTheRangeTheResultSaysNoSolution) {
  ToModels();
  auto* d = Input(QStringLiteral("82"), QStringLiteral("10000"));
  ASSERT_NE(d, nullptr);
  QTest::mouseClick(d->Weiter(), Qt::LeftButton);
  QApplication::processEvents();
  ASSERT_FALSE(answer.boxes.empty());
  EXPECT_TRUE(answer.boxes.back().text.startsWith(QStringLiteral("With your T-p combination you\n")));
  auto* o = Window<pequi::CalcOutDialog>(WindowId::frmCalcOut);
  ASSERT_NE(o, nullptr);
  // The failure word, and under it what the state is.
  const QStringList zeilen = o->Result()->text().split(QLatin1Char('\n'));
  ASSERT_EQ(zeilen.size(), 2);
  EXPECT_EQ(zeilen[0], QStringLiteral("no solution possible"));
  EXPECT_TRUE(zeilen[1].startsWith(QStringLiteral("The mixture is all "))) << zeilen[1].toStdString();
  EXPECT_TRUE(answer.boxes.back().text.endsWith(zeilen[1]));
  EXPECT_FALSE(o->Protokoll()->isEnabled());
}

TEST_F(CalcWalk, TheExitHookClosesTheRecord) {
  ToModels();
  auto* d = Input(QStringLiteral("82"), QStringLiteral("101.325"));
  ASSERT_NE(d, nullptr);
  QTest::mouseClick(d->Weiter(), Qt::LeftButton);
  QApplication::processEvents();
  auto* o = Window<pequi::CalcOutDialog>(WindowId::frmCalcOut);
  ASSERT_NE(o, nullptr);
  QTest::mouseClick(o->Protokoll(), Qt::LeftButton);
  const std::string file = win->Sess().ProtokollDatei;
  ASSERT_TRUE(win->Sess().ProtokollAktiv);
  // The hook the frame's exit calls while a record is kept.
  ASSERT_TRUE(static_cast<bool>(win->Frame().ProtokollSchreiben));
  win->Frame().ProtokollSchreiben();
  EXPECT_FALSE(win->Sess().ProtokollAktiv);
  EXPECT_EQ(Lines(file).size(), 12u);
}

}  // namespace
