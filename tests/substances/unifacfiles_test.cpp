// The group parameter files: start-up choice, reading into the tables, the increment fields, the
// group table texts, CheckUnifac, and the writer of the shipped files.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "models/activity.h"
#include "models/unifac_fixture.h"
#include "substances/q07.h"
#include "substances/unifacfiles.h"
#include "substances/unifacpar.h"

using acttest::Inkr;
using acttest::TempDir;

namespace {

std::string ReadAll(const std::string& p) {
  std::ifstream in(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

const char* kOSubs =
    "subgroup\tname\tR\tQ\tmain\n1\tCH3\t0.9011\t0.848\t1\n2\tCH2\t0.6744\t0.54\t1\n"
    "18\tCH3CO\t1.6724\t1.488\t9\n";
const char* kOPairs = "i\tj\ta_ij\ta_ji\n1\t9\t476.4\t26.76\n";

}  // namespace

// ---------------------------------------------------------------- start-up choice

TEST(UnifacFiles, StartupChoiceNoFilesLeavesNamesEmpty) {
  TempDir dir("choice0");
  std::string mod = "old", o = "old";
  peq::ChooseUnifacFiles(dir.path, mod, o);
  EXPECT_EQ(mod, "");
  EXPECT_EQ(o, "");
}

TEST(UnifacFiles, StartupChoiceLaterHitReplacesEarlier) {
  TempDir dir("choice1");
  std::string mod, o;
  dir.Write("MODUNIF4.PAR", "0\r\n0\r\n");
  peq::ChooseUnifacFiles(dir.path, mod, o);
  EXPECT_EQ(mod, (dir.path / "MODUNIF4.PAR").string());
  EXPECT_EQ(o, "");
  dir.Write("MODUNIF4B.PAR", "0\r\n0\r\n");
  peq::ChooseUnifacFiles(dir.path, mod, o);
  EXPECT_EQ(mod, (dir.path / "MODUNIF4B.PAR").string());
  dir.Write("MODUNIF4A.PAR", "0\r\n0\r\n");
  peq::ChooseUnifacFiles(dir.path, mod, o);
  EXPECT_EQ(mod, (dir.path / "MODUNIF4B.PAR").string());
  dir.Write("MODUNIF5PLUS.PAR", "0\r\n0\r\n");
  dir.Write("OUNIF6PLUS.PAR", "0\r\n0\r\n");
  peq::ChooseUnifacFiles(dir.path, mod, o);
  EXPECT_EQ(mod, (dir.path / "MODUNIF5PLUS.PAR").string());
  EXPECT_EQ(o, (dir.path / "OUNIF6PLUS.PAR").string());
}

// The build puts the shipped files beside the executables, where the choice finds them.
TEST(UnifacFiles, StartupChoiceFindsTheShippedFilesBesideThePrograms) {
  std::string mod, o;
  peq::ChooseUnifacFiles(peqtest::BinaryDir(), mod, o);
  EXPECT_EQ(std::filesystem::path(mod).filename(), "MODUNIF5PLUS.PAR");
  EXPECT_EQ(std::filesystem::path(o).filename(), "OUNIF6PLUS.PAR");
}

// ---------------------------------------------------------------- increments

TEST(UnifacFiles, ValReadsTheLeadingNumber) {
  EXPECT_EQ(peq::ValText("02001"), 2001.0);
  EXPECT_EQ(peq::ValText(" 2 001"), 2001.0);
  EXPECT_EQ(peq::ValText("1.5E2x"), 150.0);
  EXPECT_EQ(peq::ValText("-12ab"), -12.0);
  EXPECT_EQ(peq::ValText("abc"), 0.0);
  EXPECT_EQ(peq::ValText(""), 0.0);
  EXPECT_EQ(peq::ValText("  0.6325"), 0.6325);
  EXPECT_EQ(peq::ValText("3E"), 3.0);
}

// "02001,01002,..." : slot k is the five characters behind its comma; count*1000 + subgroup.
TEST(UnifacFiles, IncrementFieldParsing) {
  peq::InkrWerte v{};
  peq::ParseInkr("02001,01002,01018,00000,00000,00000,00000", v);
  EXPECT_EQ(v[0], 2001);
  EXPECT_EQ(v[1], 1002);
  EXPECT_EQ(v[2], 1018);
  EXPECT_EQ(v[3], 0);
  EXPECT_EQ(v[6], 0);
  peq::ParseInkr("06009", v);  // a short text: the missing slots are 0
  EXPECT_EQ(v[0], 6009);
  EXPECT_EQ(v[1], 0);
  peq::ParseInkr(" 2001,1 002", v);  // Val ignores blanks
  EXPECT_EQ(v[0], 2001);
  EXPECT_EQ(v[1], 1002);
  peq::ParseInkr("", v);
  EXPECT_EQ(v[0], 0);
}

// ---------------------------------------------------------------- loading

// Initial values: Mod. UNIFAC a = 9000 off the diagonal, 0 on it, b = c = 0; UNIFAC a = 0.
TEST(UnifacFiles, LoadSetsInitialTableValues) {
  TempDir dir("init");
  peq::Session s = acttest::MakeSession(2, 20);
  s.ModUnifFile = acttest::WriteModFile(dir, acttest::kMod2006Pairs, acttest::kModSubgroups);
  s.OUnifFile = acttest::WriteOUnifFile(dir, kOPairs, kOSubs);
  int16_t err = 1;
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, 0);
  const auto& t = s.Unifac;
  EXPECT_EQ(t.ModA(1, 7), 9000.0f);
  EXPECT_EQ(t.ModA(150, 149), 9000.0f);
  EXPECT_EQ(t.ModA(7, 7), 0.0f);
  EXPECT_EQ(t.ModB(1, 7), 0.0f);
  EXPECT_EQ(t.ModC(1, 7), 0.0f);
  EXPECT_EQ(t.ModA(1, 5), 2777.0f);
  EXPECT_EQ(t.ModB(1, 5), -4.674f);
  EXPECT_EQ(t.ModC(1, 5), 0.001551f);
  EXPECT_EQ(t.ModA(5, 1), 1606.0f);
  EXPECT_EQ(t.ModB(5, 1), -4.746f);
  EXPECT_EQ(t.ModC(5, 1), 0.0009181f);
  EXPECT_EQ(t.ModR(78), 0.7136f);
  EXPECT_EQ(t.ModQ(78), 0.8635f);
  EXPECT_EQ(t.ModMain(78), 42);
  EXPECT_EQ(t.ModR(3), 0.0f);
  EXPECT_EQ(t.ModA.size(), 151u);
  EXPECT_EQ(t.ModR.size(), 301u);
  peq::LoadOUnif(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(t.OUnifA(1, 9), 476.4f);
  EXPECT_EQ(t.OUnifA(9, 1), 26.76f);
  EXPECT_EQ(t.OUnifA(1, 2), 0.0f);
  EXPECT_EQ(t.OUnifR(18), 1.6724f);
  EXPECT_EQ(t.OUnifQ(18), 1.488f);
  EXPECT_EQ(t.OUnifMain(18), 9);
  EXPECT_EQ(t.OUnifA.size(), 80u);
  EXPECT_EQ(t.OUnifR.size(), 233u);
}

// Pair lines in free format (blanks or commas), subgroup lines in fixed columns.
TEST(UnifacFiles, LoadReadsFreePairsAndFixedColumns) {
  TempDir dir("cols");
  peq::Session s = acttest::MakeSession(2, 20);
  // Mod. UNIFAC: R in 19-26, Q in 29-35, main group in 37-39.
  s.ModUnifFile = dir.Write("M.PAR",
                            "2\n1 2 10.5 0.1 0.001 -20 -0.2 -0.002\n3,9, 146.2,-1.237,0.004237,"
                            "-57.53 ,1.212, -0.003715\n2\n"
                            // cols 1-5     7-18          19-26   29-35   37-39
                            "    7 H2O           1.7334   2.4561   7\n"
                            "   14 OH(P)         1.2302   0.8927   5 trailing text\n");
  int16_t err = 1;
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.Unifac.ModA(1, 2), 10.5f);
  EXPECT_EQ(s.Unifac.ModC(2, 1), -0.002f);
  EXPECT_EQ(s.Unifac.ModA(3, 9), 146.2f);
  EXPECT_EQ(s.Unifac.ModB(9, 3), 1.212f);
  EXPECT_EQ(s.Unifac.ModR(7), 1.7334f);
  EXPECT_EQ(s.Unifac.ModQ(7), 2.4561f);
  EXPECT_EQ(s.Unifac.ModMain(7), 7);
  EXPECT_EQ(s.Unifac.ModMain(14), 5);
  // UNIFAC: R in 19-25, Q in 28-34, main group in 36-38.
  s.OUnifFile = dir.Write("O.PAR",
                          "1\r\n 1,  9,  476.4,  26.76\r\n1\r\n"
                          // cols 1-5   7-18        19-25    28-34  36-38
                          "   16 H2O            0.92      1.4   7\r\n");
  peq::LoadOUnif(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.Unifac.OUnifR(16), 0.92f);
  EXPECT_EQ(s.Unifac.OUnifQ(16), 1.4f);
  EXPECT_EQ(s.Unifac.OUnifMain(16), 7);
}

// Fewer lines than the counts promise, a number that is none, a main group outside the table:
// err -1. A missing file: err -1 and the tables as they were.
TEST(UnifacFiles, ReadErrorsSetErr) {
  TempDir dir("readerr");
  peq::Session s = acttest::MakeSession(2, 20);
  int16_t err = 0;
  s.ModUnifFile = dir.Write("A.PAR", "3\n1 2 1 0 0 1 0 0\n");
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(s.Unifac.ModA(1, 2), 1.0f);  // what was read stays
  s.ModUnifFile = dir.Write("B.PAR", "1\n1 2 1 0 0 1 0 0\n2\n  1 CH3           0.6325   1.0608   1\n");
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, -1);
  s.ModUnifFile = dir.Write("C.PAR", "1\n1 2 x 0 0 1 0 0\n0\n");
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, -1);
  s.ModUnifFile = dir.Write("D.PAR", "1\n1 151 1 0 0 1 0 0\n0\n");
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, -1);
  s.OUnifFile = dir.Write("E.PAR", "1\n1 84 1 1\n0\n");
  peq::LoadOUnif(s, err);
  EXPECT_EQ(err, -1);
  s.OUnifFile = dir.Write("F.PAR", "0\n1\n  233 X           1.0     1.0   1\n");
  peq::LoadOUnif(s, err);
  EXPECT_EQ(err, -1);
  // Missing file: the tables keep the good load.
  s.ModUnifFile = acttest::WriteModFile(dir, acttest::kMod2006Pairs, acttest::kModSubgroups);
  peq::LoadModUnif(s, err);
  ASSERT_EQ(err, 0);
  s.ModUnifFile = (dir.path / "NONE.PAR").string();
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(s.Unifac.ModA(1, 5), 2777.0f);
}

