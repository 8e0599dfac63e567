// spinodal T, binodal T and gap-range p TLo THi: the mixing gap of the pair (1, 2) from delta(M)g.
//   spinodal: FindGM2Zeros at T (K): x1, x2 the zeros of the second derivative (x2 of the
//             pair, upward and downward march), msg (empty with two distinct zeros).
//   binodal:  Binodal at T: found (-1 or 0), xA, xB the two liquids, msg.
//   gap-range: GapRange at p (kPa) over TLo..THi (K): found, T of the three-phase point, xA, xB,
//             K (rounds of the secant), msg.
#include <cstdint>
#include <string>

#include "command.h"
#include "engine/gap.h"

namespace peqcalc {

namespace {

bool CheckT(const Args& args, std::string& why) {
  if (args.size() != 1) {
    why = "needs T in K";
    return false;
  }
  return CheckNumbers(args, 1, "needs T in K", why);
}

bool CheckRange(const Args& args, std::string& why) {
  if (args.size() != 3) {
    why = "gap-range needs p in kPa, TLo and THi in K";
    return false;
  }
  return CheckNumbers(args, 3, "gap-range needs p in kPa, TLo and THi in K", why);
}

bool Binary(const peq::Session& s, const char* name, peq::MsgSink& msgs) {
  if (s.NKomp == 2) return true;
  peq::Post(&msgs, "Execution not possible", std::string(name) + " needs a binary mixture", peq::MsgIcon::Stop);
  return false;
}

int RunSpinodal(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  if (!Binary(s, "spinodal", msgs)) return kExitRefused;
  double T = 0;
  ArgNumber(args[0], T);
  double x1 = 0, x2 = 0;
  std::string msg;
  peq::FindGM2Zeros(s, T, x1, x2, msg);
  out.Num("T", T);
  out.Num("x1", x1);
  out.Num("x2", x2);
  out.Str("msg", msg);
  return kExitOk;
}

int RunBinodal(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  if (!Binary(s, "binodal", msgs)) return kExitRefused;
  double T = 0;
  ArgNumber(args[0], T);
  double xA = 0, xB = 0;
  std::string msg;
  const bool ok = peq::Binodal(s, T, xA, xB, msg);
  out.Int("found", ok ? -1 : 0);
  out.Num("T", T);
  out.Num("xA", ok ? xA : 0.0);
  out.Num("xB", ok ? xB : 0.0);
  out.Str("msg", msg);
  return kExitOk;
}

int RunRange(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) {
  if (!Binary(s, "gap-range", msgs)) return kExitRefused;
  double p = 0, TLo = 0, THi = 0;
  ArgNumber(args[0], p);
  ArgNumber(args[1], TLo);
  ArgNumber(args[2], THi);
  double T = 0, xA = 0, xB = 0;
  int16_t K = 0;
  std::string msg;
  const bool ok = peq::GapRange(s, p, TLo, THi, T, xA, xB, K, msg);
  out.Int("found", ok ? -1 : 0);
  out.Num("T", ok ? T : 0.0);
  out.Num("xA", ok ? xA : 0.0);
  out.Num("xB", ok ? xB : 0.0);
  out.Int("K", K);
  out.Str("msg", msg);
  return kExitOk;
}

const CommandEntry kSpinodal{Command{
    "spinodal", "T",
    "zeros of the second derivative of delta(M)g to x2 at T (K) (FindGM2Zeros): x1, x2, msg\n"
    "(empty with two distinct zeros)",
    CheckT, RunSpinodal}};

const CommandEntry kBinodal{Command{
    "binodal", "T",
    "the two liquids of the mixing gap at T (K) (Binodal, common tangent): found (-1 or 0), xA, xB\n"
    "(x2 of each liquid), msg",
    CheckT, RunBinodal}};

const CommandEntry kRange{Command{
    "gap-range", "p TLo THi",
    "a mixing gap in TLo..THi (K) at p (kPa) and its three-phase point (GapRange): found, T, xA,\n"
    "xB, K (rounds of the secant), msg",
    CheckRange, RunRange}};

}  // namespace

}  // namespace peqcalc
