// Project files: writer, reader with every failure case, and the shared load path.
#include "session/project.h"

#include <unistd.h>

#include <atomic>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "session/loadpath.h"
#include "session/writefmt.h"
#include "substances/bank.h"
#include "substances/q07.h"
#include "support/fuzzy.h"

namespace {

namespace fs = std::filesystem;
using peq::Message;
using peq::MsgIcon;
using peq::MsgSink;
using peq::Session;

// ---- fixtures ---------------------------------------------------------------------------

// A fresh directory under the system's temporary directory, removed afterwards.
class TempDir {
 public:
  TempDir() {
    static std::atomic<int> counter{0};
    path_ = fs::temp_directory_path() /
            ("peq_project_test_" + std::to_string(::getpid()) + "_" + std::to_string(counter++));
    fs::remove_all(path_);
    fs::create_directories(path_);
  }
  ~TempDir() {
    std::error_code ec;
    fs::remove_all(path_, ec);
  }
  const fs::path& path() const { return path_; }
  std::string dir() const { return path_.string() + "/"; }
  std::string operator/(const std::string& name) const { return (path_ / name).string(); }

 private:
  fs::path path_;
};

// A substance record with critical data and a low-pressure ANTOINE equation
// lg(p/kPa) = A - B/(C + t/°C). The constants are the common mmHg forms of Lange's Handbook of
// Chemistry (water 8.07131/1730.63/233.426, ethanol 8.20417/1642.89/230.300, benzene
// 6.90565/1211.033/220.790, acetone 7.11714/1210.595/229.664) with lg(760/101.325) = 0.875097
// taken off A. Critical data: Poling, Prausnitz, O'Connell, The Properties of Gases and Liquids,
// 5th ed., Appendix A.
peq::Q07Record Substance(const char* formel, const char* en, const char* de, const char* cas,
                         float M, float tc, float pc, float rhoc, float omega, float tb, float a,
                         float b, float c, float tlo, float thi) {
  peq::Q07Record r;
  r.Formel = formel;
  r.Name1 = en;
  r.Name2 = de;
  r.CasNr = cas;
  r.V[0] = M;
  r.V[6] = tc;
  r.V[7] = pc;
  r.V[8] = rhoc;
  r.V[9] = omega;
  r.V[10] = tb;
  r.V[36] = a;
  r.V[37] = b;
  r.V[38] = c;
  r.V[39] = tlo;
  r.V[40] = thi;
  return r;
}

std::vector<peq::Q07Record> TestSubstances() {
  return {
      Substance("C2H6O", "ethanol", "Ethanol", "64-17-5", 46.069f, 513.92f, 6148.f, 276.f, 0.649f,
                351.44f, 7.32907f, 1642.89f, 230.300f, 216.f, 353.f),
      Substance("H2O", "water", "Wasser", "7732-18-5", 18.015f, 647.14f, 22064.f, 322.f, 0.344f,
                373.15f, 7.19621f, 1730.63f, 233.426f, 274.f, 373.f),
      Substance("C6H6", "benzene", "Benzol", "71-43-2", 78.114f, 562.05f, 4895.f, 305.f, 0.210f,
                353.24f, 6.03055f, 1211.033f, 220.790f, 281.f, 376.f),
      Substance("C3H6O", "acetone", "Aceton", "67-64-1", 58.080f, 508.1f, 4700.f, 278.f, 0.307f,
                329.22f, 6.24204f, 1210.595f, 229.664f, 241.f, 350.f),
  };
}

void MakeBank(const std::string& path, const std::vector<peq::Q07Record>& subs) {
  std::string err;
  ASSERT_TRUE(peq::WriteQ07(path, subs, err)) << err;
}

// A session with the test database open.
Session OpenSession(const TempDir& bank, const std::string& name = "TEST.Q07") {
  Session s;
  s.PfadBank = bank.dir();
  bool notFound = true, empty = true;
  peq::BankOeffnen(s, name, notFound, empty);
  EXPECT_FALSE(notFound);
  EXPECT_FALSE(empty);
  return s;
}

// The mixture water (1) + ethanol (2) with every project field set to a value other than its
// default, as the writer would find it after a session of work.
Session GoldenSession(const TempDir& bank) {
  Session s = OpenSession(bank);
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  s.KompIdx[1] = 2;
  s.KompIdx[2] = 1;
  for (int i = 1; i <= 2; ++i) {
    s.StoffData[i].CasNr = s.BankCAS[s.KompIdx[i]];
    s.StoffData[i].Name = s.BankName[s.KompIdx[i]];
  }
  s.StoffMenge[1] = 1.5f;
  s.StoffMenge[2] = 0.25f;
  s.TIso = 351.15;
  s.PIso = 101.325;
  s.XIso = 0.3;
  s.TCalc = 350.5;
  s.PCalc = 90;
  s.EtaVCalc = 0.125;
  s.Rechenart = 2;
  s.CalcEinheit1 = 1;
  s.CalcEinheit2 = 0;
  s.ThieleOption = true;
  s.TOffsetIn = 0;
  s.TOffsetOut = 273.15;
  s.ConcUnit = 1;
  s.FuUnit = 2;
  s.KurvenPunkte = 300;
  s.RueckLauf = 2.5f;
  s.DruckVerlust = 0.1f;
  s.NBoden = 12;
  s.NFrak = 4;
  s.NSchritte = 150;
  s.BatchGenau = 1E-5f;
  s.BatchMaxIter = 500;
  s.RestProzent = 10;
  s.BatchZeit = 7.75f;
  s.Konzept = false;
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  s.VapModel = 1;
  s.P0Eq[1] = "ALP";
  s.P0Eq[2] = "WAG";
  s.EOSModel = 5;
  s.MixRule = 6;
  s.TpxVorgabe = false;
  s.Konoden3D = true;
  for (int k = 1; k <= 12; ++k) {
    s.GEPar(k, 1, 2) = k + 0.5;
    s.GEPar(k, 2, 1) = -(k + 0.25);
  }
  return s;
}

std::string ReadFile(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  std::stringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream f(path, std::ios::binary | std::ios::trunc);
  f << text;
}

// Lines of a file with CR LF ends; fails the test on a bare LF or CR.
std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> out;
  std::size_t p = 0;
  while (p < text.size()) {
    const std::size_t q = text.find("\r\n", p);
    EXPECT_NE(q, std::string::npos) << "line without CR LF at byte " << p;
    if (q == std::string::npos) break;
    const std::string line = text.substr(p, q - p);
    EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos) << "bare CR or LF in: " << line;
    out.push_back(line);
    p = q + 2;
  }
  return out;
}

