#include "models/vapourphi.h"

#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_solve.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

void CalcVapourPhi(Session& s, double T, double p, const Mat<double>& BVir, const Vec<double>& y, Vec<double>& phi,
                   double& vV, int16_t& err) {
  err = 0;
  const int n = s.NKomp;
  const double RT = kR * T;
  const int model = s.VapModel;
  if (model == 1 || model == 2) {
    double bm = 0;
    for (int i = 1; i <= n; ++i)
      for (int j = 1; j <= n; ++j) bm += y[i] * y[j] * BVir(i, j);
    const double f = chk::Div(p, RT);
    for (int i = 1; i <= n; ++i) {
      double sum = 0;
      for (int j = 1; j <= n; ++j) sum += y[j] * BVir(i, j);
      phi[i] = chk::Exp((2.0 * sum - bm) * f);
    }
    vV = chk::Fin(RT / p + bm);
    return;
  }
  for (int i = 1; i <= n; ++i) phi[i] = 1.0;
  if (model < 3 || model > 5) {
    vV = chk::Div(RT, p);
    return;
  }
  Vec<double>& col = s.CompMat[1];
  for (int i = 1; i <= n; ++i) col[i] = y[i];
  EOSMixPar& m = s.EOSScratch.Vap;
  EOSMix(s, 0, s.CompMat, T, model, 2, 0, 1, m, KijSource::Vapour);
  EOSRoots roots{};
  int16_t nr = 0, e = 0;
  EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, roots, nr, e);
  if (e != 0) {
    err = 1;
    return;
  }
  const double v = VapourRoot(roots, nr);
  Vec<double>& tmp = s.EOSScratch.PhiV;
  for (int i = 1; i <= n; ++i) tmp[i] = EOSLnPhi(T, p, v, model, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]);
  for (int i = 1; i <= n; ++i) phi[i] = tmp[i];
  vV = v;
}

void CalcPhiFactor(const Session& s, const Vec<double>& phi, double T, double p, Vec<double>& phiKorr) {
  const double RT = kR * T;
  for (int i = 1; i <= s.NKomp; ++i) {
    const double vl = s.VLiq[i], p0 = s.P0[i];
    phiKorr[i] = chk::Div(chk::Exp(chk::Div(-vl * (p - p0), RT)) * phi[i], s.Phi0[i]);
  }
}

}  // namespace peq
