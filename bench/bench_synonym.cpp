// The synonym search over the bundled SYNOM.TXT: a hit near the start, a hit near the end,
// and a name that is not there (the whole file read), each as one Return in the substance
// window costs it (normalisation, rewriting, the scan).
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "session/codepage.h"
#include "substances/synonym.h"

namespace {

const std::string& DataDir() {
  static const std::string dir = (std::filesystem::path(PEQ_SOURCE_DIR) / "data").string();
  return dir;
}

void Search(benchmark::State& state, const char* typed) {
  for (auto _ : state) {
    std::string name = peq::BlankEntfernen(peq::NameNormieren(typed));
    std::string cas, line;
    bool missing = false;
    peq::SynonymSuchen(name, DataDir(), cas, line, missing, nullptr);
    if (missing) state.SkipWithError("SYNOM.TXT not found");
    benchmark::DoNotOptimize(cas);
  }
}

void BM_SynonymSuchen_Stickstoff(benchmark::State& state) { Search(state, "Stickstoff"); }
void BM_SynonymSuchen_Essigsaeure(benchmark::State& state) { Search(state, "Essigsäure"); }
void BM_SynonymSuchen_WholeFileNoHit(benchmark::State& state) { Search(state, "no such substance"); }

BENCHMARK(BM_SynonymSuchen_Stickstoff)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SynonymSuchen_Essigsaeure)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_SynonymSuchen_WholeFileNoHit)->Unit(benchmark::kMicrosecond);

}  // namespace