std::string JoinCrLf(const std::vector<std::string>& lines) {
  std::string t;
  for (const std::string& l : lines) t += l + "\r\n";
  return t;
}

// Writes the golden session and returns its lines.
std::vector<std::string> GoldenLines(const TempDir& bank, const TempDir& dir, const std::string& comment = "") {
  const Session s = GoldenSession(bank);
  std::string err;
  EXPECT_TRUE(peq::ProjektSchreiben(s, dir / "GOLD.PQC", comment, err)) << err;
  return Lines(ReadFile(dir / "GOLD.PQC"));
}

// Line numbers (from 0) of the golden binary project.
constexpr int kLineBank = 2, kLineKonzept = 3, kLineNKomp = 4, kLineCas1 = 5, kLineCas2 = 6;
constexpr int kLineThiele = 20, kLineModel = 35, kLineUnit = 36;

// The fields of a session that a refused load must leave alone.
void ExpectSameSession(const Session& a, const Session& b) {
  EXPECT_EQ(a.NKomp, b.NKomp);
  EXPECT_TRUE(a.KompIdx == b.KompIdx);
  EXPECT_EQ(a.BankDatei, b.BankDatei);
  EXPECT_EQ(a.BankAnz, b.BankAnz);
  EXPECT_EQ(a.BankOffen, b.BankOffen);
  EXPECT_TRUE(a.BankCAS == b.BankCAS);
  EXPECT_EQ(a.PfadBank, b.PfadBank);
  EXPECT_EQ(a.Konzept, b.Konzept);
  EXPECT_EQ(a.GEModel, b.GEModel);
  EXPECT_EQ(a.GEModelEOS, b.GEModelEOS);
  EXPECT_EQ(a.TIso, b.TIso);
  EXPECT_EQ(a.XIso, b.XIso);
  EXPECT_EQ(a.ProjektKommentar, b.ProjektKommentar);
  EXPECT_TRUE(a.GEPar == b.GEPar);
  EXPECT_TRUE(a.StoffMenge == b.StoffMenge);
  EXPECT_TRUE(a.P0Eq == b.P0Eq);
  EXPECT_EQ(a.Komp1, b.Komp1);
  EXPECT_EQ(a.Komp2, b.Komp2);
}

// ---- the file as written ----------------------------------------------------------------

TEST(ProjectFile, HoldsEveryFieldInFileOrderWithCrLf) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const std::vector<std::string> got = GoldenLines(bank, dir, "binary, test");
  // Expected text, worked out from the field table by hand.
  std::vector<std::string> want = {
      "",  // date, not compared
      "binary, test",
      "TEST.Q07",
      "0",  // Konzept
      "2",  // NKomp
      "7732-18-5   ",
      "64-17-5     ",
      "water                                   ",
      "ethanol                                 ",
      "1.5", "0.25",                  // StoffMenge
      "351.15", "101.325", "0.3",     // TIso PIso XIso
      "350.5", "90", "0.125",         // TCalc PCalc EtaVCalc
      "2", "1", "0", "-1",            // Rechenart CalcEinheit1 CalcEinheit2 ThieleOption
      "0", "273.15",                  // TOffsetIn TOffsetOut
      "1", "2", "300",                // ConcUnit FuUnit KurvenPunkte
      "2.5", "0.1",                   // RueckLauf DruckVerlust
      "12", "4", "150",               // NBoden NFrak NSchritte
      "0.00001", "500", "10", "7.75", // BatchGenau BatchMaxIter RestProzent BatchZeit
      "2", "3", "1",                  // gE model, its unit, VapModel
      "ALP", "WAG",                   // P0Eq
      "0", "0", "0",                  // reserved reals
      "5", "6", "0", "-1",            // EOSModel MixRule TpxVorgabe Konoden3D
      "0", "0",                       // reserved
  };
  // GEPar of pair (1, 2): for k = 1, 3, ..., 11: (k,1,2) (k+1,1,2) (k,2,1) (k+1,2,1) with
  // GEPar(k,1,2) = k + 0.5 and GEPar(k,2,1) = -(k + 0.25).
  const char* gepar[] = {"1.5",  "2.5",  "-1.25",  "-2.25",  "3.5",   "4.5",   "-3.25",  "-4.25",
                         "5.5",  "6.5",  "-5.25",  "-6.25",  "7.5",   "8.5",   "-7.25",  "-8.25",
                         "9.5",  "10.5", "-9.25",  "-10.25", "11.5",  "12.5",  "-11.25", "-12.25"};
  for (const char* g : gepar) want.push_back(g);
  ASSERT_EQ(got.size(), want.size());
  // 5 + 4n + 36 + 12 n (n - 1) lines for n components.
  EXPECT_EQ(got.size(), 5u + 4 * 2 + 36 + 12 * 2 * 1);
  EXPECT_FALSE(got[0].empty());
  for (std::size_t k = 1; k < want.size(); ++k) EXPECT_EQ(got[k], want[k]) << "line " << k + 1;
}

