#include "companions/fitobjective.h"

#include <cmath>

#include "companions/fitmap.h"
#include "engine/safeguard.h"

namespace peq {

void FitArbeitAnlegen(const Session& s, FitArbeit& w) {
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  w.X.assign(m, 0.0);
  w.YStart.assign(m, 0.0);
  w.Gamma.assign(m, 0.0);
  w.PhiK.assign(m, 0.0);
  w.K.assign(m, 0.0);
}

namespace {

void PointResiduals(Session& s, const std::vector<FitPunkt>& pts, int16_t fitArt, double* r, FitArbeit& w) {
  if (w.X.size() != static_cast<std::size_t>(s.NKomp) + 1) FitArbeitAnlegen(s, w);
  const int per = ResiduenJePunkt(fitArt);
  w.Fehlschlaege = 0;
  for (std::size_t k = 0; k < pts.size(); ++k) {
    const FitPunkt& pt = pts[k];
    double* rk = r + k * static_cast<std::size_t>(per);
    w.X[1] = 1.0 - pt.x2L;
    w.X[2] = pt.x2L;
    w.YStart[1] = 0.0;
    double vL = 0, vV = 0;
    const double p = SafeBubbleP(s, pt.T, w.X, 0.0, w.YStart, w.Gamma, w.PhiK, w.K, vL, vV);
    const double y2 = s.YGas[2];
    if (!(p > 0) || !std::isfinite(p) || !std::isfinite(y2)) {
      ++w.Fehlschlaege;
      for (int j = 0; j < per; ++j) rk[j] = kFitStrafe;
      continue;
    }
    const double dp = (p - pt.p) / pt.p;
    const double dy = y2 - pt.x2V;
    switch (fitArt) {
      case 0: rk[0] = dp; break;
      case 1: rk[0] = dp; rk[1] = dy; break;
      default: rk[0] = dy; break;
    }
  }
}

}  // namespace

void FitResiduen(Session& s, const std::vector<FitPunkt>& pts, int16_t fitArt, const double* slots, double* r,
                 FitArbeit& w) {
  SlotsInGEPar(s, slots);
  PointResiduals(s, pts, fitArt, r, w);
}

double FitZielfunktion(Session& s, const std::vector<FitPunkt>& pts, int16_t fitArt) {
  FitArbeit w;
  FitArbeitAnlegen(s, w);
  std::vector<double> r(pts.size() * static_cast<std::size_t>(ResiduenJePunkt(fitArt)));
  PointResiduals(s, pts, fitArt, r.data(), w);
  double sum = 0;
  for (double v : r) sum += v * v;
  return sum;
}

}  // namespace peq
