#include "fuzz_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "substances/bank.h"
#include "substances/unifacfiles.h"
#include "tools/sweep/session_check.h"

namespace peqfuzz {

namespace fs = std::filesystem;

namespace {

struct WorkDirHolder {
  std::string path;
  WorkDirHolder() {
    const char* tmp = std::getenv("TMPDIR");
    std::string templ = std::string(tmp && *tmp ? tmp : "/tmp") + "/peqfuzz-XXXXXX";
    if (!mkdtemp(templ.data())) {
      std::perror("mkdtemp");
      std::abort();
    }
    path = templ + "/";
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(PEQ_DATA_DIR, ec)) {
      if (!e.is_regular_file()) continue;
      fs::copy_file(e.path(), fs::path(path) / e.path().filename(), fs::copy_options::overwrite_existing, ec);
    }
  }
  ~WorkDirHolder() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

}  // namespace

const std::string& WorkDir() {
  static WorkDirHolder holder;
  return holder.path;
}

std::string WriteInput(const std::string& name, const uint8_t* data, std::size_t size) {
  const std::string p = WorkDir() + name;
  std::ofstream out(p, std::ios::binary | std::ios::trunc);
  out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  out.close();
  if (!out) Require(false, "cannot write the input file " + p);
  return p;
}

void Require(bool cond, const std::string& what) {
  if (cond) return;
  std::fprintf(stderr, "\n*** invariant broken: %s\n", what.c_str());
  std::fflush(stderr);
  std::abort();
}

void RequireFinite(const peq::Session& s, const char* after) {
  const std::string where = peq::check::FirstNonFinite(s);
  Require(where.empty(), std::string("non-finite value in ") + where + " after " + after);
}

peq::Session FreshSession() {
  peq::Session s;
  s.PfadBank = WorkDir();
  peq::ChooseUnifacFiles(WorkDir(), s.ModUnifFile, s.OUnifFile);
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, "PEQBASE.Q07", notFound, empty);
  Require(!notFound && !empty, "the bundled database does not open");
  return s;
}

peq::Session LoadedSession(const char* example) {
  peq::Session s = FreshSession();
  peq::MsgSink msgs;
  const peq::LoadStage st = peq::ProjektLaden(s, std::string(PEQ_EXAMPLES_DIR) + "/" + example, &msgs);
  Require(st == peq::LoadStage::Loaded, std::string("the example ") + example + " does not load");
  Require(peq::EOSTabellenBerechnen(s), std::string("the EOS tables of ") + example + " fail");
  s.ModelleOffen = false;
  return s;
}

BankIndex IndexOf(const peq::Session& s) {
  return BankIndex{s.BankAnz, s.BankOffen, s.BankDatei, s.PfadBank, s.BankCAS, s.BankName, s.BankFormel, s.BankNr};
}

}  // namespace peqfuzz
