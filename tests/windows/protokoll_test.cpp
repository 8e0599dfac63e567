// The result record: its name, the first line, the legend, the substance table, the column
// heads, the data lines in single precision, the delimiter, the clipboard text and the next
// file, and the end of the record at exit.
#include "windows/protokoll.h"

#include <filesystem>

#include <gtest/gtest.h>

#include "engine/flash.h"
#include "session/writefmt.h"
#include "windows/calc_fixture.h"

namespace {

namespace fs = std::filesystem;
using peqtest::CalcTest;
using peqtest::TempDir;

constexpr const char* kDatum = "11-21-2026";

// ---- the name ----

TEST(ProtokollName, TheDateTextGivesYearMonthDayAndASerial) {
  TempDir dir;
  // "mm-dd-yyyy": the right two "26", the left two "11", the two from place 4 "21".
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), kDatum), (fs::path(dir.path()) / "26112101.CSV").string());
}

TEST(ProtokollName, TheSerialRisesWhileTheFileExists) {
  TempDir dir;
  peqtest::WriteBytes(dir.path(), "26112101.CSV", "x");
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), kDatum), (fs::path(dir.path()) / "26112102.CSV").string());
  for (int k = 2; k <= 9; ++k) peqtest::WriteBytes(dir.path(), "2611210" + std::to_string(k) + ".CSV", "x");
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), kDatum), (fs::path(dir.path()) / "26112110.CSV").string());
}

TEST(ProtokollName, AfterSerial99TheSerialGoesOnWithThreeDigits) {
  TempDir dir;
  for (int k = 1; k <= 99; ++k)
    peqtest::WriteBytes(dir.path(), "261121" + std::string(k < 10 ? "0" : "") + std::to_string(k) + ".CSV", "x");
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), kDatum), (fs::path(dir.path()) / "261121100.CSV").string());
  peqtest::WriteBytes(dir.path(), "261121100.CSV", "x");
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), kDatum), (fs::path(dir.path()) / "261121101.CSV").string());
  // The frame's name at start counts on the same way.
  std::tm d{};
  d.tm_year = 2026 - 1900;
  d.tm_mon = 10;
  d.tm_mday = 21;
  EXPECT_EQ(fs::path(peq::NeueProtokollDatei(dir.path(), d)).filename(), "261121101.CSV");
}

TEST(ProtokollName, TheSameNameAsTheFrameGivesAtStart) {
  TempDir dir;
  std::tm d{};
  d.tm_year = 2026 - 1900;
  d.tm_mon = 10;
  d.tm_mday = 21;
  EXPECT_EQ(peq::DatumText(d), kDatum);
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), peq::DatumText(d)), peq::NeueProtokollDatei(dir.path(), d));
  d.tm_mon = 0;
  d.tm_mday = 5;
  EXPECT_EQ(peq::DatumText(d), "01-05-2026");
  EXPECT_EQ(peq::ProtokollDateiName(dir.path(), peq::DatumText(d)), peq::NeueProtokollDatei(dir.path(), d));
}

TEST(ProtokollName, AValueInSinglePrecisionAndTheDecimalComma) {
  EXPECT_EQ(peq::ProtokollZahl(353.15f, false), "353.15");
  EXPECT_EQ(peq::ProtokollZahl(353.15f, true), "353,15");
  EXPECT_EQ(peq::ProtokollZahl(0.1f, false), "0.1");
  EXPECT_EQ(peq::ProtokollZahl(static_cast<float>(1.0 / 3.0), false), "0.33333334");
}

// ---- the record of a flash ----

class Protokoll : public CalcTest {
 protected:
  void SetUp() override {
    Models(false);
    e.s.ProtokollDatei = peq::ProtokollDateiName(dir.path(), kDatum);
  }
  // The flash, and one line recorded with the fixed date.
  void Record() {
    out.Datum = kDatum;
    out.cmdProtokoll(e.f);
  }
  std::vector<std::string> L() const { return Lines(e.s.ProtokollDatei); }
  TempDir dir;
};

TEST_F(Protokoll, TheFirstLineAndTheLegendVerbatim) {
  FlashPT(101.325, 355.15);
  Record();
  const std::vector<std::string> z = L();
  ASSERT_GE(z.size(), 7u);
  EXPECT_EQ(z[0], "Phase Equilibria PEQ - protocol from 11-21-2026");
  EXPECT_EQ(z[1], "Units: [T] = K   [p] = kPa   [v] = m^3/kmol   [rho] = kg/m^3   [n] = kmol   [m] = kg");
  EXPECT_EQ(z[2], "activity coefficients [f(i)] = 1");
  EXPECT_EQ(z[3], "Concept : 1 = gamma - phi (partial concept)   2 = phi - phi (global concept)");
  EXPECT_EQ(z[4],
            "GE-Model: 0 = Ideal mixture; 1 = Wilson   2 = NRTL   4 = Redlich-Kister   9 = UNIQUAC   20 = "
            "Modif.UNIFAC (Do)   21 = UNIFAC");
  EXPECT_EQ(z[5],
            "EOS - Equation of State: 3 = Redlich-Kwong   4 = Soave-Redlich-kwong   5 = Peng-Robinson   6 = van der "
            "Waals");
  EXPECT_EQ(z[6],
            "MR - Mixing Rule (in the case of phi-phi concept): 1 = vdW-arithm. mean   2 = vdW-geom. mean   5 = GE "
            "(p=>oo)   6 = GE (P=>0)");
}

