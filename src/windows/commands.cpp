#include "windows/commands.h"

namespace peq {

namespace {

constexpr CmdId kTop{};
constexpr CmdId Id(Cmd c, int16_t i = -1) { return CmdId{c, i}; }

CommandDef Menu(CmdId id, const char* caption, CmdId parent, bool enabled,
                Action action = Action::None) {
  CommandDef d;
  d.id = id;
  d.kind = CmdKind::Menu;
  d.caption = caption;
  d.parent = parent;
  d.action = action;
  d.enabledAtStart = enabled;
  return d;
}

CommandDef Item(CmdId id, const char* caption, CmdId parent, Action action, bool enabled,
                bool visible = true) {
  CommandDef d;
  d.id = id;
  d.kind = CmdKind::Command;
  d.caption = caption;
  d.parent = parent;
  d.action = action;
  d.enabledAtStart = enabled;
  d.visibleAtStart = visible;
  return d;
}

CommandDef Separator(CmdId id, CmdId parent) {
  CommandDef d;
  d.id = id;
  d.kind = CmdKind::Separator;
  d.parent = parent;
  return d;
}

CommandDef Diagram(CmdId id, const char* caption, CmdId parent, int16_t noDia,
                   bool visible = true) {
  CommandDef d = Item(id, caption, parent, Action::Diagram2D, true, visible);
  d.noDia = noDia;
  d.isoArt = IsoArtOf(noDia);
  return d;
}

CommandDef Surface(int16_t index, const char* caption, int16_t surface) {
  CommandDef d = Item(Id(Cmd::mnu3DSub, index), caption, Id(Cmd::mnuGraph3D), Action::Diagram3D, true);
  d.noDia = surface;
  return d;
}

CommandDef HelpItem(CmdId id, const char* caption, int topic) {
  CommandDef d = Item(id, caption, Id(Cmd::mnuHelp), Action::Help, true);
  d.helpTopic = topic;
  return d;
}

CommandDef Button(int16_t number, const char* tip, Action action, bool enabled) {
  CommandDef d;
  d.id = Id(Cmd::Toolbar1, number);
  d.kind = CmdKind::Button;
  d.action = action;
  d.enabledAtStart = enabled;
  d.tip = tip;
  return d;
}

std::vector<CommandDef> BuildTable() {
  std::vector<CommandDef> t;
  const CmdId daten = Id(Cmd::mnuDaten);
  t.push_back(Menu(daten, " Data...", kTop, true, Action::OpenDaten));
  t.push_back(Item(Id(Cmd::mnuOpenBank), "Open database / New project", daten, Action::OpenBank, true));
  t.push_back(Item(Id(Cmd::mnuLoadLastSession), "Load last session", daten, Action::LoadLastSession, true));
  t.push_back(Item(Id(Cmd::mnuLoadProject), "Load a project", daten, Action::LoadProject, true));
  t.push_back(Item(Id(Cmd::mnuSaveProject), "Save actual session as ...", daten, Action::SaveProject, false));
  t.push_back(Separator(Id(Cmd::Sep, 0), daten));
  t.push_back(Menu(Id(Cmd::mnuStatus), "Status ...", daten, false));
  t.push_back(Item(Id(Cmd::mnuKompStatus), "Database / Components of the mixture", Id(Cmd::mnuStatus),
                   Action::KompStatus, true));
  t.push_back(Item(Id(Cmd::mnuBatchStatus), "T-p-x data", Id(Cmd::mnuStatus), Action::BatchStatus, true));
  t.push_back(Separator(Id(Cmd::Sep, 1), daten));
  t.push_back(Item(Id(Cmd::mnuExpInput), "exp. T-p-x data  New input / Load (*.EX5)", daten,
                   Action::ExpInput, false));
  t.push_back(Item(Id(Cmd::mnuExpEdit), "exp. T-p-x data  View / Edit", daten, Action::ExpEdit, false));
  t.push_back(Item(Id(Cmd::mnuFit), "Fitting of k(ij) or GE-model param. resp. on exp. data", daten,
                   Action::Fit, false));
  t.push_back(Item(Id(Cmd::mnuKonsTest), "Consistency test for experimental data", daten,
                   Action::KonsTest, false));
  t.push_back(Item(Id(Cmd::mnuEditXY), "XY Editor (Load | Input | Edit X-Y data)", daten, Action::EditXY,
                   true));
  t.push_back(Separator(Id(Cmd::Sep, 2), daten));
  const CmdId edit = Id(Cmd::mnuEdit);
  t.push_back(Menu(edit, " View / Edit data for substance ...", daten, false));
  static const char* const kStoff[10] = {"Stoff1", "Stoff2", "Stoff3", "Stoff4", "Stoff5",
                                         "Stoff6", "Stoff7", "Stoff8", "Stoff9", "Stoff10"};
  for (int16_t i = 1; i <= 10; ++i)
    t.push_back(Item(Id(Cmd::mnuSubEdit, i), kStoff[i - 1], edit, Action::SubEdit, true, false));
  t.push_back(Item(Id(Cmd::mnuOUnif), "Table of the UNIFAC groups", daten, Action::OUnifTable, true));
  t.push_back(Item(Id(Cmd::mnuMUnif), "Table of the Mod-UNIFAC groups", daten, Action::MUnifTable, true));
  t.push_back(Separator(Id(Cmd::Sep, 3), daten));
  t.push_back(Item(Id(Cmd::mnuExit), "Exit                                               Alt+F4", daten,
                   Action::Exit, true));

  t.push_back(Item(Id(Cmd::mnuStoff), "Substances", kTop, Action::Stoff, false));
  t.push_back(Item(Id(Cmd::mnuModell), "Models", kTop, Action::Modell, false));

  const CmdId g2 = Id(Cmd::mnuGraph2D);
  t.push_back(Menu(g2, "Diagram 2D (binary)...", kTop, false));
  t.push_back(Diagram(Id(Cmd::graf, 0), "p-x diagram                                 (isothermal)", g2, 1));
  t.push_back(Diagram(Id(Cmd::graf, 1), "Equilibrium diagram x(V) vs. x(L)  (isothermal)", g2, 3));
  t.push_back(Diagram(Id(Cmd::graf, 2), "T-x diagram                                 (isobaric)", g2, 4));
  t.push_back(Diagram(Id(Cmd::graf, 3), "Equilibrium diagram x(V) vs. x(L)  (isobaric)", g2, 6));
  t.push_back(Diagram(Id(Cmd::graf, 4), "Vapour pressure p=Fu(T)             (isosteric)", g2, 7));
  t.push_back(Separator(Id(Cmd::graf, 5), g2));
  t.push_back(Diagram(Id(Cmd::graf, 6), "Activity coefficients                 (isothermal / isobaric)", g2, 800));
  t.push_back(Diagram(Id(Cmd::graf, 7), "ln(f2/f1)                                  (isothermal)", g2, 9));
  t.push_back(Separator(Id(Cmd::graf, 8), g2));
  t.push_back(Diagram(Id(Cmd::graf, 9), "Relative volatility                     (isothermal / isobaric)", g2, 100));
  t.push_back(Diagram(Id(Cmd::graf, 10), "K-Values                                 (isothermal / isobaric)  ", g2, 500));
  t.push_back(Separator(Id(Cmd::graf, 11), g2));
  const CmdId g12 = Id(Cmd::graf, 12);
  t.push_back(Menu(g12, "Excess Gibbs function             (isothermal)", g2, true));
  static const char* const kGraf2[8] = {"0th deriv. GE",      "",
                                        "1st deriv.to x2",    "2nd deriv. to x2",
                                        "3rd deriv. to x2",   "4th deriv. to x2",
                                        "5th deriv. to x2",   "6th deriv. to x2"};
  for (int16_t i = 0; i <= 7; ++i) {
    if (i == 1) {
      t.push_back(Separator(Id(Cmd::graf2, 1), g12));
      continue;
    }
    t.push_back(Diagram(Id(Cmd::graf2, i), kGraf2[i], g12, static_cast<int16_t>(i == 0 ? 110 : 109 + i),
                        i < 4));
  }
  const CmdId g13 = Id(Cmd::graf, 13);
  t.push_back(Menu(g13, "Gibbs function of mixing         (isothermal)", g2, true));
  static const char* const kGraf1[8] = {"0th deriv. delta(M)g", "",
                                        "1st deriv. to x2",     "2nd deriv. to x2",
                                        "3rd deriv. to x2",     "4th deriv. to x2",
                                        "5th deriv. to x2",     "6th deriv. to x2"};
  for (int16_t i = 0; i <= 7; ++i) {
    if (i == 1) {
      t.push_back(Separator(Id(Cmd::graf1, 1), g13));
      continue;
    }
    t.push_back(Diagram(Id(Cmd::graf1, i), kGraf1[i], g13, static_cast<int16_t>(i == 0 ? 120 : 119 + i),
                        i < 4));
  }
  t.push_back(Diagram(Id(Cmd::graf, 14), "Enthalpie of mixing                 (isothermal)", g2, 15));
  t.push_back(Diagram(Id(Cmd::graf, 15), "Excess entropy T*SE              (isothermal)", g2, 16));
  t.push_back(Diagram(Id(Cmd::graf, 16), "Excess heat capacity              (isothermal)", g2, 17));
  t.push_back(Separator(Id(Cmd::graf, 17), g2));
  t.push_back(Diagram(Id(Cmd::graf, 18), "Density rhoL, rhoV vs. x         (isothermal)", g2, 181));
  t.push_back(Diagram(Id(Cmd::graf, 19), "Density rhoL, rhoV vs. x         (isobaric)", g2, 182));
  t.push_back(Diagram(Id(Cmd::graf, 20), "Density rhoL, rhoV vs. T         (isosteric)", g2, 183));

  t.push_back(Menu(Id(Cmd::mnuGraph3D), "Diagram 3D (binary)...", kTop, false));
  t.push_back(Surface(0, "Pressure                                p = Fu (x2(L), T)", 0));
  t.push_back(Surface(1, "Temperature                        T = Fu (x2(L), p)", 1));
  t.push_back(Surface(2, "Vapour phase                      x2(V) = Fu (x2(L), T)", 2));
  t.push_back(Surface(3, "Vapour phase                      x2(V) = Fu (x2(L), p)", 3));
  t.push_back(Separator(Id(Cmd::mnu3DSub, 4), Id(Cmd::mnuGraph3D)));
  t.push_back(Surface(5, "Excess Gibbs function         gE = Fu(x2(L), T)", 4));
  t.push_back(Surface(6, "Gibbs function of mixing     delta(M)g = Fu(x2(L), T)", 5));
  t.push_back(Surface(7, "Enthalpy of mixing              hE = Fu(x2(L), T)", 6));
  t.push_back(Surface(8, "Excess entropy                   T*sE = Fu(x2(L), T)", 7));

  const CmdId calc = Id(Cmd::mnuCalc);
  t.push_back(Menu(calc, "Calculations...", kTop, false));
  t.push_back(Item(Id(Cmd::calc, 1), "T-p-eta(V)-(density) calculation (Flash)", calc, Action::Calc, true));
  t.push_back(Separator(Id(Cmd::calc, 2), calc));
  t.push_back(Item(Id(Cmd::calc, 3), "Activity coefficients, ...", calc, Action::Calc, true));

  const CmdId dest = Id(Cmd::mnuDest);
  t.push_back(Menu(dest, " Distillation...", kTop, false));
  t.push_back(Item(Id(Cmd::mnuThiele), "McCabe-Thiele design method (for binary systems) ", dest,
                   Action::Thiele, false));
  t.push_back(Item(Id(Cmd::mnuBatchDist), "Batch distillation (multicomponent)", dest, Action::BatchDist,
                   true));

  t.push_back(Item(Id(Cmd::mnuOptions), "Options", kTop, Action::Options, false));
  t.push_back(Menu(Id(Cmd::mnuWindow), "Windows", kTop, true, Action::WindowList));

  const CmdId help = Id(Cmd::mnuHelp);
  t.push_back(Menu(help, "Help", kTop, true));
  t.push_back(HelpItem(Id(Cmd::mnuAbout), "About this program", 33390));
  t.push_back(HelpItem(Id(Cmd::mnuIndex), "Help index", 33410));
  t.push_back(Item(Id(Cmd::mnuTip), "Show tips", help, Action::Tip, true));
  t.push_back(Item(Id(Cmd::mnuInfo), "Information on this program", help, Action::Info, true));

  t.push_back(Button(2, " New project ", Action::OpenBank, true));
  t.push_back(Button(4, " Load last session", Action::LoadLastSession, true));
  t.push_back(Button(6, " Load an existing project  ", Action::LoadProject, true));
  t.push_back(Button(7, " Save the actual project ", Action::SaveProject, false));
  return t;
}

}  // namespace

const std::vector<CommandDef>& CommandTable() {
  static const std::vector<CommandDef> table = BuildTable();
  return table;
}

int CommandPlace(CmdId id) {
  const std::vector<CommandDef>& t = CommandTable();
  for (std::size_t k = 0; k < t.size(); ++k)
    if (t[k].id == id) return static_cast<int>(k);
  return -1;
}

const CommandDef* FindCommand(CmdId id) {
  const int k = CommandPlace(id);
  return k < 0 ? nullptr : &CommandTable()[static_cast<std::size_t>(k)];
}

std::string CmdName(CmdId id) {
  static const char* const kNames[] = {
      "",           "mnuDaten",     "mnuOpenBank",  "mnuLoadLastSession", "mnuLoadProject",
      "mnuSaveProject", "mnuStatus", "mnuKompStatus", "mnuBatchStatus",   "mnuExpInput",
      "mnuExpEdit", "mnuEditXY",    "mnuFit",       "mnuKonsTest",        "mnuEdit",
      "mnuSubEdit", "mnuOUnif",     "mnuMUnif",     "mnuExit",            "mnuStoff",
      "mnuModell",  "mnuGraph2D",   "graf",         "graf2",              "graf1",
      "mnuGraph3D", "mnu3DSub",     "mnuDest",      "mnuThiele",          "mnuBatchDist",
      "mnuCalc",    "calc",         "mnuOptions",   "mnuWindow",          "mnuHelp",
      "mnuAbout",   "mnuIndex",     "mnuTip",       "mnuInfo",            "Sep",
      "Toolbar1"};
  std::string n = kNames[static_cast<int>(id.name)];
  if (id.index >= 0) n += "(" + std::to_string(id.index) + ")";
  return n;
}

int16_t IsoArtOf(int noDia) {
  switch (noDia) {
    case 800: case 100: case 500: case 1: case 3: case 5: case 8: case 81: case 9: case 10:
    case 15: case 16: case 17: case 181:
      return 1;
    case 4: case 6: case 11: case 51: case 82: case 83: case 182:
      return 2;
    case 7: case 183:
      return 3;
    default:
      break;
  }
  if ((noDia >= 110 && noDia <= 116) || (noDia >= 120 && noDia <= 126)) return 1;
  return 0;
}

bool DiagMitExpOf(int noDia) {
  switch (noDia) {
    case 1: case 3: case 4: case 6: case 15: case 16: case 17: case 110: case 120:
      return true;
    default:
      return false;
  }
}

const char* const kErstnutzerTexte[5] = {
    "1.  Open a database: \" Data...\" - \"Open database / New project\". The database PEQBASE.Q07 "
    "comes with the program and stands in its directory.",
    "2.  Choose the components in the window \"Substances\": type a name, a synonym or a CAS-RN "
    "and press <Return>, move the substance to the right with \">\", and confirm with "
    "\"Mixture OK\".",
    "3.  Choose the concept and the models in the window \"Models\" (gE model, vapour phase, or an "
    "equation of state with its mixing rule), enter the binary parameters and press \"Models OK\".",
    "4.  Calculate: \"Calculations...\" for single states, \"Diagram 2D (binary)...\" and "
    "\"Diagram 3D (binary)...\" for a binary mixture, \" Distillation...\" for columns.",
    "5.  Keep your work with \" Data...\" - \"Save actual session as ...\". On leaving, the session "
    "is kept; \"Load last session\" brings it back at the next start.",
};

}  // namespace peq
