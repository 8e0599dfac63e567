// Pair critical data and second virial coefficients.
#include "models/virial.h"

#include <cmath>

#include <gtest/gtest.h>

#include "models/pure_fixtures.h"
#include "support/fuzzy.h"

namespace {

using peq::Session;
namespace pf = peqtest::pure;

// Benzene (1) and n-hexane (2): IUPAC Tc, pc, Vc; PSRK omega.
Session BenzeneHexane() {
  Session s;
  pf::Make(s, {"Benzene", "n-Hexane"});
  return s;
}

// ---- PairCrit ----------------------------------------------------------------------------

TEST(PairCrit, BenzeneHexaneHandComputed) {
  // Tc12 = sqrt(562.05 * 507.6) = 534.131613 K
  // v1 = 78.1118/305.12 = 0.25600354, v2 = 86.1754/234.17 = 0.36800359 m^3/kmol
  // v1^(1/3) = 0.63496335, v2^(1/3) = 0.71661190, (sum)^3 = 1.35157525^3 = 2.46899773
  // pc1 v1/Tc1 = 4895*0.25600354/562.05 = 2.22958336, pc2 v2/Tc2 = 3025*0.36800359/507.6
  // = 2.19308678; pc12 = 4*534.131613*(2.22958336 + 2.19308678)/2.46899773 = 3827.1205 kPa
  // omega12 = (0.212 + 0.2975)/2 = 0.25475
  Session s = BenzeneHexane();
  int16_t err = 9;
  peq::PairCrit(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_REL(s.TcMix(1, 2), 534.131613, 1e-7);
  EXPECT_REL(s.PcMix(1, 2), 3827.1205, 1e-6);
  EXPECT_REL(s.OmegaMix(1, 2), 0.25475, 1e-6);
  EXPECT_EQ(s.TcMix(2, 1), s.TcMix(1, 2));
  EXPECT_EQ(s.PcMix(2, 1), s.PcMix(1, 2));
  EXPECT_EQ(s.OmegaMix(2, 1), s.OmegaMix(1, 2));
}

TEST(PairCrit, DiagonalHoldsThePureComponentsData) {
  Session s;
  pf::Make(s, {"Benzene", "n-Hexane", "Water"});
  int16_t err = 9;
  peq::PairCrit(s, err);
  EXPECT_EQ(err, 0);
  for (int i = 1; i <= 3; ++i) {
    EXPECT_REL(s.TcMix(i, i), s.TKrit[i], 1e-12);
    EXPECT_REL(s.PcMix(i, i), s.PKrit[i], 1e-12);
    EXPECT_REL(s.OmegaMix(i, i), s.Omega[i], 1e-12);
  }
}

TEST(PairCrit, MissingCriticalDensityStopsWithErr) {
  Session s;
  pf::Make(s, {"Benzene", "n-Hexane", "Water"});
  s.RhoKrit[2] = 0;
  int16_t err = 0;
  peq::PairCrit(s, err);
  EXPECT_EQ(err, -1);
  // Pair (1,1) done; at (1,2) the walk stops after Tc(1,2); the rest is untouched.
  EXPECT_REL(s.PcMix(1, 1), 4895, 1e-12);
  EXPECT_REL(s.TcMix(1, 2), 534.131613, 1e-7);
  EXPECT_EQ(s.PcMix(1, 2), 0.0);
  EXPECT_EQ(s.TcMix(3, 3), 0.0);
}

TEST(PairCrit, FaultLeavesTheMatricesAsTheyStood) {
  Session s = BenzeneHexane();
  s.TKrit[2] = 0;  // pc2 v2/Tc2: a division by zero
  s.TcMix(1, 1) = 7;
  int16_t err = 0;
  peq::PairCrit(s, err);
  EXPECT_EQ(err, -1);
  EXPECT_EQ(s.TcMix(1, 1), 7.0);
  EXPECT_EQ(s.PcMix(1, 1), 0.0);
}

TEST(PairCrit, NoComponentsReturnsAtOnce) {
  Session s;
  int16_t err = 5;
  peq::PairCrit(s, err);
  EXPECT_EQ(err, 0);
  EXPECT_EQ(s.TcMix.size(), 0u);
}

// ---- SecondVirial ------------------------------------------------------------------------

Session WithPairData(int16_t vapModel) {
  Session s = BenzeneHexane();
  int16_t err = 0;
  peq::PairCrit(s, err);
  s.VapModel = vapModel;
  return s;
}

TEST(SecondVirial, PitzerCurlHandComputed) {
  // Pair (1,2) at 350 K without k(ij): x = 534.131613/350 = 1.52609032,
  // f0 = 0.1445 - 0.33 x - 0.1385 x^2 - 0.0121 x^3 = 0.1445 - 0.50360981 - 0.32255981
  //      - 0.04300571 = -0.72467532
  // f1 = 0.073 + 0.46 x - 0.5 x^2 - 0.097 x^3 - 0.0073 x^8 = 0.073 + 0.70200155 - 1.16447584
  //      - 0.34475649 - 0.21476562 = -0.94899640
  // B12 = (f0 + 0.25475 f1) * 8.31451 * 534.131613/3827.1205 = -1.12146101 m^3/kmol
  // Benzene alone: x = 562.05/350 = 1.60585714, B11 = -1.00009832 m^3/kmol.
  Session s = WithPairData(1);
  EXPECT_EQ(peq::SecondVirial(s, 350.0), 0);
  EXPECT_REL(s.BVir(1, 2), -1.12146101, 1e-6);
  EXPECT_REL(s.BVir(1, 1), -1.00009832, 1e-6);
  EXPECT_EQ(s.BVir(2, 1), s.BVir(1, 2));
}

TEST(SecondVirial, KijOfFourTermsScalesThePairCriticalPoint) {
  // k = a + b/T + c ln T + d (T - 273.15) with a = GEPar(7,1,2) = 0.01, b = GEPar(8,1,2) = 2,
  // c = GEPar(7,2,1) = 0.001, d = GEPar(8,2,1) = 1E-5: at 350 K
  // k = 0.01 + 0.00571429 + 0.00585793 + 0.00076850 = 0.02234072.
  // Tc = (1 - k) 534.131613 = 522.198716, pc = (1 - k) 3827.1205; x = 1.49199635,
  // f0 = -0.69635445, f1 = -0.85512319, B12 = -1.06084673 m^3/kmol.
  Session s = WithPairData(2);
  s.GEPar(7, 1, 2) = 0.01;
  s.GEPar(8, 1, 2) = 2;
  s.GEPar(7, 2, 1) = 0.001;
  s.GEPar(8, 2, 1) = 1e-5;
  EXPECT_EQ(peq::SecondVirial(s, 350.0), 0);
  EXPECT_REL(s.BVir(1, 2), -1.06084673, 1e-6);
  EXPECT_EQ(s.BVir(2, 1), s.BVir(1, 2));
  EXPECT_REL(s.BVir(1, 1), -1.00009832, 1e-6);  // the diagonal has no k
}

TEST(SecondVirial, DoesNothingUnlessVirialModel) {
  for (int16_t model : {0, 3, 4, 5}) {
    Session s = WithPairData(model);
    s.BVir(1, 2) = 42;
    EXPECT_EQ(peq::SecondVirial(s, 350.0), 0);
    EXPECT_EQ(s.BVir(1, 2), 42.0);
  }
}

TEST(SecondVirial, FaultLeavesBVirAsItStood) {
  Session s = WithPairData(1);
  s.BVir(1, 1) = 42;
  s.PcMix(2, 2) = 0;  // R Tc/pc: a division by zero at the last pair
  EXPECT_EQ(peq::SecondVirial(s, 350.0), -1);
  EXPECT_EQ(s.BVir(1, 1), 42.0);
  EXPECT_EQ(s.BVir(1, 2), 0.0);
}

TEST(SecondVirial, NonPositiveOrNaNTFails) {
  Session s = WithPairData(1);
  for (double T : {0.0, -10.0, std::nan("")}) {
    EXPECT_EQ(peq::SecondVirial(s, T), -1) << T;
    EXPECT_EQ(s.BVir(1, 1), 0.0);
  }
}

TEST(SecondVirial, RecordOfZerosFails) {
  Session s;
  peq::AllocSession(s, 1);
  s.NKomp = 1;
  s.VapModel = 1;
  EXPECT_EQ(peq::SecondVirial(s, 350.0), -1);  // pc(1,1) = 0
  EXPECT_EQ(s.BVir(1, 1), 0.0);
}

TEST(SecondVirial, NoComponentsReturnsAtOnce) {
  Session s;
  s.VapModel = 1;
  EXPECT_EQ(peq::SecondVirial(s, 350.0), 0);
  EXPECT_EQ(s.BVir.size(), 0u);
}

}  // namespace
