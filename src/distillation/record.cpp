#include "distillation/record.h"

#include <cmath>
#include <cstdio>

#include "session/writefmt.h"

namespace peq {

namespace {

constexpr const char* kCRLF = "\r\n";

std::string Trim(const std::string& t) {
  const auto a = t.find_first_not_of(' ');
  if (a == std::string::npos) return {};
  return t.substr(a, t.find_last_not_of(' ') - a + 1);
}

std::string Nr(int i) { return std::to_string(i); }

bool Kelvin(const Session& s) { return s.TOffsetOut == 0.0; }

}  // namespace

void DistProtokoll::Einrichten(int16_t art, int nKomp, int nFrak) {
  const int spalten = art == kProtBatch ? SpaltenBatch(nKomp, nFrak) : SpaltenThiele(nKomp);
  if (spalten != ProtSpalten) Zeilen.clear();
  ProtArt = art;
  NFrak = static_cast<int16_t>(nFrak);
  ProtSpalten = spalten;
  Aktuell.assign(static_cast<std::size_t>(spalten) + 1, 0.0f);
  AktuellGueltig = false;
}

void ThieleZeileFuellen(DistProtokoll& p, const Session& s, float RR, int ntp, float xFeed, float xSumpf,
                        float xKopf, float TSumpf, float TKopf) {
  const int n = s.NKomp;
  p.Aktuell.assign(static_cast<std::size_t>(p.ProtSpalten) + 1, 0.0f);
  p.Aktuell[1] = RR;
  p.Aktuell[2] = static_cast<float>(ntp);
  const float xs[3] = {xFeed, xSumpf, xKopf};
  for (int b = 0; b < 3; ++b)
    for (int i = 1; i <= n; ++i) {
      float v = 0.0f;
      if (i == s.Komp2) v = xs[b];
      // The rest to seven decimals, so that 1 - 0.8 reads 0.2 and not 0.19999999.
      if (i == s.Komp1) v = static_cast<float>(std::round((1.0 - double(xs[b])) * 1e7) / 1e7);
      p.Aktuell[static_cast<std::size_t>(3 + b * n + i - 1)] = v;
    }
  p.Aktuell[static_cast<std::size_t>(3 + 3 * n)] = TSumpf;
  p.Aktuell[static_cast<std::size_t>(4 + 3 * n)] = TKopf;
  p.AktuellGueltig = true;
}

std::string DistKopf(const Session& s, int16_t art, int16_t nFrak, const std::string& trenner) {
  const int n = s.NKomp;
  std::string k = "#row;RR; NTP;";
  if (art == kProtBatch) {
    for (int i = 1; i <= n; ++i) k += "n(" + Nr(i) + "),SP" + ";";
    const std::string TB = Kelvin(s) ? "T(B)/K" : "t(B)/\u00B0C", TT = Kelvin(s) ? " T(T)/K" : " t(T)/\u00B0C";
    for (int j = 1; j <= nFrak; ++j) {
      k += TB + ",beg(" + Nr(j) + ");" + TT + ",beg(" + Nr(j) + ");";
      k += TB + ",end(" + Nr(j) + ");" + TT + ",end(" + Nr(j) + ");";
      k += "n, fr(" + Nr(j) + ");";
      for (int i = 1; i <= n; ++i) k += "x(" + Nr(i) + ", " + Nr(j) + ");";
    }
  } else {
    const std::string x = s.ConcUnit != 0 ? "xi(" : "x(";
    for (const char* b : {"),F;", "),B;", "),T;"})
      for (int i = 1; i <= n; ++i) k += x + Nr(i) + b;
    k += Kelvin(s) ? "T(B)/K; T(T)/K;" : "t(B)/\u00B0C; t(T)/\u00B0C;";
  }
  if (trenner != ";") {
    std::string r;
    for (char c : k) {
      if (c == ';')
        r += trenner;
      else
        r += c;
    }
    k = r;
  }
  return k;
}

std::string DistZahl(float v, bool dezKomma, const std::string& trenner) {
  std::string t = WriteSgl(v);
  if (dezKomma && trenner != ",")
    for (char& c : t)
      if (c == '.') c = ',';
  return t;
}

std::string DistProtokollText(const Session& s, const DistProtokoll& p, const std::string& datum,
                              const std::string& zeit) {
  const std::string& d = p.ProtTrenner;
  const bool kelvin = Kelvin(s);
  std::string t;
  auto zeile = [&t](const std::string& z) { t += z + kCRLF; };
  zeile("PEQ: protocol of a distillation calculation, " + datum + ", " + zeit);
  if (p.ProtArt == kProtBatch)
    zeile("Batch distillation with " + Nr(p.NFrak) + " distillate fractions");
  else
    zeile("McCabe-Thiele design method");
  zeile("");
  zeile("quantities and units: ");
  zeile("RR reflux ratio, NTP number of theor. plates");
  if (p.ProtArt == kProtBatch) {
    zeile("n(i),SP/kmol: initial stillpot composition (anf\u00E4nglicher Destillationsblasen-Inhalt)");
    if (kelvin) {
      zeile("T(B)/K,beg(j); T(T)/K,beg(j); bottoms/top temperature, begin of the distillate fraction j");
      zeile("T(B)/K,end(j); T(T)/K,end(j); bottoms/top temperature, end of the distillate fraction j");
    } else {
      zeile("t(B)/\u00B0C,beg(j); t(T)/\u00B0C,beg(j); bottoms/top temperature, begin of the distillate fraction j");
      zeile("t(B)/\u00B0C,end(j); t(T)/\u00B0C,end(j); bottoms/top temperature, end of the distillate fraction j");
    }
    zeile("n,fr(j)/kmol: amount of substance of fraction j");
    zeile("x(i, j): composition of distillate fraction j");
  } else {
    zeile(kelvin ? "T(B)/K; T(T)/K; bottoms/top temperature" : "t(B)/\u00B0C; t(T)/\u00B0C; bottoms/top temperature");
    zeile(s.ConcUnit != 0 ? "xi(i),F; xi(i),B; xi(i),T; feed/bottoms/top composition (mass fraction)"
                          : "x(i),F; x(i),B; x(i),T; feed/bottoms/top composition (mole fractions)");
  }
  zeile("");
  zeile("components of the mixture:");
  zeile("Subst. Index." + d + "Substance" + d + "Mol. Mass");
  for (int i = 1; i <= s.NKomp; ++i)
    zeile(Nr(i) + d + Trim(s.StoffData[i].Name) + d + DistZahl(s.MolMasse[i], s.DezKomma, d));
  zeile("");
  zeile(DistKopf(s, p.ProtArt, p.NFrak, d));
  for (std::size_t r = 0; r < p.Zeilen.size(); ++r) {
    std::string z;
    const std::vector<float>& w = p.Zeilen[r];
    for (std::size_t c = 0; c < w.size(); ++c) z += DistZahl(w[c], s.DezKomma, d) + d;
    zeile(z);
  }
  return t;
}

std::string DistClipboardText(const DistProtokoll& p, bool dezKomma) {
  std::string t;
  for (const std::vector<float>& w : p.Zeilen) {
    for (std::size_t c = 0; c < w.size(); ++c) {
      if (c > 0) t += '\t';
      t += DistZahl(w[c], dezKomma, "\t");
    }
    t += kCRLF;
  }
  return t;
}

std::string ZeitText(const std::tm& t) {
  char b[16];
  std::snprintf(b, sizeof b, "%02d:%02d:%02d", t.tm_hour, t.tm_min, t.tm_sec);
  return b;
}

}  // namespace peq
