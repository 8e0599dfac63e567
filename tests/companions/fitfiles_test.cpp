// The exchange files of the parameter fitting, byte for byte against hand-written files, and
// the way an answer lands in the slots and in GEPar.
#include "companions/fitfiles.h"

#include <string>

#include <gtest/gtest.h>

#include "companions/componentblock.h"
#include "companions/exchangetext.h"
#include "companions/fitmap.h"
#include "models/geparams.h"

namespace {

using peq::FitPunkt;
using peq::FitTabelle;

// Hand-written files are kept with LF here; the files carry CR LF.
std::string Crlf(const std::string& lf) {
  std::string out;
  for (char c : lf) {
    if (c == '\n') out += '\r';
    out += c;
  }
  return out;
}

// Ethanol-like (1) with an Antoine equation, water-like (2) with a WAGNER equation.
peq::Session FitSession() {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  s.MolMasse[1] = 46.07f;
  s.TKrit[1] = 514;
  s.PKrit[1] = 6137;
  s.RhoKrit[1] = 276;
  s.Omega[1] = 0.635f;
  s.StoffData[1].RUniquac = 2.1055f;
  s.StoffData[1].QUniquac = 1.972f;
  s.ParRho[1][2] = 75;
  s.ParRho[1][3] = 0.27f;
  s.ParRho[1][4] = 0.23f;
  s.ParRho[1][8] = 514;
  s.VLiqCm3[1] = 58.5f;
  s.P0Eq[1] = "ALP";
  s.ParALP[1].A = 7.33675f;
  s.ParALP[1].B = 1648.22f;
  s.ParALP[1].C = 230.918f;
  s.MolMasse[2] = 18.015f;
  s.TKrit[2] = 647.1f;
  s.PKrit[2] = 22064;
  s.RhoKrit[2] = 322;
  s.Omega[2] = 0.344f;
  s.StoffData[2].RUniquac = 0.92f;
  s.StoffData[2].QUniquac = 1.4f;
  s.ParRho[2][1] = 996;
  s.ParRho[2][8] = 647;
  s.VLiqCm3[2] = 18.07f;
  s.P0Eq[2] = "WAG";
  const float wag[11] = {0, -7.76451f, 1.45838f, -2.7758f, -1.23303f, 0, 0, 647.3f, 22120, 0, 0};
  for (int k = 1; k <= 10; ++k) s.ParWAG[2][k] = wag[k];
  s.GEModel = 2;
  s.VapModel = 0;
  s.GEPar(7, 1, 2) = 0.05;
  s.GEPar(7, 2, 1) = -0.001;
  s.EOSModel = 4;
  s.MixRule = 2;
  return s;
}

// The NRTL starting table of the window: a 500, b and c 0 with their limits, alpha 0.3.
FitTabelle NrtlTabelle() {
  FitTabelle t;
  for (int g = 0; g < 4; ++g) {
    const std::size_t a = static_cast<std::size_t>(3 * g);
    t.Start[a] = 500;
    t.Unten[a] = -5000;
    t.Oben[a] = 5000;
    t.Unten[a + 1] = -500;
    t.Oben[a + 1] = 500;
    t.Unten[a + 2] = -1;
    t.Oben[a + 2] = 1;
  }
  t.Start[6] = 0.3f;
  t.Unten[6] = -1.5f;
  t.Oben[6] = 1.5f;
  return t;
}

std::vector<FitPunkt> Punkte() {
  return {{351.45, 101.325, 0.1, 0.05, false},
          {360.0, 101.325, 0.5, 0.3, true},
          {365.15, 101.325, 0.8, 0.6, false}};
}

TEST(FitFiles, PatternHasSevenDigitsBehindALeadingPoint) {
  EXPECT_EQ(peq::Muster(298.15), ".2981500E+03");
  EXPECT_EQ(peq::Muster(0), ".0000000E+00");
  EXPECT_EQ(peq::Muster(-0.001), "-.1000000E-02");
  EXPECT_EQ(peq::Muster(0.3f), ".3000000E+00");
}

TEST(FitFiles, OhneTAbhFixesTheBAndCSlotsAtZero) {
  FitTabelle t = NrtlTabelle();
  for (auto& v : t.Start) v = 7;
  peq::OhneTAbhAnwenden(t);
  for (int i = 0; i < 12; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    if (i % 3 == 0) {
      EXPECT_FALSE(t.Fest[k]) << i;
      EXPECT_EQ(t.Start[k], 7.0f) << i;
    } else {
      EXPECT_TRUE(t.Fest[k]) << i;
      EXPECT_EQ(t.Start[k], 0.0f) << i;
    }
  }
}

TEST(FitFiles, ToFitMatchesTheHandWrittenFileAndLeavesInactivePointsOut) {
  const peq::Session s = FitSession();
  FitTabelle t = NrtlTabelle();
  peq::OhneTAbhAnwenden(t);
  const std::string expected = Crlf(R"(0
.5000000E+03
-.5000000E+04
.5000000E+04
-1
.0000000E+00
-.5000000E+03
.5000000E+03
-1
.0000000E+00
-.1000000E+01
.1000000E+01
0
.5000000E+03
-.5000000E+04
.5000000E+04
-1
.0000000E+00
-.5000000E+03
.5000000E+03
-1
.0000000E+00
-.1000000E+01
.1000000E+01
0
.3000000E+00
-.1500000E+01
.1500000E+01
-1
.0000000E+00
-.5000000E+03
.5000000E+03
-1
.0000000E+00
-.1000000E+01
.1000000E+01
0
.5000000E+03
-.5000000E+04
.5000000E+04
-1
.0000000E+00
-.5000000E+03
.5000000E+03
-1
.0000000E+00
-.1000000E+01
.1000000E+01
2
0
.5000000E-01
.0000000E+00
-.1000000E-02
.0000000E+00
1
2
.3514500E+03,.1013250E+03,.1000000E+00,.5000000E-01
.3651500E+03,.1013250E+03,.8000000E+00,.6000000E+00
.4607000E+02
.5140000E+03
.6137000E+04
.2760000E+03
.6350000E+00
.2105500E+01
.1972000E+01
.0000000E+00
.7500000E+02
.2700000E+00
.2300000E+00
.0000000E+00
.0000000E+00
.0000000E+00
.5140000E+03
-1
.5850000E+02
ALP
.7336750E+01
.1648220E+04
.2309180E+03
.1801500E+02
.6471000E+03
.2206400E+05
.3220000E+03
.3440000E+00
.9200000E+00
.1400000E+01
.9960000E+03
.0000000E+00
.0000000E+00
.0000000E+00
.0000000E+00
.0000000E+00
.0000000E+00
.6470000E+03
-1
.1807000E+02
WAG
-.7764510E+01
.1458380E+01
-.2775800E+01
-.1233030E+01
.0000000E+00
.0000000E+00
.6473000E+03
.2212000E+05
.0000000E+00
.0000000E+00
)");
  EXPECT_EQ(peq::ToFitText(s, t, 1, Punkte()), expected);
}

TEST(FitFiles, ToFitzMatchesTheHandWrittenFileAndLeavesInactivePointsOut) {
  peq::Session s = FitSession();
  s.Konzept = true;
  FitTabelle t = NrtlTabelle();
  peq::OhneTAbhAnwenden(t);
  const std::string expected = Crlf(R"(.5000000E+03,.0000000E+00,.0000000E+00,.5000000E+03
.5000000E+04,.5000000E+03,.1000000E+01,.5000000E+04
-.5000000E+04,-.5000000E+03,-.1000000E+01,-.5000000E+04
0,-1,-1,0
.0000000E+00,.0000000E+00,.3000000E+00,.0000000E+00
.5000000E+03,.1000000E+01,.1500000E+01,.5000000E+03
-.5000000E+03,-.1000000E+01,-.1500000E+01,-.5000000E+03
-1,-1,0,-1
.0000000E+00,.5000000E+03,.0000000E+00,.0000000E+00
.1000000E+01,.5000000E+04,.5000000E+03,.1000000E+01
-.1000000E+01,-.5000000E+04,-.5000000E+03,-.1000000E+01
-1,0,-1,-1
0,0,0,0
0,0,0,0
0,0,0,0
-1,-1,-1,-1
0,0,0,0
0,0,0,0
0,0,0,0
-1,-1,-1,-1
0,0,0,0
0,0,0,0
0,0,0,0
-1,-1,-1,-1
1
2
.5140000E+03,.6137000E+04,.6350000E+00,.2105500E+01,.1972000E+01
.6471000E+03,.2206400E+05,.3440000E+00,.9200000E+00,.1400000E+01
.3514500E+03,.1013250E+03,.1000000E+00,.5000000E-01
.3651500E+03,.1013250E+03,.8000000E+00,.6000000E+00
4,2,1,1,1,7
)");
  EXPECT_EQ(peq::ToFitzText(s, t, 1, Punkte(), 7), expected);
}

TEST(FitFiles, AllPointsInactiveWritesACountOfZeroAndNoPointLine) {
  const peq::Session s = FitSession();
  std::vector<FitPunkt> pts = Punkte();
  for (auto& p : pts) p.Inaktiv = true;
  const std::string text = peq::ToFitText(s, NrtlTabelle(), 0, pts);
  EXPECT_NE(text.find("\r\n0\r\n0\r\n.4607000E+02\r\n"), std::string::npos);
  EXPECT_EQ(text.find(".3514500E+03"), std::string::npos);
}

TEST(FitFiles, ComponentBlockReadsBackWhatWasWritten) {
  const peq::Session s = FitSession();
  std::string text;
  peq::AppendComponentBlock(s, 1, text);
  peq::AppendComponentBlock(s, 2, text);
  peq::Session r;
  r.NKomp = 2;
  peq::AllocSession(r, 2);
  r.WilsonVFix = false;
  peq::ExchangeReader rd(text);
  peq::ReadComponentBlock(rd, r, 1);
  peq::ReadComponentBlock(rd, r, 2);
  EXPECT_TRUE(rd.AtEnd());
  EXPECT_EQ(r.TKrit[2], 647.1f);
  EXPECT_EQ(r.StoffData[1].QUniquac, 1.972f);
  EXPECT_EQ(r.ParRho[1][3], 0.27f);
  EXPECT_EQ(r.ParALP[1].B, 1648.22f);
  EXPECT_EQ(r.ParWAG[2][8], 22120.0f);
  EXPECT_EQ(r.P0Eq[2], "WAG");
  EXPECT_TRUE(r.WilsonVFix);
  EXPECT_EQ(r.VLiqCm3[2], 18.07f);
}

TEST(FitFiles, ComponentBlockWithUnknownEquationIsRefused) {
  peq::Session s = FitSession();
  s.P0Eq[1] = "XYZ";
  std::string text;
  peq::AppendComponentBlock(s, 1, text);
  peq::Session r;
  r.NKomp = 2;
  peq::AllocSession(r, 2);
  peq::ExchangeReader rd(text);
  EXPECT_THROW(peq::ReadComponentBlock(rd, r, 1), peq::ExchangeError);
}

const char* kFromFit = R"(  -121.5
0.25
1337.75
-0.5
0.001
0
0.002
0
0.3
0
0
0
0.05
0
-0.001
0
0
0
0
0
137
1.2345E-05
)";

