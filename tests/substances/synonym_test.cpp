// The synonym search: name normalisation, the rewrite rules, the scan of SYNOM.TXT, the data
// line, the search by number and the key filter of the numeric boxes; and the bundled
// SYNOM.TXT with the tool that writes it.
#include "substances/synonym.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "substances/bank.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

#define PEQ_MKSYNOM_NO_MAIN
#include "../../tools/mksynom.cpp"

namespace {

namespace fs = std::filesystem;
using peq::MsgIcon;

// A SYNOM.TXT written from UTF-8 lines (converted to code page 850), CR LF line ends.
std::string WriteSynom(const std::string& dir, const std::vector<std::string>& lines) {
  std::string bytes;
  for (const std::string& l : lines) bytes += peq::Utf8ToCp850(l) + "\r\n";
  return peqtest::WriteBytes(dir, "SYNOM.TXT", bytes);
}

std::string Search(const std::string& typed, const std::string& dir, std::string* line = nullptr,
                   peq::MsgSink* sink = nullptr) {
  std::string name = peq::BlankEntfernen(peq::NameNormieren(typed));
  std::string cas, l;
  bool missing = false;
  peq::SynonymSuchen(name, dir, cas, l, missing, sink);
  if (line) *line = l;
  return missing ? "MISSING" : cas;
}

// ---- normalisation ----

TEST(NameNormieren, UpperCasesAndTurnsSmallUmlautsIntoCapitals) {
  EXPECT_EQ(peq::NameNormieren("Äthanol"), "ÄTHANOL");
  EXPECT_EQ(peq::NameNormieren("essigsäure"), "ESSIGSÄURE");
  EXPECT_EQ(peq::NameNormieren("öl über"), "ÖL ÜBER");
  EXPECT_EQ(peq::NameNormieren("2-Methyl-propan"), "2-METHYL-PROPAN");
}

TEST(NameNormieren, LeavesSharpSAndDigits) { EXPECT_EQ(peq::NameNormieren("straße 12"), "STRAßE 12"); }

TEST(BlankEntfernen, RemovesEveryBlank) { EXPECT_EQ(peq::BlankEntfernen(" ethyl  alcohol "), "ethylalcohol"); }

TEST(StrLoeschen, RemovesCharactersByPosition) {
  std::string t = "ÄTHANOL";
  peq::StrLoeschen(t, 1, 1);
  EXPECT_EQ(t, "THANOL");
  t = "ABCDEF";
  peq::StrLoeschen(t, 3, 2);
  EXPECT_EQ(t, "ABEF");
  peq::StrLoeschen(t, 10, 2);
  EXPECT_EQ(t, "ABEF");
}

TEST(InStr, CountsCharactersNotBytes) {
  EXPECT_EQ(peq::InStr("ÄÄOXYD", "OXYD"), 3u);
  EXPECT_EQ(peq::InStr("ABC", "X"), 0u);
}

// ---- the rewrite table, each rule and the order ----

struct RewriteCase {
  const char* in;
  const char* out;
};

TEST(SynonymUmschreiben, EachRuleOfTheTable) {
  const RewriteCase cases[] = {
      {"ÄTHANOL", "ETHANOL"},       {"ÄTHYLENGLYKOL", "ETHYLENGLYCOL"},
      {"KARBONAT", "CARBONAT"},     {"SULPHID", "SULFID"},
      {"AZETON", "ACETON"},         {"SEKBUTANOL", "SECBUTANOL"},
      {"ZYKLOHEXAN", "CYCLOHEXAN"}, {"ZYCLOHEXAN", "CYCLOHEXAN"},
      {"CYKLOHEXAN", "CYCLOHEXAN"}, {"DEKAN", "DECAN"},
      {"KRESOL", "CRESOL"},
  };
  for (const RewriteCase& c : cases) EXPECT_EQ(peq::SynonymUmschreiben(c.in), c.out) << c.in;
}

TEST(SynonymUmschreiben, EveryOccurrenceIsRewritten) {
  EXPECT_EQ(peq::SynonymUmschreiben("AZETAZET"), "ACETACET");
}

TEST(SynonymUmschreiben, UmlautAETHIsRewrittenButAETHWithAEIsNot) {
  // "Äthanol" has a rule; the same name typed with AE has none.
  EXPECT_EQ(peq::SynonymUmschreiben(peq::BlankEntfernen(peq::NameNormieren("Äthanol"))), "ETHANOL");
  EXPECT_EQ(peq::SynonymUmschreiben(peq::BlankEntfernen(peq::NameNormieren("Aethanol"))), "AETHANOL");
}

TEST(SynonymUmschreiben, OxydBecomesOxid) {
  EXPECT_EQ(peq::SynonymUmschreiben("KOHLENOXYD"), "KOHLENOXID");
  EXPECT_EQ(peq::SynonymUmschreiben("OXYDOXYD"), "OXIDOXID");
}

TEST(SynonymUmschreiben, OxydiAtTheFirstOxydStopsTheRule) {
  EXPECT_EQ(peq::SynonymUmschreiben("OXYDIERT"), "OXYDIERT");
}

TEST(SynonymUmschreiben, OxydRuleIsAPlainAndOfPositions) {
  // OXYD at 1, OXYDI at 5: 1 AND NOT 5 = 0, the loop ends at once and the first OXYD stays.
  EXPECT_EQ(peq::SynonymUmschreiben("OXYDOXYDI"), "OXYDOXYDI");
  // OXYD at 2, OXYDI at 6: 2 AND NOT 6 = 0 as well.
  EXPECT_EQ(peq::SynonymUmschreiben("AOXYDOXYDI"), "AOXYDOXYDI");
  // OXYD at 1, OXYDI at 6: 1 AND NOT 6 = 1: rewritten; then OXYD at 6 = OXYDI at 6: stop.
  EXPECT_EQ(peq::SynonymUmschreiben("OXYDAOXYDI"), "OXIDAOXYDI");
}

TEST(SynonymUmschreiben, MeEtAndSaeure) {
  EXPECT_EQ(peq::SynonymUmschreiben("ME-ACETAT"), "METHYLACETAT");
  EXPECT_EQ(peq::SynonymUmschreiben("ET-ACETAT"), "ETHYLACETAT");
  EXPECT_EQ(peq::SynonymUmschreiben("ESSIGSAEURE"), "ESSIGSÄURE");
  // No regard to word borders: an ET- at the end of a longer part is rewritten too.
  EXPECT_EQ(peq::SynonymUmschreiben("BUTET-OL"), "BUTETHYLOL");
}

TEST(SynonymSchluessel, HyphensGoAfterTheLeadingMeIsRewritten) {
  EXPECT_EQ(peq::SynonymSchluessel("ME-ETHYL-KETON"), "METHYLETHYLKETON");
  EXPECT_EQ(peq::SynonymSchluessel("2-PROPANOL"), "2PROPANOL");
}

TEST(SynonymSchluessel, BracketsAndPointsAreRemovedFromTheKey) {
  EXPECT_EQ(peq::SynonymSchluessel("CARBON(IV)OXIDE[GAS]."), "CARBONIVOXIDEGAS");
}

TEST(SynonymZeileBereinigen, SquareBracketsStayInTheLines) {
  EXPECT_EQ(peq::SynonymZeileBereinigen("A-B(C)[D]."), "ABC[D]");
}

// ---- the scan ----

class SynomFile : public ::testing::Test {
 protected:
  void SetUp() override {
    WriteSynom(dir.path(), {"64-17-5", "*C2H6O_Ethanol_Ethanol", "ETHANOL", "ETHYLALCOHOL", "ÄTHYLALKOHOL", "",
                            "50-00-0", "*CH2O_Formaldehyde_Formaldehyd", "METHANAL", "GAS[X]", "",
                            "7732-18-5", "*H2O_Water_Wasser", "WATER", "WASSER", "DIHYDROGEN-OXIDE", ""});
  }
  peqtest::TempDir dir;
};

TEST_F(SynomFile, FindsASynonymInTheNormalisedForm) {
  std::string line;
  EXPECT_EQ(Search("ethyl alcohol", dir.path(), &line), "64-17-5");
  EXPECT_EQ(line, "*C2H6O_Ethanol_Ethanol");
  EXPECT_EQ(Search("Äthanol", dir.path()), "64-17-5");
  EXPECT_EQ(Search("Wasser", dir.path()), "7732-18-5");
}

TEST_F(SynomFile, LinesLoseHyphensAndBracketsBeforeTheComparison) {
  // "DIHYDROGEN-OXIDE" in the file compares as DIHYDROGENOXIDE.
  EXPECT_EQ(Search("dihydrogen oxide", dir.path()), "7732-18-5");
}

TEST_F(SynomFile, SquareBracketsOfALineAreKeptSoSuchALineNeverMatches) {
  EXPECT_EQ(Search("gas[x]", dir.path()), "END");
  EXPECT_EQ(Search("gasx", dir.path()), "END");
}

TEST_F(SynomFile, ACasNumberWithHyphensMatchesTheFirstLineOfARecord) {
  std::string line;
  EXPECT_EQ(Search("50-00-0", dir.path(), &line), "50-00-0");
  EXPECT_EQ(line, "*CH2O_Formaldehyde_Formaldehyd");
}

TEST_F(SynomFile, TheCasComparisonTakesTheNameNotTheRewrittenKey) {
  // A record whose first line reads like a rewritten name: only the typed name counts there.
  WriteSynom(dir.path(), {"ETHANOL", "*X_Y_Z", "", "64-17-5", "*C2H6O_Ethanol_Ethanol", "ETHANOL", ""});
  EXPECT_EQ(Search("Äthanol", dir.path()), "64-17-5");
  EXPECT_EQ(Search("ethanol", dir.path()), "ETHANOL");
}

TEST_F(SynomFile, NothingFoundGivesEnd) { EXPECT_EQ(Search("unobtainium", dir.path()), "END"); }

TEST_F(SynomFile, NameReturnsInItsCleanedForm) {
  std::string name = peq::BlankEntfernen(peq::NameNormieren("ethyl alcohol"));
  std::string cas, line;
  bool missing = true;
  peq::SynonymSuchen(name, dir.path(), cas, line, missing, nullptr);
  EXPECT_EQ(name, "ETHYLALCOHOL");
  EXPECT_FALSE(missing);
}

TEST(SynonymSuchen, AMissingFileGivesTheWordsAndSetsFileMissing) {
  peqtest::TempDir dir;
  peq::MsgSink sink;
  EXPECT_EQ(Search("ethanol", dir.path(), nullptr, &sink), "MISSING");
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "Error");
  EXPECT_EQ(sink[0].text, "Select your substance via list\nfile SYNOM.TXT not found");
  EXPECT_EQ(sink[0].icon, MsgIcon::Stop);
}

