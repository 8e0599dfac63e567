#include "models/eos_pure.h"

#include <cmath>
#include <utility>

#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

// 2^(1/3) - 1, the root of the critical conditions of the Redlich-Kwong form.
double CbrtTwoMinusOne() { return std::cbrt(2.0) - 1.0; }

double PROmegaB() {
  const double y = std::cbrt(13.0 + std::pow(2.0, 4.5));
  return -1.0 / 32.0 - 21.0 / (32.0 * y) + 3.0 * y / 32.0;
}

// coefficient * T^exponent, with the exponent 0 of all models now in use taken without a power.
double PowerLaw(double coef, double expo, double T) {
  if (expo == 0.0) return coef;
  return coef * chk::Pow(T, expo);
}

}  // namespace

double EOSOmegaA(int model) {
  switch (model) {
    case 3:
    case 4:
      return 1.0 / (9.0 * CbrtTwoMinusOne());
    case 5: {
      const double ob = PROmegaB();
      return (10.0 / 3.0) * ob * ob + (4.0 / 3.0) * ob + 1.0 / 3.0;
    }
    case 6:
    case 7:
      return 27.0 / 64.0;
    default:
      return 0.0;
  }
}

double EOSOmegaB(int model) {
  switch (model) {
    case 3:
    case 4:
      return CbrtTwoMinusOne() / 3.0;
    case 5:
      return PROmegaB();
    case 6:
    case 7:
      return 1.0 / 8.0;
    default:
      return 0.0;
  }
}

double EOSZc(int model) {
  switch (model) {
    case 3:
    case 4:
      return 1.0 / 3.0;
    case 5:
      return 0.3074;
    case 6:
    case 7:
      return 3.0 / 8.0;
    default:
      return 0.0;
  }
}

void EOSSetPure(Session& s, int model, int16_t& err) {
  err = 0;
  if (model < 3 || model > 7) {
    err = -1;
    return;
  }
  try {
    const double R = kR;
    const double oa = EOSOmegaA(model), ob = EOSOmegaB(model);
    for (int i = 1; i <= s.NKomp; ++i) {
      const double tc = s.TKrit[i], pc = s.PKrit[i], w = s.Omega[i];
      double a0 = 0, aexp = 0, b0 = 0, c0 = 0, d0 = 0;
      int16_t art = 1;
      b0 = chk::Div(ob * R * tc, pc);
      switch (model) {
        case 3:  // Redlich-Kwong: a = a0 T^-0.5
          a0 = chk::Div(oa * R * R * chk::Pow(tc, 2.5), pc);
          aexp = -0.5;
          d0 = b0;
          break;
        case 4:  // Soave (1972): m = 0.48 + 1.574 w - 0.176 w^2
          a0 = chk::Div(oa * R * R * tc * tc, pc);
          aexp = 0.48 + 1.574 * w - 0.176 * w * w;
          d0 = b0;
          art = 2;
          break;
        case 5:  // Peng-Robinson (1976): m = 0.37464 + 1.54226 w - 0.26992 w^2
          a0 = chk::Div(oa * R * R * tc * tc, pc);
          aexp = 0.37464 + 1.54226 * w - 0.26992 * w * w;
          c0 = (1.0 - std::sqrt(2.0)) * b0;
          d0 = (1.0 + std::sqrt(2.0)) * b0;
          art = 2;
          break;
        case 6:  // van der Waals: a constant
          a0 = chk::Div(oa * R * R * tc * tc, pc);
          break;
        case 7:  // van der Waals form with a = a0/T, equal to the van der Waals a at Tc
          a0 = chk::Div(oa * R * R * tc * tc * tc, pc);
          aexp = -1.0;
          break;
      }
      s.EOSa0[i] = a0;
      s.EOSaExp[i] = aexp;
      s.EOSb0[i] = b0;
      s.EOSc0[i] = c0;
      s.EOSd0[i] = d0;
      s.EOSbExp[i] = 0;
      s.EOScExp[i] = 0;
      s.EOSdExp[i] = 0;
      s.AlphaArt[i] = art;
      s.VKrit[i] = chk::Div(EOSZc(model) * R * tc, pc);
      if (s.VKrit[i] > 1e-6) s.RhoKritEOS[i] = s.MolMasse[i] / s.VKrit[i];
    }
  } catch (const NumericFault&) {
    err = -1;
  }
}

