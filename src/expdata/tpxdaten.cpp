#include "expdata/tpxdaten.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>

#include "session/codepage.h"
#include "session/filewrite.h"
#include "session/numformat.h"
#include "session/writefmt.h"

namespace peq {

namespace {

constexpr const char* kCRLF = "\r\n";
constexpr double kAtm = 101.325;  // kPa
constexpr double kTorrProAtm = 760.0;
constexpr double kT0 = 273.15;

std::string Stutzen(std::string_view t) {
  std::size_t a = 0, b = t.size();
  while (a < b && (t[a] == ' ' || t[a] == '\t')) ++a;
  while (b > a && (t[b - 1] == ' ' || t[b - 1] == '\t')) --b;
  return std::string(t.substr(a, b - a));
}

// The array holds at least points 1..n; it never shrinks.
void Platz(Session& s, int n) {
  const std::size_t need = static_cast<std::size_t>(std::max(n, 0)) + 1;
  if (s.ExpPunkte.size() >= need) return;
  Vec<ExpPunkt> neu(need);
  for (std::size_t i = 0; i < s.ExpPunkte.size(); ++i) neu[i] = s.ExpPunkte[i];
  s.ExpPunkte = std::move(neu);
}

std::string OhneZeilenende(std::string t) {
  for (char& c : t)
    if (c == '\r' || c == '\n') c = ' ';
  return t;
}

std::string CasFeld(const std::string& cas) {
  std::string c = OhneZeilenende(cas);
  if (c.size() < 12) c.append(12 - c.size(), ' ');
  return c;
}

std::string NameFeld(const std::string& name) {
  std::string n = OhneZeilenende(Stutzen(name));
  std::replace(n.begin(), n.end(), '"', '\'');
  return n;
}

bool LeseDatei(const std::string& datei, std::string& bytes) {
  std::ifstream in(datei, std::ios::binary);
  if (!in) return false;
  bytes.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return !in.bad();
}

std::string ZahlText(double v) { return ZahlG(v, 7); }

}  // namespace

Ex5Inhalt LeseEx5(std::string_view bytes) {
  Ex5Inhalt d;
  ItemReader r{std::string(bytes)};
  try {
    for (int k = 1; k <= 2; ++k) {
      r.Int16();  // the component's digit
      const std::string cas = Stutzen(r.Item());
      const std::string name = Cp1252ToUtf8(r.Item());
      (k == 1 ? d.Cas1 : d.Cas2) = cas;
      (k == 1 ? d.Name1 : d.Name2) = name;
    }
    d.StoffeGelesen = true;
    d.Kommentar1 = Cp1252ToUtf8(r.Line());
    d.Kommentar2 = Cp1252ToUtf8(r.Line());
    r.Line();  // the head "T/K, p/kPa, x2(L), x2(V)"
    d.Anzahl = r.Int16();
    if (d.Anzahl < 0) throw ReadError{"Subscript out of range"};
    d.KopfGelesen = true;
    d.Punkte.reserve(static_cast<std::size_t>(d.Anzahl));
    for (int i = 0; i < d.Anzahl; ++i) {
      ExpPunkt p;
      p.T = r.Single();
      p.p = r.Single();
      p.x2L = r.Single();
      p.x2V = r.Single();
      d.Punkte.push_back(p);
    }
  } catch (const ReadError& e) {
    d.Fehler = e.text.empty() ? std::string(kErrTypeMismatch) : e.text;
  }
  return d;
}

std::string Ex5Text(const std::string& cas1, const std::string& name1, const std::string& cas2,
                    const std::string& name2, const std::string& kommentar1, const std::string& kommentar2,
                    const ExpPunkt* punkte, int n) {
  std::string out;
  out.reserve(160 + static_cast<std::size_t>(std::max(n, 0)) * 48);
  out += "1, " + CasFeld(cas1) + ", \"" + NameFeld(name1) + "\"" + kCRLF;
  out += "2, " + CasFeld(cas2) + ", \"" + NameFeld(name2) + "\"" + kCRLF;
  out += OhneZeilenende(kommentar1) + kCRLF;
  out += OhneZeilenende(kommentar2) + kCRLF;
  out += std::string(kEx5Kopf) + kCRLF;
  out += WriteInt(n) + kCRLF;
  for (int i = 0; i < n; ++i) {
    const ExpPunkt& p = punkte[i];
    out += WriteSgl(p.T);
    out += ',';
    out += WriteSgl(p.p);
    out += ',';
    out += WriteSgl(p.x2L);
    out += ',';
    out += WriteSgl(p.x2V);
    out += kCRLF;
  }
  return Utf8ToCp1252(out);
}

std::string Ex5Text(const Session& s) {
  auto feld = [&](int i, bool cas) -> std::string {
    if (static_cast<std::size_t>(i) >= s.StoffData.size()) return {};
    return cas ? s.StoffData[static_cast<std::size_t>(i)].CasNr : s.StoffData[static_cast<std::size_t>(i)].Name;
  };
  const int n = std::clamp<int>(s.ExpAnz, 0, static_cast<int>(s.ExpPunkte.size()) - 1);
  return Ex5Text(feld(1, true), feld(1, false), feld(2, true), feld(2, false), s.ExpKommentar1,
                 s.ExpKommentar2, n > 0 ? &s.ExpPunkte[1] : nullptr, std::max(n, 0));
}

int ExpGehalten(const Session& s) {
  return std::clamp<int>(s.ExpAnz, 0, std::max(static_cast<int>(s.ExpPunkte.size()) - 1, 0));
}

void ExpLoeschen(Session& s) {
  s.ExpAnz = 0;
  s.ExpDatei.clear();
  s.ExpTitel.clear();
}

bool ExpDateiLaden(Session& s, bool add, const std::string& datei, const JaNeinFrage& frage, MsgSink* msgs) {
  if (!add) ExpLoeschen(s);
  s.ExpDatei = datei;
  std::string bytes;
  if (!LeseDatei(datei, bytes)) {
    Post(msgs, kExpFehlerTitel, "File not found: " + datei, MsgIcon::Stop);
    return false;
  }
  const Ex5Inhalt d = LeseEx5(bytes);
  if (!d.StoffeGelesen) {
    Post(msgs, kExpFehlerTitel, d.Fehler, MsgIcon::Stop);
    return false;
  }
  s.ExpTitel = "(1) " + d.Name1 + "   (2) " + d.Name2;

  auto cas = [&](int i) {
    return static_cast<std::size_t>(i) < s.StoffData.size() ? Stutzen(s.StoffData[static_cast<std::size_t>(i)].CasNr)
                                                           : std::string();
  };
  const std::string beide = d.Cas1 + d.Cas2;
  if (beide.find(cas(1)) == std::string::npos || beide.find(cas(2)) == std::string::npos) {
    if (!frage || !frage(kExpWarnTitel, kExpAndereStoffe)) return false;
  }
  const bool andersHerum = d.Cas1 != cas(1);

  if (!d.KopfGelesen) {
    Post(msgs, kExpFehlerTitel, d.Fehler, MsgIcon::Stop);
    return false;
  }
  if (!add) {
    s.ExpKommentar1 = d.Kommentar1;
    s.ExpKommentar2 = d.Kommentar2;
  }
  const int alt = s.ExpAnz;
  if (alt + d.Anzahl > 32767) {
    Post(msgs, kExpFehlerTitel, kErrOverflow, MsgIcon::Stop);
    return false;
  }
  // The points go behind the held ones, also those of a file that breaks off.
  Platz(s, alt + static_cast<int>(std::max<std::size_t>(d.Punkte.size(), static_cast<std::size_t>(d.Anzahl))));
  for (std::size_t k = 0; k < d.Punkte.size(); ++k) s.ExpPunkte[static_cast<std::size_t>(alt) + 1 + k] = d.Punkte[k];
  if (!d.Fehler.empty()) {
    Post(msgs, kExpFehlerTitel, d.Fehler, MsgIcon::Stop);
    return false;
  }
  if (andersHerum && frage && frage(kExpWarnTitel, kExpIndizierung)) {
    for (int i = alt + 1; i <= alt + d.Anzahl; ++i) {
      ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
      p.x2L = static_cast<float>(1.0 - p.x2L);
      p.x2V = static_cast<float>(1.0 - p.x2V);
    }
    auto name = [&](int i) {
      return static_cast<std::size_t>(i) < s.StoffData.size() ? Stutzen(s.StoffData[static_cast<std::size_t>(i)].Name)
                                                             : std::string();
    };
    s.ExpTitel = "(1) " + name(1) + "   (2) " + name(2);
  }
  s.ExpAnz = static_cast<int16_t>(alt + d.Anzahl);
  s.ExpUngespeichert = false;
  return true;
}

bool ExpDateiSchreiben(Session& s, const std::string& datei, std::string& err) {
  if (!WriteReplacing(datei, Ex5Text(s), err)) return false;
  s.ExpDatei = datei;
  s.ExpUngespeichert = false;
  return true;
}

bool ExpSortieren(Session& s, std::string_view key) {
  float ExpPunkt::*feld = nullptr;
  if (key == "T")
    feld = &ExpPunkt::T;
  else if (key == "p")
    feld = &ExpPunkt::p;
  else if (key == "xL")
    feld = &ExpPunkt::x2L;
  else
    return false;
  const int n = std::min<int>(s.ExpAnz, static_cast<int>(s.ExpPunkte.size()) - 1);
  if (n < 2) return true;
  ExpPunkt* a = &s.ExpPunkte[1];
  std::stable_sort(a, a + n, [feld](const ExpPunkt& u, const ExpPunkt& v) { return u.*feld < v.*feld; });
  return true;
}

void ExpKomponentenTausch(Session& s) {
  const int n = std::min<int>(s.ExpAnz, static_cast<int>(s.ExpPunkte.size()) - 1);
  for (int i = 1; i <= n; ++i) {
    ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    p.x2L = static_cast<float>(1.0 - p.x2L);
    p.x2V = static_cast<float>(1.0 - p.x2V);
  }
}

float ExpZellWert(std::string_view text) {
  std::string t = Stutzen(text);
  std::replace(t.begin(), t.end(), ',', '.');
  double v = 0;
  if (!ParseNumber(t, v)) {
    // The leading number of the text, as far as it reads.
    std::size_t e = 0;
    while (e < t.size() && (std::isdigit(static_cast<unsigned char>(t[e])) || t[e] == '.' || t[e] == '-' ||
                            t[e] == '+' || t[e] == 'E' || t[e] == 'e'))
      ++e;
    v = 0;
    while (e > 0 && !ParseNumber(std::string_view(t).substr(0, e), v)) --e;
    if (e == 0) v = 0;
  }
  if (!std::isfinite(v) || std::fabs(v) > 3.402823e38) return 0;
  return static_cast<float>(v);
}

int ExpEinfuegen(Session& s, std::string_view text, int r0, int c0) {
  // Lines of the text; a line end is CR LF, LF or CR.
  std::vector<std::string_view> zeilen;
  int n = 0;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' || text[i] == '\n') {
      zeilen.push_back(text.substr(start, i - start));
      ++n;
      if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') ++i;
      start = i + 1;
    }
  }
  if (n == 0) return 0;
  if (start < text.size()) zeilen.push_back(text.substr(start));
  r0 = std::max(r0, 0);
  c0 = std::clamp(c0, 1, 4);
  const int alt = s.ExpAnz;
  const int neu = std::min(std::max(alt, r0 + n), 32767);
  Platz(s, neu);
  for (int i = alt + 1; i <= neu; ++i) s.ExpPunkte[static_cast<std::size_t>(i)] = ExpPunkt{};
  s.ExpAnz = static_cast<int16_t>(neu);
  for (std::size_t z = 0; z < zeilen.size(); ++z) {
    const int i = r0 + 1 + static_cast<int>(z);
    if (i > neu) break;
    std::string_view zeile = zeilen[z];
    int c = c0;
    std::size_t a = 0;
    while (c <= 4) {
      const std::size_t tab = zeile.find('\t', a);
      const std::string_view zelle = zeile.substr(a, tab == std::string_view::npos ? std::string_view::npos : tab - a);
      ExpZelleSetzen(s, i, c, zelle);
      ++c;
      if (tab == std::string_view::npos) break;
      a = tab + 1;
    }
  }
  s.ExpUngespeichert = true;
  return n;
}

