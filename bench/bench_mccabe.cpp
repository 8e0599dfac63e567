// The McCabe-Thiele design of a 30-plate column: RR(min) and the plate stepping on the dew
// points of an ideal binary with constant relative volatility 2 (x2 0.98 top, 0.5 feed, 0.02
// bottom, RR 2: 31 plates), once with the straight and once with the curved upper line (E = 40).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "distillation/mccabe.h"
#include "session/session.h"

namespace {

peq::Session KonstantesAlpha() {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  const double A = 6.0, B = 1200.0, C = 220.0;
  for (int i = 1; i <= 2; ++i) {
    s.StoffData[i].Name = i == 1 ? "heavy" : "light";
    s.MolMasse[i] = i == 1 ? 92.14f : 78.11f;
    s.TKrit[i] = i == 1 ? 591.75f : 562.05f;
    s.PKrit[i] = i == 1 ? 4108.0f : 4895.0f;
    s.Omega[i] = 0.25f;
    s.ParALP[i].A = static_cast<float>(A + (i == 2 ? std::log10(2.0) : 0.0));
    s.ParALP[i].B = static_cast<float>(B);
    s.ParALP[i].C = static_cast<float>(C);
    s.ParALP[i].TLo = 200;
    s.ParALP[i].THi = 700;
    s.P0Eq[i] = "ALP";
    s.ParRho[i][1] = 850.0f;
    s.ParRho[i][8] = s.TKrit[i];
    s.ParRho[i].TLo = 150;
    s.ParRho[i].THi = 600;
    s.TKritMax = std::max(s.TKritMax, double(s.TKrit[i]));
  }
  s.GEModel = 0;
  s.VapModel = 0;
  s.IsoArt = 2;
  return s;
}

void BM_McCabeThiele(benchmark::State& state, bool kurve) {
  peq::Session s = KonstantesAlpha();
  peq::ThieleDaten d;
  d.XKopf = 0.98f;
  d.XFeed = 0.5f;
  d.XSumpf = 0.02f;
  d.RR = 2.0f;
  d.MitHLV = kurve ? -1 : 0;
  d.EnthFaktor = kurve ? 40.0f : peq::kEnthFaktorGerade;
  std::vector<float> xs, ys;
  xs.reserve(peq::kMaxStufenPunkte + 3);
  ys.reserve(peq::kMaxStufenPunkte + 3);
  int platten = 0;
  for (auto _ : state) {
    peq::Betriebsgeraden(d);
    int16_t f = 0;
    benchmark::DoNotOptimize(peq::RRMin(s, d, f));
    benchmark::DoNotOptimize(peq::StufenZeichnen(s, d, xs, ys));
    platten = d.BoedenOben + d.BoedenUnten;
  }
  state.counters["plates"] = platten;
}

BENCHMARK_CAPTURE(BM_McCabeThiele, straight, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_McCabeThiele, curved, true)->Unit(benchmark::kMicrosecond);

}  // namespace
