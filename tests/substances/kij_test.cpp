// The k(ij) files of the equations of state and the search of the parameter window.
#include "substances/kij.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

namespace {

using peq::KijEntry;

// A session of two components with the given CAS numbers (padded as the session holds them).
peq::Session Pair(const std::string& cas1, const std::string& cas2, int eosModel) {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  s.StoffData[1].CasNr = peq::FixedField(cas1, 12);
  s.StoffData[2].CasNr = peq::FixedField(cas2, 12);
  s.EOSModel = static_cast<int16_t>(eosModel);
  return s;
}

TEST(Kij, FileNamesByEquationOfState) {
  EXPECT_EQ(peq::KijFileName(4), "KIJ_RKS.DAT");
  EXPECT_EQ(peq::KijFileName(5), "KIJ_PR.DAT");
  EXPECT_EQ(peq::KijFileName(3), "");
  EXPECT_EQ(peq::KijFileName(6), "");
}

TEST(Kij, WrittenEntriesReadBack) {
  peqtest::TempDir dir;
  const std::vector<KijEntry> in = {{"74-82-8", "74-84-0", -0.0026},
                                    {"124-38-9", "7732-18-5", 0.041099999},
                                    {"1333-74-0", "108-88-3", -0.51},
                                    {"1-1-1", "2-2-2", 1.5E-5},
                                    {"3-3-3", "4-4-4", 0}};
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("KIJ_PR.DAT"), in, err)) << err;
  const auto out = peq::ReadKijFile(dir.File("KIJ_PR.DAT"));
  ASSERT_EQ(out.size(), in.size());
  for (std::size_t k = 0; k < in.size(); ++k) {
    EXPECT_EQ(out[k].Cas1, in[k].Cas1);
    EXPECT_EQ(out[k].Cas2, in[k].Cas2);
    EXPECT_EQ(out[k].Kij, in[k].Kij);  // the shortest text that reads back exactly
  }
  std::ifstream f(dir.File("KIJ_PR.DAT"), std::ios::binary);
  std::string l1, l2;
  std::getline(f, l1);
  std::getline(f, l2);
  EXPECT_EQ(l1, "74-82-8,74-84-0\r");
  EXPECT_EQ(l2, "-0.0026\r");
}

TEST(Kij, RestOfBothLinesIsIgnored) {
  peqtest::TempDir dir;
  const auto path = peqtest::WriteBytes(dir.path(), "K.DAT",
                                        "74-82-8, 74-84-0 ,methane/ethane\n"
                                        "  0.0026  fitted 1982\n"
                                        "64-17-5,7732-18-5 ethanol water\n"
                                        "-1.5E-2,x\n");
  const auto out = peq::ReadKijFile(path);
  ASSERT_EQ(out.size(), 2u);
  EXPECT_EQ(out[0].Cas1, "74-82-8");
  EXPECT_EQ(out[0].Cas2, "74-84-0");
  EXPECT_EQ(out[0].Kij, 0.0026);
  EXPECT_EQ(out[1].Cas2, "7732-18-5");
  EXPECT_EQ(out[1].Kij, -0.015);
}

TEST(Kij, MissingValueLineEndsTheFile) {
  peqtest::TempDir dir;
  // The second entry has no value line: its CAS line is then no number, and the rest of the
  // file cannot be read as entries.
  const auto path = peqtest::WriteBytes(dir.path(), "K.DAT",
                                        "1-1-1,2-2-2\r\n0.1\r\n"
                                        "3-3-3,4-4-4\r\n"
                                        "5-5-5,6-6-6\r\n0.3\r\n");
  const auto out = peq::ReadKijFile(path);
  ASSERT_EQ(out.size(), 1u);
  EXPECT_EQ(out[0].Kij, 0.1);
  EXPECT_FALSE(peq::FindKij(path, "5-5-5", "6-6-6"));
  // A last entry without its value line.
  const auto tail = peqtest::WriteBytes(dir.path(), "T.DAT", "1-1-1,2-2-2\n0.1\n3-3-3,4-4-4\n");
  EXPECT_EQ(peq::ReadKijFile(tail).size(), 1u);
  EXPECT_FALSE(peq::FindKij(tail, "3-3-3", "4-4-4"));
}

TEST(Kij, EmptyOrMissingFileHasNoEntries) {
  peqtest::TempDir dir;
  EXPECT_TRUE(peq::ReadKijFile(dir.File("NONE.DAT")).empty());
  EXPECT_TRUE(peq::ReadKijFile(peqtest::WriteBytes(dir.path(), "E.DAT", "")).empty());
  EXPECT_FALSE(peq::FindKij(dir.File("NONE.DAT"), "1-1-1", "2-2-2"));
}

