// The exchange files of the parameter fitting: TO_FIT.DAT (gE-model parameters, LSQRUN.EXE),
// TO_FITZ.DAT (k(ij) or gE-rule parameters of the cubic equation, LSQRUNZ.EXE) and their answers
// FROM_FIT.DAT and FROM_FITZ.DAT.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace peq {

inline constexpr const char* kToFit = "TO_FIT.DAT";
inline constexpr const char* kToFitz = "TO_FITZ.DAT";
inline constexpr const char* kFromFit = "FROM_FIT.DAT";
inline constexpr const char* kFromFitz = "FROM_FITZ.DAT";
inline constexpr const char* kLsqrun = "LSQRUN.EXE";
inline constexpr const char* kLsqrunz = "LSQRUNZ.EXE";

// The iteration count from which an answer is "Not yet a minimum reached!".
inline constexpr long kFitMaxIterationen = 20000;

// One experimental point handed to a fit: T in K, p in kPa, liquid and vapour mole fraction of
// component 2; an inactive point takes no part.
struct FitPunkt {
  double T = 0, p = 0, x2L = 0, x2V = 0;
  bool Inaktiv = false;
};

// The twelve parameter slots 0..11, four groups of three: slot 3g the constant a of parameter
// g, slots 3g + 1 and 3g + 2 the coefficients b and c of its temperature function.
inline constexpr int kFitSlots = 12;
struct FitTabelle {
  std::array<float, kFitSlots> Start{}, Unten{}, Oben{};
  std::array<bool, kFitSlots> Fest{};
};

// "T dependence? nein": every b and c slot (i mod 3 not 0) fixed at a start of 0.
void OhneTAbhAnwenden(FitTabelle& t);

// Number of points that are not inactive.
int AktivePunkte(const std::vector<FitPunkt>& pts);

// TO_FIT.DAT of the pair (1, 2) of s: the slots (flag, start, lower, upper), GEModel, VapModel,
// the k(ij) slots GEPar(7..8) of (1, 2) and (2, 1), FitArt, the active points, the blocks of
// components 1 and 2.
std::string ToFitText(const Session& s, const FitTabelle& t, int16_t fitArt, const std::vector<FitPunkt>& pts);

// TO_FITZ.DAT: six groups of four lines (start, upper, lower, fixed), FitArt, the active
// points' count, a line of critical data per component, the points, and the line of EOSModel,
// MixRule, 1, 1, 1 and the run counter.
std::string ToFitzText(const Session& s, const FitTabelle& t, int16_t fitArt, const std::vector<FitPunkt>& pts,
                       int zaehler);

// The answer: the parameter list L1..L20 (FROM_FIT.DAT) or L1..L24 (FROM_FITZ.DAT) of the pair
// (1, 2) in the order of GEPar's slot list, the iteration count and the final objective.
struct FitAntwort {
  std::vector<double> L;  // L[0] is slot L1
  long Iterationen = 0;
  double Zielfunktion = 0;
};

// Number of parameter values in the answer file.
inline int AntwortWerte(bool phiPhi) { return phiPhi ? 24 : 20; }

// Reads an answer in free format (numbers separated by line ends, blanks or commas). False
// with a reason in err when it is short, holds something that is no number, or has a negative
// or fractional iteration count.
bool ReadFitAntwort(std::string_view text, bool phiPhi, FitAntwort& a, std::string& err);

// The answer text a companion writes: one value per line, reals with 17 significant digits so
// that the program computes with exactly the numbers that were fitted.
std::string FitAntwortText(const FitAntwort& a);

}  // namespace peq

namespace peq {

// An answer of 20000 or more iterations is "Not yet a minimum reached!".
inline bool FitNichtKonvergiert(long iterationen) { return iterationen >= kFitMaxIterationen; }

}  // namespace peq
