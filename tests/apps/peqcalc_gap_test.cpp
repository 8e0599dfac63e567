// peqcalc azeotrope, spinodal, binodal, gap-range and excess: the numbers of IsBinaerAzeotrop,
// FindGM2Zeros, Binodal, GapRange, ExcessT and ExcessCp for a project, printed with 17
// significant digits.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "engine/azeotrope.h"
#include "engine/excess.h"
#include "engine/gap.h"
#include "models/eos_pure.h"
#include "models/eos_test_session.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

namespace fs = std::filesystem;

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

std::string StringOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": \"");
  if (p == std::string::npos) return "<none>";
  const std::size_t a = p + key.size() + 5, b = json.find('"', a);
  return json.substr(a, b - a);
}

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";
const std::string kTernary = peqtest::SourceDir() + "/examples/acetone-methanol-water.PQC";

peq::Session Loaded(const std::string& file) {
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  EXPECT_EQ(peq::ProjektLaden(s, file, &sink), peq::LoadStage::Loaded);
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  return s;
}

// The ethanol/water project with Redlich-Kister A = -2 + 1700 K/T (B = C = 0, dimensionless): a
// mixing gap below 425 K, written as a project of its own.
struct GapProject {
  fs::path dir, file;
  GapProject() {
    dir = fs::temp_directory_path() / ("peqgap-" + std::to_string(::getpid()));
    fs::create_directories(dir);
    file = dir / "gap.PQC";
    peq::Session s = Loaded(kProject);
    s.GEModel = 4;
    s.GEPar.fill(0.0);
    peqtest::SetSlot(s, 1, 1, 2, -2.0);
    peqtest::SetSlot(s, 2, 1, 2, 1700.0);
    std::string err;
    EXPECT_TRUE(peq::ProjektSchreiben(s, file.string(), "mixing gap test", err)) << err;
  }
  ~GapProject() {
    std::error_code ec;
    fs::remove_all(dir, ec);
  }
};

TEST(PeqcalcGap, AzeotropeIsIsBinaerAzeotrop) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "azeotrope", "--p", "101.325"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded(kProject);
  s.IsoArt = 2;
  double x = 0;
  int16_t kind = 0, overrun = 0;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, s.TIso, 101.325, x, kind, overrun, nullptr));
  EXPECT_EQ(NumberOf(r.out, "found"), -1);
  EXPECT_EQ(NumberOf(r.out, "x2"), x);
  EXPECT_EQ(NumberOf(r.out, "kind"), -1);
  EXPECT_EQ(NumberOf(r.out, "overrun"), 0);
  // Ethanol-water at 1 atm: x(ethanol) about 0.89.
  EXPECT_NEAR(1.0 - x, 0.89, 0.015);

  const peqtest::PeqcalcRun t = peqtest::RunPeqcalc({kProject, "azeotrope", "--T", "343.15"});
  ASSERT_EQ(t.code, 0) << t.err;
  peq::Session k = Loaded(kProject);
  k.IsoArt = 1;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(k, 343.15, k.PIso, x, kind, overrun, nullptr));
  EXPECT_EQ(NumberOf(t.out, "x2"), x);
}

TEST(PeqcalcGap, AzeotropeUsage) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "azeotrope"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "azeotrope", "--x", "3"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "azeotrope", "--T", "abc"}).code, 64);
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kTernary, "azeotrope", "--T", "330"});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Execution not possible: azeotrope needs a binary mixture"), std::string::npos) << r.err;
}

