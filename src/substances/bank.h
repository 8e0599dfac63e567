// The open database: its index in the session, the look-up by CAS-RN and the loading of the
// chosen substances into the session.
#pragma once

#include <string>

#include "session/session.h"

namespace peq {

// Cuts characters from the left until the text holds no backslash (nor slash): the bare file
// name. The argument itself is changed, and returned.
std::string& BankNurName(std::string& name);

// Opens a database. A name without a directory is looked up in PfadBank; "\" and "/" both
// separate directories, and on a case-sensitive file system a file whose name differs only in
// case is found. notFound: the file does not exist or cannot be a database (shorter than one
// record, or shorter than its count says); empty: its count is below 1, or the file has no
// bytes. On success fills BankAnz and the index 1..BankAnz (BankFormel 12, BankName 40, BankCAS
// 12 characters, blank padded like the session's text fields; BankNr; the name is the first or
// second of the record, whole with its synonyms, by NamenEnglisch), sets BankOffen, BankDatei
// (the bare file name) and, when name holds a directory, PfadBank (that directory with a
// trailing "/"). On failure the session is left exactly as it was.
void BankOeffnen(Session& s, const std::string& name, bool& notFound, bool& empty);

// Full path of the open database.
std::string BankPfadDatei(const Session& s);

// Place (1-based) in the index of the first record whose trimmed CAS-RN equals the trimmed
// argument; 0 when none.
int CASSuchen(const Session& s, const std::string& casrn);

// Copies record KompIdx(i)+1 of the open database into the session's component i, with the
// equation-code and WILSON-volume rules (the latter runs LiquidVolumes at 298.15 K over the
// mixture). False when the record cannot be read or a value does not fit its session field
// (a T limit beyond 16 bits); the component is then left as it was.
bool LoadSubstance(Session& s, int i);

// Loads the whole mixture (R and Q fallbacks, equation codes, WILSON volumes, usability test,
// pair critical data, boiling points, AUGUST parameters). ok false when a component cannot be
// used; the message goes to sink ("no calculation possible", or "Error" with the system's text
// when a record cannot be read). Sets LoadOK. With NKomp 0 it returns ok false and changes
// nothing.
void LoadSubstances(Session& s, bool& ok, MsgSink* sink);

}  // namespace peq
