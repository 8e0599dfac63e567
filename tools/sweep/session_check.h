// Checks the session for values that must never appear in it: a NaN or an infinity in a field
// that holds data or a result. Shared by the fuzz targets and the random-state sweep.
#pragma once

#include <string>

#include "session/session.h"

namespace peq::check {

// Name (with index) of the first non-finite value among the data and result fields of the
// session: pure-component data and parameter records, the pair tables of the mixture, the gE
// parameters, the group tables, the settings read from projects and the result arrays of the
// last calculation (P0, VLiq, Phi0, BVir, Gamma, PhiVMix, PhiKorr, KWert, YGas, XLiq, CompMat,
// the EOS tables). Empty when every value is finite. Scratch arrays of the routines are not
// looked at: they are work space, not results.
std::string FirstNonFinite(const Session& s);

// The same restricted to the result arrays of a calculation (the arrays a caller reads after a
// routine reports success).
std::string FirstNonFiniteResult(const Session& s);

}  // namespace peq::check
