// Working state of the activity-coefficient models kept in the session: the scratch arrays of the
// parameter models (sized once per mixture, so that a call allocates nothing), and the group
// structure of the mixture with its temperature-only terms for the two group models.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "session/arrays.h"

namespace peq {

// Rectangular table (row, column), both counted from 0.
template <class T>
class Grid {
 public:
  void assign(std::size_t rows, std::size_t cols, const T& v = T()) {
    r_ = rows;
    c_ = cols;
    d_.assign(rows * cols, v);
  }
  std::size_t rows() const { return r_; }
  std::size_t cols() const { return c_; }
  T& operator()(std::size_t i, std::size_t j) {
    PEQ_CHECK_INDEX(i < r_ && j < c_);
    return d_[i * c_ + j];
  }
  const T& operator()(std::size_t i, std::size_t j) const {
    PEQ_CHECK_INDEX(i < r_ && j < c_);
    return d_[i * c_ + j];
  }

 private:
  std::size_t r_ = 0, c_ = 0;
  std::vector<T> d_;
};

// The seven increment values of a substance (count*1000 + subgroup), as parsed.
inline constexpr int kInkrSlots = 7;
using InkrWerte = std::array<int32_t, kInkrSlots>;

// Group structure of the mixture for one group model, with its temperature-only terms.
struct GroupMixture {
  // Structure.
  bool Built = false;        // the last rebuild succeeded
  int NKompBuilt = 0;        // NKomp the structure belongs to
  uint32_t Generation = 0;   // raised at each rebuild (key of the temperature terms)
  uint32_t TabStand = 0;     // table load the structure was built from
  Vec<InkrWerte> Inkr;       // increments parsed at the current call, 1..NKomp
  Vec<InkrWerte> InkrBuilt;  // increments the structure was built from
  int NGroups = 0;
  std::vector<int16_t> GroupList;  // subgroup numbers in order of first appearance
  std::vector<int16_t> Main;       // main group of each entry of GroupList
  std::vector<double> R, Q;        // subgroup volume and area of each entry
  Grid<double> Nu;                 // (component 1..NKomp, group 0..NGroups-1)
  Vec<double> r, q, r34, l;        // per component
  bool Missing = false;            // UNIFAC: a pair of main groups without parameters

  // Temperature-only terms, valid for TKey and Generation.
  bool TValid = false;
  double TKey = 0;
  uint32_t TGeneration = 0;
  Grid<double> Psi;        // (group m, group n)
  Grid<double> S;          // Mod. UNIFAC: s(i,k)
  Grid<double> LnGamPure;  // UNIFAC: ln Gamma(k) of pure component i

  // Per-call scratch.
  std::vector<double> Th, Eta, X, Theta, Den, LnGam;
  Vec<double> Phi, ThetaK, LnG;
};

struct GEState {
  // Parameter models: pair matrices at T and per-component sums.
  Mat<double> M1, M2;
  Vec<double> V1, V2, V3, LnG;
  Vec<int16_t> DT;  // limit distances of LiquidVolumes
  // The dispatcher's copy of a caller's read-only x for UNIFAC, and the increment texts.
  Vec<double> XCopy;
  Vec<std::string> Incr;
  // GMix: the two-component mole fractions.
  Vec<double> XMix;
  // Group models.
  GroupMixture Mod, OUnif;
};

}  // namespace peq