TEST(SynonymSuchen, FindsTheFileInAnyCase) {
  peqtest::TempDir dir;
  peqtest::WriteBytes(dir.path(), "synom.txt", "1-1-1\r\n*A_B_C\r\nXYZ\r\n\r\n");
  EXPECT_EQ(Search("xyz", dir.path()), "1-1-1");
}

TEST(SynonymSuchen, ReadsCodePage850) {
  peqtest::TempDir dir;
  // 0x8E is Ä in code page 850.
  peqtest::WriteBytes(dir.path(), "SYNOM.TXT", "64-19-7\r\n*C2H4O2_Acetic acid_Essigs\x84ure\r\nESSIGS\x8EURE\r\n\r\n");
  std::string line;
  EXPECT_EQ(Search("Essigsäure", dir.path(), &line), "64-19-7");
  EXPECT_EQ(line, "*C2H4O2_Acetic acid_Essigsäure");
}

// ---- data line ----

TEST(SynonymZeileZerlegen, FirstNameLast) {
  std::string first, name, last;
  peq::SynonymZeileZerlegen("*C4H6O3_Acetic_acid_anhydride_Essigsäureanhydrid", first, name, last);
  EXPECT_EQ(first, "C4H6O3");
  EXPECT_EQ(name, "Acetic acid anhydride");
  EXPECT_EQ(last, "Essigsäureanhydrid");
}

