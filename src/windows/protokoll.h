// The result record of the single-state calculation: a date-named text file of lines whose
// fields are joined by the chosen delimiter (";" by default). A record is open while its name is
// held (ProtokollDatei) and its lines are counted (ProtokollNr); each recorded line is on disk at
// once. The first line and the legend tell the units and the codes, a table names the
// substances, a column head names the fields of the data lines that follow.
#pragma once

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "session/session.h"

namespace peq {

inline constexpr const char* kProtokollTitel = "Phase Equilibria PEQ - protocol from ";
// The legend under the first line, verbatim.
inline constexpr const char* kProtokollLegende[6] = {
    "Units: [T] = K   [p] = kPa   [v] = m^3/kmol   [rho] = kg/m^3   [n] = kmol   [m] = kg",
    "activity coefficients [f(i)] = 1",
    "Concept : 1 = gamma - phi (partial concept)   2 = phi - phi (global concept)",
    "GE-Model: 0 = Ideal mixture; 1 = Wilson   2 = NRTL   4 = Redlich-Kister   9 = UNIQUAC   20 = Modif.UNIFAC (Do)   21 = UNIFAC",
    "EOS - Equation of State: 3 = Redlich-Kwong   4 = Soave-Redlich-kwong   5 = Peng-Robinson   6 = van der Waals",
    "MR - Mixing Rule (in the case of phi-phi concept): 1 = vdW-arithm. mean   2 = vdW-geom. mean   5 = GE (p=>oo)   6 = GE (P=>0)"};
// The units line of a record of activity coefficients (in place of the first legend line).
inline constexpr const char* kProtokollEinheitenAktiv =
    "Units: [T] = K  [p] = kPa  [gE/RT] = 1   [del(M)g/RT] = 1";
// The head of the substance table, fields separated by ";".
inline constexpr const char* kStoffTabelleKopf = " No.;Substance; Mol. Mass";

// Kinds of record line.
inline constexpr int16_t kArtFlash = 1;
inline constexpr int16_t kArtAktiv = 2;

// The system date as text, month, day and year: "mm-dd-yyyy".
std::string DatumText(const std::tm& date);
std::string DatumText();

// The name of a new record file in dir: two-digit pieces of the date text, the right two, the
// left two and the two from place 4 (for "mm-dd-yyyy" that is yymmdd), a serial "01" and
// ".CSV"; the serial rises (two digits with a leading zero, three digits after 99) while a file
// of that name exists.
std::string ProtokollDateiName(const std::filesystem::path& dir, const std::string& datumText);

// A value of a record line: the single-precision value in its shortest form, with "." and ","
// swapped when the system writes a decimal comma.
std::string ProtokollZahl(float v, bool dezKomma);

// Fields joined by the delimiter.
std::string Verbinden(const std::vector<std::string>& fields, const std::string& trenner);

// The column head of the data lines of this kind (fields joined by the delimiter, each followed
// by it).
std::string Spaltenkopf(const Session& s, int16_t art);

// The lines that begin a record: the first line with the date, the legend, the substance table
// and the column head.
std::vector<std::string> ProtokollAnfang(const Session& s, int16_t art, const std::string& datumText);

// Appends ProtokollZeile(1..) as the next data line of the record, numbered ProtokollNr + 1. A
// record not yet open is begun first (a new name when the held one is taken by another file); a
// line of another kind than the last column head gets its column head first. Sets ProtokollAktiv.
// False with the system's text in err when the file cannot be written (nothing is counted then).
bool ProtokollZeileAnhaengen(Session& s, int16_t art, const std::string& datumText, std::string& err);

// The record file as clipboard text: its lines each ended by CR LF, the delimiter replaced by a
// tab. Empty when the file cannot be read.
std::string ProtokollText(const std::string& fileName, const std::string& trenner);

// Closes the record: the file stays as it is written, the line count ends.
void ProtokollBeenden(Session& s);

}  // namespace peq
