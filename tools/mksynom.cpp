// mksynom: writes the synonym file "SYNOM.TXT" that stands beside the database.
//
//   mksynom SYNONYMS_TSV DATABASE_Q07 OUT_FILE
//   e.g. build/mksynom ../shared/data/pure/synonyms.tsv data/PEQBASE.Q07 data/SYNOM.TXT
//
// One record per substance of the database, in the database's order:
//   the CAS-RN
//   the data line "*" formula "_" English name "_" German name, with the first three blanks of
//   the English name written as "_"
//   the synonym lines: the key form (upper case, no blanks, the rewrites of the search, no
//   hyphens, brackets or points) of both names of the database, of every synonym part behind a
//   ";" of the names, and of every synonym the table gives for that CAS-RN; each key once
//   one empty line.
// Code page 850, CR LF line ends. The output depends only on the two inputs.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "session/codepage.h"
#include "substances/q07.h"
#include "substances/synonym.h"

namespace mksynom {

struct Failure {
  std::string what;
};

inline std::vector<std::string> SplitAt(const std::string& text, char sep) {
  std::vector<std::string> parts;
  std::size_t a = 0;
  for (;;) {
    const std::size_t b = text.find(sep, a);
    parts.push_back(text.substr(a, b == std::string::npos ? std::string::npos : b - a));
    if (b == std::string::npos) break;
    a = b + 1;
  }
  return parts;
}

// synonyms.tsv: "cas <tab> synonym", one header row; synonyms of each CAS-RN in file order.
inline std::map<std::string, std::vector<std::string>> ReadSynonyms(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw Failure{"cannot read " + path};
  std::map<std::string, std::vector<std::string>> out;
  std::string line;
  bool head = true;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) continue;
    if (head) {
      head = false;
      continue;
    }
    const std::vector<std::string> cells = SplitAt(line, '\t');
    if (cells.size() < 2) throw Failure{"short line in " + path + ": " + line};
    out[peq::Trim(cells[0])].push_back(peq::Trim(cells[1]));
  }
  return out;
}

// The key form of a name as the search builds it from what the user types.
inline std::string KeyOf(const std::string& text) {
  return peq::SynonymSchluessel(peq::BlankEntfernen(peq::NameNormieren(peq::Trim(text))));
}

inline std::string DataLine(const peq::Q07Record& r) {
  std::string en = peq::Trim(r.Name1.substr(0, r.Name1.find(';')));
  std::string de = peq::Trim(r.Name2.substr(0, r.Name2.find(';')));
  for (char& c : en)
    if (c == '_') c = ' ';
  for (char& c : de)
    if (c == '_') c = ' ';
  int blanks = 0;
  for (char& c : en)
    if (c == ' ' && blanks < 3) {
      c = '_';
      ++blanks;
    }
  return "*" + peq::Trim(r.Formel) + "_" + en + "_" + de;
}

// Writes the synonym file from the synonym table and the database. False with the reason in err;
// summary tells what was written, notes what was left out.
inline bool MakeSynom(const std::string& tsvPath, const std::string& bank, const std::string& target,
                      std::string& summary, std::string& notes, std::string& err) {
  try {
    const auto synonyms = ReadSynonyms(tsvPath);

    peq::Q07Record head;
    std::string rerr;
    if (!peq::ReadQ07Record(bank, 1, head, rerr)) throw Failure{"cannot read " + bank + ": " + rerr};
    const int count = head.Nr;

    std::string out;
    std::set<std::string> casInBank;
    std::size_t lines = 0;
    std::map<std::string, std::string> owner;  // key -> CAS-RN of its first record
    for (int n = 1; n <= count; ++n) {
      peq::Q07Record r;
      if (!peq::ReadQ07Record(bank, n + 1, r, rerr)) throw Failure{"record " + std::to_string(n) + ": " + rerr};
      const std::string cas = peq::Trim(r.CasNr);
      casInBank.insert(cas);

      std::vector<std::string> keys;
      const auto add = [&keys](const std::string& text) {
        const std::string k = KeyOf(text);
        if (!k.empty() && std::find(keys.begin(), keys.end(), k) == keys.end()) keys.push_back(k);
      };
      for (const std::string& part : SplitAt(r.Name1, ';')) add(part);
      for (const std::string& part : SplitAt(r.Name2, ';')) add(part);
      auto it = synonyms.find(cas);
      if (it != synonyms.end())
        for (const std::string& syn : it->second) add(syn);

      for (const std::string& k : keys) {
        auto [o, fresh] = owner.emplace(k, cas);
        if (!fresh && o->second != cas)
          notes += "key " + k + " of " + cas + " already belongs to " + o->second + "; the search finds the first\n";
      }
      out += peq::Utf8ToCp850(cas) + "\r\n";
      out += peq::Utf8ToCp850(DataLine(r)) + "\r\n";
      for (const std::string& k : keys) out += peq::Utf8ToCp850(k) + "\r\n";
      out += "\r\n";
      lines += keys.size();
    }

    std::size_t missing = 0;
    for (const auto& [cas, list] : synonyms)
      if (!casInBank.count(cas)) {
        notes += cas + " of the synonym table is not in the database, left out\n";
        ++missing;
      }

    const std::string tmp = target + ".tmp";
    {
      std::ofstream f(tmp, std::ios::binary | std::ios::trunc);
      if (!f) throw Failure{"cannot write " + tmp};
      f << out;
      if (!f.flush()) throw Failure{"cannot write " + tmp};
    }
    if (std::rename(tmp.c_str(), target.c_str()) != 0) throw Failure{"cannot rename " + tmp};
    summary = std::to_string(count) + " substances, " + std::to_string(lines) + " synonym lines, " +
              std::to_string(missing) + " table entries without a substance -> " + target;
  } catch (const Failure& f) {
    err = f.what;
    return false;
  }
  return true;
}

}  // namespace mksynom

#ifndef PEQ_MKSYNOM_NO_MAIN
int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: mksynom SYNONYMS_TSV DATABASE_Q07 OUT_FILE\n";
    return 64;
  }
  std::string summary, notes, err;
  if (!mksynom::MakeSynom(argv[1], argv[2], argv[3], summary, notes, err)) {
    std::cerr << "mksynom: " << err << "\n";
    return 1;
  }
  std::cerr << notes;
  std::cout << "mksynom: " << summary << "\n";
  return 0;
}
#endif
