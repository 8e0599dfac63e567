// Curve tracer, the phase-equilibrium families: p-x (1), x-y isothermal (3) and isobaric (6),
// T-x (4), binodal (41), K values (5, 51), the isosteric vapour-pressure curve (7) and the
// relative volatility (10, 11).
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "diagrams/curve_run.h"
#include "diagrams/kurven.h"
#include "engine/azeotrope.h"
#include "engine/gap.h"
#include "engine/kernel.h"
#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/vappressure.h"

namespace peq::curve {

namespace {

// Walk by T(cr): from the component with the higher critical temperature.
struct Richtung {
  double start, end, sign;
  int16_t endK, startK;
};

Richtung ByTc(const Run& r) {
  if (r.s.TKrit[r.k1] > r.s.TKrit[r.k2]) return {0.0, 1.0, 1.0, r.k2, r.k1};
  return {1.0, 0.0, -1.0, r.k1, r.k2};
}

// Walk by p(cr): from 1 to 0 when the largest p(cr) is that of Komp1.
Richtung ByPc(const Run& r, double pcMax) {
  if (pcMax == static_cast<double>(r.s.PKrit[r.k1])) return {1.0, 0.0, -1.0, r.k1, r.k2};
  return {0.0, 1.0, 1.0, r.k2, r.k1};
}

bool GapJump(const Run& r) { return r.Real && r.s.HatGap; }

constexpr const char* kImGap = " lies inside the mixing gap; the real state there is the three-phase point";

// Pure vapour pressure of component i at T: the equation of state under phi-phi, the
// vapour-pressure equation (the P0 of the start) otherwise.
double PureP(Run& r, int16_t i) {
  return r.s.Konzept ? ReinDampfdruck(r.s, i, r.T) : r.P0[static_cast<std::size_t>(i)];
}

// Azeotrope comment of the x-y diagrams. The march of IsBinaerAzeotrop follows the homogeneous
// bubble line, so with a mixing gap at this T or p it can find a point inside the gap, where the
// real state is the three-phase point: the comment then says so.
void AzeotropText(Run& r, const char* maxText, const char* minText) {
  double xaz = 0;
  int16_t kind = 0, overrun = 0;
  if (!IsBinaerAzeotrop(r.s, r.T, r.p, xaz, kind, overrun, r.sink)) return;
  r.Kommentar = std::string(kind != 0 ? maxText : minText) + std::to_string(r.k2) + ") = " + FormatZahl(xaz, "0.0000");
  // xaz is x2 of the pair (1, 2); the gap compositions are those of Komp2.
  const double xk2 = r.k2 == 2 ? xaz : 1.0 - xaz;
  if (r.s.HatGap && xk2 >= r.GapLo && xk2 <= r.GapHi) r.Kommentar += kImGap;
}

}  // namespace

void CaseIsothermPx(Run& r) {
  Session& s = r.s;
  const Richtung w = ByTc(r);
  const double dx = s.Konzept ? r.DX / 2 : r.DX;
  r.Reserve(1.0, dx, 2);
  if (s.HatGap) {
    // The gap point: bubble point at the first gap composition.
    r.yPrev = r.GapX1;
    const double pg = r.BubbleP(r.GapX1, 0.0);
    r.GapW1 = CSng(pg);
    r.GapW2 = CSng(pg);
    r.GapY = CSng(r.K(r.k2) * r.GapX1);
  }
  r.yPrev = w.start;
  double pPrev = 0;
  FailCounter fails;
  r.Walk(w.start, w.end, w.sign * dx, GapJump(r), [&](double v) {
    const double pb = r.BubbleP(v, pPrev);
    if (!(pb > 0)) return fails.Fail();
    fails.Good();
    pPrev = pb;
    const double y = r.yPrev;
    if (r.InY(pb) && (r.InX(v) || r.InX(y))) r.Inside();
    Run::Append(r.K1, r.Ksi(v), pb, r.T);
    Run::Append(r.K2, r.Ksi(y), pb, r.T);
    return true;
  });
  if (!s.Konzept && r.Real && s.HatGap) {
    Run::Append(r.K1, r.Ksi(r.GapX1), r.GapW1, r.T);
    Run::Append(r.K1, r.Ksi(r.GapX2), r.GapW2, r.T);
    SortKurve(r.K1);
  }
  if (r.T < s.TKrit[w.endK] && !fails.Reached()) {
    const double pe = PureP(r, w.endK);
    if (pe > 0) {
      Run::Append(r.K1, r.Ksi(w.end), pe, r.T);
      Run::Append(r.K2, r.Ksi(w.end), pe, r.T);
    }
  }
  if (r.Real) {
    SortKurve(r.K1);
    SortKurve(r.K2);
  }
  SiedeText(s, r.T, r.k1, r.k2, r.Kommentar);
}

void CaseIsothermXY(Run& r) {
  Session& s = r.s;
  const Richtung w = ByTc(r);
  r.Reserve(1.0, r.DX, 1);
  const bool gapPiece = r.Real && s.HatGap;
  double pGap = 0;
  if (gapPiece) {
    r.yPrev = r.GapX1;
    pGap = r.BubbleP(r.GapX1, 0.0);
    if (pGap > 0) r.GapY = CSng(r.K(r.k2) * r.GapX1);
    Run::Append(r.K1, r.Ksi(r.GapX1), r.Ksi(r.GapY), pGap);
  }
  Run::Append(r.K1, r.Ksi(w.start), r.Ksi(w.start), r.P0[static_cast<std::size_t>(w.startK)]);
  r.yPrev = w.start;
  double pPrev = 0;
  FailCounter fails;
  r.Walk(w.start, w.end, w.sign * r.DX, GapJump(r), [&](double v) {
    const double pb = r.BubbleP(v, pPrev);
    if (!(pb > 0)) return fails.Fail();
    fails.Good();
    pPrev = pb;
    const double y = r.yPrev;
    if (std::fabs(y - v) <= 0.0005) return true;
    if (r.InY(y)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), r.Ksi(y), pb);
    return true;
  });
  if (gapPiece) Run::Append(r.K1, r.Ksi(r.GapX2), r.Ksi(r.GapY), pGap);
  if (r.T < s.TKrit[w.endK]) Run::Append(r.K1, r.Ksi(w.end), r.Ksi(w.end), r.P0[static_cast<std::size_t>(w.endK)]);
  SortKurve(r.K1);
  AzeotropText(r, "p-Maximum azeotrope, x(", "p-Minimum azeotrope, x(");
}

