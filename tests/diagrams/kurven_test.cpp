// The texts of the curve tracer's helpers and the number patterns they use.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "diagrams/curve_fixture.h"
#include "diagrams/kurven.h"
#include "models/vappressure.h"
#include "support/fuzzy.h"

using peq::FormatZahl;

// The patterns of the status-line texts, by hand: '#' shows a digit only when it carries one,
// '0' always; decimals rounded half away from zero; trailing '#' decimals drop their zeros.
TEST(FormatZahl, HashPatternsDropLeadingZeroAndOptionalDecimals) {
  EXPECT_EQ(FormatZahl(343.15, "####.00"), "343.15");
  EXPECT_EQ(FormatZahl(0.5, "####.00"), ".50");
  EXPECT_EQ(FormatZahl(12345.678, "####.00"), "12345.68");
  EXPECT_EQ(FormatZahl(101.325, "########.0##"), "101.325");
  EXPECT_EQ(FormatZahl(72.3, "########.0##"), "72.3");
  EXPECT_EQ(FormatZahl(72.0, "########.0##"), "72.0");
  EXPECT_EQ(FormatZahl(1.23456789, "#.0######"), "1.2345679");
  EXPECT_EQ(FormatZahl(0.0123, "#.0######"), ".0123");
  EXPECT_EQ(FormatZahl(351.4567, "####.0#"), "351.46");
  EXPECT_EQ(FormatZahl(351.4, "####.0#"), "351.4");
  EXPECT_EQ(FormatZahl(343.15, "####.0"), "343.2");
  EXPECT_EQ(FormatZahl(101.325, "##########.00#"), "101.325");
  EXPECT_EQ(FormatZahl(2.5, "#####.0##"), "2.5");
  EXPECT_EQ(FormatZahl(0.98, "###.000##"), ".980");
  EXPECT_EQ(FormatZahl(0.98123456, "###.000##"), ".98123");
}

TEST(FormatZahl, ZeroPatternKeepsItsDigitsAndSign) {
  EXPECT_EQ(FormatZahl(0.11823, "0.0000"), "0.1182");
  EXPECT_EQ(FormatZahl(0.0, "0.0000"), "0.0000");
  EXPECT_EQ(FormatZahl(1.0, "0.0000"), "1.0000");
  EXPECT_EQ(FormatZahl(-1.25, "####.0#"), "-1.25");
  EXPECT_EQ(FormatZahl(-0.5, "####.00"), "-.50");
  EXPECT_EQ(FormatZahl(0.00005, "0.0000"), "0.0001");  // half away from zero
  EXPECT_EQ(FormatZahl(std::nan(""), "0.0000"), "");
}

// Benzene/toluene at 363.15 K (90 °C): both below T(cr); p0 from the session's Antoine equations.
TEST(SiedeText, ListsPureVapourPressuresOfThePairInCelsius) {
  peq::Session s = peqtest::BenzeneToluene();
  std::string k;
  peq::SiedeText(s, 363.15, 1, 2, k);
  std::string c1 = "ALP", c2 = "ALP";
  int16_t dT = 0;
  const double p1 = peq::VapPressure(s, 1, 363.15, c1, false, dT);
  const double p2 = peq::VapPressure(s, 2, 363.15, c2, false, dT);
  EXPECT_EQ(k, "pure-substance vapour pressures at t/°C = 90.00     p0,1/kPa = " + FormatZahl(p1, "########.0##") +
                   "     p0,2/kPa = " + FormatZahl(p2, "########.0##"));
  // SVNA Table B.2 Antoine constants give about 136 kPa for benzene and 54 kPa for toluene.
  EXPECT_NEAR(p1, 136.1, 0.5);
  EXPECT_NEAR(p2, 54.2, 0.5);
}

