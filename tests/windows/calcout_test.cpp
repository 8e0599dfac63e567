// The result window of the state calculation: titles, headings, the three flashes and their
// failures, the activity coefficients, molar masses, densities, the number patterns, the lists.
#include "windows/calcout.h"

#include <cmath>

#include <gtest/gtest.h>

#include "engine/flash.h"
#include "models/activity.h"
#include "models/pureprops.h"
#include "windows/calc_fixture.h"

namespace {

using peq::MsgIcon;
using peq::WindowId;
using peqtest::CalcTest;

// ---- number patterns (hand-formatted values) ----

TEST(CalcOutFormat, FractionsHaveSevenDecimalsAndOneHasSix) {
  EXPECT_EQ(peq::FormatBruch(0.5), "0.5000000");
  EXPECT_EQ(peq::FormatBruch(0.123456789), "0.1234568");
  EXPECT_EQ(peq::FormatBruch(0), "0.0000000");
  EXPECT_EQ(peq::FormatBruch(1), "1.000000");
  EXPECT_EQ(peq::FormatBruch(0.99999999), "1.0000000");  // not exactly 1: the usual pattern
}

TEST(CalcOutFormat, AmountsHaveAMantissaBelowOne) {
  EXPECT_EQ(peq::FormatMenge(1), ".10000E+01");
  EXPECT_EQ(peq::FormatMenge(0), ".00000E+00");
  EXPECT_EQ(peq::FormatMenge(123.456), ".12346E+03");
  EXPECT_EQ(peq::FormatMenge(0.000123456), ".12346E-03");
  EXPECT_EQ(peq::FormatMenge(0.5), ".50000E+00");
  EXPECT_EQ(peq::FormatMenge(0.999999), ".10000E+01");  // rounding carries into the exponent
  EXPECT_EQ(peq::FormatMenge(-2), "-.20000E+01");
}

TEST(CalcOutFormat, ActivityCoefficientsHaveThreeDecimalsAndNoLeadingZero) {
  EXPECT_EQ(peq::FormatGamma(1.2346), "1.235");
  EXPECT_EQ(peq::FormatGamma(0.5), ".500");
  EXPECT_EQ(peq::FormatGamma(12345.6789), "12345.679");
  EXPECT_EQ(peq::FormatGamma(-0.25), "-.250");
}

TEST(CalcOutFormat, TheSystemsDecimalCommaIsRespected) {
  EXPECT_EQ(peq::FormatBruch(0.5, true), "0,5000000");
  EXPECT_EQ(peq::FormatBruch(1, true), "1,000000");
  EXPECT_EQ(peq::FormatMenge(1, true), ",10000E+01");
  EXPECT_EQ(peq::FormatGamma(0.5, true), ",500");
  EXPECT_EQ(peq::FormatFest(353.15, 3, true), "353,150");
}

// ---- gamma-phi: NRTL and the ideal gas ----

class CalcOut : public CalcTest {
 protected:
  void SetUp() override { Models(false); }
};

TEST_F(CalcOut, TheTitleOfThePartialConcept) {
  FlashPT(101.325, 355.15);
  EXPECT_EQ(out.Caption, "Result of the calculation (partial calculation)");
  EXPECT_EQ(out.lblMethode, "...calculated using a vapour pressure equation ");
}

TEST_F(CalcOut, TheHeadingOfPAndT) {
  FlashPT(101.325, 355.15);
  EXPECT_EQ(out.lblUeberschrift, "Vapour fraction and composition foe p/kPa = 101.325, T/K = 355.150");
}

TEST_F(CalcOut, ATPFlashInsideTheTwoPhaseRegion) {
  // 82 degrees C and 1 atm: between the bubble point (about 353.6 K with these parameters) and
  // the dew point (about 358.0 K) of the equimolar feed, so both phases exist.
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest) << out.lblErgebnis;
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_GT(out.eta, 0.0);
  EXPECT_LT(out.eta, 1.0);
  EXPECT_EQ(out.lblErgebnis, "");
  EXPECT_TRUE(out.cmdProtokollEnabled);
  // Material balance z = (1 - eta) x + eta y.
  for (int i = 1; i <= 2; ++i)
    EXPECT_NEAR((1 - out.eta) * out.xL[i] + out.eta * out.xV[i], e.s.Feed[i], 1e-6);
  EXPECT_EQ(out.txtEta, peq::FormatBruch(out.eta));
  EXPECT_EQ(out.txtT, "355.150");
  EXPECT_EQ(out.txtp, "101.325");
  // Ethanol is the lighter component: richer in the vapour.
  EXPECT_GT(out.xV[1], out.xL[1]);
}