// ---------------------------------------------------------------- group tables

TEST(UnifacFiles, GroupTableTexts) {
  TempDir dir("table");
  const std::string o = acttest::WriteOUnifFile(dir, kOPairs, kOSubs);
  bool ok = false;
  const std::string t = peq::OUnifacTableText(o, ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(t,
            "UNIFAC\n6th revision (2003)\n====================\nAC = aromatic C-atom\n"
            "cy = cyclic structure\n"
            "    1     CH3          0.9011    0.848   1\n"
            "    2     CH2          0.6744     0.54   1\n"
            "   18     CH3CO        1.6724    1.488   9\n");
  const std::string m = acttest::WriteModFile(dir, acttest::kMod2006Pairs, acttest::kModSubgroups);
  const std::string tm = peq::MUnifacTableText(m, ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(tm.substr(0, tm.find("cy = cyclic structure\n") + 22),
            "Mod. UNIFAC (Dortmund)\n5th revision (2006)\n====================\n"
            "AC = aromatic C-atom\ncy = cyclic structure\n");
  EXPECT_NE(tm.find("\n   78     CY-CH2        0.7136   0.8635  42\n"), std::string::npos);
  EXPECT_EQ(std::string(peq::kOUnifTableCaption), "UNIFAC groups");
  EXPECT_EQ(std::string(peq::kMUnifTableCaption), "Mod-UNIFAC groups");
  peq::OUnifacTableText((dir.path / "NONE.PAR").string(), ok);
  EXPECT_FALSE(ok);
}

// ---------------------------------------------------------------- CheckUnifac

namespace {

peq::Session CheckSession(const TempDir& dir) {
  peq::Session s = acttest::MakeSession(2, -1);
  s.StoffData[1].ModUnifInkr = Inkr({{1, 1}, {1, 18}});
  s.StoffData[2].ModUnifInkr = Inkr({{6, 9}});
  s.StoffData[1].OUnifInkr = Inkr({{2, 1}, {4, 2}});
  s.StoffData[2].OUnifInkr = Inkr({{1, 1}, {1, 2}, {1, 18}});
  s.TKrit[1] = 508.1f;
  s.TKrit[2] = 562.0f;
  s.ModUnifFile = acttest::WriteModFile(dir, acttest::kMod2006Pairs, acttest::kModSubgroups);
  s.OUnifFile = acttest::WriteOUnifFile(dir, kOPairs, kOSubs);
  return s;
}

}  // namespace

TEST(CheckUnifac, BothModelsUsable) {
  TempDir dir("chk1");
  peq::Session s = CheckSession(dir);
  s.UnifacNeu = false;
  bool modOK = false, unifOK = false;
  peq::MsgSink sink;
  const std::string msg = peq::CheckUnifac(s, modOK, unifOK, &sink);
  EXPECT_TRUE(modOK);
  EXPECT_TRUE(unifOK);
  EXPECT_EQ(msg, "");
  EXPECT_TRUE(sink.empty());
  EXPECT_TRUE(s.UnifacNeu);
}

TEST(CheckUnifac, MissingFilesDisableWithMessage) {
  TempDir dir("chk2");
  peq::Session s = CheckSession(dir);
  s.ModUnifFile = "";
  s.OUnifFile = (dir.path / "NONE.PAR").string();
  bool modOK = true, unifOK = true;
  peq::MsgSink sink;
  const std::string msg = peq::CheckUnifac(s, modOK, unifOK, &sink);
  EXPECT_FALSE(modOK);
  EXPECT_FALSE(unifOK);
  EXPECT_EQ(msg, "No Mod-UNIFAC parameter file found\nNo UNIFAC parameter file found\n");
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "WARNING");
  EXPECT_EQ(sink[0].text, msg);
  EXPECT_EQ(sink[0].icon, peq::MsgIcon::Warning);
}

// A substance with all-zero increments makes the model unavailable; Mod. UNIFAC says so, UNIFAC
// only clears its flag.
TEST(CheckUnifac, AllZeroIncrementsMakeModelUnavailable) {
  TempDir dir("chk3");
  peq::Session s = CheckSession(dir);
  s.StoffData[2].ModUnifInkr = "00000,00000,00000,00000,00000,00000,00000";
  s.StoffData[2].OUnifInkr = "00000,00000,00000,00000,00000,00000,00000";
  bool modOK = true, unifOK = true;
  peq::MsgSink sink;
  const std::string msg = peq::CheckUnifac(s, modOK, unifOK, &sink);
  EXPECT_FALSE(modOK);
  EXPECT_FALSE(unifOK);
  EXPECT_EQ(msg,
            "Not all components are Mod-UNIFAC incremented!\nA calculation using Mod-UNIFAC is "
            "not possible.");
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "WARNING");
}

