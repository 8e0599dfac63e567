// The substance data editor frmAEdit: its fields, "Apply" in its four steps, the AUGUST
// correlation, the input checks, stepping, closing, the read-only mode and the private database.
#include "windows/aedit.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "models/vappressure.h"
#include "substances/bank.h"
#include "windows/frame_fixture.h"

namespace {

using peq::Answer;
using peq::Cmd;
using peq::WindowId;
using peqtest::C;
using peqtest::FrameEnv;

int F(const char* gruppe, const char* caption) {
  const int n = peq::AEditFeld(gruppe, caption);
  EXPECT_GE(n, 0) << gruppe << caption;
  return n;
}

class AEdit : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5", "67-56-1"});  // ethanol, water, methanol
    ASSERT_TRUE(e.s.LoadOK);
    e.ui.boxes.clear();
  }
  // The editor on component i from the frame's menu.
  void Open(int i) { e.f.Run(C(Cmd::mnuSubEdit, static_cast<int16_t>(i))); }
  std::string& T(const char* gruppe, const char* caption) {
    return ed().Text[static_cast<std::size_t>(F(gruppe, caption))];
  }
  peq::frmAEdit& ed() { return e.f.AEdit; }
  // Models accepted as the model window does it.
  void AcceptModels() {
    e.f.Run(C(Cmd::mnuModell));
    e.f.VModell.cmdOKModell(e.f);
    ASSERT_EQ(e.s.GEModel, 0);
    e.ui.boxes.clear();  // the model window's own warnings
  }
  FrameEnv e;
};

TEST_F(AEdit, TheMenuOpensTheEditorOnThatComponentWithItsData) {
  Open(2);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmAEdit));
  EXPECT_EQ(ed().EditKomp, 2);
  EXPECT_FALSE(ed().NurLesen);
  EXPECT_EQ(ed().Caption, " View /Edit Data of Substances");
  EXPECT_EQ(T("", "name"), "Water");
  EXPECT_EQ(T("", "CASRN"), "7732-18-5");
  EXPECT_EQ(std::stof(T("", "T(cr)")), e.s.TKrit[2]);
  // A value the database does not hold shows "<>", an absent limit too.
  EXPECT_EQ(T(peq::kGruppeFrost, "E"), "<>");
  EXPECT_EQ(T(peq::kGruppeAHP, "T(Lo)"), "<>");
  EXPECT_EQ(ed().lblGleichung, "actual vapour-pressure equation: FRO");
  EXPECT_TRUE(ed().cmdUpEnabled);
  EXPECT_TRUE(ed().cmdDownEnabled);
  EXPECT_FALSE(ed().Geaendert());
}

