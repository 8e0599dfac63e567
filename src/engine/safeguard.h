// Safeguarded equilibrium calculation: the bubble points and the flashes as the program's
// windows, the command-line calculator, the curve tracer and the single-point calculator call
// them.
//
// Each routine runs the plain routine of the kernel or of the flashes first, unchanged. With the
// session's Safeguard switched off that answer is returned as it stands. With it on (the
// default), an answer is accepted when it is a real two-phase answer; a failure value or a
// trivial answer (liquid and vapour the same phase) is retried once from independent start
// values:
//   bubble points  Wilson's K correlation from Tc, pc and omega gives the pressure or the
//                  temperature and the vapour composition, then the kernel's own iteration runs
//                  again from there (the phi-phi bubble pressure, the bubble temperature of both
//                  concepts; the gamma-phi bubble pressure does not depend on its start);
//   dew point      the dew temperature (gamma-phi) likewise from Wilson's dew temperature;
//   FlashTP        successive substitution on K from the Wilson start, the Rachford-Rice
//                  equation solved by a bracketing root finder between its poles;
//   FlashTEta,     a bracketing root finder on p (or T) between the bubble point of the feed and
//   FlashPEta      a point beyond its dew point, on the vapour fraction of the safeguarded
//                  FlashTP.
// The retry's answer is accepted only when it passes the same two-phase test and its phases sum
// to 1 within the tolerance of the routine; Retried is then -1. Otherwise the failure value is
// returned and the session arrays (and the caller's gamma, PhiK, K) are as the first attempt
// left them. A point that converges the first time costs only the test: nothing is allocated.
//
// The two-phase test. In the phi-phi concept the phases are the same when their molar volumes
// coincide (|vL - vV| below 1E-2 vV, or vV below vL). All |ln K| below 1E-3 alone does not make a
// phase split trivial, because an azeotrope has K = 1 with a liquid and a vapour volume: where
// the volumes are not at hand (the flashes), such K values make the test solve the cubic of the
// common composition and call the phases the same when it has one real root or two coinciding
// ones. In the gamma-phi concept liquid and vapour come from different models and a bubble point
// cannot be trivial; only the failure value is retried there.
//
// The stability test of a phi-phi bubble temperature. Near the critical region the secant on T
// can stop where two supercritical phases of different composition have equal fugacities
// although the liquid is not stable there (methane/ethane at 6000 kPa, x = 0.5: 263.74 K, while
// the bubble point is 247.64 K). An answer whose vapour volume is below twice the liquid's
// therefore passes only when the tangent-plane test (successive substitution from a vapour-like
// and a liquid-like trial phase) finds no phase below the tangent plane of the liquid; answers
// farther from the critical point are not tested. A rejected answer is retried from Wilson's
// start as above and, failing that, from below it: T falls until the liquid is stable, the
// bracket is narrowed on the same test, and the kernel's iteration starts at its stable end
// with the incipient vapour of the unstable end. Every retried bubble temperature must pass the
// test.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// The arguments and results of CalcBubbleP and CalcBubbleT (engine/kernel.h).
double SafeBubbleP(Session& s, double T, const Vec<double>& x, double pStart, const Vec<double>& yStart,
                   Vec<double>& gamma, Vec<double>& PhiK, Vec<double>& K, double& vL, double& vV);
double SafeBubbleT(Session& s, double p, const Vec<double>& x, double& T, const Vec<double>& yStart, int16_t& Warn,
                   Vec<double>& K, double& vL, double& vV);

// The arguments and result of CalcDewT (gamma-phi): a dew temperature of 0 is retried from
// Wilson's dew temperature, sum y(i)/K(i) = 1, as the start. (CalcDewP takes no start; it is
// called as it stands.)
float SafeDewT(Session& s, double p, const Vec<double>& y, double TStart);

// The arguments and results of FlashTP, FlashPEta and FlashTEta (engine/flash.h).
double SafeFlashTP(Session& s, double T, double p, const Vec<double>& z);
double SafeFlashPEta(Session& s, double p, double eta, const Vec<double>& z);
double SafeFlashTEta(Session& s, double T, double eta, const Vec<double>& z);

// Wilson's K correlation, K(i) = pc(i)/p exp(5.373 (1 + omega(i)) (1 - Tc(i)/T)) (G. M. Wilson,
// 1968), for a start of the retries.
double WilsonK(const Session& s, int i, double T, double p);

}  // namespace peq
