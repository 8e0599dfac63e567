// Bubble pressure and bubble temperature.
#include <cmath>

#include "engine/kernel.h"
#include "engine/kernel_copy.h"
#include "models/activity.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/eos_solve.h"
#include "models/pureprops.h"
#include "models/vappressure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

constexpr double kFloor = 1e-15;  // smallest mole fraction handed to the EOS

// The first component with x(i) exactly 1, else 0.
int PureComponent(const Session& s, const Vec<double>& x) {
  for (int i = 1; i <= s.NKomp; ++i)
    if (x[i] == 1.0) return i;
  return 0;
}

// Column col of CompMat from z with the 1E-15 floor.
void FloorInto(Session& s, int col, const Vec<double>& z) {
  Vec<double>& c = s.CompMat[static_cast<std::size_t>(col)];
  for (int i = 1; i <= s.NKomp; ++i) c[i] = z[i] < kFloor ? kFloor : z[i];
}

void Normalise(Vec<double>& v, int n) {
  double sum = 0;
  for (int i = 1; i <= n; ++i) sum += v[i];
  for (int i = 1; i <= n; ++i) v[i] = chk::Div(v[i], sum);
}

// Two-constant vapour-pressure line through the critical point with the normal boiling point at
// two thirds of Tc: ln p = A + B/T, B = -2 Tc ln(pc/101.325), A = ln pc - B/Tc.
void CritLine(const Session& s, int i, double& A, double& B) {
  const double tc = s.TKrit[i], pc = s.PKrit[i];
  B = -2.0 * tc * chk::Ln(chk::Div(pc, 101.325));
  A = chk::Ln(pc) - chk::Div(B, tc);
}

// Mixture parameters of CompMat column col at the T of the last EOSMixAtT.
void PhaseAt(Session& s, int col, double T, EOSMixPar& m) {
  EOSMixAtX(s, 0, s.CompMat[static_cast<std::size_t>(col)], T, s.EOSModel, s.MixRule, s.GEModelEOS, m);
}

double PhiOf(const Session& s, double T, double p, double v, const EOSMixPar& m, int i) {
  return EOSLnPhi(T, p, v, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]);
}

// K of the infinitely dilute component of a binary whose component i is pure, at T and p:
// (1, 1E-15) into CompMat column 0, one cubic; K = phi(L)/phi(V) of the other component.
// vL and vV: the two roots. False when the cubic fails.
bool DiluteK(Session& s, int i, double T, double p, Vec<double>& K, double& vL, double& vV) {
  const int o = (i == 1) ? 2 : 1;
  Vec<double>& c = s.CompMat[0];
  c[i] = 1.0;
  c[o] = kFloor;
  EOSMixPar& m = s.EOSScratch.Liq;
  EOSMix(s, 0, s.CompMat, T, s.EOSModel, s.MixRule, s.GEModelEOS, 0, m);
  EOSRoots r{};
  int16_t nr = 0, err = 0;
  EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, r, nr, err);
  if (err != 0) return false;
  vL = LiquidRoot(r);
  vV = VapourRoot(r, nr);
  K[o] = chk::Div(PhiOf(s, T, p, vL, m, o), PhiOf(s, T, p, vV, m, o));
  return true;
}

// Liquid (column 0) and vapour (column 1) cubics at T, p from the starts vL, vV, and K(i) =
// phi(L)/phi(V). The liquid parameters must stand in EOSScratch.Liq; the vapour ones are made
// here. False when a cubic fails.
bool PhiPhiK(Session& s, double T, double p, double& vL, double& vV, Vec<double>& K) {
  const int n = s.NKomp;
  EOSWork& w = s.EOSScratch;
  EOSRoots r{};
  int16_t nr = 0, err = 0;
  EOSSolve(T, p, vL, w.Liq.a, w.Liq.b, w.Liq.c, w.Liq.d, r, nr, err);
  if (err != 0) return false;
  vL = LiquidRoot(r);
  for (int i = 1; i <= n; ++i) w.PhiL[i] = PhiOf(s, T, p, vL, w.Liq, i);
  PhaseAt(s, 1, T, w.Vap);
  EOSSolve(T, p, vV, w.Vap.a, w.Vap.b, w.Vap.c, w.Vap.d, r, nr, err);
  if (err != 0) return false;
  vV = VapourRoot(r, nr);
  for (int i = 1; i <= n; ++i) w.PhiV[i] = PhiOf(s, T, p, vV, w.Vap, i);
  for (int i = 1; i <= n; ++i) K[i] = chk::Div(w.PhiL[i], w.PhiV[i]);
  return true;
}

