// The main frame: start-up, exit, status boxes, the database dialog, the projects, the commands
// with preconditions and the toolbar.
#include "windows/shell.h"

#include <fstream>

#include <gtest/gtest.h>

#include "session/project.h"
#include "windows/frame_fixture.h"

namespace {

using peq::Cmd;
using peq::MsgIcon;
using peq::WindowId;
using peqtest::C;
using peqtest::FrameEnv;
namespace fs = std::filesystem;

bool Contains(const std::vector<WindowId>& v, WindowId id) {
  for (WindowId w : v)
    if (w == id) return true;
  return false;
}

// ---- start-up ----

TEST(Startup, RunsTheTenStepsInOrder) {
  FrameEnv e;
  e.Start();
  EXPECT_EQ(e.f.StartSteps, (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(Startup, GivesTheSessionItsDefaults) {
  FrameEnv e;
  e.s.TIso = 400;
  e.s.KurvenPunkte = 100;
  e.s.EOSModel = 6;
  e.Start();
  const peq::Session& s = e.s;
  EXPECT_EQ(s.Komp1, 1);
  EXPECT_EQ(s.Komp2, 2);
  EXPECT_EQ(s.NKomp, 0);
  EXPECT_EQ(s.IsoArt, 1);
  EXPECT_EQ(s.VapModel, 0);
  EXPECT_EQ(s.ParUnitKij, 2);
  EXPECT_EQ(s.ParUnitWilson, 2);
  EXPECT_EQ(s.ParUnitNRTL, 0);
  EXPECT_EQ(s.ParUnitUNIQUAC, 0);
  EXPECT_EQ(s.EOSModel, 4);
  EXPECT_EQ(s.MixRule, 2);
  EXPECT_EQ(s.GEModelEOS, 2);
  EXPECT_EQ(s.TIso, 298.15);
  EXPECT_EQ(s.TCalc, 298.15);
  EXPECT_EQ(s.PCalc, 101.325);
  EXPECT_EQ(s.EtaVCalc, 0);
  EXPECT_EQ(s.KurvenPunkte, 600);
  EXPECT_EQ(s.ListTrenner, ";");
  EXPECT_FALSE(s.Konzept);
  EXPECT_EQ(s.GEPar.size(), 3u);  // arrays for two components
  EXPECT_EQ(e.f.LastSessionFile, "PEQLASTSESSION2.PQC");
  EXPECT_FALSE(e.f.Picture1Visible);
  const std::string dir = (fs::path(e.dir.path()) / "").string();
  EXPECT_EQ(s.PfadBank, dir);
  EXPECT_EQ(s.PfadProjekt, dir);
  EXPECT_EQ(s.PfadXY, dir);
  EXPECT_EQ(s.PfadOC2, dir);
  EXPECT_EQ(s.PfadOC3, dir);
  EXPECT_TRUE(Contains(e.ui.shown, WindowId::frmPhantom));
  EXPECT_EQ(fs::path(s.ProtokollDatei).parent_path(), fs::path(e.dir.path()));
}

TEST(Startup, DetectsTheDecimalComma) {
  FrameEnv a;
  a.ui.numberText = "0,75";
  a.Start();
  EXPECT_TRUE(a.s.DezKomma);
  FrameEnv b;
  b.ui.numberText = "0.75";
  b.Start();
  EXPECT_FALSE(b.s.DezKomma);
}

TEST(Startup, WithNoFileBesideTheProgramTheParameterFileNamesStayEmpty) {
  FrameEnv e;
  e.Start();
  EXPECT_EQ(e.s.ModUnifFile, "");
  EXPECT_EQ(e.s.OUnifFile, "");
  EXPECT_TRUE(e.Reachable(Cmd::mnuOpenBank));
}

TEST(Startup, TakesTheLastParameterFileFound) {
  FrameEnv e;
  peqtest::WriteBytes(e.dir.path(), "MODUNIF4.PAR", "0\r\n0\r\n");
  peqtest::WriteBytes(e.dir.path(), "MODUNIF4B.PAR", "0\r\n0\r\n");
  e.Start();
  EXPECT_EQ(fs::path(e.s.ModUnifFile).filename(), "MODUNIF4B.PAR");
}

TEST(Startup, ShowsTheTipWindowUnlessTheTipsAreOff) {
  FrameEnv on;
  on.CopyData({"PEQTIPS_E.TXT"});
  on.f.Startup();  // the setting is not there: tips shown
  EXPECT_TRUE(on.f.IsLoaded(WindowId::frmTip));
  EXPECT_FALSE(on.f.Tip.lblTipText.empty());

  FrameEnv off;
  off.CopyData({"PEQTIPS_E.TXT"});
  off.Start();
  EXPECT_FALSE(off.f.IsLoaded(WindowId::frmTip));
  EXPECT_TRUE(off.f.Tip.TipsAus);
}

TEST(Startup, CommandsOfTheFirstStage) {
  FrameEnv e;
  e.Start();
  EXPECT_TRUE(e.Reachable(Cmd::mnuLoadProject));
  EXPECT_FALSE(e.Reachable(Cmd::mnuSaveProject));
  EXPECT_FALSE(e.Enabled(Cmd::Toolbar1, 7));
  EXPECT_FALSE(e.Reachable(Cmd::mnuEdit));
  EXPECT_GT(e.ui.commandsChanged, 0);
}

// ---- small routines ----

TEST(FensterKurztitel, ShortTextsStay) { EXPECT_EQ(peq::FensterKurztitel("C:\\PEQ\\A.Q07", 30), "C:\\PEQ\\A.Q07"); }

TEST(FensterKurztitel, LongPathsKeepHeadAndTail) {
  // length 35, maxLength 20: the first backslash at or after place 35 - 20 + 6 = 21 is at 28.
  const std::string t = "C:\\Programme\\Daten\\Projekte\\ABC.Q07";
  ASSERT_EQ(t.size(), 35u);
  EXPECT_EQ(peq::FensterKurztitel(t, 20), "C:\\...\\ABC.Q07");
  // maxLength 30: from place 11 the first backslash is at 13.
  EXPECT_EQ(peq::FensterKurztitel(t, 30), "C:\\...\\Daten\\Projekte\\ABC.Q07");
  EXPECT_EQ(peq::FensterKurztitel("/home/user/some/deep/dir/file.PQC", 20), "/ho.../dir/file.PQC");
}

TEST(NeueProtokollDatei, DateThenCounter) {
  peqtest::TempDir dir;
  std::tm d{};
  d.tm_year = 124;  // 2024
  d.tm_mon = 2;     // March
  d.tm_mday = 7;
  EXPECT_EQ(fs::path(peq::NeueProtokollDatei(dir.path(), d)).filename(), "24030701.CSV");
  peqtest::WriteBytes(dir.path(), "24030701.CSV", "");
  peqtest::WriteBytes(dir.path(), "24030702.CSV", "");
  EXPECT_EQ(fs::path(peq::NeueProtokollDatei(dir.path(), d)).filename(), "24030703.CSV");
  for (int n = 3; n <= 10; ++n) peqtest::WriteBytes(dir.path(), "240307" + std::string(n < 10 ? "0" : "") + std::to_string(n) + ".CSV", "");
  EXPECT_EQ(fs::path(peq::NeueProtokollDatei(dir.path(), d)).filename(), "24030711.CSV");
}

TEST(HelpPage, ByTopicOrTheNotYetWrittenPage) {
  peqtest::TempDir dir;
  peqtest::WriteBytes(dir.path(), "40000.html", "<p>x</p>");
  EXPECT_EQ(peq::HelpPage(dir.path(), 40000).filename(), "40000.html");
  EXPECT_EQ(peq::HelpPage(dir.path(), 12), fs::path(dir.path()) / "notyet.html");
}

TEST(HelpPages, TheBundledPagesExistForTheTopicsOfThisVersion) {
  const fs::path help = fs::path(peqtest::SourceDir()) / "data" / "help";
  for (int topic : {33390, 33410, 40000, 9876, 9977, 32774, 31120, 32800, 12345, 21252})
    EXPECT_TRUE(fs::exists(help / (std::to_string(topic) + ".html"))) << topic;
  EXPECT_TRUE(fs::exists(help / "notyet.html"));
}

// ---- status boxes ----

TEST(KompStatus, NoDatabase) {
  peq::Session s;
  EXPECT_EQ(peq::KompStatusText(s), "...not yet a database");
}

TEST(KompStatus, DatabaseWithoutComponents) {
  peq::Session s;
  s.BankOffen = true;
  s.BankDatei = "PEQBASE.Q07";
  s.BankAnz = 156;
  EXPECT_EQ(peq::KompStatusText(s),
            "database PEQBASE.Q07\ncontaining 156 substances\n\n not yet selected the components of the mixture"
            "\n\n(for more parameters of the project see under \"Options\")");
}

TEST(KompStatus, OneLinePerComponent) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  const std::string t = peq::KompStatusText(e.s);
  const int nrE = e.s.BankNr[static_cast<std::size_t>(e.s.KompIdx[1])];
  const std::string line1 = "1.   " + peq::FixedField("C2H6O", 12) + peq::FixedField("64-17-5", 12) + "Ethanol (#" +
                            std::to_string(nrE) + ")";
  EXPECT_NE(t.find("components of the mixture:\n" + line1 + "\n2.   "), std::string::npos) << t;
  EXPECT_EQ(t.rfind("database PEQBASE.Q07\ncontaining 156 substances\n\n", 0), 0u);
}

TEST(BatchStatus, TheThreeTexts) {
  peq::Session s;
  EXPECT_EQ(peq::BatchStatusText(s), "...not yet loaded");
  s.ExpAnz = 12;
  s.ExpUngespeichert = true;
  EXPECT_EQ(peq::BatchStatusText(s), "12 sets of data available, \nbut not yet saved");
  s.ExpUngespeichert = false;
  s.ExpDatei = "C:\\DATA\\EW.EX5";
  EXPECT_EQ(peq::BatchStatusText(s), "File C:\\DATA\\EW.EX5\ncontaining 12 sets of data");
}

TEST(StatusBoxes, ShownUnderTheInformationIcon) {
  FrameEnv e;
  e.Start();
  e.OpenBank();
  e.ui.boxes.clear();
  e.f.Run(C(Cmd::mnuKompStatus));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, " loaded now ...");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Information);
  e.f.Run(C(Cmd::mnuBatchStatus));
  EXPECT_EQ(e.ui.Last().title, "Experimental data");
  EXPECT_EQ(e.ui.Last().text, "...not yet loaded");
}

// ---- database dialog ----

TEST(SelectAndLoadBank, TheDialog) {
  FrameEnv e;
  e.Start();
  bool cancel = false;
  e.f.SelectAndLoadBank(cancel);
  EXPECT_TRUE(cancel);
  ASSERT_EQ(e.ui.fileDialogs.size(), 1u);
  const peq::FileDialogRequest& d = e.ui.fileDialogs[0];
  EXPECT_FALSE(d.save);
  EXPECT_EQ(d.title, "Select and load database");
  EXPECT_EQ(d.filter, "Database (*.Q07)|*.Q07");
  EXPECT_EQ(d.defaultExt, "*.Q07");
  EXPECT_EQ(d.flags, 530444u);
  EXPECT_EQ(d.initialDir, e.s.PfadBank);
  EXPECT_FALSE(e.s.BankOffen);
}

TEST(SelectAndLoadBank, NotFoundWithNoDatabaseOpen) {
  FrameEnv e;
  e.Start();
  e.ui.files.push_back({false, e.dir.File("NONE.Q07"), "NONE.Q07"});
  bool cancel = false;
  e.f.SelectAndLoadBank(cancel);
  EXPECT_TRUE(cancel);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "data baseNONE.Q07 nor found or empty");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
}

