// The search of a substance by name, synonym, CAS-RN or database number, and the key filter of
// the numeric boxes.
//
// A typed name is upper-cased (umlauts included), stripped of blanks and rewritten by a fixed
// set of rules that fold the usual German and English spellings of chemical names into one
// form (AETH/ETH, GLYKO/GLYCO, ZYKLO/CYCLO, ...). The result, stripped of hyphens, brackets and
// points, is the key that is compared with the synonym lines of "SYNOM.TXT".
//
// SYNOM.TXT stands in the directory of the database, in the DOS code page 850, and is a
// sequence of records:
//   the CAS-RN
//   a data line: one leading character, then fields separated by "_": first field, name, last
//   any number of synonym lines, each in the upper-case form of a key
//   one empty line
// The file has no index; a search reads it from the start to a hit or to its end.
#pragma once

#include <string>
#include <string_view>

#include "session/message.h"
#include "session/session.h"

namespace peq {

inline constexpr const char* kSynonymFile = "SYNOM.TXT";
// The CAS-RN a search returns when it read to the end of the file without a hit.
inline constexpr const char* kSynonymEnd = "END";

// Upper-cases the text (also the accented letters of Latin-1) and then puts "Ä", "Ö", "Ü" in
// place of any "ä", "ö", "ü" left, in this order. UTF-8 in and out.
std::string NameNormieren(std::string_view text);
// The text without any blank.
std::string BlankEntfernen(std::string_view text);
// Removes length characters (code points) from the 1-based position on.
void StrLoeschen(std::string& text, std::size_t position, std::size_t length);

// Position (1-based, in characters) of the first occurrence of what in text; 0 when none.
std::size_t InStr(std::string_view text, std::string_view what);

// Steps 1 to 3 of the search on a name that is already normalised and without blanks: the
// rewrite table, the OXYD rule, "ME-", "ET-" and "SAEURE".
std::string SynonymUmschreiben(std::string_view name);
// The key: the rewritten name without "-", "(", ")", "[", "]" and ".".
std::string SynonymSchluessel(std::string_view name);
// A synonym line as the search compares it: without "-", "(", ")" and "." (square brackets
// stay).
std::string SynonymZeileBereinigen(std::string_view line);

// The scan of SYNOM.TXT in directory dir. name must have passed NameNormieren and
// BlankEntfernen; it returns unchanged (it is already in its cleaned form). cas: the CAS-RN of
// the hit, or "END" when the file held none; line: the data line of the record of the hit.
// fileMissing: the file could not be opened; the box goes to sink: a missing file
// "Select your substance via list" / "file SYNOM.TXT not found", any other failure the
// system's text, both under "Error".
void SynonymSuchen(std::string& name, const std::string& dir, std::string& cas, std::string& line,
                   bool& fileMissing, MsgSink* sink);

// Splits a data line of SYNOM.TXT into its first field, the name and the last field.
void SynonymZeileZerlegen(const std::string& line, std::string& first, std::string& name,
                          std::string& last);

// Place (1-based) of the first substance of the open database with this database number; 0
// when none.
int NummerSuchen(const Session& s, int number);

// The search of the substance window.
struct StoffSucheErgebnis {
  enum class Art {
    Direkt,        // the typed text equals a name or a CAS-RN of the database
    Synonym,       // found through SYNOM.TXT and present in the database
    NichtGefunden, // SYNOM.TXT read to its end: "Nothing found under this name"
    NichtInBank,   // SYNOM.TXT knows it, the database does not: the warning with its CAS-RN
    DateiFehlt,    // SYNOM.TXT could not be opened
  };
  Art art = Art::NichtGefunden;
  bool found = false;
  int place = 0;    // 1-based place in the database index when found
  std::string cas;  // the CAS-RN found in SYNOM.TXT
};

// StoffSuchen: query as typed (left as it stands); synonymDir the directory of SYNOM.TXT (the
// database's). The boxes of a failed search go to sink; resetting the input boxes is the
// window's part.
StoffSucheErgebnis StoffSuchen(const Session& s, const std::string& query,
                               const std::string& synonymDir, MsgSink* sink);

// The key filter of every numeric box: true for the digits, "E", "e", ",", "-", ".", Return,
// Backspace and Delete (codes 48..57, 69, 101, 44, 45, 46, 13, 8, 127). A comma is turned into
// a point in place.
bool IstZahlenTaste(int& keyAscii);

}  // namespace peq
