// The model window and its parameter windows.
#include "windows/vmodell.h"

#include <cmath>

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "windows/frame_fixture.h"
#include "windows/geinput.h"
#include "windows/kijinput.h"
#include "substances/kij.h"
#include "session/codepage.h"

namespace {

using peq::Answer;
using peq::Cmd;
using peq::MsgIcon;
using peq::WindowId;
using peqtest::C;
using peqtest::FrameEnv;

class Models : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5"});
    ASSERT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
    e.ui.boxes.clear();
  }
  peq::frmVModell& w() { return e.f.VModell; }
  int GE(const std::string& text) {
    for (std::size_t k = 0; k < w().GEKombiTexte.size(); ++k)
      if (w().GEKombiTexte[k] == text) return static_cast<int>(k);
    return -1;
  }
  double& L(int slot, int i = 1, int j = 2) { return peq::ParSlot(e.s, slot, i, j); }
  FrameEnv e;
};

TEST_F(Models, OpeningFillsTheLists) {
  EXPECT_EQ(w().Caption, "Models for the calculation");
  EXPECT_EQ(w().GEKombiTexte.front(), "ideal mixture");
  const std::vector<std::string> tail = {"Wilson", "NRTL", "UNIQUAC", "Redlich/Kister"};
  EXPECT_EQ(std::vector<std::string>(w().GEKombiTexte.end() - 4, w().GEKombiTexte.end()), tail);
  EXPECT_EQ(std::vector<int16_t>(w().GEKombiCodes.end() - 4, w().GEKombiCodes.end()),
            (std::vector<int16_t>{1, 2, 9, 4}));
  EXPECT_EQ(w().GEKombiTexte.size(), 5u + (w().modOK ? 1 : 0) + (w().unifOK ? 1 : 0));
  EXPECT_EQ(w().DampfKombiIndex, 0);
  EXPECT_EQ(w().cmbCEOSIndex, 2);      // SRK, EOSModel 4
  EXPECT_EQ(w().cmbMixRuleIndex, 0);   // MixRule 2
  EXPECT_EQ(w().cmbMixRuleGEIndex, 1); // NRTL
  EXPECT_EQ(w().lblKomp[1], "Ethanol");
  EXPECT_FALSE(w().cmbP0Texte[1].empty());
  EXPECT_EQ(w().tabModellKonzept, 0);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: dimensionless");
}

TEST_F(Models, GroupModelsAreOfferedWhenTheirFilesAreThere) {
  FrameEnv g;
  g.CopyData({"MODUNIF5PLUS.PAR", "OUNIF6PLUS.PAR"});
  g.Start();
  g.Mixture({"64-17-5", "7732-18-5"});
  EXPECT_TRUE(g.f.VModell.modOK);
  EXPECT_TRUE(g.f.VModell.unifOK);
  EXPECT_EQ(g.f.VModell.GEKombiTexte[1], "Modified UNIFAC (Dortmund)");
  EXPECT_EQ(g.f.VModell.GEKombiTexte[2], "UNIFAC");
  EXPECT_EQ(g.f.VModell.GEKombiCodes[1], 20);
  EXPECT_EQ(g.f.VModell.GEKombiCodes[2], 21);
}

TEST_F(Models, AnOutOfRangeEOSModelBecomesSRKOnOpening) {
  e.s.EOSModel = 9;
  e.f.mnuModell_Click();
  EXPECT_EQ(e.s.EOSModel, 4);
}

TEST_F(Models, VapourPressureChoice) {
  const auto& codes = w().cmbP0Codes[2];
  ASSERT_FALSE(codes.empty());
  w().cmbP0_Click(e.f, 2, static_cast<int>(codes.size()) - 1);
  EXPECT_EQ(e.s.P0Eq[2], codes.back());
  w().cmbP0_Click(e.f, 2, 99);
  EXPECT_EQ(e.s.P0Eq[2], codes.back());
}

TEST_F(Models, SwitchingTabsTwiceReturnsTheFirstParameters) {
  L(1) = 11;
  L(4) = 44;
  w().tabModellKonzept_Click(e.f, 1);
  EXPECT_TRUE(e.s.Konzept);
  EXPECT_EQ(L(1), 0);
  L(1) = 0.05;  // the k(ij) of the phi-phi concept
  w().tabModellKonzept_Click(e.f, 0);
  EXPECT_EQ(L(1), 11);
  EXPECT_EQ(L(4), 44);
  w().tabModellKonzept_Click(e.f, 1);
  EXPECT_EQ(L(1), 0.05);
}

