// The input window of the state calculation: the given pair, the T unit, the feed and its sum,
// the checks and the note of cmdWeiter.
#include "windows/calcinput.h"

#include <gtest/gtest.h>

#include "windows/calc_fixture.h"

namespace {

using peq::MsgIcon;
using peq::WindowId;
using peqtest::CalcTest;

class CalcInput : public CalcTest {
 protected:
  void SetUp() override { Models(false); }
};

TEST_F(CalcInput, TheCaptionsOfTheChoices) {
  EXPECT_STREQ(peq::kVorgabeRahmen, "quantities to specify");
  EXPECT_STREQ(peq::kVorgabeCaption[2], "p and T");
  EXPECT_STREQ(peq::kVorgabeCaption[1], "p and eta(V)");
  EXPECT_STREQ(peq::kVorgabeCaption[0], "T and eta(V)");
  EXPECT_STREQ(peq::kInputUnitRahmen, "choose your input quantity");
  EXPECT_STREQ(peq::kInputUnitCaption[0], "amount of subst. n(i,o)/kmol");
  EXPECT_STREQ(peq::kInputUnitCaption[1], "mass m(i,0)/kg");
  EXPECT_STREQ(peq::kSumIsVariableCaption, "sum adjustable");
}

TEST_F(CalcInput, TheFlashCommandSetsCalcArt1) {
  Command(1);
  EXPECT_EQ(e.s.Rechenart, 1);
  EXPECT_EQ(e.s.CalcArt, 1);
  EXPECT_EQ(in.Art, 1);
  EXPECT_TRUE(in.optVorgabeEnabled);
  EXPECT_EQ(in.lblKomp[1], "Ethanol");
  EXPECT_EQ(in.lblKomp[2], "Water");
}

TEST_F(CalcInput, TheActivityCommandSetsCalcArt2AndAsksForTOnly) {
  Command(3);
  EXPECT_EQ(e.s.Rechenart, 2);
  EXPECT_EQ(e.s.CalcArt, 2);
  EXPECT_FALSE(in.optVorgabeEnabled);
  EXPECT_TRUE(in.txtTEnabled);
  EXPECT_FALSE(in.txtpEnabled);
  EXPECT_FALSE(in.txtetaVEnabled);
}

TEST_F(CalcInput, TheGivenPairEnablesItsBoxes) {
  Command(1);
  in.optVorgabe_Click(e.f, 2);
  EXPECT_EQ(e.s.CalcVorgabe, 2);
  EXPECT_TRUE(in.txtTEnabled);
  EXPECT_TRUE(in.txtpEnabled);
  EXPECT_FALSE(in.txtetaVEnabled);
  in.optVorgabe_Click(e.f, 1);
  EXPECT_EQ(e.s.CalcVorgabe, 1);
  EXPECT_FALSE(in.txtTEnabled);
  EXPECT_TRUE(in.txtpEnabled);
  EXPECT_TRUE(in.txtetaVEnabled);
  in.optVorgabe_Click(e.f, 0);
  EXPECT_EQ(e.s.CalcVorgabe, 0);
  EXPECT_TRUE(in.txtTEnabled);
  EXPECT_FALSE(in.txtpEnabled);
  EXPECT_TRUE(in.txtetaVEnabled);
}

TEST_F(CalcInput, TheTUnitConvertsTheShownValueAtOnce) {
  Command(1);
  // TCalc 298.15 K shown in degrees C (the default output unit): 298.15 - 273.15 = 25.
  EXPECT_EQ(in.optTUnit, 1);
  EXPECT_EQ(in.txtT, "25");
  in.optTUnit_Click(e.f, 0);
  EXPECT_EQ(in.txtT, "298.15");
  EXPECT_EQ(e.s.TOffsetOut, 0.0);
  in.optTUnit_Click(e.f, 1);
  EXPECT_EQ(in.txtT, "25");
  EXPECT_EQ(e.s.TCalc, 298.15);
}

TEST_F(CalcInput, ATypedTemperatureIsKeptInKelvin) {
  Command(1);
  in.txtT_Change(e.f, "80");
  EXPECT_DOUBLE_EQ(e.s.TCalc, 80 + 273.15);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "350.5");
  EXPECT_DOUBLE_EQ(e.s.TCalc, 350.5);
  in.txtp_Change(e.f, "200");
  EXPECT_DOUBLE_EQ(e.s.PCalc, 200.0);
  in.txtetaV_Change(e.f, "0.25");
  EXPECT_DOUBLE_EQ(e.s.EtaVCalc, 0.25);
  // Text that is no number leaves the value as it was.
  in.txtp_Change(e.f, "2E");
  EXPECT_DOUBLE_EQ(e.s.PCalc, 200.0);
}

