#include "windows/graph2d.h"

#include <exception>

#include "session/numeric.h"
#include "diagrams/kurven.h"
#include "session/codepage.h"
#include "session/numformat.h"
#include "windows/shell.h"
#include "diagrams/exppunkte.h"
#include "expdata/xydaten.h"
#include "session/filewrite.h"

namespace peq {

std::string FormatAllgemein(double v) { return ZahlG(v, 15); }

std::string TauschCaption(int16_t Komp1, int16_t Komp2) {
  return std::to_string(Komp1) + " - " + std::to_string(Komp2);
}

KurvenText LegendeUndLabel(int16_t NoDia, int k, double T, double p, float x2, int16_t Komp1, int16_t Komp2) {
  KurvenText t;
  const bool erste = k == 1;
  switch (NoDia) {
    case 1:
      t.Legende = FormatAllgemein(T) + " K " + (erste ? " LV" : " VL");
      t.Label = erste ? "LV" : "VL";
      t.LabelSetzen = true;
      break;
    case 4:
      t.Legende = FormatAllgemein(p) + " kPa " + (erste ? " LV" : " VL");
      t.Label = erste ? "LV" : "VL";
      t.LabelSetzen = true;
      break;
    case 41:
      t.Legende = "binodal curve";
      t.Label.clear();
      t.LabelSetzen = true;
      break;
    case 5:
    case 51:
      // Kurve1 carries K of Komp1, Kurve2 K of Komp2.
      t.Label = std::to_string(erste ? Komp1 : Komp2);
      t.Legende = "K" + t.Label;
      t.LabelSetzen = true;
      break;
    case 181:
    case 182:
      // Liquid and vapour density: the fixed T or p is added by the caller.
      t.Legende = erste ? "rhoL" : "rhoV";
      break;
    case 7:
    case 183:
      t.Legende = "x2 =" + FormatAllgemein(x2);
      break;
    case 8:
    case 82:
      // Kurve1 carries the value of Komp2, Kurve2 that of Komp1.
      t.Legende = "f" + std::to_string(erste ? Komp2 : Komp1);
      break;
    case 81:
    case 83:
      t.Legende = "ln(f" + std::to_string(erste ? Komp2 : Komp1) + ")";
      break;
    default:
      break;
  }
  return t;
}

void frmGraph2D::KoordinatenInSession(Session& s) const {
  s.XMin = Doc.Bereich.XMin;
  s.XMax = Doc.Bereich.XMax;
  s.YMin = Doc.Bereich.YMin;
  s.YMax = Doc.Bereich.YMax;
}

void frmGraph2D::Form_Load(mdiPEQ& f, const GraphAufbau& g) {
  const Session& s = f.s;
  LoescheAlles(Doc);
  Doc.XLog = Doc.YLog = false;
  Doc.NoDia = s.NoDia;
  Doc.KurvenAnzahl = g.KurvenAnzahl;
  Doc.T = s.TIso;
  Doc.p = s.PIso;
  Doc.x2 = static_cast<float>(s.XIso);
  Doc.Titel = g.Texte.Titel;
  Doc.XTitel = g.Texte.XAchse;
  Doc.YTitel = g.Texte.YAchse;
  SetzeKoordinaten(Doc, Achsenbereich{s.XMin, s.XMax, s.YMin, s.YMax});
  Caption = kGraph2DCaption;
  cmdTauschCaption = TauschCaption(s.Komp1, s.Komp2);
  cmdTauschEnabled = TauschErlaubt(s.NoDia);
  Status.clear();
  Kommentar.clear();
  LetzterFehler = 0;
  AnzGezeichnet = 0;
  MarkSerie = MarkPunkt = 0;
  UntertitelSetzen(s);
}

void frmGraph2D::UntertitelSetzen(const Session& s) {
  Untertitel.clear();
  switch (Doc.NoDia) {
    case 7: case 183: case 200: case 201: case 202: case 250:
      return;  // the abscissa is no composition of the pair
    default:
      break;
  }
  const std::size_t k = static_cast<std::size_t>(s.Komp2);
  if (s.Komp2 < 1 || k >= s.StoffData.size()) return;
  const std::string name = Trim(s.StoffData[k].Name);
  if (!name.empty()) Untertitel = "x: " + name;
}

void frmGraph2D::Titel(mdiPEQ& f) {
  DiagrammTexte t;
  if (!DiagrammTitel(f.s, Doc.NoDia, t)) return;
  Doc.Titel = t.Titel;
  Doc.XTitel = t.XAchse;
  Doc.YTitel = t.YAchse;
}

void frmGraph2D::cmdDraw_Click(mdiPEQ& f) {
  Session& s = f.s;
  AnzGezeichnet = 0;
  KoordinatenInSession(s);
  Doc.T = s.TIso;
  Doc.p = s.PIso;
  Doc.x2 = static_cast<float>(s.XIso);

  // Working arrays of the call.
  Vec<double> x(static_cast<std::size_t>(s.NKomp) + 1, 0.0);
  Kurve k1, k2;
  int16_t NoDia = Doc.NoDia;
  int16_t Komp1 = s.Komp1, Komp2 = s.Komp2;
  int16_t Ausserhalb = 0, Fehler = 0;
  const float TOben = static_cast<float>(s.YMax + s.TOffsetOut);
  std::string kommentar;
  MsgSink sink;
  try {
    // The gap of the drawing stays in the session, where the single-point routine finds it.
    CalcCurve(s, NoDia, Doc.T, Doc.p, Doc.x2, k1, k2, x, s.P0, Komp1, Komp2, Ausserhalb, s.RealKurve, TOben,
              s.GapX1, s.GapW1, s.GapX2, s.GapW2, s.GapY, kommentar, Fehler, &sink);
  } catch (const std::exception& e) {
    // A run-time error of the tracer is told, and the drawing goes on with what there is.
    sink.push_back(Message{kMsgSubCalcCurve, e.what(), MsgIcon::Warning});
  }
  ShowMessages(f.ui, sink);
  LetzterFehler = Fehler;
  Kommentar = kommentar;
  ++s.DiagrammZaehler;

  if (Fehler == -1) {
    std::string text = kKritischerFehler;
    if (!kommentar.empty()) text += std::string(kNL) + kommentar;
    f.ui.MsgBox(kAbgebrochenTitel, text, MsgIcon::Stop);
    return;
  }
  if (Fehler == 3) {
    f.ui.MsgBox(kKeineDichteTitel, kKeineDichteText, MsgIcon::Stop);
    return;
  }
  if (Fehler == 2) f.ui.MsgBox("Note", kSchmelzText, MsgIcon::Information);
  if (Ausserhalb) f.ui.MsgBox(kTitelWarnung, kAusserhalbText, MsgIcon::Warning);

  const int anzahl = Doc.KurvenAnzahl >= 2 ? 2 : 1;
  for (int k = 1; k <= anzahl; ++k) {
    const Kurve& kurve = k == 1 ? k1 : k2;
    if (kurve.empty() || kurve[0].x < 1) continue;
    if (Doc.NoDia == 41 && k == 1 && Doc.BinodalSlot != 0) LoescheKurve(Doc, Doc.BinodalSlot);
    int16_t slot = 0;
    bool voll = false;
    MsgSink warn;
    DrawCurve(Doc, kurve, slot, voll, &warn);
    ShowMessages(f.ui, warn);
    if (voll) break;
    const KurvenText t = LegendeUndLabel(Doc.NoDia, k, Doc.T, Doc.p, Doc.x2, s.Komp1, s.Komp2);
    Serie& ser = Doc.Serien[static_cast<std::size_t>(slot)];
    const std::string fest = s.IsoArt == 2 ? FormatAllgemein(Doc.p) + " kPa" : FormatAllgemein(Doc.T) + " K";
    if (Doc.NoDia == 181 || Doc.NoDia == 182)
      ser.Legende = fest + "  " + t.Legende;
    else
      ser.Legende = t.Legende.empty() ? fest : t.Legende;
    if (t.LabelSetzen) {
      ser.Label = t.Label;
      if (t.Label.empty()) ser.LabelPunkt = 0;
    }
    if (Doc.NoDia == 41) Doc.BinodalSlot = slot;
    ++AnzGezeichnet;
  }
}

void frmGraph2D::cmdTausch_Click(mdiPEQ& f) {
  Session& s = f.s;
  if (!TauschErlaubt(Doc.NoDia)) return;
  s.Komp1 = static_cast<int16_t>(3 - s.Komp1);
  s.Komp2 = static_cast<int16_t>(3 - s.Komp1);
  cmdTauschCaption = TauschCaption(s.Komp1, s.Komp2);
  Titel(f);
  TauscheKomponenten(Doc);
  UntertitelSetzen(s);
  // The pure-substance line of the status follows the new order of the pair.
  if (Kommentar.rfind("pure-substance vapour pressures at ", 0) == 0)
    SiedeText(s, Doc.T, s.Komp1, s.Komp2, Kommentar);
  else if (Kommentar.rfind("pure-substance boiling temp. at ", 0) == 0)
    SiedeTextP(s, Doc.p, s.Komp1, s.Komp2, Kommentar);
}

bool frmGraph2D::cmdCoord_OK(mdiPEQ& f, const Achsenbereich& b, std::string& Meldung) {
  if (!SchreibeKoordinaten(Doc, b, Meldung)) return false;
  KoordinatenInSession(f.s);
  return true;
}

void frmGraph2D::cmdXLog_Click(mdiPEQ& f) {
  ToggleXLog(Doc);
  KoordinatenInSession(f.s);
}

void frmGraph2D::cmdYLog_Click(mdiPEQ& f) {
  ToggleYLog(Doc);
  KoordinatenInSession(f.s);
}

bool frmGraph2D::cmdZoom(mdiPEQ& f, float x1, float y1, float x2, float y2) {
  if (!Zoom(Doc, x1, y1, x2, y2)) return false;
  KoordinatenInSession(f.s);
  return true;
}

void frmGraph2D::cmdZoomReset(mdiPEQ& f) {
  ZoomZurueck(Doc);
  KoordinatenInSession(f.s);
}

void frmGraph2D::mnuSubDelKurv_Click(mdiPEQ&, int slot) {
  LoescheKurve(Doc, slot);
  if (MarkSerie == slot) MarkSerie = MarkPunkt = 0;
  Status.clear();
}

bool frmGraph2D::mnuDelPoint_Click(mdiPEQ& f) {
  if (MarkSerie == 0) return false;
  const bool weg = cmdMsgDelPoint(f, MarkSerie, MarkPunkt);
  if (weg) {
    MarkSerie = MarkPunkt = 0;
    Status.clear();
  }
  return weg;
}

std::vector<std::pair<int, std::string>> frmGraph2D::KurvenListe() const {
  std::vector<std::pair<int, std::string>> l;
  for (int k = 1; k <= kMaxKurven; ++k) {
    if (Doc.KurveFrei[static_cast<std::size_t>(k)]) continue;
    const Serie& ser = Doc.Serien[static_cast<std::size_t>(k)];
    if (ser.Punkte() == 0) continue;
    l.emplace_back(k, std::to_string(k) + ": " + (ser.Legende.empty() ? "curve " + std::to_string(k) : ser.Legende));
  }
  return l;
}

bool frmGraph2D::SchliessenErlaubt(mdiPEQ& f) {
  if (Doc.AnzKurven <= 0) return true;
  return f.ui.MsgBox(kSchliessenTitel, kSchliessenFrage, MsgIcon::Question, Buttons::YesNo) == Answer::Yes;
}

std::string frmGraph2D::BildDateiName() const {
  // The title up to its model part, letters and digits kept, the rest one "-".
  std::string t = Doc.Titel.substr(0, Doc.Titel.find('('));
  std::string n;
  for (char c : t) {
    const unsigned char u = static_cast<unsigned char>(c);
    if ((u >= '0' && u <= '9') || (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z')) {
      n += c;
    } else if (!n.empty() && n.back() != '-') {
      n += '-';
    }
  }
  while (!n.empty() && n.back() == '-') n.pop_back();
  if (n.empty()) n = "diagram";
  return n + ".png";
}

void frmGraph2D::cmdDelKurv_Click(mdiPEQ&) {
  LoescheAlleKurven(Doc);
  MarkSerie = MarkPunkt = 0;
  Status.clear();
}

void frmGraph2D::mnuDelTotal_Click(mdiPEQ&) {
  LoescheAlles(Doc);
  MarkSerie = MarkPunkt = 0;
  Status.clear();
}

void frmGraph2D::Chart_MouseMove(int serie, int punkt) {
  std::string t = PunktText(Doc, serie, punkt);
  if (t.empty()) return;
  const std::string z = ZustandText(Doc, serie, punkt);
  if (!z.empty()) t += "   " + z;
  Status = t;
}

void frmGraph2D::Chart_Click(mdiPEQ&, int serie, int punkt) {
  Chart_MouseMove(serie, punkt);
  if (!PunktText(Doc, serie, punkt).empty()) {
    MarkSerie = serie;
    MarkPunkt = punkt;
  }
  if (serie >= 1 && serie <= kMaxKurven && !HinweisGezeigt && !Doc.KurveFrei[static_cast<std::size_t>(serie)]) {
    HinweisGezeigt = true;
    Status += std::string(kNL) + kHinweisRechtsklick;
  }
}

bool frmGraph2D::cmdMsgDelPoint(mdiPEQ& f, int serie, int punkt) {
  if (PunktText(Doc, serie, punkt).empty()) return false;
  if (f.ui.MsgBox(kPunktLoeschenTitel, kPunktLoeschenFrage, MsgIcon::Question, Buttons::YesNo) != Answer::Yes)
    return false;
  return LoeschePunkt(Doc, serie, punkt);
}

bool frmGraph2D::Chart_RightClick(int serie) {
  return serie >= 1 && serie <= kSerienAnz && Doc.Serien[static_cast<std::size_t>(serie)].Punkte() > 0;
}

bool frmGraph2D::cmdClipboard_Click(mdiPEQ& f, int slot) {
  if (slot < 1 || slot > kSerienAnz) return false;
  const Serie& ser = Doc.Serien[static_cast<std::size_t>(slot)];
  if (ser.Punkte() == 0) return false;
  f.ui.SetClipboard(KurveAlsText(ser));
  return true;
}

void Graph2DRechnen(mdiPEQ& f, frmGraph2D& g) {
  const bool sofortZeichnen = f.s.SofortZeichnen;
  f.s.SofortZeichnen = false;
  GraphAufbau a;
  if (!ZentraleGraph(f.s, f.s.NoDia, a)) return;
  g.Form_Load(f, a);
  f.Show(WindowId::frmGraph2D);
  if (sofortZeichnen && f.IsLoaded(WindowId::frmGraph2D)) {
    g.cmdDraw_Click(f);
    f.ui.Refresh(WindowId::frmGraph2D);
  }
}

}  // namespace peq

// ---- experimental points and the XY editor ----

namespace peq {

bool frmGraph2D::KurveAlsXYSpeichern(mdiPEQ& f, int slot, const std::string& datei) {
  if (slot < 1 || slot > kSerienAnz) return false;
  const Serie& ser = Doc.Serien[static_cast<std::size_t>(slot)];
  if (ser.Punkte() == 0) return false;
  Kurve k(1);
  k.reserve(static_cast<std::size_t>(ser.Punkte()) + 1);
  for (int i = 0; i < ser.Punkte(); ++i) {
    const float x = ser.x[static_cast<std::size_t>(i)], y = ser.y[static_cast<std::size_t>(i)];
    if (IstLoch(x) || IstLoch(y)) continue;
    k.push_back(KurvenPunkt{y, x, 0});
  }
  k[0].x = static_cast<float>(k.size() - 1);
  std::string err;
  if (!WriteReplacing(datei, XYText(ser.Legende, k, f.s.ListTrenner), err)) {
    f.ui.MsgBox(kXYFehlerTitel, err, MsgIcon::Stop);
    return false;
  }
  return true;
}

bool frmGraph2D::cmdSaveCurveAsXY_Click(mdiPEQ& f, int slot) {
  if (slot < 1 || slot > kSerienAnz || Doc.Serien[static_cast<std::size_t>(slot)].Punkte() == 0) return false;
  FileDialogRequest req;
  req.save = true;
  req.title = kManuSpeichernTitel;
  req.filter = kManuSpeichernFilter;
  req.initialDir = f.s.PfadXY;
  req.defaultExt = ".XY";
  const FileDialogResult r = f.ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty()) return false;
  return KurveAlsXYSpeichern(f, slot, r.fileName);
}

int frmGraph2D::zeigeExpPunkte_Click(mdiPEQ& f) {
  bool voll = false;
  const int n = zeigeExpPunkte(f.s, Doc, voll);
  if (voll)
    Status = "Maximum 12 sets of experimental points";
  else if (n == 0)
    Status = "No experimental points at this " + std::string(IsoArtVon(Doc.NoDia) == 2 ? "pressure" : "temperature");
  else
    Status = std::to_string(n) + " experimental points";
  f.ui.Refresh(WindowId::frmGraph2D);
  return n;
}

void frmGraph2D::cmdManuPoints_Click(mdiPEQ& f) {
  f.mnuEditXY_Click();
  f.ManuInput.AlsPunkte = true;
  f.ui.Refresh(WindowId::frmXYEdit);
}

void frmGraph2D::cmdManuKurve_Click(mdiPEQ& f) {
  f.mnuEditXY_Click();
  f.ManuInput.AlsPunkte = false;
  f.ui.Refresh(WindowId::frmXYEdit);
}

void frmGraph2D::mnuManuXY_Click(mdiPEQ& f) { f.mnuEditXY_Click(); }

void frmGraph2D::ManuZeichnen(mdiPEQ& f, const Kurve& aktiv, bool alsPunkte, const std::string& kommentar) {
  const int n = static_cast<int>(aktiv.size()) - 1;
  if (n < 1) return;
  if (!f.IsLoaded(WindowId::frmGraph2D)) {
    // A diagram of free x-y data, its ranges from the smallest and largest values.
    Doc = Graph2DDoc{};
    Doc.NoDia = kNoDiaFreiXY;
    float x0 = aktiv[1].x, x1 = x0, y0 = aktiv[1].y, y1 = y0;
    for (int i = 2; i <= n; ++i) {
      x0 = std::min(x0, aktiv[static_cast<std::size_t>(i)].x);
      x1 = std::max(x1, aktiv[static_cast<std::size_t>(i)].x);
      y0 = std::min(y0, aktiv[static_cast<std::size_t>(i)].y);
      y1 = std::max(y1, aktiv[static_cast<std::size_t>(i)].y);
    }
    auto weiten = [](float& a, float& b) {
      if (b > a) return;
      const float d = a == 0 ? 1.0f : std::fabs(a) * 0.1f;
      a -= d;
      b += d;
    };
    weiten(x0, x1);
    weiten(y0, y1);
    SetzeKoordinaten(Doc, Achsenbereich{x0, x1, y0, y1});
    Doc.Titel = kommentar.empty() ? std::string(kManuPunkteTitel) : kommentar;
    Doc.XTitel = kManuPunkteXTitel;
    Doc.YTitel = "y";
    Caption = kGraph2DCaption;
    cmdTauschEnabled = false;
    f.Show(WindowId::frmGraph2D);
  }
  if (alsPunkte) {
    ExpSatz satz;
    for (int i = 1; i <= n; ++i) {
      satz.L.x.push_back(aktiv[static_cast<std::size_t>(i)].x);
      satz.L.y.push_back(aktiv[static_cast<std::size_t>(i)].y);
    }
    const int k = static_cast<int>(Doc.ExpSaetze.size());
    satz.L.Stil = ExpStil(k, false);
    satz.Legende = kommentar.empty() ? std::string("x-y points") : kommentar;
    satz.L.Legende = satz.Legende;
    if (!NeuerExpSatz(Doc, std::move(satz))) Status = "Maximum 12 sets of experimental points";
  } else {
    int16_t slot = 0;
    bool fehler = false;
    MsgSink msgs;
    DrawCurve(Doc, aktiv, slot, fehler, &msgs);
    ShowMessages(f.ui, msgs);
    if (!fehler && slot > 0) Doc.Serien[static_cast<std::size_t>(slot)].Legende = kommentar;
  }
  f.ui.Refresh(WindowId::frmGraph2D);
}

}  // namespace peq
