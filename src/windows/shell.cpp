#include "windows/shell.h"

#include <cstdio>
#include <fstream>
#include <system_error>

#include "session/codepage.h"
#include "session/loadpath.h"
#include "session/project.h"
#include "substances/bank.h"
#include "substances/unifacfiles.h"
#include "windows/protokoll.h"

namespace peq {

namespace fs = std::filesystem;

namespace {

constexpr CmdId Id(Cmd c, int16_t i = -1) { return CmdId{c, i}; }

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

// The text cut from the right until its last character is a path separator.
std::string BisTrenner(std::string text) {
  while (!text.empty() && !IsSeparator(text.back())) text.pop_back();
  return text;
}

std::string MitTrenner(const fs::path& p) {
  std::string t = p.string();
  if (!t.empty() && !IsSeparator(t.back())) t += '/';
  return t;
}

// What the user is told about a window this front end does not have yet.
const char* Fensterbeschreibung(WindowId id) {
  switch (id) {
    case WindowId::frmAEdit: return "The substance data editor";
    case WindowId::frmTpxEdit: return "The window of the experimental T-p-x data";
    case WindowId::frmTpxInput: return "The input window of the diagrams";
    case WindowId::frmXYEdit: return "The XY editor";
    case WindowId::frmFitting: return "The fitting of parameters";
    case WindowId::frmGraph2D: return "The 2D diagram";
    case WindowId::frmGraph3D: return "The 3D diagram";
    case WindowId::frmGraphCalc: return "The single-point calculator of the diagrams";
    case WindowId::frmCalcInput: return "The single-state calculation";
    case WindowId::frmCalcOut: return "The result window of the single-state calculation";
    case WindowId::frmThieleMcCabe: return "The McCabe-Thiele design";
    case WindowId::frmBatchDist: return "The batch distillation";
    case WindowId::frmDistProtokoll: return "The distillation record";
    default: return "This window";
  }
}

// Writable test of a directory: a small file is created and removed again.
bool Beschreibbar(const fs::path& dir) {
  std::error_code ec;
  if (!fs::is_directory(dir, ec)) return false;
  const fs::path probe = dir / ".peq_write_probe";
  {
    std::ofstream f(probe, std::ios::binary | std::ios::trunc);
    if (!f) return false;
  }
  fs::remove(probe, ec);
  return true;
}

}  // namespace

std::string FensterKurztitel(const std::string& text, int maxLength) {
  const int len = static_cast<int>(Utf8Length(text));
  if (len <= maxLength) return text;
  // Character positions to byte offsets.
  std::vector<std::size_t> at;
  for (std::size_t b = 0; b < text.size(); ++b)
    if ((static_cast<unsigned char>(text[b]) & 0xC0) != 0x80) at.push_back(b);
  int start = len - maxLength + 6;  // 1-based
  if (start < 1) start = 1;
  std::size_t from = start <= len ? at[static_cast<std::size_t>(start - 1)] : text.size();
  const std::size_t sep = text.find_first_of("\\/", from);
  if (sep != std::string::npos) from = sep;
  const std::size_t head = len >= 3 ? at[3] : text.size();
  return text.substr(0, head) + "..." + text.substr(from);
}

std::string NeueProtokollDatei(const fs::path& dir, const std::tm& date) {
  // The same name the record gives when it begins: yymmdd from the date text, then the serial.
  return ProtokollDateiName(dir, DatumText(date));
}

std::string NeueProtokollDatei(const fs::path& dir) {
  const std::time_t now = std::time(nullptr);
  std::tm date{};
  localtime_r(&now, &date);
  return NeueProtokollDatei(dir, date);
}

std::string KompStatusText(const Session& s) {
  if (!s.BankOffen) return "...not yet a database";
  std::string t = "database " + s.BankDatei + kNL + "containing " + std::to_string(s.BankAnz) +
                  " substances" + kNL + kNL;
  if (s.NKomp == 0) {
    t += " not yet selected the components of the mixture";
  } else {
    t += "components of the mixture:";
    for (int i = 1; i <= s.NKomp; ++i) {
      const std::size_t k = static_cast<std::size_t>(i);
      const int place = s.KompIdx[k];
      const int nr = (place >= 1 && place <= s.BankAnz) ? s.BankNr[static_cast<std::size_t>(place)] : 0;
      t += kNL + std::to_string(i) + ".   " + FixedField(s.StoffData[k].Formel, 12) +
           FixedField(s.StoffData[k].CasNr, 12) + Trim(s.StoffData[k].Name) + " (#" + std::to_string(nr) + ")";
    }
  }
  t += std::string(kNL) + kNL + "(for more parameters of the project see under \"Options\")";
  return t;
}

std::string BatchStatusText(const Session& s) {
  if (s.ExpAnz == 0) return "...not yet loaded";
  if (s.ExpUngespeichert)
    return std::to_string(s.ExpAnz) + " sets of data available, " + kNL + "but not yet saved";
  return "File " + s.ExpDatei + kNL + "containing " + std::to_string(s.ExpAnz) + " sets of data";
}

fs::path HelpPage(const fs::path& helpDir, int topic) {
  std::error_code ec;
  const fs::path p = helpDir / (std::to_string(topic) + ".html");
  if (fs::exists(p, ec)) return p;
  return helpDir / "notyet.html";
}

std::string InfoText() {
  return std::string("PEQ - phase equilibria and thermodynamic functions of mixtures") + kNL +
         "of up to ten substances." + kNL + kNL +
         "Gamma-phi concept: Wilson, NRTL, UNIQUAC, Redlich-Kister, UNIFAC and" + kNL +
         "Modified UNIFAC (Dortmund) with ideal gas, virial or cubic vapour phase." + kNL +
         "Phi-phi concept: Redlich-Kwong, Soave-Redlich-Kwong, Peng-Robinson and" + kNL +
         "van der Waals with van der Waals or gE mixing rules." + kNL + kNL +
         "The bundled database is built from published data; the file README.md" + kNL +
         "of the data directory names the sources.";
}

mdiPEQ::mdiPEQ(Session& session, Ui& u, fs::path progDir, fs::path dataDir)
    : s(session), ui(u), ProgDir(std::move(progDir)), DataDir(std::move(dataDir)) {
  HelpDir = ProgDir / "help";
  LastSessionFile = kLastSessionName;
  writable_ = Beschreibbar(ProgDir);
}

fs::path mdiPEQ::WriteDir() const {
  if (writable_ || DataDir.empty()) return ProgDir;
  std::error_code ec;
  fs::create_directories(DataDir, ec);
  return DataDir;
}

fs::path mdiPEQ::LastSessionPath() const { return WriteDir() / LastSessionFile; }

std::string mdiPEQ::Title() const {
  if (!s.BankOffen) return kFrameTitle;
  std::string t = kFrameTitle;
  if (!TitelProjekt.empty()) {
    std::string bare = TitelProjekt;
    const std::size_t sep = bare.find_last_of("/\\");
    if (sep != std::string::npos) bare.erase(0, sep + 1);
    t += " - " + bare;
  }
  if (Ungespeichert()) t += " *";
  return t + "  [" + FensterKurztitel(BankPfadDatei(s), 60) + "]";
}

bool mdiPEQ::Ungespeichert() const {
  if (s.NKomp < 1) return false;
  try {
    return ProjektStand(s) != gespeichert_;
  } catch (const std::exception&) {
    return true;
  }
}

void mdiPEQ::AlsGespeichertMerken() {
  try {
    gespeichert_ = ProjektStand(s);
  } catch (const std::exception&) {
    gespeichert_.clear();
  }
}

void mdiPEQ::ShowBox(const std::string& title, const std::string& text, MsgIcon icon) {
  ui.MsgBox(title, text, icon, Buttons::Ok);
}

// ---- start-up and exit ----

void mdiPEQ::Startup() {
  StartSteps.clear();
  // 1. The small session arrays; the gamma-phi concept.
  Step(1);
  s.KompIdx.assign(1, 0);
  s.StoffMenge.assign(1, 0);
  s.Konzept = false;
  // 2. First-steps panel hidden; the name of the last session.
  Step(2);
  Picture1Visible = false;
  LastSessionFile = kLastSessionName;
  // 3. The derivative items of the gE and delta(M)g diagrams hidden (with the start states).
  Step(3);
  Gating(GateEvent::Start, s, cmds);
  for (int16_t i = 4; i <= 7; ++i) {
    cmds.Show(Id(Cmd::graf1, i), false);
    cmds.Show(Id(Cmd::graf2, i), false);
  }
  // 4. The decimal character of the system: 3/4 as the system writes it.
  Step(4);
  s.DezKomma = ui.SystemNumberText(3.0 / 4.0).find(',') != std::string::npos;
  // 5. The parameter files beside the program.
  Step(5);
  ChooseUnifacFiles(ProgDir, s.ModUnifFile, s.OUnifFile);
  // 6. Session defaults.
  Step(6);
  s.Komp1 = 1;
  s.Komp2 = 2;
  s.NKomp = 0;
  s.IsoArt = 1;
  s.VapModel = 0;
  s.ParUnitKij = 2;
  s.ParUnitWilson = 2;
  s.ParUnitNRTL = 0;
  s.ParUnitUNIQUAC = 0;
  s.EOSModel = 4;
  s.MixRule = 2;
  s.GEModelEOS = 2;
  s.TIso = 298.15;
  s.TCalc = 298.15;
  s.PCalc = 101.325;
  s.EtaVCalc = 0;
  s.KurvenPunkte = 600;
  s.ListTrenner = ";";
  s.Safeguard = ui.GetSetting(kSafeguardSection, kSafeguardKey, "1") != "0";
  s.ProtokollDatei = NeueProtokollDatei(WriteDir());
  // 7. Arrays for two components.
  Step(7);
  AllocSession(s, 2);
  // 8. The remembered directories and the help pages.
  Step(8);
  const std::string dir = MitTrenner(ProgDir);
  s.PfadProjekt = s.PfadXY = s.PfadOC2 = s.PfadOC3 = s.PfadBank = dir;
  HelpDir = ProgDir / "help";
  // 9. mnuEdit, mnuSaveProject and button 7 disabled; the phantom child.
  Step(9);
  cmds.Enable(Id(Cmd::mnuEdit), false);
  cmds.Enable(Id(Cmd::mnuSaveProject), false);
  cmds.Enable(Id(Cmd::Toolbar1, 7), false);
  Show(WindowId::frmPhantom);
  CommandsChanged();
  ui.FrameTitleChanged();
  // 10. The tip window, unless the tips are switched off.
  Step(10);
  if (Tip.Load(*this, false))
    Show(WindowId::frmTip);
  else
    Unload(WindowId::frmTip);
}

void mdiPEQ::Exit() {
  // 1. The last session, when a database is open.
  if (s.BankOffen) {
    std::string err;
    if (!ProjektSchreiben(s, LastSessionPath().string(), "", err)) ShowBox("Error", err, MsgIcon::Stop);
  }
  // 2. Files are closed where they are used; none is held open here.
  // 3. The result record.
  if (s.ProtokollAktiv && ProtokollSchreiben) ProtokollSchreiben();
  // 4. An empty record file goes.
  std::error_code ec;
  if (!s.ProtokollDatei.empty() && fs::exists(s.ProtokollDatei, ec) && fs::file_size(s.ProtokollDatei, ec) == 0)
    fs::remove(s.ProtokollDatei, ec);
  // 5. Help windows closed; the end.
  ui.CloseHelp();
  ui.Quit();
}

void mdiPEQ::Activated() {
  Gating(GateEvent::Activated, s, cmds);
  CommandsChanged();
}

// ---- first-steps panel ----

void mdiPEQ::cmdErstnutzer_Click() {
  Picture1Visible = !Picture1Visible;
  ui.Refresh(WindowId::frmPhantom);
}

void mdiPEQ::Picture1_Click() {
  Picture1Visible = false;
  ui.Refresh(WindowId::frmPhantom);
}

void mdiPEQ::Label1_Click(int) { Picture1_Click(); }

// ---- windows ----

void mdiPEQ::Show(WindowId id) {
  if (!ui.Provides(id)) {
    NichtVerfuegbar(id);
    return;
  }
  loaded_[static_cast<std::size_t>(id)] = true;
  ui.ShowWindow(id);
}

bool mdiPEQ::RunModal(WindowId id) {
  if (!ui.Provides(id)) {
    NichtVerfuegbar(id);
    return false;
  }
  loaded_[static_cast<std::size_t>(id)] = true;
  const bool ok = ui.RunModal(id);
  loaded_[static_cast<std::size_t>(id)] = false;
  return ok;
}

void mdiPEQ::Unload(WindowId id) {
  if (id == WindowId::frmVModell) {
    Unload(WindowId::frmGEInput);
    Unload(WindowId::frmKijInput);
  }
  if (!IsLoaded(id)) return;
  // The record window writes the rows it holds before it goes.
  if (id == WindowId::frmDistProtokoll) DistProtokoll.QueryUnload(*this);
  loaded_[static_cast<std::size_t>(id)] = false;
  ui.UnloadWindow(id);
}

void mdiPEQ::NichtVerfuegbar(WindowId id) {
  ShowBox("Note", std::string(Fensterbeschreibung(id)) + " is not yet part of this version of the program.",
          MsgIcon::Information);
}

// ---- command dispatch ----

void mdiPEQ::Run(CmdId id) {
  const CommandDef* def = FindCommand(id);
  if (!def) return;
  if (def->kind == CmdKind::Button) {
    ToolbarClick(id.index);
    return;
  }
  if (!cmds.Reachable(id)) return;
  if (def->action == Action::OpenDaten) {
    mnuDaten_Click();
    return;
  }
  if (def->action == Action::None || def->action == Action::WindowList) return;
  // Menu commands unload the tip window first.
  Unload(WindowId::frmTip);
  switch (def->action) {
    case Action::OpenBank: mnuOpenBank_Click(); break;
    case Action::LoadLastSession: mnuLoadLastSession_Click(); break;
    case Action::LoadProject: mnuLoadProject_Click(); break;
    case Action::SaveProject: mnuSaveProject_Click(); break;
    case Action::KompStatus: mnuKompStatus_Click(); break;
    case Action::BatchStatus: mnuBatchStatus_Click(); break;
    case Action::ExpInput: mnuExpInput_Click(); break;
    case Action::ExpEdit: mnuExpEdit_Click(); break;
    case Action::EditXY: mnuEditXY_Click(); break;
    case Action::Fit: mnuFit_Click(); break;
    case Action::KonsTest: mnuKonsTest_Click(); break;
    case Action::SubEdit: mnuSubEdit_Click(id.index); break;
    case Action::OUnifTable: mnuOUnif_Click(); break;
    case Action::MUnifTable: mnuMUnif_Click(); break;
    case Action::Exit: Exit(); break;
    case Action::Stoff: mnuStoff_Click(); break;
    case Action::Modell: mnuModell_Click(); break;
    case Action::Diagram2D: graf_Click(id); break;
    case Action::Diagram3D: mnu3DSub_Click(id.index); break;
    case Action::Thiele: mnuThiele_Click(); break;
    case Action::BatchDist: mnuBatchDist_Click(); break;
    case Action::Calc: calc_Click(id.index); break;
    case Action::Options: mnuOptions_Click(); break;
    case Action::Help: ui.ShowHelp(def->helpTopic); break;
    case Action::Tip: mnuTip_Click(); break;
    case Action::Info: ShowBox(kInfoTitle, InfoText(), MsgIcon::Information); break;
    default: break;
  }
}

void mdiPEQ::ToolbarClick(int button) {
  const CmdId id = Id(Cmd::Toolbar1, static_cast<int16_t>(button));
  const CommandDef* def = FindCommand(id);
  if (!def || !cmds.Enabled(id)) return;
  for (WindowId w : kToolbarUnloads) Unload(w);
  Unload(WindowId::frmTip);
  switch (def->action) {
    case Action::OpenBank: mnuOpenBank_Click(); break;
    case Action::LoadLastSession: mnuLoadLastSession_Click(); break;
    case Action::LoadProject: mnuLoadProject_Click(); break;
    case Action::SaveProject: mnuSaveProject_Click(); break;
    default: break;
  }
}

// ---- database and mixture ----

void mdiPEQ::SelectAndLoadBank(bool& cancel) {
  cancel = true;
  FileDialogRequest req;
  req.save = false;
  req.title = "Select and load database";
  req.filter = "Database (*.Q07)|*.Q07";
  req.initialDir = s.PfadBank;
  req.defaultExt = "*.Q07";
  req.flags = 530444;
  const FileDialogResult r = ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty()) return;
  const std::string oldPfad = s.PfadBank;
  s.PfadBank = BisTrenner(r.fileName);
  bool notFound = false, empty = false;
  BankOeffnen(s, r.fileTitle, notFound, empty);
  if (notFound || empty) {
    // The open database stays where it was found.
    s.PfadBank = oldPfad;
    if (s.BankOffen) {
      ShowBox("WARNING",
              "database " + r.fileTitle + " not found or empty resp." + kNL + "Database already loaded " +
                  s.BankDatei + " is still activ.",
              MsgIcon::Warning);
    } else {
      ShowBox(kTitleNotPossible, "data base" + r.fileTitle + " nor found or empty", MsgIcon::Stop);
    }
    return;
  }
  s.BankDatei = r.fileTitle;
  cancel = false;
}