TEST(SynonymZeileZerlegen, OnlyTheFirstThreeUnderscoresOfTheNameBecomeBlanks) {
  std::string first, name, last;
  peq::SynonymZeileZerlegen("*F_a_b_c_d_e_L", first, name, last);
  EXPECT_EQ(name, "a b c d_e");
  EXPECT_EQ(last, "L");
}

TEST(SynonymZeileZerlegen, NoUnderscoreIsAllFirstField) {
  std::string first, name, last;
  peq::SynonymZeileZerlegen("*ABC", first, name, last);
  EXPECT_EQ(first, "ABC");
  EXPECT_EQ(name, "");
  EXPECT_EQ(last, "");
}

TEST(SynonymZeileZerlegen, OneUnderscoreGivesTheRightTrimmedLastFieldAndNoName) {
  std::string first, name, last;
  peq::SynonymZeileZerlegen("*ABC_last   ", first, name, last);
  EXPECT_EQ(first, "ABC");
  EXPECT_EQ(name, "");
  EXPECT_EQ(last, "last");
}

// ---- number and key filter ----

TEST(NummerSuchen, PlaceOfTheFirstRecordWithTheNumber) {
  peq::Session s;
  s.BankAnz = 3;
  s.BankNr.assign(4, 0);
  s.BankNr[1] = 7;
  s.BankNr[2] = 12;
  s.BankNr[3] = 12;
  EXPECT_EQ(peq::NummerSuchen(s, 12), 2);
  EXPECT_EQ(peq::NummerSuchen(s, 7), 1);
  EXPECT_EQ(peq::NummerSuchen(s, 99), 0);
}