// ------------------------------------------------------------------------- bubble pressure

double BubblePGammaPhi(Session& s, double T, Vec<double>& x, double pStart, Vec<double>& gamma,
                       Vec<double>& PhiK, Vec<double>& K) {
  const int n = s.NKomp;
  int16_t err = 0, warn = 0;
  const int pure = PureComponent(s, x);
  if (pure > 0) {
    AllPureProps(s, T, err, warn);
    const double p = s.P0[pure];
    if (warn == 0) {
      int16_t kerr = 0;
      CalcKValues(s, T, p, s.BVir, x, gamma, s.PhiVMix, PhiK, K, s.YGas, kerr);
    }
    return p;
  }
  double p = pStart > 0.0 ? pStart : 0.0;
  for (int i = 1; i <= n; ++i) PhiK[i] = 1.0;
  AllPureProps(s, T, err, warn);  // its status is not tested here
  int16_t gerr = 0;
  ActivityCoeffs(s, T, x, gamma, gerr);
  if (gerr != 0) return 0.0;
  int counter = 0;
  bool failed = false;
  double pOld;
  do {
    pOld = p;
    double sum = 0;
    for (int i = 1; i <= n; ++i) sum += chk::Div(x[i] * double(s.P0[i]) * gamma[i], PhiK[i]);
    p = chk::Fin(sum);
    ++counter;
    if (p == 0.0) {
      failed = true;
      break;
    }
    int16_t kerr = 0;
    CalcKValues(s, T, p, s.BVir, x, gamma, s.PhiVMix, PhiK, K, s.YGas, kerr);
    if (kerr != 0) counter = 1000;
  } while (!(std::fabs((p - pOld) / p) < 1e-5 || counter > 50));
  if (failed || counter > 50) return 0.0;
  int16_t kerr = 0;
  CalcKValues(s, T, p, s.BVir, x, gamma, s.PhiVMix, PhiK, K, s.YGas, kerr);
  return p;
}

double BubblePPhiPhi(Session& s, double T, const Vec<double>& x, double pStart, const Vec<double>& yStart,
                     Vec<double>& K, double& vL, double& vV) {
  const int n = s.NKomp;
  int pure = PureComponent(s, x);
  if (pure == 0 && n == 2 && x[1] == 0.0) pure = 2;
  if (pure > 0) {
    K[pure] = 1.0;
    EOSPureAt(s, T);
    EOSSatOut sat;
    if (EOSPureSatP(s, pure, T, pStart, s.EOSPar[1][pure], s.EOSPar[2][pure], s.EOSPar[3][pure],
                    s.EOSPar[4][pure], sat) != 0)
      return 0.0;
    const double p = sat.p;
    vL = sat.vL;
    vV = sat.vV;
    if (n == 2 && !DiluteK(s, pure, T, p, K, vL, vV)) return 0.0;
    for (int i = 1; i <= n; ++i) s.YGas[i] = (i == pure) ? 1.0 : 0.0;
    return p;
  }
  // Start pressure.
  double p;
  if (pStart < 1e-4) {
    p = 0;
    for (int i = 1; i <= n; ++i) {
      double A, B;
      CritLine(s, i, A, B);
      p += x[i] * chk::Exp(A + B / T);
    }
  } else {
    p = pStart;
  }
  // Vapour start.
  Vec<double>& y = s.YGas;
  if (yStart[1] == 0.0) {
    int jmin = 1;
    for (int i = 2; i <= n; ++i)
      if (s.TKrit[i] < s.TKrit[jmin]) jmin = i;
    for (int i = 1; i <= n; ++i) y[i] = x[i];
    y[jmin] *= 1.1;
    Normalise(y, n);
  } else {
    for (int i = 1; i <= n; ++i) y[i] = yStart[i];
  }
  // The liquid parameters do not depend on p: made once.
  FloorInto(s, 0, x);
  EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
  PhaseAt(s, 0, T, s.EOSScratch.Liq);
  int counter = 0;
  double F = 0, FLast = 0, dp = 0;
  s.KernScratch.Rounds = 0;
  while (true) {
    if (++counter > 300) return p;
    s.KernScratch.Rounds = counter;
    Normalise(y, n);
    FloorInto(s, 1, y);
    if (!PhiPhiK(s, T, p, vL, vV, K)) return 0.0;
    double S = 0;
    for (int i = 1; i <= n; ++i) {
      y[i] = K[i] * x[i];
      S += y[i];
    }
    F = (S != 0.0) ? chk::Ln(std::fabs(S)) : 0.0;
    if (std::fabs(F) <= 1e-11) return p;
    if (counter == 1 || F == FLast)
      dp = 1e-5;
    else
      dp = chk::Div(-dp * F, F - FLast);
    FLast = F;
    p = chk::Fin(p + dp);
    if (p < 0.0) p = -0.5 * p;
    if (vV <= vL) return 0.0;
  }
}

