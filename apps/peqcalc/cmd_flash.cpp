// flash-tp T p z1 .. zn, flash-peta p eta z1 .. zn, flash-teta T eta z1 .. zn: the three flashes
// of a feed under the project's models. The feed is normalised to mole fractions as the
// calculation input window does (its sum must be above 0); it is kept in the session's Feed.
#include <cstdint>
#include <string>
#include <vector>

#include "command.h"
#include "engine/safeguard.h"

namespace peqcalc {

namespace {

bool CheckTP(const Args& args, std::string& why) {
  return CheckNumbers(args, 3, "flash-tp needs T in K, p in kPa and the feed z1 .. zn", why);
}
bool CheckPEta(const Args& args, std::string& why) {
  return CheckNumbers(args, 3, "flash-peta needs p in kPa, eta(V) and the feed z1 .. zn", why);
}
bool CheckTEta(const Args& args, std::string& why) {
  return CheckNumbers(args, 3, "flash-teta needs T in K, eta(V) and the feed z1 .. zn", why);
}

// The two leading values and the feed, normalised into s.Feed. False (refused) when the count
// does not fit the project or the feed sums to 0 or less.
bool ReadFeed(peq::Session& s, const Args& args, const char* name, double lead[2], peq::MsgSink& msgs) {
  peq::Vec<double> z;
  if (!ReadComposition(s, args, name, 2, lead, z, msgs)) return false;
  double sum = 0;
  for (int i = 1; i <= s.NKomp; ++i) sum += z[i];
  if (!(sum > 0.0)) {
    peq::Post(&msgs, "Execution not possible", "no composition of the mixture given", peq::MsgIcon::Stop);
    return false;
  }
  for (int i = 1; i <= s.NKomp; ++i) s.Feed[i] = z[i] / sum;
  return true;
}

void Phases(const peq::Session& s, Json& out) {
  out.NumArray("x", PerComponent(s.XLiq, s.NKomp));
  out.NumArray("y", PerComponent(s.YGas, s.NKomp));
  out.NumArray("gamma", PerComponent(s.Gamma, s.NKomp));
  out.Int("retried", s.Retried);
}

int RunTP(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double v[2] = {0, 0};
  if (!ReadFeed(s, args, "flash-tp", v, msgs)) return kExitRefused;
  out.Num("eta", peq::SafeFlashTP(s, v[0], v[1], s.Feed));
  Phases(s, out);
  return kExitOk;
}

int RunPEta(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double v[2] = {0, 0};
  if (!ReadFeed(s, args, "flash-peta", v, msgs)) return kExitRefused;
  out.Num("T", peq::SafeFlashPEta(s, v[0], v[1], s.Feed));
  Phases(s, out);
  return kExitOk;
}

int RunTEta(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  double v[2] = {0, 0};
  if (!ReadFeed(s, args, "flash-teta", v, msgs)) return kExitRefused;
  out.Num("p", peq::SafeFlashTEta(s, v[0], v[1], s.Feed));
  Phases(s, out);
  return kExitOk;
}

const CommandEntry kEntryTP{Command{
    "flash-tp", "T p z1 .. zn",
    "flash of the feed z1 .. zn (normalised) at T (K) and p (kPa) (FlashTP): eta (the molar\n"
    "vapour fraction; -1: no solution, the arrays then mean nothing), x, y, gamma per component,\n"
    "retried (-1: found by the safeguard's retry)",
    CheckTP, RunTP}};

const CommandEntry kEntryPEta{Command{
    "flash-peta", "p eta z1 .. zn",
    "flash of the feed at p (kPa) and the vapour fraction eta (FlashPEta): T (K; 0: no\n"
    "solution), x, y, gamma, retried",
    CheckPEta, RunPEta}};

const CommandEntry kEntryTEta{Command{
    "flash-teta", "T eta z1 .. zn",
    "flash of the feed at T (K) and the vapour fraction eta (FlashTEta): p (kPa; 0 or less: no\n"
    "solution), x, y, gamma, retried",
    CheckTEta, RunTEta}};

}  // namespace

}  // namespace peqcalc
