// The bundled default database data/PEQBASE.Q07 and the tool that makes it.
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "models/liquid.h"
#include "models/vappressure.h"
#include "session/codepage.h"
#include "session/constants.h"
#include "substances/bank.h"
#include "substances/kij.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

// The data tool itself, compiled into the tests so that its current code is what is checked.
#define PEQ_MKBASE_NO_MAIN
#include "../../tools/mkbase.cpp"

namespace {

namespace fs = std::filesystem;

std::string FileBytes(const fs::path& path) {
  std::ifstream f(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

fs::path SharedData() { return fs::path(peqtest::SourceDir()) / ".." / "shared" / "data"; }

TEST(BundledDatabase, OpensWithAllItsSubstances) {
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  EXPECT_EQ(s.BankAnz, 156);
  std::set<std::string> cas;
  for (int n = 1; n <= s.BankAnz; ++n) {
    EXPECT_EQ(s.BankNr[n], n) << "system number is the running number";
    EXPECT_FALSE(peq::Trim(s.BankName[n]).empty());
    EXPECT_TRUE(cas.insert(peq::Trim(s.BankCAS[n])).second) << s.BankCAS[n];
  }
  EXPECT_EQ(peq::CASSuchen(s, "7732-18-5"), peq::CASSuchen(s, " 7732-18-5 "));
  EXPECT_GT(peq::CASSuchen(s, "7732-18-5"), 0);
}

TEST(BundledDatabase, GermanNamesAreTheSecondNames) {
  peq::Session s;
  s.NamenEnglisch = false;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  EXPECT_EQ(peq::RTrim(s.BankName[peq::CASSuchen(s, "7732-18-5")]), "Wasser");
  // Acetic acid is "Essigsäure": the umlaut comes back from code page 1252 as UTF-8.
  EXPECT_EQ(peq::RTrim(s.BankName[peq::CASSuchen(s, "64-19-7")]), "Essigs\xC3\xA4ure");
}

TEST(BundledDatabase, IncrementFieldsHaveTheirForm) {
  const std::regex form("[0-9]{5}(,[0-9]{5}){6}");
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  int withMod = 0, withO = 0;
  for (int n = 1; n <= s.BankAnz; ++n) {
    peq::Q07Record r;
    std::string err;
    ASSERT_TRUE(peq::ReadQ07Record(peqtest::BundledBankPath(), n + 1, r, err));
    EXPECT_TRUE(std::regex_match(r.ModUnifInkr, form)) << r.ModUnifInkr;
    EXPECT_TRUE(std::regex_match(r.OUnifInkr, form)) << r.OUnifInkr;
    withMod += r.ModUnifInkr.substr(0, 5) != "00000";
    withO += r.OUnifInkr.substr(0, 5) != "00000";
  }
  // unifac/groups.tsv: 135 Mod. UNIFAC and 136 UNIFAC assignments.
  EXPECT_EQ(withMod, 135);
  EXPECT_EQ(withO, 136);
  // n-Hexane by UNIFAC: 2 CH3 (subgroup 1), 4 CH2 (subgroup 2).
  const peq::Q07Record hexane = peqtest::BundledRecord("110-54-3");
  EXPECT_EQ(hexane.OUnifInkr, "02001,04002,00000,00000,00000,00000,00000");
  // UNIQUAC r, q of n-hexane from its groups: 4.4998, 3.856.
  EXPECT_EQ(hexane.V[2], 4.4998f);
  EXPECT_EQ(hexane.V[3], 3.856f);
}

TEST(BundledDatabase, WaterMappedFromItsTables) {
  const peq::Q07Record w = peqtest::BundledRecord("7732-18-5");
  EXPECT_EQ(w.Formel, "H2O");
  EXPECT_EQ(w.Name1, "Water");
  EXPECT_EQ(w.Name2, "Wasser");
  EXPECT_EQ(w.V[0], 18.0153f);
  EXPECT_EQ(w.V[1], 18.06f);
  EXPECT_EQ(w.V[6], 647.096f);
  EXPECT_EQ(w.V[7], 22064.0f);
  EXPECT_EQ(w.V[9], 0.344f);
  EXPECT_EQ(w.V[10], 373.124f);
  // ANTOINE (Poling): 7.11564, 1687.537, 230.17, 273.2..473.2 K.
  EXPECT_EQ(w.V[36], 7.11564f);
  EXPECT_EQ(w.V[37], 1687.537f);
  EXPECT_EQ(w.V[38], 230.17f);
  EXPECT_EQ(w.V[39], 273.2f);
  EXPECT_EQ(w.V[40], 473.2f);
  // DIPPR-101 (Perry) ln(p/Pa) = 73.649 - 7258.2/T - 7.3037 ln T + 4.1653E-6 T^2 as FROST:
  // A = (73.649 - ln 1000)/ln 10 = 28.984, B = -7258.2/ln 10 = -3152.18, C = 273.15,
  // D = -7.3037, H = 4.1653E-6/ln 10 = 1.80896E-6, I = 2.
  EXPECT_REL(w.V[24], (73.649 - std::log(1000.0)) / std::log(10.0), 1e-7);
  EXPECT_REL(w.V[25], -7258.2 / std::log(10.0), 1e-7);
  EXPECT_EQ(w.V[26], 273.15f);
  EXPECT_EQ(w.V[27], -7.3037f);
  EXPECT_EQ(w.V[28], 0.0f);
  EXPECT_EQ(w.V[29], 0.0f);
  EXPECT_EQ(w.V[30], 0.0f);
  EXPECT_REL(w.V[31], 4.1653E-6 / std::log(10.0), 1e-7);
  EXPECT_EQ(w.V[32], 2.0f);
  EXPECT_EQ(w.V[33], 273.16f);
  EXPECT_EQ(w.V[34], 647.096f);
  // WAGNER (VDI PPDS 2.5-5) with its own Tc and pc.
  EXPECT_EQ(w.V[48], -7.86975f);
  EXPECT_EQ(w.V[51], 2.5f);
  EXPECT_EQ(w.V[53], 5.0f);
  EXPECT_EQ(w.V[56], 647.1f);
  EXPECT_EQ(w.V[57], 22064.0f);
  // DIPPR-106 (Perry) A = 52053000 J/kmol -> 52053 J/mol, a1 = 0, B = 0.3199, C = -0.212,
  // D = 0.25795.
  EXPECT_EQ(w.V[96], 52053.0f);
  EXPECT_EQ(w.V[97], 0.0f);
  EXPECT_EQ(w.V[98], 0.3199f);
  EXPECT_EQ(w.V[99], -0.212f);
  EXPECT_EQ(w.V[100], 0.25795f);
  EXPECT_EQ(w.V[102], 647.096f);
  // Density from the supplement (Perry 7th ed.): r2 = 5.459*M, r3 = 0.30542, r4 = 0.081,
  // r8 = 647.13 K, limits 273 and 333 K.
  EXPECT_REL(w.V[14], 5.459 * w.V[0], 1e-7);
  EXPECT_EQ(w.V[15], 0.30542f);
  EXPECT_EQ(w.V[16], 0.081f);
  EXPECT_EQ(w.V[20], 647.13f);
  EXPECT_EQ(w.V[21], 273.16f);
  EXPECT_EQ(w.V[22], 333.15f);
}

TEST(BundledDatabase, BenzeneDensityIsTheRackettFormOfDippr105) {
  // Perry DIPPR-105 for benzene: A = 1.0259 mol/dm3, B = 0.26666, C = 562.05 K, D = 0.28394.
  const peq::Q07Record b = peqtest::BundledRecord("71-43-2");
  EXPECT_EQ(b.V[13], 0.0f);
  EXPECT_REL(b.V[14], 1.0259 * 78.1118, 1e-7);  // r2 = A*M in kg/m3
  EXPECT_EQ(b.V[15], 0.26666f);
  EXPECT_EQ(b.V[16], 0.28394f);
  EXPECT_EQ(b.V[20], 562.05f);
  // At 298.15 K: rho = 80.1375/0.26666^(1 + (1 - 298.15/562.05)^0.28394) = 872.97 kg/m3, that is
  // 11.176 mol/dm3 and 89.48 cm3/mol as the tables state.
  const double rho = b.V[14] / std::pow(b.V[15], 1 + std::pow(1 - 298.15 / b.V[20], b.V[16]));
  EXPECT_REL(1000.0 * b.V[0] / rho, 89.48, 1e-3);
  EXPECT_EQ(b.V[1], 89.48f);
}

// Water's density function comes from tools/supplement (Perry's 7th ed., DIPPR-105 form).
// Reference: 997.05 kg/m3 at 298.15 K (IAPWS-95); the handbook fit is 0.2 % low there.
TEST(BundledDatabase, WaterHasADensityFunction) {
  peq::Session s;
  ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"7732-18-5", "64-17-5"}));
  peq::Vec<int16_t> dT(3);
  int16_t ok = 0;
  peq::LiquidVolumes(s, 298.15, dT, ok);
  ASSERT_EQ(ok, -1);
  EXPECT_REL(s.MolMasse[1] / s.VLiq[1], 997.05, 0.005);
  EXPECT_EQ(dT[1], 0);
  // Ethanol, behind water in the walk, now gets its own density: 785 kg/m3 at 298.15 K.
  EXPECT_REL(s.MolMasse[2] / s.VLiq[2], 785.0, 0.01);
}

