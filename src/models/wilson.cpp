#include "models/wilson.h"

#include "models/geparams.h"
#include "models/liquid.h"

namespace peq {

namespace {

void Compute(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  const int n = s.NKomp;
  GEState& w = s.GEWork;
  Mat<double>& lam = w.M1;  // Lambda(i,j)
  Vec<double>& S = w.V1;
  Vec<double>& v = w.V2;

  if (s.ParUnitWilson == kUnitDimless) {
    for (int i = 1; i < n; ++i)
      for (int j = i + 1; j <= n; ++j) {
        lam(i, j) = GESlot(s, 1, i, j);
        lam(j, i) = GESlot(s, 4, i, j);
      }
  } else {
    int16_t ok = 0;
    LiquidVolumes(s, T, w.DT, ok);
    if (ok == 0) err = -1;
    const bool fix = s.WilsonVFix && s.AlleVWilson;
    for (int i = 1; i <= n; ++i) v[i] = fix ? s.VLiqCm3[i] : s.VLiq[i];
    const double div = UnitDivisor(s.ParUnitWilson, T);
    for (int i = 1; i < n; ++i)
      for (int j = i + 1; j <= n; ++j) {
        double e12, e21;
        PairTerms(s, i, j, T, div, e12, e21);
        lam(i, j) = chk::Div(v[j], v[i]) * chk::Exp(-e12);
        lam(j, i) = chk::Div(v[i], v[j]) * chk::Exp(-e21);
      }
  }
  for (int i = 1; i <= n; ++i) lam(i, i) = 1.0;

  for (int k = 1; k <= n; ++k) {
    double sum = 0.0;
    for (int j = 1; j <= n; ++j) sum += lam(k, j) * x[j];
    if (sum <= 0.0) {
      GEFail(s, gamma, err);
      return;
    }
    S[k] = sum;
  }
  Vec<double>& lng = w.LnG;
  for (int k = 1; k <= n; ++k) {
    double sum = 0.0;
    for (int m = 1; m <= n; ++m) sum += chk::Div(lam(m, k) * x[m], S[m]);
    lng[k] = 1.0 - chk::Ln(S[k]) - sum;
  }
  for (int k = 1; k <= n; ++k) lng[k] = chk::Exp(lng[k]);
  for (int k = 1; k <= n; ++k) gamma[k] = lng[k];
}

}  // namespace

void WilsonGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err) {
  RunGEModel(s, T, x, gamma, err, Compute);
}

}  // namespace peq
