// Curve tracer, the activity-coefficient family: gamma and ln gamma isothermal and isobaric
// (8, 81, 82, 83) and the consistency curve ln(f2/f1) (9).
#include <cmath>

#include "diagrams/curve_run.h"
#include "diagrams/kurven.h"
#include "engine/kernel.h"
#include "models/activity.h"

namespace peq::curve {

namespace {

const char* const kFuenf = "     ";

// Text of one limiting value: "f2 = 3.456" or "ln(f2) = 1.24".
std::string Grenzwert(bool ln, int16_t k, double g) {
  if (ln) return "ln(f" + std::to_string(k) + ") = " + FormatZahl(chk::Ln(g), "###.000##");
  return "f" + std::to_string(k) + " = " + FormatZahl(g, "#####.0##");
}

}  // namespace

void CaseGamma(Run& r) {
  Session& s = r.s;
  const bool isobar = r.NoDia == 82 || r.NoDia == 83;
  const bool ln = r.NoDia == 81 || r.NoDia == 83;
  if (isobar) {
    s.IsoArt = 2;
    double tc, pc;
    int16_t km;
    KritMax(s, r.k1, r.k2, tc, pc, km, r.sink);
  }
  // T of a point: the given T, or the bubble temperature at p in the isobaric forms.
  auto tempAt = [&](double v, double TStart, double& z) -> double {
    if (isobar) {
      const double Tb = r.BubbleT(v, TStart);
      z = Tb;
      return Tb;
    }
    z = r.BubbleP(v, 0.0);
    return r.T;
  };

  // Limiting activity coefficients: Komp2 infinitely dilute, then Komp1.
  try {
    int16_t err = 0;
    double z = 0;
    r.yPrev = 0.0;
    double Ta = tempAt(0.0, 0.0, z);
    r.SetX(0.0);
    ActivityCoeffs(s, Ta, r.x, s.Gamma, err);
    const double g2 = s.Gamma[r.k2];
    const bool ok2 = err == 0 && Ta > 1e-6;
    r.yPrev = 1.0;
    double Tb = tempAt(1.0, 0.0, z);
    r.SetX(1.0);
    ActivityCoeffs(s, Tb, r.x, s.Gamma, err);
    const double g1 = s.Gamma[r.k1];
    const bool ok1 = err == 0 && Tb > 1e-6;
    std::string text = "limiting activity coeff. at ";
    if (isobar)
      text += "p/kPa = " + FormatZahl(r.p, "##########.00#");
    else
      text += std::string(s.TOffsetOut == 0 ? "T/K = " : "t/°C = ") + FormatZahl(r.T - s.TOffsetOut, "####.0");
    if (ok2) text += kFuenf + Grenzwert(ln, r.k2, g2);
    if (ok1) text += kFuenf + Grenzwert(ln, r.k1, g1);
    r.Kommentar = text;
  } catch (const NumericFault& e) {
    r.Fault(e);
  }

  const double step = 1.5 * r.DX;
  r.Reserve(static_cast<double>(s.XMax) - s.XMin, step, 2);
  r.yPrev = s.XMin;
  double TPrev = 0;
  r.Walk(s.XMin, s.XMax, step, r.Real && s.HatGap, [&](double v) {
    double z = 0;
    const double Tp = tempAt(v, TPrev, z);
    if (!(Tp > 1e-6)) return true;
    if (isobar) TPrev = Tp;
    r.SetX(v);
    int16_t err = 0;
    ActivityCoeffs(s, Tp, r.x, s.Gamma, err);
    if (err != 0) return true;
    double v2 = s.Gamma[r.k2], v1 = s.Gamma[r.k1];
    if (ln) {
      v2 = chk::Ln(v2);
      v1 = chk::Ln(v1);
    }
    if (r.InY(v2) || r.InY(v1)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), v2, z);
    Run::Append(r.K2, r.Ksi(v), v1, z);
    return true;
  });
}

void CaseLnF2F1(Run& r) {
  Session& s = r.s;
  const double step = 1.5 * r.DX;
  r.Reserve(static_cast<double>(s.XMax) - s.XMin, step, 1);
  r.yPrev = s.XMin;
  auto point = [&](double v) {
    const double pb = r.BubbleP(v, 0.0);
    r.SetX(v);
    int16_t err = 0;
    ActivityCoeffs(s, r.T, r.x, s.Gamma, err);
    if (err != 0) return true;
    const double f = chk::Ln(s.Gamma[r.k2]) - chk::Ln(s.Gamma[r.k1]);
    if (r.InY(f)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), f, pb);
    return true;
  };
  r.Walk(s.XMin, s.XMax, step, r.Real && s.HatGap, point);
  try {
    point(s.XMax);
  } catch (const NumericFault& e) {
    r.Fault(e);
  }
}

}  // namespace peq::curve
