#include "support/fixtures.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <gtest/gtest.h>

#include "session/codepage.h"
#include "substances/bank.h"
#include "support/fuzzy.h"

namespace peqtest {

namespace fs = std::filesystem;

TempDir::TempDir() {
  std::string templ = (fs::temp_directory_path() / "peqtest-XXXXXX").string();
  if (char* p = mkdtemp(templ.data())) path_ = p;
  if (path_.empty()) ADD_FAILURE() << "cannot create a temporary directory";
}

TempDir::~TempDir() {
  if (path_.empty()) return;
  std::error_code ec;
  fs::remove_all(path_, ec);
}

std::string TempDir::File(const std::string& name) const { return (fs::path(path_) / name).string(); }

std::string BundledBankPath() { return (fs::path(SourceDir()) / "data" / "PEQBASE.Q07").string(); }

peq::Q07Record BundledRecord(const std::string& cas) {
  const std::string path = BundledBankPath();
  peq::Q07Record head;
  std::string err;
  if (peq::ReadQ07Record(path, 1, head, err)) {
    for (int n = 1; n <= head.Nr; ++n) {
      peq::Q07Record r;
      if (!peq::ReadQ07Record(path, n + 1, r, err)) break;
      if (peq::Trim(r.CasNr) == peq::Trim(cas)) return r;
    }
  }
  ADD_FAILURE() << "CAS-RN " << cas << " not in " << path << " " << err;
  return peq::Q07Record{};
}

peq::Q07Record BlankRecord(const std::string& formel, const std::string& name,
                           const std::string& cas) {
  peq::Q07Record r;
  r.Formel = formel;
  r.Name1 = name;
  r.Name2 = name;
  r.CasNr = cas;
  r.ModUnifInkr = "00000,00000,00000,00000,00000,00000,00000";
  r.OUnifInkr = r.ModUnifInkr;
  return r;
}

std::string WriteBank(const std::string& dir, const std::string& fileName,
                      const std::vector<peq::Q07Record>& records) {
  const std::string path = (fs::path(dir) / fileName).string();
  std::string err;
  std::vector<peq::Q07Record> recs = records;
  for (std::size_t k = 0; k < recs.size(); ++k)
    if (recs[k].Nr == 0) recs[k].Nr = static_cast<int16_t>(k + 1);
  if (!peq::WriteQ07(path, recs, err)) ADD_FAILURE() << "cannot write " << path << ": " << err;
  return path;
}

std::string WriteBytes(const std::string& dir, const std::string& fileName,
                       const std::string& bytes) {
  const std::string path = (fs::path(dir) / fileName).string();
  std::ofstream f(path, std::ios::binary | std::ios::trunc);
  f.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!f) ADD_FAILURE() << "cannot write " << path;
  return path;
}

bool OpenBank(peq::Session& s, const std::string& path) {
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, path, notFound, empty);
  return !notFound && !empty;
}

bool LoadMixture(peq::Session& s, const std::string& bankPath, const std::vector<std::string>& cas,
                 peq::MsgSink* sink) {
  if (!OpenBank(s, bankPath)) {
    ADD_FAILURE() << "database " << bankPath << " does not open";
    return false;
  }
  const int n = static_cast<int>(cas.size());
  peq::Vec<int16_t> idx(static_cast<std::size_t>(n) + 1, 0);
  for (int i = 1; i <= n; ++i) {
    const int place = peq::CASSuchen(s, cas[static_cast<std::size_t>(i - 1)]);
    if (place == 0) {
      ADD_FAILURE() << "CAS-RN " << cas[static_cast<std::size_t>(i - 1)] << " not in " << bankPath;
      return false;
    }
    idx[static_cast<std::size_t>(i)] = static_cast<int16_t>(place);
  }
  return peq::SelectionCommit(s, n, idx, sink);
}

}  // namespace peqtest
