// The single-point routine: each diagram code against the kernel routines it stands on, the entry
// rules (TLim, the vapour-pressure warning, an abscissa outside 0..1), the mixing gap, the
// dispatch of the excess codes, and SingleCalcXY.
#include "engine/singlecalc.h"

#include <cmath>

#include <gtest/gtest.h>

#include "engine/kernel.h"
#include "engine/kernel_test_sessions.h"
#include "models/activity.h"
#include "models/pureprops.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "support/fuzzy.h"

namespace {

using peqtest::Comp;

constexpr double kR = 8.31451;  // kJ/(kmol K)

// One call with the usual pair (1, 2) and no gap.
struct Point {
  peq::SingleOut out;
  float outX = -7;
  double T = 0, p = 0;
  float R[4] = {0, 0, 0, 0};
  peq::MsgSink msgs;
};

Point Calc(peq::Session& s, int16_t code, double x, double T, double p, double y2 = 0) {
  Point r;
  r.T = T;
  r.p = p;
  peq::SingleCalc(s, code, x, r.T, r.p, y2, r.R[0], r.R[1], r.R[2], r.R[3], 1, 2, r.outX, r.out, &r.msgs);
  return r;
}

double BubbleP(peq::Session& s, double T, const peq::Vec<double>& x, double* vL = nullptr, double* vV = nullptr) {
  const peq::Vec<double> y0(x.size(), 0.0);
  double l, v;
  const double p = peq::CalcBubbleP(s, T, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, l, v);
  if (vL) *vL = l;
  if (vV) *vV = v;
  return p;
}

double BubbleT(peq::Session& s, double p, const peq::Vec<double>& x, double* vL = nullptr, double* vV = nullptr) {
  const peq::Vec<double> y0(x.size(), 0.0);
  double l, v, Tin = 0;
  int16_t warn;
  const double T = peq::CalcBubbleT(s, p, x, Tin, y0, warn, s.KWert, l, v);
  if (vL) *vL = l;
  if (vV) *vV = v;
  return T;
}

// Session arrays the kernel writes, filled with a mark so that an untouched call shows.
void Mark(peq::Session& s) {
  for (int i = 1; i <= s.NKomp; ++i) s.KWert[i] = s.YGas[i] = s.Gamma[i] = s.XLiq[i] = 7.0;
}
bool Marked(const peq::Session& s) {
  for (int i = 1; i <= s.NKomp; ++i)
    if (s.KWert[i] != 7.0 || s.YGas[i] != 7.0 || s.Gamma[i] != 7.0 || s.XLiq[i] != 7.0) return false;
  return true;
}

void ExpectNone(const peq::SingleOut& o) {
  EXPECT_EQ(o.F1, -1);
  EXPECT_EQ(o.F2, -1);
  EXPECT_EQ(o.Y1, 0.0f);
  EXPECT_EQ(o.Y2, 0.0f);
}

const double kT = 343.15, kP = 101.325;

// ------------------------------------------------------------------ codes against the kernel

TEST(SingleCalc, Code1IsCalcBubblePAndCalcDewP) {
  peq::Session s = peqtest::EthanolWater(2), k = peqtest::EthanolWater(2);
  const Point r = Calc(s, 1, 0.3, kT, kP);
  const peq::Vec<double> x = Comp({0.7, 0.3});
  const double pb = BubbleP(k, kT, x);
  ASSERT_GT(pb, 0.0);
  const double y2 = k.KWert[2] * 0.3;
  int16_t err = 0, dT = 0;
  peq::AllPureProps(k, kT, err, dT);
  const float pd = peq::CalcDewP(k, kT, x);
  ASSERT_GT(pd, 0.0f);
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.out.F2, 0);
  EXPECT_EQ(r.out.Y1, static_cast<float>(pb));
  EXPECT_EQ(r.out.Y2, pd);
  EXPECT_EQ(r.outX, static_cast<float>(y2));
  EXPECT_EQ(r.p, pb);
}

