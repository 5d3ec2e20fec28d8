#pragma once

#include <string>
#include <string_view>

namespace corvane {

// Prints a value by a format string of the historic kind, without regard to the locale:
//   "0"  a digit, "0" where the value has none;   "#"  a digit, nothing where the value has none
//   "."  the decimal point (always "."), and the trailing "#" places that would show 0 drop out
//   "%"  multiplies by 100 and prints "%";         "\x" and "..." literal text; other characters
//        stand for themselves; ";" separates the positive, negative and zero sections.
// Integer digits beyond the places given print in front of the first one. Rounding works on the
// 15 significant digits of the value, ties away from zero; a value that rounds to zero prints
// without a minus sign. An empty format gives the general form (up to 15 significant digits,
// "0.5", "1E-05").
std::string FormatNumber(double value, std::string_view format);

} // namespace corvane