void mdiPEQ::ResetModelsFrame() {
  ResetModels(s);
  Gating(GateEvent::ResetModels, s, cmds);
}

void mdiPEQ::UpdateKomponentenMenue() {
  if (s.NKomp < 1) return;
  for (int16_t i = 1; i <= 10; ++i) {
    const CmdId id = Id(Cmd::mnuSubEdit, i);
    if (i <= s.NKomp) {
      cmds.SetCaption(id, Trim(s.StoffData[static_cast<std::size_t>(i)].Name));
      cmds.Show(id, true);
    } else {
      cmds.Show(id, false);
    }
  }
  CommandsChanged();
}

void mdiPEQ::mnuOpenBank_Click() {
  bool cancel = true;
  SelectAndLoadBank(cancel);
  if (cancel) return;
  for (WindowId w : kToolbarUnloads) Unload(w);
  Unload(WindowId::frmStoffwahl);
  ResetModelsFrame();
  Gating(GateEvent::BankOpened, s, cmds);
  s.NKomp = 0;
  TitelProjekt.clear();  // a new project
  CommandsChanged();
  ui.FrameTitleChanged();
  mnuStoff_Click();
}

void mdiPEQ::mnuStoff_Click() {
  Stoffwahl.Load(*this);
  Show(WindowId::frmStoffwahl);
}