TEST_F(AEdit, ApplyWithoutAnyChangeClearsTheModelAcceptanceAndChangesNoDatum) {
  AcceptModels();
  EXPECT_TRUE(e.Enabled(Cmd::mnuCalc));
  const peq::Session before = e.s;
  Open(1);
  e.s.UnifacNeu = false;
  ed().OK(e.f);
  EXPECT_EQ(e.s.GEModel, -1);
  EXPECT_TRUE(e.s.UnifacNeu);
  EXPECT_FALSE(e.Enabled(Cmd::mnuCalc));
  EXPECT_FALSE(e.Enabled(Cmd::mnuGraph2D));
  EXPECT_TRUE(e.Enabled(Cmd::mnuModell));
  for (std::size_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(e.s.TKrit[i], before.TKrit[i]);
    EXPECT_EQ(e.s.MolMasse[i], before.MolMasse[i]);
    EXPECT_EQ(e.s.ParFRO[i].s, before.ParFRO[i].s);
    EXPECT_EQ(e.s.ParWAG[i].s, before.ParWAG[i].s);
    EXPECT_EQ(e.s.ParALP[i].TLo, before.ParALP[i].TLo);
    EXPECT_EQ(e.s.StoffData[i].ModUnifInkr, before.StoffData[i].ModUnifInkr);
    EXPECT_EQ(e.s.StoffData[i].Name, before.StoffData[i].Name);
    EXPECT_EQ(e.s.TSiede[i], before.TSiede[i]);
  }
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(AEdit, AFieldLeftAtEmptyKeepsAnEquationAbsent) {
  Open(2);
  // Coefficients typed for ANTOINE (high-p), its T(Lo) left at "<>".
  T(peq::kGruppeAHP, "A") = "6.2";
  T(peq::kGruppeAHP, "B") = "1700";
  T(peq::kGruppeAHP, "C") = "-40";
  T(peq::kGruppeAHP, "T(Hi)") = "450";
  ASSERT_EQ(T(peq::kGruppeAHP, "T(Lo)"), "<>");
  ed().OK(e.f);
  EXPECT_EQ(e.s.ParAHP[2].A, 6.2f);
  EXPECT_EQ(e.s.ParAHP[2].TLo, 0);
  EXPECT_EQ(e.s.ParAHP[2].THi, 450);
  // The model window does not offer it.
  e.f.Run(C(Cmd::mnuModell));
  for (const std::string& c : e.f.VModell.cmbP0Codes[2]) EXPECT_NE(c, "AHP");
}

TEST_F(AEdit, ZeroTypedForFrostEStores1EMinus37AndTheVapourPressureIterationRuns) {
  std::string code = "FRO";
  int16_t dT = 0;
  const float before = peq::VapPressure(e.s, 2, 350.0, code, false, dT);
  ASSERT_GT(before, 0.0f);
  Open(2);
  T(peq::kGruppeFrost, "E") = "0";
  ed().OK(e.f);
  EXPECT_EQ(e.s.ParFRO[2][5], 1E-37f);
  EXPECT_EQ(T(peq::kGruppeFrost, "E"), "1E-37");
  code = "FRO";
  const float after = peq::VapPressure(e.s, 2, 350.0, code, false, dT);
  // The implicit form with a vanishing E converges to the explicit value.
  EXPECT_GT(after, 0.0f);
  EXPECT_NEAR(after, before, 1E-3 * before);
  // "<>" typed again makes it empty.
  T(peq::kGruppeFrost, "E") = "<>";
  ed().OK(e.f);
  EXPECT_EQ(e.s.ParFRO[2][5], 0.0f);
}

TEST_F(AEdit, TLimitsAreStoredAsWholeNumbers) {
  Open(1);
  T(peq::kGruppeWagner, "T(Hi)") = "500.6";
  T(peq::kGruppeALP, "T(Lo)") = "270,5";  // a comma counts as a point; half to even
  ed().OK(e.f);
  EXPECT_EQ(e.s.ParWAG[1].THi, 501);
  EXPECT_EQ(e.s.ParALP[1].TLo, 270);
  EXPECT_EQ(T(peq::kGruppeWagner, "T(Hi)"), "501");
}

TEST_F(AEdit, ApplyRebuildsTheIncrementTextsAndThePairCriticalData) {
  Open(1);
  T(peq::kGruppeModUnif, "1: times") = "2";
  T(peq::kGruppeModUnif, "1: group #") = "1";
  T(peq::kGruppeModUnif, "7: times") = "1";
  T(peq::kGruppeModUnif, "7: group #") = "15";
  T("", "T(cr)") = "700";
  T("", "p(cr)") = "30000";
  ed().OK(e.f);
  EXPECT_EQ(e.s.StoffData[1].ModUnifInkr.substr(0, 6), "02001,");
  EXPECT_EQ(e.s.StoffData[1].ModUnifInkr.substr(36, 5), "01015");
  EXPECT_EQ(e.s.TKritMax, 700.0);
  EXPECT_EQ(e.s.PKritMax, 30000.0);
  EXPECT_FLOAT_EQ(static_cast<float>(e.s.TcMix(1, 1)), 700.0f);
}

TEST_F(AEdit, AFieldThatIsNoNumberKeepsItsOldValueAndIsNamed) {
  Open(2);
  const float tc = e.s.TKrit[2];
  T("", "T(cr)") = "6x47";
  T(peq::kGruppeALP, "A") = "7.5";
  ed().OK(e.f);
  EXPECT_EQ(e.s.TKrit[2], tc);
  EXPECT_EQ(e.s.ParALP[2].A, 7.5f);  // the other fields are taken
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_NE(e.ui.Last().text.find("T(cr)"), std::string::npos);
  EXPECT_EQ(e.ui.Last().text.find("ANTOINE"), std::string::npos);
  EXPECT_EQ(std::stof(T("", "T(cr)")), tc);  // the field shows the old value again
}

TEST_F(AEdit, ANumberBeyondItsFieldWidthKeepsTheOldValue) {
  Open(2);
  T("", "p(cr)") = "1E40";
  T(peq::kGruppeWagner, "T(Lo)") = "40000";
  T(peq::kGruppeModUnif, "1: times") = "100";
  const peq::Session before = e.s;
  ed().OK(e.f);
  EXPECT_EQ(e.s.PKrit[2], before.PKrit[2]);
  EXPECT_EQ(e.s.ParWAG[2].TLo, before.ParWAG[2].TLo);
  EXPECT_EQ(e.s.StoffData[2].ModUnifInkr, before.StoffData[2].ModUnifInkr);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_NE(e.ui.Last().text.find("p(cr)"), std::string::npos);
  EXPECT_NE(e.ui.Last().text.find("WAGNER T(Lo)"), std::string::npos);
  EXPECT_NE(e.ui.Last().text.find("1: times"), std::string::npos);
}

TEST_F(AEdit, ValuesOutsidePhysicalSenseAreTakenButFlaggedInTheStatusLine) {
  Open(2);
  T("", "mol. mass") = "-18";
  T("", "T(cr)") = "300";  // below the normal boiling point of water
  ed().OK(e.f);
  EXPECT_EQ(e.s.MolMasse[2], -18.0f);
  EXPECT_EQ(e.s.TKrit[2], 300.0f);
  ASSERT_FALSE(e.ui.statusLines.empty());
  const std::string& st = e.ui.statusLines.back();
  EXPECT_NE(st.find("mol. mass is negative"), std::string::npos);
  EXPECT_NE(st.find("T(cr) is below the normal boiling T"), std::string::npos);
  EXPECT_TRUE(e.ui.boxes.empty());
}

// Hand calculation: Tb = 350 K, Tc = 500 K, pc = 5000 kPa;
// B = 350*500*ln(5000/101.325)/(350 - 500) = 175000*3.8988600189/(-150) = -4548.6700 K,
// A = ln(5000) - B/500 = 8.5171931914 + 9.0973400 = 17.6145332.
TEST_F(AEdit, CorrelateAugustAgainstAHandCalculation) {
  Open(1);
  T("", "normal boiling T") = "350";
  T("", "T(cr)") = "500";
  T("", "p(cr)") = "5000";
  ed().cmdCorrelateAUGUST(e.f);
  const float a = std::stof(T(peq::kGruppeAugust, "A"));
  const float b = std::stof(T(peq::kGruppeAugust, "B"));
  EXPECT_NEAR(a, 17.6145332, 2E-5);
  EXPECT_NEAR(b, -4548.6700, 2E-3);
  // The line runs through both points.
  EXPECT_NEAR(std::exp(a + b / 350.0), 101.325, 1E-3);
  EXPECT_NEAR(std::exp(a + b / 500.0), 5000.0, 5E-2);
  // Only the fields changed; Apply stores them.
  EXPECT_NE(e.s.ParAUG[1].A, a);
  ed().OK(e.f);
  EXPECT_EQ(e.s.ParAUG[1].A, a);
  EXPECT_EQ(e.s.ParAUG[1].B, b);
}

TEST_F(AEdit, CorrelateAugustWithoutTheCriticalPointChangesNothing) {
  Open(1);
  T("", "p(cr)") = "<>";
  const std::string a = T(peq::kGruppeAugust, "A");
  ed().cmdCorrelateAUGUST(e.f);
  EXPECT_EQ(T(peq::kGruppeAugust, "A"), a);
  // Tb equal to Tc: no line, no fault.
  T("", "p(cr)") = "5000";
  T("", "normal boiling T") = "500";
  T("", "T(cr)") = "500";
  ed().cmdCorrelateAUGUST(e.f);
  EXPECT_EQ(T(peq::kGruppeAugust, "A"), a);
}

TEST_F(AEdit, CloseAsksWhenFieldsChangedAndStaysOnNo) {
  Open(1);
  EXPECT_TRUE(ed().esc(e.f));  // nothing changed: no question
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmAEdit));
  Open(1);
  T("", "omega") = "0.5";
  e.ui.answers.push_back(Answer::No);
  EXPECT_FALSE(ed().esc(e.f));
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmAEdit));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "WARNING");
  EXPECT_EQ(e.ui.Last().text, " Your changes are lost here. \nClose nevertheless?");
  EXPECT_EQ(e.ui.Last().buttons, peq::Buttons::YesNo);
  e.ui.answers.push_back(Answer::Yes);
  EXPECT_TRUE(ed().esc(e.f));
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmAEdit));
  EXPECT_NE(e.s.Omega[1], 0.5f);  // not applied
}

