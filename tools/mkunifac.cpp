// mkunifac: writes the group parameter files of the two group-contribution models from the
// curated tables.
//
//   mkunifac [UNIFAC_TABLE_DIR [OUT_DIR]] [--mod-interactions FILE]
//
// reads  UNIFAC_TABLE_DIR/{unifac_interactions,unifac_subgroups}.tsv
//        UNIFAC_TABLE_DIR/{modunifac_interactions,modunifac_subgroups}.tsv
//        (--mod-interactions names another Mod. UNIFAC interaction table in that directory,
//        e.g. modunifac_interactions_2006.tsv)
// writes OUT_DIR/OUNIF6PLUS.PAR and OUT_DIR/MODUNIF5PLUS.PAR
// Defaults: ../shared/data/unifac and data (run from the top of the source tree).
//
// The output depends on the tables only, so running it again gives the same bytes. Rows whose
// main group or subgroup lies outside the program's tables are left out and listed on stdout.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "substances/unifacpar.h"

namespace {

namespace fs = std::filesystem;

struct Failure {
  std::string what;
};

std::string ReadFile(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  if (!in) throw Failure{"cannot read " + p.string()};
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

// Written to a temporary name and renamed over the target.
void WriteFile(const fs::path& p, const std::string& text) {
  const fs::path tmp = p.string() + ".tmp";
  {
    std::ofstream out(tmp, std::ios::binary | std::ios::trunc);
    if (!out) throw Failure{"cannot write " + tmp.string()};
    out << text;
    out.close();
    if (!out) throw Failure{"cannot write " + tmp.string()};
  }
  fs::rename(tmp, p);
}

void Report(const fs::path& file, const std::vector<std::string>& leftOut) {
  std::cout << "wrote " << file.string() << "\n";
  for (const std::string& s : leftOut) std::cout << "  left out: " << s << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  fs::path src = "../shared/data/unifac", out = "data";
  std::string modInteractions = "modunifac_interactions.tsv";
  std::vector<std::string> pos;
  for (int k = 1; k < argc; ++k) {
    const std::string a = argv[k];
    if (a == "--mod-interactions" && k + 1 < argc) {
      modInteractions = argv[++k];
    } else if (a == "--help" || a == "-h") {
      std::cout << "usage: mkunifac [UNIFAC_TABLE_DIR [OUT_DIR]] [--mod-interactions FILE]\n";
      return 0;
    } else {
      pos.push_back(a);
    }
  }
  if (pos.size() > 2) {
    std::cerr << "usage: mkunifac [UNIFAC_TABLE_DIR [OUT_DIR]] [--mod-interactions FILE]\n";
    return 64;
  }
  if (pos.size() >= 1) src = pos[0];
  if (pos.size() >= 2) out = pos[1];
  try {
    std::vector<std::string> leftOut;
    const std::string o = peq::MakeOUnifPar(ReadFile(src / "unifac_interactions.tsv"),
                                            ReadFile(src / "unifac_subgroups.tsv"), leftOut);
    WriteFile(out / "OUNIF6PLUS.PAR", o);
    Report(out / "OUNIF6PLUS.PAR", leftOut);
    const std::string m = peq::MakeModUnifPar(ReadFile(src / modInteractions),
                                              ReadFile(src / "modunifac_subgroups.tsv"), leftOut);
    WriteFile(out / "MODUNIF5PLUS.PAR", m);
    Report(out / "MODUNIF5PLUS.PAR", leftOut);
  } catch (const Failure& f) {
    std::cerr << "mkunifac: " << f.what << "\n";
    return 1;
  } catch (const peq::UnifacParError& e) {
    std::cerr << "mkunifac: " << e.what() << "\n";
    return 1;
  } catch (const fs::filesystem_error& e) {
    std::cerr << "mkunifac: " << e.what() << "\n";
    return 1;
  }
  return 0;
}
