// The substance window: lists, input boxes, moves and "Mixture OK".
#include "windows/stoffwahl.h"

#include <gtest/gtest.h>

#include "substances/bank.h"
#include "windows/frame_fixture.h"

namespace {

using peq::Cmd;
using peq::MsgIcon;
using peq::WindowId;
using peqtest::C;
using peqtest::FrameEnv;
namespace fs = std::filesystem;

class Stoffwahl : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.OpenBank();
    e.ui.boxes.clear();
  }
  peq::frmStoffwahl& w() { return e.f.Stoffwahl; }
  int PlaceOf(const std::string& cas) { return peq::CASSuchen(e.s, cas); }
  FrameEnv e;
};

TEST_F(Stoffwahl, LoadingFillsTheListAndTitle) {
  EXPECT_EQ(w().Caption, "  Selection of mixing components (available:   156 substances)");
  ASSERT_EQ(w().StoffListe.size(), 156u);
  const std::string& first = w().StoffListe[0];
  EXPECT_EQ(first, "1     " + peq::FixedField(peq::Trim(e.s.BankFormel[1]), 12) + " " +
                       peq::FixedField(peq::Trim(e.s.BankName[1]), 40));
  EXPECT_EQ(w().StoffListeIndex, 0);
  for (bool v : w().Label3Visible) EXPECT_FALSE(v);
  EXPECT_EQ(w().NGewaehlt, 0);
  EXPECT_FALSE(w().AuswahlGeaendert);
  EXPECT_STREQ(peq::kStoffListeKopf, "  No.       Formula             Name");
}

TEST_F(Stoffwahl, MoveRightTakesTheEntryAndCutsTheLeftOne) {
  const int p = PlaceOf("64-17-5");
  w().StoffListe_Click(e.f, p - 1);
  EXPECT_EQ(w().NameCombo, "Ethanol");
  EXPECT_EQ(w().lblCAS, " CAS-RN: 64-17-5");
  EXPECT_EQ(w().ListenPos, p);
  const std::string entry = w().StoffListe[static_cast<std::size_t>(p - 1)];
  w().cmdRightOne(e.f);
  ASSERT_EQ(w().lstSelected.size(), 1u);
  EXPECT_EQ(w().lstSelected[0], entry.substr(0, 6) + entry.substr(18));
  EXPECT_EQ(w().StoffListe[static_cast<std::size_t>(p - 1)], std::to_string(p));
  EXPECT_TRUE(w().Vergeben(p - 1));
  EXPECT_TRUE(w().Label3Visible[0]);
  EXPECT_EQ(w().StoffListeIndex, p);  // the mark moved on
  EXPECT_EQ(w().lstSelectedIndex, 0);
  EXPECT_TRUE(w().AuswahlGeaendert);
}

TEST_F(Stoffwahl, AfterAMoveTheNameBoxShowsTheMarkedEntry) {
  const int p = PlaceOf("67-64-1");  // acetone
  w().StoffListe_Click(e.f, p - 1);
  EXPECT_EQ(w().NameCombo, "Acetone");
  w().cmdRightOne(e.f);
  // Mark, number, CAS-RN and name box all tell the next entry.
  ASSERT_EQ(w().StoffListeIndex, p);
  const std::size_t next = static_cast<std::size_t>(p + 1);
  EXPECT_EQ(w().NameCombo, peq::Trim(e.s.BankName[next]));
  EXPECT_EQ(w().Text1, std::to_string(e.s.BankNr[next]));
  EXPECT_EQ(w().lblCAS, " CAS-RN: " + peq::Trim(e.s.BankCAS[next]));
}

TEST_F(Stoffwahl, NothingMarkedMovesNothing) {
  w().StoffListeIndex = -1;
  w().cmdRightOne(e.f);
  EXPECT_TRUE(w().lstSelected.empty());
  EXPECT_FALSE(w().AuswahlGeaendert);
}

TEST_F(Stoffwahl, TheLastEntryKeepsTheMark) {
  w().StoffListe_Click(e.f, 155);
  w().cmdRightOne(e.f);
  EXPECT_EQ(w().StoffListeIndex, 155);
}

