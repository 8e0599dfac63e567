// The increment pairs of the data editor and their text.
#include "substances/inkrtext.h"

#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "substances/q07.h"
#include "support/fixtures.h"

namespace {

using peq::AInkrFelder;
using peq::AInkrText;
using peq::InkrPaare;

TEST(AInkrText, EmptyPairsGiveTheEmptyText) {
  InkrPaare a{}, g{};
  EXPECT_EQ(AInkrText(a, g), "00000,00000,00000,00000,00000,00000,00000");
}

TEST(AInkrText, FourDigitValuesGetALeadingZeroFiveDigitValuesStandAsTheyAre) {
  InkrPaare a{2, 1, 12, 0, 0, 0, 0}, g{1, 2, 15, 0, 0, 0, 0};
  EXPECT_EQ(AInkrText(a, g), "02001,01002,12015,00000,00000,00000,00000");
}

TEST(AInkrText, AThreeDigitValueReplacesOnlyThreeCharactersOfItsSlot) {
  // count 0, group 123: the text "123" is put over "00000" at the start of the slot.
  InkrPaare a{}, g{};
  g[1] = 123;
  EXPECT_EQ(AInkrText(a, g), "00000,12300,00000,00000,00000,00000,00000");
}

TEST(AInkrFelder, SplitsEachSlotIntoCountAndGroup) {
  InkrPaare a{}, g{};
  AInkrFelder("02001,01002,12015,00000,00000,00000,00000", a, g);
  EXPECT_EQ(a, (InkrPaare{2, 1, 12, 0, 0, 0, 0}));
  EXPECT_EQ(g, (InkrPaare{1, 2, 15, 0, 0, 0, 0}));
}

TEST(AInkrFelder, AGarbledSlotReadsAsNothing) {
  InkrPaare a{}, g{};
  AInkrFelder("0x001,01002", a, g);
  EXPECT_EQ(a[0], 0);
  EXPECT_EQ(g[0], 0);
  EXPECT_EQ(a[1], 1);
  EXPECT_EQ(g[1], 2);
  EXPECT_EQ(a[2], 0);
}

// Every substance of the bundled database: the pairs of its two increment fields rebuild the
// very same text.
TEST(AInkrText, RoundTripOnEveryBundledSubstance) {
  std::ifstream in(peqtest::BundledBankPath(), std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  ASSERT_GE(bytes.size(), static_cast<std::size_t>(2 * peq::kQ07RecordLength));
  const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
  const int n = peq::DecodeQ07Record(p).Nr;
  ASSERT_GT(n, 100);
  int nonEmpty = 0;
  for (int r = 1; r <= n; ++r) {
    const peq::Q07Record rec = peq::DecodeQ07Record(p + static_cast<std::size_t>(r) * peq::kQ07RecordLength);
    for (const std::string* t : {&rec.ModUnifInkr, &rec.OUnifInkr}) {
      InkrPaare a{}, g{};
      AInkrFelder(*t, a, g);
      EXPECT_EQ(AInkrText(a, g), *t) << rec.Name1;
      nonEmpty += a[0] > 0 ? 1 : 0;
    }
  }
  // The round trip was tried on real increments, not only on empty fields.
  EXPECT_GT(nonEmpty, 100);
}

}  // namespace
