// PEQBATCH.EXE run through its files in a scratch directory: the answer's balances, fractions,
// temperatures, the limit of simple distillation, and bad input.
#include <gtest/gtest.h>

#include <boost/math/tools/roots.hpp>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "companions/batchfiles.h"
#include "companions/fitmap.h"

namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& p) {
  std::ifstream f(p, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

// Runs the companion in dir on the given TO_BATCH.DAT; returns its exit code.
int RunBatch(const fs::path& dir, const std::string& toBatch) {
  fs::create_directories(dir);
  fs::remove(dir / peq::kFromBatch);
  std::ofstream(dir / peq::kToBatch, std::ios::binary) << toBatch;
  const std::string cmd = "cd '" + dir.string() + "' && '" + std::string(PEQ_BINARY_DIR) + "/" + peq::kPeqBatch +
                          "' > progress.txt 2> errors.txt";
  const int rc = std::system(cmd.c_str());
  return WIFEXITED(rc) ? WEXITSTATUS(rc) : -1;
}

// Ideal binary of constant relative volatility: equal B and C, A differing by 0.5, so that
// alpha = p01/p02 = 10^0.5 at every temperature.
peq::Session IdealBinary() {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  for (int i = 1; i <= 2; ++i) {
    s.MolMasse[i] = 80;
    s.TKrit[i] = 600;
    s.PKrit[i] = 4000;
    s.Omega[i] = 0.25f;
    s.P0Eq[i] = "ALP";
    s.ParALP[i].A = i == 1 ? 7.0f : 6.5f;
    s.ParALP[i].B = 1500;
    s.ParALP[i].C = 230;
    s.VLiqCm3[i] = 90;
  }
  s.GEModel = 0;
  s.VapModel = 0;
  s.PIso = 101.325;
  s.StoffMenge[1] = 4;
  s.StoffMenge[2] = 6;
  s.NBoden = 1;
  s.RueckLauf = 1e-4f;
  s.NFrak = 5;
  s.NSchritte = 100;
  s.BatchZeit = 0;
  s.BatchGenau = 1e-6f;
  s.BatchMaxIter = 500;
  s.DruckVerlust = 0;
  return s;
}

fs::path Scratch(const char* name) { return fs::path(PEQ_BINARY_DIR) / "peqbatch_test" / name; }

// Per component: the fraction amounts and the residue read from the amount lines.
std::vector<std::vector<double>> Mengen(const std::string& text, int n) {
  std::vector<std::vector<double>> out;
  std::istringstream in(text);
  std::string line;
  while (std::getline(in, line)) {
    std::string key;
    if (line.find("   amounts (kmol)") == 0) key = "   amounts (kmol)";
    if (line.find(" residue in the stillpot (kmol)") == 0) key = " residue in the stillpot (kmol)";
    if (key.empty()) continue;
    std::istringstream v(line.substr(key.size()));
    std::vector<double> row(static_cast<std::size_t>(n));
    for (double& x : row) v >> x;
    out.push_back(row);
  }
  return out;
}

TEST(PeqBatch, BalanceFractionsAndTopTemperature) {
  peq::Session s = IdealBinary();
  s.NBoden = 10;
  s.RueckLauf = 3;
  s.DruckVerlust = 0.5f;
  const fs::path dir = Scratch("balance");
  ASSERT_EQ(RunBatch(dir, peq::ToBatchText(s, {60, 90, 2.0f})), 0) << ReadFile(dir / "errors.txt");
  const std::string ans = ReadFile(dir / peq::kFromBatch);
  // Material balance per component: five fractions and the residue give the filling back.
  const auto m = Mengen(ans, 2);
  ASSERT_EQ(m.size(), 6u);
  for (std::size_t i = 0; i < 2; ++i) {
    double sum = 0;
    for (const auto& r : m) sum += r[i];
    EXPECT_NEAR(sum, s.StoffMenge[static_cast<int>(i) + 1], 1e-8 * s.StoffMenge[static_cast<int>(i) + 1]);
  }
  // Five fractions of equal amount, read the way the program reads them.
  std::vector<float> z;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchFraktionen(ans, 2, 5, 273.15, z, err)) << err;
  for (int f = 0; f < 5; ++f) EXPECT_NEAR(z[static_cast<std::size_t>(4 + 7 * f + 5)], 8.0 / 5, 1e-6);
  // The lightest component's boiling point at the top pressure: lg p = 7 - 1500/(230 + t).
  const double tb = 1500 / (7 - std::log10(101.325)) - 230;
  peq::Batchergebnis e;
  ASSERT_TRUE(peq::ReadBatchZeiten(ans, 2, 20, e, err)) << err;
  ASSERT_EQ(e.NZeit, 100);
  for (int i = 1; i <= e.NZeit; ++i) {
    EXPECT_GE(e.TKopf[i], tb - 1e-3);
    EXPECT_GE(e.TSumpf[i], e.TKopf[i]);
  }
  // Ten plates at reflux 3 enrich the first distillate far above the still.
  EXPECT_GT(e.XDest[1][0], 0.95f);
  EXPECT_FLOAT_EQ(e.Zeit[e.NZeit], 80.0f);  // BatchZeit 0 passes 100 on, scaled by 80 %
  std::vector<std::string> text;
  EXPECT_TRUE(peq::ReadBatchFraktionsText(ans, text));
  // Percent done, one line per step, ending at 100.
  const std::string prog = ReadFile(dir / "progress.txt");
  EXPECT_NE(prog.find("\n100\n"), std::string::npos);
}

TEST(PeqBatch, OnePlateNoRefluxApproachesRayleigh) {
  peq::Session s = IdealBinary();
  const fs::path dir = Scratch("rayleigh");
  ASSERT_EQ(RunBatch(dir, peq::ToBatchText(s, {70, 80, 3.0f})), 0) << ReadFile(dir / "errors.txt");
  const std::string ans = ReadFile(dir / peq::kFromBatch);
  peq::Batchergebnis e;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchZeiten(ans, 2, 30, e, err)) << err;
  // ln(W/W0) = 1/(alpha - 1) [ln(x/x0) + alpha ln((1 - x0)/(1 - x))] for constant alpha.
  const double alpha = std::sqrt(10.0), x0 = 0.4, ratio = 3.0 / 10.0;
  auto g = [&](double x) {
    return (std::log(x / x0) + alpha * std::log((1 - x0) / (1 - x))) / (alpha - 1) - std::log(ratio);
  };
  boost::math::tools::eps_tolerance<double> tol(50);
  const auto r = boost::math::tools::bisect(g, 1e-9, x0, tol);
  const double xEnd = (r.first + r.second) / 2;
  EXPECT_NEAR(e.XSumpf[e.NZeit][0], xEnd, 1e-3);
  // The first distillate is the vapour over the filling.
  EXPECT_NEAR(e.XDest[1][0], alpha * x0 / (1 + (alpha - 1) * x0), 1e-3);
}

