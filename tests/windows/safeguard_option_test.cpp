// The switch of the safeguarded equilibrium: the options window, the settings store at start,
// and the note of the result window when the retry found the result.
#include <gtest/gtest.h>

#include "windows/calc_fixture.h"
#include "windows/frame_fixture.h"
#include "windows/options.h"

namespace {

using peqtest::CalcTest;
using peqtest::FrameEnv;

constexpr const char* kStoreKey = "Options/Safeguarded Equilibrium";

TEST(SafeguardOption, OnByDefaultAtStart) {
  FrameEnv e;
  e.Start();
  EXPECT_TRUE(e.s.Safeguard);
  e.f.mnuOptions_Click();
  EXPECT_TRUE(e.f.Options.chkSafeguard);
}

TEST(SafeguardOption, TheStoreSwitchesItOffAtStart) {
  FrameEnv e;
  e.ui.settings[kStoreKey] = "0";
  e.Start();
  EXPECT_FALSE(e.s.Safeguard);
  e.f.mnuOptions_Click();
  EXPECT_FALSE(e.f.Options.chkSafeguard);
}

TEST(SafeguardOption, AcceptingKeepsTheChoiceInTheSessionAndTheStore) {
  FrameEnv e;
  e.Start();
  e.f.mnuOptions_Click();
  e.f.Options.chkSafeguard = false;
  e.f.Options.cmdOK(e.f);
  EXPECT_FALSE(e.s.Safeguard);
  EXPECT_EQ(e.ui.settings[kStoreKey], "0");
  EXPECT_EQ(e.ui.settings["Options/Show Tips at Startup"], "0");  // the tips setting beside it stands
  e.f.mnuOptions_Click();
  EXPECT_FALSE(e.f.Options.chkSafeguard);
  e.f.Options.chkSafeguard = true;
  e.f.Options.cmdOK(e.f);
  EXPECT_TRUE(e.s.Safeguard);
  EXPECT_EQ(e.ui.settings[kStoreKey], "1");
}

TEST(SafeguardOption, CancelChangesNothing) {
  FrameEnv e;
  e.Start();
  e.f.mnuOptions_Click();
  e.f.Options.chkSafeguard = false;
  e.f.Options.cmdClose(e.f);
  EXPECT_TRUE(e.s.Safeguard);
  EXPECT_EQ(e.ui.settings.count(kStoreKey), 0u);
}

TEST(SafeguardOption, TheCaption) {
  EXPECT_STREQ(peq::kChkSafeguardCaption, "Safeguarded equilibrium calculation (retry failed or trivial points)");
}

// Ethanol/water under Peng-Robinson with k(ij) 0 at 355 K and 1 atm: the plain FlashTP ends
// with -1 although the feed splits (its dew point lies at 356.45 K).
class SafeguardNote : public CalcTest {
 protected:
  void SetUp() override { Models(true); }
};

TEST_F(SafeguardNote, TheResultFoundByTheRetryCarriesTheNote) {
  FlashPT(101.325, 355);
  ASSERT_TRUE(out.Geloest) << out.lblErgebnis;
  EXPECT_TRUE(out.Wiederholt);
  EXPECT_EQ(out.lblHinweis, peq::kHinweisWiederholt);
  EXPECT_GT(out.eta, 0.8);
  EXPECT_LT(out.eta, 1.0);
}

TEST_F(SafeguardNote, SwitchedOffTheSamePointHasNoSolution) {
  e.s.Safeguard = false;
  FlashPT(101.325, 355);
  EXPECT_FALSE(out.Geloest);
  EXPECT_EQ(out.lblErgebnis, "no solution possible");
  EXPECT_EQ(out.lblHinweis, "");
}

TEST_F(SafeguardNote, AFirstTimeResultHasNoNote) {
  FlashPT(101.325, 350);
  ASSERT_TRUE(out.Geloest);
  EXPECT_FALSE(out.Wiederholt);
  EXPECT_EQ(out.lblHinweis, "");
}

}  // namespace
