// The experimental T-p-x points: the EX5 reader and writer with the substance check and the
// adaptation of the indexing, broken files, sort, exchange, paste, cell edit and the transfer of a
// typed line with its units.
#include "expdata/tpxdaten.h"

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace {

using namespace peq;
using peqtest::TempDir;

std::string Bytes(const std::string& file) {
  std::ifstream f(file, std::ios::binary);
  std::ostringstream ss;
  ss << f.rdbuf();
  return ss.str();
}

// A session of two components with these CAS-RN (blank-padded as the database holds them).
Session Paar(const std::string& cas1, const std::string& name1, const std::string& cas2,
             const std::string& name2) {
  Session s;
  s.NKomp = 2;
  s.StoffData.assign(3);
  s.StoffData[1].CasNr = cas1 + std::string(12 - cas1.size(), ' ');
  s.StoffData[1].Name = name1;
  s.StoffData[2].CasNr = cas2 + std::string(12 - cas2.size(), ' ');
  s.StoffData[2].Name = name2;
  return s;
}

Session MethanolWasser() { return Paar("67-56-1", "Methanol", "7732-18-5", "Water"); }

void Halte(Session& s, const std::vector<ExpPunkt>& p) {
  s.ExpPunkte.assign(p.size() + 1);
  for (std::size_t i = 0; i < p.size(); ++i) s.ExpPunkte[i + 1] = p[i];
  s.ExpAnz = static_cast<int16_t>(p.size());
}

// Records the questions and answers them as told.
struct Fragen {
  std::vector<std::string> gestellt;
  bool andereStoffe = true, anpassen = true;
  JaNeinFrage f() {
    return [this](const std::string& t, const std::string& text) {
      gestellt.push_back(t + "|" + text);
      return text == kExpIndizierung ? anpassen : andereStoffe;
    };
  }
};

const std::vector<ExpPunkt> kDrei = {{0, 298.15f, 12.5f, 0.25f, 0.1f},
                                    {-1, 298.15f, 8.25f, 0.5f, 0.0f},
                                    {0, 298.15f, 4.75f, 0.875f, 0.5f}};

TEST(Ex5, WriterLaysOutTheSixHeadLinesAndOneLinePerPoint) {
  Session s = MethanolWasser();
  Halte(s, kDrei);
  s.ExpKommentar1 = "Comment one";
  s.ExpKommentar2 = "second";
  EXPECT_EQ(Ex5Text(s),
            "1, 67-56-1     , \"Methanol\"\r\n"
            "2, 7732-18-5   , \"Water\"\r\n"
            "Comment one\r\n"
            "second\r\n"
            "T/K, p/kPa, x2(L), x2(V)\r\n"
            "3\r\n"
            "298.15,12.5,0.25,0.1\r\n"
            "298.15,8.25,0.5,0\r\n"
            "298.15,4.75,0.875,0.5\r\n");
}

TEST(Ex5, RoundTripKeepsPointsCommentsAndMakesInactivePointsActive) {
  TempDir dir;
  Session s = MethanolWasser();
  Halte(s, kDrei);
  s.ExpKommentar1 = "Source, with a comma, in it";
  s.ExpKommentar2 = "x, y";
  s.ExpUngespeichert = true;
  const std::string f = dir.File("A.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(s, f, err)) << err;
  EXPECT_FALSE(s.ExpUngespeichert);
  EXPECT_EQ(s.ExpDatei, f);

  Session t = MethanolWasser();
  Fragen q;
  ASSERT_TRUE(ExpDateiLaden(t, false, f, q.f(), nullptr));
  EXPECT_TRUE(q.gestellt.empty());
  ASSERT_EQ(t.ExpAnz, 3);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(t.ExpPunkte[i].T, kDrei[i - 1].T);
    EXPECT_EQ(t.ExpPunkte[i].p, kDrei[i - 1].p);
    EXPECT_EQ(t.ExpPunkte[i].x2L, kDrei[i - 1].x2L);
    EXPECT_EQ(t.ExpPunkte[i].x2V, kDrei[i - 1].x2V);
    EXPECT_EQ(t.ExpPunkte[i].Inaktiv, 0);
  }
  EXPECT_EQ(t.ExpKommentar1, "Source, with a comma, in it");
  EXPECT_EQ(t.ExpKommentar2, "x, y");
  EXPECT_EQ(t.ExpTitel, "(1) Methanol   (2) Water");
  // Written again, the very same bytes.
  std::string err2;
  const std::string g = dir.File("B.EX5");
  ASSERT_TRUE(ExpDateiSchreiben(t, g, err2));
  EXPECT_EQ(Bytes(f), Bytes(g));
}

TEST(Ex5, ReverseOrderAsksToAdaptAndYesFlipsBothFractions) {
  TempDir dir;
  Session w = Paar("7732-18-5", "Water", "67-56-1", "Methanol");
  Halte(w, kDrei);
  const std::string f = dir.File("R.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(w, f, err));

  Session s = MethanolWasser();
  Fragen q;
  ASSERT_TRUE(ExpDateiLaden(s, false, f, q.f(), nullptr));
  ASSERT_EQ(q.gestellt.size(), 1u);
  EXPECT_EQ(q.gestellt[0], std::string("WARNING|") + kExpIndizierung);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.75f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2V, 0.9f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[2].x2V, 1.0f);  // the adaptation flips every x2V
  EXPECT_EQ(s.ExpTitel, "(1) Methanol   (2) Water");
}

TEST(Ex5, ReverseOrderAnsweredNoKeepsTheNumbersAndTheFileNames) {
  TempDir dir;
  Session w = Paar("7732-18-5", "Water", "67-56-1", "Methanol");
  Halte(w, kDrei);
  const std::string f = dir.File("R.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(w, f, err));
  Session s = MethanolWasser();
  Fragen q;
  q.anpassen = false;
  ASSERT_TRUE(ExpDateiLaden(s, false, f, q.f(), nullptr));
  EXPECT_EQ(s.ExpPunkte[1].x2L, 0.25f);
  EXPECT_EQ(s.ExpTitel, "(1) Water   (2) Methanol");
  EXPECT_EQ(s.ExpAnz, 3);
}

TEST(Ex5, OtherSubstancesWarnAndNoEndsTheLoad) {
  TempDir dir;
  Session w = Paar("64-17-5", "Ethanol", "7732-18-5", "Water");
  Halte(w, kDrei);
  const std::string f = dir.File("E.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(w, f, err));

  Session s = Paar("67-56-1", "Methanol", "71-43-2", "Benzene");
  Fragen q;
  q.andereStoffe = false;
  EXPECT_FALSE(ExpDateiLaden(s, false, f, q.f(), nullptr));
  ASSERT_EQ(q.gestellt.size(), 1u);
  EXPECT_EQ(q.gestellt[0],
            "WARNING|The substances of this file are different from the actually loaded substances.\n\n"
            "Continue nevertheless?");
  EXPECT_EQ(s.ExpAnz, 0);

  // Yes loads them after the warning (and then asks about the indexing, as the first CAS-RN differs).
  Fragen ja;
  ja.anpassen = false;
  EXPECT_TRUE(ExpDateiLaden(s, false, f, ja.f(), nullptr));
  EXPECT_EQ(ja.gestellt.size(), 2u);
  EXPECT_EQ(s.ExpAnz, 3);
}

TEST(Ex5, AddPutsThePointsBehindAndKeepsTheFirstComments) {
  TempDir dir;
  Session w = MethanolWasser();
  Halte(w, kDrei);
  w.ExpKommentar1 = "first";
  const std::string f = dir.File("A.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(w, f, err));
  w.ExpKommentar1 = "second";
  Halte(w, {{0, 330.0f, 50.0f, 0.4f, 0.2f}});
  const std::string g = dir.File("B.EX5");
  ASSERT_TRUE(ExpDateiSchreiben(w, g, err));

  Session s = MethanolWasser();
  Fragen q;
  ASSERT_TRUE(ExpDateiLaden(s, false, f, q.f(), nullptr));
  ASSERT_TRUE(ExpDateiLaden(s, true, g, q.f(), nullptr));
  EXPECT_EQ(s.ExpAnz, 4);
  EXPECT_EQ(s.ExpPunkte[4].T, 330.0f);
  EXPECT_EQ(s.ExpKommentar1, "first");
  EXPECT_EQ(s.ExpDatei, g);
}

TEST(Ex5, TruncatedFileKeepsPointsReadInTheArrayAndExpAnzUnchanged) {
  TempDir dir;
  Session w = MethanolWasser();
  Halte(w, kDrei);
  const std::string f = dir.File("A.EX5");
  std::string err;
  ASSERT_TRUE(ExpDateiSchreiben(w, f, err));
  // Held: one point. Then a file whose count says 5 but holds 3 lines is added.
  std::string t = Bytes(f);
  t.replace(t.find("\r\n3\r\n"), 5, "\r\n5\r\n");
  const std::string g = peqtest::WriteBytes(dir.path(), "T.EX5", t);
  Session s = MethanolWasser();
  Halte(s, {{0, 300.0f, 1.0f, 0.1f, 0.1f}});
  MsgSink m;
  EXPECT_FALSE(ExpDateiLaden(s, true, g, Fragen().f(), &m));
  EXPECT_EQ(s.ExpAnz, 1);
  ASSERT_GE(s.ExpPunkte.size(), 5u);
  EXPECT_EQ(s.ExpPunkte[4].p, 4.75f);  // read before the break
  ASSERT_EQ(m.size(), 1u);
  EXPECT_EQ(m[0].title, "Error");
  EXPECT_EQ(m[0].text, "Input past end of file");
}

TEST(Ex5, FilesThatAreNoEx5GiveWordsAndNeverCrash) {
  TempDir dir;
  const std::vector<std::string> schlecht = {
      "",
      "one line only",
      std::string("\x00\x01\xff\xfe\x80garbage\x00", 12),
      "1, 67-56-1, \"Methanol\"\r\n2, 7732-18-5, \"Water\"\r\nc1\r\nc2\r\nhead\r\n2\r\n300,abc,0.5,0.5\r\n",
      "1, 67-56-1, \"Methanol\"\r\n2, 7732-18-5, \"Water\"\r\nc1\r\nc2\r\nhead\r\nmany\r\n",
      "1, 67-56-1, \"Methanol\"\r\n2, 7732-18-5, \"Water\"\r\nc1\r\nc2\r\nhead\r\n-3\r\n",
      "1, 67-56-1, \"Methanol\"\r\n2, 7732-18-5, \"Water\"\r\nc1\r\nc2\r\nhead\r\n99999\r\n",
      "1, 67-56-1, \"Methanol\"\r\n2, 7732-18-5, \"Water\"\r\nc1\r\nc2\r\nhead\r\n1\r\n1e39,1,1,1\r\n",
  };
  int k = 0;
  for (const std::string& b : schlecht) {
    const std::string f = peqtest::WriteBytes(dir.path(), "X" + std::to_string(k++) + ".EX5", b);
    Session s = MethanolWasser();
    Halte(s, kDrei);
    MsgSink m;
    EXPECT_FALSE(ExpDateiLaden(s, true, f, Fragen().f(), &m)) << k;
    EXPECT_EQ(s.ExpAnz, 3) << k;
    ASSERT_EQ(m.size(), 1u) << k;
    EXPECT_EQ(m[0].title, "Error");
    EXPECT_FALSE(m[0].text.empty());
  }
  MsgSink m;
  Session s = MethanolWasser();
  EXPECT_FALSE(ExpDateiLaden(s, false, dir.File("missing.EX5"), Fragen().f(), &m));
  EXPECT_EQ(m.size(), 1u);
}

TEST(Ex5, ReaderTakesItemsEndingAtCommasAndLineEnds) {
  const Ex5Inhalt d = LeseEx5(
      "1, 67-56-1     , \"Methanol\"\n2, 7732-18-5   , \"Water\"\nc, 1\nc2\nT/K, p/kPa, x2(L), x2(V)\n2\n"
      "300 , 1.5E+01,0.5, 0.25\n301,16\n.5,.3\n");
  EXPECT_TRUE(d.Fehler.empty()) << d.Fehler;
  EXPECT_EQ(d.Cas1, "67-56-1");
  EXPECT_EQ(d.Name2, "Water");
  EXPECT_EQ(d.Kommentar1, "c, 1");
  ASSERT_EQ(d.Punkte.size(), 2u);
  EXPECT_EQ(d.Punkte[0].p, 15.0f);
  EXPECT_EQ(d.Punkte[1].x2V, 0.3f);
}

TEST(Ex5, LoeschenEmptiesCountFileAndTitleButKeepsTheArray) {
  Session s = MethanolWasser();
  Halte(s, kDrei);
  s.ExpDatei = "a.EX5";
  s.ExpTitel = "t";
  ExpLoeschen(s);
  EXPECT_EQ(s.ExpAnz, 0);
  EXPECT_TRUE(s.ExpDatei.empty());
  EXPECT_TRUE(s.ExpTitel.empty());
  EXPECT_EQ(s.ExpPunkte.size(), 4u);
}

TEST(ExpListe, SortsByEachOfTheThreeKeys) {
  Session s = MethanolWasser();
  Halte(s, {{0, 310, 5, 0.2f, 0}, {-1, 300, 7, 0.9f, 0}, {0, 305, 6, 0.1f, 0}});
  ASSERT_TRUE(ExpSortieren(s, "T"));
  EXPECT_EQ(s.ExpPunkte[1].T, 300);
  EXPECT_EQ(s.ExpPunkte[1].Inaktiv, -1);  // the mark moves with its point
  EXPECT_EQ(s.ExpPunkte[3].T, 310);
  ASSERT_TRUE(ExpSortieren(s, "p"));
  EXPECT_EQ(s.ExpPunkte[1].p, 5);
  ASSERT_TRUE(ExpSortieren(s, "xL"));
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.1f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[3].x2L, 0.9f);
  EXPECT_FALSE(ExpSortieren(s, "x"));
}

TEST(ExpListe, ExchangeFlipsLiquidAndVapour) {
  Session s = MethanolWasser();
  Halte(s, {{0, 310, 5, 0.2f, 0.75f}});
  ExpKomponentenTausch(s);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.8f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2V, 0.25f);
}

TEST(ExpListe, PasteOfThreeLinesAtTheEndOfATwoLineListExtendsIt) {
  Session s = MethanolWasser();
  Halte(s, {{0, 300, 1, 0.1f, 0.1f}, {0, 301, 2, 0.2f, 0.2f}});
  s.ExpUngespeichert = false;
  const int n = ExpEinfuegen(s, "310\t10\t0,3\t0.4\r\n311\t11\t0.5\t0.6\r\n312\t12\t0.7\t0.8\r\n", 2, 1);
  EXPECT_EQ(n, 3);
  ASSERT_EQ(s.ExpAnz, 5);
  EXPECT_EQ(s.ExpPunkte[2].T, 301);
  EXPECT_EQ(s.ExpPunkte[3].T, 310);
  EXPECT_FLOAT_EQ(s.ExpPunkte[3].x2L, 0.3f);  // comma read as a point
  EXPECT_FLOAT_EQ(s.ExpPunkte[5].x2V, 0.8f);
  EXPECT_TRUE(s.ExpUngespeichert);
}

TEST(ExpListe, PasteInsideOverwritesAndExtendsOnlyWhatRunsPastTheEnd) {
  Session s = MethanolWasser();
  Halte(s, {{0, 300, 1, 0.1f, 0.1f}, {0, 301, 2, 0.2f, 0.2f}});
  ExpEinfuegen(s, "310\t10\t0.3\t0.4\n311\t11\t0.5\t0.6\n312\t12\t0.7\t0.8\n", 0, 1);
  ASSERT_EQ(s.ExpAnz, 3);
  EXPECT_EQ(s.ExpPunkte[1].T, 310);
  EXPECT_EQ(s.ExpPunkte[3].T, 312);
  // Two lines from the second row: overwrite 2 and 3, no growth.
  ExpEinfuegen(s, "400\t40\t0.5\t0.5\n401\t41\t0.6\t0.6\n", 1, 1);
  EXPECT_EQ(s.ExpAnz, 3);
  EXPECT_EQ(s.ExpPunkte[2].T, 400);
  EXPECT_EQ(s.ExpPunkte[3].T, 401);
  // From column p: T stays.
  ExpEinfuegen(s, "77\t0.25\n", 0, 2);
  EXPECT_EQ(s.ExpPunkte[1].T, 310);
  EXPECT_EQ(s.ExpPunkte[1].p, 77);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.25f);
  // Without a line end nothing happens.
  EXPECT_EQ(ExpEinfuegen(s, "1\t2\t3\t4", 0, 1), 0);
  EXPECT_EQ(s.ExpPunkte[1].p, 77);
}

TEST(ExpListe, CellValuesReadCommaAndLeadingNumber) {
  EXPECT_FLOAT_EQ(ExpZellWert("0,25"), 0.25f);
  EXPECT_FLOAT_EQ(ExpZellWert(" 12.5 kPa"), 12.5f);
  EXPECT_EQ(ExpZellWert("abc"), 0.0f);
  EXPECT_EQ(ExpZellWert("1e39"), 0.0f);
  EXPECT_EQ(ExpZellWert("nan"), 0.0f);
  Session s = MethanolWasser();
  Halte(s, kDrei);
  EXPECT_TRUE(ExpZelleSetzen(s, 2, 2, "9,5"));
  EXPECT_EQ(s.ExpPunkte[2].p, 9.5f);
  EXPECT_FALSE(ExpZelleSetzen(s, 4, 2, "1"));
}

TEST(ExpListe, EraseMovesTheRestUpAndFlipMarksLines) {
  Session s = MethanolWasser();
  Halte(s, {{0, 1, 1, 0, 0}, {0, 2, 1, 0, 0}, {0, 3, 1, 0, 0}, {0, 4, 1, 0, 0}});
  ASSERT_TRUE(ExpZeilenLoeschen(s, 2, 3));
  EXPECT_EQ(s.ExpAnz, 2);
  EXPECT_EQ(s.ExpPunkte[2].T, 4);
  EXPECT_FALSE(ExpZeilenLoeschen(s, 2, 3));
  ExpAktivUmschalten(s, 1, 2);
  EXPECT_NE(s.ExpPunkte[1].Inaktiv, 0);
  ExpAktivUmschalten(s, 1, 1);
  EXPECT_EQ(s.ExpPunkte[1].Inaktiv, 0);
}

TEST(OKinput, CelsiusTorrAndComponentOneAreConvertedAndShownToThreeDecimals) {
  Session s = MethanolWasser();
  TpxEinheiten e{1, 1, 1};
  TpxUebernahme u = OKinput(s, {"25", "750", "0.3333", "0,6"}, e, true, 0);
  ASSERT_TRUE(u.ok);
  ASSERT_EQ(s.ExpAnz, 1);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].T, 298.15f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].p, static_cast<float>(750.0 / 760.0 * 101.325));  // 99.9918 kPa
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.6667f);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2V, 0.4f);
  EXPECT_EQ(u.Anzeige[0], "25");       // 298.15f - 273.15 = 24.99999..., Int(v*1000+0.5)/1000
  EXPECT_EQ(u.Anzeige[1], "750");
  EXPECT_EQ(u.Anzeige[2], "0.333");    // 1 - 0.6667 rounded to three decimals
  EXPECT_EQ(u.Anzeige[3], "0.6");
  EXPECT_TRUE(s.ExpUngespeichert);
}

