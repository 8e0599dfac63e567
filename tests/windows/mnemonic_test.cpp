// Display captions: trimmed, key hints out, access keys for siblings.
#include "windows/mnemonic.h"

#include <gtest/gtest.h>

namespace {

using peq::AnzeigeCaption;
using peq::MitZugriffstasten;
using peq::Zugriffstaste;

TEST(Mnemonic, PaddingAndAKeyHintAreTakenOutForDisplay) {
  std::string hint;
  EXPECT_EQ(AnzeigeCaption("Exit                                               Alt+F4", &hint), "Exit");
  EXPECT_EQ(hint, "Alt+F4");
  EXPECT_EQ(AnzeigeCaption(" Data...", &hint), "Data...");
  EXPECT_EQ(hint, "");
  EXPECT_EQ(AnzeigeCaption("First Steps    (on/off)  "), "First Steps    (on/off)");
  EXPECT_EQ(AnzeigeCaption("exp. T-p-x data  New input / Load (*.EX5)"), "exp. T-p-x data  New input / Load (*.EX5)");
  EXPECT_EQ(AnzeigeCaption("   "), "");
}

TEST(Mnemonic, EverySiblingGetsItsOwnKey) {
  const auto t = MitZugriffstasten({"Data...", "Substances", "Models", "Diagram 2D (binary)...", "Diagram 3D (binary)...",
                                    "Distillation...", "Calculations...", "Options", "Windows", "?"});
  EXPECT_EQ(t[0], "&Data...");
  EXPECT_EQ(t[1], "&Substances");
  EXPECT_EQ(t[2], "&Models");
  EXPECT_EQ(t[3], "Diagram &2D (binary)...");
  EXPECT_EQ(t[4], "Diagram &3D (binary)...");
  EXPECT_EQ(t[9], "?");
  std::string keys;
  for (const auto& s : t)
    if (char c = Zugriffstaste(s)) {
      EXPECT_EQ(keys.find(c), std::string::npos) << s;
      keys += c;
    }
  EXPECT_EQ(keys.size(), 9u);
}

TEST(Mnemonic, AnOwnKeyIsKeptAndAPlainAmpersandDoubled) {
  const auto t = MitZugriffstasten({"Close", "&Cancel", "A&B"}, {false, true, false});
  EXPECT_EQ(t[1], "&Cancel");
  EXPECT_EQ(t[0], "C&lose");  // C is taken by Cancel
  EXPECT_EQ(t[2], "&A&&B");
  EXPECT_EQ(Zugriffstaste(t[2]), 'A');
}

}  // namespace
