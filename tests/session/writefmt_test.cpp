// The "Write" style of the project and data files and its free-format reader.
#include "session/writefmt.h"

#include <clocale>
#include <cmath>
#include <cstring>
#include <cstdio>
#include <limits>
#include <locale>
#include <string>

#include <gtest/gtest.h>

#include "session/numeric.h"

namespace {

using peq::ItemReader;
using peq::ReadError;

// The text of the ReadError thrown by f, or "" when none is thrown.
template <class F>
std::string ErrorOf(F&& f) {
  try {
    f();
  } catch (const ReadError& e) {
    return e.text;
  }
  return "";
}

// ---- writing ----------------------------------------------------------------------------

TEST(WriteFmt, IntegersArePlain) {
  EXPECT_EQ(peq::WriteInt(0), "0");
  EXPECT_EQ(peq::WriteInt(600), "600");
  EXPECT_EQ(peq::WriteInt(-1), "-1");
  EXPECT_EQ(peq::WriteInt(-32768), "-32768");
  EXPECT_EQ(peq::WriteInt(2147483647L), "2147483647");
}

TEST(WriteFmt, LogicalIsMinusOneOrZero) {
  EXPECT_EQ(peq::WriteBool(true), "-1");
  EXPECT_EQ(peq::WriteBool(false), "0");
}

TEST(WriteFmt, HalfIsWrittenWithPoint) {
  EXPECT_EQ(peq::WriteSgl(0.5f), "0.5");
  EXPECT_EQ(peq::WriteDbl(0.5), "0.5");
  EXPECT_EQ(peq::WriteDbl(-0.5), "-0.5");
}

TEST(WriteFmt, WholeRealsHaveNoPoint) {
  EXPECT_EQ(peq::WriteDbl(0.0), "0");
  EXPECT_EQ(peq::WriteDbl(-0.0), "0");
  EXPECT_EQ(peq::WriteSgl(0.0f), "0");
  EXPECT_EQ(peq::WriteDbl(273.15 - 273.15), "0");
  EXPECT_EQ(peq::WriteDbl(101325.0), "101325");
  EXPECT_EQ(peq::WriteSgl(600.0f), "600");
  EXPECT_EQ(peq::WriteDbl(-12.0), "-12");
}

TEST(WriteFmt, TrueZeroOfTheDatabaseUsesExponent) {
  EXPECT_EQ(peq::WriteSgl(1E-37f), "1E-37");
  EXPECT_EQ(peq::WriteDbl(1E-37), "1E-37");
}

TEST(WriteFmt, LargestSingleUsesExponent) {
  EXPECT_EQ(peq::WriteSgl(3.402823E+38f), "3.402823E+38");
  EXPECT_EQ(peq::WriteDbl(3.402823E+38), "3.402823E+38");
}

TEST(WriteFmt, NegativeValues) {
  EXPECT_EQ(peq::WriteSgl(-0.25f), "-0.25");
  EXPECT_EQ(peq::WriteDbl(-298.15), "-298.15");
  EXPECT_EQ(peq::WriteDbl(-1.5E-20), "-1.5E-20");
  EXPECT_EQ(peq::WriteDbl(-2.5E+20), "-2.5E+20");
}

TEST(WriteFmt, ShortestDoubleForms) {
  EXPECT_EQ(peq::WriteDbl(0.1), "0.1");
  EXPECT_EQ(peq::WriteDbl(298.15), "298.15");
  EXPECT_EQ(peq::WriteDbl(101.325), "101.325");
  EXPECT_EQ(peq::WriteDbl(273.15), "273.15");
  // 1/3 needs all 16 digits of the shortest round trip.
  EXPECT_EQ(peq::WriteDbl(1.0 / 3.0), "0.3333333333333333");
  EXPECT_EQ(peq::WriteDbl(2.0 / 3.0), "0.6666666666666666");
  // 0.1 + 0.2 is not 0.3 in binary: 17 digits are needed.
  EXPECT_EQ(peq::WriteDbl(0.1 + 0.2), "0.30000000000000004");
}

TEST(WriteFmt, ShortestSingleForms) {
  EXPECT_EQ(peq::WriteSgl(0.1f), "0.1");
  EXPECT_EQ(peq::WriteSgl(298.15f), "298.15");
  EXPECT_EQ(peq::WriteSgl(1.0f / 3.0f), "0.33333334");
  EXPECT_EQ(peq::WriteSgl(0.0001f), "0.0001");
}

TEST(WriteFmt, PlainRangeAndExponentRange) {
  // Plain while the decimal exponent lies in -5..14 (f64) or -5..6 (f32).
  EXPECT_EQ(peq::WriteDbl(0.00001), "0.00001");
  EXPECT_EQ(peq::WriteDbl(0.000001), "1E-06");
  EXPECT_EQ(peq::WriteDbl(123456789012345.0), "123456789012345");
  EXPECT_EQ(peq::WriteDbl(1234567890123456.0), "1.234567890123456E+15");
  EXPECT_EQ(peq::WriteSgl(1234567.0f), "1234567");
  EXPECT_EQ(peq::WriteSgl(12345678.0f), "1.2345678E+07");
  EXPECT_EQ(peq::WriteDbl(1E+100), "1E+100");
  EXPECT_EQ(peq::WriteDbl(1E-300), "1E-300");
}

TEST(WriteFmt, NoNaNOrInfinityIsEverWritten) {
  EXPECT_THROW(peq::WriteDbl(std::numeric_limits<double>::quiet_NaN()), peq::NumericFault);
  EXPECT_THROW(peq::WriteDbl(std::numeric_limits<double>::infinity()), peq::NumericFault);
  EXPECT_THROW(peq::WriteSgl(-std::numeric_limits<float>::infinity()), peq::NumericFault);
}

// A German-style number punctuation for the C++ locale.
struct CommaPunct : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(WriteFmt, DecimalPointWhateverTheLocale) {
  // The C++ locale with a decimal comma, and the C locale of a German system where installed.
  const std::locale savedCxx = std::locale::global(std::locale(std::locale::classic(), new CommaPunct));
  const char* old = std::setlocale(LC_ALL, nullptr);
  const std::string savedC = old ? old : "C";
  const bool german = std::setlocale(LC_ALL, "de_DE.UTF-8") || std::setlocale(LC_ALL, "de_DE");
  const std::string a = peq::WriteDbl(298.15);
  const std::string b = peq::WriteSgl(0.5f);
  const std::string c = peq::WriteDbl(1234567.25);
  double v = 0;
  const bool parsed = peq::ParseNumber("1.25", v);
  double w = 0;
  const bool comma = peq::ParseNumber("1,25", w);
  std::setlocale(LC_ALL, savedC.c_str());
  std::locale::global(savedCxx);
  EXPECT_EQ(a, "298.15");
  EXPECT_EQ(b, "0.5");
  EXPECT_EQ(c, "1234567.25");
  EXPECT_TRUE(parsed);
  EXPECT_EQ(v, 1.25);
  EXPECT_FALSE(comma);
  if (!german) std::printf("(no German C locale here; checked with the C++ locale only)\n");
}

// ---- round trips ------------------------------------------------------------------------

TEST(WriteFmt, DoublesReadBackBitForBit) {
  const double values[] = {0.1,
                           1.0 / 3.0,
                           298.15,
                           -273.15,
                           101.325,
                           6.02214076E+23,
                           1.380649E-23,
                           std::nextafter(1.0, 2.0),
                           std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::min(),
                           std::numeric_limits<double>::denorm_min(),
                           -4.9406564584124654E-324,
                           3.141592653589793,
                           1E-37,
                           123456.78901234567};
  for (double v : values) {
    double back = 0;
    const std::string t = peq::WriteDbl(v);
    ASSERT_TRUE(peq::ParseNumber(t, back)) << t;
    EXPECT_EQ(std::memcmp(&back, &v, sizeof v), 0) << t;
    ItemReader r(t + "\r\n");
    EXPECT_EQ(r.Number(), v) << t;
  }
}

TEST(WriteFmt, SinglesReadBackBitForBit) {
  const float values[] = {0.1f,
                          1.0f / 3.0f,
                          298.15f,
                          -0.5f,
                          1E-37f,
                          3.402823E+38f,
                          std::numeric_limits<float>::max(),
                          std::numeric_limits<float>::min(),
                          std::numeric_limits<float>::denorm_min(),
                          std::nextafter(1.0f, 2.0f),
                          16777216.0f,
                          0.3009f};
  for (float v : values) {
    const std::string t = peq::WriteSgl(v);
    ItemReader r(t + "\r\n");
    const float back = r.Single();
    EXPECT_EQ(std::memcmp(&back, &v, sizeof v), 0) << t;
  }
}

TEST(WriteFmt, EveryDoubleOfASweepRoundTrips) {
  // A sweep over many magnitudes and mantissas (a deterministic walk, not random).
  double v = 1.234567890123456789E-30;
  for (int k = 0; k < 2000; ++k) {
    v = v * 1.0371 + 1E-31;
    double back = 0;
    ASSERT_TRUE(peq::ParseNumber(peq::WriteDbl(v), back));
    ASSERT_EQ(back, v) << peq::WriteDbl(v);
    ASSERT_TRUE(peq::ParseNumber(peq::WriteDbl(-v), back));
    ASSERT_EQ(back, -v);
  }
}

// ---- parsing ----------------------------------------------------------------------------

TEST(ParseNumber, AcceptsTheFreeFormat) {
  struct Case {
    const char* text;
    double value;
  };
  const Case cases[] = {{"12", 12},          {"-0.5", -0.5},     {".5", 0.5},
                        {"-.5", -0.5},       {"5.", 5},          {"+7", 7},
                        {"1E-37", 1E-37},    {"1e-37", 1E-37},   {"1E+03", 1000},
                        {"1.5e3", 1500},     {"2D+02", 200},     {"2d-1", 0.2},
                        {"  298.15  ", 298.15}, {"\t3\t", 3},    {"0", 0},
                        {"3.402823E+38", 3.402823E+38}};
  for (const Case& c : cases) {
    double v = -999;
    EXPECT_TRUE(peq::ParseNumber(c.text, v)) << c.text;
    EXPECT_EQ(v, c.value) << c.text;
  }
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
  const char* bad[] = {"",     "   ",  "abc",  "1,5", "1.2.3", "E5",   "1E",   "1E+",
                       "--1",  "0x10", "inf",  "nan", "NaN",   "1 2",  ".",    "-",
                       "12abc", "1e999", "-1e999"};
  for (const char* t : bad) {
    double v = 42;
    EXPECT_FALSE(peq::ParseNumber(t, v)) << t;
    EXPECT_EQ(v, 42) << t;
  }
}

TEST(ParseNumber, TinyValuesBecomeZeroNotAnError) {
  double v = 1;
  EXPECT_TRUE(peq::ParseNumber("1E-400", v));
  EXPECT_EQ(v, 0.0);
  EXPECT_TRUE(peq::ParseNumber("0.0000E+99999", v));
  EXPECT_EQ(v, 0.0);
}

// ---- the item reader --------------------------------------------------------------------

TEST(ItemReader, ItemEndsAtCommaOrLineEnd) {
  ItemReader r("a,b\r\nc\r\n");
  EXPECT_EQ(r.Item(), "a");
  EXPECT_EQ(r.Item(), "b");
  EXPECT_EQ(r.Item(), "c");
  EXPECT_TRUE(r.AtEnd());
}

TEST(ItemReader, LineTakesTheWholeLineWithItsCommas) {
  ItemReader r("first, with comma\r\nsecond\r\n");
  EXPECT_EQ(r.Line(), "first, with comma");
  EXPECT_EQ(r.Line(), "second");
}

TEST(ItemReader, LineAfterItemTakesTheRestOfTheLine) {
  ItemReader r("my,bank.Q07\r\nnext\r\n");
  EXPECT_EQ(r.Item(), "my");
  EXPECT_EQ(r.Line(), "bank.Q07");
  EXPECT_EQ(r.Line(), "next");
}

TEST(ItemReader, AcceptsLfAndCrLineEnds) {
  ItemReader r("1\n2\r3\r\n4");
  EXPECT_EQ(r.Int16(), 1);
  EXPECT_EQ(r.Int16(), 2);
  EXPECT_EQ(r.Int16(), 3);
  EXPECT_EQ(r.Int16(), 4);
  EXPECT_TRUE(r.AtEnd());
}

TEST(ItemReader, BlanksAroundAnItemAreDropped) {
  ItemReader r("   PEQBASE.Q07   \r\n  -1 ,  2  \r\n");
  EXPECT_EQ(r.Item(), "PEQBASE.Q07");
  EXPECT_EQ(r.Int16(), -1);
  EXPECT_EQ(r.Int16(), 2);
}

TEST(ItemReader, QuotedItemKeepsItsComma) {
  ItemReader r("\"a,b\",c\r\n");
  EXPECT_EQ(r.Item(), "a,b");
  EXPECT_EQ(r.Item(), "c");
}

TEST(ItemReader, EmptyNumericItemIsZero) {
  ItemReader r("\r\n,5\r\n");
  EXPECT_EQ(r.Number(), 0.0);
  EXPECT_EQ(r.Number(), 0.0);
  EXPECT_EQ(r.Number(), 5.0);
}

TEST(ItemReader, LogicalOnlyMinusOneIsTrue) {
  ItemReader r("-1\r\n0\r\n1\r\n2\r\n#TRUE#\r\n#FALSE#\r\n");
  EXPECT_TRUE(r.Logical());
  EXPECT_FALSE(r.Logical());
  EXPECT_FALSE(r.Logical());
  EXPECT_FALSE(r.Logical());
  EXPECT_TRUE(r.Logical());
  EXPECT_FALSE(r.Logical());
}

TEST(ItemReader, Int16RoundsHalfToEven) {
  ItemReader r("2.5\r\n3.5\r\n-2.5\r\n2.4999\r\n32767\r\n-32768\r\n");
  EXPECT_EQ(r.Int16(), 2);
  EXPECT_EQ(r.Int16(), 4);
  EXPECT_EQ(r.Int16(), -2);
  EXPECT_EQ(r.Int16(), 2);
  EXPECT_EQ(r.Int16(), 32767);
  EXPECT_EQ(r.Int16(), -32768);
}

TEST(ItemReader, Int16BeyondSixteenBitsIsOverflow) {
  ItemReader r("32768\r\n");
  EXPECT_EQ(ErrorOf([&] { r.Int16(); }), peq::kErrOverflow);
  ItemReader q("-32769\r\n");
  EXPECT_EQ(ErrorOf([&] { q.Int16(); }), peq::kErrOverflow);
}

TEST(ItemReader, SingleBeyondItsRangeIsOverflow) {
  ItemReader r("3.5E+38\r\n");
  EXPECT_EQ(ErrorOf([&] { r.Single(); }), peq::kErrOverflow);
  ItemReader q("1E+999\r\n");
  EXPECT_EQ(ErrorOf([&] { q.Number(); }), peq::kErrOverflow);
}

TEST(ItemReader, SingleBelowItsRangeIsZeroOrDenormal) {
  ItemReader r("1E-50\r\n1E-40\r\n");
  EXPECT_EQ(r.Single(), 0.0f);
  EXPECT_EQ(r.Single(), static_cast<float>(1E-40));
}

TEST(ItemReader, TextWhereANumberBelongsIsTypeMismatch) {
  ItemReader r("PEQBASE.Q07\r\n");
  EXPECT_EQ(ErrorOf([&] { r.Number(); }), "Type mismatch");
  ItemReader q("12abc\r\n");
  EXPECT_EQ(ErrorOf([&] { q.Int16(); }), "Type mismatch");
  ItemReader p("nan\r\n");
  EXPECT_EQ(ErrorOf([&] { p.Single(); }), "Type mismatch");
}

TEST(ItemReader, ReadPastTheEndIsInputPastEndOfFile) {
  ItemReader r("1\r\n");
  EXPECT_EQ(r.Int16(), 1);
  EXPECT_TRUE(r.AtEnd());
  EXPECT_EQ(ErrorOf([&] { r.Int16(); }), "Input past end of file");
  EXPECT_EQ(ErrorOf([&] { r.Line(); }), "Input past end of file");
  EXPECT_EQ(ErrorOf([&] { r.Item(); }), "Input past end of file");
  ItemReader e("");
  EXPECT_EQ(ErrorOf([&] { e.Line(); }), "Input past end of file");
}

TEST(ItemReader, LastLineWithoutLineEndIsRead) {
  ItemReader r("a\r\nb");
  EXPECT_EQ(r.Line(), "a");
  EXPECT_EQ(r.Line(), "b");
  EXPECT_TRUE(r.AtEnd());
}

TEST(ItemReader, EmptyLineIsAnEmptyText) {
  ItemReader r("\r\n\r\nx\r\n");
  EXPECT_EQ(r.Line(), "");
  EXPECT_EQ(r.Line(), "");
  EXPECT_EQ(r.Line(), "x");
}

}  // namespace