TEST_F(AEdit, UpAndDownWalkTheComponents) {
  Open(1);
  EXPECT_FALSE(ed().cmdUpEnabled);
  ed().cmdDown(e.f);
  EXPECT_EQ(ed().EditKomp, 2);
  EXPECT_EQ(T("", "name"), "Water");
  ed().cmdDown(e.f);
  EXPECT_EQ(ed().EditKomp, 3);
  EXPECT_FALSE(ed().cmdDownEnabled);
  ed().cmdDown(e.f);
  EXPECT_EQ(ed().EditKomp, 3);
  T("", "omega") = "0.1";
  e.ui.answers.push_back(Answer::No);
  ed().cmdUp(e.f);
  EXPECT_EQ(ed().EditKomp, 3);  // the user kept the changes
  ed().OK(e.f);
  ed().cmdUp(e.f);
  EXPECT_EQ(ed().EditKomp, 2);
}

TEST_F(AEdit, TheSelectionWindowShowsASubstanceReadOnly) {
  e.f.Run(C(Cmd::mnuStoff));
  ASSERT_TRUE(e.f.IsLoaded(WindowId::frmStoffwahl));
  ASSERT_EQ(e.f.Stoffwahl.NGewaehlt, 3);
  e.f.Stoffwahl.Label3_Click(e.f, 1);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmAEdit));
  EXPECT_EQ(ed().EditKomp, 0);
  EXPECT_TRUE(ed().NurLesen);
  EXPECT_EQ(T("", "name"), "Water");
  EXPECT_FALSE(ed().cmdUpEnabled);
  // Nothing reaches the session.
  const float tc = e.s.TKrit[2];
  const int16_t ge = e.s.GEModel;
  T("", "T(cr)") = "1";
  ed().OK(e.f);
  ed().cmdCorrelateAUGUST(e.f);
  EXPECT_EQ(e.s.TKrit[2], tc);
  EXPECT_EQ(e.s.GEModel, ge);
  EXPECT_TRUE(ed().esc(e.f));
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_STREQ(peq::kAEditNurLesen,
               " from this site no changing of data is possible; this can be done via \"Models\" or via "
               "\"Data/View/Edit data...\"");
}

