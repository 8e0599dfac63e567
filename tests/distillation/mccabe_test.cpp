// McCabe-Thiele design: operating lines, minimum reflux ratio, the curved line with the enthalpy
// factor, plate stepping with its counting rules, against hand calculations of a binary of
// constant relative volatility.
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

#include "distillation/mccabe.h"
#include "distillation/thiele_sessions.h"

namespace {

constexpr double kAlpha = 2.5;

peq::ThieleDaten Entwurf(double RR) {
  peq::ThieleDaten d;
  d.XKopf = 0.95f;
  d.XSumpf = 0.05f;
  d.XFeed = 0.5f;
  d.RR = static_cast<float>(RR);
  d.p = 101.325;
  peq::Betriebsgeraden(d);
  return d;
}

// The same stepping done by hand on the closed-form equilibrium: x = y/(alpha - (alpha-1) y).
struct HandErgebnis {
  int oben = 0, unten = 0, punkte = 0;
  double xEnde = 0;
};
HandErgebnis VonHand(const peq::ThieleDaten& d, double alpha) {
  HandErgebnis h;
  double x = d.XKopf;
  bool gezaehlt = false;
  do {
    const double y = peq::Betriebswert(d, x);
    x = peqtest::XKonst(alpha, y);
    h.punkte += 3;
    if (!gezaehlt && x < d.XFeed) {
      gezaehlt = true;
      h.oben = static_cast<int>(std::lround(h.punkte / 3.0)) - 1;
    }
  } while (x - 0.001 >= d.XSumpf && h.punkte <= 3000 && x < 1.0);
  h.unten = static_cast<int>(std::lround(h.punkte / 3.0)) - h.oben;
  h.xEnde = x;
  return h;
}

TEST(ThieleLines, UpperAndLowerLinesMeetAboveTheFeed) {
  const peq::ThieleDaten d = Entwurf(2.0);
  // RR = 2: slope 2/3, intercept 0.95/3.
  EXPECT_NEAR(d.SteigOben, 2.0 / 3.0, 1e-7);
  EXPECT_NEAR(d.AchsOben, 0.95 / 3.0, 1e-7);
  const double yF = 2.0 / 3.0 * 0.5 + 0.95 / 3.0;
  EXPECT_NEAR(d.SteigUnten * 0.5 + d.AchsUnten, yF, 1e-6);
  EXPECT_NEAR(d.SteigUnten * 0.05 + d.AchsUnten, 0.05, 1e-6);  // through the diagonal at the bottom
  EXPECT_NEAR(d.SteigOben * 0.95 + d.AchsOben, 0.95, 1e-6);    // and the upper one at the top
}

TEST(ThieleLines, BottomEqualToFeedBuildsNoLowerLine) {
  peq::ThieleDaten d;
  d.XKopf = 0.9f;
  d.XFeed = 0.3f;
  d.XSumpf = 0.3f;
  d.RR = 3.0f;
  d.SteigUnten = 7.5f;  // earlier values stay
  d.AchsUnten = -1.25f;
  peq::Betriebsgeraden(d);
  EXPECT_FLOAT_EQ(d.SteigOben, 0.75f);
  EXPECT_FLOAT_EQ(d.SteigUnten, 7.5f);
  EXPECT_FLOAT_EQ(d.AchsUnten, -1.25f);
}

TEST(ThieleLines, TotalRefluxIsTheDiagonal) {
  const peq::ThieleDaten d = Entwurf(1e10);
  EXPECT_FLOAT_EQ(d.SteigOben, 1.0f);
  EXPECT_NEAR(d.AchsOben, 0.0, 1e-9);
}

TEST(ThieleLines, CurvedLineWithHugeFactorIsTheStraightLine) {
  for (double x : {0.1, 0.5, 0.93}) {
    const double R = 2.5;
    EXPECT_NEAR(peq::YOpKurve(R, x, 0.95, 1e10), R / (R + 1) * x + 0.95 / (R + 1), 1e-9);
  }
  // E finite bends the line but keeps it through the top point (x = XKopf gives y = XKopf).
  EXPECT_NEAR(peq::YOpKurve(2.0, 0.95, 0.95, 4.0), 0.95, 1e-12);
  EXPECT_GT(std::fabs(peq::YOpKurve(2.0, 0.5, 0.95, 4.0) - (2.0 / 3 * 0.5 + 0.95 / 3)), 1e-3);
}

TEST(ThieleEnthalpy, EqualEnthalpiesGiveTheStraightLineFactor) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peqtest::SetLVHKonstant(s, 1, 30000);
  peqtest::SetLVHKonstant(s, 2, 30000);
  float E = 0;
  peq::MsgSink sink;
  ASSERT_TRUE(peq::EnthalpieFaktor(s, 101.325, E, &sink));
  EXPECT_EQ(E, peq::kEnthFaktorGerade);
  EXPECT_TRUE(sink.empty());
}

