#include "windows/graph3d.h"

#include <cmath>

#include "diagrams/catalogue.h"
#include "diagrams/document.h"
#include "windows/graph2d.h"
#include "windows/shell.h"

namespace peq {

namespace {

bool Endlich(float v) { return std::isfinite(v) && std::fabs(v) < 3.4e38f; }

// The points of one section into a curve (header at element 0), holes left out.
template <class F>
void Sammeln(Kurve& k, int n, F&& punkt) {
  k.assign(1, KurvenPunkt{});
  for (int i = 1; i <= n; ++i) {
    float x = 0, z = 0;
    if (punkt(i, x, z) && z != kLoch3D) k.push_back(KurvenPunkt{z, x, 0.0f});
  }
  k[0].x = static_cast<float>(k.size() - 1);
}

// The range of a curve's ordinate widened by 5 % (at least a little when flat).
void Bereich(const Kurve& k, float& lo, float& hi) {
  lo = 3.4e38f;
  hi = -3.4e38f;
  for (std::size_t i = 1; i < k.size(); ++i) {
    lo = std::fmin(lo, k[i].y);
    hi = std::fmax(hi, k[i].y);
  }
  const float m = hi > lo ? 0.05f * (hi - lo) : std::fmax(std::fabs(hi) * 0.05f, 1e-3f);
  lo -= m;
  hi += m;
}

}  // namespace

int16_t NoDiaVonSchnitt(int16_t NoDia3) {
  switch (NoDia3) {
    case 0: return 1;
    case 1: return 4;
    case 2: return 3;
    case 3: return 6;
    case 4: return 110;
    case 5: return 120;
    case 6: return 15;
    case 7: return 16;
    default: return 0;
  }
}

bool frmGraph3D::Form_Load(mdiPEQ& f) {
  if (!InitGraph3D(f.s, f.s.NoDia3, Aufbau)) return false;
  Grenzen = Aufbau.Grenzen;
  tOffset = f.s.TOffsetOut;
  ResFeld.Dim(0, 0);
  Gezeichnet = false;
  Loecher = 0;
  Ansicht = Ansicht3D{};
  Caption = std::string(kGraph3DCaption) + ": " + Aufbau.Titel;
  Status.clear();
  return true;
}

bool frmGraph3D::cmdGrenzen_OK(const Grenzen3D& b, std::string& Meldung) {
  Meldung.clear();
  const float v[6] = {b.XMin, b.XMax, b.YMin, b.YMax, b.ZMin, b.ZMax};
  for (float x : v)
    if (!Endlich(x)) {
      Meldung = kGrenzenFehler;
      return false;
    }
  const bool tAchse = Aufbau.YIstTemperatur;
  // x2 within 0..1; the second axis above 0 K or at least 0 kPa; each minimum below its maximum.
  if (b.XMin < 0 || b.XMax > 1 || !(b.XMin < b.XMax) || !(b.YMin < b.YMax)) Meldung = kGrenzenFehler;
  if (tAchse && !(b.YMin + tOffset > 0)) Meldung = kGrenzenFehler;
  if (!tAchse && b.YMin < 0) Meldung = kGrenzenFehler;
  const bool zOffen = b.ZMin == kOhneZMin || b.ZMax == kOhneZMax;
  if (!zOffen && !(b.ZMin < b.ZMax)) Meldung = kGrenzenFehler;
  if (!Meldung.empty()) return false;
  if (!(b.XMin == Grenzen.XMin && b.XMax == Grenzen.XMax && b.YMin == Grenzen.YMin && b.YMax == Grenzen.YMax &&
        b.ZMin == Grenzen.ZMin && b.ZMax == Grenzen.ZMax))
    Gezeichnet = false;
  Grenzen = b;
  return true;
}

bool frmGraph3D::Gittergroesse(int nx, int ny, std::string& Meldung) {
  Meldung.clear();
  if (nx < kGitter3DMin || nx > kGitter3DMax || ny < kGitter3DMin || ny > kGitter3DMax) {
    Meldung = kGrenzenFehler;
    return false;
  }
  if (nx != IXDim || ny != IYDim) Gezeichnet = false;
  IXDim = static_cast<int16_t>(nx);
  IYDim = static_cast<int16_t>(ny);
  return true;
}

void frmGraph3D::cmdDraw_Click(mdiPEQ& f) {
  tOffset = f.s.TOffsetOut;
  f.ui.WaitCursor(true);
  Loecher = Calc_3DArray(f.s, Aufbau.NoDia3, IXDim, IYDim, ResFeld, Grenzen, chkGap);
  f.ui.WaitCursor(false);
  Gezeichnet = Loecher >= 0;
  Status = Gezeichnet ? std::to_string(IXDim) + " x " + std::to_string(IYDim) + " points" +
                            (Loecher > 0 ? ", " + std::to_string(Loecher) + " not computable" : std::string())
                      : std::string();
  f.ui.Refresh(WindowId::frmGraph3D);
}

bool frmGraph3D::SchnittY(Session& s, double y, Kurve& k) const {
  k.assign(1, KurvenPunkt{});
  if (!(y >= Grenzen.YMin && y <= Grenzen.YMax)) return false;
  Grenzen3D g = Grenzen;
  g.YMin = static_cast<float>(y);
  g.YMax = static_cast<float>(y) + 1.0f;
  Feld3D zeile;
  if (Calc_3DArray(s, Aufbau.NoDia3, IXDim, 1, zeile, g, chkGap) < 0) return false;
  Sammeln(k, IXDim, [&](int i, float& x, float& z) {
    x = static_cast<float>(GitterX(g, IXDim, i));
    z = zeile(i, 1);
    return true;
  });
  return k.size() > 1;
}

bool frmGraph3D::SchnittX(Session& s, double x2, Kurve& k) const {
  k.assign(1, KurvenPunkt{});
  if (!(x2 >= Grenzen.XMin && x2 <= Grenzen.XMax)) return false;
  Grenzen3D g = Grenzen;
  g.XMin = static_cast<float>(x2);
  g.XMax = static_cast<float>(x2) + 1.0f;
  Feld3D spalte;
  if (Calc_3DArray(s, Aufbau.NoDia3, 1, IYDim, spalte, g, chkGap) < 0) return false;
  Sammeln(k, IYDim, [&](int j, float& x, float& z) {
    x = static_cast<float>(GitterY(Grenzen, IYDim, j));
    z = spalte(1, j);
    return true;
  });
  return k.size() > 1;
}

namespace {

// Opens the 2D window on a section curve with the given texts and draws it.
bool InZweiD(mdiPEQ& f, int16_t NoDia, const DiagrammTexte& t, const Kurve& k, float xLo, float xHi,
             const std::string& legende) {
  Session& s = f.s;
  float lo = 0, hi = 0;
  Bereich(k, lo, hi);
  s.NoDia = NoDia;
  s.XMin = xLo;
  s.XMax = xHi;
  s.YMin = lo;
  s.YMax = hi;
  GraphAufbau a;
  a.Texte = t;
  a.KurvenAnzahl = 1;
  f.Unload(WindowId::frmGraph2D);
  f.Graph2D.Form_Load(f, a);
  f.Show(WindowId::frmGraph2D);
  if (!f.IsLoaded(WindowId::frmGraph2D)) return false;
  int16_t slot = 0;
  bool fehler = false;
  MsgSink sink;
  DrawCurve(f.Graph2D.Doc, k, slot, fehler, &sink);
  ShowMessages(f.ui, sink);
  if (fehler) return false;
  f.Graph2D.Doc.Serien[static_cast<std::size_t>(slot)].Legende = legende;
  f.ui.Refresh(WindowId::frmGraph2D);
  return true;
}

}  // namespace

bool frmGraph3D::SchnittZeigenY(mdiPEQ& f, double y) {
  Session& s = f.s;
  tOffset = s.TOffsetOut;
  Kurve k;
  if (!SchnittY(s, y, k)) {
    f.ui.MsgBox(kTitleNotPossible, kKeinSchnitt, MsgIcon::Stop);
    return false;
  }
  const int16_t nd = NoDiaVonSchnitt(Aufbau.NoDia3);
  if (Aufbau.YIstTemperatur) {
    s.TIso = y + s.TOffsetOut;
    s.IsoArt = 1;
  } else {
    s.PIso = y;
    s.IsoArt = 2;
  }
  DiagrammTexte t;
  DiagrammTitel(s, nd, t);
  t.XAchse = Aufbau.XAchse;
  t.YAchse = Aufbau.ZAchse;
  const std::string legende = Aufbau.YAchse + "= " + FormatAllgemein(y);
  return InZweiD(f, nd, t, k, Grenzen.XMin, Grenzen.XMax, legende);
}

bool frmGraph3D::SchnittZeigenX(mdiPEQ& f, double x2) {
  Session& s = f.s;
  tOffset = s.TOffsetOut;
  Kurve k;
  if (!SchnittX(s, x2, k)) {
    f.ui.MsgBox(kTitleNotPossible, kKeinSchnitt, MsgIcon::Stop);
    return false;
  }
  DiagrammTexte t;
  t.Titel = Aufbau.Titel + " at " + Aufbau.XAchse + " = " + FormatAllgemein(x2);
  t.XAchse = Aufbau.YAchse;
  t.YAchse = Aufbau.ZAchse;
  s.XIso = x2;
  return InZweiD(f, 0, t, k, Grenzen.YMin, Grenzen.YMax, "x2 =" + FormatAllgemein(x2));
}

Dokument3D frmGraph3D::Dokument() const {
  Dokument3D d;
  d.Aufbau = Aufbau;
  d.Grenzen = Grenzen;
  d.ResFeld = ResFeld;
  d.Gezeichnet = Gezeichnet;
  d.GapSuche = chkGap;
  d.Drehung = Ansicht.Drehung;
  d.Neigung = Ansicht.Neigung;
  d.Zoom = Ansicht.Zoom;
  return d;
}

void frmGraph3D::AusDokument(const Dokument3D& d) {
  Aufbau = d.Aufbau;
  Grenzen = d.Grenzen;
  ResFeld = d.ResFeld;
  Gezeichnet = d.Gezeichnet;
  chkGap = d.GapSuche;
  Ansicht = Ansicht3D{d.Drehung, d.Neigung, d.Zoom};
  if (ResFeld.IXDim() >= kGitter3DMin && ResFeld.IXDim() <= kGitter3DMax) IXDim = ResFeld.IXDim();
  if (ResFeld.IYDim() >= kGitter3DMin && ResFeld.IYDim() <= kGitter3DMax) IYDim = ResFeld.IYDim();
  Loecher = 0;
  for (int j = 1; j <= ResFeld.IYDim(); ++j)
    for (int i = 1; i <= ResFeld.IXDim(); ++i)
      if (ResFeld(i, j) == kLoch3D) ++Loecher;
  Caption = std::string(kGraph3DCaption) + ": " + Aufbau.Titel;
}

bool frmGraph3D::SpeichernAls(mdiPEQ& f, const std::string& file) {
  std::string err;
  if (!SpeichereOC3(file, Dokument(), err)) {
    f.ui.MsgBox("Error", err, MsgIcon::Stop);
    return false;
  }
  return true;
}

bool frmGraph3D::LadenVon(mdiPEQ& f, const std::string& file) {
  Dokument3D d;
  std::string err;
  if (!LadeOC3(file, d, err)) {
    f.ui.MsgBox("Error", err, MsgIcon::Stop);
    return false;
  }
  AusDokument(d);
  f.ui.Refresh(WindowId::frmGraph3D);
  return true;
}

bool frmGraph3D::mnuSaveOC3_Click(mdiPEQ& f) {
  FileDialogRequest r;
  r.save = true;
  r.title = kOC3SpeichernTitel;
  r.filter = kOC3Filter;
  r.initialDir = f.s.PfadOC3;
  r.initialFile = "*.oc3";
  r.defaultExt = "oc3";
  const FileDialogResult a = f.ui.FileDialog(r);
  if (a.cancelled || a.fileTitle.empty()) return false;
  return SpeichernAls(f, a.fileName);
}

bool frmGraph3D::mnuLoadOC3_Click(mdiPEQ& f) {
  f.ui.MsgBox(kOC3HinweisTitel, kOC3Hinweis, MsgIcon::Information);
  FileDialogRequest r;
  r.title = kOC3LadenTitel;
  r.filter = kOC3Filter;
  r.initialDir = f.s.PfadOC3;
  r.initialFile = "*.oc3";
  r.defaultExt = "oc3";
  const FileDialogResult a = f.ui.FileDialog(r);
  if (a.cancelled || a.fileTitle.empty()) return false;
  return LadenVon(f, a.fileName);
}

}  // namespace peq
