// Writes the example data sets under examples/expdata/ as EX5 files with the program's own writer:
//   mkexpdata VLE_DIR DATA_DIR OUT_DIR
// VLE_DIR holds the published T-p-x-y sets (../shared/data/vle, tab-separated T_K, p_kPa, x1, y1
// of component 1, with the CAS-RN of both components in their "#" head lines). DATA_DIR holds the
// bundled database PEQBASE.Q07, from which the CAS-RN field and the name of each component are
// taken. The files store component 2: x2 = 1 - x1 and y2 = 1 - y1 (computed in double, stored as
// the 32-bit reals the program holds). Running it again writes the same bytes.
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "expdata/tpxdaten.h"
#include "session/filewrite.h"
#include "session/session.h"
#include "session/writefmt.h"
#include "substances/bank.h"

namespace mkexpdata {

struct DataSet {
  const char* tsv;        // file in VLE_DIR
  const char* ex5;        // file written to OUT_DIR
  const char* reference;  // the published measurement
};

// The references as the provenance file of the data folder gives them.
const DataSet kSets[] = {
    {"ethanol_water_101.325kPa.tsv", "ETHANOL_WATER_101KPA.EX5",
     "Rieder & Thompson, Ind. Eng. Chem. 41, 2905 (1949)"},
    {"nhexane_ethanol_101.33kPa.tsv", "HEXANE_ETHANOL_101KPA.EX5",
     "Sinor & Weber, J. Chem. Eng. Data 5, 243 (1960)"},
    {"toluene_oxylene_101.3kPa.tsv", "TOLUENE_OXYLENE_101KPA.EX5",
     "Gupta & Lee, Fluid Phase Equilib. 352, 86 (2013)"},
    {"methanol_toluene_101.3kPa.tsv", "METHANOL_TOLUENE_101KPA.EX5",
     "Fluid Phase Equilib., doi:10.1016/j.fluid.2019.112412"},
    {"water_methanol_333.15K.tsv", "WATER_METHANOL_333K.EX5",
     "J. Chem. Eng. Data, doi:10.1021/je00019a033"},
    {"methane_ethane_243.6K.tsv", "METHANE_ETHANE_243K.EX5",
     "May et al., J. Chem. Eng. Data 60, 3606 (2015), Table 5"},
    {"co2_water_323K.tsv", "CO2_WATER_323K.EX5", "Bamberger et al., J. Supercrit. Fluids 17, 97 (2000)"},
};

// The CAS-RN of a "# component k: name (CAS nnn)" head line.
std::string CasOf(const std::string& line) {
  const std::size_t a = line.find("(CAS ");
  if (a == std::string::npos) return {};
  const std::size_t b = line.find(')', a);
  return b == std::string::npos ? std::string() : line.substr(a + 5, b - a - 5);
}

std::string Trimmed(std::string t) {
  while (!t.empty() && t.back() == ' ') t.pop_back();
  return t;
}

bool Make(const std::string& vleDir, peq::Session& bank, const std::string& outDir, const DataSet& d) {
  std::ifstream in(vleDir + "/" + d.tsv, std::ios::binary);
  if (!in) {
    std::fprintf(stderr, "mkexpdata: %s/%s not found\n", vleDir.c_str(), d.tsv);
    return false;
  }
  std::string cas1, cas2, line;
  std::vector<peq::ExpPunkt> pts;
  bool table = false;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind("# component 1:", 0) == 0) cas1 = CasOf(line);
    if (line.rfind("# component 2:", 0) == 0) cas2 = CasOf(line);
    if (line.empty() || line[0] == '#') continue;
    if (!table) {  // the column heads
      table = true;
      continue;
    }
    std::istringstream row(line);
    std::string f[4];
    double v[4];
    for (int k = 0; k < 4; ++k) {
      std::getline(row, f[k], '\t');
      if (!peq::ParseNumber(f[k], v[k])) {
        std::fprintf(stderr, "mkexpdata: %s: bad row '%s'\n", d.tsv, line.c_str());
        return false;
      }
    }
    peq::ExpPunkt p;
    p.T = static_cast<float>(v[0]);
    p.p = static_cast<float>(v[1]);
    p.x2L = static_cast<float>(1.0 - v[2]);
    p.x2V = static_cast<float>(1.0 - v[3]);
    pts.push_back(p);
  }
  const int i1 = peq::CASSuchen(bank, cas1), i2 = peq::CASSuchen(bank, cas2);
  if (i1 == 0 || i2 == 0) {
    std::fprintf(stderr, "mkexpdata: %s: CAS %s or %s not in the database\n", d.tsv, cas1.c_str(), cas2.c_str());
    return false;
  }
  const std::string text = peq::Ex5Text(
      bank.BankCAS[static_cast<std::size_t>(i1)], Trimmed(bank.BankName[static_cast<std::size_t>(i1)]),
      bank.BankCAS[static_cast<std::size_t>(i2)], Trimmed(bank.BankName[static_cast<std::size_t>(i2)]),
      d.reference, std::string("from ../shared/data/vle/") + d.tsv + ", x2 = 1 - x1, y2 = 1 - y1",
      pts.data(), static_cast<int>(pts.size()));
  std::string err;
  const std::string path = outDir + "/" + d.ex5;
  if (!peq::WriteReplacing(path, text, err)) {
    std::fprintf(stderr, "mkexpdata: %s: %s\n", path.c_str(), err.c_str());
    return false;
  }
  std::printf("%s\n", path.c_str());
  return true;
}

// Every data set of vleDir into outDir; false when one could not be written.
bool MakeAll(const std::string& vleDir, const std::string& dataDir, const std::string& outDir) {
  peq::Session bank;
  bank.PfadBank = dataDir;
  if (!bank.PfadBank.empty() && bank.PfadBank.back() != '/') bank.PfadBank += '/';
  bool notFound = false, empty = false;
  peq::BankOeffnen(bank, "PEQBASE.Q07", notFound, empty);
  if (notFound || empty) {
    std::fprintf(stderr, "mkexpdata: %sPEQBASE.Q07 not found or empty\n", bank.PfadBank.c_str());
    return false;
  }
  bool ok = true;
  for (const DataSet& d : kSets) ok = Make(vleDir, bank, outDir, d) && ok;
  return ok;
}

}  // namespace mkexpdata

#ifndef PEQ_MKEXPDATA_NO_MAIN
int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: mkexpdata VLE_DIR DATA_DIR OUT_DIR\n");
    return 64;
  }
  return mkexpdata::MakeAll(argv[1], argv[2], argv[3]) ? 0 : 1;
}
#endif
