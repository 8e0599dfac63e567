// 3D diagrams: texts and bounds of a surface, and the grid of values.
#include "diagrams/surface.h"

#include <algorithm>
#include <cmath>

#include "engine/excess.h"
#include "engine/gap.h"
#include "engine/safeguard.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

bool InCelsius(const Session& s) { return s.TOffsetOut != 0; }

std::string ByFuUnit(const Session& s, const char* si, const char* perR, const char* perRT) {
  switch (s.FuUnit) {
    case 1: return perR;
    case 2: return perRT;
    default: return si;
  }
}

// Display factor of the energy surfaces at the row's T: 1, 1/R or 1/(R T) by FuUnit.
double EnergieFaktor(const Session& s, double T) {
  switch (s.FuUnit) {
    case 1: return chk::Div(1.0, kR);
    case 2: return chk::Div(1.0, kR * T);
    default: return 1.0;
  }
}

// Mole fraction of Komp2 from the grid abscissa (a mass fraction when ConcUnit).
double MolAnteil(const Session& s, double v) {
  if (s.ConcUnit == 0) return v;
  const double m1 = s.MolMasse[static_cast<std::size_t>(s.Komp1)];
  const double m2 = s.MolMasse[static_cast<std::size_t>(s.Komp2)];
  return chk::Div(chk::Div(v, m2), chk::Div(1.0 - v, m1) + chk::Div(v, m2));
}

// Mass fraction of Komp2 from its mole fraction when ConcUnit, else the mole fraction.
double Ksi(const Session& s, double v) {
  if (s.ConcUnit == 0) return v;
  const double m1 = s.MolMasse[static_cast<std::size_t>(s.Komp1)];
  const double m2 = s.MolMasse[static_cast<std::size_t>(s.Komp2)];
  return chk::Div(v, chk::Div(m1, m2) * (1.0 - v) + v);
}

// The computation of one grid row: the fixed T or p, work arrays sized once, and the start values
// carried from point to point along the row.
struct Zeile {
  Session& s;
  int16_t NoDia3;
  int16_t k1, k2;
  Vec<double> x, ys;
  double T = 0, p = 0;   // the row's fixed value (the other is unused)
  double pPrev = 0;      // bubble pressure of the previous good point
  double TPrev = 0;      // bubble temperature of the previous good point
  double yPrev = 0;      // y(Komp2) of the previous good point

  Zeile(Session& ses, int16_t nd) : s(ses), NoDia3(nd), k1(ses.Komp1), k2(ses.Komp2) {
    const std::size_t n = static_cast<std::size_t>(s.NKomp) + 1;
    x.assign(n, 0.0);
    ys.assign(n, 0.0);
  }

  void Start(double fixed) {
    if (ZweiteAchseT(NoDia3))
      T = fixed;
    else
      p = fixed;
    pPrev = 0;
    TPrev = 0;
    yPrev = 0;
  }

  void SetX(double x2) {
    x.fill(0.0);
    x[static_cast<std::size_t>(k2)] = x2;
    x[static_cast<std::size_t>(k1)] = 1.0 - x2;
  }
  void SetY(double y2) {
    ys.fill(0.0);
    ys[static_cast<std::size_t>(k2)] = y2;
    ys[static_cast<std::size_t>(k1)] = 1.0 - y2;
    s.YGas[static_cast<std::size_t>(k2)] = y2;
    s.YGas[static_cast<std::size_t>(k1)] = 1.0 - y2;
  }

