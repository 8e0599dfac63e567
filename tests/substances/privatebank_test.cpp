// The private database of a mixture: each component's record of the open database with the
// session's data laid over it, in the order of the mixture.
#include "substances/privatebank.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "substances/bank.h"
#include "support/fixtures.h"

namespace {

using peq::kQ07RecordLength;

std::string Bytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string Record(const std::string& bytes, int recNo) {
  return bytes.substr(static_cast<std::size_t>(recNo - 1) * kQ07RecordLength, kQ07RecordLength);
}

// Byte offset of value V(k) in a record.
constexpr std::size_t ValueAt(int k) { return 188 + 4 * static_cast<std::size_t>(k); }

float ValueOf(const std::string& rec, int k) {
  float v = 0;
  std::memcpy(&v, rec.data() + ValueAt(k), 4);
  return v;
}

// Ethanol, water, methanol: three substances in an order that is not the database's.
const std::vector<std::string> kMix = {"64-17-5", "7732-18-5", "67-56-1"};

class PrivateBank : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), kMix)); }
  peq::Session s;
  peqtest::TempDir dir;
};

TEST_F(PrivateBank, OpensWithBankAnz3AndTheSubstancesInTheOrderOfTheMixture) {
  const std::string file = dir.File("MINE.Q07");
  std::string err;
  ASSERT_TRUE(peq::WritePrivateBank(s, file, err)) << err;
  EXPECT_EQ(Bytes(file).size(), 4u * kQ07RecordLength);
  peq::Session t;
  ASSERT_TRUE(peqtest::OpenBank(t, file));
  EXPECT_EQ(t.BankAnz, 3);
  for (int i = 1; i <= 3; ++i) EXPECT_EQ(peq::Trim(t.BankCAS[static_cast<std::size_t>(i)]), kMix[static_cast<std::size_t>(i - 1)]);
  // The mixture loads from the private file with the same data.
  peq::Session u;
  ASSERT_TRUE(peqtest::LoadMixture(u, file, kMix));
  for (std::size_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(u.TKrit[i], s.TKrit[i]);
    EXPECT_EQ(u.StoffData[i].Name, s.StoffData[i].Name);
    EXPECT_EQ(u.P0Eq[i], s.P0Eq[i]);
    EXPECT_EQ(u.TSiede[i], s.TSiede[i]);
  }
}

TEST_F(PrivateBank, UnchangedDataGiveTheOriginalRecordsByteForByte) {
  const std::string file = dir.File("SAME.Q07");
  std::string err;
  ASSERT_TRUE(peq::WritePrivateBank(s, file, err)) << err;
  const std::string mine = Bytes(file);
  const std::string orig = Bytes(peqtest::BundledBankPath());
  // Record 1: the count in its 16-bit field.
  EXPECT_EQ(static_cast<unsigned char>(mine[186]), 3);
  EXPECT_EQ(static_cast<unsigned char>(mine[187]), 0);
  for (int i = 1; i <= 3; ++i) {
    const int place = s.KompIdx[static_cast<std::size_t>(i)];
    EXPECT_EQ(Record(mine, i + 1), Record(orig, place + 1)) << "component " << i;
  }
}

TEST_F(PrivateBank, ChangedFieldsAreChangedAndEveryOtherByteStaysAsInTheDatabase) {
  // Water (component 2): T(cr), a FROST coefficient typed as 0, a new T limit and a new name;
  // methanol (component 3): the Mod. UNIFAC increments.
  s.TKrit[2] = 650.5f;
  s.ParFRO[2][5] = 1E-37f;
  s.ParALP[2].TLo = 280;
  s.StoffData[2].Name = peq::FixedField("Aqua", 40);
  s.StoffData[3].ModUnifInkr = "01015,00000,00000,00000,00000,00000,00000";
  const std::string file = dir.File("CHANGED.Q07");
  std::string err;
  ASSERT_TRUE(peq::WritePrivateBank(s, file, err)) << err;
  const std::string mine = Bytes(file);
  const std::string orig = Bytes(peqtest::BundledBankPath());

  EXPECT_EQ(Record(mine, 2), Record(orig, s.KompIdx[1] + 1));  // ethanol untouched

  const std::string w = Record(mine, 3), wo = Record(orig, s.KompIdx[2] + 1);
  EXPECT_EQ(ValueOf(w, 6), 650.5f);
  EXPECT_EQ(ValueOf(w, 28), 1E-37f);   // FROST E
  EXPECT_EQ(ValueOf(w, 39), 280.0f);   // ANTOINE (low-p) T(Lo), widened to f32
  EXPECT_EQ(peq::Trim(w.substr(12, 40)), "Aqua");
  for (std::size_t b = 0; b < static_cast<std::size_t>(kQ07RecordLength); ++b) {
    const bool changed = (b >= 12 && b < 52) || (b >= ValueAt(6) && b < ValueAt(7)) ||
                         (b >= ValueAt(28) && b < ValueAt(29)) || (b >= ValueAt(39) && b < ValueAt(40));
    if (!changed) {
      EXPECT_EQ(w[b], wo[b]) << "byte " << b;
    }
  }

  const std::string m = Record(mine, 4), mo = Record(orig, s.KompIdx[3] + 1);
  EXPECT_EQ(m.substr(104, 41), "01015,00000,00000,00000,00000,00000,00000");
  EXPECT_EQ(m.substr(0, 104), mo.substr(0, 104));
  EXPECT_EQ(m.substr(145), mo.substr(145));
}

TEST_F(PrivateBank, ANewNameKeepsTheSynonymsBehindItsSemicolon) {
  // A database whose name carries a synonym.
  peq::Q07Record a = peqtest::BundledRecord("64-17-5");
  a.Name1 = "Ethanol;Ethyl alcohol";
  const std::string bank = peqtest::WriteBank(dir.path(), "SYN.Q07", {a, peqtest::BundledRecord("7732-18-5")});
  peq::Session t;
  ASSERT_TRUE(peqtest::LoadMixture(t, bank, {"64-17-5", "7732-18-5"}));
  EXPECT_EQ(peq::Trim(t.StoffData[1].Name), "Ethanol");
  t.StoffData[1].Name = peq::FixedField("Alcohol", 40);
  peq::Q07Record r;
  std::string err;
  ASSERT_TRUE(peq::PrivateBankRecord(t, 1, r, err)) << err;
  EXPECT_EQ(r.Name1, "Alcohol;Ethyl alcohol");
}

TEST_F(PrivateBank, AnUnreadableRecordFailsWithTheSystemsText) {
  s.KompIdx[2] = 5000;  // beyond the end of the file
  std::string err;
  EXPECT_FALSE(peq::WritePrivateBank(s, dir.File("X.Q07"), err));
  EXPECT_FALSE(err.empty());
  EXPECT_FALSE(std::ifstream(dir.File("X.Q07")).good());
}

}  // namespace