TEST(SelectAndLoadBank, EmptyWithADatabaseOpen) {
  FrameEnv e;
  e.Start();
  e.OpenBank();
  peqtest::WriteBank(e.dir.path(), "EMPTY.Q07", {});
  e.ui.files.push_back({false, e.dir.File("EMPTY.Q07"), "EMPTY.Q07"});
  bool cancel = false;
  e.f.SelectAndLoadBank(cancel);
  EXPECT_TRUE(cancel);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, "database EMPTY.Q07 not found or empty resp.\nDatabase already loaded PEQBASE.Q07 is still activ.");
  EXPECT_EQ(e.s.BankDatei, "PEQBASE.Q07");
}

TEST(SelectAndLoadBank, SuccessTakesDirectoryAndName) {
  FrameEnv e;
  e.Start();
  peqtest::TempDir other;
  const std::string bank = peqtest::WriteBank(other.path(), "MINI.Q07", {peqtest::BundledRecord("7732-18-5")});
  e.ui.files.push_back({false, bank, "MINI.Q07"});
  bool cancel = true;
  e.f.SelectAndLoadBank(cancel);
  EXPECT_FALSE(cancel);
  EXPECT_EQ(e.s.BankDatei, "MINI.Q07");
  EXPECT_EQ(e.s.PfadBank, other.path() + "/");
  EXPECT_EQ(e.s.BankAnz, 1);
}

