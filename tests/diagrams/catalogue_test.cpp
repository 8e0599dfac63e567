// The diagram catalogue: model label, title and axis texts of every diagram number under every
// concentration, temperature and energy unit, the number of curves, the kind of the fixed
// quantity, and the default coordinates of every family (both ends of the curves of real
// mixtures inside, computed with the kernel).
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "diagrams/catalogue.h"
#include "diagrams/catalogue_mixtures.h"
#include "diagrams/curve_fixture.h"
#include "engine/excess.h"
#include "engine/kernel_test_sessions.h"
#include "engine/kernel.h"
#include "models/activity.h"
#include "models/vappressure.h"
#include "support/fuzzy.h"
#include "windows/commands.h"

namespace {

using peq::DiagrammTexte;
using peq::Koordinaten;
using peq::Session;

// ---------------------------------------------------------------- model label

TEST(ModellText, GammaPhiLiquidModelThenVapourModel) {
  Session s;
  s.Konzept = false;
  const std::vector<std::pair<int16_t, std::string>> liquid = {
      {0, " L: ideal mixture"}, {1, " L: Wilson"},      {2, " L: NRTL"},  {4, " L: Redlich/Kister"},
      {9, " L: UNIQUAC"},       {20, " L: Mod. UNIFAC"}, {21, " L: UNIFAC"}};
  const std::vector<std::pair<int16_t, std::string>> vapour = {
      {0, ", V: ideal gas "},        {1, ", V: virial equation"},           {2, ", V: virial equation"},
      {3, ", V: EOS Redlich/Kwong "}, {4, ", V:EOS Soave/Redlich/Kwong "}, {5, ", V: EOS Peng/Robinson "}};
  for (const auto& [ge, l] : liquid)
    for (const auto& [vap, v] : vapour) {
      s.GEModel = ge;
      s.VapModel = vap;
      EXPECT_EQ(peq::ModellText(s), l + v) << ge << " " << vap;
    }
}

TEST(ModellText, PhiPhiEquationOfStateAndMixingRule) {
  Session s;
  s.Konzept = true;
  const std::vector<std::pair<int16_t, std::string>> eos = {
      {3, "CEOS Redlich / Kwong"}, {4, "CEOS SRK"}, {5, "CEOS Peng / Robinson"}, {6, "CEOS v. d. Waals"}};
  const std::vector<std::pair<int16_t, std::string>> rule = {{1, "v.d.Waals mixing-rule"},
                                                             {2, "v.d.Waals mixing-rule"},
                                                             {5, "GE mixing-rule, p => oo"},
                                                             {6, "GE mixing-rule, p => 0"}};
  for (const auto& [m, e] : eos)
    for (const auto& [r, t] : rule) {
      s.EOSModel = m;
      s.MixRule = r;
      EXPECT_EQ(peq::ModellText(s), e + ", MR: " + t);
    }
}

// ---------------------------------------------------------------- titles and axes

// The unit variants: ConcUnit 0/1, TOffsetOut 0 (K) / 273.15 (°C), FuUnit 0/1/2.
struct Variante {
  int16_t conc;
  double off;
  int16_t fu;
};
std::vector<Variante> AlleVarianten() {
  std::vector<Variante> v;
  for (int16_t c : {0, 1})
    for (double o : {0.0, 273.15})
      for (int16_t f : {0, 1, 2}) v.push_back({c, o, f});
  return v;
}

struct TitelZeile {
  int16_t noDia;
  std::string titel;          // text before the model label
  bool modell;                // model label and ")" follow
  std::string xMol, xMasse;   // abscissa by ConcUnit (xMol also for a T axis in K)
  std::string xCelsius;       // abscissa of a T axis in °C; empty: the axis is not a T axis
  std::string y[3];           // ordinate by FuUnit (the same three for a unit-free ordinate)
  std::string yCelsius;       // ordinate of a T axis in °C; empty: not a T axis
};

const std::string kXL = "mole fraction x(L)", kKsiL = "mass fraction ksi(L)";

std::vector<TitelZeile> Tabelle() {
  auto same = [](const std::string& y) { return std::vector<std::string>{y, y, y}; };
  std::vector<TitelZeile> t;
  auto add = [&t](int16_t n, std::string titel, bool modell, std::string xm, std::string xk, std::string xc,
                  std::vector<std::string> y, std::string yc = "") {
    TitelZeile z{n, std::move(titel), modell, std::move(xm), std::move(xk), std::move(xc), {y[0], y[1], y[2]},
                 std::move(yc)};
    t.push_back(z);
  };
  add(1, "Isothermal phase diagramm p - x (", true, "mole fraction x", "mass fraction ksi", "", same("p/kPa  "));
  t.push_back({3, "Equilibrium curve(isothermal)  (", true, kXL, kKsiL, "", {"mole fraction x(V)", "", ""}, ""});
  t.push_back({6, "Equilibrium curve(isobaric)  (", true, kXL, kKsiL, "", {"mole fraction x(V)", "", ""}, ""});
  add(4, "Isobaric phase diagramm T - x  (", true, "molar fraction x  ", "mass fraction ksi", "", same("T/K "), "t/°C ");
  add(5, "Ki = xi(V)/xi(L) (isothermal) (", true, kXL, kKsiL, "", same("K"));
  add(51, "Ki = xi(V)/xi(L) (isobaric) (", true, kXL, kKsiL, "", same("K"));
  add(7, "Vapour pressure curve of the mixture (isosteric) (", true, "T/K ", "T/K ", "t/°C  ", same("p/kPa  "));
  add(8, "activity coefficients (isothermal) (", true, kXL, kKsiL, "", same("f(i)  "));
  add(82, "activity coefficients (isobaric) (", true, kXL, kKsiL, "", same("f(i)  "));
  add(81, "ln of the activ. coeff. (isothermal)  (", true, kXL, kKsiL, "", same("ln f(i) "));
  add(83, "ln of the activ. coeff. (isobaric)  (", true, kXL, kKsiL, "", same("ln f(i) "));
  add(9, "consistency of activ. coeff.: ln(f2/f1) vs. x(i)  (equal areas !) (isothermal) (", true, kXL, kKsiL, "",
      same("ln (f2 / f1)  "));
  add(10, "relative volatility alpha (isothermal) (", true, kXL, kKsiL, "", same("alpha(1,2)"));
  add(11, "relative volatility alpha (isobaric) (", true, kXL, kKsiL, "", same("alpha(1,2)"));
  add(110, "molar Gibbs excess function gE (isothermal) (", true, kXL, kKsiL, "",
      {"gE/ (kJ/kmol) ", "(gE/R)/ K ", "gE/(R T)"});
  for (int n = 1; n <= 6; ++n)
    add(static_cast<int16_t>(110 + n), "y = " + std::to_string(n) + ". deriv. gE to x2 (isotherm) (", true, kXL,
        kKsiL, "", {"y/ (kJ/kmol) ", "(y/R)/ K ", "y/(R T)"});
  add(120, "molar Gibbs function of mixing delta(M)g (isothermal)  (", true, kXL, kKsiL, "",
      {"delta(M)g/ (kJ/kmol) ", "(delta(M)g/R)/ K", "delta(M)g/(R T)"});
  for (int n = 1; n <= 6; ++n)
    add(static_cast<int16_t>(120 + n), "y = " + std::to_string(n) + ". deriv. delta(M)G to x2 (isothermal) (", true,
        kXL, kKsiL, "", {"y/ (kJ/kmol) ", "(y/R)/ K ", "y/(R T)"});
  add(15, "molar enthalpy of mixing delta(M)h (isothermal)  (", true, kXL, kKsiL, "",
      {"delta(M)h/ (kJ/kmol) ", "(delta(M)h/R)/ K", "delta(M)h/(R T)"});
  add(16, "molar excess entropy  T*sE (isothermal) (", true, kXL, kKsiL, "",
      {"(T * sE)/ (kJ/kmol) ", "((T * sE)/R)/ K", "(T * sE)/(R T)"});
  add(17, "mol. excess heat capacity cpE(", true, kXL, kKsiL, "", {"cpE/(kJ/kmol/K) ", "(cpE/R) ", "(cpE/RT)/ (1/K) "});
  add(181, "Densities in the PEQ (isothermal)", true, kXL, kKsiL, "", same("rho(L), rhoV /(kg / m^3)"));
  add(182, "Densities in the PEQ (isobaric)", true, kXL, kKsiL, "", same("rho(L), rhoV /(kg / m^3)"));
  add(183, "Densities in the PEQ (isosteric)", true, "T/K ", "T/K ", "t/°C ", same("rho(L), rhoV /(kg / m^3)"));
  add(250, "Consistency test for experimental data T-p-x(L)-x(V)", false, kXL, kKsiL, "",
      same("x2(V)_exp - x2(V)_calc"));
  return t;
}

TEST(DiagrammTitel, EveryTitleAndAxisTextUnderEveryUnit) {
  Session s;
  s.Konzept = false;
  s.GEModel = 2;
  s.VapModel = 0;
  const std::string label = peq::ModellText(s);
  ASSERT_EQ(label, " L: NRTL, V: ideal gas ");
  for (const TitelZeile& z : Tabelle()) {
    for (const Variante& v : AlleVarianten()) {
      s.ConcUnit = v.conc;
      s.TOffsetOut = v.off;
      s.FuUnit = v.fu;
      DiagrammTexte t;
      ASSERT_TRUE(peq::DiagrammTitel(s, z.noDia, t)) << z.noDia;
      const std::string where = std::to_string(z.noDia) + " conc " + std::to_string(v.conc) + " off " +
                                std::to_string(v.off) + " fu " + std::to_string(v.fu);
      EXPECT_EQ(t.Titel, z.modell ? z.titel + label + ")" : z.titel) << where;
      std::string x = v.conc ? z.xMasse : z.xMol;
      if (!z.xCelsius.empty() && v.off != 0) x = z.xCelsius;
      EXPECT_EQ(t.XAchse, x) << where;
      std::string y = z.y[v.fu];
      if (z.noDia == 3 || z.noDia == 6) y = v.conc ? "mass fraction ksi(V)" : "mole fraction x(V)";
      if (!z.yCelsius.empty() && v.off != 0) y = z.yCelsius;
      EXPECT_EQ(t.YAchse, y) << where;
    }
  }
}

TEST(DiagrammTitel, TheModelLabelOfThePhiPhiConceptStandsInTheTitle) {
  Session s;
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  DiagrammTexte t;
  ASSERT_TRUE(peq::DiagrammTitel(s, 1, t));
  EXPECT_EQ(t.Titel, "Isothermal phase diagramm p - x (CEOS Peng / Robinson, MR: v.d.Waals mixing-rule)");
}

TEST(DiagrammTitel, BatchDistillationPlots) {
  Session s;
  s.TOffsetOut = 273.15;
  DiagrammTexte t;
  ASSERT_TRUE(peq::DiagrammTitel(s, 200, t));
  EXPECT_EQ(t.Titel, "Distillate concentration as a function of progress of the distillation ");
  EXPECT_EQ(t.XAchse, "percentage of the total time of distillation");
  ASSERT_TRUE(peq::DiagrammTitel(s, 201, t));
  EXPECT_EQ(t.Titel, "Bottom concentration as a function of progress of the distillation ");
  ASSERT_TRUE(peq::DiagrammTitel(s, 202, t));
  EXPECT_EQ(t.Titel, "Top and bottom temperature as a function of the progress og the distillation");
  EXPECT_EQ(t.YAchse, "t/°C ");
  s.BatchZeit = 3.5f;  // the run has a total time
  ASSERT_TRUE(peq::DiagrammTitel(s, 202, t));
  EXPECT_EQ(t.XAchse, "time of distillation /h");
}

TEST(DiagrammTitel, AnUnknownNumberHasNoTitle) {
  Session s;
  for (int16_t n : {0, 2, 41, 99, 109, 117, 119, 127, 184, 203, 800, 100, 500}) {
    DiagrammTexte t;
    t.Titel = "unchanged";
    EXPECT_FALSE(peq::DiagrammTitel(s, n, t)) << n;
    EXPECT_EQ(t.Titel, "unchanged");
    peq::GraphAufbau g;
    EXPECT_FALSE(peq::ZentraleGraph(s, n, g)) << n;
  }
}

// ---------------------------------------------------------------- curves, fixed quantity, gap

TEST(KurvenAnzahl, TwoForPxKValuesTxActivityCoefficientsAndDensities) {
  Session s;
  s.NKomp = 4;
  for (int16_t n : {1, 4, 5, 51, 8, 81, 82, 83, 181, 182, 183, 202}) EXPECT_EQ(peq::KurvenAnzahlVon(s, n), 2) << n;
  for (int16_t n : {3, 6, 7, 9, 10, 11, 15, 16, 17, 110, 111, 116, 120, 121, 126})
    EXPECT_EQ(peq::KurvenAnzahlVon(s, n), 1) << n;
  EXPECT_EQ(peq::KurvenAnzahlVon(s, 200), 4);  // NKomp
  EXPECT_EQ(peq::KurvenAnzahlVon(s, 201), 4);
  EXPECT_EQ(peq::KurvenAnzahlVon(s, 250), 0);  // the consistency plot has no curve
}

TEST(IsoArtVon, AgreesWithTheMenuForEveryNumber) {
  for (int n = 0; n <= 1000; ++n) EXPECT_EQ(peq::IsoArtVon(static_cast<int16_t>(n)), peq::IsoArtOf(n)) << n;
  EXPECT_EQ(peq::IsoArtVon(4), 2);
  EXPECT_EQ(peq::IsoArtVon(183), 3);
  EXPECT_EQ(peq::IsoArtVon(83), 2);
}

TEST(GapAktivVon, OnlyPxTxXyAndTheZerothDerivatives) {
  for (int n = 0; n <= 1000; ++n) {
    const bool soll = n == 1 || n == 3 || n == 4 || n == 6 || n == 110 || n == 120;
    EXPECT_EQ(peq::GapAktivVon(static_cast<int16_t>(n)), soll) << n;
  }
}

// ---------------------------------------------------------------- fixed default ranges

// A binary with critical data only (no models needed by the fixed families).
Session Kritisch() {
  Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  s.TKrit[1] = 514.0f;
  s.TKrit[2] = 647.096f;
  s.PKrit[1] = 6137;
  s.PKrit[2] = 22064;
  s.TKritMax = 647.096f;
  s.PKritMax = 22064;
  return s;
}

void ErwarteBereich(const Koordinaten& k, double x0, double x1, double y0, double y1, const std::string& wo) {
  EXPECT_TRUE(peqtest::Near(k.XMin, x0, 1e-6, 1e-6)) << wo;
  EXPECT_TRUE(peqtest::Near(k.XMax, x1, 1e-6, 1e-6)) << wo;
  EXPECT_TRUE(peqtest::Near(k.YMin, y0, 1e-6, 1e-6)) << wo;
  EXPECT_TRUE(peqtest::Near(k.YMax, y1, 1e-6, 1e-6)) << wo;
}

TEST(StandardKoordinaten, FixedFamiliesUnderEveryUnit) {
  Session s = Kritisch();
  for (const Variante& v : AlleVarianten()) {
    s.ConcUnit = v.conc;
    s.TOffsetOut = v.off;
    s.FuUnit = v.fu;
    // FuFaktor as the options set it: 1, 1/R, 1/(R T) at T = 298.15 K.
    s.FuFaktor = v.fu == 0 ? 1.0f : (v.fu == 1 ? static_cast<float>(1 / 8.31451) : static_cast<float>(1 / (8.31451 * 298.15)));
    const double F = s.FuFaktor, off = v.off;
    const std::string wo = "conc " + std::to_string(v.conc) + " off " + std::to_string(off) + " fu " +
                           std::to_string(v.fu);
    Koordinaten k;
    for (int16_t n : {3, 6}) {
      ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, n, k)) << n;
      ErwarteBereich(k, 0, 1, 0, 1, wo);
    }
    // p-T isosteric: T from TKritMax/2.5 to TKritMax + 2 (display unit), p from -0.1 to 1.01 PKritMax.
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 7, k));
    ErwarteBereich(k, 647.096 / 2.5 - off, 647.096 - off + 2, -0.1, 1.01 * 22064, wo);
    for (int16_t n : {120, 111, 113, 114, 115, 116, 123, 124, 125, 126}) {
      ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, n, k)) << n;
      ErwarteBereich(k, 0, 1, -5000 * F, 5000 * F, wo + " " + std::to_string(n));
    }
    for (int16_t n : {112, 122}) {
      ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, n, k)) << n;
      ErwarteBereich(k, 0, 1, -90000 * F, 90000 * F, wo + " " + std::to_string(n));
    }
    for (int16_t n : {181, 182}) {
      ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, n, k)) << n;
      ErwarteBereich(k, 0, 1, -10, 1000, wo);
    }
    // Densities against T: from the lower T(cr) to TKritMax + 10.
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 183, k));
    ErwarteBereich(k, 514.0 - off, 647.096 + 10 - off, -10, 1000, wo);
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 250, k));
    ErwarteBereich(k, 0, 1, -0.051, 0.051, wo);
    s.BatchZeit = 0;
    for (int16_t n : {200, 201}) {
      ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, n, k));
      ErwarteBereich(k, -0.01, 1.01, 0, 100, wo);
    }
    s.BatchZeit = 7.25f;
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 200, k));
    ErwarteBereich(k, -0.01, 1.01, 0, 7.25, wo);
    s.BatchZeit = 0;
  }
}

