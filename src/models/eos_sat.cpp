#include "models/eos_sat.h"

#include <cmath>

#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// Integral of the cubic's pressure from u to w.
double AreaP(double RT, double a, double b, double c, double d, double u, double w) {
  const double first = RT * chk::Ln(chk::Div(w - b, u - b));
  if (c == d) return first + a * (chk::Div(1.0, w + c) - chk::Div(1.0, u + c));
  return first + chk::Div(a, c - d) * chk::Ln(chk::Div((w + c) * (u + d), (u + c) * (w + d)));
}

inline double WithSign(double mag, double sgn) { return sgn < 0 ? -std::fabs(mag) : std::fabs(mag); }

}  // namespace

double MaxwellTest(double T, double p, double a, double b, double c, double d, const EOSRoots& roots) {
  const double RT = kR * T;
  const double v1 = roots[1], v2 = roots[2], v3 = roots[3];
  const double A1 = AreaP(RT, a, b, c, d, v2, v3) - (v3 - v2) * p;
  const double A2 = AreaP(RT, a, b, c, d, v1, v2) - (v2 - v1) * p;
  return chk::Div(A1 + A2, A1 - A2);
}

int16_t EOSPureSatP(const Session& s, int i, double T, double pStart, double a, double b, double c, double d,
                    EOSSatOut& out) {
  const double tc = s.TKrit[i], pc = s.PKrit[i];
  if (T >= tc) return -1;
  try {
    double p = pStart > 1e-5 ? pStart : chk::Exp(chk::Ln(pc) * T / tc);
    double step = 0, F = 0, FLast = 0, pLast = 0;
    bool firstOne = true, firstThree = true;
    int markLast = 0, restarts = 0;
    EOSRoots roots{};
    int16_t nr = 0, err = 0;
    for (int round = 1; round <= 300; ++round) {
      EOSSolve(T, p, 0.0, a, b, c, d, roots, nr, err);
      if (err != 0 || roots[1] <= b) return -1;
      bool done = false;
      if (nr == 1) {
        const int mark = roots[1] < s.VKrit[i] ? -1 : 1;  // liquid -1, vapour +1
        if (firstOne) {
          step *= 0.1;
          if (std::fabs(step) < 1e-5) step = -0.01 * p;
          firstOne = false;
        } else if (mark != markLast) {
          step *= 0.1;
        }
        markLast = mark;
        step = WithSign(step, mark);  // liquid: lower p, vapour: raise p
      } else {
        F = MaxwellTest(T, p, a, b, c, d, roots);
        if (firstThree) {
          if (std::fabs(step) < 1e-5) step = 0.01 * p;
          step = WithSign(step, F);
          firstThree = false;
        } else {
          if (std::fabs(F) < 1e-5) {
            done = true;
          } else if (std::fabs(F - FLast) > 1e-11) {
            step = -(p - pLast) * F / (F - FLast);
          } else {
            step = WithSign(0.01 * p, FLast - F);
          }
        }
        FLast = F;
        pLast = p;
      }
      if (!done && std::fabs(step / p) < 1e-10) done = true;
      if (done) {
        out.p = p;
        out.T = T;
        out.vL = LiquidRoot(roots);
        out.vV = VapourRoot(roots, nr);
        return 0;
      }
      p = chk::Fin(p + step);
      if (p == pc) {
        out.p = p;
        out.T = T;
        out.vL = LiquidRoot(roots);
        out.vV = VapourRoot(roots, nr);
        return 0;
      }
      if (p < 1e-10) {
        ++restarts;
        p = 0.01 / restarts;
      }
    }
    return -1;
  } catch (const NumericFault&) {
    return -1;
  }
}