TEST(OpenBank, OpensTheSubstanceWindowAtOnceAndMovesToTheSecondStage) {
  FrameEnv e;
  e.Start();
  e.OpenBank();
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmStoffwahl));
  EXPECT_TRUE(e.Reachable(Cmd::mnuStoff));
  EXPECT_TRUE(e.Reachable(Cmd::mnuStatus));
  EXPECT_FALSE(e.Reachable(Cmd::mnuModell));
  EXPECT_EQ(e.s.NKomp, 0);
  EXPECT_EQ(e.s.GEModel, -1);
}

TEST(OpenBank, ANewDatabaseFallsBackToTheSecondStage) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.f.VModell.cmdOKModell(e.f);
  EXPECT_TRUE(e.Reachable(Cmd::mnuCalc));
  e.OpenBank();
  EXPECT_FALSE(e.Reachable(Cmd::mnuCalc));
  EXPECT_FALSE(e.Reachable(Cmd::mnuModell));
  EXPECT_EQ(e.s.NKomp, 0);
  EXPECT_EQ(e.s.GEModel, -1);
}

TEST(UpdateKomponentenMenue, NamesForTheComponentsOthersHidden) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  EXPECT_EQ(e.f.cmds.Caption(C(Cmd::mnuSubEdit, 1)), "Ethanol");
  EXPECT_EQ(e.f.cmds.Caption(C(Cmd::mnuSubEdit, 2)), "Water");
  EXPECT_TRUE(e.f.cmds.Visible(C(Cmd::mnuSubEdit, 2)));
  for (int16_t i = 3; i <= 10; ++i) EXPECT_FALSE(e.f.cmds.Visible(C(Cmd::mnuSubEdit, i)));
}

TEST(UpdateKomponentenMenue, DoesNothingWithoutComponents) {
  FrameEnv e;
  e.Start();
  e.f.cmds.Show(C(Cmd::mnuSubEdit, 1), true);
  e.f.UpdateKomponentenMenue();
  EXPECT_TRUE(e.f.cmds.Visible(C(Cmd::mnuSubEdit, 1)));
}

// ---- commands with preconditions ----

TEST(ExpInput, OnlyForATwoSubstanceMixture) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5", "67-56-1"});
  e.ui.boxes.clear();
  e.f.Run(C(Cmd::mnuExpInput));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes[0].title, "Execution not possible");
  EXPECT_EQ(e.ui.boxes[0].text, "Possible only for a two-substance mixture.");
  EXPECT_EQ(e.ui.boxes[0].icon, MsgIcon::Stop);
}

