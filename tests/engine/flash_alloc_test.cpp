// The flashes and the single-point routine allocate nothing per call: their work arrays live in
// the session, sized once per mixture.
#include <gtest/gtest.h>

#include "engine/flash.h"
#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "engine/singlecalc.h"
#include "support/alloc_counter.h"

using namespace peq;
using peqtest::Comp;

namespace {

// A temperature halfway between the bubble and the dew point of z at p, so that the T-p flash
// has two phases.
double TwoPhaseT(Session& s, double p, const Vec<double>& z) {
  const Vec<double> y0 = Comp({0, 0});
  double T = 0, vL = 0, vV = 0;
  int16_t warn = 0;
  const double Tb = CalcBubbleT(s, p, z, T, y0, warn, s.KWert, vL, vV);
  double Td = 0;
  if (!s.Konzept) {
    Td = CalcDewT(s, p, z, 0.0);
  } else {
    Td = FlashPEta(s, p, 1.0, z);
  }
  EXPECT_GT(Tb, 0);
  EXPECT_GT(Td, Tb);
  return 0.5 * (Tb + Td);
}

void ExpectFlashesAllocateNothing(Session& s) {
  const Vec<double> z = Comp({0.4, 0.6});
  const double p = 101.325;
  const double T = TwoPhaseT(s, p, z);
  double eta = 0;
  EXPECT_EQ(peqtest::NewCallsOf([&] { eta = FlashTP(s, T, p, z); }), 0);
  EXPECT_GT(eta, 0);
  EXPECT_LT(eta, 1);
  double Tf = 0, pf = 0;
  EXPECT_EQ(peqtest::NewCallsOf([&] { Tf = FlashPEta(s, p, 0.5, z); }), 0);
  EXPECT_GT(Tf, 0);
  EXPECT_EQ(peqtest::NewCallsOf([&] { pf = FlashTEta(s, T, 0.5, z); }), 0);
  EXPECT_GT(pf, 0);
}

}  // namespace

TEST(FlashAllocation, GammaPhiFlashesAllocateNothing) {
  Session s = peqtest::BenzeneToluene();
  ExpectFlashesAllocateNothing(s);
}

TEST(FlashAllocation, PengRobinsonFlashesAllocateNothing) {
  Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  ExpectFlashesAllocateNothing(s);
}

TEST(FlashAllocation, SingleCalcBubbleAndDewCodesAllocateNothing) {
  Session s = peqtest::BenzeneToluene();
  for (int16_t code : {1, 4, 6, 8}) {
    s.IsoArt = (code == 1 || code == 8) ? 1 : 2;
    double T = 360.0, p = 101.325, Y2 = 0;
    float R1 = 0, R2 = 0, R3 = 0, R4 = 0, OutX = 0;
    SingleOut out;
    EXPECT_EQ(peqtest::NewCallsOf([&] {
                T = 360.0;
                p = 101.325;
                SingleCalc(s, code, 0.3, T, p, Y2, R1, R2, R3, R4, 1, 2, OutX, out, nullptr);
              }),
              0)
        << code;
    EXPECT_EQ(out.F1, 0) << code;
  }
}
