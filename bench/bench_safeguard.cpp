// The safeguarded bubble temperature in the critical region, where its stability test of the
// liquid runs on every answer: methane/ethane with Peng-Robinson, the van der Waals rule and
// k(ij) = 0 at 6500 kPa, a liquid of 0.55 methane started at 246 K with a vapour of 0.7 methane.
// The plain iteration converges there the first time (248.86 K, vapour volume 1.8 times the
// liquid's); the difference between the two benchmarks is the cost of the test.
#include <benchmark/benchmark.h>

#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/eos_pure.h"
#include "session/session.h"

namespace {

// Critical data of the bundled database (data/PEQBASE.Q07).
peq::Session MethaneEthane() {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  const double tc[3] = {0, 190.564, 305.32}, pc[3] = {0, 4599, 4872}, w[3] = {0, 0.008, 0.098},
               mw[3] = {0, 16.043, 30.07};
  for (int i = 1; i <= 2; ++i) {
    s.TKrit[i] = static_cast<float>(tc[i]);
    s.PKrit[i] = static_cast<float>(pc[i]);
    s.Omega[i] = static_cast<float>(w[i]);
    s.MolMasse[i] = static_cast<float>(mw[i]);
    s.TKritMax = std::max(s.TKritMax, tc[i]);
    s.PKritMax = std::max(s.PKritMax, pc[i]);
  }
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  int16_t err = 0;
  peq::EOSSetPure(s, 5, err);
  return s;
}

void BM_BubbleTNearCritical(benchmark::State& state, bool safe) {
  const auto bubble = [safe](auto&&... a) { return safe ? peq::SafeBubbleT(a...) : peq::CalcBubbleT(a...); };
  peq::Session s = MethaneEthane();
  peq::Vec<double> x(3, 0.0), y(3, 0.0);
  x[1] = 0.55;
  x[2] = 0.45;
  y[1] = 0.7;
  y[2] = 0.3;
  double vL = 0, vV = 0, Tin = 246.0;
  int16_t warn = 0;
  const double T = bubble(s, 6500, x, Tin, y, warn, s.KWert, vL, vV);
  if (!(T > 0.0) || !(vV < 2 * vL) || s.Retried != 0) {
    state.SkipWithError("no first-time bubble point in the critical region");
    return;
  }
  for (auto _ : state) {
    Tin = 246.0;
    const double r = bubble(s, 6500, x, Tin, y, warn, s.KWert, vL, vV);
    benchmark::DoNotOptimize(r);
  }
}

}  // namespace

BENCHMARK_CAPTURE(BM_BubbleTNearCritical, plain, false);
BENCHMARK_CAPTURE(BM_BubbleTNearCritical, safeguarded, true);
