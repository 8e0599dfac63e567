// writebank FILE.Q07: the private database of the project's mixture, as the substance data
// editor writes it: each component's record of the project's database with the session's data
// laid over it, in the order of the mixture, written through a temporary name.
#include "command.h"
#include "session/codepage.h"
#include "substances/privatebank.h"

namespace peqcalc {

namespace {

bool Check(const Args& args, std::string& why) {
  if (args.size() != 1 || args[0].empty()) {
    why = "writebank needs exactly one argument, the file to write (FILE.Q07)";
    return false;
  }
  return true;
}

int Run(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  std::string err;
  if (!peq::WritePrivateBank(s, args[0], err)) {
    peq::Post(&msgs, "Error", err, peq::MsgIcon::Stop);
    return kExitRefused;
  }
  std::vector<std::string> names, cas;
  for (int i = 1; i <= s.NKomp; ++i) {
    names.push_back(peq::Trim(s.StoffData[static_cast<std::size_t>(i)].Name));
    cas.push_back(peq::Trim(s.StoffData[static_cast<std::size_t>(i)].CasNr));
  }
  out.Str("file", args[0]);
  out.Int("BankAnz", s.NKomp);
  out.StrArray("names", names);
  out.StrArray("cas", cas);
  return kExitOk;
}

const CommandEntry kEntry{Command{
    "writebank", "FILE.Q07",
    "writes the private database of the project's mixture (records of 684 bytes, record 1 with\n"
    "the count, component i as record i+1, every field the session does not hold as in the\n"
    "project's database); prints file, BankAnz, names and cas of the components written",
    Check, Run}};

}  // namespace

}  // namespace peqcalc
