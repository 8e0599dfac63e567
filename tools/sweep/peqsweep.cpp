// peqsweep: draws random states (seeded, reproducible state by state) over every model
// combination of the bundled examples and a set of hard mixtures, runs the routines of the
// engine on each and counts per routine: calls, successes, failure values, trivial answers
// (liquid and vapour identical returned as a result), non-finite values (in a returned value or
// in the session's result arrays) and the slowest call. Prints the table in Markdown.
//
//   peqsweep [--states N] [--seed S] [--first K] [--max-call-ms MS] [--hang-s S]
//            [--report-every N] [--verbose]
// --report-every N prints the table of the states so far after every N states.
//
// Exit code 0; 1 when a non-finite value appeared or (with --max-call-ms) a call took longer;
// 3 when a call hung past --hang-s (default 60 s); 64 bad usage. A crash or a sanitizer report
// ends the process after naming the state and the routine, so that it can be run again alone
// with --first K --states 1.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "engine/azeotrope.h"
#include "engine/excess.h"
#include "engine/flash.h"
#include "engine/gap.h"
#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "engine/singlecalc.h"
#include "models/activity.h"
#include "models/eos_pure.h"
#include "models/pureprops.h"
#include "session/loadpath.h"
#include "session/session.h"
#include "session_check.h"
#include "substances/bank.h"
#include "substances/unifacfiles.h"

namespace fs = std::filesystem;
using peq::Session;
using peq::Vec;

extern "C" void __sanitizer_set_death_callback(void (*)(void)) __attribute__((weak));

