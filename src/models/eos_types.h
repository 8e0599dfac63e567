// Records of the cubic equations of state and of the equilibrium kernel that the session keeps:
// the parameters of a mixture with their composition derivatives, the pair tables of the mixing
// rules and the work arrays of the kernel. Everything is sized once per mixture (Alloc), so that
// no call of the engine allocates.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "session/arrays.h"

namespace peq {

// a, b, c, d of one mixture (a in kPa m^6/kmol^2, b, c, d in m^3/kmol) and the composition
// derivatives ds(i) = n dS/dn(i) of each, which the fugacity coefficient takes; S stands for the
// mixture value times the mole number n, so that s + ds(i) is the partial molar value of s.
struct EOSMixPar {
  double a = 0, b = 0, c = 0, d = 0;
  Vec<double> da, db, dc, dd;
  void Alloc(std::size_t m) {
    da.assign(m, 0);
    db.assign(m, 0);
    dc.assign(m, 0);
    dd.assign(m, 0);
  }
};

// Pair quantities of the gE model inside the GE mixing rules at one T, each with its first and
// second temperature derivative (suffix 1 and 2).
//   Wilson:  A = Lambda(i,j), B = the added pair term P3(i,j) (symmetric)
//   NRTL:    A = tau(i,j),    B = G(i,j)
//   UNIQUAC: A = tau(i,j)
struct GEMixPairs {
  int16_t model = 0;  // 1 Wilson, 2 NRTL, 9 UNIQUAC; 0 none prepared
  int n = 0;          // number of components
  double T = 0;       // K
  Mat<double> A, A1, A2, B, B1, B2;
  Vec<double> r, q;  // UNIQUAC volume and area parameters
  // Per-call scratch: sums over components and their T derivatives.
  Vec<double> s0, s1, s2, t0, t1, t2, lg;
  void Alloc(std::size_t m) {
    for (Mat<double>* p : {&A, &A1, &A2, &B, &B1, &B2}) p->assign(m, 0);
    for (Vec<double>* p : {&r, &q, &s0, &s1, &s2, &t0, &t1, &t2, &lg}) p->assign(m, 0);
  }
};

// Work arrays of the mixing rules (EOSMix) and of the fugacity routines.
struct EOSWork {
  // Quadratic rules, for s = a, b, c, d (index 0..3): S(i,j) F(i,j) at T and its first and second
  // temperature derivatives.
  std::array<Mat<double>, 4> Pair, PairDT, PairD2T;
  // Rule codes 3 and 4 of a: sqrt(a(i) a(j)) and the pair coefficients k12, k21 at T.
  Mat<double> AGeo, K12, K21;
  GEMixPairs GE;
  // GE rules: Q(i) of each pure component at T and its T derivatives; ln gamma of the rule.
  Vec<double> Q, Q1, Q2, LnGamma;
  // Sums over j of x(j) S(i,j) F(i,j) for the four parameters.
  std::array<Vec<double>, 4> Row;
  // Mixture parameters of the liquid and the vapour of the last calculation.
  EOSMixPar Liq, Vap;
  // Fugacity coefficients of liquid and vapour, one per component.
  Vec<double> PhiL, PhiV;
  void Alloc(std::size_t m) {
    for (auto* arr : {&Pair, &PairDT, &PairD2T})
      for (Mat<double>& mm : *arr) mm.assign(m, 0);
    AGeo.assign(m, 0);
    K12.assign(m, 0);
    K21.assign(m, 0);
    GE.Alloc(m);
    for (Vec<double>* p : {&Q, &Q1, &Q2, &LnGamma, &PhiL, &PhiV}) p->assign(m, 0);
    for (Vec<double>& v : Row) v.assign(m, 0);
    Liq.Alloc(m);
    Vap.Alloc(m);
  }
};

// Work arrays of the bubble and dew routines.
struct KernelWork {
  Vec<double> Y;   // y of CalcKValues when the caller's y must stay untouched
  Vec<double> X;   // liquid composition during a dew iteration
  Vec<double> K2;  // K values at the perturbed point of a secant step
  Vec<double> One; // a composition of a pure component with a trace of the other
  Vec<double> XIn; // the liquid of a bubble point or K-value call whose caller's x must stay as it is
  int Rounds = 0;  // rounds of the last phi-phi bubble-pressure or bubble-temperature iteration
  void Alloc(std::size_t m) {
    for (Vec<double>* p : {&Y, &X, &K2, &One, &XIn}) p->assign(m, 0);
  }
};

}  // namespace peq
