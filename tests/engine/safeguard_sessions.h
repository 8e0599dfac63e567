// Binaries of the bundled database set up as a new user would: Peng-Robinson with the van der
// Waals mixing rule (geometric mean) and k(ij) = 0, or ethanol/water with UNIFAC and the virial
// equation; and the p-x curve walk of the program for a point of comparison.
#pragma once

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "diagrams/catalogue_mixtures.h"
#include "diagrams/curve_fixture.h"
#include "diagrams/curve.h"
#include "models/eos_pure.h"
#include "session/session.h"
#include "substances/unifacfiles.h"
#include "support/fixtures.h"
#include "support/fuzzy.h"

namespace sgtest {

// CAS numbers of the components.
inline constexpr const char* kMethane = "74-82-8";
inline constexpr const char* kEthane = "74-84-0";
inline constexpr const char* kCO2 = "124-38-9";
inline constexpr const char* kHexane = "110-54-3";
inline constexpr const char* kButane = "106-97-8";
inline constexpr const char* kBenzene = "71-43-2";
inline constexpr const char* kToluene = "108-88-3";
inline constexpr const char* kEthanol = "64-17-5";
inline constexpr const char* kWater = "7732-18-5";

// Peng-Robinson, van der Waals rule (MixRule 2), k(ij) = 0; the safeguard as asked.
inline bool PR(peq::Session& s, const char* cas1, const char* cas2, bool safeguard) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {cas1, cas2})) return false;
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  s.GEModel = 0;
  cattest::FirstP0Equations(s);
  s.Safeguard = safeguard;
  return peq::EOSTabellenBerechnen(s);
}

// Ethanol(1)/water(2), UNIFAC (GEModel 21) with the virial equation (VapModel 1).
inline bool EthanolWaterUnifacVirial(peq::Session& s, bool safeguard) {
  if (!peqtest::LoadMixture(s, peqtest::BundledBankPath(), {kEthanol, kWater})) return false;
  s.Konzept = false;
  s.GEModel = 21;
  s.VapModel = 1;
  cattest::FirstP0Equations(s);
  peq::ChooseUnifacFiles(peqtest::BinaryDir(), s.ModUnifFile, s.OUnifFile);
  s.Safeguard = safeguard;
  return peq::EOSTabellenBerechnen(s);
}

// A feed or liquid of the binary.
inline peq::Vec<double> Binary(double x1, double x2) {
  peq::Vec<double> x(3, 0.0);
  x[1] = x1;
  x[2] = x2;
  return x;
}

// The bubble pressure at x2 of the program's p-x curve walk at T (diagram 1, steps of 1/40),
// from a fresh session made by make(); 0 when the walk has no point there.
template <class Make>
double PxCurvePoint(Make make, double T, double x2) {
  peq::Session s;
  if (!make(s)) return 0;
  s.TOffsetOut = 0;
  s.ConcUnit = 0;
  s.KurvenPunkte = 20;
  curvetest::Coords(s, 0, 1, 0, 100000);
  s.IsoArt = 1;
  s.GapAktiv = true;
  const curvetest::Drawn d = curvetest::Draw(s, 1, T, s.PIso);
  const peq::Kurve& k1 = d.k1;
  for (std::size_t i = 1; i < k1.size(); ++i)
    if (std::fabs(k1[i].x - x2) < 1e-6) return k1[i].y;
  return 0;
}

}  // namespace sgtest
