// Safeguarded bubble points and flashes: the plain routine first, then one retry from
// independent start values when its answer failed or is trivial (see safeguard.h).
#include "engine/safeguard.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include <boost/math/tools/toms748_solve.hpp>

#include "engine/flash.h"
#include "engine/flash_phases.h"
#include "engine/kernel.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_solve.h"
#include "models/pureprops.h"
#include "session/numeric.h"

namespace peq {

namespace {

// All |ln K| below kLnKSame: the two compositions coincide. |vV - vL|/vV below kVolSame: the two
// molar volumes coincide. The plain iterations stop as well on near-trivial answers, whose
// volumes differ by a few tenths of a per cent (methane/ethane at 6000 kPa: 0.04 % and 0.3 %);
// a real phase split comes that close only within about 1E-4 of the critical pressure.
constexpr double kLnKSame = 1e-3;
constexpr double kVolSame = 1e-2;
// How closely the phases of a retried answer must sum to 1: the tolerance of each routine on
// its flash or bubble function (CalcBubbleP |ln sum y| 1E-11, the phi-phi CalcBubbleT 2E-6,
// FlashTP 1E-7), a little widened for rounding. The gamma-phi CalcBubbleT stops on the step in
// T (2E-4 K); 1E-4 on the sum is the same order for every model in use.
constexpr double kSumBubbleP = 1.01e-11;
constexpr double kSumBubbleTPhi = 2.02e-6;
constexpr double kSumBubbleTGamma = 1e-4;
constexpr double kSumFlash = 1e-7;
// Successive substitution of the FlashTP retry.
constexpr int kRoundsSS = 2000;
// All substitution rounds of one safeguarded flash together. The eta flashes call the TP flash
// inside a march and a root finder; where it does not converge (a state at the edge of the
// two-phase region), each call would spend its whole 2000 rounds, and a ten-component mixture
// then took seconds for one point. Past this budget the retry fails.
constexpr int kRoundsBudget = 4000;
constexpr double kTolSS = 1e-10;  // on the largest change of ln K in a round
// The bracketing searches.
constexpr int kMarchSteps = 60;
constexpr std::uintmax_t kRootIter = 100;
constexpr int kRootBits = 44;       // relative width of the final bracket, about 6E-14
constexpr double kEtaMatch = 1e-6;  // the vapour fraction of the final flash against the one asked for

// The stability test of a phi-phi bubble temperature. It runs on answers whose vapour volume is
// below kNearCritical times the liquid's (the critical region, where the secant can stop on two
// supercritical phases of equal fugacities that are no bubble point); a point far from it costs a
// comparison. The liquid is unstable when a trial phase reaches a tangent-plane distance below
// -kTpdUnstable: a converged bubble point has |ln sum y| below 2E-6, so its liquid stays well
// above that (its incipient vapour lies on the tangent plane).
constexpr double kNearCritical = 2.0;
constexpr double kTpdUnstable = 1e-4;
constexpr int kRoundsTpd = 300;
constexpr double kTolTpd = 1e-6;      // on the largest change of ln W in a round
// A trial within 1E-3 of x has fallen back on it: a stationary point that close lies far less
// than kTpdUnstable below the tangent plane.
constexpr double kTrivialTpd = 1e-6;  // on the sum of (w(i) - x(i))^2
// The bubble temperature below an unstable answer: steps down by kStepBelow of T, at most
// kStepsBelow of them, then halving of the bracket to kBracketBelow of T.
constexpr double kStepBelow = 0.02;
constexpr int kStepsBelow = 30;
constexpr double kBracketBelow = 2e-3;

using boost::math::tools::eps_tolerance;
using boost::math::tools::toms748_solve;

void SizeWork(Session& s) {
  Session::SafeguardWorkArrays& w = s.SafeWork;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  if (w.Z.size() != m)
    for (Vec<double>* v : {&w.Z, &w.X, &w.Y, &w.K, &w.LnK}) v->assign(m, 0.0);
}

// The result arrays as the first attempt left them, and the caller's own arrays.
void Save(Session& s, const Vec<double>* a1, const Vec<double>* a2, const Vec<double>* a3) {
  Session::SafeguardWorkArrays& w = s.SafeWork;
  w.P0 = s.P0;
  w.VLiq = s.VLiq;
  w.Phi0 = s.Phi0;
  w.BVir = s.BVir;
  w.Gamma = s.Gamma;
  w.PhiVMix = s.PhiVMix;
  w.PhiKorr = s.PhiKorr;
  w.KWert = s.KWert;
  w.YGas = s.YGas;
  w.XLiq = s.XLiq;
  w.Comp0 = s.CompMat[0];
  w.Comp1 = s.CompMat[1];
  if (a1) w.Arg1 = *a1;
  if (a2) w.Arg2 = *a2;
  if (a3) w.Arg3 = *a3;
}

void Restore(Session& s, Vec<double>* a1, Vec<double>* a2, Vec<double>* a3) {
  const Session::SafeguardWorkArrays& w = s.SafeWork;
  s.P0 = w.P0;
  s.VLiq = w.VLiq;
  s.Phi0 = w.Phi0;
  s.BVir = w.BVir;
  s.Gamma = w.Gamma;
  s.PhiVMix = w.PhiVMix;
  s.PhiKorr = w.PhiKorr;
  s.KWert = w.KWert;
  s.YGas = w.YGas;
  s.XLiq = w.XLiq;
  s.CompMat[0] = w.Comp0;
  s.CompMat[1] = w.Comp1;
  if (a1) *a1 = w.Arg1;
  if (a2) *a2 = w.Arg2;
  if (a3) *a3 = w.Arg3;
}

bool PureLiquid(const Session& s, const Vec<double>& x) {
  for (int i = 1; i <= s.NKomp; ++i)
    if (x[i] == 1.0) return true;
  return false;
}

// Liquid and vapour of the phi-phi concept are the same phase (or the vapour is the denser).
bool SameVolumes(double vL, double vV) { return !(vV > vL) || vV - vL <= kVolSame * vV; }

// The sum of YGas lies within tol of 1.
bool SumNearOne(const Session& s, double tol) {
  double S = 0;
  for (int i = 1; i <= s.NKomp; ++i) S += s.YGas[i];
  return std::fabs(S - 1.0) <= tol;
}

// The bubble pressure is a real two-phase answer.
bool BubblePReal(const Session& s, double p, double vL, double vV) {
  return p > 0.0 && (!s.Konzept || !SameVolumes(vL, vV));
}

bool BubbleTReal(const Session& s, double T, double vL, double vV) {
  return T > 0.0 && (!s.Konzept || !SameVolumes(vL, vV));
}

// The flash state in XLiq and YGas at T, p is a real two-phase answer: both compositions are
// mole fractions, and the phases differ in composition or (phi-phi) in density. With equal
// compositions the cubic of that composition decides: one real root, or a liquid and a vapour
// root that coincide, is one phase.
bool FlashReal(Session& s, double T, double p) {
  const int n = s.NKomp;
  bool sameComp = true;
  for (int i = 1; i <= n; ++i) {
    const double x = s.XLiq[i], y = s.YGas[i];
    if (!(x >= 0.0 && x <= 1.0 && y >= 0.0 && y <= 1.0)) return false;
    if (x == 0.0 && y == 0.0) continue;
    if (x == 0.0 || y == 0.0 || std::fabs(std::log(y / x)) >= kLnKSame) sameComp = false;
  }
  if (!sameComp || !s.Konzept) return true;
  try {
    EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
    EOSMixPar& m = s.EOSScratch.Liq;
    EOSMixAtX(s, 0, s.XLiq, T, s.EOSModel, s.MixRule, s.GEModelEOS, m);
    EOSRoots r{};
    int16_t nr = 0, err = 0;
    EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, r, nr, err);
    if (err != 0 || nr == 1) return false;
    return !SameVolumes(LiquidRoot(r), r[3]);
  } catch (const NumericFault&) {
    return false;
  }
}

// ------------------------------------------------------------------------- stability

// ln phi(i) of the composition z at T, p into lnPhi, on the root of the lower Gibbs energy when
// the cubic has three (the mixture tables of T must stand). Parameters in m.
void LnPhiStableRoot(Session& s, double T, double p, const Vec<double>& z, EOSMixPar& m, Vec<double>& lnPhi) {
  EOSMixAtX(s, 0, z, T, s.EOSModel, s.MixRule, s.GEModelEOS, m);
  EOSRoots r{};
  int16_t nr = 0, err = 0;
  EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, r, nr, err);
  if (err != 0) throw NumericFault("no root of the cubic");
  double v = LiquidRoot(r);
  if (nr == 3 && EOSLnPhiMix(T, p, r[3], s.EOSModel, m.a, m.b, m.c, m.d) <
                     EOSLnPhiMix(T, p, v, s.EOSModel, m.a, m.b, m.c, m.d))
    v = r[3];
  for (int i = 1; i <= s.NKomp; ++i)
    lnPhi[i] = chk::Ln(EOSLnPhi(T, p, v, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]));
}