void mdiPEQ::mnuModell_Click() {
  Unload(WindowId::frmVModell);
  VModell.Load(*this);
  Show(WindowId::frmVModell);
}

// ---- projects ----

void mdiPEQ::NachProjektLaden() {
  Gating(GateEvent::ProjectLoaded, s, cmds);
  CommandsChanged();
  UpdateKomponentenMenue();
  mnuModell_Click();
  mnuKompStatus_Click();
}

void mdiPEQ::mnuLoadLastSession_Click() {
  for (WindowId w : kToolbarUnloads) Unload(w);
  Unload(WindowId::frmStoffwahl);
  MsgSink sink;
  const LoadStage st = ProjektLaden(s, LastSessionPath().string(), &sink);
  if (st != LoadStage::NotRead) {
    TitelProjekt.clear();
    AlsGespeichertMerken();
  }
  ShowMessages(ui, sink);
  ui.FrameTitleChanged();
  // The last session enables the commands only when the file was read and the substances loaded.
  if (st == LoadStage::Loaded) NachProjektLaden();
}

std::string mdiPEQ::ProjektAuswaehlen(std::string* commentOut) {
  std::string path = s.PfadProjekt;
  std::string file = s.ProjektDatei;
  BankNurName(file);
  std::string comment;
  bool cancel = true;
  DateiDialog("Open", path, file, comment, cancel, kProjektFilter, "Load a project");
  if (cancel || file.empty()) return std::string();
  if (commentOut) *commentOut = comment;
  std::string name = path;
  if (!name.empty() && !IsSeparator(name.back())) name += '/';
  name += file;
  s.ProjektDatei = name;
  s.PfadProjekt = BisTrenner(name);
  return name;
}

