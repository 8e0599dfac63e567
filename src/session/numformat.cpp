#include "session/numformat.h"

#include <cfloat>
#include <cmath>
#include <cstdio>

namespace peq {

std::string FormatZahl(double v, std::string_view pattern) {
  if (!std::isfinite(v)) return "";
  const std::size_t dot = pattern.find('.');
  const std::string_view intPat = pattern.substr(0, dot);
  const std::string_view decPat = dot == std::string_view::npos ? std::string_view{} : pattern.substr(dot + 1);
  int intMin = 0, decMax = 0, decMin = 0;
  for (char c : intPat)
    if (c == '0') ++intMin;
  for (char c : decPat) {
    if (c == '0' || c == '#') ++decMax;
    if (c == '0') decMin = decMax;  // the '0's stand in front of the '#'s
  }
  // Half away from zero at the last decimal place, on the magnitude.
  double a = std::fabs(v);
  const double scale = std::pow(10.0, decMax);
  double r = std::floor(a * scale + 0.5);
  // Guard the rare binary case where a*scale lands just below .5 of a decimal tie.
  // The tolerance is a few units of the last place: a wider one would round up numbers with many
  // places that are no tie at all (101.325 in "0.00000####" read 101.325000001).
  if (std::fabs(a * scale + 0.5 - (r + 1.0)) < 8.0 * DBL_EPSILON * std::fmax(1.0, a * scale)) r += 1.0;
  char buf[400];
  std::snprintf(buf, sizeof buf, "%.0f", r);
  std::string digits = buf;
  if (static_cast<int>(digits.size()) <= decMax) digits.insert(0, static_cast<std::size_t>(decMax) + 1 - digits.size(), '0');
  std::string ip = digits.substr(0, digits.size() - static_cast<std::size_t>(decMax));
  std::string fp = digits.substr(digits.size() - static_cast<std::size_t>(decMax));
  while (static_cast<int>(fp.size()) > decMin && fp.back() == '0') fp.pop_back();
  if (ip == "0") ip.clear();
  if (static_cast<int>(ip.size()) < intMin) ip.insert(0, static_cast<std::size_t>(intMin) - ip.size(), '0');
  std::string out = ip;
  if (dot != std::string_view::npos) out += "." + fp;
  bool nonZero = r != 0.0;
  if (v < 0 && nonZero) out.insert(0, "-");
  return out;
}

std::string ZahlG(double v, int digits) {
  if (v == 0) return "0";
  char buf[48];
  std::snprintf(buf, sizeof buf, "%.*G", digits, v);
  return buf;
}

}  // namespace peq