TEST_F(Models, VirialWithoutKijDestroysTheKijAtOnceEvenWhenCancelled) {
  L(13) = 0.1;
  L(14) = 2.0;
  L(9) = 7;  // slot L9 is GEPar(5): kept
  w().DampfKombi_Click(e.f, 1);
  EXPECT_EQ(L(13), 0);
  EXPECT_EQ(L(14), 0);
  EXPECT_EQ(L(9), 7);
  EXPECT_FALSE(w().kParButtonVisible);
  w().cmdEsc(e.f);
  EXPECT_EQ(L(13), 0);
}

TEST_F(Models, KijButtonCaptions) {
  w().DampfKombi_Click(e.f, 2);
  EXPECT_TRUE(w().kParButtonVisible);
  EXPECT_EQ(w().kParButtonCaption, "View/Input k(ij)-parameters");
  EXPECT_EQ(w().lblDampf, "");
  w().DampfKombi_Click(e.f, 4);
  EXPECT_EQ(w().kParButtonCaption, "Search for/Input k(ij)-parameters");
  EXPECT_EQ(w().lblDampf, " = cubic equation of state ");
  w().kParButton_Click(e.f);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmKijInput));
  EXPECT_TRUE(e.f.KijInput.cmdSuchkij_2Enabled);
}

TEST_F(Models, AVapourModelWithoutAcentricFactorsIsRefused) {
  e.s.AlleOmega = false;
  w().DampfKombi_Click(e.f, 2);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "Not all acentric factors available\nOnly possible calculation of the ideal gas phase");
  EXPECT_EQ(e.s.VapModel, 0);
  EXPECT_EQ(w().DampfKombiIndex, 0);
  // Redlich-Kwong needs no acentric factor, but the critical data.
  e.s.KritOK = false;
  w().DampfKombi_Click(e.f, 3);
  EXPECT_EQ(e.ui.Last().text, "not all crical data available\nonly calculation for the ideal gas phase possible");
  EXPECT_EQ(e.s.VapModel, 0);
}

TEST_F(Models, WilsonIsRefusedWithoutMolarVolumes) {
  e.s.GEModel = 2;
  e.s.RhoOK = false;
  e.s.AlleVWilson = false;
  w().GEKombi_Click(e.f, GE("Wilson"));
  EXPECT_EQ(e.ui.Last().text, "not all molar volumes available, calculation using WILSON not possible");
  EXPECT_EQ(e.s.GEModel, 2);
  EXPECT_EQ(w().GEKombiTexte[static_cast<std::size_t>(w().GEKombiIndex)], "NRTL");
}

TEST_F(Models, ParameterModelsEnableTheParameterButton) {
  w().GEKombi_Click(e.f, GE("ideal mixture"));
  EXPECT_FALSE(w().GEParButtonEnabled);
  w().GEKombi_Click(e.f, GE("NRTL"));
  EXPECT_TRUE(w().GEParButtonEnabled);
  EXPECT_EQ(w().GEParButtonTip, "...needs input of parameters ");
  e.s.ParUnitKij = 0;
  w().GEKombi_Click(e.f, GE("Redlich/Kister"));
  EXPECT_EQ(e.s.ParUnitKij, 2);
  EXPECT_EQ(e.s.GEModel, 4);
}

TEST_F(Models, UnitLabel) {
  w().GEKombi_Click(e.f, GE("NRTL"));
  e.s.ParUnitNRTL = 1;
  w().Beschriften(e.s);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: cal/mol");
  e.s.ParUnitNRTL = 0;
  w().Beschriften(e.s);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: J/mol");
  e.s.ParUnitNRTL = 3;
  w().Beschriften(e.s);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: K");
  w().tabModellKonzept_Click(e.f, 1);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: dimensionless");  // vdW rule
  w().cmbMixRule_Click(e.f, 1);
  EXPECT_EQ(e.s.MixRule, 5);
  EXPECT_EQ(w().lblEinheit, "act. unit of the parameters: K");  // GEModelEOS 2, NRTL in K
}

