// The options window and the tip window.
#include <fstream>

#include <gtest/gtest.h>

#include "session/constants.h"
#include "windows/frame_fixture.h"
#include "windows/options.h"
#include "windows/tip.h"

namespace {

using peq::Answer;
using peq::MsgIcon;
using peq::WindowId;
using peqtest::FrameEnv;
namespace fs = std::filesystem;

class Options : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.f.mnuOptions_Click();
  }
  peq::frmOptions& w() { return e.f.Options; }
  FrameEnv e;
};

TEST_F(Options, LoadsTheSessionValues) {
  EXPECT_EQ(w().optFuUnit, 0);
  EXPECT_EQ(w().OptTOut, 1);  // degrees Celsius by default
  EXPECT_EQ(w().optConcUnit, 0);
  EXPECT_EQ(w().Slider1_Punktdichte, 600);
  EXPECT_FALSE(w().chk3DKonnoden);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmOptions));
}

TEST_F(Options, AcceptingStoresEverything) {
  e.s.TIso = 350;
  w().optFuUnit = 2;
  w().OptTOut = 0;
  w().optConcUnit = 1;
  w().Slider1_Punktdichte = 1200;
  w().chk3DKonnoden = true;
  w().cmdOK(e.f);
  EXPECT_EQ(e.s.FuUnit, 2);
  // 1/(8.31451 * 350) as a 32-bit real
  EXPECT_EQ(e.s.FuFaktor, static_cast<float>(1.0 / (8.31451 * 350.0)));
  EXPECT_EQ(e.s.TOffsetOut, 0.0);
  EXPECT_EQ(e.s.ConcUnit, 1);
  EXPECT_EQ(e.s.KurvenPunkte, 1200);
  EXPECT_TRUE(e.s.Konoden3D);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmOptions));
}

TEST_F(Options, FactorsOfTheThreeUnits) {
  EXPECT_EQ(peq::FuFaktorVon(0, 300, 5.0f), 1.0f);
  EXPECT_EQ(peq::FuFaktorVon(1, 300, 5.0f), static_cast<float>(1.0 / 8.31451));
  EXPECT_EQ(peq::FuFaktorVon(2, 300, 5.0f), static_cast<float>(1.0 / (8.31451 * 300)));
  EXPECT_EQ(peq::FuFaktorVon(2, 0, 5.0f), 5.0f);  // a fault keeps the old factor
}

TEST_F(Options, ACelsiusChoiceGivesTheOffset) {
  w().OptTOut = 1;
  w().cmdOK(e.f);
  EXPECT_EQ(e.s.TOffsetOut, 273.15);
}

TEST_F(Options, AChangeOfTIsoKeepsTheOldFactorUntilAcceptedAgain) {
  e.s.TIso = 300;
  w().optFuUnit = 2;
  w().cmdOK(e.f);
  const float old = e.s.FuFaktor;
  e.s.TIso = 400;
  EXPECT_EQ(e.s.FuFaktor, old);
  e.f.mnuOptions_Click();
  w().cmdOK(e.f);
  EXPECT_EQ(e.s.FuFaktor, static_cast<float>(1.0 / (8.31451 * 400)));
}

TEST_F(Options, AChangedFactorUnloadsTheDiagram) {
  e.f.Show(WindowId::frmGraph2D);
  w().optFuUnit = 1;
  w().cmdOK(e.f);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmGraph2D));
}

TEST_F(Options, TheSameFactorKeepsTheDiagram) {
  e.f.Show(WindowId::frmGraph2D);
  e.s.NoDia = 1;
  w().cmdOK(e.f);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(Options, ConcentrationChangeWithADiagramAsksAndOKDeletesIt) {
  e.f.Show(WindowId::frmGraph2D);
  e.f.Show(WindowId::frmThieleMcCabe);
  e.f.Show(WindowId::frmGraphCalc);
  e.s.NoDia = 1;
  w().optConcUnit = 1;
  w().cmdOK(e.f);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text,
            "The actual diagram is drawn for different concentration units; for this rason it must be deleted.\n"
            "(if aborted: your change of the concentration unit will be ignored)");
  EXPECT_EQ(e.ui.Last().buttons, peq::Buttons::OkCancel);
  EXPECT_EQ(e.s.ConcUnit, 1);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmThieleMcCabe));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmGraphCalc));
}

TEST_F(Options, CancelOfTheWarningKeepsTheOldConcentrationUnit) {
  e.f.Show(WindowId::frmGraph2D);
  e.s.NoDia = 4;
  e.ui.answers.push_back(Answer::Cancel);
  w().optConcUnit = 1;
  w().Slider1_Punktdichte = 800;
  w().cmdOK(e.f);
  EXPECT_EQ(e.s.ConcUnit, 0);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D));
  EXPECT_EQ(e.s.KurvenPunkte, 800);
}

TEST_F(Options, DiagramsSevenAnd183SurviveAChangeOfTheConcentrationUnit) {
  for (int16_t nd : {7, 183}) {
    e.f.Show(WindowId::frmGraph2D);
    e.s.NoDia = nd;
    e.s.ConcUnit = 0;
    e.f.mnuOptions_Click();
    w().optConcUnit = 1;
    w().cmdOK(e.f);
    EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGraph2D)) << nd;
    EXPECT_EQ(e.s.ConcUnit, 1);
  }
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(Options, CancelChangesNothing) {
  w().optFuUnit = 1;
  w().optConcUnit = 1;
  w().cmdClose(e.f);
  EXPECT_EQ(e.s.FuUnit, 0);
  EXPECT_EQ(e.s.ConcUnit, 0);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmOptions));
}