TEST(ProjectFile, TernaryHasTwentyFourLinesPerPairInPairOrder) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = OpenSession(bank);
  s.NKomp = 3;
  peq::AllocSession(s, 3);
  for (int i = 1; i <= 3; ++i) {
    s.KompIdx[i] = static_cast<int16_t>(i);
    s.StoffData[i].CasNr = s.BankCAS[i];
    s.StoffData[i].Name = s.BankName[i];
  }
  // GEPar(k,i,j) = 1000 i + 100 j + k marks every slot.
  for (int k = 1; k <= 12; ++k)
    for (int i = 1; i <= 3; ++i)
      for (int j = 1; j <= 3; ++j)
        if (i != j) s.GEPar(k, i, j) = 1000 * i + 100 * j + k;
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "T.PQC", "", err)) << err;
  const auto lines = Lines(ReadFile(dir / "T.PQC"));
  ASSERT_EQ(lines.size(), 5u + 4 * 3 + 36 + 12 * 3 * 2);
  std::size_t p = lines.size() - 72;
  const int pairs[3][2] = {{1, 2}, {1, 3}, {2, 3}};
  for (const auto& pr : pairs) {
    const int i = pr[0], j = pr[1];
    for (int k = 1; k <= 11; k += 2) {
      EXPECT_EQ(lines[p++], std::to_string(1000 * i + 100 * j + k));
      EXPECT_EQ(lines[p++], std::to_string(1000 * i + 100 * j + k + 1));
      EXPECT_EQ(lines[p++], std::to_string(1000 * j + 100 * i + k));
      EXPECT_EQ(lines[p++], std::to_string(1000 * j + 100 * i + k + 1));
    }
  }
}

TEST(ProjectFile, NamesAreWrittenInCodePage1252) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.StoffData[1].Name = "Wasser (flüssig)";
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "C.PQC", "Kommentar: Größe", err)) << err;
  const auto lines = Lines(ReadFile(dir / "C.PQC"));
  EXPECT_EQ(lines[1], "Kommentar: Gr\xF6\xDF" "e");
  EXPECT_EQ(lines[7].size(), 40u);
  EXPECT_EQ(lines[7].substr(0, 16), "Wasser (fl\xFC" "ssig)");
  // The comment comes back in UTF-8.
  Session t = OpenSession(bank);
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "C.PQC", &msgs));
  EXPECT_EQ(t.ProjektKommentar, "Kommentar: Größe");
}

// ---- edge cases of the format -----------------------------------------------------------

TEST(ProjectFile, RedlichKisterProjectStoresUnitTwoWhateverTheSessionHeld) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.GEModel = 4;
  s.ParUnitKij = 0;
  s.ParUnitWilson = 1;
  s.ParUnitNRTL = 1;
  s.ParUnitUNIQUAC = 1;
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "RK.PQC", "", err)) << err;
  const auto lines = Lines(ReadFile(dir / "RK.PQC"));
  EXPECT_EQ(lines[kLineModel], "4");
  EXPECT_EQ(lines[kLineUnit], "2");
  // On reading, model 4 sets ParUnitKij 2 whatever the file holds.
  auto patched = lines;
  patched[kLineUnit] = "0";
  WriteFile(dir / "RK0.PQC", JoinCrLf(patched));
  Session t = OpenSession(bank);
  t.ParUnitKij = 0;
  t.ParUnitWilson = t.ParUnitNRTL = t.ParUnitUNIQUAC = 1;
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "RK0.PQC", &msgs));
  EXPECT_EQ(t.GEModel, 4);
  EXPECT_EQ(t.ParUnitKij, 2);
  EXPECT_EQ(t.ParUnitWilson, 1);
  EXPECT_EQ(t.ParUnitNRTL, 1);
  EXPECT_EQ(t.ParUnitUNIQUAC, 1);
}

TEST(ProjectFile, UnitIsWrittenFromTheModelsOwnField) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.ParUnitWilson = 1;
  s.ParUnitNRTL = 0;
  s.ParUnitUNIQUAC = 3;
  struct Case {
    int16_t model;
    const char* unit;
  };
  const Case cases[] = {{1, "1"}, {2, "0"}, {9, "3"}, {4, "2"}, {0, "0"}, {20, "0"}, {21, "0"}, {-1, "0"}};
  for (const Case& c : cases) {
    s.GEModel = c.model;
    std::string err;
    ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "U.PQC", "", err)) << err;
    const auto lines = Lines(ReadFile(dir / "U.PQC"));
    EXPECT_EQ(lines[kLineModel], std::to_string(c.model));
    EXPECT_EQ(lines[kLineUnit], c.unit) << "model " << c.model;
  }
}

TEST(ProjectFile, UnitOnReadingGoesToTheFieldOfTheModel) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  struct Case {
    const char* model;
    int16_t wilson, nrtl, uniquac;
  };
  // Session before: Wilson 2, NRTL 0, UNIQUAC 0 (defaults); file unit 1.
  const Case cases[] = {{"1", 1, 0, 0}, {"2", 2, 1, 0}, {"9", 2, 0, 1}, {"0", 2, 0, 0}, {"20", 2, 0, 0}};
  for (const Case& c : cases) {
    lines[kLineModel].assign(c.model);
    lines[kLineUnit].assign(1, '1');
    WriteFile(dir / "M.PQC", JoinCrLf(lines));
    Session t = OpenSession(bank);
    MsgSink msgs;
    EXPECT_TRUE(peq::ProjektLesen(t, dir / "M.PQC", &msgs));
    EXPECT_EQ(t.ParUnitWilson, c.wilson) << c.model;
    EXPECT_EQ(t.ParUnitNRTL, c.nrtl) << c.model;
    EXPECT_EQ(t.ParUnitUNIQUAC, c.uniquac) << c.model;
  }
}

