#include "models/eos_phi.h"

#include <cmath>

#include "models/eos_mix.h"
#include "models/eos_solve.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {
inline bool EqualCD(int model) { return model == 6 || model == 7; }
}  // namespace

double EOSLnPhi(double T, double p, double v, int model, double a, double b, double c, double d, double da,
                double db, double dc, double dd) {
  const double RT = kR * T;
  const double Z = chk::Div(p * v, RT);
  const double lnvvb = chk::Ln(chk::Div(v, v - b));
  const double rep = chk::Div(b + db, v - b);
  if (EqualCD(model)) {
    const double vc = v + c;
    const double lnphi = lnvvb + rep - chk::Ln(Z) - chk::Div(2.0 * a + da, RT * vc) + chk::Div(a * (c + dc), RT * vc * vc);
    return chk::Exp(lnphi);
  }
  const double cd = c - d;
  const double A = chk::Ln(chk::Div(v + c, v + d));
  const double Q = chk::Div(a, RT * cd * cd);
  const double rhs = lnvvb + rep - chk::Div((2.0 * a + da) * A, RT * cd) + (c + dc) * Q * (A - chk::Div(cd, v + c)) +
                     (d + dd) * Q * (chk::Div(cd, v + d) - A);
  return chk::Div(chk::Exp(rhs), Z);
}

double EOSLnPhiMix(double T, double p, double v, int model, double a, double b, double c, double d) {
  const double RT = kR * T;
  const double Z = chk::Div(p * v, RT);
  const double lambda = EqualCD(model) ? chk::Div(1.0, v + c) : chk::Div(chk::Ln(chk::Div(v + c, v + d)), c - d);
  return chk::Fin(Z - 1.0 - chk::Ln(Z) + chk::Ln(chk::Div(v, v - b)) - a * lambda / RT);
}

void EOSResidual(double T, double p, double v, int model, const double a[3], const double b[3], const double c[3],
                 const double d[3], double g[3]) {
  const double R = kR, RT = kR * T;
  const double vc = v + c[0], vd = v + d[0], vb = v - b[0];
  // Lambda = integral of 1/((v+c)(v+d)) from v to infinity, with its derivatives.
  double L0, L1, L2, Lv, LvT;
  Lv = chk::Div(-1.0, vc * vd);
  LvT = (c[1] / vc + d[1] / vd) / (vc * vd);
  if (EqualCD(model)) {
    L0 = chk::Div(1.0, vc);
    L1 = -c[1] * L0 * L0;
    L2 = -c[2] * L0 * L0 + 2.0 * c[1] * c[1] * L0 * L0 * L0;
  } else {
    const double E0 = c[0] - d[0], E1 = c[1] - d[1], E2 = c[2] - d[2];
    const double l0 = chk::Ln(chk::Div(vc, vd));
    const double l1 = c[1] / vc - d[1] / vd;
    const double l2 = c[2] / vc - (c[1] / vc) * (c[1] / vc) - d[2] / vd + (d[1] / vd) * (d[1] / vd);
    L0 = chk::Div(l0, E0);
    L1 = (l1 - L0 * E1) / E0;
    L2 = (l2 - 2.0 * L1 * E1 - L0 * E2) / E0;
  }
  const double Y0 = a[0] * L0 / RT;
  const double YT = (a[1] * L0 + a[0] * L1) / RT - a[0] * L0 / (RT * T);
  const double YTT = (a[2] * L0 + 2.0 * a[1] * L1 + a[0] * L2) / RT - 2.0 * (a[1] * L0 + a[0] * L1) / (RT * T) +
                     2.0 * a[0] * L0 / (RT * T * T);
  const double YTv = (a[1] * Lv + a[0] * LvT) / RT - a[0] * Lv / (RT * T);
  const double pv = p * v;
  g[0] = chk::Fin(pv / RT - 1.0 - chk::Ln(p) + chk::Ln(RT) - chk::Ln(vb) - Y0);
  const double FT = -pv / (RT * T) + 1.0 / T + b[1] / vb - YT;
  const double FTT = 2.0 * pv / (RT * T * T) - 1.0 / (T * T) + b[2] / vb + (b[1] / vb) * (b[1] / vb) - YTT;
  const double FTv = -p / (RT * T) + b[1] / (vb * vb) - YTv;
  // dv/dT along the isobar.
  const double q = vc * vd;
  const double pT = R / vb + RT * b[1] / (vb * vb) - a[1] / q + a[0] * (c[1] / vc + d[1] / vd) / q;
  const double pV = -RT / (vb * vb) + a[0] * (2.0 * v + c[0] + d[0]) / (q * q);
  const double vT = chk::Div(-pT, pV);
  g[1] = chk::Fin(FT);
  g[2] = chk::Fin(FTT + FTv * vT);
}

int16_t EOSExcess(Session& s, double T, double p, const Vec<double>& x, double& hE, double& TsE, double& gE,
                  double* cpE) {
  try {
    const int model = s.EOSModel, rule = s.MixRule;
    const int n = s.NKomp;
    if (n < 1) return -1;
    EOSMixAtT(s, T, model, rule, s.GEModelEOS, true);
    const double R = kR, RT = kR * T;
    // One phase: the liquid root of the cubic at T, p. For pure component `pure` (0: the mixture)
    // below its critical temperature a lone root beyond the critical volume is its vapour: at this
    // p the cubic has no liquid of that component, and the excess functions, which refer to the
    // pure liquids, have no value.
    auto phase = [&](int pure, const double a[3], const double b[3], const double c[3], const double d[3], double& G,
                     double& H, double& Cp) {
      EOSRoots roots{};
      int16_t nr = 0, err = 0;
      EOSSolve(T, p, 0.0, a[0], b[0], c[0], d[0], roots, nr, err);
      if (err != 0) chk::Fault("cubic without root");
      if (pure > 0 && nr == 1 && T < s.TKrit[pure] && roots[1] > s.VKrit[pure]) chk::Fault("no liquid root");
      double g[3];
      EOSResidual(T, p, LiquidRoot(roots), model, a, b, c, d, g);
      G = RT * g[0];
      H = -RT * T * g[1];
      Cp = -2.0 * R * T * g[1] - RT * T * g[2];
    };
    double sumG = 0, sumH = 0, sumC = 0;
    for (int i = 1; i <= n; ++i) {
      const double a[3] = {s.EOSPar[1][i], s.EOSParDT[1][i], s.EOSParD2T[1][i]};
      const double b[3] = {s.EOSPar[2][i], s.EOSParDT[2][i], s.EOSParD2T[2][i]};
      const double c[3] = {s.EOSPar[3][i], s.EOSParDT[3][i], s.EOSParD2T[3][i]};
      const double d[3] = {s.EOSPar[4][i], s.EOSParDT[4][i], s.EOSParD2T[4][i]};
      double G, H, C;
      phase(x[i] != 0.0 ? i : 0, a, b, c, d, G, H, C);
      sumG += x[i] * G;
      sumH += x[i] * H;
      sumC += x[i] * C;
    }
    double a[3], b[3], c[3], d[3];
    EOSMixTDerivs(s, x, T, model, rule, a, b, c, d);
    double G, H, C;
    phase(0, a, b, c, d, G, H, C);
    const double g = chk::Fin(G - sumG), h = chk::Fin(H - sumH), cp = chk::Fin(C - sumC);
    gE = g;
    hE = h;
    TsE = h - g;
    if (cpE) *cpE = cp;
    return 0;
  } catch (const NumericFault&) {
    return -1;
  }
}

}  // namespace peq
