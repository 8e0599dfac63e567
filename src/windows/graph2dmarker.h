// The marker commands of the 2D diagram window: critical lines, the normal pressure, the lines of
// a mixing gap, the tie line, the binodal curve, the three-phase point, the diagonal, the lines
// y = 0 and y = 1, the tangent of the point calculator, and the delete command of each. Each
// computes its values from the session and the document, puts its line on its own series
// (diagrams/markers.h) and tells the user what it refuses.
#pragma once

#include <cstdint>
#include <string>

#include "windows/graph2d.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kKeinGapText = "No mixing gap calculated!";
inline constexpr const char* kGapDampfdruckFehler =
    "Error during vapour pressure calculation;\nyou should change the vapour phase equation";
inline constexpr const char* kKonnodeTitel = "Drawing tie-line not possible";
inline constexpr const char* kBinodalTitel = "Binodal curve not more possible";
inline constexpr const char* kKonnodeLegende = "tie-line L-L";
inline constexpr const char* kBinodalLegende = "binodal curve";
inline constexpr const char* kDreiPhasenFehler = "The three-phase point could not be calculated.";
inline constexpr const char* kKonnodeFehler = "The tie-line could not be calculated.";
inline constexpr const char* kKeineTangente = "No point with a tangent calculated.";
inline constexpr float kNormalDruck = 101.325f;  // kPa

// The markers of the window's menu, and which diagrams offer each.
enum class Marker : int16_t {
  Tcr, Pcr, Pnp, ML, Konnode, LLE, DreiPhasen, Diagonale, Y1, Y0, Tangente
};
bool MarkerAngeboten(int16_t NoDia, Marker m);

// "Maximum 24 curves possible", two line breaks, "Delete existing curves": the binodal refusal.
std::string BinodalVollText();

// A mole fraction x of Komp2 as the diagram shows it: the mass fraction when ConcUnit is set.
double AlsAnzeige(const Session& s, double x);
// The inverse: a value of the diagram's composition axis as mole fraction of Komp2.
double AusAnzeige(const Session& s, double v);

void mnuMarkTcr_Click(mdiPEQ& f, frmGraph2D& g);
void mnuMarkPcr_Click(mdiPEQ& f, frmGraph2D& g);
void mnuMarkPnp_Click(mdiPEQ& f, frmGraph2D& g);
// The mixing-gap lines; false when refused (no gap, or the vapour-pressure failure of the search).
bool mnuMarkML_Click(mdiPEQ& f, frmGraph2D& g);
// The tie line in a new curve slot; false when refused.
bool mnuAddKonnode_Click(mdiPEQ& f, frmGraph2D& g);
// The binodal curve (NoDia 41) in BinodalSlot, replacing an earlier one; false when refused.
bool mnuAddLLE_Click(mdiPEQ& f, frmGraph2D& g);
// The three-phase point of the diagram's T or p; false when refused.
bool mnuMark3PhasePoint_Click(mdiPEQ& f, frmGraph2D& g);
void mnuAddDiagonale_Click(mdiPEQ& f, frmGraph2D& g);
void mnuMarky1_Click(mdiPEQ& f, frmGraph2D& g);
void mnuMarky0_Click(mdiPEQ& f, frmGraph2D& g);

void mnuDelTcr_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDelpCr_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDelPnd_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDelML_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDely0_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDely1_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDelDiagonale_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDel3PhasePoint_Click(mdiPEQ& f, frmGraph2D& g);
void mnuDelTangente_Click(mdiPEQ& f, frmGraph2D& g);

}  // namespace peq
