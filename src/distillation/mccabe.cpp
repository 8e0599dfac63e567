#include "distillation/mccabe.h"

#include <cmath>
#include <string>

#include "engine/singlecalc.h"
#include "models/liquid.h"
#include "models/vappressure.h"
#include "session/numeric.h"

namespace peq {

double MolAusMasse(const Session& s, double w2) {
  const double M1 = s.MolMasse[s.Komp1], M2 = s.MolMasse[s.Komp2];
  return chk::Div(w2, chk::Div(M2, M1) * (1.0 - w2) + w2);
}

double MasseAusMol(const Session& s, double x2) {
  const double M1 = s.MolMasse[s.Komp1], M2 = s.MolMasse[s.Komp2];
  return chk::Div(x2, chk::Div(M1, M2) * (1.0 - x2) + x2);
}

double ZuMol(const Session& s, double v) { return s.ConcUnit != 0 ? MolAusMasse(s, v) : v; }
double AusMol(const Session& s, double x2) { return s.ConcUnit != 0 ? MasseAusMol(s, x2) : x2; }

double YOpKurve(double R, double x, double XKopf, double E) {
  const double R1 = R + 1.0;
  const double num = (chk::Div(R, R1) - chk::Div(XKopf, E)) * x + chk::Div(XKopf, R1);
  const double den = 1.0 - chk::Div(chk::Div(x, R1), E) - chk::Div(XKopf * R, R1 * E);
  return chk::Div(num, den);
}

bool EnthalpieFaktor(Session& s, double p, float& E, MsgSink* sink) {
  std::string c2 = s.P0Eq[s.Komp2], c1 = s.P0Eq[s.Komp1];
  int16_t dT = 0, e2 = 0, e1 = 0;
  const double T02 = BoilingTAtP(s, s.Komp2, p, c2, false, dT, e2);
  const double T01 = BoilingTAtP(s, s.Komp1, p, c1, false, dT, e1);
  if (e2 != 0 || e1 != 0) return false;
  const double Tm = (T02 + T01) / 2.0;
  const float r2 = static_cast<float>(EnthalpyVap(s, s.Komp2, Tm, true, sink));
  const float r1 = static_cast<float>(EnthalpyVap(s, s.Komp1, Tm, true, sink));
  if (r2 == r1) {
    E = kEnthFaktorGerade;
  } else {
    E = static_cast<float>(static_cast<double>(r2) / (static_cast<double>(r2) - static_cast<double>(r1)));
  }
  return true;
}

void Betriebsgeraden(ThieleDaten& d) {
  const double RR = d.RR;
  d.SteigOben = static_cast<float>(RR / (RR + 1.0));
  d.AchsOben = static_cast<float>((1.0 - static_cast<double>(d.SteigOben)) * d.XKopf);
  if (d.XFeed > d.XSumpf) {
    d.SteigUnten = static_cast<float>(
        (static_cast<double>(d.SteigOben) * d.XFeed + d.AchsOben - d.XSumpf) / (double(d.XFeed) - d.XSumpf));
    d.AchsUnten = static_cast<float>((1.0 - static_cast<double>(d.SteigUnten)) * d.XSumpf);
  }
}

double Betriebswert(const ThieleDaten& d, double x) {
  if (d.OhneFeed != 0 || x >= d.XFeed) {
    if (d.MitHLV != 0) return YOpKurve(d.RR, x, d.XKopf, d.EnthFaktor);
    return static_cast<double>(d.SteigOben) * x + d.AchsOben;
  }
  return static_cast<double>(d.SteigUnten) * x + d.AchsUnten;
}

bool GleichgewichtY(Session& s, double p, double x, double& y) {
  double T = 0;
  return GleichgewichtY(s, p, x, y, T);
}

bool GleichgewichtY(Session& s, double p, double x, double& y, double& T) {
  T = 0;
  double pp = p, Y2 = 0;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, OutX = 0;
  SingleOut out;
  SingleCalc(s, 6, ZuMol(s, x), T, pp, Y2, R1, R2, R3, R4, s.Komp1, s.Komp2, OutX, out, nullptr);
  if (out.F1 != 0) return false;
  y = AusMol(s, out.Y1);
  return true;
}

float RRMin(Session& s, const ThieleDaten& d, int16_t& Fehler) {
  Fehler = 0;
  try {
    const double Xr = d.OhneFeed != 0 ? d.XSumpf : d.XFeed;
    double y = 0;
    if (!GleichgewichtY(s, d.p, Xr, y)) {
      Fehler = -1;
      return 0;
    }
    double R = 0;
    if (d.MitHLV == 0) {
      const double sl = chk::Div(d.XKopf - y, d.XKopf - Xr);
      R = chk::Div(sl, 1.0 - sl);
    } else {
      // Newton on y_op(R, Xr) = y with a forward difference of step h.
      R = kRRMinStart;
      bool konvergiert = false;
      for (int runde = 0; runde < kRRMinRunden; ++runde) {
        const double f0 = YOpKurve(R, Xr, d.XKopf, d.EnthFaktor) - y;
        const double f1 = YOpKurve(R + kRRMinH, Xr, d.XKopf, d.EnthFaktor) - y;
        double Rn = R - chk::Div(kRRMinH * f0, f1 - f0);
        if (Rn <= 0.0) Rn = kRRMinReset;
        const bool fertig = std::fabs(R + kRRMinH - Rn) <= kRRMinTol;
        R = Rn;
        if (fertig) {
          konvergiert = true;
          break;
        }
      }
      if (!konvergiert) {
        Fehler = -1;
        return 0;
      }
    }
    return CSng(Int(R * 1000.0 + 0.5) / 1000.0);
  } catch (const NumericFault&) {
    Fehler = -1;
    return 0;
  }
}

namespace {

// i / 3 rounded to the nearest whole number when the walk ended inside its bounds, else 0.
int16_t Bodenzahl(int i, double x, bool fehler) {
  if (i < kMaxStufenPunkte && x > 0.0 && x < 1.0 && !fehler) return CInt(i / 3.0);
  return 0;
}

}  // namespace

int StufenZeichnen(Session& s, ThieleDaten& d, std::vector<float>& xs, std::vector<float>& ys) {
  xs.clear();
  ys.clear();
  double x = d.XKopf;
  int i = 0;
  bool fehler = false;
  bool obenGezaehlt = false;
  d.BoedenOben = 0;
  auto speichern = [&](double xv, double yv) {
    xs.push_back(static_cast<float>(xv));
    ys.push_back(static_cast<float>(yv));
    ++i;
  };
  try {
    do {
      double y = Betriebswert(d, x);
      speichern(x, y);
      double xL = 0, T = 0;
      int16_t flag = 0;
      SingleCalcXY(s, ZuMol(s, y), d.p, s.Komp1, s.Komp2, xL, T, flag);
      if (flag != 0) {
        fehler = true;
        break;
      }
      x = AusMol(s, xL);
      speichern(x, y);
      speichern(x, Betriebswert(d, x));
      if (!obenGezaehlt && x < d.XFeed) {
        obenGezaehlt = true;
        d.BoedenOben = static_cast<int16_t>(Bodenzahl(i, x, fehler) - 1);
      }
    } while (x - 0.001 >= d.XSumpf && i <= kMaxStufenPunkte && x < 1.0);
  } catch (const NumericFault&) {
    fehler = true;
  }
  d.XEnde = static_cast<float>(x);
  const int16_t gesamt = Bodenzahl(i, x, fehler);
  d.BoedenUnten = static_cast<int16_t>(gesamt - d.BoedenOben);
  if (d.OhneFeed != 0) d.BoedenOben = gesamt;
  return i;
}

}  // namespace peq
