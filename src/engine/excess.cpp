// Excess functions of the liquid and the closed composition derivatives of gE/(R T).
//
// GMFor writes every model's gE/(R T) of the binary (x = x2, x1 = 1 - x) as a sum of terms
//   (c0 + c1 x) ln(a + b x)                       Wilson, UNIQUAC
//   c x (1 - x)/(a + b x)                         NRTL
//   a polynomial of degree four                   Redlich-Kister
// whose n-th derivatives are closed:
//   d^n ln(L)/dx^n = (-1)^(n-1) (n-1)! b^n / L^n              (n >= 1, L = a + b x)
//   d^n [M ln L]   = M (ln L)^(n) + n c1 (ln L)^(n-1)          (M = c0 + c1 x)
//   d^n [N/L]      = sum over k = 0..2 of C(n,k) N^(k) (1/L)^(n-k),
//   (1/L)^(m)      = (-1)^m m! b^m / L^(m+1)                   (N = x - x^2).
#include "engine/excess.h"

#include <cmath>

#include "models/activity.h"
#include "models/eos_phi.h"
#include "models/geparams.h"
#include "models/liquid.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

constexpr int kMaxOrder = 6;
// A denominator smaller than this in magnitude is taken as this.
constexpr double kDenGuard = 1E-10;
// Half the UNIQUAC coordination number (z = 10).
constexpr double kZHalf = 5.0;

constexpr double kFact[kMaxOrder + 1] = {1, 1, 2, 6, 24, 120, 720};

double Guard(double d) { return std::fabs(d) < kDenGuard ? (d < 0.0 ? -kDenGuard : kDenGuard) : d; }

// b^k / L^k for k = 0..n, with L guarded.
void Powers(double b, double L, int n, double* q) {
  const double r = chk::Div(b, Guard(L));
  q[0] = 1.0;
  for (int k = 1; k <= n; ++k) q[k] = q[k - 1] * r;
}

// k-th derivative of ln(a + b x) (k >= 1) from q = powers of b/L.
double DLn(int k, const double* q) {
  const double v = kFact[k - 1] * q[k];
  return (k % 2 == 1) ? v : -v;
}

// n-th derivative of (c0 + c1 x) ln(a + b x).
double LinLog(int n, double c0, double c1, double a, double b, double x) {
  const double L = a + b * x;
  const double M = c0 + c1 * x;
  if (n == 0) return M == 0.0 ? 0.0 : M * chk::Ln(Guard(L));
  double q[kMaxOrder + 1];
  Powers(b, L, n, q);
  const double lower = (n == 1) ? (c1 == 0.0 ? 0.0 : chk::Ln(Guard(L))) : DLn(n - 1, q);
  return M * DLn(n, q) + n * c1 * lower;
}

// n-th derivative of c x (1 - x)/(a + b x).
double RatTerm(int n, double c, double a, double b, double x) {
  if (c == 0.0) return 0.0;
  const double L = Guard(a + b * x);
  double q[kMaxOrder + 1];
  Powers(b, L, n, q);
  // (1/L)^(m) = (-1)^m m! (b/L)^m / L
  auto inv = [&](int m) {
    const double v = kFact[m] * q[m] / L;
    return (m % 2 == 0) ? v : -v;
  };
  const double N0 = x - x * x, N1 = 1.0 - 2.0 * x, N2 = -2.0;
  double sum = N0 * inv(n);
  if (n >= 1) sum += n * N1 * inv(n - 1);
  if (n >= 2) sum += 0.5 * n * (n - 1) * N2 * inv(n - 2);
  return c * sum;
}

// Wilson: gE/(R T) = -x1 ln(x1 + L12 x) - x ln(x + L21 x1).
double Wilson(int n, double x, double L12, double L21) {
  return -LinLog(n, 1.0, -1.0, 1.0, L12 - 1.0, x) - LinLog(n, 0.0, 1.0, L21, 1.0 - L21, x);
}

