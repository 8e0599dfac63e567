// The McCabe-Thiele dialog and the record window: every message of the design checks, the
// drawing on the x-y diagram, the counts, the record row, and the record file with its heads.
#include "windows/thielemccabe.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "distillation/thiele_sessions.h"
#include "session/loadpath.h"
#include "windows/distprotokoll.h"
#include "windows/frame_fixture.h"

namespace {

using namespace peq;
using peqtest::FrameEnv;

// The ethanol(1)/water(2) example project on an isobaric x-y diagram at 101.325 kPa.
struct ThieleEnv : FrameEnv {
  ThieleEnv() {
    s.PfadBank = peqtest::BinaryDir() + "/";
    MsgSink sink;
    EXPECT_EQ(ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink), LoadStage::Loaded);
    EXPECT_TRUE(EOSTabellenBerechnen(s));
    f.DiagrammRechnen = [this] { Graph2DRechnen(f, f.Graph2D); };
    OeffneXY();
  }
  void OeffneXY() {
    s.NoDia = 6;
    s.IsoArt = 2;
    s.PIso = 101.325;
    s.SofortZeichnen = true;
    Graph2DRechnen(f, f.Graph2D);
    f.Thiele.Form_Load(f);
    ui.boxes.clear();
  }
  void Setze(const char* top, const char* bottom, const char* feed, const char* rr) {
    f.Thiele.txtX = {top, bottom, feed};
    f.Thiele.txtRR = rr;
  }
  // Exchange of the components on the diagram, as the button does.
  void Tausch() {
    f.Graph2D.cmdTausch_Click(f);
    ui.boxes.clear();
  }
};

// The constant-volatility binary in a frame of its own.
struct KonstEnv : FrameEnv {
  KonstEnv() {
    s = peqtest::KonstanteFluechtigkeit(2.5);
    s.PIso = 101.325;
    s.NoDia = 6;
    f.Graph2D.Doc.NoDia = 6;
    f.Thiele.Form_Load(f);
  }
};

TEST(ThieleDialog, LoadShowsTotalRefluxAndTheQuestionMark) {
  KonstEnv e;
  EXPECT_EQ(e.f.Thiele.txtRR, " 1E+10");
  EXPECT_EQ(e.f.Thiele.txtRRMin, " ?");
  EXPECT_EQ(e.f.Thiele.txtX[0], "0.95");
  EXPECT_EQ(e.f.Thiele.txtX[1], "0.05");
  EXPECT_EQ(e.f.Thiele.txtX[2], "0.50");
  EXPECT_TRUE(e.f.Thiele.Topmost);
  EXPECT_EQ(e.f.Thiele.lblX, "x");
}

TEST(ThieleDialog, CompositionOutsideTheRangeIsRefused) {
  KonstEnv e;
  e.f.Thiele.txtX = {"1.2", "0.05", "0.5"};
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_TRUE(e.Shown("Execution not possible", "the input concentrations have to be in the range 0 < x < 1"));
  // Without a feed the feed field is not looked at.
  e.ui.boxes.clear();
  e.f.Thiele.txtX = {"0.95", "0.05", "abc"};
  e.f.Thiele.OptKontDest = false;
  e.f.Thiele.txtRR = "20";
  EXPECT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST(ThieleDialog, OrderAndReflexRatioCollectInOneBox) {
  KonstEnv e;
  e.f.Thiele.txtX = {"0.4", "0.05", "0.5"};
  e.f.Thiele.txtRR = "0";
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.boxes[0].title, "Execution not possible");
  EXPECT_EQ(e.ui.boxes[0].text,
            "Note:\n- 0 < x2 <1\n- x2(bottom) <= x2(feed) < x2(top)\nThe reflux ratio has to greater than 0.");
  EXPECT_EQ(e.f.Graph2D.Doc.Serien[kSerieStufen].Punkte(), 0);
}

TEST(ThieleDialog, WrongOrderOfTheComponentsIsRefused) {
  KonstEnv e;
  std::swap(e.s.P0Eq[1], e.s.P0Eq[2]);
  std::swap(e.s.ParALP[1], e.s.ParALP[2]);  // component 1 now the more volatile
  e.f.Thiele.txtRR = "2";
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_TRUE(e.Shown("Execution not possible",
                      "The more volatile substance has to be situated on the right-hand side.\n"
                      "you have to exchange the components (Button 1<=>2)"));
}

