// frmCalcOut: the result of one state calculation. Its load step runs the flash that the given
// pair asks for (T-p, p-eta(V), T-eta(V)) or, for the activity-coefficient command, the
// activity coefficients of the feed at T; it shows the phases and can append the result as a
// line to the record file and put the record on the clipboard.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

class mdiPEQ;

// Title and the line under it, by concept.
inline constexpr const char* kCalcOutTitel = "Result of the calculation ";
inline constexpr const char* kTitelGlobal = "(global calculation)";
inline constexpr const char* kTitelPartiell = "(partial calculation)";
inline constexpr const char* kMethodeEOS = "...calculated using Equation Of State (EOS) ";
inline constexpr const char* kMethodeP0 = "...calculated using a vapour pressure equation ";
// Headings by CalcVorgabe (0 T and eta(V), 1 p and eta(V), 2 p and T) and of the activity
// coefficients.
inline constexpr const char* kUeberschrift[3] = {"Pressure and composition for p/kPa = ",
                                                 "Temperature and composition for T/K = ",
                                                 "Vapour fraction and composition foe p/kPa = "};
inline constexpr const char* kUeberschriftT = ", T/K = ";
inline constexpr const char* kUeberschriftAktiv = "Activity coefficients, T/K = ";
// Failures.
inline constexpr const char* kKeineLoesung = "no solution possible";
// The note under the heading when the safeguard's second attempt found the result.
inline constexpr const char* kHinweisWiederholt =
    "Note: the first attempt found no two-phase result; this result comes from a second attempt "
    "with other start values.";
inline constexpr const char* kTpAusserhalb[3] = {
    "With your T-p combination you", "are outside the PEQ range.",
    "Advice: You should get an overview of this situation using the p-x or T-x diagram."};
inline constexpr const char* kRechenfehler = "during the calculation an error occured";
// The delimiter list and its warning.
inline constexpr const char* kTrennerTexte[3] = {"Semicolon", "Comma", "Tab"};
inline constexpr const char* kTrennerZeichen[3] = {";", ",", "\t"};
inline constexpr const char* kWarningTitle = "Warning";
inline constexpr const char* kKommaWarnung[4] = {
    "with computer setting \"Germany\" (decimal character = comma)",
    "it is not reasonable to take the comma as delimiter character;",
    "the content of the clipboard is not Excel-compatible.", "recommended: semicolon"};
// Buttons and lists.
inline constexpr const char* kProtokollCaption = "Record the results";
inline constexpr const char* kOpenNewCaption = "close file / new file / copy record on clipboard";
inline constexpr const char* kCloseCaption = "&Close";
inline constexpr const char* kHelpButtonCaption = "&Help";
inline constexpr const char* kP0Liste = "pure-subst. vapour pressures p0/kPa";
inline constexpr const char* kResUnitCaption[4] = {"amount n/kmol", "mass m/kg", "mole fraction x",
                                                   "mass fraction w"};
inline constexpr const char* kSpalteFeed = "feed";
inline constexpr const char* kSpalteLiquid = "liquid";
inline constexpr const char* kSpalteVapour = "vapour";
inline constexpr const char* kSpalteGamma = "f(i)";
inline constexpr const char* kDateiLabel = "record file: ";
// Help topics: the result of a flash, of activity coefficients, the note on the record.
inline constexpr int kHelpCalcFlash = 17000, kHelpCalcAktiv = 17500, kHelpProtokoll = 96799;

// The number patterns of the window. Each writes a decimal comma when dezKomma is set.
// "0.0000000", and "1.000000" for the value 1 (fractions).
std::string FormatBruch(double v, bool dezKomma = false);
// ".00000E+00": five digits of a mantissa below 1 and a two-digit exponent (amounts).
std::string FormatMenge(double v, bool dezKomma = false);
// "#####.000": three decimals, no leading zero (activity coefficients).
std::string FormatGamma(double v, bool dezKomma = false);
// A fixed number of decimals (T, p, molar masses, densities).
std::string FormatFest(double v, int decimals, bool dezKomma = false);

// What a feed z is at T (K) and p (kPa) where the T-p flash finds no two phases: all vapour
// when p lies below its dew pressure at T (or T above its dew temperature at p), all liquid when
// p lies above its bubble pressure at T (or T below its bubble temperature at p). The dew and
// bubble points come from the flashes with eta(V) 1 and 0. Empty when neither can be told.
std::string EinphasenZustand(Session& s, double T, double p, const Vec<double>& z);

struct frmCalcOut {
  std::string Caption;     // title
  std::string lblMethode;  // the line under the title
  std::string lblUeberschrift;
  std::string lblErgebnis;  // "no solution possible" after a failure, else empty
  std::string lblHinweis;   // kHinweisWiederholt when the safeguard's retry found the result, else empty
  std::string lblZustand;   // a single-phase state of the T-p flash in plain words, else empty
  int16_t Art = 1;          // CalcArt at load
  int16_t Vorgabe = 2;      // CalcVorgabe at load
  bool Geloest = false;     // the calculation gave a result
  bool Wiederholt = false;  // ... found by the safeguard's retry (safeguarded equilibrium)

  // The result: T (K), p (kPa), eta(V), the sum of the feed (kmol) and the phase arrays as the
  // calculation left them (1..NKomp).
  double T = 0, p = 0, eta = 0;
  float Summe = 0;
  Vec<double> xL, xV, gamma;
  Vec<float> p0, vLiq;
  // Mean molar masses (kg/kmol), single precision.
  float ML = 0, MV = 0, MFeed = 0;
  // Densities (kg/m^3) of the phi-phi concept; DichteOK when they could be found.
  bool DichteOK = false;
  double RhoL = 0, RhoV = 0;
  // Activity coefficients: gE/RT and delta(M)g/RT of the feed.
  double GERT = 0, DelMGRT = 0;

  // Shown texts.
  int16_t optResUnit = 2;  // 0 kmol, 1 kg, 2 mole fractions, 3 mass fractions
  std::string txtT, txtp, txtEta, txtML, txtMV, txtMFeed, txtRhoL, txtRhoV, txtGE, txtDelMG;
  std::vector<std::string> lblKomp;                  // 1..NKomp
  std::vector<std::array<std::string, 3>> txtWerte;  // 1..NKomp: feed, liquid, vapour (or x, f(i), p0)
  std::vector<std::string> cmbP0;                    // the heading, then one entry per component
  int16_t cmbSep = 0;                                // 0 semicolon, 1 comma, 2 tab
  std::string lblDatei;                              // the record's name, shortened
  bool cmdProtokollEnabled = false;
  std::string Datum;  // date text of the record (today's, taken at load)

  // The load step: the calculation and the texts.
  void Load(mdiPEQ& f);
  void optResUnit_Click(mdiPEQ& f, int16_t index);
  void cmdProtokoll(mdiPEQ& f);
  void cmdOpenNew(mdiPEQ& f);
  void cmbSep_Click(mdiPEQ& f, int16_t index);
  void cmdClose(mdiPEQ& f);
  void cmdHelp(mdiPEQ& f);
  void cmdHelpProtokoll(mdiPEQ& f);

  // Fills ProtokollZeile(1..) with the result, each value in single precision.
  void ZeileFuellen(Session& s) const;
  // All shown texts from the result.
  void Anzeigen(const Session& s);

 private:
  void Flash(mdiPEQ& f);
  void Aktivitaet(mdiPEQ& f);
  void Festhalten(const Session& s);
};

}  // namespace peq
