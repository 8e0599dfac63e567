// Liquid density and molar volume, enthalpy of vaporisation of the pure components.
//
// Density rho(T) in kg/m^3 from the slots r1..r8 of ParRho (r8 the critical T of the function):
//   r1 present:  rho = r1 + r2 T + r3 T^2 + r4 T^3 + r5/(r6 + T) [+ r7 (1 - T/r8)^(1/3)]
//   r1 zero:     rho = r2 / r3^(1 + (1 - T/r8)^r4)      (Rackett form, DIPPR equation 105 with
//                                                       r2 = A times the molar mass)
// Enthalpy of vaporisation in J/mol from ParLVH (a0..a5, Tc in slot 6):
//   dh = a0 exp(-a1 Tr) (1 - Tr)^(a2 + a3 Tr + a4 Tr^2 + a5 Tr^3)  (DIPPR equation 106 if a1 = 0)
#include "models/liquid.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "session/numeric.h"

namespace peq {

namespace {

constexpr float kPresentF = 1E-6f;
constexpr double kRhoMin = 1E-10;  // kg/m^3: a density below this is no density

void RequireKelvin(double T) {
  if (!(T > 0.0) || !std::isfinite(T)) chk::Fault("no absolute temperature");
}

// A real in the plain form of a number put into a message: up to 15 significant digits.
std::string NumText(double v) {
  char b[40];
  std::snprintf(b, sizeof b, "%.15G", v);
  return b;
}

}  // namespace

void LiquidVolumes(Session& s, double T, Vec<int16_t>& dT, int16_t& ok) {
  ok = -1;
  const int n = s.NKomp;
  if (n <= 0) return;
  const std::size_t m = static_cast<std::size_t>(n) + 1;
  auto& w = s.PureWork;
  if (w.VLiq.size() != m) w.VLiq.assign(m, 0);
  if (w.DT.size() != m) w.DT.assign(m, 0);
  if (dT.size() < m) dT.assign(m, 0);

  int done = n;  // components 1..done get their new volume
  try {
    RequireKelvin(T);
    const float Tf = CSng(T);
    double rho = 0;  // carried from one component to the next
    for (int i = 1; i <= n; ++i) {
      const ParDensity& r = s.ParRho[i];
      if (Tf < r[8]) {
        const double r1 = r[1], r2 = r[2], r3 = r[3], r4 = r[4], r5 = r[5], r6 = r[6], r7 = r[7],
                     r8 = r[8];
        if (std::fabs(r[1]) > kPresentF) {
          rho = ((r4 * T + r3) * T + r2) * T + r1 + chk::Div(r5, r6 + T);
          if (std::fabs(r[7]) > kPresentF)
            rho = rho + r7 * chk::Pow(1.0 - chk::Div(T, r8), 1.0 / 3.0);
        } else {
          rho = chk::Div(r2, chk::Pow(r3, 1.0 + chk::Pow(1.0 - chk::Div(T, r8), r4)));
        }
        rho = chk::Fin(rho);
      }
      // At or above r8 rho stays that of the component before (0 for the first one).
      if (rho < kRhoMin) {
        done = i - 1;
        ok = 0;
        break;
      }
      w.VLiq[i] = CSng(chk::Div(s.MolMasse[i], rho));
      int16_t d = 0;
      if (r.TLo > kPresentF && r.THi > kPresentF) {
        if (T < r.TLo) d = CInt(T - r.TLo);
        if (T > r.THi) d = CInt(T - r.THi);
      }
      w.DT[i] = d;
    }
  } catch (const NumericFault&) {
    ok = 0;
    s.RhoOK = false;
    return;
  }
  for (int i = 1; i <= done; ++i) {
    s.VLiq[i] = w.VLiq[i];
    dT[i] = w.DT[i];
  }
  s.RhoOK = ok != 0;
}

int32_t EnthalpyVap(const Session& s, int i, double T, bool showWarn, MsgSink* sink) {
  if (i < 1 || i > s.NKomp) return 0;
  int32_t h = 0;
  int16_t dT = 0;
  try {
    RequireKelvin(T);
    if (CSng(T) > s.TKrit[i]) return 0;
    const ParEnthalpy& a = s.ParLVH[i];
    const double a0 = a[0], a1 = a[1], a2 = a[2], a3 = a[3], a4 = a[4], a5 = a[5], Tc = a[6];
    const double Tr = chk::Div(T, Tc);
    h = CLng(a0 * chk::Exp(-a1 * Tr) *
             chk::Pow(1.0 - Tr, a2 + a3 * Tr + a4 * Tr * Tr + a5 * Tr * Tr * Tr));
    if (T < a.TLo) dT = CInt(a.TLo - T);  // below: the distance counts positive
    if (T > a.THi) dT = CInt(T - a.THi);
  } catch (const NumericFault&) {
    return 0;
  }
  if (showWarn && std::abs(dT) >= 6)
    Post(sink, "WARNING",
         "T " + NumText(T) + " K outside the T-limit of the parameters" + kNL +
             "(cf. Data/Parameters delta(LV)h = Fu(T))",
         MsgIcon::Warning);
  return h;
}

}  // namespace peq