TEST(ExpInput, ForABinaryClearsThePointsAndOpensTheWindow) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.s.ExpAnz = 7;
  e.f.Run(C(Cmd::mnuExpInput));
  EXPECT_EQ(e.s.ExpAnz, 0);
  EXPECT_TRUE(e.s.ExpUngespeichert);
  EXPECT_TRUE(e.f.NeuEingabe);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmTpxEdit));
}

TEST(ExpEdit, TitleIsTheFileNameBehindTheFirstBackslash) {
  FrameEnv e;
  e.Start();
  e.s.ExpAnz = 3;
  e.s.ExpDatei = "C:\\DATA\\EW.EX5";
  e.f.mnuExpEdit_Click();
  EXPECT_EQ(e.f.TpxEditTitel, "DATA\\EW.EX5 Edit data ");
  EXPECT_FALSE(e.f.NeuEingabe);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmTpxEdit));
}

TEST(KonsTest, NeedsBothPhases) {
  FrameEnv e;
  e.Start();
  e.s.KonsTestAktiv = true;
  e.f.ExpSummen = [](double& l, double& v) {
    l = 2.5;
    v = 0;
  };
  e.f.mnuKonsTest_Click();
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text,
            "To carry out a consistency test composition of\nboth liquid and vapour phase must be given. ");
  EXPECT_FALSE(e.s.KonsTestAktiv);
}

TEST(KonsTest, SetsRedlichKisterAndOpensTheFittingWindow) {
  FrameEnv e;
  e.Start();
  e.f.ExpSummen = [](double& l, double& v) {
    l = 2.5;
    v = 2.0;
  };
  e.s.GEModel = 2;
  e.f.mnuKonsTest_Click();
  EXPECT_TRUE(e.s.KonsTestAktiv);
  EXPECT_EQ(e.s.GEModel, 4);
  EXPECT_TRUE(Contains(e.ui.modal, WindowId::frmFitting));
}

TEST(BatchDist, RedlichKisterIsRefused) {
  FrameEnv e;
  e.Start();
  e.s.GEModel = 4;
  e.f.mnuBatchDist_Click();
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text,
            "For the batch distillation the activity-coefficient model\nREDLICH-KISTER is not implemented.\n"
            "Select an other model in the window \"Models\".");
  EXPECT_FALSE(Contains(e.ui.modal, WindowId::frmTpxInput));
}

TEST(BatchDist, SizesTheRecordRow) {
  FrameEnv e;
  e.Start();
  e.s.GEModel = 2;
  e.s.NKomp = 3;
  e.s.NFrak = 4;
  e.ui.modalHandlers[WindowId::frmTpxInput] = [] { return true; };
  e.f.mnuBatchDist_Click();
  EXPECT_EQ(e.s.IsoArt, 2);
  EXPECT_TRUE(e.f.DestillAktiv);
  EXPECT_EQ(e.s.ProtokollZeile.size(), static_cast<std::size_t>((5 + 3) * 4 + 3 + 2 + 1));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmBatchDist));
}

TEST(Thiele, DiagramSixIsobaric) {
  FrameEnv e;
  e.Start();
  e.s.NKomp = 2;
  e.f.mnuThiele_Click();
  EXPECT_EQ(e.s.NoDia, 6);
  EXPECT_EQ(e.s.IsoArt, 2);
  EXPECT_EQ(e.s.ProtokollZeile.size(), static_cast<std::size_t>(3 * 2 + 4 + 1));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmThieleMcCabe));  // the T/p input was cancelled
}

TEST(Calc, KindsAndRecordRows) {
  FrameEnv e;
  e.Start();
  e.s.NKomp = 3;
  e.f.calc_Click(1);
  EXPECT_EQ(e.s.Rechenart, 1);
  EXPECT_EQ(e.s.ProtokollZeile.size(), static_cast<std::size_t>(7 * 3 + 9 + 1));
  e.f.calc_Click(3);
  EXPECT_EQ(e.s.Rechenart, 2);
  EXPECT_EQ(e.s.ProtokollZeile.size(), static_cast<std::size_t>(3 * 3 + 4 + 1));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_FALSE(e.f.DestillAktiv);
}

TEST(Graf, SetsDiagramNumberFixedQuantityAndExperimentalFlag) {
  FrameEnv e;
  e.Start();
  int drawn = 0;
  e.f.DiagrammRechnen = [&drawn] { ++drawn; };
  e.ui.modalHandlers[WindowId::frmTpxInput] = [] { return true; };
  e.f.graf_Click(C(Cmd::graf, 2));
  EXPECT_EQ(e.s.NoDia, 4);
  EXPECT_EQ(e.s.IsoArt, 2);
  EXPECT_TRUE(e.s.DiagMitExp);
  EXPECT_FALSE(e.s.DiagAbbruch);
  e.f.graf_Click(C(Cmd::graf2, 3));
  EXPECT_EQ(e.s.NoDia, 112);
  EXPECT_EQ(e.s.IsoArt, 1);
  EXPECT_FALSE(e.s.DiagMitExp);
  e.f.graf_Click(C(Cmd::graf1, 0));
  EXPECT_EQ(e.s.NoDia, 120);
  EXPECT_TRUE(e.s.DiagMitExp);
  EXPECT_EQ(drawn, 3);
}