namespace {

// ---- What runs now, for the crash and hang reports ----

volatile const char* gRoutine = "start";
volatile std::int64_t gState = -1;
volatile const char* gCase = "";

void WriteText(const char* t) {
  const ssize_t r = write(2, t, std::strlen(t));
  (void)r;
}

void ReportWhere(const char* what) {
  char num[32];
  std::snprintf(num, sizeof num, "%lld", static_cast<long long>(gState));
  WriteText("\npeqsweep: ");
  WriteText(what);
  WriteText(" in state ");
  WriteText(num);
  WriteText(", routine ");
  WriteText(const_cast<const char*>(gRoutine));
  WriteText(", case ");
  WriteText(const_cast<const char*>(gCase));
  WriteText("\n");
}

void OnDeath() { ReportWhere("sanitizer report"); }

void OnSignal(int sig) {
  ReportWhere(sig == SIGALRM ? "hang" : "crash");
  if (sig == SIGALRM) _exit(3);
  std::signal(sig, SIG_DFL);
  std::raise(sig);
}

// ---- Mixtures and model combinations ----

struct Mixture {
  std::string name;
  Session s;  // loaded, models not yet committed
  bool modOK = false, unifOK = false;
};

struct Case {
  std::string label;
  Session s;  // committed and primed
};

std::string ModelLabel(const Session& s) {
  if (s.Konzept)
    return "EOS " + std::to_string(s.EOSModel) + " mix " + std::to_string(s.MixRule) +
           (s.MixRule > 4 ? " gE " + std::to_string(s.GEModelEOS) : "");
  return "gE " + std::to_string(s.GEModel) + " vap " + std::to_string(s.VapModel);
}

// "Models OK" for the models set in s; false when the model window would refuse them.
bool Commit(Session& s, const Mixture& m) {
  if (!s.Konzept && s.GEModel == 20 && !m.modOK) return false;
  if (!s.Konzept && s.GEModel == 21 && !m.unifOK) return false;
  if (s.Konzept && (s.TKritMax < 1e-6 || s.PKritMax < 1e-6)) return false;
  if (!peq::EOSTabellenBerechnen(s)) return false;
  s.ModelleOffen = false;
  // A first call reads the group tables, so that the copies of the session do not read them.
  const int n = s.NKomp;
  Vec<double> x(static_cast<std::size_t>(n + 1), 1.0 / n), g(static_cast<std::size_t>(n + 1), 1.0);
  int16_t err = 0;
  if (!s.Konzept) peq::ActivityCoeffs(s, 298.15, x, g, err);
  return true;
}

std::vector<Case> MakeCases(std::vector<Mixture>& mixtures) {
  std::vector<Case> cases;
  for (Mixture& m : mixtures) {
    // gamma-phi: every gE model with every vapour model.
    for (int16_t ge : {0, 1, 2, 4, 9, 20, 21})
      for (int16_t vap = 0; vap <= 5; ++vap) {
        Session s = m.s;
        s.Konzept = false;
        s.GEModel = ge;
        s.VapModel = vap;
        if (Commit(s, m)) cases.push_back(Case{m.name + ", " + ModelLabel(s), std::move(s)});
      }
    // phi-phi: every equation with the van der Waals rule and both gE rules with each gE model.
    for (int16_t eos : {3, 4, 5, 6})
      for (int16_t rule : {2, 5, 6})
        for (int16_t ge : {1, 2, 9}) {
          if (rule == 2 && ge != 1) continue;
          Session s = m.s;
          s.Konzept = true;
          s.EOSModel = eos;
          s.MixRule = rule;
          s.GEModelEOS = ge;
          if (Commit(s, m)) cases.push_back(Case{m.name + ", " + ModelLabel(s), std::move(s)});
        }
  }
  return cases;
}

Session StartSession(const std::string& progDir) {
  Session s;
  s.PfadBank = progDir;
  peq::ChooseUnifacFiles(progDir, s.ModUnifFile, s.OUnifFile);
  return s;
}

bool FromProject(const std::string& progDir, const fs::path& file, Mixture& m) {
  m.s = StartSession(progDir);
  peq::MsgSink msgs;
  if (peq::ProjektLaden(m.s, file.string(), &msgs) != peq::LoadStage::Loaded) return false;
  m.name = file.stem().string();
  return true;
}

bool FromCas(const std::string& progDir, const std::string& name, const std::vector<std::string>& cas,
             Mixture& m) {
  m.s = StartSession(progDir);
  bool nf = false, empty = false;
  peq::BankOeffnen(m.s, "PEQBASE.Q07", nf, empty);
  if (nf || empty) return false;
  const int n = static_cast<int>(cas.size());
  Vec<int16_t> idx(static_cast<std::size_t>(n + 1), 0);
  for (int i = 1; i <= n; ++i) {
    const int place = peq::CASSuchen(m.s, cas[static_cast<std::size_t>(i - 1)]);
    if (place == 0) return false;
    idx[static_cast<std::size_t>(i)] = static_cast<int16_t>(place);
  }
  peq::MsgSink msgs;
  if (!peq::SelectionCommit(m.s, n, idx, &msgs)) return false;
  m.name = name;
  return true;
}

// ---- The table ----

struct Row {
  const char* name;
  std::int64_t calls = 0, ok = 0, fail = 0, trivial = 0, nonFinite = 0;
  double slowest = 0;  // seconds
  std::int64_t slowestState = -1;
};

enum RoutineId {
  kPure, kGamma, kBubbleP, kBubbleT, kDewP, kDewT, kFlashTP, kFlashPEta, kFlashTEta, kExcessGE, kExcessT,
  kExcessCp, kGM2Zeros, kBinodal, kGapRange, kAzeotrope, kSingleCalc, kSafeBubbleP, kSafeBubbleT, kSafeDewT,
  kSafeFlashTP, kSafeFlashPEta, kSafeFlashTEta, kRoutines
};
const char* const kRoutineNames[kRoutines] = {
    "AllPureProps", "ActivityCoeffs", "CalcBubbleP", "CalcBubbleT", "CalcDewP", "CalcDewT",
    "FlashTP", "FlashPEta", "FlashTEta", "ExcessGE", "ExcessT", "ExcessCp", "FindGM2Zeros",
    "Binodal", "GapRange", "IsBinaerAzeotrop", "SingleCalc", "SafeBubbleP", "SafeBubbleT", "SafeDewT",
    "SafeFlashTP", "SafeFlashPEta", "SafeFlashTEta"};

struct Sweep {
  std::vector<Row> rows;
  int hangSeconds = 60;
  bool verbose = false;
  std::int64_t state = 0;
  std::string caseLabel;
  Sweep() {
    for (const char* n : kRoutineNames) rows.push_back(Row{n});
  }