TEST(ThieleDialog, ReflexRatioBelowTheMinimumNeverDraws) {
  KonstEnv e;
  e.f.Thiele.txtRR = "1.05";
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_TRUE(e.Shown("Execution not possible", "The reflux ratio chosen has to be greater than the minimum-RR!"));
  EXPECT_EQ(e.f.Thiele.txtRRMin, " 1.1");
  EXPECT_EQ(e.f.Graph2D.Doc.Serien[kSerieStufen].Punkte(), 0);
  EXPECT_EQ(e.f.Graph2D.Doc.Serien[kMaxKurven + 2].Punkte(), 0);
  EXPECT_FALSE(e.f.DistProtokoll.P.AktuellGueltig);
}

TEST(ThieleDialog, NewtonResetLandsOnHalfWhenTheCurvedLineHasNoRoot) {
  // A top of 0.6 over a feed of 0.5 whose vapour is already richer (y* = 0.714): the curved line
  // runs between x and XKopf for every R and never reaches y*. The Newton steps below zero, is
  // reset to 0.5, steps below zero again and stops there, since R + h and the new R agree.
  KonstEnv e;
  peqtest::SetLVHKonstant(e.s, 1, 30000);
  peqtest::SetLVHKonstant(e.s, 2, 40000);
  e.f.Thiele.txtX = {"0.6", "0.05", "0.5"};
  e.f.Thiele.chkHLV = true;
  e.f.Thiele.txtRR = "2";
  EXPECT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_EQ(e.f.Thiele.txtRRMin, " 0.5");
  // The straight line gives a negative ratio there, shown as " 0".
  e.f.Thiele.chkHLV = false;
  EXPECT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_EQ(e.f.Thiele.txtRRMin, " 0");
}

TEST(ThieleDialog, RRMinFailureGivesTheAdviceWithTheCheckbox) {
  // The feed boils above the critical temperature given to both components: no bubble point at
  // the feed, while the pure boiling points and the azeotrope search still answer.
  KonstEnv e;
  peqtest::SetLVHKonstant(e.s, 1, 30000);
  peqtest::SetLVHKonstant(e.s, 2, 40000);
  e.s.TKrit[1] = 343.0f;
  e.s.TKrit[2] = 343.0f;
  e.f.Thiele.txtX = {"0.95", "0.05", "0.1"};
  e.f.Thiele.chkHLV = true;
  e.f.Thiele.txtRR = "2";
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes.back().title, "Execution not possible");
  EXPECT_EQ(e.ui.boxes.back().text, "Error while calculating RR(min)\n(Advice: Switch off the checkbox \"delta(LV)H\")");
  EXPECT_EQ(e.f.Thiele.txtRRMin, " ?");
  e.ui.boxes.clear();
  e.f.Thiele.chkHLV = false;
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes.back().text, "Error while calculating RR(min)");
}

TEST(ThieleDialog, CalculateDrawsStepsLinesAndLabels) {
  KonstEnv e;
  e.f.Thiele.txtRR = "2";
  ASSERT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_EQ(e.f.Thiele.txtRRMin, " 1.1");
  EXPECT_EQ(e.f.Thiele.lblBoeden1, "4 th. lates (UC)");
  EXPECT_EQ(e.f.Thiele.lblBoeden2, "7 th. plates (LC)");
  const Graph2DDoc& d = e.f.Graph2D.Doc;
  EXPECT_EQ(d.Serien[kSerieStufen].Punkte(), 33);
  EXPECT_EQ(e.f.Thiele.StufenPunkte, 33);
  EXPECT_EQ(d.Serien[kMaxKurven + 1].Punkte(), 2);  // the diagonal
  EXPECT_EQ(d.Serien[kMaxKurven + 2].Label, "Top");
  EXPECT_EQ(d.Serien[kMaxKurven + 3].Label, "Bottom");
  EXPECT_EQ(d.Serien[kMaxKurven + 3].Punkte(), 2);
  EXPECT_EQ(d.Serien[kMaxKurven + 5].Label, "Feed");
  EXPECT_FLOAT_EQ(d.Serien[kMaxKurven + 2].x[0], 0.95f);
  // Both lines end at the feed point on the upper line.
  EXPECT_NEAR(d.Serien[kMaxKurven + 3].y[1], 2.0 / 3 * 0.5 + 0.95 / 3, 1e-6);
  EXPECT_FALSE(e.ui.refreshed.empty());
  // The record row: RR, 11 plates, feed, bottom, top (component 2 the given x2).
  const DistProtokoll& p = e.f.DistProtokoll.P;
  ASSERT_TRUE(p.AktuellGueltig);
  ASSERT_EQ(p.Aktuell.size(), 11u);
  EXPECT_FLOAT_EQ(p.Aktuell[1], 2.0f);
  EXPECT_FLOAT_EQ(p.Aktuell[2], 11.0f);
  EXPECT_FLOAT_EQ(p.Aktuell[3], 0.5f);   // x(1),F
  EXPECT_FLOAT_EQ(p.Aktuell[6], 0.05f);  // x(2),B
  EXPECT_FLOAT_EQ(p.Aktuell[8], 0.95f);  // x(2),T
  EXPECT_GT(p.Aktuell[9], p.Aktuell[10]);  // the bottom boils higher than the top
}

