// The "Write" style of the project and data files and its free-format reader.
//
// Writing: whole numbers plain; reals as the shortest digit string that reads back to the very
// same value (std::to_chars gives it), laid out with a decimal point ".", plain while the decimal
// exponent lies in -5..precision-1, else as mantissa and "E+nn"/"E-nn". A real never carries a
// thousands separator or a locale's decimal comma.
//
// Reading: an item ends at a comma or a line end (CR LF, LF or CR); blanks around it are dropped;
// a quoted item ends at its closing quote. A numeric item accepts "12", "-0.5", ".5", "5.",
// "1E-37", "1e+03" and "1D+03"; an empty item counts as 0 and "#TRUE#"/"#FALSE#" as -1/0, as
// the free-format input of the old data files did.
#include "session/writefmt.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "session/numeric.h"

namespace peq {

namespace {

// Shortest round-trip digits of v (v finite and not zero): the digit string without sign, point
// or leading zeros, and the decimal exponent of its first digit.
template <class F>
void ShortestDigits(F v, std::string& digits, int& exp10) {
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific);
  std::string_view t(buf, static_cast<std::size_t>(r.ptr - buf));
  // Form: [-]d[.ddd]e[+-]xx
  std::size_t i = 0;
  if (t[i] == '-') ++i;
  digits.clear();
  for (; i < t.size() && t[i] != 'e'; ++i)
    if (t[i] != '.') digits.push_back(t[i]);
  int e = 0;
  std::from_chars(t.data() + i + 1 + (t[i + 1] == '+' ? 1 : 0), t.data() + t.size(), e);
  exp10 = e;
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
}

// Lays out a real from its digits: plain for -5 <= exp10 < plainDigits, else with an exponent.
std::string LayOut(bool negative, const std::string& d, int exp10, int plainDigits) {
  std::string s;
  if (negative) s.push_back('-');
  const int n = static_cast<int>(d.size());
  if (exp10 >= -5 && exp10 < plainDigits) {
    if (exp10 < 0) {
      s += "0.";
      s.append(static_cast<std::size_t>(-exp10 - 1), '0');
      s += d;
    } else if (n <= exp10 + 1) {
      s += d;
      s.append(static_cast<std::size_t>(exp10 + 1 - n), '0');
    } else {
      s.append(d, 0, static_cast<std::size_t>(exp10 + 1));
      s.push_back('.');
      s.append(d, static_cast<std::size_t>(exp10 + 1), std::string::npos);
    }
    return s;
  }
  s.push_back(d[0]);
  if (n > 1) {
    s.push_back('.');
    s.append(d, 1, std::string::npos);
  }
  s.push_back('E');
  s.push_back(exp10 < 0 ? '-' : '+');
  const int a = exp10 < 0 ? -exp10 : exp10;
  if (a < 10) s.push_back('0');
  s += std::to_string(a);
  return s;
}

template <class F>
std::string WriteReal(F v, int plainDigits) {
  if (!std::isfinite(v)) chk::Fault("overflow");  // a NaN or infinity never reaches a file
  if (v == 0) return "0";
  std::string d;
  int e = 0;
  ShortestDigits(v, d, e);
  return LayOut(std::signbit(v), d, e, plainDigits);
}

// Outcome of the number grammar.
enum class NumParse { Ok, Bad, Overflow };

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Checks the free number format and brings the text into the form std::from_chars reads
// ("-ddd.ddde-xx"). under: the value lies far below 1 (a range error means underflow).
bool Normalise(std::string_view text, std::string& norm, bool& under) {
  std::size_t a = 0, b = text.size();
  while (a < b && IsBlank(text[a])) ++a;
  while (b > a && IsBlank(text[b - 1])) --b;
  std::string_view t = text.substr(a, b - a);
  norm.clear();
  std::size_t i = 0;
  if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
    if (t[i] == '-') norm.push_back('-');
    ++i;
  }
  int intDigits = 0, fracDigits = 0;
  int leadPos = 0;         // decimal position of the first non-zero digit (1 = units)
  bool seenNonZero = false;
  while (i < t.size() && IsDigit(t[i])) {
    if (!seenNonZero && t[i] != '0') seenNonZero = true;
    if (seenNonZero) ++leadPos;
    norm.push_back(t[i]);
    ++i;
    ++intDigits;
  }
  if (i < t.size() && t[i] == '.') {
    norm.push_back('.');
    ++i;
    int pos = 0;
    while (i < t.size() && IsDigit(t[i])) {
      --pos;
      if (!seenNonZero && t[i] != '0') {
        seenNonZero = true;
        leadPos = pos + 1;
      }
      norm.push_back(t[i]);
      ++i;
      ++fracDigits;
    }
  }
  if (intDigits + fracDigits == 0) return false;
  long e = 0;
  if (i < t.size() && (t[i] == 'E' || t[i] == 'e' || t[i] == 'D' || t[i] == 'd')) {
    norm.push_back('e');
    ++i;
    bool neg = false;
    if (i < t.size() && (t[i] == '+' || t[i] == '-')) {
      neg = t[i] == '-';
      norm.push_back(t[i]);
      ++i;
    }
    int expDigits = 0;
    while (i < t.size() && IsDigit(t[i])) {
      if (e < 100000) e = e * 10 + (t[i] - '0');
      norm.push_back(t[i]);
      ++i;
      ++expDigits;
    }
    if (expDigits == 0) return false;
    if (neg) e = -e;
  }
  if (i != t.size()) return false;
  under = !seenNonZero || (leadPos + e) <= 0;  // a zero mantissa is zero whatever the exponent
  return true;
}

