// The command table of the main frame and the gating rules of its commands.
#include "windows/commands.h"

#include <gtest/gtest.h>

#include "windows/gating.h"

namespace {

using peq::Cmd;
using peq::CmdId;
using peq::CommandStates;
using peq::GateEvent;

CmdId C(Cmd c, int16_t i = -1) { return CmdId{c, i}; }

struct Row {
  CmdId id;
  const char* caption;
  bool enabled;
};

TEST(CommandTable, CaptionsAndStartValuesOfEveryMenuName) {
  const Row rows[] = {
      {C(Cmd::mnuDaten), " Data...", true},
      {C(Cmd::mnuOpenBank), "Open database / New project", true},
      {C(Cmd::mnuLoadLastSession), "Load last session", true},
      {C(Cmd::mnuLoadProject), "Load a project", true},
      {C(Cmd::mnuSaveProject), "Save actual session as ...", false},
      {C(Cmd::mnuStatus), "Status ...", false},
      {C(Cmd::mnuKompStatus), "Database / Components of the mixture", true},
      {C(Cmd::mnuBatchStatus), "T-p-x data", true},
      {C(Cmd::mnuExpInput), "exp. T-p-x data  New input / Load (*.EX5)", false},
      {C(Cmd::mnuExpEdit), "exp. T-p-x data  View / Edit", false},
      {C(Cmd::mnuEditXY), "XY Editor (Load | Input | Edit X-Y data)", true},
      {C(Cmd::mnuFit), "Fitting of k(ij) or GE-model param. resp. on exp. data", false},
      {C(Cmd::mnuKonsTest), "Consistency test for experimental data", false},
      {C(Cmd::mnuEdit), " View / Edit data for substance ...", false},
      {C(Cmd::mnuOUnif), "Table of the UNIFAC groups", true},
      {C(Cmd::mnuMUnif), "Table of the Mod-UNIFAC groups", true},
      {C(Cmd::mnuExit), "Exit                                               Alt+F4", true},
      {C(Cmd::mnuStoff), "Substances", false},
      {C(Cmd::mnuModell), "Models", false},
      {C(Cmd::mnuGraph2D), "Diagram 2D (binary)...", false},
      {C(Cmd::mnuGraph3D), "Diagram 3D (binary)...", false},
      {C(Cmd::mnuDest), " Distillation...", false},
      {C(Cmd::mnuThiele), "McCabe-Thiele design method (for binary systems) ", false},
      {C(Cmd::mnuBatchDist), "Batch distillation (multicomponent)", true},
      {C(Cmd::mnuCalc), "Calculations...", false},
      {C(Cmd::calc, 1), "T-p-eta(V)-(density) calculation (Flash)", true},
      {C(Cmd::calc, 3), "Activity coefficients, ...", true},
      {C(Cmd::mnuOptions), "Options", false},
      {C(Cmd::mnuWindow), "Windows", true},
      {C(Cmd::mnuAbout), "About this program", true},
      {C(Cmd::mnuIndex), "Help index", true},
      {C(Cmd::mnuTip), "Show tips", true},
  };
  for (const Row& r : rows) {
    const peq::CommandDef* d = peq::FindCommand(r.id);
    ASSERT_NE(d, nullptr) << peq::CmdName(r.id);
    EXPECT_STREQ(d->caption, r.caption) << peq::CmdName(r.id);
    EXPECT_EQ(d->enabledAtStart, r.enabled) << peq::CmdName(r.id);
  }
}

TEST(CommandTable, SubstanceItemsAreStoff1ToStoff10AndHidden) {
  for (int16_t i = 1; i <= 10; ++i) {
    const peq::CommandDef* d = peq::FindCommand(C(Cmd::mnuSubEdit, i));
    ASSERT_NE(d, nullptr);
    EXPECT_EQ(std::string(d->caption), "Stoff" + std::to_string(i));
    EXPECT_FALSE(d->visibleAtStart);
    EXPECT_EQ(d->parent, C(Cmd::mnuEdit));
  }
}

TEST(CommandTable, DiagramNumbersAndFixedQuantities) {
  struct G {
    int16_t index;
    int16_t noDia;
    int16_t isoArt;
    const char* lead;
  };
  const G rows[] = {{0, 1, 1, "p-x diagram"},          {1, 3, 1, "Equilibrium diagram x(V) vs. x(L)"},
                    {2, 4, 2, "T-x diagram"},          {3, 6, 2, "Equilibrium diagram x(V) vs. x(L)"},
                    {4, 7, 3, "Vapour pressure p=Fu(T)"}, {6, 800, 1, "Activity coefficients"},
                    {7, 9, 1, "ln(f2/f1)"},            {9, 100, 1, "Relative volatility"},
                    {10, 500, 1, "K-Values"},          {14, 15, 1, "Enthalpie of mixing"},
                    {15, 16, 1, "Excess entropy T*SE"}, {16, 17, 1, "Excess heat capacity"},
                    {18, 181, 1, "Density rhoL, rhoV vs. x"}, {19, 182, 2, "Density rhoL, rhoV vs. x"},
                    {20, 183, 3, "Density rhoL, rhoV vs. T"}};
  for (const G& g : rows) {
    const peq::CommandDef* d = peq::FindCommand(C(Cmd::graf, g.index));
    ASSERT_NE(d, nullptr) << g.index;
    EXPECT_EQ(d->noDia, g.noDia) << g.index;
    EXPECT_EQ(d->isoArt, g.isoArt) << g.index;
    EXPECT_EQ(std::string(d->caption).rfind(g.lead, 0), 0u) << d->caption;
  }
  for (int16_t sep : {5, 8, 11, 17})
    EXPECT_EQ(peq::FindCommand(C(Cmd::graf, sep))->kind, peq::CmdKind::Separator) << sep;
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf, 12))->kind, peq::CmdKind::Menu);
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf, 13))->kind, peq::CmdKind::Menu);
}

