// Experimental data of 10,000 points: the EX5 file loaded into the session (read from disk,
// parsed, the substances compared), the XY file read, and the set of points built for a p-x
// diagram as zeigeExpPunkte does before the chart draws it.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "diagrams/exppunkte.h"
#include "expdata/tpxdaten.h"
#include "expdata/xydaten.h"

namespace {

constexpr int kN = 10000;

std::vector<peq::ExpPunkt> Punkte() {
  std::vector<peq::ExpPunkt> p(kN);
  for (int i = 0; i < kN; ++i) {
    const float x = static_cast<float>(i) / kN;
    p[static_cast<std::size_t>(i)] = peq::ExpPunkt{0, 333.15f, 20.0f + 60.0f * x, x, x * (2.0f - x)};
  }
  return p;
}

peq::Session Paar() {
  peq::Session s;
  s.NKomp = 2;
  s.StoffData.assign(3);
  s.StoffData[1].CasNr = "7732-18-5   ";
  s.StoffData[1].Name = "Water";
  s.StoffData[2].CasNr = "67-56-1     ";
  s.StoffData[2].Name = "Methanol";
  return s;
}

const std::string& Ex5Datei() {
  static const std::string f = [] {
    const std::string path = (std::filesystem::temp_directory_path() / "peqbench_10000.EX5").string();
    const std::vector<peq::ExpPunkt> p = Punkte();
    std::ofstream(path, std::ios::binary) << peq::Ex5Text("7732-18-5", "Water", "67-56-1", "Methanol", "bench",
                                                          "", p.data(), kN);
    return path;
  }();
  return f;
}

void BM_Ex5Laden_10000(benchmark::State& state) {
  const std::string& f = Ex5Datei();
  for (auto _ : state) {
    peq::Session s = Paar();
    if (!peq::ExpDateiLaden(s, false, f, nullptr, nullptr) || s.ExpAnz != kN) state.SkipWithError("load failed");
    benchmark::DoNotOptimize(s.ExpPunkte.data());
  }
}

void BM_XYLesen_10000(benchmark::State& state) {
  peq::Kurve k(1);
  for (const peq::ExpPunkt& p : Punkte()) k.push_back(peq::KurvenPunkt{p.p, p.x2L, 0});
  k[0].x = kN;
  const std::string text = peq::XYText("bench", k, ";");
  for (auto _ : state) {
    peq::Kurve r;
    std::string c, err;
    if (!peq::XYLesen(text, r, c, err)) state.SkipWithError("read failed");
    benchmark::DoNotOptimize(r.data());
  }
}

void BM_ExpSatzBilden_Px_10000(benchmark::State& state) {
  peq::Session s = Paar();
  const std::vector<peq::ExpPunkt> p = Punkte();
  s.ExpPunkte.assign(kN + 1);
  for (int i = 0; i < kN; ++i) s.ExpPunkte[static_cast<std::size_t>(i + 1)] = p[static_cast<std::size_t>(i)];
  s.ExpAnz = kN;
  peq::Graph2DDoc d;
  d.NoDia = 1;
  d.T = 333.15;
  for (auto _ : state) {
    peq::ExpSatz e;
    benchmark::DoNotOptimize(peq::ExpSatzBilden(s, d, e));
  }
}

BENCHMARK(BM_Ex5Laden_10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_XYLesen_10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExpSatzBilden_Px_10000)->Unit(benchmark::kMillisecond);

}  // namespace
