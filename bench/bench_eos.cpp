// Cubic equations of state: EOSSolve with and without a start root, the mixing rules, the
// fugacity coefficients and the pure saturation pressure (Peng-Robinson, n-hexane/benzene and
// a ten-component mixture).
#include <benchmark/benchmark.h>

#include <cmath>

#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_sat.h"
#include "models/eos_solve.h"
#include "session/session.h"

namespace {

struct Crit {
  double tc, pc, w;
};
// n-hexane, benzene, toluene, ethanol, methanol, acetone, water, 2-propanol, cyclohexane,
// methyl acetate (critical data of the shared pure-component table).
constexpr Crit kCrit[10] = {{507.6, 3025, 0.2975}, {562.05, 4895, 0.212}, {591.75, 4108, 0.257},
                            {514, 6137, 0.635},    {512.5, 8084, 0.559},  {508.1, 4700, 0.309},
                            {647.096, 22064, 0.344}, {508.3, 4764, 0.665}, {553.8, 4080, 0.213},
                            {506.5, 4750, 0.32}};

peq::Session Mixture(int n, int model, int rule) {
  peq::Session s;
  s.NKomp = static_cast<int16_t>(n);
  peq::AllocSession(s, n);
  for (int i = 1; i <= n; ++i) {
    s.TKrit[i] = static_cast<float>(kCrit[i - 1].tc);
    s.PKrit[i] = static_cast<float>(kCrit[i - 1].pc);
    s.Omega[i] = static_cast<float>(kCrit[i - 1].w);
    s.MolMasse[i] = 50.0f;
    s.StoffData[i].RUniquac = static_cast<float>(1.0 + 0.3 * i);
    s.StoffData[i].QUniquac = static_cast<float>(1.1 + 0.2 * i);
  }
  for (int i = 1; i < n; ++i)
    for (int j = i + 1; j <= n; ++j) {
      if (rule < 5) {
        s.GEPar(1, i, j) = 0.01 * ((i + j) % 5);  // k(ij) of a
      } else {
        s.GEPar(1, i, j) = 100.0 + 20.0 * i;  // P12 in K
        s.GEPar(2, j, i) = 300.0 - 10.0 * j;  // P21 (L4)
        s.GEPar(3, j, i) = 0.3;               // alpha (L7)
      }
    }
  s.EOSModel = static_cast<int16_t>(model);
  s.MixRule = static_cast<int16_t>(rule);
  s.GEModelEOS = 2;
  int16_t err = 0;
  peq::EOSSetPure(s, model, err);
  return s;
}

peq::Vec<double> Composition(int n) {
  peq::Vec<double> x(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) x[i] = 1.0 / n;
  return x;
}

// Liquid and vapour states of the hexane/benzene PR cubic at 360 K near its bubble pressure.
void BM_EOSSolve(benchmark::State& state) {
  const bool withStart = state.range(0) != 0;
  peq::Session s = Mixture(2, 5, 2);
  const double T = 360.0, p = 150.0;
  peq::EOSMixPar m;
  m.Alloc(3);
  peq::EOSMixAtT(s, T, 5, 2, 0, false);
  peq::EOSMixAtX(s, 0, Composition(2), T, 5, 2, 0, m);
  peq::EOSRoots r{};
  int16_t nr = 0, err = 0;
  peq::EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, r, nr, err);
  const double vL = peq::LiquidRoot(r);
  // A curve walk hands on the root of the previous point: start 0.5 % away.
  const double start = withStart ? vL * 1.005 : 0.0;
  for (auto _ : state) {
    peq::EOSSolve(T, p, start, m.a, m.b, m.c, m.d, r, nr, err);
    benchmark::DoNotOptimize(r.data());
  }
  if (err != 0) state.SkipWithError("EOSSolve failed");
}
BENCHMARK(BM_EOSSolve)->Arg(0)->Arg(1)->ArgNames({"start"});

void BM_EOSMixAtX(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const int rule = static_cast<int>(state.range(1));
  peq::Session s = Mixture(n, 5, rule);
  const double T = 360.0;
  peq::EOSMixAtT(s, T, 5, rule, 2, false);
  peq::EOSMixPar m;
  m.Alloc(static_cast<std::size_t>(n) + 1);
  const peq::Vec<double> x = Composition(n);
  for (auto _ : state) {
    peq::EOSMixAtX(s, 0, x, T, 5, rule, 2, m);
    benchmark::DoNotOptimize(m.a);
  }
}
BENCHMARK(BM_EOSMixAtX)->Args({2, 2})->Args({10, 2})->Args({2, 6})->Args({10, 6})->ArgNames({"n", "rule"});

void BM_EOSMixAtT(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  const int rule = static_cast<int>(state.range(1));
  peq::Session s = Mixture(n, 5, rule);
  double T = 360.0;
  for (auto _ : state) {
    peq::EOSMixAtT(s, T, 5, rule, 2, false);
    T = (T == 360.0) ? 360.5 : 360.0;
    benchmark::DoNotOptimize(s.EOSScratch.Pair[0](1, 1));
  }
}
BENCHMARK(BM_EOSMixAtT)->Args({2, 2})->Args({10, 2})->Args({2, 6})->Args({10, 6})->ArgNames({"n", "rule"});

void BM_EOSLnPhiAll(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  peq::Session s = Mixture(n, 5, 2);
  const double T = 360.0, p = 150.0;
  peq::EOSMixPar m;
  m.Alloc(static_cast<std::size_t>(n) + 1);
  peq::EOSMixAtT(s, T, 5, 2, 0, false);
  peq::EOSMixAtX(s, 0, Composition(n), T, 5, 2, 0, m);
  peq::EOSRoots r{};
  int16_t nr = 0, err = 0;
  peq::EOSSolve(T, p, 0.0, m.a, m.b, m.c, m.d, r, nr, err);
  const double v = peq::LiquidRoot(r);
  for (auto _ : state) {
    double sum = 0;
    for (int i = 1; i <= n; ++i) sum += peq::EOSLnPhi(T, p, v, 5, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]);
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(BM_EOSLnPhiAll)->Arg(2)->Arg(10)->ArgNames({"n"});

void BM_EOSPureSatP(benchmark::State& state) {
  const bool withStart = state.range(0) != 0;
  peq::Session s = Mixture(1, 5, 2);
  const double T = 400.0;
  double a, b, c, d;
  peq::EOSPureAtOne(s, 1, T, a, b, c, d);
  peq::EOSSatOut out;
  peq::EOSPureSatP(s, 1, T, 0.0, a, b, c, d, out);
  const double start = withStart ? out.p * 1.01 : 0.0;
  for (auto _ : state) {
    peq::EOSPureSatP(s, 1, T, start, a, b, c, d, out);
    benchmark::DoNotOptimize(out.p);
  }
}
BENCHMARK(BM_EOSPureSatP)->Arg(0)->Arg(1)->ArgNames({"start"});

}  // namespace
