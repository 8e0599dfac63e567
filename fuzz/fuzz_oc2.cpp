// The diagram file (*.oc2): any bytes are read or refused with a text; a refused file leaves the
// document as it was; what is read writes again to bytes that read back to the same bytes.
#include <cstddef>
#include <cstdint>
#include <string>

#include "diagrams/diagram2d_file.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  peq::Graph2DDoc d;
  d.Titel = "before";
  std::string msg;
  if (!peq::Diagramm2DLesen(bytes, d, msg)) {
    Require(!msg.empty(), "a refused diagram file without a text");
    Require(d.Titel == "before" && d.AnzKurven == 0, "a refused diagram file changed the document");
    return 0;
  }
  int used = 0;
  for (int k = 1; k <= peq::kMaxKurven; ++k) used += d.KurveFrei[static_cast<std::size_t>(k)] ? 0 : 1;
  Require(used == d.AnzKurven, "AnzKurven does not count the used slots");
  for (int k = 1; k <= peq::kSerienAnz; ++k) {
    const peq::Serie& s = d.Serien[static_cast<std::size_t>(k)];
    Require(s.x.size() == s.y.size(), "a series with x and y of different length");
    Require(s.LabelPunkt >= 0 && s.LabelPunkt <= s.Punkte(), "a label beyond the points");
  }
  const std::string text = peq::Diagramm2DText(d);
  peq::Graph2DDoc again;
  Require(peq::Diagramm2DLesen(text, again, msg), "a written diagram file is refused: " + msg);
  Require(peq::Diagramm2DText(again) == text, "a written diagram file reads back changed");
  return 0;
}