TEST(SiedeText, KelvinWithOffsetZeroAndSmallPressuresInTheFinePattern) {
  peq::Session s = peqtest::BenzeneToluene();
  s.TOffsetOut = 0;
  std::string k;
  peq::SiedeText(s, 250.0, 1, 2, k);
  std::string c = "ALP";
  int16_t dT = 0;
  const double p1 = peq::VapPressure(s, 1, 250.0, c, false, dT);
  ASSERT_LT(p1, 9.999);
  EXPECT_EQ(k.rfind("pure-substance vapour pressures at T/K = 250.00     p0,1/kPa = " + FormatZahl(p1, "#.0######"), 0),
            0u)
      << k;
}

TEST(SiedeText, ComponentAboveItsCriticalTemperatureIsLeftOut) {
  peq::Session s = peqtest::BenzeneToluene();
  std::string k;
  peq::SiedeText(s, 570.0, 1, 2, k);  // above T(cr) of benzene (562.05 K), below toluene's
  EXPECT_EQ(k.find("p0,1"), std::string::npos);
  EXPECT_NE(k.find("     p0,2/kPa = "), std::string::npos);
}

TEST(SiedeTextP, ListsBoilingTemperaturesAtP) {
  peq::Session s = peqtest::BenzeneToluene();
  std::string k;
  peq::SiedeTextP(s, 101.325, 1, 2, k);
  std::string c = "ALP";
  int16_t dT = 0, err = 0;
  const double t1 = peq::BoilingTAtP(s, 1, 101.325, c, false, dT, err) - 273.15;
  const double t2 = peq::BoilingTAtP(s, 2, 101.325, c, false, dT, err) - 273.15;
  EXPECT_EQ(k, "pure-substance boiling temp. at p/kPa =  101.33     T0,1/°C = " + FormatZahl(t1, "####.0#") +
                   "     T0,2/°C = " + FormatZahl(t2, "####.0#"));
  // Normal boiling points 80.1 °C and 110.6 °C.
  EXPECT_NEAR(t1, 80.1, 0.2);
  EXPECT_NEAR(t2, 110.6, 0.2);
  s.TOffsetOut = 0;
  peq::SiedeTextP(s, 101.325, 1, 2, k);
  EXPECT_NE(k.find("T0,1/K = 353."), std::string::npos) << k;
}

TEST(KritMax, LargestCriticalDataAndTheirNotesInAnIsobaricDiagram) {
  peq::Session s = peqtest::BenzeneToluene();
  s.IsoArt = 2;
  curvetest::Coords(s, 0, 1, 50, 350);  // °C: T(cr) of toluene 318.6 °C lies inside
  double tc = 0, pc = 0;
  int16_t k = 0;
  peq::MsgSink m;
  peq::KritMax(s, 1, 2, tc, pc, k, &m);
  EXPECT_DOUBLE_EQ(tc, s.TKrit[2]);
  EXPECT_DOUBLE_EQ(pc, s.PKrit[1]);
  EXPECT_EQ(k, 2);
  ASSERT_EQ(m.size(), 1u);
  EXPECT_EQ(m[0].title, "Note");
  EXPECT_EQ(m[0].text, "Advice: Add marker T(cr) to have a better orientation");
  m.clear();
  curvetest::Coords(s, 0, 1, 4000, 5000);  // p(cr) of benzene 4895 kPa inside
  peq::KritMax(s, 1, 2, tc, pc, k, &m);
  ASSERT_EQ(m.size(), 1u);
  EXPECT_EQ(m[0].text, "Advice: Add marker p(cr) to have a better orientation");
}

TEST(KritMax, NoNoteOutsideTheIsobaricDiagram) {
  peq::Session s = peqtest::BenzeneToluene();
  s.IsoArt = 1;
  curvetest::Coords(s, 0, 1, 50, 350);
  double tc = 0, pc = 0;
  int16_t k = 0;
  peq::MsgSink m;
  peq::KritMax(s, 2, 1, tc, pc, k, &m);
  EXPECT_TRUE(m.empty());
  EXPECT_EQ(k, 2);
}
