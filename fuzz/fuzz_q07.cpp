// The database reader: the input is a *.Q07 file. With the bundled database open, the file is
// opened as "Select and load database" opens one; a refused file must leave the open database
// exactly as it was. An accepted file has its first substances (up to three) chosen and loaded
// as "Mixture OK" loads them, and the models are committed.
#include <cstddef>
#include <cstdint>

#include "fuzz_support.h"
#include "models/eos_pure.h"
#include "substances/bank.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  static const peq::Session base = FreshSession();
  const std::string path = WriteInput("FUZZ.Q07", data, size);

  peq::Session s = base;
  const BankIndex before = IndexOf(s);
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, path, notFound, empty);
  if (notFound || empty) {
    Require(IndexOf(s) == before, "a refused database changed the open one");
    return 0;
  }
  Require(s.BankOffen && s.BankAnz >= 1, "an accepted database is not open");
  Require(static_cast<int>(s.BankCAS.size()) == s.BankAnz + 1, "index size differs from BankAnz");

  const int n = s.BankAnz < 3 ? s.BankAnz : 3;
  if (n < 2) return 0;
  peq::Vec<int16_t> idx(static_cast<std::size_t>(n + 1), 0);
  for (int i = 1; i <= n; ++i) idx[static_cast<std::size_t>(i)] = static_cast<int16_t>(i);
  peq::MsgSink msgs;
  const bool ok = peq::SelectionCommit(s, n, idx, &msgs);
  RequireFinite(s, "LoadSubstances");
  if (!ok) return 0;
  // "Models OK" in both concepts.
  s.Konzept = false;
  s.VapModel = 5;
  peq::EOSTabellenBerechnen(s);
  RequireFinite(s, "EOSTabellenBerechnen (vapour model)");
  s.Konzept = true;
  s.EOSModel = 5;
  s.MixRule = 2;
  peq::EOSTabellenBerechnen(s);
  RequireFinite(s, "EOSTabellenBerechnen (phi-phi)");
  return 0;
}