TEST(OKinput, AtmAndKelvinAndTheRoundingOfAShownValue) {
  Session s = MethanolWasser();
  TpxUebernahme u = OKinput(s, {"350.5", "1.23456", "0.5", "0.7"}, TpxEinheiten{0, 2, 2}, true, 0);
  ASSERT_TRUE(u.ok);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].p, static_cast<float>(1.23456 * 101.325));
  EXPECT_EQ(u.Anzeige[1], "1.235");  // Int(1234.56 + 0.5) / 1000
  EXPECT_EQ(u.Anzeige[0], "350.5");
  EXPECT_DOUBLE_EQ(AufDreiStellen(2.0004999), 2.0);
  EXPECT_DOUBLE_EQ(AufDreiStellen(2.0005), 2.001);
  EXPECT_DOUBLE_EQ(AufDreiStellen(-1.2346), -1.235);
}

TEST(OKinput, VapourZeroOfComponentOneStaysZero) {
  Session s = MethanolWasser();
  TpxUebernahme u = OKinput(s, {"300", "10", "0.2", "0"}, TpxEinheiten{0, 0, 1}, true, 0);
  ASSERT_TRUE(u.ok);
  EXPECT_FLOAT_EQ(s.ExpPunkte[1].x2L, 0.8f);
  EXPECT_EQ(s.ExpPunkte[1].x2V, 0.0f);
  EXPECT_EQ(u.Anzeige[3], "0");
}