// Tangent-plane test of the liquid x at T, p (phi-phi): with d(i) = ln x(i) + ln phi(i)(x), the
// trial phase W goes by successive substitution, W(i) = exp(d(i) - ln phi(i)(w)), w = W/sum W,
// which lowers tm = 1 + sum W(i) (ln W(i) + ln phi(i)(w) - d(i) - 1) each round; tm < 0 shows a
// phase of lower Gibbs energy, so that x is not stable. Two trials from Wilson's K, the
// vapour-like x(i) K(i) first, then the liquid-like x(i)/K(i). (The answer's own vapour is no
// good trial: on the near-trivial answers it lies within the tolerance of x, and the vapour that
// shows the liquid unstable lies elsewhere.) Both phases take the root of the lower Gibbs
// energy. With untilUnstable a trial stops as soon as tm falls below -kTpdUnstable. Returns the
// lowest tm (0 when every trial fell back on x); that trial's w in EOSScratch.PhiV.
// Work arrays: the kernel's dew scratch (unused in the phi-phi concept) and the EOS scratch.
double LiquidTpd(Session& s, double T, double p, const Vec<double>& x, bool untilUnstable) {
  const int n = s.NKomp;
  Vec<double>& xf = s.KernScratch.One;
  Vec<double>& d = s.KernScratch.K2;
  Vec<double>& W = s.KernScratch.X;
  Vec<double>& w = s.KernScratch.Y;
  Vec<double>& lnPhi = s.EOSScratch.PhiL;
  Vec<double>& best = s.EOSScratch.PhiV;
  EOSMixPar& m = s.EOSScratch.Liq;
  EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
  for (int i = 1; i <= n; ++i) xf[i] = x[i] < 1e-15 ? 1e-15 : x[i];
  LnPhiStableRoot(s, T, p, xf, m, lnPhi);
  for (int i = 1; i <= n; ++i) d[i] = chk::Ln(xf[i]) + lnPhi[i];
  double tmMin = 0;
  for (const double dir : {1.0, -1.0}) {
    for (int i = 1; i <= n; ++i) W[i] = xf[i] * std::pow(WilsonK(s, i, T, p), dir);
    double tm = 0;
    bool trivial = false;
    for (int round = 1; round <= kRoundsTpd; ++round) {
      double S = 0;
      for (int i = 1; i <= n; ++i) S += W[i];
      double dist = 0;
      for (int i = 1; i <= n; ++i) {
        w[i] = chk::Div(W[i], S);
        dist += (w[i] - xf[i]) * (w[i] - xf[i]);
      }
      if (dist < kTrivialTpd) {
        trivial = true;
        break;
      }
      LnPhiStableRoot(s, T, p, w, m, lnPhi);
      tm = 1.0;
      double change = 0;
      for (int i = 1; i <= n; ++i) {
        tm += W[i] * (chk::Ln(W[i]) + lnPhi[i] - d[i] - 1.0);
        const double lnW = d[i] - lnPhi[i];
        change = std::max(change, std::fabs(lnW - chk::Ln(W[i])));
        W[i] = chk::Exp(lnW);
      }
      if (change < kTolTpd || (untilUnstable && tm < -kTpdUnstable)) break;
    }
    if (!trivial && tm < tmMin) {
      tmMin = tm;
      for (int i = 1; i <= n; ++i) best[i] = w[i];
    }
    if (untilUnstable && tmMin < -kTpdUnstable) break;
  }
  return tmMin;
}