TEST(SingleCalc, Code1InThePhiPhiConceptHasNoDewPressure) {
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  peq::Session k = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  const Point r = Calc(s, 1, 0.4, 380.0, kP);
  const double pb = BubbleP(k, 380.0, Comp({0.6, 0.4}));
  ASSERT_GT(pb, 0.0);
  EXPECT_EQ(r.out.Y1, static_cast<float>(pb));
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.out.F2, -1);
  EXPECT_EQ(r.outX, static_cast<float>(k.KWert[2] * 0.4));
}

TEST(SingleCalc, Codes3And250AreTheBubbleVapourFraction) {
  for (int16_t code : {3, 250}) {
    peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
    const Point r = Calc(s, code, 0.3, kT, kP);
    ASSERT_GT(BubbleP(k, kT, Comp({0.7, 0.3})), 0.0);
    EXPECT_EQ(r.out.Y1, static_cast<float>(k.KWert[2] * 0.3)) << code;
    EXPECT_EQ(r.out.F1, 0);
    EXPECT_EQ(r.out.F2, -1);
  }
}

TEST(SingleCalc, Code4IsCalcBubbleTAndCalcDewTLessTheDisplayOffset) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  s.IsoArt = k.IsoArt = 2;
  s.TOffsetOut = 273.15;
  const Point r = Calc(s, 4, 0.3, 0.0, kP);
  const peq::Vec<double> x = Comp({0.7, 0.3});
  const double Tb = BubbleT(k, kP, x);
  ASSERT_GT(Tb, 0.0);
  const double y2 = k.KWert[2] * 0.3;
  const float Td = peq::CalcDewT(k, kP, x, 0.0);
  ASSERT_GT(Td, 0.0f);
  EXPECT_EQ(r.out.Y1, static_cast<float>(Tb - 273.15));
  EXPECT_EQ(r.out.Y2, static_cast<float>(double(Td) - 273.15));
  EXPECT_EQ(r.outX, static_cast<float>(y2));
  EXPECT_EQ(r.T, Tb);
  // In kelvin with the offset 0.
  peq::Session s2 = peqtest::EthanolWater(0);
  s2.IsoArt = 2;
  s2.TOffsetOut = 0;
  EXPECT_EQ(Calc(s2, 4, 0.3, 0.0, kP).out.Y1, static_cast<float>(Tb));
}

TEST(SingleCalc, Codes5And10AreKValuesAndRelativeVolatilityAtT) {
  peq::Session s = peqtest::EthanolWater(2), k = peqtest::EthanolWater(2);
  ASSERT_GT(BubbleP(k, kT, Comp({0.7, 0.3})), 0.0);
  const Point r5 = Calc(s, 5, 0.3, kT, kP);
  EXPECT_EQ(r5.out.Y1, static_cast<float>(k.KWert[1]));
  EXPECT_EQ(r5.out.Y2, static_cast<float>(k.KWert[2]));
  EXPECT_EQ(r5.out.F1, 0);
  EXPECT_EQ(r5.out.F2, 0);
  const Point r10 = Calc(s, 10, 0.3, kT, kP);
  EXPECT_EQ(r10.out.Y1, static_cast<float>(k.KWert[2] / k.KWert[1]));
  EXPECT_EQ(r10.out.F1, 0);
  EXPECT_EQ(r10.out.F2, -1);
}

TEST(SingleCalc, Codes51And6And11StandOnTheBubbleTemperature) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  s.IsoArt = 2;
  const double Tb = BubbleT(k, kP, Comp({0.7, 0.3}));
  ASSERT_GT(Tb, 0.0);
  const Point r51 = Calc(s, 51, 0.3, 0.0, kP);
  EXPECT_EQ(r51.out.Y1, static_cast<float>(k.KWert[1]));
  EXPECT_EQ(r51.out.Y2, static_cast<float>(k.KWert[2]));
  EXPECT_EQ(r51.T, Tb);
  const Point r6 = Calc(s, 6, 0.3, 0.0, kP);
  EXPECT_EQ(r6.out.Y1, static_cast<float>(k.KWert[2] * 0.3));
  EXPECT_EQ(r6.out.F2, -1);
  const Point r11 = Calc(s, 11, 0.3, 0.0, kP);
  EXPECT_EQ(r11.out.Y1, static_cast<float>(k.KWert[2] / k.KWert[1]));
}

