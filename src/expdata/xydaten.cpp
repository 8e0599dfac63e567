#include "expdata/xydaten.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "diagrams/document.h"
#include "expdata/tpxdaten.h"
#include "session/numeric.h"
#include "session/writefmt.h"

namespace peq {

namespace {

std::vector<std::string_view> Zeilen(std::string_view t, int& zeilenenden) {
  std::vector<std::string_view> z;
  zeilenenden = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i < t.size(); ++i) {
    if (t[i] == '\r' || t[i] == '\n') {
      z.push_back(t.substr(start, i - start));
      ++zeilenenden;
      if (t[i] == '\r' && i + 1 < t.size() && t[i + 1] == '\n') ++i;
      start = i + 1;
    }
  }
  if (start < t.size()) z.push_back(t.substr(start));
  return z;
}

bool Zahl(std::string_view text, float& v) {
  std::string t(text);
  std::replace(t.begin(), t.end(), ',', '.');
  double d = 0;
  if (!ParseNumber(t, d) || std::fabs(d) > 3.402823e38) return false;
  v = static_cast<float>(d);
  return true;
}

}  // namespace

int XYAnzahl(const Kurve& k) { return k.empty() ? 0 : static_cast<int>(k[0].x); }

void XYAnzahlSetzen(Kurve& k, int n) {
  k.resize(static_cast<std::size_t>(n) + 1);
  k[0].x = static_cast<float>(n);
}

int XYTrennerSuchen(std::string_view zeile2, std::string& sep) {
  sep.clear();
  for (const char* c : {" ", ",", ";", "\t"})
    if (zeile2.find(c) != std::string_view::npos) sep = c;
  if (sep.empty()) return 0;
  const std::size_t erst = zeile2.find(sep);
  if (zeile2.find(sep, erst + 1) != std::string_view::npos) {
    sep.clear();
    return 2;
  }
  return 1;
}

bool XYLesen(std::string_view bytes, Kurve& liste, std::string& kommentar, std::string& err) {
  XYAnzahlSetzen(liste, 0);
  kommentar.clear();
  int enden = 0;
  const std::vector<std::string_view> z = Zeilen(bytes, enden);
  if (z.size() < 2) {
    err = kErrPastEnd;
    return false;
  }
  std::string sep;
  const int status = XYTrennerSuchen(z[1], sep);
  if (status != 1) {
    err = status == 0 ? "No delimiter (blank, comma, semicolon or tab) in line 2"
                      : "More than two columns in line 2";
    return false;
  }
  Kurve neu(1);
  neu.reserve(z.size());
  for (std::size_t i = 1; i < z.size(); ++i) {
    const std::string_view zeile = z[i];
    if (zeile.find_first_not_of(" \t") == std::string_view::npos) continue;  // a blank line
    const std::size_t a = zeile.find(sep);
    KurvenPunkt p;
    bool ok = a != std::string_view::npos;
    if (ok) {
      std::string_view rest = zeile.substr(a + sep.size());
      const std::size_t b = rest.find(sep);
      if (b != std::string_view::npos) rest = rest.substr(0, b);
      ok = Zahl(zeile.substr(0, a), p.x) && Zahl(rest, p.y);
    }
    if (!ok) {
      err = std::string(kErrTypeMismatch) + " (line " + std::to_string(i + 1) + ")";
      return false;
    }
    if (neu.size() > 32767) {
      err = kErrOverflow;
      return false;
    }
    p.z = 0;
    neu.push_back(p);
  }
  neu[0].x = static_cast<float>(neu.size() - 1);
  liste = std::move(neu);
  kommentar = std::string(z[0]);
  return true;
}

std::string XYText(const std::string& kommentar, const Kurve& liste, const std::string& sep) {
  std::string out;
  const int n = XYAnzahl(liste);
  out.reserve(static_cast<std::size_t>(n) * 30 + kommentar.size() + 2);
  for (char c : kommentar) out += (c == '\r' || c == '\n') ? ' ' : c;
  out += "\r\n";
  for (int i = 1; i <= n; ++i) {
    const KurvenPunkt& p = liste[static_cast<std::size_t>(i)];
    if (p.z != 0) continue;
    out += FormatE7(p.x);
    out += sep;
    out += FormatE7(p.y);
    out += "\r\n";
  }
  return out;
}