void mdiPEQ::mnuLoadProject_Click() {
  std::string comment;
  const std::string file = ProjektAuswaehlen(&comment);
  ui.FrameTitleChanged();
  if (file.empty()) return;
  for (WindowId w : kToolbarUnloads) Unload(w);
  Unload(WindowId::frmStoffwahl);
  MsgSink sink;
  const LoadStage st = ProjektLaden(s, file, &sink);
  // The reader sets the comment of the file; the one edited in the preview carries into the
  // next save.
  if (st != LoadStage::NotRead) {
    s.ProjektKommentar = comment;
    TitelProjekt = file;
    AlsGespeichertMerken();
  }
  ShowMessages(ui, sink);
  ui.FrameTitleChanged();
  switch (st) {
    case LoadStage::Loaded:
    case LoadStage::SubstancesFailed:
      // A readable project enables the commands whatever the loading of the substances said.
      NachProjektLaden();
      break;
    case LoadStage::ReadWithGap:
      // The mixture now has a component without data: nothing may calculate on it.
      Gating(GateEvent::ResetModels, s, cmds);
      CommandsChanged();
      break;
    case LoadStage::NotRead:
      break;
  }
}

bool mdiPEQ::ProjektSpeichern(const std::string& fileName) {
  std::string comment;
  if (!IsLastSessionName(fileName)) {
    const std::optional<std::string> a = ui.InputBox(" File comment (optional) ",
                                                     std::string("Input of comment") + kNL + "<Cancel> = no comment",
                                                     s.ProjektKommentar);
    comment = a.value_or(std::string());
    s.ProjektKommentar = comment;
  }
  std::string err;
  if (!ProjektSchreiben(s, fileName, comment, err)) {
    ShowBox("Error", err, MsgIcon::Stop);
    return false;
  }
  if (!IsLastSessionName(fileName)) {
    TitelProjekt = fileName;
    AlsGespeichertMerken();
    ui.StatusLine("Project saved: " + fileName);
    ui.FrameTitleChanged();
  }
  return true;
}