NumParse ParseDouble(std::string_view text, double& out) {
  std::string n;
  bool under = false;
  if (!Normalise(text, n, under)) return NumParse::Bad;
  double v = 0;
  auto r = std::from_chars(n.data(), n.data() + n.size(), v);
  if (r.ec == std::errc::result_out_of_range) {
    if (!under) return NumParse::Overflow;
    v = n[0] == '-' ? -0.0 : 0.0;
  } else if (r.ec != std::errc() || r.ptr != n.data() + n.size()) {
    return NumParse::Bad;
  }
  if (!std::isfinite(v)) return NumParse::Overflow;
  out = v;
  return NumParse::Ok;
}

// Converts an item to f32 directly from its digits, so that a value written by WriteSgl comes
// back bit for bit.
NumParse ParseSingle(std::string_view text, float& out) {
  std::string n;
  bool under = false;
  if (!Normalise(text, n, under)) return NumParse::Bad;
  float v = 0;
  auto r = std::from_chars(n.data(), n.data() + n.size(), v);
  if (r.ec == std::errc::result_out_of_range) {
    if (!under) return NumParse::Overflow;
    // Below the normal range of f32: the nearest denormal or zero through the f64 value.
    double d = 0;
    auto rd = std::from_chars(n.data(), n.data() + n.size(), d);
    v = rd.ec == std::errc() ? static_cast<float>(d) : (n[0] == '-' ? -0.0f : 0.0f);
  } else if (r.ec != std::errc() || r.ptr != n.data() + n.size()) {
    return NumParse::Bad;
  }
  if (!std::isfinite(v)) return NumParse::Overflow;
  out = v;
  return NumParse::Ok;
}

[[noreturn]] void Throw(const char* text) { throw ReadError{text}; }

bool IsLogicalWord(const std::string& item, double& v) {
  if (item == "#TRUE#") {
    v = -1;
    return true;
  }
  if (item == "#FALSE#") {
    v = 0;
    return true;
  }
  return false;
}

}  // namespace

std::string WriteInt(long v) { return std::to_string(v); }

// f32: plain up to 7 integer digits, as a single-precision "Write" does.
std::string WriteSgl(float v) { return WriteReal(v, 7); }

// f64: plain up to 15 integer digits.
std::string WriteDbl(double v) { return WriteReal(v, 15); }

bool ParseNumber(std::string_view text, double& out) {
  double v = 0;
  if (ParseDouble(text, v) != NumParse::Ok) return false;
  out = v;
  return true;
}

std::string ItemReader::Line() {
  if (p_ >= t_.size()) Throw(kErrPastEnd);
  const std::size_t start = p_;
  while (p_ < t_.size() && t_[p_] != '\r' && t_[p_] != '\n') ++p_;
  std::string line = t_.substr(start, p_ - start);
  if (p_ < t_.size()) {
    if (t_[p_] == '\r' && p_ + 1 < t_.size() && t_[p_ + 1] == '\n') ++p_;
    ++p_;
  }
  return line;
}

std::string ItemReader::Item() {
  if (p_ >= t_.size()) Throw(kErrPastEnd);
  auto atLineEnd = [&] { return p_ >= t_.size() || t_[p_] == '\r' || t_[p_] == '\n'; };
  auto eatLineEnd = [&] {
    if (p_ < t_.size()) {
      if (t_[p_] == '\r' && p_ + 1 < t_.size() && t_[p_ + 1] == '\n') ++p_;
      ++p_;
    }
  };
  while (p_ < t_.size() && IsBlank(t_[p_])) ++p_;
  std::string item;
  if (p_ < t_.size() && t_[p_] == '"') {
    ++p_;
    const std::size_t start = p_;
    while (p_ < t_.size() && t_[p_] != '"' && t_[p_] != '\r' && t_[p_] != '\n') ++p_;
    item = t_.substr(start, p_ - start);
    if (p_ < t_.size() && t_[p_] == '"') ++p_;
    // Anything between the closing quote and the delimiter is dropped.
    while (!atLineEnd() && t_[p_] != ',') ++p_;
  } else {
    const std::size_t start = p_;
    while (!atLineEnd() && t_[p_] != ',') ++p_;
    std::size_t end = p_;
    while (end > start && IsBlank(t_[end - 1])) --end;
    item = t_.substr(start, end - start);
  }
  if (p_ < t_.size() && t_[p_] == ',')
    ++p_;
  else
    eatLineEnd();
  return item;
}

double ItemReader::Number() {
  const std::string item = Item();
  double v = 0;
  if (item.empty() || IsLogicalWord(item, v)) return v;
  switch (ParseDouble(item, v)) {
    case NumParse::Ok:
      return v;
    case NumParse::Overflow:
      Throw(kErrOverflow);
    case NumParse::Bad:
      break;
  }
  Throw(kErrTypeMismatch);
}

int16_t ItemReader::Int16() {
  const double v = Number();
  const double r = RoundEven(v);
  if (r < -32768.0 || r > 32767.0) Throw(kErrOverflow);
  return static_cast<int16_t>(r);
}

float ItemReader::Single() {
  const std::string item = Item();
  double w = 0;
  if (item.empty() || IsLogicalWord(item, w)) return static_cast<float>(w);
  float v = 0;
  switch (ParseSingle(item, v)) {
    case NumParse::Ok:
      return v;
    case NumParse::Overflow:
      Throw(kErrOverflow);
    case NumParse::Bad:
      break;
  }
  Throw(kErrTypeMismatch);
}

}  // namespace peq