TEST(PeqBatch, BadInputEndsNonZeroWithoutAnswer) {
  peq::Session s = IdealBinary();
  const std::string good = peq::ToBatchText(s, {70, 80, 3.0f});
  const fs::path dir = Scratch("bad");
  EXPECT_NE(RunBatch(dir, good.substr(0, good.size() / 2)), 0);
  EXPECT_FALSE(fs::exists(dir / peq::kFromBatch));
  std::string garbled = good;
  garbled.replace(garbled.find(".1013250E+03"), 12, "abc");
  EXPECT_NE(RunBatch(dir, garbled), 0);
  EXPECT_FALSE(fs::exists(dir / peq::kFromBatch));
  EXPECT_NE(RunBatch(dir, ""), 0);
  EXPECT_FALSE(fs::exists(dir / peq::kFromBatch));
  // A mixture without vapour pressures: no boiling point can be found.
  s.P0Eq[1] = "XXX";
  s.P0Eq[2] = "XXX";
  EXPECT_NE(RunBatch(dir, peq::ToBatchText(s, {70, 80, 3.0f})), 0);
  EXPECT_FALSE(fs::exists(dir / peq::kFromBatch));
}

TEST(PeqBatch, HighRefluxFirstDistillateApproachesFenske) {
  peq::Session s = IdealBinary();
  s.NBoden = 3;
  s.RueckLauf = 1000;
  const fs::path dir = Scratch("fenske");
  ASSERT_EQ(RunBatch(dir, peq::ToBatchText(s, {70, 80, 3.0f})), 0) << ReadFile(dir / "errors.txt");
  peq::Batchergebnis e;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchZeiten(ReadFile(dir / peq::kFromBatch), 2, 30, e, err)) << err;
  // Total reflux over three plates and the still, four stages: xD/(1 - xD) = alpha^4 x/(1 - x).
  const double r = 100.0 * 0.4 / 0.6, xd = r / (1 + r);
  EXPECT_NEAR(e.XDest[1][0], xd, 1e-3);
  EXPECT_LT(e.XDest[1][0], xd);
}