TEST(ProjectFile, DatabaseLineHoldsTheBareFileName) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  for (const char* name : {"C:\\PEQ\\DATEN\\TEST.Q07", "/home/user/data/TEST.Q07", "TEST.Q07"}) {
    s.BankDatei = name;
    std::string err;
    ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "B.PQC", "", err)) << err;
    EXPECT_EQ(Lines(ReadFile(dir / "B.PQC"))[kLineBank], "TEST.Q07") << name;
  }
}

TEST(ProjectFile, MovedProjectLoadsWhenTheDatabaseStandsInPfadBank) {
  TempDir bank, dir, elsewhere;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "MOVE.PQC", "", err)) << err;
  fs::rename(dir / "MOVE.PQC", elsewhere / "MOVE.PQC");
  Session t;
  t.PfadBank = bank.dir();
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, elsewhere / "MOVE.PQC", &msgs));
  EXPECT_TRUE(msgs.empty());
  EXPECT_TRUE(t.BankOffen);
  EXPECT_EQ(t.BankDatei, "TEST.Q07");
  EXPECT_EQ(t.KompIdx[1], 2);
  EXPECT_EQ(t.KompIdx[2], 1);
}

TEST(ProjectFile, CommentHoldingACommaSurvives) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "K.PQC", "water, ethanol, at 1 atm", err)) << err;
  Session t = OpenSession(bank);
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "K.PQC", &msgs));
  EXPECT_EQ(t.ProjektKommentar, "water, ethanol, at 1 atm");
  EXPECT_EQ(t.NKomp, 2);
}

TEST(ProjectFile, DatabaseNameHoldingACommaIsReadOnlyToTheComma) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  MakeBank(bank / "my,bank.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.BankDatei = "my,bank.Q07";
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "C.PQC", "", err)) << err;
  EXPECT_EQ(Lines(ReadFile(dir / "C.PQC"))[kLineBank], "my,bank.Q07");
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "C.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Execution not possible", "Database of the project my not found",
                              MsgIcon::Stop}));
  ExpectSameSession(t, before);
}

TEST(ProjectFile, TextBehindTheCommaOfTheDatabaseNameIsLeftForTheNextRead) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  MakeBank(bank / "my", TestSubstances());  // a database that the cut name finds
  Session s = GoldenSession(bank);
  s.BankDatei = "my,bank.Q07";
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "C.PQC", "", err)) << err;
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "C.PQC", &msgs));
  // "bank.Q07" is read where Konzept belongs.
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Error", "Type mismatch", MsgIcon::Stop}));
  ExpectSameSession(t, before);
}

TEST(ProjectFile, LastSessionNeverCarriesAComment) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  for (const char* name : {"PEQLASTSESSION2.PQC", "peqlastsession2.pqc", "PeqLastSession2.Pqc"}) {
    std::string err;
    ASSERT_TRUE(peq::ProjektSchreiben(s, dir / name, "a comment that must not appear", err)) << err;
    const auto lines = Lines(ReadFile(dir / name));
    EXPECT_EQ(lines[1], "") << name;
    Session t = OpenSession(bank);
    t.ProjektKommentar = "old";
    MsgSink msgs;
    EXPECT_TRUE(peq::ProjektLesen(t, dir / name, &msgs));
    EXPECT_EQ(t.ProjektKommentar, "");
  }
}

TEST(ProjectFile, LastSessionNameIsTheLastNineteenCharactersUpperCased) {
  EXPECT_TRUE(peq::IsLastSessionName("PEQLASTSESSION2.PQC"));
  EXPECT_TRUE(peq::IsLastSessionName("peqlastsession2.pqc"));
  EXPECT_TRUE(peq::IsLastSessionName("/opt/peq/PEQLASTSESSION2.PQC"));
  EXPECT_TRUE(peq::IsLastSessionName("C:\\PEQ\\PeqLastSession2.pqc"));
  EXPECT_TRUE(peq::IsLastSessionName("XPEQLASTSESSION2.PQC"));
  EXPECT_FALSE(peq::IsLastSessionName("EQLASTSESSION2.PQC"));
  EXPECT_FALSE(peq::IsLastSessionName("PEQLASTSESSION2.PQC.BAK"));
  EXPECT_FALSE(peq::IsLastSessionName("PEQLASTSESSION1.PQC"));
  EXPECT_FALSE(peq::IsLastSessionName(""));
}

TEST(ProjectFile, GEParKeepsFullDoublePrecisionAcrossSaveAndLoad) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  const double values[] = {0.1, 1.0 / 3.0, 298.15, -624.86762200000001, 0.2937,
                           std::nextafter(1.0, 2.0), 1E-300, -6.02214076E+23, 3.141592653589793,
                           1E-37, 2.0 / 3.0, -0.30000000000000004};
  int v = 0;
  for (int k = 1; k <= 12; ++k) {
    s.GEPar(k, 1, 2) = values[v++ % 12];
    s.GEPar(k, 2, 1) = -values[v++ % 12] * 7.0 / 3.0;
  }
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "P.PQC", "", err)) << err;
  Session t = OpenSession(bank);
  MsgSink msgs;
  ASSERT_TRUE(peq::ProjektLesen(t, dir / "P.PQC", &msgs));
  for (int k = 1; k <= 12; ++k) {
    EXPECT_EQ(t.GEPar(k, 1, 2), s.GEPar(k, 1, 2)) << "k " << k;
    EXPECT_EQ(t.GEPar(k, 2, 1), s.GEPar(k, 2, 1)) << "k " << k;
  }
  EXPECT_TRUE(t.GEPar == s.GEPar);
}

