// The equilibrium kernel along a curve walk: each call gets the start values the curve tracer
// hands on (the p or T and the y of the previous point). Binary and ten-component mixtures with
// NRTL + ideal gas, NRTL + virial equation, Modified UNIFAC + ideal gas, Peng-Robinson with the
// van der Waals rule and with the GE rule (p => 0, NRTL).
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/eos_pure.h"
#include "models/virial.h"
#include "session/constants.h"
#include "session/session.h"

namespace {

struct Substance {
  const char* name;
  double mw, tc, pc, rhoc, w;
  double A, B, C;          // Antoine lg(p/kPa) = A - B/(C + t/°C), Poling et al. 5th ed.
  double dA, dB, dC, dD;   // DIPPR-105 density, kmol/m^3 (Perry's 8th ed.); dA = 0: constant
  const char* modInkr;     // Mod. UNIFAC increments
};

// n-hexane, benzene, toluene, ethanol, methanol, acetone, water, 2-propanol, cyclohexane, methyl
// acetate: critical data and Antoine constants of the shared pure-component tables.
const Substance kSubs[10] = {
    {"n-Hexane", 86.1754, 507.6, 3025, 234.17, 0.2975, 6.00139, 1170.875, 224.317, 0.70824, 0.26411, 507.6, 0.27537,
     "02001,04002,00000,00000,00000,00000,00000"},
    {"Benzene", 78.1118, 562.05, 4895, 305.12, 0.212, 5.98523, 1184.24, 217.572, 1.0259, 0.26666, 562.05, 0.28394,
     "06009,00000,00000,00000,00000,00000,00000"},
    {"Toluene", 92.1384, 591.75, 4108, 291.58, 0.257, 6.05043, 1327.62, 217.625, 0.8792, 0.27136, 591.75, 0.29241,
     "05009,01011,00000,00000,00000,00000,00000"},
    {"Ethanol", 46.0684, 514, 6137, 274.22, 0.635, 7.33675, 1648.22, 230.918, 1.6288, 0.27469, 514, 0.23178,
     "01001,01002,01014,00000,00000,00000,00000"},
    {"Methanol", 32.0419, 512.5, 8084, 273.86, 0.559, 7.20277, 1580.08, 239.5, 2.3267, 0.27073, 512.5, 0.24713,
     "01015,00000,00000,00000,00000,00000,00000"},
    {"Acetone", 58.0791, 508.1, 4700, 272.67, 0.309, 6.2184, 1197.01, 228.06, 1.2332, 0.25886, 508.2, 0.2913,
     "01001,01018,00000,00000,00000,00000,00000"},
    {"Water", 18.0153, 647.096, 22064, 322.00, 0.344, 7.11564, 1687.537, 230.17, 0, 0, 0, 0,
     "01016,00000,00000,00000,00000,00000,00000"},
    {"2-Propanol", 60.0950, 508.3, 4764, 270.70, 0.665, 7.24268, 1580.92, 219.61, 1.1799, 0.2644, 508.3, 0.24653,
     "02001,01003,01081,00000,00000,00000,00000"},
    {"Cyclohexane", 84.1595, 553.8, 4080, 273.25, 0.213, 5.93002, 1182.774, 220.618, 0.88998, 0.27376, 553.8, 0.28571,
     "06078,00000,00000,00000,00000,00000,00000"},
    {"Methyl acetate", 74.0785, 506.5, 4750, 324.91, 0.32, 6.18621, 1156.43, 219.69, 1.13, 0.2593, 506.55, 0.2764,
     "01001,01021,00000,00000,00000,00000,00000"},
};

enum class Kind { NRTLIdeal, NRTLVirial, ModUnifac, PRvdW, PRGE };

// Binary: ethanol/water (index 3, 6); ten components: all.
peq::Session Mixture(int n, Kind kind) {
  peq::Session s;
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  const int binary[2] = {3, 6};
  for (int i = 1; i <= n; ++i) {
    const Substance& c = kSubs[n == 2 ? binary[i - 1] : i - 1];
    s.StoffData[i].Name = c.name;
    s.StoffData[i].ModUnifInkr = c.modInkr;
    s.MolMasse[i] = static_cast<float>(c.mw);
    s.TKrit[i] = static_cast<float>(c.tc);
    s.PKrit[i] = static_cast<float>(c.pc);
    s.RhoKrit[i] = static_cast<float>(c.rhoc);
    s.Omega[i] = static_cast<float>(c.w);
    s.TKritMax = std::max(s.TKritMax, double(s.TKrit[i]));
    s.PKritMax = std::max(s.PKritMax, double(s.PKrit[i]));
    s.ParALP[i].A = static_cast<float>(c.A);
    s.ParALP[i].B = static_cast<float>(c.B);
    s.ParALP[i].C = static_cast<float>(c.C);
    s.ParALP[i].TLo = 200;
    s.ParALP[i].THi = 600;
    s.P0Eq[i] = "ALP";
    if (c.dA > 0) {
      s.ParRho[i][2] = static_cast<float>(c.dA * c.mw);
      s.ParRho[i][3] = static_cast<float>(c.dB);
      s.ParRho[i][4] = static_cast<float>(c.dD);
      s.ParRho[i][8] = static_cast<float>(c.dC);
    } else {
      s.ParRho[i][1] = 996.0f;
      s.ParRho[i][8] = 647.0f;
    }
  }
  s.ModUnifFile = std::string(PEQ_SOURCE_DIR) + "/data/MODUNIF5PLUS.PAR";
  // Pair parameters: NRTL of ethanol/water (reference case 6, cal/mol) for the binary; moderate
  // made-up values for the ten components.
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      const double g12 = (n == 2) ? -121.2691 : 150.0 + 40.0 * ((i * 7 + j * 3) % 11);
      const double g21 = (n == 2) ? 1337.8574 : 500.0 - 30.0 * ((i * 5 + j) % 7);
      const bool ge = kind != Kind::PRvdW;
      const double scale = (kind == Kind::PRGE) ? 1.0 / 1.98721 : 1.0;  // K in the GE rule
      if (ge) {
        s.GEPar(1, i, j) = g12 * scale;  // L1
        s.GEPar(2, j, i) = g21 * scale;  // L4
        s.GEPar(3, j, i) = 0.2974;       // L7
      } else {
        s.GEPar(1, i, j) = (n == 2) ? -0.07 : 0.0;  // k(ij) of a
      }
    }
  s.ParUnitNRTL = 1;
  switch (kind) {
    case Kind::NRTLIdeal:
      s.GEModel = 2;
      s.VapModel = 0;
      break;
    case Kind::NRTLVirial: {
      s.GEModel = 2;
      s.VapModel = 1;
      int16_t err = 0;
      peq::PairCrit(s, err);
      break;
    }
    case Kind::ModUnifac:
      s.GEModel = 20;
      s.VapModel = 0;
      break;
    case Kind::PRvdW:
    case Kind::PRGE: {
      s.Konzept = true;
      s.EOSModel = 5;
      s.MixRule = kind == Kind::PRvdW ? 2 : 6;
      s.GEModelEOS = 2;
      int16_t err = 0;
      peq::EOSSetPure(s, 5, err);
      break;
    }
  }
  return s;
}