  // Runs f (which returns +1 success, 0 failure value, 2 trivial answer), times it and checks
  // the returned values and the session's result arrays.
  template <class F>
  void Call(RoutineId id, const Session& s, F&& f) {
    Row& r = rows[id];
    gRoutine = r.name;
    alarm(static_cast<unsigned>(hangSeconds));
    const auto t0 = std::chrono::steady_clock::now();
    double value = 0;
    const int res = f(value);
    const double dt = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    alarm(0);
    ++r.calls;
    if (res == 0)
      ++r.fail;
    else
      ++r.ok;
    if (res == 2) ++r.trivial;
    if (dt > r.slowest) {
      r.slowest = dt;
      r.slowestState = state;
    }
    std::string where = std::isfinite(value) ? peq::check::FirstNonFiniteResult(s) : std::string("returned value");
    if (!where.empty()) {
      ++r.nonFinite;
      std::cerr << "peqsweep: non-finite " << where << " after " << r.name << " in state " << state << " ("
                << caseLabel << ")\n";
    }
  }
};

// ---- Random states ----

struct Draw {
  std::mt19937_64 rng;
  explicit Draw(std::uint64_t seed) : rng(seed) {}
  double U() { return std::uniform_real_distribution<double>(0.0, 1.0)(rng); }
  int Int(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng); }

  // A composition of n components: sometimes a pure component (exact 0 and 1), sometimes some
  // components exactly 0, otherwise all present.
  void Composition(int n, Vec<double>& x) {
    for (int i = 1; i <= n; ++i) x[static_cast<std::size_t>(i)] = 0;
    const double kind = U();
    if (kind < 0.15) {
      x[static_cast<std::size_t>(Int(1, n))] = 1;
      return;
    }
    double sum = 0;
    for (int i = 1; i <= n; ++i) {
      if (kind < 0.4 && U() < 0.4) continue;
      const double v = -std::log(1.0 - U());
      x[static_cast<std::size_t>(i)] = v;
      sum += v;
    }
    if (sum <= 0) {
      x[static_cast<std::size_t>(Int(1, n))] = 1;
      return;
    }
    for (int i = 1; i <= n; ++i) x[static_cast<std::size_t>(i)] /= sum;
  }
};

std::uint64_t StateSeed(std::uint64_t seed, std::int64_t k) {
  std::uint64_t z = seed * 0x9E3779B97F4A7C15ULL + static_cast<std::uint64_t>(k) + 1;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
  return z ^ (z >> 31);
}

// Largest difference of two compositions over 1..n; the phases are taken as identical below 1E-7.
bool Identical(int n, const Vec<double>& a, const Vec<double>& b) {
  double sa = 0, sb = 0;
  for (int i = 1; i <= n; ++i) {
    sa += a[static_cast<std::size_t>(i)];
    sb += b[static_cast<std::size_t>(i)];
  }
  if (!(sa > 0) || !(sb > 0)) return false;
  for (int i = 1; i <= n; ++i)
    if (std::fabs(a[static_cast<std::size_t>(i)] / sa - b[static_cast<std::size_t>(i)] / sb) > 1e-7) return false;
  return true;
}

// The components present in x. The UNIFAC models write 1E-10 for an absent component into the
// composition they are given, so a fraction counts only from 1E-8 up: a pure component with
// such a trace is not a mixture whose phases could be told apart.
int Present(int n, const Vec<double>& x) {
  int k = 0;
  for (int i = 1; i <= n; ++i)
    if (x[static_cast<std::size_t>(i)] >= 1e-8) ++k;
  return k;
}

