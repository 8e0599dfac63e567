#include "windows/geinput.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "session/codepage.h"
#include "session/numeric.h"
#include "substances/kij.h"
#include "windows/shell.h"

namespace peq {

double& ParSlot(Session& s, int L, int i, int j) {
  if (i > j) std::swap(i, j);
  const int g = (L - 1) / 4, pos = (L - 1) % 4;
  const std::size_t k = static_cast<std::size_t>(2 * g + 1 + (pos % 2));
  const std::size_t a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
  return pos < 2 ? s.GEPar(k, a, b) : s.GEPar(k, b, a);
}

void NaechstesPaar(int nKomp, int& i, int& j, int richtung) {
  if (nKomp < 2) return;
  // Place of (i, j) in the order of i, then j.
  std::vector<std::pair<int, int>> paare;
  for (int a = 1; a < nKomp; ++a)
    for (int b = a + 1; b <= nKomp; ++b) paare.emplace_back(a, b);
  int k = 0;
  for (std::size_t p = 0; p < paare.size(); ++p)
    if (paare[p].first == i && paare[p].second == j) k = static_cast<int>(p);
  const int n = static_cast<int>(paare.size());
  k = ((k + (richtung >= 0 ? 1 : -1)) % n + n) % n;
  i = paare[static_cast<std::size_t>(k)].first;
  j = paare[static_cast<std::size_t>(k)].second;
}

bool ZahlLesen(const std::string& text, double& value) {
  std::string t = Trim(text);
  if (t.empty()) {
    value = 0;
    return true;
  }
  if (t[0] == '+') t.erase(0, 1);
  double v = 0;
  const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), v, std::chars_format::general);
  if (ec != std::errc() || end != t.data() + t.size() || !std::isfinite(v)) return false;
  value = v;
  return true;
}

