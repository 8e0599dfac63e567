// Azeotrope search, binodal at one T and the closed second derivative of gE/(R T).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

#include "engine/azeotrope.h"
#include "engine/excess.h"
#include "engine/gap.h"
#include "session/session.h"

namespace {

struct Pure {
  const char* name;
  double mw, tc, pc;
  double A, B, C;  // Antoine lg(p/kPa) = A - B/(C + t/°C), Poling et al. 5th ed. App. A
};

const Pure kEthanol{"Ethanol", 46.0684, 514, 6137, 7.33675, 1648.22, 230.918};
const Pure kWater{"Water", 18.0153, 647.096, 22064, 7.11564, 1687.537, 230.17};
const Pure kButanol{"1-Butanol", 74.1216, 563, 4414, 6.6493, 1395.14, 182.739};

// Slot L(n) of the pair (1, 2).
void SetSlot(peq::Session& s, int n, double v) {
  const std::size_t k = static_cast<std::size_t>((n - 1) / 4 * 2 + 1);
  switch ((n - 1) % 4) {
    case 0: s.GEPar(k, 1, 2) = v; break;
    case 1: s.GEPar(k + 1, 1, 2) = v; break;
    case 2: s.GEPar(k, 2, 1) = v; break;
    default: s.GEPar(k + 1, 2, 1) = v; break;
  }
}

// A binary with NRTL in K (tau = b/T), Antoine vapour pressures and the ideal gas.
peq::Session Binary(const Pure& a, const Pure& b, double b12, double b21, double alpha) {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  const Pure* c[3] = {nullptr, &a, &b};
  for (int i = 1; i <= 2; ++i) {
    s.StoffData[i].Name = c[i]->name;
    s.MolMasse[i] = static_cast<float>(c[i]->mw);
    s.TKrit[i] = static_cast<float>(c[i]->tc);
    s.PKrit[i] = static_cast<float>(c[i]->pc);
    if (s.TKrit[i] > s.TKritMax) s.TKritMax = s.TKrit[i];
    if (s.PKrit[i] > s.PKritMax) s.PKritMax = s.PKrit[i];
    s.ParALP[i].A = static_cast<float>(c[i]->A);
    s.ParALP[i].B = static_cast<float>(c[i]->B);
    s.ParALP[i].C = static_cast<float>(c[i]->C);
    s.ParALP[i].TLo = 200;
    s.ParALP[i].THi = 600;
    s.P0Eq[i] = "ALP";
  }
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  SetSlot(s, 1, b12);
  SetSlot(s, 4, b21);
  SetSlot(s, 7, alpha);
  s.VapModel = 0;
  return s;
}

// Ethanol/water, DECHEMA NRTL (A12 = -57.9601, A21 = 1241.7396 cal/mol, alpha 0.2937, as A/R in K).
void BM_AzeotropeEthanolWaterIsobaric(benchmark::State& st) {
  peq::Session s = Binary(kEthanol, kWater, -29.166654, 624.867622, 0.2937);
  s.IsoArt = 2;
  for (auto _ : st) {
    double x = 0;
    int16_t kind = 0, overrun = 0;
    benchmark::DoNotOptimize(peq::IsBinaerAzeotrop(s, 0.0, 101.325, x, kind, overrun, nullptr));
    benchmark::DoNotOptimize(x);
  }
}
BENCHMARK(BM_AzeotropeEthanolWaterIsobaric)->Unit(benchmark::kMicrosecond);

void BM_AzeotropeEthanolWaterIsothermal(benchmark::State& st) {
  peq::Session s = Binary(kEthanol, kWater, -29.166654, 624.867622, 0.2937);
  s.IsoArt = 1;
  for (auto _ : st) {
    double x = 0;
    int16_t kind = 0, overrun = 0;
    benchmark::DoNotOptimize(peq::IsBinaerAzeotrop(s, 343.15, 0.0, x, kind, overrun, nullptr));
    benchmark::DoNotOptimize(x);
  }
}
BENCHMARK(BM_AzeotropeEthanolWaterIsothermal)->Unit(benchmark::kMicrosecond);

// Water/1-butanol, DECHEMA NRTL (b12 = 1325.32682 K, b21 = 253.641818 K, alpha 0.4447), 365 K.
void BM_BinodalWaterButanol(benchmark::State& st) {
  peq::Session s = Binary(kWater, kButanol, 1325.32682, 253.641818, 0.4447);
  std::string msg;
  for (auto _ : st) {
    double a = 0, b = 0;
    benchmark::DoNotOptimize(peq::Binodal(s, 365.0, a, b, msg));
    benchmark::DoNotOptimize(a);
  }
}
BENCHMARK(BM_BinodalWaterButanol)->Unit(benchmark::kMicrosecond);

void BM_GapRangeWaterButanol(benchmark::State& st) {
  peq::Session s = Binary(kWater, kButanol, 1325.32682, 253.641818, 0.4447);
  std::string msg;
  for (auto _ : st) {
    double T = 0, a = 0, b = 0;
    int16_t K = 0;
    benchmark::DoNotOptimize(peq::GapRange(s, 101.325, 340.0, 390.0, T, a, b, K, msg));
    benchmark::DoNotOptimize(T);
  }
}
BENCHMARK(BM_GapRangeWaterButanol)->Unit(benchmark::kMicrosecond);

// One point of the 2nd-derivative curve: GMFor order 2 for NRTL at a moving x2.
void BM_GMForOrder2NRTL(benchmark::State& st) {
  peq::Session s = Binary(kEthanol, kWater, -29.166654, 624.867622, 0.2937);
  double P[4];
  int16_t err = 0;
  peq::GMForParams(s, 343.15, 1, 2, P, err);
  double x = 0.0;
  for (auto _ : st) {
    x += 0.001;
    if (x >= 1.0) x = 0.001;
    benchmark::DoNotOptimize(peq::GMFor(s, 2, x, P[0], P[1], P[2], P[3]));
  }
}
BENCHMARK(BM_GMForOrder2NRTL);

void BM_GMForOrder6NRTL(benchmark::State& st) {
  peq::Session s = Binary(kEthanol, kWater, -29.166654, 624.867622, 0.2937);
  double P[4];
  int16_t err = 0;
  peq::GMForParams(s, 343.15, 1, 2, P, err);
  double x = 0.0;
  for (auto _ : st) {
    x += 0.001;
    if (x >= 1.0) x = 0.001;
    benchmark::DoNotOptimize(peq::GMFor(s, 6, x, P[0], P[1], P[2], P[3]));
  }
}
BENCHMARK(BM_GMForOrder6NRTL);

}  // namespace
