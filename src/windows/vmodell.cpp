#include "windows/vmodell.h"

#include <cmath>
#include <utility>

#include "models/eos_pure.h"
#include "session/codepage.h"
#include "substances/unifacfiles.h"
#include "windows/geinput.h"
#include "windows/shell.h"

namespace peq {

namespace {

constexpr double kVorhanden = 1E-6;

int IndexOf(const int16_t* codes, int n, int code) {
  for (int k = 0; k < n; ++k)
    if (codes[k] == code) return k;
  return -1;
}

bool IstParameterModell(int code) { return code >= 1 && code <= 18; }

int16_t EinheitCode(const Session& s, int model) {
  switch (model) {
    case 1: return s.ParUnitWilson;
    case 2: return s.ParUnitNRTL;
    case 9: return s.ParUnitUNIQUAC;
    case 4: return 2;
    default: return -1;
  }
}

}  // namespace

std::string EinheitText(const Session& s) {
  if (s.Konzept && s.MixRule < 5) return kUnitNames[2];
  const int16_t code = EinheitCode(s, s.Konzept ? s.GEModelEOS : s.GEModel);
  if (code < 0 || code > 3) return kUnitNames[2];
  return kUnitNames[code];
}

void frmVModell::Load(mdiPEQ& f) {
  Session& s = f.s;
  Caption = kVModellCaption;
  if (IndexOf(kCEOSCodes, 4, s.EOSModel) < 0) s.EOSModel = 4;
  // The copy for cmdEsc.
  P0EqKopie = s.P0Eq;
  GEModelKopie = s.GEModel;
  ParUnitWilsonKopie = s.ParUnitWilson;
  ParUnitNRTLKopie = s.ParUnitNRTL;
  ParUnitUNIQUACKopie = s.ParUnitUNIQUAC;
  ParUnitKijKopie = s.ParUnitKij;
  tabModellKonzept = s.Konzept ? 1 : 0;

  // Which group model can be chosen for the mixture.
  MsgSink sink;
  modOK = unifOK = false;
  if (s.NKomp >= 1) CheckUnifac(s, modOK, unifOK, &sink);

  GEKombiTexte.clear();
  GEKombiCodes.clear();
  const auto add = [this](const char* text, int16_t code) {
    GEKombiTexte.emplace_back(text);
    GEKombiCodes.push_back(code);
  };
  add("ideal mixture", 0);
  if (modOK) add("Modified UNIFAC (Dortmund)", 20);
  if (unifOK) add("UNIFAC", 21);
  add("Wilson", 1);
  add("NRTL", 2);
  add("UNIQUAC", 9);
  add("Redlich/Kister", 4);
  GEKombiIndex = -1;
  for (std::size_t k = 0; k < GEKombiCodes.size(); ++k)
    if (GEKombiCodes[k] == s.GEModel) GEKombiIndex = static_cast<int>(k);
  // With no model chosen yet the list shows its first entry; "Models OK" takes what is shown.
  if (s.GEModel < 0) GEKombiIndex = 0;
  DampfKombiIndex = (s.VapModel >= 0 && s.VapModel <= 5) ? s.VapModel : 0;
  cmbCEOSIndex = IndexOf(kCEOSCodes, 4, s.EOSModel);
  cmbMixRuleIndex = IndexOf(kMixRuleCodes, 3, s.MixRule);
  cmbMixRuleGEIndex = IndexOf(kMixRuleGECodes, 3, s.GEModelEOS);

  const std::size_t m = static_cast<std::size_t>(s.NKomp) + 1;
  cmbP0Texte.assign(m, {});
  cmbP0Codes.assign(m, {});
  cmbP0Index.assign(m, -1);
  lblKomp.assign(m, std::string());
  for (int i = 1; i <= s.NKomp; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    auto& texte = cmbP0Texte[k];
    auto& codes = cmbP0Codes[k];
    if (s.ParWAG[k].TLo > kVorhanden) texte.emplace_back("WAGNER"), codes.emplace_back("WAG");
    if (std::fabs(static_cast<double>(s.ParFRO[k].TLo)) > kVorhanden)
      texte.emplace_back("FROST/KALKWARF"), codes.emplace_back("FRO");
    if (s.ParALP[k].TLo > kVorhanden) texte.emplace_back("ANTOINE (low-p)"), codes.emplace_back("ALP");
    if (s.ParAHP[k].TLo > kVorhanden) texte.emplace_back("ANTOINE (high-p)"), codes.emplace_back("AHP");
    if (s.ParAUG[k].A > kVorhanden) texte.emplace_back("AUGUST  (correlated)"), codes.emplace_back("AUG");
    const std::string code = Trim(s.P0Eq[k]);
    for (std::size_t e = 0; e < codes.size(); ++e)
      if (codes[e] == code) cmbP0Index[k] = static_cast<int>(e);
    const std::string& name = s.StoffData[k].Name;
    lblKomp[k] = Trim(name.substr(0, name.find(';')));
  }
  Beschriften(s);
  ShowMessages(f.ui, sink);
}

void frmVModell::Beschriften(const Session& s) {
  kParButtonVisible = s.VapModel >= 2;
  kParButtonCaption = (s.VapModel >= 4) ? "Search for/Input k(ij)-parameters" : "View/Input k(ij)-parameters";
  GEParButtonEnabled = IstParameterModell(s.GEModel);
  GEParButtonTip = GEParButtonEnabled ? kGEParTip : "";
  lblDampf = s.VapModel >= 3 ? kCubicLabel : "";
  cmbMixRuleGEEnabled = s.MixRule == 5 || s.MixRule == 6;
  cmdEOS_GEParCaption = ((s.EOSModel == 4 || s.EOSModel == 5) && s.MixRule == 2)
                            ? "Search for/Input k(ij)-parameters"
                            : "View/Input parameters";
  lblEinheit = std::string(kUnitLabel) + EinheitText(s);
}

void frmVModell::tabModellKonzept_Click(mdiPEQ& f, int tab) {
  Session& s = f.s;
  tabModellKonzept = tab == 1 ? 1 : 0;
  const bool konzept = tabModellKonzept == 1;
  if (konzept != s.Konzept) {
    // Each concept keeps its own parameters.
    std::swap(s.GEPar, s.GEParAlt);
    s.Konzept = konzept;
  }
  Beschriften(s);
}

void frmVModell::cmbP0_Click(mdiPEQ& f, int i, int index) {
  if (i < 1 || i >= static_cast<int>(cmbP0Codes.size())) return;
  const auto& codes = cmbP0Codes[static_cast<std::size_t>(i)];
  if (index < 0 || index >= static_cast<int>(codes.size())) return;
  cmbP0Index[static_cast<std::size_t>(i)] = index;
  f.s.P0Eq[static_cast<std::size_t>(i)] = codes[static_cast<std::size_t>(index)];
}

void frmVModell::DampfKombi_Click(mdiPEQ& f, int index) {
  Session& s = f.s;
  if (index < 0 || index > 5) return;
  // 1. The code; the virial equation without k(ij) clears them at once.
  s.VapModel = static_cast<int16_t>(index);
  DampfKombiIndex = index;
  if (s.VapModel == 1) {
    for (int k = 7; k <= 12; ++k)
      for (std::size_t i = 0; i < s.GEPar.size(); ++i)
        for (std::size_t j = 0; j < s.GEPar.size(); ++j) s.GEPar(static_cast<std::size_t>(k), i, j) = 0;
  }
  // 3. The data the vapour model needs.
  if (s.VapModel > 0) {
    std::string msg;
    if (s.VapModel != 3 && !s.AlleOmega)
      msg = std::string("Not all acentric factors available") + kNL + "Only possible calculation of the ideal gas phase";
    else if (!s.KritOK)
      msg = std::string("not all crical data available") + kNL + "only calculation for the ideal gas phase possible";
    if (!msg.empty()) {
      f.ui.MsgBox(kTitleNotPossible, msg, MsgIcon::Stop);
      s.VapModel = 0;
      DampfKombiIndex = 0;
    }
  }
  // 2. and 4. The k(ij) button and the label.
  Beschriften(s);
}

void frmVModell::GEKombi_Click(mdiPEQ& f, int index) {
  Session& s = f.s;
  if (index < 0 || index >= static_cast<int>(GEKombiCodes.size())) return;
  const int16_t code = GEKombiCodes[static_cast<std::size_t>(index)];
  if (code == 1 && !s.RhoOK && !s.AlleVWilson) {
    f.ui.MsgBox(kTitleNotPossible, "not all molar volumes available, calculation using WILSON not possible",
                MsgIcon::Stop);
    // The model stays as it was, and so does the list.
    GEKombiIndex = -1;
    for (std::size_t k = 0; k < GEKombiCodes.size(); ++k)
      if (GEKombiCodes[k] == s.GEModel) GEKombiIndex = static_cast<int>(k);
    return;
  }
  s.GEModel = code;
  if (code == 4) s.ParUnitKij = 2;
  GEKombiIndex = index;
  Beschriften(s);
}

void frmVModell::cmbCEOS_Click(mdiPEQ& f, int index) {
  if (index < 0 || index > 3) return;
  cmbCEOSIndex = index;
  f.s.EOSModel = kCEOSCodes[index];
  Beschriften(f.s);
}

void frmVModell::cmbMixRule_Click(mdiPEQ& f, int index) {
  if (index < 0 || index > 2) return;
  cmbMixRuleIndex = index;
  f.s.MixRule = kMixRuleCodes[index];
  Beschriften(f.s);
}

void frmVModell::cmbMixRuleGE_Click(mdiPEQ& f, int index) {
  if (index < 0 || index > 2 || !cmbMixRuleGEEnabled) return;
  cmbMixRuleGEIndex = index;
  f.s.GEModelEOS = kMixRuleGECodes[index];
  Beschriften(f.s);
}

void frmVModell::GEParButton_Click(mdiPEQ& f) {
  if (f.s.NKomp < 2) return;
  f.GEInput.Load(f);
  f.Show(WindowId::frmGEInput);
}

void frmVModell::cmdEOS_GEPar_Click(mdiPEQ& f) { GEParButton_Click(f); }

void frmVModell::kParButton_Click(mdiPEQ& f) {
  if (f.s.NKomp < 2 || !kParButtonVisible) return;
  f.KijInput.Load(f);
  f.Show(WindowId::frmKijInput);
}

void frmVModell::lblKomp_Click(mdiPEQ& f, int i) {
  if (i < 1 || i > f.s.NKomp) return;
  f.mnuSubEdit_Click(i);
}

void frmVModell::cmdOKModell(mdiPEQ& f) {
  Session& s = f.s;
  const bool konzept = tabModellKonzept == 1;
  bool pruefen = false;
  // 1. What the concept needs.
  if (konzept) {
    if (s.TKritMax < kVorhanden || s.PKritMax < kVorhanden) {
      f.ui.MsgBox(kTitleNotPossible, "No calculation using the phi concept possible without T(cr) and p(cr)",
                  MsgIcon::Stop);
      return;
    }
    pruefen = s.GEModelEOS > 0 && s.MixRule > 4;
  } else {
    if (s.GEModel < 0 && GEKombiIndex >= 0 && GEKombiIndex < static_cast<int>(GEKombiCodes.size()))
      s.GEModel = GEKombiCodes[static_cast<std::size_t>(GEKombiIndex)];
    pruefen = s.GEModel == 1 || s.GEModel == 2 || s.GEModel == 4 || s.GEModel == 9;
  }
  // 2. Parameters of the first pair.
  if (pruefen && s.NKomp >= 2 && ParSlot(s, 1, 1, 2) == 0 && ParSlot(s, 4, 1, 2) == 0) {
    const Answer a = f.ui.MsgBox("Reminder",
                                 std::string("...no parameters available for the GE model selected") + kNL +
                                     "(=> Button 'Input GE Parameters')" + kNL + "continue nevertheless?",
                                 MsgIcon::Question, Buttons::YesNo);
    if (a != Answer::Yes) return;
  }
  // 3. Wilson LAMBDA may not be 0: checked whenever Wilson with dimensionless parameters is the
  // gE model, in either concept, on the parameter set the window holds now.
  bool wilsonFehler = false;
  if (s.GEModel == 1 && s.ParUnitWilson == 2) {
    for (int i = 1; i < s.NKomp; ++i)
      for (int j = i + 1; j <= s.NKomp; ++j)
        if (std::fabs(ParSlot(s, 1, i, j)) < kVorhanden || std::fabs(ParSlot(s, 4, i, j)) < kVorhanden)
          wilsonFehler = true;
  }
  // 4. The concept and the commands.
  s.Konzept = konzept;
  Gating(GateEvent::ModelsAccepted, s, f.cmds);
  f.CommandsChanged();
  // 5.
  if (wilsonFehler) {
    f.ui.MsgBox("WARNING", std::string("Wilson-Parameter LAMBDA = 0 not allowed") + kNL + "=> Input GE Parameters",
                MsgIcon::Warning);
    return;
  }
  // 6. The EOS tables of the equation in use: the phi-phi equation, or a cubic vapour model.
  if (!EOSTabellenBerechnen(s))
    f.ui.MsgBox(kTitleNotPossible, "Error while calculating the EOS-parameters", MsgIcon::Stop);
  s.ModelleOffen = false;
  s.UnifacNeu = true;
  // 7. Close; the calculation window follows where this front end has one.
  f.Unload(WindowId::frmVModell);
  f.Activated();
  if (f.ui.Provides(WindowId::frmCalcInput)) f.Show(WindowId::frmCalcInput);
}

void frmVModell::cmdEsc(mdiPEQ& f) {
  Session& s = f.s;
  if (P0EqKopie.size() == s.P0Eq.size()) s.P0Eq = P0EqKopie;
  s.GEModel = GEModelKopie;
  s.ParUnitWilson = ParUnitWilsonKopie;
  s.ParUnitNRTL = ParUnitNRTLKopie;
  s.ParUnitUNIQUAC = ParUnitUNIQUACKopie;
  s.ParUnitKij = ParUnitKijKopie;
  f.Unload(WindowId::frmVModell);
}

void frmVModell::Hilfe(mdiPEQ& f, int topic) { f.ui.ShowHelp(topic); }

}  // namespace peq
