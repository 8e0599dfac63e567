#include "companions/exchangetext.h"

#include <cmath>

#include "diagrams/document.h"
#include "session/writefmt.h"

namespace peq {

std::string Muster(double v) { return FormatE7(v); }

void AppendLine(std::string& out, std::string_view text) {
  out.append(text);
  out += "\r\n";
}

ExchangeReader::ExchangeReader(std::string_view text) {
  std::size_t p = 0;
  while (p < text.size()) {
    std::size_t e = text.find('\n', p);
    if (e == std::string_view::npos) e = text.size();
    std::string line(text.substr(p, e - p));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines_.push_back(std::move(line));
    p = e + 1;
  }
}

namespace {
std::string Trimmed(std::string_view t) {
  std::size_t a = 0, b = t.size();
  while (a < b && (t[a] == ' ' || t[a] == '\t')) ++a;
  while (b > a && (t[b - 1] == ' ' || t[b - 1] == '\t')) --b;
  return std::string(t.substr(a, b - a));
}
}  // namespace

std::string ExchangeReader::Line() {
  if (AtEnd()) throw ExchangeError{"unexpected end of file"};
  return Trimmed(lines_[next_++]);
}

double ExchangeNumber(std::string_view item) {
  double v = 0;
  const std::string t = Trimmed(item);
  if (t.empty() || !ParseNumber(t, v) || !std::isfinite(v)) throw ExchangeError{"not a number: \"" + t + "\""};
  return v;
}

double ExchangeReader::Real() {
  const std::size_t n = next_ + 1;
  try {
    return ExchangeNumber(Line());
  } catch (ExchangeError& e) {
    e.text += " in line " + std::to_string(n);
    throw;
  }
}

long ExchangeReader::Integer(long lo, long hi) {
  const std::size_t n = next_ + 1;
  const double v = Real();
  if (v != std::floor(v) || v < static_cast<double>(lo) || v > static_cast<double>(hi))
    throw ExchangeError{"whole number out of range in line " + std::to_string(n)};
  return static_cast<long>(v);
}

bool ExchangeReader::Flag() { return Integer(-1, 0) == -1; }

std::vector<double> ExchangeReader::Reals(std::size_t n) {
  const std::size_t no = next_ + 1;
  const std::string line = Line();
  std::vector<double> out;
  out.reserve(n);
  std::size_t p = 0;
  for (;;) {
    std::size_t c = line.find(',', p);
    const std::string_view item =
        std::string_view(line).substr(p, c == std::string::npos ? std::string::npos : c - p);
    try {
      out.push_back(ExchangeNumber(item));
    } catch (ExchangeError& e) {
      e.text += " in line " + std::to_string(no);
      throw;
    }
    if (c == std::string::npos) break;
    p = c + 1;
  }
  if (out.size() != n)
    throw ExchangeError{"expected " + std::to_string(n) + " values in line " + std::to_string(no)};
  return out;
}

}  // namespace peq
