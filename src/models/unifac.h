// Activity coefficients by group contribution: Modified UNIFAC (Dortmund) and the original
// UNIFAC. The group structure of the mixture (GroupList, Nu, r, q) and the temperature-only
// terms are kept in the session between calls; UnifacNeu asks for the parameter file to be read
// again and the structure to be rebuilt.
//
// Sources of the equations: Weidlich, Gmehling, Ind. Eng. Chem. Res. 26 (1987) 1372 (modified
// combinatorial part with r^(3/4), temperature-dependent interaction parameters); Fredenslund,
// Jones, Prausnitz, AIChE J. 21 (1975) 1086 (UNIFAC); both with z/2 = 5.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace peq {

// Modified UNIFAC (Dortmund) at T (K) and x(1..NKomp) (used as given; the sums must not vanish).
// Parses ModUnifInkr of each component at every call; reads ModUnifFile at the first call of the
// session and whenever UnifacNeu is set, and then rebuilds the group structure (which is also
// built when none exists yet for the mixture; a change of ModUnifInkr alone does not rebuild
// it). The psi of the group pairs and s(i,k) are kept while T and the structure stay. err -1 on
// subgroup 199, a main-group pair without parameters (a above 8999), more than 35 subgroups in
// the mixture, a subgroup outside the table, a file read error or an arithmetic fault; gamma is
// then left as it was. Leaves UnifacNeu as it is (the dispatcher clears it).
void ModUnifacGamma(Session& s, double T, const Vec<double>& x, Vec<double>& gamma, int16_t& err);

// UNIFAC at the 32-bit temperature T (K) for the increment texts incr(1..NKomp). Reads OUnifFile
// when UnifacNeu is set. A mole fraction exactly 0 is replaced by 1E-10 in x itself. err -1 on a
// pair of different main groups with a = 0 (except main groups 7/31 and 22/23, whose published
// value is a true zero), a subgroup outside the table, a file read error or an arithmetic fault;
// gamma is then left as it was. A subgroup named in two slots of one substance counts with the
// sum of both counts. The structure follows the increments of each call; psi and the pure-
// component group activities are kept while T, the increments and the tables stay. Leaves
// UnifacNeu as it is.
void OUnifacGamma(Session& s, const Vec<std::string>& incr, float T, Vec<double>& x,
                  Vec<double>& gamma, int16_t& err);

}  // namespace peq
