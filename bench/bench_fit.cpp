// The parameter fit: a three-parameter NRTL fit (no T dependence) to 30 T-p-x-y points, in
// process and as the whole LSQRUN.EXE run through the process driver (start, files, answer), and
// a twelve-parameter Redlich-Kister fit (a, b, c of A..D) to 200 points. Data are made by the
// engine from known parameters on ethanol/water of the bundled database, ideal gas.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "companions/fitfiles.h"
#include "companions/fitinput.h"
#include "companions/fitmap.h"
#include "companions/process.h"
#include "engine/safeguard.h"
#include "fitrun.h"
#include "session/session.h"
#include "substances/bank.h"

namespace {

bool EthanolWater(peq::Session& s) {
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, std::string(PEQ_SOURCE_DIR) + "/data/PEQBASE.Q07", notFound, empty);
  if (notFound || empty) return false;
  peq::Vec<int16_t> idx(3, 0);
  idx[1] = static_cast<int16_t>(peq::CASSuchen(s, "64-17-5"));
  idx[2] = static_cast<int16_t>(peq::CASSuchen(s, "7732-18-5"));
  if (idx[1] == 0 || idx[2] == 0) return false;
  if (!peq::SelectionCommit(s, 2, idx, nullptr)) return false;
  s.VapModel = 0;
  return true;
}

std::vector<peq::FitPunkt> Points(peq::Session& s, int nT, int nx) {
  std::vector<peq::FitPunkt> pts;
  peq::Vec<double> x(3, 0.0), y0(3, 0.0), g(3, 0.0), phik(3, 0.0), K(3, 0.0);
  for (int a = 0; a < nT; ++a)
    for (int b = 0; b < nx; ++b) {
      const double T = 330.0 + 40.0 * a / std::max(nT - 1, 1);
      const double x2 = 0.03 + 0.94 * b / (nx - 1);
      x[1] = 1 - x2;
      x[2] = x2;
      double vL = 0, vV = 0;
      const double p = peq::SafeBubbleP(s, T, x, 0.0, y0, g, phik, K, vL, vV);
      if (p > 0) pts.push_back({T, p, x2, s.YGas[2], false});
    }
  return pts;
}

peq::FitTabelle Table(bool nrtl) {
  peq::FitTabelle t;
  for (int g = 0; g < 4; ++g) {
    const std::size_t a = static_cast<std::size_t>(3 * g);
    t.Start[a] = nrtl ? 500.0f : 1.0f;
    t.Unten[a] = nrtl ? -5000.0f : -1000.0f;
    t.Oben[a] = nrtl ? 5000.0f : 1000.0f;
    t.Unten[a + 1] = nrtl ? -500.0f : -1000.0f;
    t.Oben[a + 1] = nrtl ? 500.0f : 1000.0f;
    t.Unten[a + 2] = nrtl ? -1.0f : -1000.0f;
    t.Oben[a + 2] = nrtl ? 1.0f : 1000.0f;
  }
  if (nrtl) {
    t.Start[6] = 0.3f;
    t.Unten[6] = -1.5f;
    t.Oben[6] = 1.5f;
  } else {
    t.Start[3] = 0.1f;
    t.Start[6] = 0.01f;
    t.Start[9] = 0.01f;
  }
  return t;
}

// TO_FIT.DAT of the NRTL case: 3 T x 10 x2, par12 -50 K, par21 600 K, alpha 0.35.
std::string NrtlToFit() {
  peq::Session s;
  if (!EthanolWater(s)) return {};
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  peq::SetGESlot(s, 1, 1, 2, -50);
  peq::SetGESlot(s, 4, 1, 2, 600);
  peq::SetGESlot(s, 7, 1, 2, 0.35);
  peq::FitTabelle t = Table(true);
  peq::OhneTAbhAnwenden(t);
  return peq::ToFitText(s, t, 1, Points(s, 3, 10));
}

// TO_FIT.DAT of the Redlich-Kister case: 10 T x 20 x2, every slot free.
std::string RkToFit() {
  peq::Session s;
  if (!EthanolWater(s)) return {};
  s.GEModel = 4;
  const double L[12] = {1.2, 40, -0.05, 0.3, -20, 0.02, 0.1, 5, -0.01, 0.05, 2, -0.005};
  for (int k = 0; k < 12; ++k) peq::SetGESlot(s, k + 1, 1, 2, L[k]);
  return peq::ToFitText(s, Table(false), 1, Points(s, 10, 20));
}

void BM_FitNrtl3Par30Points(benchmark::State& st) {
  const std::string text = NrtlToFit();
  if (text.empty()) {
    st.SkipWithError("bundled database missing");
    return;
  }
  long evals = 0;
  for (auto _ : st) {
    peq::FitAufgabe task;
    peq::ReadFitAufgabe(text, false, task);
    const lsqrun::FitErgebnis e = lsqrun::FitLoesen(task);
    evals = e.Auswertungen;
    benchmark::DoNotOptimize(e.Zielfunktion);
  }
  st.counters["evaluations"] = static_cast<double>(evals);
}
BENCHMARK(BM_FitNrtl3Par30Points)->Unit(benchmark::kMillisecond);

void BM_LsqrunProcessNrtl3Par30Points(benchmark::State& st) {
  const std::string text = NrtlToFit();
  const std::string dir = (std::filesystem::temp_directory_path() / "peqbench_lsqrun").string();
  std::filesystem::create_directories(dir);
  std::ofstream(dir + "/" + peq::kToFit, std::ios::binary) << text;
  const std::string prog = std::string(PEQ_BINARY_DIR) + "/" + peq::kLsqrun;
  for (auto _ : st) {
    std::error_code ec;
    std::filesystem::remove(dir + "/" + peq::kFromFit, ec);
    std::string err;
    int code = -1;
    if (peq::RunCompanion(prog, dir, peq::kLsqrunLimitMs, err, code) != peq::CompanionOutcome::Ok) {
      st.SkipWithError(("LSQRUN.EXE failed: " + err).c_str());
      break;
    }
  }
  std::filesystem::remove_all(dir);
}
BENCHMARK(BM_LsqrunProcessNrtl3Par30Points)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_FitRedlichKister12Par200Points(benchmark::State& st) {
  const std::string text = RkToFit();
  if (text.empty()) {
    st.SkipWithError("bundled database missing");
    return;
  }
  long evals = 0;
  double obj = 0;
  for (auto _ : st) {
    peq::FitAufgabe task;
    peq::ReadFitAufgabe(text, false, task);
    const lsqrun::FitErgebnis e = lsqrun::FitLoesen(task);
    evals = e.Auswertungen;
    obj = e.Zielfunktion;
    benchmark::DoNotOptimize(obj);
  }
  st.counters["evaluations"] = static_cast<double>(evals);
  st.counters["objective"] = obj;
}
BENCHMARK(BM_FitRedlichKister12Par200Points)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
