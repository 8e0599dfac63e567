// The enabled, visible and caption state of every command of the frame, and the gating: the
// rules that set them after each event, from the session.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"
#include "windows/commands.h"

namespace peq {

class CommandStates {
 public:
  struct State {
    bool enabled = true;
    bool visible = true;
    std::string caption;
  };

  // The states at start, as the command table gives them.
  CommandStates();
  void Reset();

  bool Enabled(CmdId id) const { return Get(id).enabled; }
  bool Visible(CmdId id) const { return Get(id).visible; }
  const std::string& Caption(CmdId id) const { return Get(id).caption; }
  // Enabled, visible, and every menu it stands in enabled and visible: what the user can reach.
  bool Reachable(CmdId id) const;

  void Enable(CmdId id, bool on) { Get(id).enabled = on; }
  void Show(CmdId id, bool on) { Get(id).visible = on; }
  void SetCaption(CmdId id, std::string caption) { Get(id).caption = std::move(caption); }

  // By place in CommandTable().
  const State& At(std::size_t place) const { return states_[place]; }

 private:
  State& Get(CmdId id);
  const State& Get(CmdId id) const;
  std::vector<State> states_;
};

enum class GateEvent {
  Start,           // program start
  BankOpened,      // mnuOpenBank succeeded
  MixtureOK,       // "Mixture OK" with at least 2 components
  MixtureTooFew,   // "Mixture OK" with fewer than 2
  ModelsAccepted,  // the model window accepted
  ProjectLoaded,   // a project or the last session loaded
  DatenOpened,     // the menu mnuDaten opened
  Activated,       // the frame activated
  ResetModels,     // the menu side of ResetModels
  ModelsToConfirm,  // "Apply" in the substance data editor: the models must be accepted again
};

// Sets the commands for the event from the session. The two 'Enabled' and 'Disabled' columns of
// the rules are one assignment each: a command set "= condition" is enabled or disabled by it.
void Gating(GateEvent event, const Session& s, CommandStates& c);

}  // namespace peq
