// Lines and numbers of the companion exchange files: reals in the pattern ".0000000E+00" with a
// decimal point, integers and flags plain, lines ended by CR LF; and a strict line reader for
// them that accepts CR LF or LF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace peq {

// A real in the pattern ".0000000E+00" (seven digits behind a leading point).
std::string Muster(double v);

// Appends text and CR LF.
void AppendLine(std::string& out, std::string_view text);

struct ExchangeError {
  std::string text;
};

// Reads an exchange file line by line; every miss (end of file, a value that is no number, an
// item count that does not fit) throws ExchangeError.
class ExchangeReader {
 public:
  explicit ExchangeReader(std::string_view text);
  bool AtEnd() const { return next_ >= lines_.size(); }
  std::string Line();                      // the next line, CR and surrounding blanks removed
  double Real();                           // a line holding one finite number
  long Integer(long lo, long hi);          // a line holding one whole number within [lo, hi]
  bool Flag();                             // a line holding -1 or 0
  std::vector<double> Reals(std::size_t n);  // a line of n comma-separated finite numbers
  std::size_t LineNo() const { return next_; }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
};

// A finite number from text (blanks around allowed), else ExchangeError.
double ExchangeNumber(std::string_view item);

}  // namespace peq