TEST(ThieleDialog, WithoutFeedOneSectionAndNoFeedLabel) {
  KonstEnv e;
  e.f.Thiele.OptKontDest = false;
  e.f.Thiele.txtRR = "20";
  ASSERT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  EXPECT_EQ(e.f.Thiele.txtRRMin, " 12.579");
  EXPECT_NE(e.f.Thiele.lblBoeden1.find(" th. plates"), std::string::npos);
  EXPECT_TRUE(e.f.Thiele.lblBoeden2.empty());
  const Graph2DDoc& d = e.f.Graph2D.Doc;
  EXPECT_EQ(d.Serien[kMaxKurven + 5].Punkte(), 0);  // no feed point
  EXPECT_EQ(d.Serien[kMaxKurven + 3].Punkte(), 1);  // the bottom point only, no lower line
  EXPECT_TRUE(e.s.ThieleOption);
}

TEST(ThieleDialog, CurvedLineIsDrawnInStepsOfTwoHundredths) {
  KonstEnv e;
  peqtest::SetLVHKonstant(e.s, 1, 30000);
  peqtest::SetLVHKonstant(e.s, 2, 40000);
  e.f.Thiele.chkHLV = true;
  e.f.Thiele.txtRR = "3";
  ASSERT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  const Serie& oben = e.f.Graph2D.Doc.Serien[kMaxKurven + 2];
  EXPECT_EQ(oben.Punkte(), 24);  // 0.50, 0.52, ..., 0.94 and the top
  EXPECT_NEAR(oben.x[1] - oben.x[0], 0.02, 1e-6);
  EXPECT_FLOAT_EQ(e.f.Thiele.D.EnthFaktor, 4.0f);
}

TEST(ThieleDialog, EthanolWaterTopBeyondTheAzeotropeIsRefused) {
  ThieleEnv e;
  // Ethanol(1)/water(2): the axis is x(water); the azeotrope lies at x2 = 0.10 to 0.11, a
  // pressure maximum, so a top of 0.95 lies beyond it.
  e.Setze("0.95", "0.05", "0.5", "3");
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  const std::string& t = e.ui.boxes[0].text;
  EXPECT_EQ(e.ui.boxes[0].title, "Execution not possible");
  EXPECT_EQ(t.rfind("Between top and bottom concentration may not be an azeotropic point situated!\n"
                    "top and bottom concentrations x2 have to be less than the azeotropic concentrations.\n\n"
                    "(Pressure-maximum azeotrope,\n azeotropic concentration x2(az) = 0.1",
                    0),
            0u)
      << t;
  EXPECT_NE(t.find(")\n\nIf you want to carry out the calculation on the other side of the azeotrope,\n"
                   "you have to exchange the components (Button 1<=>2)"),
            std::string::npos);
  EXPECT_EQ(e.f.Graph2D.Doc.Serien[kSerieStufen].Punkte(), 0);
}

