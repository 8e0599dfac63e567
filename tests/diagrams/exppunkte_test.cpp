// The held experimental points on a 2D diagram: the rows within 0.1 % of the diagram's T or p,
// x(L) and x(V) as two series, mass fractions, inactive rows, the exchange of the components and
// the limit of 12 sets.
#include "diagrams/exppunkte.h"

#include <gtest/gtest.h>

#include <cmath>

#include "companions/fit_sessions.h"

namespace {

using namespace peq;

Session MitPunkten() {
  Session s;
  s.NKomp = 2;
  s.MolMasse.assign(3);
  s.MolMasse[1] = 32.042f;  // methanol
  s.MolMasse[2] = 18.015f;  // water
  const ExpPunkt p[] = {{0, 333.15f, 40.0f, 0.2f, 0.1f},   // taken
                        {0, 333.40f, 45.0f, 0.3f, 0.2f},   // within 0.1 % (333.15 * 1.001 = 333.483)
                        {0, 333.60f, 50.0f, 0.4f, 0.3f},   // beyond 0.1 %
                        {-1, 333.15f, 55.0f, 0.5f, 0.4f},  // inactive
                        {0, 333.15f, 0.0f, 0.6f, 0.5f},    // p below 1e-6
                        {0, 333.15f, 60.0f, 0.7f, 0.0f}};  // vapour not measured
  s.ExpPunkte.assign(7);
  for (int i = 0; i < 6; ++i) s.ExpPunkte[i + 1] = p[i];
  s.ExpAnz = 6;
  s.ExpDatei = "/data/H2O_MEOH.EX5";
  return s;
}

TEST(ExpPunkteDiagramm, TheTenthOfAPercentRule) {
  EXPECT_TRUE(InnerhalbPromille(333.15, 333.48));
  EXPECT_FALSE(InnerhalbPromille(333.15, 333.49));
  EXPECT_TRUE(InnerhalbPromille(333.15, 332.82));
  EXPECT_FALSE(InnerhalbPromille(333.15, 332.81));
}

TEST(ExpPunkteDiagramm, IsothermalPxTakesRowsAtTheDiagramsTemperature) {
  Session s = MitPunkten();
  Graph2DDoc d;
  d.NoDia = 1;
  d.T = 333.15;
  bool voll = true;
  EXPECT_EQ(zeigeExpPunkte(s, d, voll), 3);
  EXPECT_FALSE(voll);
  ASSERT_EQ(d.ExpSaetze.size(), 1u);
  const ExpSatz& e = d.ExpSaetze[0];
  ASSERT_EQ(e.L.Punkte(), 3);
  ASSERT_EQ(e.V.Punkte(), 2);  // the row without a vapour value draws only its liquid point
  EXPECT_FLOAT_EQ(e.L.x[0], 0.2f);
  EXPECT_FLOAT_EQ(e.L.y[0], 40.0f);
  EXPECT_FLOAT_EQ(e.V.x[1], 0.2f);
  EXPECT_FLOAT_EQ(e.L.y[2], 60.0f);
  EXPECT_EQ(e.Legende, "exp. H2O_MEOH.EX5");
  EXPECT_EQ(e.L.Stil.Muster, LinienMuster::Keine);
  EXPECT_NE(e.L.Stil.Sym, Symbol::Keins);
}

TEST(ExpPunkteDiagramm, IsobaricTxSelectsByPressureAndShowsTInDisplayUnits) {
  Session s = MitPunkten();
  s.TOffsetOut = 273.15;
  Graph2DDoc d;
  d.NoDia = 4;
  d.p = 50.02;
  bool voll = false;
  EXPECT_EQ(zeigeExpPunkte(s, d, voll), 1);
  EXPECT_NEAR(d.ExpSaetze[0].L.y[0], 60.45, 1e-3);
  EXPECT_FLOAT_EQ(d.ExpSaetze[0].V.x[0], 0.3f);
}

TEST(ExpPunkteDiagramm, XYDiagramAndMassFractionsAndTheExchangedPair) {
  Session s = MitPunkten();
  Graph2DDoc d;
  d.NoDia = 3;
  d.T = 333.15;
  ExpSatz e;
  EXPECT_EQ(ExpSatzBilden(s, d, e), 3);
  ASSERT_EQ(e.L.Punkte(), 2);  // x-y needs the vapour value
  EXPECT_FLOAT_EQ(e.L.y[0], 0.1f);
  s.ConcUnit = 1;
  ExpSatzBilden(s, d, e);
  // w2 = 0.2 * 18.015 / (0.2 * 18.015 + 0.8 * 32.042) = 0.12325...
  EXPECT_NEAR(e.L.x[0], 0.2 * 18.015 / (0.2 * 18.015 + 0.8 * 32.042), 1e-6);
  s.ConcUnit = 0;
  s.Komp1 = 2;
  s.Komp2 = 1;
  ExpSatzBilden(s, d, e);
  EXPECT_FLOAT_EQ(e.L.x[0], 0.8f);
  EXPECT_FLOAT_EQ(e.L.y[0], 0.9f);
}

TEST(ExpPunkteDiagramm, KValuesAndNothingForOtherDiagrams) {
  Session s = MitPunkten();
  Graph2DDoc d;
  d.NoDia = 5;
  d.T = 333.15;
  ExpSatz e;
  EXPECT_EQ(ExpSatzBilden(s, d, e), 3);
  EXPECT_FLOAT_EQ(e.L.y[0], 0.5f);  // 0.1 / 0.2
  d.NoDia = 110;
  EXPECT_EQ(ExpSatzBilden(s, d, e), 0);
  d.NoDia = 1;
  d.T = 400;
  bool voll = false;
  EXPECT_EQ(zeigeExpPunkte(s, d, voll), 0);
  EXPECT_TRUE(d.ExpSaetze.empty());
}

TEST(ExpPunkteDiagramm, TwelveSetsAtMostEachWithItsOwnLookAndTheExchangeFlipsThem) {
  Session s = MitPunkten();
  Graph2DDoc d;
  d.NoDia = 1;
  d.T = 333.15;
  bool voll = false;
  for (int k = 0; k < 12; ++k) EXPECT_EQ(zeigeExpPunkte(s, d, voll), 3);
  EXPECT_EQ(zeigeExpPunkte(s, d, voll), 0);
  EXPECT_TRUE(voll);
  EXPECT_FALSE(d.ExpSaetze[0].L.Stil == d.ExpSaetze[1].L.Stil);
  ASSERT_TRUE(TauscheKomponenten(d));
  EXPECT_FLOAT_EQ(d.ExpSaetze[11].L.x[0], 0.8f);
  EXPECT_FLOAT_EQ(d.ExpSaetze[11].L.y[0], 40.0f);
}

}  // namespace