TEST(PeqcalcGap, HomogeneousMixtureMessages) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "spinodal", "300"});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_EQ(StringOf(r.out, "msg"),
            "for the 2nd derivation of GM to x2 no solution found => homogeneous mixture");
  const peqtest::PeqcalcRun b = peqtest::RunPeqcalc({kProject, "binodal", "300"});
  ASSERT_EQ(b.code, 0) << b.err;
  EXPECT_EQ(NumberOf(b.out, "found"), 0);
  const peqtest::PeqcalcRun g = peqtest::RunPeqcalc({kProject, "gap-range", "101.325", "330", "370"});
  ASSERT_EQ(g.code, 0) << g.err;
  EXPECT_EQ(NumberOf(g.out, "found"), 0);
  EXPECT_EQ(StringOf(g.out, "msg"), "no mixing gap in the T-range considered");
}

TEST(PeqcalcGap, SpinodalBinodalAndGapRangeOfAProjectWithAGap) {
  GapProject p;
  peq::Session s = Loaded(p.file.string());
  ASSERT_EQ(s.GEModel, 4);

  const peqtest::PeqcalcRun sp = peqtest::RunPeqcalc({p.file.string(), "spinodal", "320"});
  ASSERT_EQ(sp.code, 0) << sp.err;
  double a = 0, b = 0;
  std::string msg;
  peq::FindGM2Zeros(s, 320.0, a, b, msg);
  EXPECT_EQ(msg, "");
  EXPECT_EQ(NumberOf(sp.out, "x1"), a);
  EXPECT_EQ(NumberOf(sp.out, "x2"), b);
  EXPECT_EQ(StringOf(sp.out, "msg"), "");

  const peqtest::PeqcalcRun bi = peqtest::RunPeqcalc({p.file.string(), "binodal", "320"});
  ASSERT_EQ(bi.code, 0) << bi.err;
  ASSERT_TRUE(peq::Binodal(s, 320.0, a, b, msg));
  EXPECT_EQ(NumberOf(bi.out, "found"), -1);
  EXPECT_EQ(NumberOf(bi.out, "xA"), a);
  EXPECT_EQ(NumberOf(bi.out, "xB"), b);

  const peqtest::PeqcalcRun g = peqtest::RunPeqcalc({p.file.string(), "gap-range", "101.325", "300", "340"});
  ASSERT_EQ(g.code, 0) << g.err;
  double T = 0;
  int16_t K = 0;
  const bool ok = peq::GapRange(s, 101.325, 300.0, 340.0, T, a, b, K, msg);
  EXPECT_EQ(NumberOf(g.out, "found"), ok ? -1 : 0);
  EXPECT_EQ(NumberOf(g.out, "T"), ok ? T : 0.0);
  EXPECT_EQ(NumberOf(g.out, "xA"), ok ? a : 0.0);
  EXPECT_EQ(NumberOf(g.out, "K"), K);
  EXPECT_EQ(StringOf(g.out, "msg"), msg);
}

TEST(PeqcalcGap, GapCommandsUsage) {
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "spinodal"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "binodal", "x"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "gap-range", "101.325", "300"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kTernary, "binodal", "300"}).code, 2);
}

TEST(PeqcalcGap, ExcessIsExcessTAndExcessCp) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "excess", "343.15", "0.3", "0.7"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded(kProject);
  const peq::Vec<double> x = peqtest::Comp({0.3, 0.7});
  double hE = 0, TsE = 0, gE = 0, cpE = 0;
  int16_t e1 = 0, e2 = 0;
  peq::ExcessT(s, 343.15, s.PIso, x, hE, TsE, gE, e1);
  peq::ExcessCp(s, 343.15, s.PIso, x, cpE, e2);
  ASSERT_EQ(e1, 0);
  ASSERT_EQ(e2, 0);
  EXPECT_EQ(NumberOf(r.out, "gE"), gE);
  EXPECT_EQ(NumberOf(r.out, "hE"), hE);
  EXPECT_EQ(NumberOf(r.out, "TsE"), TsE);
  EXPECT_EQ(NumberOf(r.out, "cpE"), cpE);
  EXPECT_EQ(NumberOf(r.out, "err"), 0);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "excess", "343.15", "0.3"}).code, 2);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "excess", "343.15"}).code, 64);
}

}  // namespace
