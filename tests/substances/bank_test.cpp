// The open database: index, CAS look-up, and the loading of a mixture into the session.
#include "substances/bank.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "session/session.h"
#include "substances/q07.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

namespace {

using peq::MsgSink;
using peq::Q07Record;
using peq::Session;

// Water as the bundled tables give it (data/README.md): Poling's Antoine set
// lg(p/kPa) = 7.11564 - 1687.537/(230.17 + t/°C), 273.2..473.2 K; Tc 647.096 K, pc 22064 kPa
// (IAPWS-95), rho(cr) 322 kg/m3, omega 0.344, Tb 373.124 K.
Q07Record Water() {
  Q07Record r = peqtest::BlankRecord("H2O", "Water", "7732-18-5");
  r.Name2 = "Wasser";
  r.V[0] = 18.01528f;
  r.V[1] = 18.06f;
  r.V[6] = 647.096f;
  r.V[7] = 22064.0f;
  r.V[8] = 322.0f;
  r.V[9] = 0.344f;
  r.V[10] = 373.124f;
  r.V[36] = 7.11564f;
  r.V[37] = 1687.537f;
  r.V[38] = 230.17f;
  r.V[39] = 273.2f;
  r.V[40] = 473.2f;
  return r;
}

// Ethanol likewise: Tc 514 K, pc 6137 kPa (IUPAC), Antoine 7.33675, 1648.22, 230.918.
Q07Record Ethanol() {
  Q07Record r = peqtest::BlankRecord("C2H6O", "Ethanol;ethyl alcohol", "64-17-5");
  r.Name2 = "\xC3\x84thanol;Ethylalkohol";  // "Äthanol;Ethylalkohol"
  r.V[0] = 46.06844f;
  r.V[1] = 58.62f;
  r.V[6] = 514.0f;
  r.V[7] = 6137.0f;
  r.V[8] = 274.22f;
  r.V[9] = 0.635f;
  r.V[10] = 351.39f;
  r.V[36] = 7.33675f;
  r.V[37] = 1648.22f;
  r.V[38] = 230.918f;
  r.V[39] = 276.5f;
  r.V[40] = 369.54f;
  return r;
}

// A substance with nothing but its texts.
Q07Record Bare(const std::string& name, const std::string& cas) {
  return peqtest::BlankRecord("X", name, cas);
}

// Density function of the Rackett form rho = r2/r3^(1 + (1 - T/r8)^r4) with r3 = 1, so that
// rho = r2 kg/m3 at every T below r8.
void FlatDensity(Q07Record& r, float rho) {
  r.V[13] = 0;     // r1 = 0 selects the Rackett form
  r.V[14] = rho;   // r2
  r.V[15] = 1.0f;  // r3
  r.V[16] = 0.25f; // r4
  r.V[20] = 600.0f;
  r.V[21] = 200.0f;
  r.V[22] = 600.0f;
}

class Bank : public ::testing::Test {
 protected:
  // Writes the records as a database and opens it.
  std::string Open(Session& s, const std::vector<Q07Record>& recs, const std::string& file = "T.Q07") {
    const std::string path = peqtest::WriteBank(dir.path(), file, recs);
    EXPECT_TRUE(peqtest::OpenBank(s, path));
    return path;
  }
  // Sizes the session for the mixture of the given database places without loading.
  static void Mixture(Session& s, const std::vector<int>& places) {
    s.NKomp = static_cast<int16_t>(places.size());
    peq::AllocSession(s, s.NKomp);
    for (std::size_t k = 0; k < places.size(); ++k) s.KompIdx[k + 1] = static_cast<int16_t>(places[k]);
  }
  // Database of the records, mixture of the places, LoadSubstances.
  bool Load(Session& s, const std::vector<Q07Record>& recs, const std::vector<int>& places,
            MsgSink* sink = nullptr) {
    Open(s, recs);
    Mixture(s, places);
    bool ok = false;
    peq::LoadSubstances(s, ok, sink);
    return ok;
  }
  peqtest::TempDir dir;
};

// ---------------------------------------------------------------- file name and index

TEST(BankNurName, CutsToTheBareFileNameInPlace) {
  std::string a = "C:\\PEQ\\DATA\\PEQBASE.Q07";
  std::string& r = peq::BankNurName(a);
  EXPECT_EQ(&r, &a);
  EXPECT_EQ(a, "PEQBASE.Q07");
  std::string b = "/home/user/data/MINE.Q07";
  EXPECT_EQ(peq::BankNurName(b), "MINE.Q07");
  std::string c = "PEQBASE.Q07";
  EXPECT_EQ(peq::BankNurName(c), "PEQBASE.Q07");
  std::string d = "DIR\\";
  EXPECT_EQ(peq::BankNurName(d), "");
}

TEST_F(Bank, OpenFillsTheIndexWithTheFirstNames) {
  Session s;
  Q07Record w = Water(), e = Ethanol();
  w.Nr = 12;
  e.Nr = 345;
  Open(s, {w, e}, "MINI.Q07");
  EXPECT_EQ(s.BankAnz, 2);
  EXPECT_TRUE(s.BankOffen);
  EXPECT_EQ(s.BankDatei, "MINI.Q07");
  EXPECT_EQ(s.BankName[2], peq::FixedField("Ethanol;ethyl alcohol", 40));
  EXPECT_EQ(s.BankFormel[1], "H2O         ");
  EXPECT_EQ(s.BankCAS[1], "7732-18-5   ");
  EXPECT_EQ(s.BankNr[1], 12);
  EXPECT_EQ(s.BankNr[2], 345);
  EXPECT_EQ(peq::BankPfadDatei(s), dir.File("MINI.Q07"));
}

TEST_F(Bank, OpenTakesTheSecondNamesWhenNamesAreNotEnglish) {
  Session s;
  s.NamenEnglisch = false;
  Open(s, {Water(), Ethanol()});
  EXPECT_EQ(peq::RTrim(s.BankName[1]), "Wasser");
  EXPECT_EQ(peq::RTrim(s.BankName[2]), "\xC3\x84thanol;Ethylalkohol");
  EXPECT_EQ(peq::Utf8Length(s.BankName[2]), 40u);
}

TEST_F(Bank, BareNameIsLookedUpInPfadBank) {
  peqtest::WriteBank(dir.path(), "MINI.Q07", {Water()});
  Session s;
  s.PfadBank = dir.path() + "/";
  bool notFound = true, empty = true;
  peq::BankOeffnen(s, "MINI.Q07", notFound, empty);
  EXPECT_FALSE(notFound);
  EXPECT_FALSE(empty);
  EXPECT_EQ(s.BankAnz, 1);
}

TEST_F(Bank, BackslashesAndLetterCaseOfTheNameDoNotMatter) {
  peqtest::WriteBank(dir.path(), "mini.q07", {Water()});
  Session s;
  bool notFound = true, empty = true;
  peq::BankOeffnen(s, dir.path() + "\\MINI.Q07", notFound, empty);
  EXPECT_FALSE(notFound);
  EXPECT_EQ(s.BankAnz, 1);
  Session t;
  t.PfadBank = dir.path() + "\\";
  peq::BankOeffnen(t, "Mini.Q07", notFound, empty);
  EXPECT_FALSE(notFound);
  EXPECT_EQ(t.BankAnz, 1);
}

// Opens a first database, then tries path; the flags, and the first index must stand.
void ExpectRefusedKeepingIndex(const std::string& goodPath, const std::string& badPath,
                               bool wantNotFound, bool wantEmpty) {
  Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, goodPath));
  const Session before = s;
  bool notFound = !wantNotFound, empty = !wantEmpty;
  peq::BankOeffnen(s, badPath, notFound, empty);
  EXPECT_EQ(notFound, wantNotFound);
  EXPECT_EQ(empty, wantEmpty);
  EXPECT_EQ(s.BankAnz, before.BankAnz);
  EXPECT_EQ(s.BankName, before.BankName);
  EXPECT_EQ(s.BankCAS, before.BankCAS);
  EXPECT_EQ(s.BankFormel, before.BankFormel);
  EXPECT_EQ(s.BankNr, before.BankNr);
  EXPECT_EQ(s.BankDatei, before.BankDatei);
  EXPECT_EQ(s.PfadBank, before.PfadBank);
  EXPECT_TRUE(s.BankOffen);
}

