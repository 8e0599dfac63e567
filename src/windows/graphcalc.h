// frmGraphCalc: the point calculator of a drawn 2D diagram. The user gives one abscissa; the
// window computes the ordinates of the diagram there with the single-point routine, tells when
// the composition lies inside a mixing gap, and for the mixing and excess functions gives the
// tangent with its two intercepts (the partial molar values). cmdTangente of the diagram draws
// that tangent.
#pragma once

#include <string>

#include "engine/tangent.h"
#include "windows/graph2d.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kGraphCalcCaption = "y = f(x)";
inline constexpr const char* kNichtVerfuegbar = "  !  ";
inline constexpr const char* kZahlMuster = "0.00000####";
inline constexpr const char* kChkTangenteText =
    " active only for the mixing and excess functions delta(M)h, T*sE, cpE, delta(M)G, gE";
inline constexpr const char* kGapTitel = "Mixing gap";
inline constexpr const char* kMinusUnendlich = "- infinite";
inline constexpr const char* kEndeNull = " 0";

// "Your input concentration is inside a mixing gap.", line break, "There are coexisting two
// liqid phases and a vapour phase (x2(V) = " + the vapour value + ".".
std::string GapMeldung(const std::string& dampf);

// A result in "0.00000####". A single-precision value is shown by its own digits (0.1f reads
// "0.10000", not "0.100000001").
std::string ZahlAnzeige(double v);
std::string ZahlAnzeige(float v);

struct frmGraphCalc {
  std::string Caption;
  std::string lblX, txtX;          // the abscissa: " x(2) =", " T/K =" or " t/°C ="
  std::string lblZ, txtZ;          // the fixed composition of the isosteric diagrams: "z(2) ="
  std::string lblY1, txtY1;        // first ordinate
  std::string lblY2, txtY2;        // second ordinate (empty label when the diagram has one)
  std::string lblKonode;           // "xL(2)     tie-line     xV(2)" (p-x and T-x diagrams)
  std::string txtXL, txtXV;        // liquid and vapour of the point
  std::string lblXL2, txtXL2;      // "xL2(2)": the second liquid inside a mixing gap
  std::string chkTangenteCaption = kChkTangenteText;
  bool chkTangenteEnabled = false;
  bool chkTangente = false;
  std::string lblPartial1, txtPartial1, lblPartial2, txtPartial2;

  // The last calculated point: x as mole fraction of Komp2, y as shown; the tangent there.
  bool PunktDa = false;
  double LetztX = 0, LetztY = 0;
  bool TangenteDa = false;
  TangentWerte Tangente;

  // The labels for the document's diagram; the fields cleared.
  void Form_Load(mdiPEQ& f, const frmGraph2D& g);
  // The calculation at txtX. false when the input is no number in range or nothing could be
  // computed (the fields then show "  !  ").
  bool cmdCalc_Click(mdiPEQ& f, const frmGraph2D& g);
};

// cmdGraphCalc of the diagram: opens the calculator on it.
void cmdGraphCalc_Click(mdiPEQ& f, frmGraph2D& g);
// cmdTangente of the diagram: draws the tangent of the last calculated point from x2 = 0 to
// x2 = 1 through the point (abscissa in mass fraction when ConcUnit). false when there is none.
bool cmdTangente_Click(mdiPEQ& f, frmGraph2D& g);

}  // namespace peq
