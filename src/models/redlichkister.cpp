#include "models/redlichkister.h"

#include "models/geparams.h"

namespace peq {

namespace {

void Compute(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GEState& w = s.GEWork;
  Vec<double>& dG = w.V1;  // dG/dx(k)
  Vec<double>& lng = w.LnG;

  if (T < 1E-10) {
    GEFail(s, gamma, err);
    return;
  }
  for (int k = 1; k <= n; ++k) dG[k] = 0.0;
  double G = 0.0;
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      const double A = ParLog(GESlot(s, 1, i, j), GESlot(s, 2, i, j), GESlot(s, 3, i, j), T);
      const double B = ParLog(GESlot(s, 4, i, j), GESlot(s, 5, i, j), GESlot(s, 6, i, j), T);
      const double C = ParLog(GESlot(s, 7, i, j), GESlot(s, 8, i, j), GESlot(s, 9, i, j), T);
      const double D = ParLog(GESlot(s, 10, i, j), GESlot(s, 11, i, j), GESlot(s, 12, i, j), T);
      const double d = x[i] - x[j];
      const double Q = A + B * d + C * (d * d) + D * (d * d * d);
      const double Qp = B + 2.0 * C * d + 3.0 * D * (d * d);
      G += x[i] * x[j] * Q;
      dG[i] += x[j] * (Q + x[i] * Qp);
      dG[j] += x[i] * (Q - x[j] * Qp);
    }
  for (int k = 1; k <= n; ++k) {
    double sum = 0.0;
    for (int m = 1; m <= n; ++m)
      if (m != k) sum += x[m] * (dG[m] - dG[k]);
    const double l = chk::Fin(G - sum);
    if (l == kRKFailure) {
      GEFail(s, gamma, err);
      return;
    }
    lng[k] = l;
  }
  for (int k = 1; k <= n; ++k) lng[k] = chk::Exp(lng[k]);
  for (int k = 1; k <= n; ++k) gamma[k] = lng[k];
}

}  // namespace

void RedlichKisterGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  RunGEModel(s, T, x, gamma, err, Compute);
}

}  // namespace peq
