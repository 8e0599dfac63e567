// Pair critical data and second virial coefficients.
//
// Pair critical data (combining rules as used with the corresponding-states virial correlation,
// cf. Prausnitz, Lichtenthaler, de Azevedo, Molecular Thermodynamics of Fluid-Phase Equilibria,
// ch. 5):
//   Tc(ij) = sqrt(Tc_i Tc_j)
//   pc(ij) = 4 Tc(ij) (pc_i v_i/Tc_i + pc_j v_j/Tc_j) / (v_i^(1/3) + v_j^(1/3))^3,  v = M/rho(cr)
//   omega(ij) = (omega_i + omega_j)/2
// Second virial coefficient by Pitzer and Curl (J. Am. Chem. Soc. 79 (1957) 2369), x = Tc/T:
//   B pc/(R Tc) = f0(x) + omega f1(x)
//   f0 = 0.1445 - 0.330 x - 0.1385 x^2 - 0.0121 x^3
//   f1 = 0.073 + 0.46 x - 0.50 x^2 - 0.097 x^3 - 0.0073 x^8
// with Tc(ij) and pc(ij) scaled by 1 - k(ij), k(ij) = a + b/T + c ln T + d (T - 273.15).
#include "models/virial.h"

#include <cmath>

#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

void PairCrit(Session& s, int16_t& err) {
  err = 0;
  const int n = s.NKomp;
  if (n <= 0) return;
  // Worked on copies, so that a fault leaves the matrices as they stood. Called once per load
  // of the substances, not in the T loop.
  Mat<double> tc = s.TcMix, pc = s.PcMix, om = s.OmegaMix;
  try {
    for (int i = 1; i <= n; ++i) {
      for (int j = i; j <= n; ++j) {
        const double Tci = s.TKrit[i], Tcj = s.TKrit[j];
        const double t = chk::Sqrt(Tci * Tcj);
        tc(i, j) = t;
        tc(j, i) = t;
        if (s.RhoKrit[i] <= 1E-6f || s.RhoKrit[j] <= 1E-6f) {
          err = -1;
          break;
        }
        const double vi = chk::Div(s.MolMasse[i], s.RhoKrit[i]);
        const double vj = chk::Div(s.MolMasse[j], s.RhoKrit[j]);
        const double Pci = s.PKrit[i], Pcj = s.PKrit[j];
        const double sum = chk::Pow(vi, 1.0 / 3.0) + chk::Pow(vj, 1.0 / 3.0);
        const double p = chk::Div(4.0 * t * (chk::Div(Pci * vi, Tci) + chk::Div(Pcj * vj, Tcj)),
                                  sum * sum * sum);
        pc(i, j) = p;
        pc(j, i) = p;
        const double o = (double(s.Omega[i]) + double(s.Omega[j])) * 0.5;
        om(i, j) = o;
        om(j, i) = o;
      }
      if (err != 0) break;
    }
  } catch (const NumericFault&) {
    err = -1;
    return;
  }
  s.TcMix = std::move(tc);
  s.PcMix = std::move(pc);
  s.OmegaMix = std::move(om);
}

int16_t SecondVirial(Session& s, double T) {
  if (s.VapModel != 1 && s.VapModel != 2) return 0;
  const int n = s.NKomp;
  if (n <= 0) return 0;
  const std::size_t m = static_cast<std::size_t>(n) + 1;
  Mat<double>& B = s.PureWork.BVir;
  if (B.size() != m) B.assign(m, 0);
  try {
    if (!(T > 0.0) || !std::isfinite(T)) chk::Fault("no absolute temperature");
    const double lnT = chk::Ln(T);
    const double T1 = T - kT0;
    for (int i = 1; i <= n; ++i) {
      for (int j = i; j <= n; ++j) {
        const double k = s.GEPar(7, i, j) + chk::Div(s.GEPar(8, i, j), T) +
                         lnT * s.GEPar(7, j, i) + T1 * s.GEPar(8, j, i);
        const double f = 1.0 - k;
        const double Tc = f * s.TcMix(i, j);
        const double Pc = f * s.PcMix(i, j);
        const double x = chk::Div(Tc, T);
        const double x2 = x * x;
        const double x5 = x2 * x2 * x;
        const double f0 = ((-0.0121 * x - 0.1385) * x - 0.33) * x + 0.1445;
        const double f1 = (((-0.0073 * x5 - 0.097) * x - 0.5) * x + 0.46) * x + 0.073;
        const double b = chk::Div((f0 + s.OmegaMix(i, j) * f1) * kR * Tc, Pc);
        B(i, j) = b;
        B(j, i) = b;
      }
    }
  } catch (const NumericFault&) {
    return -1;
  }
  for (int i = 1; i <= n; ++i)
    for (int j = 1; j <= n; ++j) s.BVir(i, j) = B(i, j);
  return 0;
}

}  // namespace peq