// A missing pair fails the test call without a message.
TEST(CheckUnifac, MissingPairFailsTheTestCall) {
  TempDir dir("chk4");
  peq::Session s = CheckSession(dir);
  s.StoffData[2].ModUnifInkr = Inkr({{1, 1}, {1, 2}, {1, 14}});  // ethanol: pair 5-9 needed
  std::string pairs = acttest::kMod2006Pairs;
  const std::string row = "5\t9\t-250\t2.857\t-0.006022\t653.3\t-1.412\t0.000954\n";
  pairs.erase(pairs.find(row), row.size());
  s.ModUnifFile = acttest::WriteModFile(dir, pairs, acttest::kModSubgroups, "MISS.PAR");
  s.OUnifFile = acttest::WriteOUnifFile(dir, "i\tj\ta_ij\ta_ji\n", kOSubs, "OMISS.PAR");
  bool modOK = true, unifOK = true;
  const std::string msg = peq::CheckUnifac(s, modOK, unifOK);
  EXPECT_FALSE(modOK);
  EXPECT_FALSE(unifOK);
  EXPECT_EQ(msg, "");
  EXPECT_TRUE(s.UnifacNeu);
}

// The test temperature is half the smallest TKrit: a component without TKrit gives T = 0, and
// the test call fails.
TEST(CheckUnifac, TestTemperatureIsHalfTheSmallestTKrit) {
  TempDir dir("chk5");
  peq::Session s = CheckSession(dir);
  s.TKrit[2] = 0.0f;
  bool modOK = true, unifOK = true;
  peq::CheckUnifac(s, modOK, unifOK);
  EXPECT_FALSE(modOK);
  EXPECT_FALSE(unifOK);
}