void CaseIsobarXY(Run& r) {
  Session& s = r.s;
  const Richtung w = ByPc(r, PcMaxPaar(r));
  const double dx = s.HatGap ? 0.8 * r.DX : r.DX;
  r.Reserve(1.0, dx, 1);
  const bool gapPiece = r.Real && s.HatGap;
  double TGap = 0;
  if (gapPiece) {
    // The gap point of the isobaric diagram lies at the second gap composition.
    r.yPrev = r.GapX2;
    TGap = r.BubbleT(r.GapX2, 0.0);
    if (TGap > 1e-6) r.GapY = CSng(r.K(r.k2) * r.GapX2);
    Run::Append(r.K1, r.Ksi(r.GapX1), r.Ksi(r.GapY), TGap);
  }
  r.yPrev = w.start;
  const double T0 = r.BubbleT(w.start, 0.0);
  Run::Append(r.K1, r.Ksi(w.start), r.Ksi(w.start), T0 > 1e-6 ? T0 : 0.0);
  r.yPrev = w.start;
  double TPrev = 0;
  FailCounter fails;
  r.Walk(w.start, w.end, w.sign * dx, GapJump(r), [&](double v) {
    const double Tb = r.BubbleT(v, TPrev);
    if (!(Tb > 1e-6)) return fails.Fail();
    fails.Good();
    TPrev = Tb;
    const double y = r.yPrev;
    if (std::fabs(y - v) <= 0.0005) return true;
    if (r.InY(y)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), r.Ksi(y), Tb);
    return true;
  });
  if (gapPiece) Run::Append(r.K1, r.Ksi(r.GapX2), r.Ksi(r.GapY), TGap);
  if (r.p < s.PKrit[w.endK]) {
    const double Te = r.BubbleT(w.end, 0.0);
    Run::Append(r.K1, r.Ksi(w.end), r.Ksi(w.end), Te > 1e-6 ? Te : 0.0);
  }
  SortKurve(r.K1);
  AzeotropText(r, "p-maximum azeotrope, x(", "p-minimum azeotrope, x(");
}

