// PLACEHOLDER until the excess-function codes are written: every point is reported as no value.
#include "engine/singlecalc.h"

namespace peq {

void SingleCalcExcess(Session&, int16_t, double, double, double, const Vec<double>&, int16_t, int16_t,
                      SingleOut& Out) {
  Out = SingleOut{};
}

}  // namespace peq