TEST_F(Models, EOSCaptionsAndTheGEMixingRuleList) {
  w().tabModellKonzept_Click(e.f, 1);
  EXPECT_EQ(w().cmdEOS_GEParCaption, "Search for/Input k(ij)-parameters");
  EXPECT_FALSE(w().cmbMixRuleGEEnabled);
  w().cmbCEOS_Click(e.f, 0);
  EXPECT_EQ(e.s.EOSModel, 6);
  EXPECT_EQ(w().cmdEOS_GEParCaption, "View/Input parameters");
  w().cmbMixRule_Click(e.f, 2);
  EXPECT_EQ(e.s.MixRule, 6);
  EXPECT_TRUE(w().cmbMixRuleGEEnabled);
  w().cmbMixRuleGE_Click(e.f, 2);
  EXPECT_EQ(e.s.GEModelEOS, 9);
}

TEST_F(Models, OKWithoutParametersRemindsAndNoKeepsTheWindow) {
  w().GEKombi_Click(e.f, GE("NRTL"));
  e.ui.answers.push_back(Answer::No);
  w().cmdOKModell(e.f);
  EXPECT_EQ(e.ui.Last().title, "Reminder");
  EXPECT_EQ(e.ui.Last().text,
            "...no parameters available for the GE model selected\n(=> Button 'Input GE Parameters')\ncontinue "
            "nevertheless?");
  EXPECT_EQ(e.ui.Last().buttons, peq::Buttons::YesNo);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_FALSE(e.Reachable(Cmd::mnuCalc));
}

TEST_F(Models, OKWithoutParametersAndYesGoesOn) {
  w().GEKombi_Click(e.f, GE("NRTL"));
  e.ui.answers.push_back(Answer::Yes);
  w().cmdOKModell(e.f);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_TRUE(e.Reachable(Cmd::mnuCalc));
  EXPECT_TRUE(e.Reachable(Cmd::mnuGraph2D));
  EXPECT_FALSE(e.s.ModelleOffen);
  // NRTL is a parameter model: the derivative diagrams are offered.
  EXPECT_TRUE(e.f.cmds.Visible(C(Cmd::graf2, 5)));
}

TEST_F(Models, OnlyThePairOneTwoIsTested) {
  FrameEnv g;
  g.Start();
  g.Mixture({"64-17-5", "7732-18-5", "67-56-1"});
  g.s.GEModel = 2;
  peq::ParSlot(g.s, 1, 1, 2) = 100;
  g.ui.boxes.clear();
  g.f.VModell.cmdOKModell(g.f);
  EXPECT_TRUE(g.ui.boxes.empty());  // pair (2, 3) is empty and not looked at
  EXPECT_FALSE(g.f.IsLoaded(WindowId::frmVModell));
  EXPECT_FALSE(g.Reachable(Cmd::mnuGraph2D));
  EXPECT_TRUE(g.Reachable(Cmd::mnuBatchDist));
}

TEST_F(Models, WilsonWithJmolAndZeroParametersPassesTheWilsonCheck) {
  w().GEKombi_Click(e.f, GE("Wilson"));
  e.s.ParUnitWilson = 0;
  e.ui.answers.push_back(Answer::Yes);  // the reminder
  w().cmdOKModell(e.f);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_FALSE(e.Shown("WARNING", "Wilson-Parameter LAMBDA = 0 not allowed\n=> Input GE Parameters"));
}

TEST_F(Models, DimensionlessWilsonLambdaZeroIsNotAllowed) {
  w().GEKombi_Click(e.f, GE("Wilson"));
  e.s.ParUnitWilson = 2;
  L(1) = 0.5;  // LAMBDA(1-2) given, LAMBDA(2-1) zero
  w().cmdOKModell(e.f);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, "Wilson-Parameter LAMBDA = 0 not allowed\n=> Input GE Parameters");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
}

TEST_F(Models, DimensionlessWilsonLambdaZeroIsRefusedInThePhiConceptToo) {
  // Wilson with dimensionless LAMBDA chosen, then the fugacity-coefficient tab: its own
  // parameter set, in which the Wilson slots of pair (1, 2) are zero.
  w().GEKombi_Click(e.f, GE("Wilson"));
  e.s.ParUnitWilson = 2;
  L(1) = 0.5;
  L(4) = 0.7;
  w().tabModellKonzept_Click(e.f, 1);
  ASSERT_EQ(L(1), 0);
  ASSERT_EQ(L(4), 0);
  ASSERT_EQ(e.s.GEModel, 1);
  e.ui.boxes.clear();
  w().cmdOKModell(e.f);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, "Wilson-Parameter LAMBDA = 0 not allowed\n=> Input GE Parameters");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_TRUE(e.s.ModelleOffen);
  // Given in the phi-phi set as well, the models pass.
  L(1) = 0.5;
  L(4) = 0.7;
  e.ui.boxes.clear();
  w().cmdOKModell(e.f);
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_TRUE(e.s.Konzept);
}

