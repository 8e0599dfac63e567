// frmKijInput: the k(ij) of the virial equation and of a cubic vapour model, one pair at a
// time: k(ij) = a + b/T + c ln(T) + d (T - T(0)) on the slots L13 to L16.
#pragma once

#include <string>

namespace peq {

class mdiPEQ;

inline constexpr const char* kKijFunktion = "k(ij) = a + b/T + c ln(T) + d (T - T(0))";
inline constexpr const char* kKijLabels[4] = {"k(1)", "k(2)", "k(3)", "k(4)"};
inline constexpr const char* kSuchkij2Caption = "Search for k(ij)";

struct frmKijInput {
  int i = 1, j = 2;
  std::string Caption;  // "System (i - j)"
  std::string lblKomp1, lblKomp2;
  std::string lblAnzahl;
  std::string txt[4];
  bool cmdSuchkij_2Enabled = false;

  void Load(mdiPEQ& f);
  void vor_rueck(mdiPEQ& f, int richtung);
  void txt_Change(mdiPEQ& f, int k, const std::string& text);
  bool txt_Validate(mdiPEQ& f, int k);
  // Searches the k(ij) file of the session's equation of state (EOSModel) and puts the value
  // into the first box.
  void cmdSuchkij_2(mdiPEQ& f);
  void cmdOK(mdiPEQ& f);
  void Aufbauen(mdiPEQ& f);
};

}  // namespace peq
