// One point of one binary diagram (SingleCalc), and the liquid in equilibrium with a given vapour
// at p by successive substitution on the bubble temperature (SingleCalcXY).
#include "engine/singlecalc.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/activity.h"
#include "models/pureprops.h"
#include "models/vapourphi.h"
#include "session/numeric.h"

namespace peq {

namespace {

constexpr int kRoundsXY = 2500;
constexpr double kTolXY = 1e-7;  // on the change of x(K2) between two rounds

// Work arrays sized for the mixture (on first use only).
Session::FlashWorkArrays& Work(Session& s) {
  Session::FlashWorkArrays& w = s.FlashWork;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  if (w.X.size() != m)
    for (Vec<double>* v : {&w.Z, &w.D, &w.E, &w.X, &w.Y, &w.Phi}) v->assign(m, 0.0);
  return w;
}

// The pair's composition: x(K2) = x2, x(K1) = 1 - x2, every other component 0.
void SetPair(Vec<double>& x, int n, int16_t K1, int16_t K2, double x2) {
  for (int i = 1; i <= n; ++i) x[i] = 0.0;
  x[K1] = 1.0 - x2;
  x[K2] = x2;
}

// Bubble pressure at T and bubble temperature at p of the liquid x with made start values,
// safeguarded as the session asks; YGas, KWert, Gamma, PhiKorr carry the rest.
double BubbleP(Session& s, double T, const Vec<double>& x, double& vL, double& vV) {
  Vec<double>& y0 = s.FlashWork.Y;
  y0.fill(0.0);
  return SafeBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
}

double BubbleT(Session& s, double p, const Vec<double>& x, double& vL, double& vV) {
  Vec<double>& y0 = s.FlashWork.Y;
  y0.fill(0.0);
  double Tin = 0;
  int16_t warn = 0;
  return SafeBubbleT(s, p, x, Tin, y0, warn, s.KWert, vL, vV);
}

void Put1(SingleOut& o, double v) {
  o.Y1 = CSng(v);
  o.F1 = 0;
}
void Put2(SingleOut& o, double v) {
  o.Y2 = CSng(v);
  o.F2 = 0;
}

// rho(L) and rho(V) in kg/m^3 of the bubble point just computed at T, p: the mean molar mass of
// the liquid x and of the vapour YGas (normalised) over the molar volumes. phi-phi: vL, vV of
// the kernel. gamma-phi: vL = sum x(i) VLiq(i), vV by the vapour model (R T/p for the ideal gas,
// R T/p + Bm for the virial equation, the vapour root of the cubic). A volume not above 0 leaves
// its flag at -1.
void Densities(Session& s, double T, double p, const Vec<double>& x, double vL, double vV, SingleOut& Out) {
  const int n = s.NKomp;
  Vec<double>& y = s.FlashWork.Y;
  double sy = 0;
  for (int i = 1; i <= n; ++i) sy += s.YGas[i];
  double M = 0, My = 0;
  for (int i = 1; i <= n; ++i) {
    y[i] = chk::Div(s.YGas[i], sy);
    M += double(s.MolMasse[i]) * x[i];
    My += double(s.MolMasse[i]) * y[i];
  }
  if (!s.Konzept) {
    vL = 0;
    for (int i = 1; i <= n; ++i) vL += x[i] * double(s.VLiq[i]);
    int16_t err = 0;
    vV = 0;
    CalcVapourPhi(s, T, p, s.BVir, y, s.FlashWork.Phi, vV, err);
    if (err != 0) vV = 0;
  }
  if (vL > 0.0) Put1(Out, chk::Div(M, vL));
  if (vV > 0.0) Put2(Out, chk::Div(My, vV));
}

void Body(Session& s, int16_t DiaCode, double Xval, double& T, double& p, double Y2, float& R1, float& R2,
          float& R3, float& R4, int16_t K1, int16_t K2, float& OutX, SingleOut& Out, MsgSink* sink) {
  const int n = s.NKomp;
  Session::FlashWorkArrays& w = Work(s);
  // Entry: the upper temperature limit, and the vapour pressures of an isothermal diagram.
  double TLim;
  if (!s.Konzept) {
    TLim = std::min(double(s.TKrit[1]), double(s.TKrit[2]));
    if (s.IsoArt == 1) {
      int16_t err = 0, dT = 0;
      AllPureProps(s, T, err, dT);
      if (std::abs(dT) > 5)
        Post(sink, "WARNING", "calculation outside the T-limits of a vapour pressure equation", MsgIcon::Warning);
    }
  } else {
    TLim = s.TKritMax;
  }
  const bool isosteric = DiaCode == 7 || DiaCode == 183;
  if (!isosteric && (Xval < 0.0 || Xval > 1.0)) return;
  Vec<double>& x = w.X;
  SetPair(x, n, K1, K2, isosteric ? Y2 : Xval);
  const bool inGap = !isosteric && GapLimits(s, Xval, K1, R1, R2, R3, R4);
  // An isobaric bubble temperature counts only when found and below TLim.
  auto usableT = [&](double Tb) { return Tb != 0.0 && Tb < TLim; };
  double vL = 0, vV = 0;

  switch (DiaCode) {
    case 1: {  // p-x: bubble and (gamma-phi) dew pressure
      const double pb = BubbleP(s, T, x, vL, vV);
      if (pb != 0.0) {
        p = pb;
        Put1(Out, pb);
        OutX = CSng(s.KWert[K2] * Xval);
      }
      if (inGap) {
        p = s.GapW1;
        Put1(Out, s.GapW1);
        OutX = s.GapY;
      }
      if (!s.Konzept) {
        int16_t err = 0, dT = 0;
        AllPureProps(s, T, err, dT);
        const float pd = CalcDewP(s, T, x);
        if (pd != 0.0f) Put2(Out, pd);
      }
      return;
    }
    case 3:
    case 250: {  // x-y at T
      const double pb = BubbleP(s, T, x, vL, vV);
      if (pb != 0.0) {
        p = pb;
        Put1(Out, s.KWert[K2] * Xval);
        OutX = Out.Y1;
      }
      if (inGap) {
        Put1(Out, s.GapY);
        OutX = s.GapY;
      }
      return;
    }
    case 4: {  // T-x: bubble and (gamma-phi) dew temperature, in the display unit
      const double Tb = BubbleT(s, p, x, vL, vV);
      if (usableT(Tb)) {
        T = Tb;
        Put1(Out, Tb - s.TOffsetOut);
        OutX = CSng(s.KWert[K2] * Xval);
      }
      if (inGap) {
        T = s.GapW1;
        Put1(Out, double(s.GapW1) - s.TOffsetOut);
        OutX = s.GapY;
      }
      if (!s.Konzept) {
        const float Td = SafeDewT(s, p, x, 0.0);
        if (Td != 0.0f) Put2(Out, double(Td) - s.TOffsetOut);
      }
      return;
    }
    case 5:
    case 10: {  // K values, relative volatility at T
      const double pb = BubbleP(s, T, x, vL, vV);
      if (pb == 0.0) return;
      p = pb;
      if (DiaCode == 5) {
        Put1(Out, s.KWert[K1]);
        Put2(Out, s.KWert[K2]);
      } else {
        Put1(Out, chk::Div(s.KWert[K2], s.KWert[K1]));
      }
      return;
    }
    case 51:
    case 6:
    case 11: {  // K values, x-y, relative volatility at p
      const double Tb = BubbleT(s, p, x, vL, vV);
      if (!usableT(Tb)) return;
      T = Tb;
      if (DiaCode == 51) {
        Put1(Out, s.KWert[K1]);
        Put2(Out, s.KWert[K2]);
      } else if (DiaCode == 6) {
        Put1(Out, s.KWert[K2] * Xval);
        OutX = Out.Y1;
        if (inGap) {
          Put1(Out, s.GapY);
          OutX = s.GapY;
        }
      } else {
        Put1(Out, chk::Div(s.KWert[K2], s.KWert[K1]));
      }
      return;
    }
    case 7: {  // vapour pressure of the mixture x(K2) = Y2 at T = Xval in the display unit
      T = Xval + s.TOffsetOut;
      if (T > TLim || T < 1e-6) return;
      if (!s.Konzept) {
        int16_t err = 0, dT = 0;
        AllPureProps(s, T, err, dT);
      }
      const double pb = BubbleP(s, T, x, vL, vV);
      if (pb == 0.0) return;
      p = pb;
      Put1(Out, pb);
      return;
    }
    case 8:
    case 81:
    case 82:
    case 83: {  // activity coefficients (8, 82) and their logarithms (81, 83)
      const bool isobaric = DiaCode == 82 || DiaCode == 83;
      // Inside a gap the liquid is one of the two gap phases.
      if (inGap) SetPair(x, n, K1, K2, (DiaCode == 8 || DiaCode == 82) ? R1 : R2);
      double Tg = T;
      if (isobaric) {
        const double Tb = BubbleT(s, p, x, vL, vV);
        if (!usableT(Tb)) return;
        T = Tg = Tb;
      }
      int16_t gerr = 0;
      ActivityCoeffs(s, Tg, x, s.Gamma, gerr);
      if (gerr != 0) return;
      if (DiaCode == 8 || DiaCode == 82) {
        Put1(Out, s.Gamma[K2]);
        Put2(Out, s.Gamma[K1]);
      } else {
        Put1(Out, chk::Ln(s.Gamma[K2]));
        Put2(Out, chk::Ln(s.Gamma[K1]));
      }
      return;
    }
    case 9: {  // consistency: ln(f2/f1)
      int16_t gerr = 0;
      ActivityCoeffs(s, T, x, s.Gamma, gerr);
      if (gerr != 0) return;
      Put1(Out, chk::Ln(s.Gamma[1]) - chk::Ln(s.Gamma[2]));
      return;
    }
    case 181:
    case 183: {  // densities at T (183: T = Xval in the display unit, x(K2) = Y2)
      if (DiaCode == 183) {
        T = Xval + s.TOffsetOut;
        if (T > TLim || T < 1e-6) return;
      }
      const double pb = BubbleP(s, T, x, vL, vV);
      if (pb == 0.0) return;
      p = pb;
      Densities(s, T, pb, x, vL, vV, Out);
      return;
    }
    case 182: {  // densities at p
      const double Tb = BubbleT(s, p, x, vL, vV);
      if (!usableT(Tb)) return;
      T = Tb;
      Densities(s, Tb, p, x, vL, vV, Out);
      return;
    }
    default:
      SingleCalcExcess(s, DiaCode, Xval, T, p, x, K1, K2, Out);
      return;
  }
}

}  // namespace

bool GapLimits(const Session& s, double Xval, int16_t K1, float& R1, float& R2, float& R3, float& R4) {
  if (!(s.HatGap && s.GapAktiv)) return false;
  if (K1 == 1) {
    R1 = s.GapX1;
    R2 = s.GapX2;
    R3 = s.GapW1;
    R4 = s.GapW2;
  } else {
    R1 = s.GapX2;
    R2 = s.GapX1;
    R3 = s.GapW2;
    R4 = s.GapW1;
  }
  const double lo = std::min(R1, R2), hi = std::max(R1, R2);
  return Xval >= lo && Xval <= hi;
}

void SingleCalc(Session& s, int16_t DiaCode, double Xval, double& T, double& p, double& Y2, float& R1, float& R2,
                float& R3, float& R4, int16_t K1, int16_t K2, float& OutX, SingleOut& Out, MsgSink* sink) {
  Out = SingleOut{};
  OutX = 0;
  const int n = s.NKomp;
  if (n < 2 || K1 < 1 || K1 > n || K2 < 1 || K2 > n || K1 == K2) return;
  try {
    Body(s, DiaCode, Xval, T, p, Y2, R1, R2, R3, R4, K1, K2, OutX, Out, sink);
  } catch (const NumericFault&) {
    Out = SingleOut{};
  }
}

void SingleCalcXY(Session& s, double Xval, double p, int16_t K1, int16_t K2, double& xL, double& T, int16_t& flag) {
  flag = -1;
  if (Xval < 0.0 || Xval > 1.0) return;
  const int n = s.NKomp;
  if (n < 2 || K1 < 1 || K1 > n || K2 < 1 || K2 > n || K1 == K2) return;
  try {
    Session::FlashWorkArrays& w = Work(s);
    double x2 = Xval;
    for (int counter = 1; counter <= kRoundsXY; ++counter) {
      SetPair(w.X, n, K1, K2, x2);
      double vL = 0, vV = 0;
      const double Tb = BubbleT(s, p, w.X, vL, vV);
      if (Tb == 0.0) return;
      if (s.TKritMax > 0.0 && Tb >= s.TKritMax) return;
      const double next = chk::Div(Xval, s.KWert[K2]);
      const double change = std::fabs(next - x2);
      xL = x2;
      T = Tb;
      x2 = next;
      if (change < kTolXY) {
        flag = 0;
        return;
      }
    }
  } catch (const NumericFault&) {
    flag = -1;
  }
}

}  // namespace peq
