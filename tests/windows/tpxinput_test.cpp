// The input window of the diagrams frmTpxInput: captions, the pseudo numbers, every check in
// order with its words, and what an accepted input leaves in the session.
#include "windows/tpxinput.h"

#include <functional>

#include <gtest/gtest.h>

#include "diagrams/catalogue_mixtures.h"
#include "diagrams/curve_fixture.h"
#include "session/writefmt.h"
#include "windows/frame_fixture.h"

namespace {

using peq::Cmd;
using peq::MsgIcon;
using peq::WindowId;
using peqtest::C;
using peqtest::FrameEnv;

// The frame with the scripted window layer; the modal input window is the state w, loaded by
// the frame's command and driven by `aktion` (the user's input and button).
class Tpx : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.f.DiagrammRechnen = [this] { ++drawn; };
    e.ui.modalHandlers[WindowId::frmTpxInput] = [this] {
      w = peq::frmTpxInput{};
      w.Load(e.f);
      geladen = w;
      if (aktion) aktion();
      return w.Fertig && !w.Abbruch;
    };
  }
  // Typing a value and pressing "Go to the diagram"; the window stays: the user cancels then.
  void Eingabe(const std::string& text, bool sofort = false) {
    aktion = [this, text, sofort] {
      w.txtpT = text;
      ok = sofort ? w.cmdOKAndDraw_Click(e.f) : w.cmdOK_Click(e.f);
      if (!w.Fertig) w.cmdEsc_Click(e.f);
    };
  }
  void Mix(bool (*mix)(peq::Session&)) {
    ASSERT_TRUE(mix(e.s));
    e.ui.boxes.clear();
  }
  std::size_t Boxen() const { return e.ui.boxes.size(); }

  FrameEnv e;
  peq::frmTpxInput w, geladen;
  std::function<void()> aktion;
  int drawn = 0;
  bool ok = false;
};

// ---------------------------------------------------------------- captions

TEST_F(Tpx, TemperatureInputOfAnIsothermalDiagram) {
  Mix(cattest::EthanolWater);
  e.s.TIso = 298.15;
  e.s.TOffsetIn = 273.15;
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_EQ(geladen.lblpT, " Temperature input");
  EXPECT_EQ(geladen.txtpT, "25");
  EXPECT_EQ(geladen.optTUnit, 1);
  EXPECT_TRUE(geladen.optTUnitVisible);
  EXPECT_EQ(geladen.cmdOKCaption, "Go to the diagram");
  EXPECT_TRUE(geladen.cmdOKAndDrawVisible);
  EXPECT_TRUE(geladen.chkRealKurveVisible);
  EXPECT_FALSE(geladen.OptIsoVisible);
  EXPECT_FALSE(geladen.OptLogVisible);
  EXPECT_EQ(std::string(peq::kChkRealKurveCaption), "draw real curve in case of a mixung gap");
  EXPECT_EQ(std::string(peq::kTpxOKAndDrawCaption), "Draw curve now");
  EXPECT_TRUE(e.s.DiagAbbruch);  // nothing typed, the window was left with cancel
}

TEST_F(Tpx, PressureInputOfAnIsobaricDiagramAndFractionOfAnIsostericOne) {
  Mix(cattest::EthanolWater);
  e.s.PIso = 101.325;
  e.s.XIso = 0.25;
  e.f.graf_Click(C(Cmd::graf, 2));
  EXPECT_EQ(geladen.lblpT, " Pressure input");
  EXPECT_EQ(geladen.txtpT, "101.325");
  EXPECT_FALSE(geladen.optTUnitVisible);
  e.f.graf_Click(C(Cmd::graf, 4));
  EXPECT_EQ(geladen.lblpT, "input of mole fraction x2(L)");
  EXPECT_EQ(geladen.txtpT, "0.25");
}

TEST_F(Tpx, TemperatureUnitConvertsTheTypedValue) {
  Mix(cattest::EthanolWater);
  e.s.TIso = 343.15;
  e.s.TOffsetIn = 273.15;
  aktion = [this] {
    EXPECT_EQ(w.txtpT, "70");
    w.optTUnit_Click(0);
    EXPECT_EQ(w.txtpT, "343.15");
    w.txtpT = "350";
    ok = w.cmdOK_Click(e.f);
  };
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_TRUE(ok);
  EXPECT_DOUBLE_EQ(e.s.TIso, 350.0);
  EXPECT_EQ(e.s.TOffsetIn, 0.0);
}

