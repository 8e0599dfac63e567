#include "substances/unifacfiles.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <system_error>

#include "models/unifac.h"
#include "session/numeric.h"

namespace peq {

namespace {

// A read of a parameter file that cannot go on (end of file, not a number, outside a table).
struct ParFault {
  const char* what;
};

bool ReadWholeFile(const std::string& name, std::string& text) {
  if (name.empty()) return false;
  std::ifstream in(name, std::ios::binary | std::ios::ate);
  if (!in) return false;
  const std::streamoff size = in.tellg();
  if (size < 0) return false;
  text.resize(static_cast<std::size_t>(size));
  in.seekg(0);
  in.read(text.data(), size);
  return static_cast<std::streamoff>(in.gcount()) == size;
}

bool FileExists(const std::string& name) {
  if (name.empty()) return false;
  std::error_code ec;
  return std::filesystem::is_regular_file(name, ec);
}

// Mid(text, start, len) with a 1-based start; the part beyond the text is empty.
std::string_view Mid(std::string_view text, std::size_t start, std::size_t len) {
  if (start < 1 || start > text.size()) return {};
  return text.substr(start - 1, len);
}
std::string_view MidRest(std::string_view text, std::size_t start) {
  if (start < 1 || start > text.size()) return {};
  return text.substr(start - 1);
}

// The free-format reader of the counts and pair lines (items end at a blank, a tab, a comma or
// a line end) and the whole-line reader of the subgroup lines.
class ParReader {
 public:
  explicit ParReader(std::string_view t) : t_(t) {}

  double Number() {
    while (p_ < t_.size() && IsSpace(t_[p_])) ++p_;
    if (p_ >= t_.size()) throw ParFault{"Input past end of file"};
    const std::size_t a = p_;
    while (p_ < t_.size() && !IsSpace(t_[p_]) && t_[p_] != ',') ++p_;
    const std::size_t len = p_ - a;
    while (p_ < t_.size() && (t_[p_] == ' ' || t_[p_] == '\t')) ++p_;
    if (p_ < t_.size() && t_[p_] == ',') ++p_;
    if (len == 0) return 0.0;  // an empty item between two commas
    char item[64];
    if (len >= sizeof item) throw ParFault{"Type mismatch"};
    for (std::size_t k = 0; k < len; ++k) {
      const char c = t_[a + k];
      item[k] = (c == 'D' || c == 'd') ? 'E' : c;
    }
    item[len] = '\0';
    char* end = nullptr;
    const double v = std::strtod(item, &end);
    if (end != item + len || !std::isfinite(v)) throw ParFault{"Type mismatch"};
    return v;
  }

  // Drops the rest of the current line with its line end.
  void EndLine() {
    while (p_ < t_.size() && t_[p_] != '\n') ++p_;
    if (p_ < t_.size()) ++p_;
  }

  // The next whole line without its line end.
  std::string_view Line() {
    if (p_ >= t_.size()) throw ParFault{"Input past end of file"};
    const std::size_t a = p_;
    while (p_ < t_.size() && t_[p_] != '\n') ++p_;
    std::size_t e = p_;
    if (p_ < t_.size()) ++p_;
    if (e > a && t_[e - 1] == '\r') --e;
    return t_.substr(a, e - a);
  }

