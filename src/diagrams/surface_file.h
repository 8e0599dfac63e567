// The 3D diagram document as a file (*.oc3): a versioned JSON document that restores the surface
// number, titles and axis texts, bounds, grid size and values (holes as null), the view and the
// style. The envelope {"format": "PEQ diagram", "version": 1, "kind": "3d"} is shared with the
// 2D diagram files. docs/diagram-files-3d.md describes the fields.
#pragma once

#include <string>

#include "diagrams/diagram_file_envelope.h"
#include "diagrams/surface.h"

namespace peq {

struct Dokument3D {
  Graph3D Aufbau;      // NoDia3, titles, axis texts, bound labels
  Grenzen3D Grenzen;   // the bounds in use
  Feld3D ResFeld;      // IXDim x IYDim values, kLoch3D for a hole
  bool Gezeichnet = false;
  bool GapSuche = false;
  float Drehung = -45, Neigung = 25, Zoom = 100;  // the view
};

// The document as JSON text.
std::string Dokument3DText(const Dokument3D& d);
// Reads a document from JSON text; false with the reason in err (nothing of d changed then).
bool Dokument3DLesen(const std::string& text, Dokument3D& d, std::string& err);

// The file, written through a temporary name (the old file survives a failed write) and read.
bool SpeichereOC3(const std::string& fileName, const Dokument3D& d, std::string& err);
bool LadeOC3(const std::string& fileName, Dokument3D& d, std::string& err);

}  // namespace peq