TEST(IstZahlenTaste, AcceptsDigitsExponentSignPointAndEditingKeys) {
  for (int k : {48, 49, 50, 51, 52, 53, 54, 55, 56, 57, 69, 101, 45, 46, 13, 8, 127}) {
    int key = k;
    EXPECT_TRUE(peq::IstZahlenTaste(key)) << k;
    EXPECT_EQ(key, k);
  }
}

TEST(IstZahlenTaste, TurnsACommaIntoAPoint) {
  int key = 44;
  EXPECT_TRUE(peq::IstZahlenTaste(key));
  EXPECT_EQ(key, 46);
}

TEST(IstZahlenTaste, RefusesLettersBlanksAndOtherSigns) {
  for (int k : {97, 65, 100, 68, 32, 43, 47, 42, 120, 0, 9, 58}) {
    int key = k;
    EXPECT_FALSE(peq::IstZahlenTaste(key)) << k;
  }
}

// ---- the search of the window over the bundled database ----

class BundledSearch : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath())); }
  peq::StoffSucheErgebnis Find(const std::string& q, peq::MsgSink* sink = nullptr) {
    return peq::StoffSuchen(s, q, (fs::path(peqtest::SourceDir()) / "data").string(), sink);
  }
  std::string CasOf(const peq::StoffSucheErgebnis& r) {
    return r.found ? peq::Trim(s.BankCAS[static_cast<std::size_t>(r.place)]) : std::string();
  }
  peq::Session s;
};

TEST_F(BundledSearch, TheFourWaysOfTypingEthanolAndAceticAcid) {
  EXPECT_EQ(CasOf(Find("ethyl alcohol")), "64-17-5");
  EXPECT_EQ(CasOf(Find("Äthanol")), "64-17-5");
  EXPECT_EQ(CasOf(Find("Essigsäure")), "64-19-7");
  EXPECT_EQ(CasOf(Find("Essigsaeure")), "64-19-7");
  EXPECT_EQ(CasOf(Find("64-17-5")), "64-17-5");
  EXPECT_EQ(CasOf(Find("ethanol")), "64-17-5");
  EXPECT_EQ(CasOf(Find("WATER")), "7732-18-5");
}

TEST_F(BundledSearch, ExactDatabaseNameIsADirectHit) {
  const auto r = Find("Ethanol");
  EXPECT_EQ(r.art, peq::StoffSucheErgebnis::Art::Direkt);
  EXPECT_EQ(CasOf(r), "64-17-5");
}

