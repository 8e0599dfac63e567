#include "fitrun.h"

#include <ceres/ceres.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "companions/exchangetext.h"
#include "companions/fitfiles.h"
#include "companions/fitinput.h"
#include "companions/fitmap.h"
#include "companions/fitobjective.h"
#include "session/filewrite.h"
#include "session/writefmt.h"

namespace lsqrun {

namespace {

using peq::kFitSlots;

// Residuals of all points at the twelve slots, one parameter block of size 1 per slot, so that
// a fixed slot is a constant block (Ceres then neither varies nor differentiates it). Counts the
// evaluations and refuses any beyond the limit.
struct Residuals {
  peq::FitAufgabe* task;
  peq::FitArbeit* work;
  long* count;
  long limit;

  bool operator()(double const* const* params, double* r) const {
    if (*count >= limit) return false;
    ++*count;
    std::array<double, kFitSlots> slots;
    for (int i = 0; i < kFitSlots; ++i) slots[static_cast<std::size_t>(i)] = params[i][0];
    peq::FitResiduen(task->S, task->Punkte, task->FitArt, slots.data(), r, *work);
    return true;
  }
};

// Stops the solver once the evaluation limit is reached.
class LimitCallback : public ceres::IterationCallback {
 public:
  LimitCallback(const long* count, long limit) : count_(count), limit_(limit) {}
  ceres::CallbackReturnType operator()(const ceres::IterationSummary&) override {
    return *count_ >= limit_ ? ceres::SOLVER_TERMINATE_SUCCESSFULLY : ceres::SOLVER_CONTINUE;
  }

 private:
  const long* count_;
  long limit_;
};

bool ReadWhole(const char* name, std::string& text) {
  std::ifstream f(name, std::ios::binary);
  if (!f) return false;
  std::ostringstream ss;
  ss << f.rdbuf();
  text = ss.str();
  return static_cast<bool>(f) || f.eof();
}

std::string Short(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.6g", v);
  return buf;
}

}  // namespace

FitErgebnis FitLoesen(peq::FitAufgabe& task, long limit) {
  // Start values inside their limits; a slot the model does not use, a fixed slot and one whose
  // limits leave no room keep their start value.
  std::array<double, kFitSlots> x{};
  std::array<bool, kFitSlots> frei{};
  int nFrei = 0;
  for (std::size_t i = 0; i < kFitSlots; ++i) {
    const peq::FitTabelle& t = task.Tabelle;
    x[i] = t.Start[i];
    frei[i] = !t.Fest[i] && t.Unten[i] < t.Oben[i] && peq::SlotGenutzt(task.S, static_cast<int>(i));
    if (frei[i]) {
      if (x[i] < t.Unten[i]) x[i] = t.Unten[i];
      if (x[i] > t.Oben[i]) x[i] = t.Oben[i];
      ++nFrei;
    }
  }

  peq::FitArbeit work;
  peq::FitArbeitAnlegen(task.S, work);
  long count = 0;
  const int nRes = static_cast<int>(task.Punkte.size()) * peq::ResiduenJePunkt(task.FitArt);

  if (nFrei > 0) {
    auto* cost = new ceres::DynamicNumericDiffCostFunction<Residuals, ceres::CENTRAL>(
        new Residuals{&task, &work, &count, limit});
    std::vector<double*> blocks;
    for (std::size_t i = 0; i < kFitSlots; ++i) {
      cost->AddParameterBlock(1);
      blocks.push_back(&x[i]);
    }
    cost->SetNumResiduals(nRes);
    ceres::Problem problem;
    problem.AddResidualBlock(cost, nullptr, blocks);
    for (std::size_t i = 0; i < kFitSlots; ++i) {
      if (!frei[i]) {
        problem.SetParameterBlockConstant(&x[i]);
        continue;
      }
      problem.SetParameterLowerBound(&x[i], 0, task.Tabelle.Unten[i]);
      problem.SetParameterUpperBound(&x[i], 0, task.Tabelle.Oben[i]);
    }
    LimitCallback stop(&count, limit);
    ceres::Solver::Options opt;
    opt.linear_solver_type = ceres::DENSE_QR;
    opt.max_num_iterations = 100000;  // the evaluation limit ends a long run
    opt.function_tolerance = 1e-16;
    opt.gradient_tolerance = 1e-16;
    opt.parameter_tolerance = 1e-14;
    opt.num_threads = 1;
    opt.logging_type = ceres::SILENT;
    opt.minimizer_progress_to_stdout = false;
    opt.callbacks.push_back(&stop);
    ceres::Solver::Summary summary;
    ceres::Solve(opt, &problem, &summary);
  }

  peq::SlotsInGEPar(task.S, x.data());
  FitErgebnis e;
  e.Slots = x;
  e.Frei = nFrei;
  e.Auswertungen = count;
  e.Zielfunktion = peq::FitZielfunktion(task.S, task.Punkte, task.FitArt);
  return e;
}

int Run(bool phiPhi, std::ostream& out, std::ostream& err) {
  const char* prog = phiPhi ? peq::kLsqrunz : peq::kLsqrun;
  const char* inName = phiPhi ? peq::kToFitz : peq::kToFit;
  const char* outName = phiPhi ? peq::kFromFitz : peq::kFromFit;

  std::string text;
  if (!ReadWhole(inName, text)) {
    err << prog << ": " << inName << " not found in the working directory\n";
    return 1;
  }
  peq::FitAufgabe task;
  try {
    peq::ReadFitAufgabe(text, phiPhi, task);
  } catch (const peq::ExchangeError& e) {
    err << prog << ": " << inName << ": " << e.text << "\n";
    return 1;
  }

  // The answer at the parameters found, with the objective the program will compute from them.
  const FitErgebnis e = FitLoesen(task);
  peq::FitAntwort a;
  a.L = peq::PairList(task.S, peq::AntwortWerte(phiPhi));
  a.Iterationen = e.Auswertungen;
  a.Zielfunktion = e.Zielfunktion;

  std::string werr;
  if (!peq::WriteReplacing(outName, peq::FitAntwortText(a), werr)) {
    err << prog << ": " << outName << ": " << werr << "\n";
    return 2;
  }
  out << prog << ": " << e.Frei << " of " << kFitSlots << " parameters free, " << task.Punkte.size()
      << " points, " << e.Auswertungen << " evaluations, objective " << Short(a.Zielfunktion)
      << (peq::FitNichtKonvergiert(e.Auswertungen) ? " (evaluation limit reached)" : "") << "\n";
  return 0;
}

}  // namespace lsqrun
