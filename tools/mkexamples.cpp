// Writes the example projects under examples/ with the project's own writer:
//   mkexamples DATA_DIR OUT_DIR
// DATA_DIR holds the bundled database PEQBASE.Q07; the mixtures are chosen in it by CAS-RN
// exactly as the substance selection does, and given NRTL parameters and an ideal vapour phase.
//
// NRTL parameters: DECHEMA Chemistry Data Series Vol. I (Gmehling, Onken et al., Vapor-Liquid
// Equilibrium Data Collection), isobaric data sets at 1 atm, as tabulated in the ChemSep
// "nrtl.ipd" file (see ../shared/data/binary/nrtl.tsv and its PROVENANCE.md). The source gives
// A12 = g12 - g22 in cal/mol with tau12 = A12/(R T), R = 1.98720 cal/(mol K); the parameters are
// stored here as A12/R in K (unit code 3), so that tau12 = par12/T holds exactly as published.
#include <cstdio>
#include <string>
#include <vector>

#include "session/project.h"
#include "session/session.h"
#include "substances/bank.h"

namespace {

struct NrtlPair {
  int i, j;          // components, i < j
  double bij, bji;   // (g_ij - g_jj)/R and (g_ji - g_ii)/R, K
  double alpha;      // non-randomness
};

struct Example {
  const char* file;
  const char* comment;
  std::vector<const char*> cas;
  std::vector<NrtlPair> nrtl;
  double tIso, pIso, xIso;
};

// Slots of the NRTL parameters of a pair: L1 = GEPar(1,i,j) is par12, L4 = GEPar(2,j,i)
// is par21, L7 = GEPar(3,j,i) is alpha12.
void SetNrtl(peq::Session& s, const NrtlPair& p) {
  s.GEPar(1, p.i, p.j) = p.bij;
  s.GEPar(2, p.j, p.i) = p.bji;
  s.GEPar(3, p.j, p.i) = p.alpha;
}

bool Make(const std::string& dataDir, const std::string& outDir, const Example& e) {
  peq::Session s;
  s.PfadBank = dataDir;
  if (!s.PfadBank.empty() && s.PfadBank.back() != '/') s.PfadBank += '/';
  bool notFound = false, empty = false;
  peq::BankOeffnen(s, "PEQBASE.Q07", notFound, empty);
  if (notFound || empty) {
    std::fprintf(stderr, "mkexamples: %sPEQBASE.Q07 not found or empty\n", s.PfadBank.c_str());
    return false;
  }
  const int n = static_cast<int>(e.cas.size());
  peq::Vec<int16_t> idx(static_cast<std::size_t>(n) + 1, 0);
  for (int i = 1; i <= n; ++i) {
    const int place = peq::CASSuchen(s, e.cas[static_cast<std::size_t>(i - 1)]);
    if (place == 0) {
      std::fprintf(stderr, "mkexamples: CAS %s not in the database\n", e.cas[static_cast<std::size_t>(i - 1)]);
      return false;
    }
    idx[static_cast<std::size_t>(i)] = static_cast<int16_t>(place);
  }
  peq::MsgSink msgs;
  if (!peq::SelectionCommit(s, n, idx, &msgs)) {
    for (const auto& m : msgs) std::fprintf(stderr, "%s: %s\n", m.title.c_str(), m.text.c_str());
    return false;
  }

  // Models: gamma-phi, NRTL with parameters in K, ideal vapour phase.
  s.Konzept = false;
  s.GEModel = 2;
  s.ParUnitNRTL = 3;
  s.VapModel = 0;
  for (const NrtlPair& p : e.nrtl) SetNrtl(s, p);

  // Diagram and single-point settings.
  s.TIso = e.tIso;
  s.PIso = e.pIso;
  s.XIso = e.xIso;
  s.TCalc = e.tIso;
  s.PCalc = e.pIso;
  s.EtaVCalc = 0.5;
  s.Rechenart = 1;

  // A stillpot of one kmol of each component and a plain column.
  for (int i = 1; i <= n; ++i) s.StoffMenge[static_cast<std::size_t>(i)] = 1.0f;
  s.RueckLauf = 2.0f;
  s.NBoden = 10;
  s.NFrak = 5;
  s.NSchritte = 100;
  s.BatchGenau = 1E-4f;
  s.BatchMaxIter = 500;
  s.RestProzent = 10;

  std::string err;
  const std::string path = outDir + "/" + e.file;
  if (!peq::ProjektSchreiben(s, path, e.comment, err)) {
    std::fprintf(stderr, "mkexamples: %s: %s\n", path.c_str(), err.c_str());
    return false;
  }
  std::printf("%s\n", path.c_str());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: mkexamples DATA_DIR OUT_DIR\n");
    return 64;
  }
  const std::vector<Example> examples = {
      {"ethanol-water.PQC",
       "ethanol (1) - water (2), NRTL (DECHEMA, 1 atm), ideal vapour",
       {"64-17-5", "7732-18-5"},
       // A12 = -57.9601, A21 = 1241.7396 cal/mol, alpha 0.2937 (DECHEMA via ChemSep nrtl.ipd).
       {{1, 2, -29.166654, 624.867622, 0.2937}},
       343.15, 101.325, 0.5},
      {"acetone-methanol-water.PQC",
       "acetone (1) - methanol (2) - water (3), NRTL (DECHEMA, 1 atm), ideal vapour",
       {"67-64-1", "67-56-1", "7732-18-5"},
       {
           // DECHEMA CDS Vol. I Part 2c p. 78: A12 = 184.2662, A21 = 226.5580 cal/mol.
           {1, 2, 92.726351, 114.008411, 0.3009},
           // DECHEMA CDS Vol. I Part 1a, given as water/acetone: A(water-acetone) = 1324.9767,
           // A(acetone-water) = 814.1435 cal/mol.
           {1, 3, 409.692912, 666.754157, 0.5663},
           // DECHEMA CDS Vol. I Part 1a p. 61: A12 = -189.0469, A21 = 792.8020 cal/mol.
           {2, 3, -95.132093, 398.953453, 0.2999},
       },
       328.15, 101.325, 0.5},
  };
  bool ok = true;
  for (const Example& e : examples) ok = Make(argv[1], argv[2], e) && ok;
  return ok ? 0 : 1;
}