TEST_F(CalcInput, AmountsAreTakenAsTyped) {
  Command(1);
  FeedIn({"1.5", "0.5"});
  EXPECT_EQ(e.s.FeedN[1], 1.5f);
  EXPECT_EQ(e.s.FeedN[2], 0.5f);
  EXPECT_EQ(in.txtSumN0, "2");
}

TEST_F(CalcInput, MassesAreDividedByTheMolarMass) {
  Command(1);
  in.optInput_Unit_Click(e.f, 1);
  EXPECT_EQ(e.s.CalcEinheit, 1);
  in.txtCInput_Change(e.f, 1, "10");
  in.txtCInput_Change(e.f, 2, "5");
  EXPECT_EQ(e.s.FeedN[1], static_cast<float>(10.0 / e.s.MolMasse[1]));
  EXPECT_EQ(e.s.FeedN[2], static_cast<float>(5.0 / e.s.MolMasse[2]));
  EXPECT_EQ(in.txtSumN0, "15");  // the sum of the shown quantity, kg
}

TEST_F(CalcInput, TheInputUnitRecalculatesTheShownFeed) {
  Command(1);
  FeedIn({"1", "2"});
  in.optInput_Unit_Click(e.f, 1);
  EXPECT_EQ(in.txtCInput[1], peq::EingabeZahl(e.s.MolMasse[1]));
  EXPECT_EQ(in.txtCInput[2], peq::EingabeZahl(2.0 * e.s.MolMasse[2]));
  EXPECT_EQ(e.s.FeedN[1], 1.0f);  // the amounts stay
  in.optInput_Unit_Click(e.f, 0);
  EXPECT_EQ(in.txtCInput[1], "1");
  EXPECT_EQ(in.txtCInput[2], "2");
}

TEST_F(CalcInput, AFixedSumGivesTheLastBoxWhatRemains) {
  Command(1);
  FeedIn({"1", "1"});
  in.chkSumIsVariable_Click(e.f, false);
  EXPECT_EQ(in.txtSumN0, "2");
  in.txtCInput_Change(e.f, 1, "1.5");
  EXPECT_EQ(in.txtCInput[2], "0.5");
  EXPECT_EQ(e.s.FeedN[2], 0.5f);
  EXPECT_EQ(in.txtSumN0, "2");
  // Nothing is left: the last box is 0 and the sum follows.
  in.txtCInput_Change(e.f, 1, "3");
  EXPECT_EQ(in.txtCInput[2], "0");
  EXPECT_EQ(in.txtSumN0, "3");
}

TEST_F(CalcInput, AnAdjustableSumFollowsTheBoxes) {
  Command(1);
  FeedIn({"1", "1"});
  in.txtCInput_Change(e.f, 1, "1.5");
  EXPECT_EQ(in.txtCInput[2], "1");
  EXPECT_EQ(in.txtSumN0, "2.5");
}

TEST_F(CalcInput, EnterMovesToTheNextBoxAndFromTheLastToTheSum) {
  Command(1);
  EXPECT_EQ(in.Fokus, 1);
  in.txtCInput_Return(e.f, 1);
  EXPECT_EQ(in.Fokus, 2);
  in.txtCInput_Return(e.f, 2);
  EXPECT_EQ(in.Fokus, 3);  // the sum box
}

