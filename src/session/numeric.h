// Checked arithmetic. Every engine routine has a failure value; an arithmetic fault inside it
// (log of a non-positive number, division by zero, overflow, a NaN) throws NumericFault, and the
// one catch at the routine's boundary turns it into that failure value.
//
// The conversions follow the old BASIC rules the stored numbers depend on:
//   Int(x)   floor
//   CInt(x)  round half to even into 16 bits, a fault outside -32768..32767
//   CLng(x)  round half to even into 32 bits, a fault outside the 32-bit range
//   CSng(x)  to a 32-bit real, a fault above 3.402823E38 in magnitude
#pragma once

#include <cmath>
#include <cstdint>
#include <stdexcept>

namespace peq {

struct NumericFault : std::runtime_error {
  explicit NumericFault(const char* what) : std::runtime_error(what) {}
};

namespace chk {

[[noreturn]] inline void Fault(const char* what) { throw NumericFault(what); }

// A result that is NaN or infinite is a fault.
inline double Fin(double v) {
  if (!std::isfinite(v)) Fault("overflow");
  return v;
}
inline double Ln(double x) {
  if (!(x > 0.0) || !std::isfinite(x)) Fault("invalid procedure call (log)");
  return std::log(x);
}
// Logarithm to base 10, taken as ln/ln(10) as the old code does.
inline double Lg(double x) { return Ln(x) / 2.302585092994046; }
inline double Exp(double x) { return Fin(std::exp(Fin(x))); }
inline double Sqrt(double x) {
  if (!(x >= 0.0) || !std::isfinite(x)) Fault("invalid procedure call (sqrt)");
  return std::sqrt(x);
}
inline double Div(double a, double b) {
  if (b == 0.0) Fault("division by zero");
  return Fin(a / b);
}
// a^b: a negative base needs a whole exponent, 0^negative is a division by zero.
inline double Pow(double a, double b) {
  Fin(a);
  Fin(b);
  if (a == 0.0 && b < 0.0) Fault("division by zero");
  if (a < 0.0 && b != std::floor(b)) Fault("invalid procedure call (power)");
  return Fin(std::pow(a, b));
}

}  // namespace chk

// Int(x): the largest whole number not above x.
inline double Int(double x) { return std::floor(x); }

// Round half to even, as the conversion of a real to a whole number does.
inline double RoundEven(double x) { return std::nearbyint(x); }

inline int16_t CInt(double x) {
  if (!std::isfinite(x)) chk::Fault("overflow");
  double r = RoundEven(x);
  if (r < -32768.0 || r > 32767.0) chk::Fault("overflow");
  return static_cast<int16_t>(r);
}

inline int32_t CLng(double x) {
  if (!std::isfinite(x)) chk::Fault("overflow");
  double r = RoundEven(x);
  if (r < -2147483648.0 || r > 2147483647.0) chk::Fault("overflow");
  return static_cast<int32_t>(r);
}

inline float CSng(double x) {
  if (std::isnan(x) || std::fabs(x) > 3.402823E38) chk::Fault("overflow");
  return static_cast<float>(x);
}

// MolMasse, TKrit and PKrit are kept to four decimals: Int(v*10000 + 0.5)/10000 in f64, stored f32.
inline float Round4(double v) { return CSng(Int(v * 10000.0 + 0.5) / 10000.0); }

// Runs body; a NumericFault ends it with failValue.
template <class R, class F>
R Guarded(R failValue, F&& body) {
  try {
    return body();
  } catch (const NumericFault&) {
    return failValue;
  }
}

}  // namespace peq