TEST(StandardKoordinaten, UnknownNumberOrPairGivesNothing) {
  Session s = Kritisch();
  Koordinaten k;
  k.YMax = 42;
  EXPECT_FALSE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 2, k));
  EXPECT_FALSE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 999, k));
  EXPECT_FALSE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 3, 1, k));  // no third component
  EXPECT_EQ(k.YMax, 42);
}

TEST(StandardKoordinaten, IsostericFamiliesWithoutCriticalDataGiveNothing) {
  Session s = Kritisch();
  s.TKritMax = 0;
  s.PKritMax = 0;
  s.TKrit[1] = s.TKrit[2] = 0;
  Koordinaten k;
  EXPECT_FALSE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 7, k));
  EXPECT_FALSE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 183, k));
}

// ---------------------------------------------------------------- computed ranges, real mixtures

struct Mixture : ::testing::Test {
  Session s;
};

// The bubble curve at T: p of each point x2 = 0, step, ..., 1 that the kernel gives (failed
// points left out), in walk order, with K1 and K2.
struct BubbleP {
  double x2, p, K1, K2;
};
std::vector<BubbleP> BubbleKurveP(Session& s, double T, double step, double from = 0, double to = 1) {
  std::vector<BubbleP> out;
  peq::Vec<double> x(3, 0.0), y(3, 0.0);
  double pLast = 0;
  const int n = static_cast<int>(std::lround(std::fabs(to - from) / step));
  for (int k = 0; k <= n; ++k) {
    const double x2 = from + (to > from ? 1 : -1) * k * step;
    x[2] = x2;
    x[1] = 1 - x2;
    double vL = 0, vV = 0;
    const double p = peq::CalcBubbleP(s, T, x, pLast, y, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    if (!(p > 0)) continue;
    pLast = p;
    y[1] = s.YGas[1];
    y[2] = s.YGas[2];
    out.push_back({x2, p, s.KWert[1], s.KWert[2]});
  }
  return out;
}

struct BubbleT {
  double x2, T, K1, K2;
};
std::vector<BubbleT> BubbleKurveT(Session& s, double p, double step) {
  std::vector<BubbleT> out;
  peq::Vec<double> x(3, 0.0), y(3, 0.0);
  const int n = static_cast<int>(std::lround(1 / step));
  double TLast = 0;
  for (int k = 0; k <= n; ++k) {
    const double x2 = k * step;
    x[2] = x2;
    x[1] = 1 - x2;
    // As the curve tracer walks: the previous point's T and vapour are the starts.
    double T = TLast, vL = 0, vV = 0;
    int16_t warn = 0;
    const double Tb = peq::CalcBubbleT(s, p, x, T, y, warn, s.KWert, vL, vV);
    if (!(Tb > 1e-6)) continue;
    TLast = Tb;
    y[1] = s.YGas[1];
    y[2] = s.YGas[2];
    out.push_back({x2, Tb, s.KWert[1], s.KWert[2]});
  }
  return out;
}

// The p-x range of ethanol/water at 70 °C by hand, with the reference-case Antoine constants of
// the kernel tests is 0 .. 90 (1.2 x 72.33 kPa = 86.8, up to the next multiple of 5); here the
// rule is checked with the database's own equations: 0 .. the round number above 1.2 x the
// larger vapour pressure, and every point of the bubble curve (0.01 steps) inside.
TEST_F(Mixture, PxEthanolWaterAt70C) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  const double T = 343.15;
  std::string c1 = s.P0Eq[1], c2 = s.P0Eq[2];
  int16_t dT = 0;
  const double p01 = peq::VapPressure(s, 1, T, c1, false, dT), p02 = peq::VapPressure(s, 2, T, c2, false, dT);
  ASSERT_GT(p01, 60);  // ethanol about 72 kPa at 70 °C
  ASSERT_LT(p01, 80);
  ASSERT_GT(p02, 28);  // water about 31 kPa
  ASSERT_LT(p02, 34);
  Koordinaten k;
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 1, k));
  EXPECT_EQ(k.YMin, 0);
  EXPECT_EQ(k.YMax, 90);  // 1.2 x p0(ethanol) = 86.x, next multiple of 5
  EXPECT_EQ(k.XMin, 0);
  EXPECT_EQ(k.XMax, 1);
  const auto curve = BubbleKurveP(s, T, 0.01);
  ASSERT_GT(curve.size(), 95u);
  EXPECT_EQ(curve.front().x2, 0.0);
  EXPECT_EQ(curve.back().x2, 1.0);
  for (const BubbleP& b : curve) {
    EXPECT_GT(b.p, k.YMin);
    EXPECT_LT(b.p, k.YMax) << b.x2;
  }
}

