#include "companions/fitfiles.h"

#include <cmath>

#include "companions/componentblock.h"
#include "companions/exchangetext.h"
#include "session/writefmt.h"

namespace peq {

void OhneTAbhAnwenden(FitTabelle& t) {
  for (int i = 0; i < kFitSlots; ++i) {
    if (i % 3 == 0) continue;
    t.Fest[static_cast<std::size_t>(i)] = true;
    t.Start[static_cast<std::size_t>(i)] = 0.0f;
  }
}

int AktivePunkte(const std::vector<FitPunkt>& pts) {
  int n = 0;
  for (const FitPunkt& p : pts)
    if (!p.Inaktiv) ++n;
  return n;
}

namespace {

void AppendPoints(const std::vector<FitPunkt>& pts, std::string& out) {
  for (const FitPunkt& p : pts) {
    if (p.Inaktiv) continue;
    AppendLine(out, Muster(p.T) + "," + Muster(p.p) + "," + Muster(p.x2L) + "," + Muster(p.x2V));
  }
}

std::string Flag(bool b) { return b ? "-1" : "0"; }

}  // namespace

std::string ToFitText(const Session& s, const FitTabelle& t, int16_t fitArt, const std::vector<FitPunkt>& pts) {
  std::string out;
  for (std::size_t i = 0; i < kFitSlots; ++i) {
    AppendLine(out, Flag(t.Fest[i]));
    AppendLine(out, Muster(t.Start[i]));
    AppendLine(out, Muster(t.Unten[i]));
    AppendLine(out, Muster(t.Oben[i]));
  }
  AppendLine(out, WriteInt(s.GEModel));
  AppendLine(out, WriteInt(s.VapModel));
  AppendLine(out, Muster(s.GEPar(7, 1, 2)));
  AppendLine(out, Muster(s.GEPar(8, 1, 2)));
  AppendLine(out, Muster(s.GEPar(7, 2, 1)));
  AppendLine(out, Muster(s.GEPar(8, 2, 1)));
  AppendLine(out, WriteInt(fitArt));
  AppendLine(out, WriteInt(AktivePunkte(pts)));
  AppendPoints(pts, out);
  AppendComponentBlock(s, 1, out);
  AppendComponentBlock(s, 2, out);
  return out;
}

std::string ToFitzText(const Session& s, const FitTabelle& t, int16_t fitArt, const std::vector<FitPunkt>& pts,
                       int zaehler) {
  std::string out;
  for (int g = 1; g <= 6; ++g) {
    if (g > 3) {
      for (int k = 0; k < 3; ++k) AppendLine(out, "0,0,0,0");
      AppendLine(out, "-1,-1,-1,-1");
      continue;
    }
    const std::size_t b = static_cast<std::size_t>(4 * (g - 1));
    auto row = [&](auto value) {
      std::string line;
      for (std::size_t k = 0; k < 4; ++k) {
        if (k) line += ',';
        line += value(b + k);
      }
      AppendLine(out, line);
    };
    row([&](std::size_t i) { return Muster(t.Start[i]); });
    row([&](std::size_t i) { return Muster(t.Oben[i]); });
    row([&](std::size_t i) { return Muster(t.Unten[i]); });
    row([&](std::size_t i) { return Flag(t.Fest[i]); });
  }
  AppendLine(out, WriteInt(fitArt));
  AppendLine(out, WriteInt(AktivePunkte(pts)));
  for (int i = 1; i <= 2; ++i)
    AppendLine(out, Muster(s.TKrit[i]) + "," + Muster(s.PKrit[i]) + "," + Muster(s.Omega[i]) + "," +
                        Muster(s.StoffData[i].RUniquac) + "," + Muster(s.StoffData[i].QUniquac));
  AppendPoints(pts, out);
  AppendLine(out, WriteInt(s.EOSModel) + "," + WriteInt(s.MixRule) + ",1,1,1," + WriteInt(zaehler));
  return out;
}

bool ReadFitAntwort(std::string_view text, bool phiPhi, FitAntwort& a, std::string& err) {
  std::vector<double> v;
  std::size_t p = 0;
  auto sep = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == ','; };
  while (p < text.size()) {
    while (p < text.size() && sep(text[p])) ++p;
    if (p >= text.size()) break;
    std::size_t e = p;
    while (e < text.size() && !sep(text[e])) ++e;
    double x = 0;
    if (!ParseNumber(text.substr(p, e - p), x) || !std::isfinite(x)) {
      err = "not a number: \"" + std::string(text.substr(p, e - p)) + "\"";
      return false;
    }
    v.push_back(x);
    p = e;
  }
  const std::size_t n = static_cast<std::size_t>(AntwortWerte(phiPhi));
  if (v.size() < n + 2) {
    err = "the answer is short";
    return false;
  }
  const double it = v[n];
  if (it < 0 || it != std::floor(it) || it > 2147483647.0) {
    err = "the iteration count is not a whole number";
    return false;
  }
  FitAntwort r;
  r.L.assign(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(n));
  r.Iterationen = static_cast<long>(it);
  r.Zielfunktion = v[n + 1];
  a = std::move(r);
  err.clear();
  return true;
}

std::string FitAntwortText(const FitAntwort& a) {
  std::string out;
  for (double x : a.L) AppendLine(out, WriteDbl(x));
  AppendLine(out, WriteInt(a.Iterationen));
  AppendLine(out, WriteDbl(a.Zielfunktion));
  return out;
}

}  // namespace peq