constexpr int kPoints = 40;

// Compositions along a walk: binary x2 from 0.05 to 0.95; ten components drifting smoothly.
std::vector<peq::Vec<double>> Walk(int n) {
  std::vector<peq::Vec<double>> xs;
  for (int k = 0; k < kPoints; ++k) {
    peq::Vec<double> x(static_cast<std::size_t>(n) + 1, 0.0);
    if (n == 2) {
      x[2] = 0.05 + 0.9 * k / (kPoints - 1);
      x[1] = 1.0 - x[2];
    } else {
      double sum = 0;
      for (int i = 1; i <= n; ++i) {
        x[i] = 1.0 + 0.6 * std::sin(0.05 * k + 0.9 * i);
        sum += x[i];
      }
      for (int i = 1; i <= n; ++i) x[i] /= sum;
    }
    xs.push_back(x);
  }
  return xs;
}

struct Point {
  double v;  // p or T
  peq::Vec<double> y;
};

// safe: the same walk through the safeguarded routine (engine/safeguard), whose points all
// converge the first time; the difference is the cost of its test.
void BM_CalcBubbleP(benchmark::State& state, Kind kind, bool safe = false) {
  const auto bubble = [safe](auto&&... a) { return safe ? peq::SafeBubbleP(a...) : peq::CalcBubbleP(a...); };
  const int n = static_cast<int>(state.range(0));
  peq::Session s = Mixture(n, kind);
  const double T = 340.0;
  const auto xs = Walk(n);
  std::vector<Point> pts(kPoints);
  double vL, vV, p = 0;
  peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  for (int k = 0; k < kPoints; ++k) {
    p = bubble(s, T, xs[k], p, k == 0 ? y0 : pts[k - 1].y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    if (p <= 0) {
      state.SkipWithError("no bubble point on the walk");
      return;
    }
    pts[k] = {p, s.YGas};
  }
  int k = 1;
  for (auto _ : state) {
    const double r = bubble(s, T, xs[k], pts[k - 1].v, pts[k - 1].y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    benchmark::DoNotOptimize(r);
    if (++k == kPoints) k = 1;
  }
}

void BM_CalcBubbleT(benchmark::State& state, Kind kind, bool safe = false) {
  const auto bubble = [safe](auto&&... a) { return safe ? peq::SafeBubbleT(a...) : peq::CalcBubbleT(a...); };
  const int n = static_cast<int>(state.range(0));
  peq::Session s = Mixture(n, kind);
  const double p = 101.325;
  const auto xs = Walk(n);
  std::vector<Point> pts(kPoints);
  double vL, vV;
  int16_t warn;
  peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  for (int k = 0; k < kPoints; ++k) {
    double Tin = k == 0 ? 0.0 : pts[k - 1].v;
    const double T = bubble(s, p, xs[k], Tin, k == 0 ? y0 : pts[k - 1].y, warn, s.KWert, vL, vV);
    if (T <= 0) {
      state.SkipWithError("no bubble temperature on the walk");
      return;
    }
    pts[k] = {T, s.YGas};
  }
  int k = 1;
  for (auto _ : state) {
    double Tin = pts[k - 1].v;
    const double r = bubble(s, p, xs[k], Tin, pts[k - 1].y, warn, s.KWert, vL, vV);
    benchmark::DoNotOptimize(r);
    if (++k == kPoints) k = 1;
  }
}

BENCHMARK_CAPTURE(BM_CalcBubbleP, NRTL_ideal_gas, Kind::NRTLIdeal)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, NRTL_virial, Kind::NRTLVirial)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, ModUNIFAC_ideal_gas, Kind::ModUnifac)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, PR_vdW, Kind::PRvdW)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, PR_GE_NRTL, Kind::PRGE)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, NRTL_ideal_gas, Kind::NRTLIdeal)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, NRTL_virial, Kind::NRTLVirial)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, ModUNIFAC_ideal_gas, Kind::ModUnifac)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, PR_vdW, Kind::PRvdW)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, PR_GE_NRTL, Kind::PRGE)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, NRTL_ideal_gas_safeguarded, Kind::NRTLIdeal, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, NRTL_virial_safeguarded, Kind::NRTLVirial, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, ModUNIFAC_ideal_gas_safeguarded, Kind::ModUnifac, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, PR_vdW_safeguarded, Kind::PRvdW, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleP, PR_GE_NRTL_safeguarded, Kind::PRGE, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, NRTL_ideal_gas_safeguarded, Kind::NRTLIdeal, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, NRTL_virial_safeguarded, Kind::NRTLVirial, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, ModUNIFAC_ideal_gas_safeguarded, Kind::ModUnifac, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, PR_vdW_safeguarded, Kind::PRvdW, true)->Arg(2)->Arg(10)->ArgNames({"n"});
BENCHMARK_CAPTURE(BM_CalcBubbleT, PR_GE_NRTL_safeguarded, Kind::PRGE, true)->Arg(2)->Arg(10)->ArgNames({"n"});

}  // namespace
