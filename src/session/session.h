// The session record: everything the engine, the diagrams and the windows work on for the one
// open mixture. Component arrays run 0..NKomp with slot 0 unused; pair matrices are 0..NKomp
// in both indices. The widths are part of the numbers: pure-component data are 32-bit reals,
// model results 64-bit.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "models/eos_types.h"
#include "models/gestate.h"
#include "session/arrays.h"
#include "session/message.h"
#include "substances/unifactables.h"

namespace peq {

// Fixed text fields of a substance record (UTF-8 here, code page 1252 in the file), blank padded
// to their width in characters.
struct StoffRecord {
  std::string Formel;       // 12, molecular formula
  std::string Name;         // 40, name cut before a ";"
  std::string CasNr;        // 12, CAS registry number
  std::string ModUnifInkr;  // 41, Mod. UNIFAC increments
  std::string OUnifInkr;    // 41, UNIFAC increments
  float TSiedeDb = 0;       // normal boiling T from the database, K
  float TSchmelz = 0;       // melting T, K
  float VWilsonDb = 0;      // WILSON volume parameter, cm^3/mol
  float RUniquac = 0;
  float QUniquac = 0;
};

// Antoine "lg(p/kPa) = A - B/(C + t/°C)", low- and high-pressure sets.
struct ParAntoine {
  float A = 0, B = 0, C = 0;
  int16_t TLo = 0, THi = 0;
};

// AUGUST "ln(p/kPa) = A + B/T", computed from the boiling and critical points.
struct ParAugust {
  float A = 0, B = 0, Spare = 0;
  int16_t TLo = 0, THi = 0;
};

// A parameter set of N f32 slots with its T limits (FROST 10, WAGNER 11, density 9, delta(LV)h 9).
template <int N>
struct ParSlots {
  std::array<float, N> s{};
  int16_t TLo = 0, THi = 0;
  float& operator[](int k) { return s[static_cast<std::size_t>(k)]; }
  float operator[](int k) const { return s[static_cast<std::size_t>(k)]; }
};
using ParFrost = ParSlots<10>;
using ParWagner = ParSlots<11>;
using ParDensity = ParSlots<9>;
using ParEnthalpy = ParSlots<9>;

// One experimental T-p-x(L)-x(V) point, always in K, kPa and component 2.
struct ExpPunkt {
  int32_t Inaktiv = 0;  // 0 active; non-zero excluded from drawing and fitting
  float T = 0;          // K
  float p = 0;          // kPa
  float x2L = 0;        // liquid mole fraction of component 2
  float x2V = 0;        // vapour mole fraction of component 2, 0 when not measured
  bool operator==(const ExpPunkt&) const = default;
};

struct Session {
  // Counts and identity.
  int16_t NKomp = 0;
  Vec<int16_t> KompIdx;  // 1-based place of the component in the open database
  int16_t Komp1 = 1, Komp2 = 2;
  Vec<StoffRecord> StoffData;

  // Pure-component constants (f32).
  Vec<float> MolMasse, TKrit, PKrit, RhoKrit, Omega;

  // Parameter records per component.
  Vec<ParAugust> ParAUG;
  Vec<ParAntoine> ParALP, ParAHP;
  Vec<ParFrost> ParFRO;
  Vec<ParWagner> ParWAG;
  Vec<ParDensity> ParRho;
  Vec<ParEnthalpy> ParLVH;
  Vec<std::string> P0Eq;  // "ALP", "AHP", "AUG", "FRO", "WAG", "THO" or blank

  // Derived at each load of the substances.
  Vec<float> TSiede;
  Mat<double> TcMix, PcMix, OmegaMix;
  double TKritMax = 0, PKritMax = 0;
  bool AlleOmega = false, AlleVWilson = false, RhoOK = false, KritOK = false;
  bool LoadOK = false;

  // Models.
  bool Konzept = false;  // false gamma-phi, true phi-phi
  int16_t GEModel = -1;
  int16_t VapModel = 0;
  int16_t EOSModel = 4;
  int16_t MixRule = 2;
  int16_t GEModelEOS = 2;
  int16_t ParUnitWilson = 2, ParUnitNRTL = 0, ParUnitUNIQUAC = 0, ParUnitKij = 2;
  Mat3<double> GEPar, GEParAlt;  // (k 1..12, i, j)
  bool WilsonVFix = true;
  bool UnifacNeu = true;
  bool ModelleOffen = true;
  std::string ModUnifFile, OUnifFile;
  UnifacTables Unifac;  // group tables of the parameter files (Mod. UNIFAC and UNIFAC)
  GEState GEWork;       // scratch and temperature-only terms of the activity models