// ---------------------------------------------------------------- the writer

TEST(UnifacParWriter, FixedColumnsAndRowsLeftOut) {
  std::vector<std::string> leftOut;
  const std::string o = peq::MakeOUnifPar(
      "i\tj\ta_ij\ta_ji\n9\t1\t26.76\t476.4\n1\t84\t-1243\t125.36\n1\t2\t86.02\t-35.36\n",
      "subgroup\tname\tR\tQ\tmain\n18\tCH3CO\t1.6724\t1.488\t9\n1\tCH3\t0.9011\t0.848\t1\n"
      "178\tIMIDAZOL\t2.026\t0.868\t84\n",
      leftOut);
  EXPECT_EQ(o,
            "2\r\n"
            "  1,   2,       86.02,      -35.36\r\n"
            "  9,   1,       26.76,       476.4\r\n"
            "2\r\n"
            "    1 CH3          0.9011    0.848   1\r\n"
            "   18 CH3CO        1.6724    1.488   9\r\n");
  ASSERT_EQ(leftOut.size(), 2u);
  EXPECT_NE(leftOut[0].find("1-84"), std::string::npos);
  EXPECT_NE(leftOut[1].find("178"), std::string::npos);
  const std::string m = peq::MakeModUnifPar(acttest::kMod2006Pairs, acttest::kModSubgroups, leftOut);
  EXPECT_TRUE(leftOut.empty());
  EXPECT_NE(m.find("\r\n   78 CY-CH2        0.7136   0.8635  42\r\n"), std::string::npos);
  EXPECT_EQ(m.substr(0, 4), "10\r\n");
  EXPECT_THROW(peq::MakeOUnifPar("i\tj\ta_ij\ta_ji\n1\t2\t86.02\n", "s\n", leftOut),
               peq::UnifacParError);
}

