#include "windows/aedit.h"

#include <cmath>
#include <cstdlib>
#include <functional>
#include <utility>

#include "models/vappressure.h"
#include "models/virial.h"
#include "session/codepage.h"
#include "session/constants.h"
#include "session/numeric.h"
#include "session/writefmt.h"
#include "substances/bank.h"
#include "substances/privatebank.h"
#include "substances/q07.h"
#include "windows/gating.h"
#include "windows/shell.h"

namespace peq {

namespace {

// Normal pressure, kPa: the AUGUST line runs through the normal boiling point.
constexpr double kPNormal = 101.325;
// A typed zero is stored as this number, so that it differs from an empty field.
constexpr float kNullWert = 1E-37f;
// The widest count of an increment pair that still fits five digits, and the widest group.
constexpr int kMaxAnzahl = 99;
constexpr int kMaxGruppe = 999;

constexpr std::size_t kFormelWidth = 12, kNameWidth = 40, kCasWidth = 12;

// Where a field lives in the session, for component i.
struct Zugriff {
  std::function<std::string&(Session&, std::size_t)> text;
  std::size_t textBreite = 0;
  std::function<float&(Session&, std::size_t)> zahl;
  std::function<int16_t&(Session&, std::size_t)> grenze;
  bool mod = false;  // increments: Mod. UNIFAC (true) or UNIFAC
  int slot = 0;      // increments: pair 0..6
};

struct Feld {
  AEditFeldDef def;
  Zugriff z;
};

std::vector<Feld> BaueFelder() {
  std::vector<Feld> v;
  const auto text = [&v](const char* cap, std::size_t width, std::function<std::string&(Session&, std::size_t)> g) {
    Feld f{{0, "", cap, "", AEditArt::Text}, {}};
    f.z.text = std::move(g);
    f.z.textBreite = width;
    v.push_back(std::move(f));
  };
  const auto zahl = [&v](int16_t tab, const char* gruppe, const char* cap, const char* unit,
                         std::function<float&(Session&, std::size_t)> g) {
    Feld f{{tab, gruppe, cap, unit, AEditArt::Zahl}, {}};
    f.z.zahl = std::move(g);
    v.push_back(std::move(f));
  };
  const auto grenzen = [&v](int16_t tab, const char* gruppe, std::function<int16_t&(Session&, std::size_t)> lo,
                            std::function<int16_t&(Session&, std::size_t)> hi) {
    Feld a{{tab, gruppe, "T(Lo)", "K", AEditArt::Grenze}, {}};
    a.z.grenze = std::move(lo);
    v.push_back(std::move(a));
    Feld b{{tab, gruppe, "T(Hi)", "K", AEditArt::Grenze}, {}};
    b.z.grenze = std::move(hi);
    v.push_back(std::move(b));
  };

  // "Single values".
  text("name", kNameWidth, [](Session& s, std::size_t i) -> std::string& { return s.StoffData[i].Name; });
  text("formula", kFormelWidth, [](Session& s, std::size_t i) -> std::string& { return s.StoffData[i].Formel; });
  text("CASRN", kCasWidth, [](Session& s, std::size_t i) -> std::string& { return s.StoffData[i].CasNr; });
  zahl(0, "", "mol. mass", "kg/kmol", [](Session& s, std::size_t i) -> float& { return s.MolMasse[i]; });
  zahl(0, "", "normal boiling T", "K", [](Session& s, std::size_t i) -> float& { return s.StoffData[i].TSiedeDb; });
  zahl(0, "", "melting T", "K", [](Session& s, std::size_t i) -> float& { return s.StoffData[i].TSchmelz; });
  zahl(0, "", "T(cr)", "K", [](Session& s, std::size_t i) -> float& { return s.TKrit[i]; });
  zahl(0, "", "p(cr)", "kPa", [](Session& s, std::size_t i) -> float& { return s.PKrit[i]; });
  zahl(0, "", "rho(cr)", "kg/m^3", [](Session& s, std::size_t i) -> float& { return s.RhoKrit[i]; });
  zahl(0, "", "omega", "", [](Session& s, std::size_t i) -> float& { return s.Omega[i]; });
  zahl(0, "", "UNIQUAC R-Parameter", "", [](Session& s, std::size_t i) -> float& { return s.StoffData[i].RUniquac; });
  zahl(0, "", "UNIQUAC Q-Parameter", "", [](Session& s, std::size_t i) -> float& { return s.StoffData[i].QUniquac; });
  zahl(0, "", "WILSON volume-parameter  v/ (cm^3/mol)", "",
       [](Session& s, std::size_t i) -> float& { return s.StoffData[i].VWilsonDb; });

  // "Vapour press.": WAGNER slots 1..10.
  static const char* const kWag[10] = {"A1", "A2", "A3", "n3", "A4", "n4", "A5", "n5", "Tcrit", "pcrit"};
  static const char* const kWagUnit[10] = {"", "", "", "", "", "", "", "", "K", "kPa"};
  for (int k = 1; k <= 10; ++k)
    zahl(1, kGruppeWagner, kWag[k - 1], kWagUnit[k - 1], [k](Session& s, std::size_t i) -> float& { return s.ParWAG[i][k]; });
  grenzen(1, kGruppeWagner, [](Session& s, std::size_t i) -> int16_t& { return s.ParWAG[i].TLo; },
          [](Session& s, std::size_t i) -> int16_t& { return s.ParWAG[i].THi; });
  for (const bool low : {true, false}) {
    const char* g = low ? kGruppeALP : kGruppeAHP;
    const auto par = [low](Session& s, std::size_t i) -> ParAntoine& { return low ? s.ParALP[i] : s.ParAHP[i]; };
    zahl(1, g, "A", "", [par](Session& s, std::size_t i) -> float& { return par(s, i).A; });
    zahl(1, g, "B", "", [par](Session& s, std::size_t i) -> float& { return par(s, i).B; });
    zahl(1, g, "C", "", [par](Session& s, std::size_t i) -> float& { return par(s, i).C; });
    grenzen(1, g, [par](Session& s, std::size_t i) -> int16_t& { return par(s, i).TLo; },
            [par](Session& s, std::size_t i) -> int16_t& { return par(s, i).THi; });
  }
  static const char* const kFro[9] = {"A", "B", "C", "D", "E", "F", "G", "H", "I"};
  for (int k = 1; k <= 9; ++k)
    zahl(1, kGruppeFrost, kFro[k - 1], "", [k](Session& s, std::size_t i) -> float& { return s.ParFRO[i][k]; });
  grenzen(1, kGruppeFrost, [](Session& s, std::size_t i) -> int16_t& { return s.ParFRO[i].TLo; },
          [](Session& s, std::size_t i) -> int16_t& { return s.ParFRO[i].THi; });
  zahl(1, kGruppeAugust, "A", "", [](Session& s, std::size_t i) -> float& { return s.ParAUG[i].A; });
  zahl(1, kGruppeAugust, "B", "K", [](Session& s, std::size_t i) -> float& { return s.ParAUG[i].B; });
  grenzen(1, kGruppeAugust, [](Session& s, std::size_t i) -> int16_t& { return s.ParAUG[i].TLo; },
          [](Session& s, std::size_t i) -> int16_t& { return s.ParAUG[i].THi; });

  // "L-Density": slots 1..7 and the T(cr) of the function.
  static const char* const kRho[8] = {"C1", "C2", "C3", "C4", "C5", "C6", "C7", "T(cr)"};
  for (int k = 1; k <= 8; ++k)
    zahl(2, kGruppeRho, kRho[k - 1], k == 8 ? "K" : "", [k](Session& s, std::size_t i) -> float& { return s.ParRho[i][k]; });
  grenzen(2, kGruppeRho, [](Session& s, std::size_t i) -> int16_t& { return s.ParRho[i].TLo; },
          [](Session& s, std::size_t i) -> int16_t& { return s.ParRho[i].THi; });

  // "Mod-UNIFAC" and "Original UNIFAC": seven pairs each.
  static const char* const kAnz[7] = {"1: times", "2: times", "3: times", "4: times", "5: times", "6: times", "7: times"};
  static const char* const kGrp[7] = {"1: group #", "2: group #", "3: group #", "4: group #", "5: group #",
                                      "6: group #", "7: group #"};
  for (const bool mod : {true, false}) {
    for (int k = 0; k < kInkrSlots; ++k) {
      Feld a{{static_cast<int16_t>(mod ? 3 : 4), mod ? kGruppeModUnif : kGruppeOUnif, kAnz[k], "", AEditArt::Anzahl}, {}};
      a.z.mod = mod;
      a.z.slot = k;
      v.push_back(a);
      Feld b{{static_cast<int16_t>(mod ? 3 : 4), mod ? kGruppeModUnif : kGruppeOUnif, kGrp[k], "", AEditArt::Gruppe}, {}};
      b.z.mod = mod;
      b.z.slot = k;
      v.push_back(b);
    }
  }
  return v;
}

const std::vector<Feld>& Felder() {
  static const std::vector<Feld> felder = BaueFelder();
  return felder;
}

std::string FeldName(const AEditFeldDef& d) {
  const std::string g = Trim(d.Gruppe);
  return g.empty() ? std::string(d.Caption) : g + " " + d.Caption;
}

// A number typed into a field: blanks around it are ignored and a comma counts as a point.
bool LeseZahl(const std::string& text, double& v) {
  std::string t = Trim(text);
  for (char& c : t)
    if (c == ',') c = '.';
  return ParseNumber(t, v);
}

bool IstLeer(const std::string& text) {
  const std::string t = Trim(text);
  return t.empty() || t == kLeerFeld;
}

const std::string& Inkr(const Session& s, std::size_t i, bool mod) {
  return mod ? s.StoffData[i].ModUnifInkr : s.StoffData[i].OUnifInkr;
}

// Whether the equation of a code is present for component i.
bool GleichungDa(const Session& s, std::size_t i, const std::string& code) {
  if (code == "FRO") return std::abs(s.ParFRO[i].TLo) != 0;
  if (code == "WAG") return s.ParWAG[i].TLo != 0;
  if (code == "ALP") return s.ParALP[i].TLo != 0;
  if (code == "AHP") return s.ParAHP[i].TLo != 0;
  if (code == "AUG") return s.ParAUG[i].A > kPresent;
  return false;
}

// Step 4: what the load derives from the copied data, made again for the whole mixture. The
// AUGUST parameters are the user's own here (cmdCorrelateAUGUST recalculates them on request),
// so they are not rebuilt.
void Nachrechnen(Session& s) {
  s.TKritMax = 0;
  s.PKritMax = 0;
  s.AlleOmega = true;
  s.AlleVWilson = true;
  for (int i = 1; i <= s.NKomp; ++i) {
    const auto k = static_cast<std::size_t>(i);
    if (s.TKrit[k] > s.TKritMax) s.TKritMax = s.TKrit[k];
    if (s.PKrit[k] > s.PKritMax) s.PKritMax = s.PKrit[k];
    if (std::fabs(static_cast<double>(s.Omega[k])) <= kPresent) s.AlleOmega = false;
    s.VLiqCm3[k] = s.StoffData[k].VWilsonDb;
    if (s.StoffData[k].VWilsonDb <= kPresent) s.AlleVWilson = false;
    // An equation the user removed can no longer be the chosen one: the rule of the load picks
    // another (the last that holds wins: FRO, WAG, ALP, AHP, AUG).
    if (!GleichungDa(s, k, Trim(s.P0Eq[k]))) {
      std::string code;
      for (const char* c : {"AUG", "AHP", "ALP", "WAG", "FRO"})
        if (GleichungDa(s, k, c)) code = c;
      s.P0Eq[k] = code;
    }
  }
  int16_t err = 0;
  PairCrit(s, err);
  s.KritOK = err == 0;
  for (int i = 1; i <= s.NKomp; ++i) {
    const auto k = static_cast<std::size_t>(i);
    std::string code = s.P0Eq[k];
    int16_t e = 0;
    std::string info;
    s.TSiede[k] = BoilingT(s, i, code, e, info);
    s.P0Eq[k] = code;
  }
}

// Values outside physical sense, which are kept as typed but flagged.
void Pruefen(const Session& s, std::size_t i, std::vector<std::string>& flags) {
  const auto negativ = [&flags](float v, const char* name) {
    if (v < 0) flags.push_back(std::string(name) + " is negative");
  };
  negativ(s.MolMasse[i], "mol. mass");
  negativ(s.TKrit[i], "T(cr)");
  negativ(s.PKrit[i], "p(cr)");
  negativ(s.RhoKrit[i], "rho(cr)");
  negativ(s.StoffData[i].TSiedeDb, "normal boiling T");
  negativ(s.StoffData[i].VWilsonDb, "WILSON volume");
  const float tb = s.StoffData[i].TSiedeDb;
  if (s.TKrit[i] > kPresent && tb > kPresent && s.TKrit[i] < tb) flags.push_back("T(cr) is below the normal boiling T");
  const auto grenzen = [&flags](int16_t lo, int16_t hi, const char* name) {
    if (lo != 0 && hi != 0 && lo > hi) flags.push_back(Trim(name) + ": T(Lo) above T(Hi)");
  };
  grenzen(s.ParWAG[i].TLo, s.ParWAG[i].THi, kGruppeWagner);
  grenzen(s.ParALP[i].TLo, s.ParALP[i].THi, kGruppeALP);
  grenzen(s.ParAHP[i].TLo, s.ParAHP[i].THi, kGruppeAHP);
  grenzen(static_cast<int16_t>(std::abs(s.ParFRO[i].TLo)), s.ParFRO[i].THi, kGruppeFrost);
  grenzen(s.ParRho[i].TLo, s.ParRho[i].THi, kGruppeRho);
  const bool crit = s.TKrit[i] > kPresent && s.PKrit[i] > kPresent;
  if (!crit && s.ParALP[i].TLo == 0 && s.ParAHP[i].TLo == 0 && s.ParFRO[i].TLo == 0 && s.ParWAG[i].TLo == 0)
    flags.push_back("neither a vapour pressure equation nor T(cr)/p(cr)");
}

}  // namespace

const std::vector<AEditFeldDef>& AEditFelder() {
  static const std::vector<AEditFeldDef> defs = [] {
    std::vector<AEditFeldDef> d;
    for (const Feld& f : Felder()) d.push_back(f.def);
    return d;
  }();
  return defs;
}

int AEditFeld(const std::string& gruppe, const std::string& caption) {
  const auto& d = AEditFelder();
  for (std::size_t k = 0; k < d.size(); ++k)
    if (gruppe == d[k].Gruppe && caption == d[k].Caption) return static_cast<int>(k);
  return -1;
}

int AEditHelpTopic(int tab) {
  switch (tab) {
    case 1: return kAEditHelpDampfdruck;
    case 2: return kAEditHelpDichte;
    case 3:
    case 4: return kAEditHelpUnifac;
    default: return kAEditHelp;
  }
}

std::string AEditZahlText(float v) {
  if (v == 0) return kLeerFeld;
  return WriteSgl(v);
}

void frmAEdit::Anzeigen(Session& s, int i) {
  const auto k = static_cast<std::size_t>(i);
  const auto& felder = Felder();
  Text.assign(felder.size(), std::string());
  InkrPaare anz[2], grp[2];
  AInkrFelder(Inkr(s, k, true), anz[0], grp[0]);
  AInkrFelder(Inkr(s, k, false), anz[1], grp[1]);
  for (std::size_t n = 0; n < felder.size(); ++n) {
    const Feld& f = felder[n];
    const auto slot = static_cast<std::size_t>(f.z.slot);
    switch (f.def.Art) {
      case AEditArt::Text: Text[n] = Trim(f.z.text(s, k)); break;
      case AEditArt::Zahl: Text[n] = AEditZahlText(f.z.zahl(s, k)); break;
      case AEditArt::Grenze: {
        const int16_t t = f.z.grenze(s, k);
        Text[n] = t == 0 ? std::string(kLeerFeld) : std::to_string(t);
        break;
      }
      case AEditArt::Anzahl: Text[n] = std::to_string(anz[f.z.mod ? 0 : 1][slot]); break;
      case AEditArt::Gruppe: Text[n] = std::to_string(grp[f.z.mod ? 0 : 1][slot]); break;
    }
  }
  Stand = Text;
  lblGleichung = std::string(kAktuelleGleichung) + " " + Trim(s.P0Eq[k]);
  const int place = s.KompIdx[k];
  lblSystemNr = "KDB Syst.No: ";
  if (place >= 1 && static_cast<std::size_t>(place) < s.BankNr.size())
    lblSystemNr += std::to_string(s.BankNr[static_cast<std::size_t>(place)]);
}

void frmAEdit::Load(mdiPEQ& f, int i) {
  if (i < 1 || i > f.s.NKomp) return;
  Caption = kAEditCaption;
  EditKomp = static_cast<int16_t>(i);
  NurLesen = false;
  fremd_.reset();
  Hinweis.clear();
  cmdUpEnabled = i > 1;
  cmdDownEnabled = i < f.s.NKomp;
  Anzeigen(f.s, i);
}

bool frmAEdit::LoadPlatz(mdiPEQ& f, int place) {
  const Session& s = f.s;
  Q07Record r;
  std::string err;
  if (!ReadQ07Record(BankPfadDatei(s), place + 1, r, err)) {
    f.ui.MsgBox("Error", err, MsgIcon::Stop);
    return false;
  }
  auto o = std::make_unique<Session>();
  o->PfadBank = s.PfadBank;
  o->BankDatei = s.BankDatei;
  o->NamenEnglisch = s.NamenEnglisch;
  o->BankNr = s.BankNr;
  o->NKomp = 1;
  AllocSession(*o, 1);
  o->KompIdx[1] = static_cast<int16_t>(place);
  // A substance the mixture could not use is still shown: the messages of the load are not.
  MsgSink stumm;
  bool ok = false;
  LoadSubstances(*o, ok, &stumm);
  fremd_ = std::move(o);
  Caption = kAEditCaption;
  EditKomp = 0;
  NurLesen = true;
  Hinweis.clear();
  cmdUpEnabled = cmdDownEnabled = false;
  Anzeigen(*fremd_, 1);
  return true;
}

void frmAEdit::AEditUebernehmen(Session& s, std::vector<std::string>& bad, std::vector<std::string>& flags) {
  if (EditKomp < 1 || EditKomp > s.NKomp) return;
  const auto k = static_cast<std::size_t>(EditKomp);
  // 1. The models must be accepted again.
  s.UnifacNeu = true;
  s.GEModel = -1;

  // 2. Each field in the order of the session record.
  const auto& felder = Felder();
  InkrPaare anz[2], grp[2];
  AInkrFelder(Inkr(s, k, true), anz[0], grp[0]);
  AInkrFelder(Inkr(s, k, false), anz[1], grp[1]);
  for (std::size_t n = 0; n < felder.size() && n < Text.size(); ++n) {
    const Feld& f = felder[n];
    const std::string& t = Text[n];
    double v = 0;
    const bool leer = IstLeer(t);
    const bool zahl = leer || LeseZahl(t, v);
    try {
      switch (f.def.Art) {
        case AEditArt::Text: f.z.text(s, k) = FixedField(Trim(t), f.z.textBreite); continue;
        case AEditArt::Zahl:
          if (!zahl) break;
          f.z.zahl(s, k) = leer ? 0.0f : (v == 0 ? kNullWert : CSng(v));
          continue;
        case AEditArt::Grenze:
          if (!zahl) break;
          f.z.grenze(s, k) = leer ? int16_t{0} : CInt(v);
          continue;
        case AEditArt::Anzahl:
        case AEditArt::Gruppe: {
          const int grenze = f.def.Art == AEditArt::Anzahl ? kMaxAnzahl : kMaxGruppe;
          if (!zahl || v != std::floor(v) || v < 0 || v > grenze) break;
          auto& ziel = f.def.Art == AEditArt::Anzahl ? anz[f.z.mod ? 0 : 1] : grp[f.z.mod ? 0 : 1];
          ziel[static_cast<std::size_t>(f.z.slot)] = static_cast<int32_t>(v);
          continue;
        }
      }
    } catch (const NumericFault&) {
      // Beyond the width of the field: kept as it was.
    }
    bad.push_back(FeldName(f.def));
  }

  // 3. The increment texts.
  s.StoffData[k].ModUnifInkr = AInkrText(anz[0], grp[0]);
  s.StoffData[k].OUnifInkr = AInkrText(anz[1], grp[1]);

  // 4. What the load derives from the data.
  Nachrechnen(s);
  Pruefen(s, k, flags);
}

void frmAEdit::OK(mdiPEQ& f) {
  if (NurLesen || EditKomp < 1 || EditKomp > f.s.NKomp) return;
  std::vector<std::string> bad, flags;
  AEditUebernehmen(f.s, bad, flags);
  Anzeigen(f.s, EditKomp);
  Gating(GateEvent::ModelsToConfirm, f.s, f.cmds);
  f.UpdateKomponentenMenue();
  f.CommandsChanged();
  // An open model window must not bring the old acceptance back: its Cancel now restores "no
  // model" and the equation codes as they stand after Apply. Its choices stay for "Models OK".
  if (f.IsLoaded(WindowId::frmVModell)) {
    f.VModell.GEModelKopie = -1;
    f.VModell.P0EqKopie = f.s.P0Eq;
    f.ui.Refresh(WindowId::frmVModell);
  }
  Hinweis.clear();
  if (!flags.empty()) {
    Hinweis = "Check the data of " + Trim(f.s.StoffData[static_cast<std::size_t>(EditKomp)].Name) + ": ";
    for (std::size_t n = 0; n < flags.size(); ++n) Hinweis += (n ? "; " : "") + flags[n];
    f.ui.StatusLine(Hinweis);
  }
  if (!bad.empty()) {
    std::string text = "Not a valid number, the old value is kept:";
    for (const std::string& b : bad) text += kNL + b;
    f.ui.MsgBox("WARNING", text, MsgIcon::Warning);
  }
}

bool frmAEdit::Verlassen(mdiPEQ& f) {
  if (NurLesen || !Geaendert()) return true;
  return f.ui.MsgBox("WARNING", std::string(kAEditEscFrage1) + kNL + kAEditEscFrage2, MsgIcon::Warning,
                     Buttons::YesNo) == Answer::Yes;
}

bool frmAEdit::esc(mdiPEQ& f) {
  if (!Verlassen(f)) return false;
  f.Unload(WindowId::frmAEdit);
  return true;
}

void frmAEdit::cmdUp(mdiPEQ& f) {
  if (NurLesen || EditKomp <= 1 || !Verlassen(f)) return;
  Load(f, EditKomp - 1);
}

void frmAEdit::cmdDown(mdiPEQ& f) {
  if (NurLesen || EditKomp >= f.s.NKomp || !Verlassen(f)) return;
  Load(f, EditKomp + 1);
}

void frmAEdit::cmdCorrelateAUGUST(mdiPEQ&) {
  if (NurLesen) return;
  const auto wert = [this](const char* caption) {
    double v = 0;
    const int n = AEditFeld("", caption);
    if (n < 0 || IstLeer(Text[static_cast<std::size_t>(n)]) || !LeseZahl(Text[static_cast<std::size_t>(n)], v)) return 0.0;
    return v;
  };
  const double tb = wert("normal boiling T");
  const double tc = wert("T(cr)");
  const double pc = wert("p(cr)");
  if (!(tb * tc * pc > static_cast<double>(1E-6f))) return;
  try {
    const double b = chk::Div(tb * tc * chk::Ln(pc / kPNormal), tb - tc);
    const double a = chk::Ln(pc) - chk::Div(b, tc);
    const std::string ta = AEditZahlText(CSng(a));
    const std::string tbx = AEditZahlText(CSng(b));
    Text[static_cast<std::size_t>(AEditFeld(kGruppeAugust, "A"))] = ta;
    Text[static_cast<std::size_t>(AEditFeld(kGruppeAugust, "B"))] = tbx;
  } catch (const NumericFault&) {
    // No line through the two points (T(cr) equal to the boiling point): the fields stay.
  }
}

void frmAEdit::WriteDataBaseQ07(mdiPEQ& f) {
  if (NurLesen) return;
  OK(f);
  Session& s = f.s;
  FileDialogRequest req;
  req.save = true;
  req.title = kWriteBankTitle;
  req.filter = kWriteBankFilter;
  req.defaultExt = kWriteBankExt;
  req.initialDir = s.PfadBank;
  const FileDialogResult r = f.ui.FileDialog(req);
  if (r.cancelled || r.fileTitle.empty() || r.fileName.empty()) return;
  // A name without an extension gets ".Q07".
  std::string file = r.fileName;
  const std::size_t slash = file.find_last_of("\\/");
  if (file.find('.', slash == std::string::npos ? 0 : slash) == std::string::npos) file += kWriteBankExt;
  std::string err;
  f.ui.WaitCursor(true);
  const bool ok = WritePrivateBank(s, file, err);
  f.ui.WaitCursor(false);
  if (!ok) {
    f.ui.MsgBox("Error", err, MsgIcon::Stop);
    return;
  }
  f.ui.StatusLine("Private database saved: " + file);
}

void frmAEdit::cmdUNIFTab(mdiPEQ& f) { f.mnuMUnif_Click(); }
void frmAEdit::cmdOUnifTab(mdiPEQ& f) { f.mnuOUnif_Click(); }
void frmAEdit::cmdHilfe(mdiPEQ& f) { f.ui.ShowHelp(AEditHelpTopic(Tab)); }

}  // namespace peq