TEST(CommandTable, DerivativeSubmenus) {
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf2, 0))->noDia, 110);
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf1, 0))->noDia, 120);
  for (int16_t i = 2; i <= 7; ++i) {
    EXPECT_EQ(peq::FindCommand(C(Cmd::graf2, i))->noDia, 109 + i);
    EXPECT_EQ(peq::FindCommand(C(Cmd::graf1, i))->noDia, 119 + i);
    EXPECT_EQ(peq::FindCommand(C(Cmd::graf2, i))->visibleAtStart, i < 4);
  }
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf2, 1))->kind, peq::CmdKind::Separator);
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf2, 0))->parent, C(Cmd::graf, 12));
  EXPECT_EQ(peq::FindCommand(C(Cmd::graf1, 0))->parent, C(Cmd::graf, 13));
}

TEST(CommandTable, SurfacesOfThe3DItems) {
  const int16_t want[9] = {0, 1, 2, 3, -1, 4, 5, 6, 7};
  for (int16_t i = 0; i <= 8; ++i) {
    const peq::CommandDef* d = peq::FindCommand(C(Cmd::mnu3DSub, i));
    ASSERT_NE(d, nullptr);
    if (i == 4)
      EXPECT_EQ(d->kind, peq::CmdKind::Separator);
    else
      EXPECT_EQ(d->noDia, want[i]) << i;
  }
}

TEST(CommandTable, ToolbarButtons) {
  EXPECT_STREQ(peq::FindCommand(C(Cmd::Toolbar1, 2))->tip, " New project ");
  EXPECT_STREQ(peq::FindCommand(C(Cmd::Toolbar1, 4))->tip, " Load last session");
  EXPECT_STREQ(peq::FindCommand(C(Cmd::Toolbar1, 6))->tip, " Load an existing project  ");
  EXPECT_STREQ(peq::FindCommand(C(Cmd::Toolbar1, 7))->tip, " Save the actual project ");
  EXPECT_EQ(peq::FindCommand(C(Cmd::Toolbar1, 2))->action, peq::Action::OpenBank);
  EXPECT_EQ(peq::FindCommand(C(Cmd::Toolbar1, 4))->action, peq::Action::LoadLastSession);
  EXPECT_EQ(peq::FindCommand(C(Cmd::Toolbar1, 6))->action, peq::Action::LoadProject);
  EXPECT_EQ(peq::FindCommand(C(Cmd::Toolbar1, 7))->action, peq::Action::SaveProject);
}

