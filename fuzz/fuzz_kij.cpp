// The k(ij) files: the input is "KIJ_PR.DAT". Every entry the reader lists must be found again
// by the look-up, in either order of its CAS numbers, with its value; the search of the
// parameter window must give a finite value or none; what the writer writes must read back to
// the same entries.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "fuzz_support.h"
#include "session/codepage.h"
#include "substances/kij.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  static const peq::Session base = [] {
    peq::Session s = LoadedSession("ethanol-water.PQC");
    s.EOSModel = 5;
    return s;
  }();
  const std::string path = WriteInput("KIJ_PR.DAT", data, size);

  const std::vector<peq::KijEntry> entries = peq::ReadKijFile(path);
  for (std::size_t e = 0; e < entries.size() && e < 8; ++e) {
    Require(std::isfinite(entries[e].Kij), "a k(ij) value that is not finite");
    // The first entry of the same pair decides what the look-up returns.
    std::size_t first = e;
    for (std::size_t f = 0; f < e; ++f) {
      const peq::KijEntry& a = entries[f];
      const peq::KijEntry& b = entries[e];
      const auto same = [](const std::string& x, const std::string& y) { return peq::Trim(x) == peq::Trim(y); };
      if ((same(a.Cas1, b.Cas1) && same(a.Cas2, b.Cas2)) || (same(a.Cas1, b.Cas2) && same(a.Cas2, b.Cas1))) {
        first = f;
        break;
      }
    }
    const std::optional<double> k1 = peq::FindKij(path, entries[e].Cas1, entries[e].Cas2);
    const std::optional<double> k2 = peq::FindKij(path, entries[e].Cas2, entries[e].Cas1);
    Require(k1 && *k1 == entries[first].Kij, "FindKij misses a listed entry");
    Require(k2 && *k2 == entries[first].Kij, "FindKij misses a listed entry in the other order");
  }

  peq::MsgSink msgs;
  const std::optional<double> k = peq::SearchKij(base, 1, 2, WorkDir(), &msgs);
  Require(!k || std::isfinite(*k), "SearchKij gave a value that is not finite");
  Require(msgs.size() == 1, "SearchKij gave no box");

  std::string err;
  const std::string copy = WorkDir() + "KIJ_COPY.DAT";
  Require(peq::WriteKijFile(copy, entries, err), "WriteKijFile failed: " + err);
  const std::vector<peq::KijEntry> back = peq::ReadKijFile(copy);
  Require(back.size() == entries.size(), "written k(ij) entries do not read back");
  for (std::size_t e = 0; e < back.size(); ++e)
    Require(peq::Trim(back[e].Cas1) == peq::Trim(entries[e].Cas1) &&
                peq::Trim(back[e].Cas2) == peq::Trim(entries[e].Cas2) && back[e].Kij == entries[e].Kij,
            "a written k(ij) entry reads back changed");
  return 0;
}