TEST_F(Bank, MissingFileSetsNotFoundAndKeepsTheOpenDatabase) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water(), Ethanol()});
  ExpectRefusedKeepingIndex(good, dir.File("NONE.Q07"), true, false);
}

TEST_F(Bank, MissingFileWithNoDatabaseOpenLeavesNoneOpen) {
  Session s;
  bool notFound = false, empty = true;
  peq::BankOeffnen(s, dir.File("NONE.Q07"), notFound, empty);
  EXPECT_TRUE(notFound);
  EXPECT_FALSE(empty);
  EXPECT_FALSE(s.BankOffen);
  EXPECT_EQ(s.BankAnz, 0);
}

TEST_F(Bank, EmptyFileCountsAsEmptyDatabase) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water()});
  const auto bad = peqtest::WriteBytes(dir.path(), "EMPTY.Q07", "");
  ExpectRefusedKeepingIndex(good, bad, false, true);
}

TEST_F(Bank, CountBelowOneCountsAsEmptyDatabase) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water()});
  const auto none = peqtest::WriteBank(dir.path(), "NONE.Q07", {});
  ExpectRefusedKeepingIndex(good, none, false, true);
  // A negative count: FFFF hex is -1.
  std::string bytes(2 * peq::kQ07RecordLength, ' ');
  bytes[186] = '\xFF';
  bytes[187] = '\xFF';
  const auto neg = peqtest::WriteBytes(dir.path(), "NEG.Q07", bytes);
  ExpectRefusedKeepingIndex(good, neg, false, true);
}

