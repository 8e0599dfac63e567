#include "models/uniquac.h"

#include "models/geparams.h"

namespace peq {

namespace {

// Half the coordination number, z/2 with z = 10.
constexpr double kZHalf = 5.0;

void Compute(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GEState& w = s.GEWork;
  Mat<double>& tau = w.M1;
  Vec<double>& theta = w.V1;
  Vec<double>& S = w.V2;
  Vec<double>& lng = w.LnG;

  const double div = UnitDivisor(s.ParUnitUNIQUAC, T);
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      double e12, e21;
      PairTerms(s, i, j, T, div, e12, e21);
      tau(i, j) = chk::Exp(-e12);
      tau(j, i) = chk::Exp(-e21);
    }
  for (int i = 1; i <= n; ++i) tau(i, i) = 1.0;

  double Rbar = 0.0, Qbar = 0.0, Lsum = 0.0;
  for (int i = 1; i <= n; ++i) {
    const double r = s.StoffData[i].RUniquac, q = s.StoffData[i].QUniquac;
    Rbar += r * x[i];
    Qbar += q * x[i];
    Lsum += x[i] * (kZHalf * (r - q) - (r - 1.0));
  }
  for (int i = 1; i <= n; ++i)
    theta[i] = chk::Div(static_cast<double>(s.StoffData[i].QUniquac) * x[i], Qbar);
  for (int m = 1; m <= n; ++m) {
    double sum = 0.0;
    for (int j = 1; j <= n; ++j) sum += theta[j] * tau(j, m);
    S[m] = sum;
  }
  for (int k = 1; k <= n; ++k) {
    if (S[k] <= 0.0 || Rbar <= 0.0) {
      GEFail(s, gamma, err);
      return;
    }
    const double r = s.StoffData[k].RUniquac, q = s.StoffData[k].QUniquac;
    double sum = 0.0;
    for (int m = 1; m <= n; ++m) sum += chk::Div(theta[m] * tau(k, m), S[m]);
    const double l = chk::Ln(chk::Div(r, Rbar)) + kZHalf * (r - q) - (r - 1.0) -
                     chk::Div(r * Lsum, Rbar) +
                     q * (kZHalf * chk::Ln(chk::Div(q * Rbar, r * Qbar)) + 1.0 - chk::Ln(S[k]) - sum);
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

void UniquacGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  RunGEModel(s, T, x, gamma, err, Compute);
}

}  // namespace peq
