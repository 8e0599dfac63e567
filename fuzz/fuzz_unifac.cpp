#include "fuzz_unifac.h"

#include <cmath>

#include "fuzz_support.h"
#include "models/activity.h"
#include "substances/unifacfiles.h"

namespace peqfuzz {

int RunUnifacTarget(bool mod, const uint8_t* data, std::size_t size) {
  static const peq::Session base = LoadedSession("acetone-methanol-water.PQC");
  const std::string path = WriteInput(mod ? "FUZZMOD.PAR" : "FUZZO.PAR", data, size);

  peq::Session s = base;
  (mod ? s.ModUnifFile : s.OUnifFile) = path;
  (mod ? s.OUnifFile : s.ModUnifFile) = WorkDir() + "MISSING.PAR";

  int16_t err = 0;
  if (mod)
    peq::LoadModUnif(s, err);
  else
    peq::LoadOUnif(s, err);
  RequireFinite(s, mod ? "LoadModUnif" : "LoadOUnif");
  bool ok = false;
  const std::string text = mod ? peq::MUnifacTableText(path, ok) : peq::OUnifacTableText(path, ok);
  Require(ok || text.empty(), "a failed group table gave a text");

  bool modOK = false, unifOK = false;
  peq::MsgSink msgs;
  peq::CheckUnifac(s, modOK, unifOK, &msgs);
  RequireFinite(s, "CheckUnifac");
  Require(!(mod ? unifOK : modOK), "the model without a file was found usable");

  // The model at a few states, as a diagram of the mixture would call it.
  s.GEModel = mod ? 20 : 21;
  const int n = s.NKomp;
  peq::Vec<double> x(static_cast<std::size_t>(n + 1), 0.0), g(static_cast<std::size_t>(n + 1), 0.0);
  static const double kT[] = {200.0, 298.15, 400.0};
  for (double T : kT) {
    for (int i = 1; i <= n; ++i) x[static_cast<std::size_t>(i)] = 1.0 / n;
    int16_t e = 0;
    peq::ActivityCoeffs(s, T, x, g, e);
    if (e == 0)
      for (int i = 1; i <= n; ++i)
        Require(std::isfinite(g[static_cast<std::size_t>(i)]), "a non-finite activity coefficient");
  }
  RequireFinite(s, "ActivityCoeffs");
  return 0;
}

}  // namespace peqfuzz