TEST_F(Bank, TruncatedFileIsRefusedAndKeepsTheOpenDatabase) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water()});
  const auto cut = peqtest::WriteBank(dir.path(), "CUT.Q07", {Water(), Ethanol(), Water()});
  std::filesystem::resize_file(cut, 4 * peq::kQ07RecordLength - 100);
  ExpectRefusedKeepingIndex(good, cut, true, false);
  // Cut inside the header record.
  std::filesystem::resize_file(cut, 100);
  ExpectRefusedKeepingIndex(good, cut, true, false);
}

TEST_F(Bank, TextFileOpenedAsDatabaseIsRefused) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water()});
  std::string text;
  for (int k = 0; text.size() < 3000; ++k) text += "line " + std::to_string(k) + " of a text file\r\n";
  const auto txt = peqtest::WriteBytes(dir.path(), "README.Q07", text);
  // Bytes 186-187 of this text are two digits or letters: a count in the thousands, far more
  // records than the 3000 bytes hold.
  ExpectRefusedKeepingIndex(good, txt, true, false);
}

TEST_F(Bank, DirectoryIsNotADatabase) {
  const auto good = peqtest::WriteBank(dir.path(), "GOOD.Q07", {Water()});
  std::filesystem::create_directory(dir.File("SUB.Q07"));
  ExpectRefusedKeepingIndex(good, dir.File("SUB.Q07"), true, false);
}

TEST_F(Bank, LongerFileThanItsCountIsValid) {
  const auto path = peqtest::WriteBank(dir.path(), "X.Q07", {Water(), Ethanol()});
  std::ofstream(path, std::ios::binary | std::ios::app) << "trailing bytes";
  Session s;
  EXPECT_TRUE(peqtest::OpenBank(s, path));
  EXPECT_EQ(s.BankAnz, 2);
}

TEST_F(Bank, RecordOfAllZerosOpensAndIsRefusedAtLoading) {
  std::string bytes(2 * peq::kQ07RecordLength, '\0');
  bytes[186] = 1;  // one substance, all of whose bytes are zero
  const auto path = peqtest::WriteBytes(dir.path(), "ZERO.Q07", bytes);
  Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, path));
  EXPECT_EQ(peq::Trim(s.BankName[1]), "");
  EXPECT_EQ(s.BankNr[1], 0);
  Mixture(s, {1});
  MsgSink sink;
  bool ok = true;
  peq::LoadSubstances(s, ok, &sink);
  EXPECT_FALSE(ok);
  EXPECT_FALSE(s.LoadOK);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "no calculation possible");
  EXPECT_EQ(sink[0].text,
            "For a component neither a vapour pressure equation nor T(cr)/p(cr) found:\n");
}

TEST_F(Bank, RandomFilesNeverCrashTheReaderOrTheLoad) {
  std::mt19937 rng(4711);
  for (int round = 0; round < 60; ++round) {
    const int size = static_cast<int>(rng() % (6 * peq::kQ07RecordLength));
    std::string bytes(static_cast<std::size_t>(size), '\0');
    for (auto& c : bytes) c = static_cast<char>(rng());
    if (size > 187 && round % 2 == 0) {  // a plausible count for half of them
      bytes[186] = static_cast<char>(1 + rng() % 5);
      bytes[187] = 0;
    }
    const auto path = peqtest::WriteBytes(dir.path(), "FUZZ.Q07", bytes);
    Session s;
    bool notFound = false, empty = false;
    peq::BankOeffnen(s, path, notFound, empty);
    if (notFound || empty) {
      EXPECT_EQ(s.BankAnz, 0);
      continue;
    }
    ASSERT_GE(s.BankAnz, 1);
    const int n = std::min<int>(s.BankAnz, 3);
    std::vector<int> places;
    for (int k = 1; k <= n; ++k) places.push_back(k);
    Mixture(s, places);
    MsgSink sink;
    bool ok = false;
    peq::LoadSubstances(s, ok, &sink);
    EXPECT_EQ(ok, s.LoadOK);
    for (int i = 1; i <= n; ++i) {
      EXPECT_TRUE(std::isfinite(s.TKrit[i]));
      EXPECT_TRUE(std::isfinite(s.TSiede[i]));
      EXPECT_TRUE(std::isfinite(s.ParAUG[i].A));
      EXPECT_TRUE(std::isfinite(s.VLiqCm3[i]));
    }
  }
}

// ---------------------------------------------------------------- CAS look-up

TEST_F(Bank, CasSuchenComparesTrimmedNumbers) {
  Session s;
  Open(s, {Water(), Ethanol(), Water()});
  EXPECT_EQ(peq::CASSuchen(s, "64-17-5"), 2);
  EXPECT_EQ(peq::CASSuchen(s, "  64-17-5     "), 2);
  EXPECT_EQ(peq::CASSuchen(s, "7732-18-5"), 1);  // the first of two
  EXPECT_EQ(peq::CASSuchen(s, "67-56-1"), 0);
  EXPECT_EQ(peq::CASSuchen(s, "64-17"), 0);
}

TEST(BankNoFile, CasSuchenWithoutDatabaseFindsNothing) {
  Session s;
  EXPECT_EQ(peq::CASSuchen(s, "64-17-5"), 0);
}

// ---------------------------------------------------------------- one record