TEST_F(Stoffwahl, ASubstanceTakenTwiceIsRefused) {
  w().StoffListe_Click(e.f, 3);
  w().cmdRightOne(e.f);
  w().StoffListe_Click(e.f, 3);
  w().cmdRightOne(e.f);
  EXPECT_EQ(w().lstSelected.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Note");
  EXPECT_EQ(e.ui.Last().text, "This substance was already selected!");
}

TEST_F(Stoffwahl, AnEleventhSubstanceIsRefused) {
  for (int k = 0; k < 11; ++k) {
    w().StoffListe_Click(e.f, 10 + k);
    w().cmdRightOne(e.f);
  }
  EXPECT_EQ(w().NGewaehlt, 10);
  EXPECT_EQ(w().lstSelected.size(), 10u);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, " Maximum 10 components possible!");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
}

TEST_F(Stoffwahl, MoveLeftGivesTheEntryBack) {
  w().StoffListe_Click(e.f, 4);
  const std::string entry = w().StoffListe[4];
  w().cmdRightOne(e.f);
  w().StoffListe_Click(e.f, 7);
  w().cmdRightOne(e.f);
  w().lstSelectedIndex = 0;
  w().cmdLeftOne(e.f);
  EXPECT_EQ(w().StoffListe[4], entry);
  EXPECT_EQ(w().lstSelected.size(), 1u);
  EXPECT_TRUE(w().Label3Visible[0]);
  EXPECT_FALSE(w().Label3Visible[1]);
  EXPECT_EQ(w().NGewaehlt, 1);
  w().cmdLeftAll(e.f);
  EXPECT_TRUE(w().lstSelected.empty());
  EXPECT_EQ(w().NGewaehlt, 0);
  EXPECT_EQ(w().StoffListe[7].size(), entry.size());
}

TEST_F(Stoffwahl, DoubleClicksMove) {
  w().StoffListe_Click(e.f, 2);
  w().StoffListe_DblClick(e.f);
  EXPECT_EQ(w().lstSelected.size(), 1u);
  w().lstSelected_DblClick(e.f);
  EXPECT_TRUE(w().lstSelected.empty());
}

TEST_F(Stoffwahl, UpAndDownExchangeAndCountAsAChange) {
  e.Pick("64-17-5");
  e.Pick("7732-18-5");
  w().AuswahlGeaendert = false;
  w().lstSelectedIndex = 1;
  w().cmdUp();
  EXPECT_EQ(w().PlatzRechts(1), PlaceOf("7732-18-5"));
  EXPECT_EQ(w().lstSelectedIndex, 0);
  EXPECT_TRUE(w().AuswahlGeaendert);
  w().cmdDown();
  EXPECT_EQ(w().PlatzRechts(1), PlaceOf("64-17-5"));
}

TEST_F(Stoffwahl, NumberBox) {
  const int p = PlaceOf("7732-18-5");
  const int nr = e.s.BankNr[static_cast<std::size_t>(p)];
  w().Text1_Change(e.f, std::to_string(nr));
  EXPECT_EQ(w().ListenPos, p);
  EXPECT_EQ(w().StoffListeIndex, p - 1);
  EXPECT_EQ(w().NameCombo, "Water");
}

TEST_F(Stoffwahl, ANumberOutsideTheRangeOrWithFiveDigitsDoesNothing) {
  w().StoffListe_Click(e.f, 5);
  for (const char* t : {"0", "2000", "12345", "00007"}) {
    w().Text1_Change(e.f, t);
    EXPECT_EQ(w().StoffListeIndex, 5) << t;
    EXPECT_EQ(w().ListenPos, 6) << t;
  }
}

TEST_F(Stoffwahl, ANumberThatIsNoSubstanceKeepsTheMark) {
  w().StoffListe_Click(e.f, 5);
  w().Text1_Change(e.f, "1999");
  EXPECT_EQ(w().ListenPos, 6);
  EXPECT_EQ(w().StoffListeIndex, 5);
}

