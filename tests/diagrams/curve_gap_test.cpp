// The curve tracer over a mixing gap: the regular solution gE/(R T) = 3 x1 x2 splits at
// x2 = 0.0707 and 0.9293 (ln(x/(1 - x)) = 3 (2x - 1), by hand).
#include <gtest/gtest.h>

#include <cmath>

#include "diagrams/curve_fixture.h"
#include "diagrams/kurven.h"
#include "engine/azeotrope.h"
#include "engine/kernel.h"
#include "support/fuzzy.h"

using curvetest::Coords;
using curvetest::Draw;
using curvetest::Drawn;
using curvetest::Posted;

namespace {

bool Ascending(const peq::Kurve& k) {
  for (std::size_t i = 1; i + 1 < k.size(); ++i)
    if (k[i].x > k[i + 1].x) return false;
  return true;
}

}  // namespace

TEST(CalcCurveGap, GapIsFoundAndItsCompositionsReturned) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 300);
  const Drawn d = Draw(s, 1, 363.15, 101.325);
  ASSERT_TRUE(s.HatGap);
  const double lo = std::fmin(d.gx1, d.gx2), hi = std::fmax(d.gx1, d.gx2);
  EXPECT_NEAR(lo, 0.0707, 2e-3);
  EXPECT_NEAR(hi, 0.9293, 2e-3);
  // The gap point: bubble pressure at the first gap composition in both W fields.
  peq::Vec<double> x = peqtest::Comp({1.0 - d.gx1, d.gx1}), y0(3, 0.0);
  double vL, vV;
  const double p = peq::CalcBubbleP(s, 363.15, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  EXPECT_REL(d.gw1, p, 1e-5);
  EXPECT_EQ(d.gw1, d.gw2);
  EXPECT_REL(d.gy, s.KWert[2] * d.gx1, 1e-5);
}

TEST(CalcCurveGap, RealCurveJumpsTheGapAndRunsHorizontallyAcrossIt) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 300);
  const Drawn d = Draw(s, 1, 363.15, 101.325, 0.5f, -1);
  ASSERT_TRUE(s.HatGap);
  const float lo = std::fmin(d.gx1, d.gx2), hi = std::fmax(d.gx1, d.gx2);
  // Sorted; no liquid point strictly inside the gap; the two gap points at one pressure.
  EXPECT_TRUE(Ascending(d.k1));
  EXPECT_TRUE(Ascending(d.k2));
  int atEdges = 0;
  for (std::size_t i = 1; i < d.k1.size(); ++i) {
    EXPECT_FALSE(d.k1[i].x > lo + 1e-6f && d.k1[i].x < hi - 1e-6f) << d.k1[i].x;
    if (d.k1[i].y == d.gw1 && (d.k1[i].x == d.gx1 || d.k1[i].x == d.gx2)) ++atEdges;
  }
  EXPECT_GE(atEdges, 2);  // the two gap points (and the jump's point at the edge)
  EXPECT_EQ(d.k1[0].x, static_cast<float>(d.n1()));
}

TEST(CalcCurveGap, WithoutRealCurveTheWalkCrossesTheGap) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 300);
  const Drawn d = Draw(s, 1, 363.15, 101.325, 0.5f, 0);
  ASSERT_TRUE(s.HatGap);
  int inside = 0;
  for (std::size_t i = 1; i < d.k1.size(); ++i)
    if (d.k1[i].x > 0.2f && d.k1[i].x < 0.8f) ++inside;
  EXPECT_GT(inside, 50);
}

TEST(CalcCurveGap, TxRealCurveGetsTheThreePhaseLineInKurve1Only) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 2;
  Coords(s, 0, 1, 0, 300);
  const Drawn d = Draw(s, 4, 363.15, 101.325, 0.5f, -1);
  ASSERT_TRUE(s.HatGap);
  EXPECT_TRUE(Ascending(d.k1));
  int gapPoints = 0;
  for (std::size_t i = 1; i < d.k1.size(); ++i)
    if ((d.k1[i].x == d.gx1 || d.k1[i].x == d.gx2) && std::fabs(d.k1[i].y - (d.gw1 - 273.15)) < 1e-4) ++gapPoints;
  EXPECT_GE(gapPoints, 2);  // the two gap points (and the walk's point at the edge it jumped to)
  // Kurve2 keeps the walk's order (from x2 = 1) and has no gap points.
  ASSERT_GT(d.n2(), 3u);
  EXPECT_NEAR(d.k2[1].x, 1.0f, 1e-6);
  EXPECT_EQ(d.n1(), d.n2() + 2);
}