TEST_F(CalcOut, OutsideTheRangeShowsTheThreeLinesAndNoSolution) {
  // 100 bar at 82 degrees C: far above the bubble pressure, no vapour can exist.
  FlashPT(10000, 355.15);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  const std::string words =
      "With your T-p combination you\nare outside the PEQ range.\nAdvice: You should get an overview of "
      "this situation using the p-x or T-x diagram.";
  EXPECT_EQ(e.ui.Last().text.substr(0, words.size()), words);
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Stop);
  EXPECT_FALSE(out.Geloest);
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
  EXPECT_FALSE(out.cmdProtokollEnabled);
  EXPECT_EQ(out.txtWerte[1][1], "");
  // The window stays open, and nothing is recorded.
  EXPECT_TRUE(e.f.IsLoaded(WindowId::frmCalcOut));
  out.cmdProtokoll(e.f);
  EXPECT_FALSE(e.s.ProtokollAktiv);
}

TEST_F(CalcOut, AboveTheDewPointTheStateIsToldAllVapour) {
  // 101.325 kPa and 400 K: far above the dew point of ethanol/water (about 365 K for z = 0.5).
  FlashPT(101.325, 400);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  const std::string& t = e.ui.Last().text;
  EXPECT_EQ(t.find("With your T-p combination you\nare outside the PEQ range.\n"), 0u);
  const std::size_t nl = t.rfind('\n');
  ASSERT_NE(nl, std::string::npos);
  const std::string line = t.substr(nl + 1);
  EXPECT_EQ(line.find("The mixture is all vapour: at T/K = 400 its dew point lies at p/kPa = "), 0u) << line;
  EXPECT_EQ(out.lblZustand, line);
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
  // The dew pressure told is the one of the flash with eta(V) = 1 at 400 K, and lies above p.
  const double pD = std::stod(line.substr(line.find("p/kPa = ") + 8));
  EXPECT_GT(pD, 101.325);
}

TEST_F(CalcOut, BelowTheBubblePointTheStateIsToldAllLiquid) {
  FlashPT(101.325, 330);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_NE(out.lblZustand.find("The mixture is all liquid: at T/K = 330 its bubble point lies at p/kPa = "),
            std::string::npos)
      << out.lblZustand;
  EXPECT_EQ(e.ui.Last().text.substr(e.ui.Last().text.rfind('\n') + 1), out.lblZustand);
}

TEST_F(CalcOut, ARecordedResultIsConfirmedInTheStatusLine) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  e.ui.statusLines.clear();
  out.cmdProtokoll(e.f);
  ASSERT_EQ(e.ui.statusLines.size(), 1u);
  EXPECT_EQ(e.ui.statusLines[0], "Result recorded in " + e.s.ProtokollDatei);
}

