#include "windows/calcinput.h"


#include "session/codepage.h"
#include "session/numeric.h"
#include "session/numformat.h"
#include "session/writefmt.h"
#include "windows/shell.h"

namespace peq {

namespace {

std::size_t U(int i) { return static_cast<std::size_t>(i); }

// The number of a box; false for a text that is no number. An empty box counts as 0.
bool BoxWert(const std::string& text, double& v) {
  if (Trim(text).empty()) {
    v = 0;
    return true;
  }
  return ParseNumber(text, v);
}

// The amount of a feed or sum box: a number of 0 or more; an empty box counts as 0.
bool MengeWert(const std::string& text, double& v) {
  double w = 0;
  if (!BoxWert(text, w) || !(w >= 0)) return false;
  v = w;
  return true;
}

// FeedN and Feed sized for the mixture.
void FeedFelder(Session& s) {
  const std::size_t m = U(s.NKomp) + 1;
  if (s.FeedN.size() != m) s.FeedN.assign(m, 0);
  if (s.Feed.size() != m) s.Feed.assign(m, 0);
}

}  // namespace

std::string TKritHinweis(const Session& s, double T) {
  int32_t maske = 0;
  for (int i = 1; i <= s.NKomp; ++i)
    if (s.TKrit[U(i)] > 1E-6 && T > s.TKrit[U(i)]) maske |= 1 << (i - 1);
  if (maske == 0) return std::string();
  std::string namen;
  for (int i = 1; i <= s.NKomp; ++i) {
    if ((maske & (1 << (i - 1))) == 0) continue;
    if (!namen.empty()) namen += ", ";
    namen += Trim(s.StoffData[U(i)].Name);
  }
  std::string t = std::string(kTKritAnfang) + namen + kTKritEnde;
  if (!s.Konzept) t += std::string(kNL) + kTKritRat;
  return t;
}

std::string EingabeZahl(double v) { return ZahlG(v, 7); }

bool MengenTaste(int& keyAscii) {
  switch (keyAscii) {
    case ',':
      keyAscii = '.';
      return true;
    case '0': case '1': case '2': case '3': case '4': case '5': case '6': case '7': case '8': case '9':
    case '.': case 13: case 3: case 22:
      return true;
    case 8:  // Backspace only takes a character away: a typing slip stays easy to mend
      return true;
    default:
      return false;
  }
}

std::string KeineMengeText(const std::string& name, const std::string& text) {
  return name + ": \"" + text + "\" is not an amount (a number of 0 or more)";
}

double frmCalcInput::Gezeigt(const Session& s, int i) const {
  const double n = s.FeedN[U(i)];
  return optInput_Unit == 0 ? n : n * static_cast<double>(s.MolMasse[U(i)]);
}

void frmCalcInput::FeedZeigen(const Session& s) {
  txtCInput.assign(U(s.NKomp) + 1, std::string());
  double sum = 0;
  for (int i = 1; i <= s.NKomp; ++i) {
    const double v = Gezeigt(s, i);
    txtCInput[U(i)] = EingabeZahl(v);
    sum += v;
  }
  txtSumN0 = EingabeZahl(sum);
}

void frmCalcInput::Freigeben() {
  if (Art == 1) {
    optVorgabeEnabled = true;
    txtTEnabled = optVorgabe == 0 || optVorgabe == 2;
    txtpEnabled = optVorgabe == 1 || optVorgabe == 2;
    txtetaVEnabled = optVorgabe == 0 || optVorgabe == 1;
  } else {
    // Activity coefficients: T and the feed only.
    optVorgabeEnabled = false;
    txtTEnabled = true;
    txtpEnabled = false;
    txtetaVEnabled = false;
  }
}

void frmCalcInput::Load(mdiPEQ& f) {
  Session& s = f.s;
  Art = s.Rechenart == 1 ? 1 : 2;
  s.CalcArt = Art;
  Caption = kCalcInputCaption;
  FeedFelder(s);
  if (s.CalcVorgabe < 0 || s.CalcVorgabe > 2) s.CalcVorgabe = 2;
  optVorgabe = s.CalcVorgabe;
  TOffset = s.TOffsetOut == 0 ? 0 : 273.15;
  optTUnit = TOffset == 0 ? 0 : 1;
  txtT = EingabeZahl(s.TCalc - TOffset);
  txtp = EingabeZahl(s.PCalc);
  txtetaV = EingabeZahl(s.EtaVCalc);
  if (s.CalcEinheit != 0 && s.CalcEinheit != 1) s.CalcEinheit = 0;
  optInput_Unit = s.CalcEinheit;
  lblKomp.assign(U(s.NKomp) + 1, std::string());
  for (int i = 1; i <= s.NKomp; ++i) lblKomp[U(i)] = Trim(s.StoffData[U(i)].Name);
  FeedZeigen(s);
  Fokus = 1;
  Weiter = false;
  Freigeben();
}

void frmCalcInput::optVorgabe_Click(mdiPEQ& f, int16_t index) {
  if (index < 0 || index > 2) return;
  optVorgabe = index;
  f.s.CalcVorgabe = index;
  Freigeben();
}

void frmCalcInput::optTUnit_Click(mdiPEQ& f, int16_t index) {
  if (index != 0 && index != 1) return;
  optTUnit = index;
  TOffset = index == 0 ? 0 : 273.15;
  f.s.TOffsetOut = TOffset;
  txtT = EingabeZahl(f.s.TCalc - TOffset);
}

void frmCalcInput::optInput_Unit_Click(mdiPEQ& f, int16_t index) {
  if (index != 0 && index != 1) return;
  optInput_Unit = index;
  f.s.CalcEinheit = index;
  FeedZeigen(f.s);
}

void frmCalcInput::txtT_Change(mdiPEQ& f, const std::string& text) {
  txtT = text;
  double v = 0;
  if (BoxWert(text, v)) f.s.TCalc = v + TOffset;
}

void frmCalcInput::txtp_Change(mdiPEQ& f, const std::string& text) {
  txtp = text;
  double v = 0;
  if (BoxWert(text, v)) f.s.PCalc = v;
}

void frmCalcInput::txtetaV_Change(mdiPEQ& f, const std::string& text) {
  txtetaV = text;
  double v = 0;
  if (BoxWert(text, v)) f.s.EtaVCalc = v;
}

void frmCalcInput::txtCInput_Change(mdiPEQ& f, int i, const std::string& text) {
  Session& s = f.s;
  const int n = s.NKomp;
  if (i < 1 || i > n) return;
  FeedFelder(s);
  txtCInput.resize(U(n) + 1);
  txtCInput[U(i)] = text;
  // A text that is no amount (a pasted sign, say) leaves the feed as it was; go on refuses it.
  double v = 0;
  if (!MengeWert(text, v)) return;
  try {
    // The amount of the component: as typed, or the mass divided by the molar mass.
    s.FeedN[U(i)] = CSng(optInput_Unit == 0 ? v : chk::Div(v, s.MolMasse[U(i)]));
    double summe = 0;
    if (!chkSumIsVariable && i != n) {
      // The last box takes what remains to the fixed sum (never below 0).
      double fest = 0;
      BoxWert(txtSumN0, fest);
      double andere = 0;
      for (int k = 1; k < n; ++k) andere += Gezeigt(s, k);
      double rest = fest - andere;
      if (rest < 0) rest = 0;
      s.FeedN[U(n)] = CSng(optInput_Unit == 0 ? rest : chk::Div(rest, s.MolMasse[U(n)]));
      txtCInput[U(n)] = EingabeZahl(rest);
    }
    for (int k = 1; k <= n; ++k) summe += Gezeigt(s, k);
    if (chkSumIsVariable || i == n) {
      txtSumN0 = EingabeZahl(summe);
    } else {
      double fest = 0;
      BoxWert(txtSumN0, fest);
      if (summe > fest + 1E-9 * (1 + fest)) txtSumN0 = EingabeZahl(summe);
    }
  } catch (const NumericFault&) {
    // A value no single-precision amount holds: the feed stays as it was.
  }
}

void frmCalcInput::txtCInput_Return(mdiPEQ& f, int i) {
  const int n = f.s.NKomp;
  if (i < 1 || i > n) return;
  Fokus = i < n ? i + 1 : n + 1;
}

void frmCalcInput::txtSumN0_Change(mdiPEQ&, const std::string& text) { txtSumN0 = text; }

void frmCalcInput::txtSumN0_Return(mdiPEQ& f) {
  Session& s = f.s;
  double ziel = 0;
  double jetzt = 0;
  for (int i = 1; i <= s.NKomp; ++i) jetzt += Gezeigt(s, i);
  if (!BoxWert(txtSumN0, ziel) || !(ziel > 0) || !(jetzt > 0)) {
    f.ui.MsgBox(kTitleNotPossible, kKeineZusammensetzung, MsgIcon::Stop, Buttons::Ok);
    return;
  }
  try {
    const double faktor = chk::Div(ziel, jetzt);
    for (int i = 1; i <= s.NKomp; ++i) s.FeedN[U(i)] = CSng(s.FeedN[U(i)] * faktor);
  } catch (const NumericFault&) {
    f.ui.MsgBox(kTitleNotPossible, kKeineZusammensetzung, MsgIcon::Stop, Buttons::Ok);
    return;
  }
  FeedZeigen(s);
  txtSumN0 = EingabeZahl(ziel);
}

void frmCalcInput::chkSumIsVariable_Click(mdiPEQ& f, bool checked) {
  chkSumIsVariable = checked;
  double summe = 0;
  for (int i = 1; i <= f.s.NKomp; ++i) summe += Gezeigt(f.s, i);
  txtSumN0 = EingabeZahl(summe);
}

void frmCalcInput::cmdWeiter(mdiPEQ& f) {
  Session& s = f.s;
  FeedFelder(s);
  // Every box must hold an amount of 0 or more, and so must the feed of the session: a negative
  // amount never reaches a calculation.
  for (int i = 1; i <= s.NKomp; ++i) {
    double v = 0;
    const bool box = U(i) < txtCInput.size();
    if ((box && !MengeWert(txtCInput[U(i)], v)) || !(s.FeedN[U(i)] >= 0)) {
      Fokus = i;
      const std::string text = box ? txtCInput[U(i)] : EingabeZahl(Gezeigt(s, i));
      f.ui.MsgBox(kTitleNotPossible, KeineMengeText(Trim(s.StoffData[U(i)].Name), text), MsgIcon::Stop,
                  Buttons::Ok);
      return;
    }
  }
  // 1. The sum of the amounts.
  double summe = 0;
  for (int i = 1; i <= s.NKomp; ++i) summe += s.FeedN[U(i)];
  if (!(summe > 0)) {
    f.ui.MsgBox(kTitleNotPossible, kKeineZusammensetzung, MsgIcon::Stop, Buttons::Ok);
    return;
  }
  // 2. Mole fractions of the feed.
  for (int i = 1; i <= s.NKomp; ++i) s.Feed[U(i)] = s.FeedN[U(i)] / summe;
  Weiter = true;
  // The initial filling of the stillpot: the distillation goes on by itself.
  if (f.DestillAktiv) {
    f.Unload(WindowId::frmCalcInput);
    return;
  }
  // 3. Components above their critical temperature, when T is given.
  const bool tGegeben = Art != 1 || s.CalcVorgabe == 0 || s.CalcVorgabe == 2;
  if (tGegeben) {
    const std::string note = TKritHinweis(s, s.TCalc);
    if (!note.empty()) f.ui.MsgBox(kNoteTitle, note, MsgIcon::Information, Buttons::Ok);
  }
  // 4. The result window calculates as it loads.
  f.Unload(WindowId::frmCalcInput);
  f.Unload(WindowId::frmCalcOut);
  f.Show(WindowId::frmCalcOut);
}

void frmCalcInput::cmdCancel(mdiPEQ& f) { f.Unload(WindowId::frmCalcInput); }

}  // namespace peq