// Three components of constant relative volatilities with NRTL parameters, so that the gE model
// of the file is the one the column computes with.
TEST(PeqBatch, TernaryNrtlRunsAndKeepsItsBalance) {
  peq::Session s;
  s.NKomp = 3;
  peq::AllocSession(s, 3);
  const float A[4] = {0, 7.0f, 6.7f, 6.4f};
  for (int i = 1; i <= 3; ++i) {
    s.MolMasse[i] = 60.0f + 10 * i;
    s.TKrit[i] = 560.0f + 20 * i;
    s.PKrit[i] = 4000;
    s.Omega[i] = 0.3f;
    s.P0Eq[i] = "ALP";
    s.ParALP[i].A = A[i];
    s.ParALP[i].B = 1500;
    s.ParALP[i].C = 230;
    s.VLiqCm3[i] = 80;
    s.StoffMenge[i] = 1.0f + i;
  }
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  for (int i = 1; i <= 3; ++i)
    for (int j = i + 1; j <= 3; ++j) {
      peq::SetGESlot(s, 1, i, j, 40.0 * (j - i));
      peq::SetGESlot(s, 4, i, j, -20.0 * (j - i));
      peq::SetGESlot(s, 7, i, j, 0.3);
    }
  s.PIso = 101.325;
  s.NBoden = 10;
  s.RueckLauf = 2;
  s.NFrak = 4;
  s.NSchritte = 100;
  s.BatchGenau = 1e-6f;
  s.BatchMaxIter = 500;
  const fs::path dir = Scratch("ternary");
  ASSERT_EQ(RunBatch(dir, peq::ToBatchText(s, {70, 90, 0.9f})), 0) << ReadFile(dir / "errors.txt");
  const std::string ans = ReadFile(dir / peq::kFromBatch);
  const auto m = Mengen(ans, 3);
  ASSERT_EQ(m.size(), 5u);
  for (std::size_t i = 0; i < 3; ++i) {
    double sum = 0;
    for (const auto& r : m) sum += r[i];
    EXPECT_NEAR(sum, s.StoffMenge[static_cast<int>(i) + 1], 1e-8 * s.StoffMenge[static_cast<int>(i) + 1]);
  }
  std::vector<float> z;
  std::string err;
  ASSERT_TRUE(peq::ReadBatchFraktionen(ans, 3, 4, 273.15, z, err)) << err;
  for (int f = 0; f < 4; ++f) EXPECT_NEAR(z[static_cast<std::size_t>(5 + 8 * f + 5)], (9.0 - 0.9) / 4, 1e-5);
  // The lightest component leaves first: the first fraction is richer in it than the last.
  EXPECT_GT(z[5 + 5 + 1], z[5 + 8 * 3 + 5 + 1]);
}

}  // namespace
