// Every writer of the program under a write that fails: the temporary file cannot be created (a
// directory stands where it would go), the disk fills half way (a file-size limit smaller than
// the new file, which makes the write fail with EFBIG after part of it is on disk), the target
// directory is read-only. Each time the old file must be intact byte for byte, no temporary file
// may be left behind, and where a window writes, the user sees the box with the system's text.
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "diagrams/diagram2d_file.h"
#include "reliability/disk_full.h"
#include "session/project.h"
#include "substances/kij.h"
#include "substances/q07.h"
#include "support/fixtures.h"
#include "windows/calc_fixture.h"
#include "windows/frame_fixture.h"
#include "windows/graph2dfile.h"
#include "windows/protokoll.h"

namespace {

namespace fs = std::filesystem;
using peqtest::TempDir;

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

// Files of the directory other than the ones named.
std::vector<std::string> Others(const std::string& dir, const std::vector<std::string>& known) {
  std::vector<std::string> out;
  for (const auto& e : fs::directory_iterator(dir)) {
    const std::string n = e.path().filename().string();
    bool k = false;
    for (const std::string& m : known) k = k || n == m;
    if (!k) out.push_back(n);
  }
  return out;
}

using peqtest::DiskFull;

// A directory that its owner cannot write to. Root writes anyway, so the tests using it skip
// there.
class ReadOnlyDir {
 public:
  explicit ReadOnlyDir(const std::string& dir) : dir_(dir) {
    fs::permissions(dir_, fs::perms::owner_read | fs::perms::owner_exec, fs::perm_options::replace);
  }
  ~ReadOnlyDir() { fs::permissions(dir_, fs::perms::owner_all, fs::perm_options::replace); }

 private:
  std::string dir_;
};

bool IsRoot() { return geteuid() == 0; }

// ---- Project files through the frame: "Save project" and the last session at exit ----

class ProjectWrite : public ::testing::Test {
 protected:
  void SetUp() override {
    e.Start();
    e.Mixture({"64-17-5", "7732-18-5"});
    file = (fs::path(e.dir.path()) / "MINE.PQC").string();
    Put(file, kOld);
    e.ui.boxes.clear();
  }
  // "Save project" into file, with no comment typed.
  bool Save() {
    e.ui.inputs.push_back(std::optional<std::string>());
    return e.f.ProjektSpeichern(file);
  }
  static constexpr const char* kOld = "an old project\r\nwith two lines\r\n";
  peqtest::FrameEnv e;
  std::string file;
};

TEST_F(ProjectWrite, ASaveThatCannotCreateItsTemporaryFileKeepsTheOldFileAndShowsTheSystemsText) {
  fs::create_directory(file + ".tmp~");
  EXPECT_FALSE(Save());
  EXPECT_EQ(Bytes(file), kOld);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().icon, peq::MsgIcon::Stop);
  EXPECT_FALSE(e.ui.Last().text.empty());
}

TEST_F(ProjectWrite, ASaveOnAFullDiskKeepsTheOldFileLeavesNoTemporaryFileAndSaysDiskFull) {
  {
    DiskFull full(64);
    EXPECT_FALSE(Save());
  }
  EXPECT_EQ(Bytes(file), kOld);
  EXPECT_FALSE(fs::exists(file + ".tmp~"));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Disk full");
  // With room again the same save goes through and replaces the old file.
  EXPECT_TRUE(Save());
  EXPECT_NE(Bytes(file), kOld);
}

TEST_F(ProjectWrite, ASaveIntoAReadOnlyDirectoryKeepsTheOldFile) {
  if (IsRoot()) GTEST_SKIP() << "root writes into read-only directories";
  {
    ReadOnlyDir ro(e.dir.path());
    EXPECT_FALSE(Save());
  }
  EXPECT_EQ(Bytes(file), kOld);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().text, "Permission denied");
}

TEST_F(ProjectWrite, TheLastSessionOnAFullDiskKeepsTheOldOneAndShowsTheBox) {
  const std::string last = e.f.LastSessionPath().string();
  Put(last, kOld);
  {
    DiskFull full(64);
    e.f.Exit();
  }
  EXPECT_EQ(Bytes(last), kOld);
  EXPECT_FALSE(fs::exists(last + ".tmp~"));
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes.front().title, "Error");
  EXPECT_EQ(e.ui.boxes.front().text, "Disk full");
}

TEST_F(ProjectWrite, TheLastSessionThatCannotCreateItsTemporaryFileKeepsTheOldOne) {
  const std::string last = e.f.LastSessionPath().string();
  Put(last, kOld);
  fs::create_directory(last + ".tmp~");
  e.f.Exit();
  EXPECT_EQ(Bytes(last), kOld);
  ASSERT_FALSE(e.ui.boxes.empty());
  EXPECT_EQ(e.ui.boxes.front().title, "Error");
}

