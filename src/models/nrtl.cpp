#include "models/nrtl.h"

#include "models/geparams.h"

namespace peq {

namespace {

void Compute(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GEState& w = s.GEWork;
  Mat<double>& tau = w.M1;
  Mat<double>& G = w.M2;
  Vec<double>& A = w.V1;
  Vec<double>& B = w.V2;
  Vec<double>& lng = w.LnG;

  const double div = UnitDivisor(s.ParUnitNRTL, T);
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      PairTerms(s, i, j, T, div, tau(i, j), tau(j, i));
      const double alpha = ParPoly(GESlot(s, 7, i, j), GESlot(s, 8, i, j), GESlot(s, 9, i, j), T);
      G(i, j) = chk::Exp(-alpha * tau(i, j));
      G(j, i) = chk::Exp(-alpha * tau(j, i));
    }
  for (int i = 1; i <= n; ++i) {
    tau(i, i) = 0.0;
    G(i, i) = 1.0;
  }

  for (int m = 1; m <= n; ++m) {
    double a = 0.0, b = 0.0;
    for (int j = 1; j <= n; ++j) {
      a += tau(j, m) * G(j, m) * x[j];
      b += G(j, m) * x[j];
    }
    A[m] = a;
    B[m] = b;
  }
  // A(m)/B(m), used by every k.
  Vec<double>& AB = w.V3;
  for (int m = 1; m <= n; ++m) AB[m] = chk::Div(A[m], B[m]);
  for (int k = 1; k <= n; ++k) {
    double sum = 0.0;
    for (int m = 1; m <= n; ++m) sum += chk::Div(x[m] * G(k, m), B[m]) * (tau(k, m) - AB[m]);
    const double l = AB[k] + sum;
    if (l >= 20.0) {
      GEFail(s, gamma, err);
      return;
    }
    lng[k] = l;
  }
  for (int k = 1; k <= n; ++k) lng[k] = chk::Exp(lng[k]);
  for (int k = 1; k <= n; ++k) gamma[k] = lng[k];
}

}  // namespace

void NRTLGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  RunGEModel(s, T, x, gamma, err, Compute);
}

}  // namespace peq
