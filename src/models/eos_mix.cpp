#include "models/eos_mix.h"

#include <cmath>

#include "models/eos_gemix.h"
#include "models/eos_pure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

inline bool EqualCD(int model) { return model == 6 || model == 7; }
inline double URule(int mixRule) { return mixRule == 5 ? 1.0 : 1.1; }

// k(i,j) of parameter k (0 a, 1 b, 2 c, 3 d) with its first and second T derivative.
void PairK(const Session& s, KijSource src, int k, int i, int j, double T, double kk[3]) {
  kk[0] = kk[1] = kk[2] = 0.0;
  if (src == KijSource::Vapour) {
    if (k != 0) return;
    const double a = PairSlot(s, 13, i, j), b = PairSlot(s, 14, i, j);
    const double c = PairSlot(s, 15, i, j), d = PairSlot(s, 16, i, j);
    kk[0] = a + chk::Div(b, T) + c * chk::Ln(T) + d * (T - kT0);
    kk[1] = -b / (T * T) + c / T + d;
    kk[2] = 2.0 * b / (T * T * T) - c / (T * T);
    return;
  }
  static constexpr int kBase[4] = {1, 13, 16, 19};
  const int L = kBase[k];
  const double A = PairSlot(s, L, i, j), B = PairSlot(s, L + 1, i, j), C = PairSlot(s, L + 2, i, j);
  const double t1 = T - kT0;
  kk[0] = A + B * t1 + C * t1 * t1;
  kk[1] = B + 2.0 * C * t1;
  kk[2] = 2.0 * C;
}

// Q of the GE rules along T, from b, c, d and their T derivatives (index 0..2).
void QAlongT(int model, double u, const double b[3], const double c[3], const double d[3], double Q[3]) {
  if (EqualCD(model)) {
    const double B0 = u * b[0] + c[0], B1 = u * b[1] + c[1], B2 = u * b[2] + c[2];
    Q[0] = chk::Div(1.0, B0);
    Q[1] = -B1 * Q[0] * Q[0];
    Q[2] = -B2 * Q[0] * Q[0] + 2.0 * B1 * B1 * Q[0] * Q[0] * Q[0];
    return;
  }
  const double B0 = u * b[0] + c[0], B1 = u * b[1] + c[1], B2 = u * b[2] + c[2];
  const double D0 = u * b[0] + d[0], D1 = u * b[1] + d[1], D2 = u * b[2] + d[2];
  const double E0 = c[0] - d[0], E1 = c[1] - d[1], E2 = c[2] - d[2];
  const double L0 = chk::Ln(chk::Div(B0, D0));
  const double L1 = B1 / B0 - D1 / D0;
  const double L2 = B2 / B0 - (B1 / B0) * (B1 / B0) - D2 / D0 + (D1 / D0) * (D1 / D0);
  Q[0] = chk::Div(L0, E0);
  Q[1] = (L1 - Q[0] * E1) / E0;
  Q[2] = (L2 - 2.0 * Q[1] * E1 - Q[0] * E2) / E0;
}

// Quadratic rule of parameter k at x: s(mix), and ds(i) when ds is given.
double Quadratic(Session& s, int k, const Vec<double>& x, Vec<double>* ds) {
  EOSWork& w = s.EOSScratch;
  const int n = s.NKomp;
  const Mat<double>& P = w.Pair[k];
  Vec<double>& row = w.Row[k];
  double sm = 0;
  for (int i = 1; i <= n; ++i) {
    double r = 0;
    for (int j = 1; j <= n; ++j) r += x[j] * P(i, j);
    row[i] = r;
    sm += x[i] * r;
  }
  if (ds)
    for (int i = 1; i <= n; ++i) (*ds)[i] = 2.0 * (row[i] - sm);
  return sm;
}

double QuadraticT(const Session& s, const Mat<double>& P, const Vec<double>& x) {
  const int n = s.NKomp;
  double sm = 0;
  for (int i = 1; i <= n; ++i) {
    double r = 0;
    for (int j = 1; j <= n; ++j) r += x[j] * P(i, j);
    sm += x[i] * r;
  }
  return sm;
}