// Acetone/methanol has a pressure-maximum azeotrope on the acetone side: the maximum of the
// bubble curve lies above both vapour pressures and still inside.
TEST_F(Mixture, PxAcetoneMethanolHoldsThePressureMaximum) {
  ASSERT_TRUE(cattest::AcetoneMethanol(s));
  for (double T : {298.15, 328.15, 373.15}) {
    Koordinaten k;
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 1, k));
    const auto curve = BubbleKurveP(s, T, 0.01);
    ASSERT_GT(curve.size(), 95u);
    double pmax = 0;
    for (const BubbleP& b : curve) pmax = std::max(pmax, b.p);
    EXPECT_GT(pmax, std::max(curve.front().p, curve.back().p));  // an azeotrope
    EXPECT_LT(pmax, k.YMax) << T;
    EXPECT_EQ(k.YMin, 0);
  }
}

// CO2/n-butane at 344.26 K lies above T(cr) of CO2 (304.13 K): the bubble curve runs from the
// vapour pressure of n-butane into the critical region of the mixture and ends there.
TEST_F(Mixture, PxCO2ButaneAboveTheCriticalTemperatureOfCO2) {
  ASSERT_TRUE(cattest::CO2Butane(s));
  for (double T : {280.0, 310.93, 344.26, 377.59}) {
    Koordinaten k;
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 1, k)) << T;
    // From the n-butane end (x2 = 1) towards CO2 in small steps until the bubble point fails.
    const auto curve = BubbleKurveP(s, T, 0.0025, 1.0, 0.0);
    ASSERT_GT(curve.size(), 10u);
    for (const BubbleP& b : curve) {
      EXPECT_GT(b.p, k.YMin);
      EXPECT_LT(b.p, k.YMax) << T << " " << b.x2;
    }
    // Not needlessly large: the top of the curve fills more than a third of the frame.
    double pmax = 0;
    for (const BubbleP& b : curve) pmax = std::max(pmax, b.p);
    EXPECT_GT(pmax, k.YMax / 3) << T;
  }
}

