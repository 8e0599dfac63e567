// PLACEHOLDER: temporary bodies so the tree links while the database routines are written.
// Removed when src/substances/bank.cpp exists.
#include "substances/bank.h"

namespace peq {
std::string& BankNurName(std::string& name) { return name; }
void BankOeffnen(Session&, const std::string&, bool& notFound, bool& empty) { notFound = true; empty = false; }
std::string BankPfadDatei(const Session& s) { return s.PfadBank + s.BankDatei; }
int CASSuchen(const Session&, const std::string&) { return 0; }
bool LoadSubstance(Session&, int) { return false; }
void LoadSubstances(Session& s, bool& ok, MsgSink*) { ok = false; s.LoadOK = false; }
}  // namespace peq
