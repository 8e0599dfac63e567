#include "diagrams/diagram_file_envelope.h"

namespace peq {

nlohmann::ordered_json DiagrammHuelle(std::string_view kind) {
  nlohmann::ordered_json d = nlohmann::ordered_json::object();
  d["format"] = kDiagrammFormat;
  d["version"] = kDiagrammVersion;
  d["kind"] = std::string(kind);
  return d;
}

std::string AndereVersionText(long version) {
  return "The diagram file has version " + std::to_string(version) + "; this program reads version " +
         std::to_string(kDiagrammVersion) + ".";
}

std::string AndereArtText(const std::string& kind, std::string_view expected) {
  return "The file holds a " + kind + " diagram, not a " + std::string(expected) + " diagram.";
}

std::string PruefeDiagrammHuelle(const nlohmann::ordered_json& doc, std::string_view kind) {
  if (!doc.is_object()) return kKeinDiagramm;
  const auto f = doc.find("format");
  if (f == doc.end() || !f->is_string() || f->get<std::string>() != kDiagrammFormat) return kKeinDiagramm;
  const auto v = doc.find("version");
  if (v == doc.end() || !v->is_number_integer()) return kKeinDiagramm;
  if (v->get<long>() != kDiagrammVersion) return AndereVersionText(v->get<long>());
  const auto k = doc.find("kind");
  if (k == doc.end() || !k->is_string()) return kKeinDiagramm;
  if (k->get<std::string>() != kind) return AndereArtText(k->get<std::string>(), kind);
  return {};
}

bool LiesDiagrammHuelle(std::string_view bytes, std::string_view kind, nlohmann::ordered_json& doc, std::string& msg) {
  doc = nlohmann::ordered_json::parse(bytes.begin(), bytes.end(), nullptr, /*allow_exceptions=*/false);
  if (doc.is_discarded()) {
    msg = kKeinDiagramm;
    return false;
  }
  msg = PruefeDiagrammHuelle(doc, kind);
  return msg.empty();
}

}  // namespace peq
