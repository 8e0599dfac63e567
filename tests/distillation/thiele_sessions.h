// Sessions of the McCabe-Thiele tests.
#pragma once

#include <cmath>

#include "engine/kernel_test_sessions.h"

namespace peqtest {

// A binary of constant relative volatility alpha = p0(2)/p0(1): both Antoine equations share B
// and C and differ in A by lg(alpha), with the ideal mixture and the ideal gas. Then
// y2 = alpha x2 / (1 + (alpha - 1) x2) exactly, and the dew liquid is x2 = y2 / (alpha - (alpha - 1) y2).
// Component 2 is the more volatile one.
inline peq::Session KonstanteFluechtigkeit(double alpha) {
  peq::Session s = BenzeneToluene();
  const double A1 = 6.0, B = 1200.0, C = 220.0;
  SetAntoineLg(s, 1, A1, B, C);
  SetAntoineLg(s, 2, A1 + std::log10(alpha), B, C);
  s.GEModel = 0;
  s.VapModel = 0;
  s.IsoArt = 2;
  return s;
}

inline double YKonst(double alpha, double x) { return alpha * x / (1.0 + (alpha - 1.0) * x); }
inline double XKonst(double alpha, double y) { return y / (alpha - (alpha - 1.0) * y); }

// A constant enthalpy of vaporisation r (J/mol) for component i: the record's a0 with all
// temperature terms zero.
inline void SetLVHKonstant(peq::Session& s, int i, double r) {
  s.ParLVH[i][0] = static_cast<float>(r);
  for (int k = 1; k <= 5; ++k) s.ParLVH[i][k] = 0.0f;
  s.ParLVH[i][6] = s.TKrit[i];
  s.ParLVH[i].TLo = 150;
  s.ParLVH[i].THi = 700;
}

// Ethanol(1)/water(2) with the NRTL set whose azeotrope at 101.325 kPa lies at x(ethanol) 0.89.
inline peq::Session EthanolWasserAzeotrop() {
  peq::Session s = EthanolWater(0);
  s.GEPar.fill(0.0);
  s.ParUnitNRTL = 3;
  SetSlot(s, 1, 1, 2, -29.166654);
  SetSlot(s, 4, 1, 2, 624.867622);
  SetSlot(s, 7, 1, 2, 0.2937);
  s.IsoArt = 2;
  s.PIso = 101.325;
  return s;
}

}  // namespace peqtest
