// Mixing rules of the cubic equations of state.
//
// Quadratic rules, for s = a, b, c, d with the pair coefficient k(i,j):
//   s(mix) = sum(i,j) x(i) x(j) S(i,j) F(i,j), F(i,i) = 1, F(i,j) = 1 - k(i,j),
//   S(i,j) = (s(i) + s(j))/2 for the rule code 1 and sqrt(s(i) s(j)) for every other code.
// b, c and d always follow the code 1, a follows MixRule. The rule codes 3 and 4 of a take a
// composition-dependent F = 1 - k12 k21/(x(i) k12 + x(j) k21).
//
// GE rules (MixRule 5, u = 1, and MixRule 6, u = 1.1), with Q = ln((u b + c)/(u b + d))/(c - d),
// or Q = 1/(u b + c) for the models with c = d (6 and 7):
//   a(mix) Q(mix) = sum x(i) a(i) Q(i) - gE - W,  W = 0 (rule 5) or R T sum x(i) ln(b(mix)/b(i))
// with gE from the model GEModelEOS (models/eos_gemix.h). The rule 5 is the form of Huron and
// Vidal (Fluid Phase Equilib. 3 (1979) 255), the rule 6 a zero-pressure form in the manner of
// Michelsen's MHV1 (Fluid Phase Equilib. 60 (1990) 213).
//
// Composition derivatives: ds(i) = n dS/dn(i) with S the mixture value; for a quadratic rule
// ds(m) = 2 (sum(j) x(j) S(m,j) F(m,j) - s(mix)), for a the GE rules d(n^2 a)/dn(i)/n - 2 a.
//
// Pair coefficients. In the phi-phi concept k(i,j) = La + Lb T1 + Lc T1^2, T1 = T - 273.15, on the
// slots (L1, L2, L3) for a, (L13, L14, L15) for b, (L16, L17, L18) for c, (L19, L20, L21) for d.
// The vapour phase of the gamma-phi concept has the k(ij) of the k(ij) window only:
// k(i,j) = KijAt(i, j, T) for a and none for b, c, d.
#pragma once

#include <array>
#include <cstdint>

#include "models/eos_types.h"
#include "session/session.h"

namespace peq {

enum class KijSource : int16_t { PhiPhi, Vapour };

// Everything that depends on T only: EOSPureAt; EOSPureDT when withDT; the pair tables of the
// four parameters; for the GE rules the gE pair quantities and Q of each component. Throws
// NumericFault on an arithmetic fault, and for a rule code outside 1..6.
void EOSMixAtT(Session& s, double T, int model, int mixRule, int geModelEOS, bool withDT,
               KijSource src = KijSource::PhiPhi);

// The mixture at composition x from the tables of the last EOSMixAtT (same T and codes).
// mode 0: a, b, c, d and da .. dd; mode 1 and 2: the first and second T derivatives of a, b, c,
// d in out.a .. out.d (the tables must then have been made withDT; da .. dd untouched).
void EOSMixAtX(Session& s, int mode, const Vec<double>& x, double T, int model, int mixRule, int geModelEOS,
               EOSMixPar& out);

// Both steps for column `column` (0 liquid, 1 vapour) of compMat.
void EOSMix(Session& s, int mode, const std::array<Vec<double>, 2>& compMat, double T, int model, int mixRule,
            int geModelEOS, int column, EOSMixPar& out, KijSource src = KijSource::PhiPhi);

// Value and first and second T derivatives of a, b, c, d of the mixture at x (from tables made
// withDT): v[0] value, v[1], v[2] derivatives.
void EOSMixTDerivs(Session& s, const Vec<double>& x, double T, int model, int mixRule, double a[3], double b[3],
                   double c[3], double d[3]);

// Q of the GE rules for one set b, c, d, and its partial derivatives to b, c, d.
double GERuleQ(int model, double u, double b, double c, double d, double* Qb = nullptr, double* Qc = nullptr,
               double* Qd = nullptr);

}  // namespace peq