// T-x of ethanol/water at 101.325 kPa, by hand with the reference Antoine constants of the
// kernel tests (lg(p/kPa) = A - B/(C + t/°C)): t(ethanol) = 1648.22/(7.33675 - 2.005717) -
// 230.918 = 78.255 °C, t(water) = 1687.537/(7.11564 - 2.005717) - 230.17 = 100.077 °C, span
// 21.822 K: lower 78.255 - 3.273 - 10 = 64.98 -> 60 °C, upper 100.077 + 2.182 + 5 = 107.26 ->
// 110 °C; in K 338.13 -> 335 and 380.41 -> 385.
TEST(StandardKoordinatenTx, HandCalculationWithTheReferenceAntoineConstants) {
  Session s = peqtest::EthanolWater(0);
  Koordinaten k;
  s.TOffsetOut = 273.15;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 4, k));
  EXPECT_EQ(k.YMin, 60);
  EXPECT_EQ(k.YMax, 110);
  EXPECT_EQ(k.XMin, 0);
  EXPECT_EQ(k.XMax, 1);
  s.TOffsetOut = 0;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 4, k));
  EXPECT_EQ(k.YMin, 335);
  EXPECT_EQ(k.YMax, 385);
}

// The same with the database's equations: the rule on its own boiling points, and every point
// of the bubble curve inside.
TEST_F(Mixture, TxEthanolWaterAtOneAtmosphere) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  std::string c1 = s.P0Eq[1], c2 = s.P0Eq[2];
  int16_t dT = 0, err = 0;
  const double T1 = peq::BoilingTAtP(s, 1, 101.325, c1, false, dT, err);
  const double T2 = peq::BoilingTAtP(s, 2, 101.325, c2, false, dT, err);
  ASSERT_NEAR(T1, 351.4, 0.5);
  ASSERT_NEAR(T2, 373.15, 0.5);
  const double span = T2 - T1;
  s.TOffsetOut = 273.15;
  Koordinaten k;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 4, k));
  EXPECT_EQ(k.YMin, 5 * std::floor((T1 - 0.15 * span - 10 - 273.15) / 5));
  EXPECT_EQ(k.YMax, 5 * std::ceil((T2 + 0.1 * span + 5 - 273.15) / 5));
  s.TOffsetOut = 0;
  Koordinaten kK;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, 101.325, 1, 2, 4, kK));
  EXPECT_EQ(kK.YMin, 5 * std::floor((T1 - 0.15 * span - 10) / 5));
  EXPECT_EQ(kK.YMax, 5 * std::ceil((T2 + 0.1 * span + 5) / 5));
  const auto curve = BubbleKurveT(s, 101.325, 0.01);
  ASSERT_EQ(curve.size(), 101u);
  for (const BubbleT& b : curve) {
    EXPECT_GT(b.T, kK.YMin);
    EXPECT_LT(b.T, kK.YMax);
  }
}