TEST(Graf, TheSubmenuParentsDoNothing) {
  FrameEnv e;
  e.Start();
  e.s.NoDia = 5;
  e.f.graf_Click(C(Cmd::graf, 12));
  e.f.graf_Click(C(Cmd::graf, 13));
  EXPECT_EQ(e.s.NoDia, 5);
  EXPECT_TRUE(e.ui.modal.empty());
}

TEST(Graf, ACancelledInputMarksTheDiagramCancelled) {
  FrameEnv e;
  e.Start();
  int drawn = 0;
  e.f.DiagrammRechnen = [&drawn] { ++drawn; };
  e.f.graf_Click(C(Cmd::graf, 0));
  EXPECT_TRUE(e.s.DiagAbbruch);
  EXPECT_EQ(drawn, 0);
}

TEST(Graf, LnF2F1WithTheIdealModelWarnsAndThenStillDraws) {
  FrameEnv e;
  e.Start();
  e.s.GEModel = 0;
  int drawn = 0;
  e.f.DiagrammRechnen = [&drawn] { ++drawn; };
  e.ui.modalHandlers[WindowId::frmTpxInput] = [] { return true; };
  e.f.graf_Click(C(Cmd::graf, 7));
  EXPECT_EQ(e.ui.Last().title, "no execution");
  EXPECT_EQ(e.ui.Last().text,
            "for ideal behaviour of mixíng the test of consistency \nof the activity coefficients is not reasonable");
  EXPECT_EQ(drawn, 1);
}

TEST(Surface3D, SetsTheSurfaceNumber) {
  FrameEnv e;
  e.Start();
  e.f.mnu3DSub_Click(6);
  EXPECT_EQ(e.s.NoDia3, 5);
  e.f.mnu3DSub_Click(2);
  EXPECT_EQ(e.s.NoDia3, 2);
}

TEST(MissingWindows, AreReportedAsNotYetThere) {
  FrameEnv e;
  e.Start();
  e.ui.notProvided.insert(WindowId::frmXYEdit);
  e.f.Run(C(Cmd::mnuEditXY));
  EXPECT_EQ(e.ui.Last().title, "Note");
  EXPECT_EQ(e.ui.Last().text, "The XY editor is not yet part of this version of the program.");
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmXYEdit));
}

TEST(Run, ADisabledCommandDoesNothing) {
  FrameEnv e;
  e.Start();
  e.f.Run(C(Cmd::mnuStoff));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmStoffwahl));
  e.f.Run(C(Cmd::Toolbar1, 7));
  EXPECT_TRUE(e.ui.fileDialogs.empty());
}

TEST(Run, HelpTopicsAndInfo) {
  FrameEnv e;
  e.Start();
  e.f.Run(C(Cmd::mnuAbout));
  e.f.Run(C(Cmd::mnuIndex));
  EXPECT_EQ(e.ui.helpTopics, (std::vector<int>{33390, 33410}));
  e.f.Run(C(Cmd::mnuInfo));
  EXPECT_EQ(e.ui.Last().title, "Information");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Information);
}

TEST(Run, MenuCommandsUnloadTheTipWindowFirst) {
  FrameEnv e;
  e.CopyData({"PEQTIPS_E.TXT"});
  e.f.Startup();
  ASSERT_TRUE(e.f.IsLoaded(WindowId::frmTip));
  e.f.Run(C(Cmd::mnuKompStatus));  // disabled: nothing happens
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmTip));
  e.f.Run(C(Cmd::mnuAbout));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmTip));
}

TEST(Run, DatenMenuRecomputesFit) {
  FrameEnv e;
  e.Start();
  e.s.NKomp = 2;
  e.s.ExpAnz = 5;
  e.f.Run(C(Cmd::mnuDaten));
  EXPECT_TRUE(e.Enabled(Cmd::mnuFit));
  e.s.ExpAnz = 4;
  e.f.Run(C(Cmd::mnuDaten));
  EXPECT_FALSE(e.Enabled(Cmd::mnuFit));
}

TEST(Toolbar, UnloadsTheCalculationWindowsAndTheTipBeforeItsCommand) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  ASSERT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
  e.f.Show(WindowId::frmCalcInput);
  e.f.Show(WindowId::frmTip);
  e.ui.unloaded.clear();
  e.f.ToolbarClick(6);  // load a project: the dialog is cancelled
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcInput));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmTip));
  ASSERT_GE(e.ui.unloaded.size(), 3u);
  EXPECT_EQ(e.ui.unloaded.back(), WindowId::frmTip);
  EXPECT_TRUE(Contains(e.ui.modal, WindowId::frmCmnDlg));
}

TEST(FirstSteps, PanelToggleAndHide) {
  FrameEnv e;
  e.Start();
  EXPECT_FALSE(e.f.Picture1Visible);
  e.f.cmdErstnutzer_Click();
  EXPECT_TRUE(e.f.Picture1Visible);
  e.f.Label1_Click(3);
  EXPECT_FALSE(e.f.Picture1Visible);
  e.f.cmdErstnutzer_Click();
  e.f.Picture1_Click();
  EXPECT_FALSE(e.f.Picture1Visible);
  EXPECT_EQ(peq::mdiPEQ::Picture1Breite(12000), 11800);
  EXPECT_STREQ(peq::kErstnutzerCaption, "First Steps    (on/off)  ");
}

// ---- exit ----

