// The XY files: the input is read as the XY editor loads a file. A file taken over gives finite
// lines; written again with each of the four delimiters it reads back to the same count, and a
// second round gives the same text.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "expdata/xydaten.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  peq::Kurve k;
  std::string kommentar, err;
  if (!peq::XYLesen(bytes, k, kommentar, err)) {
    Require(!err.empty(), "a refused XY file without its words");
    Require(peq::XYAnzahl(k) == 0, "a refused XY file left lines");
    return 0;
  }
  const int n = peq::XYAnzahl(k);
  Require(static_cast<std::size_t>(n) + 1 == k.size(), "the count of the header differs from the lines");
  for (int i = 1; i <= n; ++i)
    Require(std::isfinite(k[static_cast<std::size_t>(i)].x) && std::isfinite(k[static_cast<std::size_t>(i)].y),
            "a line that is not finite");
  if (n == 0) return 0;
  for (const char* sep : {";", ",", "\t", " "}) {
    // A comment that would make the first line look like data is kept as it is; only the lines count.
    const std::string text = peq::XYText("c", k, sep);
    peq::Kurve r;
    std::string c2, e2;
    Require(peq::XYLesen(text, r, c2, e2), std::string("a written XY file does not read back: ") + e2);
    Require(peq::XYAnzahl(r) == n, "a written XY file reads back with another count");
    Require(peq::XYText("c", r, sep) == text, "a second round changes the text");
  }
  return 0;
}