TEST_F(Protokoll, ADaysRecord99IsNeverOverwritten) {
  // 99 records of the day exist already; the held name is taken by another file.
  for (int k = 1; k <= 99; ++k)
    peqtest::WriteBytes(dir.path(), "261121" + std::string(k < 10 ? "0" : "") + std::to_string(k) + ".CSV",
                        "record " + std::to_string(k));
  e.s.ProtokollDatei = (fs::path(dir.path()) / "26112199.CSV").string();
  FlashPT(101.325, 355.15);
  Record();
  EXPECT_EQ(e.ui.boxes.size(), 0u);
  EXPECT_EQ(e.s.ProtokollDatei, (fs::path(dir.path()) / "261121100.CSV").string());
  EXPECT_EQ(Bytes((fs::path(dir.path()) / "26112199.CSV").string()), "record 99");
  ASSERT_EQ(L().size(), 12u);
  EXPECT_EQ(L()[0], "Phase Equilibria PEQ - protocol from 11-21-2026");
  // The next file after "close file / new file" is 101.
  out.cmdOpenNew(e.f);
  EXPECT_EQ(e.s.ProtokollDatei, (fs::path(dir.path()) / "261121101.CSV").string());
}

TEST_F(Protokoll, TheSubstanceTableAndTheColumnHead) {
  FlashPT(101.325, 355.15);
  Record();
  const std::vector<std::string> z = L();
  ASSERT_EQ(z.size(), 12u);
  EXPECT_EQ(z[7], " No.;Substance; Mol. Mass");
  EXPECT_EQ(z[8], "1;Ethanol;" + peq::WriteSgl(e.s.MolMasse[1]));
  EXPECT_EQ(z[9], "2;Water;" + peq::WriteSgl(e.s.MolMasse[2]));
  EXPECT_EQ(z[10],
            "Line#;Concept;GE-model;EOS;Mix. Rule;T;p;eta(V);rho(L);rho(V);p0(1);p0(2);v0(1);v0(2);n0(1);n0(2);"
            "x0(1);x0(2);xL(1);xL(2);xV(1);xV(2);f(1);f(2);");
  // Lines end with CR LF.
  EXPECT_NE(Bytes(e.s.ProtokollDatei).find("UNIFAC\r\n"), std::string::npos);
}

TEST_F(Protokoll, TheDataLineInSinglePrecision) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  Record();
  EXPECT_TRUE(e.s.ProtokollAktiv);
  const std::vector<std::string> f = Fields(L().back());
  ASSERT_EQ(f.size(), 7u * 2 + 9 + 1 + 1);  // the line number, 7 n + 9 values, the trailing ";"
  EXPECT_EQ(f[0], "1");
  EXPECT_EQ(f[1], "1");  // gamma-phi
  EXPECT_EQ(f[2], "2");  // NRTL
  EXPECT_EQ(f[3], std::to_string(e.s.EOSModel));
  EXPECT_EQ(f[4], std::to_string(e.s.MixRule));
  EXPECT_EQ(f[5], peq::WriteSgl(355.15f));
  EXPECT_EQ(f[6], peq::WriteSgl(101.325f));
  EXPECT_EQ(f[7], peq::WriteSgl(static_cast<float>(out.eta)));
  EXPECT_EQ(f[8], "");  // rho(L) and rho(V) blank in the gamma-phi concept
  EXPECT_EQ(f[9], "");
  for (int i = 1; i <= 2; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    EXPECT_EQ(f[9 + k], peq::WriteSgl(out.p0[k]));
    EXPECT_EQ(f[11 + k], peq::WriteSgl(out.vLiq[k]));
    EXPECT_EQ(f[13 + k], "1");  // n0 = 1 kmol
    EXPECT_EQ(f[15 + k], "0.5");
    EXPECT_EQ(f[17 + k], peq::WriteSgl(static_cast<float>(out.xL[k])));
    EXPECT_EQ(f[19 + k], peq::WriteSgl(static_cast<float>(out.xV[k])));
    EXPECT_EQ(f[21 + k], peq::WriteSgl(static_cast<float>(out.gamma[k])));
  }
  EXPECT_EQ(f[24], "");
  // The values are those of the flash itself.
  peq::Vec<double> z = e.s.Feed;
  const double eta = peq::FlashTP(e.s, 355.15, 101.325, z);
  EXPECT_EQ(f[7], peq::WriteSgl(static_cast<float>(eta)));
  EXPECT_EQ(f[18], peq::WriteSgl(static_cast<float>(e.s.XLiq[1])));
  EXPECT_EQ(f[20], peq::WriteSgl(static_cast<float>(e.s.YGas[1])));
}

