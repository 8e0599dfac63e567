// Sessions and tables of the fitting tests, built by hand.
#pragma once

#include <vector>

#include "companions/fitfiles.h"
#include "companions/fitmap.h"
#include "engine/safeguard.h"
#include "session/session.h"

namespace peqtest {

// Ethanol(1)/water(2) for the gamma-phi fit: critical data of the shared data set, Antoine
// constants of Poling et al. 5th ed. App. A (lg kPa, °C), a Rackett-form density for ethanol and a
// constant one for water, WILSON volumes; NRTL in kelvin, ideal gas.
inline peq::Session EthanolWaterFit() {
  peq::Session s;
  s.NKomp = 2;
  peq::AllocSession(s, 2);
  const double mw[3] = {0, 46.0684, 18.0153}, tc[3] = {0, 514, 647.096}, pc[3] = {0, 6137, 22064};
  const double rc[3] = {0, 274.22, 322}, om[3] = {0, 0.635, 0.344};
  const double A[3] = {0, 7.33675, 7.11564}, B[3] = {0, 1648.22, 1687.537}, C[3] = {0, 230.918, 230.17};
  for (int i = 1; i <= 2; ++i) {
    s.MolMasse[i] = static_cast<float>(mw[i]);
    s.TKrit[i] = static_cast<float>(tc[i]);
    s.PKrit[i] = static_cast<float>(pc[i]);
    s.RhoKrit[i] = static_cast<float>(rc[i]);
    s.Omega[i] = static_cast<float>(om[i]);
    s.P0Eq[i] = "ALP";
    s.ParALP[i].A = static_cast<float>(A[i]);
    s.ParALP[i].B = static_cast<float>(B[i]);
    s.ParALP[i].C = static_cast<float>(C[i]);
    if (s.TKrit[i] > s.TKritMax) s.TKritMax = s.TKrit[i];
    if (s.PKrit[i] > s.PKritMax) s.PKritMax = s.PKrit[i];
  }
  s.StoffData[1].RUniquac = 2.1055f;
  s.StoffData[1].QUniquac = 1.972f;
  s.StoffData[2].RUniquac = 0.92f;
  s.StoffData[2].QUniquac = 1.4f;
  s.ParRho[1][2] = 75.03f;  // 1.6288 kmol/m^3 * 46.0684 (Perry's DIPPR-105)
  s.ParRho[1][3] = 0.27469f;
  s.ParRho[1][4] = 0.23178f;
  s.ParRho[1][8] = 514;
  s.ParRho[2][1] = 996;
  s.ParRho[2][8] = 647;
  s.VLiqCm3[1] = 58.68f;
  s.VLiqCm3[2] = 18.07f;
  s.AlleVWilson = true;
  s.AlleOmega = true;
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  s.VapModel = 0;
  return s;
}

// The window's start table: a 500, b and c 0 with their limits; NRTL's alpha 0.3 (-1.5 to 1.5).
inline peq::FitTabelle StartTabelle(bool nrtl) {
  peq::FitTabelle t;
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
  if (nrtl) {
    t.Start[6] = 0.3f;
    t.Unten[6] = -1.5f;
    t.Oben[6] = 1.5f;
  }
  return t;
}

// Points made by the engine from the parameters now in s: for each T and x2L the bubble
// pressure and vapour composition (no noise). Fails the test when a bubble point fails.
inline std::vector<peq::FitPunkt> EnginePoints(peq::Session& s, const std::vector<double>& Ts,
                                               const std::vector<double>& xs) {
  std::vector<peq::FitPunkt> pts;
  peq::Vec<double> x(3, 0.0), y0(3, 0.0), g(3, 0.0), phik(3, 0.0), K(3, 0.0);
  for (double T : Ts)
    for (double x2 : xs) {
      x[1] = 1 - x2;
      x[2] = x2;
      double vL = 0, vV = 0;
      const double p = peq::SafeBubbleP(s, T, x, 0.0, y0, g, phik, K, vL, vV);
      if (!(p > 0)) return {};
      pts.push_back({T, p, x2, s.YGas[2], false});
    }
  return pts;
}

}  // namespace peqtest
