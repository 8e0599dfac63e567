// PLACEHOLDER: temporary bodies so the tree links while the pure-property routines are written.
// Removed when src/models/vappressure.cpp, liquid.cpp, virial.cpp, pureprops.cpp exist.
#include "models/liquid.h"
#include "models/pureprops.h"
#include "models/vappressure.h"
#include "models/virial.h"

namespace peq {
float VapPressure(const Session&, int, double, std::string&, bool, int16_t& dT, MsgSink*) { dT = 0; return 0; }
float BoilingTAtP(const Session&, int, double, std::string&, bool, int16_t& dT, int16_t& err, MsgSink*) { dT = 0; err = -1; return 0; }
float BoilingT(const Session&, int, std::string&, int16_t& err, std::string&) { err = -1; return 0; }
void AllP0(Session&, double, int16_t& bad, int16_t& dT) { bad = 0; dT = 0; }
void LiquidVolumes(Session&, double, Vec<int16_t>&, int16_t& ok) { ok = 0; }
int32_t EnthalpyVap(const Session&, int, double, bool, MsgSink*) { return 0; }
void PairCrit(Session&, int16_t& err) { err = -1; }
int16_t SecondVirial(Session&, double) { return -1; }
void AllPureProps(Session&, double, int16_t& err, int16_t& dT) { err = -1; dT = 0; }
int16_t CalcPhi0(Session&, double) { return -1; }
}  // namespace peq
