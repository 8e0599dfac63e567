// FlashTP of a binary and of a ten-component feed in both concepts: gamma-phi with an ideal
// mixture and the ideal gas, gamma-phi with NRTL and the ideal gas (binary), and Peng-Robinson
// with the van der Waals rule. Each state lies between the bubble and the dew point of the feed.
#include <benchmark/benchmark.h>

#include <string>

#include "engine/flash.h"
#include "engine/kernel.h"
#include "models/eos_pure.h"
#include "models/pureprops.h"
#include "session/session.h"
#include "substances/bank.h"

namespace {

// Ten hydrocarbons of the bundled database (data/PEQBASE.Q07) by CAS-RN: n-butane, isobutane,
// n-pentane, isopentane, n-hexane, cyclohexane, benzene, n-heptane, toluene, n-octane; the binary
// is n-hexane/toluene.
const char* const kTen[10] = {"106-97-8", "75-28-5",  "109-66-0", "78-78-4",  "110-54-3",
                              "110-82-7", "71-43-2",  "142-82-5", "108-88-3", "111-65-9"};
const char* const kTwo[2] = {"110-54-3", "108-88-3"};

enum class Kind { IdealIdeal, NRTLIdeal, PR };

// The mixture loaded as the substance selection loads it, the models committed as "Models OK"
// does. False when the database or a substance is missing.
bool Mixture(peq::Session& s, int n, Kind kind) {
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, std::string(PEQ_SOURCE_DIR) + "/data/PEQBASE.Q07", notFound, empty);
  if (notFound || empty) return false;
  peq::Vec<int16_t> idx(static_cast<std::size_t>(n) + 1, 0);
  for (int i = 1; i <= n; ++i) {
    idx[i] = static_cast<int16_t>(peq::CASSuchen(s, n == 2 ? kTwo[i - 1] : kTen[i - 1]));
    if (idx[i] == 0) return false;
  }
  if (!peq::SelectionCommit(s, n, idx, nullptr)) return false;
  switch (kind) {
    case Kind::IdealIdeal:
      s.GEModel = 0;
      s.VapModel = 0;
      break;
    case Kind::NRTLIdeal:
      // Moderate made-up NRTL parameters (cal/mol, alpha 0.3).
      s.GEModel = 2;
      s.VapModel = 0;
      s.ParUnitNRTL = 1;
      for (int i = 1; i < n; ++i)
        for (int j = i + 1; j <= n; ++j) {
          s.GEPar(1, i, j) = 150.0 + 20.0 * ((i + 2 * j) % 5);
          s.GEPar(2, j, i) = 100.0 - 15.0 * ((3 * i + j) % 4);
          s.GEPar(3, j, i) = 0.3;
        }
      break;
    case Kind::PR:
      s.Konzept = true;
      s.EOSModel = 5;
      s.MixRule = 2;
      break;
  }
  return peq::EOSTabellenBerechnen(s);
}

void BM_FlashTP(benchmark::State& state, Kind kind) {
  const int n = static_cast<int>(state.range(0));
  peq::Session s;
  if (!Mixture(s, n, kind)) {
    state.SkipWithError("the bundled database or a substance is missing");
    return;
  }
  peq::Vec<double> z(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) z[i] = 1.0 / n;
  const double T = 360.0;
  // p half-way between the bubble and the dew pressure of the feed (the dew pressure of the
  // phi-phi concept from FlashTEta at eta(V) = 1).
  const peq::Vec<double> y0(static_cast<std::size_t>(n) + 1, 0.0);
  double vL, vV, pd;
  const double pb = peq::CalcBubbleP(s, T, z, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  if (!s.Konzept) {
    int16_t err = 0, dT = 0;
    peq::AllPureProps(s, T, err, dT);
    pd = peq::CalcDewP(s, T, z);
  } else {
    pd = peq::FlashTEta(s, T, 1.0, z);
  }
  const double p = 0.5 * (pb + pd);
  const double eta = peq::FlashTP(s, T, p, z);
  if (!(pb > 0.0) || !(eta > 0.0 && eta < 1.0)) {
    state.SkipWithError("the state is not in the two-phase region");
    return;
  }
  for (auto _ : state) {
    const double r = peq::FlashTP(s, T, p, z);
    benchmark::DoNotOptimize(r);
  }
  state.counters["eta"] = eta;
}

BENCHMARK_CAPTURE(BM_FlashTP, GammaPhiIdealGas, Kind::IdealIdeal)->Arg(2)->Arg(10)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_FlashTP, GammaPhiNRTLIdealGas, Kind::NRTLIdeal)->Arg(2)->Arg(10)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_FlashTP, PengRobinson, Kind::PR)->Arg(2)->Arg(10)->Unit(benchmark::kMicrosecond);

}  // namespace