TEST_F(Options, TheSliderRange) {
  EXPECT_EQ(peq::frmOptions::SliderWert(100), 200);
  EXPECT_EQ(peq::frmOptions::SliderWert(6000), 5000);
  EXPECT_EQ(peq::kPunkteSmallStep, 50);
  EXPECT_EQ(peq::kPunkteLargeStep, 200);
  EXPECT_EQ(peq::kPunkteTick, 400);
  EXPECT_STREQ(peq::kOptFuUnitCaptions[0], "SI unit (kJ/kmol or kJ/(kmol K))");
  EXPECT_STREQ(peq::kChk3DKonnodenCaption, "Draw tie-line if mixing gap");
}

// ---- tips ----

class Tip : public ::testing::Test {
 protected:
  void WriteTips(const std::string& name, int n) {
    std::string t;
    for (int k = 1; k <= n; ++k) t += "tip " + std::to_string(k) + "\r\n";
    peqtest::WriteBytes(e.dir.path(), name, t);
  }
  FrameEnv e;
};

TEST_F(Tip, TheFileOfTheLanguage) {
  WriteTips("PEQTIPS_E.TXT", 3);
  WriteTips("PEQTIPS.TXT", 2);
  e.s.NamenEnglisch = true;
  EXPECT_TRUE(e.f.Tip.Load(e.f, true));
  EXPECT_EQ(e.f.Tip.Datei, "PEQTIPS_E.TXT");
  EXPECT_EQ(e.f.Tip.Tips.size(), 3u);
  e.s.NamenEnglisch = false;
  EXPECT_TRUE(e.f.Tip.Load(e.f, true));
  EXPECT_EQ(e.f.Tip.Datei, "PEQTIPS.TXT");
  EXPECT_EQ(e.f.Tip.Tips.size(), 2u);
}

TEST_F(Tip, SwitchedOffAtStartButShownFromTheMenu) {
  WriteTips("PEQTIPS_E.TXT", 3);
  e.ui.settings["Options/Show Tips at Startup"] = "0";
  EXPECT_FALSE(e.f.Tip.Load(e.f, false));
  EXPECT_TRUE(e.f.Tip.TipsAus);
  EXPECT_TRUE(e.f.Tip.Load(e.f, true));
  EXPECT_FALSE(e.f.Tip.TipsAus);
  EXPECT_FALSE(e.f.Tip.chkLoadTipsAtStartup);
}

TEST_F(Tip, TheMenuCommandShowsTheWindow) {
  WriteTips("PEQTIPS_E.TXT", 3);
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuTip));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmTip));
  EXPECT_TRUE(e.f.Tip.TipVomMenue);
}

TEST_F(Tip, RandomPlaceAndWrappingNext) {
  WriteTips("PEQTIPS_E.TXT", 4);
  e.f.Tip.Zufall = [] { return 0.99; };  // Int(0.99 * 4 + 1) = 4
  e.f.Tip.Load(e.f, true);
  EXPECT_EQ(e.f.Tip.Aktuell, 4);
  EXPECT_EQ(e.f.Tip.lblTipText, "tip 4");
  e.f.Tip.cmdNextTip();
  EXPECT_EQ(e.f.Tip.Aktuell, 1);
  EXPECT_EQ(e.f.Tip.lblTipText, "tip 1");
  e.f.Tip.Zufall = [] { return 0.0; };  // Int(0 * 4 + 1) = 1
  e.f.Tip.cmdTipsZeigen(e.f);
  EXPECT_EQ(e.f.Tip.Aktuell, 1);
  e.f.Tip.Zufall = [] { return 0.5; };  // Int(0.5 * 4 + 1) = 3
  e.f.Tip.cmdTipsZeigen(e.f);
  EXPECT_EQ(e.f.Tip.Aktuell, 3);
}

TEST_F(Tip, AMissingFileSaysSo) {
  e.f.Tip.Load(e.f, true);
  EXPECT_EQ(e.f.Tip.lblTipText, "PEQTIPS_E.TXT was not found");
  EXPECT_TRUE(e.f.Tip.Tips.empty());
  e.f.Tip.cmdNextTip();
  EXPECT_EQ(e.f.Tip.lblTipText, "PEQTIPS_E.TXT was not found");
}

TEST_F(Tip, TheCheckBoxWritesTheSetting) {
  EXPECT_TRUE(e.f.Tip.chkLoadTipsAtStartup_Click(e.f, false));
  EXPECT_EQ(e.ui.settings["Options/Show Tips at Startup"], "0");
  EXPECT_TRUE(e.f.Tip.chkLoadTipsAtStartup_Click(e.f, true));
  EXPECT_EQ(e.ui.settings["Options/Show Tips at Startup"], "1");
}

TEST_F(Tip, AStoreThatCannotBeWrittenDoesNotStopTheProgram) {
  WriteTips("PEQTIPS_E.TXT", 2);
  e.ui.settingsWritable = false;
  e.f.Startup();
  EXPECT_FALSE(e.f.Tip.chkLoadTipsAtStartup_Click(e.f, false));
  EXPECT_TRUE(e.Reachable(peq::Cmd::mnuOpenBank));
}

TEST(BundledTips, AtLeastTwentyInEachLanguage) {
  for (const char* name : {"PEQTIPS_E.TXT", "PEQTIPS.TXT"}) {
    peq::frmTip t;
    t.LoadTips(fs::path(peqtest::SourceDir()) / "data" / name);
    EXPECT_GE(t.Tips.size(), 20u) << name;
    for (const std::string& tip : t.Tips) EXPECT_GT(tip.size(), 30u) << name << ": " << tip;
  }
}

}  // namespace
