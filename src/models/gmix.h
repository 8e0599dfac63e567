// Gibbs energy of mixing of a binary and its first two derivatives with respect to x2, from the
// activity coefficients of the gE model.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// For the binary at T (K) and x2 (above 1 taken as 1; x1 = 1 - x2), through ActivityCoeffs and
// the session's Gamma array (left with the gamma of the last call), R = 8.31451:
//   mode 0: GE = R T (x1 ln gamma1 + x2 ln gamma2); Gid = R T (x1 ln x1 + x2 ln x2), 0 when x1
//           or x2 is 0;
//   mode 1: GE = R T ln(gamma2/gamma1); Gid = R T ln(x2/x1) when both are non-zero, else as it was;
//   mode 2: GE = R T [ln(gamma2/gamma1) at x2 + 1E-5 less the same at x2]/1E-5 (x1 = 1 - x2 in
//           both calls); Gid = R T/(x1 x2) when both are non-zero, else as it was.
// GM = Gid + GE, in J/mol (kJ/kmol). err -1 when a gamma call failed (the outputs are then those
// of gamma = 1) or an arithmetic fault arose (the outputs are then left as they were).
void GMix(Session& s, double T, int16_t mode, double x2, double& Gid, double& GE, double& GM,
          int16_t& err);

}  // namespace peq
