// The two group parameter targets share their body: the input is the parameter file of one
// model; it is read, its group table text built, and the usability test of the model window run
// on the bundled three-component example, followed by activity coefficients of the model.
#pragma once

#include <cstddef>
#include <cstdint>

namespace peqfuzz {

// mod: true for Modified UNIFAC (GEModel 20), false for UNIFAC (21).
int RunUnifacTarget(bool mod, const uint8_t* data, std::size_t size);

}  // namespace peqfuzz