TEST(FitFiles, FromFitIsReadInItsOrder) {
  peq::FitAntwort a;
  std::string err;
  ASSERT_TRUE(peq::ReadFitAntwort(Crlf(kFromFit), false, a, err)) << err;
  ASSERT_EQ(a.L.size(), 20u);
  EXPECT_EQ(a.L[0], -121.5);
  EXPECT_EQ(a.L[2], 1337.75);
  EXPECT_EQ(a.L[8], 0.3);
  EXPECT_EQ(a.L[12], 0.05);
  EXPECT_EQ(a.Iterationen, 137);
  EXPECT_EQ(a.Zielfunktion, 1.2345E-05);
}

TEST(FitFiles, FromFitzHoldsTwentyFourValues) {
  std::string text;
  for (int i = 1; i <= 24; ++i) text += std::to_string(i) + (i % 4 ? ", " : "\n");
  text += "20000\n.5E-3\n";
  peq::FitAntwort a;
  std::string err;
  ASSERT_TRUE(peq::ReadFitAntwort(text, true, a, err)) << err;
  ASSERT_EQ(a.L.size(), 24u);
  EXPECT_EQ(a.L[23], 24.0);
  EXPECT_EQ(a.Iterationen, 20000);
  EXPECT_EQ(a.Zielfunktion, 0.0005);
  // The same text read as FROM_FIT.DAT takes 20 values, then 21 as the count, 22 as the objective.
  ASSERT_TRUE(peq::ReadFitAntwort(text, false, a, err)) << err;
  EXPECT_EQ(a.Iterationen, 21);
}