TEST(CommandTable, HelpTopicsOfTheMenu) {
  EXPECT_EQ(peq::FindCommand(C(Cmd::mnuAbout))->helpTopic, 33390);
  EXPECT_EQ(peq::FindCommand(C(Cmd::mnuIndex))->helpTopic, 33410);
}

TEST(CommandTable, IdsAreUnique) {
  const auto& t = peq::CommandTable();
  for (std::size_t a = 0; a < t.size(); ++a)
    for (std::size_t b = a + 1; b < t.size(); ++b) EXPECT_FALSE(t[a].id == t[b].id) << peq::CmdName(t[a].id);
}

TEST(IsoArtOf, TheThreeLists) {
  for (int n : {800, 100, 500, 1, 3, 5, 8, 81, 9, 10, 15, 16, 17, 110, 113, 116, 120, 126, 181})
    EXPECT_EQ(peq::IsoArtOf(n), 1) << n;
  for (int n : {4, 6, 11, 51, 82, 83, 182}) EXPECT_EQ(peq::IsoArtOf(n), 2) << n;
  for (int n : {7, 183}) EXPECT_EQ(peq::IsoArtOf(n), 3) << n;
  EXPECT_EQ(peq::IsoArtOf(2), 0);
}

TEST(DiagMitExpOf, SetOnlyForTheDiagramsThatCarryPoints) {
  for (int n : {1, 3, 4, 6, 15, 16, 17, 110, 120}) EXPECT_TRUE(peq::DiagMitExpOf(n)) << n;
  for (int n : {7, 800, 9, 100, 500, 111, 121, 181, 182, 183}) EXPECT_FALSE(peq::DiagMitExpOf(n)) << n;
}

// ---- gating ----

class Gate : public ::testing::Test {
 protected:
  void SetUp() override { peq::Gating(GateEvent::Start, s, c); }
  bool R(Cmd cmd, int16_t i = -1) const { return c.Reachable(C(cmd, i)); }
  bool E(Cmd cmd, int16_t i = -1) const { return c.Enabled(C(cmd, i)); }
  peq::Session s;
  CommandStates c;
};

TEST_F(Gate, StartEnablesOnlyTheFirstStage) {
  for (Cmd on : {Cmd::mnuOpenBank, Cmd::mnuLoadLastSession, Cmd::mnuLoadProject, Cmd::mnuEditXY, Cmd::mnuOUnif,
                 Cmd::mnuMUnif, Cmd::mnuExit, Cmd::mnuHelp, Cmd::mnuWindow})
    EXPECT_TRUE(R(on)) << peq::CmdName(C(on));
  for (Cmd off : {Cmd::mnuSaveProject, Cmd::mnuStatus, Cmd::mnuExpInput, Cmd::mnuExpEdit, Cmd::mnuFit,
                  Cmd::mnuKonsTest, Cmd::mnuEdit, Cmd::mnuStoff, Cmd::mnuModell, Cmd::mnuGraph2D, Cmd::mnuGraph3D,
                  Cmd::mnuDest, Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuKompStatus, Cmd::mnuThiele})
    EXPECT_FALSE(R(off)) << peq::CmdName(C(off));
  EXPECT_FALSE(E(Cmd::Toolbar1, 7));
  for (int16_t i = 4; i <= 7; ++i) {
    EXPECT_FALSE(c.Visible(C(Cmd::graf1, i)));
    EXPECT_FALSE(c.Visible(C(Cmd::graf2, i)));
  }
}

TEST_F(Gate, ACommandUnderADisabledMenuIsNotReachable) {
  EXPECT_TRUE(E(Cmd::calc, 1));
  EXPECT_FALSE(R(Cmd::calc, 1));
}