TEST_F(Bank, EveryValueGoesToItsSessionSlot) {
  Q07Record r = Bare("Layout", "1-23-4");
  for (int k = 0; k < peq::kQ07Values; ++k) r.V[static_cast<std::size_t>(k)] = 1000.0f + k;
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  const auto& st = s.StoffData[1];
  EXPECT_EQ(st.VWilsonDb, 1001.0f);
  EXPECT_EQ(s.VLiqCm3[1], 1001.0f);
  EXPECT_EQ(st.RUniquac, 1002.0f);
  EXPECT_EQ(st.QUniquac, 1003.0f);
  EXPECT_EQ(s.MolMasse[1], 1000.0f);
  EXPECT_EQ(s.TKrit[1], 1006.0f);
  EXPECT_EQ(s.PKrit[1], 1007.0f);
  EXPECT_EQ(s.RhoKrit[1], 1008.0f);
  EXPECT_EQ(s.Omega[1], 1009.0f);
  EXPECT_EQ(st.TSiedeDb, 1010.0f);
  for (int k = 0; k <= 8; ++k) EXPECT_EQ(s.ParRho[1][k], 1012.0f + k) << "rho slot " << k;
  EXPECT_EQ(s.ParRho[1].TLo, 1021);
  EXPECT_EQ(s.ParRho[1].THi, 1022);
  for (int k = 0; k <= 9; ++k) EXPECT_EQ(s.ParFRO[1][k], 1023.0f + k) << "FROST slot " << k;
  EXPECT_EQ(s.ParFRO[1].TLo, 1033);
  EXPECT_EQ(s.ParFRO[1].THi, 1034);
  EXPECT_EQ(s.ParALP[1].A, 1036.0f);
  EXPECT_EQ(s.ParALP[1].B, 1037.0f);
  EXPECT_EQ(s.ParALP[1].C, 1038.0f);
  EXPECT_EQ(s.ParALP[1].TLo, 1039);
  EXPECT_EQ(s.ParALP[1].THi, 1040);
  EXPECT_EQ(s.ParAHP[1].A, 1042.0f);
  EXPECT_EQ(s.ParAHP[1].B, 1043.0f);
  EXPECT_EQ(s.ParAHP[1].C, 1044.0f);
  EXPECT_EQ(s.ParAHP[1].TLo, 1045);
  EXPECT_EQ(s.ParAHP[1].THi, 1046);
  for (int k = 0; k <= 10; ++k) EXPECT_EQ(s.ParWAG[1][k], 1047.0f + k) << "WAGNER slot " << k;
  EXPECT_EQ(s.ParWAG[1].TLo, 1058);
  EXPECT_EQ(s.ParWAG[1].THi, 1059);
  EXPECT_EQ(st.TSchmelz, 1093.0f);
  for (int k = 0; k <= 5; ++k) EXPECT_EQ(s.ParLVH[1][k], 1096.0f + k) << "delta(LV)h slot " << k;
  EXPECT_EQ(s.ParLVH[1][6], 1102.0f);
  EXPECT_EQ(s.ParLVH[1][7], 0.0f);  // spare, not read
  EXPECT_EQ(s.ParLVH[1][8], 1095.0f);
  EXPECT_EQ(s.ParLVH[1].TLo, 1103);
  EXPECT_EQ(s.ParLVH[1].THi, 1104);
  // AUGUST is computed, never read.
  EXPECT_EQ(s.ParAUG[1].A, 0.0f);
  EXPECT_EQ(s.ParAUG[1].TLo, 0);
}

TEST_F(Bank, TextFieldsArePaddedToTheirWidths) {
  Q07Record r = Ethanol();
  r.ModUnifInkr = "02001,01002,00000,00000,00000,00000,00000";
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  const auto& st = s.StoffData[1];
  EXPECT_EQ(st.Formel, "C2H6O       ");
  EXPECT_EQ(st.Name, peq::FixedField("Ethanol", 40));
  EXPECT_EQ(st.CasNr, "64-17-5     ");
  EXPECT_EQ(st.ModUnifInkr, "02001,01002,00000,00000,00000,00000,00000");
  EXPECT_EQ(st.OUnifInkr, "00000,00000,00000,00000,00000,00000,00000");
}

TEST_F(Bank, NameWithSemicolonIsCutInSessionButStaysWholeInBankName) {
  Session s;
  Open(s, {Water(), Ethanol()});
  Mixture(s, {2});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(peq::RTrim(s.StoffData[1].Name), "Ethanol");
  EXPECT_EQ(peq::RTrim(s.BankName[2]), "Ethanol;ethyl alcohol");
}

TEST_F(Bank, SecondNameIsCutLikeTheFirst) {
  Session s;
  s.NamenEnglisch = false;
  Open(s, {Ethanol()});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(peq::RTrim(s.StoffData[1].Name), "\xC3\x84thanol");
  EXPECT_EQ(peq::Utf8Length(s.StoffData[1].Name), 40u);
}

