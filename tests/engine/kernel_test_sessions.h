// Sessions of the kernel tests, built by hand: critical data as in tests/models, vapour
// pressures as Antoine "ALP" records, liquid densities as Rackett-form records.
#pragma once

#include <cmath>

#include "models/eos_pure.h"
#include "models/eos_test_session.h"
#include "models/virial.h"
#include "session/constants.h"

namespace peqtest {

// Antoine lg(p/kPa) = A - B/(C + t/°C) from the natural-log constants of a published set.
inline void SetAntoineLn(peq::Session& s, int i, double A, double B, double C) {
  s.ParALP[i].A = static_cast<float>(A / peq::kLn10);
  s.ParALP[i].B = static_cast<float>(B / peq::kLn10);
  s.ParALP[i].C = static_cast<float>(C);
  s.ParALP[i].TLo = 200;
  s.ParALP[i].THi = 700;
  s.P0Eq[i] = "ALP";
}

inline void SetAntoineLg(peq::Session& s, int i, double A, double B, double C) {
  s.ParALP[i].A = static_cast<float>(A);
  s.ParALP[i].B = static_cast<float>(B);
  s.ParALP[i].C = static_cast<float>(C);
  s.ParALP[i].TLo = 200;
  s.ParALP[i].THi = 700;
  s.P0Eq[i] = "ALP";
}

// Density rho = r2/r3^(1 + (1 - T/r8)^r4) in kg/m^3 (r1 = 0 selects this form), from the
// DIPPR-105 constants A (kmol/m^3), B, C (K), D: r2 = A MW, r3 = B, r4 = D, r8 = C (Perry's
// Handbook 8th ed., Table 2-32).
inline void SetRackett(peq::Session& s, int i, double A, double B, double C, double D) {
  s.ParRho[i][1] = 0.0f;
  s.ParRho[i][2] = static_cast<float>(A * s.MolMasse[i]);
  s.ParRho[i][3] = static_cast<float>(B);
  s.ParRho[i][4] = static_cast<float>(D);
  s.ParRho[i][8] = static_cast<float>(C);
  s.ParRho[i].TLo = 150;
  s.ParRho[i].THi = 600;
}

// Benzene(1)/toluene(2): the SVNA Table B.2 Antoine constants of reference case 4
// (ln(p/kPa) = A - B/(t + C)), ideal mixture and ideal gas unless changed.
inline peq::Session BenzeneToluene() {
  peq::Session s = MakeSession({kBenzene, kToluene});
  SetAntoineLn(s, 1, 13.7819, 2726.81, 217.572);
  SetAntoineLn(s, 2, 13.9320, 3056.96, 217.625);
  SetRackett(s, 1, 1.0259, 0.26666, 562.05, 0.28394);
  SetRackett(s, 2, 0.8792, 0.27136, 591.75, 0.29241);
  s.GEModel = 0;
  s.VapModel = 0;
  return s;
}

// Ethanol(1)/water(2) with the NRTL parameters of reference case 6 (cal/mol, alpha 0.2974),
// Antoine constants of Poling et al. 5th ed. App. A (kPa), densities from Perry's DIPPR-105
// (water: a constant-density stand-in, 18.0153/996 m^3/kmol, by an r1 record).
inline peq::Session EthanolWater(int vapModel) {
  peq::Session s = MakeSession({kEthanol, kWater});
  SetAntoineLg(s, 1, 7.33675, 1648.22, 230.918);
  SetAntoineLg(s, 2, 7.11564, 1687.537, 230.17);
  SetRackett(s, 1, 1.6288, 0.27469, 514, 0.23178);
  s.ParRho[2][1] = 996.0f;  // rho = r1 (no T terms)
  s.ParRho[2][8] = 647.0f;
  s.ParRho[2].TLo = 273;
  s.ParRho[2].THi = 600;
  s.GEModel = 2;
  s.ParUnitNRTL = 1;
  SetSlot(s, 1, 1, 2, -121.2691);
  SetSlot(s, 4, 1, 2, 1337.8574);
  SetSlot(s, 7, 1, 2, 0.2974);
  s.VapModel = static_cast<int16_t>(vapModel);
  int16_t err = 0;
  peq::PairCrit(s, err);
  s.KritOK = (err == 0);
  if (vapModel >= 3) peq::EOSSetPure(s, vapModel, err);
  return s;
}

// A phi-phi session of the given components with the EOS model and mixing rule committed.
inline peq::Session PhiPhi(std::initializer_list<PureData> comps, int model, int rule, int ge = 2) {
  peq::Session s = MakeSession(comps);
  s.Konzept = true;
  s.EOSModel = static_cast<int16_t>(model);
  s.MixRule = static_cast<int16_t>(rule);
  s.GEModelEOS = static_cast<int16_t>(ge);
  int16_t err = 0;
  peq::EOSSetPure(s, model, err);
  return s;
}

// Every session array the kernel writes or reads is free of NaN and infinity.
inline bool SessionFinite(const peq::Session& s) {
  bool ok = AllFinite(s.Gamma) && AllFinite(s.PhiVMix) && AllFinite(s.PhiKorr) && AllFinite(s.KWert) &&
            AllFinite(s.YGas) && AllFinite(s.XLiq) && AllFinite(s.CompMat[0]) && AllFinite(s.CompMat[1]) &&
            AllFinite(s.P0) && AllFinite(s.VLiq) && AllFinite(s.Phi0);
  for (int k = 1; k <= 4; ++k) ok = ok && AllFinite(s.EOSPar[k]);
  for (std::size_t i = 0; i < s.BVir.size(); ++i)
    for (std::size_t j = 0; j < s.BVir.size(); ++j) ok = ok && std::isfinite(s.BVir(i, j));
  return ok;
}

}  // namespace peqtest
