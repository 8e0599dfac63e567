// Azeotrope of the binary (1, 2): a march on ln(K1/K2) over x2.
#pragma once

#include <cstdint>

#include "session/message.h"
#include "session/session.h"

namespace peq {

// true with the azeotropic x2; kind -1 for a pressure maximum, 0 for a pressure minimum;
// overrun -1 when the round count was exceeded. Bubble points at T when IsoArt is 1, at p
// otherwise. A run-time error goes to sink as "Message from Function IsBinaerAzeotrop".
bool IsBinaerAzeotrop(Session& s, double T, double p, double& x, int16_t& kind, int16_t& overrun, MsgSink* sink);

}  // namespace peq
