// ActivityCoeffs of every gE model for 2 and 10 components at a fixed T, the compositions
// changing from call to call as inside a curve walk. The group models use the shipped parameter
// files; the mixtures are n-hexane, benzene, toluene, ethanol, methanol, acetone, water,
// 2-propanol, cyclohexane, methyl acetate (the first two for the binary).
#include <benchmark/benchmark.h>

#include <cmath>
#include <string>
#include <vector>

#include "models/activity.h"
#include "session/session.h"

namespace {

constexpr double kT = 340.0;
constexpr int kCompositions = 16;

// Increments of the ten substances (DDBST published assignments, see the group tables).
const char* const kOUnif[10] = {
    "02001,04002,00000,00000,00000,00000,00000", "06009,00000,00000,00000,00000,00000,00000",
    "05009,01011,00000,00000,00000,00000,00000", "01001,01002,01014,00000,00000,00000,00000",
    "01015,00000,00000,00000,00000,00000,00000", "01001,01018,00000,00000,00000,00000,00000",
    "01016,00000,00000,00000,00000,00000,00000", "02001,01003,01014,00000,00000,00000,00000",
    "06002,00000,00000,00000,00000,00000,00000", "01001,01021,00000,00000,00000,00000,00000"};
const char* const kMod[10] = {
    "02001,04002,00000,00000,00000,00000,00000", "06009,00000,00000,00000,00000,00000,00000",
    "05009,01011,00000,00000,00000,00000,00000", "01001,01002,01014,00000,00000,00000,00000",
    "01015,00000,00000,00000,00000,00000,00000", "01001,01018,00000,00000,00000,00000,00000",
    "01016,00000,00000,00000,00000,00000,00000", "02001,01003,01081,00000,00000,00000,00000",
    "06078,00000,00000,00000,00000,00000,00000", "01001,01021,00000,00000,00000,00000,00000"};

void SetPair(peq::Session& s, int k, int i, int j, double vij, double vji) {
  s.GEPar(static_cast<std::size_t>(k), static_cast<std::size_t>(i), static_cast<std::size_t>(j)) = vij;
  s.GEPar(static_cast<std::size_t>(k), static_cast<std::size_t>(j), static_cast<std::size_t>(i)) = vji;
}

peq::Session MakeMixture(int n, int16_t model) {
  peq::Session s;
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  s.GEModel = model;
  const std::string dir = std::string(PEQ_SOURCE_DIR) + "/data/";
  s.ModUnifFile = dir + "MODUNIF5PLUS.PAR";
  s.OUnifFile = dir + "OUNIF6PLUS.PAR";
  s.ParUnitWilson = 2;
  s.ParUnitNRTL = 0;
  s.ParUnitUNIQUAC = 0;
  for (int i = 1; i <= n; ++i) {
    s.StoffData[i].OUnifInkr = kOUnif[i - 1];
    s.StoffData[i].ModUnifInkr = kMod[i - 1];
    s.StoffData[i].RUniquac = static_cast<float>(1.0 + 0.3 * i);
    s.StoffData[i].QUniquac = static_cast<float>(1.1 + 0.2 * i);
    s.TKrit[i] = 500.0f;
  }
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      const double a = 0.1 * ((i * 7 + j * 3) % 11);  // 0 .. 1, varied over the pairs
      switch (model) {
        case 1:  // Lambda values
          SetPair(s, 1, i, j, 0.4 + a, 1.4 - a);
          break;
        case 2:  // J/mol and alpha
          SetPair(s, 1, i, j, 300.0 + 900.0 * a, 1500.0 - 700.0 * a);
          SetPair(s, 3, i, j, 0.0, 0.0);
          s.GEPar(4, static_cast<std::size_t>(j), static_cast<std::size_t>(i)) = 0.0;
          s.GEPar(3, static_cast<std::size_t>(j), static_cast<std::size_t>(i)) = 0.3;  // L7
          break;
        case 4:  // A, B, C, D constant
          s.GEPar(1, static_cast<std::size_t>(i), static_cast<std::size_t>(j)) = 0.5 + a;  // L1
          s.GEPar(2, static_cast<std::size_t>(j), static_cast<std::size_t>(i)) = 0.2 - a * 0.3;  // L4
          s.GEPar(3, static_cast<std::size_t>(j), static_cast<std::size_t>(i)) = 0.1;  // L7
          s.GEPar(6, static_cast<std::size_t>(i), static_cast<std::size_t>(j)) = 0.02;  // L10
          break;
        case 9:
          SetPair(s, 1, i, j, 200.0 + 600.0 * a, -100.0 + 300.0 * a);
          break;
        default:
          break;
      }
    }
  return s;
}