TEST(FitFiles, ShortOrGarbledAnswerIsAReadFailure) {
  peq::FitAntwort a;
  a.Iterationen = 5;
  std::string err;
  std::string text = kFromFit;
  EXPECT_FALSE(peq::ReadFitAntwort(text.substr(0, text.find("137")), false, a, err));
  EXPECT_FALSE(err.empty());
  std::string garbled = text;
  garbled.replace(garbled.find("0.25"), 4, "0.2x");
  EXPECT_FALSE(peq::ReadFitAntwort(garbled, false, a, err));
  std::string fractional = text;
  fractional.replace(fractional.find("137"), 3, "1.5");
  EXPECT_FALSE(peq::ReadFitAntwort(fractional, false, a, err));
  EXPECT_FALSE(peq::ReadFitAntwort("", false, a, err));
  EXPECT_EQ(a.Iterationen, 5);  // untouched by a failed read
}

TEST(FitFiles, AnswerTextReadsBackExactly) {
  peq::FitAntwort a;
  for (int i = 0; i < 20; ++i) a.L.push_back(1.0 / (i + 3) - 0.1 * i);
  a.Iterationen = 19999;
  a.Zielfunktion = 3.0e-11 / 7.0;
  peq::FitAntwort b;
  std::string err;
  ASSERT_TRUE(peq::ReadFitAntwort(peq::FitAntwortText(a), false, b, err)) << err;
  EXPECT_EQ(b.L, a.L);
  EXPECT_EQ(b.Iterationen, 19999);
  EXPECT_EQ(b.Zielfunktion, a.Zielfunktion);
}

