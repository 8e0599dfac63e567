// The project reader: the input is a *.PQC file, loaded as "Open project" loads it, with the
// bundled database open and standing in the database directory. A refused file must leave the
// session as it was; a loaded one has its models committed as "Models OK" commits them and one
// bubble point computed at the diagram temperature of the file.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "engine/kernel.h"
#include "fuzz_support.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  static const peq::Session base = FreshSession();
  const std::string path = WriteInput("FUZZ.PQC", data, size);

  peq::Session s = base;
  const BankIndex before = IndexOf(s);
  peq::MsgSink msgs;
  const peq::LoadStage st = peq::ProjektLaden(s, path, &msgs);
  RequireFinite(s, "ProjektLaden");
  if (st == peq::LoadStage::NotRead) {
    Require(IndexOf(s) == before, "a refused project changed the open database");
    Require(s.NKomp == 0, "a refused project changed the mixture");
    Require(!msgs.empty(), "a refused project gave no message");
    return 0;
  }
  Require(s.NKomp >= 1 && s.NKomp <= 10, "a project was read with an impossible NKomp");
  if (st != peq::LoadStage::Loaded) return 0;

  // "Models OK": the models of the file as they stand.
  peq::EOSTabellenBerechnen(s);
  s.ModelleOffen = false;
  RequireFinite(s, "EOSTabellenBerechnen");

  // One bubble point, as the first diagram of the project would compute it.
  const int n = s.NKomp;
  peq::Vec<double> x(static_cast<std::size_t>(n + 1), 0.0), y0(static_cast<std::size_t>(n + 1), 0.0);
  for (int i = 1; i <= n; ++i) x[static_cast<std::size_t>(i)] = 1.0 / n;
  double vL = 0, vV = 0;
  const double T = std::isfinite(s.TIso) && s.TIso > 1 && s.TIso < 2000 ? s.TIso : 298.15;
  const double p = peq::CalcBubbleP(s, T, x, 0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  Require(std::isfinite(p), "CalcBubbleP returned a non-finite pressure");
  RequireFinite(s, "CalcBubbleP");
  return 0;
}
