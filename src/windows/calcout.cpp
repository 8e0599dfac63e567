#include "windows/calcout.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "engine/kernel.h"
#include "engine/safeguard.h"
#include "models/activity.h"
#include "models/pureprops.h"
#include "session/codepage.h"
#include "session/numeric.h"
#include "session/numformat.h"
#include "windows/protokoll.h"
#include "windows/shell.h"

namespace peq {

namespace fs = std::filesystem;

namespace {

std::size_t U(int i) { return static_cast<std::size_t>(i); }

std::string Komma(std::string t, bool dezKomma) {
  if (dezKomma)
    for (char& c : t)
      if (c == '.') c = ',';
  return t;
}

// Length of the shown record name.
constexpr int kDateiKurz = 48;

}  // namespace

// ---- number patterns ----

std::string FormatBruch(double v, bool dezKomma) {
  if (v == 1.0) return Komma("1.000000", dezKomma);
  return Komma(FormatZahl(v, "0.0000000"), dezKomma);
}

std::string FormatMenge(double v, bool dezKomma) {
  if (!std::isfinite(v)) return std::string();
  if (v == 0) return Komma(".00000E+00", dezKomma);
  // d.dddde+xx of |v|: the five digits, and the exponent of a mantissa below 1 is one more.
  char t[64];
  std::snprintf(t, sizeof t, "%.4e", std::fabs(v));
  const std::string e(t);
  const std::size_t pe = e.find('e');
  std::string ziffern = e.substr(0, 1) + e.substr(2, 4);
  const int exp10 = std::atoi(e.c_str() + pe + 1) + 1;
  char x[16];
  std::snprintf(x, sizeof x, "E%c%02d", exp10 < 0 ? '-' : '+', exp10 < 0 ? -exp10 : exp10);
  return Komma(std::string(v < 0 ? "-" : "") + "." + ziffern + x, dezKomma);
}

std::string FormatGamma(double v, bool dezKomma) { return Komma(FormatZahl(v, "#####.000"), dezKomma); }

std::string FormatFest(double v, int decimals, bool dezKomma) {
  if (!std::isfinite(v)) return std::string();
  char t[64];
  std::snprintf(t, sizeof t, "%.*f", decimals, v);
  return Komma(t, dezKomma);
}

// ---- load ----

void frmCalcOut::Festhalten(const Session& s) {
  const int n = s.NKomp;
  for (int i = 1; i <= n; ++i) {
    xL[U(i)] = Art == 1 ? s.XLiq[U(i)] : s.Feed[U(i)];
    xV[U(i)] = Art == 1 ? s.YGas[U(i)] : 0;
    gamma[U(i)] = s.Gamma[U(i)];
    p0[U(i)] = s.P0[U(i)];
    vLiq[U(i)] = s.VLiq[U(i)];
  }
}

std::string EinphasenZustand(Session& s, double T, double p, const Vec<double>& z) {
  const auto zahl = [](double v) { return ZahlG(v, 6); };
  // At T: the bubble and dew pressures.
  const double pB = SafeFlashTEta(s, T, 0.0, z);
  const double pD = SafeFlashTEta(s, T, 1.0, z);
  const std::string beiT = "at T/K = " + zahl(T);
  if (pB > 0 && p > pB)
    return "The mixture is all liquid: " + beiT + " its bubble point lies at p/kPa = " + zahl(pB) +
           (pD > 0 ? " (dew point " + zahl(pD) + ")." : std::string("."));
  if (pD > 0 && p < pD)
    return "The mixture is all vapour: " + beiT + " its dew point lies at p/kPa = " + zahl(pD) +
           (pB > 0 ? " (bubble point " + zahl(pB) + ")." : std::string("."));
  // At p: the bubble and dew temperatures.
  const double TB = SafeFlashPEta(s, p, 0.0, z);
  const double TD = SafeFlashPEta(s, p, 1.0, z);
  const std::string beiP = "at p/kPa = " + zahl(p);
  if (TD > 0 && T > TD)
    return "The mixture is all vapour: " + beiP + " its dew point lies at T/K = " + zahl(TD) +
           (TB > 0 ? " (bubble point " + zahl(TB) + ")." : std::string("."));
  if (TB > 0 && T < TB)
    return "The mixture is all liquid: " + beiP + " its bubble point lies at T/K = " + zahl(TB) +
           (TD > 0 ? " (dew point " + zahl(TD) + ")." : std::string("."));
  return std::string();
}

void frmCalcOut::Load(mdiPEQ& f) {
  Session& s = f.s;
  const int n = s.NKomp;
  Art = s.CalcArt == 1 ? 1 : 2;
  Vorgabe = s.CalcVorgabe;
  Caption = std::string(kCalcOutTitel) + (s.Konzept ? kTitelGlobal : kTitelPartiell);
  lblMethode = s.Konzept ? kMethodeEOS : kMethodeP0;
  Datum = DatumText();
  cmbSep = s.ListTrenner == "," ? 1 : s.ListTrenner == "\t" ? 2 : 0;
  xL.assign(U(n) + 1, 0);
  xV.assign(U(n) + 1, 0);
  gamma.assign(U(n) + 1, 0);
  p0.assign(U(n) + 1, 0);
  vLiq.assign(U(n) + 1, 0);
  double summe = 0;
  for (int i = 1; i <= n; ++i) summe += s.FeedN[U(i)];
  Summe = static_cast<float>(summe);
  Geloest = false;
  Wiederholt = false;
  lblZustand.clear();
  DichteOK = false;
  RhoL = RhoV = 0;
  ML = MV = MFeed = 0;
  GERT = DelMGRT = 0;
  if (Art == 1)
    Flash(f);
  else
    Aktivitaet(f);
  lblErgebnis = Geloest ? std::string() : kKeineLoesung;
  lblHinweis = Geloest && Wiederholt ? kHinweisWiederholt : std::string();
  cmdProtokollEnabled = Geloest;
  Anzeigen(s);
}

void frmCalcOut::Flash(mdiPEQ& f) {
  Session& s = f.s;
  const int n = s.NKomp;
  T = s.TCalc;
  p = s.PCalc;
  eta = s.EtaVCalc;
  switch (Vorgabe) {
    case 2: {
      const double e = SafeFlashTP(s, T, p, s.Feed);
      if (e < 0) {
        lblZustand = EinphasenZustand(s, T, p, s.Feed);
        std::string text = std::string(kTpAusserhalb[0]) + kNL + kTpAusserhalb[1] + kNL + kTpAusserhalb[2];
        if (!lblZustand.empty()) text += kNL + lblZustand;
        f.ui.MsgBox(kTitleNotPossible, text, MsgIcon::Stop, Buttons::Ok);
        return;
      }
      eta = e;
      break;
    }
    case 1: {
      const double t = SafeFlashPEta(s, p, eta, s.Feed);
      if (!(t > 0)) return;
      T = t;
      break;
    }
    default: {
      const double pp = SafeFlashTEta(s, T, eta, s.Feed);
      if (!(pp > 0)) return;
      p = pp;
      break;
    }
  }
  Geloest = true;
  Wiederholt = s.Retried != 0;
  Festhalten(s);
  try {
    // Mean molar masses of the phases and of the feed, summed in single precision.
    float ml = 0, mv = 0, mf = 0;
    for (int i = 1; i <= n; ++i) {
      const double m = s.MolMasse[U(i)];
      ml = CSng(ml + xL[U(i)] * m);
      mv = CSng(mv + xV[U(i)] * m);
      mf = CSng(mf + s.Feed[U(i)] * m);
    }
    ML = ml;
    MV = mv;
    MFeed = mf;
  } catch (const NumericFault&) {
    ML = MV = MFeed = 0;
  }
  if (!s.Konzept) return;
  // phi-phi: the molar volumes of both phases from the bubble point of the liquid found, with
  // the vapour found as start.
  double vL = 0, vV = 0;
  const double pb = CalcBubbleP(s, T, xL, p, xV, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
  if (pb > 0 && vL > 0 && vV > 0) {
    try {
      RhoL = chk::Div(ML, vL);
      RhoV = chk::Div(MV, vV);
      DichteOK = true;
    } catch (const NumericFault&) {
      DichteOK = false;
    }
  }
}

void frmCalcOut::Aktivitaet(mdiPEQ& f) {
  Session& s = f.s;
  const int n = s.NKomp;
  T = s.TCalc;
  p = s.PCalc;
  eta = 0;
  int16_t err = 0, dT = 0, errG = 0;
  AllPureProps(s, T, err, dT);
  if (err == 0) ActivityCoeffs(s, T, std::as_const(s.Feed), s.Gamma, errG);
  bool ok = err == 0 && errG == 0;
  if (ok) {
    try {
      // gE/RT = sum x ln f, delta(M)g/RT = gE/RT + sum x ln x.
      double ge = 0, ideal = 0;
      float mf = 0;
      for (int i = 1; i <= n; ++i) {
        const double x = s.Feed[U(i)];
        if (x > 0) {
          ge += x * chk::Ln(s.Gamma[U(i)]);
          ideal += x * chk::Ln(x);
        }
        mf = CSng(mf + x * static_cast<double>(s.MolMasse[U(i)]));
      }
      GERT = chk::Fin(ge);
      DelMGRT = chk::Fin(ge + ideal);
      MFeed = mf;
    } catch (const NumericFault&) {
      ok = false;
    }
  }
  if (!ok) {
    f.ui.MsgBox(kTitleNotPossible, kRechenfehler, MsgIcon::Stop, Buttons::Ok);
    return;
  }
  Geloest = true;
  Wiederholt = s.Retried != 0;
  Festhalten(s);
}

// ---- texts ----

void frmCalcOut::Anzeigen(const Session& s) {
  const bool dk = s.DezKomma;
  const int n = s.NKomp;
  if (Art == 1) {
    const int v = Vorgabe >= 0 && Vorgabe <= 2 ? Vorgabe : 2;
    lblUeberschrift = kUeberschrift[v];
    if (v == 1) {
      if (Geloest) lblUeberschrift += FormatFest(T, 3, dk);
    } else if (v == 0) {
      if (Geloest) lblUeberschrift += FormatFest(p, 3, dk) + kUeberschriftT + FormatFest(T, 3, dk);
    } else {
      lblUeberschrift += FormatFest(p, 3, dk) + kUeberschriftT + FormatFest(T, 3, dk);
    }
  } else {
    lblUeberschrift = std::string(kUeberschriftAktiv) + FormatFest(T, 3, dk);
  }
  txtT = Geloest ? FormatFest(T, 3, dk) : std::string();
  txtp = Geloest && Art == 1 ? FormatFest(p, 3, dk) : std::string();
  txtEta = Geloest && Art == 1 ? FormatBruch(eta, dk) : std::string();
  txtML = Geloest && Art == 1 ? FormatFest(ML, 3, dk) : std::string();
  txtMV = Geloest && Art == 1 ? FormatFest(MV, 3, dk) : std::string();
  txtMFeed = Geloest ? FormatFest(MFeed, 3, dk) : std::string();
  txtRhoL = Geloest && DichteOK ? FormatFest(RhoL, 3, dk) : std::string();
  txtRhoV = Geloest && DichteOK ? FormatFest(RhoV, 3, dk) : std::string();
  txtGE = Geloest && Art != 1 ? FormatGamma(GERT, dk) : std::string();
  txtDelMG = Geloest && Art != 1 ? FormatGamma(DelMGRT, dk) : std::string();

  lblKomp.assign(U(n) + 1, std::string());
  txtWerte.assign(U(n) + 1, {});
  cmbP0.assign(1, kP0Liste);
  // Mass sums of the feed and the phases for the mass fractions.
  double wF = 0, wL = 0, wV = 0;
  for (int i = 1; i <= n; ++i) {
    const double m = s.MolMasse[U(i)];
    wF += s.Feed[U(i)] * m;
    wL += xL[U(i)] * m;
    wV += xV[U(i)] * m;
  }
  for (int i = 1; i <= n; ++i) {
    const std::size_t k = U(i);
    lblKomp[k] = Trim(s.StoffData[k].Name);
    const double m = s.MolMasse[k];
    std::array<std::string, 3>& w = txtWerte[k];
    if (Art != 1) {
      w[0] = FormatBruch(s.Feed[k], dk);
      w[1] = Geloest ? FormatGamma(gamma[k], dk) : std::string();
      w[2] = Geloest ? FormatFest(p0[k], 3, dk) : std::string();
    } else {
      switch (optResUnit) {
        case 0:  // amounts, kmol
          w[0] = FormatMenge(s.FeedN[k], dk);
          w[1] = FormatMenge(xL[k] * (1 - eta) * Summe, dk);
          w[2] = FormatMenge(xV[k] * eta * Summe, dk);
          break;
        case 1:  // masses, kg
          w[0] = FormatMenge(s.FeedN[k] * m, dk);
          w[1] = FormatMenge(xL[k] * (1 - eta) * Summe * m, dk);
          w[2] = FormatMenge(xV[k] * eta * Summe * m, dk);
          break;
        case 3:  // mass fractions
          w[0] = wF > 0 ? FormatBruch(s.Feed[k] * m / wF, dk) : std::string();
          w[1] = wL > 0 ? FormatBruch(xL[k] * m / wL, dk) : std::string();
          w[2] = wV > 0 ? FormatBruch(xV[k] * m / wV, dk) : std::string();
          break;
        default:  // mole fractions
          w[0] = FormatBruch(s.Feed[k], dk);
          w[1] = FormatBruch(xL[k], dk);
          w[2] = FormatBruch(xV[k], dk);
          break;
      }
      if (!Geloest) w[1] = w[2] = std::string();
    }
    if (Geloest) cmbP0.push_back(lblKomp[k] + ": " + FormatFest(p0[k], 3, dk));
  }
  lblDatei = std::string(kDateiLabel) + FensterKurztitel(s.ProtokollDatei, kDateiKurz);
}

void frmCalcOut::optResUnit_Click(mdiPEQ& f, int16_t index) {
  if (index < 0 || index > 3) return;
  optResUnit = index;
  Anzeigen(f.s);
}

// ---- record ----

void frmCalcOut::ZeileFuellen(Session& s) const {
  const int n = s.NKomp;
  const bool dk = s.DezKomma;
  const std::size_t spalten = Art == 1 ? U(7 * n + 9) : U(3 * n + 4);
  s.ProtokollZeile.assign(spalten + 1, std::string());
  std::size_t k = 1;
  auto zahl = [&](double v) { s.ProtokollZeile[k++] = ProtokollZahl(CSng(v), dk); };
  auto ganz = [&](int v) { s.ProtokollZeile[k++] = std::to_string(v); };
  auto leer = [&] { s.ProtokollZeile[k++] = std::string(); };
  if (Art == 1) {
    ganz(s.Konzept ? 2 : 1);
    ganz(s.GEModel);
    ganz(s.EOSModel);
    ganz(s.MixRule);
    zahl(T);
    zahl(p);
    zahl(eta);
    if (DichteOK) {
      zahl(RhoL);
      zahl(RhoV);
    } else {
      leer();
      leer();
    }
    for (int i = 1; i <= n; ++i) zahl(p0[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(vLiq[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(s.FeedN[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(s.Feed[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(xL[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(xV[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(gamma[U(i)]);
  } else {
    ganz(s.GEModel);
    zahl(T);
    zahl(GERT);
    zahl(DelMGRT);
    for (int i = 1; i <= n; ++i) zahl(p0[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(s.Feed[U(i)]);
    for (int i = 1; i <= n; ++i) zahl(gamma[U(i)]);
  }
}

void frmCalcOut::cmdProtokoll(mdiPEQ& f) {
  if (!Geloest) return;
  Session& s = f.s;
  try {
    ZeileFuellen(s);
  } catch (const NumericFault&) {
    return;
  }
  std::string err;
  if (!ProtokollZeileAnhaengen(s, Art, Datum, err)) {
    f.ui.MsgBox("Error", err, MsgIcon::Stop, Buttons::Ok);
    return;
  }
  lblDatei = std::string(kDateiLabel) + FensterKurztitel(s.ProtokollDatei, kDateiKurz);
  f.ui.StatusLine("Result recorded in " + s.ProtokollDatei);
}

void frmCalcOut::cmdOpenNew(mdiPEQ& f) {
  Session& s = f.s;
  std::error_code ec;
  if (!s.ProtokollDatei.empty() && fs::exists(s.ProtokollDatei, ec))
    f.ui.SetClipboard(ProtokollText(s.ProtokollDatei, s.ListTrenner));
  ProtokollBeenden(s);
  fs::path dir = s.ProtokollDatei.empty() ? fs::path() : fs::path(s.ProtokollDatei).parent_path();
  if (dir.empty()) dir = f.WriteDir();
  s.ProtokollDatei = ProtokollDateiName(dir, Datum);
  lblDatei = std::string(kDateiLabel) + FensterKurztitel(s.ProtokollDatei, kDateiKurz);
}

void frmCalcOut::cmbSep_Click(mdiPEQ& f, int16_t index) {
  if (index < 0 || index > 2) return;
  cmbSep = index;
  f.s.ListTrenner = kTrennerZeichen[index];
  if (f.s.DezKomma && index == 1)
    f.ui.MsgBox(kWarningTitle,
                std::string(kKommaWarnung[0]) + kNL + kKommaWarnung[1] + kNL + kKommaWarnung[2] + kNL +
                    kKommaWarnung[3],
                MsgIcon::Warning, Buttons::Ok);
}

void frmCalcOut::cmdClose(mdiPEQ& f) { f.Unload(WindowId::frmCalcOut); }

void frmCalcOut::cmdHelp(mdiPEQ& f) { f.ui.ShowHelp(Art == 1 ? kHelpCalcFlash : kHelpCalcAktiv); }

void frmCalcOut::cmdHelpProtokoll(mdiPEQ& f) { f.ui.ShowHelp(kHelpProtokoll); }

}  // namespace peq