// Rule code 3 of a: F(i,j) = 1 - k12 k21/(x(i) k12 + x(j) k21), i < j.
double RuleVanLaar(Session& s, const Vec<double>& x, Vec<double>* da) {
  EOSWork& w = s.EOSScratch;
  const int n = s.NKomp;
  Vec<double>& row = w.Row[0];    // sum_j x(j) S(m,j) F(m,j)
  Vec<double>& extra = w.Q1;      // sum over the pairs of m of x(i) x(j) S(i,j) dF/dx(m)
  for (int i = 1; i <= n; ++i) {
    row[i] = x[i] * w.AGeo(i, i);
    extra[i] = 0;
  }
  double a = 0, euler = 0;
  for (int i = 1; i <= n; ++i) a += x[i] * x[i] * w.AGeo(i, i);
  for (int i = 1; i <= n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      const double k12 = w.K12(i, j), k21 = w.K21(i, j), P = k12 * k21;
      double F = 1.0, Fi = 0.0, Fj = 0.0, PoverDen = 0.0;
      if (P != 0.0) {
        const double den = x[i] * k12 + x[j] * k21;
        PoverDen = chk::Div(P, den);
        F = 1.0 - PoverDen;
        Fi = PoverDen * k12 / den;
        Fj = PoverDen * k21 / den;
      }
      const double S = w.AGeo(i, j);
      row[i] += x[j] * S * F;
      row[j] += x[i] * S * F;
      a += 2.0 * x[i] * x[j] * S * F;
      extra[i] += 2.0 * x[i] * x[j] * S * Fi;
      extra[j] += 2.0 * x[i] * x[j] * S * Fj;
      euler += 2.0 * x[i] * x[j] * S * PoverDen;
    }
  if (da)
    for (int m = 1; m <= n; ++m) (*da)[m] = 2.0 * row[m] + extra[m] - 2.0 * a - euler;
  return chk::Fin(a);
}

}  // namespace

double GERuleQ(int model, double u, double b, double c, double d, double* Qb, double* Qc, double* Qd) {
  if (EqualCD(model)) {
    const double Q = chk::Div(1.0, u * b + c);
    if (Qb) *Qb = -u * Q * Q;
    if (Qc) *Qc = -Q * Q;
    if (Qd) *Qd = 0.0;
    return Q;
  }
  const double B = u * b + c, D = u * b + d, E = c - d;
  const double Q = chk::Div(chk::Ln(chk::Div(B, D)), E);
  if (Qb) *Qb = (u / B - u / D) / E;
  if (Qc) *Qc = (1.0 / B - Q) / E;
  if (Qd) *Qd = (Q - 1.0 / D) / E;
  return Q;
}

