// The record of distillation runs: one row of single-precision values per run of the
// McCabe-Thiele design or of the batch distillation, held in memory and written as a delimited
// text file (with a head of units, the components and a column head) when the record window
// closes or starts a new file.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

inline constexpr int16_t kProtThiele = 1;
inline constexpr int16_t kProtBatch = 2;

// Columns of a row (index 0..ProtSpalten).
inline int SpaltenThiele(int nKomp) { return 3 * nKomp + 4; }
inline int SpaltenBatch(int nKomp, int nFrak) { return (nKomp + 5) * nFrak + nKomp + 2; }

struct DistProtokoll {
  int16_t ProtArt = kProtThiele;
  int16_t NFrak = 0;                           // fractions of a batch run
  int ProtSpalten = 0;                         // last column index of a row
  std::vector<float> Aktuell;                  // the row of the last run, 0..ProtSpalten
  bool AktuellGueltig = false;                 // a run has filled Aktuell
  std::vector<std::vector<float>> Zeilen;      // the rows written so far
  std::string ProtTrenner = ";";
  std::string ProtokollDatei;                  // full path of the file the rows go to

  int16_t ProtZeilen() const { return static_cast<int16_t>(Zeilen.size()); }
  // Sets the kind and the column count; a change of the column count clears the rows.
  void Einrichten(int16_t art, int nKomp, int nFrak);
};

// The McCabe-Thiele row: RR, plates, feed, bottom and top composition per component (x(Komp2)
// the given x2, x(Komp1) the rest), bottoms and top temperature in the output unit.
void ThieleZeileFuellen(DistProtokoll& p, const Session& s, float RR, int ntp, float xFeed, float xSumpf,
                        float xKopf, float TSumpf, float TKopf);

// The column head, each field followed by the delimiter (written with ";" and the ";" replaced
// by another delimiter).
std::string DistKopf(const Session& s, int16_t art, int16_t nFrak, const std::string& trenner);

// The whole file text: the first two lines, the legend, the component table, the column head and
// a line per row; lines ended by CR LF. date, time: as the system shows them.
std::string DistProtokollText(const Session& s, const DistProtokoll& p, const std::string& datum,
                              const std::string& zeit);

// The rows for the clipboard: the values separated by tabs, the rows by CR LF.
std::string DistClipboardText(const DistProtokoll& p, bool dezKomma);

// A value of a row in the file: the shortest form of the single, with a decimal comma when the
// system uses one and the delimiter is no comma.
std::string DistZahl(float v, bool dezKomma, const std::string& trenner);

// The time of day "hh:mm:ss".
std::string ZeitText(const std::tm& t);

}  // namespace peq