TEST(BundledDatabase, SublimingSubstancesCarryTheBoilingPointOfTheirLiquid) {
  // CO2 and acetylene have no liquid at 101.325 kPa; their V(10) is where the liquid's
  // vapour-pressure line crosses 101.325 kPa.
  EXPECT_EQ(peqtest::BundledRecord("124-38-9").V[10], 185.61f);
  EXPECT_EQ(peqtest::BundledRecord("74-86-2").V[10], 188.32f);
}

TEST(BundledDatabase, EverySubstanceGivesNormalPressureAtItsBoilingPoint) {
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  const int count = s.BankAnz;
  ASSERT_EQ(count, 156);
  for (int n = 1; n <= count; ++n) {
    peq::Vec<int16_t> idx(2, 0);
    idx[1] = static_cast<int16_t>(n);
    peq::MsgSink sink;
    const bool ok = peq::SelectionCommit(s, 1, idx, &sink);
    const std::string name = peq::RTrim(s.StoffData[1].Name);
    ASSERT_TRUE(ok) << name;
    EXPECT_TRUE(sink.empty()) << name;
    EXPECT_GT(s.TKrit[1], peq::kPresent) << name;
    EXPECT_GT(s.PKrit[1], peq::kPresent) << name;
    std::string code = s.P0Eq[1];
    ASSERT_FALSE(code.empty()) << name;
    const double tb = s.StoffData[1].TSiedeDb;
    ASSERT_GT(tb, peq::kPresent) << name;
    int16_t dT = 0;
    const float p = peq::VapPressure(s, 1, tb, code, false, dT);
    EXPECT_TRUE(peqtest::Near(p, 101.325, 0.03)) << name << " by " << code << " at " << tb << " K";
    EXPECT_EQ(s.TSiede[1], s.StoffData[1].TSiedeDb) << name;
  }
}

