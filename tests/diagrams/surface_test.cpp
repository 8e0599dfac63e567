// 3D diagrams: texts and bounds of the surfaces, the grid of Calc_3DArray (coordinates, loop
// order, temperature offset, mass fractions, clipping, holes, the flat run over a mixing gap)
// and its agreement with the p-x curve of the 2D diagram.
#include "diagrams/surface.h"

#include <gtest/gtest.h>

#include <cmath>

#include "diagrams/catalogue_mixtures.h"
#include "diagrams/curve_fixture.h"
#include "engine/gap.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

using peq::Calc_3DArray;
using peq::Feld3D;
using peq::Grenzen3D;
using peq::kLoch3D;

namespace {

// Antoine lg(p/kPa) = A - B/(C + t/°C) of component i with the session's own (single) constants.
double Antoine(const peq::Session& s, int i, double TK) {
  const auto& a = s.ParALP[static_cast<std::size_t>(i)];
  return std::pow(10.0, static_cast<double>(a.A) - static_cast<double>(a.B) / (static_cast<double>(a.C) + TK - 273.15));
}

// Raoult's law of the ideal benzene/toluene pair: the bubble pressure at T of x2.
double Raoult(const peq::Session& s, double TK, double x2) {
  return (1.0 - x2) * Antoine(s, 1, TK) + x2 * Antoine(s, 2, TK);
}

Grenzen3D Bounds(float x0, float x1, float y0, float y1) {
  Grenzen3D g;
  g.XMin = x0;
  g.XMax = x1;
  g.YMin = y0;
  g.YMax = y1;
  return g;
}

// Water(1)/1-butanol(2) of the bundled database under UNIFAC with the shipped parameter file and
// the ideal gas.
bool WaterButanolUnifac(peq::Session& s) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"7732-18-5", "71-36-3"})) return false;
  s.Konzept = false;
  s.GEModel = 21;
  s.VapModel = 0;
  s.OUnifFile = peqtest::SourceDir() + "/data/OUNIF6PLUS.PAR";
  s.UnifacNeu = true;
  cattest::FirstP0Equations(s);
  return true;
}

bool Finite(const Feld3D& f) {
  for (int j = 1; j <= f.IYDim(); ++j)
    for (int i = 1; i <= f.IXDim(); ++i)
      if (!std::isfinite(f(i, j))) return false;
  return true;
}

}  // namespace

TEST(Surface3D, GridCoordinatesAndLoopOrderOfA3By2Grid) {
  // Spacing (max - min)/IXDim from min, the upper bound itself is not a grid point:
  // x = 0, 0.3, 0.6 for 0..0.9 in 3 columns; t = 20, 30 °C for 20..40 in 2 rows.
  const Grenzen3D g = Bounds(0.0f, 0.9f, 20.0f, 40.0f);
  EXPECT_NEAR(peq::GitterX(g, 3, 1), 0.0, 1e-7);
  EXPECT_NEAR(peq::GitterX(g, 3, 2), 0.3, 1e-7);
  EXPECT_NEAR(peq::GitterX(g, 3, 3), 0.6, 1e-7);
  EXPECT_NEAR(peq::GitterY(g, 2, 1), 20.0, 1e-6);
  EXPECT_NEAR(peq::GitterY(g, 2, 2), 30.0, 1e-6);

  // Ideal benzene/toluene: each point is Raoult's law at its own x and T (hand formula), so a
  // swapped loop or index shows at once.
  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 273.15;
  Feld3D f;
  ASSERT_EQ(Calc_3DArray(s, 0, 3, 2, f, g, false), 0);
  ASSERT_EQ(f.IXDim(), 3);
  ASSERT_EQ(f.IYDim(), 2);
  const double xs[3] = {0.0, 0.3, 0.6};
  const double ts[2] = {293.15, 303.15};
  for (int j = 1; j <= 2; ++j)
    for (int i = 1; i <= 3; ++i) {
      const double want = Raoult(s, ts[j - 1], xs[i - 1]);
      EXPECT_NEAR(f(i, j), want, 2e-5 * want) << i << "," << j;
    }
  // Toluene boils higher: along a row p falls with x2, and the warmer row lies above.
  EXPECT_GT(f(1, 1), f(3, 1));
  EXPECT_GT(f(1, 2), f(1, 1));
}