void Compositions(int n, std::vector<peq::Vec<double>>& xs) {
  xs.clear();
  for (int c = 0; c < kCompositions; ++c) {
    peq::Vec<double> x(static_cast<std::size_t>(n) + 1, 0.0);
    double sum = 0.0;
    for (int i = 1; i <= n; ++i) {
      x[i] = 1.0 + 0.5 * std::sin(0.7 * c + 1.3 * i);
      sum += x[i];
    }
    for (int i = 1; i <= n; ++i) x[i] /= sum;
    xs.push_back(x);
  }
}

void BM_ActivityCoeffs(benchmark::State& state, int16_t model) {
  const int n = static_cast<int>(state.range(0));
  peq::Session s = MakeMixture(n, model);
  std::vector<peq::Vec<double>> xs;
  Compositions(n, xs);
  peq::Vec<double> g(static_cast<std::size_t>(n) + 1, 0.0);
  int16_t err = 0;
  peq::ActivityCoeffs(s, kT, xs[0], g, err);  // loads the group tables
  if (err != 0) {
    state.SkipWithError("ActivityCoeffs failed");
    return;
  }
  int c = 0;
  for (auto _ : state) {
    peq::ActivityCoeffs(s, kT, xs[static_cast<std::size_t>(c)], g, err);
    benchmark::DoNotOptimize(g.data());
    c = (c + 1) & (kCompositions - 1);
  }
  if (err != 0) state.SkipWithError("ActivityCoeffs failed");
}

// Wilson with energies in J/mol (code 0): each call also runs LiquidVolumes for the volumes.
void BM_ActivityCoeffsWilsonJmol(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  peq::Session s = MakeMixture(n, 1);
  s.ParUnitWilson = 0;
  s.WilsonVFix = true;
  s.AlleVWilson = true;
  for (int i = 1; i <= n; ++i) {
    s.VLiqCm3[i] = static_cast<float>(40.0 + 10.0 * i);
    s.MolMasse[i] = static_cast<float>(40.0 + 8.0 * i);
    s.ParRho[i][1] = static_cast<float>(700.0 + 20.0 * i);  // rho = r1 below r8, kg/m^3
    s.ParRho[i][8] = 1000.0f;
  }
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) SetPair(s, 1, i, j, 1000.0 + 100.0 * i, 2000.0 - 50.0 * j);
  std::vector<peq::Vec<double>> xs;
  Compositions(n, xs);
  peq::Vec<double> g(static_cast<std::size_t>(n) + 1, 0.0);
  int16_t err = 0;
  int c = 0;
  for (auto _ : state) {
    peq::ActivityCoeffs(s, kT, xs[static_cast<std::size_t>(c)], g, err);
    benchmark::DoNotOptimize(g.data());
    c = (c + 1) & (kCompositions - 1);
  }
  if (err != 0) state.SkipWithError("ActivityCoeffs failed");
}

}  // namespace

BENCHMARK(BM_ActivityCoeffsWilsonJmol)->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, Wilson, int16_t{1})->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, NRTL, int16_t{2})->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, RedlichKister, int16_t{4})->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, UNIQUAC, int16_t{9})->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, ModUNIFAC, int16_t{20})->Arg(2)->Arg(10);
BENCHMARK_CAPTURE(BM_ActivityCoeffs, UNIFAC, int16_t{21})->Arg(2)->Arg(10);