TEST(ProjectFile, PhiPhiLoadLeavesGEModelUntouched) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.Konzept = true;
  s.GEModel = 2;
  s.GEModelEOS = 9;
  s.ParUnitUNIQUAC = 1;
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "PHI.PQC", "", err)) << err;
  const auto lines = Lines(ReadFile(dir / "PHI.PQC"));
  EXPECT_EQ(lines[kLineKonzept], "-1");
  EXPECT_EQ(lines[kLineModel], "9");
  EXPECT_EQ(lines[kLineUnit], "1");

  Session t = OpenSession(bank);
  t.GEModel = 1;
  t.GEModelEOS = 2;
  t.ParUnitWilson = 0;
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "PHI.PQC", &msgs));
  EXPECT_TRUE(t.Konzept);
  EXPECT_EQ(t.GEModel, 1);
  EXPECT_EQ(t.GEModelEOS, 9);
  EXPECT_EQ(t.ParUnitUNIQUAC, 1);
  EXPECT_EQ(t.ParUnitWilson, 0);
}

TEST(ProjectFile, GammaPhiLoadLeavesGEModelEOSUntouched) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  GoldenLines(bank, dir);
  Session t = OpenSession(bank);
  t.GEModel = -1;
  t.GEModelEOS = 1;
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "GOLD.PQC", &msgs));
  EXPECT_FALSE(t.Konzept);
  EXPECT_EQ(t.GEModel, 2);
  EXPECT_EQ(t.GEModelEOS, 1);
}

TEST(ProjectFile, OnlyMinusOneReadsAsTrue) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineKonzept] = "1";
  lines[kLineThiele] = "1";
  WriteFile(dir / "L.PQC", JoinCrLf(lines));
  Session t = OpenSession(bank);
  t.Konzept = true;
  t.ThieleOption = true;
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "L.PQC", &msgs));
  EXPECT_FALSE(t.Konzept);
  EXPECT_FALSE(t.ThieleOption);
}

TEST(ProjectFile, EveryFieldSurvivesSaveAndLoad) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "R.PQC", "round trip", err)) << err;
  Session t;
  t.PfadBank = bank.dir();
  MsgSink msgs;
  ASSERT_TRUE(peq::ProjektLesen(t, dir / "R.PQC", &msgs));
  EXPECT_TRUE(msgs.empty());
  EXPECT_EQ(t.ProjektKommentar, "round trip");
  EXPECT_EQ(t.BankDatei, "TEST.Q07");
  EXPECT_TRUE(t.BankOffen);
  EXPECT_EQ(t.Konzept, s.Konzept);
  EXPECT_EQ(t.NKomp, 2);
  EXPECT_EQ(t.KompIdx[1], 2);
  EXPECT_EQ(t.KompIdx[2], 1);
  EXPECT_EQ(t.StoffMenge[1], s.StoffMenge[1]);
  EXPECT_EQ(t.StoffMenge[2], s.StoffMenge[2]);
  EXPECT_EQ(t.TIso, s.TIso);
  EXPECT_EQ(t.PIso, s.PIso);
  EXPECT_EQ(t.XIso, static_cast<double>(static_cast<float>(s.XIso)));  // kept as a Single
  EXPECT_EQ(t.TCalc, s.TCalc);
  EXPECT_EQ(t.PCalc, s.PCalc);
  EXPECT_EQ(t.EtaVCalc, s.EtaVCalc);
  EXPECT_EQ(t.Rechenart, s.Rechenart);
  EXPECT_EQ(t.CalcEinheit1, s.CalcEinheit1);
  EXPECT_EQ(t.CalcEinheit2, s.CalcEinheit2);
  EXPECT_EQ(t.ThieleOption, s.ThieleOption);
  EXPECT_EQ(t.TOffsetIn, s.TOffsetIn);
  EXPECT_EQ(t.TOffsetOut, s.TOffsetOut);
  EXPECT_EQ(t.ConcUnit, s.ConcUnit);
  EXPECT_EQ(t.FuUnit, s.FuUnit);
  EXPECT_EQ(t.KurvenPunkte, s.KurvenPunkte);
  EXPECT_EQ(t.RueckLauf, s.RueckLauf);
  EXPECT_EQ(t.DruckVerlust, s.DruckVerlust);
  EXPECT_EQ(t.NBoden, s.NBoden);
  EXPECT_EQ(t.NFrak, s.NFrak);
  EXPECT_EQ(t.NSchritte, s.NSchritte);
  EXPECT_EQ(t.BatchGenau, s.BatchGenau);
  EXPECT_EQ(t.BatchMaxIter, s.BatchMaxIter);
  EXPECT_EQ(t.RestProzent, s.RestProzent);
  EXPECT_EQ(t.BatchZeit, s.BatchZeit);
  EXPECT_EQ(t.GEModel, s.GEModel);
  EXPECT_EQ(t.ParUnitNRTL, s.ParUnitNRTL);
  EXPECT_EQ(t.VapModel, s.VapModel);
  EXPECT_EQ(t.P0Eq[1], "ALP");
  EXPECT_EQ(t.P0Eq[2], "WAG");
  EXPECT_EQ(t.EOSModel, s.EOSModel);
  EXPECT_EQ(t.MixRule, s.MixRule);
  EXPECT_EQ(t.TpxVorgabe, s.TpxVorgabe);
  EXPECT_EQ(t.Konoden3D, s.Konoden3D);
  EXPECT_TRUE(t.GEPar == s.GEPar);
  // Loaded with its substances and saved again, it gives the same file, apart from the date.
  Session u;
  u.PfadBank = bank.dir();
  ASSERT_EQ(peq::ProjektLaden(u, dir / "R.PQC", &msgs), peq::LoadStage::Loaded);
  ASSERT_TRUE(peq::ProjektSchreiben(u, dir / "R2.PQC", u.ProjektKommentar, err)) << err;
  auto a = Lines(ReadFile(dir / "R.PQC"));
  auto b = Lines(ReadFile(dir / "R2.PQC"));
  a[0] = b[0] = "";
  EXPECT_EQ(a, b);
}

