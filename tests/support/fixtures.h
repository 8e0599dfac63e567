// Test fixtures built through the project's own writers: temporary directories, small
// substance databases (*.Q07) and loaded mixtures.
//
// Typical use:
//   peqtest::TempDir dir;
//   std::string bank = peqtest::WriteBank(dir.path(), "MINI.Q07",
//       {peqtest::BundledRecord("7732-18-5"), peqtest::BundledRecord("64-17-5")});
//   peq::Session s;
//   bool ok = peqtest::LoadMixture(s, bank, {"64-17-5", "7732-18-5"});  // ethanol, water
// or simply peqtest::LoadMixture(s, peqtest::BundledBankPath(), {...}) on the bundled database.
#pragma once

#include <string>
#include <vector>

#include "session/session.h"
#include "substances/q07.h"

namespace peqtest {

// A fresh, empty directory under the system's temporary directory, removed with its contents
// when the object goes out of scope.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  // The directory, without a trailing separator.
  const std::string& path() const { return path_; }
  // Full path of a file in the directory.
  std::string File(const std::string& name) const;

 private:
  std::string path_;
};

// The bundled default database of the source tree (data/PEQBASE.Q07).
std::string BundledBankPath();

// The record of the bundled database with this CAS-RN (texts UTF-8, unpadded). A missing
// CAS-RN fails the current test and gives a blank record.
peq::Q07Record BundledRecord(const std::string& cas);

// A record with the given texts and all values empty (0); fill V[...] as needed.
peq::Q07Record BlankRecord(const std::string& formel, const std::string& name,
                           const std::string& cas);

// Writes a database of the records (in this order, substance n = record n+1) with the project's
// writer; returns the full path. A failed write fails the current test.
std::string WriteBank(const std::string& dir, const std::string& fileName,
                      const std::vector<peq::Q07Record>& records);

// Writes raw bytes to a file (for damaged or foreign files); returns the full path.
std::string WriteBytes(const std::string& dir, const std::string& fileName,
                       const std::string& bytes);

// Opens the database at the full path into s (BankOeffnen); true when it opened.
bool OpenBank(peq::Session& s, const std::string& path);

// Opens the database and commits the mixture of the CAS numbers, in this order
// (SelectionCommit, which runs LoadSubstances). Returns LoadSubstances' ok; false also when the
// database does not open or a CAS-RN is not in it (that also fails the current test).
bool LoadMixture(peq::Session& s, const std::string& bankPath, const std::vector<std::string>& cas,
                 peq::MsgSink* sink = nullptr);

}  // namespace peqtest
