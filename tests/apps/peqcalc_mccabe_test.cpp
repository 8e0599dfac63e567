// peqcalc mccabe: the design of the ethanol/water example through the command line gives the
// numbers of RRMin and the plate stepping, and a refused design prints the dialog's text with
// exit code 2.
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "distillation/design.h"
#include "distillation/mccabe.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "models/eos_pure.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

// The numbers of a matrix behind "key": (rows of [x, y]), in order.
std::vector<double> MatrixNumbers(const std::string& json, const std::string& key) {
  std::vector<double> v;
  std::size_t p = json.find("\"" + key + "\": [");
  if (p == std::string::npos) return v;
  p = json.find('[', p) + 1;
  const std::size_t e = json.find("]]", p);
  std::string body = json.substr(p, e == std::string::npos ? std::string::npos : e - p + 1);
  for (char& c : body)
    if (c == '[' || c == ']' || c == ',') c = ' ';
  const char* c = body.c_str();
  char* end = nullptr;
  for (;;) {
    const double d = std::strtod(c, &end);
    if (end == c) break;
    v.push_back(d);
    c = end;
  }
  return v;
}

TEST(PeqcalcMcCabe, WaterSideOfTheAzeotropeMatchesTheRoutines) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {kProject, "mccabe", "--p", "101.325", "--top", "0.1", "--bottom", "0.02", "--feed", "0.05", "--rr", "15"});
  ASSERT_EQ(r.code, 0) << r.err;
  // The same design through the routines of the dialog.
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  ASSERT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  ASSERT_TRUE(peq::EOSTabellenBerechnen(s));
  s.IsoArt = 2;
  peq::ThieleDaten d;
  d.p = 101.325;
  d.XKopf = 0.1f;
  d.XSumpf = 0.02f;
  d.XFeed = 0.05f;
  d.RR = 15.0f;
  float rrMin = 0;
  peq::ThieleAzeotrop az;
  ASSERT_TRUE(peq::ThieleAuslegung(s, d, rrMin, az, sink));
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(NumberOf(r.out, "rrmin"), double(rrMin));
  EXPECT_GT(rrMin, 1.0f);
  EXPECT_EQ(NumberOf(r.out, "plates_upper"), d.BoedenOben);
  EXPECT_EQ(NumberOf(r.out, "plates_lower"), d.BoedenUnten);
  EXPECT_EQ(NumberOf(r.out, "xende"), double(d.XEnde));
  const std::vector<double> steps = MatrixNumbers(r.out, "steps");
  ASSERT_EQ(static_cast<int>(steps.size()), 2 * n);
  EXPECT_EQ(steps[2], double(xs[1]));
  EXPECT_NE(r.out.find("\"azeotrope\": {\"found\": -1, \"x2\": "), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"kind\": -1}"), std::string::npos);
}

TEST(PeqcalcMcCabe, TopBeyondTheAzeotropeIsRefusedWithTheText) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {kProject, "mccabe", "--p", "101.325", "--top", "0.95", "--bottom", "0.05", "--feed", "0.5", "--rr", "3"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Execution not possible: Between top and bottom concentration may not be an azeotropic "
                       "point situated!\ntop and bottom concentrations x2 have to be less than the azeotropic "
                       "concentrations."),
            std::string::npos)
      << r.err;
}

TEST(PeqcalcMcCabe, BelowTheMinimumAndBadUsage) {
  peqtest::PeqcalcRun r = peqtest::RunPeqcalc(
      {kProject, "mccabe", "--p", "101.325", "--top", "0.1", "--bottom", "0.02", "--feed", "0.05", "--rr", "2"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("The reflux ratio chosen has to be greater than the minimum-RR!"), std::string::npos);
  r = peqtest::RunPeqcalc({kProject, "mccabe", "--p", "101.325", "--top", "0.1"});
  EXPECT_EQ(r.code, 64);
  r = peqtest::RunPeqcalc(
      {kProject, "mccabe", "--p", "101.325", "--top", "1.5", "--bottom", "0.02", "--feed", "0.05", "--rr", "2"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("the input concentrations have to be in the range 0 < x < 1"), std::string::npos);
}

}  // namespace
