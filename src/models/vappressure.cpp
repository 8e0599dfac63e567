// Vapour pressure of the pure components and its inverse.
//
// Equations (p in kPa, T in K, t = T - 273.15 in degrees Celsius, lg = ln/ln 10):
//   ANTOINE  lg p = A - B/(C + t)                  (low- and high-pressure sets)
//   AUGUST   ln p = A + B/T                        (line through Tb and the critical point)
//   FROST    lg p = A + B/(C + t) + D lg T + E p/T^(2+F) + G T + H T^I
//            implicit in p when E is present (Frost and Kalkwarf, J. Chem. Phys. 21 (1953) 264,
//            extended); with C = 273.15 and E = F = G = 0 it holds the DIPPR equation 101
//   WAGNER   ln(p/pc) = (A1 tau + A2 tau^1.5 + A3 tau^n3 + A4 tau^n4 + A5 tau^n5)/Tr,
//            tau = 1 - Tr (Wagner, Cryogenics 13 (1973) 470; the 2.5-5 and 3-6 forms)
//   "THO"    an Antoine form through Tb and the critical point with the constant of Thompson's
//            rule, C = 18 - 0.19 Tb in degrees Celsius (Thompson, Chem. Rev. 38 (1946) 1)
// The parameters are the f32 values of the session widened to f64.
#include "models/vappressure.h"

#include <cmath>
#include <cstring>

#include "models/eos_sat.h"
#include "session/constants.h"
#include "session/numeric.h"