 private:
  static bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
  std::string_view t_;
  std::size_t p_ = 0;
};

// A 16-bit whole number of the file (rounded half to even) inside lo..hi.
int Index(double v, int lo, int hi) {
  const int k = CInt(v);
  if (k < lo || k > hi) throw ParFault{"Subscript out of range"};
  return k;
}

// Columns of the subgroup lines: start and length of R, Q and the main group.
struct SubCols {
  std::size_t r, rLen, q, qLen, main;
};
constexpr SubCols kModCols{19, 8, 29, 7, 37};
constexpr SubCols kOUnifCols{19, 7, 28, 7, 36};

void ReadSubgroups(ParReader& rd, const SubCols& cols, int subMax, Vec<float>& R, Vec<float>& Q,
                   Vec<int16_t>& main) {
  const int m = CInt(rd.Number());
  rd.EndLine();
  for (int n = 1; n <= m; ++n) {
    const std::string_view line = rd.Line();
    const int k = Index(ValText(Mid(line, 3, 3)), 0, subMax);
    R[k] = CSng(ValText(Mid(line, cols.r, cols.rLen)));
    Q[k] = CSng(ValText(Mid(line, cols.q, cols.qLen)));
    main[k] = CInt(ValText(Mid(line, cols.main, 3)));
  }
}

std::string TableText(const std::string& file, const char* model, const char* revision,
                      bool& ok) {
  ok = false;
  std::string body;
  if (!ReadWholeFile(file, body)) return {};
  std::string out;
  out.append(model).append(kNL);
  out.append(revision).append(kNL);
  out.append("====================").append(kNL);
  out.append("AC = aromatic C-atom").append(kNL);
  out.append("cy = cyclic structure").append(kNL);
  try {
    ParReader rd(body);
    const int n = CInt(rd.Number());
    rd.EndLine();
    for (int k = 1; k <= n; ++k) rd.Line();
    const int m = CInt(rd.Number());
    rd.EndLine();
    for (int k = 1; k <= m; ++k) {
      const std::string_view line = rd.Line();
      out.append(Mid(line, 1, 5)).append("     ").append(MidRest(line, 7)).append(kNL);
    }
  } catch (const ParFault&) {
    return {};
  } catch (const NumericFault&) {
    return {};
  }
  ok = true;
  return out;
}

}  // namespace

void ChooseUnifacFiles(const std::filesystem::path& progDir, std::string& modUnifFile,
                       std::string& oUnifFile) {
  modUnifFile.clear();
  oUnifFile.clear();
  for (const char* name : kModUnifFiles) {
    const std::string p = (progDir / name).string();
    if (FileExists(p)) modUnifFile = p;
  }
  for (const char* name : kOUnifFiles) {
    const std::string p = (progDir / name).string();
    if (FileExists(p)) oUnifFile = p;
  }
}

double ValText(std::string_view text) {
  // Blanks, tabs and line feeds are dropped wherever they stand.
  char buf[64];
  std::size_t n = 0;
  for (char c : text) {
    if (c == ' ' || c == '\t' || c == '\n' || c == '\r') continue;
    if (n + 1 >= sizeof buf) break;
    buf[n++] = c;
  }
  buf[n] = '\0';
  // Longest prefix of the form [+-]digits[.digits][(E|D)[+-]digits].
  std::size_t p = 0;
  if (p < n && (buf[p] == '+' || buf[p] == '-')) ++p;
  std::size_t digits = 0;
  while (p < n && buf[p] >= '0' && buf[p] <= '9') ++p, ++digits;
  if (p < n && buf[p] == '.') {
    ++p;
    while (p < n && buf[p] >= '0' && buf[p] <= '9') ++p, ++digits;
  }
  if (digits == 0) return 0.0;
  std::size_t end = p;
  if (p < n && (buf[p] == 'E' || buf[p] == 'e' || buf[p] == 'D' || buf[p] == 'd')) {
    std::size_t q = p + 1;
    if (q < n && (buf[q] == '+' || buf[q] == '-')) ++q;
    std::size_t ed = 0;
    while (q < n && buf[q] >= '0' && buf[q] <= '9') ++q, ++ed;
    if (ed > 0) {
      buf[p] = 'E';
      end = q;
    }
  }
  buf[end] = '\0';
  return chk::Fin(std::strtod(buf, nullptr));
}

void ParseInkr(std::string_view text, InkrWerte& values) {
  for (int k = 0; k < kInkrSlots; ++k) {
    const std::size_t a = static_cast<std::size_t>(k) * 6;
    const std::string_view field = a < text.size() ? text.substr(a, 5) : std::string_view{};
    // The usual field of five digits is read directly; anything else as Val reads it.
    bool digits = field.size() == 5;
    int32_t v = 0;
    for (std::size_t c = 0; digits && c < 5; ++c) {
      const char ch = field[c];
      digits = ch >= '0' && ch <= '9';
      v = v * 10 + (ch - '0');
    }
    values[static_cast<std::size_t>(k)] = digits ? v : CLng(ValText(field));
  }
}

void ResetModTables(UnifacTables& t) {
  const std::size_t nm = kModMainMax + 1, ns = kModSubMax + 1;
  t.ModA.assign(nm, kModUnset);
  for (std::size_t i = 0; i < nm; ++i) t.ModA(i, i) = 0.0f;
  t.ModB.assign(nm, 0.0f);
  t.ModC.assign(nm, 0.0f);
  t.ModR.assign(ns, 0.0f);
  t.ModQ.assign(ns, 0.0f);
  t.ModMain.assign(ns, 0);
  ++t.ModStand;
}

void ResetOUnifTables(UnifacTables& t) {
  const std::size_t nm = kOUnifMainMax + 1, ns = kOUnifSubMax + 1;
  t.OUnifA.assign(nm, 0.0f);
  t.OUnifR.assign(ns, 0.0f);
  t.OUnifQ.assign(ns, 0.0f);
  t.OUnifMain.assign(ns, 0);
  ++t.OUnifStand;
}

void LoadModUnif(Session& s, int16_t& err) {
  err = 0;
  std::string body;
  if (!ReadWholeFile(s.ModUnifFile, body)) {
    err = -1;
    return;
  }
  UnifacTables& t = s.Unifac;
  ResetModTables(t);
  try {
    ParReader rd(body);
    const int n = CInt(rd.Number());
    for (int k = 1; k <= n; ++k) {
      const int i = Index(rd.Number(), 0, kModMainMax);
      const int j = Index(rd.Number(), 0, kModMainMax);
      const float aij = CSng(rd.Number()), bij = CSng(rd.Number()), cij = CSng(rd.Number());
      const float aji = CSng(rd.Number()), bji = CSng(rd.Number()), cji = CSng(rd.Number());
      t.ModA(i, j) = aij;
      t.ModB(i, j) = bij;
      t.ModC(i, j) = cij;
      t.ModA(j, i) = aji;
      t.ModB(j, i) = bji;
      t.ModC(j, i) = cji;
    }
    ReadSubgroups(rd, kModCols, kModSubMax, t.ModR, t.ModQ, t.ModMain);
  } catch (const ParFault&) {
    err = -1;
  } catch (const NumericFault&) {
    err = -1;
  }
}

void LoadOUnif(Session& s, int16_t& err) {
  err = 0;
  std::string body;
  if (!ReadWholeFile(s.OUnifFile, body)) {
    err = -1;
    return;
  }
  UnifacTables& t = s.Unifac;
  ResetOUnifTables(t);
  try {
    ParReader rd(body);
    const int n = CInt(rd.Number());
    for (int k = 1; k <= n; ++k) {
      const int i = Index(rd.Number(), 0, kOUnifMainMax);
      const int j = Index(rd.Number(), 0, kOUnifMainMax);
      const float aij = CSng(rd.Number()), aji = CSng(rd.Number());
      t.OUnifA(i, j) = aij;
      t.OUnifA(j, i) = aji;
    }
    ReadSubgroups(rd, kOUnifCols, kOUnifSubMax, t.OUnifR, t.OUnifQ, t.OUnifMain);
  } catch (const ParFault&) {
    err = -1;
  } catch (const NumericFault&) {
    err = -1;
  }
}

std::string OUnifacTableText(const std::string& file, bool& ok) {
  return TableText(file, "UNIFAC", "6th revision (2003)", ok);
}

std::string MUnifacTableText(const std::string& file, bool& ok) {
  return TableText(file, "Mod. UNIFAC (Dortmund)", "5th revision (2006)", ok);
}

std::string CheckUnifac(Session& s, bool& modOK, bool& unifOK, MsgSink* sink) {
  modOK = false;
  unifOK = false;
  s.UnifacNeu = true;
  std::string msg;
  const int n = s.NKomp;

  // The test point: equal mole fractions at half the smallest critical temperature.
  float tMin = 0.0f;
  Vec<double> x(static_cast<std::size_t>(n > 0 ? n : 0) + 1, 0.0);
  Vec<double> g(x.size(), 0.0);
  for (int i = 1; i <= n; ++i) {
    x[i] = 1.0 / n;
    if (i == 1 || s.TKrit[i] < tMin) tMin = s.TKrit[i];
  }
  auto allIncremented = [&](auto field) {
    int count = 0;
    for (int i = 1; i <= n; ++i) {
      const std::string& inkr = s.StoffData[i].*field;
      if (ValText(std::string_view(inkr).substr(0, std::min<std::size_t>(5, inkr.size()))) > 0)
        ++count;
    }
    return count == n;
  };
  auto product = [&] {
    double p = 1.0;
    for (int i = 1; i <= n; ++i) p *= g[i];
    return p;
  };

  // Modified UNIFAC.
  if (!FileExists(s.ModUnifFile)) {
    msg += "No Mod-UNIFAC parameter file found";
    msg += kNL;
  } else if (!allIncremented(&StoffRecord::ModUnifInkr)) {
    msg += "Not all components are Mod-UNIFAC incremented!";
    msg += kNL;
    msg += "A calculation using Mod-UNIFAC is not possible.";
  } else if (n > 0) {
    int16_t err = 0;
    ModUnifacGamma(s, static_cast<double>(tMin) / 2.0, x, g, err);
    modOK = (err == 0) && (product() > 0.0);
  }

  // UNIFAC.
  s.UnifacNeu = true;
  if (!FileExists(s.OUnifFile)) {
    msg += "No UNIFAC parameter file found";
    msg += kNL;
  } else if (allIncremented(&StoffRecord::OUnifInkr) && n > 0) {
    Vec<std::string> incr(static_cast<std::size_t>(n) + 1);
    for (int i = 1; i <= n; ++i) incr[i] = s.StoffData[i].OUnifInkr;
    for (int i = 1; i <= n; ++i) g[i] = 0.0;
    int16_t err = 0;
    const float tTest = tMin / 2.0f;
    OUnifacGamma(s, incr, tTest, x, g, err);
    unifOK = (err == 0) && (product() > 0.0);
  }

  if (!msg.empty()) Post(sink, "WARNING", msg, MsgIcon::Warning);
  return msg;
}

}  // namespace peq