TEST_F(Bank, UniquacRAndQFallBackOnVanDerWaalsVolumeAndSurface) {
  Q07Record r = Water();
  r.V[2] = 0;
  r.V[3] = 1E-6f;  // at the bound: empty
  r.V[4] = 0.0401f;
  r.V[5] = 3.3333E8f;
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  // R = Int(V(4)*65.91957811470007*10000 + 0.5)/10000 with V(4) = 0.0401f = 0.04010000079870224:
  //     0.04010000079870224*659195.7811470007 + 0.5 = 26434.2514 -> 26434 -> 2.6434.
  EXPECT_EQ(s.StoffData[1].RUniquac, static_cast<float>(2.6434));
  // Q = Int(V(5)*4E-9*10000 + 0.5)/10000 with V(5) = 3.3333E8f = 333329984:
  //     333329984*4E-5 + 0.5 = 13333.699 -> 13333 -> 1.3333.
  EXPECT_EQ(s.StoffData[1].QUniquac, static_cast<float>(1.3333));
}

TEST_F(Bank, UniquacRAndQFromTheDatabaseWhenPresent) {
  Q07Record r = Water();
  r.V[2] = 0.92f;
  r.V[3] = 1.4f;
  r.V[4] = 0.0401f;
  r.V[5] = 3.3333E8f;
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.StoffData[1].RUniquac, 0.92f);
  EXPECT_EQ(s.StoffData[1].QUniquac, 1.4f);
}

TEST_F(Bank, MolMasseTKritPKritAreRoundedToFourDecimals) {
  Q07Record r = Water();
  r.V[0] = 18.01528f;   // f32 18.01527976989746 -> Int(180152.7977 + 0.5)/10000 = 18.0153
  r.V[6] = 647.09995f;  // f32 647.0999755859375 -> 6470999.756 + 0.5 -> 647.1
  r.V[7] = 22063.99996f;
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.MolMasse[1], static_cast<float>(18.0153));
  EXPECT_EQ(s.TKrit[1], static_cast<float>(647.1));
  EXPECT_EQ(s.PKrit[1], 22064.0f);
}

TEST_F(Bank, TLimitsAreRoundedToWholeNumbersHalfToEven) {
  Q07Record r = Water();
  r.V[39] = 272.5f;  // -> 272
  r.V[40] = 473.5f;  // -> 474
  r.V[58] = 273.49f; // -> 273
  r.V[59] = -0.4f;   // -> 0: no limit
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.ParALP[1].TLo, 272);
  EXPECT_EQ(s.ParALP[1].THi, 474);
  EXPECT_EQ(s.ParWAG[1].TLo, 273);
  EXPECT_EQ(s.ParWAG[1].THi, 0);
}

TEST_F(Bank, MeltingPointFallsBackOnTheSecondChoice) {
  Q07Record a = Water(), b = Water();
  a.V[91] = 250.0f;
  a.V[93] = 273.15f;
  b.V[91] = 250.0f;
  b.V[93] = 0;
  Session s;
  Open(s, {a, b});
  Mixture(s, {1, 2});
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  ASSERT_TRUE(peq::LoadSubstance(s, 2));
  EXPECT_EQ(s.StoffData[1].TSchmelz, 273.15f);
  EXPECT_EQ(s.StoffData[2].TSchmelz, 250.0f);
}

TEST_F(Bank, HugeTLimitIsAnOverflowErrorNotACrash) {
  Q07Record r = Water();
  r.V[21] = 1E9f;  // beyond a 16-bit integer
  Session s;
  Open(s, {r});
  Mixture(s, {1});
  EXPECT_FALSE(peq::LoadSubstance(s, 1));
  MsgSink sink;
  bool ok = true;
  peq::LoadSubstances(s, ok, &sink);
  EXPECT_FALSE(ok);
  EXPECT_FALSE(s.LoadOK);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Error");
  EXPECT_EQ(sink[0].text, "Overflow");
  EXPECT_EQ(sink[0].icon, peq::MsgIcon::Stop);
}

TEST_F(Bank, RecordBeyondTheFileIsAReadError) {
  Session s;
  Open(s, {Water()});
  Mixture(s, {7});
  MsgSink sink;
  bool ok = true;
  peq::LoadSubstances(s, ok, &sink);
  EXPECT_FALSE(ok);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Error");
  EXPECT_EQ(sink[0].text, "Bad record number");
}

TEST(BankNoFile, LoadWithoutAnOpenDatabaseIsAReadError) {
  Session s;
  s.NKomp = 1;
  peq::AllocSession(s, 1);
  s.KompIdx[1] = 1;
  MsgSink sink;
  bool ok = true;
  peq::LoadSubstances(s, ok, &sink);
  EXPECT_FALSE(ok);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Error");
  EXPECT_EQ(sink[0].text, "File not found");
}

TEST(BankNoFile, LoadSubstancesWithNoComponentsChangesNothing) {
  Session s;
  s.LoadOK = true;
  s.TKritMax = 5;
  bool ok = true;
  MsgSink sink;
  peq::LoadSubstances(s, ok, &sink);
  EXPECT_FALSE(ok);
  EXPECT_TRUE(s.LoadOK);
  EXPECT_EQ(s.TKritMax, 5);
  EXPECT_TRUE(sink.empty());
}