void EOSMixAtT(Session& s, double T, int model, int mixRule, int geModelEOS, bool withDT, KijSource src) {
  if (!(T >= 1e-6)) chk::Fault("T of the mixing rule below 1E-6");
  if (mixRule < 1 || mixRule > 6) chk::Fault("mixing rule unknown");
  EOSPureAt(s, T);
  if (withDT) EOSPureDT(s, T);
  EOSWork& w = s.EOSScratch;
  const int n = s.NKomp;
  const bool geRule = mixRule >= 5;
  for (int k = 0; k < 4; ++k) {
    const int code = (k == 0) ? mixRule : 1;
    if (k == 0 && geRule) continue;
    const Vec<double>& v0 = s.EOSPar[k + 1];
    const Vec<double>& v1 = s.EOSParDT[k + 1];
    const Vec<double>& v2 = s.EOSParD2T[k + 1];
    if (k == 0 && (code == 3 || code == 4)) {
      // Composition-dependent F: the geometric mean and the two pair coefficients at T.
      const double t1 = T - kT0;
      for (int i = 1; i <= n; ++i)
        for (int j = i; j <= n; ++j) {
          const double S = (i == j) ? v0[i] : chk::Sqrt(v0[i] * v0[j]);
          w.AGeo(i, j) = w.AGeo(j, i) = S;
          if (i == j) continue;
          w.K12(i, j) = PairSlot(s, 1, i, j) + PairSlot(s, 2, i, j) * t1 + PairSlot(s, 3, i, j) * t1 * t1;
          w.K21(i, j) = PairSlot(s, 4, i, j) + PairSlot(s, 5, i, j) * t1 + PairSlot(s, 6, i, j) * t1 * t1;
        }
      continue;
    }
    Mat<double>& P0 = w.Pair[k];
    Mat<double>& P1 = w.PairDT[k];
    Mat<double>& P2 = w.PairD2T[k];
    for (int i = 1; i <= n; ++i) {
      P0(i, i) = v0[i];
      if (withDT) {
        P1(i, i) = v1[i];
        P2(i, i) = v2[i];
      }
      for (int j = i + 1; j <= n; ++j) {
        double S0, S1 = 0, S2 = 0;
        if (code == 1) {
          S0 = 0.5 * (v0[i] + v0[j]);
          if (withDT) {
            S1 = 0.5 * (v1[i] + v1[j]);
            S2 = 0.5 * (v2[i] + v2[j]);
          }
        } else {
          S0 = chk::Sqrt(v0[i] * v0[j]);
          if (withDT) {
            S1 = chk::Div(v1[i] * v0[j] + v0[i] * v1[j], 2.0 * S0);
            S2 = (v2[i] * v0[j] + 2.0 * v1[i] * v1[j] + v0[i] * v2[j] - 2.0 * S1 * S1) / (2.0 * S0);
          }
        }
        double kk[3];
        PairK(s, src, k, i, j, T, kk);
        const double F0 = 1.0 - kk[0], F1 = -kk[1], F2 = -kk[2];
        P0(i, j) = P0(j, i) = S0 * F0;
        if (withDT) {
          P1(i, j) = P1(j, i) = S1 * F0 + S0 * F1;
          P2(i, j) = P2(j, i) = S2 * F0 + 2.0 * S1 * F1 + S0 * F2;
        }
      }
    }
  }
  if (geRule) {
    GEMixPrepare(s, geModelEOS, T, s.EOSPar[2], w.GE);
    const double u = URule(mixRule);
    for (int i = 1; i <= n; ++i) {
      const double b[3] = {s.EOSPar[2][i], withDT ? s.EOSParDT[2][i] : 0.0, withDT ? s.EOSParD2T[2][i] : 0.0};
      const double c[3] = {s.EOSPar[3][i], withDT ? s.EOSParDT[3][i] : 0.0, withDT ? s.EOSParD2T[3][i] : 0.0};
      const double d[3] = {s.EOSPar[4][i], withDT ? s.EOSParDT[4][i] : 0.0, withDT ? s.EOSParD2T[4][i] : 0.0};
      double Q[3];
      QAlongT(model, u, b, c, d, Q);
      w.Q[i] = Q[0];
      w.Q1[i] = Q[1];
      w.Q2[i] = Q[2];
    }
  }
}

void EOSMixTDerivs(Session& s, const Vec<double>& x, double T, int model, int mixRule, double a[3], double b[3],
                   double c[3], double d[3]) {
  EOSWork& w = s.EOSScratch;
  double* out[4] = {a, b, c, d};
  for (int k = 0; k < 4; ++k) {
    if (k == 0 && mixRule >= 3) continue;
    out[k][0] = QuadraticT(s, w.Pair[k], x);
    out[k][1] = QuadraticT(s, w.PairDT[k], x);
    out[k][2] = QuadraticT(s, w.PairD2T[k], x);
  }
  if (mixRule == 3 || mixRule == 4) chk::Fault("temperature derivatives of the rule codes 3 and 4 not built");
  if (mixRule < 5) return;
  const int n = s.NKomp;
  const double R = kR, RT = kR * T;
  const double u = URule(mixRule);
  double Q[3];
  QAlongT(model, u, b, c, d, Q);
  double P[3] = {0, 0, 0};
  for (int k = 1; k <= n; ++k) {
    const double ak = s.EOSPar[1][k], a1 = s.EOSParDT[1][k], a2 = s.EOSParD2T[1][k];
    P[0] += x[k] * ak * w.Q[k];
    P[1] += x[k] * (a1 * w.Q[k] + ak * w.Q1[k]);
    P[2] += x[k] * (a2 * w.Q[k] + 2.0 * a1 * w.Q1[k] + ak * w.Q2[k]);
  }
  double g[3];
  GEMixEval(w.GE, x, 2, g, nullptr);
  const double G0 = RT * g[0], G1 = R * g[0] + RT * g[1], G2 = 2.0 * R * g[1] + RT * g[2];
  double W0 = 0, W1 = 0, W2 = 0;
  if (mixRule == 6) {
    double w0 = 0, w1 = 0, w2 = 0;
    const double rb1 = b[1] / b[0], rb2 = b[2] / b[0];
    for (int k = 1; k <= n; ++k) {
      const double bk = s.EOSPar[2][k], q1 = s.EOSParDT[2][k] / bk, q2 = s.EOSParD2T[2][k] / bk;
      w0 += x[k] * chk::Ln(chk::Div(b[0], bk));
      w1 += x[k] * (rb1 - q1);
      w2 += x[k] * (rb2 - rb1 * rb1 - q2 + q1 * q1);
    }
    W0 = RT * w0;
    W1 = R * w0 + RT * w1;
    W2 = 2.0 * R * w1 + RT * w2;
  }
  a[0] = chk::Div(P[0] - G0 - W0, Q[0]);
  a[1] = (P[1] - G1 - W1 - a[0] * Q[1]) / Q[0];
  a[2] = chk::Fin((P[2] - G2 - W2 - 2.0 * a[1] * Q[1] - a[0] * Q[2]) / Q[0]);
}

