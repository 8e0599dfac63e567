// The increment fields of a substance record as the data editor shows them: seven pairs
// "count times group #", rebuilt into the 41-character text "02001,01002,00000,...".
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "models/gestate.h"

namespace peq {

// The empty increment text.
inline constexpr const char* kInkrLeer = "00000,00000,00000,00000,00000,00000,00000";

using InkrPaare = std::array<int32_t, kInkrSlots>;

// Builds the increment text from the pairs of the editor: slot k holds count*1000 + group as
// text without a leading blank; "0" becomes "00000", a text of four characters gets a "0" in
// front, and the text replaces as many characters of the template at place (k-1)*6+1 as it
// has. (A three-character value such as group 123 with count 0 thus overwrites only the first
// three zeros of its slot; a count above 99 runs into the next comma. The editor flags such
// pairs before they get here.)
std::string AInkrText(const InkrPaare& count, const InkrPaare& group);

// The reverse: the seven values of the text (as the group models read them), count = value div
// 1000, group = value mod 1000. A slot that does not read as a number is 0.
void AInkrFelder(std::string_view text, InkrPaare& count, InkrPaare& group);

}  // namespace peq