TEST(Exit, WithNoDatabaseWritesNoLastSession) {
  FrameEnv e;
  e.Start();
  e.f.Exit();
  EXPECT_FALSE(fs::exists(e.dir.File("PEQLASTSESSION2.PQC")));
  EXPECT_TRUE(e.ui.quit);
  EXPECT_EQ(e.ui.helpClosed, 1);
}

TEST(Exit, WritesTheLastSessionEvenWithoutAnyChange) {
  FrameEnv e;
  e.Start();
  e.OpenBank();
  e.f.Exit();
  EXPECT_TRUE(fs::exists(e.dir.File("PEQLASTSESSION2.PQC")));
  EXPECT_TRUE(e.ui.inputPrompts.empty());  // no comment asked
}

TEST(Exit, DeletesAnEmptyRecordFileAndKeepsAFullOne) {
  FrameEnv e;
  e.Start();
  peqtest::WriteBytes(e.dir.path(), fs::path(e.s.ProtokollDatei).filename().string(), "");
  e.f.Exit();
  EXPECT_FALSE(fs::exists(e.s.ProtokollDatei));
  FrameEnv g;
  g.Start();
  peqtest::WriteBytes(g.dir.path(), fs::path(g.s.ProtokollDatei).filename().string(), "x");
  g.f.Exit();
  EXPECT_TRUE(fs::exists(g.s.ProtokollDatei));
}

TEST(Exit, WritesTheRecordWhenItIsKept) {
  FrameEnv e;
  e.Start();
  int written = 0;
  e.f.ProtokollSchreiben = [&written] { ++written; };
  e.f.Exit();
  EXPECT_EQ(written, 0);
  e.s.ProtokollAktiv = true;
  e.f.Exit();
  EXPECT_EQ(written, 1);
}

// ---- projects ----

TEST(SaveProject, TheDialogAndTheCommentBox) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.s.ProjektKommentar = "old comment";
  e.ui.files.push_back({false, e.dir.File("EW.PQC"), "EW.PQC"});
  e.ui.inputs.push_back(std::string("ethanol and water"));
  e.f.Run(C(Cmd::mnuSaveProject));
  ASSERT_EQ(e.ui.fileDialogs.size(), 2u);
  const peq::FileDialogRequest& d = e.ui.fileDialogs[1];
  EXPECT_TRUE(d.save);
  EXPECT_EQ(d.title, "Save actual session as ...");
  EXPECT_EQ(d.filter, "PEQ Project file (*.PQC)|*.PQC");
  EXPECT_EQ(d.defaultExt, ".PQC");
  EXPECT_EQ(d.flags, 2623494u);
  ASSERT_EQ(e.ui.inputPrompts.size(), 1u);
  EXPECT_EQ(e.ui.inputPrompts[0].first, " File comment (optional) ");
  EXPECT_EQ(e.ui.inputPrompts[0].second, "Input of comment\n<Cancel> = no comment");
  EXPECT_EQ(e.ui.inputDefaults[0], "old comment");
  EXPECT_EQ(e.s.ProjektKommentar, "ethanol and water");
  EXPECT_TRUE(fs::exists(e.dir.File("EW.PQC")));
  EXPECT_EQ(e.s.ProjektDatei, e.dir.File("EW.PQC"));
}

TEST(SaveProject, ACancelledDialogWritesNothing) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.f.Run(C(Cmd::mnuSaveProject));
  EXPECT_TRUE(e.ui.inputPrompts.empty());
  EXPECT_FALSE(fs::exists(e.dir.File("EW.PQC")));
}

TEST(SaveProject, ACancelledCommentIsNoComment) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.s.ProjektKommentar = "old";
  e.ui.files.push_back({false, e.dir.File("EW.PQC"), "EW.PQC"});
  e.f.Run(C(Cmd::mnuSaveProject));
  EXPECT_EQ(e.s.ProjektKommentar, "");
}

TEST(SaveProject, TheLastSessionNameAsksNoComment) {
  FrameEnv e;
  e.Start();
  e.Mixture({"64-17-5", "7732-18-5"});
  EXPECT_TRUE(e.f.ProjektSpeichern(e.dir.File("peqlastsession2.pqc")));
  EXPECT_TRUE(e.ui.inputPrompts.empty());
}

