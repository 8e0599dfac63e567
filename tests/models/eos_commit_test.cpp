// "Models OK" step 6, the EOS tables of a mixture from the bundled database.
#include "models/eos_pure.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace {

TEST(EOSTabellenBerechnen, NothingForTheIdealGasAndTheVirialEquation) {
  peq::Session s;
  ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"64-17-5", "7732-18-5"}));
  s.Konzept = false;
  s.VapModel = 2;
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  EXPECT_EQ(s.EOSb0[1], 0.0);
  s.VapModel = 4;
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  EXPECT_GT(s.EOSb0[1], 0.0);
}

TEST(EOSTabellenBerechnen, FailsWithoutCriticalData) {
  peq::Session s;
  ASSERT_TRUE(peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"64-17-5", "7732-18-5"}));
  s.Konzept = true;
  s.EOSModel = 5;
  s.PKrit[2] = 0;
  EXPECT_FALSE(peq::EOSTabellenBerechnen(s));
}

}  // namespace