TEST_F(Gate, BankOpenedEnablesStatusAndSubstancesAndResetsTheModelCommands) {
  c.Enable(C(Cmd::mnuCalc), true);
  c.Enable(C(Cmd::mnuModell), true);
  peq::Gating(GateEvent::BankOpened, s, c);
  EXPECT_TRUE(R(Cmd::mnuStatus));
  EXPECT_TRUE(R(Cmd::mnuStoff));
  EXPECT_TRUE(R(Cmd::mnuKompStatus));
  for (Cmd off : {Cmd::mnuModell, Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuDest})
    EXPECT_FALSE(E(off)) << peq::CmdName(C(off));
}

TEST_F(Gate, MixtureOKSetsItsCommandsToLoadOK) {
  const Cmd set[] = {Cmd::mnuModell, Cmd::mnuStoff, Cmd::mnuExpInput, Cmd::mnuEdit, Cmd::mnuSaveProject};
  s.LoadOK = true;
  peq::Gating(GateEvent::MixtureOK, s, c);
  for (Cmd x : set) EXPECT_TRUE(E(x)) << peq::CmdName(C(x));
  EXPECT_TRUE(E(Cmd::Toolbar1, 7));
  s.LoadOK = false;
  peq::Gating(GateEvent::MixtureOK, s, c);
  for (Cmd x : set) EXPECT_FALSE(E(x)) << peq::CmdName(C(x));
  EXPECT_FALSE(E(Cmd::Toolbar1, 7));
}

TEST_F(Gate, MixtureWithFewerThanTwoDisablesTheLaterStages) {
  for (Cmd x : {Cmd::mnuModell, Cmd::mnuDest, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuCalc, Cmd::mnuOptions,
                Cmd::mnuSaveProject})
    c.Enable(C(x), true);
  c.Enable(C(Cmd::Toolbar1, 7), true);
  peq::Gating(GateEvent::MixtureTooFew, s, c);
  for (Cmd x : {Cmd::mnuModell, Cmd::mnuDest, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuCalc, Cmd::mnuOptions,
                Cmd::mnuSaveProject})
    EXPECT_FALSE(E(x)) << peq::CmdName(C(x));
  EXPECT_FALSE(E(Cmd::Toolbar1, 7));
}

TEST_F(Gate, ModelsAcceptedForABinaryInTheGammaPhiConcept) {
  s.NKomp = 2;
  s.Konzept = false;
  peq::Gating(GateEvent::ModelsAccepted, s, c);
  for (Cmd x : {Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuDest, Cmd::mnuGraph2D, Cmd::mnuGraph3D})
    EXPECT_TRUE(R(x)) << peq::CmdName(C(x));
  EXPECT_TRUE(R(Cmd::mnuThiele));
  EXPECT_TRUE(R(Cmd::mnuBatchDist));
  EXPECT_TRUE(R(Cmd::calc, 3));
  EXPECT_TRUE(R(Cmd::graf, 6));
  EXPECT_TRUE(R(Cmd::graf, 7));
  for (int16_t i = 18; i <= 20; ++i) EXPECT_FALSE(E(Cmd::graf, i));
}

TEST_F(Gate, ModelsAcceptedInThePhiPhiConcept) {
  s.NKomp = 2;
  s.Konzept = true;
  peq::Gating(GateEvent::ModelsAccepted, s, c);
  EXPECT_FALSE(E(Cmd::mnuBatchDist));
  EXPECT_FALSE(E(Cmd::calc, 3));
  EXPECT_FALSE(E(Cmd::graf, 6));
  EXPECT_FALSE(E(Cmd::graf, 7));
  for (int16_t i = 18; i <= 20; ++i) EXPECT_TRUE(R(Cmd::graf, i));
}

TEST_F(Gate, AThreeComponentMixtureLeavesTheBinaryCommandsDisabledButBatchDistillationEnabled) {
  s.NKomp = 3;
  peq::Gating(GateEvent::ModelsAccepted, s, c);
  EXPECT_FALSE(E(Cmd::mnuGraph2D));
  EXPECT_FALSE(E(Cmd::mnuGraph3D));
  EXPECT_FALSE(E(Cmd::mnuThiele));
  EXPECT_TRUE(R(Cmd::mnuBatchDist));
}