void CaseIsobarTx(Run& r) {
  Session& s = r.s;
  Richtung w = ByTc(r);
  if (!s.Konzept) {
    // The deliberate test of the T-x diagram: from 1 to 0 when the largest T(cr) lies above the
    // boiling temperature of Komp2; the boiling temperature of Komp1 is computed and not used.
    int16_t dT = 0, err = 0;
    std::string code1 = s.P0Eq[r.k1], code2 = s.P0Eq[r.k2];
    const float tb1 = BoilingTAtP(s, r.k1, r.p, code1, false, dT, err);
    (void)tb1;
    err = 0;
    const float tb2 = BoilingTAtP(s, r.k2, r.p, code2, false, dT, err);
    if (TcMaxPaar(r) > tb2)
      w = {1.0, 0.0, -1.0, r.k1, r.k2};
    else
      w = {0.0, 1.0, 1.0, r.k2, r.k1};
  }
  double S0 = w.sign * r.DX;
  if (r.Real && s.HatGap) S0 /= 2;
  if (s.Konzept) S0 *= 1.3;
  const double step = 0.4 * S0;
  r.Reserve(1.0, step, 2);
  const double off = s.TOffsetOut;
  r.yPrev = w.start;
  double TPrev = 0;
  int maxWarn = 0;
  FailCounter fails{5, true};
  r.Walk(w.start, w.end, step, GapJump(r), [&](double v) {
    const double Tb = r.BubbleT(v, TPrev);
    maxWarn = std::max(maxWarn, std::abs(static_cast<int>(r.warn)));
    if (!(Tb > 1e-6)) return fails.Fail();
    fails.Good();
    TPrev = Tb;
    const double y = r.yPrev;
    if (r.InY(Tb - off) && (r.InX(v) || r.InX(y))) r.Inside();
    Run::Append(r.K1, r.Ksi(v), Tb - off, r.p);
    Run::Append(r.K2, r.Ksi(y), Tb - off, r.p);
    return true;
  });
  if (!s.Konzept && maxWarn > 5)
    Post(r.sink, "WARNING", "calculation in parts outside the T-limits of a vapour pressure equation",
         MsgIcon::Warning);
  try {
    const double Te = r.BubbleT(w.end, 0.0);
    if (Te > 1e-6) {
      Run::Append(r.K1, r.Ksi(w.end), Te - off, r.p);
      Run::Append(r.K2, r.Ksi(r.yPrev), Te - off, r.p);
    }
  } catch (const NumericFault& e) {
    r.Fault(e);
  }
  if (r.Real && s.HatGap) {
    Run::Append(r.K1, r.Ksi(r.GapX1), r.GapW1 - off, r.p);
    Run::Append(r.K1, r.Ksi(r.GapX2), r.GapW2 - off, r.p);
    SortKurve(r.K1);
  }
  SiedeTextP(s, r.p, r.k1, r.k2, r.Kommentar);
}

void CaseBinodal(Run& r) {
  Session& s = r.s;
  if (!s.HatGap) {
    Post(r.sink, "Note", "No mixing gap calculated!", MsgIcon::Information);
    r.Fehler = -1;
    return;
  }
  const double off = s.TOffsetOut;
  const double step = 5 * r.DY;
  r.Reserve(static_cast<double>(r.TOben) - (s.YMin + off), step, 2);
  std::string msg;
  r.Walk(s.YMin + off, r.TOben, step, false, [&](double Tv) {
    double xa = 0, xb = 0;
    if (!Binodal(s, Tv, xa, xb, msg)) return true;
    const double d = static_cast<double>(r.k1) - r.k2;
    const double x1 = (r.k1 - 1) - xa * d, x2 = (r.k1 - 1) - xb * d;
    Run::Append(r.K1, r.Ksi(x1), Tv - off, 0.0);
    Run::Append(r.K2, r.Ksi(x2), Tv - off, 0.0);
    return true;
  });
  r.Inside();
  // One closed dome: the second branch in reverse order after the first.
  const std::size_t n2 = r.K2.size();
  r.K1.reserve(r.K1.size() + n2);
  for (std::size_t i = n2; i-- > 1;) r.K1.push_back(r.K2[i]);
}