TEST(SingleCalc, Code7TakesXvalAsTemperatureInTheDisplayUnitAndY2AsComposition) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  s.IsoArt = 3;
  s.TOffsetOut = 273.15;
  const Point r = Calc(s, 7, 70.0, 0.0, 0.0, 0.3);
  const double pb = BubbleP(k, 70.0 + 273.15, Comp({0.7, 0.3}));
  ASSERT_GT(pb, 0.0);
  EXPECT_EQ(r.out.Y1, static_cast<float>(pb));
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.out.F2, -1);
  EXPECT_EQ(r.T, 70.0 + 273.15);
}

TEST(SingleCalc, Code7AboveTLimGivesFlagWithNoKernelCall) {
  // TLim of gamma-phi: the smaller T(cr) of the first two components, ethanol 514 K.
  peq::Session s = peqtest::EthanolWater(0);
  s.IsoArt = 3;
  s.TOffsetOut = 273.15;
  Mark(s);
  const Point r = Calc(s, 7, 514.0 - 273.15 + 0.01, 0.0, 0.0, 0.3);
  ExpectNone(r.out);
  EXPECT_TRUE(Marked(s));
  // Just below TLim the call is made.
  const Point ok = Calc(s, 7, 500.0 - 273.15, 0.0, 0.0, 0.3);
  EXPECT_EQ(ok.out.F1, 0);
  // phi-phi: TLim is TKritMax.
  peq::Session e = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  e.TOffsetOut = 0;
  Mark(e);
  ExpectNone(Calc(e, 7, 591.75 + 0.5, 0.0, 0.0, 0.3).out);
  EXPECT_TRUE(Marked(e));
}

TEST(SingleCalc, Code7BelowOneMillionthKelvinGivesFlag) {
  peq::Session s = peqtest::EthanolWater(0);
  s.TOffsetOut = 0;
  Mark(s);
  ExpectNone(Calc(s, 7, 0.0, 0.0, 0.0, 0.3).out);
  EXPECT_TRUE(Marked(s));
}

TEST(SingleCalc, ActivityCoefficientCodes) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const peq::Vec<double> x = Comp({0.7, 0.3});
  peq::Vec<double> g(3, 0.0);
  int16_t err = 0;
  peq::ActivityCoeffs(k, kT, x, g, err);
  ASSERT_EQ(err, 0);
  const Point r8 = Calc(s, 8, 0.3, kT, kP);
  EXPECT_EQ(r8.out.Y1, static_cast<float>(g[2]));
  EXPECT_EQ(r8.out.Y2, static_cast<float>(g[1]));
  const Point r81 = Calc(s, 81, 0.3, kT, kP);
  EXPECT_EQ(r81.out.Y1, static_cast<float>(std::log(g[2])));
  EXPECT_EQ(r81.out.Y2, static_cast<float>(std::log(g[1])));
  const Point r9 = Calc(s, 9, 0.3, kT, kP);
  EXPECT_EQ(r9.out.Y1, static_cast<float>(std::log(g[1]) - std::log(g[2])));
  EXPECT_EQ(r9.out.F2, -1);
  // The isobaric forms take the T of the bubble point.
  const double Tb = BubbleT(k, kP, x);
  peq::ActivityCoeffs(k, Tb, x, g, err);
  s.IsoArt = 2;
  const Point r82 = Calc(s, 82, 0.3, 0.0, kP);
  EXPECT_EQ(r82.out.Y1, static_cast<float>(g[2]));
  EXPECT_EQ(r82.T, Tb);
  const Point r83 = Calc(s, 83, 0.3, 0.0, kP);
  EXPECT_EQ(r83.out.Y2, static_cast<float>(std::log(g[1])));
}