TEST_F(Models, PhiConceptNeedsCriticalData) {
  w().tabModellKonzept_Click(e.f, 1);
  e.s.TKritMax = 0;
  w().cmdOKModell(e.f);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "No calculation using the phi concept possible without T(cr) and p(cr)");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
}

TEST_F(Models, ModelsOKCommitsTheEOSTables) {
  w().tabModellKonzept_Click(e.f, 1);
  w().cmbCEOS_Click(e.f, 3);  // Peng-Robinson
  w().cmdOKModell(e.f);
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_TRUE(e.s.Konzept);
  EXPECT_GT(e.s.EOSb0[1], 0.0);
  EXPECT_GT(e.s.EOSa0[2], 0.0);
  EXPECT_EQ(e.s.AlphaArt[1], 2);
  EXPECT_FALSE(e.Enabled(Cmd::mnuBatchDist));
  EXPECT_FALSE(e.Enabled(Cmd::calc, 3));
  EXPECT_TRUE(e.Enabled(Cmd::graf, 18));
}

TEST_F(Models, ACubicVapourModelCommitsItsTables) {
  w().GEKombi_Click(e.f, GE("ideal mixture"));
  w().DampfKombi_Click(e.f, 5);
  w().cmdOKModell(e.f);
  EXPECT_EQ(e.s.VapModel, 5);
  EXPECT_GT(e.s.EOSb0[1], 0.0);
  EXPECT_FALSE(e.s.Konzept);
}

TEST_F(Models, ANoModelWindowTakesTheShownIdealMixture) {
  ASSERT_EQ(e.s.GEModel, -1);
  w().cmdOKModell(e.f);
  EXPECT_EQ(e.s.GEModel, 0);
}

TEST_F(Models, EscRestoresCodesAndUnits) {
  e.s.P0Eq[1] = "ALP";
  e.f.mnuModell_Click();
  w().GEKombi_Click(e.f, GE("Redlich/Kister"));
  e.s.P0Eq[1] = "WAG";
  e.s.ParUnitNRTL = 3;
  w().cmdEsc(e.f);
  EXPECT_EQ(e.s.GEModel, -1);
  EXPECT_EQ(e.s.P0Eq[1], "ALP");
  EXPECT_EQ(e.s.ParUnitNRTL, 0);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmVModell));
}

TEST_F(Models, HelpButtons) {
  w().Hilfe(e.f, peq::kHelpKonzept);
  w().Hilfe(e.f, peq::kHelpMixRule);
  EXPECT_EQ(e.ui.helpTopics, (std::vector<int>{32800, 12345}));
}

// ---- the gE parameter window ----

TEST(ParSlot, TheLayoutOfThePairList) {
  peq::Session s;
  peq::AllocSession(s, 3);
  peq::ParSlot(s, 1, 1, 2) = 1;
  peq::ParSlot(s, 2, 1, 2) = 2;
  peq::ParSlot(s, 3, 1, 2) = 3;
  peq::ParSlot(s, 4, 1, 2) = 4;
  peq::ParSlot(s, 13, 2, 3) = 13;
  peq::ParSlot(s, 16, 3, 2) = 16;
  EXPECT_EQ(s.GEPar(1, 1, 2), 1);
  EXPECT_EQ(s.GEPar(2, 1, 2), 2);
  EXPECT_EQ(s.GEPar(1, 2, 1), 3);
  EXPECT_EQ(s.GEPar(2, 2, 1), 4);
  EXPECT_EQ(s.GEPar(7, 2, 3), 13);
  EXPECT_EQ(s.GEPar(8, 3, 2), 16);
}

TEST(NaechstesPaar, StepsInOrderAndWraps) {
  int i = 1, j = 2;
  const int want[][2] = {{1, 3}, {1, 4}, {2, 3}, {2, 4}, {3, 4}, {1, 2}};
  for (const auto& p : want) {
    peq::NaechstesPaar(4, i, j, +1);
    EXPECT_EQ(i, p[0]);
    EXPECT_EQ(j, p[1]);
  }
  peq::NaechstesPaar(4, i, j, -1);
  EXPECT_EQ(i, 3);
  EXPECT_EQ(j, 4);
}

