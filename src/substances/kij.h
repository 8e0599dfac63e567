// The k(ij) files of the equations of state: "KIJ_RKS.DAT" (EOSModel 4) and "KIJ_PR.DAT"
// (EOSModel 5). Each entry is two lines: "CAS1,CAS2" (the rest ignored) and the value.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

struct KijEntry {
  std::string Cas1, Cas2;
  double Kij = 0;
};

// File name of the k(ij) file of an equation of state, empty for codes without one.
std::string KijFileName(int eosModel);

// Reads every entry of a k(ij) file; an unreadable tail ends the list.
std::vector<KijEntry> ReadKijFile(const std::string& path);

// Writes entries in the two-line form (temporary name, then renamed). False on failure.
bool WriteKijFile(const std::string& path, const std::vector<KijEntry>& entries, std::string& err);

// The k(ij) of the pair of CAS numbers, in either order, from the file; nullopt when absent.
std::optional<double> FindKij(const std::string& path, const std::string& cas1,
                              const std::string& cas2);

// The search of the parameter window: k(ij) of components i and j from the file of the current
// EOSModel in directory dir. Found: the value and the "Result" box "j(ij)-parameter was found and
// filled in"; else "For this binary system no k(ij)-parameter was found".
std::optional<double> SearchKij(const Session& s, int i, int j, const std::string& dir,
                                MsgSink* sink);

}  // namespace peq
