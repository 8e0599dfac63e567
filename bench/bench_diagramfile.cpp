// The diagram file of the 2D document: a full diagram of 24 curves of 2500 points each (with
// their KurvenZ rows) written to a file and read back, as "Save" and "Load" of the window do.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "diagrams/diagram2d_file.h"

namespace {

peq::Graph2DDoc Full() {
  peq::Graph2DDoc d;
  for (int c = 0; c < peq::kMaxKurven; ++c) {
    peq::Kurve k(2501);
    k[0].x = 2500;
    k[0].z = -1;
    for (int i = 1; i <= 2500; ++i) {
      const float x = static_cast<float>(i) / 2500.0f;
      k[static_cast<std::size_t>(i)] = peq::KurvenPunkt{30.0f + 40.0f * std::sin(3.0f * x + 0.1f * c), x, 300.0f + c};
    }
    int16_t slot = 0;
    bool full = false;
    peq::DrawCurve(d, k, slot, full, nullptr);
  }
  return d;
}

std::string File() {
  return (std::filesystem::temp_directory_path() / ("peqbench-" + std::to_string(::getpid()) + ".oc2")).string();
}

void BM_Diagramm2DSpeichern_24x2500(benchmark::State& state) {
  const peq::Graph2DDoc d = Full();
  const std::string f = File();
  std::string err;
  for (auto _ : state)
    if (!peq::Diagramm2DSpeichern(d, f, err)) state.SkipWithError(err.c_str());
  std::filesystem::remove(f);
}

void BM_Diagramm2DLaden_24x2500(benchmark::State& state) {
  const std::string f = File();
  std::string err;
  if (!peq::Diagramm2DSpeichern(Full(), f, err)) state.SkipWithError(err.c_str());
  peq::Graph2DDoc d;
  for (auto _ : state)
    if (!peq::Diagramm2DLaden(f, d, err)) state.SkipWithError(err.c_str());
  std::filesystem::remove(f);
}

BENCHMARK(BM_Diagramm2DSpeichern_24x2500)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Diagramm2DLaden_24x2500)->Unit(benchmark::kMillisecond);

}  // namespace