// The liquid x of a phi-phi bubble temperature is not shown unstable at T, p. Answers outside the
// critical region pass untested unless always; a test that faults shows nothing.
bool LiquidStable(Session& s, double p, const Vec<double>& x, double T, double vL, double vV, bool always) {
  if (!s.Konzept || PureLiquid(s, x) || (!always && !(vV < kNearCritical * vL))) return true;
  try {
    return LiquidTpd(s, T, p, x, true) >= -kTpdUnstable;
  } catch (const NumericFault&) {
    return true;
  }
}

// The same, and the liquid is not shown unstable (tested in the critical region, or always).
bool BubbleTStable(Session& s, double p, const Vec<double>& x, double T, double vL, double vV, bool always) {
  return BubbleTReal(s, T, vL, vV) && LiquidStable(s, p, x, T, vL, vV, always);
}

// ------------------------------------------------------------------------- Wilson starts

// Wilson's bubble pressure at T of the liquid x, p = sum x(i) pc(i) exp(5.373 (1 + w(i))
// (1 - Tc(i)/T)), with the vapour y(i) = x(i) K(i) into y.
double WilsonBubbleP(const Session& s, double T, const Vec<double>& x, Vec<double>& y) {
  const int n = s.NKomp;
  double p = 0;
  for (int i = 1; i <= n; ++i) {
    y[i] = x[i] * WilsonK(s, i, T, 1.0);
    p += y[i];
  }
  for (int i = 1; i <= n; ++i) y[i] = chk::Div(y[i], p);
  return p;
}

// Wilson's bubble temperature at p of the liquid x: sum x(i) K(i)(T, p) = 1, which rises
// monotonically with T, solved by the bracketing root finder; y as above. 0 when the
// correlation has no bubble point at this p.
double WilsonBubbleT(const Session& s, double p, const Vec<double>& x, Vec<double>& y) {
  const int n = s.NKomp;
  double tcMin = s.TKrit[1], tcMax = s.TKrit[1];
  for (int i = 2; i <= n; ++i) {
    tcMin = std::min(tcMin, double(s.TKrit[i]));
    tcMax = std::max(tcMax, double(s.TKrit[i]));
  }
  auto f = [&](double T) {
    double sum = 0;
    for (int i = 1; i <= n; ++i) sum += x[i] * WilsonK(s, i, T, p);
    return sum - 1.0;
  };
  const double lo = 0.05 * tcMin, hi = 20.0 * tcMax;
  const double flo = f(lo), fhi = f(hi);
  if (!(flo < 0.0 && fhi > 0.0)) return 0.0;
  std::uintmax_t iter = kRootIter;
  const auto r = toms748_solve(f, lo, hi, flo, fhi, eps_tolerance<double>(kRootBits), iter);
  const double T = 0.5 * (r.first + r.second);
  double sum = 0;
  for (int i = 1; i <= n; ++i) {
    y[i] = x[i] * WilsonK(s, i, T, p);
    sum += y[i];
  }
  for (int i = 1; i <= n; ++i) y[i] = chk::Div(y[i], sum);
  return T;
}

