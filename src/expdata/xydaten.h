// The list of the XY editor: x-y pairs in a KurvenPunkt array (element 0 the header with the
// count in x; in each point z 0 for an active and -1 for an inactive line), the XY text file
// (reader with the delimiter search, writer in the pattern ".0000000E+00"), sort, column exchange,
// removal, the active mark, the six manipulations and the paste of clipboard text.
#pragma once

#include <string>
#include <string_view>

#include "diagrams/curve.h"

namespace peq {

inline constexpr const char* kXYLeer = "empty list";
inline constexpr const char* kXYNichtMoeglichTitel = "Execution not possible";
inline constexpr const char* kXYManipFehler = "Action is not possible using the actual data";
inline constexpr const char* kXYFehlerTitel = "Error";
inline constexpr const char* kXYNichtGespeichert = "Data not yet saved.";
inline constexpr const char* kXYJetztSpeichern = "Save now?";
inline constexpr const char* kXYZweiPunkte = "at least two active points!";
inline constexpr const char* kXYEinPunkt = "at least one active point!";

// The number of lines held (the header's x); 0 for an empty array.
int XYAnzahl(const Kurve& k);
// Sets the count into the header (and sizes the array to it).
void XYAnzahlSetzen(Kurve& k, int n);

// XYTrennerSuchen on the second line of a file: a blank, ",", ";" and a tab are tested in this
// order, each hit replacing the last. Status 1: no second delimiter after the first; 2: a second
// one stands (sep emptied); 0: none in the line.
int XYTrennerSuchen(std::string_view zeile2, std::string& sep);

// Reads an XY text (or LRG) with the delimiter found in its second line: line 1 is the comment,
// every further line x, the delimiter, y (a comma read as a point). false with the words in err
// (the list then empty).
bool XYLesen(std::string_view bytes, Kurve& liste, std::string& kommentar, std::string& err);

// The XY text: the comment, then per active line x, sep, y as ".0000000E+00"; CR LF line ends.
std::string XYText(const std::string& kommentar, const Kurve& liste, const std::string& sep);

// Sorts ascending by x (nachY false) or y; the mark moves with its line.
void XYSortieren(Kurve& liste, bool nachY);
// Exchanges the x and y columns of every line.
void XYSpaltenTausch(Kurve& liste);
// Removes lines a..b (1-based); false outside the list.
bool XYZeilenLoeschen(Kurve& liste, int a, int b);
// Flips the mark of lines a..b: z 0 <-> -1.
void XYAktivUmschalten(Kurve& liste, int a, int b);

// cmdExecManip: index 0 x = 1 - x, 1 y = 1 / y, 2 y = y + W, 3 y = y * W, 4 y = ln(y),
// 5 y = exp(y), on every line. A first pass tests every value, a second one applies; a fault
// (or a result beyond a 32-bit real) leaves the list as it was and returns false.
bool XYManipulieren(Kurve& liste, int index, double W);
inline constexpr const char* kXYManipText[6] = {"x = 1 - x", "y = 1 / y", "y = y + W",
                                                "y = y * W", "y = ln(y)", "y = exp(y)"};

// Paste of clipboard text (lines of x, tab, y) from row r0 (0-based) and column c0 (1 x, 2 y).
// n = the number of line ends; none: nothing (0). The list grows to max(count, r0 + n).
int XYEinfuegen(Kurve& liste, std::string_view text, int r0, int c0);

// The active lines in a working list (header count set, z 0). Values beyond +-1E+37 make it fail.
bool XYAktive(const Kurve& liste, Kurve& aktiv);

}  // namespace peq
