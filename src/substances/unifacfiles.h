// The parameter files of the two group-contribution models: which file is used, how it is read
// into the group tables, the increment fields of a substance, the group table shown to the user
// and the test that tells the model window whether a group model is usable for the mixture.
//
// Parameter file, Modified UNIFAC (Dortmund):
//   a line with the number N of pair lines;
//   N lines "i, j, a(i,j), b(i,j), c(i,j), a(j,i), b(j,i), c(j,i)" (comma or blank separated);
//   a line with the number M of subgroup lines;
//   M lines in fixed columns (1-based): 3-5 subgroup, 7-18 name, 19-26 R, 29-35 Q, 37-39 main group.
// Parameter file, UNIFAC: pair lines "i, j, a(i,j), a(j,i)"; subgroup lines with R in 19-25,
// Q in 28-34 and the main group in 36-38.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "models/gestate.h"
#include "session/message.h"
#include "session/session.h"

namespace peq {

// File names tested beside the program, in this order; a later hit replaces an earlier one.
inline constexpr const char* kModUnifFiles[] = {"MODUNIF4.PAR", "MODUNIF4A.PAR", "MODUNIF4B.PAR",
                                                "MODUNIF5PLUS.PAR"};
inline constexpr const char* kOUnifFiles[] = {"OUNIF6PLUS.PAR"};

// Start-up choice of the parameter files in the program's directory progDir. Each name becomes
// the full path of the last file of its list that exists, or stays empty when none does.
void ChooseUnifacFiles(const std::filesystem::path& progDir, std::string& modUnifFile,
                       std::string& oUnifFile);

// The number at the start of a text as the old Val reads it: blanks and tabs are ignored, an
// optional sign, digits, a decimal point and an exponent (E or D) are taken up to the first
// character that does not fit; 0 when there is no number.
double ValText(std::string_view text);

// The seven values of an increment field ("02001,01002,00000,..."): slot k is the number in the
// five characters behind its comma; a missing or empty slot is 0. Each value is rounded half
// to even into 32 bits (a fault when it does not fit).
void ParseInkr(std::string_view text, InkrWerte& values);

// Sets the tables to their initial values: Mod. UNIFAC a = 9000 off the diagonal, 0 on it,
// b = c = 0; UNIFAC a = 0; R, Q, main group 0. Raises the table counter.
void ResetModTables(UnifacTables& t);
void ResetOUnifTables(UnifacTables& t);

// Reads ModUnifFile (OUnifFile) into the tables after resetting them. err 0, or -1 when the file
// cannot be opened (the tables then stay as they were) or a read fails (a number that is not
// one, the end of the file before the counts are met, a main group or subgroup outside the
// tables); what was read up to the fault stays in the tables.
void LoadModUnif(Session& s, int16_t& err);
void LoadOUnif(Session& s, int16_t& err);

// Texts of the group-table window frmUnifInkr: the head lines, then for each subgroup line of
// the file the first five characters, five blanks and the line from column 7 on; each line ends
// with a line break. ok false (and an empty text) when the file cannot be read.
inline constexpr const char* kOUnifTableCaption = "UNIFAC groups";
inline constexpr const char* kMUnifTableCaption = "Mod-UNIFAC groups";
std::string OUnifacTableText(const std::string& file, bool& ok);
std::string MUnifacTableText(const std::string& file, bool& ok);

// The test of the model window: which group model can be chosen for the mixture. Sets
// UnifacNeu, makes a test call of each model at x(i) = 1/NKomp and half the smallest TKrit, and
// returns the warning text (empty when there is none); a non-empty text is also posted to sink
// under "WARNING". Leaves UnifacNeu true.
std::string CheckUnifac(Session& s, bool& modOK, bool& unifOK, MsgSink* sink = nullptr);

}  // namespace peq
