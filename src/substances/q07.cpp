// Reader and writer of the substance database file (*.Q07).
//
// Record layout (684 bytes, little-endian):
//   0  12  formula            104  41  Mod. UNIFAC increments
//  12  40  first name         145  41  UNIFAC increments
//  52  40  second name        186   2  i16: count (record 1) or system number
//  92  12  CAS-RN             188 496  124 x f32 value table V(0)..V(123)
// Texts are code page 1252, blank padded.
#include "substances/q07.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "session/codepage.h"
#include "session/filewrite.h"

namespace peq {

namespace {

struct TextField {
  int offset;
  int length;
};
constexpr TextField kFormel{0, 12};
constexpr TextField kName1{12, 40};
constexpr TextField kName2{52, 40};
constexpr TextField kCas{92, 12};
constexpr TextField kModUnif{104, 41};
constexpr TextField kOUnif{145, 41};
constexpr int kNrOffset = 186;
constexpr int kValuesOffset = 188;

static_assert(kValuesOffset + 4 * kQ07Values == kQ07RecordLength);

// A text field without its padding. Trailing NUL bytes count as padding too, since some
// writers of fixed records fill with them.
std::string DecodeText(const unsigned char* rec, TextField f) {
  std::string_view raw(reinterpret_cast<const char*>(rec + f.offset),
                       static_cast<std::size_t>(f.length));
  std::size_t n = raw.size();
  while (n > 0 && (raw[n - 1] == ' ' || raw[n - 1] == '\0')) --n;
  return Cp1252ToUtf8(raw.substr(0, n));
}

void EncodeText(const std::string& utf8, unsigned char* rec, TextField f) {
  // Cut or pad to the width in characters first; each character is one byte in code page 1252.
  const std::string cp = Utf8ToCp1252(FixedField(utf8, static_cast<std::size_t>(f.length)));
  std::memset(rec + f.offset, ' ', static_cast<std::size_t>(f.length));
  std::memcpy(rec + f.offset, cp.data(), std::min<std::size_t>(cp.size(), f.length));
}

uint16_t GetU16(const unsigned char* p) {
  return static_cast<uint16_t>(p[0] | (p[1] << 8));
}
void PutU16(unsigned char* p, uint16_t v) {
  p[0] = static_cast<unsigned char>(v & 0xFF);
  p[1] = static_cast<unsigned char>(v >> 8);
}
uint32_t GetU32(const unsigned char* p) {
  return static_cast<uint32_t>(p[0]) | (static_cast<uint32_t>(p[1]) << 8) |
         (static_cast<uint32_t>(p[2]) << 16) | (static_cast<uint32_t>(p[3]) << 24);
}
void PutU32(unsigned char* p, uint32_t v) {
  for (int k = 0; k < 4; ++k) p[k] = static_cast<unsigned char>((v >> (8 * k)) & 0xFF);
}

}  // namespace

Q07Record DecodeQ07Record(const unsigned char* bytes) {
  Q07Record r;
  r.Formel = DecodeText(bytes, kFormel);
  r.Name1 = DecodeText(bytes, kName1);
  r.Name2 = DecodeText(bytes, kName2);
  r.CasNr = DecodeText(bytes, kCas);
  r.ModUnifInkr = DecodeText(bytes, kModUnif);
  r.OUnifInkr = DecodeText(bytes, kOUnif);
  r.Nr = static_cast<int16_t>(GetU16(bytes + kNrOffset));
  for (int k = 0; k < kQ07Values; ++k) {
    const float v = std::bit_cast<float>(GetU32(bytes + kValuesOffset + 4 * k));
    // No writer of this format stores a NaN or an infinity; such a value reads as empty, so
    // that no non-number can enter a calculation.
    r.V[static_cast<std::size_t>(k)] = std::isfinite(v) ? v : 0.0f;
  }
  return r;
}

void EncodeQ07Record(const Q07Record& r, unsigned char* bytes) {
  std::memset(bytes, 0, kQ07RecordLength);
  EncodeText(r.Formel, bytes, kFormel);
  EncodeText(r.Name1, bytes, kName1);
  EncodeText(r.Name2, bytes, kName2);
  EncodeText(r.CasNr, bytes, kCas);
  EncodeText(r.ModUnifInkr, bytes, kModUnif);
  EncodeText(r.OUnifInkr, bytes, kOUnif);
  PutU16(bytes + kNrOffset, static_cast<uint16_t>(r.Nr));
  for (int k = 0; k < kQ07Values; ++k)
    PutU32(bytes + kValuesOffset + 4 * k,
           std::bit_cast<uint32_t>(r.V[static_cast<std::size_t>(k)]));
}

bool ReadQ07Record(const std::string& path, int recNo, Q07Record& out, std::string& err) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(path, ec)) {
    err = "File not found";
    return false;
  }
  std::ifstream f(path, std::ios::binary);
  if (!f) {
    err = "File not found";
    return false;
  }
  if (recNo < 1) {
    err = "Bad record number";
    return false;
  }
  f.seekg(static_cast<std::streamoff>(recNo - 1) * kQ07RecordLength);
  unsigned char buf[kQ07RecordLength];
  if (!f || !f.read(reinterpret_cast<char*>(buf), kQ07RecordLength)) {
    err = "Bad record number";
    return false;
  }
  out = DecodeQ07Record(buf);
  return true;
}

bool WriteQ07(const std::string& path, const std::vector<Q07Record>& substances, std::string& err) {
  if (substances.size() > 32767) {
    err = "too many substances for one database";
    return false;
  }
  std::string bytes;
  bytes.reserve((substances.size() + 1) * kQ07RecordLength);
  unsigned char buf[kQ07RecordLength];
  Q07Record head;  // blank texts, zero values; only the count is read
  head.Nr = static_cast<int16_t>(substances.size());
  EncodeQ07Record(head, buf);
  bytes.append(reinterpret_cast<const char*>(buf), kQ07RecordLength);
  for (const Q07Record& r : substances) {
    EncodeQ07Record(r, buf);
    bytes.append(reinterpret_cast<const char*>(buf), kQ07RecordLength);
  }
  return WriteReplacing(path, bytes, err);
}

}  // namespace peq