TEST_F(CalcOut, PAndEtaGiven) {
  Command(1);
  in.optVorgabe_Click(e.f, 1);
  in.txtp_Change(e.f, "101.325");
  in.txtetaV_Change(e.f, "0.5");
  FeedIn({"1", "1"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  EXPECT_GT(out.T, 340.0);
  EXPECT_LT(out.T, 373.15);
  EXPECT_EQ(out.eta, 0.5);
  EXPECT_EQ(out.p, 101.325);
  EXPECT_EQ(out.lblUeberschrift, "Temperature and composition for T/K = " + peq::FormatFest(out.T, 3));
}

TEST_F(CalcOut, PAndEtaWithoutSolution) {
  Command(1);
  in.optVorgabe_Click(e.f, 1);
  in.txtp_Change(e.f, "0");  // no bubble temperature at p = 0
  in.txtetaV_Change(e.f, "0.5");
  FeedIn({"1", "1"});
  Weiter();
  EXPECT_FALSE(out.Geloest);
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
  EXPECT_EQ(out.lblUeberschrift, "Temperature and composition for T/K = ");
  for (const auto& b : e.ui.boxes) EXPECT_NE(b.text.rfind("With your T-p", 0), 0u);
}

TEST_F(CalcOut, TAndEtaGiven) {
  Command(1);
  in.optVorgabe_Click(e.f, 0);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "353.15");
  in.txtetaV_Change(e.f, "0.5");
  FeedIn({"1", "1"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  EXPECT_GT(out.p, 50.0);
  EXPECT_LT(out.p, 150.0);
  EXPECT_EQ(out.T, 353.15);
  EXPECT_EQ(out.lblUeberschrift, "Pressure and composition for p/kPa = " + peq::FormatFest(out.p, 3) +
                                     ", T/K = 353.150");
}

TEST_F(CalcOut, TAndEtaWithoutSolution) {
  Command(1);
  in.optVorgabe_Click(e.f, 0);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "800");  // above the critical temperatures of both
  in.txtetaV_Change(e.f, "0.5");
  FeedIn({"1", "1"});
  Weiter();
  EXPECT_FALSE(out.Geloest);
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
}

TEST_F(CalcOut, MeanMolarMassesInSinglePrecision) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  // Equimolar feed: M(feed) = (M1 + M2)/2, about (46.07 + 18.02)/2 = 32.04 kg/kmol.
  const double mf = 0.5 * e.s.MolMasse[1] + 0.5 * e.s.MolMasse[2];
  EXPECT_NEAR(out.MFeed, mf, 1e-5);
  EXPECT_NEAR(out.MFeed, 32.04, 0.01);
  // Each a 32-bit sum: the material balance holds to single precision.
  EXPECT_NEAR((1 - out.eta) * out.ML + out.eta * out.MV, out.MFeed, 1e-4);
  EXPECT_GT(out.MV, out.ML);  // the vapour is richer in ethanol
  EXPECT_EQ(out.txtMFeed, peq::FormatFest(out.MFeed, 3));
}

TEST_F(CalcOut, DensitiesAreBlankInTheGammaPhiConcept) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  EXPECT_FALSE(out.DichteOK);
  EXPECT_EQ(out.txtRhoV, "");
  EXPECT_EQ(out.txtRhoL, "");
}

TEST_F(CalcOut, TheResultUnits) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  // Mole fractions (the default).
  EXPECT_EQ(out.optResUnit, 2);
  EXPECT_EQ(out.txtWerte[1][0], "0.5000000");
  EXPECT_EQ(out.txtWerte[1][1], peq::FormatBruch(out.xL[1]));
  EXPECT_EQ(out.txtWerte[2][2], peq::FormatBruch(out.xV[2]));
  // Amounts: n(L) = (1 - eta) s x, n(V) = eta s y with s = 2 kmol.
  out.optResUnit_Click(e.f, 0);
  EXPECT_EQ(out.txtWerte[1][0], ".10000E+01");
  EXPECT_EQ(out.txtWerte[1][1], peq::FormatMenge(out.xL[1] * (1 - out.eta) * 2.0));
  EXPECT_EQ(out.txtWerte[1][2], peq::FormatMenge(out.xV[1] * out.eta * 2.0));
  // Masses.
  out.optResUnit_Click(e.f, 1);
  EXPECT_EQ(out.txtWerte[2][0], peq::FormatMenge(e.s.MolMasse[2]));
  // Mass fractions of the feed: w1 = M1/(M1 + M2).
  out.optResUnit_Click(e.f, 3);
  const double w1 = e.s.MolMasse[1] / (static_cast<double>(e.s.MolMasse[1]) + e.s.MolMasse[2]);
  EXPECT_EQ(out.txtWerte[1][0], peq::FormatBruch(w1));
}

