// The curve tracer: one whole p-x (NoDia 1) and T-x (4) diagram of ethanol/water with 600 points
// per curve, for NRTL + ideal gas, Modified UNIFAC + virial equation and Peng-Robinson with the
// van der Waals rule; and the gE curves of the first and second composition derivative (111,
// 112) with NRTL. One iteration is one CalcCurve call (the mixing-gap search included). At the end
// the 3D surface p = Fu(x2, T) on a 100 x 100 grid for the same three model cases.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>

#include "diagrams/curve.h"
#include "diagrams/surface.h"
#include "models/eos_pure.h"
#include "models/virial.h"
#include "session/session.h"

namespace {

enum class Kind { NRTLIdeal, ModUnifacVirial, PRvdW };

struct Substance {
  const char* name;
  double mw, tc, pc, rhoc, w;
  double A, B, C;         // Antoine lg(p/kPa) = A - B/(C + t/°C), Poling et al. 5th ed.
  double dA, dB, dC, dD;  // DIPPR-105 density (Perry's 8th ed.); dA = 0: constant 996 kg/m^3
  const char* modInkr;    // Mod. UNIFAC increments
};

// Ethanol and water: critical data of the shared pure-component table.
const Substance kPair[2] = {
    {"Ethanol", 46.0684, 514, 6137, 274.22, 0.635, 7.33675, 1648.22, 230.918, 1.6288, 0.27469, 514, 0.23178,
     "01001,01002,01014,00000,00000,00000,00000"},
    {"Water", 18.0153, 647.096, 22064, 322.00, 0.344, 7.11564, 1687.537, 230.17, 0, 0, 0, 0,
     "01016,00000,00000,00000,00000,00000,00000"},
};

peq::Session Pair(Kind kind) {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  for (int i = 1; i <= 2; ++i) {
    const Substance& c = kPair[i - 1];
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
  int16_t err = 0;
  switch (kind) {
    case Kind::NRTLIdeal:
      // NRTL of ethanol/water, cal/mol: g12 - g22 = -121.2691, g21 - g11 = 1337.8574, alpha 0.2974.
      s.GEModel = 2;
      s.ParUnitNRTL = 1;
      s.GEPar(1, 1, 2) = -121.2691;
      s.GEPar(2, 2, 1) = 1337.8574;
      s.GEPar(3, 2, 1) = 0.2974;
      s.VapModel = 0;
      break;
    case Kind::ModUnifacVirial:
      s.GEModel = 20;
      s.VapModel = 1;
      peq::PairCrit(s, err);
      break;
    case Kind::PRvdW:
      s.Konzept = true;
      s.EOSModel = 5;
      s.MixRule = 2;
      s.GEPar(1, 1, 2) = -0.07;  // k(ij) of a
      peq::EOSSetPure(s, 5, err);
      break;
  }
  s.KurvenPunkte = 600;
  s.XMin = 0;
  s.XMax = 1;
  return s;
}

void BM_CalcCurve(benchmark::State& state, Kind kind, int16_t noDia) {
  peq::Session s = Pair(kind);
  const bool isobar = noDia == 4;
  s.IsoArt = isobar ? 2 : 1;
  s.NoDia = noDia;
  s.TIso = 343.15;
  s.PIso = 101.325;
  s.YMin = isobar ? 70.0f : 0.0f;
  s.YMax = isobar ? 110.0f : 100.0f;
  if (noDia > 100) {
    s.YMin = -1e6f;
    s.YMax = 1e6f;
  }
  peq::Kurve k1, k2;
  peq::Vec<double> x(3, 0.0);
  int16_t k1n = 1, k2n = 2, aus = 0, fe = 0;
  float g[5];
  std::string kom;
  peq::MsgSink sink;
  std::size_t points = 0;
  for (auto _ : state) {
    int16_t nd = noDia;
    sink.clear();
    peq::CalcCurve(s, nd, s.TIso, s.PIso, 0.5f, k1, k2, x, s.P0, k1n, k2n, aus, 0, 110.0f, g[0], g[1], g[2], g[3], g[4],
                   kom, fe, &sink);
    points = k1.size() - 1;
    benchmark::DoNotOptimize(k1.data());
  }
  state.counters["points"] = static_cast<double>(points);
  if (points < 10) state.SkipWithError("the curve has (almost) no points");
}

}  // namespace

BENCHMARK_CAPTURE(BM_CalcCurve, px_NRTL_ideal_gas, Kind::NRTLIdeal, int16_t{1})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, px_ModUNIFAC_virial, Kind::ModUnifacVirial, int16_t{1})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, px_PR_vdW, Kind::PRvdW, int16_t{1})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, Tx_NRTL_ideal_gas, Kind::NRTLIdeal, int16_t{4})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, Tx_ModUNIFAC_virial, Kind::ModUnifacVirial, int16_t{4})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, Tx_PR_vdW, Kind::PRvdW, int16_t{4})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, gE_1st_deriv_NRTL, Kind::NRTLIdeal, int16_t{111})->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_CalcCurve, gE_2nd_deriv_NRTL, Kind::NRTLIdeal, int16_t{112})->Unit(benchmark::kMillisecond);

namespace {

// The 3D surface p = Fu(x2(L), T) of ethanol/water on a 100 x 100 grid, x2 0..1 and t 20..100 °C:
// one iteration is one Calc_3DArray call (10 000 bubble pressures).
void BM_Calc3DArray(benchmark::State& state, Kind kind) {
  peq::Session s = Pair(kind);
  s.TOffsetOut = 273.15;
  peq::Grenzen3D g;
  g.XMin = 0;
  g.XMax = 1;
  g.YMin = 20;
  g.YMax = 100;
  peq::Feld3D f;
  int holes = 0;
  for (auto _ : state) {
    holes = peq::Calc_3DArray(s, 0, 100, 100, f, g, false);
    benchmark::DoNotOptimize(f(1, 1));
  }
  state.counters["holes"] = holes;
  if (holes != 0) state.SkipWithError("the surface has holes");
}

}  // namespace

BENCHMARK_CAPTURE(BM_Calc3DArray, px_100x100_NRTL_ideal_gas, Kind::NRTLIdeal)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Calc3DArray, px_100x100_ModUNIFAC_virial, Kind::ModUnifacVirial)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Calc3DArray, px_100x100_PR_vdW, Kind::PRvdW)->Unit(benchmark::kMillisecond);
