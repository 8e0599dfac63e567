// Fugacity coefficients and residual and excess functions of the cubic equations of state.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// Fugacity coefficient (not its logarithm) of component i in a mixture of parameters a, b, c, d
// at T, p and the molar volume v, with the composition derivatives da .. dd of component i
// (all 0 for a pure component). With A = ln((v + c)/(v + d)), Q = a/(R T (c - d)^2), Z = p v/(R T):
//   ln(phi Z) = ln(v/(v - b)) + (b + db)/(v - b) - (2 a + da) A/(R T (c - d))
//             + (c + dc) Q (A - (c - d)/(v + c)) + (d + dd) Q ((c - d)/(v + d) - A);
// for the models 6 and 7 (c = d)
//   ln phi = ln(v/(v - b)) + (b + db)/(v - b) - ln Z - (2 a + da)/(R T (v + c)) + a (c + dc)/(R T (v + c)^2).
// Throws NumericFault on an arithmetic fault (c = d in another model divides by zero).
double EOSLnPhi(double T, double p, double v, int model, double a, double b, double c, double d, double da,
                double db, double dc, double dd);

// ln phi of the mixture as a whole (the residual Gibbs function g(R)/(R T) at T, p):
//   ln phi = Z - 1 - ln Z + ln(v/(v - b)) - a Lambda/(R T),
// Lambda = ln((v + c)/(v + d))/(c - d), or 1/(v + c) for the models 6 and 7.
double EOSLnPhiMix(double T, double p, double v, int model, double a, double b, double c, double d);

// g(R) = ln phi of a phase at T, p on the root v, with its first and second temperature
// derivatives at constant p and composition: g[0..2]. a .. d hold the value and the first and
// second T derivatives of each parameter. Analytic; v follows T along the isobar.
void EOSResidual(double T, double p, double v, int model, const double a[3], const double b[3], const double c[3],
                 const double d[3], double g[3]);

// Excess functions of the phi-phi concept at T, p and x (kJ/kmol), with the session's EOSModel,
// MixRule and GEModelEOS: each pure component and the mixture on their liquid root, G = R T g(R),
// H = -R T^2 g(R)', cp = dH/dT; gE = G(mix) - sum x(i) G(i), likewise hE and cpE; T sE = hE - gE.
// Returns 0, or -1 on any failure (the outputs then untouched).
int16_t EOSExcess(Session& s, double T, double p, const Vec<double>& x, double& hE, double& TsE, double& gE,
                  double* cpE = nullptr);

}  // namespace peq
