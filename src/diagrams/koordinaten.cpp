// Default coordinates of the binary diagrams, by family. The ranges rest on pure-component
// values (vapour pressures at T, boiling temperatures at p, critical data), on the limiting
// activity coefficients, or on a coarse scan of the curve's own quantity, and they are widened
// so that both ends of every curve lie inside the frame:
//
//   p-x            0 .. 1.2 x the larger pure vapour pressure at T, rounded up to a round
//                  number (the 20 % hold a pressure-maximum azeotrope); with a supercritical
//                  component in the phi-phi concept the bubble curve is scanned up to its
//                  critical end instead of the missing vapour pressure.
//   T-x            lower boiling T - (15 % of the span + 10 K) .. higher boiling T + (10 % of
//                  the span + 5 K), outward to multiples of 5 in the display unit (the lower
//                  margin holds a minimum-boiling or heterogeneous azeotrope).
//   K, alpha       0 .. 1.1 x the largest value of a scan over x2 = 0, 0.1, ..., 1 (the dilute
//                  ends of the curves included).
//   gamma          0 .. 1.1 x the largest limiting activity coefficient (at least 1).
//   ln gamma       symmetric, a = the larger magnitude of the two limiting values.
//   energies       from the value at x2 = 0.5 with the margins of the family, widened to a scan
//                  over x2 = 0.1 .. 0.9 when the curve changes sign or bends beyond it.
#include <algorithm>
#include <cmath>

#include "diagrams/catalogue.h"
#include "diagrams/kurven.h"
#include "engine/excess.h"
#include "engine/kernel.h"
#include "models/activity.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/gmix.h"
#include "models/vappressure.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// The next round number at or above v: a multiple of half the decade of v, or of a fifth of it
// when v begins with a 1 (86.8 -> 90, 8852 -> 9000, 117 -> 120, 0.37 -> 0.4).
double RundAuf(double v) {
  if (v <= 0) return v;
  const double dekade = std::pow(10.0, std::floor(std::log10(v)));
  const double step = v / dekade < 2 ? dekade / 5 : dekade / 2;
  return std::ceil(v / step - 1e-9) * step;
}

double Ab5(double v) { return 5 * std::floor(v / 5); }
double Auf5(double v) { return 5 * std::ceil(v / 5); }