void mdiPEQ::mnuSaveProject_Click() {
  FileDialogRequest req;
  req.save = true;
  req.title = "Save actual session as ...";
  req.filter = "PEQ Project file (*.PQC)|*.PQC";
  req.initialDir = s.PfadProjekt;
  std::string initial = s.ProjektDatei;
  req.initialFile = BankNurName(initial);
  req.defaultExt = ".PQC";
  req.flags = 2623494;
  const FileDialogResult r = ui.FileDialog(req);
  if (r.cancelled || r.fileName.empty()) return;
  if (ProjektSpeichern(r.fileName)) {
    s.ProjektDatei = r.fileName;
    s.PfadProjekt = BisTrenner(r.fileName);
  }
}

void mdiPEQ::DateiDialog(const std::string& mode, std::string& path, std::string& file,
                         std::string& comment, bool& cancel, const std::string& filter,
                         const std::string& title) {
  CmnDlg.Load(*this, mode, path, file, filter, title);
  const bool ok = RunModal(WindowId::frmCmnDlg);
  cancel = !ok || CmnDlg.Abbruch;
  if (cancel) return;
  path = CmnDlg.ErgebnisPfad;
  file = CmnDlg.ErgebnisDatei;
  comment = s.ProjektKommentar;
}

// ---- status boxes ----