int16_t EOSPureSatT(const Session& s, int i, double p, double vStart, double& Tio, EOSSatOut* out) {
  const double tc = s.TKrit[i], pc = s.PKrit[i];
  if (p >= pc) return -1;
  try {
    double T = Tio > 0.0 ? Tio : chk::Div(chk::Ln(pc) * tc, chk::Ln(p));
    EOSRoots roots{};
    int16_t nr = 0, err = 0;
    double a, b, c, d;
    // Far above Tc (where the made start lies) the Peng-Robinson cubic has two spurious roots
    // at or below b beside the gas root: such a state counts as the one-root case; a state
    // without any root above b fails.
    auto solveAt = [&](double t) {
      EOSPureAtOne(s, i, t, a, b, c, d);
      EOSSolve(t, p, vStart, a, b, c, d, roots, nr, err);
      if (err != 0 || VapourRoot(roots, nr) <= b) chk::Fault("no saturation state");
      if (roots[1] <= b) {
        if (nr == 3 && roots[2] > b) chk::Fault("no saturation state");
        roots[1] = roots[3];
        roots[2] = roots[3] = 0.0;
        nr = 1;
      }
    };
    // Bracket the point from the critical temperature downwards at higher pressures. The search
    // below goes on with the step the march ended with: a first step of 0.01 T would throw T out
    // of the narrow bracket close to the critical point, and the search would cycle.
    double step = 0;
    if (p / pc >= 0.02) {
      T = tc;
      step = -(pc - p) / 100.0;
      double sLast = 0;
      for (int k = 1; k <= 60; ++k) {
        solveAt(T);
        double sig;
        if (nr == 3) {
          const double F = MaxwellTest(T, p, a, b, c, d, roots);
          if (std::fabs(F) < 2e-4) break;
          sig = F;
        } else {
          sig = roots[1] < s.VKrit[i] ? -1.0 : 1.0;
        }
        if (sLast != 0 && (sig < 0) != (sLast < 0)) step = -0.1 * step;
        sLast = sig;
        if (std::fabs(step) < 0.0005) break;
        T += step;
      }
    }
    double F = 0, FLast = 0, TLast = 0;
    bool firstOne = true, firstThree = true;
    int markLast = 0;
    for (int round = 1; round <= 200; ++round) {
      solveAt(T);
      bool done = false;
      if (nr == 1) {
        const int mark = roots[1] < s.VKrit[i] ? -1 : 1;
        if (firstOne) {
          step *= 0.1;
          if (std::fabs(step) < 1e-5) step = 0.01 * T;
          firstOne = false;
        } else if (mark != markLast) {
          step *= 0.1;
        }
        markLast = mark;
        step = WithSign(step, -mark);  // liquid: raise T, vapour: lower T
      } else {
        F = MaxwellTest(T, p, a, b, c, d, roots);
        if (firstThree) {
          if (std::fabs(step) < 1e-5) step = 0.01 * T;
          step = WithSign(step, -F);
          firstThree = false;
        } else {
          if (std::fabs(F) < 5e-5) {
            done = true;
          } else if (std::fabs(F - FLast) > 1e-7) {
            step = -(T - TLast) * F / (F - FLast);
          } else {
            step = WithSign(0.01 * T, F - FLast);
          }
        }
        FLast = F;
        TLast = T;
      }
      if (std::fabs(step) > 0.01 * T) step = WithSign(0.01 * T, step);
      if (!done && (std::fabs(step) < 1e-9 || std::fabs(step / T) < 1e-12)) done = true;
      if (done) {
        Tio = T;
        if (out) {
          out->T = T;
          out->p = p;
          out->vL = LiquidRoot(roots);
          out->vV = VapourRoot(roots, nr);
        }
        return 0;
      }
      T = chk::Fin(T + step);
    }
    return -1;
  } catch (const NumericFault&) {
    return -1;
  }
}

void EOSAllP0(Session& s, double T, int16_t& bad) {
  bad = 0;
  for (int i = 1; i <= s.NKomp; ++i) {
    float p0 = 0;
    if (T < s.TKrit[i]) {
      try {
        double a, b, c, d;
        EOSPureAtOne(s, i, T, a, b, c, d);
        s.EOSPar[1][i] = a;
        s.EOSPar[2][i] = b;
        s.EOSPar[3][i] = c;
        s.EOSPar[4][i] = d;
        EOSSatOut out;
        if (EOSPureSatP(s, i, T, 0.0, a, b, c, d, out) == 0) p0 = CSng(out.p);
      } catch (const NumericFault&) {
        p0 = 0;
      }
    }
    s.P0[i] = p0;
    if (p0 == 0) bad = static_cast<int16_t>(i);
  }
}

int16_t EOSPhi0(Session& s, double T, int model) {
  Vec<double>& tmp = s.EOSScratch.PhiV;
  try {
    for (int i = 1; i <= s.NKomp; ++i) {
      double a, b, c, d;
      EOSPureAtOne(s, i, T, a, b, c, d);
      EOSRoots roots{};
      int16_t nr = 0, err = 0;
      const double p = s.P0[i];
      EOSSolve(T, p, 0.0, a, b, c, d, roots, nr, err);
      if (err != 0) return -1;
      tmp[i] = EOSLnPhi(T, p, VapourRoot(roots, nr), model, a, b, c, d, 0, 0, 0, 0);
    }
  } catch (const NumericFault&) {
    return -1;
  }
  for (int i = 1; i <= s.NKomp; ++i) s.Phi0[i] = tmp[i];
  return 0;
}

}  // namespace peq