TEST(Surface3D, TemperatureOffsetAddsToTheSecondAxisOnly) {
  peq::Session s = peqtest::BenzeneToluene();
  Feld3D inC, inK;
  s.TOffsetOut = 273.15;
  ASSERT_EQ(Calc_3DArray(s, 0, 2, 2, inC, Bounds(0, 1, 50, 70), false), 0);
  s.TOffsetOut = 0;
  ASSERT_EQ(Calc_3DArray(s, 0, 2, 2, inK, Bounds(0, 1, 323.15f, 343.15f), false), 0);
  for (int j = 1; j <= 2; ++j)
    for (int i = 1; i <= 2; ++i) EXPECT_NEAR(inC(i, j), inK(i, j), 1e-3) << i << "," << j;
  EXPECT_NEAR(inC(1, 1), Raoult(s, 323.15, 0.0), 1e-3);

  // The T surface gives its z in the output unit: t/°C with the offset, T/K without.
  Feld3D tC, tK;
  s.TOffsetOut = 273.15;
  ASSERT_EQ(Calc_3DArray(s, 1, 2, 1, tC, Bounds(0, 1, 101.325f, 110), false), 0);
  s.TOffsetOut = 0;
  ASSERT_EQ(Calc_3DArray(s, 1, 2, 1, tK, Bounds(0, 1, 101.325f, 110), false), 0);
  EXPECT_NEAR(tK(1, 1) - tC(1, 1), 273.15, 1e-3);
  // Pure benzene at 101.325 kPa: its Antoine normal boiling point, 80.1 °C.
  EXPECT_NEAR(tC(1, 1), 80.1, 0.2);
}

TEST(Surface3D, MassFractionsWhenConcUnit) {
  // With ConcUnit the grid abscissa is the mass fraction of toluene: w = 0.5 is
  // x2 = (0.5/92.1384)/(0.5/78.1118 + 0.5/92.1384) = 78.1118/170.2502 = 0.45881 (by hand); the vapour surface gives
  // its z as a mass fraction too.
  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 273.15;
  s.ConcUnit = 1;
  Feld3D p, y;
  ASSERT_EQ(Calc_3DArray(s, 0, 2, 1, p, Bounds(0, 1, 80, 90), false), 0);
  const double x2 = (0.5 / 92.1384) / (0.5 / 78.1118 + 0.5 / 92.1384);
  EXPECT_NEAR(x2, 0.45881, 1e-5);
  EXPECT_NEAR(p(2, 1), Raoult(s, 353.15, x2), 1e-4 * p(2, 1));

  s.GapAktiv = false;
  ASSERT_EQ(Calc_3DArray(s, 2, 2, 1, y, Bounds(0, 1, 80, 90), false), 0);
  const double y2 = x2 * Antoine(s, 2, 353.15) / Raoult(s, 353.15, x2);
  const double ksi = (y2 * 92.1384) / (y2 * 92.1384 + (1 - y2) * 78.1118);
  EXPECT_NEAR(y(2, 1), ksi, 1e-4);
  s.ConcUnit = 0;
  ASSERT_EQ(Calc_3DArray(s, 2, 2, 1, y, Bounds(0, 1, 80, 90), false), 0);
  EXPECT_NEAR(y(2, 1), 0.5 * Antoine(s, 2, 353.15) / Raoult(s, 353.15, 0.5), 1e-4);
}

