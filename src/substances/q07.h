// The substance database file (*.Q07): fixed records of 684 bytes, little-endian. Record 1 is
// the header whose 16-bit field holds the number of substances; substance n is record n+1.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace peq {

inline constexpr int kQ07RecordLength = 684;
inline constexpr int kQ07Values = 124;

// One record, texts in UTF-8 (code page 1252 in the file), not padded.
struct Q07Record {
  std::string Formel;       // 12
  std::string Name1;        // 40, first name (English); synonyms may follow a ";"
  std::string Name2;        // 40, second name (German)
  std::string CasNr;        // 12
  std::string ModUnifInkr;  // 41
  std::string OUnifInkr;    // 41
  int16_t Nr = 0;           // system number (the count in record 1)
  std::array<float, kQ07Values> V{};
};

// Decodes one 684-byte record.
Q07Record DecodeQ07Record(const unsigned char* bytes);
// Encodes one record into 684 bytes (texts blank padded, cut to their width).
void EncodeQ07Record(const Q07Record& r, unsigned char* bytes);

// Reads record number recNo (1-based) of the file. False with a reason in err when the file is
// missing, too short or unreadable.
bool ReadQ07Record(const std::string& path, int recNo, Q07Record& out, std::string& err);

// Writes a whole database: the header record with the count, then the substances in order.
// Written to a temporary name and renamed over the target. False with a reason on failure.
bool WriteQ07(const std::string& path, const std::vector<Q07Record>& substances, std::string& err);

}  // namespace peq