TEST(ThieleEnthalpy, FactorIsR2OverTheDifference) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peqtest::SetLVHKonstant(s, 1, 30000);
  peqtest::SetLVHKonstant(s, 2, 40000);
  float E = 0;
  ASSERT_TRUE(peq::EnthalpieFaktor(s, 101.325, E, nullptr));
  EXPECT_FLOAT_EQ(E, 4.0f);  // 40000 / (40000 - 30000)
}

TEST(ThieleEnthalpy, OutsideTheLimitsTheEnthalpyWarns) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peqtest::SetLVHKonstant(s, 1, 30000);
  peqtest::SetLVHKonstant(s, 2, 40000);
  s.ParLVH[1].THi = 200;
  peq::MsgSink sink;
  float E = 0;
  ASSERT_TRUE(peq::EnthalpieFaktor(s, 101.325, E, &sink));
  ASSERT_EQ(sink.size(), 1u);
  EXPECT_NE(sink[0].text.find(" K outside the T-limit of the parameters\n(cf. Data/Parameters delta(LV)h = Fu(T))"),
            std::string::npos);
}

TEST(ThieleRRMin, ConstantVolatilityMatchesTheHandValue) {
  // y*(0.5) = 2.5 * 0.5 / 1.75 = 0.7142857; s = (0.95 - y*)/(0.95 - 0.5) = 0.5238095;
  // RRmin = s/(1 - s) = 1.1 exactly.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  const peq::ThieleDaten d = Entwurf(2.0);
  int16_t f = 5;
  EXPECT_FLOAT_EQ(peq::RRMin(s, d, f), 1.1f);
  EXPECT_EQ(f, 0);
}

TEST(ThieleRRMin, WithoutFeedTheBottomPinches) {
  // Xr = XSumpf = 0.05: y* = 0.125/1.075 = 0.1162791, s = (0.95 - y*)/0.9 = 0.9263566,
  // RRmin = 12.578947..., rounded to three decimals 12.579.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(20.0);
  d.OhneFeed = -1;
  int16_t f = 5;
  EXPECT_FLOAT_EQ(peq::RRMin(s, d, f), 12.579f);
  EXPECT_EQ(f, 0);
}

TEST(ThieleRRMin, CurvedLineNewtonSolvesTheFeedPinch) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(2.0);
  d.MitHLV = -1;
  d.EnthFaktor = 4.0f;
  int16_t f = 5;
  const float r = peq::RRMin(s, d, f);
  ASSERT_EQ(f, 0);
  // The curved line at RRmin passes through the equilibrium point of the feed (to the rounding).
  const double yStar = peqtest::YKonst(kAlpha, 0.5);
  EXPECT_NEAR(peq::YOpKurve(r, 0.5, 0.95, 4.0), yStar, 2e-4);
  EXPECT_NE(r, 1.1f);  // the bend moves it away from the straight-line value
  // With E = 1e10 the Newton lands on the straight-line value.
  d.EnthFaktor = 1e10f;
  EXPECT_FLOAT_EQ(peq::RRMin(s, d, f), 1.1f);
  EXPECT_EQ(f, 0);
}