TEST(Surface3D, ClippingHonoursTheSentinels) {
  using peq::Kappen3D;
  EXPECT_EQ(Kappen3D(5.0f, 0.0f, 4.0f), 4.0f);
  EXPECT_EQ(Kappen3D(-1.0f, 0.0f, 4.0f), 0.0f);
  EXPECT_EQ(Kappen3D(2.0f, 0.0f, 4.0f), 2.0f);
  // 0.01111 as the upper bound: no upper bound; -0.01111 as the lower: no lower bound.
  EXPECT_EQ(Kappen3D(500.0f, 0.0f, peq::kOhneZMax), 500.0f);
  EXPECT_EQ(Kappen3D(-500.0f, peq::kOhneZMin, 4.0f), -500.0f);
  EXPECT_EQ(Kappen3D(-500.0f, peq::kOhneZMin, peq::kOhneZMax), -500.0f);
  // A bound that merely lies near the sentinel clips.
  EXPECT_EQ(Kappen3D(1.0f, 0.0f, 0.0112f), 0.0112f);

  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 273.15;
  Grenzen3D g = Bounds(0, 1, 20, 100);
  Feld3D free, clipped;
  ASSERT_EQ(Calc_3DArray(s, 0, 5, 4, free, g, false), 0);
  g.ZMin = 20;
  g.ZMax = 60;
  ASSERT_EQ(Calc_3DArray(s, 0, 5, 4, clipped, g, false), 0);
  int above = 0, below = 0;
  for (int j = 1; j <= 4; ++j)
    for (int i = 1; i <= 5; ++i) {
      const float v = free(i, j);
      if (v > 60) {
        EXPECT_EQ(clipped(i, j), 60.0f);
        ++above;
      } else if (v < 20) {
        EXPECT_EQ(clipped(i, j), 20.0f);
        ++below;
      } else {
        EXPECT_EQ(clipped(i, j), v);
      }
    }
  EXPECT_GT(above, 0);
  EXPECT_GT(below, 0);
}

TEST(Surface3D, FailedPointIsAHoleAndNoNaN) {
  // Rows above the largest T(cr) (591.75 K) have no bubble point: every point there is a hole,
  // the rows below are computed.
  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 0;
  Feld3D f;
  const int holes = Calc_3DArray(s, 0, 4, 2, f, Bounds(0, 1, 400, 1000), false);
  EXPECT_EQ(holes, 4);
  for (int i = 1; i <= 4; ++i) {
    EXPECT_GT(f(i, 1), 0.0f);
    EXPECT_LT(f(i, 1), kLoch3D);
    EXPECT_EQ(f(i, 2), kLoch3D);
  }
  EXPECT_TRUE(Finite(f));
  // A hole is not clipped into the bounds.
  Grenzen3D g = Bounds(0, 1, 400, 1000);
  g.ZMax = 100;
  Calc_3DArray(s, 0, 4, 2, f, g, false);
  EXPECT_EQ(f(1, 2), kLoch3D);
  EXPECT_EQ(f(1, 1), 100.0f);
}

TEST(Surface3D, RefusesAnUnknownSurfaceAndAnEmptyGrid) {
  peq::Session s = peqtest::BenzeneToluene();
  Feld3D f;
  EXPECT_EQ(Calc_3DArray(s, 8, 3, 3, f, Bounds(0, 1, 20, 40), false), -1);
  EXPECT_EQ(Calc_3DArray(s, -1, 3, 3, f, Bounds(0, 1, 20, 40), false), -1);
  EXPECT_EQ(Calc_3DArray(s, 0, 0, 3, f, Bounds(0, 1, 20, 40), false), -1);
  peq::Graph3D g;
  EXPECT_FALSE(peq::InitGraph3D(s, 8, g));
}

