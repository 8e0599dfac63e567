// The 3D diagram files (*.oc3): any input is read without a crash; what is accepted has a grid of
// the size it names with finite values or holes, and written again it reads back the same.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "diagrams/surface_file.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  const std::string path = WriteInput("fuzz.oc3", data, size);
  peq::Dokument3D d;
  std::string err;
  if (!peq::LadeOC3(path, d, err)) {
    Require(!err.empty(), "a refusal without a reason");
    return 0;
  }
  for (int j = 1; j <= d.ResFeld.IYDim(); ++j)
    for (int i = 1; i <= d.ResFeld.IXDim(); ++i) Require(std::isfinite(d.ResFeld(i, j)), "a value that is not finite");
  Require(d.Aufbau.NoDia3 >= 0 && d.Aufbau.NoDia3 < peq::kAnzFlaechen3D, "an unknown surface accepted");
  peq::Dokument3D again;
  Require(peq::Dokument3DLesen(peq::Dokument3DText(d), again, err), "a written document is refused");
  Require(again.ResFeld.IXDim() == d.ResFeld.IXDim() && again.ResFeld.IYDim() == d.ResFeld.IYDim(),
          "the grid size changed on the way back");
  for (int j = 1; j <= d.ResFeld.IYDim(); ++j)
    for (int i = 1; i <= d.ResFeld.IXDim(); ++i)
      Require(again.ResFeld(i, j) == d.ResFeld(i, j), "a grid value changed on the way back");
  return 0;
}