// NRTL: gE/(R T) = x1 x [tau21 G21/(x1 + x G21) + tau12 G12/(x + x1 G12)], G = exp(-alpha tau).
double NRTL(int n, double x, double tau12, double tau21, double alpha) {
  const double G12 = chk::Exp(-alpha * tau12), G21 = chk::Exp(-alpha * tau21);
  return RatTerm(n, tau21 * G21, 1.0, G21 - 1.0, x) + RatTerm(n, tau12 * G12, G12, 1.0 - G12, x);
}

// Redlich-Kister: gE/(R T) = x1 x (A + B t + C t^2), t = 1 - 2x; as the polynomial
// q0 x + (q1 - q0) x^2 + (q2 - q1) x^3 - q2 x^4 with A + B t + C t^2 = q0 + q1 x + q2 x^2.
double RedlichKister(int n, double x, double A, double B, double C) {
  const double q0 = A + B + C, q1 = -2.0 * B - 4.0 * C, q2 = 4.0 * C;
  const double c[5] = {0.0, q0, q1 - q0, q2 - q1, -q2};
  double sum = 0.0;
  for (int k = n; k <= 4; ++k) {
    // d^n x^k = k!/(k-n)! x^(k-n)
    double v = c[k] * kFact[k] / kFact[k - n];
    for (int j = 0; j < k - n; ++j) v *= x;
    sum += v;
  }
  return sum;
}

// UNIQUAC (z/2 = 5) with rho = r2/r1 = exp(lnRho), R = x1 + rho x, Q = q1 x1 + q2 x,
// S1 = q1 x1 + q2 x tau21, S2 = q2 x + q1 x1 tau12 (all linear in x):
//   gE/(R T) = -ln R + 5 Q ln R - 4 Q ln Q - q1 x1 ln S1 - q2 x ln S2
//            + x ln rho + 5 q1 x1 ln q1 + 5 q2 x (ln q2 - ln rho).
double Uniquac(int n, double x, double lnTau21, double lnTau12, double lnRho, double q1, double q2) {
  const double rho = chk::Exp(lnRho), tau21 = chk::Exp(lnTau21), tau12 = chk::Exp(lnTau12);
  double v = -LinLog(n, 1.0, 0.0, 1.0, rho - 1.0, x) + kZHalf * LinLog(n, q1, q2 - q1, 1.0, rho - 1.0, x) -
             (kZHalf - 1.0) * LinLog(n, q1, q2 - q1, q1, q2 - q1, x) -
             LinLog(n, q1, -q1, q1, q2 * tau21 - q1, x) - LinLog(n, 0.0, q2, q1 * tau12, q2 - q1 * tau12, x);
  // The linear part.
  const double lq1 = q1 > 0.0 ? chk::Ln(q1) : 0.0, lq2 = q2 > 0.0 ? chk::Ln(q2) : 0.0;
  const double c0 = kZHalf * q1 * lq1;
  const double c1 = lnRho - kZHalf * q1 * lq1 + kZHalf * q2 * (lq2 - lnRho);
  if (n == 0) v += c0 + c1 * x;
  else if (n == 1) v += c1;
  return v;
}

void FiveTemps(const Session& s, double T, double* Tk) {
  const double h = s.Excess.h;
  for (int k = 0; k < 5; ++k) Tk[k] = T + (k - 2) * h;
}

double FivePoint(const double* f, double h) { return chk::Div(f[0] - 8.0 * f[1] + 8.0 * f[3] - f[4], 12.0 * h); }

}  // namespace

double ExcessGE(Session& s, double T, const Vec<double>& x, int16_t& Err) {
  Err = 0;
  if (s.NKomp < 1) {
    Err = -1;
    return 0.0;
  }
  try {
    int16_t e = 0;
    ActivityCoeffs(s, T, x, s.Gamma, e);
    if (e != 0) {
      Err = -1;
      return 0.0;
    }
    double sum = 0.0;
    for (int i = 1; i <= s.NKomp; ++i)
      if (x[i] != 0.0) sum += x[i] * chk::Ln(s.Gamma[i]);
    return chk::Fin(kR * T * sum);
  } catch (const NumericFault&) {
    Err = -1;
    return 0.0;
  }
}

