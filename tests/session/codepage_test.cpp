// Code page conversion of the data files: 1252 (database) and 850 (synonym file).
#include "session/codepage.h"

#include <iconv.h>

#include <string>

#include <gtest/gtest.h>

namespace {

using peq::Cp1252ToUtf8;
using peq::Cp850ToUtf8;
using peq::Utf8ToCp1252;
using peq::Utf8ToCp850;

// Reference conversion by the C library's iconv; empty when it refuses the byte.
std::string IconvToUtf8(const char* codePage, unsigned char byte) {
  iconv_t cd = iconv_open("UTF-8", codePage);
  if (cd == reinterpret_cast<iconv_t>(-1)) return std::string();
  char in[1] = {static_cast<char>(byte)};
  char out[8] = {};
  char* pin = in;
  char* pout = out;
  std::size_t nin = 1, nout = sizeof out;
  const std::size_t r = iconv(cd, &pin, &nin, &pout, &nout);
  iconv_close(cd);
  if (r == static_cast<std::size_t>(-1)) return std::string();
  return std::string(out, static_cast<std::size_t>(pout - out));
}

TEST(CodePage, Cp1252AgreesWithIconvForEveryDefinedByte) {
  int compared = 0;
  for (int b = 0; b < 256; ++b) {
    const std::string ref = IconvToUtf8("CP1252", static_cast<unsigned char>(b));
    if (ref.empty()) continue;  // the five undefined bytes
    const std::string one(1, static_cast<char>(b));
    EXPECT_EQ(Cp1252ToUtf8(one), ref) << "byte " << b;
    ++compared;
  }
  if (compared == 0) GTEST_SKIP() << "iconv has no CP1252 here";
  EXPECT_GE(compared, 251);
}

TEST(CodePage, Cp850AgreesWithIconvForEveryByte) {
  int compared = 0;
  for (int b = 0; b < 256; ++b) {
    const std::string ref = IconvToUtf8("CP850", static_cast<unsigned char>(b));
    if (ref.empty()) continue;
    const std::string one(1, static_cast<char>(b));
    EXPECT_EQ(Cp850ToUtf8(one), ref) << "byte " << b;
    ++compared;
  }
  if (compared == 0) GTEST_SKIP() << "iconv has no CP850 here";
  EXPECT_EQ(compared, 256);
}

TEST(CodePage, EveryByteSurvivesARoundTripThroughUtf8) {
  std::string all;
  for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
  EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
  EXPECT_EQ(Utf8ToCp850(Cp850ToUtf8(all)), all);
}

TEST(CodePage, GermanNamesConvert) {
  // "Äthylalkohol, Wasser, Fußbodenöl": Ä = C4, ß = DF, ö = F6 in code page 1252.
  EXPECT_EQ(Utf8ToCp1252("\xC3\x84thanol"), "\xC4thanol");
  EXPECT_EQ(Cp1252ToUtf8("Fu\xDF" "boden\xF6l"), "Fu\xC3\x9F" "boden\xC3\xB6l");
  // In code page 850: Ä = 8E, ö = 94, ü = 81, ß = E1.
  EXPECT_EQ(Utf8ToCp850("\xC3\x84\xC3\xB6\xC3\xBC\xC3\x9F"), "\x8E\x94\x81\xE1");
  EXPECT_EQ(Cp850ToUtf8("\x8E\x94\x81\xE1"), "\xC3\x84\xC3\xB6\xC3\xBC\xC3\x9F");
  // The euro sign is 80 in 1252 and absent from 850.
  EXPECT_EQ(Utf8ToCp1252("\xE2\x82\xAC"), "\x80");
  EXPECT_EQ(Utf8ToCp850("\xE2\x82\xAC"), "?");
}

TEST(CodePage, UnmappableAndMalformedTextBecomesQuestionMarks) {
  EXPECT_EQ(Utf8ToCp1252("a\xE2\x88\x9E" "b"), "a?b");  // infinity sign
  EXPECT_EQ(Utf8ToCp1252("a\xFF" "b"), "a?b");          // not UTF-8
  EXPECT_EQ(Utf8ToCp1252("a\xC3"), "a?");               // cut sequence
}

TEST(CodePage, Utf8LengthCountsCharacters) {
  EXPECT_EQ(peq::Utf8Length(""), 0u);
  EXPECT_EQ(peq::Utf8Length("Wasser"), 6u);
  EXPECT_EQ(peq::Utf8Length("\xC3\x84thanol"), 7u);
}

TEST(CodePage, FixedFieldPadsAndCutsByCharacters) {
  EXPECT_EQ(peq::FixedField("H2O", 6), "H2O   ");
  EXPECT_EQ(peq::FixedField("Ethanol", 3), "Eth");
  EXPECT_EQ(peq::FixedField("", 2), "  ");
  // Cut after the umlaut, never inside it.
  EXPECT_EQ(peq::FixedField("\xC3\x84thanol", 1), "\xC3\x84");
  EXPECT_EQ(peq::FixedField("\xC3\x84", 3), "\xC3\x84  ");
  EXPECT_EQ(peq::Utf8Length(peq::FixedField("\xC3\x84thyl\xC3\xA4ther", 40)), 40u);
}

TEST(CodePage, TrimRemovesBlanksOnly) {
  EXPECT_EQ(peq::Trim("  64-17-5   "), "64-17-5");
  EXPECT_EQ(peq::Trim("   "), "");
  EXPECT_EQ(peq::RTrim("  a b  "), "  a b");
  EXPECT_EQ(peq::Trim("\ta\t"), "\ta\t");
}

TEST(CodePage, ToUpperHandlesAsciiAndUmlauts) {
  EXPECT_EQ(peq::ToUpper("kij_pr.dat"), "KIJ_PR.DAT");
  EXPECT_EQ(peq::ToUpper("\xC3\xA4\xC3\xB6\xC3\xBC"), "\xC3\x84\xC3\x96\xC3\x9C");
  EXPECT_EQ(peq::ToUpper("\xC3\x9F"), "\xC3\x9F");  // sharp s stays
}

}  // namespace