// Wilson's dew temperature at p of the vapour y: sum y(i)/K(i)(T, p) = 1, which falls
// monotonically with T; 0 when the correlation has none.
double WilsonDewT(const Session& s, double p, const Vec<double>& y) {
  const int n = s.NKomp;
  double tcMin = s.TKrit[1], tcMax = s.TKrit[1];
  for (int i = 2; i <= n; ++i) {
    tcMin = std::min(tcMin, double(s.TKrit[i]));
    tcMax = std::max(tcMax, double(s.TKrit[i]));
  }
  auto f = [&](double T) {
    double sum = 0;
    for (int i = 1; i <= n; ++i)
      if (y[i] > 0.0) sum += chk::Div(y[i], WilsonK(s, i, T, p));
    return sum - 1.0;
  };
  const double lo = 0.3 * tcMin, hi = 20.0 * tcMax;
  const double flo = f(lo), fhi = f(hi);
  if (!(flo > 0.0 && fhi < 0.0)) return 0.0;
  std::uintmax_t iter = kRootIter;
  const auto r = toms748_solve(f, lo, hi, flo, fhi, eps_tolerance<double>(kRootBits), iter);
  return 0.5 * (r.first + r.second);
}

// ------------------------------------------------------------------------- bubble points

// The second attempt at a bubble pressure that was no real answer: the kernel's iteration from
// Wilson's start. Returns p (vL, vV set) when it is real and its vapour sums to 1, else 0; the
// arrays then as this attempt left them. Nothing is tried for the gamma-phi concept (its
// iteration does not depend on the start), a pure component, or T outside 0..TKritMax.
bool BubblePRetryable(const Session& s, double T, const Vec<double>& x) {
  return s.Konzept && s.NKomp >= 2 && T > 0.0 && !(s.TKritMax >= 1e-11 && T >= s.TKritMax) && !PureLiquid(s, x) &&
         !(s.NKomp == 2 && x[1] == 0.0);
}

double BubblePRetry(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, Vec<double>& PhiK,
                    Vec<double>& K, double& vL, double& vV) {
  if (!BubblePRetryable(s, T, x)) return 0.0;
  SizeWork(s);
  try {
    const double pw = WilsonBubbleP(s, T, x, s.SafeWork.Y);
    double vL2 = 0, vV2 = 0;
    const double p = CalcBubbleP(s, T, x, pw, s.SafeWork.Y, gamma, PhiK, K, vL2, vV2);
    if (!BubblePReal(s, p, vL2, vV2) || !SumNearOne(s, kSumBubbleP)) return 0.0;
    vL = vL2;
    vV = vV2;
    return p;
  } catch (const NumericFault&) {
    return 0.0;
  }
}

// The same for a bubble temperature, in both concepts (the gamma-phi iteration starts from the
// Wilson T); Warn is set on success.
double BubbleTRetry(Session& s, double p, const Vec<double>& x, int16_t& Warn, Vec<double>& K, double& vL,
                    double& vV) {
  if (s.NKomp < 2 || !(p > 0.0) || PureLiquid(s, x)) return 0.0;
  SizeWork(s);
  try {
    double Tw = WilsonBubbleT(s, p, x, s.SafeWork.Y);
    if (!(Tw >= 1.0)) return 0.0;
    double vL2 = 0, vV2 = 0;
    int16_t warn2 = 0;
    const double T = CalcBubbleT(s, p, x, Tw, s.SafeWork.Y, warn2, K, vL2, vV2);
    if (!BubbleTStable(s, p, x, T, vL2, vV2, true) || !SumNearOne(s, s.Konzept ? kSumBubbleTPhi : kSumBubbleTGamma))
      return 0.0;
    vL = vL2;
    vV = vV2;
    Warn = warn2;
    return T;
  } catch (const NumericFault&) {
    return 0.0;
  }
}