  // Current state and engine work arrays.
  double TIso = 298.15, PIso = 101.325, XIso = 0.5;
  Vec<float> P0, VLiq, VLiqCm3;
  Vec<double> Phi0;
  Mat<double> BVir;
  Vec<double> Gamma, PhiVMix;
  // Work arrays of the pure-property routines (models/liquid, virial, pureprops): a call gathers
  // its results here and stores them into the arrays above only when it ran without an arithmetic
  // fault. Sized on first use for the mixture, so the calls at every T change allocate nothing.
  struct PureWorkArrays {
    Vec<float> VLiq;
    Vec<int16_t> DT;     // dT(i) of LiquidVolumes before it is stored
    Vec<int16_t> DTLiq;  // the dT(i) vector AllPureProps hands to LiquidVolumes
    Vec<double> Phi0;
    Mat<double> BVir;
  } PureWork;

  // ---- Cubic equations of state, vapour phase and equilibrium kernel ----
  // (models/eos*, models/vapourphi, engine/kernel; sized by AllocSession.)
  // Pure-component coefficients committed by EOSSetPure: a parameter at T is the coefficient
  // times T^exponent; EOSaExp holds the m of the alpha function when AlphaArt is 2.
  Vec<double> EOSa0, EOSaExp, EOSb0, EOSc0, EOSd0, EOSbExp, EOScExp, EOSdExp;
  Vec<double> VKrit;       // critical molar volume of the EOS, Zc R Tc/pc, m^3/kmol
  Vec<double> RhoKritEOS;  // MolMasse/VKrit, kg/m^3 (set only when VKrit > 1E-6)
  Vec<int16_t> AlphaArt;   // 1 power law in T, 2 alpha function of the Soave form
  // EOSPar[k][i]: a, b, c, d (k = 1..4) of component i at the T of the last EOSPureAt, and
  // their first and second temperature derivatives (EOSPureDT).
  std::array<Vec<double>, 5> EOSPar, EOSParDT, EOSParD2T;
  EOSWork EOSScratch;  // pair tables of the mixing rules, mixture parameters, phi of both phases
  // Results of the last kernel calculation.
  Vec<double> PhiKorr;  // combined vapour and pressure correction (1 for the ideal gas)
  Vec<double> KWert;    // equilibrium ratios y(i)/x(i)
  Vec<double> YGas;     // vapour composition of the last bubble calculation
  Vec<double> XLiq;     // liquid composition of the last dew calculation
  std::array<Vec<double>, 2> CompMat;  // CompMat[col][i]: col 0 liquid, col 1 vapour, for the EOS
  KernelWork KernScratch;
  // Work arrays of the flashes and the single-point routine (engine/flash, engine/singlecalc):
  // the feed, the two coefficients D, E of the flash function, a composition, a vapour
  // composition and vapour fugacity coefficients. Sized on first use for the mixture, so the
  // rounds of a flash allocate nothing.
  struct FlashWorkArrays {
    Vec<double> Z, D, E, X, Y, Phi;
  } FlashWork;
  // Safeguarded equilibrium calculation (engine/safeguard): a failed or trivial bubble point or
  // flash is retried once from independent start values. On by default; the options window
  // switches it and the settings store keeps the choice. Retried is -1 when the answer of the
  // last safeguarded call came from its retry, else 0.
  bool Safeguard = true;
  int16_t Retried = 0;
  // Copies of the result arrays taken when a retry starts, so that a retry that fails leaves
  // the arrays as the first attempt left them; start values and work arrays of the retries.
  // Sized on the first retry of the mixture.
  struct SafeguardWorkArrays {
    Vec<float> P0, VLiq;
    Vec<double> Phi0, Gamma, PhiVMix, PhiKorr, KWert, YGas, XLiq, Comp0, Comp1;
    Vec<double> Arg1, Arg2, Arg3;  // the caller's own gamma, PhiK, K arrays
    Mat<double> BVir;
    Vec<double> Z, X, Y, K, LnK;  // feed, start values, K of the successive substitution
    int RoundsLeft = 0;           // substitution rounds the current safeguarded flash may still spend
  } SafeWork;
  // ---- end of the EOS and kernel block ----

  // Units and output settings.
  double TOffsetIn = 273.15, TOffsetOut = 273.15;
  int16_t ConcUnit = 0;
  int16_t FuUnit = 0;
  float FuFaktor = 1;
  int16_t KurvenPunkte = 600;
  std::string ListTrenner = ";";
  bool DezKomma = false;
  int16_t IsoArt = 1;

  // Database index of the open file (record n+1 of the file is substance n).
  int16_t BankAnz = 0;
  Vec<std::string> BankCAS, BankName, BankFormel;  // 1..BankAnz
  Vec<int16_t> BankNr;
  std::string BankDatei;  // bare file name of the open database, empty when none
  bool BankOffen = false;
  bool NamenEnglisch = true;

  // Remembered directories (each ends with a path separator or is empty).
  std::string PfadBank, PfadProjekt, PfadXY, PfadOC2, PfadOC3;

