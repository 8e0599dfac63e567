#include "models/eos_gemix.h"

#include <cmath>

#include "models/eos_pure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// P = La + Lb T1 + Lc T1^2 over the slots (la, lb, lc) of the pair, and phi = P/T with its first
// and second T derivatives.
void PairOverT(const Session& s, int la, int i, int j, double T, double phi[3], double P[3]) {
  const double A = PairSlot(s, la, i, j), B = PairSlot(s, la + 1, i, j), C = PairSlot(s, la + 2, i, j);
  const double t1 = T - kT0;
  P[0] = A + B * t1 + C * t1 * t1;
  P[1] = B + 2.0 * C * t1;
  P[2] = 2.0 * C;
  phi[0] = chk::Div(P[0], T);
  phi[1] = P[1] / T - P[0] / (T * T);
  phi[2] = P[2] / T - 2.0 * P[1] / (T * T) + 2.0 * P[0] / (T * T * T);
}

// v = f exp(-phi), with f constant in T.
void ExpNeg(double f, const double phi[3], double& v, double& v1, double& v2) {
  v = f * chk::Exp(-phi[0]);
  v1 = -phi[1] * v;
  v2 = (phi[1] * phi[1] - phi[2]) * v;
}

double SumX(const GEMixPairs& p, const Vec<double>& x) {
  double sx = 0;
  for (int i = 1; i <= p.n; ++i) sx += x[i];
  return sx;
}

// ---------------------------------------------------------------- Wilson
void WilsonEval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lg, int lgOrder) {
  const int n = p.n;
  for (int i = 1; i <= n; ++i) {
    double s0 = 0, s1 = 0, s2 = 0;
    for (int j = 1; j <= n; ++j) {
      s0 += x[j] * p.A(i, j);
      s1 += x[j] * p.A1(i, j);
      s2 += x[j] * p.A2(i, j);
    }
    p.s0[i] = s0;
    p.s1[i] = chk::Div(s1, s0);  // S'/S
    p.s2[i] = s2 / s0;           // S''/S
  }
  // Added pair term and its sums per component.
  double e[3] = {0, 0, 0};
  for (int i = 1; i <= n; ++i) {
    double r0 = 0, r1 = 0, r2 = 0;
    for (int j = 1; j <= n; ++j) {
      if (j == i) continue;
      r0 += x[j] * p.B(i, j);
      r1 += x[j] * p.B1(i, j);
      r2 += x[j] * p.B2(i, j);
    }
    p.t0[i] = r0;
    p.t1[i] = r1;
    p.t2[i] = r2;
    e[0] += 0.5 * x[i] * r0;
    e[1] += 0.5 * x[i] * r1;
    e[2] += 0.5 * x[i] * r2;
  }
  if (g) {
    g[0] = e[0];
    for (int i = 1; i <= n; ++i) g[0] -= x[i] * chk::Ln(p.s0[i]);
    if (order >= 1) {
      g[1] = e[1];
      for (int i = 1; i <= n; ++i) g[1] -= x[i] * p.s1[i];
    }
    if (order >= 2) {
      g[2] = e[2];
      for (int i = 1; i <= n; ++i) g[2] -= x[i] * (p.s2[i] - p.s1[i] * p.s1[i]);
    }
  }
  if (!lg) return;
  const double sx = SumX(p, x);
  for (int k = 1; k <= n; ++k) {
    double v = 0;
    if (lgOrder == 0) {
      double sum = 0;
      for (int i = 1; i <= n; ++i) sum += x[i] * p.A(i, k) / p.s0[i];
      v = sx - chk::Ln(p.s0[k]) - sum + p.t0[k] - e[0];
    } else if (lgOrder == 1) {
      double sum = 0;
      for (int i = 1; i <= n; ++i) sum += x[i] * (p.A1(i, k) - p.A(i, k) * p.s1[i]) / p.s0[i];
      v = -p.s1[k] - sum + p.t1[k] - e[1];
    } else {
      double sum = 0;
      for (int i = 1; i <= n; ++i) {
        const double q1 = p.s1[i], q2 = p.s2[i];
        sum += x[i] * (p.A2(i, k) - 2.0 * p.A1(i, k) * q1 - p.A(i, k) * q2 + 2.0 * p.A(i, k) * q1 * q1) / p.s0[i];
      }
      v = -(p.s2[k] - p.s1[k] * p.s1[k]) - sum + p.t2[k] - e[2];
    }
    (*lg)[k] = chk::Fin(v);
  }
}

