// The private database of the substance data editor under a write that fails: the temporary file
// cannot be created, the disk fills half way, the directory is read-only. The user sees the
// system's text under "Error", no partial file is left, and an old file of that name stays.
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "reliability/disk_full.h"
#include "windows/frame_fixture.h"

namespace {

namespace fs = std::filesystem;

std::string Bytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

using peqtest::DiskFull;

class PrivateBankWrite : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5"});
    ASSERT_TRUE(e.s.LoadOK);
    e.f.Run(peqtest::C(peq::Cmd::mnuSubEdit, 1));
    ASSERT_TRUE(e.f.IsLoaded(peq::WindowId::frmAEdit));
    out = fs::path(e.dir.path()) / "out";
    fs::create_directory(out);
    file = (out / "MINE.Q07").string();
    e.ui.boxes.clear();
  }
  void Write() {
    peq::FileDialogResult r;
    r.cancelled = false;
    r.fileName = file;
    r.fileTitle = "MINE.Q07";
    e.ui.files.push_back(r);
    e.f.AEdit.WriteDataBaseQ07(e.f);
  }
  bool OnlyTheFile(bool present) {
    int n = 0;
    for (const auto& d : fs::directory_iterator(out)) n += d.path().filename() == "MINE.Q07" ? 0 : 1;
    return n == 0 && fs::exists(file) == present;
  }
  peqtest::FrameEnv e;
  fs::path out;
  std::string file;
};

TEST_F(PrivateBankWrite, ATemporaryFileThatCannotBeCreatedShowsTheSystemsTextAndLeavesNoFile) {
  fs::create_directory(file + ".tmp~");
  Write();
  EXPECT_FALSE(fs::exists(file));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().icon, peq::MsgIcon::Stop);
  EXPECT_FALSE(e.ui.Last().text.empty());
}

TEST_F(PrivateBankWrite, AFullDiskLeavesNoPartialFileAndKeepsAnOldOne) {
  {
    std::ofstream old(file, std::ios::binary);
    old << "an old file";
  }
  {
    DiskFull full(1000);  // less than the three records
    Write();
  }
  EXPECT_EQ(Bytes(file), "an old file");
  EXPECT_TRUE(OnlyTheFile(true));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Disk full");
  // With room again the same command writes the whole file.
  Write();
  EXPECT_EQ(Bytes(file).size(), 3u * 684u);
}

TEST_F(PrivateBankWrite, AReadOnlyDirectoryShowsTheSystemsTextAndLeavesNoFile) {
  if (geteuid() == 0) GTEST_SKIP() << "root writes into read-only directories";
  fs::permissions(out, fs::perms::owner_read | fs::perms::owner_exec, fs::perm_options::replace);
  Write();
  fs::permissions(out, fs::perms::owner_all, fs::perm_options::replace);
  EXPECT_TRUE(OnlyTheFile(false));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Permission denied");
}

TEST_F(PrivateBankWrite, ADirectoryThatDoesNotExistShowsTheSystemsText) {
  file = (out / "nowhere" / "MINE.Q07").string();
  Write();
  EXPECT_FALSE(fs::exists(file));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "File not found");
}

}  // namespace