TEST(ThieleRRMin, NewtonWithoutRootFailsAfterItsRounds) {
  // XKopf = Xr makes no slope: the curved line is flat in R at x = XKopf, the Newton divides by
  // zero, and the routine fails with 0.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(2.0);
  d.MitHLV = -1;
  d.EnthFaktor = 4.0f;
  d.XFeed = d.XKopf;
  int16_t f = 0;
  EXPECT_EQ(peq::RRMin(s, d, f), 0.0f);
  EXPECT_EQ(f, -1);
  d.MitHLV = 0;  // the straight branch divides by XKopf - Xr = 0
  f = 0;
  EXPECT_EQ(peq::RRMin(s, d, f), 0.0f);
  EXPECT_EQ(f, -1);
}

TEST(ThieleRRMin, FailedEquilibriumSetsTheFlag) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  s.P0Eq[1] = "   ";  // no vapour pressure: no bubble point
  s.P0Eq[2] = "   ";
  int16_t f = 0;
  EXPECT_EQ(peq::RRMin(s, Entwurf(2.0), f), 0.0f);
  EXPECT_EQ(f, -1);
}

TEST(ThieleSteps, TotalRefluxGivesTheFenskeStepsByHand) {
  // Total reflux: the steps run on the diagonal, x' = x/(2.5 - 1.5 x): 0.95, 0.8837, 0.7525,
  // 0.5486, 0.3270 (first below the feed: plate 4, upper count 4 - 1 = 3), 0.1627, 0.0722,
  // 0.0302 (7 plates; Fenske gives N = ln(19 * 19)/ln 2.5 = 6.43).
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(1e10);
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(n, 21);
  EXPECT_EQ(xs.size(), 21u);
  EXPECT_EQ(d.BoedenOben, 3);
  EXPECT_EQ(d.BoedenUnten, 4);
  EXPECT_NEAR(d.XEnde, 0.0301898, 2e-5);
  EXPECT_NEAR(xs[1], 0.8837209, 2e-5);
}

TEST(ThieleSteps, FiniteRefluxMatchesTheSteppingByHand) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  // Hand stepping of the same lines (see VonHand; done once on paper for RR = 2: 4 upper and 7
  // lower plates, x at the end 0.02845).
  const int oben[] = {4, 5, 8}, unten[] = {7, 8, 10};
  const double rr[] = {2.0, 1.5, 1.2};
  std::vector<float> xs, ys;
  for (int k = 0; k < 3; ++k) {
    peq::ThieleDaten d = Entwurf(rr[k]);
    const HandErgebnis h = VonHand(d, kAlpha);
    const int n = peq::StufenZeichnen(s, d, xs, ys);
    EXPECT_EQ(d.BoedenOben, oben[k]) << rr[k];
    EXPECT_EQ(d.BoedenUnten, unten[k]) << rr[k];
    EXPECT_EQ(d.BoedenOben, h.oben);
    EXPECT_EQ(d.BoedenUnten, h.unten);
    EXPECT_EQ(n, h.punkte);
    EXPECT_NEAR(d.XEnde, h.xEnde, 2e-5);
  }
}

TEST(ThieleSteps, EachPlateIsAVerticalAHorizontalAndAVerticalPoint) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(2.0);
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  ASSERT_EQ(n % 3, 0);
  for (int k = 0; k + 2 < n; k += 3) {
    EXPECT_NEAR(ys[k], peq::Betriebswert(d, xs[k]), 1e-6);       // on the operating line
    EXPECT_EQ(ys[k + 1], ys[k]);                                 // horizontal
    EXPECT_NEAR(ys[k + 1], peqtest::YKonst(kAlpha, xs[k + 1]), 2e-5);  // onto the equilibrium
    EXPECT_EQ(xs[k + 2], xs[k + 1]);                             // vertical
  }
  EXPECT_FLOAT_EQ(xs[0], 0.95f);
}

TEST(ThieleSteps, WithoutFeedTheUpperCountIsTheTotal) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(20.0);
  d.OhneFeed = -1;
  d.SteigUnten = 99.0f;  // a lower line must not be used
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(d.BoedenOben, n / 3);
  for (int k = 0; k < n; k += 3) EXPECT_NEAR(ys[k], d.SteigOben * xs[k] + d.AchsOben, 1e-6);
}

