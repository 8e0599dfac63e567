#include "companions/batchfiles.h"

#include <cmath>

#include "companions/componentblock.h"
#include "companions/exchangetext.h"
#include "session/writefmt.h"

namespace peq {

namespace {

int16_t ParUnit(const Session& s) {
  switch (s.GEModel) {
    case 1: return s.ParUnitWilson;
    case 2: return s.ParUnitNRTL;
    case 4: return s.ParUnitKij;
    case 9: return s.ParUnitUNIQUAC;
    default: return 0;
  }
}

std::string Trim(std::string_view t) {
  std::size_t a = 0, b = t.size();
  while (a < b && (t[a] == ' ' || t[a] == '\t')) ++a;
  while (b > a && (t[b - 1] == ' ' || t[b - 1] == '\t')) --b;
  return std::string(t.substr(a, b - a));
}

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> out;
  std::size_t p = 0;
  while (p < text.size()) {
    std::size_t e = text.find('\n', p);
    if (e == std::string_view::npos) e = text.size();
    std::string line(text.substr(p, e - p));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    out.push_back(std::move(line));
    p = e + 1;
  }
  return out;
}

// A field cut out of a line that must hold one finite number.
bool FieldNumber(std::string_view field, double& v) {
  const std::string t = Trim(field);
  return !t.empty() && ParseNumber(t, v) && std::isfinite(v);
}

}  // namespace

std::string BatchGruppenZeile(const std::string& inkr) {
  // Six fields of six characters, the first five of each holding count*1000 + subgroup.
  const std::string t = inkr + ",";
  const std::size_t felder = inkr.size() / 6;
  int n = 0;
  std::string liste;
  for (std::size_t k = 0; k < felder; ++k) {
    const std::string f = Trim(t.substr(6 * k, 5));
    double v = 0;
    if (!ParseNumber(f, v) || v == 0) continue;
    ++n;
    liste += f + ",";
  }
  if (!liste.empty()) liste.pop_back();
  return WriteInt(n) + "," + liste;
}

std::string ToBatchText(const Session& s, const BatchStart& b) {
  std::string out;
  AppendLine(out, WriteInt(s.NKomp));
  AppendLine(out, WriteInt(s.GEModel));
  AppendLine(out, WriteInt(ParUnit(s)));
  AppendLine(out, WriteInt(s.VapModel));
  AppendLine(out, Muster(s.PIso));
  AppendLine(out, Muster(s.DruckVerlust));
  AppendLine(out, WriteInt(s.NBoden));
  AppendLine(out, Muster(s.RueckLauf));
  AppendLine(out, WriteInt(s.NFrak < 1 ? 1 : s.NFrak));
  AppendLine(out, WriteInt(s.NSchritte));
  AppendLine(out, Muster(s.BatchZeit == 0 ? 100.0f : s.BatchZeit));
  AppendLine(out, Muster(b.TKopfStart));
  AppendLine(out, Muster(b.TSumpfStart));
  AppendLine(out, Muster(b.RestMenge));
  AppendLine(out, Muster(s.BatchGenau));
  AppendLine(out, WriteSgl(s.BatchMaxIter));
  for (int i = 1; i <= s.NKomp; ++i) AppendComponentBlock(s, i, out);
  if (s.GEModel == 20 || s.GEModel == 21)
    for (int i = 1; i <= s.NKomp; ++i)
      AppendLine(out, BatchGruppenZeile(s.GEModel == 20 ? s.StoffData[i].ModUnifInkr : s.StoffData[i].OUnifInkr));
  for (int i = 1; i <= s.NKomp; ++i)
    for (int j = i + 1; j <= s.NKomp; ++j)
      for (int k = 1; k <= 9; k += 2) {
        AppendLine(out, Muster(s.GEPar(k, i, j)));
        AppendLine(out, Muster(s.GEPar(k + 1, i, j)));
        AppendLine(out, Muster(s.GEPar(k, j, i)));
        AppendLine(out, Muster(s.GEPar(k + 1, j, i)));
      }
  for (int i = 1; i <= s.NKomp; ++i) AppendLine(out, Muster(s.StoffMenge[i]));
  return out;
}

