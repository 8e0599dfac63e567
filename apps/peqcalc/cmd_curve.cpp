// curve NODIA (--T v | --p v | --x2 v) [--points n] [--xmin v --xmax v --ymin v --ymax v] [--real]:
// the point lists of one binary diagram of the pair (1, 2) by the curve tracer CalcCurve, as the
// 2D diagram draws them. Temperatures in K (the display offset is set to 0), compositions as
// mole fractions.
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "diagrams/curve.h"

namespace peqcalc {

namespace {

// 1 isothermal, 2 isobaric, 3 isosteric, 0 not a diagram of the tracer.
int Familie(int d) {
  if ((d >= 110 && d <= 116) || (d >= 120 && d <= 126)) return 1;
  switch (d) {
    case 1: case 2: case 3: case 5: case 8: case 81: case 9: case 10: case 15: case 16: case 17: case 181:
    case 41:
      return 1;
    case 4: case 51: case 6: case 11: case 82: case 83: case 182:
      return 2;
    case 7: case 183:
      return 3;
    default:
      return 0;
  }
}

struct Eingabe {
  int noDia = 0;
  bool hatT = false, hatP = false, hatX2 = false;
  double T = 298.15, p = 101.325, x2 = 0.5;
  int points = 600;
  bool hatX[2] = {false, false}, hatY[2] = {false, false};
  double xr[2] = {0, 1}, yr[2] = {0, 1};
  bool real = false;
};

bool Lesen(const Args& args, Eingabe& e, std::string& why) {
  if (args.empty()) {
    why = "curve needs the diagram number NODIA and --T, --p or --x2";
    return false;
  }
  double v = 0;
  if (!ArgNumber(args[0], v) || v != std::floor(v) || Familie(static_cast<int>(v)) == 0) {
    why = "curve: " + args[0] + " is not a diagram number of the curve tracer";
    return false;
  }
  e.noDia = static_cast<int>(v);
  for (std::size_t k = 1; k < args.size(); ++k) {
    const std::string& a = args[k];
    if (a == "--real") {
      e.real = true;
      continue;
    }
    const char* names[] = {"--T", "--p", "--x2", "--points", "--xmin", "--xmax", "--ymin", "--ymax"};
    int which = -1;
    for (int i = 0; i < 8; ++i)
      if (a == names[i]) which = i;
    if (which < 0) {
      why = "curve: unknown option " + a;
      return false;
    }
    if (k + 1 >= args.size() || !ArgNumber(args[k + 1], v)) {
      why = "curve: " + a + " needs a number";
      return false;
    }
    ++k;
    switch (which) {
      case 0: e.T = v; e.hatT = true; break;
      case 1: e.p = v; e.hatP = true; break;
      case 2: e.x2 = v; e.hatX2 = true; break;
      case 3:
        if (v < 1 || v > 32767 || v != std::floor(v)) {
          why = "curve: --points needs a whole number from 1 to 32767";
          return false;
        }
        e.points = static_cast<int>(v);
        break;
      case 4: e.xr[0] = v; e.hatX[0] = true; break;
      case 5: e.xr[1] = v; e.hatX[1] = true; break;
      case 6: e.yr[0] = v; e.hatY[0] = true; break;
      case 7: e.yr[1] = v; e.hatY[1] = true; break;
    }
  }
  const int f = Familie(e.noDia);
  if (f == 1 && !e.hatT) why = "curve: diagram " + args[0] + " is isothermal and needs --T (K)";
  if (f == 2 && !e.hatP) why = "curve: diagram " + args[0] + " is isobaric and needs --p (kPa)";
  if (f == 3 && !e.hatX2) why = "curve: diagram " + args[0] + " is isosteric and needs --x2";
  return why.empty();
}

bool Check(const Args& args, std::string& why) {
  Eingabe e;
  return Lesen(args, e, why);
}

struct Ergebnis {
  peq::Kurve k1, k2;
  std::string kommentar;
  int16_t ausserhalb = 0, fehler = 0;
  float gx1 = 0, gw1 = 0, gx2 = 0, gw2 = 0, gy = 0;
  peq::MsgSink msgs;
};

void Zeichnen(peq::Session& s, const Eingabe& e, Ergebnis& r) {
  int16_t noDia = static_cast<int16_t>(e.noDia);
  int16_t k1 = 1, k2 = 2;
  peq::Vec<double> x(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  const float TOben = static_cast<float>(s.YMax + s.TOffsetOut);
  peq::CalcCurve(s, noDia, e.T, e.p, static_cast<float>(e.x2), r.k1, r.k2, x, s.P0, k1, k2, r.ausserhalb,
                 e.real ? -1 : 0, TOben, r.gx1, r.gw1, r.gx2, r.gw2, r.gy, r.kommentar, r.fehler, &r.msgs);
}

std::vector<std::vector<double>> Punkte(const peq::Kurve& k) {
  std::vector<std::vector<double>> rows;
  for (std::size_t i = 1; i < k.size(); ++i) rows.push_back({k[i].x, k[i].y, k[i].z});
  return rows;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  Eingabe e;
  std::string why;
  if (!Lesen(args, e, why)) {
    peq::Post(&msgs, "Execution not possible", why, peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (s.NKomp != 2) {
    peq::Post(&msgs, "Execution not possible", "curve needs a project of exactly two components",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (e.hatX2 && !CheckMolFraction("curve", "--x2", e.x2, msgs)) return kExitRefused;
  const int f = Familie(e.noDia);
  s.NoDia = static_cast<int16_t>(e.noDia);
  s.IsoArt = static_cast<int16_t>(f);
  s.TIso = e.T;
  s.PIso = e.p;
  s.XIso = e.x2;
  s.KurvenPunkte = static_cast<int16_t>(e.points);
  s.TOffsetOut = 0;
  s.ConcUnit = 0;
  s.Komp1 = 1;
  s.Komp2 = 2;
  s.GapAktiv = e.noDia == 1 || e.noDia == 3 || e.noDia == 4 || e.noDia == 6;

  // Abscissa: x2 from 0 to 1, or T for the isosteric curves (from TKritMax/2.5 upward).
  double xmin = 0, xmax = 1;
  if (f == 3) {
    xmin = s.TKritMax / 2.5;
    xmax = s.TKritMax + (e.noDia == 183 ? 10 : 2);
  }
  if (e.hatX[0]) xmin = e.xr[0];
  if (e.hatX[1]) xmax = e.xr[1];
  s.XMin = static_cast<float>(xmin);
  s.XMax = static_cast<float>(xmax);
  // Ordinate: for the binodal the T range of its walk; otherwise, when not given, a first pass
  // over an open range finds the span of the points, and the drawing pass uses it widened by 5 %.
  double ymin = 0, ymax = 1;
  const bool yGegeben = e.hatY[0] && e.hatY[1];
  if (e.noDia == 41) {
    ymin = std::fmax(e.T - 100, 150.0);
    ymax = s.TKritMax > 0 ? std::fmin(e.T + 100, s.TKritMax) : e.T + 100;
  } else if (!yGegeben) {
    s.YMin = -1e30f;
    s.YMax = 1e30f;
    Ergebnis vor;
    Zeichnen(s, e, vor);
    double lo = 1e300, hi = -1e300;
    for (const peq::Kurve* k : {&vor.k1, &vor.k2})
      for (std::size_t i = 1; i < k->size(); ++i) {
        lo = std::fmin(lo, (*k)[i].y);
        hi = std::fmax(hi, (*k)[i].y);
      }
    if (lo <= hi) {
      const double m = hi > lo ? 0.05 * (hi - lo) : std::fmax(std::fabs(hi) * 0.05, 1e-3);
      ymin = lo - m;
      ymax = hi + m;
    }
  }
  if (e.hatY[0]) ymin = e.yr[0];
  if (e.hatY[1]) ymax = e.yr[1];
  s.YMin = static_cast<float>(ymin);
  s.YMax = static_cast<float>(ymax);

  Ergebnis r;
  Zeichnen(s, e, r);
  msgs.insert(msgs.end(), r.msgs.begin(), r.msgs.end());
  out.Int("nodia", e.noDia);
  out.Num("zcode", r.k1[0].z);
  out.Int("n1", static_cast<long>(r.k1[0].x));
  out.Int("n2", static_cast<long>(r.k2[0].x));
  out.NumMatrix("kurve1", Punkte(r.k1));
  out.NumMatrix("kurve2", Punkte(r.k2));
  out.Str("kommentar", r.kommentar);
  out.Int("ausserhalb", r.ausserhalb);
  out.Int("fehler", r.fehler);
  out.Int("hatgap", s.HatGap ? -1 : 0);
  out.Int("gapaktiv", s.GapAktiv ? -1 : 0);
  out.Num("gapx1", r.gx1);
  out.Num("gapw1", r.gw1);
  out.Num("gapx2", r.gx2);
  out.Num("gapw2", r.gw2);
  out.Num("gapy", r.gy);
  out.Num("xmin", s.XMin);
  out.Num("xmax", s.XMax);
  out.Num("ymin", s.YMin);
  out.Num("ymax", s.YMax);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "curve", "NODIA (--T v | --p v | --x2 v) [--points n] [--xmin v --xmax v --ymin v --ymax v] [--real]",
    "point lists of the binary diagram NODIA of the pair (1, 2) by the curve tracer (CalcCurve):\n"
    "isothermal diagrams need --T (K), isobaric ones --p (kPa), isosteric ones --x2. --points:\n"
    "points per curve (default 600, the step is the visible range over it); --xmin .. --ymax:\n"
    "the coordinates (default x 0..1, for the isosteric diagrams T from TKritMax/2.5; y the span\n"
    "of the curve + 5 %); --real: draw the real curve over a mixing gap. Temperatures in K.\n"
    "Output: zcode (-1 T, -2 p, -5 x2 of the third quantity), n1, n2 (point counts), kurve1,\n"
    "kurve2 as [x, y, z] lists, kommentar, ausserhalb, fehler, hatgap, gapaktiv, gapx1, gapw1,\n"
    "gapx2, gapw2, gapy, and the coordinates xmin, xmax, ymin, ymax used",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
