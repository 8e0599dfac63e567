// The "Write" style of project and data files and the free-format item reader that reads it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace peq {

// Decimal point always "."; whole numbers plain; reals in the shortest form that reads back to
// the same value (Single up to 9, Double up to 17 significant digits); exponents as "E+nn".
std::string WriteInt(long v);
std::string WriteSgl(float v);
std::string WriteDbl(double v);
// A logical as -1 or 0.
inline std::string WriteBool(bool v) { return v ? "-1" : "0"; }

// Error texts of the reader, as the system words them.
inline constexpr const char* kErrPastEnd = "Input past end of file";
inline constexpr const char* kErrTypeMismatch = "Type mismatch";
// A whole number beyond 16 bits, or a real beyond the range of its width.
inline constexpr const char* kErrOverflow = "Overflow";

struct ReadError {
  std::string text;
};

// Reads a text line by line and item by item. An item ends at a comma or a line end; a
// whole-line read takes the rest of the current line. Throws ReadError.
class ItemReader {
 public:
  explicit ItemReader(std::string text) : t_(std::move(text)) {}
  std::string Line();      // the rest of the current line
  std::string Item();      // next item as text (quotes removed)
  double Number();         // next item as a finite number
  int16_t Int16();         // next item rounded half-even into 16 bits
  float Single();          // next item as f32
  bool Logical() { return Int16() == -1; }
  bool AtEnd() const { return p_ >= t_.size(); }

 private:
  std::string t_;
  std::size_t p_ = 0;
};

// Parses a whole number text in the free format (leading/trailing blanks allowed); false when it
// is not a finite number.
bool ParseNumber(std::string_view text, double& out);

}  // namespace peq