TEST_F(Mixture, TxAcetoneMethanolAndCO2ButaneInsideAtSeveralPressures) {
  ASSERT_TRUE(cattest::AcetoneMethanol(s));
  s.TOffsetOut = 273.15;
  for (double p : {20.0, 101.325, 500.0}) {
    Koordinaten k;
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, p, 1, 2, 4, k));
    const auto curve = BubbleKurveT(s, p, 0.01);
    ASSERT_EQ(curve.size(), 101u) << p;
    for (const BubbleT& b : curve) {
      EXPECT_GT(b.T - 273.15, k.YMin) << p;
      EXPECT_LT(b.T - 273.15, k.YMax) << p;
    }
  }
  Session c;
  ASSERT_TRUE(cattest::CO2Butane(c));
  c.TOffsetOut = 0;
  for (double p : {1000.0, 2000.0, 3000.0}) {
    Koordinaten k;
    ASSERT_TRUE(peq::StandardKoordinaten(c, 298.15, p, 1, 2, 4, k));
    const auto curve = BubbleKurveT(c, p, 0.01);
    ASSERT_GT(curve.size(), 80u) << p;  // the kernel misses a few points near pure CO2
    for (const BubbleT& b : curve) {
      EXPECT_GT(b.T, k.YMin) << p;
      EXPECT_LT(b.T, k.YMax) << p;
    }
  }
}

