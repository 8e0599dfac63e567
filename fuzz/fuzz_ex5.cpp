// The experimental data files: the input is an EX5 file, added to the held points of the
// ethanol/water example. A file that breaks off must leave ExpAnz as it stood; a file taken over
// must give finite points that the writer writes and the reader reads back unchanged.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "expdata/tpxdaten.h"
#include "fuzz_support.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
  using namespace peqfuzz;
  static const peq::Session base = [] {
    peq::Session s = LoadedSession("ethanol-water.PQC");
    s.ExpPunkte.assign(3);
    s.ExpPunkte[1] = peq::ExpPunkt{0, 350.0f, 101.325f, 0.5f, 0.4f};
    s.ExpPunkte[2] = peq::ExpPunkt{-1, 360.0f, 101.325f, 0.8f, 0.6f};
    s.ExpAnz = 2;
    return s;
  }();
  const std::string path = WriteInput("DATA.EX5", data, size);
  peq::Session s = base;
  int fragen = 0;
  const peq::JaNeinFrage ja = [&](const std::string&, const std::string&) {
    ++fragen;
    return true;
  };
  peq::MsgSink msgs;
  const bool ok = peq::ExpDateiLaden(s, true, path, ja, &msgs);
  Require(fragen <= 2, "more than two questions on one load");
  if (!ok) {
    Require(s.ExpAnz == 2, "a failed load changed ExpAnz");
    Require(msgs.size() == 1 && !msgs[0].text.empty(), "a failed load without its words");
    Require(s.ExpPunkte[1] == base.ExpPunkte[1], "a failed load changed a held point");
    return 0;
  }
  Require(s.ExpAnz >= 2 && static_cast<std::size_t>(s.ExpAnz) < s.ExpPunkte.size(), "ExpAnz beyond the array");
  for (int i = 1; i <= s.ExpAnz; ++i) {
    const peq::ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    Require(std::isfinite(p.T) && std::isfinite(p.p) && std::isfinite(p.x2L) && std::isfinite(p.x2V),
            "a point that is not finite");
  }
  std::string err;
  const std::string copy = WorkDir() + "COPY.EX5";
  Require(peq::ExpDateiSchreiben(s, copy, err), "the writer failed: " + err);
  peq::Session t = base;
  Require(peq::ExpDateiLaden(t, false, copy, ja, nullptr), "a written file does not load");
  Require(t.ExpAnz == s.ExpAnz, "a written file reads back with another count");
  for (int i = 1; i <= s.ExpAnz; ++i) {
    peq::ExpPunkt a = s.ExpPunkte[static_cast<std::size_t>(i)], b = t.ExpPunkte[static_cast<std::size_t>(i)];
    a.Inaktiv = 0;
    Require(a == b, "a written point reads back changed");
  }
  return 0;
}
