// Modified UNIFAC parameter file ("MODUNIF5PLUS.PAR" and its kin).
#include "fuzz_unifac.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  return peqfuzz::RunUnifacTarget(true, data, size);
}
