// Hand-built mixtures for the pure-property tests and benchmarks: the rows below are copied from
// the curated tables of pure-component data (substances, antoine, wagner, dippr101, dippr105,
// dippr106; assembled from the CalebBell/chemicals data files, which cite Poling et al. 5th ed.
// App. A, the VDI Heat Atlas 2nd ed., Perry's Handbook 8th ed. Tables 2-8, 2-32 and 2-150, IUPAC
// critical data). Units as in those tables: mw kg/kmol, tc K, pc kPa, rhoc kg/m^3; Antoine
// lg(p/kPa) = A - B/(C + t/degC); Wagner 2.5-5 form; DIPPR-101 ln(p/Pa) = A + B/T + C ln T + D T^E;
// DIPPR-105 rho = A/B^(1 + (1 - T/C)^D) in mol/dm^3; DIPPR-106 in J/kmol.
//
// Fill() maps them into the session as the bundled database does:
//   ANTOINE  -> ParALP (A, B, C; limits rounded to whole K)
//   WAGNER   -> ParWAG slots 1..8 = A1, A2, A3, n3, A4, n4, A5, n5; 9 = Tc; 10 = pc
//   DIPPR-101 -> FROST: C = 273.15, A = (A101 - ln 1000)/ln 10, B = B101/ln 10, D = C101,
//               E = F = G = 0, H = D101/ln 10, I = E101
//   DIPPR-105 -> ParRho Rackett form: r1 = 0, r2 = A*M (kg/m^3), r3 = B, r4 = D, r8 = C
//   DIPPR-106 -> ParLVH: a0 = A/1000 (J/mol), a1 = 0, a2..a5 = B..E, slot 6 = Tc
#pragma once

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <string>

#include "session/numeric.h"
#include "session/session.h"