TEST_F(Models, GEInputForNRTL) {
  w().GEKombi_Click(e.f, GE("NRTL"));
  w().GEParButton_Click(e.f);
  peq::frmGEInput& g = e.f.GEInput;
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGEInput));
  EXPECT_EQ(g.Caption, "System (1 - 2)");
  EXPECT_EQ(g.lblKomp1, "1 = Ethanol");
  EXPECT_EQ(g.lblKomp2, "2 = Water");
  EXPECT_EQ(g.lblAnzahl, "(input the parameters for 1 binary subsystems.)");
  EXPECT_EQ(g.lblKopf, " NRTL-Input of parameters:");
  EXPECT_EQ(g.lblTFunktion, "Par(T) = a + b (T - 273.15) + c (T - 273.15)^2");
  ASSERT_EQ(g.Zeilen.size(), 3u);
  EXPECT_EQ(g.Zeilen[0].label, "Par(1 - 2)");
  EXPECT_EQ(g.Zeilen[1].label, "Par(2 - 1)");
  EXPECT_EQ(g.Zeilen[2].label, "alpha (1 - 2)");
  g.txt_Change(e.f, 0, 1, "2.5");
  g.txt_Change(e.f, 2, 0, "0.3");
  EXPECT_EQ(L(2), 2.5);
  EXPECT_EQ(L(7), 0.3);
  g.txt_Change(e.f, 2, 0, "");
  EXPECT_EQ(L(7), 0);
  g.opt_parEinheit_Click(e.f, 2);
  EXPECT_EQ(e.s.ParUnitNRTL, 2);
  EXPECT_EQ(g.Zeilen[0].label, "TAU (1 - 2)");
  EXPECT_EQ(g.lblTFunktion, "Par(T) = a");
  EXPECT_EQ(L(2), 2.5);  // the meaning changes, not the numbers
}

TEST_F(Models, GEInputRefusesGarbageAndOutOfRangeNumbers) {
  w().GEKombi_Click(e.f, GE("NRTL"));
  w().GEParButton_Click(e.f);
  peq::frmGEInput& g = e.f.GEInput;
  g.txt_Change(e.f, 0, 0, "150");
  g.txt_Change(e.f, 0, 0, "1e99");
  EXPECT_EQ(L(1), 150);
  EXPECT_FALSE(g.txt_Validate(e.f, 0, 0));
  EXPECT_EQ(e.ui.Last().title, "input error");
  EXPECT_EQ(e.ui.Last().text, "Number out of range: 1e99\n(allowed are values from -1e+07 to 1e+07)");
  EXPECT_EQ(g.txt[0][0], "150");
  g.txt_Change(e.f, 0, 0, "1.2.3");
  EXPECT_FALSE(g.txt_Validate(e.f, 0, 0));
  EXPECT_EQ(e.ui.Last().text, "This is not a number: 1.2.3");
  EXPECT_EQ(L(1), 150);
  g.txt_Change(e.f, 0, 0, "-2.5e3");
  EXPECT_TRUE(g.txt_Validate(e.f, 0, 0));
  EXPECT_EQ(L(1), -2500);
}

