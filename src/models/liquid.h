// Liquid density, molar volume and enthalpy of vaporisation of the pure components.
#pragma once

#include <cstdint>

#include "session/session.h"

namespace peq {

// Fills VLiq(i) (m^3/kmol) at T; dT(i) the limit distance of each component's density function.
// ok -1 on success, 0 when a density fell below 1E-10 (the components behind it keep their old
// volumes). Sets RhoOK.
void LiquidVolumes(Session& s, double T, Vec<int16_t>& dT, int16_t& ok);

// delta(LV)h of component i at T, a whole number of J/mol; 0 above TKrit.
int32_t EnthalpyVap(const Session& s, int i, double T, bool showWarn, MsgSink* sink = nullptr);

}  // namespace peq