TEST_F(CalcInput, EnterInTheSumBoxScalesTheFeed) {
  Command(1);
  FeedIn({"1", "3"});
  in.txtSumN0_Change(e.f, "8");
  in.txtSumN0_Return(e.f);
  EXPECT_EQ(e.s.FeedN[1], 2.0f);
  EXPECT_EQ(e.s.FeedN[2], 6.0f);
  EXPECT_EQ(in.txtCInput[1], "2");
  EXPECT_EQ(in.txtSumN0, "8");
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(CalcInput, ASumOfZeroOrLessIsRefused) {
  Command(1);
  FeedIn({"1", "3"});
  for (const char* sum : {"0", "-2"}) {
    e.ui.boxes.clear();
    in.txtSumN0_Change(e.f, sum);
    in.txtSumN0_Return(e.f);
    ASSERT_EQ(e.ui.boxes.size(), 1u);
    EXPECT_EQ(e.ui.Last().title, "Execution not possible");
    EXPECT_EQ(e.ui.Last().text, "no composition of the mixture given");
    EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
    EXPECT_EQ(e.s.FeedN[1], 1.0f);
    EXPECT_EQ(e.s.FeedN[2], 3.0f);
  }
}

TEST_F(CalcInput, AnAllZeroFeedNeverCalculates) {
  Command(1);
  FeedIn({"0", "0"});
  e.s.Feed[1] = 0.3;
  e.s.Feed[2] = 0.7;
  e.ui.shown.clear();
  Weiter();
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "no composition of the mixture given");
  EXPECT_FALSE(Shown(WindowId::frmCalcOut));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcOut));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_FALSE(in.Weiter);
  EXPECT_EQ(e.s.Feed[1], 0.3);  // no change of state
  EXPECT_EQ(e.s.Feed[2], 0.7);
}

TEST(CalcInputKeys, TheAmountBoxesPassDigitsTheDecimalCharacterEnterBackspaceCopyAndPasteOnly) {
  for (int code = 0; code < 256; ++code) {
    int key = code;
    const bool pass = peq::MengenTaste(key);
    const bool expected = (code >= '0' && code <= '9') || code == '.' || code == ',' || code == 13 ||
                          code == 3 || code == 22 || code == 8;
    EXPECT_EQ(pass, expected) << code;
    // A comma arrives as the point of the boxes; every other key stays as it was.
    EXPECT_EQ(key, code == ',' ? '.' : code) << code;
  }
  // The sign, the exponent, blanks, cut, undo and select-all do not pass.
  for (int code : {int{'-'}, int{'+'}, int{'E'}, int{'e'}, int{' '}, 24, 26, 1}) {
    int key = code;
    EXPECT_FALSE(peq::MengenTaste(key)) << code;
  }
}

TEST_F(CalcInput, ANegativeAmountNeverCalculates) {
  Command(1);
  in.optVorgabe_Click(e.f, 2);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "350");
  in.txtp_Change(e.f, "101.325");
  FeedIn({"1", "1"});
  // A pasted "-0.5" in the first box: the amount is not taken, go on refuses.
  in.txtCInput_Change(e.f, 1, "-0.5");
  in.txtCInput_Change(e.f, 2, "1.5");
  EXPECT_EQ(e.s.FeedN[1], 1.0f);
  e.ui.shown.clear();
  Weiter();
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "Ethanol: \"-0.5\" is not an amount (a number of 0 or more)");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
  EXPECT_FALSE(Shown(WindowId::frmCalcOut));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_FALSE(in.Weiter);
  EXPECT_EQ(in.Fokus, 1);
  // A text that is no number is refused the same way, also in masses.
  in.optInput_Unit_Click(e.f, 1);
  in.txtCInput_Change(e.f, 2, "1-2");
  e.ui.boxes.clear();
  Weiter();
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().text, "Water: \"1-2\" is not an amount (a number of 0 or more)");
  EXPECT_EQ(in.Fokus, 2);
  EXPECT_FALSE(Shown(WindowId::frmCalcOut));
}

TEST_F(CalcInput, ANegativeAmountHeldInTheSessionNeverCalculates) {
  Command(1);
  // Amounts that came into the session by another way than the boxes.
  e.s.FeedN[1] = -0.5f;
  e.s.FeedN[2] = 1.5f;
  in.Load(e.f);
  e.ui.shown.clear();
  Weiter();
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_FALSE(Shown(WindowId::frmCalcOut));
  EXPECT_FALSE(in.Weiter);
}

