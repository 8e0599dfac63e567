#include "engine/tangent.h"

#include <algorithm>
#include <cmath>

#include "engine/excess.h"
#include "engine/singlecalc.h"
#include "session/numeric.h"

namespace peq {

bool TangenteMoeglich(int16_t NoDia) {
  return NoDia == 110 || NoDia == 120 || NoDia == 15 || NoDia == 16 || NoDia == 17;
}

namespace {

constexpr double kSchritt = 1e-5;

// The function of the diagram at v (mole fraction of K2) in kJ/kmol; false without a value.
bool Wert(Session& s, int16_t NoDia, double v, double T, double p, int16_t K1, int16_t K2, Vec<double>& x,
          double& f) {
  x[static_cast<std::size_t>(K1)] = 1.0 - v;
  x[static_cast<std::size_t>(K2)] = v;
  int16_t err = 0;
  switch (NoDia) {
    case 110:
    case 120:
      return ExcessDerivative(s, 0, NoDia == 120, v, T, p, x, K1, K2, f);
    case 15:
    case 16: {
      double hE = 0, TsE = 0, gE = 0;
      ExcessT(s, T, p, x, hE, TsE, gE, err);
      f = NoDia == 15 ? hE : TsE;
      return err == 0;
    }
    case 17:
      ExcessCp(s, T, p, x, f, err);
      return err == 0;
    default:
      return false;
  }
}

}  // namespace

bool TangenteRechnen(Session& s, int16_t NoDia, double x, double T, double p, int16_t K1, int16_t K2,
                     TangentWerte& t) {
  if (!TangenteMoeglich(NoDia) || !(x >= 0.0 && x <= 1.0) || s.NKomp < 2) return false;
  Vec<double> comp(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  TangentWerte r;
  r.x = x;
  try {
    double y = 0;
    if (!Wert(s, NoDia, x, T, p, K1, K2, comp, y)) return false;
    double slope = 0;
    const bool geschlossen = (NoDia == 110 || NoDia == 120) && !s.Konzept;
    if (geschlossen) {
      comp[static_cast<std::size_t>(K1)] = 1.0 - x;
      comp[static_cast<std::size_t>(K2)] = x;
      if (!ExcessDerivative(s, 1, NoDia == 120, x, T, p, comp, K1, K2, slope)) return false;
    } else {
      const double a = std::max(0.0, x - kSchritt), b = std::min(1.0, x + kSchritt);
      double fa = 0, fb = 0;
      if (!Wert(s, NoDia, a, T, p, K1, K2, comp, fa) || !Wert(s, NoDia, b, T, p, K1, K2, comp, fb)) return false;
      slope = chk::Div(fb - fa, b - a);
    }
    const double fu = s.FuFaktor;
    r.y = y * fu;
    r.Steigung = slope * fu;
    r.Partial1 = r.y - x * r.Steigung;
    r.Partial2 = r.y + (1.0 - x) * r.Steigung;
    if (NoDia == 120 && (x <= 0.0 || x >= 1.0)) {
      // At a pure end the slope of the ideal part diverges: the component at infinite dilution
      // has a partial Gibbs function of mixing of minus infinity, the pure one of zero.
      const bool amAnfang = x <= 0.0;
      r.Ende1 = amAnfang ? TangentEnde::Null : TangentEnde::MinusUnendlich;
      r.Ende2 = amAnfang ? TangentEnde::MinusUnendlich : TangentEnde::Null;
      // No infinite number is kept: the flags tell it.
      r.Partial1 = 0.0;
      r.Partial2 = 0.0;
      r.Steigung = 0.0;
    } else if (!std::isfinite(r.y) || !std::isfinite(r.Partial1) || !std::isfinite(r.Partial2)) {
      return false;
    }
  } catch (const NumericFault&) {
    return false;
  }
  t = r;
  return true;
}

}  // namespace peq
