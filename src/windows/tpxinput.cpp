#include "windows/tpxinput.h"

#include <cmath>
#include <cstdio>

#include "engine/gap.h"
#include "models/vappressure.h"
#include "session/constants.h"
#include "session/writefmt.h"
#include "windows/shell.h"

namespace peq {

namespace {

std::string Trim(const std::string& t) {
  const std::size_t a = t.find_first_not_of(' ');
  if (a == std::string::npos) return "";
  const std::size_t b = t.find_last_not_of(' ');
  return t.substr(a, b - a + 1);
}

std::string Name(const Session& s, int i) { return Trim(s.StoffData[static_cast<std::size_t>(i)].Name); }

bool Bekannt(float v) { return v > kPresent; }

// A comma typed as a decimal sign counts as a point.
bool Lesen(std::string text, double& v) {
  for (char& c : text)
    if (c == ',') c = '.';
  return ParseNumber(text, v) && std::isfinite(v);
}

constexpr const char* kWagnerRat = "(Do not use WAGNER's equation here)";

}  // namespace

std::string TpxZahl(double v) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%.10g", v);
  return buf;
}

int16_t AufgeloesteNoDia(int16_t NoDia, int16_t OptIso, bool OptLog) {
  const bool isobar = OptIso == 1;
  switch (NoDia) {
    case kPseudoAktiv:
      if (OptLog) return isobar ? 83 : 81;
      return isobar ? 82 : 8;
    case kPseudoAlpha:
      return isobar ? 11 : 10;
    case kPseudoK:
      return isobar ? 51 : 5;
    default:
      return NoDia;
  }
}

int16_t frmTpxInput::IsoArtJetzt(const Session& s) const {
  if (Destillation) return 2;
  if (NoDia == kPseudoAktiv || NoDia == kPseudoAlpha || NoDia == kPseudoK) return OptIso == 1 ? 2 : 1;
  const int16_t iso = IsoArtVon(NoDia);
  return iso != 0 ? iso : s.IsoArt;
}

void frmTpxInput::Beschriften(const Session& s) {
  const int16_t iso = IsoArtJetzt(s);
  if (Destillation) {
    lblpT = kTpxKolonneCaption;
  } else if (iso == 1) {
    lblpT = kTpxTempCaption;
  } else if (iso == 2) {
    lblpT = kTpxDruckCaption;
  } else {
    lblpT = kTpxXCaption;
  }
  optTUnitVisible = iso == 1;
  if (iso == 1)
    txtpT = TpxZahl(s.TIso - TOffset());
  else if (iso == 2)
    txtpT = TpxZahl(s.PIso);
  else
    txtpT = TpxZahl(s.XIso);
}

void frmTpxInput::Load(mdiPEQ& f) {
  const Session& s = f.s;
  Destillation = f.DestillAktiv && s.IsoArt == 2;
  NoDia = s.NoDia;
  Fertig = Abbruch = AufbauOK = false;
  lblFehler.clear();
  optTUnit = s.TOffsetIn == 0 ? 0 : 1;
  const bool pseudo = !Destillation && (NoDia == kPseudoAktiv || NoDia == kPseudoAlpha || NoDia == kPseudoK);
  OptIsoVisible = pseudo;
  OptIso = 0;
  OptLogVisible = !Destillation && NoDia == kPseudoAktiv;
  OptLog = false;
  if (pseudo)
    Caption = NoDia == kPseudoAktiv ? kTpxTitelAktiv : (NoDia == kPseudoK ? kTpxTitelK : kTpxTitelAlpha);
  else
    Caption = Trim(IsoArtJetzt(s) == 1 ? kTpxTempCaption : (IsoArtJetzt(s) == 2 ? kTpxDruckCaption : kTpxXCaption));
  chkRealKurve = s.RealKurve != 0;
  chkRealKurveVisible = !Destillation;
  cmdOKCaption = Destillation ? kTpxWeiterCaption : kTpxOKCaption;
  cmdOKAndDrawVisible = !Destillation;
  Beschriften(s);
}