void XYSortieren(Kurve& liste, bool nachY) {
  const int n = XYAnzahl(liste);
  if (n < 2) return;
  std::stable_sort(liste.begin() + 1, liste.begin() + 1 + n, [nachY](const KurvenPunkt& a, const KurvenPunkt& b) {
    return nachY ? a.y < b.y : a.x < b.x;
  });
}

void XYSpaltenTausch(Kurve& liste) {
  const int n = XYAnzahl(liste);
  for (int i = 1; i <= n; ++i) std::swap(liste[static_cast<std::size_t>(i)].x, liste[static_cast<std::size_t>(i)].y);
}

bool XYZeilenLoeschen(Kurve& liste, int a, int b) {
  if (a > b) std::swap(a, b);
  const int n = XYAnzahl(liste);
  if (a < 1 || b > n) return false;
  liste.erase(liste.begin() + a, liste.begin() + b + 1);
  liste[0].x = static_cast<float>(n - (b - a + 1));
  return true;
}

void XYAktivUmschalten(Kurve& liste, int a, int b) {
  if (a > b) std::swap(a, b);
  const int n = XYAnzahl(liste);
  for (int i = std::max(a, 1); i <= std::min(b, n); ++i) {
    float& z = liste[static_cast<std::size_t>(i)].z;
    z = z == 0 ? -1.0f : 0.0f;
  }
}

bool XYManipulieren(Kurve& liste, int index, double W) {
  if (index < 0 || index > 5) return false;
  const int n = XYAnzahl(liste);
  auto neu = [&](const KurvenPunkt& p, float& x, float& y) {
    x = p.x;
    y = p.y;
    switch (index) {
      case 0: x = CSng(chk::Fin(1.0 - p.x)); break;
      case 1: y = CSng(chk::Div(1.0, p.y)); break;
      case 2: y = CSng(chk::Fin(p.y + W)); break;
      case 3: y = CSng(chk::Fin(p.y * W)); break;
      case 4: y = CSng(chk::Ln(p.y)); break;
      default: y = CSng(chk::Exp(p.y)); break;
    }
  };
  try {
    float x = 0, y = 0;
    for (int i = 1; i <= n; ++i) neu(liste[static_cast<std::size_t>(i)], x, y);  // test
  } catch (const NumericFault&) {
    return false;
  }
  for (int i = 1; i <= n; ++i) {
    KurvenPunkt& p = liste[static_cast<std::size_t>(i)];
    float x = 0, y = 0;
    neu(p, x, y);
    p.x = x;
    p.y = y;
  }
  return true;
}

int XYEinfuegen(Kurve& liste, std::string_view text, int r0, int c0) {
  int n = 0;
  const std::vector<std::string_view> z = Zeilen(text, n);
  if (n == 0) return 0;
  r0 = std::max(r0, 0);
  c0 = std::clamp(c0, 1, 2);
  const int alt = XYAnzahl(liste);
  const int anz = std::min(std::max(alt, r0 + n), 32767);
  XYAnzahlSetzen(liste, anz);
  for (std::size_t k = 0; k < z.size(); ++k) {
    const int i = r0 + 1 + static_cast<int>(k);
    if (i > anz) break;
    KurvenPunkt& p = liste[static_cast<std::size_t>(i)];
    std::string_view zeile = z[k];
    std::size_t a = 0;
    for (int c = c0; c <= 2; ++c) {
      const std::size_t tab = zeile.find('\t', a);
      const float v = ExpZellWert(zeile.substr(a, tab == std::string_view::npos ? std::string_view::npos : tab - a));
      (c == 1 ? p.x : p.y) = v;
      if (tab == std::string_view::npos) break;
      a = tab + 1;
    }
  }
  return n;
}

bool XYAktive(const Kurve& liste, Kurve& aktiv) {
  aktiv.assign(1, KurvenPunkt{});
  const int n = XYAnzahl(liste);
  for (int i = 1; i <= n; ++i) {
    const KurvenPunkt& p = liste[static_cast<std::size_t>(i)];
    if (p.z != 0) continue;
    if (!(std::fabs(p.x) <= 1e37f) || !(std::fabs(p.y) <= 1e37f)) return false;
    aktiv.push_back(KurvenPunkt{p.y, p.x, 0});
  }
  aktiv[0].x = static_cast<float>(aktiv.size() - 1);
  return true;
}

}  // namespace peq
