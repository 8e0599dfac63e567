#include "substances/synonym.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "session/anycase.h"
#include "session/codepage.h"
#include "substances/bank.h"

namespace peq {

namespace {

namespace fs = std::filesystem;

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// Byte offset of the code point at the 1-based character position; text.size() past the end.
std::size_t ByteOffset(std::string_view text, std::size_t position) {
  std::size_t chars = 0;
  for (std::size_t b = 0; b < text.size(); ++b) {
    if (IsContinuation(static_cast<unsigned char>(text[b]))) continue;
    if (++chars == position) return b;
  }
  return text.size();
}

void ReplaceAll(std::string& text, std::string_view find, std::string_view by) {
  std::size_t from = 0;
  while ((from = text.find(find, from)) != std::string::npos) {
    text.replace(from, find.size(), by);
    from += by.size();
  }
}

void DeleteAll(std::string& text, char c) {
  std::size_t out = 0;
  for (char ch : text)
    if (ch != c) text[out++] = ch;
  text.resize(out);
}

// The rewrite table, applied in this order, each on every occurrence.
struct Rewrite {
  const char* find;
  const char* by;
};
constexpr Rewrite kRewrites[] = {
    {"ÄTH", "ETH"},     {"GLYKO", "GLYCO"}, {"KARBO", "CARBO"}, {"SULPH", "SULF"},
    {"AZET", "ACET"},   {"SEK", "SEC"},     {"ZYKLO", "CYCLO"}, {"ZYCLO", "CYCLO"},
    {"CYKLO", "CYCLO"}, {"DEKAN", "DECAN"}, {"KRESOL", "CRESOL"},
};

// A line of the file without its line end.
void CutLineEnd(std::string& line) {
  while (!line.empty() && (line.back() == '\r' || line.back() == '\n')) line.pop_back();
}

}  // namespace

std::string NameNormieren(std::string_view text) {
  std::string out(text);
  for (std::size_t b = 0; b < out.size(); ++b) {
    unsigned char c = static_cast<unsigned char>(out[b]);
    if (c >= 'a' && c <= 'z') {
      out[b] = static_cast<char>(c - 32);
    } else if (c == 0xC3 && b + 1 < out.size()) {
      // Latin-1 small letters U+00E0..U+00FE (not U+00F7, the division sign) to capitals.
      unsigned char d = static_cast<unsigned char>(out[b + 1]);
      if (d >= 0xA0 && d <= 0xBE && d != 0xB7) out[b + 1] = static_cast<char>(d - 0x20);
      ++b;
    }
  }
  ReplaceAll(out, "ä", "Ä");
  ReplaceAll(out, "ö", "Ö");
  ReplaceAll(out, "ü", "Ü");
  return out;
}

std::string BlankEntfernen(std::string_view text) {
  std::string out(text);
  DeleteAll(out, ' ');
  return out;
}

void StrLoeschen(std::string& text, std::size_t position, std::size_t length) {
  if (position < 1 || length == 0) return;
  const std::size_t from = ByteOffset(text, position);
  if (from >= text.size()) return;
  const std::size_t to = ByteOffset(text, position + length);
  text.erase(from, to - from);
}

std::size_t InStr(std::string_view text, std::string_view what) {
  const std::size_t b = text.find(what);
  if (b == std::string_view::npos) return 0;
  std::size_t chars = 0;
  for (std::size_t k = 0; k < b; ++k)
    if (!IsContinuation(static_cast<unsigned char>(text[k]))) ++chars;
  return chars + 1;
}

std::string SynonymUmschreiben(std::string_view name) {
  std::string work(name);
  for (const Rewrite& r : kRewrites) ReplaceAll(work, r.find, r.by);

  // OXYD becomes OXID unless the first OXYD begins an OXYDI. The test is the plain bitwise AND
  // of the two positions, so a later OXYDI can also end the loop early; that is the rule.
  for (;;) {
    const int32_t posOxyd = static_cast<int32_t>(InStr(work, "OXYD"));
    const int32_t posOxydi = static_cast<int32_t>(InStr(work, "OXYDI"));
    if ((posOxyd & ~posOxydi) == 0) break;
    work[work.find("OXYD") + 2] = 'I';
  }

  ReplaceAll(work, "ME-", "METHYL");
  ReplaceAll(work, "ET-", "ETHYL");
  ReplaceAll(work, "SAEURE", "SÄURE");
  return work;
}

std::string SynonymSchluessel(std::string_view name) {
  std::string key = SynonymUmschreiben(name);
  for (char c : {'-', '(', ')', '[', ']', '.'}) DeleteAll(key, c);
  return key;
}

std::string SynonymZeileBereinigen(std::string_view line) {
  std::string out(line);
  for (char c : {'-', '(', ')', '.'}) DeleteAll(out, c);
  return out;
}

void SynonymSuchen(std::string& name, const std::string& dir, std::string& cas, std::string& line,
                   bool& fileMissing, MsgSink* sink) {
  fileMissing = false;
  cas.clear();
  line.clear();
  const fs::path path = FindFileAnyCase(fs::path(dir) / kSynonymFile);
  std::error_code ec;
  if (!fs::exists(path, ec)) {
    Post(sink, "Error", std::string("Select your substance via list") + kNL + "file SYNOM.TXT not found",
         MsgIcon::Stop);
    fileMissing = true;
    return;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    const int e = errno;
    Post(sink, "Error", e != 0 ? std::strerror(e) : "file SYNOM.TXT cannot be read", MsgIcon::Stop);
    fileMissing = true;
    return;
  }

  const std::string key = SynonymSchluessel(name);
  std::string raw, casLine, dataLine;
  for (;;) {
    // CAS-RN and data line of the next record.
    if (!std::getline(in, raw)) break;
    CutLineEnd(raw);
    casLine = RTrim(Cp850ToUtf8(raw));
    if (!std::getline(in, raw)) break;
    CutLineEnd(raw);
    dataLine = Cp850ToUtf8(raw);
    if (casLine == name) {
      cas = casLine;
      line = dataLine;
      return;
    }
    // Its synonym lines up to the empty line.
    for (;;) {
      if (!std::getline(in, raw)) {
        cas = kSynonymEnd;
        return;
      }
      CutLineEnd(raw);
      if (raw.empty()) break;
      const std::string syn = SynonymZeileBereinigen(Cp850ToUtf8(raw));
      if (syn.size() == key.size() && syn == key) {
        cas = casLine;
        line = dataLine;
        return;
      }
    }
  }
  cas = kSynonymEnd;
}

void SynonymZeileZerlegen(const std::string& line, std::string& first, std::string& name,
                          std::string& last) {
  first.clear();
  name.clear();
  last.clear();
  std::string rest = line;
  StrLoeschen(rest, 1, 1);
  const std::size_t u1 = rest.find('_');
  if (u1 == std::string::npos) {
    first = rest;
    return;
  }
  first = rest.substr(0, u1);
  rest = rest.substr(u1 + 1);
  const std::size_t uLast = rest.rfind('_');
  if (uLast == std::string::npos) {
    last = RTrim(rest);
    return;
  }
  last = rest.substr(uLast + 1);
  name = rest.substr(0, uLast);
  std::size_t from = 0;
  for (int k = 0; k < 3; ++k) {
    const std::size_t u = name.find('_', from);
    if (u == std::string::npos) break;
    name[u] = ' ';
    from = u + 1;
  }
}

int NummerSuchen(const Session& s, int number) {
  for (int p = 1; p <= s.BankAnz; ++p)
    if (s.BankNr[static_cast<std::size_t>(p)] == number) return p;
  return 0;
}

StoffSucheErgebnis StoffSuchen(const Session& s, const std::string& query,
                               const std::string& synonymDir, MsgSink* sink) {
  StoffSucheErgebnis r;
  const std::string q = RTrim(query);
  for (int p = 1; p <= s.BankAnz; ++p) {
    const std::size_t k = static_cast<std::size_t>(p);
    if (q == Trim(s.BankName[k]) || q == Trim(s.BankCAS[k])) {
      r.art = StoffSucheErgebnis::Art::Direkt;
      r.found = true;
      r.place = p;
      return r;
    }
  }

  std::string name = BlankEntfernen(NameNormieren(q));
  std::string cas, line;
  bool missing = false;
  SynonymSuchen(name, synonymDir, cas, line, missing, sink);
  if (missing) {
    r.art = StoffSucheErgebnis::Art::DateiFehlt;
    return r;
  }
  if (cas == kSynonymEnd) {
    Post(sink, "input error or substance not available resp.", "Nothing found under this name",
         MsgIcon::Stop);
    r.art = StoffSucheErgebnis::Art::NichtGefunden;
    return r;
  }
  r.cas = cas;
  const int place = CASSuchen(s, cas);
  if (place > 0) {
    r.art = StoffSucheErgebnis::Art::Synonym;
    r.found = true;
    r.place = place;
    return r;
  }
  std::string first, nam, last;
  SynonymZeileZerlegen(line, first, nam, last);
  Post(sink, " the substance is not involved in this database",
       first + "\n" + nam + "\n\n" + "CAS-Nr. " + cas + "\n" + last, MsgIcon::Warning);
  r.art = StoffSucheErgebnis::Art::NichtInBank;
  return r;
}

bool IstZahlenTaste(int& keyAscii) {
  switch (keyAscii) {
    case 44:
      keyAscii = 46;
      return true;
    case 48: case 49: case 50: case 51: case 52: case 53: case 54: case 55: case 56: case 57:
    case 69: case 101: case 45: case 46: case 13: case 8: case 127:
      return true;
    default:
      return false;
  }
}

}  // namespace peq