void ExcessT(Session& s, double T, double p, const Vec<double>& x, double& hE, double& TsE, double& gE,
             int16_t& Err) {
  Err = 0;
  if (s.Konzept) {
    double h = 0, ts = 0, g = 0;
    if (EOSExcess(s, T, p, x, h, ts, g) != 0) {
      Err = -1;
      return;
    }
    hE = h;
    TsE = ts;
    gE = g;
    return;
  }
  try {
    double Tk[5], f[5], g0 = 0.0;
    FiveTemps(s, T, Tk);
    for (int k = 0; k < 5; ++k) {
      int16_t e = 0;
      const double g = ExcessGE(s, Tk[k], x, e);
      if (e != 0) {
        Err = -1;
        return;
      }
      if (k == 2) g0 = g;
      f[k] = chk::Div(g, kR * Tk[k]);
    }
    const double dfdT = FivePoint(f, s.Excess.h);
    const double h = chk::Fin(-kR * T * T * dfdT);
    s.Excess.T = T;
    s.Excess.Ziel = 0;
    for (int k = 0; k < 5; ++k) s.Excess.f[static_cast<std::size_t>(k)] = f[k];
    hE = h;
    gE = g0;
    TsE = h - g0;
  } catch (const NumericFault&) {
    Err = -1;
  }
}

void ExcessCp(Session& s, double T, double p, const Vec<double>& x, double& cpE, int16_t& Err) {
  Err = 0;
  if (s.Konzept) {
    double h = 0, ts = 0, g = 0, cp = 0;
    if (EOSExcess(s, T, p, x, h, ts, g, &cp) != 0) {
      Err = -1;
      return;
    }
    cpE = cp;
    return;
  }
  try {
    double Tk[5], hk[5];
    FiveTemps(s, T, Tk);
    for (int k = 0; k < 5; ++k) {
      double ts = 0, g = 0;
      int16_t e = 0;
      hk[k] = 0.0;
      ExcessT(s, Tk[k], p, x, hk[k], ts, g, e);
      if (e != 0) {
        Err = -1;
        return;
      }
    }
    const double cp = FivePoint(hk, s.Excess.h);
    s.Excess.T = T;
    s.Excess.Ziel = 1;
    for (int k = 0; k < 5; ++k) s.Excess.f[static_cast<std::size_t>(k)] = hk[k];
    cpE = cp;
  } catch (const NumericFault&) {
    Err = -1;
  }
}

void ExcessCp(Session& s, double T, const Vec<double>& x, double& cpE, int16_t& Err) {
  ExcessCp(s, T, s.PIso, x, cpE, Err);
}

double GMIdeal(int Order, double x) {
  if (Order < 0 || !(x > 0.0 && x < 1.0)) return 0.0;
  const double x1 = 1.0 - x;
  if (Order == 0) return x * std::log(x) + x1 * std::log(x1);
  if (Order == 1) return std::log(x / x1);
  double fact = 1.0;  // (Order - 2)!
  for (int k = 2; k <= Order - 2; ++k) fact *= k;
  const double sign = (Order % 2 == 0) ? 1.0 : -1.0;
  // Close to an end the pole overflows: a fault, so that the point is flagged, never a 0.
  return chk::Fin(fact * (sign / std::pow(x, Order - 1) + 1.0 / std::pow(x1, Order - 1)));
}

double GMFor(const Session& s, int Order, double x, double P1, double P2, double P3, double P4) {
  (void)P4;  // the fourth coefficient is 0 for every model here
  if (Order < 0 || Order > kMaxOrder || !(x >= 0.0 && x <= 1.0)) return 0.0;
  try {
    double v = 0.0;
    switch (s.GEModel) {
      case 1: v = Wilson(Order, x, P1, P2); break;
      case 2: v = NRTL(Order, x, P1, P2, P3); break;
      case 4: v = RedlichKister(Order, x, P1, P2, P3); break;
      case 9: {
        const std::size_t k1 = static_cast<std::size_t>(s.Komp1), k2 = static_cast<std::size_t>(s.Komp2);
        if (k1 >= s.StoffData.size() || k2 >= s.StoffData.size()) return 0.0;
        v = Uniquac(Order, x, P1, P2, P3, s.StoffData[k1].QUniquac, s.StoffData[k2].QUniquac);
        break;
      }
      default: return 0.0;
    }
    return chk::Fin(v);
  } catch (const NumericFault&) {
    return 0.0;
  }
}