TEST(Surface3D, GapRunsFlatOnTheStraightLineBetweenItsEnds) {
  // Water(1)/1-butanol(2) under UNIFAC splits into two liquids at 20 °C; the grid points between
  // the two compositions lie on the straight line between the values at the two ends.
  peq::Session s;
  ASSERT_TRUE(WaterButanolUnifac(s));
  s.TOffsetOut = 273.15;
  double a = 0, b = 0;
  std::string msg;
  ASSERT_TRUE(peq::Binodal(s, 293.15, a, b, msg)) << msg;
  const double lo = std::fmin(a, b), hi = std::fmax(a, b);
  ASSERT_LT(lo, 0.1);
  ASSERT_GT(hi, 0.2);

  for (int16_t nd : {int16_t{0}, int16_t{4}, int16_t{5}}) {
    Feld3D f, flat, endLo, endHi;
    const Grenzen3D g = Bounds(0, 1, 20, 30);
    ASSERT_EQ(Calc_3DArray(s, nd, 20, 1, flat, g, true), 0) << nd;
    ASSERT_EQ(Calc_3DArray(s, nd, 20, 1, f, g, false), 0) << nd;
    // The values at the two ends: one-column grids starting there.
    ASSERT_EQ(Calc_3DArray(s, nd, 1, 1, endLo, Bounds(static_cast<float>(lo), 1, 20, 30), false), 0);
    ASSERT_EQ(Calc_3DArray(s, nd, 1, 1, endHi, Bounds(static_cast<float>(hi), 1, 20, 30), false), 0);
    // the single-precision bounds move the ends by up to 3E-8
    const double zLo = endLo(1, 1), zHi = endHi(1, 1);
    int inside = 0;
    for (int i = 1; i <= 20; ++i) {
      const double x = peq::GitterX(g, 20, i);
      if (x > lo && x < hi) {
        ++inside;
        const double line = zLo + (zHi - zLo) * (x - lo) / (hi - lo);
        EXPECT_NEAR(flat(i, 1), line, 1e-4 * (std::fabs(zHi) + std::fabs(zLo)) + 1e-4) << nd << " x=" << x;
        // The real function bends away from the line somewhere inside the gap.
      } else {
        EXPECT_EQ(flat(i, 1), f(i, 1)) << nd << " x=" << x;
      }
    }
    EXPECT_GE(inside, 2) << nd;
    // Without the search the surface is the plain function, which is not the line there.
    double off = 0;
    for (int i = 1; i <= 20; ++i) off = std::fmax(off, std::fabs(static_cast<double>(flat(i, 1)) - f(i, 1)));
    EXPECT_GT(off, 1e-3) << nd;
  }
}

TEST(Surface3D, PressureRowEqualsTheBubbleCurveOfThePxDiagram) {
  // Ethanol/water, NRTL and the ideal gas: the row of p = Fu(x2, T) at 70 °C and the p-x curve of
  // the 2D diagram at 343.15 K with steps of 1/10 give the same pressures at the same x2.
  peq::Session s;
  ASSERT_TRUE(cattest::EthanolWater(s));
  s.TOffsetOut = 273.15;
  s.ConcUnit = 0;
  s.KurvenPunkte = 10;
  curvetest::Coords(s, 0, 1, 0, 1000);
  s.IsoArt = 1;
  const curvetest::Drawn d = curvetest::Draw(s, 1, 343.15, 101.325);
  ASSERT_GE(d.n1(), 10u);

  Feld3D f;
  ASSERT_EQ(Calc_3DArray(s, 0, 10, 2, f, Bounds(0, 1, 70, 90), false), 0);
  int matched = 0;
  for (int i = 1; i <= 10; ++i) {
    const double x = (i - 1) * 0.1;
    for (std::size_t k = 1; k < d.k1.size(); ++k) {
      if (std::fabs(d.k1[k].x - x) < 1e-5) {
        EXPECT_NEAR(f(i, 1), d.k1[k].y, 1e-4 * d.k1[k].y) << "x2=" << x;
        ++matched;
        break;
      }
    }
  }
  EXPECT_EQ(matched, 10);
}