TEST(ThieleSteps, ThreeThousandPointsBoundThePinchedStepping) {
  // At RR = RRmin the steps pinch at the feed and never pass it: the walk stops once i exceeds
  // 3000 (i = 3003 after the last plate) and the counts fall to 0.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(1.1);
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(n, 3003);
  EXPECT_EQ(d.BoedenOben, 0);
  EXPECT_EQ(d.BoedenUnten, 0);
  EXPECT_GT(d.XEnde, 0.5f);
}

TEST(ThieleSteps, StopsOneThousandthAboveTheBottom) {
  // The walk goes on while x - 0.001 >= XSumpf: a bottom just below a plate's x still takes one
  // more plate; one just above it stops there.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(1e10);
  std::vector<float> xs, ys;
  peq::StufenZeichnen(s, d, xs, ys);
  const float x6 = xs[17];  // x after plate 6, 0.0722
  d.XSumpf = x6 - 0.0011f;
  peq::Betriebsgeraden(d);
  peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(d.BoedenOben + d.BoedenUnten, 7);
  d.XSumpf = x6 - 0.0009f;
  peq::Betriebsgeraden(d);
  peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(d.BoedenOben + d.BoedenUnten, 6);
}

TEST(ThieleSteps, FailedDewPointEndsTheWalkWithZeroTotal) {
  // Both lines above 1 near the top: the first dew point gets y > 1 and fails.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(2.0);
  d.AchsOben = 0.5f;
  std::vector<float> xs, ys;
  const int n = peq::StufenZeichnen(s, d, xs, ys);
  EXPECT_EQ(n, 1);
  EXPECT_EQ(d.BoedenOben, 0);
  EXPECT_EQ(d.BoedenUnten, 0);
  for (float v : ys) EXPECT_TRUE(std::isfinite(v));
}

TEST(ThieleSteps, CurvedLineWithEqualEnthalpiesStepsLikeTheStraightLine) {
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  peq::ThieleDaten d = Entwurf(2.0);
  std::vector<float> xs, ys, xk, yk;
  peq::StufenZeichnen(s, d, xs, ys);
  peq::ThieleDaten k = d;
  k.MitHLV = -1;
  k.EnthFaktor = peq::kEnthFaktorGerade;
  peq::StufenZeichnen(s, k, xk, yk);
  ASSERT_EQ(xs.size(), xk.size());
  for (std::size_t j = 0; j < xs.size(); ++j) EXPECT_NEAR(yk[j], ys[j], 1e-6);
  EXPECT_EQ(k.BoedenOben, d.BoedenOben);
  EXPECT_EQ(k.BoedenUnten, d.BoedenUnten);
}

TEST(ThieleSteps, MassFractionsStepInTheDialogUnit) {
  // The same column in mass fractions: the compositions are converted for each equilibrium call
  // and back; the x of each stored point is the mass fraction of the mole-fraction hand stepping.
  peq::Session s = peqtest::KonstanteFluechtigkeit(kAlpha);
  s.ConcUnit = 1;
  peq::ThieleDaten d = Entwurf(1e10);
  d.XKopf = static_cast<float>(peq::MasseAusMol(s, 0.95));
  d.XSumpf = static_cast<float>(peq::MasseAusMol(s, 0.05));
  d.XFeed = static_cast<float>(peq::MasseAusMol(s, 0.5));
  peq::Betriebsgeraden(d);
  std::vector<float> xs, ys;
  peq::StufenZeichnen(s, d, xs, ys);
  // Total reflux is the diagonal in either unit: the plates are those of the mole fractions.
  EXPECT_EQ(d.BoedenOben, 3);
  EXPECT_EQ(d.BoedenUnten, 4);
  EXPECT_NEAR(xs[1], peq::MasseAusMol(s, 0.8837209), 3e-5);
  EXPECT_NEAR(peq::MolAusMasse(s, peq::MasseAusMol(s, 0.3)), 0.3, 1e-12);
}

}  // namespace