void EOSPureAtOne(const Session& s, int i, double T, double& a, double& b, double& c, double& d) {
  if (s.AlphaArt[i] == 2) {
    const double sa = 1.0 + (1.0 - chk::Sqrt(chk::Div(T, s.TKrit[i]))) * s.EOSaExp[i];
    a = sa * sa * s.EOSa0[i];
  } else {
    a = s.EOSa0[i] * chk::Pow(T, s.EOSaExp[i]);
  }
  b = PowerLaw(s.EOSb0[i], s.EOSbExp[i], T);
  c = PowerLaw(s.EOSc0[i], s.EOScExp[i], T);
  d = PowerLaw(s.EOSd0[i], s.EOSdExp[i], T);
}

void EOSPureAt(Session& s, double T) {
  if (T < 1e-6) return;
  for (int i = 1; i <= s.NKomp; ++i)
    EOSPureAtOne(s, i, T, s.EOSPar[1][i], s.EOSPar[2][i], s.EOSPar[3][i], s.EOSPar[4][i]);
}

void EOSPureDT(Session& s, double T) {
  auto power = [T](double coef, double e, double& d1, double& d2) {
    if (e == 0.0) {
      d1 = d2 = 0.0;
      return;
    }
    const double v = coef * chk::Pow(T, e);
    d1 = e * v / T;
    d2 = e * (e - 1.0) * v / (T * T);
  };
  for (int i = 1; i <= s.NKomp; ++i) {
    double& a1 = s.EOSParDT[1][i];
    double& a2 = s.EOSParD2T[1][i];
    if (s.AlphaArt[i] == 2) {
      // a = a0 s^2, s = 1 + m (1 - sqrt(T/Tc)): s' = -m sqrt(T/Tc)/(2 T), s'' = m sqrt(T/Tc)/(4 T^2)
      const double m = s.EOSaExp[i];
      const double sq = chk::Sqrt(chk::Div(T, s.TKrit[i]));
      const double sa = 1.0 + (1.0 - sq) * m;
      const double s1 = chk::Div(-m * sq, 2.0 * T);
      const double s2 = chk::Div(m * sq, 4.0 * T * T);
      a1 = 2.0 * s.EOSa0[i] * sa * s1;
      a2 = 2.0 * s.EOSa0[i] * (s1 * s1 + sa * s2);
    } else {
      power(s.EOSa0[i], s.EOSaExp[i], a1, a2);
    }
    power(s.EOSb0[i], s.EOSbExp[i], s.EOSParDT[2][i], s.EOSParD2T[2][i]);
    power(s.EOSc0[i], s.EOScExp[i], s.EOSParDT[3][i], s.EOSParD2T[3][i]);
    power(s.EOSd0[i], s.EOSdExp[i], s.EOSParDT[4][i], s.EOSParD2T[4][i]);
  }
}

double PairSlot(const Session& s, int L, int i, int j) {
  if (i > j) std::swap(i, j);
  const int g = (L - 1) / 4, pos = (L - 1) % 4;
  const int k = 2 * g + 1 + (pos % 2);
  return pos < 2 ? s.GEPar(k, i, j) : s.GEPar(k, j, i);
}

double KijAt(const Session& s, int i, int j, double T) {
  const double a = PairSlot(s, 13, i, j), b = PairSlot(s, 14, i, j);
  const double c = PairSlot(s, 15, i, j), d = PairSlot(s, 16, i, j);
  return a + chk::Div(b, T) + c * chk::Ln(T) + d * (T - kT0);
}

bool EOSTabellenBerechnen(Session& s) {
  if (!s.Konzept && s.VapModel < 3) return true;
  int16_t err = 0;
  EOSSetPure(s, s.Konzept ? s.EOSModel : s.VapModel, err);
  return err == 0;
}

}  // namespace peq
