// The answer of the batch companion, from_Batch.dat: the time records, the fraction blocks by
// their columns and the fraction text, read as the program reads them for a binary run of five
// fractions. A failed read must give its reason; a read time record must be finite and sized to
// the count the block states.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "companions/batchfiles.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using peqfuzz::Require;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  constexpr int kKomp = 2, kFrak = 5;
  std::string err;
  peq::Batchergebnis e;
  if (peq::ReadBatchZeiten(text, kKomp, 20, e, err)) {
    Require(e.NZeit >= 0, "a negative record count");
    for (const std::vector<float>* v : {&e.Zeit, &e.TKopf, &e.TSumpf})
      for (float x : *v) Require(!std::isnan(x), "a NaN in a time record");
  } else {
    Require(!err.empty(), "a failed read of the time records without its reason");
  }
  std::vector<float> zeile(static_cast<std::size_t>((kKomp + 5) * kFrak + kKomp + 2), 0.0f);
  err.clear();
  if (!peq::ReadBatchFraktionen(text, kKomp, kFrak, 273.15, zeile, err))
    Require(!err.empty(), "a failed read of the fraction blocks without its reason");
  std::vector<std::string> zeilen;
  peq::ReadBatchFraktionsText(text, zeilen);
  return 0;
}
