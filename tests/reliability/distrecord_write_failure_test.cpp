// The distillation record under a write that fails: the temporary file cannot be created, or the
// disk fills half way. No file of that name appears, no temporary file is left, the rows stay in
// the window, the user sees "Error" with the system's text, and with room again the same rows
// are written.
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "reliability/disk_full.h"
#include "windows/distprotokoll.h"
#include "windows/frame_fixture.h"

namespace {

namespace fs = std::filesystem;

using peqtest::DiskFull;

std::string Bytes(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

class DistRecordWrite : public ::testing::Test {
 protected:
  void SetUp() override {
    e.s.NKomp = 2;
    peq::AllocSession(e.s, 2);
    e.s.StoffData[1].Name = "Ethanol";
    e.s.StoffData[2].Name = "Water";
    e.s.MolMasse[1] = 46.07f;
    e.s.MolMasse[2] = 18.015f;
    w().Form_Load(e.f);
    w().P.Einrichten(peq::kProtThiele, 2, 0);
    for (int r = 1; r <= 3; ++r) w().P.Zeilen.push_back(std::vector<float>(11, static_cast<float>(r)));
    file = w().P.ProtokollDatei;
  }
  peq::frmDistProtokoll& w() { return e.f.DistProtokoll; }
  peqtest::FrameEnv e;
  std::string file;
};

TEST_F(DistRecordWrite, NoTemporaryFileNoRecordKeepsTheRows) {
  fs::create_directory(file + ".tmp~");
  EXPECT_FALSE(w().cmdOpenNew_Click(e.f));
  EXPECT_FALSE(fs::exists(file));
  EXPECT_EQ(w().P.ProtZeilen(), 3);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().icon, peq::MsgIcon::Stop);
  EXPECT_FALSE(e.ui.Last().text.empty());
  EXPECT_TRUE(e.ui.clipboard.empty());  // nothing went anywhere
  fs::remove(file + ".tmp~");
  EXPECT_TRUE(w().cmdOpenNew_Click(e.f));
  EXPECT_NE(Bytes(file).find("\r\n3;3;3;"), std::string::npos);
}

TEST_F(DistRecordWrite, FullDiskLeavesNoFileAndSaysDiskFull) {
  {
    DiskFull full(64);
    EXPECT_FALSE(w().QueryUnload(e.f));
  }
  EXPECT_FALSE(fs::exists(file));
  EXPECT_FALSE(fs::exists(file + ".tmp~"));
  EXPECT_EQ(w().P.ProtZeilen(), 3);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().text, "Disk full");
  // With room again the rows of the failed write are all there.
  EXPECT_TRUE(w().QueryUnload(e.f));
  const std::string t = Bytes(file);
  EXPECT_NE(t.find("\r\n1;1;1;"), std::string::npos);
  EXPECT_NE(t.find("\r\n3;3;3;"), std::string::npos);
  EXPECT_EQ(w().P.ProtZeilen(), 0);
}

}  // namespace
