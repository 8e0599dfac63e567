// The 2D diagram document as data: slots, KurvenZ, labels, exchange of components, delete,
// coordinates, zoom, read-out and the clipboard text of a curve.
#include "diagrams/document.h"

#include <gtest/gtest.h>

#include "support/fuzzy.h"

namespace {

using namespace peq;

// A curve of n points with x = i/(n+1), y = 10 + i, z = 300 + i, header code code.
Kurve Linie(int n, float code = -1.0f) {
  Kurve k(static_cast<std::size_t>(n) + 1);
  k[0].x = static_cast<float>(n);
  k[0].z = code;
  for (int i = 1; i <= n; ++i) {
    k[static_cast<std::size_t>(i)].x = static_cast<float>(i) / static_cast<float>(n + 1);
    k[static_cast<std::size_t>(i)].y = 10.0f + static_cast<float>(i);
    k[static_cast<std::size_t>(i)].z = 300.0f + static_cast<float>(i);
  }
  return k;
}

int16_t Zeichne(Graph2DDoc& d, const Kurve& k, MsgSink* sink = nullptr) {
  int16_t slot = 0;
  bool fehler = false;
  DrawCurve(d, k, slot, fehler, sink);
  return fehler ? int16_t(-slot) : slot;
}

TEST(Graph2DDoc, StartsWithAllSlotsFreeAndKurvenZOf25By2501) {
  Graph2DDoc d;
  EXPECT_EQ(d.AnzKurven, 0);
  for (int k = 1; k <= 24; ++k) EXPECT_TRUE(d.KurveFrei[static_cast<std::size_t>(k)]) << k;
  EXPECT_EQ(d.KurvenZTab.size(), 25u * 2501u);
  EXPECT_EQ(NaechsterSlot(d), 1);
}

TEST(Graph2DDoc, SlotArithmeticTakesAnzKurvenPlusOne) {
  Graph2DDoc d;
  EXPECT_EQ(Zeichne(d, Linie(5)), 1);
  EXPECT_EQ(Zeichne(d, Linie(5)), 2);
  EXPECT_EQ(Zeichne(d, Linie(5)), 3);
  EXPECT_EQ(d.AnzKurven, 3);
  EXPECT_EQ(d.AktKurve, 3);
  EXPECT_FALSE(d.KurveFrei[3]);
  EXPECT_TRUE(d.KurveFrei[4]);
  EXPECT_EQ(NaechsterSlot(d), d.AnzKurven + 1);
}

TEST(Graph2DDoc, DeletedSlotIsTakenAgainBeforeHigherOnes) {
  Graph2DDoc d;
  for (int k = 0; k < 4; ++k) Zeichne(d, Linie(3));
  ASSERT_TRUE(LoescheKurve(d, 2));
  EXPECT_EQ(d.AnzKurven, 3);
  EXPECT_TRUE(d.KurveFrei[2]);
  EXPECT_EQ(d.Serien[2].Punkte(), 0);
  EXPECT_EQ(Zeichne(d, Linie(3)), 2);
  EXPECT_EQ(d.AnzKurven, 4);
}

TEST(Graph2DDoc, TwentyFifthCurveWarnsAndDrawsNothing) {
  Graph2DDoc d;
  for (int k = 1; k <= 24; ++k) ASSERT_EQ(Zeichne(d, Linie(4)), k);
  const std::vector<float> vorher = d.Serien[24].y;
  MsgSink sink;
  int16_t slot = 0;
  bool fehler = false;
  DrawCurve(d, Linie(7), slot, fehler, &sink);
  EXPECT_TRUE(fehler);
  EXPECT_EQ(slot, 24);
  EXPECT_EQ(d.AnzKurven, 24);
  EXPECT_EQ(d.Serien[24].y, vorher);
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_EQ(sink[0].title, "WARNING");
  EXPECT_EQ(sink[0].text, "Maximum 24 curves possible\nDelete existing curves");
}

TEST(Graph2DDoc, DrawCurveCopiesPointsFromTheHeaderCount) {
  Graph2DDoc d;
  Kurve k = Linie(6);
  k[0].x = 4;  // only four of them count
  const int16_t slot = Zeichne(d, k);
  ASSERT_EQ(slot, 1);
  ASSERT_EQ(d.Serien[1].Punkte(), 4);
  EXPECT_FLOAT_EQ(d.Serien[1].x[3], k[4].x);
  EXPECT_FLOAT_EQ(d.Serien[1].y[0], 11.0f);
  EXPECT_EQ(d.Serien[1].Label, "1");
}

TEST(Graph2DDoc, EmptyCurveTakesASlotWithoutPoints) {
  Graph2DDoc d;
  Kurve leer(1);
  EXPECT_EQ(Zeichne(d, leer), 1);
  EXPECT_EQ(d.Serien[1].Punkte(), 0);
  EXPECT_EQ(d.Serien[1].LabelPunkt, 0);
}

TEST(Graph2DDoc, KurvenZHoldsHeaderCodeAndZOfEachPoint) {
  Graph2DDoc d;
  Zeichne(d, Linie(3, -1.0f));
  const int16_t s2 = Zeichne(d, Linie(5, -2.0f));
  EXPECT_EQ(d.KurvenZ(1, 0), -1.0f);
  EXPECT_EQ(d.KurvenZ(1, 1), 301.0f);
  EXPECT_EQ(d.KurvenZ(1, 3), 303.0f);
  EXPECT_EQ(d.KurvenZ(1, 4), 0.0f);
  EXPECT_EQ(d.KurvenZ(s2, 0), -2.0f);
  EXPECT_EQ(d.KurvenZ(s2, 5), 305.0f);
}

TEST(Graph2DDoc, KurvenZStopsAtRow2500) {
  Graph2DDoc d;
  const int16_t s = Zeichne(d, Linie(2600, -1.0f));
  EXPECT_EQ(d.Serien[static_cast<std::size_t>(s)].Punkte(), 2600);
  EXPECT_EQ(d.KurvenZ(s, 2500), 2800.0f);
  EXPECT_EQ(d.KurvenZ(s + 1, 0), 0.0f);  // the next column is untouched
  EXPECT_EQ(ZustandText(d, s, 2501), "");
}

// n / 1.2 - 0.03 n slot: n = 600, slot 1: 500 - 18 = 482; slot 3: 500 - 54 = 446;
// n = 100, slot 2: 83.333 - 6 = 77.33 -> 77.
TEST(Graph2DDoc, LabelPlacementStaggersBySlot) {
  EXPECT_EQ(LabelPunkt(600, 1), 482);
  EXPECT_EQ(LabelPunkt(600, 3), 446);
  EXPECT_EQ(LabelPunkt(100, 2), 77);
  EXPECT_EQ(LabelPunkt(0, 1), 0);
  // Late slots would fall before the first point: kept at 1.
  EXPECT_EQ(LabelPunkt(10, 24), 1);
  EXPECT_GT(LabelPunkt(600, 1), LabelPunkt(600, 2));
}

TEST(Graph2DDoc, LabelUsesLastPointBelowXMax) {
  Graph2DDoc d;
  SetzeKoordinaten(d, Achsenbereich{0, 0.5f, 0, 100});
  // 99 points at x = i/100: those below 0.5 are 1..49, so n = 49: 49/1.2 - 0.03*49 = 39.36 -> 39.
  const int16_t s = Zeichne(d, Linie(99));
  EXPECT_EQ(d.Serien[static_cast<std::size_t>(s)].LabelPunkt, 39);
}

TEST(Graph2DDoc, ExchangeMirrorsXOfCurvesMarkersAndExperimentalSets) {
  Graph2DDoc d;
  d.NoDia = 1;
  Zeichne(d, Linie(3));
  d.Serien[kMarkerErste].x = {0.25f, 0.25f};
  d.Serien[kMarkerErste].y = {-1e8f, 1e8f};
  d.Serien[kMarkerLetzte].x = {0.1f};
  d.Serien[kMarkerLetzte].y = {5.0f};
  ExpSatz e;
  e.L.x = {0.2f};
  e.L.y = {40.0f};
  e.V.x = {0.7f};
  e.V.y = {40.0f};
  ASSERT_TRUE(NeuerExpSatz(d, e));
  ASSERT_TRUE(TauscheKomponenten(d));
  EXPECT_FLOAT_EQ(d.Serien[1].x[0], 0.75f);
  EXPECT_FLOAT_EQ(d.Serien[1].y[0], 11.0f);  // p stays
  EXPECT_FLOAT_EQ(d.Serien[kMarkerErste].x[1], 0.75f);
  EXPECT_FLOAT_EQ(d.Serien[kMarkerErste].y[1], 1e8f);
  EXPECT_FLOAT_EQ(d.Serien[kMarkerLetzte].x[0], 0.9f);
  EXPECT_FLOAT_EQ(d.ExpSaetze[0].L.x[0], 0.8f);
  EXPECT_FLOAT_EQ(d.ExpSaetze[0].V.x[0], 0.3f);
  EXPECT_FLOAT_EQ(d.ExpSaetze[0].V.y[0], 40.0f);
}

TEST(Graph2DDoc, ExchangeMirrorsYToo_ForNoDia3_6_502) {
  for (int16_t nd : {3, 6, 502}) {
    Graph2DDoc d;
    d.NoDia = nd;
    d.Serien[1].x = {0.2f};
    d.Serien[1].y = {0.6f};
    d.KurveFrei[1] = false;
    d.Serien[kMarkerErste + 1].x = {0.0f, 1.0f};
    d.Serien[kMarkerErste + 1].y = {0.0f, 1.0f};
    ExpSatz e;
    e.L.x = {0.1f};
    e.L.y = {0.4f};
    NeuerExpSatz(d, e);
    ASSERT_TRUE(TauscheKomponenten(d)) << nd;
    EXPECT_FLOAT_EQ(d.Serien[1].x[0], 0.8f) << nd;
    EXPECT_FLOAT_EQ(d.Serien[1].y[0], 0.4f) << nd;
    EXPECT_FLOAT_EQ(d.Serien[kMarkerErste + 1].y[0], 1.0f) << nd;
    EXPECT_FLOAT_EQ(d.ExpSaetze[0].L.y[0], 0.6f) << nd;
  }
}

TEST(Graph2DDoc, ExchangeTwiceRestoresAndKeepsHoles) {
  Graph2DDoc d;
  d.NoDia = 3;
  d.Serien[2].x = {0.3f, kLoch};
  d.Serien[2].y = {0.5f, kLoch};
  ASSERT_TRUE(TauscheKomponenten(d));
  EXPECT_EQ(d.Serien[2].x[1], kLoch);
  ASSERT_TRUE(TauscheKomponenten(d));
  EXPECT_FLOAT_EQ(d.Serien[2].x[0], 0.3f);
  EXPECT_FLOAT_EQ(d.Serien[2].y[0], 0.5f);
}

TEST(Graph2DDoc, ExchangeRefusedForNoDia7And183) {
  for (int16_t nd : {7, 183}) {
    Graph2DDoc d;
    d.NoDia = nd;
    Zeichne(d, Linie(3));
    const std::vector<float> x = d.Serien[1].x;
    EXPECT_FALSE(TauscheKomponenten(d)) << nd;
    EXPECT_EQ(d.Serien[1].x, x) << nd;
    EXPECT_FALSE(TauschErlaubt(nd));
  }
  EXPECT_TRUE(TauschErlaubt(1));
}

TEST(Graph2DDoc, DeleteOneCurveFreesSlotAndClearsKurvenZ) {
  Graph2DDoc d;
  Zeichne(d, Linie(3));
  Zeichne(d, Linie(3));
  d.BinodalSlot = 2;
  ASSERT_TRUE(LoescheKurve(d, 2));
  EXPECT_EQ(d.AnzKurven, 1);
  EXPECT_TRUE(d.KurveFrei[2]);
  EXPECT_EQ(d.BinodalSlot, 0);
  EXPECT_EQ(d.KurvenZ(2, 0), 0.0f);
  EXPECT_EQ(d.KurvenZ(2, 1), 0.0f);
  EXPECT_EQ(d.KurvenZ(1, 1), 301.0f);
  EXPECT_FALSE(LoescheKurve(d, 2));  // already free
  EXPECT_FALSE(LoescheKurve(d, 0));
  EXPECT_FALSE(LoescheKurve(d, 25));
  EXPECT_EQ(d.AnzKurven, 1);
}

TEST(Graph2DDoc, DeleteAllCurvesAndDeleteTotal) {
  Graph2DDoc d;
  for (int k = 0; k < 5; ++k) Zeichne(d, Linie(3));
  d.Serien[kMarkerErste].x = {0.5f};
  d.Serien[kMarkerErste].y = {0.5f};
  NeuerExpSatz(d, ExpSatz{});
  LoescheAlleKurven(d);
  EXPECT_EQ(d.AnzKurven, 0);
  EXPECT_EQ(NaechsterSlot(d), 1);
  EXPECT_EQ(d.Serien[kMarkerErste].Punkte(), 1);  // markers stay
  EXPECT_EQ(d.ExpSaetze.size(), 1u);
  LoescheAlles(d);
  EXPECT_EQ(d.Serien[kMarkerErste].Punkte(), 0);
  EXPECT_TRUE(d.ExpSaetze.empty());
}

TEST(Graph2DDoc, AtMostTwelveExperimentalSets) {
  Graph2DDoc d;
  for (int k = 0; k < 12; ++k) EXPECT_TRUE(NeuerExpSatz(d, ExpSatz{}));
  EXPECT_FALSE(NeuerExpSatz(d, ExpSatz{}));
  EXPECT_EQ(d.ExpSaetze.size(), 12u);
}

TEST(Graph2DDoc, CoordinatesAreChecked) {
  Graph2DDoc d;
  std::string m;
  EXPECT_FALSE(SchreibeKoordinaten(d, Achsenbereich{1, 0, 0, 1}, m));
  EXPECT_EQ(m, kKoordUngueltig);
  EXPECT_FALSE(SchreibeKoordinaten(d, Achsenbereich{0, 1, 5, 5}, m));
  EXPECT_EQ(m, kKoordUngueltig);
  EXPECT_TRUE(SchreibeKoordinaten(d, Achsenbereich{0.1f, 0.9f, 20, 80}, m));
  EXPECT_TRUE(m.empty());
  EXPECT_EQ(d.Bereich, (Achsenbereich{0.1f, 0.9f, 20, 80}));
  EXPECT_EQ(d.Gespeichert, d.Bereich);
  d.YLog = true;
  EXPECT_FALSE(SchreibeKoordinaten(d, Achsenbereich{0, 1, 0, 10}, m));
  EXPECT_EQ(m, kKoordLog);
}

TEST(Graph2DDoc, LogAxisTogglesAndMovesAZeroMinimum) {
  Graph2DDoc d;
  SetzeKoordinaten(d, Achsenbereich{0, 1, 0, 200});
  ASSERT_TRUE(ToggleYLog(d));
  EXPECT_TRUE(d.YLog);
  EXPECT_FLOAT_EQ(d.Bereich.YMin, 0.2f);
  ASSERT_TRUE(ToggleYLog(d));
  EXPECT_FALSE(d.YLog);
  SetzeKoordinaten(d, Achsenbereich{-2, -1, 0, 1});
  EXPECT_FALSE(ToggleXLog(d));
  EXPECT_FALSE(d.XLog);
}

TEST(Graph2DDoc, ZoomAndBack) {
  Graph2DDoc d;
  SetzeKoordinaten(d, Achsenbereich{0, 1, 0, 100});
  EXPECT_FALSE(Zoom(d, 0.2f, 10, 0.2f, 50));  // no width
  ASSERT_TRUE(Zoom(d, 0.6f, 80, 0.2f, 10));   // corners in any order
  EXPECT_EQ(d.Bereich, (Achsenbereich{0.2f, 0.6f, 10, 80}));
  EXPECT_TRUE(d.Gezoomt);
  ASSERT_TRUE(Zoom(d, 0.3f, 20, 0.4f, 30));  // zoom within the zoom
  ZoomZurueck(d);
  EXPECT_EQ(d.Bereich, (Achsenbereich{0, 1, 0, 100}));
  EXPECT_FALSE(d.Gezoomt);
}

TEST(Graph2DDoc, ReadOutTextAndStateBehindThePoint) {
  Graph2DDoc d;
  Kurve k = Linie(3, -1.0f);
  k[2].x = 0.25f;
  k[2].y = 45.5f;
  k[2].z = 343.15f;
  Zeichne(d, k);
  EXPECT_EQ(PunktText(d, 1, 2), "point x =0.25,  y =45.5");
  EXPECT_EQ(ZustandText(d, 1, 2), "T/K = 343.15");
  EXPECT_EQ(PunktText(d, 1, 4), "");
  EXPECT_EQ(PunktText(d, 0, 1), "");
  Zeichne(d, Linie(3, -2.0f));
  EXPECT_EQ(ZustandText(d, 2, 1), "p/kPa = 301");
  Zeichne(d, Linie(3, -5.0f));
  EXPECT_EQ(ZustandText(d, 3, 3), "x2 = 303");
}

TEST(Graph2DDoc, NumberFormatOfTheClipboard) {
  // ".0000000E+00": mantissa 0.1 <= m < 1 with seven digits.
  EXPECT_EQ(FormatE7(0.0), ".0000000E+00");
  EXPECT_EQ(FormatE7(0.5), ".5000000E+00");
  EXPECT_EQ(FormatE7(1.0), ".1000000E+01");
  EXPECT_EQ(FormatE7(101.325), ".1013250E+03");
  EXPECT_EQ(FormatE7(-0.0123456789), "-.1234568E-01");
  EXPECT_EQ(FormatE7(9.99999999), ".1000000E+02");
  EXPECT_EQ(FormatE7(1.5e-12), ".1500000E-11");
}

TEST(Graph2DDoc, CurveAsClipboardTextIsXTabYCrLf) {
  Serie s;
  s.x = {0.0f, 0.5f, kLoch};
  s.y = {31.25f, 72.0f, 1.0f};
  EXPECT_EQ(KurveAlsText(s), ".0000000E+00\t.3125000E+02\r\n.5000000E+00\t.7200000E+02\r\n");
  EXPECT_EQ(KurveAlsText(Serie{}), "");
}

TEST(Graph2DDoc, HintAboutTheRightClick) {
  EXPECT_STREQ(kHinweisRechtsklick, "(Hint: Right-click on a curve\nopens curve-design window)");
}

}  // namespace
