// The binary parameters of the gE models: the slots L1..L24 of a pair in GEPar, their
// temperature functions and the unit codes that make a parameter dimensionless.
#pragma once

#include <cstdint>

#include "session/constants.h"
#include "session/numeric.h"
#include "session/session.h"

namespace peq {

// Unit codes of ParUnitWilson, ParUnitNRTL, ParUnitUNIQUAC.
inline constexpr int16_t kUnitJmol = 0;
inline constexpr int16_t kUnitCalmol = 1;
inline constexpr int16_t kUnitDimless = 2;
inline constexpr int16_t kUnitK = 3;

// Slot L(n), n = 1..24, of the pair i < j: L1..L4 are GEPar(1,i,j), GEPar(2,i,j), GEPar(1,j,i),
// GEPar(2,j,i); L5..L8 the same with k = 3, 4; and so on up to k = 11, 12.
inline double GESlot(const Session& s, int n, int i, int j) {
  const std::size_t k = static_cast<std::size_t>((n - 1) / 4 * 2 + 1);
  const std::size_t a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
  switch ((n - 1) % 4) {
    case 0: return s.GEPar(k, a, b);
    case 1: return s.GEPar(k + 1, a, b);
    case 2: return s.GEPar(k, b, a);
    default: return s.GEPar(k + 1, b, a);
  }
}

// Par(T) = a + b (T - 273.15) + c (T - 273.15)^2: Wilson, NRTL, UNIQUAC.
inline double ParPoly(double a, double b, double c, double T) {
  const double t1 = T - kT0;
  return a + b * t1 + c * (t1 * t1);
}

// Par(T) = a + b/T + c ln(T): Redlich-Kister.
inline double ParLog(double a, double b, double c, double T) {
  return a + chk::Div(b, T) + c * chk::Ln(T);
}

// What a parameter of the unit code is divided by to become dimensionless: R T with
// R = 8.31451 J/(mol K) (code 0) or 1.98584 cal/(mol K) (code 1), 1 (code 2), T (code 3).
// An unknown code gives 0, so that the division faults.
inline double UnitDivisor(int16_t code, double T) {
  switch (code) {
    case kUnitJmol: return kR * T;
    case kUnitCalmol: return kRcal * T;
    case kUnitDimless: return 1.0;
    case kUnitK: return 1.0 * T;
    default: return 0.0;
  }
}

// The two interaction terms of the pair (i < j) at T, made dimensionless: Par(T) of the slots
// 1..3 for (i, j) and 4..6 for (j, i), each divided by the divisor of the model's unit.
inline void PairTerms(const Session& s, int i, int j, double T, double div, double& e12, double& e21) {
  e12 = chk::Div(ParPoly(GESlot(s, 1, i, j), GESlot(s, 2, i, j), GESlot(s, 3, i, j), T), div);
  e21 = chk::Div(ParPoly(GESlot(s, 4, i, j), GESlot(s, 5, i, j), GESlot(s, 6, i, j), T), div);
}

// Sizes the scratch of the parameter models for NKomp components (allocates only when the
// number of components changed).
inline void SizeGEWork(Session& s) {
  GEState& w = s.GEWork;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  if (w.M1.size() != m) {
    w.M1.assign(m, 0.0);
    w.M2.assign(m, 0.0);
    w.V1.assign(m, 0.0);
    w.V2.assign(m, 0.0);
    w.V3.assign(m, 0.0);
    w.LnG.assign(m, 0.0);
    w.DT.assign(m, 0);
  }
}

// The failure of a parameter model: err -1 and every gamma 1.
inline void GEFail(const Session& s, Vec<double>& gamma, int16_t& err) {
  err = -1;
  for (int i = 1; i <= s.NKomp; ++i) gamma[i] = 1.0;
}

// Entry of a parameter model: sizes the scratch and runs compute(s, T, x, gamma, err) under the
// model's error trap, where an arithmetic fault is the model's failure (GEFail).
template <class Compute>
void RunGEModel(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err,
                Compute compute) {
  err = 0;
  if (s.NKomp < 1) return;
  SizeGEWork(s);
  try {
    compute(s, T, x, gamma, err);
  } catch (const NumericFault&) {
    GEFail(s, gamma, err);
  }
}

}  // namespace peq