void mdiPEQ::mnuKompStatus_Click() { ShowBox(kKompStatusTitle, KompStatusText(s), MsgIcon::Information); }

void mdiPEQ::mnuBatchStatus_Click() { ShowBox(kBatchStatusTitle, BatchStatusText(s), MsgIcon::Information); }

// ---- experimental data ----

void mdiPEQ::mnuDaten_Click() {
  Gating(GateEvent::DatenOpened, s, cmds);
  CommandsChanged();
}

void mdiPEQ::mnuExpInput_Click() {
  if (s.NKomp != 2) {
    ShowBox(kTitleNotPossible, "Possible only for a two-substance mixture.", MsgIcon::Stop);
    return;
  }
  NeuEingabe = true;
  s.ExpAnz = 0;
  s.ExpUngespeichert = true;
  ExpLoeschen(s);
  TpxEdit.Form_Load(*this);
  Show(WindowId::frmTpxEdit);
}

void mdiPEQ::mnuExpEdit_Click() {
  if (s.ExpAnz <= 0) return;
  NeuEingabe = false;
  const std::size_t sep = s.ExpDatei.find_first_of("\\/");
  TpxEditTitel = (sep == std::string::npos ? s.ExpDatei : s.ExpDatei.substr(sep + 1)) + " " + "Edit data ";
  TpxEdit.Form_Load(*this);
  Show(WindowId::frmTpxEdit);
}

