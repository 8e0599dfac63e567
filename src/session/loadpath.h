// The one way both front ends (the desktop program and peqcalc) build a session from a project
// file, in the order of a project load: the file is read, the binary components are set, the
// substance data are loaded from the database.
#pragma once

#include <string>

#include "session/session.h"

namespace peq {

// How far a project load came.
enum class LoadStage {
  NotRead,           // the file was refused (messages in the sink); the session is unchanged
  ReadWithGap,       // read, but a component's CAS-RN is not in the database (KompIdx 0)
  SubstancesFailed,  // read, but LoadSubstances refused the mixture (its message in the sink)
  Loaded,            // read and the substances loaded; the models stand as the file gave them
};

// ProjektLesen; when it reports ok: Komp1 := 1, Komp2 := 2, LoadSubstances. The models of the
// file are then in the session but not yet committed ("Models OK" of the model window).
LoadStage ProjektLaden(Session& s, const std::string& fileName, MsgSink* sink);

}  // namespace peq