// ---------------------------------------------------------------- equation codes

struct CodeCase {
  bool aug, ahp, alp, wag, fro;
  const char* code;
};

TEST_F(Bank, EquationCodeLastTestThatHoldsWins) {
  const CodeCase cases[] = {
      {false, true, false, false, false, "AHP"}, {false, true, true, false, false, "ALP"},
      {false, true, true, true, false, "WAG"},   {false, true, true, true, true, "FRO"},
      {false, false, false, true, true, "FRO"},  {false, false, true, true, false, "WAG"},
      {false, false, false, false, false, ""},
  };
  for (const CodeCase& c : cases) {
    Q07Record r = Bare("Codes", "9-9-9");
    if (c.ahp) r.V[45] = 300;
    if (c.alp) r.V[39] = 300;
    if (c.wag) r.V[58] = 300;
    if (c.fro) r.V[33] = 300;
    Session s;
    Open(s, {r});
    Mixture(s, {1});
    ASSERT_TRUE(peq::LoadSubstance(s, 1));
    EXPECT_EQ(s.P0Eq[1], c.code);
  }
}

TEST_F(Bank, FrostNegativeTLoStillCountsAsPresent) {
  Q07Record r = Bare("Frost", "5-5-5");
  r.V[33] = -50;  // FROST T(Lo) negative, nothing else
  Session s;
  MsgSink sink;
  EXPECT_TRUE(Load(s, {r}, {1}, &sink));
  EXPECT_EQ(s.P0Eq[1], "FRO");
  EXPECT_EQ(s.ParFRO[1].TLo, -50);
  EXPECT_TRUE(sink.empty());
}

TEST_F(Bank, StoredEquationCodeIsKeptWhenItIsOneOfTheFive) {
  Session s;
  Open(s, {Water()});
  Mixture(s, {1});
  s.P0Eq[1] = "WAG";  // as a project stores it; the record has only ANTOINE
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.P0Eq[1], "WAG");
  // The test is a plain substring test on "AUGAHPALPWAGFRO".
  s.P0Eq[1] = "GAH";
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.P0Eq[1], "GAH");
  // The whole load of a project's mixture keeps it too.
  s.P0Eq[1] = "AHP";
  bool ok = false;
  peq::LoadSubstances(s, ok, nullptr);
  EXPECT_TRUE(ok);
  EXPECT_EQ(s.P0Eq[1], "AHP");
}

TEST_F(Bank, ThoIsNotKeptAcrossAReload) {
  Session s;
  Open(s, {Water()});
  Mixture(s, {1});
  s.P0Eq[1] = "THO";
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.P0Eq[1], "ALP");
  // Without any equation "THO" becomes blank.
  Q07Record bare = Bare("Crit", "1-1-1");
  bare.V[6] = 500;
  bare.V[7] = 4000;
  Session t;
  Open(t, {bare}, "B.Q07");
  Mixture(t, {1});
  t.P0Eq[1] = "THO";
  ASSERT_TRUE(peq::LoadSubstance(t, 1));
  EXPECT_EQ(t.P0Eq[1], "");
}

TEST_F(Bank, BlankEquationCodeIsReplaced) {
  Session s;
  Open(s, {Water()});
  Mixture(s, {1});
  s.P0Eq[1] = "   ";
  ASSERT_TRUE(peq::LoadSubstance(s, 1));
  EXPECT_EQ(s.P0Eq[1], "ALP");
}

// A substance with critical data and boiling point but no equation of its own.
Q07Record CriticalOnly() {
  Q07Record r = Water();
  for (int k = 36; k <= 40; ++k) r.V[static_cast<std::size_t>(k)] = 0;
  return r;
}

TEST_F(Bank, AugustIsNeverChosenAtTheFirstLoad) {
  Session s;
  ASSERT_TRUE(Load(s, {CriticalOnly()}, {1}));
  EXPECT_EQ(s.P0Eq[1], "");
  // Step 8 has computed the line, so a reload of the same mixture picks it.
  EXPECT_GT(s.ParAUG[1].A, 1E-6f);
  bool ok = false;
  peq::LoadSubstances(s, ok, nullptr);
  EXPECT_TRUE(ok);
  EXPECT_EQ(s.P0Eq[1], "AUG");
}

// ---------------------------------------------------------------- the whole load

TEST_F(Bank, LoadSubstancesSetsLoadOKAndTheMaxima) {
  Session s;
  MsgSink sink;
  ASSERT_TRUE(Load(s, {Water(), Ethanol()}, {2, 1}, &sink));
  EXPECT_TRUE(s.LoadOK);
  EXPECT_TRUE(sink.empty());
  EXPECT_EQ(s.TKritMax, 647.0960083007812);  // Round4(647.096f) as f32
  EXPECT_EQ(s.PKritMax, 22064.0);
  EXPECT_TRUE(s.AlleOmega);
  EXPECT_TRUE(s.AlleVWilson);
  EXPECT_EQ(peq::RTrim(s.StoffData[1].Name), "Ethanol");
  EXPECT_EQ(peq::RTrim(s.StoffData[2].Name), "Water");
}