TEST_F(CalcInput, GoOnNormalisesTheFeedAndOpensTheResult) {
  Command(1);
  FeedIn({"1", "3"});
  in.cmdWeiter(e.f);
  EXPECT_EQ(e.s.Feed[1], 0.25);
  EXPECT_EQ(e.s.Feed[2], 0.75);
  EXPECT_TRUE(in.Weiter);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcOut));
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(CalcInput, AboveTheCriticalTemperatureTheNoteNamesTheComponentAndTheCalculationRuns) {
  // 600 K lies above T(cr) of ethanol (about 514 K) and below that of water (about 647 K).
  ASSERT_LT(e.s.TKrit[1], 600.0f);
  ASSERT_GT(e.s.TKrit[2], 600.0f);
  FlashPT(101.325, 600);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes[0].title, "Note");
  EXPECT_EQ(e.ui.boxes[0].text, "For the component)s) Ethanol is T > T(cr).\nPlease change to phi-phi model.");
  // The calculation still runs.
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcOut));
  EXPECT_EQ(out.Caption, "Result of the calculation (partial calculation)");
  EXPECT_EQ(out.T, 600.0);
}

TEST_F(CalcInput, TwoComponentsAboveTheirCriticalTemperatureAreJoinedByAComma) {
  FlashPT(101.325, 700);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes[0].title, "Note");
  EXPECT_EQ(e.ui.boxes[0].text,
            "For the component)s) Ethanol, Water is T > T(cr).\nPlease change to phi-phi model.");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcOut));
}

TEST_F(CalcInput, TheNoteNeedsTAmongTheGivenValues) {
  Command(1);
  in.optVorgabe_Click(e.f, 1);  // p and eta(V)
  e.s.TCalc = 700;
  FeedIn({"1", "1"});
  Weiter();
  for (const auto& b : e.ui.boxes) EXPECT_NE(b.title, "Note");
  e.ui.boxes.clear();
  Command(1);
  in.optVorgabe_Click(e.f, 0);  // T and eta(V)
  Weiter();
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes[0].title, "Note");
}

TEST_F(CalcInput, TheStillpotFillingSkipsTheNoteAndTheResult) {
  Command(1);
  e.f.DestillAktiv = true;
  e.s.TCalc = 700;
  FeedIn({"1", "1"});
  e.ui.shown.clear();
  in.cmdWeiter(e.f);
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_TRUE(in.Weiter);
  EXPECT_EQ(e.s.Feed[1], 0.5);
  EXPECT_FALSE(Shown(WindowId::frmCalcOut));
}

TEST_F(CalcInput, CancelUnloadsTheWindow) {
  Command(1);
  in.cmdCancel(e.f);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcOut));
}

TEST_F(CalcInput, TheValuesOfTheSessionComeBackWithTheWindow) {
  Command(1);
  in.optVorgabe_Click(e.f, 0);
  in.optInput_Unit_Click(e.f, 1);
  in.txtetaV_Change(e.f, "0.4");
  FeedIn({"46", "18"});
  in.cmdCancel(e.f);
  peq::frmCalcInput again;
  again.Load(e.f);
  EXPECT_EQ(again.optVorgabe, 0);
  EXPECT_EQ(again.optInput_Unit, 1);
  EXPECT_EQ(again.txtetaV, "0.4");
  EXPECT_EQ(again.txtCInput[1], peq::EingabeZahl(e.s.FeedN[1] * static_cast<double>(e.s.MolMasse[1])));
}

class CalcInputPhiPhi : public CalcTest {
 protected:
  void SetUp() override { Models(true); }
};

TEST_F(CalcInputPhiPhi, ThePhiPhiNoteHasNoAdvice) {
  FlashPT(101.325, 600);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes[0].title, "Note");
  EXPECT_EQ(e.ui.boxes[0].text, "For the component)s) Ethanol is T > T(cr).");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcOut));
}

}  // namespace
