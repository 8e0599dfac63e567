#include "windows/gating.h"

#include <cstdlib>

namespace peq {

namespace {

constexpr CmdId Id(Cmd c, int16_t i = -1) { return CmdId{c, i}; }

}  // namespace

CommandStates::CommandStates() { Reset(); }

void CommandStates::Reset() {
  const std::vector<CommandDef>& t = CommandTable();
  states_.assign(t.size(), State{});
  for (std::size_t k = 0; k < t.size(); ++k) {
    states_[k].enabled = t[k].enabledAtStart;
    states_[k].visible = t[k].visibleAtStart;
    states_[k].caption = t[k].caption;
  }
}

CommandStates::State& CommandStates::Get(CmdId id) {
  const int k = CommandPlace(id);
  if (k < 0) std::abort();  // an id that is not in the table is a program error
  return states_[static_cast<std::size_t>(k)];
}

const CommandStates::State& CommandStates::Get(CmdId id) const {
  const int k = CommandPlace(id);
  if (k < 0) std::abort();
  return states_[static_cast<std::size_t>(k)];
}

bool CommandStates::Reachable(CmdId id) const {
  for (CmdId c = id; c.name != Cmd::None;) {
    const State& st = Get(c);
    if (!st.enabled || !st.visible) return false;
    c = FindCommand(c)->parent;
  }
  return true;
}

void Gating(GateEvent event, const Session& s, CommandStates& c) {
  const bool binary = s.NKomp == 2;
  switch (event) {
    case GateEvent::Start:
      c.Reset();
      c.Enable(Id(Cmd::mnuEdit), false);
      c.Enable(Id(Cmd::mnuSaveProject), false);
      c.Enable(Id(Cmd::Toolbar1, 7), false);
      for (int16_t i = 4; i <= 7; ++i) {
        c.Show(Id(Cmd::graf1, i), false);
        c.Show(Id(Cmd::graf2, i), false);
      }
      break;

    case GateEvent::BankOpened:
      Gating(GateEvent::ResetModels, s, c);
      c.Enable(Id(Cmd::mnuStatus), true);
      c.Enable(Id(Cmd::mnuStoff), true);
      break;

    case GateEvent::MixtureOK:
      for (CmdId id : {Id(Cmd::mnuModell), Id(Cmd::mnuStoff), Id(Cmd::mnuExpInput), Id(Cmd::mnuEdit),
                       Id(Cmd::mnuSaveProject), Id(Cmd::Toolbar1, 7)})
        c.Enable(id, s.LoadOK);
      break;

    case GateEvent::MixtureTooFew:
      for (CmdId id : {Id(Cmd::mnuModell), Id(Cmd::mnuDest), Id(Cmd::mnuGraph2D), Id(Cmd::mnuGraph3D),
                       Id(Cmd::mnuCalc), Id(Cmd::mnuOptions), Id(Cmd::mnuSaveProject),
                       Id(Cmd::Toolbar1, 7)})
        c.Enable(id, false);
      break;

    case GateEvent::ModelsAccepted:
      c.Enable(Id(Cmd::mnuCalc), true);
      c.Enable(Id(Cmd::mnuOptions), true);
      c.Enable(Id(Cmd::mnuDest), true);
      c.Enable(Id(Cmd::mnuBatchDist), !s.Konzept);
      c.Enable(Id(Cmd::calc, 3), !s.Konzept);
      c.Enable(Id(Cmd::mnuGraph2D), binary);
      c.Enable(Id(Cmd::mnuGraph3D), binary);
      c.Enable(Id(Cmd::mnuThiele), binary);
      c.Enable(Id(Cmd::graf, 6), !s.Konzept);
      c.Enable(Id(Cmd::graf, 7), !s.Konzept);
      for (int16_t i = 18; i <= 20; ++i) c.Enable(Id(Cmd::graf, i), s.Konzept);
      break;

    case GateEvent::ProjectLoaded:
      for (CmdId id : {Id(Cmd::mnuStoff), Id(Cmd::mnuModell), Id(Cmd::mnuStatus), Id(Cmd::mnuCalc),
                       Id(Cmd::mnuOptions), Id(Cmd::mnuDest), Id(Cmd::mnuExpInput), Id(Cmd::mnuEdit),
                       Id(Cmd::mnuSaveProject), Id(Cmd::Toolbar1, 7)})
        c.Enable(id, true);
      c.Enable(Id(Cmd::mnuGraph2D), binary);
      c.Enable(Id(Cmd::mnuGraph3D), binary);
      c.Enable(Id(Cmd::mnuThiele), binary);
      c.Enable(Id(Cmd::mnuBatchDist), !s.Konzept);
      c.Enable(Id(Cmd::calc, 3), !s.Konzept);
      break;

    case GateEvent::DatenOpened: {
      const bool fit = binary && s.ExpAnz > 4;
      c.Enable(Id(Cmd::mnuFit), fit);
      c.Enable(Id(Cmd::mnuExpEdit), s.ExpAnz >= 1);
      c.Enable(Id(Cmd::mnuKonsTest), fit && !s.Konzept);
      break;
    }

    case GateEvent::Activated: {
      const bool derivs = s.GEModel > 0 && s.GEModel < 20;
      for (int16_t i = 4; i <= 7; ++i) {
        c.Show(Id(Cmd::graf1, i), derivs);
        c.Show(Id(Cmd::graf2, i), derivs);
      }
      for (CmdId id : {Id(Cmd::mnuGraph2D), Id(Cmd::mnuGraph3D), Id(Cmd::mnuDest), Id(Cmd::mnuCalc)})
        c.Show(id, true);
      break;
    }

    case GateEvent::ResetModels:
      for (CmdId id : {Id(Cmd::mnuModell), Id(Cmd::mnuCalc), Id(Cmd::mnuOptions), Id(Cmd::mnuGraph2D),
                       Id(Cmd::mnuGraph3D), Id(Cmd::mnuDest)})
        c.Enable(id, false);
      break;

    case GateEvent::ModelsToConfirm:
      for (CmdId id : {Id(Cmd::mnuCalc), Id(Cmd::mnuOptions), Id(Cmd::mnuGraph2D), Id(Cmd::mnuGraph3D),
                       Id(Cmd::mnuDest)})
        c.Enable(id, false);
      c.Enable(Id(Cmd::mnuModell), true);
      break;
  }
}

}  // namespace peq