TEST(OKinput, RangeChecksAndUnreadableFields) {
  Session s = MethanolWasser();
  TpxUebernahme u = OKinput(s, {"300", "10", "1.2", "0"}, TpxEinheiten{}, true, 0);
  EXPECT_FALSE(u.ok);
  EXPECT_EQ(u.Meldung, "mole fraction not in the valid range (0 <= x <= 1)");
  u = OKinput(s, {"300", "10", "0.5", "-0.1"}, TpxEinheiten{}, true, 0);
  EXPECT_EQ(u.Meldung, kExpMolBereich);
  EXPECT_EQ(u.Fokus, 3);
  u = OKinput(s, {"300", "abc", "0.5", "0.1"}, TpxEinheiten{}, true, 0);
  EXPECT_FALSE(u.ok);
  EXPECT_EQ(u.Fokus, 1);
  EXPECT_TRUE(u.Meldung.empty());
  u = OKinput(s, {"-274", "1", "0.5", "0.1"}, TpxEinheiten{1, 0, 2}, true, 0);  // below 0 K
  EXPECT_EQ(u.Fokus, 0);
  u = OKinput(s, {"300", "0", "0.5", "0.1"}, TpxEinheiten{}, true, 0);
  EXPECT_EQ(u.Fokus, 1);
  EXPECT_EQ(s.ExpAnz, 0);
  EXPECT_FALSE(s.ExpUngespeichert);
}

TEST(OKinput, EditModeReplacesTheMarkedPointKeepingItsMark) {
  Session s = MethanolWasser();
  Halte(s, kDrei);
  TpxUebernahme u = OKinput(s, {"333", "44", "0.5", "0.6"}, TpxEinheiten{}, false, 2);
  ASSERT_TRUE(u.ok);
  EXPECT_EQ(s.ExpAnz, 3);
  EXPECT_EQ(s.ExpPunkte[2].T, 333.0f);
  EXPECT_EQ(s.ExpPunkte[2].Inaktiv, -1);
  EXPECT_FALSE(OKinput(s, {"333", "44", "0.5", "0.6"}, TpxEinheiten{}, false, 4).ok);
}

TEST(OKinput, HeadsOfTheFractionFields) {
  EXPECT_EQ(XLKopf(1), "x1(L)");
  EXPECT_EQ(XVKopf(1), "x1(V)");
  EXPECT_EQ(XLKopf(2), "x2(L)");
  EXPECT_EQ(XVKopf(2), "x2(V)");
}

}  // namespace
