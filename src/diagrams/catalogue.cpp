// The catalogue of binary diagrams: model label, titles and axis texts, number of curves, kind
// of the fixed quantity. The default coordinates are in koordinaten.cpp.
#include "diagrams/catalogue.h"

namespace peq {

namespace {

// Names of the cubic equations of state and of the mixing rules, as the model window offers
// them.
const char* EOSName(int16_t model) {
  switch (model) {
    case 3: return "CEOS Redlich / Kwong";
    case 4: return "CEOS SRK";
    case 5: return "CEOS Peng / Robinson";
    case 6: return "CEOS v. d. Waals";
    default: return "";
  }
}

const char* MixRuleName(int16_t rule) {
  switch (rule) {
    case 1:
    case 2: return "v.d.Waals mixing-rule";
    case 5: return "GE mixing-rule, p => oo";
    case 6: return "GE mixing-rule, p => 0";
    default: return "";
  }
}

const char* LiquidLabel(int16_t geModel) {
  switch (geModel) {
    case 0: return " L: ideal mixture";
    case 1: return " L: Wilson";
    case 2: return " L: NRTL";
    case 4: return " L: Redlich/Kister";
    case 9: return " L: UNIQUAC";
    case 20: return " L: Mod. UNIFAC";
    case 21: return " L: UNIFAC";
    default: return "";
  }
}

const char* VapourLabel(int16_t vapModel) {
  switch (vapModel) {
    case 0: return ", V: ideal gas ";
    case 1:
    case 2: return ", V: virial equation";
    case 3: return ", V: EOS Redlich/Kwong ";
    case 4: return ", V:EOS Soave/Redlich/Kwong ";
    case 5: return ", V: EOS Peng/Robinson ";
    default: return "";
  }
}

// One of three texts by the energy unit FuUnit (0 SI, 1 SI/R, 2 SI/(R T)).
std::string ByFuUnit(const Session& s, const char* si, const char* perR, const char* perRT) {
  switch (s.FuUnit) {
    case 1: return perR;
    case 2: return perRT;
    default: return si;
  }
}

bool InCelsius(const Session& s) { return s.TOffsetOut != 0; }

}  // namespace

std::string ModellText(const Session& s) {
  if (s.Konzept) return std::string(EOSName(s.EOSModel)) + ", MR: " + MixRuleName(s.MixRule);
  return std::string(LiquidLabel(s.GEModel)) + VapourLabel(s.VapModel);
}

int16_t IsoArtVon(int16_t NoDia) {
  switch (NoDia) {
    case 800: case 100: case 500: case 1: case 3: case 5: case 8: case 81: case 9: case 10:
    case 15: case 16: case 17: case 181:
      return 1;
    case 4: case 6: case 11: case 51: case 82: case 83: case 182:
      return 2;
    case 7: case 183:
      return 3;
    default:
      break;
  }
  if ((NoDia >= 110 && NoDia <= 116) || (NoDia >= 120 && NoDia <= 126)) return 1;
  return 0;
}

bool GapAktivVon(int16_t NoDia) {
  return NoDia == 1 || NoDia == 3 || NoDia == 4 || NoDia == 6 || NoDia == 110 || NoDia == 120;
}

bool DiagrammTitel(const Session& s, int16_t NoDia, DiagrammTexte& t) {
  const bool mass = s.ConcUnit != 0;
  const std::string xDefault = mass ? "mass fraction ksi(L)" : "mole fraction x(L)";
  const std::string tAxis = InCelsius(s) ? "t/°C " : "T/K ";
  std::string titel;  // the text of the table; the model label and ")" follow
  std::string x = xDefault, y;
  bool mitModell = true;

  switch (NoDia) {
    case 1:
      titel = "Isothermal phase diagramm p - x (";
      x = mass ? "mass fraction ksi" : "mole fraction x";
      y = "p/kPa  ";
      break;
    case 3:
    case 6:
      titel = std::string("Equilibrium curve") + (NoDia == 3 ? "(isothermal)  (" : "(isobaric)  (");
      y = mass ? "mass fraction ksi(V)" : "mole fraction x(V)";
      break;
    case 4:
      titel = "Isobaric phase diagramm T - x  (";
      x = mass ? "mass fraction ksi" : "molar fraction x  ";
      y = tAxis;
      break;
    case 5:
      titel = "Ki = xi(V)/xi(L) (isothermal) (";
      y = "K";
      break;
    case 51:
      titel = "Ki = xi(V)/xi(L) (isobaric) (";
      y = "K";
      break;
    case 7:
      titel = "Vapour pressure curve of the mixture (isosteric) (";
      x = InCelsius(s) ? "t/°C  " : "T/K ";
      y = "p/kPa  ";
      break;
    case 8:
    case 82:
      titel = NoDia == 8 ? "activity coefficients (isothermal) (" : "activity coefficients (isobaric) (";
      y = "f(i)  ";
      break;
    case 81:
    case 83:
      titel = NoDia == 81 ? "ln of the activ. coeff. (isothermal)  (" : "ln of the activ. coeff. (isobaric)  (";
      y = "ln f(i) ";
      break;
    case 9:
      titel = "consistency of activ. coeff.: ln(f2/f1) vs. x(i)  (equal areas !) (isothermal) (";
      y = "ln (f2 / f1)  ";
      break;
    case 10:
    case 11:
      titel = NoDia == 10 ? "relative volatility alpha (isothermal) (" : "relative volatility alpha (isobaric) (";
      y = "alpha(1,2)";
      break;
    case 110:
      titel = "molar Gibbs excess function gE (isothermal) (";
      y = ByFuUnit(s, "gE/ (kJ/kmol) ", "(gE/R)/ K ", "gE/(R T)");
      break;
    case 120:
      titel = "molar Gibbs function of mixing delta(M)g (isothermal)  (";
      y = ByFuUnit(s, "delta(M)g/ (kJ/kmol) ", "(delta(M)g/R)/ K", "delta(M)g/(R T)");
      break;
    case 15:
      titel = "molar enthalpy of mixing delta(M)h (isothermal)  (";
      y = ByFuUnit(s, "delta(M)h/ (kJ/kmol) ", "(delta(M)h/R)/ K", "delta(M)h/(R T)");
      break;
    case 16:
      titel = "molar excess entropy  T*sE (isothermal) (";
      y = ByFuUnit(s, "(T * sE)/ (kJ/kmol) ", "((T * sE)/R)/ K", "(T * sE)/(R T)");
      break;
    case 17:
      titel = "mol. excess heat capacity cpE(";
      y = ByFuUnit(s, "cpE/(kJ/kmol/K) ", "(cpE/R) ", "(cpE/RT)/ (1/K) ");
      break;
    case 181:
    case 182:
      titel = std::string("Densities in the PEQ") + (NoDia == 181 ? " (isothermal)" : " (isobaric)");
      y = "rho(L), rhoV /(kg / m^3)";
      break;
    case 183:
      titel = "Densities in the PEQ (isosteric)";
      x = InCelsius(s) ? "t/°C " : "T/K ";
      y = "rho(L), rhoV /(kg / m^3)";
      break;
    case 200:
    case 201:
    case 202:
      mitModell = false;
      if (NoDia == 200)
        titel = "Distillate concentration as a function of progress of the distillation ";
      else if (NoDia == 201)
        titel = "Bottom concentration as a function of progress of the distillation ";
      else
        titel = "Top and bottom temperature as a function of the progress og the distillation";
      x = s.BatchZeit > 0 ? "time of distillation /h" : "percentage of the total time of distillation";
      y = NoDia == 202 ? tAxis : "";
      break;
    case 250:
      mitModell = false;
      titel = "Consistency test for experimental data T-p-x(L)-x(V)";
      y = "x2(V)_exp - x2(V)_calc";
      break;
    default:
      if (NoDia > 110 && NoDia <= 116) {
        titel = "y = " + std::to_string(NoDia - 110) + ". deriv. gE to x2 (isotherm) (";
      } else if (NoDia > 120 && NoDia <= 126) {
        titel = "y = " + std::to_string(NoDia - 120) + ". deriv. delta(M)G to x2 (isothermal) (";
      } else {
        return false;  // an unknown number: no title, no diagram
      }
      y = ByFuUnit(s, "y/ (kJ/kmol) ", "(y/R)/ K ", "y/(R T)");
      break;
  }
  t.Titel = mitModell ? titel + ModellText(s) + ")" : titel;
  t.XAchse = x;
  t.YAchse = y;
  return true;
}

int16_t KurvenAnzahlVon(const Session& s, int16_t NoDia) {
  switch (NoDia) {
    case 1: case 4: case 5: case 51: case 8: case 81: case 82: case 83: case 181: case 182: case 183:
    case 202:
      return 2;
    case 200:
    case 201:
      return s.NKomp;
    case 250:
      return 0;
    default:
      return 1;
  }
}

bool ZentraleGraph(Session& s, int16_t NoDia, GraphAufbau& g) {
  DiagrammTexte t;
  if (!DiagrammTitel(s, NoDia, t)) return false;
  const int16_t iso = IsoArtVon(NoDia);
  if (iso != 0) s.IsoArt = iso;
  s.GapAktiv = GapAktivVon(NoDia);
  // Every family starts with fraction axes; the family's own ranges replace them.
  s.XMin = 0;
  s.XMax = 1;
  s.YMin = 0;
  s.YMax = 1;
  Koordinaten k;
  if (StandardKoordinaten(s, s.TIso, s.PIso, s.Komp1, s.Komp2, NoDia, k)) {
    s.XMin = k.XMin;
    s.XMax = k.XMax;
    s.YMin = k.YMin;
    s.YMax = k.YMax;
  }
  g.Texte = t;
  g.KurvenAnzahl = KurvenAnzahlVon(s, NoDia);
  return true;
}

}  // namespace peq
