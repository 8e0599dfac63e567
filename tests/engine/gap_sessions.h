// Mixtures with a mixing gap for the tests of the gap routines, the markers and the point
// calculator.
#pragma once

#include "engine/kernel_test_sessions.h"
#include "models/eos_test_session.h"
#include "session/session.h"

namespace peqtest {

// Water(1)/1-butanol(2), NRTL of DECHEMA CDS Vol. I Part 1a p. 336 (isobaric set at 1 atm, via
// ChemSep nrtl.ipd): tau12 = 1325.32682 K/T, tau21 = 253.641818 K/T, alpha 0.4447; Antoine
// lg(p/kPa) = A - B/(C + t/°C) of Poling et al. 5th ed. App. A; ideal gas.
inline peq::Session WaterButanol() {
  const PureData kButanol{"1-Butanol", 74.1216, 563, 4414, 270.52, 0.59};
  peq::Session s = MakeSession({kWater, kButanol});
  SetAntoineLg(s, 1, 7.11564, 1687.537, 230.17);
  SetAntoineLg(s, 2, 6.6493, 1395.14, 182.739);
  s.ParRho[1][1] = 996.0f;
  s.ParRho[1][8] = 647.0f;
  s.ParRho[2][1] = 810.0f;
  s.ParRho[2][8] = 563.0f;
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  SetSlot(s, 1, 1, 2, 1325.32682);
  SetSlot(s, 4, 1, 2, 253.641818);
  SetSlot(s, 7, 1, 2, 0.4447);
  s.VapModel = 0;
  return s;
}

}  // namespace peqtest
