// Mixing gap of the binary (1, 2) from delta(M)g = GM of GMix: mode 0 the function, mode 1 and 2
// its first and second derivatives to x2 (J/mol = kJ/kmol).
#include "engine/gap.h"

#include <cmath>

#include "engine/kernel.h"
#include "models/gmix.h"
#include "models/vappressure.h"
#include "session/numeric.h"

namespace peq {

namespace {

// Newton of SolveGMDeriv: round limit and the step of its difference slope.
constexpr int kNewtonRounds = 150;
constexpr double kSlopeStep = 1E-9;

// Marches of FindGM2Zeros over the second derivative.
constexpr double kMarchStart = 1E-5;
constexpr double kMarchStep = 0.002;
constexpr double kMarchEnd = 1E-5;
constexpr int kMarchRounds = 550;

// Common-tangent iteration of Binodal.
constexpr double kBinodalA = 5E-5;
constexpr double kBinodalB = 0.99995;
constexpr double kTangentTol = 0.001;
constexpr int kTangentRounds = 500;

// Secant of GapRange on the difference of the two bubble temperatures.
constexpr double kSecantStep = 0.1;
constexpr int kSecantRounds = 100;
constexpr double kSecantTol = 0.001;

constexpr const char* kMsgHomogeneous =
    "for the 2nd derivation of GM to x2 no solution found => homogeneous mixture";
constexpr const char* kMsgOne = "for GM2 only found one solution";
constexpr const char* kMsgDouble = "(double solution)";
constexpr const char* kMsgMore = "for GM2 more than two solutions found";
constexpr const char* kMsgE1 = "calculation failed (E1)";
constexpr const char* kMsgE2 = "calculation failed (E2)";
constexpr const char* kMsgE3 = "calculation failed (E3)";
constexpr const char* kMsgE4 = "calculation failed (E4)";
constexpr const char* kMsgFailed = "calculation failed";
constexpr const char* kMsgNoGap = "no mixing gap in the T-range considered";

// GM of GMix in the given mode; err -1 when GMix failed. Gid carries the ideal part between
// calls as GMix expects (it keeps it at the pure ends in modes 1 and 2).
double GM(Session& s, double T, int16_t mode, double x, double& Gid, int16_t& err) {
  double GE = 0.0, GMv = 0.0;
  err = 0;
  GMix(s, T, mode, x, Gid, GE, GMv, err);
  return GMv;
}

// One march of FindGM2Zeros from x with the step d. Returns true when it ended with |d| below
// 1E-5: x is then a zero of the second derivative.
bool March(Session& s, double T, double& x, double d) {
  double gLast = kMarchStart;
  double Gid = 0.0;
  int count = 0;
  for (;;) {
    x += d;
    ++count;
    if (!(x > 0.0 && x < 1.0)) {
      x -= d;
      d /= 2.0;
      continue;
    }
    int16_t err = 0;
    double g = 0.0;
    if (T <= 1E-6) {
      x = 2.0;
    } else {
      g = GM(s, T, 2, x, Gid, err);
      if (err != 0) x = 2.0;
    }
    if (x <= 1.0) {
      const double r = chk::Div(gLast, g);
      gLast = g;
      if (r < 0.0) d = -0.1 * d;
    }
    if (std::fabs(d) < kMarchEnd || count > kMarchRounds || !(x > 0.0 && x < 1.0)) break;
  }
  return std::fabs(d) < kMarchEnd;
}

// Bubble temperature at p of the binary liquid x2 (pair (1, 2)); 0 when there is none.
double BubbleTAt(Session& s, double p, double x2, double TStart, Vec<double>& x, const Vec<double>& y0) {
  x[1] = 1.0 - x2;
  x[2] = x2;
  double T = TStart, vL = 0.0, vV = 0.0;
  int16_t warn = 0;
  return CalcBubbleT(s, p, x, T, y0, warn, s.KWert, vL, vV);
}

}  // namespace

// A failing gamma call inside GMix is no fault here: GMix then gives the values of gamma = 1 and
// the Newton goes on with them; only an arithmetic fault ends it.
void SolveGMDeriv(Session& s, double T, double Target, double& x, double eps, int16_t& ok, int16_t Order) {
  ok = 0;
  try {
    double Gid = 0.0, xOld = x;
    int count = 0;
    for (;;) {
      ++count;
      int16_t err = 0;
      const double g0 = GM(s, T, Order, x, Gid, err);
      const double g1 = GM(s, T, Order, x + kSlopeStep, Gid, err);
      const double slope = chk::Div(g1 - g0, kSlopeStep);
      xOld = x;
      x = chk::Fin(x + chk::Div(Target - g0, slope));
      if (x < 0.0) x = std::fabs(x);
      if (x > 1.0) x = 1.0 - (x - Int(x)) / 2.0;
      if (std::fabs(xOld - x) < eps || count > kNewtonRounds) break;
    }
    if (std::fabs(xOld - x) < eps && x > 0.0 && x < 1.0) {
      ok = -1;
      return;
    }
  } catch (const NumericFault&) {
  }
  ok = 0;
  x = 0.0;
}

void FindGM2Zeros(Session& s, double T, double& x1, double& x2, std::string& Msg) {
  Msg.clear();
  int zeros = 0;
  try {
    double xs = 0.999;
    int16_t ok = 0;
    SolveGMDeriv(s, T, 0.0, xs, 1E-7, ok, 2);
    if (ok != 0) {
      const double start[2] = {kMarchStart, 1.0 - kMarchStart};
      const double step[2] = {kMarchStep, -kMarchStep};
      for (int m = 0; m < 2; ++m) {
        double x = start[m];
        if (!March(s, T, x, step[m])) break;
        ++zeros;
        if (zeros == 1) x1 = x;
        else if (zeros == 2) x2 = x;
      }
    }
  } catch (const NumericFault&) {
    // A fault ends the search with the zeros found so far.
  }
  if (zeros == 0) Msg = kMsgHomogeneous;
  else if (zeros == 1) Msg = kMsgOne;
  else if (zeros == 2 && std::fabs(x2 - x1) < 1E-4) Msg = kMsgDouble;
  else if (zeros > 2) Msg = kMsgMore;
}

bool Binodal(Session& s, double T, double& xA, double& xB, std::string& Msg) {
  FindGM2Zeros(s, T, xA, xB, Msg);
  if (!Msg.empty()) return false;
  try {
    double Gid = 0.0;
    int16_t err = 0;
    double slope = (GM(s, T, 1, xA, Gid, err) + GM(s, T, 1, xB, Gid, err)) / 2.0;
    xA = kBinodalA;
    xB = kBinodalB;
    int counter = 1;
    for (;;) {
      ++counter;
      int16_t okA = 0, okB = 0;
      SolveGMDeriv(s, T, slope, xA, 1E-7, okA, 1);
      SolveGMDeriv(s, T, slope, xB, 1E-7, okB, 1);
      if (okA == 0 || okB == 0) {
        Msg = kMsgE1;
        return false;
      }
      const double gA = GM(s, T, 0, xA, Gid, err);
      const double gB = GM(s, T, 0, xB, Gid, err);
      if (std::fabs(xB - xA) < 1E-7) {
        Msg = kMsgE2;
        return false;
      }
      const double sec = chk::Div(gB - gA, xB - xA);
      // The round limit ends the iteration with the current compositions: no failure.
      if (std::fabs(sec - slope) < kTangentTol || counter > kTangentRounds) return true;
      slope = sec;
    }
  } catch (const NumericFault&) {
    Msg = kMsgFailed;
    return false;
  }
}

bool GapRange(Session& s, double p, double TLo, double THi, double& T, double& xA, double& xB, int16_t& K,
              std::string& Msg) {
  Msg.clear();
  K = 0;
  if (s.NKomp < 2) {
    Msg = kMsgFailed;
    return false;
  }
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  Vec<double> x(m, 0.0);
  const Vec<double> y0(m, 0.0);
  try {
    // 1. The first T of the range with a binodal.
    const double dT = (THi - TLo) / 8.0;
    bool found = false;
    double t = TLo;
    for (int k = 0; k <= 8; ++k) {
      if (dT > 0.0 ? t > THi : t < THi) break;
      if (Binodal(s, t, xA, xB, Msg)) {
        found = true;
        break;
      }
      if (dT == 0.0) break;
      t += dT;
    }
    if (!found) {
      Msg = kMsgNoGap;
      return false;
    }
    Msg.clear();
    T = t;

    // 2. Starting value: the bubble temperature of the first liquid.
    double Tb = BubbleTAt(s, p, xA, T, x, y0);
    if (Tb == 0.0) Tb = BubbleTAt(s, p, xA, 0.0, x, y0);
    if (Tb == 0.0) Tb = BubbleTAt(s, p, xB, 0.0, x, y0);
    if (Tb == 0.0) {
      Msg = kMsgFailed;
      return false;
    }
    T = Tb;

    // 3. Secant on F(T) = Tbubble(xA) - Tbubble(xB) with the binodal at T: at the three-phase
    // temperature both liquids boil together.
    auto F = [&](double Tat, double start, double& f) {
      if (!Binodal(s, Tat, xA, xB, Msg)) {
        Msg = kMsgE4;
        return false;
      }
      const double ta = BubbleTAt(s, p, xA, start, x, y0);
      const double tb = BubbleTAt(s, p, xB, start, x, y0);
      if (ta == 0.0 || tb == 0.0) {
        Msg = kMsgFailed;
        return false;
      }
      f = ta - tb;
      return true;
    };
    double step = kSecantStep;
    // A zero slope in the first round leaves no converged T: it must end as E3.
    double delta = 1.0;
    int counter = 0;
    do {
      double F1 = 0.0, F2 = 0.0;
      if (!F(T, T, F1)) return false;
      const double TOld = T;
      T = T + step;
      if (!F(T, 0.0, F2)) return false;
      const double slope = (F2 - F1) / step;
      if (static_cast<float>(slope) == 0.0f) {
        counter = kSecantRounds;
      } else {
        step = chk::Div(-F2, slope);
        T = T + step;
        delta = std::fabs(T - TOld);
      }
      ++counter;
    } while (delta >= kSecantTol && counter <= kSecantRounds);
    K = static_cast<int16_t>(counter);

    // 4. The compositions of the final T.
    if (delta < kSecantTol) {
      if (!Binodal(s, T, xA, xB, Msg)) {
        Msg = kMsgE4;
        return false;
      }
      Msg.clear();
      return true;
    }
    Msg = kMsgE3;
    return false;
  } catch (const NumericFault&) {
    Msg = kMsgFailed;
    return false;
  }
}

void GapSuche(Session& s, int16_t& found, int16_t Komp1, int16_t Komp2, double& xA, double& xB, float& GapX1,
              float& GapX2, float& GapW1, float& GapW2, int16_t& code) {
  found = 0;
  code = 0;
  if (s.NKomp < 2) return;
  std::string Msg;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  Vec<double> x(m, 0.0);
  const Vec<double> y0(m, 0.0);
  try {
    double W = 0.0;
    double T = s.TIso;
    if (s.IsoArt == 2) {
      int16_t dT = 0, e1 = 0, e2 = 0;
      std::string c1 = s.P0Eq[1], c2 = s.P0Eq[2];
      const double Tb1 = BoilingTAtP(s, 1, s.PIso, c1, false, dT, e1);
      const double Tb2 = BoilingTAtP(s, 2, s.PIso, c2, false, dT, e2);
      if (e1 != 0 || e2 != 0 || Tb1 == 0.0 || Tb2 == 0.0) {
        code = 1;
        return;
      }
      double TLo = std::fmin(Tb1, Tb2), THi = std::fmax(Tb1, Tb2);
      if (THi - TLo < 5.0) TLo -= 10.0;
      int16_t K = 0;
      if (!GapRange(s, s.PIso, TLo, THi, T, xA, xB, K, Msg)) return;
      W = T;
    } else {
      if (!Binodal(s, s.TIso, xA, xB, Msg)) return;
      // The pressure of the three-phase line: the bubble point of the first liquid.
      x[1] = 1.0 - xA;
      x[2] = xA;
      double vL = 0.0, vV = 0.0;
      W = CalcBubbleP(s, s.TIso, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    }
    found = -1;
    // Turned to the pair's orientation: x for the pair (1, 2), 1 - x for (2, 1).
    const double k1 = Komp1, k2 = Komp2;
    GapX1 = CSng((k1 - 1.0) - (k1 - k2) * xA);
    GapX2 = CSng((k1 - 1.0) - (k1 - k2) * xB);
    if (s.NoDia == 3 || s.NoDia == 6) {
      // The x-y diagrams: the vapour in equilibrium with the gap, y = K x of Komp2.
      const double xg = s.NoDia == 3 ? xA : xB;
      x[1] = 1.0 - xg;
      x[2] = xg;
      double vL = 0.0, vV = 0.0;
      double r = 0.0;
      if (s.NoDia == 3) {
        r = CalcBubbleP(s, s.TIso, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
      } else {
        double Tb = T;
        int16_t warn = 0;
        r = CalcBubbleT(s, s.PIso, x, Tb, y0, warn, s.KWert, vL, vV);
      }
      W = r > 0.0 ? s.KWert[static_cast<std::size_t>(Komp2)] * x[static_cast<std::size_t>(Komp2)] : 0.0;
    }
    GapW1 = CSng(W);
    GapW2 = GapW1;
  } catch (const NumericFault&) {
    found = 0;
  }
}

}  // namespace peq
