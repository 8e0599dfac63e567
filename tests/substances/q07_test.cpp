// The record layout of the substance database file and its reader and writer.
#include "substances/q07.h"

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace {

using peq::kQ07RecordLength;
using peq::Q07Record;

std::string FileBytes(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

float FloatAt(const unsigned char* p) {
  uint32_t u = static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
               (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
  float f;
  std::memcpy(&f, &u, 4);
  return f;
}

Q07Record Sample() {
  Q07Record r;
  r.Formel = "C2H6O";
  r.Name1 = "Ethanol;ethyl alcohol";
  r.Name2 = "\xC3\x84thanol";  // "Äthanol"
  r.CasNr = "64-17-5";
  r.ModUnifInkr = "01001,01002,01014,00000,00000,00000,00000";
  r.OUnifInkr = "01001,01002,01014,00000,00000,00000,00000";
  r.Nr = 1234;
  for (int k = 0; k < peq::kQ07Values; ++k) r.V[static_cast<std::size_t>(k)] = 0.5f + k;
  return r;
}

TEST(Q07, RecordIs684BytesWithFieldsAtTheirOffsets) {
  unsigned char b[kQ07RecordLength];
  EncodeQ07Record(Sample(), b);
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 0, 12), "C2H6O       ");
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 12, 40),
            "Ethanol;ethyl alcohol                   ");
  // Second name in code page 1252: Ä = C4 hex.
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 52, 40),
            std::string("\xC4thanol") + std::string(33, ' '));
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 92, 12), "64-17-5     ");
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 104, 41),
            "01001,01002,01014,00000,00000,00000,00000");
  EXPECT_EQ(std::string(reinterpret_cast<char*>(b) + 145, 41),
            "01001,01002,01014,00000,00000,00000,00000");
  // 1234 = 04D2 hex, little-endian.
  EXPECT_EQ(b[186], 0xD2);
  EXPECT_EQ(b[187], 0x04);
  // V(0) at 188, V(123) at 188 + 4*123 = 680, the last four bytes.
  EXPECT_EQ(FloatAt(b + 188), 0.5f);
  EXPECT_EQ(FloatAt(b + 188 + 4 * 10), 10.5f);
  EXPECT_EQ(FloatAt(b + 680), 123.5f);
  // 0.5f is 3F000000 hex: lowest byte first.
  EXPECT_EQ(b[188], 0x00);
  EXPECT_EQ(b[191], 0x3F);
}

TEST(Q07, DecodeGivesBackWhatWasEncoded) {
  unsigned char b[kQ07RecordLength];
  const Q07Record in = Sample();
  EncodeQ07Record(in, b);
  const Q07Record out = peq::DecodeQ07Record(b);
  EXPECT_EQ(out.Formel, in.Formel);
  EXPECT_EQ(out.Name1, in.Name1);
  EXPECT_EQ(out.Name2, in.Name2);
  EXPECT_EQ(out.CasNr, in.CasNr);
  EXPECT_EQ(out.ModUnifInkr, in.ModUnifInkr);
  EXPECT_EQ(out.OUnifInkr, in.OUnifInkr);
  EXPECT_EQ(out.Nr, in.Nr);
  EXPECT_EQ(out.V, in.V);
}

TEST(Q07, TextsLongerThanTheirFieldAreCut) {
  Q07Record r;
  r.Formel = "C12H22O11XXXYYY";
  r.Name1 = std::string(50, 'n');
  unsigned char b[kQ07RecordLength];
  EncodeQ07Record(r, b);
  const Q07Record out = peq::DecodeQ07Record(b);
  EXPECT_EQ(out.Formel, "C12H22O11XXX");
  EXPECT_EQ(out.Name1, std::string(40, 'n'));
  EXPECT_EQ(out.Name2, "");
}

TEST(Q07, NulPaddedTextsReadLikeBlankPadded) {
  unsigned char b[kQ07RecordLength] = {};
  std::memcpy(b + 92, "7732-18-5", 9);
  const Q07Record out = peq::DecodeQ07Record(b);
  EXPECT_EQ(out.CasNr, "7732-18-5");
  EXPECT_EQ(out.Name1, "");
}