TEST_F(Protokoll, LinesAreNumbered) {
  FlashPT(101.325, 355.15);
  Record();
  Record();
  Record();
  const std::vector<std::string> z = L();
  ASSERT_EQ(z.size(), 14u);
  EXPECT_EQ(Fields(z[11])[0], "1");
  EXPECT_EQ(Fields(z[12])[0], "2");
  EXPECT_EQ(Fields(z[13])[0], "3");
  EXPECT_EQ(e.s.ProtokollNr, 3);
}

TEST_F(Protokoll, TAndEtaGivenRecordTheFoundPressure) {
  Command(1);
  in.optVorgabe_Click(e.f, 0);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "353.15");
  in.txtetaV_Change(e.f, "0.25");
  FeedIn({"1", "1"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  Record();
  const std::vector<std::string> f = Fields(L().back());
  EXPECT_EQ(f[5], peq::WriteSgl(353.15f));                     // T given
  EXPECT_EQ(f[6], peq::WriteSgl(static_cast<float>(out.p)));  // p found
  EXPECT_NE(f[6], peq::WriteSgl(101.325f));
  EXPECT_EQ(f[7], peq::WriteSgl(0.25f));                      // eta(V) given
}

TEST_F(Protokoll, PAndTGivenRecordTheFoundVapourFraction) {
  FlashPT(101.325, 355.15);
  ASSERT_TRUE(out.Geloest);
  Record();
  const std::vector<std::string> f = Fields(L().back());
  EXPECT_EQ(f[7], peq::WriteSgl(static_cast<float>(out.eta)));
  EXPECT_NE(f[7], peq::WriteSgl(static_cast<float>(e.s.EtaVCalc)));
}

TEST_F(Protokoll, TheDecimalCommaSwapsTheDecimalCharacterOfTheValues) {
  e.s.DezKomma = true;
  FlashPT(101.325, 355.15);
  Record();
  const std::vector<std::string> z = L();
  EXPECT_EQ(z[8], "1;Ethanol;" + peq::ProtokollZahl(e.s.MolMasse[1], true));
  const std::vector<std::string> f = Fields(z.back());
  EXPECT_EQ(f[5], "355,15");
  EXPECT_EQ(f[6], "101,325");
  EXPECT_EQ(f[16], "0,5");  // x0(1)
}

TEST_F(Protokoll, TheChosenDelimiterJoinsTheFields) {
  FlashPT(101.325, 355.15);
  out.cmbSep_Click(e.f, 2);
  Record();
  const std::vector<std::string> z = L();
  EXPECT_EQ(z[7], " No.\tSubstance\t Mol. Mass");
  EXPECT_EQ(z[10].rfind("Line#\tConcept\tGE-model\tEOS\tMix. Rule\tT\tp\teta(V)\trho(L)\trho(V)\tp0(1)\t", 0), 0u);
  EXPECT_EQ(Fields(z.back(), '\t').size(), 25u);
}

TEST_F(Protokoll, TwoRecordsInOneDayGetTheSerials01And02) {
  FlashPT(101.325, 355.15);
  Record();
  const std::string first = e.s.ProtokollDatei;
  EXPECT_EQ(fs::path(first).filename().string(), "26112101.CSV");
  out.cmdOpenNew(e.f);
  EXPECT_FALSE(e.s.ProtokollAktiv);
  EXPECT_EQ(fs::path(e.s.ProtokollDatei).filename().string(), "26112102.CSV");
  Record();
  EXPECT_EQ(fs::path(e.s.ProtokollDatei).filename().string(), "26112102.CSV");
  const std::vector<std::string> z = L();
  ASSERT_EQ(z.size(), 12u);
  EXPECT_EQ(z[0], "Phase Equilibria PEQ - protocol from 11-21-2026");
  EXPECT_EQ(Fields(z.back())[0], "1");  // the count begins again
  EXPECT_TRUE(fs::exists(first));
}

TEST_F(Protokoll, CloseFileNewFilePutsTheRecordOnTheClipboard) {
  FlashPT(101.325, 355.15);
  Record();
  Record();
  const std::vector<std::string> z = L();
  out.cmdOpenNew(e.f);
  // Every line ended by CR LF, every ";" a tab.
  std::string expected;
  for (std::string line : z) {
    for (char& c : line)
      if (c == ';') c = '\t';
    expected += line + "\r\n";
  }
  EXPECT_EQ(e.ui.clipboard, expected);
  EXPECT_EQ(e.ui.clipboard.rfind("Phase Equilibria PEQ - protocol from 11-21-2026\r\nUnits: [T] = K", 0), 0u);
  EXPECT_NE(e.ui.clipboard.find("\r\n No.\tSubstance\t Mol. Mass\r\n1\tEthanol\t"), std::string::npos);
  EXPECT_NE(e.ui.clipboard.find("GE-Model: 0 = Ideal mixture\t 1 = Wilson"), std::string::npos);
  EXPECT_EQ(e.ui.clipboard.find(';'), std::string::npos);
  EXPECT_NE(e.ui.clipboard.find("\r\n2\t1\t2\t"), std::string::npos);
}

TEST_F(Protokoll, CloseFileNewFileWithoutARecordPutsNothingOnTheClipboard) {
  FlashPT(101.325, 355.15);
  e.ui.clipboard = "before";
  out.Datum = kDatum;
  out.cmdOpenNew(e.f);
  EXPECT_EQ(e.ui.clipboard, "before");
  EXPECT_EQ(fs::path(e.s.ProtokollDatei).filename().string(), "26112101.CSV");
}

TEST_F(Protokoll, AnActivityCoefficientRecord) {
  Command(3);
  in.optTUnit_Click(e.f, 0);
  in.txtT_Change(e.f, "298.15");
  FeedIn({"1", "3"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  Record();
  const std::vector<std::string> z = L();
  ASSERT_EQ(z.size(), 12u);
  EXPECT_EQ(z[1], "Units: [T] = K  [p] = kPa  [gE/RT] = 1   [del(M)g/RT] = 1");
  EXPECT_EQ(z[10], "Line#;gE-model;T;gE/RT; del(M)g/RT;p0(1);p0(2);x0(1);x0(2);f(1);f(2);");
  const std::vector<std::string> f = Fields(z[11]);
  ASSERT_EQ(f.size(), 3u * 2 + 4 + 1 + 1);
  EXPECT_EQ(f[0], "1");
  EXPECT_EQ(f[1], "2");
  EXPECT_EQ(f[2], peq::WriteSgl(298.15f));
  EXPECT_EQ(f[3], peq::WriteSgl(static_cast<float>(out.GERT)));
  EXPECT_EQ(f[4], peq::WriteSgl(static_cast<float>(out.DelMGRT)));
  EXPECT_EQ(f[7], "0.25");
  EXPECT_EQ(f[8], "0.75");
  EXPECT_EQ(f[9], peq::WriteSgl(static_cast<float>(out.gamma[1])));
}

TEST_F(Protokoll, ALineOfTheOtherKindGetsItsColumnHeadFirst) {
  FlashPT(101.325, 355.15);
  Record();
  Command(3);
  FeedIn({"1", "1"});
  Weiter();
  ASSERT_TRUE(out.Geloest);
  Record();
  const std::vector<std::string> z = L();
  ASSERT_EQ(z.size(), 14u);
  EXPECT_EQ(z[12], "Line#;gE-model;T;gE/RT; del(M)g/RT;p0(1);p0(2);x0(1);x0(2);f(1);f(2);");
  EXPECT_EQ(Fields(z[13])[0], "2");
}

TEST_F(Protokoll, AFileOfTheHeldNameThatTheRecordDidNotWriteStays) {
  peqtest::WriteBytes(dir.path(), "26112101.CSV", "someone else's\r\n");
  FlashPT(101.325, 355.15);
  Record();
  EXPECT_EQ(Bytes((fs::path(dir.path()) / "26112101.CSV").string()), "someone else's\r\n");
  EXPECT_EQ(fs::path(e.s.ProtokollDatei).filename().string(), "26112102.CSV");
}

TEST_F(Protokoll, ExitClosesTheRecordAndKeepsItsFile) {
  e.f.ProtokollSchreiben = [this] { peq::ProtokollBeenden(e.s); };
  FlashPT(101.325, 355.15);
  Record();
  const std::string file = e.s.ProtokollDatei;
  e.f.Exit();
  EXPECT_FALSE(e.s.ProtokollAktiv);
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(L().size(), 12u);
}

TEST_F(Protokoll, ExitDeletesAnEmptyRecord) {
  e.f.ProtokollSchreiben = [this] { peq::ProtokollBeenden(e.s); };
  const std::string file = peqtest::WriteBytes(dir.path(), "26112101.CSV", "");
  e.s.ProtokollDatei = file;
  e.s.ProtokollAktiv = true;
  e.f.Exit();
  EXPECT_FALSE(fs::exists(file));
}

}  // namespace