void mdiPEQ::mnuEditXY_Click() {
  if (!IsLoaded(WindowId::frmXYEdit)) ManuInput.Form_Load(*this);
  Show(WindowId::frmXYEdit);
}

void mdiPEQ::mnuKonsTest_Click() {
  double sumL = 0, sumV = 0;
  if (ExpSummen) ExpSummen(sumL, sumV);
  if (sumL == 0 || sumV == 0) {
    ShowBox(kTitleNotPossible,
            std::string("To carry out a consistency test composition of") + kNL +
                "both liquid and vapour phase must be given. ",
            MsgIcon::Stop);
    s.KonsTestAktiv = false;
    return;
  }
  s.KonsTestAktiv = true;
  s.GEModel = 4;
  RunModal(WindowId::frmFitting);
}

void mdiPEQ::mnuFit_Click() {
  RunModal(WindowId::frmFitting);
  mnuModell_Click();
}

// ---- distillation and calculations ----

namespace {
constexpr WindowId kRechenfenster[] = {WindowId::frmGraph2D,   WindowId::frmBatchDist, WindowId::frmThieleMcCabe,
                                       WindowId::frmDistProtokoll, WindowId::frmGraph3D, WindowId::frmTpxInput,
                                       WindowId::frmCalcInput, WindowId::frmCalcOut};
}  // namespace

void mdiPEQ::mnuBatchDist_Click() {
  if (s.GEModel == 4) {
    ShowBox(kTitleNotPossible,
            std::string("For the batch distillation the activity-coefficient model") + kNL +
                "REDLICH-KISTER is not implemented." + kNL + "Select an other model in the window \"Models\".",
            MsgIcon::Stop);
    return;
  }
  s.IsoArt = 2;
  DestillAktiv = true;
  for (WindowId w : kRechenfenster) Unload(w);
  if (RunModal(WindowId::frmTpxInput)) Show(WindowId::frmBatchDist);
  s.ProtokollZeile.assign(static_cast<std::size_t>((5 + s.NKomp) * s.NFrak + s.NKomp + 2) + 1);
  DistProtokoll.P.Einrichten(kProtBatch, s.NKomp, s.NFrak);
}

void mdiPEQ::mnuThiele_Click() {
  s.NoDia = 6;
  s.IsoArt = 2;
  DestillAktiv = true;
  for (WindowId w : kRechenfenster) Unload(w);
  if (RunModal(WindowId::frmTpxInput)) {
    s.SofortZeichnen = true;  // the x-y curve is drawn before the design window opens
    if (DiagrammRechnen) DiagrammRechnen();
    Thiele.Form_Load(*this);
    Show(WindowId::frmThieleMcCabe);
  }
  s.ProtokollZeile.assign(static_cast<std::size_t>(3 * s.NKomp + 4) + 1);
  DistProtokoll.P.Einrichten(kProtThiele, s.NKomp, 0);
}

