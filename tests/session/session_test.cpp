#include "session/session.h"

#include <gtest/gtest.h>

TEST(Session, DefaultsAtStart) {
  peq::Session s;
  EXPECT_EQ(s.NKomp, 0);
  EXPECT_FALSE(s.Konzept);
  EXPECT_EQ(s.GEModel, -1);
}