namespace peq {

namespace {

enum class Eq { None, ALP, AHP, AUG, FRO, WAG, THO };

Eq ParseEq(const std::string& code) {
  if (code.size() != 3) return Eq::None;
  const char* c = code.data();
  if (std::memcmp(c, "ALP", 3) == 0) return Eq::ALP;
  if (std::memcmp(c, "AHP", 3) == 0) return Eq::AHP;
  if (std::memcmp(c, "AUG", 3) == 0) return Eq::AUG;
  if (std::memcmp(c, "FRO", 3) == 0) return Eq::FRO;
  if (std::memcmp(c, "WAG", 3) == 0) return Eq::WAG;
  if (std::memcmp(c, "THO", 3) == 0) return Eq::THO;
  return Eq::None;
}

constexpr double kPNormal = 101.325;        // kPa
constexpr double kFrostTinyP = 1E-120;      // the p-Newton of FROST gives up below this p
constexpr double kFrostFlatP = 1E-50;       // ... and on a slope flatter than this
constexpr double kFlatT = 1E-35;            // the T-Newtons give up on a slope flatter than this
constexpr double kStepP = 0.0001;           // relative step that ends the p-Newton
constexpr double kStepTWag = 0.0001;        // relative step that ends the WAGNER T-Newton
constexpr double kStepTFro = static_cast<double>(0.0001f);  // FROST T-Newton: the f32 value
constexpr double kSglMax = 3.403E38;        // above this p no 32-bit result exists
constexpr float kPresentF = 1E-6f;          // presence of an f32 datum
constexpr float kETrueZero = 1E-37f;        // a FROST E below this counts as absent

// Hang guard of the Newton loops, which otherwise run until their step is small. A solvable case
// converges in a few dozen rounds; without a root (e.g. a FROST E so large that the implicit
// equation has no solution) the rounds wander chaotically until p or T leaves the domain, which
// can take some 10^5 rounds. The guard ends such a case with the failure value it would reach.
constexpr long kNewtonGuard = 1000000;

// The absolute temperature of a state: at or below 0 K (or not a number) there is no state, and
// the routine ends with its failure value.
void RequireKelvin(double T) {
  if (!(T > 0.0) || !std::isfinite(T)) chk::Fault("no absolute temperature");
}

// x^n for the exponents of the WAGNER terms: whole and half-whole exponents by products and one
// square root (the same value as pow to the last bit or two, at a fraction of the cost), any
// other by pow. Faults as chk::Pow: 0 to a negative power, a negative base to a fractional one.
double PowN(double x, double n) {
  if (n == 0.0) return 1.0;
  const double twice = 2.0 * n;
  if (twice == std::floor(twice) && std::fabs(n) <= 8.0 && x >= 0.0) {
    if (x == 0.0) {
      if (n < 0.0) chk::Fault("division by zero");
      return 0.0;
    }
    const int k = static_cast<int>(std::fabs(n));  // the whole part of |n|
    double r = 1.0;
    for (int j = 0; j < k; ++j) r *= x;
    if (n != std::trunc(n)) r *= std::sqrt(x);  // the half
    return n < 0.0 ? chk::Div(1.0, r) : chk::Fin(r);
  }
  return chk::Pow(x, n);
}

// The limit distance Round(T - limit) of T outside [TLo, THi]; both checks, the upper one last.
void BothLimits(double T, int16_t TLo, int16_t THi, int16_t& dT) {
  if (T < TLo) dT = CInt(T - TLo);
  if (T > THi) dT = CInt(T - THi);
}

// Limits of FROST and WAGNER apply only when both are given.
void LimitsIfBoth(double T, int16_t TLo, int16_t THi, int16_t& dT) {
  if (TLo > kPresentF && THi > kPresentF) BothLimits(T, TLo, THi, dT);
}

double TenTo(double lg) { return chk::Pow(10.0, lg); }

struct FrostTerms {
  double A, B, C, D, E, F, G, H, I;
  explicit FrostTerms(const ParFrost& f)
      : A(f[1]), B(f[2]), C(f[3]), D(f[4]), E(f[5]), F(f[6]), G(f[7]), H(f[8]), I(f[9]) {}
};

struct WagnerTerms {
  double A1, A2, A3, n3, A4, n4, A5, n5, Tc, pc;
  explicit WagnerTerms(const ParWagner& w)
      : A1(w[1]), A2(w[2]), A3(w[3]), n3(w[4]), A4(w[5]), n4(w[6]), A5(w[7]), n5(w[8]), Tc(w[9]),
        pc(w[10]) {}
  double S(double tau) const {
    return A1 * tau + A2 * PowN(tau, 1.5) + A3 * PowN(tau, n3) + A4 * PowN(tau, n4) +
           A5 * PowN(tau, n5);
  }
  // dS/dtau
  double SPrime(double tau) const {
    return A1 + 1.5 * A2 * PowN(tau, 0.5) + n3 * A3 * PowN(tau, n3 - 1.0) +
           n4 * A4 * PowN(tau, n4 - 1.0) + n5 * A5 * PowN(tau, n5 - 1.0);
  }
};

// Antoine constants of the "THO" form from the normal boiling point Tb and the critical point:
// c = 18 - 0.19 Tb + 273.15 (the sign of the Tb term as the rule is used here), and the line
// lg p = A - B/(c + T - 273.15) through (Tb, 101.325 kPa) and (Tc, pc).
struct ThoTerms {
  double c, A, B;
};

float BoilingTCore(const Session& s, int i, std::string& code, int16_t& err, int& step);

ThoTerms Tho(const Session& s, int i) {
  // Tb by BoilingT with no code of its own (never "THO" again, which would ask for Tb anew).
  std::string none;
  int16_t err = 0;
  int step = 0;
  const double Tb = BoilingTCore(s, i, none, err, step);
  const double Tc = s.TKrit[i];
  const double Pc = s.PKrit[i];
  ThoTerms t{};
  t.c = 18.0 - 0.19 * Tb + kT0;
  t.B = chk::Div(-chk::Lg(Pc / kPNormal),
                 chk::Div(1.0, t.c + Tc - kT0) - chk::Div(1.0, Tb + t.c - kT0));
  t.A = chk::Lg(Pc) + chk::Div(t.B, t.c + Tc - kT0);
  return t;
}

// p0 by FROST; 0 where the equation gives no value. dT set by the limit checks.
float FrostP(const ParFrost& par, double T, int16_t& dT) {
  const FrostTerms f(par);
  const double x = T + f.C - kT0;
  const double lnT = chk::Ln(T);
  const double TI = chk::Pow(T, f.I);
  const double lnp0 = chk::Fin(kLn10 * f.A + kLn10 * chk::Div(f.B, x) + f.D * lnT +
                               kLn10 * f.G * T + kLn10 * f.H * TI);
  double p;
  if (std::fabs(par[5]) < kETrueZero) {
    p = chk::Exp(lnp0);
  } else {
    // Newton on p: f = A + B/x + D lg T + E p/T^(2+F) - lg p + G T + H T^I.
    const double K = chk::Pow(T, 2.0 + f.F);
    if (K == 0.0) chk::Fault("division by zero");
    const double head = f.A + chk::Div(f.B, x) + f.D * lnT / kLn10;
    const double GT = f.G * T;
    const double HTI = f.H * TI;
    p = chk::Exp(lnp0);
    for (long round = 0;; ++round) {
      if (p < kFrostTinyP) return 0;
      if (round >= kNewtonGuard) return 0;
      const double fv = chk::Fin(head + f.E * p / K - chk::Ln(p) / kLn10 + GT + HTI);
      const double fd = chk::Fin(f.E / K - 1.0 / (p * kLn10));
      if (std::fabs(fd) < kFrostFlatP) return 0;
      const double dp = chk::Fin(-fv / fd);
      p = chk::Fin(p + dp);
      if (!(std::fabs(chk::Div(dp, p)) >= kStepP)) break;
    }
    if (p > kSglMax) return 0;
  }
  LimitsIfBoth(T, par.TLo, par.THi, dT);
  return CSng(p);
}

// p0 of component i at T; throws NumericFault on an arithmetic fault. dT as the limits say.
float VapPressureCore(const Session& s, int i, double T, Eq eq, int16_t& dT) {
  switch (eq) {
    case Eq::ALP:
    case Eq::AHP: {
      const ParAntoine& a = eq == Eq::ALP ? s.ParALP[i] : s.ParAHP[i];
      const double lgp = double(a.A) - chk::Div(a.B, double(a.C) + (T - kT0));
      const double p = TenTo(lgp);
      BothLimits(T, a.TLo, a.THi, dT);
      return CSng(p);
    }
    case Eq::AUG: {
      const ParAugust& a = s.ParAUG[i];
      const double p = chk::Exp(double(a.A) + chk::Div(a.B, T));
      // Only the lower limit: the line ends at the critical point, above which it extrapolates.
      if (T < a.TLo) dT = CInt(T - a.TLo);
      return CSng(p);
    }
    case Eq::FRO:
      return FrostP(s.ParFRO[i], T, dT);
    case Eq::WAG: {
      const ParWagner& par = s.ParWAG[i];
      const WagnerTerms w(par);
      const double tau = 1.0 - chk::Div(T, w.Tc);
      if (CSng(tau) < 0.0f) return 0;  // above the critical T of the equation
      const double S = chk::Fin(w.S(tau));
      if (std::fabs(S) > 50.0) return 0;
      const double p = w.pc * chk::Exp(chk::Div(S * w.Tc, T));
      LimitsIfBoth(T, par.TLo, par.THi, dT);
      return CSng(p);
    }
    case Eq::THO: {
      // No limits of its own: only those of BoilingT's own call apply.
      const ThoTerms t = Tho(s, i);
      const double p = TenTo(t.A - chk::Div(t.B, t.c + T - kT0));
      return CSng(p);
    }
    case Eq::None:
      break;
  }
  return 0;
}

// T of component i at p; throws NumericFault on an arithmetic fault; sets err -1 (and gives 0)
// when a Newton iteration fails.
double BoilingTCoreAtP(const Session& s, int i, double p, Eq eq, int16_t& dT, int16_t& err) {
  switch (eq) {
    case Eq::ALP:
    case Eq::AHP: {
      const ParAntoine& a = eq == Eq::ALP ? s.ParALP[i] : s.ParAHP[i];
      const double T = chk::Div(a.B, double(a.A) - chk::Lg(p)) - double(a.C) + kT0;
      BothLimits(T, a.TLo, a.THi, dT);
      return T;
    }
    case Eq::AUG: {
      const ParAugust& a = s.ParAUG[i];
      const double T = chk::Div(a.B, chk::Ln(p) - double(a.A));
      if (T < a.TLo) dT = CInt(T - a.TLo);
      return T;
    }
    case Eq::FRO: {
      const ParFrost& par = s.ParFRO[i];
      const FrostTerms f(par);
      const double lgp = chk::Lg(p);
      double T = chk::Div(f.B, lgp - f.A) - f.C + kT0;
      for (long round = 0;; ++round) {
        if (round >= kNewtonGuard) {
          err = -1;
          return 0;
        }
        const double x = T + f.C - kT0;
        const double fv = chk::Fin(f.A + chk::Div(f.B, x) + f.D * chk::Ln(T) / kLn10 +
                                   chk::Div(f.E * p, chk::Pow(T, 2.0 + f.F)) - lgp + f.G * T +
                                   f.H * chk::Pow(T, f.I));
        const double fd = chk::Fin(-chk::Div(f.B, x * x) + chk::Div(f.D, kLn10 * T) -
                                   chk::Div((2.0 + f.F) * f.E * p, chk::Pow(T, 3.0 + f.F)) + f.G +
                                   f.I * f.H * chk::Pow(T, f.I - 1.0));
        if (std::fabs(fd) < kFlatT) {
          err = -1;
          return 0;
        }
        const double step = chk::Fin(-fv / fd);
        T = chk::Fin(T + step);
        if (!(std::fabs(chk::Div(step, T)) >= kStepTFro)) break;
      }
      LimitsIfBoth(T, par.TLo, par.THi, dT);
      return T;
    }
    case Eq::WAG: {
      const ParWagner& par = s.ParWAG[i];
      const WagnerTerms w(par);
      double T = 0;
      if (s.TSiede[i] > kPresentF) {
        // Start on the AUGUST line through (Tb, 101.325 kPa) and (TKrit, PKrit).
        const double Tb = s.TSiede[i];
        const double Tc = s.TKrit[i];
        const double pc = s.PKrit[i];
        const double B = chk::Div(Tb * Tc * chk::Ln(pc / kPNormal), Tb - Tc);
        const double A = chk::Ln(pc) - chk::Div(B, Tc);
        T = chk::Div(B, chk::Ln(p) - A);
      }
      if (T < 1E-4 || !(T < w.Tc)) T = 0.8 * double(s.TKrit[i]);
      const double lnpr = chk::Ln(chk::Div(p, w.pc));
      for (long round = 0;; ++round) {
        if (round >= kNewtonGuard) {
          err = -1;
          return 0;
        }
        const double tau = 1.0 - chk::Div(T, w.Tc);
        if (CSng(tau) < 0.0f) {
          err = -1;
          return 0;
        }
        const double S = chk::Fin(w.S(tau));
        const double fv = chk::Div(S * w.Tc, T) - lnpr;
        const double Sp = chk::Fin(w.SPrime(tau));
        const double fd = chk::Fin(S * (-chk::Div(w.Tc, T * T)) + chk::Div(w.Tc, T) * (-Sp / w.Tc));
        if (std::fabs(fd) < kFlatT) {
          err = -1;
          return 0;
        }
        const double step = chk::Fin(-fv / fd);
        T = chk::Fin(T + step);
        if (std::fabs(chk::Div(step, T)) < kStepTWag) break;
      }
      LimitsIfBoth(T, par.TLo, par.THi, dT);
      return T;
    }
    case Eq::THO: {
      const ThoTerms t = Tho(s, i);
      return chk::Div(t.B, t.A - chk::Lg(p)) - t.c + kT0;
    }
    case Eq::None:
      break;
  }
  return 0;
}

bool IsBlank(const std::string& code) {
  return code.find_first_not_of(' ') == std::string::npos;
}

// BoilingT without its info text (step: 1 database, 2 given code, 3 code chosen here).
float BoilingTCore(const Session& s, int i, std::string& code, int16_t& err, int& step) {
  err = 0;
  step = 1;
  if (s.StoffData[i].TSiedeDb > kPresentF) return s.StoffData[i].TSiedeDb;
  int16_t dT = 0;
  if (!IsBlank(code)) {
    step = 2;
  } else {
    // The last present equation wins: AHP, ALP, FRO, WAG (here WAG outranks FRO).
    step = 3;
    if (s.ParAHP[i].TLo > kPresentF) code = "AHP";
    if (s.ParALP[i].TLo > kPresentF) code = "ALP";
    if (std::abs(s.ParFRO[i].TLo) > kPresentF) code = "FRO";
    if (s.ParWAG[i].TLo > kPresentF) code = "WAG";
  }
  const float T = BoilingTAtP(s, i, kPNormal, code, false, dT, err);
  return err != 0 ? 0.0f : T;
}

std::string DTText(int16_t dT) { return std::to_string(static_cast<int>(dT)); }

}  // namespace

float VapPressure(const Session& s, int i, double T, std::string& code, bool showWarn, int16_t& dT,
                  MsgSink* sink) {
  dT = 0;
  if (i < 1 || i > s.NKomp) return 0;
  int16_t d = 0;
  float p = 0;
  try {
    RequireKelvin(T);
    p = VapPressureCore(s, i, T, ParseEq(code), d);
  } catch (const NumericFault&) {
    return 0;
  }
  dT = d;
  if (p != 0.0f && showWarn && dT > 5)
    Post(sink, "WARNING", " T outside validity of parameters! (T - T(lim)=" + DTText(dT) + ")",
         MsgIcon::Warning);
  return p;
}

float BoilingTAtP(const Session& s, int i, double p, std::string& code, bool showWarn, int16_t& dT,
                  int16_t& err, MsgSink* sink) {
  dT = 0;
  err = 0;
  if (i < 1 || i > s.NKomp) {
    err = -1;
    return 0;
  }
  int16_t d = 0;
  int16_t e = 0;
  float T = 0;
  try {
    const double t = BoilingTCoreAtP(s, i, p, ParseEq(code), d, e);
    if (e != 0) {
      err = -1;
      return 0;
    }
    T = CSng(t);
  } catch (const NumericFault&) {
    err = -1;
    return 0;
  }
  dT = d;
  if (showWarn && dT > 5)
    Post(sink, "WARNING",
         "Warning:  T outside validity of parameters! (T - T(lim)=" + DTText(dT) + ")",
         MsgIcon::Warning);
  return T;
}

float BoilingT(const Session& s, int i, std::string& code, int16_t& err, std::string& info) {
  if (i < 1 || i > s.NKomp) {
    err = -1;
    info.clear();
    return 0;
  }
  int step = 0;
  const float T = BoilingTCore(s, i, code, err, step);
  switch (step) {
    case 1:
      info = "normal boiling T from database";
      break;
    case 2:
      info = "normal boiling T from " + code + " equation";
      break;
    default:
      info = "normal boiling temp. of " + code + " equation";
      break;
  }
  return T;
}

void AllP0(Session& s, double T, int16_t& bad, int16_t& dT) {
  bad = 0;
  dT = 0;
  const int n = s.NKomp;
  if (n <= 0) return;
  if (s.Konzept) {
    // The global concept takes p0 from the cubic equation of state of the mixture.
    EOSAllP0(s, T, bad);
    return;
  }
  for (int i = 1; i <= n; ++i) {
    int16_t d = 0;
    const float p = VapPressure(s, i, T, s.P0Eq[i], false, d);
    s.P0[i] = p;
    if (d != 0) dT = d;
    if (p == 0.0f) bad = static_cast<int16_t>(i);
  }
}

}  // namespace peq