TEST(SingleCalc, Code181GammaPhiDensitiesFromLiquidVolumesAndTheIdealGas) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const Point r = Calc(s, 181, 0.3, kT, kP);
  const peq::Vec<double> x = Comp({0.7, 0.3});
  const double pb = BubbleP(k, kT, x);
  ASSERT_GT(pb, 0.0);
  // rho(L) = M(L)/sum x(i) VLiq(i); rho(V) = M(V) p/(R T) with the normalised bubble vapour.
  const double sy = k.YGas[1] + k.YGas[2];
  const double ML = 0.7 * k.MolMasse[1] + 0.3 * k.MolMasse[2];
  const double MV = (k.YGas[1] * k.MolMasse[1] + k.YGas[2] * k.MolMasse[2]) / sy;
  const double vL = 0.7 * k.VLiq[1] + 0.3 * k.VLiq[2];
  EXPECT_REL(r.out.Y1, ML / vL, 1e-6);
  EXPECT_REL(r.out.Y2, MV * pb / (kR * kT), 1e-6);
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.out.F2, 0);
  EXPECT_GT(r.out.Y1, 700.0f);  // a liquid of about 0.78 g/cm^3
}

TEST(SingleCalc, Code182And183DensitiesAtTheBubbleTemperatureAndInTheIsostericForm) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  s.IsoArt = 2;
  const peq::Vec<double> x = Comp({0.7, 0.3});
  const Point r = Calc(s, 182, 0.3, 0.0, kP);
  const double Tb = BubbleT(k, kP, x);
  ASSERT_GT(Tb, 0.0);
  const double sy = k.YGas[1] + k.YGas[2];
  const double MV = (k.YGas[1] * k.MolMasse[1] + k.YGas[2] * k.MolMasse[2]) / sy;
  EXPECT_REL(r.out.Y2, MV * kP / (kR * Tb), 1e-6);
  EXPECT_EQ(r.T, Tb);
  s.IsoArt = 3;
  s.TOffsetOut = 273.15;
  const Point r3 = Calc(s, 183, 70.0, 0.0, 0.0, 0.3);
  const Point r1 = Calc(s, 181, 0.3, 343.15, 0.0);
  EXPECT_EQ(r3.out.Y1, r1.out.Y1);
  EXPECT_EQ(r3.out.Y2, r1.out.Y2);
}

TEST(SingleCalc, Code181PhiPhiDensitiesFromTheKernelVolumes) {
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  peq::Session k = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  const Point r = Calc(s, 181, 0.4, 380.0, kP);
  double vL = 0, vV = 0;
  const peq::Vec<double> x = Comp({0.6, 0.4});
  ASSERT_GT(BubbleP(k, 380.0, x, &vL, &vV), 0.0);
  const double sy = k.YGas[1] + k.YGas[2];
  const double ML = 0.6 * k.MolMasse[1] + 0.4 * k.MolMasse[2];
  const double MV = (k.YGas[1] * k.MolMasse[1] + k.YGas[2] * k.MolMasse[2]) / sy;
  EXPECT_REL(r.out.Y1, ML / vL, 1e-6);
  EXPECT_REL(r.out.Y2, MV / vV, 1e-6);
}

// --------------------------------------------------------------------------- entry rules

TEST(SingleCalc, XvalJustAboveOneGivesFlagsAndNoKernelCall) {
  for (int16_t code : {1, 3, 4, 5, 51, 6, 8, 9, 10, 11, 181, 182, 110, 15}) {
    peq::Session s = peqtest::EthanolWater(0);
    Mark(s);
    const Point r = Calc(s, code, 1.00000001, kT, kP);
    ExpectNone(r.out);
    EXPECT_TRUE(Marked(s)) << code;
  }
}

TEST(SingleCalc, XvalBelowZeroGivesFlagsAndNoKernelCall) {
  peq::Session s = peqtest::EthanolWater(0);
  Mark(s);
  ExpectNone(Calc(s, 1, -1e-9, kT, kP).out);
  EXPECT_TRUE(Marked(s));
}

