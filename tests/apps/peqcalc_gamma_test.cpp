// peqcalc gamma T x1 .. xn: the numbers of ActivityCoeffs for the project's model, for all seven
// models, printed with 17 significant digits.
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "models/activity.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "substances/unifacfiles.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

namespace fs = std::filesystem;

// The example project (ethanol / water) with the given model, written to a temporary file.
std::string ProjectWithModel(int16_t model, const fs::path& dir, peq::Session& s) {
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  EXPECT_EQ(peq::ProjektLaden(s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink),
            peq::LoadStage::Loaded);
  s.GEModel = model;
  s.ParUnitWilson = 2;
  s.GEPar(1, 1, 2) = 0.154;  // L1: Lambda12 for Wilson, A for Redlich-Kister
  s.GEPar(2, 2, 1) = 0.888;  // L4
  const std::string file = (dir / ("gamma" + std::to_string(model) + ".PQC")).string();
  std::string err;
  EXPECT_TRUE(peq::ProjektSchreiben(s, file, "gamma test", err)) << err;
  return file;
}

}  // namespace

TEST(PeqcalcGamma, EveryModelGivesTheNumbersOfActivityCoeffs) {
  const fs::path dir = fs::temp_directory_path() / ("peqcalc_gamma_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  for (int16_t model : {0, 1, 2, 4, 9, 20, 21}) {
    peq::Session w;
    const std::string file = ProjectWithModel(model, dir, w);
    peq::Session s;
    s.PfadBank = peqtest::BinaryDir() + "/";
    ASSERT_EQ(peq::ProjektLaden(s, file, nullptr), peq::LoadStage::Loaded);
    peq::ChooseUnifacFiles(peqtest::BinaryDir(), s.ModUnifFile, s.OUnifFile);
    peq::Vec<double> x(3, 0.0), g(3, 0.0);
    x[1] = 0.252;
    x[2] = 0.748;
    int16_t err = 1;
    peq::ActivityCoeffs(s, 343.15, x, g, err);
    EXPECT_EQ(err, 0) << "GEModel " << model;

    const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({file, "--bank-dir", peqtest::BinaryDir(), "gamma", "343.15", "0.252",
                            "0.748"});
    ASSERT_EQ(r.code, 0) << "GEModel " << model << ": " << r.err;
    const std::vector<double> pg = peqtest::JsonNumbers(r.out, "gamma");
    ASSERT_EQ(pg.size(), 2u) << r.out;
    EXPECT_REL(pg[0], g[1], 1e-15) << "GEModel " << model;
    EXPECT_REL(pg[1], g[2], 1e-15) << "GEModel " << model;
    EXPECT_NE(r.out.find("\"err\": 0"), std::string::npos) << r.out;
    if (model == 1) {
      EXPECT_REL(pg[0], 1.881493, 1e-6);  // Gmehling et al. P05.01a
    }
  }
  fs::remove_all(dir);
}

TEST(PeqcalcGamma, WrongNumberOfMoleFractionsIsRefused) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({peqtest::SourceDir() + "/examples/ethanol-water.PQC", "--bank-dir",
                          peqtest::BinaryDir(), "gamma", "343.15", "0.5"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Execution not possible: gamma needs 2 mole fractions"), std::string::npos);
  const peqtest::PeqcalcRun u = peqtest::RunPeqcalc({peqtest::SourceDir() + "/examples/ethanol-water.PQC", "gamma", "343.15"});
  EXPECT_EQ(u.code, 64);
}
