// The kernel's own copy of a liquid composition that its caller passed as constant: the group
// model UNIFAC writes its 1E-10 for a zero mole fraction into the array it gets, and the kernel
// goes on with that array, so a caller whose array must not change gets the same results from
// the copy.
#pragma once

#include "session/session.h"

namespace peq {

// x(1..NKomp) copied into KernScratch.XIn (sized once per mixture), which is returned.
inline Vec<double>& KernelCopy(Session& s, const Vec<double>& x) {
  Vec<double>& own = s.KernScratch.XIn;
  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  if (own.size() < m) own.assign(m, 0.0);
  if (&own != &x)
    for (std::size_t i = 1; i < m; ++i) own[i] = x[i];
  return own;
}

}  // namespace peq
