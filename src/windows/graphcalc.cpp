#include "windows/graphcalc.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "diagrams/markers.h"
#include "engine/singlecalc.h"
#include "session/numformat.h"
#include "windows/commands.h"
#include "windows/graph2dmarker.h"
#include "windows/shell.h"

namespace peq {

std::string GapMeldung(const std::string& dampf) {
  return std::string("Your input concentration is inside a mixing gap.") + kNL +
         "There are coexisting two liqid phases and a vapour phase (x2(V) = " + dampf + ".";
}

std::string ZahlAnzeige(double v) { return FormatZahl(v, kZahlMuster); }

std::string ZahlAnzeige(float v) {
  char buf[32];
  const auto r = std::to_chars(buf, buf + sizeof buf, v);
  double d = v;
  std::from_chars(buf, r.ptr, d);
  return FormatZahl(d, kZahlMuster);
}

namespace {

std::string Z(double v) { return ZahlAnzeige(v); }
std::string Z(float v) { return ZahlAnzeige(v); }
// A composition of Komp2 as the diagram shows it, by the digits of its single-precision value.
std::string ZX(const Session& s, float x) { return ZahlAnzeige(static_cast<float>(AlsAnzeige(s, x))); }

bool Isoster(int16_t NoDia) { return NoDia == 7 || NoDia == 183; }

// A number as the user typed it, a comma taken for the point.
bool LiesZahl(std::string t, double& v) {
  for (char& c : t)
    if (c == ',') c = '.';
  const std::size_t a = t.find_first_not_of(' ');
  if (a == std::string::npos) return false;
  const char* b = t.c_str() + a;
  char* e = nullptr;
  v = std::strtod(b, &e);
  if (e == b) return false;
  while (*e == ' ') ++e;
  return *e == '\0' && std::isfinite(v);
}

std::string Ende(TangentEnde e, double v) {
  switch (e) {
    case TangentEnde::Null: return kEndeNull;
    case TangentEnde::MinusUnendlich: return kMinusUnendlich;
    case TangentEnde::Wert: break;
  }
  return Z(v);
}

}  // namespace

void frmGraphCalc::Form_Load(mdiPEQ& f, const frmGraph2D& g) {
  const Session& s = f.s;
  const int16_t nd = g.Doc.NoDia;
  const std::string k = std::to_string(s.Komp2);
  Caption = kGraphCalcCaption;
  if (Isoster(nd)) {
    lblX = s.TOffsetOut == 0 ? " T/K =" : " t/°C =";
    lblZ = "z(" + k + ")";
    txtZ = ZX(s, g.Doc.x2);
  } else {
    lblX = " x(" + k + ") =";
    lblZ.clear();
    txtZ.clear();
  }
  lblY1 = g.Doc.YTitel;
  lblY2 = g.Doc.KurvenAnzahl >= 2 ? g.Doc.YTitel : std::string();
  if (nd == 1 || nd == 4) {
    lblKonode = "xL(" + k + ")     tie-line     xV(" + k + ")";
    lblXL2 = "xL2(" + k + ")";
  } else {
    lblKonode.clear();
    lblXL2.clear();
  }
  chkTangenteEnabled = TangenteMoeglich(nd);
  if (!chkTangenteEnabled) chkTangente = false;
  lblPartial1 = "x(" + k + ") = 0:";
  lblPartial2 = "x(" + k + ") = 1:";
  txtX.clear();
  txtY1.clear();
  txtY2.clear();
  txtXL.clear();
  txtXV.clear();
  txtXL2.clear();
  txtPartial1.clear();
  txtPartial2.clear();
  PunktDa = TangenteDa = false;
}

bool frmGraphCalc::cmdCalc_Click(mdiPEQ& f, const frmGraph2D& g) {
  Session& s = f.s;
  const int16_t nd = g.Doc.NoDia;
  txtY1 = txtY2 = txtXL = txtXV = txtXL2 = txtPartial1 = txtPartial2 = std::string();
  PunktDa = TangenteDa = false;
  double v = 0;
  if (!LiesZahl(txtX, v) || (!Isoster(nd) && (v < 0.0 || v > 1.0))) {
    txtY1 = kNichtVerfuegbar;
    if (!lblY2.empty()) txtY2 = kNichtVerfuegbar;
    return false;
  }
  const double Xval = Isoster(nd) ? v : AusAnzeige(s, v);
  const int16_t iso = IsoArtOf(nd);
  if (iso != 0) s.IsoArt = iso;
  s.NoDia = nd;
  s.TIso = g.Doc.T;
  s.PIso = g.Doc.p;

  // Inside the mixing gap of a p-x or T-x diagram: two liquids and one vapour.
  if ((nd == 1 || nd == 4) && s.HatGap) {
    const double lo = std::fmin(s.GapX1, s.GapX2), hi = std::fmax(s.GapX1, s.GapX2);
    if (Xval >= lo && Xval <= hi) {
      const std::string dampf = ZX(s, s.GapY);
      f.ui.MsgBox(kGapTitel, GapMeldung(dampf), MsgIcon::Information);
      txtXL = ZX(s, static_cast<float>(lo));
      txtXL2 = ZX(s, static_cast<float>(hi));
      txtXV = dampf;
      const double w = nd == 4 ? s.GapW1 - s.TOffsetOut : s.GapW1;
      txtY1 = nd == 4 ? Z(w) : Z(s.GapW1);
      PunktDa = true;
      LetztX = Xval;
      LetztY = w;
      return true;
    }
  }

  double T = g.Doc.T, p = g.Doc.p, y2 = g.Doc.x2;
  float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
  SingleOut o;
  MsgSink sink;
  SingleCalc(s, nd, Xval, T, p, y2, R1, R2, R3, R4, s.Komp1, s.Komp2, outX, o, &sink);
  ShowMessages(f.ui, sink);
  txtY1 = o.F1 == 0 ? Z(o.Y1) : kNichtVerfuegbar;
  if (!lblY2.empty()) txtY2 = o.F2 == 0 ? Z(o.Y2) : kNichtVerfuegbar;
  if (nd == 1 || nd == 4) {
    txtXL = Z(v);
    txtXV = o.F1 == 0 ? ZX(s, outX) : kNichtVerfuegbar;
  }
  if (o.F1 == 0) {
    PunktDa = true;
    LetztX = Xval;
    LetztY = o.Y1;
  }
  if (chkTangente && chkTangenteEnabled) {
    TangentWerte t;
    if (TangenteRechnen(s, nd, Xval, g.Doc.T, g.Doc.p, s.Komp1, s.Komp2, t)) {
      Tangente = t;
      TangenteDa = true;
      txtPartial1 = Ende(t.Ende1, t.Partial1);
      txtPartial2 = Ende(t.Ende2, t.Partial2);
      LetztY = t.y;
    } else {
      txtPartial1 = txtPartial2 = kNichtVerfuegbar;
    }
  }
  return o.F1 == 0;
}

void cmdGraphCalc_Click(mdiPEQ& f, frmGraph2D& g) {
  f.GraphCalc.Form_Load(f, g);
  f.Show(WindowId::frmGraphCalc);
}

bool cmdTangente_Click(mdiPEQ& f, frmGraph2D& g) {
  const frmGraphCalc& c = f.GraphCalc;
  const TangentWerte& t = c.Tangente;
  if (!c.TangenteDa || t.Ende1 != TangentEnde::Wert || t.Ende2 != TangentEnde::Wert) {
    f.ui.MsgBox("Execution not possible", kKeineTangente, MsgIcon::Stop);
    return false;
  }
  const float x[3] = {0.0f, static_cast<float>(AlsAnzeige(f.s, t.x)), 1.0f};
  const float y[3] = {static_cast<float>(t.Partial1), static_cast<float>(t.y), static_cast<float>(t.Partial2)};
  MarkeTangente(g.Doc, x, y, 3);
  return true;
}

}  // namespace peq