bool ReadBatchZeiten(std::string_view text, int nKomp, int restProzent, Batchergebnis& e, std::string& err) {
  const std::vector<std::string> lines = Lines(text);
  std::size_t l = 0;
  while (l < lines.size() && Trim(lines[l]) != "$T") ++l;
  if (l == lines.size()) {
    err = "no line \"$T\"";
    return false;
  }
  // Free format: items separated by blanks, commas or line ends.
  std::vector<std::string> items;
  std::size_t need = 2;
  for (++l; l < lines.size(); ++l) {
    const std::string& t = lines[l];
    std::size_t p = 0;
    while (p < t.size()) {
      while (p < t.size() && (t[p] == ' ' || t[p] == '\t' || t[p] == ',')) ++p;
      if (p >= t.size()) break;
      std::size_t q = p;
      while (q < t.size() && t[q] != ' ' && t[q] != '\t' && t[q] != ',') ++q;
      items.push_back(t.substr(p, q - p));
      p = q;
    }
    if (items.size() >= 2 && need == 2) {
      double n = 0;
      if (!FieldNumber(items[1], n) || n < 1 || n != std::floor(n) || n > 100000) {
        err = "the record count is not a whole number from 1";
        return false;
      }
      need = 2 + static_cast<std::size_t>(n) * static_cast<std::size_t>(2 + 3 * nKomp + 5);
    }
    if (need > 2 && items.size() >= need) break;
  }
  if (items.size() < need || need == 2) {
    err = "the time records are short";
    return false;
  }
  std::vector<double> v(need);
  for (std::size_t k = 0; k < need; ++k)
    if (!FieldNumber(items[k], v[k])) {
      err = "not a number: \"" + items[k] + "\"";
      return false;
    }
  Batchergebnis r;
  r.NZeit = static_cast<int>(v[1]);
  const std::size_t n1 = static_cast<std::size_t>(r.NZeit) + 1, nk = static_cast<std::size_t>(nKomp);
  r.Zeit.assign(n1, 0);
  r.TKopf.assign(n1, 0);
  r.TSumpf.assign(n1, 0);
  r.Kurve3.assign(n1, 0);
  r.Kurve4.assign(n1, 0);
  r.Kurve5.assign(n1, 0);
  r.XDest.assign(n1, std::vector<float>(nk, 0));
  r.XSumpf.assign(n1, std::vector<float>(nk, 0));
  std::size_t p = 2;
  auto f = [&](double x) { return static_cast<float>(x); };
  for (std::size_t i = 1; i < n1; ++i) {
    ++p;  // the record's own number
    r.Zeit[i] = f((100.0 - restProzent) * v[p++] / 100.0);
    for (std::size_t c = 0; c < nk; ++c) r.XDest[i][c] = f(v[p++]);
    for (std::size_t c = 0; c < nk; ++c) r.XSumpf[i][c] = f(v[p++]);
    for (std::size_t c = 0; c < nk; ++c) r.XSumpf[i][c] = f(v[p++]);
    r.TKopf[i] = f(v[p++]);
    r.TSumpf[i] = f(v[p++]);
    r.Kurve3[i] = f(v[p++]);
    r.Kurve4[i] = f(v[p++]);
    r.Kurve5[i] = f(v[p++]);
  }
  e = std::move(r);
  err.clear();
  return true;
}

bool ReadBatchFraktionen(std::string_view text, int nKomp, int nFrak, double tOffsetOut, std::vector<float>& zeile,
                         std::string& err) {
  const std::vector<std::string> lines = Lines(text);
  std::vector<float> z(static_cast<std::size_t>((nKomp + 5) * nFrak + nKomp + 2) + 1, 0.0f);
  for (std::size_t k = 0; k < zeile.size() && k < z.size(); ++k) z[k] = zeile[k];
  const double add = tOffsetOut != 0 ? 0.0 : 273.15;
  int c = nKomp + 2, frak = 0;
  auto fail = [&](const std::string& why, std::size_t l) {
    err = why + " in line " + std::to_string(l + 1);
    return false;
  };
  auto temps = [&](std::size_t l, double& tt, double& tb) {
    const std::string& t = lines[l];
    if (t.size() < 33 || t.size() < 16) return false;
    const std::string r16 = t.substr(t.size() - 16);
    return FieldNumber(std::string_view(t).substr(32, 14), tt) && FieldNumber(r16.substr(0, 14), tb);
  };
  for (std::size_t l = 0; l < lines.size() && frak < nFrak; ++l) {
    if (lines[l].find("fraction") == std::string::npos) continue;
    double menge = 0;
    if (lines[l].size() < 29 || !FieldNumber(std::string_view(lines[l]).substr(28, 15), menge))
      return fail("no amount", l);
    if (l + static_cast<std::size_t>(nKomp) + 6 >= lines.size()) return fail("a short fraction block", l);
    std::vector<double> x(static_cast<std::size_t>(nKomp) + 1, 0);
    for (int i = 1; i <= nKomp; ++i) {
      const std::string& t = lines[l + static_cast<std::size_t>(i)];
      const std::size_t a = t.size() > 11 ? t.size() - 11 : 0;
      if (!FieldNumber(std::string_view(t).substr(a), x[static_cast<std::size_t>(i)]))
        return fail("no mole fraction", l + static_cast<std::size_t>(i));
    }
    const std::size_t lb = l + static_cast<std::size_t>(nKomp) + 3, le = lb + 3;
    double ttb = 0, tbb = 0, tte = 0, tbe = 0;
    if (!temps(lb, ttb, tbb)) return fail("no begin temperatures", lb);
    if (!temps(le, tte, tbe)) return fail("no end temperatures", le);
    auto at = [&](int k) -> float& { return z[static_cast<std::size_t>(k)]; };
    at(c + 1) = static_cast<float>(tbb + add);
    at(c + 2) = static_cast<float>(ttb + add);
    at(c + 3) = static_cast<float>(tbe + add);
    at(c + 4) = static_cast<float>(tte + add);
    at(c + 5) = static_cast<float>(menge);
    for (int i = 1; i <= nKomp; ++i) at(c + 5 + i) = static_cast<float>(x[static_cast<std::size_t>(i)]);
    c += nKomp + 5;
    ++frak;
    l = le;
  }
  if (frak < nFrak) {
    err = "only " + std::to_string(frak) + " of " + std::to_string(nFrak) + " fractions";
    return false;
  }
  zeile = std::move(z);
  err.clear();
  return true;
}

bool ReadBatchFraktionsText(std::string_view text, std::vector<std::string>& zeilen) {
  const std::vector<std::string> lines = Lines(text);
  for (std::size_t l = 0; l < lines.size(); ++l)
    if (lines[l].find(kFraktionenZeile) != std::string::npos) {
      zeilen.assign(lines.begin() + static_cast<std::ptrdiff_t>(l) + 1, lines.end());
      return true;
    }
  return false;
}

}  // namespace peq