TEST_F(Tpx, PseudoNumbersAreResolvedByTheOptions) {
  EXPECT_EQ(peq::AufgeloesteNoDia(800, 0, false), 8);
  EXPECT_EQ(peq::AufgeloesteNoDia(800, 1, false), 82);
  EXPECT_EQ(peq::AufgeloesteNoDia(800, 0, true), 81);
  EXPECT_EQ(peq::AufgeloesteNoDia(800, 1, true), 83);
  EXPECT_EQ(peq::AufgeloesteNoDia(100, 0, false), 10);
  EXPECT_EQ(peq::AufgeloesteNoDia(100, 1, false), 11);
  EXPECT_EQ(peq::AufgeloesteNoDia(500, 0, false), 5);
  EXPECT_EQ(peq::AufgeloesteNoDia(500, 1, false), 51);
  EXPECT_EQ(peq::AufgeloesteNoDia(1, 1, true), 1);
}

TEST_F(Tpx, ActivityCoefficientsIsobaricLogarithm) {
  Mix(cattest::EthanolWater);
  aktion = [this] {
    EXPECT_EQ(w.Caption, "Activity coefficients");
    EXPECT_TRUE(w.OptIsoVisible);
    EXPECT_TRUE(w.OptLogVisible);
    EXPECT_EQ(w.lblpT, " Temperature input");
    w.OptIso_Click(e.f, 1);
    EXPECT_EQ(w.lblpT, " Pressure input");
    w.OptLog_Click(true);
    w.txtpT = "101.325";
    ok = w.cmdOK_Click(e.f);
  };
  e.f.graf_Click(C(Cmd::graf, 6));
  EXPECT_TRUE(ok);
  EXPECT_EQ(e.s.NoDia, 83);
  EXPECT_EQ(e.s.IsoArt, 2);
  EXPECT_DOUBLE_EQ(e.s.PIso, 101.325);
  EXPECT_EQ(drawn, 1);
}

TEST_F(Tpx, RelativeVolatilityAndKValuesTitles) {
  Mix(cattest::EthanolWater);
  Eingabe("70");
  e.f.graf_Click(C(Cmd::graf, 9));
  EXPECT_EQ(geladen.Caption, "Realtive volatility");
  EXPECT_FALSE(geladen.OptLogVisible);
  EXPECT_EQ(e.s.NoDia, 10);
  EXPECT_EQ(e.s.IsoArt, 1);
  aktion = [this] {
    EXPECT_EQ(w.Caption, "K values");
    w.OptIso_Click(e.f, 1);
    w.txtpT = "101.325";
    ok = w.cmdOK_Click(e.f);
  };
  e.f.graf_Click(C(Cmd::graf, 10));
  EXPECT_EQ(e.s.NoDia, 51);
  EXPECT_EQ(e.s.IsoArt, 2);
}

TEST_F(Tpx, DistillationAsksForThePressureAtTheTopOfTheColumn) {
  Mix(cattest::EthanolWater);
  e.s.NKomp = 2;
  Eingabe("101.325");
  e.f.mnuThiele_Click();
  EXPECT_EQ(geladen.lblpT, "  Pressure at the top of the column:");
  EXPECT_EQ(geladen.cmdOKCaption, "Continue >");
  EXPECT_FALSE(geladen.cmdOKAndDrawVisible);
  EXPECT_FALSE(geladen.OptIsoVisible);
  EXPECT_TRUE(ok);
  EXPECT_EQ(e.s.NoDia, 6);
  EXPECT_EQ(e.s.IsoArt, 2);
  EXPECT_TRUE(w.AufbauOK);  // the x-y diagram of the column has its titles and coordinates
}

// ---------------------------------------------------------------- check 1: the input

