// The session's experimental T-p-x points on a 2D diagram: the rows at the diagram's fixed T
// (isothermal) or p (isobaric), within 0.1 %, as one set of two series, x(L) and x(V), in the
// diagram's units (mole or mass fraction of the component on the x axis; T in display units).
#pragma once

#include <cstdint>
#include <string>

#include "diagrams/document.h"
#include "session/session.h"

namespace peq {

// Whether a row's value lies within 0.1 % of the diagram's: wert * 1.001 > v and wert * 0.999 < v.
inline bool InnerhalbPromille(double wert, double v) { return wert * 1.001 > v && wert * 0.999 < v; }

// The style of the points of experimental set k (0-based): no line, a symbol and a colour of
// their own for each of the 12 sets; the vapour series hollow where the liquid one is filled.
SerienStil ExpStil(int k, bool dampf);

// Builds the set of the held points (active rows only, rows with p below 1e-6 left out) for the
// document's NoDia, T and p. The ordinate per diagram: 1 p; 4 T; 3, 6 x(V) over x(L);
// 5, 51 the K value of the x-axis component; 10, 11 alpha(1,2); 8, 82 the activity coefficients
// of both components (81, 83 their logarithms) by Raoult's law, the axis component's in the
// first series; a vapour point only where x(V) was measured (not 0). Returns the number of rows taken; 0 also for a diagram that takes none.
int ExpSatzBilden(const Session& s, const Graph2DDoc& d, ExpSatz& satz);

// zeigeExpPunkte: adds that set to the document (at most 12 sets) with its legend. Returns the
// number of rows drawn; 0 when no row fits or 12 sets are held (voll then true).
int zeigeExpPunkte(const Session& s, Graph2DDoc& d, bool& voll);

}  // namespace peq
