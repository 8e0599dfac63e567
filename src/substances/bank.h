// The open database: its index in the session, the look-up by CAS-RN and the loading of the
// chosen substances into the session.
#pragma once

#include <string>

#include "session/session.h"

namespace peq {

// Cuts characters from the left until the text holds no backslash (nor slash): the bare file
// name. The argument itself is changed, and returned.
std::string& BankNurName(std::string& name);

// Opens a database. A name without a directory is looked up in PfadBank. notFound: the file does
// not exist (or cannot be read as a database); empty: its count is below 1. On success fills
// BankAnz and the index (BankFormel, BankName, BankCAS, BankNr; the name is the first or second
// of the record by NamenEnglisch), sets BankOffen and BankDatei. On failure the session's index
// stays as it was.
void BankOeffnen(Session& s, const std::string& name, bool& notFound, bool& empty);

// Full path of the open database.
std::string BankPfadDatei(const Session& s);

// Place (1-based) in the index of the first record whose trimmed CAS-RN equals the trimmed
// argument; 0 when none.
int CASSuchen(const Session& s, const std::string& casrn);

// Copies record KompIdx(i)+1 of the open database into the session's component i.
// False when the record cannot be read.
bool LoadSubstance(Session& s, int i);

// Loads the whole mixture (R and Q fallbacks, equation codes, WILSON volumes, usability test,
// pair critical data, boiling points, AUGUST parameters). ok false when a component cannot be
// used; the message goes to sink. Sets LoadOK.
void LoadSubstances(Session& s, bool& ok, MsgSink* sink);

}  // namespace peq
