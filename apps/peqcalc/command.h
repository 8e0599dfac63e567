// The command table of peqcalc. Each command lives in a file of its own (cmd_<name>.cpp) and
// enters the table through a static CommandEntry, so a new command is one new file.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "json.h"
#include "session/message.h"
#include "session/session.h"

namespace peqcalc {

// Exit codes.
inline constexpr int kExitOk = 0;
inline constexpr int kExitRefused = 2;
inline constexpr int kExitUsage = 64;

using Args = std::vector<std::string>;

struct Command {
  std::string name;      // word on the command line, e.g. "pure"
  std::string synopsis;  // arguments, e.g. "T"
  std::string help;      // what it prints, for --help (may span lines)
  // Checks the arguments before the project is loaded; false with the reason on bad usage.
  bool (*check)(const Args& args, std::string& why) = nullptr;
  // Runs on the loaded session and fills out. Messages for the user go to msgs. Returns
  // kExitOk or kExitRefused.
  int (*run)(peq::Session& s, const Args& args, Json& out, peq::MsgSink& msgs) = nullptr;
};

// The table, in the order the commands registered.
const std::vector<Command>& Commands();
const Command* FindCommand(const std::string& name);

struct CommandEntry {
  explicit CommandEntry(Command c);
};

// A command-line number in the free format ("298.15", "1E-3"); false when it is none.
bool ArgNumber(const std::string& text, double& v);

// Usage check of a command whose arguments are all numbers, at least `count` of them; false with
// why = need when too few, or naming the word that is not a number.
bool CheckNumbers(const Args& args, std::size_t count, const std::string& need, std::string& why);

// A numeric option of a command ("--T") and where its value goes; have is set when it is given.
struct NumberOption {
  const char* name;
  double* value;
  bool* have;
};

// The arguments of a command on one diagram point: NODIA (a whole number), the abscissa X, then
// the options in pairs. false with why naming the command (cmd) and what X means (xWord).
bool ParseDiagramPoint(const Args& args, const char* cmd, const char* xWord, double& nodia, double& x,
                       std::initializer_list<NumberOption> options, std::string& why);

// The first `lead` arguments into lead[0..lead-1], the rest as the mole fractions x(1..NKomp).
// A count that does not fit the project, or a negative amount, is refused with a message naming
// the command.
bool ReadComposition(const peq::Session& s, const Args& args, const char* name, std::size_t lead,
                     double* leadValues, peq::Vec<double>& x, peq::MsgSink& msgs);

// A binary mole fraction given by an option (--x2): true from 0 to 1, otherwise a refusal message
// naming the command and the option.
bool CheckMolFraction(const char* name, const char* option, double v, peq::MsgSink& msgs);

// Components 1..n of a session array, in order, for a JSON array.
std::vector<double> PerComponent(const peq::Vec<double>& v, int n);

}  // namespace peqcalc
