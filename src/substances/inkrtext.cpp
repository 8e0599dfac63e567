// Increment pairs of the data editor and their text.
#include "substances/inkrtext.h"

#include "session/numeric.h"
#include "substances/unifacfiles.h"

namespace peq {

std::string AInkrText(const InkrPaare& count, const InkrPaare& group) {
  std::string text = kInkrLeer;
  for (int k = 0; k < kInkrSlots; ++k) {
    const auto u = static_cast<std::size_t>(k);
    const int64_t value = static_cast<int64_t>(count[u]) * 1000 + group[u];
    std::string t = std::to_string(value);
    if (t == "0") t = "00000";
    if (t.size() == 4) t = "0" + t;
    // Replace in place; the template keeps its length, as a replacement past the end is cut.
    const std::size_t at = u * 6;
    for (std::size_t c = 0; c < t.size() && at + c < text.size(); ++c) text[at + c] = t[c];
  }
  return text;
}

void AInkrFelder(std::string_view text, InkrPaare& count, InkrPaare& group) {
  InkrWerte v{};
  try {
    ParseInkr(text, v);
  } catch (const NumericFault&) {
    v = InkrWerte{};
  }
  for (int k = 0; k < kInkrSlots; ++k) {
    const auto u = static_cast<std::size_t>(k);
    count[u] = v[u] / 1000;
    group[u] = v[u] % 1000;
  }
}

}  // namespace peq
