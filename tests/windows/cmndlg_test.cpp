// The file dialog frmCmnDlg with its two previews.
#include "windows/cmndlg.h"

#include <gtest/gtest.h>

#include "session/project.h"
#include "windows/frame_fixture.h"

namespace {

using peq::MsgIcon;
using peqtest::FrameEnv;
namespace fs = std::filesystem;

class CmnDlg : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.OpenBank();
    e.f.Stoffwahl.cmdStoffwahlEsc(e.f);
    e.ui.boxes.clear();
  }
  peq::frmCmnDlg& w() { return e.f.CmnDlg; }
  int Index(const std::string& name) {
    for (std::size_t k = 0; k < w().filOpenList.size(); ++k)
      if (w().filOpenList[k] == name) return static_cast<int>(k);
    return -1;
  }
  // A project of the bundled database with the CAS numbers.
  void Project(const std::string& name, const std::vector<std::string>& cas, const std::string& comment) {
    peq::Session p;
    ASSERT_TRUE(peqtest::LoadMixture(p, e.dir.File("PEQBASE.Q07"), cas));
    std::string err;
    ASSERT_TRUE(peq::ProjektSchreiben(p, e.dir.File(name), comment, err)) << err;
  }
  FrameEnv e;
};

TEST_F(CmnDlg, ProjectMode) {
  w().Load(e.f, "Open", e.dir.path(), "ew.pqc", "*.PQC", "Load a project");
  EXPECT_TRUE(w().ProjektModus);
  EXPECT_EQ(w().Caption, "Load a project");
  EXPECT_EQ(w().fraTitel, "Project information");
  EXPECT_EQ(w().lblStoffeTitel, "substances of this project: ");
  EXPECT_EQ(w().fraProjekt, " Project information ");
  EXPECT_EQ(w().lblKommentarTitel, "Comment (editable):");
  EXPECT_EQ(w().txtOpenFile, "EW.PQC");
  EXPECT_EQ(w().Modus, "Open");
  EXPECT_EQ(w().Verzeichnis, e.dir.path() + "/");
}

TEST_F(CmnDlg, TpxModeAndTheEmptyFilter) {
  w().Load(e.f, "Open", e.dir.path(), "", "*.EX5", "Load T-p-x data");
  EXPECT_FALSE(w().ProjektModus);
  EXPECT_EQ(w().fraTitel, "File information");
  EXPECT_EQ(w().lblStoffeTitel, "substances of this data set: ");
  w().Load(e.f, "Open", e.dir.path(), "", "", "x");
  EXPECT_EQ(w().Muster, "*.*");
}

TEST_F(CmnDlg, TheFileListFollowsThePattern) {
  peqtest::WriteBytes(e.dir.path(), "A.PQC", "");
  peqtest::WriteBytes(e.dir.path(), "b.pqc", "");
  peqtest::WriteBytes(e.dir.path(), "C.EX5", "");
  fs::create_directory(e.dir.File("sub"));
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  EXPECT_EQ(w().filOpenList, (std::vector<std::string>{"A.PQC", "b.pqc"}));
  EXPECT_EQ(w().dirOpenList, (std::vector<std::string>{"sub"}));
  w().dirOpenList_Click(e.f, 0);
  EXPECT_EQ(w().Verzeichnis, e.dir.File("sub") + "/");
  EXPECT_TRUE(w().filOpenList.empty());
  w().cmdReturn(e.f);
  EXPECT_EQ(w().Verzeichnis, e.dir.path() + "/");
}

TEST_F(CmnDlg, AWildcardInTheNameBoxBecomesThePattern) {
  peqtest::WriteBytes(e.dir.path(), "A.PQC", "");
  peqtest::WriteBytes(e.dir.path(), "C.EX5", "");
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().txtOpenFile_Change("*.EX5");
  EXPECT_FALSE(w().cmdOpenOK(e.f));
  EXPECT_EQ(w().Muster, "*.EX5");
  EXPECT_EQ(w().filOpenList, (std::vector<std::string>{"C.EX5"}));
}

TEST_F(CmnDlg, AMissingFileInOpenMode) {
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().txtOpenFile_Change("NONE.PQC");
  EXPECT_FALSE(w().cmdOpenOK(e.f));
  EXPECT_EQ(e.ui.Last().title, "File not found");
  EXPECT_EQ(e.ui.Last().text, e.dir.File("NONE.PQC"));
  EXPECT_EQ(w().Muster, "*.PQC");
  // In save mode a new name is fine.
  w().Load(e.f, "Save", e.dir.path(), "", "*.PQC", "t");
  w().txtOpenFile_Change("NEW.PQC");
  EXPECT_TRUE(w().cmdOpenOK(e.f));
  EXPECT_EQ(w().ErgebnisDatei, "NEW.PQC");
}