// ---------------------------------------------------------------- NRTL
// Column sums: Bs(i) = sum x(j) G(j,i) in s0.., r(i) = As(i)/Bs(i) and its derivatives in t0..
void NRTLEval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lg, int lgOrder) {
  const int n = p.n;
  for (int i = 1; i <= n; ++i) {
    double b0 = 0, b1 = 0, b2 = 0, a0 = 0, a1 = 0, a2 = 0;
    for (int j = 1; j <= n; ++j) {
      const double G = p.B(j, i), G1 = p.B1(j, i), G2 = p.B2(j, i);
      const double t = p.A(j, i), t1 = p.A1(j, i), t2 = p.A2(j, i);
      b0 += x[j] * G;
      b1 += x[j] * G1;
      b2 += x[j] * G2;
      a0 += x[j] * G * t;
      a1 += x[j] * (G1 * t + G * t1);
      a2 += x[j] * (G2 * t + 2.0 * G1 * t1 + G * t2);
    }
    const double r0 = chk::Div(a0, b0);
    const double r1 = (a1 - r0 * b1) / b0;
    const double r2 = (a2 - 2.0 * r1 * b1 - r0 * b2) / b0;
    p.s0[i] = b0;
    p.s1[i] = b1;
    p.s2[i] = b2;
    p.t0[i] = r0;
    p.t1[i] = r1;
    p.t2[i] = r2;
  }
  if (g) {
    g[0] = g[1] = g[2] = 0;
    for (int i = 1; i <= n; ++i) {
      g[0] += x[i] * p.t0[i];
      if (order >= 1) g[1] += x[i] * p.t1[i];
      if (order >= 2) g[2] += x[i] * p.t2[i];
    }
  }
  if (!lg) return;
  for (int k = 1; k <= n; ++k) {
    double v = (lgOrder == 0) ? p.t0[k] : (lgOrder == 1 ? p.t1[k] : p.t2[k]);
    for (int m = 1; m <= n; ++m) {
      const double B = p.s0[m];
      const double h = p.B(k, m) / B;
      const double w = p.A(k, m) - p.t0[m];
      if (lgOrder == 0) {
        v += x[m] * h * w;
        continue;
      }
      const double h1 = (p.B1(k, m) - h * p.s1[m]) / B;
      const double w1 = p.A1(k, m) - p.t1[m];
      if (lgOrder == 1) {
        v += x[m] * (h1 * w + h * w1);
        continue;
      }
      const double h2 = (p.B2(k, m) - 2.0 * h1 * p.s1[m] - h * p.s2[m]) / B;
      const double w2 = p.A2(k, m) - p.t2[m];
      v += x[m] * (h2 * w + 2.0 * h1 * w1 + h * w2);
    }
    (*lg)[k] = chk::Fin(v);
  }
}

// ---------------------------------------------------------------- UNIQUAC
// Ts(i) = sum theta(j) tau(j,i) in s0, Ts'/Ts in s1, Ts''/Ts in s2; theta in t0.
void UNIQUACEval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lg, int lgOrder) {
  const int n = p.n;
  double rbar = 0, qbar = 0;
  for (int i = 1; i <= n; ++i) {
    rbar += p.r[i] * x[i];
    qbar += p.q[i] * x[i];
  }
  for (int j = 1; j <= n; ++j) p.t0[j] = chk::Div(p.q[j] * x[j], qbar);
  for (int i = 1; i <= n; ++i) {
    double s0 = 0, s1 = 0, s2 = 0;
    for (int j = 1; j <= n; ++j) {
      s0 += p.t0[j] * p.A(j, i);
      s1 += p.t0[j] * p.A1(j, i);
      s2 += p.t0[j] * p.A2(j, i);
    }
    p.s0[i] = s0;
    p.s1[i] = chk::Div(s1, s0);
    p.s2[i] = s2 / s0;
  }
  if (g) {
    g[0] = g[1] = g[2] = 0;
    for (int i = 1; i <= n; ++i) {
      const double qx = p.q[i] * x[i];
      g[0] += 5.0 * qx * chk::Ln(chk::Div(p.q[i] * rbar, p.r[i] * qbar)) + x[i] * chk::Ln(chk::Div(p.r[i], rbar)) -
              qx * chk::Ln(p.s0[i]);
      if (order >= 1) g[1] -= qx * p.s1[i];
      if (order >= 2) g[2] -= qx * (p.s2[i] - p.s1[i] * p.s1[i]);
    }
  }
  if (!lg) return;
  for (int k = 1; k <= n; ++k) {
    double v;
    if (lgOrder == 0) {
      const double V = chk::Div(p.r[k], rbar), F = chk::Div(p.q[k], qbar);
      const double VF = chk::Div(V, F);
      double sum = 0;
      for (int i = 1; i <= n; ++i) sum += p.t0[i] * p.A(k, i) / p.s0[i];
      v = chk::Ln(V) + 1.0 - V - 5.0 * p.q[k] * (chk::Ln(VF) + 1.0 - VF) +
          p.q[k] * (1.0 - chk::Ln(p.s0[k]) - sum);
    } else if (lgOrder == 1) {
      double sum = 0;
      for (int i = 1; i <= n; ++i) sum += p.t0[i] * (p.A1(k, i) - p.A(k, i) * p.s1[i]) / p.s0[i];
      v = -p.q[k] * (p.s1[k] + sum);
    } else {
      double sum = 0;
      for (int i = 1; i <= n; ++i) {
        const double q1 = p.s1[i], q2 = p.s2[i];
        sum += p.t0[i] * (p.A2(k, i) - 2.0 * p.A1(k, i) * q1 - p.A(k, i) * q2 + 2.0 * p.A(k, i) * q1 * q1) / p.s0[i];
      }
      v = -p.q[k] * ((p.s2[k] - p.s1[k] * p.s1[k]) + sum);
    }
    (*lg)[k] = chk::Fin(v);
  }
}

