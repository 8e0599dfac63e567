// Test sessions for the equations of state and the kernel, built by hand (no database).
// Critical data and acentric factors: the pure-component table of the shared data set
// (IUPAC critical constants, PSRK acentric factors, via CalebBell/chemicals).
#pragma once

#include <cmath>
#include <initializer_list>
#include <string>
#include <utility>

#include "session/session.h"

namespace peqtest {

struct PureData {
  const char* name;
  double mw, tc, pc, rhoc, omega;
};

inline constexpr PureData kHexane{"n-Hexane", 86.1754, 507.6, 3025, 234.17, 0.2975};
inline constexpr PureData kBenzene{"Benzene", 78.1118, 562.05, 4895, 305.12, 0.212};
inline constexpr PureData kToluene{"Toluene", 92.1384, 591.75, 4108, 291.58, 0.257};
inline constexpr PureData kWater{"Water", 18.0153, 647.096, 22064, 322.00, 0.344};
inline constexpr PureData kEthanol{"Ethanol", 46.0684, 514, 6137, 274.22, 0.635};
inline constexpr PureData kMethane{"Methane", 16.0425, 190.564, 4599, 162.70, 0.008};
inline constexpr PureData kNitrogen{"Nitrogen", 28.0134, 126.192, 3395.8, 313.30, 0.04};
inline constexpr PureData kAcetone{"Acetone", 58.0791, 508.1, 4700, 272.67, 0.309};

// A session of the given components with their constants, TKritMax and PKritMax set.
inline peq::Session MakeSession(std::initializer_list<PureData> comps) {
  peq::Session s;
  const int n = static_cast<int>(comps.size());
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  int i = 0;
  for (const PureData& c : comps) {
    ++i;
    s.StoffData[i].Name = c.name;
    s.MolMasse[i] = static_cast<float>(c.mw);
    s.TKrit[i] = static_cast<float>(c.tc);
    s.PKrit[i] = static_cast<float>(c.pc);
    s.RhoKrit[i] = static_cast<float>(c.rhoc);
    s.Omega[i] = static_cast<float>(c.omega);
    if (s.TKrit[i] > s.TKritMax) s.TKritMax = s.TKrit[i];
    if (s.PKrit[i] > s.PKritMax) s.PKritMax = s.PKrit[i];
  }
  return s;
}

// Slot L (1..24) of the pair i < j, written where the parameter list lays it into GEPar.
inline void SetSlot(peq::Session& s, int L, int i, int j, double v) {
  if (i > j) std::swap(i, j);
  const int g = (L - 1) / 4, pos = (L - 1) % 4;
  const int k = 2 * g + 1 + (pos % 2);
  if (pos < 2)
    s.GEPar(k, i, j) = v;
  else
    s.GEPar(k, j, i) = v;
}

// A composition vector 0..n from the fractions of components 1..n.
inline peq::Vec<double> Comp(std::initializer_list<double> x) {
  peq::Vec<double> v(x.size() + 1, 0.0);
  std::size_t i = 0;
  for (double xi : x) v[++i] = xi;
  return v;
}

// True when no element of the array is NaN or infinite.
inline bool AllFinite(const peq::Vec<double>& v) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (!std::isfinite(v[i])) return false;
  return true;
}
inline bool AllFinite(const peq::Vec<float>& v) {
  for (std::size_t i = 0; i < v.size(); ++i)
    if (!std::isfinite(v[i])) return false;
  return true;
}

}  // namespace peqtest
