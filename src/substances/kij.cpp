// The k(ij) files of the cubic equations of state. An entry is two lines:
//   CAS1,CAS2[,anything]
//   value[ anything]
// read to the end of the file; the order of the two CAS numbers does not matter.
#include "substances/kij.h"

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "session/anycase.h"
#include "session/codepage.h"
#include "session/filewrite.h"

namespace peq {

namespace fs = std::filesystem;

namespace {

constexpr const char* kTitleResult = "Result";
constexpr const char* kMsgFound = "j(ij)-parameter was found and filled in";
constexpr const char* kMsgNotFound = "For this binary system no k(ij)-parameter was found";

// One line without its line end (LF or CR LF). False at the end of the file.
bool GetLine(std::istream& in, std::string& line) {
  if (!std::getline(in, line)) return false;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return true;
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// First line of an entry: the first CAS-RN ends at the comma; the second at the next comma,
// blank or tab (a CAS-RN holds none of them). False when there is no comma.
bool ParseCasLine(const std::string& line, std::string& cas1, std::string& cas2) {
  const std::size_t comma = line.find(',');
  if (comma == std::string::npos) return false;
  cas1 = Trim(line.substr(0, comma));
  std::size_t a = comma + 1;
  while (a < line.size() && IsBlank(line[a])) ++a;
  std::size_t b = a;
  while (b < line.size() && line[b] != ',' && !IsBlank(line[b])) ++b;
  cas2 = line.substr(a, b - a);
  return true;
}

// Second line: a real number with a decimal point at its start, ended by the line end, a
// blank, a tab or a comma; what follows is ignored. A CAS line ("3-3-3,...") is no number.
bool ParseValueLine(const std::string& line, double& v) {
  std::size_t a = 0;
  while (a < line.size() && IsBlank(line[a])) ++a;
  if (a < line.size() && line[a] == '+') ++a;
  const char* first = line.data() + a;
  const char* last = line.data() + line.size();
  const auto res = std::from_chars(first, last, v, std::chars_format::general);
  if (res.ec != std::errc() || res.ptr == first || !std::isfinite(v)) return false;
  return res.ptr == last || *res.ptr == ',' || IsBlank(*res.ptr);
}

// Reads the next entry; false at the end of the file or at an unreadable entry.
bool NextEntry(std::istream& in, KijEntry& e) {
  std::string l1, l2;
  if (!GetLine(in, l1)) return false;
  if (!ParseCasLine(l1, e.Cas1, e.Cas2)) return false;
  if (!GetLine(in, l2)) return false;
  return ParseValueLine(l2, e.Kij);
}

// The file in dir, its name compared regardless of case when it is not there as spelled.
fs::path KijPath(const std::string& dir, const std::string& file) {
  std::string d = dir;
  for (char& c : d)
    if (c == '\\') c = '/';
  return FindFileAnyCase(fs::path(d) / file);
}

}  // namespace

std::string KijFileName(int eosModel) {
  switch (eosModel) {
    case 4:
      return "KIJ_RKS.DAT";
    case 5:
      return "KIJ_PR.DAT";
    default:
      return std::string();
  }
}

std::vector<KijEntry> ReadKijFile(const std::string& path) {
  std::vector<KijEntry> out;
  std::ifstream in(path, std::ios::binary);
  if (!in) return out;
  KijEntry e;
  while (NextEntry(in, e)) out.push_back(e);
  return out;
}

bool WriteKijFile(const std::string& path, const std::vector<KijEntry>& entries, std::string& err) {
  std::string text;
  for (const KijEntry& e : entries) {
    // Shortest text that reads back to the same double, exponent in capitals.
    char num[64];
    const auto res = std::to_chars(num, num + sizeof num, e.Kij);
    std::string v(num, res.ptr);
    for (char& c : v)
      if (c == 'e') c = 'E';
    text.append(Trim(e.Cas1)).append(",").append(Trim(e.Cas2)).append("\r\n").append(v).append("\r\n");
  }
  return WriteReplacing(path, text, err);
}

std::optional<double> FindKij(const std::string& path, const std::string& cas1,
                              const std::string& cas2) {
  const std::string a = Trim(cas1), b = Trim(cas2);
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  KijEntry e;
  while (NextEntry(in, e)) {
    const std::string c1 = Trim(e.Cas1), c2 = Trim(e.Cas2);
    if ((c1 == a && c2 == b) || (c1 == b && c2 == a)) return e.Kij;
  }
  return std::nullopt;
}

std::optional<double> SearchKij(const Session& s, int i, int j, const std::string& dir,
                                MsgSink* sink) {
  const std::string file = KijFileName(s.EOSModel);
  if (file.empty()) return std::nullopt;  // this equation of state has no k(ij) file
  if (i < 1 || j < 1 || i > s.NKomp || j > s.NKomp) return std::nullopt;
  const std::optional<double> k = FindKij(KijPath(dir, file).string(),
                                          s.StoffData[static_cast<std::size_t>(i)].CasNr,
                                          s.StoffData[static_cast<std::size_t>(j)].CasNr);
  if (k) {
    Post(sink, kTitleResult, kMsgFound, MsgIcon::Information);
  } else {
    Post(sink, kTitleResult, kMsgNotFound, MsgIcon::Information);
  }
  return k;
}

}  // namespace peq
