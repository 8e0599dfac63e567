// mccabe --p P --top X --bottom X --feed X --rr R [--hlv] [--no-feed]: the McCabe-Thiele design
// of the pair (Komp1, Komp2) at p (kPa) with the checks of the design dialog. Prints rrmin,
// plates_upper, plates_lower, xende, steps (the points of the step curve as [x, y] rows),
// azeotrope (found, x2, kind). A refused design prints the dialog's message and exits with 2.
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "distillation/design.h"
#include "distillation/mccabe.h"

namespace peqcalc {

namespace {

struct Eingabe {
  double p = 0, top = 0, bottom = 0, feed = 0.5, rr = 0;
  bool hlv = false, ohneFeed = false;
  bool hatP = false, hatTop = false, hatBottom = false, hatFeed = false, hatRR = false;
};

bool Parse(const Args& args, Eingabe& e, std::string& why) {
  for (std::size_t k = 0; k < args.size(); ++k) {
    const std::string& a = args[k];
    if (a == "--hlv") {
      e.hlv = true;
      continue;
    }
    if (a == "--no-feed") {
      e.ohneFeed = true;
      continue;
    }
    double* ziel = nullptr;
    bool* hat = nullptr;
    if (a == "--p") ziel = &e.p, hat = &e.hatP;
    else if (a == "--top") ziel = &e.top, hat = &e.hatTop;
    else if (a == "--bottom") ziel = &e.bottom, hat = &e.hatBottom;
    else if (a == "--feed") ziel = &e.feed, hat = &e.hatFeed;
    else if (a == "--rr") ziel = &e.rr, hat = &e.hatRR;
    if (!ziel) {
      why = "mccabe does not know " + a;
      return false;
    }
    if (k + 1 >= args.size() || !ArgNumber(args[k + 1], *ziel)) {
      why = a + " needs a number";
      return false;
    }
    *hat = true;
    ++k;
  }
  if (!e.hatP || !e.hatTop || !e.hatBottom || !e.hatRR || (!e.ohneFeed && !e.hatFeed)) {
    why = "mccabe needs --p P --top X --bottom X --feed X --rr R";
    return false;
  }
  return true;
}

bool Check(const Args& args, std::string& why) {
  Eingabe e;
  return Parse(args, e, why);
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  Eingabe e;
  std::string why;
  Parse(args, e, why);
  if (s.NKomp != 2) {
    peq::Post(&msgs, peq::kThieleTitel, "mccabe needs a binary mixture", peq::MsgIcon::Stop);
    return kExitRefused;
  }
  peq::ThieleDaten d;
  d.p = e.p;
  d.XKopf = static_cast<float>(e.top);
  d.XSumpf = static_cast<float>(e.bottom);
  d.XFeed = static_cast<float>(e.feed);
  d.RR = static_cast<float>(e.rr);
  d.OhneFeed = e.ohneFeed ? -1 : 0;
  d.MitHLV = e.hlv ? -1 : 0;
  s.IsoArt = 2;
  s.PIso = e.p;
  if (!peq::ThieleBereichOK(d)) {
    peq::Post(&msgs, peq::kThieleTitel, peq::kThieleBereich, peq::MsgIcon::Stop);
    return kExitRefused;
  }
  float rrMin = 0;
  peq::ThieleAzeotrop az;
  const bool ok = peq::ThieleAuslegung(s, d, rrMin, az, msgs);
  Json a;
  a.Int("found", az.Gefunden ? -1 : 0);
  a.Num("x2", az.Gefunden ? az.X : 0.0);
  a.Int("kind", az.Kind);
  if (!ok) {
    out.Num("rrmin", rrMin);
    out.Object("azeotrope", a);
    return kExitRefused;
  }
  std::vector<float> xs, ys;
  peq::StufenZeichnen(s, d, xs, ys);
  std::vector<std::vector<double>> steps;
  steps.reserve(xs.size());
  for (std::size_t k = 0; k < xs.size(); ++k) steps.push_back({xs[k], ys[k]});
  out.Num("rrmin", rrMin);
  out.Int("plates_upper", d.BoedenOben);
  out.Int("plates_lower", d.OhneFeed != 0 ? 0 : d.BoedenUnten);
  out.Num("xende", d.XEnde);
  out.NumMatrix("steps", steps);
  out.Object("azeotrope", a);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "mccabe", "--p P --top X --bottom X --feed X --rr R [--hlv] [--no-feed]",
    "McCabe-Thiele design of the pair at p (kPa), compositions x2 in the unit of the project\n"
    "(mole or mass fractions), reflux ratio R (1E10 total reflux): rrmin, plates_upper,\n"
    "plates_lower, xende, steps ([x, y] points of the step curve), azeotrope (found, x2, kind);\n"
    "--hlv bends the upper line by the enthalpies of vaporisation, --no-feed: one section",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
