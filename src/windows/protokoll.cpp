#include "windows/protokoll.h"

#include <cerrno>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <system_error>

#include "session/codepage.h"
#include "session/filewrite.h"
#include "session/writefmt.h"

namespace peq {

namespace fs = std::filesystem;

namespace {

constexpr const char* kCRLF = "\r\n";

// Block names of the per-component columns, in their order.
constexpr const char* kFlashBloecke[7] = {"p0(", "v0(", "n0(", "x0(", "xL(", "xV(", "f("};
constexpr const char* kAktivBloecke[3] = {"p0(", "x0(", "f("};

std::string Lesen(const std::string& fileName, bool& ok) {
  std::ifstream in(fileName, std::ios::binary);
  ok = static_cast<bool>(in);
  if (!ok) return std::string();
  std::ostringstream ss;
  ss << in.rdbuf();
  return ss.str();
}

}  // namespace

std::string DatumText(const std::tm& date) {
  char t[32];
  std::snprintf(t, sizeof t, "%02d-%02d-%04d", date.tm_mon + 1, date.tm_mday, date.tm_year + 1900);
  return t;
}

std::string DatumText() {
  const std::time_t now = std::time(nullptr);
  std::tm date{};
  localtime_r(&now, &date);
  return DatumText(date);
}

std::string ProtokollDateiName(const fs::path& dir, const std::string& datumText) {
  std::string stem;
  if (datumText.size() >= 5) {
    stem = datumText.substr(datumText.size() - 2) + datumText.substr(0, 2) + datumText.substr(3, 2);
  } else {
    stem = datumText;
  }
  // The serial has two digits up to 99 and goes on with three (and more) after it: a name that
  // exists is never handed out again, so no record of the day is ever overwritten.
  std::error_code ec;
  for (int n = 1;; ++n) {
    char serial[16];
    std::snprintf(serial, sizeof serial, "%02d", n);
    const fs::path p = dir / (stem + serial + ".CSV");
    if (!fs::exists(p, ec)) return p.string();
  }
}

std::string ProtokollZahl(float v, bool dezKomma) {
  std::string t = WriteSgl(v);
  if (dezKomma)
    for (char& c : t) {
      if (c == '.')
        c = ',';
      else if (c == ',')
        c = '.';
    }
  return t;
}

std::string Verbinden(const std::vector<std::string>& fields, const std::string& trenner) {
  std::string t;
  for (std::size_t k = 0; k < fields.size(); ++k) {
    if (k > 0) t += trenner;
    t += fields[k];
  }
  return t;
}

std::string Spaltenkopf(const Session& s, int16_t art) {
  const std::string& d = s.ListTrenner;
  std::vector<std::string> f;
  if (art == kArtFlash)
    f = {"Line#", "Concept", "GE-model", "EOS", "Mix. Rule", "T", "p", "eta(V)", "rho(L)", "rho(V)"};
  else
    f = {"Line#", "gE-model", "T", "gE/RT", " del(M)g/RT"};
  std::string t;
  for (const std::string& x : f) t += x + d;
  const int nb = art == kArtFlash ? 7 : 3;
  for (int b = 0; b < nb; ++b) {
    const char* name = art == kArtFlash ? kFlashBloecke[b] : kAktivBloecke[b];
    for (int i = 1; i <= s.NKomp; ++i) t += std::string(name) + std::to_string(i) + ")" + d;
  }
  return t;
}

std::vector<std::string> ProtokollAnfang(const Session& s, int16_t art, const std::string& datumText) {
  std::vector<std::string> z;
  z.push_back(std::string(kProtokollTitel) + datumText);
  for (int k = 0; k < 6; ++k)
    z.push_back(k == 0 && art != kArtFlash ? kProtokollEinheitenAktiv : kProtokollLegende[k]);
  z.push_back(Verbinden({" No.", "Substance", " Mol. Mass"}, s.ListTrenner));
  for (int i = 1; i <= s.NKomp; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    z.push_back(Verbinden({std::to_string(i), Trim(s.StoffData[k].Name), ProtokollZahl(s.MolMasse[k], s.DezKomma)},
                          s.ListTrenner));
  }
  z.push_back(Spaltenkopf(s, art));
  return z;
}

bool ProtokollZeileAnhaengen(Session& s, int16_t art, const std::string& datumText, std::string& err) {
  std::error_code ec;
  std::vector<std::string> neu;
  std::string alt;
  bool beginnen = !s.ProtokollAktiv || s.ProtokollDatei.empty() || !fs::exists(s.ProtokollDatei, ec);
  std::string name = s.ProtokollDatei;
  if (!s.ProtokollAktiv && !name.empty() && fs::exists(name, ec)) {
    // The held name belongs to a file this record did not write: a new name, never an overwrite.
    name = ProtokollDateiName(fs::path(name).parent_path(), datumText);
  }
  if (name.empty()) name = ProtokollDateiName(fs::path("."), datumText);
  int16_t nr = s.ProtokollNr;
  if (beginnen) {
    neu = ProtokollAnfang(s, art, datumText);
    nr = 0;
  } else {
    bool ok = false;
    alt = Lesen(name, ok);
    if (!ok) {
      err = SystemText(errno);
      return false;
    }
    if (s.ProtokollArt != art) neu.push_back(Spaltenkopf(s, art));
  }
  ++nr;
  std::string zeile = std::to_string(nr) + s.ListTrenner;
  for (std::size_t k = 1; k < s.ProtokollZeile.size(); ++k) zeile += s.ProtokollZeile[k] + s.ListTrenner;
  neu.push_back(zeile);
  std::string bytes = alt;
  for (const std::string& z : neu) bytes += Utf8ToCp1252(z) + kCRLF;
  if (!WriteReplacing(name, bytes, err)) return false;
  s.ProtokollDatei = name;
  s.ProtokollAktiv = true;
  s.ProtokollNr = nr;
  s.ProtokollArt = art;
  return true;
}

std::string ProtokollText(const std::string& fileName, const std::string& trenner) {
  bool ok = false;
  const std::string roh = Lesen(fileName, ok);
  if (!ok) return std::string();
  std::string text;
  std::size_t a = 0;
  while (a < roh.size()) {
    std::size_t e = roh.find('\n', a);
    std::size_t next = e == std::string::npos ? roh.size() : e + 1;
    if (e == std::string::npos) e = roh.size();
    std::size_t b = e;
    if (b > a && roh[b - 1] == '\r') --b;
    text += Cp1252ToUtf8(std::string_view(roh).substr(a, b - a));
    text += kCRLF;
    a = next;
  }
  if (!trenner.empty() && trenner != "\t") {
    std::string out;
    out.reserve(text.size());
    for (std::size_t k = 0; k < text.size();) {
      if (text.compare(k, trenner.size(), trenner) == 0) {
        out += '\t';
        k += trenner.size();
      } else {
        out += text[k++];
      }
    }
    text.swap(out);
  }
  return text;
}

void ProtokollBeenden(Session& s) {
  s.ProtokollAktiv = false;
  s.ProtokollNr = 0;
  s.ProtokollArt = 0;
}

}  // namespace peq
