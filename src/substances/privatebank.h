// The private mini-database of a mixture: each component's record of the open database with
// the session's data of that component laid over it, in the order of the mixture.
#pragma once

#include <string>

#include "session/session.h"
#include "substances/q07.h"

namespace peq {

// The record of component i for the private database. Record KompIdx(i)+1 of the open database
// is read, and every value the session holds for the component is laid over its place in the
// record when it differs from what loading that record gives; so a field the user did not
// change keeps its bytes, and a field the session does not hold stays as it was. T limits are
// widened to f32. A changed name keeps the synonyms behind its ";". False with the system's text
// when the record cannot be read.
bool PrivateBankRecord(const Session& s, int i, Q07Record& out, std::string& err);

// Writes the private database of the mixture to path: record 1 with NKomp, then component i as
// record i+1. Written to a temporary name and renamed over the target, so a failed write leaves
// no partial file. False with the system's text on failure.
bool WritePrivateBank(const Session& s, const std::string& path, std::string& err);

}  // namespace peq
