// The example data sets under examples/expdata: written by the data tool byte for byte, read back
// and written again byte for byte, and printed by peqcalc expdata beside a project, also with the
// substances of the file the other way round.
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "expdata/tpxdaten.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"
#include "support/peqcalc_run.h"

#define PEQ_MKEXPDATA_NO_MAIN
#include "../../tools/mkexpdata.cpp"

namespace {

namespace fs = std::filesystem;

std::string Bytes(const fs::path& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

// The numbers of the list of rows behind "points": in printed JSON, row after row.
std::vector<double> Zeilenwerte(const std::string& json) {
  std::vector<double> v;
  std::size_t p = json.find("\"points\": [");
  if (p == std::string::npos) return v;
  p = json.find('[', p) + 1;
  const std::size_t e = json.find("]]", p);
  std::string body = json.substr(p, e == std::string::npos ? std::string::npos : e - p);
  for (char& c : body)
    if (c == '[' || c == ']' || c == ',') c = ' ';
  std::istringstream in(body);
  double d = 0;
  while (in >> d) v.push_back(d);
  return v;
}

fs::path Examples() { return fs::path(peqtest::SourceDir()) / "examples" / "expdata"; }

TEST(Ex5Examples, EveryExampleReadsAndWritesBackByteForByte) {
  int n = 0;
  for (const auto& e : fs::directory_iterator(Examples())) {
    if (e.path().extension() != ".EX5") continue;
    ++n;
    const std::string b = Bytes(e.path());
    const peq::Ex5Inhalt d = peq::LeseEx5(b);
    ASSERT_TRUE(d.Fehler.empty()) << e.path() << ": " << d.Fehler;
    ASSERT_EQ(static_cast<int>(d.Punkte.size()), d.Anzahl);
    EXPECT_GE(d.Anzahl, 10);
    for (const peq::ExpPunkt& p : d.Punkte) {
      EXPECT_GT(p.T, 0);
      EXPECT_GT(p.p, 0);
      EXPECT_TRUE(p.x2L >= 0 && p.x2L <= 1);
      EXPECT_TRUE(p.x2V >= 0 && p.x2V <= 1);
    }
    EXPECT_EQ(peq::Ex5Text(d.Cas1, d.Name1, d.Cas2, d.Name2, d.Kommentar1, d.Kommentar2, d.Punkte.data(),
                           d.Anzahl),
              b)
        << e.path();
  }
  EXPECT_EQ(n, 7);
}

TEST(Ex5Examples, TheToolReproducesThemByteForByte) {
  // The shared data folder beside the checkout (or beside the folder of worktrees).
  fs::path vle = fs::path(peqtest::SourceDir()) / ".." / "shared" / "data" / "vle";
  if (!fs::is_directory(vle)) vle = fs::path(peqtest::SourceDir()) / ".." / ".." / "shared" / "data" / "vle";
  if (!fs::is_directory(vle)) GTEST_SKIP() << "no " << vle;
  peqtest::TempDir out;
  ASSERT_TRUE(mkexpdata::MakeAll(vle.string(), (fs::path(peqtest::SourceDir()) / "data").string(), out.path()));
  int n = 0;
  for (const auto& e : fs::directory_iterator(out.path())) {
    ++n;
    EXPECT_EQ(Bytes(e.path()), Bytes(Examples() / e.path().filename()))
        << e.path().filename() << ": run mkexpdata ../shared/data/vle data examples/expdata";
  }
  EXPECT_EQ(n, 7);
}

TEST(Ex5Examples, PeqcalcPrintsTheFileAsLoaded) {
  const std::string project = (fs::path(peqtest::SourceDir()) / "examples" / "ethanol-water.PQC").string();
  const peqtest::PeqcalcRun r =
      peqtest::RunPeqcalc({project, "expdata", (Examples() / "ETHANOL_WATER_101KPA.EX5").string()});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("\"swapped\": 0"), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"titel\": \"(1) "), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("\"kommentar1\": \"Rieder & Thompson"), std::string::npos) << r.out;
  const std::vector<double> v = Zeilenwerte(r.out);
  ASSERT_EQ(v.size(), 34u * 4);
  for (std::size_t i = 0; i < v.size(); i += 4) EXPECT_NEAR(v[i + 1], 101.325, 1e-4);
}

TEST(Ex5Examples, PeqcalcAdaptsAFileOfTheSubstancesTheOtherWayRound) {
  const std::string project = (fs::path(peqtest::SourceDir()) / "examples" / "ethanol-water.PQC").string();
  const std::string b = Bytes(Examples() / "ETHANOL_WATER_101KPA.EX5");
  peq::Ex5Inhalt d = peq::LeseEx5(b);
  ASSERT_TRUE(d.Fehler.empty());
  for (peq::ExpPunkt& p : d.Punkte) {
    p.x2L = 1.0f - p.x2L;
    p.x2V = 1.0f - p.x2V;
  }
  peqtest::TempDir dir;
  const std::string f = peqtest::WriteBytes(
      dir.path(), "REV.EX5",
      peq::Ex5Text(d.Cas2, d.Name2, d.Cas1, d.Name1, "reverse", "", d.Punkte.data(), d.Anzahl));
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({project, "expdata", f});
  ASSERT_EQ(r.code, 0) << r.err;
  EXPECT_NE(r.out.find("\"swapped\": -1"), std::string::npos) << r.out;
  const std::vector<double> v = Zeilenwerte(r.out);
  const peq::Ex5Inhalt orig = peq::LeseEx5(b);
  ASSERT_EQ(v.size(), orig.Punkte.size() * 4);
  for (std::size_t i = 0; i < orig.Punkte.size(); ++i) {
    EXPECT_NEAR(v[4 * i + 2], orig.Punkte[i].x2L, 2e-7);
    EXPECT_NEAR(v[4 * i + 3], orig.Punkte[i].x2V, 2e-7);
  }
}

TEST(Ex5Examples, PeqcalcRefusesABrokenFileWithTheWords) {
  const std::string project = (fs::path(peqtest::SourceDir()) / "examples" / "ethanol-water.PQC").string();
  peqtest::TempDir dir;
  const std::string f = peqtest::WriteBytes(dir.path(), "BAD.EX5", "not an EX5 file\n");
  const peqtest::PeqcalcRun r = peqtest::RunPeqcalc({project, "expdata", f});
  EXPECT_EQ(r.code, 2);
  EXPECT_NE(r.err.find("Error: "), std::string::npos) << r.err;
  EXPECT_EQ(peqtest::RunPeqcalc({project, "expdata"}).code, 64);
}

}  // namespace
