// frmGraph2D: the window of one binary 2D diagram. It holds the document (diagrams/document.h)
// and carries the commands on it: draw a curve set with the curve tracer, exchange the
// components, coordinates, logarithmic axes, zoom, delete, the point read-out and the export of
// one curve as text. The window layer renders the document and forwards the user's actions.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "diagrams/catalogue.h"
#include "diagrams/curve.h"
#include "diagrams/document.h"
#include "distillation/mccabe.h"
#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kGraph2DCaption = "Diagram 2D";
inline constexpr const char* kCmdDrawCaption = "Draw curve";
inline constexpr const char* kAusserhalbText = "Curve outside the actual coordinates\n\nEnlarge the coordinates";
inline constexpr const char* kAbgebrochenTitel = "Aborted";
inline constexpr const char* kKritischerFehler = "Critical error occured:";
inline constexpr const char* kSchmelzText = "Aborted at T < melting-T";
inline constexpr const char* kKeineDichteText = "No critical density available";
inline constexpr const char* kKeineDichteTitel = "NO DIAGRAM POSSIBLE";
inline constexpr const char* kMsgSubCalcCurve = "Message from Sub CalcCurve";
inline constexpr const char* kPunktLoeschenFrage = " Really delete?";
inline constexpr const char* kPunktLoeschenTitel = "Delete a Curve Point";
// Closing a diagram that holds curves is asked first.
inline constexpr const char* kSchliessenTitel = "Close diagram";
inline constexpr const char* kSchliessenFrage = "The diagram holds curves that are lost when it closes.\nClose it?";

// Legend text and chart label of the curve k (1 or 2) of one drawing of NoDia at T (K), p (kPa)
// and x2, for the pair Komp1, Komp2. Label empty: the numeric label of the slot stays.
struct KurvenText {
  std::string Legende;
  std::string Label;
  bool LabelSetzen = false;  // the label replaces the numeric one
};
KurvenText LegendeUndLabel(int16_t NoDia, int k, double T, double p, float x2, int16_t Komp1, int16_t Komp2);

// The number as the legend shows a temperature or pressure (shortest form, up to 15 digits).
std::string FormatAllgemein(double v);

// "1 - 2" or "2 - 1": the order of the components on the exchange button.
std::string TauschCaption(int16_t Komp1, int16_t Komp2);

struct frmGraph2D {
  Graph2DDoc Doc;
  std::string Caption;
  std::string cmdTauschCaption;
  bool cmdTauschEnabled = true;
  std::string Status;     // the read-out line of the window
  std::string Kommentar;  // of the last drawing; shown in the main window's status line
  bool HinweisGezeigt = false;
  int16_t LetzterFehler = 0;  // Fehler of the last CalcCurve call
  int AnzGezeichnet = 0;      // curves drawn by the last cmdDraw
  // Which component the composition axis tells ("x: Methanol"); empty where x is no
  // composition. Follows the exchange of the components.
  std::string Untertitel;
  // The point clicked last (series, 1-based point); 0 when none. A point is deleted from here.
  int MarkSerie = 0, MarkPunkt = 0;

  // Form_Load: the chart from NoDia, the titles of the catalogue and the coordinates of the
  // session (set by the title routine).
  void Form_Load(mdiPEQ& f, const GraphAufbau& g);
  // The titles again (after an exchange of the components or a change of units).
  void Titel(mdiPEQ& f);
  // The subtitle from the session's pair.
  void UntertitelSetzen(const Session& s);

  // cmdDraw: one curve set at the session's T, p and x2.
  void cmdDraw_Click(mdiPEQ& f);
  void cmdTausch_Click(mdiPEQ& f);
  // Coordinates dialog: false with the refusal text in Meldung.
  bool cmdCoord_OK(mdiPEQ& f, const Achsenbereich& b, std::string& Meldung);
  void cmdXLog_Click(mdiPEQ& f);
  void cmdYLog_Click(mdiPEQ& f);
  bool cmdZoom(mdiPEQ& f, float x1, float y1, float x2, float y2);
  void cmdZoomReset(mdiPEQ& f);
  void mnuSubDelKurv_Click(mdiPEQ& f, int slot);
  void cmdDelKurv_Click(mdiPEQ& f);  // every curve
  void mnuDelTotal_Click(mdiPEQ& f);  // curves, markers and experimental points

  // Mouse over or click on point punkt of series serie: the read-out in Status. A click on a
  // curve also shows the hint about the right click, once.
  void Chart_MouseMove(int serie, int punkt);
  void Chart_Click(mdiPEQ& f, int serie, int punkt);
  // cmdMsgDelPoint: asks " Really delete?" and hides the point when the answer is Yes.
  bool cmdMsgDelPoint(mdiPEQ& f, int serie, int punkt);
  // The point marked by the last click: asked and deleted as cmdMsgDelPoint does.
  bool mnuDelPoint_Click(mdiPEQ& f);
  // The curves the delete menu offers: slot and its text (the legend, or "curve " and the slot).
  std::vector<std::pair<int, std::string>> KurvenListe() const;
  // Whether the window may close: a diagram with curves asks first. true when it may.
  bool SchliessenErlaubt(mdiPEQ& f);
  // The file name the image export offers: the diagram's title in plain characters, ".png".
  std::string BildDateiName() const;
  // Right click on a curve: true when the curve design opens for it.
  bool Chart_RightClick(int serie);
  // cmdClipboard: one curve (slot) to the clipboard as text. false when the slot is empty.
  bool cmdClipboard_Click(mdiPEQ& f, int slot);
  // cmdDest: the McCabe-Thiele construction on an isobaric x-y diagram: the diagonal, the
  // operating lines, the labels "Top", "Feed", "Bottom" and the plate steps on series 28. The
  // counts and XEnde go to d.
  void cmdDest_Click(mdiPEQ& f, ThieleDaten& d);
  // cmdSaveCurveAsXY: one curve (slot) to an XY file through the save dialog, with the
  // delimiter ListTrenner and its legend as the comment. false when nothing was written.
  bool cmdSaveCurveAsXY_Click(mdiPEQ& f, int slot);
  bool KurveAlsXYSpeichern(mdiPEQ& f, int slot, const std::string& datei);
  // zeigeExpPunkte: the session's experimental points as a set of this diagram. Returns the
  // rows drawn; a diagram without fitting rows or with 12 sets says so in the status.
  int zeigeExpPunkte_Click(mdiPEQ& f);
  // The XY editor from the diagram: cmdManuPoints with "as points", cmdManuKurve with "as
  // curve", mnuManuXY as it stands.
  void cmdManuPoints_Click(mdiPEQ& f);
  void cmdManuKurve_Click(mdiPEQ& f);
  void mnuManuXY_Click(mdiPEQ& f);
  // The active lines of the XY editor onto this diagram (opened on free x-y data when no diagram
  // is open): as a set of points or as a curve through DrawCurve.
  void ManuZeichnen(mdiPEQ& f, const Kurve& aktiv, bool alsPunkte, const std::string& kommentar);

 private:
  void KoordinatenInSession(Session& s) const;
};

// The diagram calculation the frame calls after a diagram's T/p input was accepted: the title
// routine, frmGraph2D opened on it, and drawn at once when the input window was left with
// "Draw curve now" (SofortZeichnen, cleared here).
void Graph2DRechnen(mdiPEQ& f, frmGraph2D& g);

}  // namespace peq
