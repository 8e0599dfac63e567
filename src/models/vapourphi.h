// Fugacity coefficients of the vapour phase in the gamma-phi concept, chosen by VapModel:
// 1, 2 the virial equation truncated after the second coefficient (2 with k(ij)); 3, 4, 5 the
// cubic of the same code (Redlich-Kwong, Soave-Redlich-Kwong, Peng-Robinson) with the
// geometric van der Waals rule and the k(ij) of the k(ij) window (KijAt); 0 the ideal gas.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// phi(i) of the vapour of composition y at T, p. y is taken as it stands (not normalised).
//   virial: Bm = sum(i,j) y(i) y(j) B(i,j), ln phi(i) = (2 sum(j) y(j) B(i,j) - Bm) p/(R T),
//           vV = R T/p + Bm;
//   EOS:    y into column 1 of CompMat, mixture parameters, the cubic at T, p without a start
//           root; vV = root 3, or root 1 when there is one real root; phi by EOSLnPhi. A failed
//           cubic sets err = 1 and leaves phi at 1.
//   VapModel 0: phi = 1, vV = R T/p.
// err 0 otherwise. Arithmetic faults throw NumericFault to the caller's trap. The EOS tables must
// have been committed for VapModel (EOSSetPure).
void CalcVapourPhi(Session& s, double T, double p, const Mat<double>& BVir, const Vec<double>& y, Vec<double>& phi,
                   double& vV, int16_t& err);

// PhiKorr(i) = exp(-VLiq(i) (p - P0(i))/(R T)) phi(i)/Phi0(i): the vapour correction joined with
// the saturated pure vapour and the inverted Poynting term. Throws NumericFault on a fault.
void CalcPhiFactor(const Session& s, const Vec<double>& phi, double T, double p, Vec<double>& phiKorr);

}  // namespace peq
