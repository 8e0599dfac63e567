#include "companions/fitmap.h"

#include "models/geparams.h"

namespace peq {

void SetGESlot(Session& s, int n, int i, int j, double v) {
  const std::size_t k = static_cast<std::size_t>((n - 1) / 4 * 2 + 1);
  const std::size_t a = static_cast<std::size_t>(i), b = static_cast<std::size_t>(j);
  switch ((n - 1) % 4) {
    case 0: s.GEPar(k, a, b) = v; break;
    case 1: s.GEPar(k + 1, a, b) = v; break;
    case 2: s.GEPar(k, b, a) = v; break;
    default: s.GEPar(k + 1, b, a) = v; break;
  }
}

std::vector<double> PairList(const Session& s, int n) {
  std::vector<double> l(static_cast<std::size_t>(n));
  for (int k = 1; k <= n; ++k) l[static_cast<std::size_t>(k - 1)] = GESlot(s, k, 1, 2);
  return l;
}

namespace {
// Number of slots (from slot 0) a gE model uses: 6 for two parameters with T terms, 9 with
// NRTL's alpha, 12 for the four Redlich-Kister parameters.
int GESlotCount(int model) {
  switch (model) {
    case 1:
    case 9: return 6;
    case 2: return 9;
    case 4: return 12;
    default: return 0;
  }
}
}  // namespace

bool SlotGenutzt(const Session& s, int slot) {
  if (slot < 0 || slot >= kFitSlots) return false;
  if (!s.Konzept) return slot < GESlotCount(s.GEModel);
  if (s.MixRule == 5 || s.MixRule == 6) return slot < GESlotCount(s.GEModelEOS);
  return slot < 3;
}

std::array<double, kFitSlots> AntwortSlots(const FitAntwort& a) {
  std::array<double, kFitSlots> v{};
  for (std::size_t i = 0; i < kFitSlots && i < a.L.size(); ++i) v[i] = a.L[i];
  return v;
}

void FitEinheitSetzen(Session& s) {
  if (s.Konzept) return;
  switch (s.GEModel) {
    case 1: s.ParUnitWilson = kUnitK; break;
    case 2: s.ParUnitNRTL = kUnitK; break;
    case 9: s.ParUnitUNIQUAC = kUnitK; break;
    default: break;
  }
}

void AntwortInGEPar(Session& s, const FitAntwort& a, bool phiPhi) {
  const int n = static_cast<int>(a.L.size());
  for (int k = 1; k <= n && k <= 24; ++k) SetGESlot(s, k, 1, 2, a.L[static_cast<std::size_t>(k - 1)]);
  if (!phiPhi) FitEinheitSetzen(s);
}

void SlotsInGEPar(Session& s, const double* slots) {
  for (int i = 0; i < kFitSlots; ++i) SetGESlot(s, i + 1, 1, 2, slots[i]);
}

}  // namespace peq
