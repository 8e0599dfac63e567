// frmVModell: the model window. It commits the models of the session: the concept, the gE
// model and the vapour model (gamma-phi) or the cubic equation of state with its mixing rule
// (phi-phi), and the vapour-pressure equation of each component.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kVModellCaption = "Models for the calculation";
inline constexpr const char* kTabCaptions[2] = {"Activity-coefficient Concept", "Fugacity-coefficient Concept"};
inline constexpr const char* kTabLabels[2] = {"(partial calculation)", "(global calculation)"};
inline constexpr const char* kKompNameTip = " Click = view /edit data of the substance ";
inline constexpr const char* kDampfKombi[6] = {"ideal gas equation",        "virial equation without k(ij)",
                                               "virial equation with k(ij)", "CEOS Redlich/Kwong",
                                               "CEOS Soave/Redlich/Kwong",   "CEOS Peng/Robinson"};
inline constexpr const char* kCEOS[4] = {"CEOS v. d. Waals", "CEOS Redlich / Kwong", "CEOS SRK",
                                         "CEOS Peng / Robinson"};
inline constexpr int16_t kCEOSCodes[4] = {6, 3, 4, 5};
inline constexpr const char* kMixRule[3] = {"v.d.Waals mixing-rule", "GE mixing-rule, p => oo",
                                            "GE mixing-rule, p => 0"};
inline constexpr int16_t kMixRuleCodes[3] = {2, 5, 6};
inline constexpr const char* kMixRuleGE[3] = {"Wilson", "NRTL", "UNIQUAC"};
inline constexpr int16_t kMixRuleGECodes[3] = {1, 2, 9};
inline constexpr const char* kCubicLabel = " = cubic equation of state ";
inline constexpr const char* kGEParTip = "...needs input of parameters ";
inline constexpr const char* kUnitLabel = "act. unit of the parameters: ";
// Captions of the window's own layout.
inline constexpr const char* kGEModelLabel = "gE model (liquid phase)";
inline constexpr const char* kVapLabel = "vapour phase";
inline constexpr const char* kP0Label = "vapour pressure equation";
inline constexpr const char* kEOSLabel = "equation of state";
inline constexpr const char* kMixRuleLabel = "mixing rule";
inline constexpr const char* kMixRuleGELabel = "gE model of the mixing rule";
inline constexpr const char* kGEParButtonCaption = "Input GE Parameters";
inline constexpr const char* kOKModellCaption = "Models OK";
inline constexpr const char* kEscCaption = "&Cancel";
inline constexpr const char* kWilsonVolCaption = "WILSON volumes";
// Help topics of the window's buttons.
inline constexpr int kHelpKonzept = 32800, kHelpParameter = 32774, kHelpDampf = 31120,
                     kHelpMixRule = 12345, kHelpWilson = 21252;

struct frmVModell {
  std::string Caption;
  int tabModellKonzept = 0;  // 0 gamma-phi, 1 phi-phi
  bool modOK = false, unifOK = false;

  // GEKombi: texts and codes as offered.
  std::vector<std::string> GEKombiTexte;
  std::vector<int16_t> GEKombiCodes;
  int GEKombiIndex = -1;
  int DampfKombiIndex = 0;
  int cmbCEOSIndex = -1;
  int cmbMixRuleIndex = -1;
  int cmbMixRuleGEIndex = -1;
  // cmbP0(i), i = 1..NKomp (entry 0 unused).
  std::vector<std::vector<std::string>> cmbP0Texte;
  std::vector<std::vector<std::string>> cmbP0Codes;
  std::vector<int> cmbP0Index;
  std::vector<std::string> lblKomp;  // component names, cut before ";"

  bool kParButtonVisible = false;
  std::string kParButtonCaption;
  bool GEParButtonEnabled = false;
  std::string GEParButtonTip;
  std::string lblDampf;            // " = cubic equation of state " for a cubic vapour model
  bool cmbMixRuleGEEnabled = false;
  std::string cmdEOS_GEParCaption;
  std::string lblEinheit;

  // Copy for cmdEsc.
  Vec<std::string> P0EqKopie;
  int16_t GEModelKopie = -1;
  int16_t ParUnitWilsonKopie = 2, ParUnitNRTLKopie = 0, ParUnitUNIQUACKopie = 0, ParUnitKijKopie = 2;

  void Load(mdiPEQ& f);
  void tabModellKonzept_Click(mdiPEQ& f, int tab);
  void cmbP0_Click(mdiPEQ& f, int i, int index);
  void DampfKombi_Click(mdiPEQ& f, int index);
  void GEKombi_Click(mdiPEQ& f, int index);
  void cmbCEOS_Click(mdiPEQ& f, int index);
  void cmbMixRule_Click(mdiPEQ& f, int index);
  void cmbMixRuleGE_Click(mdiPEQ& f, int index);
  void GEParButton_Click(mdiPEQ& f);
  void kParButton_Click(mdiPEQ& f);
  void cmdEOS_GEPar_Click(mdiPEQ& f);
  void lblKomp_Click(mdiPEQ& f, int i);
  void cmdOKModell(mdiPEQ& f);
  void cmdEsc(mdiPEQ& f);
  void Hilfe(mdiPEQ& f, int topic);

  // Labels, captions and enabling from the session.
  void Beschriften(const Session& s);
};

// The unit text of the current model for the unit label.
std::string EinheitText(const Session& s);


}  // namespace peq