  // The value of the surface at the mole fraction x2 (display unit); false when it fails.
  bool Wert(double x2, double& z) {
    SetX(x2);
    switch (NoDia3) {
      case 0:
      case 2: {
        SetY(pPrev > 0 ? yPrev : x2);
        double vL = 0, vV = 0;
        const double pb = SafeBubbleP(s, T, x, pPrev, ys, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
        if (!(pb > 0) || !std::isfinite(pb)) return false;
        pPrev = pb;
        yPrev = s.KWert[static_cast<std::size_t>(k2)] * x[static_cast<std::size_t>(k2)];
        z = NoDia3 == 0 ? pb : Ksi(s, yPrev);
        return true;
      }
      case 1:
      case 3: {
        SetY(TPrev > 0 ? yPrev : x2);
        double vL = 0, vV = 0;
        int16_t warn = 0;
        double Tin = TPrev;
        const double Tb = SafeBubbleT(s, p, x, Tin, ys, warn, s.KWert, vL, vV);
        if (!(Tb > 1e-6) || !std::isfinite(Tb)) return false;
        TPrev = Tb;
        yPrev = s.KWert[static_cast<std::size_t>(k2)] * x[static_cast<std::size_t>(k2)];
        z = NoDia3 == 1 ? Tb - s.TOffsetOut : Ksi(s, yPrev);
        return true;
      }
      case 4:
      case 5: {
        double g = 0;
        int16_t err = 0;
        if (s.Konzept) {
          double hE = 0, TsE = 0;
          ExcessT(s, T, s.PIso, x, hE, TsE, g, err);
        } else {
          g = ExcessGE(s, T, x, err);
        }
        if (err != 0) return false;
        if (NoDia3 == 5) g += kR * T * GMIdeal(0, x2);
        z = g * EnergieFaktor(s, T);
        return true;
      }
      case 6:
      case 7: {
        double hE = 0, TsE = 0, gE = 0;
        int16_t err = 0;
        ExcessT(s, T, s.PIso, x, hE, TsE, gE, err);
        if (err != 0) return false;
        z = (NoDia3 == 6 ? hE : TsE) * EnergieFaktor(s, T);
        return true;
      }
      default:
        return false;
    }
  }

  // The same with every arithmetic fault a failed point; z then as a single.
  bool Punkt(double x2, float& z) {
    try {
      double v = 0;
      if (!Wert(x2, v)) return false;
      z = CSng(v);
      return true;
    } catch (const NumericFault&) {
      return false;
    }
  }
};

}  // namespace

std::string FlaechenName3D(int16_t NoDia3) {
  switch (NoDia3) {
    case 0: return "Pressure                                p = Fu (x2(L), T)";
    case 1: return "Temperature                        T = Fu (x2(L), p)";
    case 2: return "Vapour phase                      x2(V) = Fu (x2(L), T)";
    case 3: return "Vapour phase                      x2(V) = Fu (x2(L), p)";
    case 4: return "Excess Gibbs function         gE = Fu(x2(L), T)";
    case 5: return "Gibbs function of mixing     delta(M)g = Fu(x2(L), T)";
    case 6: return "Enthalpy of mixing              hE = Fu(x2(L), T)";
    case 7: return "Excess entropy                   T*sE = Fu(x2(L), T)";
    default: return "";
  }
}

bool ZweiteAchseT(int16_t NoDia3) { return NoDia3 != 1 && NoDia3 != 3; }

bool InitGraph3D(const Session& s, int16_t NoDia3, Graph3D& g) {
  if (NoDia3 < 0 || NoDia3 >= kAnzFlaechen3D) return false;
  const bool mass = s.ConcUnit != 0;
  const bool tAchse = ZweiteAchseT(NoDia3);
  const std::string tText = InCelsius(s) ? "t/°C " : "T/K ";
  g = Graph3D{};
  g.NoDia3 = NoDia3;
  g.YIstTemperatur = tAchse;
  g.XAchse = mass ? "mass fraction ksi2(L)" : "mole fraction x2(L)";
  g.YAchse = tAchse ? tText : "p /kPa";
  const std::string yDampf = mass ? "mass fraction ksi(2(V)" : "mole fraction x2(V)";
  switch (NoDia3) {
    case 0:
      g.Titel = "p = Fu(x2(L), T)";
      g.ZAchse = "p/kPa";
      break;
    case 1:
      g.Titel = "T = Fu(x2(L), p)";
      g.ZAchse = tText;
      break;
    case 2:
    case 3:
      g.Titel = "Equilibrium diagram";
      g.ZAchse = yDampf;
      break;
    case 4:
      g.Titel = "excess Gibbs function";
      g.ZAchse = ByFuUnit(s, "gE/ (kJ/kmol) ", "(gE/R)/ K ", "gE/(R T)");
      break;
    case 5:
      g.Titel = "Gibbs function of mixing";
      g.ZAchse = ByFuUnit(s, "delta(M)g/ (kJ/kmol) ", "(delta(M)g/R)/ K", "delta(M)g/(R T)");
      break;
    case 6:
      g.Titel = "enthalpy of mixing";
      g.ZAchse = ByFuUnit(s, "delta(M)h/ (kJ/kmol) ", "(delta(M)h/R)/ K", "delta(M)h/(R T)");
      break;
    case 7:
      g.Titel = "exzess entropy T*sE";
      g.ZAchse = ByFuUnit(s, "(T * sE)/ (kJ/kmol) ", "((T * sE)/R)/ K", "(T * sE)/(R T)");
      break;
    default:
      return false;
  }
  const bool zDampf = NoDia3 == 2 || NoDia3 == 3;
  g.GrenzText = {"x2(L)(min)",
                 "x2(L)(max)",
                 tAchse ? "T(min)" : "p(min)",
                 tAchse ? "T(max)" : "p(max)",
                 zDampf ? "x2(V)(min)" : "z(min)",
                 zDampf ? "x2(V)(max" : "z(max)"};
  // Opening bounds: the whole composition range; 20 to 100 °C or 50 to 150 kPa; z unbounded, or
  // 0..1 for a vapour fraction.
  g.Grenzen.XMin = 0;
  g.Grenzen.XMax = 1;
  if (tAchse) {
    g.Grenzen.YMin = static_cast<float>(293.15 - s.TOffsetOut);
    g.Grenzen.YMax = static_cast<float>(373.15 - s.TOffsetOut);
  } else {
    g.Grenzen.YMin = 50;
    g.Grenzen.YMax = 150;
  }
  g.Grenzen.ZMin = zDampf ? 0.0f : kOhneZMin;
  g.Grenzen.ZMax = zDampf ? 1.0f : kOhneZMax;
  return true;
}

