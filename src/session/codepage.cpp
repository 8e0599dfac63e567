// Code pages of the data files. The database holds Windows-1252 text, the synonym file DOS
// code page 850; in memory every text is UTF-8. The tables below are the code pages as the
// Unicode Consortium publishes them (MAPPINGS/VENDORS/MICSFT). The five bytes that code page
// 1252 leaves undefined (81, 8D, 8F, 90, 9D hex) map to the C1 control characters of the same
// number, as Windows converts them, so that every byte survives a round trip.
#include "session/codepage.h"

#include <array>
#include <cstdint>

namespace peq {

namespace {

// Code page 1252, bytes 80..9F hex.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};

// Code page 850, bytes 80..FF hex.
constexpr std::array<char32_t, 128> kCp850High = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7,  // 80
    0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE, 0x00EC, 0x00C4, 0x00C5,  // 88
    0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9,  // 90
    0x00FF, 0x00D6, 0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192,  // 98
    0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA, 0x00BA,  // A0
    0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB,  // A8
    0x2591, 0x2592, 0x2593, 0x2502, 0x2524, 0x00C1, 0x00C2, 0x00C0,  // B0
    0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510,  // B8
    0x2514, 0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3,  // C0
    0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550, 0x256C, 0x00A4,  // C8
    0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE,  // D0
    0x00CF, 0x2518, 0x250C, 0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580,  // D8
    0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,  // E0
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4,  // E8
    0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6, 0x00A7, 0x00F7, 0x00B8,  // F0
    0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,  // F8
};

void AppendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

constexpr char32_t kBad = 0xFFFFFFFF;

// Next code point of a UTF-8 text from position p (advanced). A malformed sequence yields kBad
// and skips one byte.
char32_t NextCodePoint(std::string_view s, std::size_t& p) {
  const auto b0 = static_cast<unsigned char>(s[p]);
  if (b0 < 0x80) {
    ++p;
    return b0;
  }
  int len = 0;
  char32_t c = 0;
  if ((b0 & 0xE0) == 0xC0) {
    len = 2;
    c = b0 & 0x1F;
  } else if ((b0 & 0xF0) == 0xE0) {
    len = 3;
    c = b0 & 0x0F;
  } else if ((b0 & 0xF8) == 0xF0) {
    len = 4;
    c = b0 & 0x07;
  } else {
    ++p;
    return kBad;
  }
  if (p + static_cast<std::size_t>(len) > s.size()) {
    ++p;
    return kBad;
  }
  for (int k = 1; k < len; ++k) {
    const auto b = static_cast<unsigned char>(s[p + static_cast<std::size_t>(k)]);
    if ((b & 0xC0) != 0x80) {
      ++p;
      return kBad;
    }
    c = (c << 6) | (b & 0x3F);
  }
  p += static_cast<std::size_t>(len);
  return c;
}

std::string EightBitToUtf8(std::string_view s, bool cp850) {
  std::string out;
  out.reserve(s.size() + s.size() / 4);
  for (char ch : s) {
    const auto b = static_cast<unsigned char>(ch);
    char32_t c = b;
    if (cp850) {
      if (b >= 0x80) c = kCp850High[b - 0x80];
    } else if (b >= 0x80 && b < 0xA0) {
      c = kCp1252High[b - 0x80];
    }
    AppendUtf8(out, c);
  }
  return out;
}

std::string Utf8ToEightBit(std::string_view s, bool cp850) {
  std::string out;
  out.reserve(s.size());
  std::size_t p = 0;
  while (p < s.size()) {
    const char32_t c = NextCodePoint(s, p);
    char byte = '?';
    if (c < 0x80) {
      byte = static_cast<char>(c);
    } else if (c != kBad) {
      if (!cp850 && c >= 0xA0 && c <= 0xFF) {
        byte = static_cast<char>(c);
      } else if (cp850) {
        for (std::size_t k = 0; k < kCp850High.size(); ++k)
          if (kCp850High[k] == c) {
            byte = static_cast<char>(0x80 + k);
            break;
          }
      } else {
        for (std::size_t k = 0; k < kCp1252High.size(); ++k)
          if (kCp1252High[k] == c) {
            byte = static_cast<char>(0x80 + k);
            break;
          }
      }
    }
    out += byte;
  }
  return out;
}

bool IsContinuation(char ch) { return (static_cast<unsigned char>(ch) & 0xC0) == 0x80; }

}  // namespace

std::string Cp1252ToUtf8(std::string_view s) { return EightBitToUtf8(s, false); }
std::string Utf8ToCp1252(std::string_view s) { return Utf8ToEightBit(s, false); }
std::string Cp850ToUtf8(std::string_view s) { return EightBitToUtf8(s, true); }
std::string Utf8ToCp850(std::string_view s) { return Utf8ToEightBit(s, true); }

std::size_t Utf8Length(std::string_view s) {
  std::size_t n = 0;
  for (char ch : s)
    if (!IsContinuation(ch)) ++n;
  return n;
}

std::string FixedField(std::string_view s, std::size_t n) {
  std::string out;
  out.reserve(n + 8);
  std::size_t chars = 0;
  std::size_t p = 0;
  while (p < s.size()) {
    // One character: its lead byte and the continuation bytes that follow it.
    std::size_t q = p + 1;
    while (q < s.size() && IsContinuation(s[q])) ++q;
    if (chars == n) break;
    out.append(s.substr(p, q - p));
    ++chars;
    p = q;
  }
  out.append(n - chars, ' ');
  return out;
}

std::string Trim(std::string_view s) {
  std::size_t a = 0, b = s.size();
  while (a < b && s[a] == ' ') ++a;
  while (b > a && s[b - 1] == ' ') --b;
  return std::string(s.substr(a, b - a));
}

std::string RTrim(std::string_view s) {
  std::size_t b = s.size();
  while (b > 0 && s[b - 1] == ' ') --b;
  return std::string(s.substr(0, b));
}

// Upper case of ASCII and of the Latin letters that code page 1252 holds (à..þ, š, œ, ž, ÿ).
std::string ToUpper(std::string_view s) {
  std::string out;
  out.reserve(s.size());
  std::size_t p = 0;
  while (p < s.size()) {
    const std::size_t start = p;
    char32_t c = NextCodePoint(s, p);
    if (c == kBad) {
      out += s[start];
      continue;
    }
    if (c >= 'a' && c <= 'z') {
      c -= 0x20;
    } else if (c >= 0xE0 && c <= 0xFE && c != 0xF7) {
      c -= 0x20;
    } else if (c == 0xFF) {
      c = 0x178;
    } else if (c == 0x161 || c == 0x153 || c == 0x17E) {
      c -= 1;
    }
    AppendUtf8(out, c);
  }
  return out;
}

}  // namespace peq