TEST_F(BundledSearch, NothingFoundGivesTheStopBox) {
  peq::MsgSink sink;
  const auto r = Find("no such thing", &sink);
  EXPECT_FALSE(r.found);
  EXPECT_EQ(r.art, peq::StoffSucheErgebnis::Art::NichtGefunden);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "input error or substance not available resp.");
  EXPECT_EQ(sink[0].text, "Nothing found under this name");
  EXPECT_EQ(sink[0].icon, MsgIcon::Stop);
}

TEST(StoffSuchen, ASubstanceOfTheSynonymFileMissingInTheDatabaseGivesTheWarning) {
  peqtest::TempDir dir;
  const std::string bank = peqtest::WriteBank(dir.path(), "MINI.Q07",
                                              {peqtest::BundledRecord("7732-18-5"), peqtest::BundledRecord("64-17-5")});
  WriteSynom(dir.path(), {"67-56-1", "*CH4O_Methanol_Methanol", "METHANOL", "METHYLALCOHOL", ""});
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, bank));
  peq::MsgSink sink;
  const auto r = peq::StoffSuchen(s, "methyl alcohol", dir.path(), &sink);
  EXPECT_FALSE(r.found);
  EXPECT_EQ(r.art, peq::StoffSucheErgebnis::Art::NichtInBank);
  EXPECT_EQ(r.cas, "67-56-1");
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, " the substance is not involved in this database");
  EXPECT_EQ(sink[0].text, "CH4O\nMethanol\n\nCAS-Nr. 67-56-1\nMethanol");
  EXPECT_EQ(sink[0].icon, MsgIcon::Warning);
}

TEST(StoffSuchen, AMissingSynonymFileEndsTheSearchWithNothingFound) {
  peqtest::TempDir dir;
  const std::string bank = peqtest::WriteBank(dir.path(), "MINI.Q07", {peqtest::BundledRecord("7732-18-5")});
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, bank));
  peq::MsgSink sink;
  const auto r = peq::StoffSuchen(s, "aqua", dir.path(), &sink);
  EXPECT_FALSE(r.found);
  EXPECT_EQ(r.art, peq::StoffSucheErgebnis::Art::DateiFehlt);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].text, "Select your substance via list\nfile SYNOM.TXT not found");
}

// ---- the bundled file and its tool ----

std::string FileBytes(const fs::path& p) {
  std::ifstream f(p, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(f), {});
}

TEST(BundledSynom, EveryDatabaseSubstanceHasARecordWithItsNames) {
  peq::Session s;
  ASSERT_TRUE(peqtest::OpenBank(s, peqtest::BundledBankPath()));
  const std::string dir = (fs::path(peqtest::SourceDir()) / "data").string();
  for (int p = 1; p <= s.BankAnz; ++p) {
    const std::string cas = peq::Trim(s.BankCAS[static_cast<std::size_t>(p)]);
    std::string name = peq::BlankEntfernen(peq::NameNormieren(peq::Trim(s.BankName[static_cast<std::size_t>(p)])));
    std::string found, line;
    bool missing = false;
    peq::SynonymSuchen(name, dir, found, line, missing, nullptr);
    EXPECT_EQ(found, cas) << s.BankName[static_cast<std::size_t>(p)];
  }
}

TEST(MkSynom, ReproducesTheBundledFileByteForByte) {
  const fs::path shared = fs::path(peqtest::SourceDir()).parent_path() / "shared" / "data" / "pure" / "synonyms.tsv";
  if (!fs::exists(shared)) GTEST_SKIP() << "no ../shared/data beside the repository";
  peqtest::TempDir out;
  std::string summary, notes, err;
  ASSERT_TRUE(mksynom::MakeSynom(shared.string(), peqtest::BundledBankPath(), out.File("SYNOM.TXT"), summary, notes, err))
      << err;
  EXPECT_EQ(FileBytes(out.File("SYNOM.TXT")), FileBytes(fs::path(peqtest::SourceDir()) / "data" / "SYNOM.TXT"))
      << "data/SYNOM.TXT is not what the tool writes: run mksynom ../shared/data/pure/synonyms.tsv "
         "data/PEQBASE.Q07 data/SYNOM.TXT";
}

}  // namespace
