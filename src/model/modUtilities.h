#pragma once

// The small numeric helpers the whole program leans on: significant-digit rounding, comparison
// with a tolerance, locale-proof text to number conversion, list splitting, date stamps and
// angle wrapping. They decide how numbers print and compare everywhere.

#include "model/DateTime.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

// Log(x) / Log(10), as the station has always computed it: for some exact powers of ten
// (1000, 1e6, ...) this lands a hair below the whole number.
double Log10(double x);

// Angle of the point (x, y) in radians, pi taken as 4 Atn(1). x = 0 gives pi/2, -pi/2 or 0 by
// the sign of y; y = 0 gives pi for x < 0 and 0 otherwise.
double Atan2YX(double y, double x);

// Shifts a 32-bit value left by 0 to 31 bits; the bit that lands on bit 31 becomes the sign.
// Other shift counts throw SubscriptOutOfRange, as the historic power table did.
std::int32_t ShiftLeft(std::int32_t value, int bits);

// Rounds to `digits` significant digits, ties away from zero. Value 0 or digits below 1 give 0
// and leave `format` alone; otherwise `format` receives the display format that shows the
// digits kept: "#########0" or "#########0." followed by the needed decimals. Non-finite
// values come back unchanged.
double RoundSignificant(double value, int digits, std::string* format = nullptr);

// Appends FormatFileFloat(RoundSignificant(value, digits)) to `out`, byte for byte, without
// formatting the rounded double a second time: the path of every number a project file holds.
void AppendRoundedFileFloat(std::string& out, double value, int digits);

// Formats the value by a format string of the historic kind ("0.0000", "#########0", "0.0#",
// "0.0%", "#R"), then replaces "," by "." and trims: the one way numbers go into exported
// text. The output never depends on the locale. An empty format gives the general form.
std::string FormatPoint(double value, std::string_view format);

// Comparison modes of CompareDouble.
enum CompareMode : int {
    kCompareGreater = 0,
    kCompareGreaterOrEqual = 1,
    kCompareEqual = 2,
    kCompareLessOrEqual = 3,
    kCompareLess = 4,
    kCompareNotEqual = 5,
};

// Compares a and b after rounding both to 12 significant digits; modes 1, 2, 3 and 5 allow the
// magnitude of `tolerance`. Any other mode gives false.
bool CompareDouble(double a, int mode, double b, double tolerance);

// On a tie the second argument.
double MaxDouble(double a, double b);
double MinDouble(double a, double b);

// Largest and smallest element; an empty array throws SubscriptOutOfRange.
double MaxOfArray(const std::vector<double>& values);
double MinOfArray(const std::vector<double>& values);

// The value at x on the polyline through (x, y) points taken in order of x; beyond the first or
// last point the end value holds. No points give 0.
double InterpolateLinear(std::vector<std::pair<double, double>> points, double x);

// True when the whole text (blanks around it allowed) is one number written with the given
// decimal character: sign, digits, separator, digits, exponent.
bool IsNumericText(std::string_view text, char decimalChar);

// Trims; a text that is a complete number written with the user's decimal separator
// (gDecimalChar) converts by it, any other text gives its leading number with "." as the
// separator, and 0 when there is none.
double StringToDouble(std::string_view text);

// As StringToDouble, then rounded half to even. Outside the 16-bit range throws the Overflow
// CorvaneError.
std::int16_t StringToInteger(std::string_view text);

// Splits at every delimiter into `out` (replaced) and returns the count. An empty text gives one
// empty element; an empty delimiter gives the whole text as one element.
int SplitList(std::vector<std::string>& out, std::string_view text, std::string_view delimiter);

// "yyyy/m/d h:n:s" without leading zeros; "" for a date that is not a real calendar date.
std::string DateToStamp(const DateTime& date);

// Reads "y/m/d h:n:s" (the time fields optional behind the blank) or "yyyymmdd-hhmm"; anything
// else, or a date that does not exist, gives the zero date DateTime{}.
DateTime StampToDate(std::string_view text);

// Drops characters below code 32; line feeds and carriage returns stay when asked.
std::string StripControlChars(std::string_view text, bool keepLineBreaks = false);

// Degrees into [0, 360) and (-180, 180]. Non-finite input gives 0. Inline: the geometry wraps
// every point of every sweep several times over.
inline double Wrap360(double angle) {
    if (!std::isfinite(angle)) {
        return 0.0;
    }
    // Beyond this magnitude the stepping loops below would run for long; reduce first.
    if (std::fabs(angle) > 1e7) {
        angle = std::fmod(angle, 360.0);
    }
    while (angle <= 0.0) {
        angle += 360.0;
    }
    while (angle > 360.0) {
        angle -= 360.0;
    }
    if (angle == 360.0) {
        angle = 0.0;
    }
    return angle;
}

inline double Wrap180(double angle) {
    double a = Wrap360(angle);
    if (a > 180.0) {
        a = -(360.0 - a);
    }
    return a;
}

} // namespace corvane