// ------------------------------------------------------------------------- bubble temperature

double BubbleTGammaPhi(Session& s, double p, Vec<double>& x, double Tin, int16_t& Warn, Vec<double>& K) {
  const int n = s.NKomp;
  int16_t err = 0, kerr = 0;
  const int pure = PureComponent(s, x);
  if (pure > 0) {
    int16_t dT = 0, berr = 0;
    const double T = BoilingTAtP(s, pure, p, s.P0Eq[pure], false, dT, berr);
    if (berr != 0 || T == 0.0) return 0.0;
    AllPureProps(s, T, err, Warn);
    if (err == 0) CalcKValues(s, T, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, K, s.YGas, kerr);
    return T;
  }
  double T;
  if (Tin >= 1.0) {
    T = Tin;
  } else {
    float sum = 0;
    for (int i = 1; i <= n; ++i) {
      int16_t dT = 0, berr = 0;
      const float ts = BoilingTAtP(s, i, p, s.P0Eq[i], false, dT, berr);
      if (berr != 0 || ts == 0.0f) return 0.0;
      sum = CSng(sum + x[i] * double(ts));
    }
    T = sum;
  }
  auto f = [&]() {
    double sum = 0;
    for (int i = 1; i <= n; ++i) sum += chk::Div(double(s.P0[i]) * x[i] * s.Gamma[i], p * s.PhiKorr[i]);
    return 1.0 - sum;
  };
  double dT = 0.5, TOld;
  int counter = 0;
  do {
    ++counter;
    TOld = T;
    AllPureProps(s, T, err, Warn);
    if (err != 0) return 0.0;
    CalcKValues(s, T, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, K, s.YGas, kerr);
    if (kerr != 0) return 0.0;
    const double F1 = f();
    AllPureProps(s, T + dT, err, Warn);
    if (err != 0) return 0.0;
    if (std::fabs(dT) < 0.08) {
      CalcKValues(s, T + dT, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, K, s.YGas, kerr);
      if (kerr != 0) return 0.0;
    }
    const double F2 = f();
    if (counter >= 2) {
      if (F2 == F1) dT = 0.5;  // the division that follows faults: no solution
      dT = chk::Div(-F1 * dT, F2 - F1);
    }
    T = chk::Fin(T + dT);
  } while (std::fabs(T - TOld) >= 0.0002 && counter <= 20);
  if (counter <= 20) {
    AllPureProps(s, T, err, Warn);
    CalcKValues(s, T, p, s.BVir, x, s.Gamma, s.PhiVMix, s.PhiKorr, K, s.YGas, kerr);
  }
  return T;
}

