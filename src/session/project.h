// Project files (*.PQC) and the last session "PEQLASTSESSION2.PQC".
#pragma once

#include <string>

#include "session/session.h"

namespace peq {

inline constexpr const char* kLastSessionFile = "PEQLASTSESSION2.PQC";

// True when the upper-cased last 19 characters of fileName are "PEQLASTSESSION2.PQC".
bool IsLastSessionName(const std::string& fileName);

// Writes the session as a project. comment is the file comment (ignored, written empty, for a
// last session). False with the system's error text in err when the file cannot be written; the
// old file then stays as it was.
bool ProjektSchreiben(const Session& s, const std::string& fileName, const std::string& comment,
                      std::string& err);

// Reads a project into the session. Returns ok; the boxes of the load go to sink. On ok true the
// caller loads the substances (LoadSubstances) as the program does after a load.
bool ProjektLesen(Session& s, const std::string& fileName, MsgSink* sink);
// The project as ProjektSchreiben writes it, without its first line (the time of saving): two
// sessions with the same text hold the same project. Throws NumericFault as the writer would.
std::string ProjektStand(const Session& s);
// The same; read tells whether the file was read to its end and the session now holds it, which
// is also the case with a result false when a component's CAS-RN is not in the database (the
// mixture is then loaded with a gap, KompIdx 0). A refused file leaves the session unchanged.
bool ProjektLesen(Session& s, const std::string& fileName, MsgSink* sink, bool& read);

}  // namespace peq
