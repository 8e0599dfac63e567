// Writes the seed corpora of the fuzz targets (fuzz/corpus/<target>/) from the bundled data and
// the examples: the files themselves and small cuts of them, which the fuzzer mutates faster.
//   mkfuzzcorpus SOURCE_DIR
// Re-running it reproduces the same files.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "substances/q07.h"

namespace fs = std::filesystem;

namespace {

std::string ReadAll(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::ostringstream o;
  o << in.rdbuf();
  return o.str();
}

void WriteAll(const fs::path& p, const std::string& text) {
  fs::create_directories(p.parent_path());
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out << text;
  if (!out) {
    std::cerr << "mkfuzzcorpus: cannot write " << p << "\n";
    std::exit(1);
  }
}

// The first n lines (CR LF kept) of a text.
std::string HeadLines(const std::string& text, int n) {
  std::size_t pos = 0;
  for (int i = 0; i < n && pos < text.size(); ++i) {
    const std::size_t nl = text.find('\n', pos);
    pos = nl == std::string::npos ? text.size() : nl + 1;
  }
  return text.substr(0, pos);
}

// The first n records of SYNOM.TXT (a record ends with an empty line).
std::string HeadRecords(const std::string& text, int n) {
  std::size_t pos = 0;
  for (int i = 0; i < n && pos < text.size(); ++i) {
    const std::size_t end = text.find("\r\n\r\n", pos);
    pos = end == std::string::npos ? text.size() : end + 4;
  }
  return text.substr(0, pos);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: mkfuzzcorpus SOURCE_DIR\n";
    return 64;
  }
  const fs::path src = argv[1];
  const fs::path data = src / "data", out = src / "fuzz" / "corpus";

  // Databases: the bundled one, and cuts of two, three and ten substances of it.
  const std::string bank = (data / "PEQBASE.Q07").string();
  WriteAll(out / "q07" / "PEQBASE.Q07", ReadAll(bank));
  std::vector<peq::Q07Record> all;
  for (int rec = 2;; ++rec) {
    peq::Q07Record r;
    std::string err;
    if (!peq::ReadQ07Record(bank, rec, r, err)) break;
    all.push_back(r);
  }
  const std::vector<std::vector<std::string>> cuts = {
      {"64-17-5", "7732-18-5"}, {"67-64-1", "67-56-1", "7732-18-5"}, {"7727-37-9", "74-82-8"}};
  int cutNo = 0;
  for (const auto& cas : cuts) {
    std::vector<peq::Q07Record> pick;
    for (const std::string& c : cas)
      for (const auto& r : all)
        if (r.CasNr == c) pick.push_back(r);
    std::string err;
    const fs::path p = out / "q07" / ("cut" + std::to_string(++cutNo) + ".Q07");
    fs::create_directories(p.parent_path());
    if (!peq::WriteQ07(p.string(), pick, err)) {
      std::cerr << "mkfuzzcorpus: " << err << "\n";
      return 1;
    }
  }
  {
    std::vector<peq::Q07Record> ten(all.begin(), all.begin() + std::min<std::size_t>(10, all.size()));
    std::string err;
    peq::WriteQ07((out / "q07" / "first10.Q07").string(), ten, err);
  }

  // k(ij) files, whole and their first entries.
  for (const char* f : {"KIJ_PR.DAT", "KIJ_RKS.DAT"}) {
    const std::string t = ReadAll(data / f);
    WriteAll(out / "kij" / f, t);
    WriteAll(out / "kij" / (std::string("head-") + f), HeadLines(t, 12));
  }

  // Projects: the examples.
  for (const auto& e : fs::directory_iterator(src / "examples"))
    if (e.path().extension() == ".PQC") WriteAll(out / "project" / e.path().filename(), ReadAll(e.path()));

  // Synonyms: a typed query on the first line, then the file.
  const std::string syn = ReadAll(data / "SYNOM.TXT");
  const std::string head = HeadRecords(syn, 12);
  const std::vector<std::string> queries = {"Ethanol", "Äthylalkohol", "64-17-5", "ME-OH", "Stickstoff",
                                            "ZYKLOHEXAN", "Essigsaeure", "Kohlenoxyd", "nothing"};
  int q = 0;
  for (const std::string& query : queries) WriteAll(out / "synonym" / ("q" + std::to_string(++q)), query + "\n" + head);
  WriteAll(out / "synonym" / "full", "Ethanol\n" + syn);

  // Group parameter files, whole and with only their first 30 pair lines.
  for (const auto& [dir, file] : {std::pair<const char*, const char*>{"modunif", "MODUNIF5PLUS.PAR"},
                                  std::pair<const char*, const char*>{"ounif", "OUNIF6PLUS.PAR"}}) {
    const std::string t = ReadAll(data / file);
    WriteAll(out / dir / file, t);
    const std::size_t first = t.find('\n') + 1;
    const int pairs = std::atoi(t.c_str());
    const std::size_t pairsEnd = HeadLines(t, pairs + 1).size();
    const std::string cut = "30\r\n" + HeadLines(t.substr(first), 30) + t.substr(pairsEnd);
    WriteAll(out / dir / (std::string("cut-") + file), cut);
  }
  return 0;
}
