#include "windows/ui.h"

namespace peq {

const char* WindowName(WindowId id) {
  static const char* const kNames[] = {
      "frmPhantom", "frmStoffwahl", "frmVModell",   "frmGEInput",  "frmKijInput",     "frmOptions",
      "frmTip",     "frmCmnDlg",    "frmUnifInkr",  "frmHelp",     "frmAEdit",        "frmTpxEdit",
      "frmTpxInput", "frmXYEdit",   "frmFitting",   "frmGraph2D",  "frmGraph3D",      "frmGraphCalc",
      "frmCalcInput", "frmCalcOut", "frmThieleMcCabe", "frmBatchDist", "frmDistProtokoll"};
  const int k = static_cast<int>(id);
  return (k >= 0 && k < static_cast<int>(WindowId::Count)) ? kNames[k] : "";
}

void ShowMessages(Ui& ui, const MsgSink& sink) {
  for (const Message& m : sink) ui.MsgBox(m.title, m.text, m.icon, Buttons::Ok);
}

}  // namespace peq