TEST(Surface3D, TextsByUnitsAndBoundLabels) {
  peq::Session s;
  s.TOffsetOut = 273.15;
  s.ConcUnit = 0;
  s.FuUnit = 0;
  peq::Graph3D g;
  ASSERT_TRUE(peq::InitGraph3D(s, 0, g));
  EXPECT_EQ(g.Titel, "p = Fu(x2(L), T)");
  EXPECT_EQ(g.XAchse, "mole fraction x2(L)");
  EXPECT_EQ(g.YAchse, "t/°C ");
  EXPECT_EQ(g.ZAchse, "p/kPa");
  EXPECT_EQ(g.GrenzText[0], "x2(L)(min)");
  EXPECT_EQ(g.GrenzText[2], "T(min)");
  EXPECT_EQ(g.GrenzText[5], "z(max)");
  EXPECT_EQ(g.Grenzen.ZMax, peq::kOhneZMax);
  EXPECT_EQ(g.Grenzen.ZMin, peq::kOhneZMin);

  ASSERT_TRUE(peq::InitGraph3D(s, 1, g));
  EXPECT_EQ(g.Titel, "T = Fu(x2(L), p)");
  EXPECT_EQ(g.YAchse, "p /kPa");
  EXPECT_EQ(g.ZAchse, "t/°C ");
  EXPECT_EQ(g.GrenzText[2], "p(min)");
  EXPECT_EQ(g.GrenzText[3], "p(max)");

  s.ConcUnit = 1;
  s.TOffsetOut = 0;
  ASSERT_TRUE(peq::InitGraph3D(s, 3, g));
  EXPECT_EQ(g.Titel, "Equilibrium diagram");
  EXPECT_EQ(g.XAchse, "mass fraction ksi2(L)");
  EXPECT_EQ(g.ZAchse, "mass fraction ksi(2(V)");
  EXPECT_EQ(g.GrenzText[4], "x2(V)(min)");
  EXPECT_EQ(g.GrenzText[5], "x2(V)(max");
  ASSERT_TRUE(peq::InitGraph3D(s, 2, g));
  EXPECT_EQ(g.YAchse, "T/K ");

  const char* titles[4] = {"excess Gibbs function", "Gibbs function of mixing", "enthalpy of mixing",
                           "exzess entropy T*sE"};
  const char* axes[3][4] = {{"gE/ (kJ/kmol) ", "delta(M)g/ (kJ/kmol) ", "delta(M)h/ (kJ/kmol) ", "(T * sE)/ (kJ/kmol) "},
                            {"(gE/R)/ K ", "(delta(M)g/R)/ K", "(delta(M)h/R)/ K", "((T * sE)/R)/ K"},
                            {"gE/(R T)", "delta(M)g/(R T)", "delta(M)h/(R T)", "(T * sE)/(R T)"}};
  for (int16_t fu = 0; fu < 3; ++fu) {
    s.FuUnit = fu;
    for (int16_t k = 0; k < 4; ++k) {
      ASSERT_TRUE(peq::InitGraph3D(s, static_cast<int16_t>(4 + k), g));
      EXPECT_EQ(g.Titel, titles[k]);
      EXPECT_EQ(g.ZAchse, axes[fu][k]);
    }
  }
}

TEST(Surface3D, EnergyUnitsScaleTheExcessSurfaces) {
  // gE in kJ/kmol, gE/R in K and gE/(R T) dimensionless at the row's own T.
  peq::Session s;
  ASSERT_TRUE(cattest::EthanolWater(s));
  s.TOffsetOut = 273.15;
  Feld3D si, perR, perRT;
  const Grenzen3D g = Bounds(0, 1, 20, 80);
  s.FuUnit = 0;
  ASSERT_EQ(Calc_3DArray(s, 4, 4, 2, si, g, false), 0);
  s.FuUnit = 1;
  ASSERT_EQ(Calc_3DArray(s, 4, 4, 2, perR, g, false), 0);
  s.FuUnit = 2;
  ASSERT_EQ(Calc_3DArray(s, 4, 4, 2, perRT, g, false), 0);
  EXPECT_GT(si(3, 2), 100.0f);
  EXPECT_NEAR(perR(3, 2), si(3, 2) / 8.31451, 1e-3);
  EXPECT_NEAR(perRT(3, 2), si(3, 2) / (8.31451 * (273.15 + 50)), 1e-5);
  EXPECT_NEAR(perRT(3, 1), si(3, 1) / (8.31451 * (273.15 + 20)), 1e-5);
}