void mdiPEQ::calc_Click(int index) {
  if (index == 1) {
    s.Rechenart = 1;
    s.ProtokollZeile.assign(static_cast<std::size_t>(7 * s.NKomp + 9) + 1);
  } else if (index == 3) {
    s.Rechenart = 2;
    s.ProtokollZeile.assign(static_cast<std::size_t>(3 * s.NKomp + 4) + 1);
  } else {
    return;
  }
  DestillAktiv = false;
  for (WindowId w : kRechenfenster) Unload(w);
  Show(WindowId::frmCalcInput);
}

void mdiPEQ::graf_Click(CmdId id) {
  Unload(WindowId::frmGraph2D);
  const CommandDef* def = FindCommand(id);
  if (!def || def->kind != CmdKind::Command) return;  // graf(12), graf(13): submenus only
  s.NoDia = def->noDia;
  DestillAktiv = false;  // a diagram of its own, not the column of a distillation
  s.DiagMitExp = DiagMitExpOf(def->noDia);
  s.IsoArt = IsoArtOf(def->noDia);
  const bool ok = RunModal(WindowId::frmTpxInput);
  s.DiagAbbruch = !ok;
  if (!ok) return;
  if (s.NoDia == 9 && s.GEModel == 0)
    ShowBox("no execution",
            std::string("for ideal behaviour of mix\xC3\xADng the test of consistency ") + kNL +
                "of the activity coefficients is not reasonable",
            MsgIcon::Warning);
  if (DiagrammRechnen) DiagrammRechnen();
}

void mdiPEQ::mnu3DSub_Click(int index) {
  const CommandDef* def = FindCommand(Id(Cmd::mnu3DSub, static_cast<int16_t>(index)));
  if (!def || def->kind != CmdKind::Command) return;
  s.NoDia3 = def->noDia;
  Unload(WindowId::frmGraph3D);
  if (!ui.Provides(WindowId::frmGraph3D)) {
    NichtVerfuegbar(WindowId::frmGraph3D);
    return;
  }
  if (!Graph3D.Form_Load(*this)) return;
  try {
    Show(WindowId::frmGraph3D);
  } catch (const std::exception&) {
    // The window layer could not create the 3D chart (no OpenGL): the command ends here.
    loaded_[static_cast<std::size_t>(WindowId::frmGraph3D)] = false;
    ShowBox(kTitleNotPossible, std::string(k3DModulFehler) + kNL + kModulRegistrieren, MsgIcon::Stop);
  }
}

// ---- options, tips, tables, editor ----

void mdiPEQ::mnuOptions_Click() {
  Options.Load(s);
  Show(WindowId::frmOptions);
}

void mdiPEQ::mnuTip_Click() {
  if (Tip.Load(*this, true)) Show(WindowId::frmTip);
}

void mdiPEQ::mnuOUnif_Click() {
  bool ok = false;
  const std::string text = OUnifacTableText(s.OUnifFile, ok);
  if (!ok) {
    ShowBox("Error", "file " + (s.OUnifFile.empty() ? std::string(kOUnifFiles[0]) : s.OUnifFile) + " not found",
            MsgIcon::Stop);
    return;
  }
  UnifInkr.Caption = kOUnifTableCaption;
  UnifInkr.Text = text;
  Unload(WindowId::frmUnifInkr);
  Show(WindowId::frmUnifInkr);
}

void mdiPEQ::mnuMUnif_Click() {
  bool ok = false;
  const std::string text = MUnifacTableText(s.ModUnifFile, ok);
  if (!ok) {
    ShowBox("Error",
            "file " + (s.ModUnifFile.empty() ? std::string(kModUnifFiles[3]) : s.ModUnifFile) + " not found",
            MsgIcon::Stop);
    return;
  }
  UnifInkr.Caption = kMUnifTableCaption;
  UnifInkr.Text = text;
  Unload(WindowId::frmUnifInkr);
  Show(WindowId::frmUnifInkr);
}

void mdiPEQ::mnuSubEdit_Click(int index) {
  if (index < 1 || index > s.NKomp) return;
  if (IsLoaded(WindowId::frmAEdit) && !AEdit.Verlassen(*this)) return;
  AEdit.Load(*this, index);
  Unload(WindowId::frmAEdit);
  Show(WindowId::frmAEdit);
}

}  // namespace peq