const int16_t kDiaCodes[] = {1,   3,   250, 6,   4,   5,   51,  7,   8,   82,  81,  83,  9,   10,  11,  181, 182,
                             183, 110, 111, 112, 113, 114, 115, 116, 120, 121, 122, 123, 124, 125, 126, 15,  16, 17};

void RunState(Sweep& sw, const Case& c, Draw& d) {
  Session s = c.s;
  const int n = s.NKomp;
  const std::size_t sz = static_cast<std::size_t>(n + 1);
  Vec<double> x(sz, 0.0), y(sz, 0.0), z(sz, 0.0), y0(sz, 0.0), g(sz, 0.0);
  const double T = 50.0 + 950.0 * d.U();
  const double p = std::pow(10.0, -3.0 + 8.0 * d.U());
  const double eKind = d.U();
  const double eta = eKind < 0.05 ? 0.0 : eKind < 0.1 ? 1.0 : d.U();
  d.Composition(n, x);
  d.Composition(n, y);
  d.Composition(n, z);
  const int16_t code = kDiaCodes[d.Int(0, static_cast<int>(sizeof kDiaCodes / sizeof kDiaCodes[0]) - 1)];
  int16_t k1 = 1, k2 = 2;
  if (n > 2) {
    k1 = static_cast<int16_t>(d.Int(1, n));
    do k2 = static_cast<int16_t>(d.Int(1, n));
    while (k2 == k1);
  }
  const double xval = d.U() < 0.1 ? (d.U() < 0.5 ? 0.0 : 1.0) : d.U();
  const int16_t isoArt = static_cast<int16_t>(d.Int(1, 2));
  const double tRange = 5.0 + 200.0 * d.U();

  sw.Call(kPure, s, [&](double& v) {
    int16_t err = 0, dT = 0;
    peq::AllPureProps(s, T, err, dT);
    v = 0;
    return err == 0 ? 1 : 0;
  });
  if (!s.Konzept)
    sw.Call(kGamma, s, [&](double& v) {
      int16_t err = 0;
      peq::ActivityCoeffs(s, T, x, g, err);
      v = 0;
      for (int i = 1; i <= n && err == 0; ++i) v += g[static_cast<std::size_t>(i)];
      return err == 0 ? 1 : 0;
    });
  sw.Call(kBubbleP, s, [&](double& v) {
    double vL = 0, vV = 0;
    v = peq::CalcBubbleP(s, T, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    if (!(v > 0)) return 0;
    return Present(n, x) > 1 && Identical(n, x, s.YGas) ? 2 : 1;
  });
  sw.Call(kBubbleT, s, [&](double& v) {
    double Tb = 0, vL = 0, vV = 0;
    int16_t warn = 0;
    v = peq::CalcBubbleT(s, p, x, Tb, y0, warn, s.KWert, vL, vV);
    if (!(v > 0)) return 0;
    return Present(n, x) > 1 && Identical(n, x, s.YGas) ? 2 : 1;
  });
  if (!s.Konzept) {
    sw.Call(kDewP, s, [&](double& v) {
      int16_t err = 0, dT = 0;
      peq::AllPureProps(s, T, err, dT);
      v = 0;
      if (err != 0 && err != 3 && err != 4) return 0;
      v = peq::CalcDewP(s, T, y);
      if (!(v > 0)) return 0;
      return Present(n, y) > 1 && Identical(n, y, s.XLiq) ? 2 : 1;
    });
    sw.Call(kDewT, s, [&](double& v) {
      v = peq::CalcDewT(s, p, y, 0);
      if (!(v > 0)) return 0;
      return Present(n, y) > 1 && Identical(n, y, s.XLiq) ? 2 : 1;
    });
  }
  sw.Call(kFlashTP, s, [&](double& v) {
    v = peq::FlashTP(s, T, p, z);
    if (v == -1) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
  sw.Call(kFlashPEta, s, [&](double& v) {
    v = peq::FlashPEta(s, p, eta, z);
    if (!(v > 0)) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
  sw.Call(kFlashTEta, s, [&](double& v) {
    v = peq::FlashTEta(s, T, eta, z);
    if (!(v > 0)) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
  sw.Call(kExcessGE, s, [&](double& v) {
    int16_t err = 0;
    v = peq::ExcessGE(s, T, x, err);
    return err == 0 ? 1 : 0;
  });
  sw.Call(kExcessT, s, [&](double& v) {
    int16_t err = 0;
    double hE = 0, TsE = 0, gE = 0;
    peq::ExcessT(s, T, p, x, hE, TsE, gE, err);
    v = hE + TsE + gE;
    return err == 0 ? 1 : 0;
  });
  sw.Call(kExcessCp, s, [&](double& v) {
    int16_t err = 0;
    v = 0;
    peq::ExcessCp(s, T, p, x, v, err);
    return err == 0 ? 1 : 0;
  });
  if (n == 2) {
    sw.Call(kGM2Zeros, s, [&](double& v) {
      double a = 0, b = 0;
      std::string msg;
      peq::FindGM2Zeros(s, T, a, b, msg);
      v = a + b;
      return msg.empty() ? 1 : 0;
    });
    sw.Call(kBinodal, s, [&](double& v) {
      double a = 0, b = 0;
      std::string msg;
      const bool ok = peq::Binodal(s, T, a, b, msg);
      v = a + b;
      if (!ok) return 0;
      return std::fabs(a - b) < 1e-7 ? 2 : 1;
    });
    sw.Call(kGapRange, s, [&](double& v) {
      double Tg = 0, a = 0, b = 0;
      int16_t k = 0;
      std::string msg;
      const bool ok = peq::GapRange(s, p, std::max(1.0, T - tRange), T + tRange, Tg, a, b, k, msg);
      v = Tg + a + b;
      if (!ok) return 0;
      return std::fabs(a - b) < 1e-7 ? 2 : 1;
    });
    sw.Call(kAzeotrope, s, [&](double& v) {
      double xa = 0;
      int16_t kind = 0, over = 0;
      s.IsoArt = isoArt;
      peq::MsgSink msgs;
      const bool ok = peq::IsBinaerAzeotrop(s, T, p, xa, kind, over, &msgs);
      v = xa;
      return ok ? 1 : 0;
    });
  }
  sw.Call(kSingleCalc, s, [&](double& v) {
    double Ts = T, ps = p, Y2 = xval;
    double X = xval;
    if (code == 7 || code == 183) X = T - s.TOffsetOut;
    float r1 = 0, r2 = 0, r3 = 0, r4 = 0, outx = 0;
    peq::SingleOut out;
    peq::MsgSink msgs;
    s.Komp1 = k1;
    s.Komp2 = k2;
    peq::SingleCalc(s, code, X, Ts, ps, Y2, r1, r2, r3, r4, k1, k2, outx, out, &msgs);
    // An ordinate counts only with its flag 0; T, p and the vapour composition always.
    v = Ts + ps + outx + (out.F1 == 0 ? out.Y1 : 0.0f) + (out.F2 == 0 ? out.Y2 : 0.0f);
    return out.F1 == 0 || out.F2 == 0 ? 1 : 0;
  });

  // The entry points the program calls by default: the plain routine, retried when it fails or
  // answers with identical phases. Their trivial counts are what a user can still meet.
  s.Safeguard = true;
  sw.Call(kSafeBubbleP, s, [&](double& v) {
    double vL = 0, vV = 0;
    v = peq::SafeBubbleP(s, T, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    if (!(v > 0)) return 0;
    return Present(n, x) > 1 && Identical(n, x, s.YGas) ? 2 : 1;
  });
  sw.Call(kSafeBubbleT, s, [&](double& v) {
    double Tb = 0, vL = 0, vV = 0;
    int16_t warn = 0;
    v = peq::SafeBubbleT(s, p, x, Tb, y0, warn, s.KWert, vL, vV);
    if (!(v > 0)) return 0;
    return Present(n, x) > 1 && Identical(n, x, s.YGas) ? 2 : 1;
  });
  if (!s.Konzept)
    sw.Call(kSafeDewT, s, [&](double& v) {
      v = peq::SafeDewT(s, p, y, 0);
      if (!(v > 0)) return 0;
      return Present(n, y) > 1 && Identical(n, y, s.XLiq) ? 2 : 1;
    });
  sw.Call(kSafeFlashTP, s, [&](double& v) {
    v = peq::SafeFlashTP(s, T, p, z);
    if (v == -1) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
  sw.Call(kSafeFlashPEta, s, [&](double& v) {
    v = peq::SafeFlashPEta(s, p, eta, z);
    if (!(v > 0)) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
  sw.Call(kSafeFlashTEta, s, [&](double& v) {
    v = peq::SafeFlashTEta(s, T, eta, z);
    if (!(v > 0)) return 0;
    return Present(n, z) > 1 && Identical(n, s.XLiq, s.YGas) ? 2 : 1;
  });
}

// The table of the states run so far; sums up the non-finite values and the slowest call.
void PrintTable(const Sweep& sw, std::int64_t states, std::uint64_t seed, std::int64_t first, std::size_t cases,
                double total, std::int64_t& nonFinite, double& slowest) {
  nonFinite = 0;
  slowest = 0;
  std::printf("| routine | calls | successes | failure values | trivial answers | NaN/inf | slowest call (ms) | its state |\n");
  std::printf("|---|---:|---:|---:|---:|---:|---:|---:|\n");
  for (const Row& r : sw.rows) {
    std::printf("| %s | %lld | %lld | %lld | %lld | %lld | %.3f | %lld |\n", r.name, static_cast<long long>(r.calls),
                static_cast<long long>(r.ok), static_cast<long long>(r.fail), static_cast<long long>(r.trivial),
                static_cast<long long>(r.nonFinite), r.slowest * 1000, static_cast<long long>(r.slowestState));
    nonFinite += r.nonFinite;
    slowest = std::max(slowest, r.slowest);
  }
  std::printf("\n%lld states (seed %llu, from %lld), %zu model combinations, %.1f s; crashes 0, hangs 0, "
              "non-finite %lld, slowest call %.3f ms\n",
              static_cast<long long>(states), static_cast<unsigned long long>(seed), static_cast<long long>(first),
              cases, total, static_cast<long long>(nonFinite), slowest * 1000);
  std::fflush(stdout);
}

std::string ProgramDir(const char* argv0) {
  std::error_code ec;
  fs::path p = fs::read_symlink("/proc/self/exe", ec);
  if (ec || p.empty()) p = fs::absolute(fs::path(argv0 ? argv0 : ""), ec);
  std::string dir = p.parent_path().string();
  if (!dir.empty() && dir.back() != '/') dir += '/';
  return dir;
}

int Usage() {
  std::cerr << "usage: peqsweep [--states N] [--seed S] [--first K] [--max-call-ms MS] [--hang-s S] "
               "[--report-every N] [--examples DIR] [--verbose]\n";
  return 64;
}

}  // namespace

int main(int argc, char** argv) {
  std::int64_t states = 10000, first = 0;
  std::uint64_t seed = 1;
  double maxCallMs = 0;
  std::int64_t reportEvery = 0;
  Sweep sw;
  std::string examples = PEQ_EXAMPLES_DIR;
  for (int a = 1; a < argc; ++a) {
    const std::string w = argv[a];
    const bool more = a + 1 < argc;
    if (w == "--states" && more)
      states = std::atoll(argv[++a]);
    else if (w == "--seed" && more)
      seed = std::strtoull(argv[++a], nullptr, 10);
    else if (w == "--first" && more)
      first = std::atoll(argv[++a]);
    else if (w == "--max-call-ms" && more)
      maxCallMs = std::atof(argv[++a]);
    else if (w == "--hang-s" && more)
      sw.hangSeconds = std::atoi(argv[++a]);
    else if (w == "--examples" && more)
      examples = argv[++a];
    else if (w == "--report-every" && more)
      reportEvery = std::atoll(argv[++a]);
    else if (w == "--verbose")
      sw.verbose = true;
    else
      return Usage();
  }
  if (states < 0 || first < 0 || sw.hangSeconds < 1) return Usage();

  if (__sanitizer_set_death_callback) __sanitizer_set_death_callback(OnDeath);
  std::signal(SIGALRM, OnSignal);
  std::signal(SIGSEGV, OnSignal);
  std::signal(SIGFPE, OnSignal);
  std::signal(SIGBUS, OnSignal);
  std::signal(SIGABRT, OnSignal);

  const std::string progDir = ProgramDir(argv[0]);
  std::vector<Mixture> mixtures;
  std::vector<fs::path> projects;
  std::error_code ec;
  for (const auto& e : fs::directory_iterator(examples, ec))
    if (e.path().extension() == ".PQC") projects.push_back(e.path());
  std::sort(projects.begin(), projects.end());
  for (const fs::path& p : projects) {
    Mixture m;
    if (FromProject(progDir, p, m))
      mixtures.push_back(std::move(m));
    else
      std::cerr << "peqsweep: the example " << p << " does not load\n";
  }
  const std::vector<std::pair<std::string, std::vector<std::string>>> hard = {
      {"nitrogen-ethanol (gas above T(cr))", {"7727-37-9", "64-17-5"}},
      {"water-1-butanol (associating, gap)", {"7732-18-5", "71-36-3"}},
      {"carbon dioxide-ethane (near-critical)", {"124-38-9", "74-84-0"}},
      {"ten components",
       {"74-82-8", "74-84-0", "74-98-6", "106-97-8", "110-54-3", "71-43-2", "108-88-3", "67-56-1", "64-17-5",
        "7732-18-5"}},
  };
  for (const auto& [name, cas] : hard) {
    Mixture m;
    if (FromCas(progDir, name, cas, m))
      mixtures.push_back(std::move(m));
    else
      std::cerr << "peqsweep: the mixture " << name << " does not load\n";
  }
  for (Mixture& m : mixtures) {
    peq::CheckUnifac(m.s, m.modOK, m.unifOK, nullptr);
  }
  std::vector<Case> cases = MakeCases(mixtures);
  if (cases.empty()) {
    std::cerr << "peqsweep: no model combination could be committed\n";
    return 1;
  }
  std::cerr << "peqsweep: " << mixtures.size() << " mixtures, " << cases.size() << " model combinations, "
            << states << " states from " << first << ", seed " << seed << "\n";

  const auto t0 = std::chrono::steady_clock::now();
  for (std::int64_t k = first; k < first + states; ++k) {
    Draw d(StateSeed(seed, k));
    const Case& c = cases[static_cast<std::size_t>(d.Int(0, static_cast<int>(cases.size()) - 1))];
    sw.state = k;
    sw.caseLabel = c.label;
    gState = k;
    gCase = c.label.c_str();
    if (sw.verbose) std::cerr << "state " << k << ": " << c.label << "\n";
    RunState(sw, c, d);
    if (reportEvery > 0 && (k - first + 1) % reportEvery == 0 && k + 1 < first + states) {
      std::int64_t nf = 0;
      double sl = 0;
      const double sofar = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
      std::printf("\n-- after %lld states --\n", static_cast<long long>(k - first + 1));
      PrintTable(sw, k - first + 1, seed, first, cases.size(), sofar, nf, sl);
    }
  }
  const double total = std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();

  std::int64_t nonFinite = 0;
  double slowest = 0;
  PrintTable(sw, states, seed, first, cases.size(), total, nonFinite, slowest);
  std::fflush(stdout);
  int rc = 0;
  if (nonFinite > 0) rc = 1;
  if (maxCallMs > 0 && slowest * 1000 > maxCallMs) {
    std::cerr << "peqsweep: a call took " << slowest * 1000 << " ms, more than " << maxCallMs << " ms\n";
    rc = 1;
  }
  return rc;
}