TEST(ProjectFile, BlankVapourPressureCodeStaysBlank) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  s.P0Eq[1] = "";
  std::string err;
  ASSERT_TRUE(peq::ProjektSchreiben(s, dir / "E.PQC", "", err)) << err;
  EXPECT_EQ(Lines(ReadFile(dir / "E.PQC"))[38], "   ");
  Session t = OpenSession(bank);
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "E.PQC", &msgs));
  EXPECT_EQ(t.P0Eq[1], "");
  EXPECT_EQ(t.P0Eq[2], "WAG");
}

TEST(ProjectFile, LoadReplacesTheArraysOfAnEarlierMixture) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  GoldenLines(bank, dir);
  Session t = OpenSession(bank);
  t.NKomp = 3;
  peq::AllocSession(t, 3);
  t.GEPar(5, 1, 3) = 99;
  t.StoffMenge[3] = 5;
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "GOLD.PQC", &msgs));
  EXPECT_EQ(t.NKomp, 2);
  EXPECT_EQ(t.StoffMenge.size(), 3u);
  EXPECT_EQ(t.GEPar.size(), 3u);
  EXPECT_EQ(t.GEPar.depth(), static_cast<std::size_t>(peq::kGEParDepth));
  EXPECT_TRUE(t.UnifacNeu);
}

// ---- failures ---------------------------------------------------------------------------

TEST(ProjectFile, DatabaseMissingWithNoneOpenStopsTheLoad) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineBank] = "NOPE.Q07";
  WriteFile(dir / "N.PQC", JoinCrLf(lines));
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "N.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Execution not possible", "Database of the project NOPE.Q07 not found",
                              MsgIcon::Stop}));
  ExpectSameSession(t, before);
}

TEST(ProjectFile, DatabaseMissingWithAnotherOpenWarnsAndGoesOn) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineBank] = "NOPE.Q07";
  WriteFile(dir / "N.PQC", JoinCrLf(lines));
  Session t = OpenSession(bank);
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "N.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0],
            (Message{"Note",
                     "Database of the project NOPE.Q07 not found or empty resp.\n"
                     "The actual database TEST.Q07 is still activ.",
                     MsgIcon::Warning}));
  EXPECT_EQ(t.BankDatei, "TEST.Q07");
  EXPECT_EQ(t.NKomp, 2);
  EXPECT_EQ(t.KompIdx[1], 2);
  EXPECT_EQ(t.KompIdx[2], 1);
}

TEST(ProjectFile, EmptyDatabaseCountsAsMissing) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  MakeBank(bank / "EMPTY.Q07", {});
  auto lines = GoldenLines(bank, dir);
  lines[kLineBank] = "EMPTY.Q07";
  WriteFile(dir / "E.PQC", JoinCrLf(lines));
  Session t;
  t.PfadBank = bank.dir();
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "E.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0].title, "Execution not possible");
  EXPECT_EQ(msgs[0].text, "Database of the project EMPTY.Q07 not found");
  Session u = OpenSession(bank);
  msgs.clear();
  EXPECT_TRUE(peq::ProjektLesen(u, dir / "E.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0].title, "Note");
}

TEST(ProjectFile, NKompZeroIsAnInvalidProjectFileAndNothingIsLoaded) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  MakeBank(bank / "OTHER.Q07", {TestSubstances()[2]});
  auto lines = GoldenLines(bank, dir);
  lines[kLineNKomp] = "0";
  WriteFile(dir / "Z.PQC", JoinCrLf(lines));
  // A session with another database and a mixture of its own.
  Session t = OpenSession(bank, "OTHER.Q07");
  t.NKomp = 1;
  peq::AllocSession(t, 1);
  t.KompIdx[1] = 1;
  t.TIso = 400;
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "Z.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Execution not possible", "invalid project file", MsgIcon::Stop}));
  ExpectSameSession(t, before);
  EXPECT_EQ(t.BankDatei, "OTHER.Q07");
}

TEST(ProjectFile, MoreThanTenComponentsIsAnInvalidProjectFile) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  for (const char* n : {"11", "-2", "32767"}) {
    lines[kLineNKomp] = n;
    WriteFile(dir / "Z.PQC", JoinCrLf(lines));
    Session t;
    t.PfadBank = bank.dir();
    MsgSink msgs;
    EXPECT_FALSE(peq::ProjektLesen(t, dir / "Z.PQC", &msgs));
    ASSERT_EQ(msgs.size(), 1u);
    EXPECT_EQ(msgs[0].text, "invalid project file") << n;
    EXPECT_EQ(t.NKomp, 0);
  }
}

TEST(ProjectFile, ComponentMissingFromTheDatabaseLoadsWithAGap) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineCas2] = "99999-99-9  ";
  WriteFile(dir / "G.PQC", JoinCrLf(lines));
  Session t = OpenSession(bank);
  MsgSink msgs;
  bool read = false;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "G.PQC", &msgs, read));
  EXPECT_TRUE(read);
  EXPECT_TRUE(msgs.empty());
  // The reading went on to the end.
  EXPECT_EQ(t.NKomp, 2);
  EXPECT_EQ(t.KompIdx[1], 2);
  EXPECT_EQ(t.KompIdx[2], 0);
  EXPECT_EQ(t.TIso, 351.15);
  EXPECT_EQ(t.GEModel, 2);
  EXPECT_EQ(t.GEPar(11, 2, 1), -11.25);
  EXPECT_EQ(t.GEPar(12, 2, 1), -12.25);
}