TEST(Kij, FindKijInEitherOrderWithTrimmedNumbers) {
  peqtest::TempDir dir;
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("K.DAT"), {{"74-82-8", "74-84-0", -0.0026}}, err));
  EXPECT_EQ(peq::FindKij(dir.File("K.DAT"), "74-82-8", "74-84-0"), -0.0026);
  EXPECT_EQ(peq::FindKij(dir.File("K.DAT"), "74-84-0     ", " 74-82-8"), -0.0026);
  EXPECT_FALSE(peq::FindKij(dir.File("K.DAT"), "74-82-8", "74-98-6"));
}

TEST(Kij, SearchKijFoundFillsInWithItsResultBox) {
  peqtest::TempDir dir;
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("KIJ_PR.DAT"), {{"1-1-1", "2-2-2", 0.5},
                                                         {"74-84-0", "74-82-8", -0.0026}},
                                err));
  const peq::Session s = Pair("74-82-8", "74-84-0", 5);
  peq::MsgSink sink;
  const auto k = peq::SearchKij(s, 1, 2, dir.path(), &sink);
  ASSERT_TRUE(k);
  EXPECT_EQ(*k, -0.0026);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Result");
  EXPECT_EQ(sink[0].text, "j(ij)-parameter was found and filled in");
}

TEST(Kij, SearchKijNotFoundSaysSo) {
  peqtest::TempDir dir;
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("KIJ_RKS.DAT"), {{"1-1-1", "2-2-2", 0.5}}, err));
  const peq::Session s = Pair("74-82-8", "74-84-0", 4);
  peq::MsgSink sink;
  EXPECT_FALSE(peq::SearchKij(s, 1, 2, dir.path(), &sink));
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Result");
  EXPECT_EQ(sink[0].text, "For this binary system no k(ij)-parameter was found");
}

TEST(Kij, SearchKijUsesTheFileOfTheCurrentEquationOfState) {
  peqtest::TempDir dir;
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("KIJ_PR.DAT"), {{"1-1-1", "2-2-2", 0.25}}, err));
  ASSERT_TRUE(peq::WriteKijFile(dir.File("KIJ_RKS.DAT"), {{"1-1-1", "2-2-2", 0.75}}, err));
  EXPECT_EQ(peq::SearchKij(Pair("1-1-1", "2-2-2", 5), 1, 2, dir.path(), nullptr), 0.25);
  EXPECT_EQ(peq::SearchKij(Pair("1-1-1", "2-2-2", 4), 2, 1, dir.path(), nullptr), 0.75);
  // Redlich-Kwong and van der Waals have no file: no value, no box.
  peq::MsgSink sink;
  EXPECT_FALSE(peq::SearchKij(Pair("1-1-1", "2-2-2", 3), 1, 2, dir.path(), &sink));
  EXPECT_FALSE(peq::SearchKij(Pair("1-1-1", "2-2-2", 6), 1, 2, dir.path(), &sink));
  EXPECT_TRUE(sink.empty());
}

TEST(Kij, SearchKijFindsTheFileWhateverItsLetterCase) {
  peqtest::TempDir dir;
  std::string err;
  ASSERT_TRUE(peq::WriteKijFile(dir.File("kij_pr.dat"), {{"1-1-1", "2-2-2", 0.25}}, err));
  EXPECT_EQ(peq::SearchKij(Pair("1-1-1", "2-2-2", 5), 1, 2, dir.path(), nullptr), 0.25);
}

TEST(Kij, SearchKijWithoutFileIsNotFound) {
  peqtest::TempDir dir;
  peq::MsgSink sink;
  EXPECT_FALSE(peq::SearchKij(Pair("1-1-1", "2-2-2", 5), 1, 2, dir.path(), &sink));
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].text, "For this binary system no k(ij)-parameter was found");
}

TEST(Kij, BundledFilesHoldPublishedPairs) {
  const std::string data = peqtest::SourceDir() + "/data/";
  // Peng-Robinson, 1,2-dichloroethane/cyclohexene: 0.043 (DECHEMA Chemistry Data Series VI,
  // Knapp et al. 1982, p. 765), asked in the reverse order.
  EXPECT_EQ(peq::FindKij(data + "KIJ_PR.DAT", "110-83-8", "107-06-2"), 0.043);
  // SRK, 2,2-dimethylbutane/ethylene glycol: 0.2 (NeqSim INTER.csv).
  EXPECT_EQ(peq::FindKij(data + "KIJ_RKS.DAT", "75-83-2", "107-21-1"), 0.2);
  EXPECT_EQ(peq::ReadKijFile(data + "KIJ_PR.DAT").size(), 425u);
  EXPECT_EQ(peq::ReadKijFile(data + "KIJ_RKS.DAT").size(), 244u);
}

}  // namespace