TEST_F(Models, GEInputRowsOfEachModel) {
  peq::frmGEInput& g = e.f.GEInput;
  e.s.GEModel = 1;
  e.s.ParUnitWilson = 0;
  g.Load(e.f);
  EXPECT_EQ(g.lblKopf, " WILSON-Input of parameters:");
  EXPECT_EQ(g.Zeilen[0].label, "lambda (1 - 2)/J/mol");
  EXPECT_EQ(g.Zeilen[1].label, "lambda (2 - 1)/J/mol");
  EXPECT_TRUE(g.optVGSichtbar);
  e.s.ParUnitWilson = 1;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.Zeilen[0].label, "lambda (1 - 2)/cal/mol");
  e.s.ParUnitWilson = 3;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.Zeilen[0].label, "lambda (1 - 2)/K");
  e.s.ParUnitWilson = 2;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.Zeilen[0].label, "LAMBDA (1 - 2)");
  EXPECT_EQ(g.Zeilen[1].slot, 4);
  g.opt_VG_Click(e.f, false);
  EXPECT_FALSE(e.s.WilsonVFix);
  e.s.GEModel = 9;
  e.s.ParUnitUNIQUAC = 0;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.lblKopf, " UNIQUAC-Input of parameters:");
  EXPECT_EQ(g.Zeilen[0].label, "u(1 - 2)");
  EXPECT_TRUE(g.rqSichtbar);
  e.s.GEModel = 4;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.lblKopf, " REDLICH/KISTER-Input of parameters:");
  EXPECT_EQ(g.lblTFunktion, "Par(T) = a + b/T + c ln(T)");
  ASSERT_EQ(g.Zeilen.size(), 4u);
  EXPECT_EQ(g.Zeilen[3].label, "D(1 - 2)");
  EXPECT_EQ(g.Zeilen[3].slot, 10);
  EXPECT_FALSE(g.optEinheitSichtbar);
  e.s.Konzept = true;
  e.s.MixRule = 2;
  g.Aufbauen(e.f);
  EXPECT_EQ(g.lblKopf, "k(ij) parameters for the v.d.Waals mixing rule");
  ASSERT_EQ(g.Zeilen.size(), 1u);
  EXPECT_EQ(g.Zeilen[0].label, "k(1,2)");
  EXPECT_TRUE(g.cmdSuchKIJSichtbar);
}

TEST_F(Models, GEInputSearchesTheKijOfTheEquation) {
  e.s.Konzept = true;
  e.s.MixRule = 2;
  e.s.EOSModel = 5;
  peq::frmGEInput& g = e.f.GEInput;
  g.Load(e.f);
  g.cmdSuchKIJ(e.f);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.Last().title, "Result");
}

TEST_F(Models, UniquacNeedsRAndQ) {
  e.s.GEModel = 9;
  peq::frmGEInput& g = e.f.GEInput;
  g.Load(e.f);
  e.f.Show(WindowId::frmGEInput);
  g.txtRQ_Change(e.f, 0, 1, "0");
  EXPECT_EQ(e.s.StoffData[2].RUniquac, 0.0f);
  EXPECT_FALSE(g.OK_GE(e.f));
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text,
            "R,Q data are not completely available;\nUNIFAC calculation is not possible.\nSelect a differnt model or "
            "supplement the R/Q parameters");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmGEInput));
  g.txtRQ_Change(e.f, 0, 1, "0.92");
  EXPECT_TRUE(g.OK_GE(e.f));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmGEInput));
}

TEST_F(Models, PairSteppingOfATernary) {
  FrameEnv g;
  g.Start();
  g.Mixture({"64-17-5", "7732-18-5", "67-56-1"});
  g.s.GEModel = 2;
  g.f.GEInput.Load(g.f);
  g.f.GEInput.vor_rueck(g.f, +1);
  EXPECT_EQ(g.f.GEInput.Caption, "System (1 - 3)");
  EXPECT_EQ(g.f.GEInput.lblAnzahl, "(input the parameters for 3 binary subsystems.)");
  g.f.GEInput.txt_Change(g.f, 0, 0, "42");
  EXPECT_EQ(peq::ParSlot(g.s, 1, 1, 3), 42);
  g.f.GEInput.vor_rueck(g.f, -1);
  g.f.GEInput.vor_rueck(g.f, -1);
  EXPECT_EQ(g.f.GEInput.Caption, "System (2 - 3)");
}

// ---- the k(ij) window ----

TEST_F(Models, KijInputStoresSlots13To16) {
  e.s.VapModel = 2;
  peq::frmKijInput& k = e.f.KijInput;
  k.Load(e.f);
  EXPECT_EQ(k.Caption, "System (1 - 2)");
  EXPECT_FALSE(k.cmdSuchkij_2Enabled);
  for (int n = 0; n < 4; ++n) k.txt_Change(e.f, n, std::to_string(n + 1) + ".5");
  EXPECT_EQ(L(13), 1.5);
  EXPECT_EQ(L(14), 2.5);
  EXPECT_EQ(L(15), 3.5);
  EXPECT_EQ(L(16), 4.5);
  k.txt_Change(e.f, 0, "abc");
  EXPECT_FALSE(k.txt_Validate(e.f, 0));
  EXPECT_EQ(k.txt[0], "1.5");
  EXPECT_STREQ(peq::kKijFunktion, "k(ij) = a + b/T + c ln(T) + d (T - T(0))");
}

