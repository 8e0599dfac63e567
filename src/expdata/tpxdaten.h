// The experimental T-p-x(L)-x(V) points of the session: the EX5 text file (reader and writer),
// clearing, sorting, the exchange of the components, the paste of clipboard text into the list,
// the edit of one cell and the transfer of one typed line with its unit conversions.
// The points are held in K, kPa and as mole fractions of component 2.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "session/message.h"
#include "session/session.h"

namespace peq {

inline constexpr const char* kEx5Kopf = "T/K, p/kPa, x2(L), x2(V)";
inline constexpr const char* kExpWarnTitel = "WARNING";
inline constexpr const char* kExpFehlerTitel = "Error";
inline constexpr const char* kExpStopTitel = "Execution not possible";
inline constexpr const char* kExpAndereStoffe =
    "The substances of this file are different from the actually loaded substances.\n\n"
    "Continue nevertheless?";
inline constexpr const char* kExpIndizierung =
    "The indexing of the two substances of the file \n"
    "is different from the actual indexing in the program.\n\n"
    "Adapt the indexing now?";
inline constexpr const char* kExpNichtGespeichertTitel = " Experimental data not yet saved ";
inline constexpr const char* kExpJetztSpeichern = "Save now?";
inline constexpr const char* kExpMolBereich = "mole fraction not in the valid range (0 <= x <= 1)";
inline constexpr const char* kExpNurBinaer = "possible only for a two-component mixture ";

// What an EX5 text holds, read as far as it goes.
struct Ex5Inhalt {
  std::string Cas1, Name1, Cas2, Name2;  // CAS-RN trimmed, names as UTF-8
  std::string Kommentar1, Kommentar2;
  int16_t Anzahl = 0;                    // the count of line 6
  std::vector<ExpPunkt> Punkte;          // the points read, all of them when complete
  bool StoffeGelesen = false;            // lines 1 and 2 were read
  bool KopfGelesen = false;              // lines 3 to 6 were read
  std::string Fehler;                    // the reader's words; empty when read through
};
Ex5Inhalt LeseEx5(std::string_view bytes);

// The EX5 text of n points (CR LF line ends, code page 1252). CAS fields are padded to 12.
std::string Ex5Text(const std::string& cas1, const std::string& name1, const std::string& cas2,
                    const std::string& name2, const std::string& kommentar1, const std::string& kommentar2,
                    const ExpPunkt* punkte, int n);
// The session's points 1..ExpAnz with the names and CAS-RN of its components 1 and 2.
std::string Ex5Text(const Session& s);

// The points 1..n that the array really holds: ExpAnz, or less when the array is shorter.
int ExpGehalten(const Session& s);

// ExpLoeschen: ExpAnz 0, ExpDatei and ExpTitel empty. The array keeps its size.
void ExpLoeschen(Session& s);

// A Yes/No question (title, text); true for Yes.
using JaNeinFrage = std::function<bool(const std::string& title, const std::string& text)>;

// The load of a chosen EX5 file (the dialog is the caller's): without add the held points are
// cleared first. Asks through frage when the substances differ and when the indexing is the
// other way round. A file that cannot be read to its end shows the reader's words under "Error"
// (into msgs), keeps the points read so far in the array and leaves ExpAnz as it stood.
// Returns ok: the points were taken over.
bool ExpDateiLaden(Session& s, bool add, const std::string& datei, const JaNeinFrage& frage, MsgSink* msgs);

// Writes the held points to datei through a temporary file; on success ExpDatei := datei and
// ExpUngespeichert is cleared. false with the system's words in err; the old file then stays.
bool ExpDateiSchreiben(Session& s, const std::string& datei, std::string& err);

// Sorts points 1..ExpAnz ascending by "T", "p" or "xL" (a stable sort; Inaktiv moves along).
// false for another key.
bool ExpSortieren(Session& s, std::string_view key);

// x2L := 1 - x2L and x2V := 1 - x2V on every held point.
void ExpKomponentenTausch(Session& s);

// The value of one grid cell: a comma read as a point, the leading number of the text, 0 when
// there is none (or it does not fit a 32-bit real).
float ExpZellWert(std::string_view text);

// Paste of clipboard text (lines of tab-separated cells) into the list from data row r0
// (0-based: the rows above the first marked one) and column c0 (1 T, 2 p, 3 x(L), 4 x(V)).
// n is the number of line ends of the text; with none nothing happens (returns 0). ExpAnz
// becomes max(ExpAnz, r0 + n); the cells take the text as it stands, in K, kPa and component 2;
// ExpUngespeichert is set. Returns n.
int ExpEinfuegen(Session& s, std::string_view text, int r0, int c0);

// The cell edit: column c (1..4) of point i (1..ExpAnz) from a text. false outside the list.
bool ExpZelleSetzen(Session& s, int i, int c, std::string_view text);

// The units of the input fields.
struct TpxEinheiten {
  int16_t TEinheit = 0;  // 0 "T/K", 1 "t/°C"
  int16_t pEinheit = 0;  // 0 "p/kPa", 1 "p/Torr", 2 "p/atm"
  int16_t iKomp = 2;     // the component whose mole fractions are typed, 1 or 2
};
inline constexpr std::array<const char*, 2> kTEinheitText{"T/K", "t/°C"};
inline constexpr std::array<const char*, 3> kpEinheitText{"p/kPa", "p/Torr", "p/atm"};
// The heads of the two mole-fraction fields: "x1(L)", "x1(V)" or "x2(L)", "x2(V)".
std::string XLKopf(int16_t iKomp);
std::string XVKopf(int16_t iKomp);

// A value in a chosen unit as the input fields show it: Int(v * 1000 + 0.5) / 1000.
double AufDreiStellen(double v);
// The four fields of a point in the chosen units (K, kPa and component 2 shown as they stand).
std::array<std::string, 4> TpxAnzeige(const ExpPunkt& p, const TpxEinheiten& e);

// The transfer of one typed line.
struct TpxUebernahme {
  bool ok = false;
  int Fokus = -1;           // the field (0..3) that takes the focus after a beep; -1 none
  std::string Meldung;      // a stop box under "Execution not possible", empty when none
  ExpPunkt Punkt;           // the converted point
  std::array<std::string, 4> Anzeige;  // the fields shown back
};
// Reads the four fields, converts them (degrees Celsius + 273.15; 1 atm = 101.325 kPa = 760 Torr;
// component 1 typed: x := 1 - x, and for the vapour only when it is not 0) and checks them
// (T > 0, p > 0, 0 <= x <= 1).
TpxUebernahme TpxPruefen(const std::array<std::string, 4>& felder, const TpxEinheiten& e);

// OKinput: a checked line appended (add mode, Inaktiv 0) or put over point `zeile` (edit mode,
// keeping its Inaktiv); ExpUngespeichert set. The result tells what to show.
TpxUebernahme OKinput(Session& s, const std::array<std::string, 4>& felder, const TpxEinheiten& e,
                      bool addMode, int zeile);

// Removes points a..b (1-based, inclusive) and moves the rest up. false when the range is empty
// or outside the list.
bool ExpZeilenLoeschen(Session& s, int a, int b);
// Flips Inaktiv of points a..b.
void ExpAktivUmschalten(Session& s, int a, int b);

}  // namespace peq
