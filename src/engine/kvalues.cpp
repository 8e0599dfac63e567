// gamma-phi K values.
#include <cmath>

#include "engine/kernel.h"
#include "engine/kernel_copy.h"
#include "models/activity.h"
#include "models/vapourphi.h"
#include "session/numeric.h"

namespace peq {

void CalcKValues(Session& s, double T, double p, const Mat<double>& BVir, Vec<double>& x, Vec<double>& gamma,
                 Vec<double>& PhiVMix, Vec<double>& PhiK, Vec<double>& K, Vec<double>& y, int16_t& err) {
  err = 0;
  const int n = s.NKomp;
  try {
    for (int i = 1; i <= n; ++i) {
      PhiK[i] = 1.0;
      gamma[i] = 1.0;
      K[i] = 1.0;
      y[i] = x[i];
    }
    if (s.Konzept) return;
    int16_t gerr = 0;
    ActivityCoeffs(s, T, x, gamma, gerr);
    if (s.VapModel == 0) {
      for (int i = 1; i <= n; ++i) {
        K[i] = chk::Div(double(s.P0[i]) * gamma[i], p);
        y[i] = chk::Fin(x[i] * K[i]);
      }
      return;
    }
    int counter = 0;
    double y1;
    do {
      y1 = y[1];
      double vV = 0;
      int16_t verr = 0;
      CalcVapourPhi(s, T, p, BVir, y, PhiVMix, vV, verr);
      if (verr != 0) {
        err = -1;
        return;
      }
      for (int i = 1; i <= n; ++i)
        if (s.P0[i] == 0.0f) {
          err = -1;
          return;
        }
      CalcPhiFactor(s, PhiVMix, T, p, PhiK);
      for (int i = 1; i <= n; ++i) {
        K[i] = chk::Div(double(s.P0[i]) * gamma[i], p * PhiK[i]);
        y[i] = chk::Fin(x[i] * K[i]);
      }
      ++counter;
    } while (!(std::fabs(y[1] - y1) < 0.001 || counter > 10));
    for (int i = 1; i <= n; ++i) K[i] = chk::Div(double(s.P0[i]) * gamma[i], p * PhiK[i]);
    if (counter > 10) err = -1;
  } catch (const NumericFault&) {
    err = -1;
  }
}

void CalcKValues(Session& s, double T, double p, const Mat<double>& BVir, const Vec<double>& x, Vec<double>& gamma,
                 Vec<double>& PhiVMix, Vec<double>& PhiK, Vec<double>& K, Vec<double>& y, int16_t& err) {
  Vec<double>& own = KernelCopy(s, x);
  CalcKValues(s, T, p, BVir, own, gamma, PhiVMix, PhiK, K, y, err);
}

}  // namespace peq