TEST_F(Mixture, KValuesAndRelativeVolatilityAtTAndAtP) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  const double T = 343.15, p = 101.325;
  Koordinaten k5, k10, k51, k11;
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, p, 1, 2, 5, k5));
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, p, 1, 2, 10, k10));
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, p, 1, 2, 51, k51));
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, p, 1, 2, 11, k11));
  for (const Koordinaten* k : {&k5, &k10, &k51, &k11}) EXPECT_EQ(k->YMin, 0);
  const auto atT = BubbleKurveP(s, T, 0.01);
  double kmax = 0;
  for (const BubbleP& b : atT) {
    EXPECT_LT(b.K1, k5.YMax) << b.x2;
    EXPECT_LT(b.K2, k5.YMax) << b.x2;
    EXPECT_LT(b.K1 / b.K2, k10.YMax) << b.x2;
    kmax = std::max({kmax, b.K1, b.K2});
  }
  // 1.1 x the largest K of the 0.1 grid, which includes the dilute end of ethanol.
  EXPECT_REL(k5.YMax, 1.1 * kmax, 0.02);
  for (const BubbleT& b : BubbleKurveT(s, p, 0.01)) {
    EXPECT_LT(b.K1, k51.YMax) << b.x2;
    EXPECT_LT(b.K2, k51.YMax) << b.x2;
    EXPECT_LT(b.K1 / b.K2, k11.YMax) << b.x2;
  }
}

TEST_F(Mixture, KValuesAtPOfThePhiPhiConceptFromTheContinuedBubbleCurve) {
  ASSERT_TRUE(cattest::CO2Butane(s));
  for (double p : {1000.0, 2000.0}) {
    Koordinaten k51, k11;
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, p, 1, 2, 51, k51));
    ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, p, 1, 2, 11, k11));
    const auto curve = BubbleKurveT(s, p, 0.01);
    ASSERT_GT(curve.size(), 80u);
    for (const BubbleT& b : curve) {
      EXPECT_LT(b.K1, k51.YMax) << p << " " << b.x2;
      EXPECT_LT(b.K1 / b.K2, k11.YMax) << p << " " << b.x2;
    }
  }
}

TEST_F(Mixture, KValuesOfThePhiPhiConcept) {
  ASSERT_TRUE(cattest::CO2Butane(s));
  const double T = 280.0;
  Koordinaten k5, k10;
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 5, k5));
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 10, k10));
  for (const BubbleP& b : BubbleKurveP(s, T, 0.01)) {
    EXPECT_LT(b.K1, k5.YMax) << b.x2;
    EXPECT_LT(b.K1 / b.K2, k10.YMax) << b.x2;
  }
}

// NRTL at 343.15 K with R = 1.98584 cal/(mol K): tau12 = -121.2691/681.441 = -0.17796,
// tau21 = 1337.8574/681.441 = 1.96327, G12 = exp(0.2974 x 0.17796) = 1.05435,
// G21 = exp(-0.2974 x 1.96327) = 0.55773; ln gamma1(inf) = tau21 + tau12 G12 = 1.77564 (5.904),
// ln gamma2(inf) = tau12 + tau21 G21 = 0.91701 (2.502).
TEST_F(Mixture, ActivityCoefficientFamiliesFromTheLimitingValues) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  const double T = 343.15;
  Koordinaten k;
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 8, k));
  EXPECT_EQ(k.YMin, 0);
  EXPECT_REL(k.YMax, 1.1 * std::exp(1.77564), 1e-4);
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 81, k));
  EXPECT_REL(k.YMax, 1.77564, 1e-4);
  EXPECT_REL(k.YMin, -1.77564, 1e-4);
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 9, k));
  EXPECT_REL(k.YMax, 1.77564, 1e-4);
  EXPECT_REL(k.YMin, -1.77564, 1e-4);
  // Every value of the curves inside (gamma on a 0.01 grid).
  peq::Vec<double> x(3, 0.0), g(3, 1.0);
  Koordinaten k8, k81;
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 8, k8));
  ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 81, k81));
  for (int j = 0; j <= 100; ++j) {
    x[2] = 0.01 * j;
    x[1] = 1 - x[2];
    int16_t err = 0;
    peq::ActivityCoeffs(s, T, x, g, err);
    ASSERT_EQ(err, 0);
    EXPECT_LE(g[1], k8.YMax);
    EXPECT_LE(g[2], k8.YMax);
    EXPECT_LE(std::log(g[1]), k81.YMax + 1e-9);
    EXPECT_GE(std::log(g[2]), k81.YMin - 1e-9);
    const double lnf = std::log(g[2]) - std::log(g[1]);
    EXPECT_LE(std::fabs(lnf), k.YMax + 1e-9);
  }
}