  // Project.
  std::string ProjektDatei, ProjektKommentar;

  // Single-point input.
  double TCalc = 298.15, PCalc = 101.325, EtaVCalc = 0;
  int16_t Rechenart = 1, CalcEinheit1 = 0, CalcEinheit2 = 0;
  // The state calculation (calculation input and result windows).
  Vec<float> FeedN;          // amount of each component in the feed, kmol
  Vec<double> Feed;          // mole fractions of the feed, normalised from FeedN
  int16_t CalcVorgabe = 2;   // given pair: 0 T and eta(V), 1 p and eta(V), 2 p and T
  int16_t CalcEinheit = 0;   // feed input: 0 amounts in kmol, 1 masses in kg
  int16_t CalcArt = 1;       // 1 flash, any other value activity coefficients only

  // Binary diagrams: coordinates of the current diagram in display units, and the mixing gap
  // found for it.
  float XMin = 0, XMax = 1, YMin = 0, YMax = 1;
  bool HatGap = false;    // the last curve calculation found a mixing gap
  bool GapAktiv = false;  // the current diagram honours the gap
  // Choices of the diagram input window frmTpxInput: draw the real curve over a mixing gap
  // (chkRealKurve, -1 on, 0 off), and "Draw curve now" (the caller draws the first curve at once).
  int16_t RealKurve = 0;
  bool SofortZeichnen = false;
  // The gap of the current diagram in the pair's orientation: the two liquid compositions x2,
  // the ordinate values that belong to them (p or T of the three-phase line) and the vapour y.
  float GapX1 = 0, GapX2 = 0, GapW1 = 0, GapW2 = 0, GapY = 0;
  // Five-point temperature derivatives of the excess functions: T, step h in K, index of the
  // target quantity, and the five function values.
  struct ExcessState {
    double T = 0;
    double h = 0.75;
    int16_t Ziel = 0;
    std::array<double, 5> f{};
  } Excess;

  // Diagram and design choices kept in projects.
  bool ThieleOption = false;
  bool TpxVorgabe = true;
  bool Konoden3D = false;

  // Batch distillation (kept in projects).
  Vec<float> StoffMenge;  // kmol in the stillpot, per component
  float RueckLauf = 0, DruckVerlust = 0;
  int16_t NBoden = 0, NFrak = 0, NSchritte = 0;
  float BatchGenau = 0, BatchMaxIter = 0;
  int16_t RestProzent = 0;
  float BatchZeit = 0;

  // Counter of the 2D diagram window, reset with the models.
  int32_t DiagrammZaehler = 0;

  // Requests of the frame's commands (windows/shell): the last diagram asked for, the held
  // experimental points, the result record of the session.
  int16_t NoDia = 0;            // 2D diagram number of the last diagram command
  int16_t NoDia3 = 0;           // surface of the last 3D diagram command
  bool DiagMitExp = false;      // that diagram can carry experimental points
  bool DiagAbbruch = false;     // its T/p input window was cancelled
  int16_t ExpAnz = 0;           // number of experimental T-p-x points held
  std::string ExpDatei;         // the EX5 file they came from
  bool ExpUngespeichert = false;  // entered or changed and not yet saved
  Vec<ExpPunkt> ExpPunkte;      // 1..ExpAnz (slot 0 unused); may hold more than ExpAnz
  std::string ExpKommentar1, ExpKommentar2;
  std::string ExpTitel;         // the two names of the loaded file, empty when none
  bool ExpNeuEingabe = false;   // the data window was opened for new input
  int16_t XYAnz = 0;            // lines of the XY editor's list
  std::string XYDatei;          // its file
  bool KonsTestAktiv = false;   // the consistency test owns the fitting window
  std::string ProtokollDatei;   // result record of this session (full path)
  bool ProtokollAktiv = false;  // the record is being kept
  Vec<std::string> ProtokollZeile;  // one row of the record, 1..columns
  int16_t ProtokollNr = 0;      // lines recorded in the open record file
  int16_t ProtokollArt = 0;     // kind of its last column head: 1 flash, 2 activity coefficients
};

// Number of GEPar layers: k runs 1..12, slot 0 unused.
inline constexpr int kGEParDepth = 13;

// Re-dimensions every per-component array and pair matrix for n components and clears them.
void AllocSession(Session& s, int n);

// Clears the models of the mixture: UnifacNeu true, GEModel -1, P0Eq blank, KompIdx 0, every
// GEPar zero, the diagram counter reset, ModelleOffen set. (The menu side is the shell's.)
void ResetModels(Session& s);

// The substance selection's "Mixture OK": stores the mixture of the given database places
// (1-based, index 1..n of kompIdx), resets models and state and loads the substances.
// Returns LoadSubstances' ok; messages of the load go to sink.
bool SelectionCommit(Session& s, int n, const Vec<int16_t>& kompIdx, MsgSink* sink);

}  // namespace peq
