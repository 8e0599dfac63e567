// peqcalc curve: the point lists of CalcCurve for the example project, as [x, y, z] rows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "diagrams/curve.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

// The rows of the nested array behind "key": [[x, y, z], ...].
std::vector<std::vector<double>> Rows(const std::string& json, const std::string& key) {
  std::vector<std::vector<double>> rows;
  std::size_t p = json.find("\"" + key + "\": [");
  if (p == std::string::npos) return rows;
  p = json.find('[', p) + 1;
  for (;;) {
    while (p < json.size() && (json[p] == ' ' || json[p] == ',')) ++p;
    if (p >= json.size() || json[p] != '[') break;
    const std::size_t e = json.find(']', p);
    std::vector<double> row;
    const char* c = json.c_str() + p + 1;
    const char* stop = json.c_str() + e;
    while (c < stop) {
      char* end = nullptr;
      row.push_back(std::strtod(c, &end));
      c = end;
      while (c < stop && (*c == ',' || *c == ' ')) ++c;
    }
    rows.push_back(row);
    p = e + 1;
  }
  return rows;
}

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

std::string StringOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": \"");
  if (p == std::string::npos) return "?";
  const std::size_t b = p + key.size() + 5;
  return json.substr(b, json.find('"', b) - b);
}

}  // namespace

TEST(PeqcalcCurve, PxCurveIsCalcCurveOfTheProject) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {kProject, "curve", "1", "--T", "343.15", "--points", "50", "--ymin", "0", "--ymax", "100"});
  ASSERT_EQ(r.code, 0) << r.err;
  // The same call on the project loaded here.
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  ASSERT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  ASSERT_TRUE(peq::EOSTabellenBerechnen(s));
  s.TOffsetOut = 0;
  s.ConcUnit = 0;
  s.KurvenPunkte = 50;
  s.XMin = 0;
  s.XMax = 1;
  s.YMin = 0;
  s.YMax = 100;
  s.IsoArt = 1;
  s.NoDia = 1;
  s.TIso = 343.15;
  s.PIso = 101.325;
  s.GapAktiv = true;
  peq::Kurve k1, k2;
  peq::Vec<double> x(3, 0.0);
  int16_t nd = 1, a = 1, b = 2, aus = 0, fe = 0;
  float g[5];
  std::string kom;
  peq::CalcCurve(s, nd, 343.15, 101.325, 0.5f, k1, k2, x, s.P0, a, b, aus, 0, 100.0f, g[0], g[1], g[2], g[3], g[4],
                 kom, fe, &sink);
  const auto r1 = Rows(r.out, "kurve1"), r2 = Rows(r.out, "kurve2");
  ASSERT_EQ(r1.size(), k1.size() - 1);
  ASSERT_EQ(r2.size(), k2.size() - 1);
  EXPECT_EQ(NumberOf(r.out, "n1"), k1[0].x);
  for (std::size_t i = 0; i < r1.size(); ++i) {
    ASSERT_EQ(r1[i].size(), 3u);
    EXPECT_EQ(r1[i][0], k1[i + 1].x);
    EXPECT_EQ(r1[i][1], k1[i + 1].y);
    EXPECT_EQ(r1[i][2], k1[i + 1].z);
    EXPECT_EQ(r2[i][0], k2[i + 1].x);
    EXPECT_EQ(r2[i][1], k2[i + 1].y);
  }
  EXPECT_EQ(NumberOf(r.out, "zcode"), -1);
  EXPECT_EQ(NumberOf(r.out, "ausserhalb"), 0);
  EXPECT_EQ(NumberOf(r.out, "fehler"), 0);
  EXPECT_EQ(StringOf(r.out, "kommentar"), kom);
  EXPECT_EQ(kom.rfind("pure-substance vapour pressures at T/K = 343.15     p0,1/kPa = ", 0), 0u);
  EXPECT_EQ(NumberOf(r.out, "hatgap"), 0);
}

TEST(PeqcalcCurve, IsothermalXYCarriesTheAzeotropeComment) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "curve", "3", "--T", "343.15", "--points", "100"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(StringOf(r.out, "kommentar").rfind("p-Maximum azeotrope, x(2) = 0.", 0), 0u) << r.out;
  EXPECT_EQ(NumberOf(r.out, "zcode"), -2);
  const auto r1 = Rows(r.out, "kurve1");
  ASSERT_GT(r1.size(), 50u);
  EXPECT_EQ(r1.front()[0], 0.0);
  EXPECT_EQ(r1.back()[0], 1.0);
  // Without --ymin/--ymax the y range is the span of the points widened by 5 %.
  EXPECT_NEAR(NumberOf(r.out, "ymin"), -0.05, 1e-6);
  EXPECT_NEAR(NumberOf(r.out, "ymax"), 1.05, 1e-6);
}

TEST(PeqcalcCurve, IsobaricTxInKelvin) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "curve", "4", "--p", "101.325", "--points", "50"});
  ASSERT_EQ(r.code, 0) << r.err;
  const auto r1 = Rows(r.out, "kurve1");
  ASSERT_GT(r1.size(), 50u);
  // Pure water at the start (x2 = 1) and pure ethanol at the end, boiling near 373.15 and 351.4 K.
  EXPECT_EQ(r1.front()[0], 1.0);
  EXPECT_NEAR(r1.front()[1], 373.15, 0.2);
  EXPECT_NEAR(r1.back()[1], 351.4, 0.3);
  EXPECT_EQ(r1.front()[2], static_cast<float>(101.325));
}

TEST(PeqcalcCurve, BinodalWithoutGapIsANoteAndFehler) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "curve", "41", "--T", "300"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.err.find("Note: No mixing gap calculated!"), std::string::npos) << r.err;
  EXPECT_EQ(NumberOf(r.out, "fehler"), -1);
  EXPECT_EQ(NumberOf(r.out, "n1"), 0);
}

TEST(PeqcalcCurve, BadUsage) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve", "1"}).code, 64);             // isothermal needs --T
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve", "4", "--T", "300"}).code, 64);  // isobaric needs --p
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve", "999", "--T", "300"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve", "1", "--T", "x"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "curve", "7", "--x2", "0.5", "--bogus", "1"}).code, 64);
}
