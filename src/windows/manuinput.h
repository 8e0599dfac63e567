// frmManuInput: the XY editor. A list of x-y pairs that needs no mixture, typed in, pasted, read
// from *.XY and *.LRG files, saved, sorted, manipulated and drawn on a 2D diagram as a curve or
// as a set of points.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "expdata/xydaten.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kManuCaption = " Input/Edit curve points";
inline constexpr const char* kManuLoadTitel = "Manual data input";
inline constexpr const char* kManuLoadCaption = "Load file *.XY | .LRG";
inline constexpr const char* kManuSaveCaption = "Save *.XY";
inline constexpr const char* kManuEraseCaption = "Remove marked lines";
inline constexpr const char* kManuAusCaption = "Line active | inactive";
inline constexpr const char* kManuAusTip = " excluding points from drawing and saving";
inline constexpr const char* kManuChangeTip = " exchanging x- and y-column";
inline constexpr const char* kManuManipCaption = "Modify values";
inline constexpr const char* kManuExecCaption = "Execute";
inline constexpr const char* kManuPasteCaption = "Paste clipboard";
inline constexpr const char* kManuEditCaptions[4] = {"copy", "paste", "marked cell(s) => 0",
                                                    "remove marked line(s)"};
inline constexpr const char* kManuDrawCaption = "Draw";
inline constexpr const char* kManuPrintCaption = "Print list";
inline constexpr const char* kManuEscCaption = "Close <Esc>";
inline constexpr const char* kManuSepTitel = "Delimiter for *.XY text file";
inline constexpr const char* kManuOeffnenTitel = "Load (Curve)Points";
inline constexpr const char* kManuOeffnenFilter = "x-y data (*.XY)|*.XY|(*.LRG)|*LRG";
inline constexpr const char* kManuSpeichernTitel = "(Curve)Points Save as ... ";
inline constexpr const char* kManuSpeichernFilter = "x-y data (*.XY)|*.XY";
inline constexpr const char* kManuPunkteTitel = "Experimental points y(T)";
inline constexpr const char* kManuPunkteXTitel = "T / K";
// The diagram number of free x-y data (no catalogue entry, no mixture needed).
inline constexpr int16_t kNoDiaFreiXY = 300;

// The delimiters cmbSep offers: semicolon, comma, tab, blank.
inline constexpr std::array<const char*, 4> kManuTrenner = {";", ",", "\t", " "};

struct frmManuInput {
  std::string Caption = kManuLoadTitel;
  Kurve Liste = Kurve(1);    // element 0 the header (count in x)
  std::string txtComment;
  std::string ZeileText;     // "Line n" or "Add line #n"
  std::string Kopf;          // "Input mode = Edit line" or "Input mode = Add line"
  bool AddMode = true;
  std::array<std::string, 2> y;  // the input boxes x and y
  int MarkA = 0, MarkB = 0;
  int MarkSpalte = 1;
  int cmbSep = 0;             // index into kManuTrenner
  bool AlsPunkte = true;      // optIsPoints: "as points" (else "as curve")
  bool fraManipulation = false;
  int optManip = 0;
  std::string txtW = "0";
  bool XYUngespeichert = false;

  void Form_Load(mdiPEQ& f);
  static std::array<std::string, 3> Koepfe() { return {"No.", "x", "y"}; }
  // Rows of the grid; "empty list" when the list is empty; an inactive line marked "(n)".
  std::vector<std::array<std::string, 3>> Zeilen() const;
  void Grid_Click(int zeile, int spalte);
  void Markieren(int a, int b);
  void optInputMode_Click(bool add);
  void OKinput_Click(mdiPEQ& f);
  void cmdLoad_Click(mdiPEQ& f);
  // The load of a chosen file (full path).
  bool Laden(mdiPEQ& f, const std::string& datei);
  void cmdSave_Click(mdiPEQ& f);
  bool Speichern(mdiPEQ& f, const std::string& datei);
  void XSort_Click();
  void YSort_Click();
  void cmdChangeXY_Click();
  void cmdErase_Click(mdiPEQ& f);
  void cmdAus_Click(mdiPEQ& f);
  void cmdManip_Click() { fraManipulation = true; }
  void cmdExecManip_Click(mdiPEQ& f);
  void cmdClipEinfuegen_Click(mdiPEQ& f);
  // The grid's edit menu (mnuEdit2): the marked lines to the clipboard as x, tab, y, CR LF; the
  // paste; the marked cells of the marked column set to 0; the marked lines removed.
  void mnuKopieren_Click(mdiPEQ& f);
  void mnuEinfuegen_Click(mdiPEQ& f) { cmdClipEinfuegen_Click(f); }
  void mnuNull_Click(mdiPEQ& f);
  void mnuEntfernen_Click(mdiPEQ& f) { cmdErase_Click(f); }
  // cmdDrawManu: the active lines onto the open diagram, or a new one of free x-y data.
  void cmdDrawManu_Click(mdiPEQ& f);
  void cmdPrint_Click(mdiPEQ& f);
  void cmdEsc_Click(mdiPEQ& f);
  void XYSaveFrage(mdiPEQ& f);
  static std::string DruckText(const std::string& kopf, const Kurve& liste);

 private:
  void ZeileZeigen();
};

}  // namespace peq
