// A small JSON writer for the one object peqcalc prints: keys in the order they are added,
// reals with 17 significant digits, whole numbers plain. A value that is not finite is written
// as null, so that no NaN ever reaches the output.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace peqcalc {

class Json {
 public:
  void Num(std::string_view key, double v);
  void Int(std::string_view key, long v);
  void Str(std::string_view key, std::string_view v);
  void NumArray(std::string_view key, const std::vector<double>& v);
  void IntArray(std::string_view key, const std::vector<long>& v);
  void StrArray(std::string_view key, const std::vector<std::string>& v);
  void NumMatrix(std::string_view key, const std::vector<std::vector<double>>& rows);
  // A nested object.
  void Object(std::string_view key, const Json& inner);

  // The object as one line of text: {"key": value, ...}
  std::string Text() const;

  // Single values as JSON text.
  static std::string Number(double v);
  static std::string String(std::string_view v);

 private:
  void Key(std::string_view key);
  std::string body_;
};

}  // namespace peqcalc
