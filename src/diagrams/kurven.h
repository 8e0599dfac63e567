// Helpers of the curve tracer: the pure-component texts of the status line, the largest critical
// data of the pair with their notes, and the number patterns those texts use.
#pragma once

#include <cstdint>
#include <string>

#include "session/message.h"
#include "session/numformat.h"
#include "session/session.h"

namespace peq {

// Vapour pressure of pure component i at T (kPa) by the concept: the vapour-pressure equation
// (gamma-phi, also above T(cr) where the equation extrapolates) or the equation of state below
// T(cr) (phi-phi). 0 when there is none. An arithmetic fault throws NumericFault.
double ReinDampfdruck(const Session& s, int i, double T);

// Pure boiling temperature of component i at p (K) by the concept; 0 when there is none.
double ReinSiedeT(const Session& s, int i, double p);

// Vapour pressure of the pure components of the pair at T (K) (the equation of state in the
// phi-phi concept, the vapour-pressure equation otherwise) for those with T below their T(cr):
//   "pure-substance vapour pressures at T/K = 343.15     p0,1/kPa = 72.3     p0,2/kPa = 31.19"
// ("t/°C = " and T - 273.15 when TOffsetOut is not 0; T in "####.00"; each value in
// "########.0##", or "#.0######" below 9.999; five blanks before each value).
void SiedeText(const Session& s, double T, int16_t Komp1, int16_t Komp2, std::string& Kommentar);

// The same at p (kPa) with the boiling temperatures of the components below their p(cr):
//   "pure-substance boiling temp. at p/kPa =  101.33     T0,1/K = 351.44     T0,2/K = 373.15"
// (values less TOffsetOut, "/°C = " when it is not 0, in "####.0#"; p in "####.00").
void SiedeTextP(const Session& s, double p, int16_t Komp1, int16_t Komp2, std::string& Kommentar);

// Largest T(cr) (K) and p(cr) (kPa) of the pair and the component that holds the largest T(cr).
// In an isobaric diagram (IsoArt 2) a largest T(cr) (less TOffsetOut) inside YMin..YMax posts
// "Advice: Add marker T(cr) to have a better orientation", and a largest p(cr) inside the same
// range "Advice: Add marker p(cr) to have a better orientation", both under "Note".
void KritMax(const Session& s, int16_t Komp1, int16_t Komp2, double& TcMax, double& PcMax, int16_t& KompMax,
             MsgSink* sink);

}  // namespace peq
