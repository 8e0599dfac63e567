// The writers of the experimental data under a write that fails: the EX5 file of the data window,
// the XY file of the XY editor and a curve saved as XY from the diagram. The temporary file cannot
// be created (a directory stands where it would go) or the disk fills half way (a file-size limit
// smaller than the new file): the old file stays intact byte for byte, no temporary file is left,
// and the user sees the system's words under "Error".
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "reliability/disk_full.h"
#include "windows/frame_fixture.h"

namespace {

namespace fs = std::filesystem;

std::string Bytes(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

void Put(const std::string& file, const std::string& bytes) {
  std::ofstream f(file, std::ios::binary | std::ios::trunc);
  f << bytes;
}

using peqtest::DiskFull;

constexpr const char* kOld = "an old file\r\nwith two lines\r\n";

class ExpWrite : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"67-56-1", "7732-18-5"});
    e.f.Run(peqtest::C(peq::Cmd::mnuExpInput));
    e.ui.clipboard.clear();
    for (int i = 0; i < 40; ++i) e.ui.clipboard += "333.15\t39.223\t0.1686\t0.5714\n";
    e.f.TpxEdit.cmdClipEinfuegen_Click(e.f);
    file = (fs::path(e.dir.path()) / "OLD.EX5").string();
    Put(file, kOld);
    e.ui.boxes.clear();
  }
  void Save() {
    peq::FileDialogResult r;
    r.cancelled = false;
    r.fileName = file;
    r.fileTitle = "OLD.EX5";
    e.ui.files.push_back(r);
    e.f.TpxEdit.cmdSave_Click(e.f);
  }
  void ExpectFailed() {
    EXPECT_EQ(Bytes(file), kOld);
    EXPECT_FALSE(fs::exists(file + ".tmp~"));
    ASSERT_EQ(e.ui.boxes.size(), 1u);
    EXPECT_EQ(e.ui.Last().title, "Error");
    EXPECT_FALSE(e.ui.Last().text.empty());
    EXPECT_TRUE(e.s.ExpUngespeichert);
  }
  peqtest::FrameEnv e;
  std::string file;
};

TEST_F(ExpWrite, AnEx5SaveThatCannotCreateItsTemporaryFileKeepsTheOldFile) {
  fs::create_directory(file + ".tmp~");
  Save();
  EXPECT_EQ(Bytes(file), kOld);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_TRUE(e.s.ExpUngespeichert);
}

TEST_F(ExpWrite, AnEx5SaveOnAFullDiskKeepsTheOldFileAndSaysDiskFull) {
  {
    DiskFull full(256);
    Save();
  }
  ExpectFailed();
  EXPECT_EQ(e.ui.Last().text, "Disk full");
  Save();
  EXPECT_NE(Bytes(file), kOld);
  EXPECT_FALSE(e.s.ExpUngespeichert);
}

TEST(XYWrite, AnXYSaveAndACurveSavedAsXYOnAFullDiskKeepTheOldFile) {
  peqtest::FrameEnv e;
  e.Start();
  e.f.Run(peqtest::C(peq::Cmd::mnuEditXY));
  peq::frmManuInput& w = e.f.ManuInput;
  e.ui.clipboard.clear();
  for (int i = 0; i < 40; ++i) e.ui.clipboard += std::to_string(i) + "\t" + std::to_string(i * i) + "\n";
  w.cmdClipEinfuegen_Click(e.f);
  ASSERT_EQ(e.s.XYAnz, 40);
  const std::string file = (fs::path(e.dir.path()) / "OLD.XY").string();
  Put(file, kOld);
  {
    DiskFull full(256);
    EXPECT_FALSE(w.Speichern(e.f, file));
  }
  EXPECT_EQ(Bytes(file), kOld);
  EXPECT_FALSE(fs::exists(file + ".tmp~"));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Disk full");

  // A curve of the diagram saved as XY.
  peq::frmGraph2D& g = e.f.Graph2D;
  for (int i = 0; i < 40; ++i) {
    g.Doc.Serien[1].x.push_back(static_cast<float>(i));
    g.Doc.Serien[1].y.push_back(static_cast<float>(i));
  }
  fs::create_directory(file + ".tmp~");
  EXPECT_FALSE(g.KurveAlsXYSpeichern(e.f, 1, file));
  EXPECT_EQ(Bytes(file), kOld);
  EXPECT_EQ(e.ui.Last().title, "Error");
  fs::remove(file + ".tmp~");
  EXPECT_TRUE(g.KurveAlsXYSpeichern(e.f, 1, file));
  EXPECT_NE(Bytes(file), kOld);
}

}  // namespace