TEST(Q07, NonNumbersInTheValueTableReadAsEmpty) {
  Q07Record r;
  r.V[6] = std::numeric_limits<float>::quiet_NaN();
  r.V[7] = std::numeric_limits<float>::infinity();
  r.V[8] = -std::numeric_limits<float>::infinity();
  r.V[9] = 0.344f;
  unsigned char b[kQ07RecordLength];
  EncodeQ07Record(r, b);
  const Q07Record out = peq::DecodeQ07Record(b);
  EXPECT_EQ(out.V[6], 0.0f);
  EXPECT_EQ(out.V[7], 0.0f);
  EXPECT_EQ(out.V[8], 0.0f);
  EXPECT_EQ(out.V[9], 0.344f);
}

TEST(Q07, TrueZeroSurvivesAsOneEMinus37) {
  Q07Record r;
  r.V[9] = 1E-37f;
  unsigned char b[kQ07RecordLength];
  EncodeQ07Record(r, b);
  EXPECT_EQ(peq::DecodeQ07Record(b).V[9], 1E-37f);
}

TEST(Q07, WriterPutsTheCountIntoRecordOne) {
  peqtest::TempDir dir;
  Q07Record a = Sample(), c = Sample();
  a.CasNr = "1-1-1";
  c.CasNr = "2-2-2";
  const std::string path = peqtest::WriteBank(dir.path(), "TWO.Q07", {a, c});
  const std::string bytes = FileBytes(path);
  ASSERT_EQ(bytes.size(), 3u * kQ07RecordLength);
  EXPECT_EQ(static_cast<unsigned char>(bytes[186]), 2);
  EXPECT_EQ(static_cast<unsigned char>(bytes[187]), 0);
  Q07Record head;
  std::string err;
  ASSERT_TRUE(peq::ReadQ07Record(path, 1, head, err)) << err;
  EXPECT_EQ(head.Nr, 2);
  Q07Record second;
  ASSERT_TRUE(peq::ReadQ07Record(path, 3, second, err)) << err;
  EXPECT_EQ(second.CasNr, "2-2-2");
  EXPECT_FALSE(std::filesystem::exists(path + ".tmp"));
}

TEST(Q07, SameRecordsGiveSameBytes) {
  peqtest::TempDir dir;
  const auto p1 = peqtest::WriteBank(dir.path(), "A.Q07", {Sample(), Sample()});
  const auto p2 = peqtest::WriteBank(dir.path(), "B.Q07", {Sample(), Sample()});
  EXPECT_EQ(FileBytes(p1), FileBytes(p2));
}

TEST(Q07, ReadingARecordBeyondTheEndFails) {
  peqtest::TempDir dir;
  const std::string path = peqtest::WriteBank(dir.path(), "ONE.Q07", {Sample()});
  Q07Record r;
  std::string err;
  EXPECT_FALSE(peq::ReadQ07Record(path, 3, r, err));
  EXPECT_EQ(err, "Bad record number");
  EXPECT_FALSE(peq::ReadQ07Record(path, 0, r, err));
  EXPECT_FALSE(peq::ReadQ07Record(dir.File("NONE.Q07"), 1, r, err));
  EXPECT_EQ(err, "File not found");
}

TEST(Q07, ReadingAPartialLastRecordFails) {
  peqtest::TempDir dir;
  const std::string path = peqtest::WriteBank(dir.path(), "ONE.Q07", {Sample()});
  std::filesystem::resize_file(path, 2 * kQ07RecordLength - 1);
  Q07Record r;
  std::string err;
  EXPECT_FALSE(peq::ReadQ07Record(path, 2, r, err));
  EXPECT_TRUE(peq::ReadQ07Record(path, 1, r, err));
}

TEST(Q07, WriterFailsCleanlyIntoAMissingDirectory) {
  peqtest::TempDir dir;
  std::string err;
  EXPECT_FALSE(peq::WriteQ07(dir.File("no/such/dir/X.Q07"), {Sample()}, err));
  EXPECT_FALSE(err.empty());
}

TEST(Q07, DecodingRandomBytesNeverGivesANonNumber) {
  std::mt19937 rng(20240607);
  unsigned char b[kQ07RecordLength];
  for (int round = 0; round < 2000; ++round) {
    for (auto& x : b) x = static_cast<unsigned char>(rng());
    const Q07Record r = peq::DecodeQ07Record(b);
    for (float v : r.V) ASSERT_TRUE(std::isfinite(v));
    // Texts decode to valid UTF-8 that encodes back to the same bytes.
    unsigned char back[kQ07RecordLength];
    EncodeQ07Record(r, back);
    EXPECT_EQ(peq::DecodeQ07Record(back).Name1, r.Name1);
  }
}

}  // namespace
