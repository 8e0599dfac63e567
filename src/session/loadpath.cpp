#include "session/loadpath.h"

#include "session/project.h"
#include "substances/bank.h"

namespace peq {

LoadStage ProjektLaden(Session& s, const std::string& fileName, MsgSink* sink) {
  bool read = false;
  if (!ProjektLesen(s, fileName, sink, read))
    return read ? LoadStage::ReadWithGap : LoadStage::NotRead;
  s.Komp1 = 1;
  s.Komp2 = 2;
  bool ok = false;
  LoadSubstances(s, ok, sink);
  if (!ok) return LoadStage::SubstancesFailed;

  // The program goes on with the enabling of the commands and the model window, which takes
  // GEModel, GEModelEOS, EOSModel, MixRule, VapModel, P0Eq and GEPar as they stand; its
  // "Models OK" commits them. A front end without that window (peqcalc) commits them right
  // here, once that commit exists as a routine of the model window's logic.
  return LoadStage::Loaded;
}

}  // namespace peq