TEST_F(CalcOut, APureFeedShowsOneAsOnePointSixZeros) {
  FlashPT(101.325, 355.15);
  // Feed fractions only: the result does not matter here.
  e.s.Feed[1] = 1;
  e.s.Feed[2] = 0;
  out.Anzeigen(e.s);
  EXPECT_EQ(out.txtWerte[1][0], "1.000000");
  EXPECT_EQ(out.txtWerte[2][0], "0.0000000");
}

TEST_F(CalcOut, TheDecimalCommaOnTheScreen) {
  e.s.DezKomma = true;
  FlashPT(101.325, 355.15);
  EXPECT_EQ(out.txtWerte[1][0], "0,5000000");
  EXPECT_EQ(out.txtT, "355,150");
}

TEST_F(CalcOut, TheListOfVapourPressures) {
  FlashPT(101.325, 355.15);
  ASSERT_EQ(out.cmbP0.size(), 3u);
  EXPECT_EQ(out.cmbP0[0], "pure-subst. vapour pressures p0/kPa");
  EXPECT_EQ(out.cmbP0[1], "Ethanol: " + peq::FormatFest(e.s.P0[1], 3));
  EXPECT_EQ(out.cmbP0[2], "Water: " + peq::FormatFest(e.s.P0[2], 3));
  // At 82 degrees C the vapour pressure of water is about 51.4 kPa (steam tables: 47.39 kPa at
  // 80 degrees C, 57.87 kPa at 85 degrees C).
  EXPECT_NEAR(out.p0[2], 51.4, 1.0);
}

TEST_F(CalcOut, TheDelimiterWarningWithADecimalComma) {
  FlashPT(101.325, 355.15);
  e.ui.boxes.clear();
  out.cmbSep_Click(e.f, 1);
  EXPECT_TRUE(e.ui.boxes.empty());  // a decimal point: no warning
  EXPECT_EQ(e.s.ListTrenner, ",");
  e.s.DezKomma = true;
  out.cmbSep_Click(e.f, 0);
  EXPECT_TRUE(e.ui.boxes.empty());
  EXPECT_EQ(e.s.ListTrenner, ";");
  out.cmbSep_Click(e.f, 1);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Warning");
  EXPECT_EQ(e.ui.Last().text,
            "with computer setting \"Germany\" (decimal character = comma)\n"
            "it is not reasonable to take the comma as delimiter character;\n"
            "the content of the clipboard is not Excel-compatible.\n"
            "recommended: semicolon");
  EXPECT_EQ(e.ui.Last().icon, MsgIcon::Warning);
  EXPECT_EQ(e.s.ListTrenner, ",");
  out.cmbSep_Click(e.f, 2);
  EXPECT_EQ(e.s.ListTrenner, "\t");
}

TEST_F(CalcOut, TheDelimiterList) {
  EXPECT_STREQ(peq::kTrennerTexte[0], "Semicolon");
  EXPECT_STREQ(peq::kTrennerTexte[1], "Comma");
  EXPECT_STREQ(peq::kTrennerTexte[2], "Tab");
  EXPECT_STREQ(peq::kProtokollCaption, "Record the results");
  EXPECT_STREQ(peq::kOpenNewCaption, "close file / new file / copy record on clipboard");
}

TEST_F(CalcOut, HelpTopics) {
  FlashPT(101.325, 355.15);
  out.cmdHelp(e.f);
  out.cmdHelpProtokoll(e.f);
  Command(3);
  FeedIn({"1", "1"});
  Weiter();
  out.cmdHelp(e.f);
  EXPECT_EQ(e.ui.helpTopics, (std::vector<int>{17000, 96799, 17500}));
}