TEST_F(AEdit, TheComponentNameOfTheModelWindowOpensTheEditor) {
  e.f.Run(C(Cmd::mnuModell));
  e.f.VModell.lblKomp_Click(e.f, 3);
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmAEdit));
  EXPECT_EQ(ed().EditKomp, 3);
  EXPECT_EQ(T("", "name"), "Methanol");
}

TEST_F(AEdit, ApplyWithTheModelWindowOpenMakesItAskAgain) {
  AcceptModels();
  e.f.Run(C(Cmd::mnuModell));
  e.f.VModell.GEKombi_Click(e.f, 2);
  e.f.VModell.lblKomp_Click(e.f, 2);
  T("", "T(cr)") = "640";
  const std::size_t refreshed = e.ui.refreshed.size();
  ed().OK(e.f);
  EXPECT_EQ(e.s.GEModel, -1);
  EXPECT_GT(e.ui.refreshed.size(), refreshed);
  EXPECT_EQ(e.f.VModell.GEModelKopie, -1);
}

TEST_F(AEdit, WriteDataBaseQ07AppliesAsksForTheFileAndWritesTheMixture) {
  Open(2);
  T("", "T(cr)") = "650.5";
  const std::size_t dialogs = e.ui.fileDialogs.size();
  peq::FileDialogResult r;
  r.cancelled = false;
  r.fileName = e.dir.File("PRIVATE");
  r.fileTitle = "PRIVATE";
  e.ui.files.push_back(r);
  ed().WriteDataBaseQ07(e.f);
  EXPECT_EQ(e.s.TKrit[2], 650.5f);
  ASSERT_EQ(e.ui.fileDialogs.size(), dialogs + 1);
  const peq::FileDialogRequest& q = e.ui.fileDialogs.back();
  EXPECT_TRUE(q.save);
  EXPECT_EQ(q.title, "Save a private database file *.Q07 for the actual mixture");
  EXPECT_EQ(q.filter, "Database (*.Q07)|*.Q07");
  EXPECT_EQ(q.defaultExt, ".Q07");
  EXPECT_TRUE(e.ui.boxes.empty());
  peq::Session t;
  ASSERT_TRUE(peqtest::OpenBank(t, e.dir.File("PRIVATE.Q07")));
  EXPECT_EQ(t.BankAnz, 3);
  peq::Session u;
  ASSERT_TRUE(peqtest::LoadMixture(u, e.dir.File("PRIVATE.Q07"), {"64-17-5", "7732-18-5", "67-56-1"}));
  EXPECT_EQ(u.TKrit[2], 650.5f);
}

TEST_F(AEdit, WriteDataBaseQ07CancelledWritesNothing) {
  Open(1);
  const std::size_t dialogs = e.ui.fileDialogs.size();
  ed().WriteDataBaseQ07(e.f);
  EXPECT_EQ(e.ui.fileDialogs.size(), dialogs + 1);
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST_F(AEdit, EveryTabHasFieldsAndTheHelpFollowsTheTab) {
  int perTab[5] = {};
  for (const auto& d : peq::AEditFelder()) ++perTab[d.Tab];
  EXPECT_EQ(perTab[0], 13);
  EXPECT_EQ(perTab[1], 12 + 5 + 5 + 11 + 4);
  EXPECT_EQ(perTab[2], 10);
  EXPECT_EQ(perTab[3], 14);
  EXPECT_EQ(perTab[4], 14);
  Open(1);
  ed().Tab = 2;
  ed().cmdHilfe(e.f);
  ed().Tab = 4;
  ed().cmdHilfe(e.f);
  EXPECT_EQ(e.ui.helpTopics, (std::vector<int>{3333, 32920}));
}

}  // namespace