TEST(ProjectFile, CasNumberIsComparedTrimmed) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineCas1] = "  7732-18-5";
  lines[kLineCas2] = "64-17-5";
  WriteFile(dir / "T.PQC", JoinCrLf(lines));
  Session t = OpenSession(bank);
  MsgSink msgs;
  EXPECT_TRUE(peq::ProjektLesen(t, dir / "T.PQC", &msgs));
  EXPECT_EQ(t.KompIdx[1], 2);
  EXPECT_EQ(t.KompIdx[2], 1);
}

TEST(ProjectFile, ProjectFileCutInTheMiddleGivesTheErrorBox) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  GoldenLines(bank, dir);
  const std::string full = ReadFile(dir / "GOLD.PQC");
  // Cuts from behind the database line up to the start of the last line.
  std::size_t from = 0;
  for (int k = 0; k <= kLineBank; ++k) from = full.find("\r\n", from) + 2;
  const std::size_t to = full.rfind("\r\n", full.size() - 3) + 2;
  Session base = OpenSession(bank);
  base.TIso = 400;
  base.ProjektKommentar = "before";
  int cuts = 0;
  for (std::size_t cut = from; cut < to; ++cut) {
    WriteFile(dir / "CUT.PQC", full.substr(0, cut));
    Session t = base;
    MsgSink msgs;
    EXPECT_FALSE(peq::ProjektLesen(t, dir / "CUT.PQC", &msgs)) << "cut at " << cut;
    ASSERT_FALSE(msgs.empty()) << "cut at " << cut;
    const Message& m = msgs.back();
    EXPECT_EQ(m.title, "Error") << "cut at " << cut;
    EXPECT_EQ(m.icon, MsgIcon::Stop);
    EXPECT_TRUE(m.text == "Input past end of file" || m.text == "Type mismatch")
        << "cut at " << cut << ": " << m.text;
    ExpectSameSession(t, base);
    ++cuts;
  }
  EXPECT_GT(cuts, 300);
}

TEST(ProjectFile, EmptyFileIsNoProject) {
  TempDir dir;
  WriteFile(dir / "EMPTY.PQC", "");
  Session t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "EMPTY.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Error", "Input past end of file", MsgIcon::Stop}));
}

TEST(ProjectFile, TextFileThatIsNoProjectGivesTheErrorBox) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  WriteFile(dir / "NOTES.PQC", "Shopping list\r\nmilk, bread\r\nTEST.Q07\r\neggs\r\n");
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "NOTES.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Error", "Type mismatch", MsgIcon::Stop}));
  ExpectSameSession(t, before);
}

TEST(ProjectFile, DatabaseFileOpenedAsProjectIsRefused) {
  TempDir bank;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, bank / "TEST.Q07", &msgs));
  ASSERT_FALSE(msgs.empty());
  EXPECT_EQ(msgs.back().icon, MsgIcon::Stop);
  ExpectSameSession(t, before);
}

TEST(ProjectFile, MissingProjectFileGivesTheErrorBox) {
  TempDir dir;
  Session t;
  MsgSink msgs;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "NONE.PQC", &msgs));
  ASSERT_EQ(msgs.size(), 1u);
  EXPECT_EQ(msgs[0], (Message{"Error", "File not found", MsgIcon::Stop}));
}

TEST(ProjectFile, ReadWithoutSinkDoesNotCrash) {
  TempDir dir;
  WriteFile(dir / "EMPTY.PQC", "");
  Session t;
  EXPECT_FALSE(peq::ProjektLesen(t, dir / "EMPTY.PQC", nullptr));
}

// ---- writing safely ---------------------------------------------------------------------

TEST(ProjectFile, FailedWriteLeavesTheOldFile) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  WriteFile(dir / "OLD.PQC", "old contents\r\n");
  fs::create_directory(dir / "OLD.PQC.tmp~");  // the temporary file cannot be made
  std::string err;
  EXPECT_FALSE(peq::ProjektSchreiben(s, dir / "OLD.PQC", "", err));
  EXPECT_FALSE(err.empty());
  EXPECT_EQ(ReadFile(dir / "OLD.PQC"), "old contents\r\n");
}

TEST(ProjectFile, WriteIntoAMissingDirectoryFails) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  std::string err;
  EXPECT_FALSE(peq::ProjektSchreiben(s, dir / "no/such/dir/P.PQC", "", err));
  EXPECT_FALSE(err.empty());
}

TEST(ProjectFile, NaNInTheSessionIsNeverWritten) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  Session s = GoldenSession(bank);
  WriteFile(dir / "OLD.PQC", "old\r\n");
  s.GEPar(3, 1, 2) = std::numeric_limits<double>::quiet_NaN();
  std::string err;
  EXPECT_FALSE(peq::ProjektSchreiben(s, dir / "OLD.PQC", "", err));
  EXPECT_EQ(err, "Overflow");
  EXPECT_EQ(ReadFile(dir / "OLD.PQC"), "old\r\n");
  s.GEPar(3, 1, 2) = 0;
  s.XIso = 1E300;  // too large for the Single of its line
  EXPECT_FALSE(peq::ProjektSchreiben(s, dir / "OLD.PQC", "", err));
  EXPECT_EQ(ReadFile(dir / "OLD.PQC"), "old\r\n");
}

TEST(ProjectFile, SuccessfulWriteReplacesTheFileAndLeavesNoTemporary) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  const Session s = GoldenSession(bank);
  WriteFile(dir / "P.PQC", "old\r\n");
  std::string err;
  EXPECT_TRUE(peq::ProjektSchreiben(s, dir / "P.PQC", "", err)) << err;
  EXPECT_TRUE(err.empty());
  EXPECT_NE(ReadFile(dir / "P.PQC"), "old\r\n");
  EXPECT_FALSE(fs::exists(dir / "P.PQC.tmp~"));
  int files = 0;
  for (auto& e : fs::directory_iterator(dir.path())) {
    (void)e;
    ++files;
  }
  EXPECT_EQ(files, 1);
}