std::string ZahlText(double v) {
  if (v == 0) return std::string();
  char buf[64];
  const auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

bool ZahlPruefen(mdiPEQ& f, const std::string& text, double lo, double hi) {
  double v = 0;
  if (!ZahlLesen(text, v)) {
    f.ui.MsgBox(kEingabeFehlerTitel, "This is not a number: " + Trim(text), MsgIcon::Stop);
    return false;
  }
  if (v < lo || v > hi) {
    char range[96];
    std::snprintf(range, sizeof range, "(allowed are values from %g to %g)", lo, hi);
    f.ui.MsgBox(kEingabeFehlerTitel, "Number out of range: " + Trim(text) + kNL + range, MsgIcon::Stop);
    return false;
  }
  return true;
}

namespace {

int16_t EinheitDesModells(const Session& s, int model) {
  switch (model) {
    case 1: return s.ParUnitWilson;
    case 2: return s.ParUnitNRTL;
    case 9: return s.ParUnitUNIQUAC;
    default: return 2;
  }
}

std::string KompName(const Session& s, int i) {
  const std::string& n = s.StoffData[static_cast<std::size_t>(i)].Name;
  return Trim(n.substr(0, n.find(';')));
}

}  // namespace

void frmGEInput::Load(mdiPEQ& f) {
  i = 1;
  j = 2;
  Aufbauen(f);
}

void frmGEInput::Aufbauen(mdiPEQ& f) {
  Session& s = f.s;
  kijModus = s.Konzept && s.MixRule < 3;
  modell = kijModus ? 0 : (s.Konzept ? s.GEModelEOS : s.GEModel);
  Caption = "System (" + std::to_string(i) + " - " + std::to_string(j) + ")";
  lblKomp1 = "1 = " + KompName(s, i);
  lblKomp2 = "2 = " + KompName(s, j);
  lblAnzahl = "(input the parameters for " + std::to_string(PaarAnzahl(s.NKomp)) + " binary subsystems.)";
  const int16_t unit = EinheitDesModells(s, modell);
  const bool dimless = unit == 2;
  const int fields = dimless ? 1 : 3;
  const std::string suffix = (unit >= 0 && unit <= 3) ? kUnitSuffix[unit] : "";
  optEinheitSichtbar = modell == 1 || modell == 2 || modell == 9;
  optEinheit = unit;
  optVGSichtbar = modell == 1;
  WilsonVFix = s.WilsonVFix;
  rqSichtbar = modell == 9;
  cmdSuchKIJSichtbar = kijModus && (s.EOSModel == 4 || s.EOSModel == 5);
  const char* kPoly = "Par(T) = a + b (T - 273.15) + c (T - 273.15)^2";

  Zeilen.clear();
  if (kijModus) {
    lblKopf = "k(ij) parameters for the v.d.Waals mixing rule";
    lblTFunktion.clear();
    Zeilen.push_back({"k(1,2)", 1, 1});
  } else {
    switch (modell) {
      case 1:
        lblKopf = std::string(" WILSON-") + "Input of parameters:";
        lblTFunktion = dimless ? "Par(T) = a" : kPoly;
        if (dimless) {
          Zeilen.push_back({"LAMBDA (1 - 2)", 1, 1});
          Zeilen.push_back({"LAMBDA (2 - 1)", 4, 1});
        } else {
          Zeilen.push_back({"lambda (1 - 2)" + suffix, 1, 3});
          Zeilen.push_back({"lambda (2 - 1)" + suffix, 4, 3});
        }
        break;
      case 2:
        lblKopf = std::string(" NRTL-") + "Input of parameters:";
        lblTFunktion = dimless ? "Par(T) = a" : kPoly;
        Zeilen.push_back({dimless ? "TAU (1 - 2)" : "Par(1 - 2)", 1, fields});
        Zeilen.push_back({dimless ? "TAU (2 - 1)" : "Par(2 - 1)", 4, fields});
        Zeilen.push_back({"alpha (1 - 2)", 7, fields});
        break;
      case 9:
        lblKopf = std::string(" UNIQUAC-") + "Input of parameters:";
        lblTFunktion = dimless ? "Par(T) = a" : kPoly;
        Zeilen.push_back({"u(1 - 2)", 1, fields});
        Zeilen.push_back({"u(2 - 1)", 4, fields});
        break;
      case 4:
        lblKopf = std::string(" REDLICH/KISTER-") + "Input of parameters:";
        lblTFunktion = "Par(T) = a + b/T + c ln(T)";
        Zeilen.push_back({"A(1 - 2)", 1, 3});
        Zeilen.push_back({"B(1 - 2)", 4, 3});
        Zeilen.push_back({"C(1 - 2)", 7, 3});
        Zeilen.push_back({"D(1 - 2)", 10, 3});
        break;
      default:
        lblKopf.clear();
        lblTFunktion.clear();
        break;
    }
  }
  txt.assign(Zeilen.size(), {});
  for (std::size_t z = 0; z < Zeilen.size(); ++z)
    for (int k = 0; k < Zeilen[z].felder; ++k) txt[z].push_back(ZahlText(ParSlot(s, Zeilen[z].slot + k, i, j)));
  const StoffRecord& a = s.StoffData[static_cast<std::size_t>(i)];
  const StoffRecord& b = s.StoffData[static_cast<std::size_t>(j)];
  txtR[0] = ZahlText(a.RUniquac);
  txtQ[0] = ZahlText(a.QUniquac);
  txtR[1] = ZahlText(b.RUniquac);
  txtQ[1] = ZahlText(b.QUniquac);
}

void frmGEInput::vor_rueck(mdiPEQ& f, int richtung) {
  NaechstesPaar(f.s.NKomp, i, j, richtung);
  Aufbauen(f);
}

void frmGEInput::txt_Change(mdiPEQ& f, int zeile, int feld, const std::string& text) {
  if (zeile < 0 || zeile >= static_cast<int>(Zeilen.size())) return;
  const Zeile& z = Zeilen[static_cast<std::size_t>(zeile)];
  if (feld < 0 || feld >= z.felder) return;
  txt[static_cast<std::size_t>(zeile)][static_cast<std::size_t>(feld)] = text;
  double v = 0;
  if (ZahlLesen(text, v) && std::fabs(v) <= kParGrenze) ParSlot(f.s, z.slot + feld, i, j) = v;
}

bool frmGEInput::txt_Validate(mdiPEQ& f, int zeile, int feld) {
  if (zeile < 0 || zeile >= static_cast<int>(Zeilen.size())) return true;
  const Zeile& z = Zeilen[static_cast<std::size_t>(zeile)];
  if (feld < 0 || feld >= z.felder) return true;
  std::string& t = txt[static_cast<std::size_t>(zeile)][static_cast<std::size_t>(feld)];
  if (ZahlPruefen(f, t, -kParGrenze, kParGrenze)) return true;
  t = ZahlText(ParSlot(f.s, z.slot + feld, i, j));
  return false;
}

void frmGEInput::txtRQ_Change(mdiPEQ& f, int rq, int k, const std::string& text) {
  if (rq < 0 || rq > 1 || k < 0 || k > 1) return;
  (rq == 0 ? txtR : txtQ)[k] = text;
  double v = 0;
  if (!ZahlLesen(text, v) || v < 0 || v > kRQGrenze) return;
  StoffRecord& r = f.s.StoffData[static_cast<std::size_t>(k == 0 ? i : j)];
  (rq == 0 ? r.RUniquac : r.QUniquac) = static_cast<float>(v);
}

bool frmGEInput::txtRQ_Validate(mdiPEQ& f, int rq, int k) {
  if (rq < 0 || rq > 1 || k < 0 || k > 1) return true;
  std::string& t = (rq == 0 ? txtR : txtQ)[k];
  if (ZahlPruefen(f, t, 0.0, kRQGrenze)) return true;
  const StoffRecord& r = f.s.StoffData[static_cast<std::size_t>(k == 0 ? i : j)];
  t = ZahlText(rq == 0 ? r.RUniquac : r.QUniquac);
  return false;
}

void frmGEInput::opt_parEinheit_Click(mdiPEQ& f, int16_t code) {
  if (code < 0 || code > 3) return;
  Session& s = f.s;
  switch (modell) {
    case 1: s.ParUnitWilson = code; break;
    case 2: s.ParUnitNRTL = code; break;
    case 9: s.ParUnitUNIQUAC = code; break;
    default: return;
  }
  Aufbauen(f);
}

void frmGEInput::opt_VG_Click(mdiPEQ& f, bool fix) {
  WilsonVFix = fix;
  f.s.WilsonVFix = fix;
}

void frmGEInput::cmdSuchKIJ(mdiPEQ& f) {
  MsgSink sink;
  const std::optional<double> v = SearchKij(f.s, i, j, f.ProgDir.string(), &sink);
  if (v) ParSlot(f.s, 1, i, j) = *v;
  Aufbauen(f);
  ShowMessages(f.ui, sink);
}

bool frmGEInput::OK_GE(mdiPEQ& f) {
  const Session& s = f.s;
  if (modell == 9 && !kijModus) {
    for (int k = 1; k <= s.NKomp; ++k) {
      const StoffRecord& r = s.StoffData[static_cast<std::size_t>(k)];
      if (!(r.RUniquac > 0) || !(r.QUniquac > 0)) {
        f.ui.MsgBox(kTitleNotPossible,
                    std::string("R,Q data are not completely available;") + kNL +
                        "UNIFAC calculation is not possible." + kNL +
                        "Select a differnt model or supplement the R/Q parameters",
                    MsgIcon::Stop);
        return false;
      }
    }
  }
  f.Unload(WindowId::frmGEInput);
  if (f.IsLoaded(WindowId::frmVModell)) {
    f.VModell.Beschriften(f.s);
    f.ui.Refresh(WindowId::frmVModell);
  }
  return true;
}

void frmGEInput::cmdHilfe(mdiPEQ& f) { f.ui.ShowHelp(kGEInputHelp); }

}  // namespace peq
