// expdata FILE.EX5: the experimental points of an EX5 file as the program loads them beside the
// project's mixture: T (K), p (kPa), x2(L), x2(V) of component 2 of the project's order. A file
// with the two substances the other way round is adapted without asking (swapped -1); a file of
// other substances is read after the warning, which goes to stderr.
#include <string>
#include <vector>

#include "command.h"
#include "expdata/tpxdaten.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  if (args.size() != 1) {
    why = "expdata needs the name of one EX5 file";
    return false;
  }
  return true;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  bool swapped = false;
  const peq::JaNeinFrage frage = [&](const std::string& title, const std::string& text) {
    if (text == peq::kExpIndizierung)
      swapped = true;
    else
      msgs.push_back(peq::Message{title, text, peq::MsgIcon::Warning});
    return true;
  };
  peq::ExpLoeschen(s);
  if (!peq::ExpDateiLaden(s, false, args[0], frage, &msgs)) return kExitRefused;
  out.Str("titel", s.ExpTitel);
  out.Str("kommentar1", s.ExpKommentar1);
  out.Str("kommentar2", s.ExpKommentar2);
  std::vector<std::vector<double>> rows;
  rows.reserve(static_cast<std::size_t>(s.ExpAnz));
  for (int i = 1; i <= s.ExpAnz; ++i) {
    const peq::ExpPunkt& p = s.ExpPunkte[static_cast<std::size_t>(i)];
    rows.push_back({p.T, p.p, p.x2L, p.x2V});
  }
  out.NumMatrix("points", rows);
  out.Int("swapped", swapped ? -1 : 0);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "expdata", "FILE.EX5",
    "the experimental T-p-x(L)-x(V) points of an EX5 file as the program loads them: titel,\n"
    "kommentar1, kommentar2, points as [T/K, p/kPa, x2(L), x2(V)] rows in the project's order of\n"
    "the components, swapped (-1 when the file held them the other way round and was adapted)",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
