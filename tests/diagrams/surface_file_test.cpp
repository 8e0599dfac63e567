// The 3D diagram file (*.oc3): what is written reads back to the same document, holes as null;
// the shared envelope is checked; damaged files are refused with a reason and change nothing.
#include "diagrams/surface_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "engine/kernel_test_sessions.h"
#include "support/fixtures.h"

namespace {

peq::Dokument3D Beispiel() {
  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 0;
  peq::Dokument3D d;
  EXPECT_TRUE(peq::InitGraph3D(s, 0, d.Aufbau));
  d.Grenzen = d.Aufbau.Grenzen;
  d.Grenzen.YMin = 400;  // the second row lies above T(cr): holes
  d.Grenzen.YMax = 1000;
  d.Grenzen.ZMax = 2000;
  EXPECT_EQ(peq::Calc_3DArray(s, 0, 3, 2, d.ResFeld, d.Grenzen, false), 3);
  d.Gezeichnet = true;
  d.GapSuche = true;
  d.Drehung = 12.5f;
  d.Neigung = 33;
  d.Zoom = 140;
  return d;
}

}  // namespace

TEST(SurfaceFile, WrittenDocumentReadsBackTheSame) {
  const peq::Dokument3D d = Beispiel();
  const std::string text = peq::Dokument3DText(d);
  EXPECT_NE(text.find("\"format\": \"PEQ diagram\""), std::string::npos);
  EXPECT_NE(text.find("\"kind\": \"3d\""), std::string::npos);
  EXPECT_NE(text.find("null"), std::string::npos);
  peq::Dokument3D r;
  std::string err;
  ASSERT_TRUE(peq::Dokument3DLesen(text, r, err)) << err;
  EXPECT_EQ(r.Aufbau.NoDia3, 0);
  EXPECT_EQ(r.Aufbau.Titel, d.Aufbau.Titel);
  EXPECT_EQ(r.Aufbau.YAchse, "T/K ");
  EXPECT_EQ(r.Aufbau.GrenzText, d.Aufbau.GrenzText);
  EXPECT_EQ(r.Grenzen.YMin, 400.0f);
  EXPECT_EQ(r.Grenzen.ZMax, 2000.0f);
  EXPECT_EQ(r.Grenzen.ZMin, peq::kOhneZMin);
  ASSERT_EQ(r.ResFeld.IXDim(), 3);
  ASSERT_EQ(r.ResFeld.IYDim(), 2);
  for (int j = 1; j <= 2; ++j)
    for (int i = 1; i <= 3; ++i) EXPECT_EQ(r.ResFeld(i, j), d.ResFeld(i, j)) << i << "," << j;
  EXPECT_EQ(r.ResFeld(2, 2), peq::kLoch3D);
  EXPECT_TRUE(r.Gezeichnet);
  EXPECT_TRUE(r.GapSuche);
  EXPECT_EQ(r.Drehung, 12.5f);
  EXPECT_EQ(r.Neigung, 33.0f);
  EXPECT_EQ(r.Zoom, 140.0f);
}

TEST(SurfaceFile, SavedFileLoadsAndAMissingFileIsRefused) {
  peqtest::TempDir dir;
  const std::string file = (std::filesystem::path(dir.path()) / "surface.oc3").string();
  std::string err;
  ASSERT_TRUE(peq::SpeichereOC3(file, Beispiel(), err)) << err;
  peq::Dokument3D r;
  ASSERT_TRUE(peq::LadeOC3(file, r, err)) << err;
  EXPECT_EQ(r.ResFeld.IXDim(), 3);
  EXPECT_FALSE(peq::LadeOC3(file + "x", r, err));
  EXPECT_FALSE(err.empty());
}

TEST(SurfaceFile, DamagedDocumentsAreRefusedAndChangeNothing) {
  const std::string good = peq::Dokument3DText(Beispiel());
  peq::Dokument3D r = Beispiel();
  r.Zoom = 77;
  std::string err;
  auto refused = [&](std::string text, const char* what) {
    err.clear();
    EXPECT_FALSE(peq::Dokument3DLesen(text, r, err)) << what;
    EXPECT_FALSE(err.empty()) << what;
    EXPECT_EQ(r.Zoom, 77.0f) << what;
  };
  auto replaced = [&](const std::string& from, const std::string& to) {
    std::string t = good;
    const std::size_t p = t.find(from);
    EXPECT_NE(p, std::string::npos) << from;
    if (p != std::string::npos) t.replace(p, from.size(), to);
    return t;
  };
  refused("", "empty");
  refused("[1, 2]", "not an object");
  refused(good.substr(0, good.size() / 2), "cut in half");
  refused(replaced("\"PEQ diagram\"", "\"other\""), "format");
  refused(replaced("\"kind\": \"3d\"", "\"kind\": \"2d\""), "a 2D diagram");
  refused(replaced("\"version\": 1", "\"version\": 2"), "version 2");
  refused(replaced("\"version\": 1", "\"version\": \"1\""), "version as text");
  refused(replaced("\"nodia3\": 0", "\"nodia3\": 8"), "unknown surface");
  refused(replaced("\"nx\": 3", "\"nx\": 4"), "rows shorter than nx");
  refused(replaced("\"ny\": 2", "\"ny\": 100000"), "huge grid");
  refused(replaced("null", "\"x\""), "text in the grid");
  refused(replaced("null", "1e300"), "beyond single precision");
  refused(replaced("\"xmin\": 0.0", "\"xmin\": null"), "bound missing");
}
