#include "windows/kijinput.h"

#include <cmath>

#include "session/codepage.h"
#include "substances/kij.h"
#include "windows/geinput.h"
#include "windows/shell.h"

namespace peq {

namespace {
constexpr int kErsterSlot = 13;  // k(1) .. k(4) are L13 .. L16
}

void frmKijInput::Load(mdiPEQ& f) {
  i = 1;
  j = 2;
  Aufbauen(f);
}

void frmKijInput::Aufbauen(mdiPEQ& f) {
  Session& s = f.s;
  Caption = "System (" + std::to_string(i) + " - " + std::to_string(j) + ")";
  const auto name = [&s](int k) {
    const std::string& n = s.StoffData[static_cast<std::size_t>(k)].Name;
    return Trim(n.substr(0, n.find(';')));
  };
  lblKomp1 = "1 = " + name(i);
  lblKomp2 = "2 = " + name(j);
  lblAnzahl = "(input the parameters for " + std::to_string(PaarAnzahl(s.NKomp)) + " binary subsystems.)";
  for (int k = 0; k < 4; ++k) txt[k] = ZahlText(ParSlot(s, kErsterSlot + k, i, j));
  cmdSuchkij_2Enabled = s.VapModel == 4 || s.VapModel == 5;
}

void frmKijInput::vor_rueck(mdiPEQ& f, int richtung) {
  NaechstesPaar(f.s.NKomp, i, j, richtung);
  Aufbauen(f);
}

void frmKijInput::txt_Change(mdiPEQ& f, int k, const std::string& text) {
  if (k < 0 || k > 3) return;
  txt[k] = text;
  double v = 0;
  if (ZahlLesen(text, v) && std::fabs(v) <= kParGrenze) ParSlot(f.s, kErsterSlot + k, i, j) = v;
}

bool frmKijInput::txt_Validate(mdiPEQ& f, int k) {
  if (k < 0 || k > 3) return true;
  if (ZahlPruefen(f, txt[k], -kParGrenze, kParGrenze)) return true;
  txt[k] = ZahlText(ParSlot(f.s, kErsterSlot + k, i, j));
  return false;
}

void frmKijInput::cmdSuchkij_2(mdiPEQ& f) {
  if (!cmdSuchkij_2Enabled) return;
  Session& s = f.s;
  // The k(ij) file of the equation of state of the session (EOSModel 4 SRK, 5 Peng-Robinson),
  // the same file the search of the gE and k(ij) window reads.
  MsgSink sink;
  const std::optional<double> v = SearchKij(s, i, j, f.ProgDir.string(), &sink);
  if (v) ParSlot(s, kErsterSlot, i, j) = *v;
  Aufbauen(f);
  ShowMessages(f.ui, sink);
}

void frmKijInput::cmdOK(mdiPEQ& f) { f.Unload(WindowId::frmKijInput); }

}  // namespace peq