TEST_F(Models, KijSearchOfTheVapourModelFillsTheFirstBox) {
  // k(ij) files of the test beside the program, with a different value for ethanol/water in each,
  // so that the value in the box tells which file was searched.
  const std::filesystem::path dir(e.dir.path());
  auto write = [&](const char* name, const char* text) {
    std::ofstream(dir / name, std::ios::binary) << text;
  };
  write("KIJ_PR.DAT", "74-82-8,74-84-0\r\n0.0011\r\n7732-18-5,64-17-5\r\n-0.0712\r\n");
  write("KIJ_RKS.DAT", "64-17-5,7732-18-5\r\n-0.0834\r\n");
  e.s.VapModel = 5;  // Peng-Robinson
  e.s.EOSModel = 5;
  peq::frmKijInput& k = e.f.KijInput;
  k.Load(e.f);
  EXPECT_TRUE(k.cmdSuchkij_2Enabled);
  L(13) = 0.5;
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(e.ui.Last().title, "Result");
  EXPECT_EQ(e.ui.Last().text, "j(ij)-parameter was found and filled in");
  EXPECT_EQ(L(13), -0.0712);  // from KIJ_PR.DAT, the pair in either order
  EXPECT_EQ(k.txt[0], "-0.0712");
  EXPECT_EQ(L(14), 0.0);
  EXPECT_EQ(e.s.EOSModel, 5);  // left as it was
  // Soave-Redlich-Kwong: the other file.
  e.s.VapModel = 4;
  e.s.EOSModel = 4;
  k.Load(e.f);
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(L(13), -0.0834);
  // A pair the file does not hold: the box says so and the value stays.
  write("KIJ_RKS.DAT", "74-82-8,74-84-0\r\n0.0011\r\n");
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(e.ui.Last().text, "For this binary system no k(ij)-parameter was found");
  EXPECT_EQ(L(13), -0.0834);
}

// The search of the k(ij) window reads the file of the equation of state chosen on the
// fugacity-coefficient tab (EOSModel), whatever the cubic vapour model.
TEST_F(Models, KijSearchOfTheKijWindowReadsTheFileOfTheEquationOfState) {
  std::string err;
  const std::string cas1 = peq::Trim(e.s.StoffData[1].CasNr), cas2 = peq::Trim(e.s.StoffData[2].CasNr);
  ASSERT_EQ(cas1, "64-17-5");
  ASSERT_TRUE(peq::WriteKijFile(e.dir.File("KIJ_PR.DAT"), {{cas2, cas1, 0.25}}, err));
  ASSERT_TRUE(peq::WriteKijFile(e.dir.File("KIJ_RKS.DAT"), {{cas1, cas2, 0.75}}, err));
  peq::frmKijInput& k = e.f.KijInput;

  // Peng-Robinson vapour model, SRK chosen as the equation of state: the SRK file.
  e.s.VapModel = 5;
  e.s.EOSModel = 4;
  k.Load(e.f);
  ASSERT_TRUE(k.cmdSuchkij_2Enabled);
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(L(13), 0.75);
  EXPECT_EQ(k.txt[0], "0.75");
  EXPECT_TRUE(e.Shown("Result", "j(ij)-parameter was found and filled in"));
  EXPECT_EQ(e.s.EOSModel, 4);
  EXPECT_EQ(e.s.VapModel, 5);

  // SRK vapour model, Peng-Robinson as the equation of state: the Peng-Robinson file.
  e.s.VapModel = 4;
  e.s.EOSModel = 5;
  k.Load(e.f);
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(L(13), 0.25);
  EXPECT_EQ(e.s.EOSModel, 5);

  // An equation of state without a k(ij) file: nothing is filled in.
  e.s.EOSModel = 6;
  k.Load(e.f);
  k.cmdSuchkij_2(e.f);
  EXPECT_EQ(L(13), 0.25);
}

}  // namespace

namespace {

TEST(ModelsOK, AnErrorOfTheEOSTablesIsShownAndTheWindowCloses) {
  peqtest::FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.f.VModell.tabModellKonzept_Click(e.f, 1);
  e.s.PKrit[2] = 0;  // PKritMax stays above 0
  e.ui.boxes.clear();
  e.f.VModell.cmdOKModell(e.f);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "Error while calculating the EOS-parameters");
  EXPECT_FALSE(e.f.IsLoaded(peq::WindowId::frmVModell));
}

}  // namespace