void frmTpxInput::optTUnit_Click(int index) {
  if (index != 0 && index != 1) return;
  double v = 0;
  const bool lesbar = Lesen(txtpT, v);
  const double alt = TOffset();
  optTUnit = static_cast<int16_t>(index);
  if (lesbar) txtpT = TpxZahl(v + alt - TOffset());
}

void frmTpxInput::OptIso_Click(mdiPEQ& f, int index) {
  if (index != 0 && index != 1) return;
  OptIso = static_cast<int16_t>(index);
  Beschriften(f.s);
}

bool frmTpxInput::PruefeT(mdiPEQ& f, double T) {
  Session& s = f.s;
  if (s.TKritMax == 0) {
    f.ui.MsgBox("WARNING",
                std::string("it cannot be judged if T is in the subcritical range") + kNL + "(not all T(cr) available)",
                MsgIcon::Warning);
    return true;
  }
  const bool beide = s.NKomp >= 2 && Bekannt(s.TKrit[1]) && Bekannt(s.TKrit[2]);
  if (T > s.TKritMax && beide) {
    f.ui.MsgBox(kTitleNotPossible,
                std::string("the critical temperatures of both components are exceeded") + kNL + "Tcr(1)/K =" +
                    WriteSgl(s.TKrit[1]) + ", Tcr(2)/K =" + WriteSgl(s.TKrit[2]),
                MsgIcon::Stop);
    return false;
  }
  int ueber = 0;
  for (int i = 1; i <= s.NKomp && ueber == 0; ++i)
    if (Bekannt(s.TKrit[i]) && T > s.TKrit[i]) ueber = i;
  if (ueber == 0) return true;
  const std::string zeile = "the critical temperature of " + Name(s, ueber) + " is exceeded (T(cr) = " +
                            WriteSgl(s.TKrit[ueber]) + " K)." + kNL;
  if (s.Konzept) {
    f.ui.MsgBox("Note", zeile, MsgIcon::Information);
    return true;
  }
  std::string code = s.P0Eq[static_cast<std::size_t>(ueber)];
  const bool wagner = code == "WAG";
  int16_t dT = 0;
  const float p0 = VapPressure(s, ueber, T, code, false, dT);
  if (p0 == 0) {
    std::string text = zeile + "The vapour pressure equation selected is not useable for the given temperature.";
    if (wagner) text += std::string(kNL) + kWagnerRat;
    text += std::string(kNL) + "In this situation you better should use the phi-concept.";
    f.ui.MsgBox(kTitleNotPossible, text, MsgIcon::Stop);
    return false;
  }
  f.ui.MsgBox("WARNING",
              zeile + "Note: The vapour pressure equation is used for T > T(cr)!" + kNL +
                  "Advice: Add marker p(cr) to have a better orientation" + kNL +
                  "In this situation you better should use the phi-concept.",
              MsgIcon::Warning);
  return true;
}

bool frmTpxInput::PruefeP(mdiPEQ& f, double p, int16_t nr) {
  Session& s = f.s;
  const bool beide = s.NKomp >= 2 && Bekannt(s.PKrit[1]) && Bekannt(s.PKrit[2]);
  if (s.PKritMax >= 1e-6 && p > s.PKritMax && beide) {
    f.ui.MsgBox(kTitleNotPossible,
                std::string("The critical pressures of both components are exceeded. ") + kNL + "pcr(1)/kPa =" +
                    WriteSgl(s.PKrit[1]) + ", pcr(2)/kPa =" + WriteSgl(s.PKrit[2]),
                MsgIcon::Stop);
    return false;
  }
  int ueber = 0;
  for (int i = 1; i <= s.NKomp && ueber == 0; ++i)
    if (Bekannt(s.PKrit[i]) && p > s.PKrit[i]) ueber = i;
  if (ueber == 0) return true;
  const std::string zeile = "The critical pressure of " + Name(s, ueber) + " is exceeded (p(cr) = " +
                            WriteSgl(s.PKrit[ueber]) + " kPa)." + kNL;
  if (s.Konzept) {
    f.ui.MsgBox("Note", zeile, MsgIcon::Information);
    return true;
  }
  std::string code = s.P0Eq[static_cast<std::size_t>(ueber)];
  const bool wagner = code == "WAG";
  int16_t dT = 0, err = 0;
  const float Tb = BoilingTAtP(s, ueber, p, code, false, dT, err);
  if (Tb == 0 || err != 0) {
    std::string text = zeile + "The vapour equation selected is not useable here." + kNL +
                       "the vapour pressure equatiom selected is not useable here";
    if (wagner) text += std::string(kNL) + kWagnerRat;
    text += std::string(kNL) + "In this situation you better should use the phi-concept (=> \"Models\").";
    f.ui.MsgBox(kTitleNotPossible, text, MsgIcon::Stop);
    return false;
  }
  std::string text = zeile + "Note: The vapour pressure equation is used for T > T(cr)!";
  if (nr == 4) text += std::string(kNL) + "Advice: Add marker T(cr) to have a better orientation";
  f.ui.MsgBox("WARNING", text, MsgIcon::Warning);
  return true;
}

