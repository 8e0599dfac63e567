// Curve tracer, the densities of the coexisting phases: over x at T (181) and at p (182), over T
// at fixed x2 (183). rho = M/v with the mean molar mass of each phase, kg/m^3.
#include <cmath>

#include "diagrams/curve_run.h"
#include "engine/kernel.h"
#include "models/vapourphi.h"

namespace peq::curve {

namespace {

// Molar volumes of the two phases of the last bubble point (m^3/kmol). The equation of state
// gives them in the phi-phi concept; in gamma-phi the liquid is the mole-fraction mean of the
// pure-liquid volumes VLiq and the vapour comes from the vapour law of the vapour model.
void Volumina(Run& r, double T, double p, double& vL, double& vV) {
  Session& s = r.s;
  if (s.Konzept) {
    vL = r.vL;
    vV = r.vV;
    return;
  }
  vL = 0;
  for (int16_t i : {r.k1, r.k2}) vL += r.x[static_cast<std::size_t>(i)] * s.VLiq[i];
  int16_t err = 0;
  vV = 0;
  CalcVapourPhi(s, T, p, s.BVir, s.YGas, s.PhiVMix, vV, err);
  if (err != 0) vV = 0;
}

// rhoL, rhoV from the bubble point just computed; false when the two phases are not apart.
bool Dichten(Run& r, double T, double p, double& rhoL, double& rhoV, bool isobar) {
  double vL = 0, vV = 0;
  Volumina(r, T, p, vL, vV);
  if (isobar ? (vV - vL <= 0.0001) : (std::fabs(vL - vV) <= 0.0001)) return false;
  const Session& s = r.s;
  double M = 0, My = 0;
  for (int16_t i : {r.k1, r.k2}) {
    M += s.MolMasse[i] * r.x[static_cast<std::size_t>(i)];
    My += s.MolMasse[i] * s.YGas[i];
  }
  rhoL = chk::Div(M, vL);
  rhoV = chk::Div(My, vV);
  return true;
}

}  // namespace

void CaseDensity(Run& r) {
  Session& s = r.s;
  FailCounter fails;
  if (r.NoDia == 181) {
    const bool up = s.TKrit[r.k1] > s.TKrit[r.k2];
    const double step = (up ? 0.75 : -0.75) * r.DX;
    r.Reserve(1.0, step, 2);
    r.yPrev = up ? 0.0 : 1.0;
    double pPrev = 0;
    r.Walk(up ? 0.0 : 1.0, up ? 1.0 : 0.0, step, r.Real && s.HatGap, [&](double v) {
      const double pb = r.BubbleP(v, pPrev);
      double rhoL = 0, rhoV = 0;
      if (!(pb > 0) || !Dichten(r, r.T, pb, rhoL, rhoV, false)) return fails.Fail();
      fails.Good();
      pPrev = pb;
      if (r.InY(rhoL) && r.InX(v)) r.Inside();
      Run::Append(r.K1, r.Ksi(v), rhoL, 0.0);
      Run::Append(r.K2, r.Ksi(v), rhoV, 0.0);
      return true;
    });
  } else if (r.NoDia == 182) {
    // The largest p(cr) is not worked out here and stays 0: the walk runs from 0 to 1 unless
    // PKrit(Komp1) is 0.
    const double pcMax = 0.0;
    const bool down = pcMax == static_cast<double>(s.PKrit[r.k1]);
    const double step = (down ? -0.4 : 0.4) * r.DX;
    r.Reserve(1.0, step, 2);
    r.yPrev = down ? 1.0 : 0.0;
    double TPrev = 0;
    r.Walk(down ? 1.0 : 0.0, down ? 0.0 : 1.0, step, r.Real && s.HatGap, [&](double v) {
      const double Tb = r.BubbleT(v, TPrev);
      double rhoL = 0, rhoV = 0;
      if (Tb <= 1e-6 || !Dichten(r, Tb, r.p, rhoL, rhoV, true)) return fails.Fail();
      fails.Good();
      TPrev = Tb;
      if (r.InY(rhoL) && r.InX(v)) r.Inside();
      Run::Append(r.K1, r.Ksi(v), rhoL, 0.0);
      Run::Append(r.K2, r.Ksi(v), rhoV, 0.0);
      return true;
    });
  } else {
    const double off = s.TOffsetOut;
    const double step = 0.2 * r.DX;
    r.Reserve(static_cast<double>(s.XMax) - s.XMin, step, 2);
    r.yPrev = r.x2Iso;
    double pPrev = 0;
    const double Tkeep = r.T;
    r.Walk(s.XMin + off, s.XMax + off, step, false, [&](double Tv) {
      r.T = Tv;
      const double pb = r.BubbleP(r.x2Iso, pPrev);
      double rhoL = 0, rhoV = 0;
      const bool ok = pb > 0 && Dichten(r, Tv, pb, rhoL, rhoV, false);
      r.T = Tkeep;
      if (!ok) return true;
      pPrev = pb;
      if (r.InY(rhoL) && r.InX(Tv - off)) r.Inside();
      Run::Append(r.K1, Tv - off, rhoL, r.x2Iso);
      Run::Append(r.K2, Tv - off, rhoV, r.x2Iso);
      return true;
    });
    r.T = Tkeep;
  }
}

}  // namespace peq::curve
