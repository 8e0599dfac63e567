// surface NODIA3 --xmin v --xmax v --ymin v --ymax v [--nx N] [--ny N] [--zmin v] [--zmax v] [--gap]:
// the grid of a 3D diagram of the pair (1, 2) by Calc_3DArray, as the 3D window draws it.
// Temperatures in K (the display offset is set to 0), compositions as mole fractions.
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "command.h"
#include "diagrams/surface.h"

namespace peqcalc {

namespace {

struct Eingabe {
  int noDia3 = 0;
  double b[6] = {0, 0, 0, 0, peq::kOhneZMin, peq::kOhneZMax};  // xmin xmax ymin ymax zmin zmax
  bool hat[6] = {false, false, false, false, false, false};
  int nx = 40, ny = 40;
  bool gap = false;
};

bool Lesen(const Args& args, Eingabe& e, std::string& why) {
  if (args.empty()) {
    why = "surface needs the surface number NODIA3 (0..7) and --xmin, --xmax, --ymin, --ymax";
    return false;
  }
  double v = 0;
  if (!ArgNumber(args[0], v) || v != std::floor(v) || v < 0 || v >= peq::kAnzFlaechen3D) {
    why = "surface: " + args[0] + " is not a surface number (0..7)";
    return false;
  }
  e.noDia3 = static_cast<int>(v);
  const char* names[] = {"--xmin", "--xmax", "--ymin", "--ymax", "--zmin", "--zmax", "--nx", "--ny"};
  for (std::size_t k = 1; k < args.size(); ++k) {
    const std::string& a = args[k];
    if (a == "--gap") {
      e.gap = true;
      continue;
    }
    int which = -1;
    for (int i = 0; i < 8; ++i)
      if (a == names[i]) which = i;
    if (which < 0) {
      why = "surface: unknown option " + a;
      return false;
    }
    if (k + 1 >= args.size() || !ArgNumber(args[k + 1], v)) {
      why = "surface: " + a + " needs a number";
      return false;
    }
    ++k;
    if (which >= 6) {
      if (v < 1 || v > 1000 || v != std::floor(v)) {
        why = "surface: " + a + " needs a whole number from 1 to 1000";
        return false;
      }
      (which == 6 ? e.nx : e.ny) = static_cast<int>(v);
    } else {
      e.b[which] = v;
      e.hat[which] = true;
    }
  }
  for (int i = 0; i < 4; ++i)
    if (!e.hat[i]) {
      why = std::string("surface needs ") + names[i];
      return false;
    }
  return true;
}

bool Check(const Args& args, std::string& why) {
  Eingabe e;
  return Lesen(args, e, why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  Eingabe e;
  std::string why;
  if (!Lesen(args, e, why)) {
    peq::Post(&msgs, "Execution not possible", why, peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (s.NKomp != 2) {
    peq::Post(&msgs, "Execution not possible", "surface needs a project of exactly two components",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (!(e.b[0] >= 0 && e.b[1] <= 1 && e.b[0] < e.b[1])) {
    peq::Post(&msgs, "Execution not possible", "surface: --xmin and --xmax must lie in 0..1, xmin below xmax",
              peq::MsgIcon::Stop);
    return kExitRefused;
  }
  if (!(e.b[2] < e.b[3]) || (peq::ZweiteAchseT(static_cast<int16_t>(e.noDia3)) ? e.b[2] <= 0 : e.b[2] < 0)) {
    peq::Post(&msgs, "Execution not possible",
              "surface: --ymin must lie below --ymax, and T above 0 K or p at least 0 kPa", peq::MsgIcon::Stop);
    return kExitRefused;
  }
  for (double b : e.b)
    if (std::fabs(b) > 3.4e38) {
      peq::Post(&msgs, "Execution not possible", "surface: a bound beyond the single-precision range",
                peq::MsgIcon::Stop);
      return kExitRefused;
    }
  s.TOffsetOut = 0;
  s.ConcUnit = 0;
  s.Komp1 = 1;
  s.Komp2 = 2;
  const int16_t nd = static_cast<int16_t>(e.noDia3);
  peq::Graph3D g;
  peq::InitGraph3D(s, nd, g);
  peq::Grenzen3D b;
  b.XMin = static_cast<float>(e.b[0]);
  b.XMax = static_cast<float>(e.b[1]);
  b.YMin = static_cast<float>(e.b[2]);
  b.YMax = static_cast<float>(e.b[3]);
  b.ZMin = static_cast<float>(e.b[4]);
  b.ZMax = static_cast<float>(e.b[5]);
  peq::Feld3D f;
  const int holes =
      peq::Calc_3DArray(s, nd, static_cast<int16_t>(e.nx), static_cast<int16_t>(e.ny), f, b, e.gap);

  std::vector<double> xs, ys;
  for (int i = 1; i <= e.nx; ++i) xs.push_back(peq::GitterX(b, static_cast<int16_t>(e.nx), i));
  for (int j = 1; j <= e.ny; ++j) ys.push_back(peq::GitterY(b, static_cast<int16_t>(e.ny), j));
  // One row per value of the second axis; a hole prints as null.
  std::vector<std::vector<double>> z(static_cast<std::size_t>(e.ny));
  for (int j = 1; j <= e.ny; ++j)
    for (int i = 1; i <= e.nx; ++i) {
      const float v = f(i, j);
      z[static_cast<std::size_t>(j - 1)].push_back(v == peq::kLoch3D ? std::numeric_limits<double>::quiet_NaN()
                                                                      : static_cast<double>(v));
    }
  out.Int("nodia3", e.noDia3);
  out.Str("titel", g.Titel);
  out.Str("xachse", g.XAchse);
  out.Str("yachse", g.YAchse);
  out.Str("zachse", g.ZAchse);
  out.NumArray("x", xs);
  out.NumArray("y", ys);
  out.NumMatrix("z", z);
  out.Int("holes", holes);
  out.Int("gap", e.gap ? -1 : 0);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "surface", "NODIA3 --xmin v --xmax v --ymin v --ymax v [--nx N] [--ny N] [--zmin v] [--zmax v] [--gap]",
    "the grid of the 3D diagram NODIA3 of the pair (1, 2) by Calc_3DArray: 0 p = Fu(x2(L), T),\n"
    "1 T = Fu(x2(L), p), 2 x2(V) at T, 3 x2(V) at p, 4 gE, 5 delta(M)g, 6 delta(M)h, 7 T*sE (over\n"
    "x2(L) and T). --xmin/--xmax: x2(L); --ymin/--ymax: T in K or p in kPa; --nx, --ny: grid size\n"
    "(default 40 x 40; point i at xmin + (i - 1)(xmax - xmin)/nx); --zmin/--zmax: clipping bounds\n"
    "(-0.01111 and 0.01111 mean none); --gap: flat over a mixing gap. Output: x, y (the grid\n"
    "coordinates), z (one row per y, null for a hole), holes, titel, xachse, yachse, zachse",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
