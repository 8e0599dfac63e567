// Real binary mixtures of the bundled database with their models, for the catalogue and the
// diagram input window: ethanol/water and acetone/methanol with NRTL (gamma-phi, ideal gas),
// CO2/n-butane with Peng-Robinson (phi-phi).
#pragma once

#include <gtest/gtest.h>

#include "models/eos_pure.h"
#include "session/session.h"
#include "support/fixtures.h"

namespace cattest {

// NRTL slots of the pair (1, 2) in the order of the parameter list: L1 = A12, L4 = A21 in
// cal/mol (ParUnitNRTL 1), L7 = alpha.
inline void SetNRTL(peq::Session& s, double a12, double a21, double alpha) {
  const auto slot = [&s](int L, double v) {
    const int g = (L - 1) / 4, pos = (L - 1) % 4;
    const int k = 2 * g + 1 + (pos % 2);
    if (pos < 2)
      s.GEPar(k, 1, 2) = v;
    else
      s.GEPar(k, 2, 1) = v;
  };
  s.GEModel = 2;
  s.ParUnitNRTL = 1;
  slot(1, a12);
  slot(4, a21);
  slot(7, alpha);
}

// The vapour-pressure equation the model window offers first for each component (WAGNER,
// FROST/KALKWARF, ANTOINE low-p, ANTOINE high-p, AUGUST).
inline void FirstP0Equations(peq::Session& s) {
  for (int i = 1; i <= s.NKomp; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    if (s.ParWAG[k].TLo > 1e-6)
      s.P0Eq[k] = "WAG";
    else if (s.ParFRO[k].TLo != 0)
      s.P0Eq[k] = "FRO";
    else if (s.ParALP[k].TLo > 1e-6)
      s.P0Eq[k] = "ALP";
    else if (s.ParAHP[k].TLo > 1e-6)
      s.P0Eq[k] = "AHP";
    else
      s.P0Eq[k] = "AUG";
  }
}

// Ethanol(1)/water(2), NRTL of the reference case (A12 = -121.2691, A21 = 1337.8574 cal/mol,
// alpha = 0.2974), ideal gas.
inline bool EthanolWater(peq::Session& s) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"64-17-5", "7732-18-5"})) return false;
  s.Konzept = false;
  SetNRTL(s, -121.2691, 1337.8574, 0.2974);
  s.VapModel = 0;
  FirstP0Equations(s);
  return true;
}

// Acetone(1)/methanol(2), NRTL A12 = 184.2662, A21 = 226.558 cal/mol, alpha = 0.3009 (DECHEMA
// Chemistry Data Series Vol. I Part 2c p. 78, isobaric set at 1 atm), ideal gas.
inline bool AcetoneMethanol(peq::Session& s) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"67-64-1", "67-56-1"})) return false;
  s.Konzept = false;
  SetNRTL(s, 184.2662, 226.558, 0.3009);
  s.VapModel = 0;
  FirstP0Equations(s);
  return true;
}

// CO2(1)/n-butane(2), Peng-Robinson with the van der Waals mixing rule, k12 = 0.1352 (DECHEMA
// Chemistry Data Series Vol. VI, Knapp et al. 1982, p. 607).
inline bool CO2Butane(peq::Session& s) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {"124-38-9", "106-97-8"})) return false;
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  s.GEModel = 0;
  FirstP0Equations(s);
  s.GEPar(1, 1, 2) = 0.1352;  // L1 = k(1,2)
  return peq::EOSTabellenBerechnen(s);
}

}  // namespace cattest