// The shipped files are what the tool makes of the curated tables, byte for byte (skipped when
// the tables are not beside the source tree).
TEST(UnifacParWriter, ShippedFilesAreReproducible) {
  const std::string src = peqtest::SourceDir() + "/../shared/data/unifac/";
  if (!std::filesystem::exists(src + "unifac_interactions.tsv")) GTEST_SKIP() << "no curated tables";
  std::vector<std::string> leftOut;
  const std::string o = peq::MakeOUnifPar(ReadAll(src + "unifac_interactions.tsv"),
                                          ReadAll(src + "unifac_subgroups.tsv"), leftOut);
  EXPECT_EQ(leftOut.size(), 9u);  // 7 pairs with main groups 84, 85 and subgroups 178, 179
  EXPECT_EQ(o, ReadAll(acttest::ShippedOUnifFile()));
  const std::string m = peq::MakeModUnifPar(ReadAll(src + "modunifac_interactions.tsv"),
                                            ReadAll(src + "modunifac_subgroups.tsv"), leftOut);
  EXPECT_TRUE(leftOut.empty());
  EXPECT_EQ(m, ReadAll(acttest::ShippedModFile()));
}

// The shipped files load without error and hold the published numbers (a few spot checks from
// the curated tables: UNIFAC a(1,2) = 86.02, a(2,1) = -35.36; CH3 R 0.9011 Q 0.848; Dortmund
// a(1,2) = 189.66, b(1,2) = -0.2723, a(2,1) = -95.418; CH3 R 0.6325 Q 1.0608).
TEST(UnifacParWriter, ShippedFilesLoad) {
  peq::Session s = acttest::MakeSession(2, 20);
  s.ModUnifFile = acttest::ShippedModFile();
  s.OUnifFile = acttest::ShippedOUnifFile();
  int16_t err = 1;
  peq::LoadOUnif(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.Unifac.OUnifA(1, 2), 86.02f);
  EXPECT_EQ(s.Unifac.OUnifA(2, 1), -35.36f);
  EXPECT_EQ(s.Unifac.OUnifR(1), 0.9011f);
  EXPECT_EQ(s.Unifac.OUnifQ(1), 0.848f);
  EXPECT_EQ(s.Unifac.OUnifA(22, 23), 0.0f);
  peq::LoadModUnif(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.Unifac.ModA(1, 2), 189.66f);
  EXPECT_EQ(s.Unifac.ModB(1, 2), -0.2723f);
  EXPECT_EQ(s.Unifac.ModA(2, 1), -95.418f);
  EXPECT_EQ(s.Unifac.ModR(1), 0.6325f);
  EXPECT_EQ(s.Unifac.ModQ(1), 1.0608f);
}