double GitterX(const Grenzen3D& g, int16_t IXDim, int i) {
  const double dx = (static_cast<double>(g.XMax) - g.XMin) / IXDim;
  return (i - 1) * dx + g.XMin;
}

double GitterY(const Grenzen3D& g, int16_t IYDim, int j) {
  const double dy = (static_cast<double>(g.YMax) - g.YMin) / IYDim;
  return (j - 1) * dy + g.YMin;
}

float Kappen3D(float z, float ZMin, float ZMax) {
  if (ZMax != kOhneZMax && z > ZMax) z = ZMax;
  if (ZMin != kOhneZMin && z < ZMin) z = ZMin;
  return z;
}

int Calc_3DArray(Session& s, int16_t NoDia3, int16_t IXDim, int16_t IYDim, Feld3D& ResFeld, const Grenzen3D& g,
                 bool GapSuche) {
  if (NoDia3 < 0 || NoDia3 >= kAnzFlaechen3D || IXDim < 1 || IYDim < 1 || s.NKomp < 2) return -1;
  if (ResFeld.IXDim() != IXDim || ResFeld.IYDim() != IYDim) ResFeld.Dim(IXDim, IYDim);
  const bool tAchse = ZweiteAchseT(NoDia3);
  const bool mitGap = GapSuche && tAchse && !s.Konzept;
  Zeile z(s, NoDia3);
  const double dx = (static_cast<double>(g.XMax) - g.XMin) / IXDim;
  const double dy = (static_cast<double>(g.YMax) - g.YMin) / IYDim;
  int loecher = 0;
  for (int j = 1; j <= IYDim; ++j) {
    double fest = (j - 1) * dy + g.YMin;
    if (tAchse) fest += s.TOffsetOut;
    z.Start(fest);

    // The mixing gap of the row: the two liquids as fractions of Komp2, and the values there.
    bool gap = false;
    double xLo = 0, xHi = 0;
    float zLo = kLoch3D, zHi = kLoch3D;
    bool okLo = false, okHi = false;
    if (mitGap) {
      double a = 0, b = 0;
      std::string msg;
      bool found = false;
      try {
        found = Binodal(s, fest, a, b, msg);
      } catch (const NumericFault&) {
        found = false;
      }
      if (found && std::isfinite(a) && std::isfinite(b) && a != b) {
        if (s.Komp2 != 2) {
          a = 1.0 - a;
          b = 1.0 - b;
        }
        xLo = std::min(a, b);
        xHi = std::max(a, b);
        gap = true;
        okLo = z.Punkt(xLo, zLo);
        okHi = z.Punkt(xHi, zHi);
        z.Start(fest);
      }
    }

    for (int i = 1; i <= IXDim; ++i) {
      const double v = (i - 1) * dx + g.XMin;
      double x2 = 0;
      bool ok = true;
      try {
        x2 = MolAnteil(s, v);
      } catch (const NumericFault&) {
        ok = false;
      }
      float wert = kLoch3D;
      if (ok && gap && x2 > xLo && x2 < xHi) {
        // Flat over the gap: the straight line between the values at its two ends.
        ok = okLo && okHi;
        if (ok) wert = static_cast<float>(zLo + (static_cast<double>(zHi) - zLo) * (x2 - xLo) / (xHi - xLo));
      } else if (ok) {
        ok = z.Punkt(x2, wert);
      }
      if (ok) {
        ResFeld(i, j) = Kappen3D(wert, g.ZMin, g.ZMax);
      } else {
        ResFeld(i, j) = kLoch3D;
        ++loecher;
      }
    }
  }
  return loecher;
}

}  // namespace peq