namespace {

// lg(p0/kPa) = A - B/(C + t/°C), the Antoine form of the ethanol/water fitting session.
double Antoine(double A, double B, double C, double T) { return std::pow(10.0, A - B / (C + T - 273.15)); }

}  // namespace

// The activity coefficients a row holds, f(i) = y(i) p / (x(i) p0(i)), against a hand
// calculation with the Antoine equations: the axis component (water) in the first series, its
// partner in the second; the logarithms on 81 and 83; the isobaric forms select by p.
TEST(ExpPunkteDiagramm, ActivityCoefficientsByRaoultsLaw) {
  Session s = peqtest::EthanolWaterFit();
  s.Komp1 = 1;
  s.Komp2 = 2;
  s.ExpPunkte.assign(3);
  s.ExpPunkte[1] = ExpPunkt{0, 351.45f, 101.325f, 0.1f, 0.12f};
  s.ExpPunkte[2] = ExpPunkt{0, 351.45f, 101.325f, 0.4f, 0.0f};  // no vapour value: no coefficient
  s.ExpAnz = 2;
  const double T = 351.45f, p = 101.325f, x2 = 0.1f, y2 = 0.12f;
  const double f2 = y2 * p / (x2 * Antoine(7.11564, 1687.537, 230.17, T));
  const double f1 = (1 - y2) * p / ((1 - x2) * Antoine(7.33675, 1648.22, 230.918, T));
  for (int16_t nd : {8, 81, 82, 83}) {
    Graph2DDoc d;
    d.NoDia = nd;
    d.T = 351.45;
    d.p = 101.325;
    ExpSatz e;
    EXPECT_EQ(ExpSatzBilden(s, d, e), 2) << nd;
    ASSERT_EQ(e.L.Punkte(), 1) << nd;
    ASSERT_EQ(e.V.Punkte(), 1) << nd;
    const bool ln = nd == 81 || nd == 83;
    EXPECT_FLOAT_EQ(e.L.x[0], 0.1f);
    EXPECT_NEAR(e.L.y[0], ln ? std::log(f2) : f2, 2e-4) << nd;
    EXPECT_NEAR(e.V.y[0], ln ? std::log(f1) : f1, 2e-4) << nd;
  }
  EXPECT_GT(f2, 2.5);  // water is far from ideal in ethanol
  EXPECT_NEAR(f1, 0.976, 0.01);
}
