// The 3D diagram file under a write that fails: the temporary file cannot be created (a directory
// stands where it would go) or the disk fills half way (a file-size limit smaller than the new
// file). The old file must stay intact byte for byte, no temporary file may be left behind, and
// the window shows the box "Error" with the reason.
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "diagrams/surface_file.h"
#include "models/eos_pure.h"
#include "reliability/disk_full.h"
#include "session/loadpath.h"
#include "support/fuzzy.h"
#include "windows/frame_fixture.h"

namespace {

namespace fs = std::filesystem;

std::string Bytes(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

using peqtest::DiskFull;

constexpr const char* kOld = "{\"an old\": \"diagram file\"}\n";

struct OC3Write : ::testing::Test {
  void SetUp() override {
    e.s.PfadBank = peqtest::BinaryDir() + "/";
    peq::MsgSink sink;
    ASSERT_EQ(peq::ProjektLaden(e.s, peqtest::SourceDir() + "/examples/ethanol-water.PQC", &sink),
              peq::LoadStage::Loaded);
    ASSERT_TRUE(peq::EOSTabellenBerechnen(e.s));
    e.s.NoDia3 = 0;
    ASSERT_TRUE(e.f.Graph3D.Form_Load(e.f));
    std::string m;
    ASSERT_TRUE(e.f.Graph3D.Gittergroesse(20, 20, m));
    e.f.Graph3D.cmdDraw_Click(e.f);
    file = (fs::path(e.dir.path()) / "MINE.oc3").string();
    std::ofstream(file, std::ios::binary) << kOld;
    e.ui.boxes.clear();
  }
  peqtest::FrameEnv e;
  std::string file;
};

TEST_F(OC3Write, ASaveThatCannotCreateItsTemporaryFileKeepsTheOldFile) {
  fs::create_directory(file + ".tmp~");
  EXPECT_FALSE(e.f.Graph3D.SpeichernAls(e.f, file));
  EXPECT_EQ(Bytes(file), kOld);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_FALSE(e.ui.Last().text.empty());
}

TEST_F(OC3Write, ASaveOnAFullDiskKeepsTheOldFileAndLeavesNoTemporaryFile) {
  {
    DiskFull full(256);
    EXPECT_FALSE(e.f.Graph3D.SpeichernAls(e.f, file));
  }
  EXPECT_EQ(Bytes(file), kOld);
  EXPECT_FALSE(fs::exists(file + ".tmp~"));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  // With room again the save goes through, and the file loads back into the window.
  EXPECT_TRUE(e.f.Graph3D.SpeichernAls(e.f, file));
  EXPECT_NE(Bytes(file), kOld);
  const float z = e.f.Graph3D.ResFeld(5, 5);
  e.f.Graph3D.ResFeld(5, 5) = 0;
  EXPECT_TRUE(e.f.Graph3D.LadenVon(e.f, file));
  EXPECT_EQ(e.f.Graph3D.ResFeld(5, 5), z);
}

TEST_F(OC3Write, LoadingADamagedFileShowsTheReasonAndKeepsTheWindow) {
  const float z = e.f.Graph3D.ResFeld(3, 3);
  EXPECT_FALSE(e.f.Graph3D.LadenVon(e.f, file));  // the old file is no diagram document
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, peq::kKeinDiagramm);
  EXPECT_EQ(e.f.Graph3D.ResFeld(3, 3), z);
  // Through the menu: the note first, then the open dialog.
  e.ui.boxes.clear();
  peq::FileDialogResult r;
  r.cancelled = false;
  r.fileName = file;
  r.fileTitle = "MINE.oc3";
  e.ui.files.push_back(r);
  EXPECT_FALSE(e.f.Graph3D.mnuLoadOC3_Click(e.f));
  ASSERT_EQ(e.ui.boxes.size(), 2u);
  EXPECT_EQ(e.ui.boxes[0].title, "Single Note");
  ASSERT_FALSE(e.ui.fileDialogs.empty());
  EXPECT_EQ(e.ui.fileDialogs.back().title, "Load a saved pattern (*.oc3)");
  EXPECT_EQ(e.ui.fileDialogs.back().filter, "picture file (*.oc3)|*.oc3");
}

}  // namespace
