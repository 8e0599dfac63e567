#include "distillation/design.h"

#include "engine/azeotrope.h"
#include "models/vappressure.h"
#include "session/numformat.h"

namespace peq {

namespace {

void Anhaengen(std::string& text, const std::string& teil) {
  if (!text.empty()) text += kNL;
  text += teil;
}

}  // namespace

std::string ThieleReihenfolgeText() {
  return std::string("Note:") + kNL + "- 0 < x2 <1" + kNL + "- x2(bottom) <= x2(feed) < x2(top)";
}

std::string ThieleAzeotropText(int16_t kind, int n, const std::string& einheit, double wert) {
  const std::string nr = std::to_string(n);
  std::string t = "Between top and bottom concentration may not be an azeotropic point situated!";
  t += kNL;
  if (kind == 0) {
    t += "Top and bottom concentrations x" + nr + " have to be greater than the azeotropic concentrations.";
    t += std::string(kNL) + kNL + "(Temperature-maximum azeotrope, ";
  } else {
    t += "top and bottom concentrations x" + nr + " have to be less than the azeotropic concentrations.";
    t += std::string(kNL) + kNL + "(Pressure-maximum azeotrope,";
  }
  t += std::string(kNL) + " azeotropic concentration " + einheit + nr + "(az) = " + FormatZahl(wert, "0.0###") + ")";
  t += std::string(kNL) + kNL + "If you want to carry out the calculation on the other side of the azeotrope,";
  t += std::string(kNL) + "you have to exchange the components (Button 1<=>2)";
  return t;
}

std::string ThieleFluechtigText() {
  return std::string("The more volatile substance has to be situated on the right-hand side.") + kNL +
         "you have to exchange the components (Button 1<=>2)";
}

bool ThieleBereichOK(const ThieleDaten& d) {
  auto in = [](float v) { return v > 0.0f && v < 1.0f; };
  return in(d.XKopf) && in(d.XSumpf) && (d.OhneFeed != 0 || in(d.XFeed));
}

bool ThieleAuslegung(Session& s, ThieleDaten& d, float& rrMin, ThieleAzeotrop& az, MsgSink& sink) {
  rrMin = 0;
  az = ThieleAzeotrop{};
  // The enthalpy factor of the curved line.
  d.EnthFaktor = kEnthFaktorGerade;
  if (d.MitHLV != 0) {
    float E = kEnthFaktorGerade;
    if (EnthalpieFaktor(s, d.p, E, &sink)) d.EnthFaktor = E;
  }

  // Order of the compositions and the reflux ratio.
  std::string text;
  bool ordnung = d.XKopf > d.XSumpf && ThieleBereichOK(d);
  if (d.OhneFeed == 0) ordnung = ordnung && d.XKopf > d.XFeed && d.XSumpf <= d.XFeed;
  if (!ordnung) Anhaengen(text, ThieleReihenfolgeText());
  if (d.RR <= 0.0f) Anhaengen(text, kThieleRRNull);

  // The azeotrope at the column pressure.
  double xAz = 0;
  int16_t kind = 0, overrun = 0;
  const int16_t isoAlt = s.IsoArt;
  s.IsoArt = 2;
  const bool hatAz = IsBinaerAzeotrop(s, 0.0, d.p, xAz, kind, overrun, &sink);
  s.IsoArt = isoAlt;
  if (overrun != 0) {
    Post(&sink, kThieleTitel, kThieleIteration, MsgIcon::Stop);
    return false;
  }
  const std::string einheit = s.ConcUnit != 0 ? "ksi" : "x";
  if (hatAz) {
    double wert = s.Komp1 == 1 ? xAz : 1.0 - xAz;
    if (s.ConcUnit != 0) wert = MasseAusMol(s, wert);
    az.Gefunden = true;
    az.X = wert;
    az.Kind = kind;
    if (kind == 0 && wert > d.XSumpf) Anhaengen(text, ThieleAzeotropText(0, s.Komp2, einheit, wert));
    if (kind == -1 && wert < d.XKopf) Anhaengen(text, ThieleAzeotropText(-1, s.Komp2, einheit, wert));
  } else {
    // The more volatile component belongs on the right: Komp1 must boil higher.
    std::string c1 = s.P0Eq[s.Komp1], c2 = s.P0Eq[s.Komp2];
    int16_t dT = 0, e1 = 0, e2 = 0;
    const float T1 = BoilingTAtP(s, s.Komp1, d.p, c1, false, dT, e1);
    const float T2 = BoilingTAtP(s, s.Komp2, d.p, c2, false, dT, e2);
    if (!(T1 > T2)) Anhaengen(text, ThieleFluechtigText());
  }
  if (!text.empty()) {
    Post(&sink, kThieleTitel, text, MsgIcon::Stop);
    return false;
  }

  Betriebsgeraden(d);

  int16_t fehler = 0;
  const float r = RRMin(s, d, fehler);
  if (fehler != 0) {
    std::string t = kThieleRRMinFehler;
    if (d.MitHLV != 0) t += std::string(kNL) + kThieleHLVRat;
    Post(&sink, kThieleTitel, t, MsgIcon::Stop);
    return false;
  }
  rrMin = r;
  if (d.RR < r) {
    Post(&sink, kThieleTitel, kThieleRRKlein, MsgIcon::Stop);
    return false;
  }
  return true;
}

}  // namespace peq