TEST_F(Bank, OmegaAtOrBelowOneEMinus6ClearsAlleOmega) {
  Q07Record zero = Ethanol(), trueZero = Ethanol(), negative = Ethanol();
  zero.V[9] = 0;
  trueZero.V[9] = 1E-37f;
  negative.V[9] = -0.004f;  // argon's acentric factor: present
  {
    Session s;
    ASSERT_TRUE(Load(s, {Water(), zero}, {1, 2}));
    EXPECT_FALSE(s.AlleOmega);
  }
  {
    Session s;
    ASSERT_TRUE(Load(s, {Water(), trueZero}, {1, 2}));
    EXPECT_FALSE(s.AlleOmega);
  }
  {
    Session s;
    ASSERT_TRUE(Load(s, {Water(), negative}, {1, 2}));
    EXPECT_TRUE(s.AlleOmega);
  }
}

TEST_F(Bank, ComponentWithoutEquationAndCriticalDataStopsTheLoad) {
  Q07Record r = Bare("Mystery;unknown stuff", "0-0-0");
  r.V[0] = 100;
  Session s;
  MsgSink sink;
  EXPECT_FALSE(Load(s, {Water(), r}, {1, 2}, &sink));
  EXPECT_FALSE(s.LoadOK);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "no calculation possible");
  EXPECT_EQ(sink[0].text,
            "For a component neither a vapour pressure equation nor T(cr)/p(cr) found:\nMystery");
  EXPECT_EQ(sink[0].icon, peq::MsgIcon::Stop);
  // The load stopped before the boiling points and AUGUST lines.
  EXPECT_EQ(s.TSiede[1], 0.0f);
  EXPECT_EQ(s.ParAUG[1].A, 0.0f);
}

TEST_F(Bank, CriticalPointWithoutPressureIsNotEnough) {
  Q07Record r = Bare("HalfCrit", "0-0-1");
  r.V[6] = 500;  // TKrit only
  Session s;
  MsgSink sink;
  EXPECT_FALSE(Load(s, {r}, {1}, &sink));
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "no calculation possible");
}

TEST_F(Bank, CriticalDataAloneOrOneEquationAloneMakeAComponentUsable) {
  Q07Record crit = Bare("Crit", "0-0-2");
  crit.V[6] = 500;
  crit.V[7] = 4000;
  Q07Record eq = Water();
  eq.V[6] = 0;
  eq.V[7] = 0;
  Session s;
  MsgSink sink;
  EXPECT_TRUE(Load(s, {crit, eq}, {1, 2}, &sink));
  EXPECT_TRUE(sink.empty());
}

TEST_F(Bank, LimitsThatCancelInTheUsabilitySumCountAsNoEquation) {
  // The test is on |ALP.TLo + AHP.TLo + FRO.TLo + WAG.TLo|: -300 and 300 cancel.
  Q07Record r = Bare("Cancel", "0-0-3");
  r.V[33] = -300;
  r.V[39] = 300;
  Session s;
  MsgSink sink;
  EXPECT_FALSE(Load(s, {r}, {1}, &sink));
  ASSERT_EQ(sink.size(), 1u);
}

TEST_F(Bank, WilsonVolumeFromTheDatabase) {
  Session s;
  ASSERT_TRUE(Load(s, {Water()}, {1}));
  EXPECT_EQ(s.VLiqCm3[1], 18.06f);
  EXPECT_EQ(s.StoffData[1].VWilsonDb, 18.06f);
  EXPECT_TRUE(s.AlleVWilson);
}

TEST_F(Bank, WilsonVolumeFromTheDensityAt298K) {
  Q07Record r = Water();
  r.V[1] = 0;
  FlatDensity(r, 1000.0f);
  Session s;
  ASSERT_TRUE(Load(s, {r}, {1}));
  // rho = 1000 kg/m3 at 298.15 K: VLiq = 18.0153/1000 m3/kmol, VLiqCm3 = 1000*VLiq = 18.0153.
  EXPECT_REL(s.VLiqCm3[1], 18.0153, 1e-6);
  EXPECT_EQ(s.StoffData[1].VWilsonDb, s.VLiqCm3[1]);
  EXPECT_TRUE(s.AlleVWilson);
}

TEST_F(Bank, WilsonVolumeMissingWithoutDensityFunction) {
  Q07Record r = Water();
  r.V[1] = 0;
  Session s;
  ASSERT_TRUE(Load(s, {r}, {1}));
  EXPECT_EQ(s.VLiqCm3[1], 0.0f);
  EXPECT_EQ(s.StoffData[1].VWilsonDb, 0.0f);
  EXPECT_FALSE(s.AlleVWilson);
}

