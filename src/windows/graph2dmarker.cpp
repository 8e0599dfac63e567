#include "windows/graph2dmarker.h"

#include <cmath>
#include <exception>

#include "diagrams/markers.h"
#include "engine/gap.h"
#include "engine/kernel.h"
#include "engine/singlecalc.h"
#include "session/numeric.h"
#include "session/numformat.h"
#include "windows/commands.h"
#include "windows/shell.h"

namespace peq {

bool MarkerAngeboten(int16_t NoDia, Marker m) {
  const auto in = [NoDia](std::initializer_list<int> l) {
    for (int v : l)
      if (v == NoDia) return true;
    return false;
  };
  switch (m) {
    case Marker::Tcr: return in({4, 7, 183});
    case Marker::Pcr:
    case Marker::Pnp: return in({1, 7});
    case Marker::ML:
    case Marker::Konnode: return in({1, 3, 4, 6, 110, 120, 15, 16});
    case Marker::LLE: return NoDia == 4;
    case Marker::DreiPhasen: return in({1, 3, 4, 6});
    case Marker::Diagonale: return in({3, 6});
    case Marker::Y1: return in({5, 51, 8, 82, 10, 11});
    case Marker::Y0: return in({81, 83, 9, 15, 16, 17}) || (NoDia >= 110 && NoDia <= 116) || (NoDia >= 120 && NoDia <= 126);
    case Marker::Tangente: return in({110, 120, 15, 16, 17});
  }
  return false;
}

std::string BinodalVollText() {
  return "Maximum " + std::to_string(kMaxKurven) + " curves possible" + kNL + kNL + "Delete existing curves";
}

double AlsAnzeige(const Session& s, double x) {
  if (s.ConcUnit == 0) return x;
  const double m1 = s.MolMasse[static_cast<std::size_t>(s.Komp1)], m2 = s.MolMasse[static_cast<std::size_t>(s.Komp2)];
  const double n = (m1 / m2) * (1.0 - x) + x;
  return n != 0.0 && std::isfinite(n) ? x / n : x;
}

double AusAnzeige(const Session& s, double v) {
  if (s.ConcUnit == 0) return v;
  const double m1 = s.MolMasse[static_cast<std::size_t>(s.Komp1)], m2 = s.MolMasse[static_cast<std::size_t>(s.Komp2)];
  if (!(m1 > 0) || !(m2 > 0)) return v;
  const double n = v / m2 + (1.0 - v) / m1;
  return n != 0.0 ? (v / m2) / n : v;
}

namespace {

constexpr const char* kNichtMoeglich = "Execution not possible";

std::string Zahl4(double v) { return FormatZahl(v, "0.0000"); }

// The session as the document's diagram needs it for a gap search or a tracer call.
void DiagrammInSession(Session& s, const frmGraph2D& g) {
  s.NoDia = g.Doc.NoDia;
  const int16_t iso = IsoArtOf(g.Doc.NoDia);
  if (iso != 0) s.IsoArt = iso;
  s.TIso = g.Doc.T;
  s.PIso = g.Doc.p;
  s.XMin = g.Doc.Bereich.XMin;
  s.XMax = g.Doc.Bereich.XMax;
  s.YMin = g.Doc.Bereich.YMin;
  s.YMax = g.Doc.Bereich.YMax;
}

// The gap search of the markers: refuses without a gap in the session, and with code 1 of the
// search. true with the session's GapX1, GapX2, GapW1, GapW2 renewed.
bool GapNeu(mdiPEQ& f, const frmGraph2D& g) {
  Session& s = f.s;
  if (!s.HatGap) {
    f.ui.MsgBox(kNichtMoeglich, kKeinGapText, MsgIcon::Stop);
    return false;
  }
  DiagrammInSession(s, g);
  int16_t found = 0, code = 0;
  double xA = 0, xB = 0;
  float x1 = 0, x2 = 0, w1 = 0, w2 = 0;
  GapSuche(s, found, s.Komp1, s.Komp2, xA, xB, x1, x2, w1, w2, code);
  if (code == 1) {
    f.ui.MsgBox(kNichtMoeglich, kGapDampfdruckFehler, MsgIcon::Stop);
    return false;
  }
  if (found == 0) {
    f.ui.MsgBox(kNichtMoeglich, kKeinGapText, MsgIcon::Stop);
    return false;
  }
  s.GapX1 = x1;
  s.GapX2 = x2;
  s.GapW1 = w1;
  s.GapW2 = w2;
  return true;
}

}  // namespace

void mnuMarkTcr_Click(mdiPEQ& f, frmGraph2D& g) {
  const Session& s = f.s;
  float v[2];
  std::string l[2];
  int n = 0;
  for (int i = 1; i <= 2 && i <= s.NKomp; ++i) {
    const float tc = s.TKrit[static_cast<std::size_t>(i)];
    if (!(tc > 1e-6f)) continue;
    v[n] = static_cast<float>(tc - s.TOffsetOut);
    l[n] = "Tcr (" + std::to_string(i) + ")";
    ++n;
  }
  if (g.Doc.NoDia == 7 || g.Doc.NoDia == 183)
    MarkeSenkrecht(g.Doc, kSerieTcr, v, l, n);
  else
    MarkeWaagerecht(g.Doc, kSerieTcr, v, l, n);
}

void mnuMarkPcr_Click(mdiPEQ& f, frmGraph2D& g) {
  const Session& s = f.s;
  float v[2];
  std::string l[2];
  int n = 0;
  for (int i = 1; i <= 2 && i <= s.NKomp; ++i) {
    const float pc = s.PKrit[static_cast<std::size_t>(i)];
    if (!(pc > 1e-6f)) continue;
    v[n] = pc;
    l[n] = "p(cr(" + std::to_string(i) + ")";
    ++n;
  }
  MarkeWaagerecht(g.Doc, kSeriePcr, v, l, n);
}

void mnuMarkPnp_Click(mdiPEQ&, frmGraph2D& g) {
  const float v = kNormalDruck;
  const std::string l = "Normal-p";
  MarkeWaagerecht(g.Doc, kSerieNormalP, &v, &l, 1);
}

bool mnuMarkML_Click(mdiPEQ& f, frmGraph2D& g) {
  if (!GapNeu(f, g)) return false;
  const Session& s = f.s;
  const float x[2] = {static_cast<float>(AlsAnzeige(s, s.GapX1)), static_cast<float>(AlsAnzeige(s, s.GapX2))};
  const std::string l[2] = {Zahl4(x[0]), Zahl4(x[1])};
  MarkeSenkrecht(g.Doc, kSerieML, x, l, 2);
  g.Status = "Mixing gap x(2)1 = " + Zahl4(x[0]) + "   " + ", x(2)2 = " + Zahl4(x[1]);
  return true;
}

bool mnuAddKonnode_Click(mdiPEQ& f, frmGraph2D& g) {
  Session& s = f.s;
  if (!s.HatGap) {
    f.ui.MsgBox(kNichtMoeglich, kKeinGapText, MsgIcon::Stop);
    return false;
  }
  if (NaechsterSlot(g.Doc) == 0) {
    f.ui.MsgBox(kKonnodeTitel, ZuVieleKurvenText(), MsgIcon::Warning);
    return false;
  }
  const int16_t nd = g.Doc.NoDia;
  float w[2] = {s.GapW1, s.GapW2};
  const float gx[2] = {s.GapX1, s.GapX2};
  if (nd == 4 || nd == 6) {
    if (nd == 4)
      for (float& v : w) v = static_cast<float>(v - s.TOffsetOut);
  }
  if (nd == 3 || nd == 6) {
    for (float& v : w) v = static_cast<float>(AlsAnzeige(s, v));
  } else if (nd != 1 && nd != 4) {
    // The excess diagrams: the tie line joins the two points of the drawn function.
    DiagrammInSession(s, g);
    for (int i = 0; i < 2; ++i) {
      double T = g.Doc.T, p = g.Doc.p, y2 = g.Doc.x2;
      float R1 = 0, R2 = 0, R3 = 0, R4 = 0, outX = 0;
      SingleOut o;
      SingleCalc(s, nd, gx[i], T, p, y2, R1, R2, R3, R4, s.Komp1, s.Komp2, outX, o, nullptr);
      if (o.F1 != 0) {
        f.ui.MsgBox(kKonnodeTitel, kKonnodeFehler, MsgIcon::Warning);
        return false;
      }
      w[i] = o.Y1;
    }
  }
  Kurve k(3);
  k[0].x = 2;
  for (int i = 0; i < 2; ++i) {
    k[static_cast<std::size_t>(i + 1)].x = static_cast<float>(AlsAnzeige(s, gx[i]));
    k[static_cast<std::size_t>(i + 1)].y = w[i];
  }
  int16_t slot = 0;
  bool voll = false;
  MsgSink warn;
  DrawCurve(g.Doc, k, slot, voll, &warn);
  if (voll) return false;
  Serie& ser = g.Doc.Serien[static_cast<std::size_t>(slot)];
  ser.Legende = kKonnodeLegende;
  return true;
}

bool mnuAddLLE_Click(mdiPEQ& f, frmGraph2D& g) {
  Session& s = f.s;
  Graph2DDoc& d = g.Doc;
  if (d.BinodalSlot == 0 && NaechsterSlot(d) == 0) {
    f.ui.MsgBox(kBinodalTitel, BinodalVollText(), MsgIcon::Warning);
    return false;
  }
  DiagrammInSession(s, g);
  Vec<double> x(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  Kurve k1, k2;
  int16_t nd = 41, Komp1 = s.Komp1, Komp2 = s.Komp2, Ausserhalb = 0, Fehler = 0;
  const float TOben = static_cast<float>(s.YMax + s.TOffsetOut);
  std::string kommentar;
  MsgSink sink;
  try {
    CalcCurve(s, nd, d.T, d.p, d.x2, k1, k2, x, s.P0, Komp1, Komp2, Ausserhalb, s.RealKurve, TOben, s.GapX1,
              s.GapW1, s.GapX2, s.GapW2, s.GapY, kommentar, Fehler, &sink);
  } catch (const std::exception& e) {
    sink.push_back(Message{kMsgSubCalcCurve, e.what(), MsgIcon::Warning});
    Fehler = -1;
  }
  ShowMessages(f.ui, sink);
  if (Fehler == -1 || k1.empty() || k1[0].x < 1) return false;
  if (d.BinodalSlot != 0) LoescheKurve(d, d.BinodalSlot);
  int16_t slot = 0;
  bool voll = false;
  MsgSink warn;
  DrawCurve(d, k1, slot, voll, &warn);
  ShowMessages(f.ui, warn);
  if (voll) return false;
  Serie& ser = d.Serien[static_cast<std::size_t>(slot)];
  ser.Legende = kBinodalLegende;
  ser.Label.clear();
  ser.LabelPunkt = 0;
  d.BinodalSlot = slot;
  return true;
}

bool mnuMark3PhasePoint_Click(mdiPEQ& f, frmGraph2D& g) {
  if (!GapNeu(f, g)) return false;
  Session& s = f.s;
  const std::size_t k1 = static_cast<std::size_t>(s.Komp1), k2 = static_cast<std::size_t>(s.Komp2);
  Vec<double> x(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  const Vec<double> y0(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  x[k1] = 1.0 - s.GapX1;
  x[k2] = s.GapX1;
  double T = g.Doc.T, p = g.Doc.p, vL = 0, vV = 0;
  try {
    if (s.IsoArt == 2) {
      double Tstart = (g.Doc.NoDia == 4) ? s.GapW1 : 0.0;
      int16_t warn = 0;
      T = CalcBubbleT(s, p, x, Tstart, y0, warn, s.KWert, vL, vV);
    } else {
      p = CalcBubbleP(s, T, x, 0.0, y0, s.Gamma, s.PhiKorr, s.KWert, vL, vV);
    }
  } catch (const NumericFault&) {
    T = p = 0;
  }
  if (!(T > 1e-6) || !(p > 1e-9)) {
    f.ui.MsgBox(kNichtMoeglich, kDreiPhasenFehler, MsgIcon::Stop);
    return false;
  }
  const double yV = s.KWert[k2] * x[k2];
  const double xA = AlsAnzeige(s, s.GapX1), xB = AlsAnzeige(s, s.GapX2), xV = AlsAnzeige(s, yV);
  double w = 0;
  switch (g.Doc.NoDia) {
    case 3: case 6: w = xV; break;
    case 4: w = T - s.TOffsetOut; break;
    default: w = s.IsoArt == 2 ? T - s.TOffsetOut : p; break;
  }
  const std::string label = "3-phase point: x(2) = " + Zahl4(xV) + ", T/K = " + FormatZahl(T, "0.00") +
                            ", p/kPa = " + FormatZahl(p, "0.000");
  Marke3Phasen(g.Doc, static_cast<float>(xA), static_cast<float>(xV), static_cast<float>(xB), static_cast<float>(w),
               label);
  return true;
}

void mnuAddDiagonale_Click(mdiPEQ&, frmGraph2D& g) { MarkeDiagonale(g.Doc); }
void mnuMarky1_Click(mdiPEQ&, frmGraph2D& g) { MarkeY(g.Doc, kSerieY1, 1.0f); }
void mnuMarky0_Click(mdiPEQ&, frmGraph2D& g) { MarkeY(g.Doc, kSerieY0, 0.0f); }

void mnuDelTcr_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieTcr); }
void mnuDelpCr_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSeriePcr); }
void mnuDelPnd_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieNormalP); }
void mnuDelML_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieML); }
void mnuDely0_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieY0); }
void mnuDely1_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieY1); }
void mnuDelDiagonale_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieDiagonale); }
void mnuDel3PhasePoint_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerie3Phasen); }
void mnuDelTangente_Click(mdiPEQ&, frmGraph2D& g) { LoescheMarker(g.Doc, kSerieTangente); }

}  // namespace peq