// A phi-phi bubble temperature below T1, an answer on a liquid x that is not stable there (the
// liquid grows more stable as T falls): T falls by kStepBelow of T a step until x is stable, and
// the bracket between the last unstable and the first stable temperature is halved on the same
// test down to kBracketBelow of T. The kernel's iteration then starts at the stable end, with the
// trial phase of the unstable end (run to its stationary point: the incipient vapour) as the
// vapour. Its answer is accepted as the other retries, and only on a stable liquid; else 0.
double BubbleTBelow(Session& s, double p, const Vec<double>& x, double T1, int16_t& Warn, Vec<double>& K,
                    double& vL, double& vV) {
  const int n = s.NKomp;
  if (!s.Konzept || n < 2 || !(p > 0.0) || !(T1 > 0.0) || PureLiquid(s, x)) return 0.0;
  SizeWork(s);
  try {
    double Tu = T1, Ts = 0;
    for (int k = 1; k <= kStepsBelow && !(Ts > 0.0); ++k) {
      const double T = Tu * (1.0 - kStepBelow);
      if (LiquidTpd(s, T, p, x, true) >= -kTpdUnstable)
        Ts = T;
      else
        Tu = T;
    }
    if (!(Ts > 0.0)) return 0.0;
    while (Tu - Ts > kBracketBelow * Ts) {
      const double T = 0.5 * (Ts + Tu);
      if (LiquidTpd(s, T, p, x, true) >= -kTpdUnstable)
        Ts = T;
      else
        Tu = T;
    }
    if (!(LiquidTpd(s, Tu, p, x, false) < 0.0)) return 0.0;
    Vec<double>& y = s.SafeWork.Y;
    for (int i = 1; i <= n; ++i) y[i] = s.EOSScratch.PhiV[i];
    double Tin = Ts, vL2 = 0, vV2 = 0;
    int16_t warn2 = 0;
    const double T = CalcBubbleT(s, p, x, Tin, y, warn2, K, vL2, vV2);
    if (!BubbleTStable(s, p, x, T, vL2, vV2, true) || !SumNearOne(s, kSumBubbleTPhi)) return 0.0;
    vL = vL2;
    vV = vV2;
    Warn = warn2;
    return T;
  } catch (const NumericFault&) {
    return 0.0;
  }
}

// The retries of a bubble temperature whose first answer Tb was none: from Wilson's start, and
// when Tb was a two-phase answer on an unstable liquid (unstable), from below Tb.
double BubbleTRetries(Session& s, double p, const Vec<double>& x, double Tb, bool unstable, int16_t& Warn,
                      Vec<double>& K, double& vL, double& vV) {
  const double T2 = BubbleTRetry(s, p, x, Warn, K, vL, vV);
  if (T2 > 0.0 || !unstable) return T2;
  return BubbleTBelow(s, p, x, Tb, Warn, K, vL, vV);
}

