#include "windows/thielemccabe.h"

#include <string>

#include "session/numformat.h"
#include "session/writefmt.h"
#include "windows/shell.h"

namespace peq {

namespace {

// The value of a numeric field: a comma reads as a point; text that is no number reads as 0,
// which every range test then refuses.
double FeldWert(const std::string& t) {
  std::string u = t;
  for (char& c : u)
    if (c == ',') c = '.';
  double v = 0;
  if (!ParseNumber(u, v)) return 0;
  return v;
}

std::string TempText(const Session& s, double T) {
  if (s.TOffsetOut == 0.0) return FormatZahl(T, "###.00") + " K";
  return FormatZahl(T - s.TOffsetOut, "###.00") + " \u00B0C";
}

// The state of a column end: "T = 351.25 K   x(1) = 0.05   x(2) = 0.95".
std::string ZustandText(const Session& s, const std::string& einheit, double T, double x2) {
  std::string t = "T = " + TempText(s, T);
  for (int i = 1; i <= s.NKomp; ++i) {
    const double v = i == s.Komp2 ? x2 : 1.0 - x2;
    t += "   " + einheit + "(" + std::to_string(i) + ") = " + FormatZahl(v, "0.0#####");
  }
  return t;
}

}  // namespace

std::string frmThieleMcCabe::FeldLabel(int k) const {
  return lblX + std::to_string(lblKomp) + " " + kThieleFeldTexte[k];
}

void frmThieleMcCabe::Form_Load(mdiPEQ& f) {
  lblKomp = f.s.Komp2;
  txtRR = " 1E+10";
  txtRRMin = " ?";
  OptKontDest = !f.s.ThieleOption;
  lblX = f.s.ConcUnit != 0 ? "ksi" : "x";
  lblBoeden1.clear();
  lblBoeden2.clear();
  lblKopf.clear();
  lblSumpf.clear();
  StufenPunkte = 0;
  Topmost = true;
}

bool frmThieleMcCabe::cmdCalc_Click(mdiPEQ& f) {
  Session& s = f.s;
  // The label and the fields; each given composition in 0 < x < 1.
  lblX = s.ConcUnit != 0 ? "ksi" : "x";
  lblKomp = s.Komp2;
  D.OhneFeed = OptKontDest ? 0 : -1;
  s.ThieleOption = !OptKontDest;
  D.RR = static_cast<float>(FeldWert(txtRR));
  // The ratio as it was read goes back into its field (total reflux reads " 1E+10").
  txtRR = (D.RR < 0.0f ? "" : " ") + ZahlG(D.RR, 7);
  D.XKopf = static_cast<float>(FeldWert(txtX[0]));
  D.XSumpf = static_cast<float>(FeldWert(txtX[1]));
  D.XFeed = static_cast<float>(FeldWert(txtX[2]));
  if (!ThieleBereichOK(D)) {
    f.ui.MsgBox(kThieleTitel, kThieleBereich, MsgIcon::Stop);
    return false;
  }
  D.p = s.PIso;
  D.MitHLV = chkHLV ? -1 : 0;

  MsgSink sink;
  float rrMin = 0;
  ThieleAzeotrop az;
  f.ui.WaitCursor(true);
  const bool ok = ThieleAuslegung(s, D, rrMin, az, sink);
  f.ui.WaitCursor(false);
  if (ok || !sink.empty()) {
    // The minimum reflux ratio shows once it was computed, also when RR lies below it.
    if (ok || sink.back().text == kThieleRRKlein) txtRRMin = rrMin < 0.0f ? " 0" : " " + ZahlG(rrMin, 7);
  }
  ShowMessages(f.ui, sink);
  if (!ok) return false;

  // The drawing, the counts and the record row.
  f.ui.WaitCursor(true);
  f.Graph2D.cmdDest_Click(f, D);
  StufenPunkte = f.Graph2D.Doc.Serien[kSerieStufen].Punkte();
  if (D.OhneFeed != 0) {
    lblBoeden1 = std::to_string(D.BoedenOben) + " th. plates";
    lblBoeden2.clear();
  } else {
    lblBoeden1 = std::to_string(D.BoedenOben) + " th. lates (UC)";
    lblBoeden2 = std::to_string(D.BoedenUnten) + " th. plates (LC)";
  }
  if (D.BoedenOben > 0) {
    double y = 0, TKopf = 0, TSumpf = 0;
    GleichgewichtY(s, D.p, D.XKopf, y, TKopf);
    GleichgewichtY(s, D.p, D.XSumpf, y, TSumpf);
    lblKopf = ZustandText(s, lblX, TKopf, D.XKopf);
    lblSumpf = ZustandText(s, lblX, TSumpf, D.XSumpf);
    const int ntp = D.OhneFeed != 0 ? D.BoedenOben : D.BoedenOben + D.BoedenUnten;
    DistProtokoll& p = f.DistProtokoll.P;
    if (p.ProtArt != kProtThiele || p.ProtSpalten != SpaltenThiele(s.NKomp)) p.Einrichten(kProtThiele, s.NKomp, 0);
    ThieleZeileFuellen(p, s, D.RR, ntp, D.OhneFeed != 0 ? D.XSumpf : D.XFeed, D.XSumpf, D.XKopf,
                       static_cast<float>(TSumpf - s.TOffsetOut), static_cast<float>(TKopf - s.TOffsetOut));
  }
  f.ui.WaitCursor(false);
  return true;
}

void frmThieleMcCabe::cmdProtokoll_Click(mdiPEQ& f) {
  if (!f.IsLoaded(WindowId::frmDistProtokoll)) f.DistProtokoll.Form_Load(f);
  f.Show(WindowId::frmDistProtokoll);
}

void frmThieleMcCabe::cmdClose(mdiPEQ& f) { f.Unload(WindowId::frmThieleMcCabe); }

}  // namespace peq