TEST_F(Stoffwahl, NameBoxFindsBySynonymAndKeepsWhatWasTyped) {
  for (const char* typed : {"ethyl alcohol", "Äthanol", "64-17-5", "ETHANOL"}) {
    w().NameCombo = typed;
    w().NameCombo_Return(e.f);
    EXPECT_EQ(w().StoffListeIndex, PlaceOf("64-17-5") - 1) << typed;
    EXPECT_EQ(w().NameCombo, typed);
    EXPECT_TRUE(w().NameComboMarkiert);
  }
  w().NameCombo = "Essigsäure";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(w().StoffListeIndex, PlaceOf("64-19-7") - 1);
  EXPECT_EQ(w().Text1, std::to_string(e.s.BankNr[static_cast<std::size_t>(PlaceOf("64-19-7"))]));
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(Stoffwahl, NothingFoundResetsTheBoxesToTheMarkedEntry) {
  w().StoffListe_Click(e.f, 9);
  w().NameCombo = "unobtainium";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(e.ui.Last().title, "input error or substance not available resp.");
  EXPECT_EQ(e.ui.Last().text, "Nothing found under this name");
  EXPECT_EQ(w().NameCombo, peq::Trim(e.s.BankName[10]));
  EXPECT_EQ(w().Text1, std::to_string(e.s.BankNr[10]));
  EXPECT_EQ(w().ListenPos, 10);
  EXPECT_TRUE(w().lstSelected.empty());
}

TEST_F(Stoffwahl, TheHistoryDropsTheOldestAtEight) {
  w().NameCombo = "water";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(w().NameHistorie.back(), "water");
  for (int k = 0; k < 9; ++k) {
    w().NameCombo = "ethanol";
    w().NameCombo_Return(e.f);
  }
  EXPECT_EQ(w().NameHistorie.size(), 7u);
  EXPECT_EQ(w().NameHistorie.front(), "ethanol");
}

TEST_F(Stoffwahl, TheTextIsCutAtTheFirstSemicolon) {
  peq::Q07Record r = peqtest::BlankRecord("H2O", "Water;aqua", "7732-18-5");
  const std::string bank = peqtest::WriteBank(e.dir.path(), "SEMI.Q07", {r, peqtest::BundledRecord("64-17-5")});
  e.ui.files.push_back({false, bank, "SEMI.Q07"});
  e.f.Run(C(Cmd::mnuOpenBank));
  w().NameCombo = peq::Trim(e.s.BankName[1]);
  ASSERT_NE(w().NameCombo.find(';'), std::string::npos);
  w().NameCombo_Return(e.f);
  EXPECT_EQ(w().StoffListeIndex, 0);
  EXPECT_EQ(w().NameCombo, "Water");
  EXPECT_EQ(w().NameHistorie.back(), "Water");
}

TEST_F(Stoffwahl, WithoutSynonymFileTheWordsAndTheListStillWorks) {
  fs::remove(e.dir.File("SYNOM.TXT"));
  w().StoffListe_Click(e.f, 9);
  w().NameCombo = "aqua";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Select your substance via list\nfile SYNOM.TXT not found");
  EXPECT_EQ(w().StoffListeIndex, 9);
  // The database names themselves are still found, and the list works.
  w().NameCombo = "Water";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(w().StoffListeIndex, PlaceOf("7732-18-5") - 1);
  w().cmdRightOne(e.f);
  w().StoffListe_Click(e.f, 0);
  w().cmdRightOne(e.f);
  w().GemischOK(e.f);
  EXPECT_EQ(e.s.NKomp, 2);
  EXPECT_TRUE(e.s.LoadOK);
}

TEST_F(Stoffwahl, ASubstanceOfTheSynonymFileMissingInTheDatabaseChangesNothing) {
  // A database without methanol beside the full synonym file.
  const std::string bank = peqtest::WriteBank(e.dir.path(), "MINI.Q07",
                                              {peqtest::BundledRecord("7732-18-5"), peqtest::BundledRecord("64-17-5")});
  e.ui.files.push_back({false, bank, "MINI.Q07"});
  e.f.Run(C(Cmd::mnuOpenBank));
  w().StoffListe_Click(e.f, 1);
  w().NameCombo = "methyl alcohol";
  w().NameCombo_Return(e.f);
  EXPECT_EQ(e.ui.Last().title, " the substance is not involved in this database");
  EXPECT_EQ(e.ui.Last().text, "CH4O\nMethanol\n\nCAS-Nr. 67-56-1\nMethanol");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Warning);
  EXPECT_EQ(w().StoffListeIndex, 1);
  EXPECT_EQ(w().NameCombo, "Ethanol");
  EXPECT_TRUE(w().lstSelected.empty());
}