TEST_F(Gate, ProjectLoadedJumpsToTheFourthStage) {
  s.NKomp = 2;
  peq::Gating(GateEvent::ProjectLoaded, s, c);
  for (Cmd x : {Cmd::mnuStoff, Cmd::mnuModell, Cmd::mnuStatus, Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuDest,
                Cmd::mnuExpInput, Cmd::mnuEdit, Cmd::mnuSaveProject, Cmd::mnuGraph2D, Cmd::mnuGraph3D,
                Cmd::mnuThiele, Cmd::mnuBatchDist})
    EXPECT_TRUE(R(x)) << peq::CmdName(C(x));
  EXPECT_TRUE(E(Cmd::Toolbar1, 7));
  EXPECT_TRUE(E(Cmd::calc, 3));
  s.NKomp = 4;
  s.Konzept = true;
  peq::Gating(GateEvent::ProjectLoaded, s, c);
  EXPECT_FALSE(E(Cmd::mnuGraph2D));
  EXPECT_FALSE(E(Cmd::mnuBatchDist));
  EXPECT_FALSE(E(Cmd::calc, 3));
}

TEST_F(Gate, FitNeedsABinaryAndMoreThanFourPoints) {
  s.NKomp = 2;
  s.ExpAnz = 4;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_FALSE(E(Cmd::mnuFit));
  EXPECT_FALSE(E(Cmd::mnuKonsTest));
  EXPECT_TRUE(E(Cmd::mnuExpEdit));
  s.ExpAnz = 5;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_TRUE(E(Cmd::mnuFit));
  EXPECT_TRUE(E(Cmd::mnuKonsTest));
  s.NKomp = 3;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_FALSE(E(Cmd::mnuFit));
}

TEST_F(Gate, ExpEditNeedsOnePoint) {
  s.ExpAnz = 0;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_FALSE(E(Cmd::mnuExpEdit));
  s.ExpAnz = 1;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_TRUE(E(Cmd::mnuExpEdit));
}

TEST_F(Gate, ConsistencyTestIsDisabledInThePhiPhiConceptHoweverManyPoints) {
  s.NKomp = 2;
  s.ExpAnz = 500;
  s.Konzept = true;
  peq::Gating(GateEvent::DatenOpened, s, c);
  EXPECT_TRUE(E(Cmd::mnuFit));
  EXPECT_FALSE(E(Cmd::mnuKonsTest));
}

TEST_F(Gate, ActivationShowsTheDerivativesOnlyForParameterModels) {
  for (int16_t g : {-1, 0, 20, 21}) {
    s.GEModel = g;
    peq::Gating(GateEvent::Activated, s, c);
    for (int16_t i = 4; i <= 7; ++i) {
      EXPECT_FALSE(c.Visible(C(Cmd::graf1, i))) << g;
      EXPECT_FALSE(c.Visible(C(Cmd::graf2, i))) << g;
    }
  }
  for (int16_t g : {1, 2, 4, 9, 19}) {
    s.GEModel = g;
    peq::Gating(GateEvent::Activated, s, c);
    for (int16_t i = 4; i <= 7; ++i) {
      EXPECT_TRUE(c.Visible(C(Cmd::graf1, i))) << g;
      EXPECT_TRUE(c.Visible(C(Cmd::graf2, i))) << g;
    }
  }
  for (Cmd x : {Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuDest, Cmd::mnuCalc}) EXPECT_TRUE(c.Visible(C(x)));
}

TEST_F(Gate, ResetModelsDisablesTheCommandsThatNeedAModel) {
  for (Cmd x : {Cmd::mnuModell, Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuDest})
    c.Enable(C(x), true);
  peq::Gating(GateEvent::ResetModels, s, c);
  for (Cmd x : {Cmd::mnuModell, Cmd::mnuCalc, Cmd::mnuOptions, Cmd::mnuGraph2D, Cmd::mnuGraph3D, Cmd::mnuDest})
    EXPECT_FALSE(E(x)) << peq::CmdName(C(x));
}

}  // namespace