// Both attempts without keeping the arrays of the first (inside the retries of the flashes,
// whose own copy of the arrays stands).
double BubblePTwice(Session& s, double T, const Vec<double>& x, const Vec<double>& yStart, double& vL,
                    double& vV) {
  const double p = CalcBubbleP(s, T, x, 0.0, yStart, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  if (BubblePReal(s, p, vL, vV)) return p;
  return BubblePRetry(s, T, x, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
}

double BubbleTTwice(Session& s, double p, const Vec<double>& x, const Vec<double>& yStart, double& vL,
                    double& vV) {
  double Tin = 0;
  int16_t warn = 0;
  const double T = CalcBubbleT(s, p, x, Tin, yStart, warn, s.KWert, vL, vV);
  if (BubbleTStable(s, p, x, T, vL, vV, false)) return T;
  return BubbleTRetries(s, p, x, T, BubbleTReal(s, T, vL, vV), warn, s.KWert, vL, vV);
}

// ------------------------------------------------------------------------- flashes

// Rachford-Rice: sum z(i) (K(i) - 1)/(1 + beta (K(i) - 1)) = 0, which falls monotonically
// between its poles 1/(1 - Kmax) and 1/(1 - Kmin); solved there by the bracketing root finder.
// False when all K lie on one side of 1 (no split for these K).
bool RachfordRice(const Session& s, double& beta) {
  const Session::SafeguardWorkArrays& w = s.SafeWork;
  const int n = s.NKomp;
  double kMin = 0, kMax = 0;
  bool any = false;
  for (int i = 1; i <= n; ++i) {
    if (w.Z[i] <= 0.0) continue;
    if (!any) {
      kMin = kMax = w.K[i];
      any = true;
    }
    kMin = std::min(kMin, w.K[i]);
    kMax = std::max(kMax, w.K[i]);
  }
  if (!any || !(kMax > 1.0 && kMin < 1.0)) return false;
  auto f = [&](double b) {
    double F = 0;
    for (int i = 1; i <= n; ++i)
      if (w.Z[i] > 0.0) F += chk::Div(w.Z[i] * (w.K[i] - 1.0), 1.0 + b * (w.K[i] - 1.0));
    return F;
  };
  const double poleLo = 1.0 / (1.0 - kMax), poleHi = 1.0 / (1.0 - kMin);
  const double gap = 1e-12 * (poleHi - poleLo);
  const double lo = poleLo + gap, hi = poleHi - gap;
  const double flo = f(lo), fhi = f(hi);
  if (!(flo > 0.0 && fhi < 0.0)) return false;
  std::uintmax_t iter = kRootIter;
  const auto r = toms748_solve(f, lo, hi, flo, fhi, eps_tolerance<double>(kRootBits), iter);
  beta = 0.5 * (r.first + r.second);
  return true;
}

// Every K of the feed's components is above 1.
bool AllAbove1(const Session& s) {
  for (int i = 1; i <= s.NKomp; ++i)
    if (s.SafeWork.Z[i] > 0.0 && !(s.SafeWork.K[i] > 1.0)) return false;
  return true;
}

// x(i) = z(i)/(1 + beta (K(i) - 1)) into XLiq and y = K x into YGas, both normalised; the sums
// before normalising into sx, sy.
void SplitPhases(Session& s, double beta, double& sx, double& sy) {
  const Session::SafeguardWorkArrays& w = s.SafeWork;
  const int n = s.NKomp;
  sx = 0;
  sy = 0;
  for (int i = 1; i <= n; ++i) {
    s.XLiq[i] = chk::Div(w.Z[i], 1.0 + beta * (w.K[i] - 1.0));
    s.YGas[i] = w.K[i] * s.XLiq[i];
    sx += s.XLiq[i];
    sy += s.YGas[i];
  }
  for (int i = 1; i <= n; ++i) {
    s.XLiq[i] = chk::Div(s.XLiq[i], sx);
    s.YGas[i] = chk::Div(s.YGas[i], sy);
  }
}

// New K values of the phases in XLiq, YGas at T, p: CalcKValues of the liquid (gamma-phi, which
// also renews Gamma, PhiKorr and KWert) or phi(L)/phi(V) of both cubics (phi-phi). Returns the
// largest change of ln K, or -1 when a model fails.
double NewK(Session& s, double T, double p, double& vL, double& vV) {
  Session::SafeguardWorkArrays& w = s.SafeWork;
  const int n = s.NKomp;
  if (!s.Konzept) {
    int16_t err = 0;
    CalcKValues(s, T, p, s.BVir, s.XLiq, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, s.KernScratch.Y, err);
    if (err != 0) return -1.0;
    for (int i = 1; i <= n; ++i) w.X[i] = s.KWert[i];
  } else {
    if (!BothPhases(s, T, p, vL, vV)) return -1.0;
    for (int i = 1; i <= n; ++i) w.X[i] = chk::Div(s.EOSScratch.PhiL[i], s.EOSScratch.PhiV[i]);
  }
  double change = 0;
  for (int i = 1; i <= n; ++i) {
    const double lnK = chk::Ln(w.X[i]);
    change = std::max(change, std::fabs(lnK - w.LnK[i]));
    w.LnK[i] = lnK;
    w.K[i] = w.X[i];
  }
  return change;
}

// FlashTP by successive substitution on K from Wilson's start, the feed in SafeWork.Z. Returns
// eta, or -1 when it does not converge, leaves 0..1, fails the sums or is one phase.
double FlashTPRetry(Session& s, double T, double p) {
  Session::SafeguardWorkArrays& w = s.SafeWork;
  const int n = s.NKomp;
  // The budget is spent: the march or root finder that called ends here (its caller catches).
  if (w.RoundsLeft <= 0) throw NumericFault("flash retry budget spent");
  try {
    for (int i = 1; i <= n; ++i) {
      s.PhiKorr[i] = 1.0;
      s.Gamma[i] = 1.0;
    }
    int16_t err = 0, dT = 0;
    AllPureProps(s, T, err, dT);
    if (err != 0) return -1.0;
    if (s.Konzept) EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
    for (int i = 1; i <= n; ++i) {
      w.K[i] = WilsonK(s, i, T, p);
      w.LnK[i] = chk::Ln(w.K[i]);
    }
    double beta = 0.5, sx = 0, sy = 0, vL = 0, vV = 0;
    bool converged = false;
    for (int round = 1; round <= kRoundsSS && !converged; ++round) {
      if (--w.RoundsLeft < 0) return -1.0;
      // Between the rounds the phases are kept inside 0..1: a split with K all on one side, or
      // outside the bounds, goes on from the nearer one-phase edge (the liquid x = z with its
      // incipient vapour, or the vapour y = z with its incipient liquid).
      if (!RachfordRice(s, beta)) beta = AllAbove1(s) ? 1.0 : 0.0;
      SplitPhases(s, std::clamp(beta, 0.0, 1.0), sx, sy);
      const double change = NewK(s, T, p, vL, vV);
      if (change < 0.0) return -1.0;
      converged = change < kTolSS;
    }
    if (!converged || !RachfordRice(s, beta)) return -1.0;
    SplitPhases(s, beta, sx, sy);
    if (!(beta >= 0.0 && beta <= 1.0)) return -1.0;
    if (std::fabs(sx - 1.0) > kSumFlash || std::fabs(sy - 1.0) > kSumFlash) return -1.0;
    if (!FlashReal(s, T, p)) return -1.0;
    return beta;
  } catch (const NumericFault&) {
    return -1.0;
  }
}

// FlashTP and, when its answer is not real, the retry; -1 when neither holds.
double FlashTPTwice(Session& s, double T, double p, const Vec<double>& z, bool& retried) {
  retried = false;
  const double eta = FlashTP(s, T, p, z);
  if (s.NKomp < 2) return eta;
  if (eta >= 0.0 && FlashReal(s, T, p)) return eta;
  // FlashTP has copied the feed into FlashWork.Z, even when z is one of the arrays it writes.
  SizeWork(s);
  for (int i = 1; i <= s.NKomp; ++i) s.SafeWork.Z[i] = s.FlashWork.Z[i];
  const double eta2 = FlashTPRetry(s, T, p);
  retried = eta2 >= 0.0;
  return eta2;
}

// The vapour fraction of the feed (SafeWork.Z) at T, p by FlashTPTwice, with the one-phase side
// filled in where FlashTP has no answer: 0 on the liquid side of the bubble point, 1 beyond.
double EtaOrSide(Session& s, double T, double p, bool liquidSide) {
  bool r = false;
  const double e = FlashTPTwice(s, T, p, s.SafeWork.Z, r);
  if (e >= 0.0) return e;
  return liquidSide ? 0.0 : 1.0;
}

// A root of g between a (g(a) = ga) and b (g(b) = gb) of opposite signs: the middle of the
// last bracket of the root finder.
template <class G>
double Bracketed(G g, double a, double b, double ga, double gb) {
  if (ga == 0.0) return a;
  if (gb == 0.0) return b;
  if (a > b) {
    std::swap(a, b);
    std::swap(ga, gb);
  }
  std::uintmax_t iter = kRootIter;
  const auto r = toms748_solve(g, a, b, ga, gb, eps_tolerance<double>(kRootBits), iter);
  return 0.5 * (r.first + r.second);
}

// The flash at the root just found, for its arrays; true when it gives the vapour fraction
// asked for as a real two-phase answer.
bool FinalFlash(Session& s, double T, double p, double eta) {
  bool r = false;
  const double e = FlashTPTwice(s, T, p, s.SafeWork.Z, r);
  return e >= 0.0 && std::fabs(e - eta) <= kEtaMatch && FlashReal(s, T, p);
}

// The start of both retries: the feed as the liquid, and a start vapour of zeros (a made start)
// in LnK, which the bubble routines do not touch.
void FeedAsLiquid(Session& s) {
  Session::SafeguardWorkArrays& w = s.SafeWork;
  for (int i = 1; i <= s.NKomp; ++i) {
    w.LnK[i] = 0.0;
    w.X[i] = w.Z[i];
  }
}

// From the liquid end `start` (where g = gStart < 0) the march takes kMarchSteps steps at most,
// next(v) giving the step after v, until g passes 0; the bracketing root finder then solves
// g = 0 between the last two points. 0 when g never passes 0.
template <class G, class Next>
double MarchAndSolve(G g, double start, double gStart, Next next) {
  double prev = start, gPrev = gStart;
  for (int k = 0; k < kMarchSteps; ++k) {
    const double cur = next(prev);
    const double gCur = g(cur);
    if (gCur >= 0.0) return Bracketed(g, prev, cur, gPrev, gCur);
    prev = cur;
    gPrev = gCur;
  }
  return 0.0;
}

// FlashTEta's retry: the bubble pressure pb of the feed at T is the liquid end (eta 0); below
// it the pressure falls by a factor of 0.7 a step until the vapour fraction passes eta; the
// bracketing root finder then solves eta(p) = eta. 0 when it fails.
double TEtaRetry(Session& s, double T, double eta) {
  FeedAsLiquid(s);
  double vL = 0, vV = 0;
  const double pb = BubblePTwice(s, T, s.SafeWork.X, s.SafeWork.LnK, vL, vV);
  if (!(pb > 0.0)) return 0.0;
  auto g = [&](double p) { return EtaOrSide(s, T, p, p >= pb) - eta; };
  const double p = MarchAndSolve(g, pb, -eta, [](double v) { return 0.7 * v; });
  if (!(p > 0.0) || !FinalFlash(s, T, p, eta)) return 0.0;
  return p;
}

// FlashPEta's retry: the bubble temperature Tb of the feed at p is the liquid end; above it T
// rises by 2 % of Tb, growing by half a step each time, until the vapour fraction passes eta;
// then eta(T) = eta by the bracketing root finder. 0 when it fails.
double PEtaRetry(Session& s, double p, double eta) {
  FeedAsLiquid(s);
  double vL = 0, vV = 0;
  const double Tb = BubbleTTwice(s, p, s.SafeWork.X, s.SafeWork.LnK, vL, vV);
  if (!(Tb > 0.0)) return 0.0;
  auto g = [&](double T) { return EtaOrSide(s, T, p, T <= Tb) - eta; };
  double step = 0.02 * Tb;
  const double T = MarchAndSolve(g, Tb, -eta, [&step](double v) {
    const double next = v + step;
    step *= 1.5;
    return next;
  });
  if (!(T > 0.0) || !FinalFlash(s, T, p, eta)) return 0.0;
  return T;
}

// Copies the feed that the flash has taken into FlashWork.Z.
void TakeFeed(Session& s) {
  SizeWork(s);
  for (int i = 1; i <= s.NKomp; ++i) s.SafeWork.Z[i] = s.FlashWork.Z[i];
}

}  // namespace

double WilsonK(const Session& s, int i, double T, double p) {
  const double tc = s.TKrit[i], pc = s.PKrit[i], w = s.Omega[i];
  return chk::Div(pc, p) * chk::Exp(5.373 * (1.0 + w) * (1.0 - chk::Div(tc, T)));
}

double SafeBubbleP(Session& s, double T, const Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV) {
  s.Retried = 0;
  const double p = CalcBubbleP(s, T, x, pStart, yStart, gamma, PhiK, K, vL, vV);
  if (!s.Safeguard || BubblePReal(s, p, vL, vV)) return p;
  // A point that cannot be retried keeps its answer: a pure component, or the failure of the
  // gamma-phi concept, whose iteration does not depend on a start.
  if (!BubblePRetryable(s, T, x)) return p;
  const double vL1 = vL, vV1 = vV;
  Save(s, &gamma, &PhiK, &K);
  const double p2 = BubblePRetry(s, T, x, gamma, PhiK, K, vL, vV);
  if (p2 > 0.0) {
    s.Retried = -1;
    return p2;
  }
  Restore(s, &gamma, &PhiK, &K);
  vL = vL1;
  vV = vV1;
  return 0.0;
}

double SafeBubbleT(Session& s, double p, const Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV) {
  s.Retried = 0;
  const double Tb = CalcBubbleT(s, p, x, T, yStart, Warn, K, vL, vV);
  if (!s.Safeguard || BubbleTStable(s, p, x, Tb, vL, vV, false)) return Tb;
  if (PureLiquid(s, x)) return Tb;
  // A two-phase answer that failed the stability test of its liquid.
  const bool unstable = BubbleTReal(s, Tb, vL, vV);
  const double vL1 = vL, vV1 = vV;
  Save(s, &K, nullptr, nullptr);
  const double T2 = BubbleTRetries(s, p, x, Tb, unstable, Warn, K, vL, vV);
  if (T2 > 0.0) {
    s.Retried = -1;
    return T2;
  }
  Restore(s, &K, nullptr, nullptr);
  vL = vL1;
  vV = vV1;
  return 0.0;
}

float SafeDewT(Session& s, double p, const Vec<double>& y, double TStart) {
  s.Retried = 0;
  const float T = CalcDewT(s, p, y, TStart);
  if (!s.Safeguard || T != 0.0f || s.Konzept || s.NKomp < 2 || !(p > 0.0) || PureLiquid(s, y)) return T;
  Save(s, nullptr, nullptr, nullptr);
  float T2 = 0.0f;
  try {
    const double Tw = WilsonDewT(s, p, y);
    if (Tw >= 1.0) T2 = CalcDewT(s, p, y, Tw);
  } catch (const NumericFault&) {
    T2 = 0.0f;
  }
  if (T2 > 0.0f) {
    s.Retried = -1;
    return T2;
  }
  Restore(s, nullptr, nullptr, nullptr);
  return 0.0f;
}

double SafeFlashTP(Session& s, double T, double p, const Vec<double>& z) {
  s.Retried = 0;
  const double eta = FlashTP(s, T, p, z);
  if (!s.Safeguard || s.NKomp < 2) return eta;
  if (eta >= 0.0 && FlashReal(s, T, p)) return eta;
  Save(s, nullptr, nullptr, nullptr);
  TakeFeed(s);
  s.SafeWork.RoundsLeft = kRoundsBudget;
  const double eta2 = FlashTPRetry(s, T, p);
  if (eta2 >= 0.0) {
    s.Retried = -1;
    return eta2;
  }
  Restore(s, nullptr, nullptr, nullptr);
  return -1.0;
}

namespace {

// The flash at a given vapour fraction: the plain answer `first` (the other of T and p) stands
// when it is a real two-phase state at (T, p); otherwise one retry on the vapour fraction, and
// when that fails too, the plain failure value with the arrays as the plain routine left them.
template <class Retry>
double RetryEtaFlash(Session& s, double first, double T, double p, double eta, double given, Retry retry) {
  if (!s.Safeguard || s.NKomp < 2) return first;
  if (first > 0.0 && FlashReal(s, T, p)) return first;
  Save(s, nullptr, nullptr, nullptr);
  TakeFeed(s);
  s.SafeWork.RoundsLeft = kRoundsBudget;
  double second = 0;
  if (eta > 0.0 && eta < 1.0 && given > 0.0) {
    try {
      second = retry(s, given, eta);
    } catch (const NumericFault&) {
      second = 0;
    }
  }
  if (second > 0.0) {
    s.Retried = -1;
    return second;
  }
  Restore(s, nullptr, nullptr, nullptr);
  return first > 0.0 ? 0.0 : first;
}

}  // namespace

double SafeFlashPEta(Session& s, double p, double eta, const Vec<double>& z) {
  s.Retried = 0;
  const double T = FlashPEta(s, p, eta, z);
  return RetryEtaFlash(s, T, T, p, eta, p, PEtaRetry);
}

double SafeFlashTEta(Session& s, double T, double eta, const Vec<double>& z) {
  s.Retried = 0;
  const double p = FlashTEta(s, T, eta, z);
  return RetryEtaFlash(s, p, T, p, eta, T, TEtaRetry);
}

}  // namespace peq