TEST_F(Tpx, UnreadableOrOutOfRangeInputIsRefusedInTheWindow) {
  Mix(cattest::EthanolWater);
  for (const char* text : {"abc", "", "-300", "4800"}) {  // -300 °C, 5073 K
    Eingabe(text);
    e.f.graf_Click(C(Cmd::graf, 0));
    EXPECT_FALSE(ok) << text;
    EXPECT_EQ(w.lblFehler, " input was not in the valid range ") << text;
    EXPECT_EQ(Boxen(), 0u);
    EXPECT_TRUE(e.s.DiagAbbruch);
  }
  for (const char* text : {"0", "-1", "2e6"}) {
    Eingabe(text);
    e.f.graf_Click(C(Cmd::graf, 2));
    EXPECT_EQ(w.lblFehler, " input was not in the valid range ") << text;
  }
  for (const char* text : {"1.5", "-0.1"}) {
    Eingabe(text);
    e.f.graf_Click(C(Cmd::graf, 4));
    EXPECT_EQ(w.lblFehler, " input was not in the valid range ") << text;
  }
  EXPECT_EQ(drawn, 0);
}

TEST_F(Tpx, ACommaCountsAsTheDecimalSign) {
  Mix(cattest::EthanolWater);
  e.s.TOffsetIn = 273.15;
  Eingabe("70,5");
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_TRUE(ok);
  EXPECT_DOUBLE_EQ(e.s.TIso, 70.5 + 273.15);
  EXPECT_TRUE(w.lblFehler.empty());
}

// ---------------------------------------------------------------- check 2: T and T(cr)

TEST_F(Tpx, WithoutCriticalTemperaturesTheSubcriticalRangeCannotBeJudged) {
  Mix(cattest::EthanolWater);
  e.s.TKritMax = 0;
  Eingabe("70");
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, "it cannot be judged if T is in the subcritical range\n(not all T(cr) available)");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Warning);
  EXPECT_TRUE(ok);  // the window goes on
  EXPECT_EQ(drawn, 1);
}

TEST_F(Tpx, BothCriticalTemperaturesExceeded) {
  Mix(cattest::EthanolWater);
  Eingabe("400");  // 673 K, above 514 K and 647 K
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "the critical temperatures of both components are exceeded\nTcr(1)/K =" +
                                  peq::WriteSgl(e.s.TKrit[1]) + ", Tcr(2)/K =" + peq::WriteSgl(e.s.TKrit[2]));
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
  EXPECT_FALSE(ok);  // the window stays
  EXPECT_EQ(drawn, 0);
}

TEST_F(Tpx, OneCriticalTemperatureExceededWithAnExtrapolatingEquation) {
  Mix(cattest::EthanolWater);
  ASSERT_GT(e.s.ParALP[1].TLo, 0) << "the database holds an Antoine set of ethanol";
  e.s.P0Eq[1] = "ALP";
  Eingabe("300");  // 573.15 K: above T(cr) of ethanol only
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, "the critical temperature of Ethanol is exceeded (T(cr) = " +
                                  peq::WriteSgl(e.s.TKrit[1]) +
                                  " K).\nNote: The vapour pressure equation is used for T > T(cr)!\n"
                                  "Advice: Add marker p(cr) to have a better orientation\n"
                                  "In this situation you better should use the phi-concept.");
  EXPECT_TRUE(ok);
  EXPECT_DOUBLE_EQ(e.s.TIso, 573.15);
}

TEST_F(Tpx, OneCriticalTemperatureExceededWithWagnersEquation) {
  Mix(cattest::EthanolWater);
  ASSERT_GT(e.s.ParWAG[1].TLo, 0) << "the database holds a WAGNER set of ethanol";
  e.s.P0Eq[1] = "WAG";  // WAGNER's equation ends at T(cr)
  Eingabe("300");
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "the critical temperature of Ethanol is exceeded (T(cr) = " +
                                  peq::WriteSgl(e.s.TKrit[1]) +
                                  " K).\nThe vapour pressure equation selected is not useable for the given "
                                  "temperature.\n(Do not use WAGNER's equation here)\n"
                                  "In this situation you better should use the phi-concept.");
  EXPECT_FALSE(ok);
  EXPECT_EQ(drawn, 0);
}

