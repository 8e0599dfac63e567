// peqcalc bubble-p, bubble-t, dew-p, dew-t and eos: the numbers of the kernel routines for the
// example project, printed with 17 significant digits.
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

#include "engine/kernel.h"
#include "models/eos_mix.h"
#include "models/eos_phi.h"
#include "models/eos_pure.h"
#include "models/eos_solve.h"
#include "models/eos_test_session.h"
#include "models/pureprops.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

namespace {

namespace fs = std::filesystem;

double NumberOf(const std::string& json, const std::string& key) {
  const std::size_t p = json.find("\"" + key + "\": ");
  if (p == std::string::npos) return -12345;
  return std::strtod(json.c_str() + p + key.size() + 4, nullptr);
}

const std::string kProject = peqtest::SourceDir() + "/examples/ethanol-water.PQC";

peq::Session Loaded() {
  peq::Session s;
  s.PfadBank = peqtest::BinaryDir() + "/";
  peq::MsgSink sink;
  EXPECT_EQ(peq::ProjektLaden(s, kProject, &sink), peq::LoadStage::Loaded);
  EXPECT_TRUE(peq::EOSTabellenBerechnen(s));
  return s;
}

}  // namespace

TEST(PeqcalcKernel, BubblePressureIsCalcBubbleP) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "bubble-p", "343.15", "0.252", "0.748"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  const peq::Vec<double> x = peqtest::Comp({0.252, 0.748}), y0(3, 0.0);
  double vL, vV;
  const double p = peq::CalcBubbleP(s, 343.15, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  ASSERT_GT(p, 0);
  EXPECT_EQ(NumberOf(r.out, "p"), p);
  const auto y = peqtest::JsonNumbers(r.out, "y"), K = peqtest::JsonNumbers(r.out, "K"), g = peqtest::JsonNumbers(r.out, "gamma");
  ASSERT_EQ(y.size(), 2u);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(y[i - 1], s.YGas[i]);
    EXPECT_EQ(K[i - 1], s.KWert[i]);
    EXPECT_EQ(g[i - 1], s.Gamma[i]);
  }
  EXPECT_EQ(NumberOf(r.out, "vL"), 0.0);
  EXPECT_EQ(NumberOf(r.out, "vV"), 0.0);
}

TEST(PeqcalcKernel, BubbleTemperatureIsCalcBubbleT) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "bubble-t", "101.325", "0.252", "0.748"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  const peq::Vec<double> x = peqtest::Comp({0.252, 0.748}), y0(3, 0.0);
  double vL, vV, Tin = 0;
  int16_t warn;
  const double T = peq::CalcBubbleT(s, 101.325, x, Tin, y0, warn, s.KWert, vL, vV);
  ASSERT_GT(T, 0);
  EXPECT_EQ(NumberOf(r.out, "T"), T);
  EXPECT_EQ(peqtest::JsonNumbers(r.out, "y")[0], s.YGas[1]);
  EXPECT_EQ(peqtest::JsonNumbers(r.out, "K")[1], s.KWert[2]);
}

TEST(PeqcalcKernel, DewPointsAreCalcDewPAndCalcDewT) {
  const peqtest::PeqcalcRun rp = peqtest::RunPeqcalc({kProject, "dew-p", "343.15", "0.5", "0.5"});
  const peqtest::PeqcalcRun rt = peqtest::RunPeqcalc({kProject, "dew-t", "101.325", "0.5", "0.5"});
  ASSERT_EQ(rp.code, 0) << rp.err;
  ASSERT_EQ(rt.code, 0) << rt.err;
  peq::Session s = Loaded();
  const peq::Vec<double> y = peqtest::Comp({0.5, 0.5});
  int16_t err, dT;
  peq::AllPureProps(s, 343.15, err, dT);
  const float p = peq::CalcDewP(s, 343.15, y);
  ASSERT_GT(p, 0.0f);
  EXPECT_EQ(NumberOf(rp.out, "p"), p);
  EXPECT_EQ(peqtest::JsonNumbers(rp.out, "x")[0], s.XLiq[1]);
  peq::Session s2 = Loaded();
  const float T = peq::CalcDewT(s2, 101.325, y, 0.0);
  ASSERT_GT(T, 0.0f);
  EXPECT_EQ(NumberOf(rt.out, "T"), T);
  EXPECT_EQ(peqtest::JsonNumbers(rt.out, "K")[1], s2.KWert[2]);
}

TEST(PeqcalcKernel, EosGivesRootsVolumesAndBothFugacityCoefficients) {
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, "eos", "343.15", "101.325", "0.252", "0.748"});
  ASSERT_EQ(r.code, 0) << r.err;
  peq::Session s = Loaded();
  if (!s.Konzept) std::swap(s.GEPar, s.GEParAlt);
  int16_t err = 0;
  peq::EOSSetPure(s, s.EOSModel, err);
  const peq::Vec<double> z = peqtest::Comp({0.252, 0.748});
  const std::array<peq::Vec<double>, 2> cm{z, z};
  peq::EOSMixPar m;
  m.Alloc(3);
  peq::EOSMix(s, 0, cm, 343.15, s.EOSModel, s.MixRule, s.GEModelEOS, 0, m);
  peq::EOSRoots roots{};
  int16_t nr;
  peq::EOSSolve(343.15, 101.325, 0, m.a, m.b, m.c, m.d, roots, nr, err);
  const auto ro = peqtest::JsonNumbers(r.out, "roots");
  ASSERT_EQ(ro.size(), 3u);
  for (int k = 1; k <= 3; ++k) EXPECT_EQ(ro[k - 1], roots[k]);
  EXPECT_EQ(NumberOf(r.out, "nroots"), nr);
  const double vL = peq::LiquidRoot(roots), vV = peq::VapourRoot(roots, nr);
  EXPECT_EQ(NumberOf(r.out, "vL"), vL);
  EXPECT_EQ(NumberOf(r.out, "vV"), vV);
  const auto pl = peqtest::JsonNumbers(r.out, "phiL"), pv = peqtest::JsonNumbers(r.out, "phiV");
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(pl[i - 1], peq::EOSLnPhi(343.15, 101.325, vL, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]));
    EXPECT_EQ(pv[i - 1], peq::EOSLnPhi(343.15, 101.325, vV, s.EOSModel, m.a, m.b, m.c, m.d, m.da[i], m.db[i], m.dc[i], m.dd[i]));
  }
  EXPECT_EQ(NumberOf(r.out, "err"), 0);
}

TEST(PeqcalcKernel, WrongNumberOfFractionsIsRefused) {
  for (const char* c : {"bubble-p", "bubble-t", "dew-p", "dew-t"}) {
    const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({kProject, c, "343.15", "0.3"});
    EXPECT_EQ(r.code, 2) << c;
    EXPECT_NE(r.err.find("Execution not possible: "), std::string::npos) << c;
  }
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "eos", "343.15", "100", "0.3"}).code, 2);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "bubble-p", "abc", "0.3", "0.7"}).code, 64);
  EXPECT_EQ(peqtest::RunPeqcalc({kProject, "eos", "343.15"}).code, 64);
}