TEST(FitFiles, TwentyThousandIterationsWarnAndNineteenThousandNineHundredNinetyNineDoNot) {
  EXPECT_TRUE(peq::FitNichtKonvergiert(20000));
  EXPECT_TRUE(peq::FitNichtKonvergiert(20001));
  EXPECT_FALSE(peq::FitNichtKonvergiert(19999));
}

// ---- where the answer lands ----

peq::FitAntwort Antwort(int n) {
  peq::FitAntwort a;
  for (int i = 1; i <= n; ++i) a.L.push_back(10.0 * i + 0.5);
  return a;
}

TEST(FitMap, SlotsAreTheFirstTwelveValuesOfTheAnswer) {
  const auto v = peq::AntwortSlots(Antwort(20));
  for (int i = 0; i < 12; ++i) EXPECT_EQ(v[static_cast<std::size_t>(i)], 10.0 * (i + 1) + 0.5);
}

TEST(FitMap, AnswerLandsInGEParInTheSlotOrder) {
  peq::Session s = FitSession();
  peq::AntwortInGEPar(s, Antwort(20), false);
  EXPECT_EQ(s.GEPar(1, 1, 2), 10.5);  // L1
  EXPECT_EQ(s.GEPar(2, 1, 2), 20.5);  // L2
  EXPECT_EQ(s.GEPar(1, 2, 1), 30.5);  // L3
  EXPECT_EQ(s.GEPar(2, 2, 1), 40.5);  // L4
  EXPECT_EQ(s.GEPar(3, 1, 2), 50.5);  // L5
  EXPECT_EQ(s.GEPar(4, 2, 1), 80.5);  // L8
  EXPECT_EQ(s.GEPar(7, 1, 2), 130.5);  // L13, k(ij) a
  EXPECT_EQ(s.GEPar(10, 2, 1), 200.5);  // L20
  EXPECT_EQ(s.GEPar(11, 1, 2), 0.0);    // L21 not in FROM_FIT.DAT
  for (int n = 1; n <= 20; ++n) EXPECT_EQ(peq::GESlot(s, n, 1, 2), 10.0 * n + 0.5) << n;
}

TEST(FitMap, GammaPhiModelsGetTheKelvinUnit) {
  for (int16_t model : {1, 2, 9}) {
    peq::Session s = FitSession();
    s.GEModel = model;
    s.ParUnitWilson = 2;
    s.ParUnitNRTL = 0;
    s.ParUnitUNIQUAC = 1;
    peq::AntwortInGEPar(s, Antwort(20), false);
    EXPECT_EQ(model == 1 ? s.ParUnitWilson : model == 2 ? s.ParUnitNRTL : s.ParUnitUNIQUAC, peq::kUnitK);
  }
  // Redlich-Kister keeps its fixed dimensionless form; the phi-phi answer touches no unit code.
  peq::Session s = FitSession();
  s.GEModel = 4;
  peq::AntwortInGEPar(s, Antwort(20), false);
  EXPECT_EQ(s.ParUnitWilson, 2);
  EXPECT_EQ(s.ParUnitNRTL, 0);
  EXPECT_EQ(s.ParUnitUNIQUAC, 0);
  peq::Session z = FitSession();
  z.Konzept = true;
  z.GEModel = 2;
  peq::AntwortInGEPar(z, Antwort(24), true);
  EXPECT_EQ(z.ParUnitNRTL, 0);
  EXPECT_EQ(peq::GESlot(z, 24, 1, 2), 240.5);
}

TEST(FitMap, SlotsUsedByEachModel) {
  peq::Session s = FitSession();
  auto used = [&] {
    int n = 0;
    for (int i = 0; i < 12; ++i) n += peq::SlotGenutzt(s, i) ? 1 : 0;
    return n;
  };
  s.GEModel = 1;
  EXPECT_EQ(used(), 6);
  s.GEModel = 9;
  EXPECT_EQ(used(), 6);
  s.GEModel = 2;
  EXPECT_EQ(used(), 9);
  s.GEModel = 4;
  EXPECT_EQ(used(), 12);
  s.Konzept = true;
  s.MixRule = 2;
  EXPECT_EQ(used(), 3);  // k(1-2) a, b, c
  s.MixRule = 5;
  s.GEModelEOS = 9;
  EXPECT_EQ(used(), 6);
}

}  // namespace
