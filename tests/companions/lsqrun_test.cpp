// The fitting companions LSQRUN.EXE and LSQRUNZ.EXE: the solver in process on data made by the
// engine, and the programs through their exchange files.
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "companions/exchangetext.h"
#include "companions/fitfiles.h"
#include "companions/fitinput.h"
#include "companions/fitmap.h"
#include "companions/fitobjective.h"
#include "companions/process.h"
#include "fitrun.h"
#include "models/eos_pure.h"
#include "support/fixtures.h"
#include "companions/fit_sessions.h"

namespace {

namespace fs = std::filesystem;

// The NRTL parameters the data are made from, in kelvin: par12, par21 and alpha.
constexpr double kA12 = -50.0, kA21 = 600.0, kAlpha = 0.35;

std::string Companion(bool phiPhi) {
  return std::string(PEQ_BINARY_DIR) + "/" + (phiPhi ? peq::kLsqrunz : peq::kLsqrun);
}

std::string ReadFile(const std::string& path) {
  std::ifstream f(path, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

void WriteFile(const std::string& path, const std::string& text) {
  std::ofstream f(path, std::ios::binary);
  f << text;
}

bool Exists(const std::string& p) {
  std::error_code ec;
  return fs::exists(p, ec);
}

// Ethanol/water with the known NRTL parameters in GEPar.
peq::Session KnownNrtl() {
  peq::Session s = peqtest::EthanolWaterFit();
  peq::SetGESlot(s, 1, 1, 2, kA12);
  peq::SetGESlot(s, 4, 1, 2, kA21);
  peq::SetGESlot(s, 7, 1, 2, kAlpha);
  return s;
}

std::vector<double> Xs(int n) {
  std::vector<double> xs;
  for (int k = 0; k < n; ++k) xs.push_back(0.04 + 0.92 * k / (n - 1));
  return xs;
}

// The task the companion would read, built in process with points at full precision.
peq::FitAufgabe NrtlTask(int16_t fitArt) {
  peq::Session s = KnownNrtl();
  std::vector<peq::FitPunkt> pts = peqtest::EnginePoints(s, {340, 350, 360}, Xs(10));
  EXPECT_EQ(pts.size(), 30u);
  peq::FitTabelle t = peqtest::StartTabelle(true);
  peq::OhneTAbhAnwenden(t);
  peq::FitAufgabe task;
  peq::ReadFitAufgabe(peq::ToFitText(s, t, fitArt, pts), false, task);
  task.Punkte = pts;  // full precision instead of the file's seven digits
  return task;
}

TEST(LsqrunSolver, NrtlFromEngineDataIsFittedBackWithinOneMillionth) {
  for (int16_t art : {0, 1}) {
    peq::FitAufgabe task = NrtlTask(art);
    const lsqrun::FitErgebnis e = lsqrun::FitLoesen(task);
    EXPECT_EQ(e.Frei, 3) << art;  // a of par12, par21, alpha; the fourth group is no NRTL slot
    EXPECT_NEAR(e.Slots[0], kA12, 1e-6) << art;
    EXPECT_NEAR(e.Slots[3], kA21, 1e-6) << art;
    EXPECT_NEAR(e.Slots[6], kAlpha, 1e-6) << art;
    for (int i : {1, 2, 4, 5, 7, 8, 10, 11}) EXPECT_EQ(e.Slots[static_cast<std::size_t>(i)], 0.0) << i;
    EXPECT_EQ(e.Slots[9], 500.0);  // unused by NRTL: kept as given
    EXPECT_GT(e.Auswertungen, 0);
    EXPECT_LT(e.Auswertungen, peq::kFitMaxIterationen);
    EXPECT_LT(e.Zielfunktion, 1e-20);
  }
}

TEST(LsqrunSolver, BoundsHoldAndFixedSlotsKeepTheirStart) {
  peq::FitAufgabe task = NrtlTask(0);
  task.Tabelle.Oben[3] = 400;      // par21's true value 600 lies beyond its upper limit
  task.Tabelle.Fest[6] = true;     // alpha held at its start 0.3
  const lsqrun::FitErgebnis e = lsqrun::FitLoesen(task);
  EXPECT_EQ(e.Frei, 2);
  EXPECT_LE(e.Slots[3], 400.0);
  EXPECT_NEAR(e.Slots[3], 400.0, 1e-9);  // pressed against its limit
  EXPECT_EQ(e.Slots[6], static_cast<double>(0.3f));
  EXPECT_GT(e.Zielfunktion, 1e-8);
}

TEST(LsqrunSolver, EvaluationLimitIsObeyed) {
  peq::FitAufgabe task = NrtlTask(1);
  const lsqrun::FitErgebnis e = lsqrun::FitLoesen(task, 40);
  EXPECT_EQ(e.Auswertungen, 40);
  EXPECT_TRUE(peq::FitNichtKonvergiert(e.Auswertungen + (peq::kFitMaxIterationen - 40)));
}

TEST(LsqrunSolver, FailedBubblePointsAddThePenalty) {
  peq::FitAufgabe task = NrtlTask(0);
  // Above the highest critical temperature no bubble point exists.
  task.Punkte[0].T = 700;
  task.Punkte[1].T = 700;
  double slots[12] = {kA12, 0, 0, kA21, 0, 0, kAlpha, 0, 0, 500, 0, 0};
  peq::SlotsInGEPar(task.S, slots);
  const double obj = peq::FitZielfunktion(task.S, task.Punkte, 0);
  EXPECT_NEAR(obj, 2 * peq::kFitStrafe * peq::kFitStrafe, 1e-12);
}

// ---- the programs ----

TEST(LsqrunProgram, FitsNrtlThroughItsFilesAndTheProgramRecomputesItsObjective) {
  peqtest::TempDir dir;
  peq::Session s = KnownNrtl();
  std::vector<peq::FitPunkt> pts = peqtest::EnginePoints(s, {340, 350, 360}, Xs(10));
  ASSERT_EQ(pts.size(), 30u);
  pts.push_back({345, 50, 0.5, 0.4, true});  // inactive and far off: must not count
  peq::FitTabelle t = peqtest::StartTabelle(true);
  peq::OhneTAbhAnwenden(t);
  const std::string toFit = peq::ToFitText(s, t, 1, pts);
  WriteFile(dir.File(peq::kToFit), toFit);
  std::string err;
  int code = -1;
  ASSERT_EQ(peq::RunCompanion(Companion(false), dir.path(), peq::FitWaitLimitMs(false), err, code),
            peq::CompanionOutcome::Ok)
      << err << " exit " << code;
  peq::FitAntwort a;
  ASSERT_TRUE(peq::ReadFitAntwort(ReadFile(dir.File(peq::kFromFit)), false, a, err)) << err;
  EXPECT_FALSE(Exists(dir.File(std::string(peq::kFromFit) + ".tmp~")));
  ASSERT_EQ(a.L.size(), 20u);
  // The points went through the file's seven digits (p and y rounded by up to 5E-8 relative),
  // which moves the parameters by some 1E-5 relative; at full precision the in-process test
  // above gets them to 1E-6.
  EXPECT_NEAR(a.L[0], kA12, 5e-5 * std::fabs(kA12));
  EXPECT_NEAR(a.L[3], kA21, 5e-5 * kA21);
  EXPECT_NEAR(a.L[6], kAlpha, 5e-5 * kAlpha);
  EXPECT_GT(a.Iterationen, 0);
  EXPECT_FALSE(peq::FitNichtKonvergiert(a.Iterationen));

  // The program writes the answer into its own session and recomputes the objective over the
  // points as the file gave them.
  peq::Session prog = peqtest::EthanolWaterFit();
  prog.ParUnitNRTL = 0;
  peq::AntwortInGEPar(prog, a, false);
  EXPECT_EQ(prog.ParUnitNRTL, 3);
  peq::FitAufgabe seen;
  peq::ReadFitAufgabe(toFit, false, seen);
  EXPECT_EQ(seen.Punkte.size(), 30u);
  const double obj = peq::FitZielfunktion(prog, seen.Punkte, 1);
  EXPECT_NEAR(obj, a.Zielfunktion, 1e-9 * std::max(a.Zielfunktion, 1e-300));
}

TEST(LsqrunProgram, PrintsOneSummaryLine) {
  peqtest::TempDir dir;
  peq::Session s = KnownNrtl();
  const std::vector<peq::FitPunkt> pts = peqtest::EnginePoints(s, {350}, Xs(6));
  peq::FitTabelle t = peqtest::StartTabelle(true);
  peq::OhneTAbhAnwenden(t);
  WriteFile(dir.File(peq::kToFit), peq::ToFitText(s, t, 0, pts));
  const std::string cmd = "cd '" + dir.path() + "' && '" + Companion(false) + "'";
  FILE* p = popen(cmd.c_str(), "r");
  ASSERT_NE(p, nullptr);
  std::string out;
  char buf[256];
  while (std::fgets(buf, sizeof buf, p)) out += buf;
  EXPECT_EQ(pclose(p), 0);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 1) << out;
  EXPECT_NE(out.find("LSQRUN.EXE: 3 of 12 parameters free, 6 points"), std::string::npos) << out;
}

// Runs the companion on the given TO_FIT.DAT text; the exit code.
int RunOn(const peqtest::TempDir& dir, bool phiPhi, const std::string& text) {
  WriteFile(dir.File(phiPhi ? peq::kToFitz : peq::kToFit), text);
  std::string err;
  int code = -1;
  peq::RunCompanion(Companion(phiPhi), dir.path(), 60000, err, code);
  return code;
}

TEST(LsqrunProgram, ShortGarbledOrPointlessInputExitsNonZeroWithoutAnswer) {
  peq::Session s = KnownNrtl();
  std::vector<peq::FitPunkt> pts = peqtest::EnginePoints(s, {350}, Xs(5));
  peq::FitTabelle t = peqtest::StartTabelle(true);
  const std::string good = peq::ToFitText(s, t, 0, pts);
  std::string garbled = good;
  garbled.replace(garbled.find(".5000000E+03"), 12, ".50000x0E+03");
  std::vector<peq::FitPunkt> none = pts;
  for (auto& p : none) p.Inaktiv = true;
  const std::string cases[] = {good.substr(0, good.size() / 2), garbled, peq::ToFitText(s, t, 0, none), ""};
  for (const std::string& text : cases) {
    peqtest::TempDir dir;
    EXPECT_NE(RunOn(dir, false, text), 0);
    EXPECT_FALSE(Exists(dir.File(peq::kFromFit)));
    EXPECT_FALSE(Exists(dir.File(std::string(peq::kFromFit) + ".tmp~")));
  }
  peqtest::TempDir empty;
  std::string err;
  int code = -1;
  peq::RunCompanion(Companion(false), empty.path(), 60000, err, code);
  EXPECT_NE(code, 0);  // no TO_FIT.DAT at all
  EXPECT_FALSE(Exists(empty.File(peq::kFromFit)));
  // And the good text does give an answer.
  peqtest::TempDir ok;
  EXPECT_EQ(RunOn(ok, false, good), 0);
  EXPECT_TRUE(Exists(ok.File(peq::kFromFit)));
}

TEST(LsqrunzProgram, FitsTheKijOfPengRobinsonThroughItsFiles) {
  // Ethanol/water under Peng-Robinson with the quadratic rule, k(1-2) = -0.08 (made up) on L1.
  peq::Session s = peqtest::EthanolWaterFit();
  s.Konzept = true;
  s.EOSModel = 4;
  s.MixRule = 2;
  int16_t e = 0;
  peq::EOSSetPure(s, s.EOSModel, e);
  ASSERT_EQ(e, 0);
  peq::SetGESlot(s, 1, 1, 2, -0.08);
  const std::vector<peq::FitPunkt> pts = peqtest::EnginePoints(s, {340, 360}, Xs(8));
  ASSERT_EQ(pts.size(), 16u);
  peq::FitTabelle t;
  t.Unten.fill(-5);
  t.Oben.fill(5);
  peq::OhneTAbhAnwenden(t);
  peqtest::TempDir dir;
  ASSERT_EQ(RunOn(dir, true, peq::ToFitzText(s, t, 0, pts, 1)), 0);
  peq::FitAntwort a;
  std::string err;
  ASSERT_TRUE(peq::ReadFitAntwort(ReadFile(dir.File(peq::kFromFitz)), true, a, err)) << err;
  ASSERT_EQ(a.L.size(), 24u);
  EXPECT_NEAR(a.L[0], -0.08, 1e-5);
  EXPECT_EQ(a.L[1], 0.0);
  EXPECT_EQ(a.L[2], 0.0);
  EXPECT_LT(a.Zielfunktion, 1e-10);
}

}  // namespace
