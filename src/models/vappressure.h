// Vapour pressure of the pure components and its inverse. p in kPa, T in K.
#pragma once

#include <cstdint>
#include <string>

#include "session/session.h"

namespace peq {

// p0 of component i at T by the equation `code` (f32, kPa); 0 when the equation cannot give a
// value. dT is 0, or Round(T - limit) when T lies outside the equation's limits. With showWarn
// a T more than 5 K above the upper limit posts the "WARNING" text to sink.
float VapPressure(const Session& s, int i, double T, std::string& code, bool showWarn, int16_t& dT,
                  MsgSink* sink = nullptr);

// T at which component i has the vapour pressure p (kPa) by `code`; 0 and err = -1 on failure.
float BoilingTAtP(const Session& s, int i, double p, std::string& code, bool showWarn, int16_t& dT,
                  int16_t& err, MsgSink* sink = nullptr);

// Normal boiling T of component i; `code` may be set when it was empty; info tells the source.
float BoilingT(const Session& s, int i, std::string& code, int16_t& err, std::string& info);

// Fills P0(i) at T for all components. bad: a component with p0 = 0, else 0. dT: the last
// non-zero limit distance found.
void AllP0(Session& s, double T, int16_t& bad, int16_t& dT);

}  // namespace peq
