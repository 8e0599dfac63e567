// UNIFAC parameter file ("OUNIF6PLUS.PAR").
#include "fuzz_unifac.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  return peqfuzz::RunUnifacTarget(false, data, size);
}
