// What leaves the 2D diagram window as a file: the diagram file (*.oc2) saved and loaded through
// the file dialogs, and every curve of the document as one CSV file. (Images and printing are
// drawn by the window layer, which owns the rendering.)
#pragma once

#include <string>

#include "windows/graph2d.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kOC2SpeichernTitel = "Save this diagram design";
inline constexpr const char* kOC2LadenTitel = "Load a saved pattern (*.oc2)";
inline constexpr const char* kOC2Filter = "picture file (*.oc2)|*.oc2";
inline constexpr const char* kSingleNoteTitel = "Single Note";
inline constexpr const char* kSingleNoteText =
    "Important:\nYou only should load the OC2-file into a diagram\nof the same type.";
inline constexpr const char* kCsvTitel = "Save all curves as CSV file";
inline constexpr const char* kCsvFilter = "CSV file (*.csv)|*.csv";

// mnuSaveOC2: the save dialog, then the file. false when cancelled or failed (the failure shown).
bool mnuSaveOC2_Click(mdiPEQ& f, frmGraph2D& g);
// mnuLoadOC2: the note, the open dialog, then the file into the document. A refused file is
// shown and changes nothing. false when cancelled or refused.
bool mnuLoadOC2_Click(mdiPEQ& f, frmGraph2D& g);

// Every curve of slots 1..24 as one CSV text: a head with the legend of each curve over its two
// columns x and y, then one row per point number; a curve with fewer points, or a hidden point,
// leaves its cells empty. Numbers with up to 7 significant digits and a decimal point; sep the
// list separator.
std::string AlleKurvenCsv(const Graph2DDoc& d, const std::string& sep);
// The save dialog and the CSV file. false when cancelled, when there is no curve, or on failure.
bool mnuCsvAlle_Click(mdiPEQ& f, frmGraph2D& g);

// Before an image is printed or copied: a black chart asks "You have chosen a black chart. ",
// line break, "Do you really want to print it in that design?" (title "WARNING"). true when the
// output may go on.
inline constexpr const char* kSchwarzText =
    "You have chosen a black chart. \nDo you really want to print it in that design?";
bool SchwarzesDiagrammErlaubt(mdiPEQ& f, bool schwarz);

}  // namespace peq