TEST_F(CmnDlg, AMarkedFileEndsTheDialog) {
  Project("EW.PQC", {"64-17-5", "7732-18-5"}, "my comment, with a comma");
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().filOpenList_Click(e.f, Index("EW.PQC"));
  EXPECT_TRUE(w().cmdOpenOK(e.f));
  EXPECT_FALSE(w().Abbruch);
  EXPECT_EQ(w().ErgebnisPfad, e.dir.path() + "/");
  EXPECT_EQ(w().ErgebnisDatei, "EW.PQC");
}

TEST_F(CmnDlg, ProjectPreview) {
  Project("EW.PQC", {"64-17-5", "7732-18-5"}, "my comment, with a comma");
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().filOpenList_Click(e.f, Index("EW.PQC"));
  EXPECT_EQ(w().lblStoffe, "Ethanol\nWater\n");
  EXPECT_EQ(w().txtKommentar, "my comment, with a comma");
  EXPECT_EQ(e.s.ProjektKommentar, "my comment, with a comma");
  EXPECT_EQ(w().lblBank, "PEQBASE.Q07");
  EXPECT_TRUE(w().cmdOpenOKEnabled);
  // Editing the comment here carries into the next save.
  w().txtKommentar_Change(e.f, "edited");
  EXPECT_EQ(e.s.ProjektKommentar, "edited");
}

TEST_F(CmnDlg, AProjectWithASubstanceMissingFromTheDatabase) {
  // Written against a database that holds a substance the bundled one lacks.
  peq::Q07Record odd = peqtest::BundledRecord("64-17-5");
  odd.CasNr = "99999-99-9";
  const std::string bank =
      peqtest::WriteBank(e.dir.path(), "PEQBASE2.Q07", {peqtest::BundledRecord("7732-18-5"), odd});
  peq::Session p;
  ASSERT_TRUE(peqtest::LoadMixture(p, bank, {"7732-18-5", "99999-99-9"}));
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(p, e.dir.File("ODD.PQC"), "", err));
  fs::remove(bank);
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().filOpenList_Click(e.f, Index("ODD.PQC"));
  EXPECT_EQ(w().lblStoffe, "Water\nSubstance 2 not involved in actual database \n");
  EXPECT_FALSE(w().cmdOpenOKEnabled);
  EXPECT_FALSE(w().cmdOpenOK(e.f));
}

TEST_F(CmnDlg, ZeroComponentsOrADamagedFileDisableOK) {
  peqtest::WriteBytes(e.dir.path(), "ZERO.PQC", "d\r\nc\r\nPEQBASE.Q07\r\n0\r\n0\r\n");
  peqtest::WriteBytes(e.dir.path(), "BAD.PQC", "d\r\n");
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().filOpenList_Click(e.f, Index("ZERO.PQC"));
  EXPECT_FALSE(w().cmdOpenOKEnabled);
  EXPECT_EQ(w().lblStoffe, "");
  w().filOpenList_Click(e.f, Index("BAD.PQC"));
  EXPECT_FALSE(w().cmdOpenOKEnabled);
  EXPECT_EQ(w().lblStoffe, "");
  EXPECT_EQ(w().lblBank, " none");
}

TEST_F(CmnDlg, ExperimentalFilePreview) {
  peqtest::WriteBytes(e.dir.path(), "EW.EX5", "Ethanol\r\nWater\r\n\r\nsecond comment\r\n17\r\n1,2,3\r\n");
  peqtest::WriteBytes(e.dir.path(), "EW2.EX5", "Ethanol\r\nWater\r\nfirst\r\nsecond\r\n3\r\n");
  w().Load(e.f, "Open", e.dir.path(), "", "*.EX5", "t");
  w().filOpenList_Click(e.f, Index("EW.EX5"));
  EXPECT_EQ(w().lblStoffe, "Ethanol\nWater");
  EXPECT_EQ(w().lblInfo, "(17 sets of exper. points)\n(no comment)\nsecond comment");
  w().filOpenList_Click(e.f, Index("EW2.EX5"));
  EXPECT_EQ(w().lblInfo, "(3 sets of exper. points)\nfirst\nsecond");
}

