// 8-bit code pages of the data files, converted to UTF-8 at the file boundary.
#pragma once

#include <string>
#include <string_view>

namespace peq {

// Windows code page 1252 (database texts) <-> UTF-8.
std::string Cp1252ToUtf8(std::string_view s);
// Characters that code page 1252 cannot hold become '?'.
std::string Utf8ToCp1252(std::string_view s);

// DOS code page 850 (synonym file) <-> UTF-8.
std::string Cp850ToUtf8(std::string_view s);
std::string Utf8ToCp850(std::string_view s);

// Number of characters (code points) of a UTF-8 text.
std::size_t Utf8Length(std::string_view s);
// The text cut or blank padded to n characters, as a fixed-length text field holds it.
std::string FixedField(std::string_view s, std::size_t n);
// Leading and trailing blanks removed.
std::string Trim(std::string_view s);
std::string RTrim(std::string_view s);
std::string ToUpper(std::string_view s);

}  // namespace peq
