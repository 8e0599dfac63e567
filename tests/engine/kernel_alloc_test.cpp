// The kernel allocates nothing per call: every work array lives in the session, sized once per
// mixture.
#include <gtest/gtest.h>

#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/pureprops.h"
#include "support/alloc_counter.h"

using namespace peq;
using peqtest::Comp;

TEST(KernelAllocation, PhiPhiBubblePointsAllocateNothing) {
  for (int rule : {2, 6}) {
    Session s = peqtest::PhiPhi({peqtest::kEthanol, peqtest::kWater}, 5, rule, 2);
    peqtest::SetSlot(s, 1, 1, 2, rule == 2 ? -0.07 : -61.0);
    peqtest::SetSlot(s, 4, 1, 2, 673.0);
    peqtest::SetSlot(s, 7, 1, 2, 0.3);
    const Vec<double> x = Comp({0.3, 0.7}), y0 = Comp({0, 0});
    double vL, vV, T = 0;
    int16_t warn;
    EXPECT_EQ(peqtest::NewCallsOf([&] { CalcBubbleP(s, 340.0, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV); }), 0) << rule;
    EXPECT_EQ(peqtest::NewCallsOf([&] {
                T = 0;
                CalcBubbleT(s, 101.325, x, T, y0, warn, s.KWert, vL, vV);
              }),
              0)
        << rule;
  }
}

TEST(KernelAllocation, GammaPhiBubbleAndDewPointsAllocateNothing) {
  for (int vap : {0, 1}) {
    Session s = peqtest::EthanolWater(vap);
    const Vec<double> x = Comp({0.3, 0.7}), y0 = Comp({0, 0});
    double vL, vV, T = 0;
    int16_t warn, err, dT;
    EXPECT_EQ(peqtest::NewCallsOf([&] { CalcBubbleP(s, 340.0, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV); }), 0) << vap;
    EXPECT_EQ(peqtest::NewCallsOf([&] {
                T = 0;
                CalcBubbleT(s, 101.325, x, T, y0, warn, s.KWert, vL, vV);
              }),
              0)
        << vap;
    AllPureProps(s, 340.0, err, dT);
    EXPECT_EQ(peqtest::NewCallsOf([&] { CalcDewP(s, 340.0, x); }), 0) << vap;
    EXPECT_EQ(peqtest::NewCallsOf([&] { CalcDewT(s, 101.325, x, 0.0); }), 0) << vap;
  }
}
