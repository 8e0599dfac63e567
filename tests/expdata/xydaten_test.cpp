// The XY editor's list: delimiter search, reader and writer, sort, exchange, removal, the active
// mark, the six manipulations with their two passes, and the paste.
#include "expdata/xydaten.h"

#include <cmath>

#include <gtest/gtest.h>

namespace {

using namespace peq;

Kurve Liste(std::initializer_list<std::pair<float, float>> xy) {
  Kurve k(1);
  for (auto [x, y] : xy) k.push_back(KurvenPunkt{y, x, 0});
  k[0].x = static_cast<float>(k.size() - 1);
  return k;
}

TEST(XYTrenner, EachOfTheFourDelimitersAlone) {
  std::string sep;
  EXPECT_EQ(XYTrennerSuchen("1.5 2.5", sep), 1);
  EXPECT_EQ(sep, " ");
  EXPECT_EQ(XYTrennerSuchen("1.5,2.5", sep), 1);
  EXPECT_EQ(sep, ",");
  EXPECT_EQ(XYTrennerSuchen("1.5;2.5", sep), 1);
  EXPECT_EQ(sep, ";");
  EXPECT_EQ(XYTrennerSuchen("1.5\t2.5", sep), 1);
  EXPECT_EQ(sep, "\t");
}

TEST(XYTrenner, MixturesLetTheLastOfTheOrderWin) {
  std::string sep;
  EXPECT_EQ(XYTrennerSuchen("1,5;2,5", sep), 1);  // comma and semicolon: the semicolon
  EXPECT_EQ(sep, ";");
  EXPECT_EQ(XYTrennerSuchen("1,5\t2,5", sep), 1);
  EXPECT_EQ(sep, "\t");
  EXPECT_EQ(XYTrennerSuchen("1 5;2", sep), 1);
  EXPECT_EQ(sep, ";");
  EXPECT_EQ(XYTrennerSuchen("1 ,2 ;3\t4", sep), 1);
  EXPECT_EQ(sep, "\t");
}

TEST(XYTrenner, ThreeColumnsGiveStatusTwoAndNoneStatusZero) {
  std::string sep = "x";
  EXPECT_EQ(XYTrennerSuchen("1;2;3", sep), 2);
  EXPECT_TRUE(sep.empty());
  EXPECT_EQ(XYTrennerSuchen("1\t2\t3", sep), 2);
  EXPECT_EQ(XYTrennerSuchen("12345", sep), 0);
  EXPECT_TRUE(sep.empty());
}

TEST(XYDatei, ReadsCommentAndLinesWithDecimalCommas) {
  Kurve k;
  std::string c, err;
  ASSERT_TRUE(XYLesen("my curve, two\r\n0,5;1,25\r\n1,5;2\r\n\r\n", k, c, err)) << err;
  EXPECT_EQ(c, "my curve, two");
  ASSERT_EQ(XYAnzahl(k), 2);
  EXPECT_FLOAT_EQ(k[1].x, 0.5f);
  EXPECT_FLOAT_EQ(k[1].y, 1.25f);
  EXPECT_EQ(k[2].z, 0.0f);
}

TEST(XYDatei, WriterUsesThePatternAndLeavesInactiveLinesOut) {
  Kurve k = Liste({{0.5f, 1250.0f}, {-2.0f, 0.0f}, {3.0f, 4.0f}});
  k[3].z = -1;
  EXPECT_EQ(XYText("c", k, ";"), "c\r\n.5000000E+00;.1250000E+04\r\n-.2000000E+01;.0000000E+00\r\n");
  // Saved and loaded, the inactive line is gone.
  Kurve r;
  std::string c, err;
  ASSERT_TRUE(XYLesen(XYText("c", k, "\t"), r, c, err)) << err;
  ASSERT_EQ(XYAnzahl(r), 2);
  EXPECT_FLOAT_EQ(r[1].y, 1250.0f);
  EXPECT_FLOAT_EQ(r[2].x, -2.0f);
}

TEST(XYDatei, BadFilesGiveWordsAndAnEmptyList) {
  const char* schlecht[] = {"", "only a comment", "c\n1;2;3\n", "c\n123\n", "c\n1;abc\n", "c\n1;2\nx;y\n",
                            "c\n1;1e39\n"};
  for (const char* b : schlecht) {
    Kurve k = Liste({{1, 1}});
    std::string c, err;
    EXPECT_FALSE(XYLesen(b, k, c, err)) << b;
    EXPECT_FALSE(err.empty());
    EXPECT_EQ(XYAnzahl(k), 0);
  }
}

TEST(XYListe, SortExchangeRemoveAndMark) {
  Kurve k = Liste({{3, 10}, {1, 30}, {2, 20}});
  k[2].z = -1;
  XYSortieren(k, false);
  EXPECT_EQ(k[1].x, 1);
  EXPECT_EQ(k[1].z, -1);  // the mark moves with its line
  XYSortieren(k, true);
  EXPECT_EQ(k[1].y, 10);
  XYSpaltenTausch(k);
  EXPECT_EQ(k[1].x, 10);
  EXPECT_EQ(k[1].y, 3);
  ASSERT_TRUE(XYZeilenLoeschen(k, 1, 2));
  EXPECT_EQ(XYAnzahl(k), 1);
  EXPECT_EQ(k[1].x, 30);
  EXPECT_FALSE(XYZeilenLoeschen(k, 2, 2));
  XYAktivUmschalten(k, 1, 1);
  EXPECT_EQ(k[1].z, 0);
}

TEST(XYManip, EachOfTheSix) {
  Kurve k = Liste({{0.25f, 2.0f}});
  ASSERT_TRUE(XYManipulieren(k, 0, 0));
  EXPECT_FLOAT_EQ(k[1].x, 0.75f);
  ASSERT_TRUE(XYManipulieren(k, 1, 0));
  EXPECT_FLOAT_EQ(k[1].y, 0.5f);
  ASSERT_TRUE(XYManipulieren(k, 2, 1.5));
  EXPECT_FLOAT_EQ(k[1].y, 2.0f);
  ASSERT_TRUE(XYManipulieren(k, 3, -3));
  EXPECT_FLOAT_EQ(k[1].y, -6.0f);
  ASSERT_TRUE(XYManipulieren(k, 5, 0));
  EXPECT_FLOAT_EQ(k[1].y, static_cast<float>(std::exp(-6.0)));
  ASSERT_TRUE(XYManipulieren(k, 4, 0));
  EXPECT_NEAR(k[1].y, -6.0f, 1e-5);
}

TEST(XYManip, LnOfAListWithAZeroLeavesTheListAsItWas) {
  Kurve k = Liste({{1, 5}, {2, 0}, {3, 7}});
  const Kurve vorher = k;
  EXPECT_FALSE(XYManipulieren(k, 4, 0));
  for (int i = 1; i <= 3; ++i) {
    EXPECT_EQ(k[i].x, vorher[i].x);
    EXPECT_EQ(k[i].y, vorher[i].y);
  }
  EXPECT_FALSE(XYManipulieren(k, 1, 0));          // 1/0
  Kurve g = Liste({{1, 100}});
  EXPECT_FALSE(XYManipulieren(g, 5, 0));  // exp(100) beyond a 32-bit real
  EXPECT_EQ(g[1].y, 100);
  EXPECT_FALSE(XYManipulieren(g, 3, 1e37));
}

TEST(XYListe, PasteAtTheEndExtendsAndInsideOverwrites) {
  Kurve k = Liste({{1, 1}, {2, 2}});
  EXPECT_EQ(XYEinfuegen(k, "3\t30\r\n4\t40\r\n5\t50\r\n", 2, 1), 3);
  ASSERT_EQ(XYAnzahl(k), 5);
  EXPECT_EQ(k[5].y, 50);
  XYEinfuegen(k, "7,5\t70\n", 0, 1);
  EXPECT_EQ(XYAnzahl(k), 5);
  EXPECT_EQ(k[1].x, 7.5f);
  XYEinfuegen(k, "99\n", 1, 2);
  EXPECT_EQ(k[2].x, 2);
  EXPECT_EQ(k[2].y, 99);
  EXPECT_EQ(XYEinfuegen(k, "1\t2", 0, 1), 0);
}

TEST(XYListe, ActiveLinesForDrawing) {
  Kurve k = Liste({{1, 10}, {2, 20}, {3, 30}});
  k[2].z = -1;
  Kurve a;
  ASSERT_TRUE(XYAktive(k, a));
  ASSERT_EQ(XYAnzahl(a), 2);
  EXPECT_EQ(a[2].x, 3);
  k[3].y = 2e37f;
  EXPECT_FALSE(XYAktive(k, a));
}

}  // namespace
