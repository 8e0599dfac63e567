// The envelope of the diagram files (*.oc2 for 2D, *.oc3 for 3D diagrams): a JSON object that
// starts {"format": "PEQ diagram", "version": 1, "kind": "2d" or "3d", ...}. One check for both
// documents, so that a file of another kind, of another version or no diagram file at all is
// refused with the same clear words before anything of it is used.
#pragma once

#include <string>
#include <string_view>

#include <nlohmann/json.hpp>

namespace peq {

inline constexpr const char* kDiagrammFormat = "PEQ diagram";
inline constexpr int kDiagrammVersion = 1;

// A new document with the envelope of this kind ("2d", "3d").
nlohmann::ordered_json DiagrammHuelle(std::string_view kind);

// Empty when doc carries the envelope of this kind and version; otherwise the text to show.
std::string PruefeDiagrammHuelle(const nlohmann::ordered_json& doc, std::string_view kind);

// Parses the bytes of a diagram file and checks the envelope. false with the text to show in
// msg when the bytes are no JSON, or the envelope does not fit; doc is then undefined.
bool LiesDiagrammHuelle(std::string_view bytes, std::string_view kind, nlohmann::ordered_json& doc, std::string& msg);

// The texts of a refused file.
inline constexpr const char* kKeinDiagramm = "The file is not a PEQ diagram file.";
std::string AndereVersionText(long version);
std::string AndereArtText(const std::string& kind, std::string_view expected);

}  // namespace peq
