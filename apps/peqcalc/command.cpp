#include "command.h"

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

}  // namespace peqcalc
