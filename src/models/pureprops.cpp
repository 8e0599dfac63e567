// All pure-component properties at one T, and the fugacity coefficient of the saturated vapour.
//
// Phi0 with the virial equation truncated after B (pressure form, Z = 1 + B p/(R T)):
//   ln phi0 = B(ii) p0 / (R T),   B in m^3/kmol, p0 in kPa, R = 8.31451 kJ/(kmol K)
#include "models/pureprops.h"

#include <cmath>

#include "models/eos_sat.h"
#include "models/liquid.h"
#include "models/vappressure.h"
#include "models/virial.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

int16_t CalcPhi0(Session& s, double T) {
  const int n = s.NKomp;
  if (n <= 0) return 0;
  if (s.VapModel > 2 || s.Konzept) {
    // Phi0 of the pure component's cubic equation of state at (T, P0): the EOS of the mixture in
    // the global concept, the EOS of the vapour model otherwise.
    return EOSPhi0(s, T, s.Konzept ? s.EOSModel : s.VapModel);
  }
  const std::size_t m = static_cast<std::size_t>(n) + 1;
  Vec<double>& phi = s.PureWork.Phi0;
  if (phi.size() != m) phi.assign(m, 0);
  try {
    const bool virial = s.VapModel == 1 || s.VapModel == 2;
    double RT = 0;
    if (virial) {
      if (!(T > 0.0) || !std::isfinite(T)) chk::Fault("no absolute temperature");
      RT = kR * T;
    }
    for (int i = 1; i <= n; ++i) {
      double v = 1.0;
      if (virial) v = chk::Exp(chk::Div(double(s.P0[i]) * s.BVir(i, i), RT));
      phi[i] = v;
    }
  } catch (const NumericFault&) {
    return -1;
  }
  for (int i = 1; i <= n; ++i) s.Phi0[i] = phi[i];
  return 0;
}

void AllPureProps(Session& s, double T, int16_t& err, int16_t& dT) {
  err = 0;
  dT = 0;
  const int n = s.NKomp;
  if (n <= 0) return;

  int16_t bad = 0;
  AllP0(s, T, bad, dT);
  if (bad != 0) err = static_cast<int16_t>(-bad);

  const std::size_t m = static_cast<std::size_t>(n) + 1;
  Vec<int16_t>& dTLiq = s.PureWork.DTLiq;
  if (dTLiq.size() != m) dTLiq.assign(m, 0);
  int16_t ok = 0;
  LiquidVolumes(s, T, dTLiq, ok);  // its outcome is kept in RhoOK

  if (s.VapModel > 0 && SecondVirial(s, T) != 0) err = 4;
  // With err -1 (component 1 without p0, the last one found) Phi0 is left as it stood.
  if (err != -1 && CalcPhi0(s, T) != 0) err = 3;
}

}  // namespace peq