bool ExpZelleSetzen(Session& s, int i, int c, std::string_view text) {
  if (i < 1 || i > ExpGehalten(s)) return false;
  ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
  const float v = ExpZellWert(text);
  switch (c) {
    case 1: p.T = v; break;
    case 2: p.p = v; break;
    case 3: p.x2L = v; break;
    case 4: p.x2V = v; break;
    default: return false;
  }
  s.ExpUngespeichert = true;
  return true;
}

std::string XLKopf(int16_t iKomp) { return iKomp == 1 ? "x1(L)" : "x2(L)"; }
std::string XVKopf(int16_t iKomp) { return iKomp == 1 ? "x1(V)" : "x2(V)"; }

double AufDreiStellen(double v) { return std::floor(v * 1000.0 + 0.5) / 1000.0; }

std::array<std::string, 4> TpxAnzeige(const ExpPunkt& p, const TpxEinheiten& e) {
  std::array<std::string, 4> f;
  f[0] = e.TEinheit == 1 ? ZahlText(AufDreiStellen(p.T - kT0)) : ZahlText(p.T);
  if (e.pEinheit == 1)
    f[1] = ZahlText(AufDreiStellen(p.p / kAtm * kTorrProAtm));
  else if (e.pEinheit == 2)
    f[1] = ZahlText(AufDreiStellen(p.p / kAtm));
  else
    f[1] = ZahlText(p.p);
  if (e.iKomp == 1) {
    f[2] = ZahlText(AufDreiStellen(1.0 - p.x2L));
    f[3] = p.x2V == 0 ? "0" : ZahlText(AufDreiStellen(1.0 - p.x2V));
  } else {
    f[2] = ZahlText(p.x2L);
    f[3] = ZahlText(p.x2V);
  }
  return f;
}

