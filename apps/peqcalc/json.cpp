#include "json.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace peqcalc {

std::string Json::Number(double v) {
  if (!std::isfinite(v)) return "null";
  if (v == 0) return "0";
  char buf[40];
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::general, 17);
  return std::string(buf, r.ptr);
}

std::string Json::String(std::string_view v) {
  std::string o = "\"";
  for (char c : v) {
    switch (c) {
      case '"':
        o += "\\\"";
        break;
      case '\\':
        o += "\\\\";
        break;
      case '\n':
        o += "\\n";
        break;
      case '\r':
        o += "\\r";
        break;
      case '\t':
        o += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char buf[8];
          std::snprintf(buf, sizeof buf, "\\u%04x", static_cast<unsigned>(c));
          o += buf;
        } else {
          o += c;
        }
    }
  }
  o += '"';
  return o;
}

void Json::Key(std::string_view key) {
  if (!body_.empty()) body_ += ", ";
  body_ += String(key);
  body_ += ": ";
}

void Json::Num(std::string_view key, double v) {
  Key(key);
  body_ += Number(v);
}

void Json::Int(std::string_view key, long v) {
  Key(key);
  body_ += std::to_string(v);
}

void Json::Str(std::string_view key, std::string_view v) {
  Key(key);
  body_ += String(v);
}

void Json::NumArray(std::string_view key, const std::vector<double>& v) {
  Key(key);
  body_ += '[';
  for (std::size_t i = 0; i < v.size(); ++i) {
    if (i) body_ += ", ";
    body_ += Number(v[i]);
  }
  body_ += ']';
}

void Json::IntArray(std::string_view key, const std::vector<long>& v) {
  Key(key);
  body_ += '[';
  for (std::size_t i = 0; i < v.size(); ++i) {
    if (i) body_ += ", ";
    body_ += std::to_string(v[i]);
  }
  body_ += ']';
}

void Json::StrArray(std::string_view key, const std::vector<std::string>& v) {
  Key(key);
  body_ += '[';
  for (std::size_t i = 0; i < v.size(); ++i) {
    if (i) body_ += ", ";
    body_ += String(v[i]);
  }
  body_ += ']';
}

void Json::NumMatrix(std::string_view key, const std::vector<std::vector<double>>& rows) {
  Key(key);
  body_ += '[';
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (i) body_ += ", ";
    body_ += '[';
    for (std::size_t j = 0; j < rows[i].size(); ++j) {
      if (j) body_ += ", ";
      body_ += Number(rows[i][j]);
    }
    body_ += ']';
  }
  body_ += ']';
}

void Json::Object(std::string_view key, const Json& inner) {
  Key(key);
  body_ += inner.Text();
}

std::string Json::Text() const { return "{" + body_ + "}"; }

}  // namespace peqcalc