TEST_F(Stoffwahl, AOneComponentSelectionIsRefusedAndTheWindowStays) {
  e.Pick("64-17-5");
  e.f.cmds.Enable(C(Cmd::mnuCalc), true);
  w().GemischOK(e.f);
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "At least two substances!");
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmStoffwahl));
  EXPECT_FALSE(e.Enabled(Cmd::mnuCalc));
  EXPECT_EQ(e.s.NKomp, 0);
}

TEST_F(Stoffwahl, MixtureOKCommitsAndOpensTheModelWindow) {
  e.Pick("64-17-5");
  e.Pick("7732-18-5");
  e.s.TIso = 350;
  w().GemischOK(e.f);
  EXPECT_EQ(e.s.NKomp, 2);
  EXPECT_EQ(e.s.KompIdx[1], PlaceOf("64-17-5"));
  EXPECT_EQ(e.s.KompIdx[2], PlaceOf("7732-18-5"));
  EXPECT_TRUE(e.s.LoadOK);
  EXPECT_EQ(e.s.GEModel, -1);
  EXPECT_EQ(e.s.VapModel, 0);
  EXPECT_EQ(e.s.TIso, 298.15);
  EXPECT_EQ(e.s.PIso, 101.325);
  EXPECT_EQ(e.s.XIso, 0.5);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmStoffwahl));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmVModell));
  for (Cmd c : {Cmd::mnuModell, Cmd::mnuStoff, Cmd::mnuExpInput, Cmd::mnuSaveProject})
    EXPECT_TRUE(e.Reachable(c)) << peq::CmdName(C(c));
  EXPECT_TRUE(e.Enabled(Cmd::Toolbar1, 7));
  EXPECT_TRUE(e.Reachable(Cmd::mnuEdit));
  EXPECT_FALSE(e.Reachable(Cmd::mnuCalc));
  EXPECT_EQ(e.f.cmds.Caption(C(Cmd::mnuSubEdit, 1)), "Ethanol");
}

TEST_F(Stoffwahl, TheWindowShowsTheCurrentMixtureAndOKUnchangedKeepsTheModels) {
  e.Pick("64-17-5");
  e.Pick("7732-18-5");
  w().GemischOK(e.f);
  e.s.GEModel = 2;
  peq::ParSlot(e.s, 1, 1, 2) = 123.0;
  e.f.Run(C(Cmd::mnuStoff));
  EXPECT_EQ(w().lstSelected.size(), 2u);
  EXPECT_EQ(w().PlatzRechts(1), PlaceOf("64-17-5"));
  EXPECT_FALSE(w().AuswahlGeaendert);
  w().GemischOK(e.f);
  EXPECT_EQ(e.s.GEModel, 2);
  EXPECT_EQ(peq::ParSlot(e.s, 1, 1, 2), 123.0);
}

TEST_F(Stoffwahl, OKAfterOnlyReorderingCountsAsAChangeAndResetsTheModels) {
  e.Pick("64-17-5");
  e.Pick("7732-18-5");
  w().GemischOK(e.f);
  e.s.GEModel = 2;
  peq::ParSlot(e.s, 1, 1, 2) = 123.0;
  e.f.Run(C(Cmd::mnuStoff));
  w().lstSelectedIndex = 1;
  w().cmdUp();
  w().GemischOK(e.f);
  EXPECT_EQ(e.s.GEModel, -1);
  EXPECT_EQ(peq::ParSlot(e.s, 1, 1, 2), 0.0);
  EXPECT_EQ(e.s.KompIdx[1], PlaceOf("7732-18-5"));
}

TEST_F(Stoffwahl, CancelCommitsNothing) {
  e.Pick("64-17-5");
  e.Pick("7732-18-5");
  w().cmdStoffwahlEsc(e.f);
  EXPECT_EQ(e.s.NKomp, 0);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmStoffwahl));
}

TEST_F(Stoffwahl, HelpAndIndexLabels) {
  w().cmdHilfe(e.f);
  EXPECT_EQ(e.ui.helpTopics.back(), 40000);
  e.ui.notProvided.insert(WindowId::frmAEdit);
  e.Pick("64-17-5");
  w().Label3_Click(e.f, 0);
  EXPECT_EQ(e.ui.Last().title, "Note");
  EXPECT_STREQ(peq::kLabel3Tip, "Click on index-no = show data");
}

}  // namespace
