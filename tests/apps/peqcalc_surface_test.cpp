// peqcalc surface: the grid of Calc_3DArray for the example project, rows over the second axis,
// null for a hole.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "diagrams/surface.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

// The rows of "z": each a list of numbers, a null read as -1E300.
std::vector<std::vector<double>> ZRows(const std::string& json) {
  std::vector<std::vector<double>> rows;
  std::size_t p = json.find("\"z\": [");
  if (p == std::string::npos) return rows;
  p = json.find('[', p) + 1;
  for (;;) {
    while (p < json.size() && (json[p] == ' ' || json[p] == ',')) ++p;
    if (p >= json.size() || json[p] != '[') break;
    const std::size_t e = json.find(']', p);
    std::vector<double> row;
    std::size_t c = p + 1;
    while (c < e) {
      while (c < e && (json[c] == ',' || json[c] == ' ')) ++c;
      if (c >= e) break;
      if (json.compare(c, 4, "null") == 0) {
        row.push_back(-1e300);
        c += 4;
      } else {
        char* end = nullptr;
        row.push_back(std::strtod(json.c_str() + c, &end));
        c = static_cast<std::size_t>(end - json.c_str());
      }
    }
    rows.push_back(row);
    p = e + 1;
  }
  return rows;
}

}  // namespace

TEST(PeqcalcSurface, GridIsCalc3DArrayOfTheProject) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "surface", "0", "--xmin", "0", "--xmax", "1", "--ymin",
                                                     "293.15", "--ymax", "373.15", "--nx", "4", "--ny", "3"});
  ASSERT_EQ(r.code, 0) << r.err;
  // The grid: x = 0, 0.25, 0.5, 0.75 (the upper bound is no grid point), T in steps of 80/3 K.
  const std::vector<double> xs = peqtest::JsonNumbers(r.out, "x");
  ASSERT_EQ(xs.size(), 4u);
  EXPECT_EQ(xs[1], 0.25);
  EXPECT_EQ(xs[3], 0.75);
  const std::vector<double> ys = peqtest::JsonNumbers(r.out, "y");
  ASSERT_EQ(ys.size(), 3u);
  EXPECT_NEAR(ys[1] - ys[0], 80.0 / 3.0, 1e-4);

  // The same grid computed here on the project loaded as the program loads it.
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  ASSERT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  ASSERT_TRUE(peq::EOSTabellenBerechnen(s));
  s.TOffsetOut = 0;
  s.ConcUnit = 0;
  peq::Grenzen3D g;
  g.XMin = 0;
  g.XMax = 1;
  g.YMin = 293.15f;
  g.YMax = 373.15f;
  peq::Feld3D f;
  ASSERT_EQ(peq::Calc_3DArray(s, 0, 4, 3, f, g, false), 0);
  const auto rows = ZRows(r.out);
  ASSERT_EQ(rows.size(), 3u);
  for (int j = 1; j <= 3; ++j) {
    ASSERT_EQ(rows[static_cast<std::size_t>(j - 1)].size(), 4u);
    for (int i = 1; i <= 4; ++i) EXPECT_EQ(rows[static_cast<std::size_t>(j - 1)][static_cast<std::size_t>(i - 1)], f(i, j));
  }
  // Ethanol's vapour pressure at 20 °C is about 5.9 kPa; the warmer rows lie higher.
  EXPECT_NEAR(rows[0][0], 5.9, 0.3);
  EXPECT_GT(rows[2][0], rows[1][0]);
  EXPECT_EQ(r.out.find("\"titel\": \"p = Fu(x2(L), T)\"") != std::string::npos, true);
  EXPECT_NE(r.out.find("\"yachse\": \"T/K \""), std::string::npos);
}

TEST(PeqcalcSurface, HolesPrintAsNullAndClippingApplies) {
  // Above the critical temperature of water (647 K) no bubble point exists: that row is holes.
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "surface", "0", "--xmin", "0", "--xmax", "1", "--ymin",
                                                     "600", "--ymax", "700", "--nx", "2", "--ny", "2", "--zmax", "100"});
  ASSERT_EQ(r.code, 0) << r.err;
  const auto rows = ZRows(r.out);
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0][0], 100.0);  // clipped at z max
  EXPECT_EQ(rows[1][0], -1e300);
  EXPECT_EQ(rows[1][1], -1e300);
  EXPECT_NE(r.out.find("\"holes\": 2"), std::string::npos);
  EXPECT_EQ(r.out.find("nan"), std::string::npos);
}

TEST(PeqcalcSurface, BadUsageAndRefusals) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "surface", "8", "--xmin", "0", "--xmax", "1", "--ymin", "1", "--ymax", "2"})
                .code,
            64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "surface", "0", "--xmin", "0", "--xmax", "1", "--ymin", "300"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc(
                {kProject, "surface", "0", "--xmin", "0", "--xmax", "1", "--ymin", "300", "--ymax", "310", "--nx", "0"})
                .code,
            64);
  const peqtest::PeqcalcRun r =
      peqtest::RunPeqcalc({kProject, "surface", "0", "--xmin", "0.8", "--xmax", "0.2", "--ymin", "300", "--ymax", "310"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Execution not possible: "), std::string::npos);
}
