// The excess-function codes of the one-point calculator: 110..116 (derivatives 0..6 of gE to
// x2), 120..126 (the same of delta(M)g), 15 (hE = delta(M)h), 16 (T sE), 17 (cpE) and, for every
// code the calculator does not list, gE. Values in kJ/kmol (kJ/(kmol K) for cpE) times FuFaktor,
// the factor of the energy unit chosen for the axis (1, 1/R or 1/(R T)).
#include <cmath>

#include "engine/excess.h"
#include "engine/singlecalc.h"
#include "models/eos_phi.h"
#include "models/gmix.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

void Set(SingleOut& Out, double v) {
  Out.Y1 = CSng(v);
  Out.F1 = 0;
}

// Derivative n of gE (withIdeal false) or of delta(M)g (true) to x(K2) at T: R T GMFor for the
// parameter models, GMix (n = 0..2) for the group models, gE of the equation of state in the
// phi-phi concept. false when there is no value.
bool Derivative(Session& s, int n, bool withIdeal, double Xval, double T, double p, const Vec<double>& x,
                int16_t K1, int16_t K2, double& v) {
  const double RT = kR * T;
  if (s.Konzept) {
    double hE = 0, TsE = 0, gE = 0;
    if (EOSExcess(s, T, p, x, hE, TsE, gE) != 0) return false;
    v = gE;
    if (withIdeal) v += RT * GMIdeal(n, Xval);
    return true;
  }
  if (s.GEModel < 20) {
    double P[4];
    int16_t err = 0;
    GMForParams(s, T, K1, K2, P, err);
    if (err != 0 && s.GEModel != 0) return false;
    v = RT * GMFor(s, n, Xval, P[0], P[1], P[2], P[3]);
    if (withIdeal) v += RT * GMIdeal(n, Xval);
    return true;
  }
  // The group models: GMix of the pair (1, 2) gives orders 0 to 2 in x(2); in the pair (2, 1)
  // the abscissa is x(1) = 1 - x(2) and the odd derivatives change sign.
  if (n > 2) return false;
  const double x2 = (K2 == 2) ? Xval : 1.0 - Xval;
  double Gid = 0, GE = 0, GM = 0;
  int16_t err = 0;
  GMix(s, T, static_cast<int16_t>(n), x2, Gid, GE, GM, err);
  if (err != 0) return false;
  v = withIdeal ? GM : GE;
  if (K2 != 2 && n == 1) v = -v;
  return true;
}

}  // namespace

bool ExcessDerivative(Session& s, int n, bool withIdeal, double Xval, double T, double p, const Vec<double>& x,
                      int16_t K1, int16_t K2, double& v) {
  return Derivative(s, n, withIdeal, Xval, T, p, x, K1, K2, v);
}

void SingleCalcExcess(Session& s, int16_t DiaCode, double Xval, double T, double p, const Vec<double>& x,
                      int16_t K1, int16_t K2, SingleOut& Out) {
  Out = SingleOut{};
  const double fu = s.FuFaktor;
  try {
    if ((DiaCode >= 110 && DiaCode <= 116) || (DiaCode >= 120 && DiaCode <= 126)) {
      const bool mix = DiaCode >= 120;
      const int n = mix ? DiaCode - 120 : DiaCode - 110;
      double v = 0.0;
      if (Derivative(s, n, mix, Xval, T, p, x, K1, K2, v)) Set(Out, v * fu);
      return;
    }
    int16_t err = 0;
    switch (DiaCode) {
      case 15:
      case 16: {
        double hE = 0, TsE = 0, gE = 0;
        ExcessT(s, T, p, x, hE, TsE, gE, err);
        if (err == 0) Set(Out, (DiaCode == 15 ? hE : TsE) * fu);
        return;
      }
      case 17: {
        double cpE = 0;
        ExcessCp(s, T, p, x, cpE, err);
        if (err == 0) Set(Out, cpE * fu);
        return;
      }
      default: {
        double gE = 0;
        if (s.Konzept) {
          double hE = 0, TsE = 0;
          if (EOSExcess(s, T, p, x, hE, TsE, gE) != 0) err = -1;
        } else {
          gE = ExcessGE(s, T, x, err);
        }
        if (err == 0) Set(Out, gE * fu);
        return;
      }
    }
  } catch (const NumericFault&) {
    Out = SingleOut{};
  }
}

}  // namespace peq
