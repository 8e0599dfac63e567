// Curve tracer, the excess family: gE and delta(M)g with their composition derivatives
// (110..116, 120..126), delta(M)h and T sE (15, 16) and cpE (17). Values in kJ/kmol times the
// display factor FuFaktor; R = 8.31451 kJ/(kmol K).
#include <cmath>

#include "diagrams/curve_run.h"
#include "engine/excess.h"
#include "engine/kernel.h"
#include "models/eos_phi.h"
#include "models/gmix.h"
#include "session/constants.h"

namespace peq::curve {

namespace {

bool JumpWithGap(const Run& r) { return r.Real && r.s.HatGap && r.s.GapAktiv; }

}  // namespace

void CaseGE(Run& r) {
  Session& s = r.s;
  const int16_t d = r.NoDia;
  s.GapAktiv = (d == 110 || d == 120);
  const int order = d < 120 ? d - 110 : d - 120;
  const bool mischung = d > 116;
  const double RT = kR * r.T;
  const double inward = (order > 0 || s.Konzept) ? 1e-8 : 0.0;
  double par[4] = {0, 0, 0, 0};
  const bool closed = !s.Konzept && s.GEModel < 20;
  if (closed && s.GEModel > 0) {
    int16_t err = 0;
    GMForParams(s, r.T, r.k1, r.k2, par, err);
    if (err != 0) {
      r.Fehler = -1;
      return;
    }
  }
  // Value of the point at x2 = v and the bubble pressure as its third quantity. As in the p-x
  // walk, each bubble point starts from the pressure and the vapour of the previous good point.
  double pPrev = 0;
  auto value = [&](double v, double& z, bool& ok) -> double {
    z = r.BubbleP(v, pPrev);
    if (z > 0)
      pPrev = z;
    else
      z = 0;
    r.SetX(v);
    ok = true;
    double g = 0;
    if (s.Konzept) {
      double hE = 0, TsE = 0, gE = 0;
      if (EOSExcess(s, r.T, z > 0 ? z : r.p, r.x, hE, TsE, gE) != 0) {
        ok = false;
        return 0;
      }
      g = gE;
    } else if (closed) {
      g = RT * GMFor(s, order, v, par[0], par[1], par[2], par[3]);
    } else {
      double Gid = 0, GE = 0, GM = 0;
      int16_t err = 0;
      if (order > 2) {
        ok = false;
        return 0;
      }
      GMix(s, r.T, static_cast<int16_t>(order), v, Gid, GE, GM, err);
      if (err != 0) {
        ok = false;
        return 0;
      }
      g = GE;
    }
    try {
      if (mischung) g += RT * GMIdeal(order, v);
      g *= s.FuFaktor;
      // The curve keeps single precision: a value beyond its range is a failed point of the
      // curve, left out, not a run-time error.
      (void)CSng(g);
    } catch (const NumericFault&) {
      ok = false;
      return 0;
    }
    return g;
  };

  const double step = -1.5 * r.DX;
  const double from = s.XMax - inward, to = s.XMin + inward;
  r.Reserve(from - to, step, 1);
  r.yPrev = from;
  r.Walk(from, to, step, JumpWithGap(r), [&](double v) {
    double z = 0;
    bool ok = true;
    const double g = value(v, z, ok);
    if (!ok) return true;
    if (r.InY(g)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), g, z);
    return true;
  });
  if (order == 0) Run::Append(r.K1, 0.0, 0.0, 0.0);
  if (r.Real && s.HatGap && s.GapAktiv) {
    pPrev = 0;
    for (float xg : {r.GapX1, r.GapX2}) {
      double z = 0;
      bool ok = true;
      const double g = value(xg, z, ok);
      if (ok) Run::Append(r.K1, r.Ksi(xg), g, z);
    }
    SortKurve(r.K1);
  }
}

void CaseHS(Run& r) {
  Session& s = r.s;
  s.GapAktiv = true;
  const bool entropie = r.NoDia == 16;
  auto value = [&](double v, bool& ok) -> double {
    r.SetX(v);
    double hE = 0, TsE = 0, gE = 0;
    int16_t err = 0;
    ExcessT(s, r.T, r.p, r.x, hE, TsE, gE, err);
    ok = err == 0;
    return s.FuFaktor * (entropie ? TsE : hE);
  };
  const double step = -1.5 * r.DX;
  r.Reserve(static_cast<double>(s.XMax) - s.XMin, step, 1);
  r.Walk(s.XMax, s.XMin, step, JumpWithGap(r), [&](double v) {
    bool ok = true;
    const double h = value(v, ok);
    if (!ok) {
      r.Fehler = -1;
      return false;
    }
    if (r.InY(h)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), h, 0.0);
    return true;
  });
  if (r.Fehler == 0 && r.Real && s.HatGap) {
    for (float xg : {r.GapX1, r.GapX2}) {
      bool ok = true;
      const double h = value(xg, ok);
      if (ok) Run::Append(r.K1, r.Ksi(xg), h, 0.0);
    }
    SortKurve(r.K1);
  }
}

void CaseCpE(Run& r) {
  Session& s = r.s;
  const double step = -1.5 * r.DX;
  r.Reserve(static_cast<double>(s.XMax) - s.XMin, step, 1);
  r.Walk(s.XMax, s.XMin, step, r.Real && s.HatGap, [&](double v) {
    r.SetX(v);
    double cp = 0;
    int16_t err = 0;
    ExcessCp(s, r.T, r.x, cp, err);
    if (err != 0) return true;
    const double c = s.FuFaktor * cp;
    if (r.InY(c)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), c, 0.0);
    return true;
  });
  // The closing point at XMin carries no display factor, and counts as inside whatever it is.
  try {
    r.SetX(s.XMin);
    double cp = 0;
    int16_t err = 0;
    ExcessCp(s, r.T, r.x, cp, err);
    if (err == 0) {
      Run::Append(r.K1, r.Ksi(s.XMin), cp, 0.0);
      r.Inside();
    }
  } catch (const NumericFault& e) {
    r.Fault(e);
  }
}

}  // namespace peq::curve