// A composition vector of the pair: x(k2) = x2, x(k1) = 1 - x2, the rest 0.
void PaarX(const Session& s, int16_t k1, int16_t k2, double x2, Vec<double>& x) {
  x.assign(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  x[static_cast<std::size_t>(k2)] = x2;
  x[static_cast<std::size_t>(k1)] = 1 - x2;
}

// Bubble points at T along the pair, x2 running from `from` to `to` in steps of `step`; each
// good point is handed to f(x2, p) with KWert filled. A failed point is passed over.
template <class F>
void ScanBubbleP(Session& s, double T, int16_t k1, int16_t k2, double from, double to, double step, F f) {
  Vec<double> x, y(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  double p = 0;
  const int n = static_cast<int>(std::lround(std::fabs(to - from) / step));
  for (int k = 0; k <= n; ++k) {
    const double x2 = from + (to > from ? 1 : -1) * k * step;
    PaarX(s, k1, k2, x2, x);
    double vL = 0, vV = 0;
    const double pNeu = CalcBubbleP(s, T, x, p, y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    if (!(pNeu > 0) || !std::isfinite(pNeu)) continue;
    p = pNeu;
    for (std::size_t i = 1; i < y.size(); ++i) y[i] = s.YGas[i];
    f(x2, p);
  }
}

// Bubble points at p along the pair, x2 = 0, 0.1, ..., 1; f(x2, T) with KWert filled.
template <class F>
void ScanBubbleT(Session& s, double p, int16_t k1, int16_t k2, F f) {
  Vec<double> x, y(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  double TLast = 0;  // the first point gets a made start, the next ones the previous T and vapour
  for (int k = 0; k <= 10; ++k) {
    const double x2 = 0.1 * k;
    PaarX(s, k1, k2, x2, x);
    double T = TLast;
    int16_t warn = 0;
    double vL = 0, vV = 0;
    const double TNeu = CalcBubbleT(s, p, x, T, y, warn, s.KWert, vL, vV);
    if (!(TNeu > 1e-6) || !std::isfinite(TNeu)) continue;
    if (s.TKritMax > 0 && TNeu >= s.TKritMax) continue;
    TLast = TNeu;
    for (std::size_t i = 1; i < y.size(); ++i) y[i] = s.YGas[i];
    f(x2, TNeu);
  }
}

// The two limiting activity coefficients of the pair: gamma(k2) at x(k2) = 0 and gamma(k1) at
// x(k1) = 0, at the given temperatures.
bool Grenzaktivitaet(Session& s, int16_t k1, int16_t k2, double T2, double T1, double& g2, double& g1) {
  Vec<double> x, gamma(static_cast<std::size_t>(s.NKomp) + 1, 1.0);
  int16_t err = 0;
  PaarX(s, k1, k2, 0.0, x);
  ActivityCoeffs(s, T2, x, gamma, err);
  if (err != 0) return false;
  g2 = gamma[static_cast<std::size_t>(k2)];
  PaarX(s, k1, k2, 1.0, x);
  ActivityCoeffs(s, T1, x, gamma, err);
  if (err != 0) return false;
  g1 = gamma[static_cast<std::size_t>(k1)];
  return g1 > 0 && g2 > 0 && std::isfinite(g1) && std::isfinite(g2);
}

// Excess function of the energy families at x2 (display unit, FuFaktor applied): gE (110),
// delta(M)h (15), T sE (16), cpE (17), first derivative of delta(M)g (121).
bool Energiewert(Session& s, int16_t NoDia, double T, double p, int16_t k1, int16_t k2, double x2, double& v) {
  Vec<double> x;
  PaarX(s, k1, k2, x2, x);
  int16_t err = 0;
  double hE = 0, TsE = 0, gE = 0;
  switch (NoDia) {
    case 110:
      if (s.Konzept) {
        if (EOSExcess(s, T, p, x, hE, TsE, gE) != 0) return false;
        v = gE;
      } else {
        double Gid = 0, GM = 0;
        GMix(s, T, 0, x2, Gid, gE, GM, err);
        v = gE;
      }
      break;
    case 121:
      if (s.Konzept) {
        if (EOSExcess(s, T, p, x, hE, TsE, gE) != 0) return false;
        v = gE + kR * T * GMIdeal(1, x2);
      } else {
        double Gid = 0, GM = 0;
        GMix(s, T, 1, x2, Gid, gE, GM, err);
        v = GM;
      }
      break;
    case 15:
    case 16:
      ExcessT(s, T, p, x, hE, TsE, gE, err);
      v = NoDia == 15 ? hE : TsE;
      break;
    case 17:
      ExcessCp(s, T, x, v, err);
      break;
    default:
      return false;
  }
  if (err != 0 || !std::isfinite(v)) return false;
  v *= s.FuFaktor;
  return true;
}

bool Familie(Session& s, double T, double p, int16_t k1, int16_t k2, int16_t NoDia, Koordinaten& k) {
  const double off = s.TOffsetOut;
  const float F = s.FuFaktor;
  k = Koordinaten{};

  switch (NoDia) {
    case 3:
    case 6:
      return true;

    case 1: {
      const double p1 = ReinDampfdruck(s, k1, T), p2 = ReinDampfdruck(s, k2, T);
      double oben = std::max(p1, p2);
      // A component above its T(cr) in the phi-phi concept has no vapour pressure: the curve
      // ends at the critical point of the mixture. Walk from the subcritical end until the
      // bubble point fails, halving the step at the failure.
      const bool sup1 = s.Konzept && s.TKrit[k1] > kPresent && T >= s.TKrit[k1];
      const bool sup2 = s.Konzept && s.TKrit[k2] > kPresent && T >= s.TKrit[k2];
      if ((sup1 || sup2) && !(sup1 && sup2)) {
        const double start = sup2 ? 0.0 : 1.0, dir = sup2 ? 1.0 : -1.0;
        Vec<double> x, y(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
        double x2 = start, step = 0.05, pLast = 0;
        for (int round = 0; round < 200 && step > 0.05 / 64; ++round) {
          const double xn = x2 + dir * step;
          if (xn < 0 || xn > 1) break;
          PaarX(s, k1, k2, xn, x);
          double vL = 0, vV = 0;
          const double pn = CalcBubbleP(s, T, x, pLast, y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
          if (pn > 0 && std::isfinite(pn)) {
            x2 = xn;
            pLast = pn;
            for (std::size_t i = 1; i < y.size(); ++i) y[i] = s.YGas[i];
            oben = std::max(oben, pn);
          } else {
            step /= 2;
          }
        }
        oben = std::max(oben, static_cast<double>(sup1 ? s.PKrit[k1] : s.PKrit[k2]));
      }
      if (!(oben > 0)) return false;
      k.YMin = 0;
      k.YMax = static_cast<float>(RundAuf(1.2 * oben));
      return true;
    }

    case 4: {
      double T1 = ReinSiedeT(s, k1, p), T2 = ReinSiedeT(s, k2, p);
      // Above a p(cr) the curve ends near the critical T of that component.
      if (T1 <= 0 && s.PKrit[k1] > kPresent && p >= s.PKrit[k1]) T1 = s.TKrit[k1];
      if (T2 <= 0 && s.PKrit[k2] > kPresent && p >= s.PKrit[k2]) T2 = s.TKrit[k2];
      if (T1 <= 0 || T2 <= 0) return false;
      const double lo = std::min(T1, T2), hi = std::max(T1, T2), span = hi - lo;
      k.YMin = static_cast<float>(Ab5(lo - 0.15 * span - 10 - off));
      k.YMax = static_cast<float>(Auf5(hi + 0.1 * span + 5 - off));
      return true;
    }

    case 5:
    case 10:
    case 51:
    case 11: {
      double groesste = 0;
      if (NoDia == 10 && !s.Konzept) {
        // alpha = (P0(1) gamma(1))/(P0(2) gamma(2)) over the composition.
        const double p01 = ReinDampfdruck(s, 1, T), p02 = ReinDampfdruck(s, 2, T);
        if (!(p01 > 0) || !(p02 > 0)) return false;
        Vec<double> x, gamma(static_cast<std::size_t>(s.NKomp) + 1, 1.0);
        for (int j = 0; j <= 10; ++j) {
          int16_t err = 0;
          PaarX(s, k1, k2, 0.1 * j, x);
          ActivityCoeffs(s, T, x, gamma, err);
          if (err != 0) continue;
          groesste = std::max(groesste, chk::Div(p01 * gamma[1], p02 * gamma[2]));
        }
      } else {
        auto nimm = [&](double, double) {
          const double K1 = s.KWert[1], K2 = s.KWert[2];
          if (NoDia == 5 || NoDia == 51)
            groesste = std::max({groesste, K1, K2});
          else if (K2 > 0)
            groesste = std::max(groesste, K1 / K2);
        };
        if (NoDia == 5 || NoDia == 10)
          ScanBubbleP(s, T, k1, k2, 0.0, 1.0, 0.1, nimm);
        else
          ScanBubbleT(s, p, k1, k2, nimm);
      }
      if (!(groesste > 0) || !std::isfinite(groesste)) return false;
      k.YMin = 0;
      k.YMax = static_cast<float>(1.1 * groesste);
      return true;
    }

    case 8:
    case 82:
    case 81:
    case 83:
    case 9: {
      double T2 = T, T1 = T;  // the temperatures of the two dilute ends
      if (NoDia == 82 || NoDia == 83) {
        T2 = ReinSiedeT(s, k1, p);  // x2 -> 0: the liquid is k1
        T1 = ReinSiedeT(s, k2, p);
        if (T1 <= 0 || T2 <= 0) return false;
      }
      double g2 = 1, g1 = 1;
      if (!Grenzaktivitaet(s, k1, k2, T2, T1, g2, g1)) return false;
      if (NoDia == 8 || NoDia == 82) {
        k.YMin = 0;
        k.YMax = static_cast<float>(1.1 * std::max({1.0, g1, g2}));
      } else {
        // ln gamma(k2) at x2 = 0 and ln gamma(k1) at x2 = 1; ln(f2/f1) runs between the first
        // and minus the second.
        double a = std::max(std::fabs(chk::Ln(g2)), std::fabs(chk::Ln(g1)));
        if (a < 1e-6) a = 1;
        k.YMin = static_cast<float>(-a);
        k.YMax = static_cast<float>(a);
      }
      return true;
    }

    case 7: {
      if (!(s.TKritMax > 0) || !(s.PKritMax > 0)) return false;
      k.XMin = static_cast<float>(s.TKritMax / 2.5 - off);
      k.XMax = static_cast<float>(s.TKritMax - off + 2);
      k.YMin = -0.1f;
      k.YMax = static_cast<float>(1.01 * s.PKritMax);
      return true;
    }

    case 120: case 111: case 123: case 124: case 125: case 126: case 113: case 114: case 115: case 116:
      k.YMin = -5000 * F;
      k.YMax = 5000 * F;
      return true;

    case 122:
    case 112:
      k.YMin = -90000 * F;
      k.YMax = 90000 * F;
      return true;

    case 110:
    case 15:
    case 16:
    case 17: {
      double v = 0;
      if (!Energiewert(s, NoDia, T, p, k1, k2, 0.5, v)) return false;
      const double rand = (NoDia == 17 ? 2 : 10) * static_cast<double>(F);
      double lo = v < 0 ? 1.2 * v : 0, hi = v < 0 ? 0 : 1.2 * v;
      // A curve that changes sign or bends beyond its middle value: the scan widens the range.
      for (int j = 1; j <= 9; ++j) {
        double w = 0;
        if (!Energiewert(s, NoDia, T, p, k1, k2, 0.1 * j, w)) continue;
        lo = std::min(lo, 1.2 * w);
        hi = std::max(hi, 1.2 * w);
      }
      k.YMin = static_cast<float>(lo - rand);
      k.YMax = static_cast<float>(hi + rand);
      return true;
    }

    case 121: {
      double lo = 0, hi = 0;
      bool eins = false;
      for (int j = 1; j <= 9; ++j) {
        double w = 0;
        if (!Energiewert(s, NoDia, T, p, k1, k2, 0.1 * j, w)) continue;
        lo = eins ? std::min(lo, w) : w;
        hi = eins ? std::max(hi, w) : w;
        eins = true;
      }
      if (!eins) return false;
      double spread = hi - lo;
      if (spread <= 0) spread = std::max(1.0, std::fabs(hi));
      k.YMin = static_cast<float>(lo - 0.1 * spread);
      k.YMax = static_cast<float>(hi + 0.1 * spread);
      return true;
    }

    case 181:
    case 182:
      k.YMin = -10;
      k.YMax = 1000;
      return true;

    case 183: {
      const double tc1 = s.TKrit[k1], tc2 = s.TKrit[k2];
      const double unten = std::min(tc1, tc2);
      if (!(unten > 0)) return false;
      k.XMin = static_cast<float>(unten - off);
      k.XMax = static_cast<float>(s.TKritMax + 10 - off);
      k.YMin = -10;
      k.YMax = 1000;
      return true;
    }

    case 200:
    case 201:
      k.XMin = -0.01f;
      k.XMax = 1.01f;
      k.YMin = 0;
      k.YMax = s.BatchZeit > 0 ? s.BatchZeit : 100;
      return true;

    case 202: {
      double lo = 0, hi = 0;
      bool eins = false;
      for (int i = 1; i <= s.NKomp; ++i) {
        const double Tb = ReinSiedeT(s, i, p);
        if (Tb <= 0) continue;
        lo = eins ? std::min(lo, Tb) : Tb;
        hi = eins ? std::max(hi, Tb) : Tb;
        eins = true;
      }
      if (!eins) return false;
      k.XMin = 0;
      k.XMax = s.BatchZeit > 0 ? s.BatchZeit : 100;
      k.YMin = static_cast<float>(lo - 1 - off);
      k.YMax = static_cast<float>(hi + 1 - off);
      return true;
    }

    case 250:
      k.YMin = -0.051f;
      k.YMax = 0.051f;
      return true;

    default:
      return false;
  }
}

}  // namespace

bool StandardKoordinaten(Session& s, double T, double p, int16_t Komp1, int16_t Komp2, int16_t NoDia,
                         Koordinaten& k) {
  if (s.NKomp < 2 || Komp1 < 1 || Komp2 < 1 || Komp1 > s.NKomp || Komp2 > s.NKomp) {
    // The batch plots need no pair.
    if (NoDia != 200 && NoDia != 201 && NoDia != 202 && NoDia != 250) return false;
  }
  Koordinaten r;
  bool ok = false;
  try {
    ok = Familie(s, T, p, Komp1, Komp2, NoDia, r);
  } catch (const NumericFault&) {
    ok = false;
  }
  if (!ok || !std::isfinite(r.XMin) || !std::isfinite(r.XMax) || !std::isfinite(r.YMin) || !std::isfinite(r.YMax) ||
      !(r.XMax > r.XMin) || !(r.YMax > r.YMin))
    return false;
  k = r;
  return true;
}

}  // namespace peq