bool frmTpxInput::Pruefen(mdiPEQ& f, bool sofort) {
  Session& s = f.s;
  lblFehler.clear();
  // 1. The pseudo numbers resolved; the input read and judged against its range.
  const int16_t nr = Destillation ? s.NoDia : AufgeloesteNoDia(NoDia, OptIso, OptLog);
  const int16_t iso = IsoArtJetzt(s);
  double v = 0;
  bool gut = Lesen(txtpT, v);
  double T = s.TIso, p = s.PIso, x = s.XIso;
  if (gut) {
    if (iso == 1) {
      T = v + TOffset();
      gut = T > 0 && T <= kTpxTMax;
    } else if (iso == 2) {
      p = v;
      gut = p > 0 && p <= kTpxPMax;
    } else {
      x = v;
      gut = x >= 0 && x <= 1;
    }
  }
  if (!gut) {
    lblFehler = kTpxUngueltig;
    return false;
  }
  // 2. and 3. The critical data and the vapour-pressure equations.
  if (iso == 1 && !PruefeT(f, T)) return false;
  if (iso == 2 && !PruefeP(f, p, nr)) return false;
  // 4. A distillation needs a homogeneous liquid.
  if (Destillation && nr == 6 && !s.Konzept) {
    s.PIso = p;
    s.IsoArt = 2;
    int16_t found = 0, code = 0;
    double xA = 0, xB = 0;
    float gx1 = 0, gx2 = 0, gw1 = 0, gw2 = 0;
    GapSuche(s, found, s.Komp1, s.Komp2, xA, xB, gx1, gx2, gw1, gw2, code);
    if (found != 0) {
      f.ui.MsgBox(kTitleNotPossible,
                  std::string("Distillation calculations are carried out only") + kNL +
                      "for homogeneous systems (without a mixing gap).",
                  MsgIcon::Stop);
      Abbruch = true;
      Fertig = true;
      s.SofortZeichnen = false;
      return false;
    }
  }
  // Accepted: the state of the diagram.
  if (iso == 1) {
    s.TIso = T;
    s.TOffsetIn = TOffset();
  } else if (iso == 2) {
    s.PIso = p;
  } else {
    s.XIso = x;
  }
  s.NoDia = nr;
  s.IsoArt = iso;
  s.RealKurve = chkRealKurve ? -1 : 0;
  s.SofortZeichnen = sofort;
  AufbauOK = false;
  // The batch distillation draws no diagram of the catalogue.
  if (!Destillation || nr == 6) AufbauOK = ZentraleGraph(s, nr, Aufbau);
  Fertig = true;
  Abbruch = false;
  return true;
}

bool frmTpxInput::cmdOK_Click(mdiPEQ& f) { return Pruefen(f, false); }

bool frmTpxInput::cmdOKAndDraw_Click(mdiPEQ& f) { return Pruefen(f, true); }

void frmTpxInput::cmdEsc_Click(mdiPEQ& f) {
  Abbruch = true;
  Fertig = true;
  f.s.SofortZeichnen = false;
}

}  // namespace peq