TEST(SingleCalc, IsobaricCodeAtOrAboveTLimGivesFlag) {
  // With T(cr) of ethanol set to 350 K, TLim = 350 K lies below the bubble temperature at
  // 101.325 kPa (about 352 K): the kernel finds it, the point is refused.
  peq::Session k = peqtest::EthanolWater(0);
  const double Tb = BubbleT(k, kP, Comp({0.7, 0.3}));
  ASSERT_GT(Tb, 350.0);
  for (int16_t code : {4, 51, 6, 11, 82, 83, 182}) {
    peq::Session s = peqtest::EthanolWater(0);
    s.IsoArt = 2;
    s.TKrit[1] = 350.0f;
    const Point r = Calc(s, code, 0.3, 0.0, kP);
    EXPECT_EQ(r.out.F1, -1) << code;
    if (code != 4) {
      EXPECT_EQ(r.out.F2, -1) << code;
    }
    // With TLim exactly at the bubble temperature the point is refused as well.
    peq::Session e = peqtest::EthanolWater(0);
    e.IsoArt = 2;
    float lim = static_cast<float>(Tb);
    if (double(lim) > Tb) lim = std::nextafter(lim, 0.0f);
    e.TKrit[1] = lim;
    EXPECT_EQ(Calc(e, code, 0.3, 0.0, kP).out.F1, -1) << code;
  }
}

TEST(SingleCalc, PhiPhiTLimIsTKritMax) {
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  s.IsoArt = 2;
  s.TKrit[1] = 300.0f;  // ignored in phi-phi: TLim is TKritMax
  const Point r = Calc(s, 51, 0.4, 0.0, kP);
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.out.F2, 0);
}

TEST(SingleCalc, IsothermalVapourPressureOutsideItsLimitsWarns) {
  peq::Session s = peqtest::EthanolWater(0);
  s.IsoArt = 1;
  s.ParALP[2].THi = 300;  // 343.15 K lies 43 K above the limit of water's equation
  const Point r = Calc(s, 1, 0.3, kT, kP);
  ASSERT_EQ(r.msgs.size(), 1u);
  EXPECT_EQ(r.msgs[0].title, "WARNING");
  EXPECT_EQ(r.msgs[0].text, "calculation outside the T-limits of a vapour pressure equation");
  EXPECT_EQ(r.out.F1, 0);  // a warning only
  // 5 K outside is still quiet; isobaric diagrams and the phi-phi concept never warn.
  peq::Session q = peqtest::EthanolWater(0);
  q.ParALP[2].THi = 338;
  EXPECT_TRUE(Calc(q, 1, 0.3, kT, kP).msgs.empty());
  s.IsoArt = 2;
  EXPECT_TRUE(Calc(s, 4, 0.3, kT, kP).msgs.empty());
}

TEST(SingleCalc, FailedBubblePointGivesFlags) {
  peq::Session s = peqtest::EthanolWater(0);
  s.P0Eq[1] = "";
  s.ParALP[1] = peq::ParAntoine{};
  s.IsoArt = 2;
  ExpectNone(Calc(s, 6, 0.3, 0.0, kP).out);
  ExpectNone(Calc(s, 11, 0.3, 0.0, kP).out);
  // At or above TKritMax no bubble pressure exists.
  peq::Session e = peqtest::EthanolWater(0);
  ExpectNone(Calc(e, 5, 0.3, 700.0, kP).out);
}

TEST(SingleCalc, NoMixtureOrABadPairReturnsFlags) {
  peq::Session none;
  ExpectNone(Calc(none, 1, 0.3, kT, kP).out);
  peq::Session s = peqtest::EthanolWater(0);
  peq::SingleOut o;
  float R = 0, outX = 0;
  double T = kT, p = kP, y2 = 0;
  peq::SingleCalc(s, 1, 0.3, T, p, y2, R, R, R, R, 1, 1, outX, o, nullptr);
  ExpectNone(o);
  peq::SingleCalc(s, 1, 0.3, T, p, y2, R, R, R, R, 1, 3, outX, o, nullptr);
  ExpectNone(o);
}

