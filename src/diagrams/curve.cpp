// The curve tracer: the start of every call (steps, flags, pure vapour pressures, mixing gap),
// the selection over the diagram number, the point helpers and the exchange sort.
#include "diagrams/curve.h"

#include <algorithm>
#include <cmath>

#include "diagrams/curve_run.h"
#include "engine/gap.h"
#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/eos_sat.h"
#include "models/vappressure.h"

namespace peq {

namespace curve {

double Run::BubbleP(double v, double pStart) {
  SetX(v);
  SetY(yPrev);
  vL = 0;
  vV = 0;
  const double pb = SafeBubbleP(s, T, x, pStart, ys, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  if (pb > 0) yPrev = K(k2) * x[static_cast<std::size_t>(k2)];
  return pb;
}

double Run::BubbleT(double v, double TStart) {
  SetX(v);
  SetY(yPrev);
  vL = 0;
  vV = 0;
  warn = 0;
  double Tin = TStart;
  const double Tb = SafeBubbleT(s, p, x, Tin, ys, warn, s.KWert, vL, vV);
  if (Tb > 1e-6) yPrev = K(k2) * x[static_cast<std::size_t>(k2)];
  return Tb;
}

double Run::Ksi(double v) const {
  if (s.ConcUnit == 0) return v;
  const double m1 = s.MolMasse[k1], m2 = s.MolMasse[k2];
  return chk::Div(v, chk::Div(m1, m2) * (1.0 - v) + v);
}

void Run::Reserve(double range, double step, int curves) {
  double n = (step != 0.0 && std::isfinite(range / step)) ? std::fabs(range / step) : 0.0;
  n = std::min(n, 200000.0) + 8.0;
  const auto want = static_cast<std::size_t>(n);
  K1.reserve(K1.size() + want + (NoDia == 41 ? want : 0));
  if (curves == 2) K2.reserve(K2.size() + want);
}

namespace {

float HeaderCode(int16_t NoDia) {
  switch (NoDia) {
    case 1: case 6: case 51: case 11: case 82: case 83:
      return kZT;
    case 3: case 4: case 5: case 9: case 10: case 8: case 81:
      return kZp;
    case 7: case 183:
      return kZx2;
    default:
      if ((NoDia >= 110 && NoDia <= 116) || (NoDia >= 120 && NoDia <= 126)) return kZp;
      return 0.0f;
  }
}

void Dispatch(Run& r) {
  const int16_t d = r.NoDia;
  if ((d >= 110 && d <= 116) || (d >= 120 && d <= 126)) {
    CaseGE(r);
    return;
  }
  switch (d) {
    case 1: CaseIsothermPx(r); break;
    case 3: CaseIsothermXY(r); break;
    case 4: CaseIsobarTx(r); break;
    case 41: CaseBinodal(r); break;
    case 5: CaseKIsotherm(r); break;
    case 51: CaseKIsobar(r); break;
    case 6: CaseIsobarXY(r); break;
    case 7: CaseIsosterPT(r); break;
    case 8: case 81: case 82: case 83: CaseGamma(r); break;
    case 9: CaseLnF2F1(r); break;
    case 10: CaseAlphaIsotherm(r); break;
    case 11: CaseAlphaIsobar(r); break;
    case 15: case 16: CaseHS(r); break;
    case 17: CaseCpE(r); break;
    case 181: case 182: case 183: CaseDensity(r); break;
    default: break;  // 2 and unknown numbers produce nothing
  }
}

// Step 3 of the start: the pure vapour pressures at T into the caller's P0 (and the session's).
bool PureVapourPressures(Run& r) {
  Session& s = r.s;
  int16_t bad = 0, dT = 0;
  if (s.Konzept) {
    EOSAllP0(s, r.T, bad);
    // Above its T(cr) a component has no vapour pressure on its equation of state; only a
    // failure below it counts.
    bad = 0;
    for (int16_t i : {r.k1, r.k2})
      if (r.T < s.TKrit[i] && !(s.P0[i] > 0)) bad = i;
  } else {
    AllP0(s, r.T, bad, dT);
  }
  if (&r.P0 != &s.P0) {
    if (r.P0.size() < s.P0.size()) r.P0.assign(s.P0.size(), 0.0f);
    for (std::size_t i = 0; i < s.P0.size(); ++i) r.P0[i] = s.P0[i];
  }
  return bad == 0;
}

}  // namespace

}  // namespace curve

void SortKurve(Kurve& k) {
  if (k.size() < 3) return;
  bool swapped = true;
  while (swapped) {
    swapped = false;
    for (std::size_t i = 1; i + 1 < k.size(); ++i) {
      if (k[i].x > k[i + 1].x) {
        std::swap(k[i], k[i + 1]);
        swapped = true;
      }
    }
  }
}

void CalcCurve(Session& s, int16_t& NoDia, double T, double p, float x2Iso, Kurve& Kurve1, Kurve& Kurve2,
               Vec<double>& x, Vec<float>& P0, int16_t& Komp1, int16_t& Komp2, int16_t& Ausserhalb, int16_t RealKurve,
               float TOben, float& GapX1, float& GapW1, float& GapX2, float& GapW2, float& GapY,
               std::string& Kommentar, int16_t& Fehler, MsgSink* sink) {
  using namespace curve;
  Kurve1.clear();
  Kurve2.clear();
  const float code = HeaderCode(NoDia);
  Kurve1.push_back(KurvenPunkt{0.0f, 0.0f, code});
  Kurve2.push_back(KurvenPunkt{0.0f, 0.0f, code});

  // Start of every call.
  Kommentar.clear();
  Fehler = 0;
  Ausserhalb = -1;
  s.HatGap = false;
  const int n = s.NKomp;
  if (n < 2 || Komp1 < 1 || Komp2 < 1 || Komp1 > n || Komp2 > n || Komp1 == Komp2) {
    Fehler = -1;
    return;
  }
  if (x.size() < static_cast<std::size_t>(n) + 1) x.assign(static_cast<std::size_t>(n) + 1, 0.0);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = 0.0;

  Run r{s,     NoDia,     T,      p,     x2Iso, Kurve1, Kurve2, x,     P0,        Komp1,  Komp2, Ausserhalb,
        RealKurve != 0, TOben, GapX1, GapW1, GapX2, GapW2,  GapY,   Kommentar, Fehler, sink};
  r.ys.assign(static_cast<std::size_t>(n) + 1, 0.0);
  if (s.YGas.size() < static_cast<std::size_t>(n) + 1) s.YGas.assign(static_cast<std::size_t>(n) + 1, 0.0);
  r.DX = (static_cast<double>(s.XMax) - s.XMin) / s.KurvenPunkte;
  r.DY = (static_cast<double>(s.YMax) - s.YMin) / s.KurvenPunkte;

  try {
    if (NoDia < 4 || NoDia == 10) {
      if (!PureVapourPressures(r)) {
        Fehler = -1;
        return;
      }
    }
    if (!s.Konzept) {
      int16_t found = 0, gcode = 0;
      double xA = 0, xB = 0;
      GapSuche(s, found, Komp1, Komp2, xA, xB, GapX1, GapX2, GapW1, GapW2, gcode);
      if (gcode == 1) {
        Post(sink, "Execution not possible",
             std::string("Error while calculating vapour pressure") + kNL + "Try to change the vapour pressure equation",
             MsgIcon::Stop);
        return;
      }
      s.HatGap = found != 0;
      if (s.HatGap) {
        r.GapLo = std::fmin(GapX1, GapX2);
        r.GapHi = std::fmax(GapX1, GapX2);
      }
    }
  } catch (const NumericFault& e) {
    r.Fault(e);
  }

  try {
    Dispatch(r);
  } catch (const NumericFault& e) {
    r.Fault(e);
  }

  Kurve1[0].x = static_cast<float>(Kurve1.size() - 1);
  Kurve2[0].x = static_cast<float>(Kurve2.size() - 1);
}

}  // namespace peq
