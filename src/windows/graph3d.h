// frmGraph3D: the window of one 3D diagram (a surface over x2(L) and T or p). It holds the bounds,
// the grid size, the grid of values and the view, and carries the commands on them: the bounds
// dialog, the grid size, draw, and the sections of the surface (at a chosen T or p, shown as a
// curve in a 2D diagram window; at a chosen x2). The window layer renders the grid.
#pragma once

#include <cstdint>
#include <string>

#include "diagrams/curve.h"
#include "diagrams/surface.h"
#include "diagrams/surface_file.h"
#include "session/session.h"

namespace peq {

class mdiPEQ;

inline constexpr const char* kGraph3DCaption = "Diagram 3D";
inline constexpr int16_t kGitter3DStandard = 40;  // grid points per axis the window opens with
inline constexpr int16_t kGitter3DMin = 2;
inline constexpr int16_t kGitter3DMax = 200;
inline constexpr const char* kGrenzenFehler = " input was not in the valid range ";
inline constexpr const char* kOC3SpeichernTitel = "Save this diagram design";
inline constexpr const char* kOC3Filter = "picture file (*.oc3)|*.oc3";
inline constexpr const char* kOC3LadenTitel = "Load a saved pattern (*.oc3)";
inline constexpr const char* kOC3HinweisTitel = "Single Note";
inline constexpr const char* kOC3Hinweis =
    "Important:\nYou only should load the OC3-file into a diagram\nof the same type.";
inline constexpr const char* kKeinSchnitt = "No point of the section could be computed.";

// The view of the chart: rotation about the vertical axis and elevation in degrees, zoom in %.
struct Ansicht3D {
  float Drehung = -45, Neigung = 25, Zoom = 100;
  bool operator==(const Ansicht3D&) const = default;
};

struct frmGraph3D {
  Graph3D Aufbau;           // titles, axis texts, bound labels of the surface
  Grenzen3D Grenzen;        // the bounds in use
  int16_t IXDim = kGitter3DStandard, IYDim = kGitter3DStandard;
  bool chkGap = false;      // search the mixing gap and run flat over it
  Feld3D ResFeld;           // the grid of the last drawing
  bool Gezeichnet = false;  // ResFeld holds a drawing of the current bounds and size
  int Loecher = 0;          // holes of the last drawing
  Ansicht3D Ansicht;
  std::string Caption;
  std::string Status;
  double tOffset = 273.15;  // the output offset of T when the bounds were last taken (K to display)

  // Form_Load: the surface of the session's NoDia3 with its texts and opening bounds. false for an
  // unknown surface.
  bool Form_Load(mdiPEQ& f);
  // The bounds dialog: checks and takes the six bounds; false with the refusal in Meldung.
  bool cmdGrenzen_OK(const Grenzen3D& b, std::string& Meldung);
  // The grid size, kGitter3DMin..kGitter3DMax per axis; false with the refusal in Meldung.
  bool Gittergroesse(int nx, int ny, std::string& Meldung);
  // draw: fills ResFeld by Calc_3DArray under the wait cursor and refreshes the window.
  void cmdDraw_Click(mdiPEQ& f);

  // The section at the second-axis value y (display unit) as a curve of IXDim points (x2, z),
  // holes left out; false when the value lies outside the bounds or no point could be computed.
  bool SchnittY(Session& s, double y, Kurve& k) const;
  // The section at x2 (display unit) as a curve of IYDim points (y, z).
  bool SchnittX(Session& s, double x2, Kurve& k) const;
  // Shows the section at y in a 2D diagram window of the matching diagram at that T or p (p-x,
  // T-x, x-y, gE, delta(M)g, delta(M)h, T*sE), or the section at x2 in a 2D window titled by the
  // surface; false with a message box when nothing could be drawn.
  bool SchnittZeigenY(mdiPEQ& f, double y);
  bool SchnittZeigenX(mdiPEQ& f, double x2);

  // The document as it would be saved, and the state from a loaded document.
  Dokument3D Dokument() const;
  void AusDokument(const Dokument3D& d);
  // mnuSaveOC3, mnuLoadOC3: through the save and open dialogs; a failure shows "Error" with the
  // reason and leaves the file (or the window) as it was. false when nothing was saved or loaded.
  bool mnuSaveOC3_Click(mdiPEQ& f);
  bool mnuLoadOC3_Click(mdiPEQ& f);
  // The same with the file given.
  bool SpeichernAls(mdiPEQ& f, const std::string& file);
  bool LadenVon(mdiPEQ& f, const std::string& file);
};

// The 2D diagram number that shows a section of the surface at a fixed T or p.
int16_t NoDiaVonSchnitt(int16_t NoDia3);

}  // namespace peq