namespace peqtest::pure {

struct AntoineRow {
  double A, B, C, tlo, thi;
};
struct WagnerRow {
  double A1, A2, A3, n3, A4, n4, A5, n5, tc, pc, tlo, thi;
};
struct D101Row {
  double A, B, C, D, E, tlo, thi;
};
struct D105Row {
  double A, B, C, D, tlo, thi;
};
struct D106Row {
  double A, B, C, D, E, tc, tlo, thi;
};
struct Row {
  const char* name;
  const char* cas;
  double mw, tc, pc, rhoc, omega, tb;
  AntoineRow ant;
  WagnerRow wag;
  D101Row d101;
  D105Row d105;  // all zero: no set (water)
  D106Row d106;
};

// clang-format off
inline constexpr Row kRows[] = {
    {"Water", "7732-18-5", 18.0153, 647.096, 22064, 322.00, 0.344, 373.124,
     {7.11564, 1687.537, 230.17, 273.2, 473.2},
     {-7.86975, 1.90561, -2.30891, 2.5, -2.06472, 5, 0, 0, 647.1, 22064, 273.15, 647.1},
     {73.649, -7258.2, -7.3037, 4.1653e-06, 2, 273.16, 647.096},
     {},
     {52053000, 0.3199, -0.212, 0.25795, 0, 647.096, 273.16, 647.096}},
    {"Ethanol", "64-17-5", 46.0684, 514, 6137, 274.22, 0.635, 351.39,
     {7.33675, 1648.22, 230.918, 276.5, 369.54},
     {-8.68587, 1.17831, -4.8762, 2.5, 1.588, 5, 0, 0, 513.92, 6132, 159.05, 513.92},
     {73.304, -7122.3, -7.1424, 2.8853e-06, 2, 159.05, 514},
     {1.6288, 0.27469, 514, 0.23178, 159.05, 514},
     {55789000, 0.31245, 0, 0, 0, 514, 159.05, 514}},
    {"Benzene", "71-43-2", 78.1118, 562.05, 4895, 305.12, 0.212, 353.23,
     {5.98523, 1184.24, 217.572, 279.64, 377.06},
     {-7.01433, 1.55256, -1.8479, 2.5, -3.713, 5, 0, 0, 562.16, 4898, 278.68, 562.16},
     {83.107, -6486.2, -9.2194, 6.9844e-06, 2, 278.68, 562.05},
     {1.0259, 0.26666, 562.05, 0.28394, 278.68, 562.05},
     {45346000, 0.39053, 0, 0, 0, 562.05, 278.68, 562.05}},
    {"n-Hexane", "110-54-3", 86.1754, 507.6, 3025, 234.17, 0.2975, 341.87,
     {6.00139, 1170.875, 224.317, 254.24, 365.25},
     {-7.53998, 1.83759, -2.5438, 2.5, -3.163, 5, 0, 0, 507.9, 3035, 177.83, 507.9},
     {104.65, -6995.5, -12.702, 1.2381e-05, 2, 177.83, 507.6},
     {0.70824, 0.26411, 507.6, 0.27537, 177.83, 507.6},
     {44544000, 0.39002, 0, 0, 0, 507.6, 177.83, 507.6}},
    {"Methanol", "67-56-1", 32.0419, 512.5, 8084, 273.86, 0.559, 337.65,
     {7.20277, 1580.08, 239.5, 262.59, 356},
     {-8.63571, 1.17982, -2.479, 2.5, -1.024, 5, 0, 0, 512.64, 8092, 175.47, 512.64},
     {82.718, -6904.5, -8.8622, 7.4664e-06, 2, 175.47, 512.5},
     {2.3267, 0.27073, 512.5, 0.24713, 175.47, 512.5},
     {50451000, 0.33594, 0, 0, 0, 512.5, 175.47, 512.5}},
    {"Acetone", "67-64-1", 58.0791, 508.1, 4700, 272.67, 0.309, 329.23,
     {6.2184, 1197.01, 228.06, 247.38, 350.65},
     {-7.55098, 1.60784, -1.9944, 2.5, -3.2002, 5, 0, 0, 508.1, 4702, 178.45, 508.1},
     {69.006, -5599.6, -7.0985, 6.2237e-06, 2, 178.45, 508.2},
     {1.2332, 0.25886, 508.2, 0.2913, 178.45, 508.2},
     {42150000, 0.3397, 0, 0, 0, 508.2, 178.45, 508.2}},
    {"Toluene", "108-88-3", 92.1384, 591.75, 4108, 291.58, 0.257, 383.75,
     {6.05043, 1327.62, 217.625, 286.44, 409.61},
     {-7.316, 1.59425, -1.93165, 2.5, -3.7222, 5, 0, 0, 591.8, 4106, 178.18, 591.8},
     {76.945, -6729.8, -8.179, 5.3017e-06, 2, 178.18, 591.75},
     {0.8792, 0.27136, 591.75, 0.29241, 178.18, 591.75},
     {49507000, 0.37742, 0, 0, 0, 591.75, 178.18, 591.75}},
    {"n-Heptane", "142-82-5", 100.2019, 540.2, 2740, 234.12, 0.3457, 371.53,
     {6.02023, 1263.909, 216.432, 277.71, 396.53},
     {-7.75469, 1.84795, -2.80333, 2.5, -3.62418, 5, 0, 0, 541.23, 2774, 182.55, 541.23},
     {87.829, -6996.4, -9.8802, 7.2099e-06, 2, 182.57, 540.2},
     {0.61259, 0.26211, 540.2, 0.28141, 182.57, 540.2},
     {50014000, 0.38795, 0, 0, 0, 540.2, 182.57, 540.2}},
    {"Cyclohexane", "110-82-7", 84.1595, 553.8, 4080, 273.25, 0.213, 353.85,
     {5.93002, 1182.774, 220.618, 282.11, 378.46},
     {-7.00979, 1.57475, -1.9682, 2.5, -3.26095, 5, 0, 0, 553.6, 4075, 279.65, 553.6},
     {51.087, -5226.4, -4.2278, 9.7554e-18, 6, 279.69, 553.8},
     {0.88998, 0.27376, 553.8, 0.28571, 279.69, 553.8},
     {44902000, 0.39881, 0, 0, 0, 553.8, 279.69, 553.8}},
    {"1-Propanol", "71-23-8", 60.0950, 536.8, 5169, 275.67, 0.624, 370.19,
     {6.99991, 1512.94, 205.807, 293.19, 389.32},
     {-8.53706, 1.96214, -7.6918, 2.5, 2.945, 5, 0, 0, 536.78, 5168, 146.95, 536.78},
     {84.6642, -8307.2, -8.5767, 7.5091e-18, 6, 146.95, 536.8},
     {1.2457, 0.27281, 536.8, 0.23994, 146.95, 536.8},
     {68988000, 0.6458, -0.5384, 0.3317, 0, 536.8, 146.95, 536.8}},
    {"Chloroform", "67-66-3", 119.3776, 536.2, 5330, 489.25, 0.216, 334.35,
     {5.96288, 1106.904, 218.552, 250.1, 356.89},
     {-7.32485, 1.69599, -0.93627, 2.5, -5.8959, 5, 0, 0, 536.45, 5554, 209.65, 536.45},
     {146.43, -7792.3, -20.614, 0.024578, 1, 207.15, 536.4},
     {1.0841, 0.2581, 536.4, 0.2741, 209.63, 536.4},
     {41860000, 0.3584, 0, 0, 0, 536.4, 209.63, 536.4}},
    {"Ethyl acetate", "141-78-6", 88.1051, 523.3, 3870, 308.06, 0.363, 350.25,
     {6.13361, 1195.13, 212.47, 265.5, 372.51},
     {-7.89734, 2.16798, -3.5239, 2.5, -3.10641, 5, 0, 0, 523.2, 3830, 189.65, 523.2},
     {66.824, -6227.6, -6.41, 1.7914e-17, 6, 189.6, 523.3},
     {0.8996, 0.25856, 523.3, 0.278, 189.6, 523.3},
     {49330000, 0.3847, 0, 0, 0, 523.3, 189.6, 523.3}},
};
// clang-format on

// Ten liquids with every set, for mixtures of up to ten components.
inline constexpr const char* kTen[] = {"Ethanol",   "Benzene",    "n-Hexane",   "Methanol",
                                       "Acetone",   "Toluene",    "n-Heptane",  "Cyclohexane",
                                       "1-Propanol", "Chloroform"};

inline const Row& Find(const char* name) {
  for (const Row& r : kRows)
    if (std::strcmp(r.name, name) == 0) return r;
  return kRows[0];
}

inline constexpr double kLn10 = 2.302585092994046;

inline int16_t WholeK(double t) { return peq::CInt(t); }

// Component i of s from the row. The caller has run AllocSession; P0Eq is left blank.
inline void Fill(peq::Session& s, int i, const Row& r) {
  s.StoffData[i].Name = r.name;
  s.StoffData[i].CasNr = r.cas;
  s.StoffData[i].TSiedeDb = static_cast<float>(r.tb);
  s.MolMasse[i] = peq::Round4(r.mw);
  s.TKrit[i] = peq::Round4(r.tc);
  s.PKrit[i] = peq::Round4(r.pc);
  s.RhoKrit[i] = static_cast<float>(r.rhoc);
  s.Omega[i] = static_cast<float>(r.omega);
  s.TSiede[i] = static_cast<float>(r.tb);

  peq::ParAntoine& a = s.ParALP[i];
  a.A = static_cast<float>(r.ant.A);
  a.B = static_cast<float>(r.ant.B);
  a.C = static_cast<float>(r.ant.C);
  a.TLo = WholeK(r.ant.tlo);
  a.THi = WholeK(r.ant.thi);

  peq::ParWagner& w = s.ParWAG[i];
  const double wv[] = {r.wag.A1, r.wag.A2, r.wag.A3, r.wag.n3, r.wag.A4,
                       r.wag.n4, r.wag.A5, r.wag.n5, r.wag.tc, r.wag.pc};
  for (int k = 0; k < 10; ++k) w[k + 1] = static_cast<float>(wv[k]);
  w.TLo = WholeK(r.wag.tlo);
  w.THi = WholeK(r.wag.thi);

  peq::ParFrost& f = s.ParFRO[i];
  f[1] = static_cast<float>((r.d101.A - std::log(1000.0)) / kLn10);
  f[2] = static_cast<float>(r.d101.B / kLn10);
  f[3] = 273.15f;
  f[4] = static_cast<float>(r.d101.C);
  f[5] = f[6] = f[7] = 0;
  f[8] = static_cast<float>(r.d101.D / kLn10);
  f[9] = static_cast<float>(r.d101.E);
  f.TLo = WholeK(r.d101.tlo);
  f.THi = WholeK(r.d101.thi);

  peq::ParDensity& d = s.ParRho[i];
  if (r.d105.A != 0) {
    d[1] = 0;
    d[2] = static_cast<float>(r.d105.A * r.mw);
    d[3] = static_cast<float>(r.d105.B);
    d[4] = static_cast<float>(r.d105.D);
    d[8] = static_cast<float>(r.d105.C);
    d.TLo = WholeK(r.d105.tlo);
    d.THi = WholeK(r.d105.thi);
  }

  peq::ParEnthalpy& h = s.ParLVH[i];
  h[0] = static_cast<float>(r.d106.A / 1000.0);
  h[1] = 0;
  h[2] = static_cast<float>(r.d106.B);
  h[3] = static_cast<float>(r.d106.C);
  h[4] = static_cast<float>(r.d106.D);
  h[5] = static_cast<float>(r.d106.E);
  h[6] = static_cast<float>(r.d106.tc);
  h.TLo = WholeK(r.d106.tlo);
  h.THi = WholeK(r.d106.thi);
}

// AUGUST line through (TSiede, 101.325 kPa) and (TKrit, PKrit), as the substance load sets it.
inline void SetAugust(peq::Session& s, int i) {
  const double Tb = s.TSiede[i], Tc = s.TKrit[i], Pc = s.PKrit[i];
  const double B = Tb * Tc * std::log(Pc / 101.325) / (Tb - Tc);
  peq::ParAugust& a = s.ParAUG[i];
  a.B = static_cast<float>(B);
  a.A = static_cast<float>(std::log(Pc) - B / Tc);
  a.TLo = WholeK(Tb);
  a.THi = WholeK(Tc);
}

// A session of these substances in this order, every component with the equation `code`.
inline void Make(peq::Session& s, std::initializer_list<const char*> names,
                 const char* code = "ALP") {
  const int n = static_cast<int>(names.size());
  peq::AllocSession(s, n);
  s.NKomp = static_cast<int16_t>(n);
  int i = 0;
  for (const char* name : names) {
    ++i;
    Fill(s, i, Find(name));
    SetAugust(s, i);
    s.P0Eq[i] = code;
  }
}

}  // namespace peqtest::pure