TEST_F(Tpx, OneCriticalTemperatureExceededWithoutAVapourPressureEquation) {
  Mix(cattest::EthanolWater);
  e.s.P0Eq[1] = "";  // no equation: p0 = 0, and no WAGNER advice
  Eingabe("300");
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "the critical temperature of Ethanol is exceeded (T(cr) = " +
                                  peq::WriteSgl(e.s.TKrit[1]) +
                                  " K).\nThe vapour pressure equation selected is not useable for the given "
                                  "temperature.\nIn this situation you better should use the phi-concept.");
  EXPECT_FALSE(ok);
}

TEST_F(Tpx, OneCriticalTemperatureExceededInThePhiPhiConcept) {
  Mix(cattest::CO2Butane);
  Eingabe("71.11");  // 344.26 K: above T(cr) of CO2
  e.f.graf_Click(C(Cmd::graf, 0));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Note");
  EXPECT_EQ(e.ui.Last().text, "the critical temperature of Carbon dioxide is exceeded (T(cr) = " +
                                  peq::WriteSgl(e.s.TKrit[1]) + " K).\n");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Information);
  EXPECT_TRUE(ok);
  EXPECT_EQ(drawn, 1);
  EXPECT_GT(e.s.YMax, e.s.PKrit[1]);  // the coordinates hold the critical region
}

// ---------------------------------------------------------------- check 3: p and p(cr)

TEST_F(Tpx, BothCriticalPressuresExceeded) {
  Mix(cattest::EthanolWater);
  Eingabe("30000");
  e.f.graf_Click(C(Cmd::graf, 2));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "The critical pressures of both components are exceeded. \npcr(1)/kPa =" +
                                  peq::WriteSgl(e.s.PKrit[1]) + ", pcr(2)/kPa =" + peq::WriteSgl(e.s.PKrit[2]));
  EXPECT_FALSE(ok);
}

TEST_F(Tpx, OneCriticalPressureExceededGammaPhiAdvisesTheTcrMarkerOnlyForTx) {
  Mix(cattest::EthanolWater);
  ASSERT_GT(e.s.ParALP[1].TLo, 0);
  e.s.P0Eq[1] = "ALP";
  const std::string zeile =
      "The critical pressure of Ethanol is exceeded (p(cr) = " + peq::WriteSgl(e.s.PKrit[1]) + " kPa).\n";
  Eingabe("8000");
  e.f.graf_Click(C(Cmd::graf, 2));  // T-x
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, zeile + "Note: The vapour pressure equation is used for T > T(cr)!\n"
                                      "Advice: Add marker T(cr) to have a better orientation");
  EXPECT_TRUE(ok);
  e.ui.boxes.clear();
  e.f.graf_Click(C(Cmd::graf, 3));  // x-y isobaric
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().text, zeile + "Note: The vapour pressure equation is used for T > T(cr)!");
}

TEST_F(Tpx, OneCriticalPressureExceededWithWagnersEquation) {
  Mix(cattest::EthanolWater);
  ASSERT_GT(e.s.ParWAG[1].TLo, 0);
  e.s.P0Eq[1] = "WAG";
  Eingabe("8000");
  e.f.graf_Click(C(Cmd::graf, 2));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text,
            "The critical pressure of Ethanol is exceeded (p(cr) = " + peq::WriteSgl(e.s.PKrit[1]) +
                " kPa).\nThe vapour equation selected is not useable here.\n"
                "the vapour pressure equatiom selected is not useable here\n(Do not use WAGNER's equation here)\n"
                "In this situation you better should use the phi-concept (=> \"Models\").");
  EXPECT_FALSE(ok);
}

TEST_F(Tpx, OneCriticalPressureExceededInThePhiPhiConcept) {
  Mix(cattest::CO2Butane);
  Eingabe("5000");  // above p(cr) of n-butane
  e.f.graf_Click(C(Cmd::graf, 2));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Note");
  EXPECT_EQ(e.ui.Last().text,
            "The critical pressure of n-Butane is exceeded (p(cr) = " + peq::WriteSgl(e.s.PKrit[2]) + " kPa).\n");
  EXPECT_TRUE(ok);
}

