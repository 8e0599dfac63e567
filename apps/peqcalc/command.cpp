#include "command.h"

#include <charconv>
#include <cmath>

#include "session/writefmt.h"

namespace peqcalc {

namespace {
std::vector<Command>& Table() {
  static std::vector<Command> table;
  return table;
}
}  // namespace

const std::vector<Command>& Commands() { return Table(); }

const Command* FindCommand(const std::string& name) {
  for (const Command& c : Table())
    if (c.name == name) return &c;
  return nullptr;
}

CommandEntry::CommandEntry(Command c) { Table().push_back(std::move(c)); }

bool ArgNumber(const std::string& text, double& v) { return peq::ParseNumber(text, v); }

bool CheckNumbers(const Args& args, std::size_t count, const std::string& need, std::string& why) {
  if (args.size() < count) {
    why = need;
    return false;
  }
  for (const std::string& a : args) {
    double v = 0;
    if (!ArgNumber(a, v)) {
      why = "not a number: " + a;
      return false;
    }
  }
  return true;
}

bool ParseDiagramPoint(const Args& args, const char* cmd, const char* xWord, double& nodia, double& x,
                       std::initializer_list<NumberOption> options, std::string& why) {
  if (args.size() < 2) {
    why = std::string(cmd) + " needs the diagram number NODIA and the " + xWord + " X";
    return false;
  }
  if (!ArgNumber(args[0], nodia) || nodia != std::floor(nodia) || std::fabs(nodia) > 32767) {
    why = "NODIA is not a diagram number: " + args[0];
    return false;
  }
  if (!ArgNumber(args[1], x)) {
    why = "X is not a number: " + args[1];
    return false;
  }
  for (std::size_t k = 2; k < args.size(); k += 2) {
    const std::string& o = args[k];
    const NumberOption* hit = nullptr;
    for (const NumberOption& opt : options)
      if (o == opt.name) hit = &opt;
    if (hit == nullptr) {
      why = "unknown option of " + std::string(cmd) + ": " + o;
      return false;
    }
    if (k + 1 >= args.size() || !ArgNumber(args[k + 1], *hit->value)) {
      why = o + " needs a number";
      return false;
    }
    *hit->have = true;
  }
  return true;
}

bool ReadComposition(const peq::Session& s, const Args& args, const char* name, std::size_t lead,
                     double* leadValues, peq::Vec<double>& x, peq::MsgSink& msgs) {
  const int n = s.NKomp;
  if (args.size() != lead + static_cast<std::size_t>(n)) {
    peq::Post(&msgs, "Execution not possible",
              std::string(name) + " needs " + std::to_string(n) + " mole fractions for the " +
                  std::to_string(n) + " components of the project",
              peq::MsgIcon::Stop);
    return false;
  }
  for (std::size_t k = 0; k < lead; ++k) ArgNumber(args[k], leadValues[k]);
  if (x.size() != static_cast<std::size_t>(n) + 1) x.assign(static_cast<std::size_t>(n) + 1, 0.0);
  for (int i = 1; i <= n; ++i) {
    const std::string& a = args[lead + static_cast<std::size_t>(i) - 1];
    double v = 0;
    ArgNumber(a, v);
    // An amount or mole fraction below 0 is no composition: refused, nothing is calculated.
    if (!(v >= 0.0)) {
      peq::Post(&msgs, "Execution not possible",
                std::string(name) + ": the amount of component " + std::to_string(i) + " is negative (" + a +
                    "); amounts and mole fractions must be 0 or more",
                peq::MsgIcon::Stop);
      return false;
    }
    x[i] = v;
  }
  return true;
}

namespace {
// The shortest text of a number that reads back to it.
std::string Kurz(double v) {
  char buf[64];
  const auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}
}  // namespace

bool CheckMolFraction(const char* name, const char* option, double v, peq::MsgSink& msgs) {
  if (v >= 0.0 && v <= 1.0) return true;
  peq::Post(&msgs, "Execution not possible",
            std::string(name) + ": " + option + " " + Kurz(v) +
                " is no mole fraction; it must lie between 0 and 1",
            peq::MsgIcon::Stop);
  return false;
}

std::vector<double> PerComponent(const peq::Vec<double>& v, int n) {
  std::vector<double> r;
  for (int i = 1; i <= n; ++i) r.push_back(v[i]);
  return r;
}

}  // namespace peqcalc