void CaseKIsotherm(Run& r) {
  Session& s = r.s;
  const Richtung w = ByTc(r);
  r.Reserve(1.0, r.DX, 2);
  r.yPrev = w.start;
  double pPrev = 0;
  FailCounter fails;
  auto point = [&](double v) {
    const double pb = r.BubbleP(v, pPrev);
    if (!(pb > 1e-6)) return fails.Fail();
    fails.Good();
    pPrev = pb;
    const double Ka = r.K(r.k1), Kb = r.K(r.k2);
    if (r.InY(Ka) && r.InY(Kb)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), Ka, pb);
    Run::Append(r.K2, r.Ksi(v), Kb, pb);
    return true;
  };
  r.Walk(w.start, w.end, w.sign * r.DX, GapJump(r), point);
  if (s.XMax == 1.0f && !s.Konzept) {
    try {
      const std::size_t n1 = r.K1.size(), n2 = r.K2.size();
      // The point at x2 = 1 stands in walk order: last when the walk ends there, first when it
      // starts there, so that the line does not run back over the whole curve.
      if (point(1.0) && w.start == 1.0 && r.K1.size() > n1 && r.K2.size() > n2) {
        std::rotate(r.K1.begin() + 1, r.K1.end() - 1, r.K1.end());
        std::rotate(r.K2.begin() + 1, r.K2.end() - 1, r.K2.end());
      }
    } catch (const NumericFault& e) {
      r.Fault(e);
    }
  }
}

void CaseKIsobar(Run& r) {
  const Richtung w = ByPc(r, PcMaxPaar(r));
  const double tcMax = TcMaxPaar(r);
  r.Reserve(1.0, r.DX, 2);
  r.yPrev = w.start;
  double TPrev = 0;
  r.Walk(w.start, w.end, w.sign * r.DX, GapJump(r), [&](double v) {
    const double Tb = r.BubbleT(v, TPrev);
    if (Tb <= 1e-6 || Tb >= tcMax) return true;
    TPrev = Tb;
    const double Ka = r.K(r.k1), Kb = r.K(r.k2);
    if (r.InY(Kb)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), Ka, Tb);
    Run::Append(r.K2, r.Ksi(v), Kb, Tb);
    return true;
  });
}

void CaseIsosterPT(Run& r) {
  Session& s = r.s;
  const double off = s.TOffsetOut;
  r.Reserve(s.TKritMax - (s.XMin + off), r.DX, 1);
  r.SetX(r.x2Iso);
  r.yPrev = r.x2Iso;
  double pPrev = 0;
  FailCounter fails{10};
  const double tc1 = s.TKrit[r.k1], tc2 = s.TKrit[r.k2];
  const double Tkeep0 = r.T;
  r.Walk(s.XMin + off, s.TKritMax, r.DX, false, [&](double Tv) {
    if (!s.Konzept ? (Tv > tc1 && Tv > tc2) : Tv >= s.TKritMax) return false;
    if (Tv <= 1e-6) return true;
    const double Tkeep = r.T;
    r.T = Tv;
    const double pb = r.BubbleP(r.x2Iso, pPrev);
    r.T = Tkeep;
    if (!(pb > 0)) return fails.Fail();
    fails.Good();
    if (!(pb > pPrev)) return true;
    pPrev = pb;
    if (r.InY(pb)) r.Inside();
    Run::Append(r.K1, Tv - off, pb, r.x2Iso);
    return true;
  });
  r.T = Tkeep0;
}

void CaseAlphaIsotherm(Run& r) {
  const Richtung w = ByTc(r);
  const double step = 1.5 * r.DX;
  r.Reserve(1.0, step, 1);
  r.yPrev = w.start;
  double pPrev = 0;
  r.Walk(w.start, w.end, w.sign * step, GapJump(r), [&](double v) {
    const double pb = r.BubbleP(v, pPrev);
    if (!(pb > 0)) return true;  // the K values of a failed point are not defined
    pPrev = pb;
    const double a = chk::Div(r.K(1), r.K(2));
    if (r.InY(a)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), a, pb);
    return true;
  });
}

void CaseAlphaIsobar(Run& r) {
  const Richtung w = ByPc(r, PcMaxPaar(r));
  const double tcMax = TcMaxPaar(r);
  r.Reserve(1.0, r.DX, 1);
  r.yPrev = w.start;
  double TPrev = 0;
  r.Walk(w.start, w.end, w.sign * r.DX, GapJump(r), [&](double v) {
    const double Tb = r.BubbleT(v, TPrev);
    if (Tb <= 1e-6 || Tb >= tcMax) return true;
    TPrev = Tb;
    const double a = chk::Div(r.K(1), r.K(2));
    if (r.InY(a)) r.Inside();
    Run::Append(r.K1, r.Ksi(v), a, Tb);
    return true;
  });
}

}  // namespace peq::curve