TpxUebernahme TpxPruefen(const std::array<std::string, 4>& felder, const TpxEinheiten& e) {
  TpxUebernahme u;
  std::array<double, 4> v{};
  for (int k = 0; k < 4; ++k) {
    std::string t = Stutzen(felder[static_cast<std::size_t>(k)]);
    std::replace(t.begin(), t.end(), ',', '.');
    if (!ParseNumber(t, v[static_cast<std::size_t>(k)])) {
      u.Fokus = k;
      return u;
    }
  }
  double T = v[0], p = v[1], xL = v[2], xV = v[3];
  if (e.TEinheit == 1) T += kT0;
  if (e.pEinheit == 1)
    p = p / kTorrProAtm * kAtm;
  else if (e.pEinheit == 2)
    p = p * kAtm;
  if (e.iKomp == 1) {
    xL = 1.0 - xL;
    if (xV != 0) xV = 1.0 - xV;
  }
  if (!(T > 0) || T > 3.402823e38) {
    u.Fokus = 0;
    return u;
  }
  if (!(p > 0) || p > 3.402823e38) {
    u.Fokus = 1;
    return u;
  }
  if (!(xL >= 0 && xL <= 1) || !(xV >= 0 && xV <= 1)) {
    u.Meldung = kExpMolBereich;
    u.Fokus = !(xL >= 0 && xL <= 1) ? 2 : 3;
    return u;
  }
  u.Punkt.T = static_cast<float>(T);
  u.Punkt.p = static_cast<float>(p);
  u.Punkt.x2L = static_cast<float>(xL);
  u.Punkt.x2V = static_cast<float>(xV);
  u.Anzeige = TpxAnzeige(u.Punkt, e);
  u.ok = true;
  return u;
}

