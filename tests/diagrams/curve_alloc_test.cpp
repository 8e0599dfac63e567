// The curve tracer allocates nothing per point: a call reserves its curves once, and the engine
// calls of the points work in the session's arrays.
#include <gtest/gtest.h>

#include "diagrams/curve_fixture.h"
#include "support/alloc_counter.h"

using namespace peq;

// The points of a curve cost no allocation of their own: six times the points, the same count.
TEST(CurveAllocation, CurveTracerAllocatesNothingPerPoint) {
  for (int noDia : {1, 4}) {
    long count[2] = {0, 0};
    int n[2] = {0, 0};
    for (int k = 0; k < 2; ++k) {
      Session s = peqtest::BenzeneToluene();
      s.KurvenPunkte = k == 0 ? 100 : 600;
      curvetest::Coords(s, 0, 1, 0, noDia == 1 ? 200.f : 150.f);
      curvetest::Drawn d;
      count[k] = peqtest::NewCallsOf([&] { d = curvetest::Draw(s, noDia, 360.0, 101.325); });
      n[k] = static_cast<int>(d.n1());
    }
    EXPECT_GT(n[1], 4 * n[0]) << noDia;
    EXPECT_EQ(count[1], count[0]) << noDia;
  }
}
