// Flash calculations: T-p, p-eta(V) and T-eta(V).
//
// The flash function is the Rachford-Rice form written without K values:
//   gamma-phi: D(i) = P0(i) Gamma(i) - p PhiKorr(i), E(i) = p PhiKorr(i)
//   phi-phi:   D(i) = phiL(i) - phiV(i),             E(i) = phiV(i)
//   F(eta) = sum D(i) z(i)/(D(i) eta + E(i)),  x(i) = E(i) z(i)/(D(i) eta + E(i)),
// since K(i) - 1 = D(i)/E(i). x is normalised after every pass; y comes from CalcKValues
// (gamma-phi) or y(i) = x(i) phiL(i)/phiV(i) (phi-phi) and is normalised too.
#include "engine/flash.h"

#include <cmath>

#include "engine/flash_phases.h"
#include "engine/kernel.h"
#include "models/activity.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_solve.h"
#include "models/pureprops.h"
#include "session/numeric.h"

namespace peq {

bool BothPhases(Session& s, double T, double p, double& vL, double& vV) {
  const int n = s.NKomp;
  EOSWork& w = s.EOSScratch;
  for (int i = 1; i <= n; ++i) {
    s.CompMat[0][i] = s.XLiq[i];
    s.CompMat[1][i] = s.YGas[i];
  }
  EOSRoots r{};
  int16_t nr = 0, err = 0;
  EOSMixAtX(s, 0, s.CompMat[0], T, s.EOSModel, s.MixRule, s.GEModelEOS, w.Liq);
  EOSSolve(T, p, vL, w.Liq.a, w.Liq.b, w.Liq.c, w.Liq.d, r, nr, err);
  if (err != 0) return false;
  vL = LiquidRoot(r);
  for (int i = 1; i <= n; ++i)
    w.PhiL[i] = EOSLnPhi(T, p, vL, s.EOSModel, w.Liq.a, w.Liq.b, w.Liq.c, w.Liq.d, w.Liq.da[i], w.Liq.db[i],
                         w.Liq.dc[i], w.Liq.dd[i]);
  EOSMixAtX(s, 0, s.CompMat[1], T, s.EOSModel, s.MixRule, s.GEModelEOS, w.Vap);
  EOSSolve(T, p, vV, w.Vap.a, w.Vap.b, w.Vap.c, w.Vap.d, r, nr, err);
  if (err != 0) return false;
  vV = VapourRoot(r, nr);
  for (int i = 1; i <= n; ++i)
    w.PhiV[i] = EOSLnPhi(T, p, vV, s.EOSModel, w.Vap.a, w.Vap.b, w.Vap.c, w.Vap.d, w.Vap.da[i], w.Vap.db[i],
                         w.Vap.dc[i], w.Vap.dd[i]);
  return true;
}

namespace {

// Round limits and tolerances of the three flashes.
constexpr int kRoundsTP = 100;
constexpr double kTolTP = 1e-7;    // on |d/eta|
constexpr int kRoundsPEta = 500;
constexpr double kTolPEta = 1e-8;  // on |d/T|
constexpr int kRoundsTEta = 500;
constexpr double kTolTEta = 1e-11;  // on |d/p|

// Sizes the work arrays for the mixture (only when the mixture changed) and copies the feed,
// which may be one of the session arrays the flash overwrites.
Session::FlashWorkArrays& Prepare(Session& s, const Vec<double>& z) {
  Session::FlashWorkArrays& w = s.FlashWork;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  if (w.Z.size() != m)
    for (Vec<double>* v : {&w.Z, &w.D, &w.E, &w.X, &w.Y, &w.Phi}) v->assign(m, 0.0);
  for (int i = 1; i <= s.NKomp; ++i) w.Z[i] = z[i];
  return w;
}

void Normalise(Vec<double>& v, int n) {
  double sum = 0;
  for (int i = 1; i <= n; ++i) sum += v[i];
  for (int i = 1; i <= n; ++i) v[i] = chk::Div(v[i], sum);
}

// D(i) and E(i) of the flash function from the current phase data.
void Coefficients(Session& s, double p) {
  Session::FlashWorkArrays& w = s.FlashWork;
  const int n = s.NKomp;
  if (!s.Konzept) {
    for (int i = 1; i <= n; ++i) {
      w.E[i] = chk::Fin(p * s.PhiKorr[i]);
      w.D[i] = chk::Fin(double(s.P0[i]) * s.Gamma[i] - w.E[i]);
    }
  } else {
    for (int i = 1; i <= n; ++i) {
      w.D[i] = s.EOSScratch.PhiL[i] - s.EOSScratch.PhiV[i];
      w.E[i] = s.EOSScratch.PhiV[i];
    }
  }
}

// F(eta) = sum D(i) z(i)/(D(i) eta + E(i)).
double FlashF(const Session& s, double eta) {
  const Session::FlashWorkArrays& w = s.FlashWork;
  double F = 0;
  for (int i = 1; i <= s.NKomp; ++i) F += chk::Div(w.D[i] * w.Z[i], w.D[i] * eta + w.E[i]);
  return chk::Fin(F);
}

// x(i) = E(i) z(i)/(D(i) eta + E(i)) into XLiq, normalised; then y into YGas, normalised: from
// CalcKValues at T, p in gamma-phi (which renews Gamma, PhiKorr and KWert), from the fugacity
// coefficients in phi-phi. False when CalcKValues fails.
bool NewPhases(Session& s, double T, double p, double eta) {
  Session::FlashWorkArrays& w = s.FlashWork;
  const int n = s.NKomp;
  for (int i = 1; i <= n; ++i) s.XLiq[i] = chk::Div(w.E[i] * w.Z[i], w.D[i] * eta + w.E[i]);
  Normalise(s.XLiq, n);
  if (!s.Konzept) {
    int16_t err = 0;
    CalcKValues(s, T, p, s.BVir, s.XLiq, s.Gamma, s.PhiVMix, s.PhiKorr, s.KWert, s.YGas, err);
    if (err != 0) return false;
  } else {
    for (int i = 1; i <= n; ++i)
      s.YGas[i] = chk::Div(s.XLiq[i] * s.EOSScratch.PhiL[i], s.EOSScratch.PhiV[i]);
  }
  Normalise(s.YGas, n);
  return true;
}

// The secant step on the flash function: d = first in round 1, else -d F/(F - F(last)).
double SecantStep(int counter, double first, double d, double F, double FLast) {
  if (counter == 1) return first;
  return chk::Div(-d * F, F - FLast);
}

double TP(Session& s, double T, double p, const Vec<double>& z) {
  const int n = s.NKomp;
  const Session::FlashWorkArrays& w = Prepare(s, z);
  for (int i = 1; i <= n; ++i) {
    s.PhiKorr[i] = 1.0;
    s.Gamma[i] = 1.0;
    s.XLiq[i] = w.Z[i];
    s.YGas[i] = w.Z[i];
  }
  int16_t err = 0, dT = 0;
  AllPureProps(s, T, err, dT);
  if (err != 0) return -1.0;
  if (s.Konzept) EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
  double eta = 0.5, d = 0, F = 0, FLast = 0, vL = 0, vV = 0;
  int counter = 0;
  do {
    ++counter;
    if (s.Konzept && !BothPhases(s, T, p, vL, vV)) return -1.0;
    Coefficients(s, p);
    F = FlashF(s, eta);
    d = SecantStep(counter, 0.001, d, F, FLast);
    FLast = F;
    eta = chk::Fin(eta + d);
    // Back to the inside, not to the edge: a flash that leaves 0..1 starts again from there.
    if (eta < 0.0)
      eta = 0.1;
    else if (eta > 1.0)
      eta = 0.9;
    if (!NewPhases(s, T, p, eta)) return -1.0;
  } while (std::fabs(chk::Div(d, eta)) >= kTolTP && counter <= kRoundsTP);
  if (counter > kRoundsTP) return -1.0;
  return eta;
}

double PEta(Session& s, double p, double eta, const Vec<double>& z) {
  const int n = s.NKomp;
  Session::FlashWorkArrays& w = Prepare(s, z);
  if (!s.Konzept)
    for (int i = 1; i <= n; ++i) {
      s.PhiKorr[i] = 1.0;
      s.Gamma[i] = 1.0;
    }
  for (int i = 1; i <= n; ++i) {
    s.YGas[i] = 0.0;
    s.XLiq[i] = w.Z[i];
  }
  // The bubble temperature of the feed is the start (made start values, no previous point).
  double Tin = 0, vL = 0, vV = 0;
  int16_t warn = 0;
  double T = CalcBubbleT(s, p, w.Z, Tin, s.YGas, warn, s.KWert, vL, vV);
  if (T == 0.0) return 0.0;
  double d = 0, F = 0, FLast = 0;
  int counter = 0;
  do {
    ++counter;
    if (!s.Konzept) {
      int16_t err = 0, dT = 0, gerr = 0;
      AllPureProps(s, T, err, dT);
      if (err != 0) return 0.0;
      ActivityCoeffs(s, T, s.XLiq, s.Gamma, gerr);
      if (gerr != 0) return 0.0;
    } else {
      EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
      if (!BothPhases(s, T, p, vL, vV)) return 0.0;
    }
    Coefficients(s, p);
    F = FlashF(s, eta);
    d = SecantStep(counter, 0.1, d, F, FLast);
    FLast = F;
    T = chk::Fin(T + d);
    if (!NewPhases(s, T, p, eta)) return 0.0;
  } while (std::fabs(chk::Div(d, T)) >= kTolPEta && counter <= kRoundsPEta);
  if (counter > kRoundsPEta) return 0.0;
  return T;
}

double TEta(Session& s, double T, double eta, const Vec<double>& z) {
  const int n = s.NKomp;
  Session::FlashWorkArrays& w = Prepare(s, z);
  // The vapour pressures of the partial concept stay fixed over the rounds (T is given).
  int16_t err = 0, dT = 0;
  AllPureProps(s, T, err, dT);
  if (err != 0 && !s.Konzept) return 0.0;
  for (int i = 1; i <= n; ++i) {
    s.XLiq[i] = w.Z[i];
    w.D[i] = 0.0;  // a vapour start of zeros: CalcBubbleP makes its own
  }
  double vL = 0, vV = 0, p;
  if (!s.Konzept) {
    for (int i = 1; i <= n; ++i) {
      s.PhiKorr[i] = 1.0;
      s.Gamma[i] = 1.0;
    }
    p = CalcBubbleP(s, T, w.Z, 0.0, w.D, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  } else {
    // The start of the global concept: the bubble pressure of the feed without component 1,
    // the others in equal parts.
    w.X[1] = 0.0;
    for (int i = 2; i <= n; ++i) w.X[i] = chk::Div(1.0, n - 1);
    p = CalcBubbleP(s, T, w.X, 0.0, w.D, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    EOSMixAtT(s, T, s.EOSModel, s.MixRule, s.GEModelEOS, false);
  }
  if (p == 0.0) return 0.0;
  double d = 0, F = 0, FLast = 0;
  int counter = 0;
  do {
    ++counter;
    if (s.Konzept && !BothPhases(s, T, p, vL, vV)) return 0.0;
    Coefficients(s, p);
    F = FlashF(s, eta);
    d = SecantStep(counter, 0.01, d, F, FLast);
    FLast = F;
    p = chk::Fin(p + d);
    if (!NewPhases(s, T, p, eta)) return 0.0;
  } while (std::fabs(chk::Div(d, p)) >= kTolTEta && counter <= kRoundsTEta);
  if (counter > kRoundsTEta) return 0.0;
  return p;
}

}  // namespace

double FlashTP(Session& s, double T, double p, const Vec<double>& z) {
  if (s.NKomp < 1) return -1.0;
  try {
    return TP(s, T, p, z);
  } catch (const NumericFault&) {
    return -1.0;
  }
}

double FlashPEta(Session& s, double p, double eta, const Vec<double>& z) {
  if (s.NKomp < 1) return 0.0;
  try {
    return PEta(s, p, eta, z);
  } catch (const NumericFault&) {
    return 0.0;
  }
}

double FlashTEta(Session& s, double T, double eta, const Vec<double>& z) {
  if (s.NKomp < 1) return 0.0;
  try {
    return TEta(s, T, eta, z);
  } catch (const NumericFault&) {
    return 0.0;
  }
}

}  // namespace peq
