// Dew pressure and dew temperature (gamma-phi concept).
#include <cmath>

#include "engine/kernel.h"
#include "models/pureprops.h"
#include "models/vappressure.h"
#include "session/numeric.h"

namespace peq {

namespace {

// x(i) = y(i)/K(i) into XLiq, normalised; returns the sum less 1.
double LiquidFromK(Session& s, const Vec<double>& y) {
  const int n = s.NKomp;
  double S = 0;
  for (int i = 1; i <= n; ++i) {
    s.XLiq[i] = chk::Div(y[i], s.KWert[i]);
    S += s.XLiq[i];
  }
  for (int i = 1; i <= n; ++i) s.XLiq[i] = chk::Div(s.XLiq[i], S);
  return S - 1.0;
}

double SumYOverK(const Session& s, const Vec<double>& y) {
  double S = 0;
  for (int i = 1; i <= s.NKomp; ++i) S += chk::Div(y[i], s.KWert[i]);
  return S - 1.0;
}

// CalcKValues at T, p for the liquid XLiq into KWert, Gamma, PhiKorr; its y goes to scratch.
bool KAt(Session& s, double T, double p) {
  int16_t err = 0;
  CalcKValues(s, T, p, s.BVir, s.XLiq, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, s.KernScratch.Y, err);
  return err == 0;
}

}  // namespace

float CalcDewP(Session& s, double T, const Vec<double>& y) {
  const int n = s.NKomp;
  if (n < 1 || s.Konzept || !(T > 0.0)) return 0.0f;
  try {
    double sum = 0;
    for (int i = 1; i <= n; ++i) {
      s.XLiq[i] = y[i];
      sum += chk::Div(y[i], double(s.P0[i]));
    }
    double p = chk::Div(1.0, sum);
    double dp = 0.01, S = 0, pLast;
    int outer = 0;
    do {
      ++outer;
      pLast = p;
      int inner = 0;
      double SLast;
      do {
        ++inner;
        SLast = S;
        if (!KAt(s, T, p)) return 0.0f;
        S = LiquidFromK(s, y);
      } while (std::fabs(SLast - S) >= 1e-4 && inner <= 100);
      if (inner > 100) return 0.0f;
      if (!KAt(s, T, p + dp)) return 0.0f;
      const double S2 = SumYOverK(s, y);
      if (std::fabs(S2) > 0.0) {
        dp = chk::Div(-S * dp, S2 - S);
        p = chk::Fin(p + dp);
      }
    } while (!(std::fabs((p - pLast) / p) < 1e-4 || outer > 30));
    if (outer > 30) return 0.0f;
    return CSng(p);
  } catch (const NumericFault&) {
    return 0.0f;
  }
}

float CalcDewT(Session& s, double p, const Vec<double>& y, double TStart) {
  const int n = s.NKomp;
  if (n < 1 || s.Konzept || !(p > 0.0)) return 0.0f;
  try {
    double T;
    if (TStart >= 1.0) {
      T = TStart;
    } else {
      for (int i = 1; i <= n; ++i) {
        s.PhiKorr[i] = 1.0;
        s.Gamma[i] = 1.0;
      }
      float sum = 0;
      for (int i = 1; i <= n; ++i) {
        int16_t dT = 0, berr = 0;
        const float ts = BoilingTAtP(s, i, p, s.P0Eq[i], false, dT, berr);
        if (berr != 0 || ts == 0.0f) return 0.0f;
        sum = CSng(sum + y[i] * double(ts));
      }
      T = sum;
    }
    int16_t err = 0, warn = 0;
    AllPureProps(s, T, err, warn);
    double S = 0;
    for (int i = 1; i <= n; ++i) {
      s.XLiq[i] = chk::Div(y[i] * p, double(s.P0[i]) * s.Gamma[i]);
      S += s.XLiq[i];
    }
    for (int i = 1; i <= n; ++i) s.XLiq[i] = chk::Div(s.XLiq[i], S);
    double dT = 0.01, TLast;
    int outer = 0;
    bool converged = false;
    do {
      ++outer;
      TLast = T;
      AllPureProps(s, T, err, warn);
      if (err != 0) return 0.0f;
      bool innerDone = false;
      for (int inner = 1; inner <= 25; ++inner) {
        const double SLast = S;
        if (!KAt(s, T, p)) return 0.0f;
        S = LiquidFromK(s, y);
        if (std::fabs(SLast - S) < 1e-5) {
          innerDone = true;
          break;
        }
      }
      if (!innerDone) return 0.0f;
      const double dTp = dT < 0.1 ? 0.1 : dT;  // the signed dT: a negative one becomes +0.1
      AllPureProps(s, T + dTp, err, warn);
      if (!KAt(s, T + dTp, p)) return 0.0f;
      const double S2 = SumYOverK(s, y);
      if (S2 != 0.0) {
        dT = chk::Div(-S * dTp, S2 - S);
        T = chk::Fin(T + dT);
      }
      converged = std::fabs(T - TLast) < 5e-5;
    } while (!converged && outer < 30);
    if (!converged) return 0.0f;
    return CSng(T);
  } catch (const NumericFault&) {
    return 0.0f;
  }
}

}  // namespace peq
