// The McCabe-Thiele construction on the 2D document: the series behind the 24 curve slots that
// carry the diagonal (25), the upper (26) and lower (27) operating line, the feed point (29) and
// the plate steps (28).
#include <cstddef>

#include "session/numeric.h"
#include "windows/graph2d.h"
#include "windows/shell.h"

namespace peq {

namespace {

void Punkt(Serie& s, double x, double y) {
  s.x.push_back(static_cast<float>(x));
  s.y.push_back(static_cast<float>(y));
}

SerienStil Stil(LinienMuster m, float breite, uint32_t farbe, Symbol sym = Symbol::Keins) {
  SerienStil st;
  st.Muster = m;
  st.Breite = breite;
  st.Farbe = farbe;
  st.Sym = sym;
  return st;
}

}  // namespace

void frmGraph2D::cmdDest_Click(mdiPEQ& f, ThieleDaten& d) {
  Graph2DDoc& doc = Doc;
  for (int k : {kSerieThieleDiagonale, kSerieOben, kSerieUnten, kSerieStufen, kSerieFeed})
    doc.Serien[static_cast<std::size_t>(k)].Leeren();

  Serie& diag = doc.Serien[kSerieThieleDiagonale];
  diag.Stil = Stil(LinienMuster::Voll, 1.0f, 0x000000);
  Punkt(diag, 0.0, 0.0);
  Punkt(diag, 1.0, 1.0);

  const bool ohneFeed = d.OhneFeed != 0;
  const double xUntenEnde = ohneFeed ? d.XSumpf : d.XFeed;
  const double yFeed = double(d.SteigOben) * xUntenEnde + d.AchsOben;
  Serie& oben = doc.Serien[kSerieOben];
  oben.Stil = Stil(LinienMuster::Strich, 1.5f, 0x0000C0);
  try {
    if (d.MitHLV != 0) {
      // The curved line from the feed (or the bottom) to the top in steps of 0.02.
      for (double x = xUntenEnde; x < d.XKopf; x += 0.02)
        Punkt(oben, x, YOpKurve(d.RR, x, d.XKopf, d.EnthFaktor));
      Punkt(oben, d.XKopf, YOpKurve(d.RR, d.XKopf, d.XKopf, d.EnthFaktor));
      // The label belongs to the top point, which is the last one here.
      oben.LabelPunkt = oben.Punkte();
    } else {
      Punkt(oben, d.XKopf, d.XKopf);
      Punkt(oben, xUntenEnde, yFeed);
      oben.LabelPunkt = 1;
    }
  } catch (const NumericFault&) {
    oben.Leeren();
    Punkt(oben, d.XKopf, d.XKopf);
    oben.LabelPunkt = 1;
  }
  oben.Label = "Top";

  Serie& unten = doc.Serien[kSerieUnten];
  unten.Label = "Bottom";
  unten.LabelPunkt = 1;
  if (ohneFeed) {
    unten.Stil = Stil(LinienMuster::Keine, 1.0f, 0x0000C0, Symbol::Punkt);
    Punkt(unten, d.XSumpf, d.XSumpf);
  } else {
    unten.Stil = Stil(LinienMuster::Strich, 1.5f, 0x0000C0);
    Punkt(unten, d.XSumpf, d.XSumpf);
    Punkt(unten, d.XFeed, yFeed);
    Serie& feed = doc.Serien[kSerieFeed];
    feed.Stil = Stil(LinienMuster::Keine, 1.0f, 0x0000C0, Symbol::Punkt);
    Punkt(feed, d.XFeed, yFeed);
    feed.Label = "Feed";
    feed.LabelPunkt = 1;
  }

  Serie& stufen = doc.Serien[kSerieStufen];
  stufen.Stil = Stil(LinienMuster::Voll, 1.5f, 0xC00000);
  stufen.x.reserve(kMaxStufenPunkte + 3);
  stufen.y.reserve(kMaxStufenPunkte + 3);
  StufenZeichnen(f.s, d, stufen.x, stufen.y);
  stufen.Legende = "McCabe-Thiele";
  f.ui.Refresh(WindowId::frmGraph2D);
}

}  // namespace peq