TEST(ThieleDialog, EthanolWaterAfterTheExchangeStepsTheEthanolSide) {
  ThieleEnv e;
  e.Tausch();  // the axis is now x(ethanol), the azeotrope at about 0.89
  EXPECT_EQ(e.s.Komp1, 2);
  e.Setze("0.95", "0.05", "0.5", "3");
  EXPECT_FALSE(e.f.Thiele.cmdCalc_Click(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_NE(e.ui.boxes[0].text.find("azeotropic concentration x1(az) = 0.8"), std::string::npos) << e.ui.boxes[0].text;
  // Below the azeotrope the design goes through.
  e.ui.boxes.clear();
  e.Setze("0.8", "0.05", "0.3", "3");
  ASSERT_TRUE(e.f.Thiele.cmdCalc_Click(e.f)) << (e.ui.boxes.empty() ? "" : e.ui.boxes[0].text);
  EXPECT_GT(e.f.Thiele.D.BoedenOben, 0);
  EXPECT_GT(e.f.Thiele.StufenPunkte, 6);
  EXPECT_NE(e.f.Thiele.txtRRMin, " ?");
}

// ---- the record window ----

TEST(DistRecord, RowsAreNumberedAndWrittenWithHeadAndLegend) {
  KonstEnv e;
  e.f.Thiele.txtRR = "2";
  ASSERT_TRUE(e.f.Thiele.cmdCalc_Click(e.f));
  frmDistProtokoll& w = e.f.DistProtokoll;
  w.Form_Load(e.f);
  EXPECT_TRUE(w.cmdProtokoll_Click(e.f));
  EXPECT_TRUE(w.cmdProtokoll_Click(e.f));
  ASSERT_EQ(w.P.ProtZeilen(), 2);
  EXPECT_FLOAT_EQ(w.P.Zeilen[1][0], 2.0f);
  const std::string datei = w.P.ProtokollDatei;
  ASSERT_TRUE(w.cmdOpenNew_Click(e.f));
  std::ifstream in(datei, std::ios::binary);
  std::stringstream ss;
  ss << in.rdbuf();
  const std::string t = ss.str();
  EXPECT_EQ(t.rfind("PEQ: protocol of a distillation calculation, ", 0), 0u);
  EXPECT_NE(t.find("\r\nMcCabe-Thiele design method\r\n\r\nquantities and units: \r\n"
                   "RR reflux ratio, NTP number of theor. plates\r\n"
                   "t(B)/\u00B0C; t(T)/\u00B0C; bottoms/top temperature\r\n"
                   "x(i),F; x(i),B; x(i),T; feed/bottoms/top composition (mole fractions)\r\n\r\n"
                   "components of the mixture:\r\nSubst. Index.;Substance;Mol. Mass\r\n1;Benzene;"),
            std::string::npos)
      << t;
  EXPECT_NE(t.find("#row;RR; NTP;x(1),F;x(2),F;x(1),B;x(2),B;x(1),T;x(2),T;t(B)/\u00B0C; t(T)/\u00B0C;\r\n"
                   "1;2;11;0.5;0.5;0.95;0.05;0.05;0.95;"),
            std::string::npos)
      << t;
  EXPECT_NE(t.find("\r\n2;2;11;"), std::string::npos);
  // The clipboard: tabs and CR LF; then a new file name and no rows.
  EXPECT_EQ(e.ui.clipboard.rfind("1\t2\t11\t0.5\t0.5\t0.95\t0.05\t0.05\t0.95\t", 0), 0u) << e.ui.clipboard;
  EXPECT_NE(e.ui.clipboard.find("\r\n2\t2\t11\t"), std::string::npos);
  EXPECT_EQ(w.P.ProtZeilen(), 0);
  EXPECT_NE(w.P.ProtokollDatei, datei);
}

TEST(DistRecord, CommaUnderDecimalCommaWarns) {
  KonstEnv e;
  e.s.DezKomma = true;
  frmDistProtokoll& w = e.f.DistProtokoll;
  w.Form_Load(e.f);
  w.cmbSep_Click(e.f, 1);
  w.cmdProtokoll_Click(e.f);
  EXPECT_TRUE(e.Shown("WARNING",
                      "For computer setting \"Germany\" (decimal character = comma)\n"
                      "it is not reasonable to take the comma as delimiter character;\n"
                      "the content of the clipboard is not Excel-compatible.\nrecommended: semicolon"));
  e.ui.boxes.clear();
  w.cmbSep_Click(e.f, 0);
  w.cmdProtokoll_Click(e.f);
  EXPECT_TRUE(e.ui.boxes.empty());
}

TEST(DistRecord, KelvinHeadAndMassFractions) {
  Session s = peqtest::KonstanteFluechtigkeit(2.5);
  s.TOffsetOut = 0;
  s.ConcUnit = 1;
  EXPECT_EQ(DistKopf(s, kProtThiele, 0, ";"),
            "#row;RR; NTP;xi(1),F;xi(2),F;xi(1),B;xi(2),B;xi(1),T;xi(2),T;T(B)/K; T(T)/K;");
  EXPECT_EQ(DistKopf(s, kProtThiele, 0, "\t"),
            "#row\tRR\t NTP\txi(1),F\txi(2),F\txi(1),B\txi(2),B\txi(1),T\txi(2),T\tT(B)/K\t T(T)/K\t");
}

TEST(DistRecord, BatchHeadPerFractionInBothUnits) {
  Session s = peqtest::KonstanteFluechtigkeit(2.5);
  s.TOffsetOut = 0;
  EXPECT_EQ(DistKopf(s, kProtBatch, 1, ";"),
            "#row;RR; NTP;n(1),SP;n(2),SP;T(B)/K,beg(1); T(T)/K,beg(1);T(B)/K,end(1); T(T)/K,end(1);"
            "n, fr(1);x(1, 1);x(2, 1);");
  s.TOffsetOut = 273.15;
  EXPECT_EQ(DistKopf(s, kProtBatch, 1, ","),
            "#row,RR, NTP,n(1),SP,n(2),SP,t(B)/\u00B0C,beg(1), t(T)/\u00B0C,beg(1),t(B)/\u00B0C,end(1), "
            "t(T)/\u00B0C,end(1),n, fr(1),x(1, 1),x(2, 1),");
}

TEST(DistRecord, BatchRowWithoutFractionsHasOnlyTheRunColumns) {
  Session s = peqtest::KonstanteFluechtigkeit(2.5);
  DistProtokoll p;
  p.Einrichten(kProtBatch, 2, 0);
  EXPECT_EQ(p.ProtSpalten, 4);  // #row, RR, NTP, n(1),SP, n(2),SP
  // A hand-made batch row.
  p.Zeilen.push_back({1.0f, 5.0f, 10.0f, 0.4f, 0.6f});
  const std::string t = DistProtokollText(s, p, "11-23-2026", "12:00:00");
  EXPECT_NE(t.find("\r\nBatch distillation with 0 distillate fractions\r\n"), std::string::npos);
  EXPECT_NE(t.find("n(i),SP/kmol: initial stillpot composition (anf\u00E4nglicher Destillationsblasen-Inhalt)\r\n"
                   "t(B)/\u00B0C,beg(j); t(T)/\u00B0C,beg(j); bottoms/top temperature, begin of the distillate fraction j\r\n"
                   "t(B)/\u00B0C,end(j); t(T)/\u00B0C,end(j); bottoms/top temperature, end of the distillate fraction j\r\n"
                   "n,fr(j)/kmol: amount of substance of fraction j\r\n"
                   "x(i, j): composition of distillate fraction j\r\n"),
            std::string::npos);
  EXPECT_NE(t.find("#row;RR; NTP;n(1),SP;n(2),SP;\r\n1;5;10;0.4;0.6;\r\n"), std::string::npos) << t;
  // With two fractions the columns grow by 7 each; a changed count clears the rows.
  p.Einrichten(kProtBatch, 2, 2);
  EXPECT_EQ(p.ProtSpalten, 18);
  EXPECT_EQ(p.ProtZeilen(), 0);
}

TEST(DistRecord, NeverOverwritesAnExistingFile) {
  KonstEnv e;
  frmDistProtokoll& w = e.f.DistProtokoll;
  w.Form_Load(e.f);
  const std::string name = w.P.ProtokollDatei;
  { std::ofstream(name) << "someone else's file"; }
  w.P.Einrichten(kProtThiele, 2, 0);
  w.P.Zeilen.push_back(std::vector<float>(11, 1.0f));
  ASSERT_TRUE(w.schreibProtFileAndClose(e.f));
  EXPECT_NE(w.P.ProtokollDatei, name);
  std::ifstream in(name);
  std::string first;
  std::getline(in, first);
  EXPECT_EQ(first, "someone else's file");
}

}  // namespace
