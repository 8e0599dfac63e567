// The exchange files of the batch distillation: TO_BATCH.DAT, which the program writes for
// PEQBATCH.EXE, and from_Batch.dat, its answer (the time records behind "$T", the fraction blocks
// and the fraction text behind "D e s t i l l a t f r a k t i o n e n").
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "session/session.h"

namespace peq {

inline constexpr const char* kToBatch = "TO_BATCH.DAT";
inline constexpr const char* kFromBatch = "from_Batch.dat";
inline constexpr const char* kPeqBatch = "PEQBATCH.EXE";
inline constexpr const char* kFraktionenZeile = "D e s t i l l a t f r a k t i o n e n";

// The values of the batch window that are not kept in the session.
struct BatchStart {
  float TKopfStart = 60, TSumpfStart = 80;  // degrees Celsius
  float RestMenge = 0;                      // kmol left in the stillpot
};

// TO_BATCH.DAT of the current mixture: the head of sixteen lines, the component blocks, the group
// lines of the UNIFAC models, ten parameters of each direction of every pair, the filling.
std::string ToBatchText(const Session& s, const BatchStart& b);

// The group line of one increment text: the count of subgroup fields other than 0, a comma, and
// those fields (trimmed) separated by commas.
std::string BatchGruppenZeile(const std::string& inkr);

// The time records of from_Batch.dat, the temperatures in degrees Celsius.
struct Batchergebnis {
  int NZeit = 0;
  std::vector<float> Zeit, TKopf, TSumpf, Kurve3, Kurve4, Kurve5;  // index 1..NZeit
  std::vector<std::vector<float>> XDest, XSumpf;                   // (i)(c), c = 0..NKomp-1
};

// Reads the "$T" block: two integers (the second NZeit), then NZeit records of an integer, the
// time, NKomp values into XDest, NKomp values overwritten by the next NKomp into XSumpf, and five
// reals. The time is scaled to (100 - restProzent) x time / 100. False with a reason when the
// block is missing, short or holds something that is no number.
bool ReadBatchZeiten(std::string_view text, int nKomp, int restProzent, Batchergebnis& e, std::string& err);

// Reads the fraction blocks into the record row (sized (nKomp + 5) nFrak + nKomp + 2): for each
// line holding "fraction", the amount from column 29 (15 characters), the next nKomp lines' last
// 11 characters, two lines skipped, the begin line (top T from column 33, 14 characters; bottom T
// the first 14 of the last 16), two lines skipped, the end line. Temperatures go in as read when
// tOffsetOut is not 0, with 273.15 added otherwise. False with a reason on a short or garbled block.
bool ReadBatchFraktionen(std::string_view text, int nKomp, int nFrak, double tOffsetOut, std::vector<float>& zeile,
                         std::string& err);

// The lines behind the line holding "D e s t i l l a t f r a k t i o n e n", as they stand.
// False when there is no such line.
bool ReadBatchFraktionsText(std::string_view text, std::vector<std::string>& zeilen);

}  // namespace peq