double BubbleTPhiPhi(Session& s, double p, const Vec<double>& x, double& Targ, const Vec<double>& yStart,
                     Vec<double>& K, double& vL, double& vV) {
  const int n = s.NKomp;
  const int pure = PureComponent(s, x);
  if (pure > 0) {
    K[pure] = 1.0;
    double T = 0;
    EOSSatOut sat;
    if (EOSPureSatT(s, pure, p, 0.0, T, &sat) != 0) return 0.0;
    vL = sat.vL;
    vV = sat.vV;
    if (n == 2 && !DiluteK(s, pure, T, p, K, vL, vV)) return 0.0;
    for (int i = 1; i <= n; ++i) s.YGas[i] = (i == pure) ? 1.0 : 0.0;
    return T;
  }
  double T;
  if (Targ >= 1.0) {
    T = Targ;
  } else {
    const double lnp = chk::Ln(p);
    T = 0;
    for (int i = 1; i <= n; ++i) {
      double A, B;
      CritLine(s, i, A, B);
      T += x[i] * chk::Div(B, lnp - A);
    }
    double sum = 0;
    for (int i = 1; i <= n; ++i) {
      double ts = T;
      if (EOSPureSatT(s, i, p, 0.0, ts) == 0 && ts > 1e-10) sum += x[i] * ts;
    }
    if (sum > 0) T = sum;
    Targ = T;
  }
  Vec<double>& y = s.YGas;
  if (yStart[1] == 0.0) {
    int jmin = 1;
    for (int i = 2; i <= n; ++i)
      if (s.PKrit[i] < s.PKrit[jmin]) jmin = i;
    for (int i = 1; i <= n; ++i) y[i] = x[i];
    y[jmin] *= 1.03;
  } else {
    for (int i = 1; i <= n; ++i) y[i] = yStart[i];
  }
  FloorInto(s, 0, x);
  int counter = 0;
  double F = 0, FLast = 0, dT = 0;
  s.KernScratch.Rounds = 0;
  do {
    ++counter;
    s.KernScratch.Rounds = counter;
    EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
    PhaseAt(s, 0, T, s.EOSScratch.Liq);
    FloorInto(s, 1, y);
    Normalise(s.CompMat[1], n);
    if (!PhiPhiK(s, T, p, vL, vV, K)) return 0.0;
    if (vV < vL || std::fabs(vL - vV) < 1e-10) return 0.0;
    double S = 0;
    for (int i = 1; i <= n; ++i) {
      y[i] = x[i] * K[i];
      S += y[i];
    }
    F = chk::Ln(S);
    if (counter == 1)
      dT = 1e-5;
    else
      dT = chk::Div(-dT * F, F - FLast);
    FLast = F;
    T = chk::Fin(T + dT);
    if (T < 0.0) T = -0.5 * T;
  } while (std::fabs(F) >= 2e-6 && counter <= 400);
  if (counter > 400) return 0.0;
  return T;
}

}  // namespace

double CalcBubbleP(Session& s, double T, Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV) {
  vL = 0;
  vV = 0;
  if (s.NKomp < 1) return 0.0;
  if (!(T > 0.0)) return 0.0;
  if (s.TKritMax >= 1e-11 && T >= s.TKritMax) return 0.0;
  try {
    if (!s.Konzept) return BubblePGammaPhi(s, T, x, pStart, gamma, PhiK, K);
    return BubblePPhiPhi(s, T, x, pStart, yStart, K, vL, vV);
  } catch (const NumericFault&) {
    return 0.0;
  }
}

double CalcBubbleT(Session& s, double p, Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV) {
  vL = 0;
  vV = 0;
  Warn = 0;
  if (s.NKomp < 1) return 0.0;
  if (!(p > 0.0)) return 0.0;
  double result;
  try {
    result = s.Konzept ? BubbleTPhiPhi(s, p, x, T, yStart, K, vL, vV) : BubbleTGammaPhi(s, p, x, T, Warn, K);
  } catch (const NumericFault&) {
    return 0.0;
  }
  // A converged answer that has not moved from its start is the trivial solution.
  if (result == T || vL > vV || result == T + 1e-5) return 0.0;
  return result;
}

double CalcBubbleP(Session& s, double T, const Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV) {
  return CalcBubbleP(s, T, KernelCopy(s, x), pStart, yStart, gamma, PhiK, K, vL, vV);
}

double CalcBubbleT(Session& s, double p, const Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV) {
  return CalcBubbleT(s, p, KernelCopy(s, x), T, yStart, Warn, K, vL, vV);
}

}  // namespace peq
