// peqcalc tangent: the value of a mixing or excess function and the intercepts of its tangent at
// x2 = 0 and 1, printed from the point calculator's routine, with null at a diverging end.
#include <cmath>
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "engine/tangent.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

bool IsNull(const std::string& json, const std::string& key) {
  return json.find("\"" + key + "\": null") != std::string::npos;
}

TEST(PeqcalcTangent, GEInterceptsAreThoseOfThePointCalculator) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "tangent", "110", "0.3", "--T", "343.15"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  ASSERT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  ASSERT_TRUE(peq::EOSTabellenBerechnen(s));
  peq::TangentWerte t;
  ASSERT_TRUE(peq::TangenteRechnen(s, 110, 0.3, 343.15, s.PIso, s.Komp1, s.Komp2, t));
  EXPECT_REL(NumberOf(r.out, "y"), t.y, 1e-15);
  EXPECT_REL(NumberOf(r.out, "partial1"), t.Partial1, 1e-15);
  EXPECT_REL(NumberOf(r.out, "partial2"), t.Partial2, 1e-15);
  // Ethanol and water both deviate positively from Raoult's law here.
  EXPECT_GT(t.Partial1, 0);
  EXPECT_GT(t.Partial2, 0);
}

TEST(PeqcalcTangent, PureEndOfDeltaMgIsNull) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "tangent", "120", "0", "--T", "343.15"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(NumberOf(r.out, "partial1"), 0.0);
  EXPECT_TRUE(IsNull(r.out, "partial2")) << r.out;
}

TEST(PeqcalcTangent, UsageAndRefusals) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "tangent", "110"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "tangent", "110", "0.3", "--x", "1"}).code, 64);
  const peqtest::PeqcalcRun a = peqtest::RunPeqcalc({kProject, "tangent", "1", "0.3"});
  EXPECT_EQ(a.code, 2);
  EXPECT_NE(a.err.find("Execution not possible: tangent is only for"), std::string::npos) << a.err;
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "tangent", "110", "1.2"}).code, 2);
}

}  // namespace
