// peqcalc: the command-line front end of the engine. It loads a project file exactly as the
// program loads a project, runs one command and prints one JSON object on stdout. A message the
// program would show in a box goes to stderr as "TITLE: text".
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "command.h"
#include "models/eos_pure.h"
#include "session/loadpath.h"
#include "session/session.h"
#include "substances/unifacfiles.h"

namespace fs = std::filesystem;

namespace {

using peqcalc::Command;
using peqcalc::Commands;
using peqcalc::kExitOk;
using peqcalc::kExitRefused;
using peqcalc::kExitUsage;

const char* kUsage = "usage: peqcalc PROJECT.PQC [--bank-dir DIR] [--exact] COMMAND [ARGS...]\n"
                     "       peqcalc --help";

void PrintHelp() {
  std::cout
      << kUsage << "\n\n"
      << "Loads the project file PROJECT.PQC as the program loads a project (the database it\n"
         "names, the components by CAS-RN, the settings and models), runs COMMAND and prints\n"
         "one JSON object on stdout. Numbers have 17 significant digits; temperatures in K,\n"
         "pressures in kPa, compositions as mole fractions of components 1..NKomp. A quantity\n"
         "per component is an array in component order, a pair matrix an array of rows.\n\n"
         "Options (before COMMAND):\n"
         "  --bank-dir DIR   directory in which the database of the project is looked up\n"
         "                   (default: the directory of this program, where the bundled\n"
         "                   databases stand)\n"
         "  --exact          no safeguard for this run: a failed or trivial bubble point or\n"
         "                   flash is not retried from other start values (the option\n"
         "                   \"Safeguarded equilibrium calculation\" off); without it an answer\n"
         "                   found by the retry carries \"retried\": -1\n"
         "  --help, -h       this text\n\n"
         "Commands:\n";
  for (const Command& c : Commands()) {
    std::cout << "  " << c.name << (c.synopsis.empty() ? "" : " ") << c.synopsis << "\n";
    std::string h = c.help;
    std::size_t p = 0;
    while (p <= h.size()) {
      std::size_t q = h.find('\n', p);
      if (q == std::string::npos) q = h.size();
      std::cout << "      " << h.substr(p, q - p) << "\n";
      p = q + 1;
    }
  }
  std::cout << "\nMessages go to stderr as \"TITLE: text\".\n"
               "Exit codes: 0 done; 2 refused (project not loadable, database missing, a\n"
               "component not in the database, the mixture not usable); 64 bad usage.\n";
}

int Usage(const std::string& why) {
  if (!why.empty()) std::cerr << "peqcalc: " << why << "\n";
  std::cerr << kUsage << "\n";
  return kExitUsage;
}

void PrintMessages(const peq::MsgSink& msgs) {
  for (const peq::Message& m : msgs) std::cerr << m.title << ": " << m.text << "\n";
}

// The directory of this executable, ending with a separator.
std::string ProgramDir(const char* argv0) {
  std::error_code ec;
  fs::path p = fs::read_symlink("/proc/self/exe", ec);
  if (ec || p.empty()) p = fs::absolute(fs::path(argv0 ? argv0 : ""), ec);
  std::string d = p.parent_path().string();
  if (!d.empty() && d.back() != '/') d += '/';
  return d;
}

int Main(int argc, char** argv) {
  std::string project, command, bankDir;
  bool haveBankDir = false, exact = false;
  peqcalc::Args args;
  for (int a = 1; a < argc; ++a) {
    const std::string w = argv[a];
    if (!command.empty()) {
      args.push_back(w);
      continue;
    }
    if (w == "--help" || w == "-h") {
      PrintHelp();
      return kExitOk;
    }
    if (w == "--exact") {
      exact = true;
    } else if (w == "--bank-dir") {
      if (a + 1 >= argc) return Usage("--bank-dir needs a directory");
      bankDir = argv[++a];
      haveBankDir = true;
    } else if (w.rfind("--bank-dir=", 0) == 0) {
      bankDir = w.substr(11);
      haveBankDir = true;
    } else if (w.size() > 1 && w[0] == '-') {
      return Usage("unknown option " + w);
    } else if (project.empty()) {
      project = w;
    } else {
      command = w;
    }
  }
  if (project.empty()) return Usage("no project file given");
  if (command.empty()) return Usage("no command given");
  const Command* cmd = peqcalc::FindCommand(command);
  if (!cmd) return Usage("unknown command " + command);
  std::string why;
  if (cmd->check && !cmd->check(args, why)) return Usage(why);
  if (haveBankDir && bankDir.empty()) return Usage("--bank-dir needs a directory");

  peq::Session s;
  s.Safeguard = !exact;
  if (haveBankDir) {
    s.PfadBank = bankDir;
    if (s.PfadBank.back() != '/' && s.PfadBank.back() != '\\') s.PfadBank += '/';
  } else {
    s.PfadBank = ProgramDir(argv[0]);
  }

  // The group parameter files beside the program, as the desktop program chooses them at start.
  peq::ChooseUnifacFiles(ProgramDir(argv[0]), s.ModUnifFile, s.OUnifFile);

  peq::MsgSink msgs;
  const peq::LoadStage stage = peq::ProjektLaden(s, project, &msgs);
  PrintMessages(msgs);
  const bool loadSpoke = !msgs.empty();
  msgs.clear();
  switch (stage) {
    case peq::LoadStage::Loaded:
      break;
    case peq::LoadStage::ReadWithGap:
      for (int i = 1; i <= s.NKomp; ++i)
        if (s.KompIdx[i] == 0)
          std::cerr << "Execution not possible: Substance " << i
                    << " not involved in actual database " << s.BankDatei << "\n";
      return kExitRefused;
    case peq::LoadStage::SubstancesFailed:
      if (!loadSpoke)
        std::cerr << "Execution not possible: the substances of the project " << project
                << " could not be loaded\n";
      return kExitRefused;
    case peq::LoadStage::NotRead:
      return kExitRefused;
  }
  // "Models OK" of the model window: the models of the project are committed as they stand.
  if (!peq::EOSTabellenBerechnen(s)) {
    std::cerr << "Execution not possible: Error while calculating the EOS-parameters\n";
    return kExitRefused;
  }

  peqcalc::Json out;
  const int rc = cmd->run(s, args, out, msgs);
  PrintMessages(msgs);
  if (rc == kExitOk) std::cout << out.Text() << "\n";
  return rc;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Main(argc, argv);
  } catch (const std::exception& e) {
    std::cerr << "Error: " << e.what() << "\n";
    return kExitRefused;
  }
}