TEST_F(CmnDlg, AnUnreadableExperimentalFileShowsNothing) {
  peqtest::WriteBytes(e.dir.path(), "SHORT.EX5", "Ethanol\r\n");
  w().Load(e.f, "Open", e.dir.path(), "", "*.EX5", "t");
  w().filOpenList_Click(e.f, Index("SHORT.EX5"));
  EXPECT_EQ(w().lblStoffe, "");
  EXPECT_EQ(w().lblInfo, "");
}

TEST_F(CmnDlg, HelpTopicsByMode) {
  w().Load(e.f, "Open", e.dir.path(), "", "*.EX5", "t");
  w().cmdHelp(e.f);
  w().Load(e.f, "Open", e.dir.path(), "", "*.PQC", "t");
  w().cmdHelp(e.f);
  EXPECT_EQ(e.ui.helpTopics, (std::vector<int>{9977, 9876}));
}

TEST(MusterPasst, StarAndQuestionMarkInAnyCase) {
  EXPECT_TRUE(peq::MusterPasst("ew.pqc", "*.PQC"));
  EXPECT_TRUE(peq::MusterPasst("A1.EX5", "A?.EX5"));
  EXPECT_FALSE(peq::MusterPasst("A12.EX5", "A?.EX5"));
  EXPECT_TRUE(peq::MusterPasst("X.LRG", "*.XY;*.LRG"));
  EXPECT_TRUE(peq::MusterPasst("anything", "*.*") == false);
  EXPECT_TRUE(peq::MusterPasst("a.b", "*.*"));
}

}  // namespace

namespace {

TEST_F(CmnDlg, TheUpperCasedNameFindsAFileOfAnotherCase) {
  Project("acetone-ethanol.pqc", {"67-64-1", "64-17-5"}, "c");
  // The dialog opens with the last project's name upper-cased; this file system tells the
  // cases apart, and the file is found all the same.
  w().Load(e.f, "Open", e.dir.path(), "acetone-ethanol.pqc", "*.PQC", "Load a project");
  EXPECT_EQ(w().txtOpenFile, "ACETONE-ETHANOL.PQC");
  e.ui.boxes.clear();
  EXPECT_TRUE(w().cmdOpenOK(e.f));
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_FALSE(w().Abbruch);
  EXPECT_EQ(w().ErgebnisDatei, "acetone-ethanol.pqc");
}

TEST_F(CmnDlg, ADirectoryChangeUpdatesTheNameBox) {
  Project("EW.PQC", {"64-17-5", "7732-18-5"}, "c");
  fs::create_directory(e.dir.File("sub"));
  w().Load(e.f, "Open", e.dir.path(), "EW.PQC", "*.PQC", "t");
  int sub = -1;
  for (std::size_t k = 0; k < w().dirOpenList.size(); ++k)
    if (w().dirOpenList[k] == "sub") sub = static_cast<int>(k);
  ASSERT_GE(sub, 0);
  w().dirOpenList_Click(e.f, sub);
  // EW.PQC does not stand in the new directory: the box shows the pattern, and OK gives no
  // "File not found".
  EXPECT_EQ(w().txtOpenFile, "*.PQC");
  e.ui.boxes.clear();
  EXPECT_FALSE(w().cmdOpenOK(e.f));
  EXPECT_TRUE(e.ui.boxes.empty());
  // Back up: the name is kept where the file stands.
  w().txtOpenFile_Change("EW.PQC");
  w().cmdReturn(e.f);
  EXPECT_EQ(w().txtOpenFile, "EW.PQC");
}

TEST_F(CmnDlg, TheCommentEditedInThePreviewSurvivesTheLoad) {
  Project("EW.PQC", {"64-17-5", "7732-18-5"}, "as saved");
  e.s.PfadProjekt = e.dir.path() + "/";
  e.ui.modalHandlers[peq::WindowId::frmCmnDlg] = [this] {
    w().filOpenList_Click(e.f, Index("EW.PQC"));
    EXPECT_EQ(w().txtKommentar, "as saved");
    w().txtKommentar_Change(e.f, "edited in the preview");
    return w().cmdOpenOK(e.f);
  };
  e.f.mnuLoadProject_Click();
  EXPECT_EQ(e.s.NKomp, 2);
  EXPECT_EQ(e.s.ProjektKommentar, "edited in the preview");
}

}  // namespace