// ---------------------------------------------------------------- check 4: the gap

TEST_F(Tpx, ADistillationOfAMixtureWithAGapIsRefused) {
  e.s = curvetest::GapPair();
  Eingabe("101.325");
  e.f.mnuThiele_Click();
  ASSERT_GE(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().text,
            "Distillation calculations are carried out only\nfor homogeneous systems (without a mixing gap).");
  EXPECT_TRUE(w.Abbruch);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmThieleMcCabe));
  EXPECT_EQ(drawn, 0);
}

TEST_F(Tpx, AHomogeneousMixtureGoesOnToTheDistillation) {
  e.s = peqtest::BenzeneToluene();
  Eingabe("101.325");
  e.f.mnuThiele_Click();
  EXPECT_EQ(Boxen(), 0u);
  EXPECT_TRUE(ok);
  EXPECT_EQ(drawn, 1);
}

// ---------------------------------------------------------------- acceptance

TEST_F(Tpx, GoToTheDiagramStoresTheStateAndRunsTheTitleRoutine) {
  Mix(cattest::EthanolWater);
  e.s.TOffsetIn = 273.15;
  e.s.TOffsetOut = 273.15;
  aktion = [this] {
    w.chkRealKurve_Click(true);
    w.txtpT = "70";
    ok = w.cmdOK_Click(e.f);
  };
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_TRUE(ok);
  EXPECT_FALSE(e.s.DiagAbbruch);
  EXPECT_DOUBLE_EQ(e.s.TIso, 343.15);
  EXPECT_EQ(e.s.NoDia, 1);
  EXPECT_EQ(e.s.IsoArt, 1);
  EXPECT_EQ(e.s.RealKurve, -1);
  EXPECT_FALSE(e.s.SofortZeichnen);
  EXPECT_TRUE(e.s.GapAktiv);
  EXPECT_TRUE(w.AufbauOK);
  EXPECT_EQ(w.Aufbau.Texte.Titel, "Isothermal phase diagramm p - x ( L: NRTL, V: ideal gas )");
  EXPECT_EQ(w.Aufbau.KurvenAnzahl, 2);
  EXPECT_EQ(e.s.YMax, 90);
  EXPECT_EQ(drawn, 1);
  EXPECT_EQ(Boxen(), 0u);
}

TEST_F(Tpx, DrawCurveNowSetsTheFlagTheCallerReads) {
  Mix(cattest::EthanolWater);
  Eingabe("70", true);
  e.f.graf_Click(C(Cmd::graf, 1));
  EXPECT_TRUE(ok);
  EXPECT_TRUE(e.s.SofortZeichnen);
  EXPECT_EQ(e.s.RealKurve, 0);
  EXPECT_EQ(e.s.NoDia, 3);
  EXPECT_EQ(drawn, 1);
}

TEST_F(Tpx, CancelLeavesTheSessionAndDrawsNothing) {
  Mix(cattest::EthanolWater);
  e.s.TIso = 298.15;
  e.s.SofortZeichnen = true;
  aktion = [this] {
    w.txtpT = "90";
    w.cmdEsc_Click(e.f);
  };
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_TRUE(w.Abbruch);
  EXPECT_TRUE(e.s.DiagAbbruch);
  EXPECT_DOUBLE_EQ(e.s.TIso, 298.15);
  EXPECT_FALSE(e.s.SofortZeichnen);
  EXPECT_EQ(drawn, 0);
}

TEST_F(Tpx, LnF2F1WithTheIdealModelWarnsAfterTheInputAndStillDraws) {
  Mix(cattest::EthanolWater);
  e.s.GEModel = 0;
  Eingabe("70");
  e.f.graf_Click(C(Cmd::graf, 7));
  ASSERT_EQ(Boxen(), 1u);
  EXPECT_EQ(e.ui.Last().title, "no execution");
  EXPECT_EQ(e.ui.Last().text,
            "for ideal behaviour of mixíng the test of consistency \nof the activity coefficients is not reasonable");
  EXPECT_EQ(e.s.NoDia, 9);
  EXPECT_EQ(drawn, 1);
}

}  // namespace