TEST_F(Mixture, IsobaricActivityCoefficientsAtTheBoilingTemperatures) {
  ASSERT_TRUE(cattest::AcetoneMethanol(s));
  const double p = 101.325;
  Koordinaten k82, k83;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, p, 1, 2, 82, k82));
  ASSERT_TRUE(peq::StandardKoordinaten(s, 298.15, p, 1, 2, 83, k83));
  EXPECT_EQ(k82.YMin, 0);
  EXPECT_REL(k83.YMin, -k83.YMax, 1e-12);
  peq::Vec<double> x(3, 0.0), g(3, 1.0);
  for (const BubbleT& b : BubbleKurveT(s, p, 0.02)) {
    x[2] = b.x2;
    x[1] = 1 - b.x2;
    int16_t err = 0;
    peq::ActivityCoeffs(s, b.T, x, g, err);
    EXPECT_LE(g[1], k82.YMax);
    EXPECT_LE(g[2], k82.YMax);
    EXPECT_LE(std::log(g[1]), k83.YMax * 1.0001);
    EXPECT_LE(std::log(g[2]), k83.YMax * 1.0001);
  }
}

TEST_F(Mixture, IdealMixtureGetsAUsableLogarithmicRange) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  s.GEModel = 0;
  Koordinaten k;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 343.15, 101.325, 1, 2, 81, k));
  EXPECT_EQ(k.YMin, -1);
  EXPECT_EQ(k.YMax, 1);
  ASSERT_TRUE(peq::StandardKoordinaten(s, 343.15, 101.325, 1, 2, 8, k));
  EXPECT_REL(k.YMax, 1.1, 1e-6);
}

// The energy families: the rule from the value at x2 = 0.5 (upper 1.2 v, lower 0, or the
// reverse for a negative value, 10 FuFaktor margin; cpE 2 FuFaktor), and every value of a 0.01
// grid inside.
TEST_F(Mixture, ExcessFunctionsInsideUnderEveryEnergyUnit) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  const double T = 343.15;
  s.TIso = T;
  for (int16_t fu : {0, 1, 2}) {
    s.FuUnit = fu;
    s.FuFaktor = fu == 0 ? 1.0f : (fu == 1 ? static_cast<float>(1 / 8.31451) : static_cast<float>(1 / (8.31451 * T)));
    const double F = s.FuFaktor;
    Koordinaten k110, k15, k16, k17, k121;
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 110, k110));
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 15, k15));
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 16, k16));
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 17, k17));
    ASSERT_TRUE(peq::StandardKoordinaten(s, T, 101.325, 1, 2, 121, k121));
    peq::Vec<double> x(3, 0.0);
    // gE at 0.5: positive for ethanol/water, so the range is -10 F .. 1.2 gE + 10 F at least.
    x[1] = x[2] = 0.5;
    int16_t err = 0;
    const double gE = peq::ExcessGE(s, T, x, err) * F;
    ASSERT_EQ(err, 0);
    ASSERT_GT(gE, 0);
    EXPECT_LE(k110.YMin, -10 * F * 0.9999);
    EXPECT_GE(k110.YMax, (1.2 * gE + 10 * F) * 0.9999);
    double g121lo = 1e300, g121hi = -1e300;
    for (int j = 0; j <= 100; ++j) {
      x[2] = 0.01 * j;
      x[1] = 1 - x[2];
      double hE = 0, TsE = 0, g = 0, cp = 0;
      int16_t e1 = 0, e2 = 0;
      peq::ExcessT(s, T, 101.325, x, hE, TsE, g, e1);
      peq::ExcessCp(s, T, x, cp, e2);
      ASSERT_EQ(e1, 0);
      ASSERT_EQ(e2, 0);
      EXPECT_GE(g * F, k110.YMin);
      EXPECT_LE(g * F, k110.YMax);
      EXPECT_GE(hE * F, k15.YMin) << x[2];
      EXPECT_LE(hE * F, k15.YMax) << x[2];
      EXPECT_GE(TsE * F, k16.YMin) << x[2];
      EXPECT_LE(TsE * F, k16.YMax) << x[2];
      EXPECT_GE(cp * F, k17.YMin) << x[2];
      EXPECT_LE(cp * F, k17.YMax) << x[2];
      if (j >= 10 && j <= 90 && j % 10 == 0) {
        // First derivative of delta(M)g: R T (ln(gamma2/gamma1) + ln(x2/x1)).
        peq::Vec<double> gam(3, 1.0);
        peq::ActivityCoeffs(s, T, x, gam, err);
        const double d = 8.31451 * T * (std::log(gam[2] / gam[1]) + std::log(x[2] / x[1])) * F;
        g121lo = std::min(g121lo, d);
        g121hi = std::max(g121hi, d);
      }
    }
    // 121: the scan's extremes widened by a tenth of their spread.
    const double spread = g121hi - g121lo;
    EXPECT_REL(k121.YMin, g121lo - 0.1 * spread, 1e-3);
    EXPECT_REL(k121.YMax, g121hi + 0.1 * spread, 1e-3);
  }
}

TEST_F(Mixture, ExcessGibbsFunctionOfThePhiPhiConcept) {
  ASSERT_TRUE(cattest::CO2Butane(s));
  s.PIso = 101.325;
  Koordinaten k;
  ASSERT_TRUE(peq::StandardKoordinaten(s, 250.0, 5000.0, 1, 2, 110, k));
  EXPECT_LT(k.YMin, k.YMax);
  EXPECT_LE(k.YMin, -10);
  EXPECT_GE(k.YMax, 10);
}