// The bundled database carries both increment fields and UNIQUAC r, q for the substances of the
// curated group assignments (135 Mod. UNIFAC and 136 UNIFAC rows of groups.tsv, 136 rows of
// uniquac_rq.tsv), and every subgroup it names is in the shipped parameter file of its model:
// a pure-component call of each substance gives gamma 1.
TEST(UnifacParWriter, BundledDatabaseFitsTheParameterFiles) {
  const std::string bank = peqtest::SourceDir() + "/data/PEQBASE.Q07";
  if (!std::filesystem::exists(bank)) GTEST_SKIP() << "no bundled database";
  int mod = 0, ounif = 0, rq = 0;
  // The tables are read once; each substance gets a copy of the loaded session.
  peq::Session loaded = acttest::MakeSession(1, 20);
  loaded.ModUnifFile = acttest::ShippedModFile();
  loaded.OUnifFile = acttest::ShippedOUnifFile();
  int16_t e1 = 1, e2 = 1;
  peq::LoadModUnif(loaded, e1);
  peq::LoadOUnif(loaded, e2);
  ASSERT_EQ(e1, 0);
  ASSERT_EQ(e2, 0);
  loaded.Unifac.ModGeladen = true;
  loaded.UnifacNeu = false;
  for (int rec = 2;; ++rec) {
    peq::Q07Record r;
    std::string err;
    if (!peq::ReadQ07Record(bank, rec, r, err)) break;
    if (r.V[2] > 0 && r.V[3] > 0) ++rq;
    for (int model : {20, 21}) {
      const std::string& inkr = model == 20 ? r.ModUnifInkr : r.OUnifInkr;
      if (peq::ValText(inkr.substr(0, 5)) <= 0) continue;
      ++(model == 20 ? mod : ounif);
      peq::Session s = loaded;
      s.GEModel = static_cast<int16_t>(model);
      s.StoffData[1].ModUnifInkr = s.StoffData[1].OUnifInkr = inkr;
      auto x = acttest::X({1.0});
      auto g = acttest::G(1);
      int16_t err = 1;
      peq::ActivityCoeffs(s, 300.0, x, g, err);
      EXPECT_EQ(err, 0) << r.Name1 << " model " << model;
      EXPECT_REL(g[1], 1.0, 1e-13);
      peq::InkrWerte v{};
      peq::ParseInkr(inkr, v);
      for (int32_t w : v) {
        if (w == 0) continue;
        const int sub = w % 1000;
        const float R = model == 20 ? s.Unifac.ModR(static_cast<std::size_t>(sub))
                                    : s.Unifac.OUnifR(static_cast<std::size_t>(sub));
        EXPECT_GT(R, 0.0f) << r.Name1 << " model " << model << " subgroup " << sub;
      }
    }
  }
  EXPECT_EQ(mod, 135);
  EXPECT_EQ(ounif, 136);
  EXPECT_EQ(rq, 136);
}