// The walk of a newcomer: database, ethanol and water by name, NRTL with parameters, save,
// quit, start again, load the last session.
TEST(LastSession, RestartRestoresModelsAndParameters) {
  peqtest::TempDir prog;
  std::string bank;
  {
    peq::Session s;
    peq::ScriptedUi ui;
    ui.settings["Options/Show Tips at Startup"] = "0";
    peq::mdiPEQ f(s, ui, prog.path());
    f.Startup();
    fs::copy_file(fs::path(peqtest::SourceDir()) / "data" / "PEQBASE.Q07", fs::path(prog.path()) / "PEQBASE.Q07");
    fs::copy_file(fs::path(peqtest::SourceDir()) / "data" / "SYNOM.TXT", fs::path(prog.path()) / "SYNOM.TXT");
    ui.files.push_back({false, prog.File("PEQBASE.Q07"), "PEQBASE.Q07"});
    f.Run(C(Cmd::mnuOpenBank));
    for (const char* name : {"ethyl alcohol", "water"}) {
      f.Stoffwahl.NameCombo = name;
      f.Stoffwahl.NameCombo_Return(f);
      f.Stoffwahl.cmdRightOne(f);
    }
    f.Stoffwahl.GemischOK(f);
    ASSERT_TRUE(f.IsLoaded(WindowId::frmVModell));
    // NRTL
    int nrtl = -1;
    for (std::size_t k = 0; k < f.VModell.GEKombiTexte.size(); ++k)
      if (f.VModell.GEKombiTexte[k] == "NRTL") nrtl = static_cast<int>(k);
    ASSERT_GE(nrtl, 0);
    f.VModell.GEKombi_Click(f, nrtl);
    f.VModell.GEParButton_Click(f);
    f.GEInput.opt_parEinheit_Click(f, 0);
    f.GEInput.txt_Change(f, 0, 0, "-517.9");
    f.GEInput.txt_Change(f, 1, 0, "5068.2");
    f.GEInput.txt_Change(f, 2, 0, "0.3031");
    EXPECT_TRUE(f.GEInput.OK_GE(f));
    f.VModell.cmdOKModell(f);
    EXPECT_FALSE(f.IsLoaded(WindowId::frmVModell));
    EXPECT_TRUE(f.cmds.Reachable(C(Cmd::mnuCalc)));
    f.Run(C(Cmd::mnuExit));
    EXPECT_TRUE(ui.quit);
  }
  ASSERT_TRUE(fs::exists(prog.File("PEQLASTSESSION2.PQC")));
  peq::Session s;
  peq::ScriptedUi ui;
  ui.settings["Options/Show Tips at Startup"] = "0";
  peq::mdiPEQ f(s, ui, prog.path());
  f.Startup();
  f.Run(C(Cmd::mnuLoadLastSession));
  EXPECT_EQ(s.NKomp, 2);
  EXPECT_EQ(s.GEModel, 2);
  EXPECT_EQ(s.ParUnitNRTL, 0);
  EXPECT_EQ(peq::ParSlot(s, 1, 1, 2), -517.9);
  EXPECT_EQ(peq::ParSlot(s, 4, 1, 2), 5068.2);
  EXPECT_EQ(peq::ParSlot(s, 7, 1, 2), 0.3031);
  EXPECT_EQ(peq::Trim(s.StoffData[1].Name), "Ethanol");
  EXPECT_TRUE(f.IsLoaded(WindowId::frmVModell));
  EXPECT_EQ(f.VModell.GEKombiTexte[static_cast<std::size_t>(f.VModell.GEKombiIndex)], "NRTL");
  EXPECT_EQ(ui.Last().title, " loaded now ...");
  EXPECT_TRUE(f.cmds.Reachable(C(Cmd::mnuCalc)));
  EXPECT_TRUE(f.cmds.Reachable(C(Cmd::mnuSaveProject)));
  EXPECT_TRUE(f.cmds.Visible(C(Cmd::mnuSubEdit, 1)));
}

TEST(LastSession, AMissingFileShowsTheErrorAndEnablesNothing) {
  FrameEnv e;
  e.Start();
  e.f.Run(C(Cmd::mnuLoadLastSession));
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_FALSE(e.Reachable(Cmd::mnuCalc));
}

class LoadProject : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5"});
    e.f.VModell.cmdOKModell(e.f);
    e.ui.boxes.clear();
  }
  // Chooses this file in the dialog.
  void Choose(const std::string& name) {
    e.ui.modalHandlers[WindowId::frmCmnDlg] = [this, name] {
      e.f.CmnDlg.txtOpenFile_Change(name);
      return e.f.CmnDlg.cmdOpenOK(e.f);
    };
  }
  FrameEnv e;
};

TEST_F(LoadProject, TheDialogInProjectMode) {
  e.f.Run(C(Cmd::mnuLoadProject));
  EXPECT_EQ(e.f.CmnDlg.Caption, "Load a project");
  EXPECT_EQ(e.f.CmnDlg.Muster, "*.PQC");
  EXPECT_TRUE(e.f.CmnDlg.ProjektModus);
}

TEST_F(LoadProject, AProjectOfAMissingDatabase) {
  // Written against a database that is then removed; another database is open.
  peqtest::TempDir other;
  const std::string bank = peqtest::WriteBank(other.path(), "GONE.Q07",
                                              {peqtest::BundledRecord("64-17-5"), peqtest::BundledRecord("7732-18-5")});
  peq::Session w;
  ASSERT_TRUE(peqtest::LoadMixture(w, bank, {"64-17-5", "7732-18-5"}));
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(w, e.dir.File("GONE.PQC"), "", err)) << err;
  Choose("GONE.PQC");
  e.f.Run(C(Cmd::mnuLoadProject));
  EXPECT_TRUE(e.Shown("Note",
                      "Database of the project GONE.Q07 not found or empty resp.\nThe actual database PEQBASE.Q07 is "
                      "still activ."));
}