TpxUebernahme OKinput(Session& s, const std::array<std::string, 4>& felder, const TpxEinheiten& e,
                      bool addMode, int zeile) {
  TpxUebernahme u = TpxPruefen(felder, e);
  if (!u.ok) return u;
  if (addMode) {
    if (s.ExpAnz >= 32767) {
      u.ok = false;
      u.Meldung = kErrOverflow;
      return u;
    }
    Platz(s, s.ExpAnz + 1);
    ++s.ExpAnz;
    u.Punkt.Inaktiv = 0;
    s.ExpPunkte[static_cast<std::size_t>(s.ExpAnz)] = u.Punkt;
  } else {
    if (zeile < 1 || zeile > ExpGehalten(s)) {
      u.ok = false;
      return u;
    }
    ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(zeile)];
    u.Punkt.Inaktiv = p.Inaktiv;
    p = u.Punkt;
  }
  s.ExpUngespeichert = true;
  return u;
}

bool ExpZeilenLoeschen(Session& s, int a, int b) {
  if (a > b) std::swap(a, b);
  if (a < 1 || b > ExpGehalten(s)) return false;
  const int weg = b - a + 1;
  for (int i = b + 1; i <= ExpGehalten(s); ++i)
    s.ExpPunkte[static_cast<std::size_t>(i - weg)] = s.ExpPunkte[static_cast<std::size_t>(i)];
  s.ExpAnz = static_cast<int16_t>(s.ExpAnz - weg);
  s.ExpUngespeichert = true;
  return true;
}

void ExpAktivUmschalten(Session& s, int a, int b) {
  if (a > b) std::swap(a, b);
  for (int i = std::max(a, 1); i <= std::min(b, ExpGehalten(s)); ++i) {
    ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    p.Inaktiv = p.Inaktiv == 0 ? -1 : 0;
  }
}

}  // namespace peq