TEST_F(Bank, WilsonFallbackMissingBehindComponentWithoutDensityFunction) {
  // Component 1 has a WILSON volume but no density function; component 2 needs the fallback
  // and has its own density function. The density walk starts at component 1 and stops there,
  // so component 2 gets nothing.
  Q07Record first = Water();
  Q07Record second = Ethanol();
  second.V[1] = 0;
  FlatDensity(second, 789.0f);
  Session s;
  ASSERT_TRUE(Load(s, {first, second}, {1, 2}));
  EXPECT_EQ(s.VLiqCm3[1], 18.06f);
  EXPECT_EQ(s.VLiqCm3[2], 0.0f);
  EXPECT_FALSE(s.AlleVWilson);
}

TEST_F(Bank, WilsonFallbackOfComponentWithoutDensityReusesTheDensityBefore) {
  // Regression of the required density walk: at 298.15 K, above the (absent) function's
  // T(cr) = 0, component 2 takes the density of component 1, 1000 kg/m3, so
  // VLiqCm3(2) = 1000 * 46.0684/1000 = 46.0684.
  Q07Record first = Water();
  FlatDensity(first, 1000.0f);
  Q07Record second = Ethanol();
  second.V[1] = 0;
  Session s;
  ASSERT_TRUE(Load(s, {first, second}, {1, 2}));
  EXPECT_REL(s.VLiqCm3[2], 46.0684, 1e-6);
  EXPECT_TRUE(s.AlleVWilson);
}

TEST_F(Bank, KritOKNeedsRhoKritOfEveryComponent) {
  {
    Session s;
    ASSERT_TRUE(Load(s, {Water(), Ethanol()}, {1, 2}));
    EXPECT_TRUE(s.KritOK);
  }
  Q07Record e = Ethanol();
  e.V[8] = 0;
  {
    Session s;
    ASSERT_TRUE(Load(s, {Water(), e}, {1, 2}));
    EXPECT_FALSE(s.KritOK);
  }
}

TEST_F(Bank, TSiedeIsTheDatabaseBoilingPoint) {
  Session s;
  ASSERT_TRUE(Load(s, {Water()}, {1}));
  EXPECT_EQ(s.TSiede[1], 373.124f);
  EXPECT_EQ(s.P0Eq[1], "ALP");
}

TEST_F(Bank, TSiedeFromTheEquationWhenTheDatabaseHasNone) {
  Q07Record r = Water();
  r.V[10] = 0;
  Session s;
  ASSERT_TRUE(Load(s, {r}, {1}));
  // ANTOINE solved for 101.325 kPa with the f32 coefficients:
  // T = 1687.537/(7.11564 - lg 101.325) - 230.17 + 273.15 = 373.2270 K.
  EXPECT_REL(s.TSiede[1], 373.22701442517285, 1e-6);
  EXPECT_EQ(s.P0Eq[1], "ALP");
}

TEST_F(Bank, AugustLineThroughBoilingAndCriticalPoint) {
  Session s;
  ASSERT_TRUE(Load(s, {Water()}, {1}));
  const auto& aug = s.ParAUG[1];
  // Tb = 373.124f = 373.1239929, Tc = 647.0960083, pc = 22064:
  // B = Tb*Tc*ln(pc/101.325)/(Tb - Tc) = -4744.2752 (stored f32 -4744.275390625),
  // A = ln(22064) - B/Tc = 10.001676 + 7.331667 = 17.333343.
  EXPECT_REL(aug.B, -4744.275236482697, 1e-7);
  EXPECT_REL(aug.A, 17.333343237228576, 1e-7);
  EXPECT_EQ(aug.TLo, 373);
  EXPECT_EQ(aug.THi, 647);
  // The line gives 101.325 kPa at Tb.
  EXPECT_REL(std::exp(aug.A + aug.B / 373.124f), 101.325, 1e-5);
}

TEST_F(Bank, AugustNeedsTheCriticalPoint) {
  Q07Record r = Water();
  r.V[7] = 0;
  Session s;
  ASSERT_TRUE(Load(s, {r}, {1}));
  EXPECT_EQ(s.ParAUG[1].A, 0.0f);
}

TEST_F(Bank, AugustWithBoilingPointAtTheCriticalPointGivesNoLine) {
  Q07Record r = Water();
  r.V[10] = 647.096f;  // Tb = Tc: the line is undefined
  Session s;
  ASSERT_TRUE(Load(s, {r}, {1}));
  EXPECT_EQ(s.ParAUG[1].A, 0.0f);
  EXPECT_TRUE(std::isfinite(s.ParAUG[1].B));
}

TEST_F(Bank, SelectionCommitLoadsTheMixture) {
  const auto path = peqtest::WriteBank(dir.path(), "MIX.Q07", {Water(), Ethanol()});
  Session s;
  MsgSink sink;
  ASSERT_TRUE(peqtest::LoadMixture(s, path, {"64-17-5", "7732-18-5"}, &sink));
  EXPECT_EQ(s.NKomp, 2);
  EXPECT_EQ(s.KompIdx[1], 2);
  EXPECT_EQ(s.KompIdx[2], 1);
  EXPECT_EQ(peq::Trim(s.StoffData[1].CasNr), "64-17-5");
  EXPECT_EQ(s.GEModel, -1);
}

}  // namespace
