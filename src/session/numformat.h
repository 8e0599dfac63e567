// Numbers in the display patterns of the windows and status texts.
#pragma once

#include <string>
#include <string_view>

namespace peq {

// A number in a display pattern of '#' and '0' placeholders with one optional '.':
// "####.00", "#.0######", "0.0000". '0' forces a digit, '#'
// shows one only when it carries one (so 0.5 in "####.00" reads ".50"); the value is rounded
// half away from zero to the number of decimal places; the integer part grows as needed; a
// negative value gets a leading "-". A non-finite value gives "".
std::string FormatZahl(double v, std::string_view pattern);

// A number with at most `digits` significant digits, trailing zeros dropped, an exponent written
// as "E+08" when needed; 0 of either sign reads "0".
std::string ZahlG(double v, int digits);

}  // namespace peq
