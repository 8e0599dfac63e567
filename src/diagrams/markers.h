// Markers on a drawn 2D diagram: short computed lines with a label each, on series of their own
// behind the 24 curve slots (critical temperatures and pressures, the normal pressure, the two
// compositions of a mixing gap, the lines y = 0 and y = 1, the diagonal, the three-phase point
// and a tangent), and the removal of each. Plain operations on the document; the window state
// (windows/graph2dmarker.h) computes the values and shows the messages.
#pragma once

#include <string>

#include "diagrams/document.h"

namespace peq {

// Where a marker's label stands: one seventh into the plot.
float MarkerLabelX(const Graph2DDoc& d);
float MarkerLabelY(const Graph2DDoc& d);

// A vertical marker line at x spans this range of y, so that it crosses any coordinates; the
// chart clips it.
inline constexpr float kMarkerSenkrecht = 1.0e8f;

// Removes the points and labels of a marker series; false when it held nothing.
bool LoescheMarker(Graph2DDoc& d, int serie);

// Horizontal lines from XMin to XMax at each y, one label each at one seventh of x. Two lines in
// one series are parted by a hole.
void MarkeWaagerecht(Graph2DDoc& d, int serie, const float* y, const std::string* label, int n);
// Vertical lines at each x from -1e8 to +1e8, one label each at one seventh of y.
void MarkeSenkrecht(Graph2DDoc& d, int serie, const float* x, const std::string* label, int n);

// The line from (0, 0) to (1, 1).
void MarkeDiagonale(Graph2DDoc& d);
// The line y = v from XMin to XMax (v 0 or 1), without a label.
void MarkeY(Graph2DDoc& d, int serie, float v);
// The three-phase point: the three-phase line from xA to xB at the ordinate w with the vapour
// point xV on it (marked by a symbol), and its label at one seventh of x, on the line.
void Marke3Phasen(Graph2DDoc& d, float xA, float xV, float xB, float w, const std::string& label);
// A tangent: the polyline through the given points (x ascending), no label.
void MarkeTangente(Graph2DDoc& d, const float* x, const float* y, int n);

}  // namespace peq