// The help of the result window is a page of its own, not the page of topics without help.
TEST_F(CalcOut, EachHelpButtonOpensAPageOfItsOwn) {
  FlashPT(101.325, 355.15);
  out.cmdHelp(e.f);
  out.cmdHelpProtokoll(e.f);
  Command(3);
  FeedIn({"1", "1"});
  Weiter();
  out.cmdHelp(e.f);
  ASSERT_EQ(e.ui.helpTopics.size(), 3u);
  const std::filesystem::path help = std::filesystem::path(peqtest::SourceDir()) / "data" / "help";
  for (int topic : e.ui.helpTopics) {
    const std::filesystem::path page = peq::HelpPage(help, topic);
    EXPECT_EQ(page.filename(), std::to_string(topic) + ".html");
    const std::string text = Bytes(page.string());
    EXPECT_NE(text.find("<a href=\"33410.html\">Help index</a>"), std::string::npos) << topic;
    // The index leads to the page.
    EXPECT_NE(Bytes((help / "33410.html").string()).find("href=\"" + std::to_string(topic) + ".html\""),
              std::string::npos)
        << topic;
  }
}

TEST_F(CalcOut, CloseUnloadsTheWindow) {
  FlashPT(101.325, 355.15);
  out.cmdClose(e.f);
  EXPECT_FALSE(e.f.IsLoaded(WindowId::frmCalcOut));
}

TEST_F(CalcOut, ActivityCoefficientMode) {
  Command(3);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "298.15");
  FeedIn({"1", "3"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  EXPECT_EQ(out.Art, 2);
  EXPECT_EQ(out.lblUeberschrift, "Activity coefficients, T/K = 298.150");
  // The same coefficients from the model directly.
  peq::Vec<double> g(3, 0.0);
  int16_t err = 0;
  peq::ActivityCoeffs(e.s, 298.15, e.s.Feed, g, err);
  ASSERT_EQ(err, 0);
  EXPECT_GT(g[1], 1.0);  // positive deviation of ethanol in water
  EXPECT_EQ(out.txtWerte[1][1], peq::FormatGamma(g[1]));
  EXPECT_EQ(out.txtWerte[2][1], peq::FormatGamma(g[2]));
  EXPECT_EQ(out.txtWerte[1][0], "0.2500000");
  // gE/RT = sum x ln f; delta(M)g/RT adds sum x ln x.
  const double ge = 0.25 * std::log(g[1]) + 0.75 * std::log(g[2]);
  EXPECT_NEAR(out.GERT, ge, 1e-12);
  EXPECT_NEAR(out.DelMGRT, ge + 0.25 * std::log(0.25) + 0.75 * std::log(0.75), 1e-12);
  EXPECT_EQ(out.txtGE, peq::FormatGamma(ge));
}

TEST_F(CalcOut, AFailureOfTheActivityCoefficientsIsReported) {
  Command(3);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "0");  // no vapour pressure at 0 K
  FeedIn({"1", "1"});
  Weiter();
  EXPECT_FALSE(out.Geloest);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.Last().title, "Execution not possible");
  EXPECT_EQ(e.ui.Last().text, "during the calculation an error occured");
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
}

// ---- phi-phi: Peng-Robinson ----

class CalcOutPhiPhi : public CalcTest {
 protected:
  void SetUp() override { Models(true); }
};

TEST_F(CalcOutPhiPhi, TheTitleOfTheGlobalConcept) {
  FlashPT(101.325, 350);
  EXPECT_EQ(out.Caption, "Result of the calculation (global calculation)");
  EXPECT_EQ(out.lblMethode, "...calculated using Equation Of State (EOS) ");
}

TEST_F(CalcOutPhiPhi, ThePhaseDensities) {
  // 350 K, 1 atm: between the bubble and the dew point of the equimolar feed under
  // Peng-Robinson with k(ij) 0.
  FlashPT(101.325, 350);
  ASSERT_TRUE(out.Geloest) << out.lblErgebnis;
  ASSERT_TRUE(out.DichteOK);
  EXPECT_GT(out.RhoL, 500.0);
  EXPECT_LT(out.RhoL, 1100.0);
  // Near the ideal gas at 1 atm: rho = p M/(R T) within a few per cent.
  EXPECT_NEAR(out.RhoV, 101.325 * out.MV / (8.31451 * 350), 0.05 * out.RhoV);
  EXPECT_EQ(out.txtRhoL, peq::FormatFest(out.RhoL, 3));
  EXPECT_EQ(out.txtRhoV, peq::FormatFest(out.RhoV, 3));
}

}  // namespace
