#pragma once

// Numbers as they stand in the station's text files. Every digit goes through std::to_chars and
// std::from_chars: the Qt front end sets the C locale from the user's at start, and a comma
// locale must not change a byte of a file nor the value read from one.

#include <cstddef>
#include <string>
#include <string_view>

namespace corvane {

// The significant digits and decimal exponent of a finite value: value = d.ddd x 10^exponent.
struct DecimalDigits {
    bool negative = false;
    std::string digits = "0"; // at least one digit, no trailing zeros; "0" for zero
    int exponent = 0;
};

// Rounds the magnitude to `significant` digits (1 to 17), to nearest.
DecimalDigits ToDecimalDigits(double value, int significant = 15);

// A float as the files hold it: the shortest form of up to 15 significant digits, "." as the
// separator, no leading blank and no leading zero (".5", "-.5"). A decimal exponent below -4 or
// from 15 on takes the exponent form with a signed exponent of at least two digits: "1.5E-05",
// "1E+15". Non-finite values, which a file never should hold, are written "NaN", "Inf", "-Inf".
std::string FormatFileFloat(double value);
// The same text appended to `out`.
void AppendFileFloat(std::string& out, double value);
// Lays out a decimal the way FormatFileFloat does: `digits` (1 to 17, no trailing zeros, first
// not 0) times 10^exponent, with a leading "-" when negative.
void AppendFileDecimal(std::string& out, bool negative, std::string_view digits, int exponent);

// A whole number as the files hold it: plain decimal digits, "-" for negatives.
std::string FormatFileInteger(long long value);

// The outcome of scanning the front of a text for a number.
struct NumberScan {
    bool found = false;  // at least one mantissa digit
    std::size_t end = 0; // index behind the last character of the number
    double value = 0.0;
};

// Scans a number at the front of the text: optional sign, digits, the decimal character, digits,
// and an exponent "E", "e", "D" or "d" with optional sign and at least one digit (an exponent
// letter without digits is not part of the number). With skipBlanks, blanks, tabs and line
// feeds are passed over anywhere, as the historic Val did. A magnitude beyond the double range
// throws the Overflow CorvaneError; one below it reads as 0.
NumberScan ScanNumber(std::string_view text, char decimalChar, bool skipBlanks);

// The historic Val: the leading number of the text with "." as the separator, blanks skipped,
// 0 when there is none. "3,5" reads 3, "12abc" 12, "1.5E3x" 1500.
double ParseLeadingNumber(std::string_view text);

} // namespace corvane