// ---------------------------------------------------------------- the title routine

TEST_F(Mixture, ZentraleGraphSetsTextsCurvesFixedQuantityGapAndCoordinates) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  s.TIso = 343.15;
  s.PIso = 101.325;
  s.TOffsetOut = 273.15;
  s.IsoArt = 1;
  s.GapAktiv = false;
  peq::GraphAufbau g;
  ASSERT_TRUE(peq::ZentraleGraph(s, 4, g));
  EXPECT_EQ(g.Texte.Titel, "Isobaric phase diagramm T - x  ( L: NRTL, V: ideal gas )");
  EXPECT_EQ(g.Texte.XAchse, "molar fraction x  ");
  EXPECT_EQ(g.Texte.YAchse, "t/°C ");
  EXPECT_EQ(g.KurvenAnzahl, 2);
  EXPECT_EQ(s.IsoArt, 2);
  EXPECT_TRUE(s.GapAktiv);
  EXPECT_EQ(s.XMin, 0);
  EXPECT_EQ(s.XMax, 1);
  EXPECT_LT(s.YMin, 78);
  EXPECT_GT(s.YMax, 100);
  EXPECT_EQ(std::fmod(s.YMin, 5.0f), 0.0f);
  EXPECT_EQ(std::fmod(s.YMax, 5.0f), 0.0f);

  ASSERT_TRUE(peq::ZentraleGraph(s, 10, g));
  EXPECT_EQ(g.KurvenAnzahl, 1);
  EXPECT_EQ(s.IsoArt, 1);
  EXPECT_FALSE(s.GapAktiv);
  EXPECT_EQ(s.YMin, 0);
  EXPECT_GT(s.YMax, 1);
}

TEST_F(Mixture, ZentraleGraphKeepsFractionAxesWhenTheValuesAreMissing) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  s.P0Eq[1] = "";
  s.P0Eq[2] = "";  // no vapour-pressure equation: no pure values
  s.TIso = 343.15;
  s.XMin = 0.2f;
  s.YMax = 55;
  peq::GraphAufbau g;
  ASSERT_TRUE(peq::ZentraleGraph(s, 1, g));
  EXPECT_EQ(s.XMin, 0);
  EXPECT_EQ(s.XMax, 1);
  EXPECT_EQ(s.YMin, 0);
  EXPECT_EQ(s.YMax, 1);
  EXPECT_EQ(g.KurvenAnzahl, 2);
}

}  // namespace

// ---------------------------------------------------------------- with the curve tracer

namespace tracer {

// Both curves of one drawing with the default coordinates: every point, and so both ends,
// inside the frame.
void AllesInnen(Session& s, int16_t NoDia, double T, double p, const std::string& wo) {
  s.TIso = T;
  s.PIso = p;
  peq::GraphAufbau g;
  ASSERT_TRUE(peq::ZentraleGraph(s, NoDia, g)) << wo;
  const curvetest::Drawn d = curvetest::Draw(s, NoDia, T, p);
  EXPECT_EQ(d.fehler, 0) << wo;
  EXPECT_EQ(d.ausserhalb, 0) << wo;
  ASSERT_GT(d.n1(), 10u) << wo;
  for (const peq::Kurve* k : {&d.k1, &d.k2}) {
    for (std::size_t i = 1; i < k->size(); ++i) {
      const peq::KurvenPunkt& pt = (*k)[i];
      EXPECT_GE(pt.x, s.XMin - 1e-5f) << wo;  // the walk's running sum may pass 1 by a rounding
      EXPECT_LE(pt.x, s.XMax + 1e-5f) << wo;
      EXPECT_GE(pt.y, s.YMin) << wo << " point " << i << " x " << pt.x;
      EXPECT_LE(pt.y, s.YMax) << wo << " point " << i << " x " << pt.x;
    }
  }
}

}  // namespace tracer

TEST_F(Mixture, TracedCurvesOfEthanolWaterLieInsideTheirDefaultFrames) {
  ASSERT_TRUE(cattest::EthanolWater(s));
  for (int16_t n : {1, 3, 5, 10, 8, 81, 9, 110, 15, 16, 17})
    tracer::AllesInnen(s, n, 343.15, 101.325, "at T, diagram " + std::to_string(n));
  for (int16_t n : {4, 6, 51, 11, 82, 83})
    tracer::AllesInnen(s, n, 343.15, 101.325, "at p, diagram " + std::to_string(n));
}

TEST_F(Mixture, TracedCurvesOfAcetoneMethanolLieInsideTheirDefaultFrames) {
  ASSERT_TRUE(cattest::AcetoneMethanol(s));
  for (double T : {298.15, 328.15, 373.15}) tracer::AllesInnen(s, 1, T, 101.325, "p-x at " + std::to_string(T));
  for (double p : {20.0, 101.325, 500.0}) tracer::AllesInnen(s, 4, 298.15, p, "T-x at " + std::to_string(p));
}

TEST_F(Mixture, TracedCurvesOfCO2ButaneLieInsideTheirDefaultFrames) {
  ASSERT_TRUE(cattest::CO2Butane(s));
  for (double T : {280.0, 310.93, 344.26, 377.59}) tracer::AllesInnen(s, 1, T, 101.325, "p-x at " + std::to_string(T));
  for (double p : {1000.0, 2000.0, 3000.0}) tracer::AllesInnen(s, 4, 280.0, p, "T-x at " + std::to_string(p));
  tracer::AllesInnen(s, 51, 280.0, 2000.0, "K at p");
}
