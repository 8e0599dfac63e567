#include "diagrams/surface_file.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "session/filewrite.h"

namespace peq {

namespace {

using json = nlohmann::ordered_json;

constexpr std::size_t kMaxDateiGroesse = 64u << 20;  // a 200 x 200 grid is far below this

// A finite single from a JSON number; false for anything else.
bool Single(const json& j, float& v) {
  if (!j.is_number()) return false;
  const double d = j.get<double>();
  if (!std::isfinite(d) || std::fabs(d) > 3.402823E38) return false;
  v = static_cast<float>(d);
  return true;
}

bool Text(const json& o, const char* key, std::string& v) {
  const auto it = o.find(key);
  if (it == o.end() || !it->is_string()) return false;
  v = it->get<std::string>();
  return true;
}

bool Zahl(const json& o, const char* key, float& v) {
  const auto it = o.find(key);
  return it != o.end() && Single(*it, v);
}

}  // namespace

std::string Dokument3DText(const Dokument3D& d) {
  json j = DiagrammHuelle("3d");
  j["nodia3"] = d.Aufbau.NoDia3;
  j["titles"] = {{"title", d.Aufbau.Titel}, {"x", d.Aufbau.XAchse}, {"y", d.Aufbau.YAchse}, {"z", d.Aufbau.ZAchse}};
  j["boundLabels"] = json(d.Aufbau.GrenzText);
  j["secondAxisT"] = d.Aufbau.YIstTemperatur;
  const Grenzen3D& g = d.Grenzen;
  j["bounds"] = {{"xmin", g.XMin}, {"xmax", g.XMax}, {"ymin", g.YMin},
                 {"ymax", g.YMax}, {"zmin", g.ZMin}, {"zmax", g.ZMax}};
  json z = json::array();
  const int nx = d.ResFeld.IXDim(), ny = d.ResFeld.IYDim();
  for (int r = 1; r <= ny; ++r) {
    json row = json::array();
    for (int i = 1; i <= nx; ++i) {
      const float v = d.ResFeld(i, r);
      if (v == kLoch3D || !std::isfinite(v))
        row.push_back(nullptr);
      else
        row.push_back(v);
    }
    z.push_back(std::move(row));
  }
  j["grid"] = {{"nx", nx}, {"ny", ny}, {"drawn", d.Gezeichnet}, {"z", std::move(z)}};
  j["view"] = {{"rotation", d.Drehung}, {"elevation", d.Neigung}, {"zoom", d.Zoom}};
  j["style"] = {{"gapSearch", d.GapSuche}};
  return j.dump(1) + "\n";
}

bool Dokument3DLesen(const std::string& text, Dokument3D& d, std::string& err) {
  json j;
  if (!LiesDiagrammHuelle(text, "3d", j, err)) return false;
  Dokument3D n;
  const auto nd = j.find("nodia3");
  if (nd == j.end() || !nd->is_number_integer() || nd->get<long long>() < 0 ||
      nd->get<long long>() >= kAnzFlaechen3D) {
    err = "The diagram file names no known surface.";
    return false;
  }
  n.Aufbau.NoDia3 = static_cast<int16_t>(nd->get<long long>());
  const auto t = j.find("titles");
  if (t == j.end() || !t->is_object() || !Text(*t, "title", n.Aufbau.Titel) || !Text(*t, "x", n.Aufbau.XAchse) ||
      !Text(*t, "y", n.Aufbau.YAchse) || !Text(*t, "z", n.Aufbau.ZAchse)) {
    err = "The titles of the diagram file are damaged.";
    return false;
  }
  const auto lb = j.find("boundLabels");
  if (lb == j.end() || !lb->is_array() || lb->size() != 6) {
    err = "The bound labels of the diagram file are damaged.";
    return false;
  }
  for (std::size_t k = 0; k < 6; ++k) {
    if (!(*lb)[k].is_string()) {
      err = "The bound labels of the diagram file are damaged.";
      return false;
    }
    n.Aufbau.GrenzText[k] = (*lb)[k].get<std::string>();
  }
  const auto st = j.find("secondAxisT");
  n.Aufbau.YIstTemperatur = st != j.end() && st->is_boolean() ? st->get<bool>() : ZweiteAchseT(n.Aufbau.NoDia3);
  const auto b = j.find("bounds");
  Grenzen3D& g = n.Grenzen;
  if (b == j.end() || !b->is_object() || !Zahl(*b, "xmin", g.XMin) || !Zahl(*b, "xmax", g.XMax) ||
      !Zahl(*b, "ymin", g.YMin) || !Zahl(*b, "ymax", g.YMax) || !Zahl(*b, "zmin", g.ZMin) ||
      !Zahl(*b, "zmax", g.ZMax)) {
    err = "The bounds of the diagram file are damaged.";
    return false;
  }
  n.Aufbau.Grenzen = g;
  const auto gr = j.find("grid");
  if (gr == j.end() || !gr->is_object()) {
    err = "The grid of the diagram file is damaged.";
    return false;
  }
  const auto nxj = gr->find("nx"), nyj = gr->find("ny"), zj = gr->find("z");
  if (nxj == gr->end() || nyj == gr->end() || zj == gr->end() || !nxj->is_number_integer() ||
      !nyj->is_number_integer() || !zj->is_array()) {
    err = "The grid of the diagram file is damaged.";
    return false;
  }
  const long long nx = nxj->get<long long>(), ny = nyj->get<long long>();
  if (nx < 0 || ny < 0 || nx > 1000 || ny > 1000 || static_cast<long long>(zj->size()) != ny) {
    err = "The grid of the diagram file is damaged.";
    return false;
  }
  n.ResFeld.Dim(static_cast<int16_t>(nx), static_cast<int16_t>(ny));
  for (long long r = 0; r < ny; ++r) {
    const json& row = (*zj)[static_cast<std::size_t>(r)];
    if (!row.is_array() || static_cast<long long>(row.size()) != nx) {
      err = "The grid of the diagram file is damaged.";
      return false;
    }
    for (long long i = 0; i < nx; ++i) {
      const json& v = row[static_cast<std::size_t>(i)];
      float f = kLoch3D;
      if (!v.is_null() && !Single(v, f)) {
        err = "The grid of the diagram file is damaged.";
        return false;
      }
      n.ResFeld(static_cast<int>(i + 1), static_cast<int>(r + 1)) = f;
    }
  }
  const auto dr = gr->find("drawn");
  n.Gezeichnet = dr != gr->end() && dr->is_boolean() && dr->get<bool>() && nx >= 1 && ny >= 1;
  const auto vw = j.find("view");
  if (vw != j.end() && vw->is_object()) {
    Zahl(*vw, "rotation", n.Drehung);
    Zahl(*vw, "elevation", n.Neigung);
    Zahl(*vw, "zoom", n.Zoom);
  }
  const auto sy = j.find("style");
  if (sy != j.end() && sy->is_object()) {
    const auto gs = sy->find("gapSearch");
    n.GapSuche = gs != sy->end() && gs->is_boolean() && gs->get<bool>();
  }
  d = std::move(n);
  return true;
}

bool SpeichereOC3(const std::string& fileName, const Dokument3D& d, std::string& err) {
  return WriteReplacing(fileName, Dokument3DText(d), err);
}

bool LadeOC3(const std::string& fileName, Dokument3D& d, std::string& err) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) {
    err = "The file " + fileName + " cannot be opened.";
    return false;
  }
  in.seekg(0, std::ios::end);
  const std::streamoff size = in.tellg();
  if (size < 0 || static_cast<std::size_t>(size) > kMaxDateiGroesse) {
    err = "The file is not a diagram file.";
    return false;
  }
  in.seekg(0);
  std::string text(static_cast<std::size_t>(size), '\0');
  in.read(text.data(), size);
  if (!in) {
    err = "The file " + fileName + " cannot be read.";
    return false;
  }
  return Dokument3DLesen(text, d, err);
}

}  // namespace peq
