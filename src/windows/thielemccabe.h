// frmThieleMcCabe: the design dialog of a binary column on the isobaric x-y diagram. It takes
// the top, bottom and feed compositions and the reflux ratio, checks them against the azeotrope
// and the order of the components, computes the minimum reflux ratio and lets the diagram step
// the plates; it shows the counts and fills the row of the distillation record.
#pragma once

#include <array>
#include <string>

#include "distillation/design.h"
#include "distillation/mccabe.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kThieleCaption = "McCabe-Thiele design method";
inline constexpr const char* kThieleHLVCaption = "delta(LV)H considered";
inline constexpr const char* kThieleKontCaption = "continuous distillation (with feed)";
inline constexpr const char* kThieleOhneCaption = "without feed";
inline constexpr const char* kThieleCalcCaption = "calculate";
inline constexpr const char* kThieleProtCaption = "Record ...";
inline constexpr const char* kThieleCloseCaption = "Close";
inline constexpr const char* kThieleFeldTexte[3] = {"(top)", "(bottom)", "(feed)"};

struct frmThieleMcCabe {
  std::array<std::string, 3> txtX{"0.95", "0.05", "0.50"};  // top, bottom, feed
  std::string txtRR = " 1E+10";
  std::string txtRRMin = " ?";
  bool OptKontDest = true;  // with a feed; false: the column without a feed
  bool chkHLV = false;
  std::string lblX = "x";   // "x" or "ksi" after the unit of the compositions
  int lblKomp = 2;          // the component on the diagram's axis, whose fractions the fields hold
  std::string lblBoeden1, lblBoeden2;  // the plate counts
  std::string lblKopf, lblSumpf;       // the state at the top and at the bottom
  bool Topmost = true;                 // stays above the diagram
  ThieleDaten D;
  int StufenPunkte = 0;  // points of the step curve drawn last

  // The caption of composition field k: "x2 (top)", "ksi1 (feed)" after the components' exchange.
  std::string FeldLabel(int k) const;

  void Form_Load(mdiPEQ& f);
  // cmdCalc: checks, computes and lets the diagram draw. true when the steps were drawn.
  bool cmdCalc_Click(mdiPEQ& f);
  // Opens the record window of the distillation runs.
  void cmdProtokoll_Click(mdiPEQ& f);
  // Closes the dialog.
  void cmdClose(mdiPEQ& f);
};

}  // namespace peq