TEST(SingleCalc, SwappedPairTakesXvalAsTheFractionOfK2) {
  peq::Session a = peqtest::EthanolWater(0), b = peqtest::EthanolWater(0);
  Point r12 = Calc(a, 5, 0.3, kT, kP);
  Point r21;
  double T = kT, p = kP, y2 = 0;
  peq::SingleCalc(b, 5, 0.7, T, p, y2, r21.R[0], r21.R[1], r21.R[2], r21.R[3], 2, 1, r21.outX, r21.out, nullptr);
  // The same liquid (0.7, 0.3): Out(1) = K(K1) is now K(2), Out(2) = K(K2) is K(1).
  EXPECT_EQ(r21.out.Y1, r12.out.Y2);
  EXPECT_EQ(r21.out.Y2, r12.out.Y1);
}

// ------------------------------------------------------------------------------ mixing gap

peq::Session WithGap() {
  peq::Session s = peqtest::EthanolWater(0);
  s.HatGap = true;
  s.GapAktiv = true;
  s.GapX1 = 0.2f;
  s.GapX2 = 0.6f;
  s.GapW1 = 95.5f;
  s.GapW2 = 95.5f;
  s.GapY = 0.45f;
  return s;
}

TEST(GapLimits, OnlyWhenBothGapFlagsAreSet) {
  peq::Session s = WithGap();
  float R1 = -1, R2 = -1, R3 = -1, R4 = -1;
  s.GapAktiv = false;
  EXPECT_FALSE(peq::GapLimits(s, 0.4, 1, R1, R2, R3, R4));
  EXPECT_EQ(R1, -1.0f);
  s.GapAktiv = true;
  s.HatGap = false;
  EXPECT_FALSE(peq::GapLimits(s, 0.4, 1, R1, R2, R3, R4));
  s.HatGap = true;
  EXPECT_TRUE(peq::GapLimits(s, 0.4, 1, R1, R2, R3, R4));
}

TEST(GapLimits, OrderFollowsK1AndEdgesAreInside) {
  peq::Session s = WithGap();
  s.GapW2 = 96.0f;
  float R1, R2, R3, R4;
  EXPECT_TRUE(peq::GapLimits(s, 0.2f, 1, R1, R2, R3, R4));
  EXPECT_EQ(R1, 0.2f);
  EXPECT_EQ(R2, 0.6f);
  EXPECT_EQ(R3, 95.5f);
  EXPECT_EQ(R4, 96.0f);
  EXPECT_TRUE(peq::GapLimits(s, 0.6f, 2, R1, R2, R3, R4));
  EXPECT_EQ(R1, 0.6f);
  EXPECT_EQ(R2, 0.2f);
  EXPECT_EQ(R3, 96.0f);
  EXPECT_EQ(R4, 95.5f);
  EXPECT_FALSE(peq::GapLimits(s, 0.19, 1, R1, R2, R3, R4));
  EXPECT_FALSE(peq::GapLimits(s, 0.61, 1, R1, R2, R3, R4));
}

TEST(SingleCalc, InsideAnActiveGapTheOrdinateIsTheThreePhaseValue) {
  peq::Session s = WithGap();
  const Point r = Calc(s, 1, 0.4, kT, kP);
  EXPECT_EQ(r.out.Y1, 95.5f);
  EXPECT_EQ(r.out.F1, 0);
  EXPECT_EQ(r.outX, 0.45f);
  EXPECT_EQ(r.R[0], 0.2f);
  EXPECT_EQ(r.R[1], 0.6f);
  EXPECT_EQ(r.out.F2, 0);  // the dew line is not in the gap
  // Outside the gap the bubble pressure itself.
  peq::Session k = peqtest::EthanolWater(0);
  EXPECT_EQ(Calc(s, 1, 0.1, kT, kP).out.Y1, static_cast<float>(BubbleP(k, kT, Comp({0.9, 0.1}))));
  // The T-x diagram: the three-phase temperature (K) less the display offset.
  peq::Session t = WithGap();
  t.IsoArt = 2;
  t.GapW1 = 360.0f;
  t.TOffsetOut = 273.15;
  EXPECT_EQ(Calc(t, 4, 0.4, 0.0, kP).out.Y1, static_cast<float>(360.0 - 273.15));
  // x-y: the vapour of the three-phase point.
  EXPECT_EQ(Calc(s, 3, 0.4, kT, kP).out.Y1, 0.45f);
}

