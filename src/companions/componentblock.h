// The block of substance data that the companion files carry for each component: constants,
// density function, WILSON volume and the vapour-pressure equation with its parameters. The
// fitting and the batch distillation write it the same way; the companions read it back into a
// session of their own.
#pragma once

#include <string>

#include "companions/exchangetext.h"
#include "session/session.h"

namespace peq {

// Appends the block of component i, one value per line (CR LF): MolMasse, TKrit, PKrit, RhoKrit,
// Omega, RUniquac, QUniquac, the seven coefficients and the eighth value of ParRho, WilsonVFix
// as -1 or 0, VLiqCm3, the code P0Eq (3 characters), and the parameters of that equation: AUG
// two, ALP and AHP three, FRO nine (from its second value), WAG ten (from its second value),
// any other code none.
void AppendComponentBlock(const Session& s, int i, std::string& out);

// Reads the block of component i into s (arrays sized for s.NKomp). Throws ExchangeError.
void ReadComponentBlock(ExchangeReader& r, Session& s, int i);

}  // namespace peq
