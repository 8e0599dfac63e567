// The diagram file of the 2D document (*.oc2): a versioned JSON document that holds everything a
// drawn diagram shows and reads out: the points of every series with their holes, styles, legend
// texts and labels, the marker labels, the axes (ranges, stored range, titles, logarithmic mode,
// number formats), the experimental sets and the table of the third quantity (KurvenZ). The
// format is described in docs/diagram-files.md. The same document gives the same bytes.
#pragma once

#include <string>
#include <string_view>

#include "diagrams/document.h"

namespace peq {

// The document as the text of its file.
std::string Diagramm2DText(const Graph2DDoc& d);

// Reads the text of a file into d. A file that is not such a document, of another version or
// kind, or damaged, is refused: false with the text to show in msg, and d stays as it was. The
// document's tables are rebuilt from the series: the used slots and their count, and a label
// attached to a point without a text of its own reads "P. " and the point's number.
bool Diagramm2DLesen(std::string_view bytes, Graph2DDoc& d, std::string& msg);

// The file through a temporary name: a failed write leaves an existing file as it was.
bool Diagramm2DSpeichern(const Graph2DDoc& d, const std::string& fileName, std::string& err);
bool Diagramm2DLaden(const std::string& fileName, Graph2DDoc& d, std::string& msg);

// Limits a file must keep.
inline constexpr int kMaxDateiPunkte = 200000;  // points of one series
inline constexpr int kMaxDateiLabels = 1000;
inline constexpr const char* kDiagrammBeschaedigt = "The diagram file is damaged: ";

}  // namespace peq