// ----------------------------------------------------------------- dispatch to the excess codes

TEST(SingleCalc, ExcessCodesGoToSingleCalcExcessWithThePairSet) {
  for (int16_t code : {110, 113, 120, 15, 16, 17, 999}) {
    peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
    const Point r = Calc(s, code, 0.3, kT, kP);
    int16_t err = 0, dT = 0;
    peq::AllPureProps(k, kT, err, dT);
    peq::SingleOut direct;
    peq::SingleCalcExcess(k, code, 0.3, kT, kP, Comp({0.7, 0.3}), 1, 2, direct);
    EXPECT_EQ(r.out.Y1, direct.Y1) << code;
    EXPECT_EQ(r.out.Y2, direct.Y2) << code;
    EXPECT_EQ(r.out.F1, direct.F1) << code;
    EXPECT_EQ(r.out.F2, direct.F2) << code;
  }
}

// ---------------------------------------------------------------------------- SingleCalcXY

TEST(SingleCalcXY, GammaPhiFindsTheLiquidOfTheDewPoint) {
  peq::Session s = peqtest::EthanolWater(0), k = peqtest::EthanolWater(0);
  const peq::Vec<double> y = Comp({0.5, 0.5});
  const float Td = peq::CalcDewT(k, kP, y, 0.0);
  ASSERT_GT(Td, 0.0f);
  double xL = 0, T = 0;
  int16_t flag = 7;
  peq::SingleCalcXY(s, 0.5, kP, 1, 2, xL, T, flag);
  EXPECT_EQ(flag, 0);
  EXPECT_NEAR(xL, k.XLiq[2], 1e-4);
  EXPECT_NEAR(T, Td, 1e-2);
}

TEST(SingleCalcXY, PhiPhiLiquidBoilsToTheGivenVapour) {
  peq::Session s = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  peq::Session k = peqtest::PhiPhi({peqtest::kHexane, peqtest::kToluene}, 5, 2);
  double xL = 0, T = 0;
  int16_t flag = 7;
  peq::SingleCalcXY(s, 0.4, kP, 1, 2, xL, T, flag);
  ASSERT_EQ(flag, 0);
  EXPECT_GT(xL, 0.4);  // toluene, the heavier, is richer in the liquid
  const double Tb = BubbleT(k, kP, Comp({1.0 - xL, xL}));
  EXPECT_NEAR(Tb, T, 1e-3);
  EXPECT_NEAR(k.KWert[2] * xL, 0.4, 1e-6);
}

TEST(SingleCalcXY, XvalOutsideZeroToOneReturnsAtOnce) {
  peq::Session s = peqtest::EthanolWater(0);
  Mark(s);
  double xL = 5, T = 5;
  int16_t flag = 0;
  peq::SingleCalcXY(s, 1.00000001, kP, 1, 2, xL, T, flag);
  EXPECT_EQ(flag, -1);
  EXPECT_EQ(xL, 5.0);
  EXPECT_TRUE(Marked(s));
}

TEST(SingleCalcXY, BubbleTemperatureAtTKritMaxFails) {
  // With TKritMax lowered to 300 K every bubble temperature of the pair at 101.325 kPa lies
  // above it.
  peq::Session s = peqtest::EthanolWater(0);
  s.TKritMax = 300.0;
  double xL = 0, T = 0;
  int16_t flag = 0;
  peq::SingleCalcXY(s, 0.5, kP, 1, 2, xL, T, flag);
  EXPECT_EQ(flag, -1);
}

}  // namespace