// ---- The result record of the state calculation ----

class RecordWrite : public peqtest::CalcTest {
 protected:
  void SetUp() override {
    Models(false);
    e.s.ProtokollDatei = peq::ProtokollDateiName(dir.path(), "11-21-2026");
    FlashPT(101.325, 355.15);
    ASSERT_TRUE(out.Geloest);
    out.Datum = "11-21-2026";
    out.cmdProtokoll(e.f);  // the first line is on disk
    ASSERT_TRUE(e.s.ProtokollAktiv);
    old = Bytes(e.s.ProtokollDatei);
    ASSERT_FALSE(old.empty());
    e.ui.boxes.clear();
  }
  TempDir dir;
  std::string old;
};

TEST_F(RecordWrite, ALineThatDoesNotFitOnTheDiskKeepsTheRecordAsItWas) {
  {
    DiskFull full(old.size() + 8);
    out.cmdProtokoll(e.f);
  }
  EXPECT_EQ(Bytes(e.s.ProtokollDatei), old);
  EXPECT_EQ(e.s.ProtokollNr, 1);
  EXPECT_FALSE(fs::exists(e.s.ProtokollDatei + ".tmp~"));
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text, "Disk full");
  // The next line, with room again, is line 2.
  out.cmdProtokoll(e.f);
  EXPECT_EQ(e.s.ProtokollNr, 2);
  EXPECT_EQ(Bytes(e.s.ProtokollDatei).substr(0, old.size()), old);
}

TEST_F(RecordWrite, ALineThatCannotCreateItsTemporaryFileKeepsTheRecord) {
  fs::create_directory(e.s.ProtokollDatei + ".tmp~");
  out.cmdProtokoll(e.f);
  EXPECT_EQ(Bytes(e.s.ProtokollDatei), old);
  EXPECT_EQ(e.s.ProtokollNr, 1);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().icon, peq::MsgIcon::Stop);
}

TEST_F(RecordWrite, ALineIntoAReadOnlyDirectoryKeepsTheRecord) {
  if (IsRoot()) GTEST_SKIP() << "root writes into read-only directories";
  {
    ReadOnlyDir ro(dir.path());
    out.cmdProtokoll(e.f);
  }
  EXPECT_EQ(Bytes(e.s.ProtokollDatei), old);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().text, "Permission denied");
}

// ---- The private database and the k(ij) files ----

std::vector<peq::Q07Record> TwoRecords() {
  return {peqtest::BundledRecord("64-17-5"), peqtest::BundledRecord("7732-18-5")};
}

TEST(DatabaseWrite, AFullDiskKeepsTheOldDatabase) {
  TempDir dir;
  const std::string bank = dir.File("MINE.Q07");
  std::string err;
  ASSERT_TRUE(peq::WriteQ07(bank, {peqtest::BundledRecord("64-17-5")}, err));
  const std::string old = Bytes(bank);
  {
    DiskFull full(old.size() + 100);  // the new file has one record more: it stops inside it
    EXPECT_FALSE(peq::WriteQ07(bank, TwoRecords(), err));
  }
  EXPECT_EQ(err, "Disk full");
  EXPECT_EQ(Bytes(bank), old);
  EXPECT_EQ(Others(dir.path(), {"MINE.Q07"}), std::vector<std::string>{});
}

TEST(DatabaseWrite, ATemporaryFileThatCannotBeCreatedKeepsTheOldDatabase) {
  TempDir dir;
  const std::string bank = dir.File("MINE.Q07");
  std::string err;
  ASSERT_TRUE(peq::WriteQ07(bank, {peqtest::BundledRecord("64-17-5")}, err));
  const std::string old = Bytes(bank);
  fs::create_directory(bank + ".tmp~");
  EXPECT_FALSE(peq::WriteQ07(bank, TwoRecords(), err));
  EXPECT_FALSE(err.empty());
  EXPECT_EQ(Bytes(bank), old);
}

TEST(DatabaseWrite, AReadOnlyDirectoryKeepsTheOldDatabase) {
  if (IsRoot()) GTEST_SKIP() << "root writes into read-only directories";
  TempDir dir;
  const std::string bank = dir.File("MINE.Q07");
  std::string err;
  ASSERT_TRUE(peq::WriteQ07(bank, {peqtest::BundledRecord("64-17-5")}, err));
  const std::string old = Bytes(bank);
  {
    ReadOnlyDir ro(dir.path());
    EXPECT_FALSE(peq::WriteQ07(bank, TwoRecords(), err));
  }
  EXPECT_EQ(err, "Permission denied");
  EXPECT_EQ(Bytes(bank), old);
}