void EOSMixAtX(Session& s, int mode, const Vec<double>& x, double T, int model, int mixRule, int geModelEOS,
               EOSMixPar& out) {
  (void)geModelEOS;
  if (mode == 1 || mode == 2) {
    double a[3], b[3], c[3], d[3];
    EOSMixTDerivs(s, x, T, model, mixRule, a, b, c, d);
    out.a = a[mode];
    out.b = b[mode];
    out.c = c[mode];
    out.d = d[mode];
    return;
  }
  EOSWork& w = s.EOSScratch;
  const int n = s.NKomp;
  out.b = Quadratic(s, 1, x, &out.db);
  out.c = Quadratic(s, 2, x, &out.dc);
  out.d = Quadratic(s, 3, x, &out.dd);
  switch (mixRule) {
    case 1:
    case 2:
      out.a = Quadratic(s, 0, x, &out.da);
      return;
    case 3:
      out.a = RuleVanLaar(s, x, &out.da);
      return;
    case 4:
      chk::Fault("rule code 4 not built");
  }
  // GE rules.
  const double RT = kR * T;
  double Qb, Qc, Qd;
  const double Q = GERuleQ(model, URule(mixRule), out.b, out.c, out.d, &Qb, &Qc, &Qd);
  double P = 0, sumx = 0;
  for (int i = 1; i <= n; ++i) {
    P += x[i] * s.EOSPar[1][i] * w.Q[i];
    sumx += x[i];
  }
  double g[3];
  GEMixEval(w.GE, x, 0, g, &w.LnGamma);
  const double G = RT * g[0];
  double W = 0;
  if (mixRule == 6) {
    for (int i = 1; i <= n; ++i) W += x[i] * chk::Ln(chk::Div(out.b, s.EOSPar[2][i]));
    W *= RT;
  }
  const double a = chk::Div(P - G - W, Q);
  out.a = a;
  for (int i = 1; i <= n; ++i) {
    double dW = 0;
    if (mixRule == 6) dW = RT * (chk::Ln(out.b / s.EOSPar[2][i]) + sumx * out.db[i] / out.b) - W;
    const double dQ = Qb * out.db[i] + Qc * out.dc[i] + Qd * out.dd[i];
    out.da[i] = chk::Fin((s.EOSPar[1][i] * w.Q[i] - P - RT * (w.LnGamma[i] - g[0]) - dW - a * dQ) / Q);
  }
}

void EOSMix(Session& s, int mode, const std::array<Vec<double>, 2>& compMat, double T, int model, int mixRule,
            int geModelEOS, int column, EOSMixPar& out, KijSource src) {
  EOSMixAtT(s, T, model, mixRule, geModelEOS, mode != 0, src);
  EOSMixAtX(s, mode, compMat[static_cast<std::size_t>(column)], T, model, mixRule, geModelEOS, out);
}

}  // namespace peq