void Eval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lg, int lgOrder) {
  switch (p.model) {
    case 1:
      WilsonEval(p, x, order, g, lg, lgOrder);
      break;
    case 2:
      NRTLEval(p, x, order, g, lg, lgOrder);
      break;
    case 9:
      UNIQUACEval(p, x, order, g, lg, lgOrder);
      break;
    default:
      chk::Fault("gE model of the mixing rule not prepared");
  }
  if (g)
    for (int k = 0; k <= order; ++k) chk::Fin(g[k]);
}

}  // namespace

void GEMixPrepare(const Session& s, int model, double T, const Vec<double>& b, GEMixPairs& p) {
  if (model != 1 && model != 2 && model != 9) chk::Fault("gE model of the mixing rule unknown");
  const int n = s.NKomp;
  p.model = static_cast<int16_t>(model);
  p.n = n;
  p.T = T;
  for (int i = 1; i <= n; ++i) {
    p.A(i, i) = (model == 2) ? 0.0 : 1.0;
    p.A1(i, i) = p.A2(i, i) = 0.0;
    p.B(i, i) = (model == 2) ? 1.0 : 0.0;
    p.B1(i, i) = p.B2(i, i) = 0.0;
    p.r[i] = s.StoffData[i].RUniquac;
    p.q[i] = s.StoffData[i].QUniquac;
  }
  for (int i = 1; i <= n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      double f12[3], f21[3], f3[3], P12[3], P21[3], P3[3];
      PairOverT(s, 1, i, j, T, f12, P12);
      PairOverT(s, 4, i, j, T, f21, P21);
      PairOverT(s, 7, i, j, T, f3, P3);
      switch (model) {
        case 1:
          ExpNeg(chk::Div(b[j], b[i]), f12, p.A(i, j), p.A1(i, j), p.A2(i, j));
          ExpNeg(chk::Div(b[i], b[j]), f21, p.A(j, i), p.A1(j, i), p.A2(j, i));
          for (auto [u, v] : {std::pair{i, j}, std::pair{j, i}}) {
            p.B(u, v) = P3[0];
            p.B1(u, v) = P3[1];
            p.B2(u, v) = P3[2];
          }
          break;
        case 2: {
          const double* taus[2] = {f12, f21};
          const int from[2] = {i, j}, to[2] = {j, i};
          for (int k = 0; k < 2; ++k) {
            const double* t = taus[k];
            const int u = from[k], v = to[k];
            p.A(u, v) = t[0];
            p.A1(u, v) = t[1];
            p.A2(u, v) = t[2];
            // G = exp(-alpha tau): (alpha tau)' and (alpha tau)''
            const double w0 = P3[0] * t[0];
            const double w1 = P3[1] * t[0] + P3[0] * t[1];
            const double w2 = P3[2] * t[0] + 2.0 * P3[1] * t[1] + P3[0] * t[2];
            const double G = chk::Exp(-w0);
            p.B(u, v) = G;
            p.B1(u, v) = -w1 * G;
            p.B2(u, v) = (w1 * w1 - w2) * G;
          }
          break;
        }
        case 9:
          ExpNeg(1.0, f12, p.A(i, j), p.A1(i, j), p.A2(i, j));
          ExpNeg(1.0, f21, p.A(j, i), p.A1(j, i), p.A2(j, i));
          break;
      }
    }
}

void GEMixEval(GEMixPairs& p, const Vec<double>& x, int order, double g[3], Vec<double>* lnGamma) {
  Eval(p, x, order, g, lnGamma, 0);
}

double GEMixValue(GEMixPairs& p, const Vec<double>& x) {
  double g[3];
  Eval(p, x, 0, g, nullptr, 0);
  return g[0];
}

double GEMixDT(GEMixPairs& p, const Vec<double>& x) {
  double g[3];
  Eval(p, x, 1, g, nullptr, 0);
  return g[1];
}

double GEMixD2T(GEMixPairs& p, const Vec<double>& x) {
  double g[3];
  Eval(p, x, 2, g, nullptr, 0);
  return g[2];
}

double GEMixLnGamma(GEMixPairs& p, const Vec<double>& x, int i) {
  Eval(p, x, 0, nullptr, &p.lg, 0);
  return p.lg[i];
}

double GEMixLnGammaDT(GEMixPairs& p, const Vec<double>& x, int i) {
  Eval(p, x, 1, nullptr, &p.lg, 1);
  return p.lg[i];
}

double GEMixLnGammaD2T(GEMixPairs& p, const Vec<double>& x, int i) {
  Eval(p, x, 2, nullptr, &p.lg, 2);
  return p.lg[i];
}

}  // namespace peq
