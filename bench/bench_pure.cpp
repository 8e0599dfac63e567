// Pure-component properties: VapPressure per equation code, AllPureProps for 2 and 10 components
// with the virial vapour model (the call the equilibrium kernel makes at every T change).
#include <benchmark/benchmark.h>

#include <string>

#include "../tests/models/pure_fixtures.h"
#include "models/liquid.h"
#include "models/pureprops.h"
#include "models/vappressure.h"
#include "models/virial.h"

namespace {

namespace pf = peqtest::pure;

// A few temperatures inside the ranges of the equations, so that no call repeats the one before.
constexpr double kTs[] = {300.0, 312.5, 325.0, 337.5, 350.0, 362.5, 375.0, 387.5};
constexpr int kNT = sizeof(kTs) / sizeof(kTs[0]);

void VapPressureByCode(benchmark::State& state, const char* code, bool withE) {
  peq::Session s;
  pf::Make(s, {"Benzene"}, code);
  s.ParAHP[1] = s.ParALP[1];
  if (withE) s.ParFRO[1][5] = 200.0f;  // the implicit FROST form: Newton on p
  std::string c = code;
  int16_t dT = 0;
  int k = 0;
  for (auto _ : state) {
    const float p = peq::VapPressure(s, 1, kTs[k], c, false, dT);
    benchmark::DoNotOptimize(p);
    k = (k + 1) % kNT;
  }
}
BENCHMARK_CAPTURE(VapPressureByCode, ALP, "ALP", false);
BENCHMARK_CAPTURE(VapPressureByCode, AHP, "AHP", false);
BENCHMARK_CAPTURE(VapPressureByCode, FRO, "FRO", false);
BENCHMARK_CAPTURE(VapPressureByCode, FRO_with_E, "FRO", true);
BENCHMARK_CAPTURE(VapPressureByCode, WAG, "WAG", false);
BENCHMARK_CAPTURE(VapPressureByCode, THO, "THO", false);
BENCHMARK_CAPTURE(VapPressureByCode, AUG, "AUG", false);

// A mixture of n components from the ten liquids, equations ALP, WAG, FRO in turn, virial vapour.
void MakeMixture(peq::Session& s, int n) {
  peq::AllocSession(s, n);
  s.NKomp = static_cast<int16_t>(n);
  const char* codes[] = {"ALP", "WAG", "FRO"};
  for (int i = 1; i <= n; ++i) {
    pf::Fill(s, i, pf::Find(pf::kTen[(i - 1) % 10]));
    pf::SetAugust(s, i);
    s.P0Eq[i] = codes[(i - 1) % 3];
  }
  int16_t err = 0;
  peq::PairCrit(s, err);
  s.VapModel = 1;
}

void AllPurePropsVirial(benchmark::State& state) {
  peq::Session s;
  MakeMixture(s, static_cast<int>(state.range(0)));
  int16_t err = 0, dT = 0;
  int k = 0;
  peq::AllPureProps(s, kTs[0], err, dT);  // sizes the work arrays once
  if (err != 0) state.SkipWithError("AllPureProps reports an error at the first T");
  for (auto _ : state) {
    peq::AllPureProps(s, kTs[k], err, dT);
    benchmark::DoNotOptimize(err);
    benchmark::DoNotOptimize(s.Phi0.data());
    k = (k + 1) % kNT;
  }
}
BENCHMARK(AllPurePropsVirial)->Arg(2)->Arg(10);

// The parts of AllPureProps, for 10 components.
void AllP0Part(benchmark::State& state) {
  peq::Session s;
  MakeMixture(s, static_cast<int>(state.range(0)));
  int16_t bad = 0, dT = 0;
  int k = 0;
  for (auto _ : state) {
    peq::AllP0(s, kTs[k], bad, dT);
    benchmark::DoNotOptimize(s.P0.data());
    k = (k + 1) % kNT;
  }
}
BENCHMARK(AllP0Part)->Arg(10);

void LiquidVolumesPart(benchmark::State& state) {
  peq::Session s;
  MakeMixture(s, static_cast<int>(state.range(0)));
  peq::Vec<int16_t> dT(static_cast<std::size_t>(s.NKomp) + 1);
  int16_t ok = 0;
  int k = 0;
  for (auto _ : state) {
    peq::LiquidVolumes(s, kTs[k], dT, ok);
    benchmark::DoNotOptimize(s.VLiq.data());
    k = (k + 1) % kNT;
  }
}
BENCHMARK(LiquidVolumesPart)->Arg(10);

void SecondVirialPart(benchmark::State& state) {
  peq::Session s;
  MakeMixture(s, static_cast<int>(state.range(0)));
  int k = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(peq::SecondVirial(s, kTs[k]));
    k = (k + 1) % kNT;
  }
}
BENCHMARK(SecondVirialPart)->Arg(10);

void Phi0Part(benchmark::State& state) {
  peq::Session s;
  MakeMixture(s, static_cast<int>(state.range(0)));
  int16_t bad = 0, dT = 0;
  peq::AllP0(s, 350.0, bad, dT);
  peq::SecondVirial(s, 350.0);
  int k = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(peq::CalcPhi0(s, kTs[k]));
    k = (k + 1) % kNT;
  }
}
BENCHMARK(Phi0Part)->Arg(10);

}  // namespace