void GMForParams(Session& s, double T, int16_t K1, int16_t K2, double P[4], int16_t& err) {
  err = 0;
  for (int k = 0; k < 4; ++k) P[k] = 0.0;
  if (s.NKomp < 2 || K1 < 1 || K2 < 1 || K1 > s.NKomp || K2 > s.NKomp || K1 == K2) {
    err = -1;
    return;
  }
  // The slots belong to the pair a < b.
  const int a = K1 < K2 ? K1 : K2, b = K1 < K2 ? K2 : K1;
  const bool swapped = K1 > K2;
  try {
    double p12 = 0.0, p21 = 0.0;  // the values of (a, b) and (b, a)
    switch (s.GEModel) {
      case 1: {
        if (s.ParUnitWilson == kUnitDimless) {
          p12 = GESlot(s, 1, a, b);
          p21 = GESlot(s, 4, a, b);
        } else {
          SizeGEWork(s);
          int16_t ok = 0;
          LiquidVolumes(s, T, s.GEWork.DT, ok);
          if (ok == 0) err = -1;
          const bool fix = s.WilsonVFix && s.AlleVWilson;
          const double va = fix ? s.VLiqCm3[static_cast<std::size_t>(a)] : s.VLiq[static_cast<std::size_t>(a)];
          const double vb = fix ? s.VLiqCm3[static_cast<std::size_t>(b)] : s.VLiq[static_cast<std::size_t>(b)];
          const double div = UnitDivisor(s.ParUnitWilson, T);
          double e12, e21;
          PairTerms(s, a, b, T, div, e12, e21);
          p12 = chk::Div(vb, va) * chk::Exp(-e12);
          p21 = chk::Div(va, vb) * chk::Exp(-e21);
        }
        P[0] = swapped ? p21 : p12;  // Lambda12 of the pair (K1, K2)
        P[1] = swapped ? p12 : p21;  // Lambda21
        break;
      }
      case 2: {
        const double div = UnitDivisor(s.ParUnitNRTL, T);
        PairTerms(s, a, b, T, div, p12, p21);
        P[0] = swapped ? p21 : p12;  // tau12
        P[1] = swapped ? p12 : p21;  // tau21
        P[2] = ParPoly(GESlot(s, 7, a, b), GESlot(s, 8, a, b), GESlot(s, 9, a, b), T);
        break;
      }
      case 4: {
        if (T < 1E-10) {
          err = -1;
          return;
        }
        // d = x(a) - x(b) is t = x1 - x2 for the pair (a, b) and -t for (b, a): B changes sign.
        P[0] = ParLog(GESlot(s, 1, a, b), GESlot(s, 2, a, b), GESlot(s, 3, a, b), T);
        const double B = ParLog(GESlot(s, 4, a, b), GESlot(s, 5, a, b), GESlot(s, 6, a, b), T);
        P[1] = swapped ? -B : B;
        P[2] = ParLog(GESlot(s, 7, a, b), GESlot(s, 8, a, b), GESlot(s, 9, a, b), T);
        break;
      }
      case 9: {
        const double div = UnitDivisor(s.ParUnitUNIQUAC, T);
        // ln tau(a,b) = -par12/(R T), ln tau(b,a) = -par21/(R T)
        PairTerms(s, a, b, T, div, p12, p21);
        p12 = -p12;
        p21 = -p21;
        const double lnTau12 = swapped ? p21 : p12, lnTau21 = swapped ? p12 : p21;
        P[0] = lnTau21;
        P[1] = lnTau12;
        P[2] = chk::Ln(chk::Div(static_cast<double>(s.StoffData[static_cast<std::size_t>(K2)].RUniquac),
                                static_cast<double>(s.StoffData[static_cast<std::size_t>(K1)].RUniquac)));
        break;
      }
      default:
        err = -1;
        return;
    }
  } catch (const NumericFault&) {
    for (int k = 0; k < 4; ++k) P[k] = 0.0;
    err = -1;
  }
}

}  // namespace peq