TEST_F(LoadProject, AProjectOfAMissingDatabaseWithNoneOpen) {
  FrameEnv g;
  g.Start();
  peqtest::TempDir other;
  const std::string bank = peqtest::WriteBank(other.path(), "GONE.Q07",
                                              {peqtest::BundledRecord("64-17-5"), peqtest::BundledRecord("7732-18-5")});
  peq::Session w;
  ASSERT_TRUE(peqtest::LoadMixture(w, bank, {"64-17-5", "7732-18-5"}));
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(w, g.dir.File("GONE.PQC"), "", err)) << err;
  g.ui.modalHandlers[WindowId::frmCmnDlg] = [&g] {
    g.f.CmnDlg.txtOpenFile_Change("GONE.PQC");
    return g.f.CmnDlg.cmdOpenOK(g.f);
  };
  g.f.Run(C(Cmd::mnuLoadProject));
  EXPECT_TRUE(g.Shown("Execution not possible", "Database of the project GONE.Q07 not found"));
  EXPECT_EQ(g.s.NKomp, 0);
  EXPECT_FALSE(g.Reachable(Cmd::mnuCalc));
}

TEST_F(LoadProject, AProjectOfZeroComponents) {
  peqtest::WriteBytes(e.dir.path(), "ZERO.PQC", "date\r\ncomment\r\nPEQBASE.Q07\r\n0\r\n0\r\n");
  Choose("ZERO.PQC");
  e.f.Run(C(Cmd::mnuLoadProject));
  EXPECT_TRUE(e.Shown("Execution not possible", "invalid project file"));
  EXPECT_EQ(e.s.NKomp, 2);
}

TEST_F(LoadProject, ADamagedFile) {
  peqtest::WriteBytes(e.dir.path(), "BAD.PQC", "date\r\ncomment\r\nPEQBASE.Q07\r\n0\r\n2\r\n64-17-5\r\n");
  // The preview refuses it already; the name typed in the box loads it all the same.
  Choose("BAD.PQC");
  e.f.Run(C(Cmd::mnuLoadProject));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes.back().title, "Error");
  EXPECT_EQ(e.ui.boxes.back().icon, MsgIcon::Stop);
  EXPECT_EQ(e.s.NKomp, 2);
}

TEST_F(LoadProject, AGoodProjectJumpsToTheFourthStage) {
  e.ui.files.push_back({false, e.dir.File("EW.PQC"), "EW.PQC"});
  e.f.Run(C(Cmd::mnuSaveProject));
  e.OpenBank();  // back to the second stage
  e.f.Stoffwahl.cmdStoffwahlEsc(e.f);
  ASSERT_FALSE(e.Reachable(Cmd::mnuCalc));
  Choose("EW.PQC");
  e.f.Run(C(Cmd::mnuLoadProject));
  EXPECT_EQ(e.s.NKomp, 2);
  EXPECT_TRUE(e.Reachable(Cmd::mnuCalc));
  EXPECT_TRUE(e.Reachable(Cmd::mnuGraph2D));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
  EXPECT_EQ(e.ui.Last().title, " loaded now ...");
  EXPECT_EQ(e.s.ProjektDatei, e.dir.File("EW.PQC"));
  EXPECT_EQ(e.s.PfadProjekt, e.dir.path() + "/");
}

}  // namespace

namespace {

TEST(GroupTables, TheTableOfTheParameterFileInItsWindow) {
  peqtest::FrameEnv e;
  e.CopyData({"OUNIF6PLUS.PAR", "MODUNIF5PLUS.PAR"});
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuOUnif));
  EXPECT_TRUE(e.f.IsLoaded(peq::WindowId::frmUnifInkr));
  EXPECT_EQ(e.f.UnifInkr.Caption, "UNIFAC groups");
  EXPECT_EQ(e.f.UnifInkr.Text.rfind("UNIFAC", 0), 0u);
  e.f.Run(peqtest::C(peq::Cmd::mnuMUnif));
  EXPECT_EQ(e.f.UnifInkr.Caption, "Mod-UNIFAC groups");
}

TEST(GroupTables, AMissingParameterFileIsReported) {
  peqtest::FrameEnv e;
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuOUnif));
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "file OUNIF6PLUS.PAR not found");
  EXPECT_FALSE(e.f.IsLoaded(peq::WindowId::frmUnifInkr));
}

}  // namespace

namespace {

TEST(FrameTitle, TheProjectIsNamedAndMarkedUntilSaved) {
  peqtest::FrameEnv e;
  e.Start();
  e.OpenBank();
  e.Mixture({"64-17-5", "7732-18-5"});
  e.f.VModell.cmdOKModell(e.f);
  // A new mixture not yet saved: marked.
  EXPECT_NE(e.f.Title().find(" *"), std::string::npos) << e.f.Title();
  peq::FileDialogResult r;
  r.cancelled = false;
  r.fileName = e.dir.File("mine.PQC");
  r.fileTitle = "mine.PQC";
  e.ui.files.push_back(r);
  e.ui.inputs.push_back(std::string("c"));
  e.ui.statusLines.clear();
  e.f.mnuSaveProject_Click();
  const std::string t = e.f.Title();
  EXPECT_NE(t.find("PEQ - Phase Equilibria - mine.PQC"), std::string::npos) << t;
  EXPECT_EQ(t.find(" *"), std::string::npos) << t;
  ASSERT_EQ(e.ui.statusLines.size(), 1u);
  EXPECT_EQ(e.ui.statusLines[0], "Project saved: " + e.dir.File("mine.PQC"));
  // A change of what the project holds marks it again.
  e.s.TIso = 333.15;
  EXPECT_NE(e.f.Title().find("mine.PQC *"), std::string::npos) << e.f.Title();
}

}  // namespace