TEST(KijWrite, AFullDiskKeepsTheOldFile) {
  TempDir dir;
  const std::string file = dir.File("KIJ_PR.DAT");
  Put(file, "64-17-5,7732-18-5\r\n-0.09\r\n");
  const std::string old = Bytes(file);
  std::vector<peq::KijEntry> many;
  for (int k = 0; k < 200; ++k) many.push_back(peq::KijEntry{"64-17-5", "7732-18-5", 0.001 * k});
  std::string err;
  {
    DiskFull full(1000);
    EXPECT_FALSE(peq::WriteKijFile(file, many, err));
  }
  EXPECT_EQ(err, "Disk full");
  EXPECT_EQ(Bytes(file), old);
  EXPECT_EQ(Others(dir.path(), {"KIJ_PR.DAT"}), std::vector<std::string>{});
  ASSERT_EQ(peq::ReadKijFile(file).size(), 1u);
}

TEST(KijWrite, ATemporaryFileThatCannotBeCreatedKeepsTheOldFile) {
  TempDir dir;
  const std::string file = dir.File("KIJ_PR.DAT");
  Put(file, "64-17-5,7732-18-5\r\n-0.09\r\n");
  fs::create_directory(file + ".tmp~");
  std::string err;
  EXPECT_FALSE(peq::WriteKijFile(file, {peq::KijEntry{"1-1-1", "2-2-2", 0.5}}, err));
  EXPECT_FALSE(err.empty());
  EXPECT_EQ(Bytes(file), "64-17-5,7732-18-5\r\n-0.09\r\n");
}

// ---- The diagram file (*.oc2) ----

constexpr const char* kOldDiagram = "{\"format\": \"PEQ diagram\", \"version\": 1, \"kind\": \"2d\"}\n";

// A document with two curves of 2000 points each: its file is far larger than the limits below.
peq::Graph2DDoc BigDiagram() {
  peq::Graph2DDoc d;
  for (int c = 0; c < 2; ++c) {
    peq::Kurve k(2001);
    k[0].x = 2000;
    for (int i = 1; i <= 2000; ++i) k[static_cast<std::size_t>(i)] = peq::KurvenPunkt{0.5f * i + c, i / 2000.0f, 300.0f};
    int16_t slot = 0;
    bool full = false;
    peq::DrawCurve(d, k, slot, full, nullptr);
  }
  return d;
}

TEST(DiagramWrite, AFullDiskKeepsTheOldFileAndLeavesNoTemporaryFile) {
  TempDir dir;
  const std::string file = dir.File("PX.oc2");
  Put(file, kOldDiagram);
  std::string err;
  {
    DiskFull full(4096);
    EXPECT_FALSE(peq::Diagramm2DSpeichern(BigDiagram(), file, err));
  }
  EXPECT_EQ(err, "Disk full");
  EXPECT_EQ(Bytes(file), kOldDiagram);
  EXPECT_EQ(Others(dir.path(), {"PX.oc2"}), std::vector<std::string>{});
}

TEST(DiagramWrite, TheSaveCommandShowsTheFailureAndKeepsTheOldFile) {
  peqtest::FrameEnv e;
  TempDir dir;
  const std::string file = dir.File("PX.oc2");
  Put(file, kOldDiagram);
  fs::create_directory(file + ".tmp~");
  peq::frmGraph2D g;
  g.Doc = BigDiagram();
  peq::FileDialogResult r;
  r.cancelled = false;
  r.fileName = file;
  r.fileTitle = "PX.oc2";
  e.ui.files.push_back(r);
  EXPECT_FALSE(peq::mnuSaveOC2_Click(e.f, g));
  EXPECT_EQ(Bytes(file), kOldDiagram);
  ASSERT_EQ(e.ui.boxes.size(), 1u);
  EXPECT_EQ(e.ui.Last().title, "Error");
  EXPECT_EQ(e.ui.Last().text.rfind("The diagram could not be written to " + file + ":\n", 0), 0u) << e.ui.Last().text;
}

TEST(DiagramWrite, AReadOnlyDirectoryKeepsTheOldFile) {
  if (IsRoot()) GTEST_SKIP() << "root writes into read-only directories";
  TempDir dir;
  const std::string file = dir.File("PX.oc2");
  Put(file, kOldDiagram);
  std::string err;
  {
    ReadOnlyDir ro(dir.path());
    EXPECT_FALSE(peq::Diagramm2DSpeichern(BigDiagram(), file, err));
  }
  EXPECT_EQ(err, "Permission denied");
  EXPECT_EQ(Bytes(file), kOldDiagram);
}

}  // namespace