TEST(CalcCurveGap, BinodalDomeIsOneClosedCurveOfTwiceThePoints) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  s.TOffsetOut = 0;
  Coords(s, 0, 1, 300, 400);  // T walk 300 .. TOben = 400 K by 5 DY = 5 K
  const Drawn d = Draw(s, 41, 363.15, 101.325);
  ASSERT_EQ(d.fehler, 0);
  ASSERT_GT(d.n2(), 15u);
  EXPECT_EQ(d.n1(), 2 * d.n2());
  EXPECT_EQ(d.ausserhalb, 0);
  EXPECT_EQ(d.k1[1].y, 300.0f);
  EXPECT_NEAR(d.k1[1].x, 0.0707, 2e-3);
  EXPECT_NEAR(d.k2[1].x, 0.9293, 2e-3);
  // Second half: Kurve2 reversed.
  const std::size_t n = d.n2();
  for (std::size_t i = 1; i <= n; ++i) EXPECT_EQ(d.k1[n + i].x, d.k2[n + 1 - i].x);
}

TEST(CalcCurveGap, GibbsOfMixingRealCurveAddsTheTangentPoints) {
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  Coords(s, 0, 1, -1e5f, 1e5f);
  const Drawn d = Draw(s, 120, 363.15, 101.325, 0.5f, -1);
  ASSERT_TRUE(s.HatGap);
  EXPECT_TRUE(s.GapAktiv);
  EXPECT_TRUE(Ascending(d.k1));
  const float lo = std::fmin(d.gx1, d.gx2), hi = std::fmax(d.gx1, d.gx2);
  for (std::size_t i = 1; i < d.k1.size(); ++i) EXPECT_FALSE(d.k1[i].x > lo + 1e-6f && d.k1[i].x < hi - 1e-6f);
}

TEST(CalcCurveGap, AzeotropeInsideTheGapIsSaidToLieThere) {
  // The homogeneous bubble line of the pair has its extremum where
  // ln(K1/K2) = ln(p01/p02) + 3 (2 x2 - 1) = 0, at x2 = 0.35 at 363.15 K: inside the gap
  // 0.0707 .. 0.9293. The real state there is the three-phase point.
  peq::Session s = curvetest::GapPair();
  s.KurvenPunkte = 100;
  s.IsoArt = 1;
  Coords(s, 0, 1, 0, 1);
  const Drawn d = Draw(s, 3, 363.15, 101.325);
  ASSERT_TRUE(s.HatGap);
  double xaz = 0;
  int16_t kind = 0, over = 0;
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 363.15, 101.325, xaz, kind, over, nullptr));
  ASSERT_GT(xaz, 0.3);
  ASSERT_LT(xaz, 0.4);
  const std::string art = kind != 0 ? "p-Maximum" : "p-Minimum";
  EXPECT_EQ(d.kommentar, art + " azeotrope, x(2) = " + peq::FormatZahl(xaz, "0.0000") +
                             " lies inside the mixing gap; the real state there is the three-phase point");
  // Without the gap (a weaker term, A = 1.5, one liquid) the pressure-maximum azeotrope at
  // x2 = 0.2 is named plainly.
  peqtest::SetSlot(s, 1, 1, 2, 1.5);
  const Drawn e = Draw(s, 3, 363.15, 101.325);
  EXPECT_FALSE(s.HatGap);
  ASSERT_TRUE(peq::IsBinaerAzeotrop(s, 363.15, 101.325, xaz, kind, over, nullptr));
  EXPECT_EQ(e.kommentar, "p-Maximum azeotrope, x(2) = " + peq::FormatZahl(xaz, "0.0000"));
}