// ---- the shared load path ---------------------------------------------------------------

TEST(LoadPath, LoadSetsTheBinaryPairAndLoadsTheSubstances) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  GoldenLines(bank, dir);
  Session t;
  t.PfadBank = bank.dir();
  t.Komp1 = 2;
  t.Komp2 = 3;
  MsgSink msgs;
  EXPECT_EQ(peq::ProjektLaden(t, dir / "GOLD.PQC", &msgs), peq::LoadStage::Loaded);
  EXPECT_EQ(t.Komp1, 1);
  EXPECT_EQ(t.Komp2, 2);
  EXPECT_TRUE(t.LoadOK);
  EXPECT_EQ(peq::RTrim(t.StoffData[1].Name), "water");
  EXPECT_EQ(peq::RTrim(t.StoffData[2].Name), "ethanol");
  EXPECT_EQ(peq::Trim(t.StoffData[1].CasNr), "7732-18-5");
  EXPECT_EQ(t.MolMasse[1], 18.015f);
  // The stored equation codes are kept when they are one of the five.
  EXPECT_EQ(t.P0Eq[1], "ALP");
  // The models stand as the file gave them.
  EXPECT_EQ(t.GEModel, 2);
  EXPECT_EQ(t.ParUnitNRTL, 3);
  EXPECT_EQ(t.VapModel, 1);
  EXPECT_EQ(t.GEPar(1, 1, 2), 1.5);
}

TEST(LoadPath, GapStopsBeforeTheSubstances) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineCas1] = "1-1-1";
  WriteFile(dir / "G.PQC", JoinCrLf(lines));
  Session t;
  t.PfadBank = bank.dir();
  t.Komp1 = 2;
  t.Komp2 = 1;
  MsgSink msgs;
  EXPECT_EQ(peq::ProjektLaden(t, dir / "G.PQC", &msgs), peq::LoadStage::ReadWithGap);
  EXPECT_EQ(t.Komp1, 2);
  EXPECT_EQ(t.Komp2, 1);
  EXPECT_FALSE(t.LoadOK);
  EXPECT_EQ(t.KompIdx[1], 0);
  EXPECT_EQ(t.StoffData[2].Name, "");
}

TEST(LoadPath, RefusedFileLeavesTheSession) {
  TempDir bank, dir;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  auto lines = GoldenLines(bank, dir);
  lines[kLineBank] = "NOPE.Q07";
  WriteFile(dir / "N.PQC", JoinCrLf(lines));
  Session t;
  t.PfadBank = bank.dir();
  const Session before = t;
  MsgSink msgs;
  EXPECT_EQ(peq::ProjektLaden(t, dir / "N.PQC", &msgs), peq::LoadStage::NotRead);
  ExpectSameSession(t, before);
  ASSERT_EQ(msgs.size(), 1u);
}

TEST(LoadPath, UnusableSubstanceStopsTheLoadWithItsMessage) {
  TempDir bank, dir;
  auto subs = TestSubstances();
  // Water without critical data and without any vapour-pressure equation.
  subs[1].V[6] = subs[1].V[7] = 0;
  for (int k = 36; k <= 40; ++k) subs[1].V[static_cast<std::size_t>(k)] = 0;
  MakeBank(bank / "TEST.Q07", TestSubstances());
  GoldenLines(bank, dir);
  MakeBank(bank / "TEST.Q07", subs);
  Session t;
  t.PfadBank = bank.dir();
  MsgSink msgs;
  EXPECT_EQ(peq::ProjektLaden(t, dir / "GOLD.PQC", &msgs), peq::LoadStage::SubstancesFailed);
  ASSERT_FALSE(msgs.empty());
  EXPECT_EQ(msgs.back().title, "no calculation possible");
}

// The example projects load against the bundled database.
TEST(LoadPath, ExampleProjectsLoadAgainstTheBundledDatabase) {
  struct Example {
    const char* file;
    std::vector<std::string> cas;
  };
  const Example examples[] = {
      {"ethanol-water.PQC", {"64-17-5", "7732-18-5"}},
      {"acetone-methanol-water.PQC", {"67-64-1", "67-56-1", "7732-18-5"}},
  };
  for (const Example& e : examples) {
    const std::string path = peqtest::SourceDir() + "/examples/" + e.file;
    ASSERT_TRUE(fs::exists(path)) << path;
    Session t;
    t.PfadBank = peqtest::BinaryDir() + "/";
    MsgSink msgs;
    EXPECT_EQ(peq::ProjektLaden(t, path, &msgs), peq::LoadStage::Loaded) << e.file;
    for (const Message& m : msgs) ADD_FAILURE() << e.file << ": " << m.title << ": " << m.text;
    EXPECT_EQ(t.BankDatei, "PEQBASE.Q07");
    ASSERT_EQ(t.NKomp, static_cast<int16_t>(e.cas.size()));
    for (int i = 1; i <= t.NKomp; ++i) {
      EXPECT_EQ(peq::Trim(t.StoffData[i].CasNr), e.cas[static_cast<std::size_t>(i - 1)]);
      EXPECT_NE(t.P0Eq[i], "");
    }
    EXPECT_FALSE(t.Konzept);
    EXPECT_EQ(t.GEModel, 2);
    EXPECT_EQ(t.ParUnitNRTL, 3);
    EXPECT_EQ(t.VapModel, 0);
    // Every pair carries NRTL parameters: a non-zero alpha in L7 = GEPar(3,j,i).
    for (int i = 1; i < t.NKomp; ++i)
      for (int j = i + 1; j <= t.NKomp; ++j) {
        EXPECT_GT(t.GEPar(3, j, i), 0.2) << e.file << " pair " << i << "-" << j;
        EXPECT_LT(t.GEPar(3, j, i), 0.6);
      }
  }
}

}  // namespace