TEST(BundledDatabase, WilsonVolumesOfEveryLiquidAt298K) {
  // Every substance with a critical point above 298.15 K has a WILSON volume; the seven gases
  // below it (N2, O2, Ar, H2, CO, CH4, C2H4) have none and no density function at 298.15 K.
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  int without = 0;
  for (int n = 1; n <= s.BankAnz; ++n) {
    peq::Vec<int16_t> idx(2, 0);
    idx[1] = static_cast<int16_t>(n);
    ASSERT_TRUE(peq::SelectionCommit(s, 1, idx, nullptr));
    if (s.TKrit[1] > 298.15) {
      EXPECT_GT(s.VLiqCm3[1], 10.0f) << peq::RTrim(s.StoffData[1].Name);
    } else {
      EXPECT_FALSE(s.AlleVWilson);
      ++without;
    }
  }
  EXPECT_EQ(without, 7);
}

TEST(MkBase, ReproducesTheBundledFilesByteForByte) {
  if (!fs::is_directory(SharedData())) GTEST_SKIP() << "no " << SharedData();
  peqtest::TempDir out;
  std::ostringstream log;
  std::string err;
  ASSERT_TRUE(mkbase::MakeBase(SharedData(), out.path(), log, err)) << err;
  for (const char* f : {"PEQBASE.Q07", "KIJ_PR.DAT", "KIJ_RKS.DAT"}) {
    const std::string made = FileBytes(fs::path(out.path()) / f);
    const std::string bundled = FileBytes(fs::path(peqtest::SourceDir()) / "data" / f);
    EXPECT_FALSE(made.empty()) << f;
    EXPECT_TRUE(made == bundled) << f << " differs from data/" << f
                                 << ": run mkbase ../shared/data data";
  }
}

TEST(MkBase, TwoRunsGiveTheSameBytes) {
  if (!fs::is_directory(SharedData())) GTEST_SKIP() << "no " << SharedData();
  peqtest::TempDir a, b;
  std::ostringstream log;
  std::string err;
  ASSERT_TRUE(mkbase::MakeBase(SharedData(), a.path(), log, err)) << err;
  ASSERT_TRUE(mkbase::MakeBase(SharedData(), b.path(), log, err)) << err;
  for (const char* f : {"PEQBASE.Q07", "KIJ_PR.DAT", "KIJ_RKS.DAT"})
    EXPECT_TRUE(FileBytes(fs::path(a.path()) / f) == FileBytes(fs::path(b.path()) / f)) << f;
}

TEST(MkBase, IncrementFieldFromGroupAssignment) {
  EXPECT_EQ(mkbase::IncrementField("2*1 1*2", "x"), "02001,01002,00000,00000,00000,00000,00000");
  EXPECT_EQ(mkbase::IncrementField("14*2 2*1", "x"), "14002,02001,00000,00000,00000,00000,00000");
  EXPECT_EQ(mkbase::IncrementField("1*1 1*2 1*3 1*4 1*5 1*6 1*220", "x"),
            "01001,01002,01003,01004,01005,01006,01220");
  EXPECT_THROW(mkbase::IncrementField("1*1 1*2 1*3 1*4 1*5 1*6 1*7 1*8", "x"), mkbase::Failure);
  EXPECT_THROW(mkbase::IncrementField("100*1", "x"), mkbase::Failure);
  EXPECT_THROW(mkbase::IncrementField("2x1", "x"), mkbase::Failure);
}

TEST(MkBase, MissingTablesAreReportedNotCrashed) {
  peqtest::TempDir in, out;
  std::ostringstream log;
  std::string err;
  EXPECT_FALSE(mkbase::MakeBase(in.path(), out.path(), log, err));
  EXPECT_NE(err.find("substances.tsv"), std::string::npos) << err;
}

}  // namespace
