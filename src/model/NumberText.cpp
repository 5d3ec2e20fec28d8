#include "model/NumberText.h"

#include "model/CorvaneError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace corvane {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsValBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n';
}

// Exponents beyond this cannot change the outcome (the double range ends near 1e308 and 5e-324,
// and a text long enough to compensate does not fit in memory), so clamping keeps the
// arithmetic in range.
constexpr long long kExponentClamp = 1'000'000'000LL;

} // namespace

DecimalDigits ToDecimalDigits(double value, int significant) {
    DecimalDigits result;
    if (value == 0.0 || !std::isfinite(value)) {
        return result;
    }
    significant = std::clamp(significant, 1, 17);
    result.negative = value < 0.0;
    char buffer[64];
    const auto conversion = std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value),
                                          std::chars_format::scientific, significant - 1);
    const std::string_view text(buffer, static_cast<std::size_t>(conversion.ptr - buffer));
    // "d.ddde+XX" or "de+XX" when only one digit is asked for.
    const std::size_t ePos = text.find('e');
    std::string digits;
    digits.reserve(static_cast<std::size_t>(significant));
    for (std::size_t i = 0; i < ePos; ++i) {
        if (text[i] != '.') {
            digits.push_back(text[i]);
        }
    }
    while (digits.size() > 1 && digits.back() == '0') {
        digits.pop_back();
    }
    std::string_view exponentText = text.substr(ePos + 1);
    if (!exponentText.empty() && exponentText.front() == '+') {
        exponentText.remove_prefix(1);
    }
    int exponent = 0;
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    result.digits = std::move(digits);
    result.exponent = exponent;
    return result;
}

void AppendFileDecimal(std::string& out, bool negative, std::string_view digits, int exponent) {
    if (negative) {
        out.push_back('-');
    }
    const int count = static_cast<int>(digits.size());
    if (exponent < -4 || exponent >= 15) {
        out.push_back(digits.front());
        if (count > 1) {
            out.push_back('.');
            out.append(digits.substr(1));
        }
        out.push_back('E');
        out.push_back(exponent < 0 ? '-' : '+');
        const int magnitude = std::abs(exponent);
        if (magnitude < 10) {
            out.push_back('0');
        }
        char buffer[8];
        const auto written = std::to_chars(buffer, buffer + sizeof buffer, magnitude);
        out.append(buffer, written.ptr);
    } else if (exponent >= 0) {
        const int whole = exponent + 1;
        if (count <= whole) {
            out.append(digits);
            out.append(static_cast<std::size_t>(whole - count), '0');
        } else {
            out.append(digits.substr(0, static_cast<std::size_t>(whole)));
            out.push_back('.');
            out.append(digits.substr(static_cast<std::size_t>(whole)));
        }
    } else {
        out.push_back('.');
        out.append(static_cast<std::size_t>(-exponent - 1), '0');
        out.append(digits);
    }
}

void AppendFileFloat(std::string& out, double value) {
    if (std::isnan(value)) {
        out += "NaN";
        return;
    }
    if (std::isinf(value)) {
        out += value < 0.0 ? "-Inf" : "Inf";
        return;
    }
    if (value == 0.0) {
        out.push_back('0');
        return;
    }
    // The digits as ToDecimalDigits gives them, kept on the stack.
    char buffer[40];
    const auto conversion =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), std::chars_format::scientific, 14);
    const std::string_view text(buffer, static_cast<std::size_t>(conversion.ptr - buffer));
    const std::size_t ePos = text.find('e');
    char digits[20];
    std::size_t count = 0;
    for (std::size_t i = 0; i < ePos; ++i) {
        if (text[i] != '.') {
            digits[count++] = text[i];
        }
    }
    while (count > 1 && digits[count - 1] == '0') {
        --count;
    }
    std::string_view exponentText = text.substr(ePos + 1);
    if (!exponentText.empty() && exponentText.front() == '+') {
        exponentText.remove_prefix(1);
    }
    int exponent = 0;
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    AppendFileDecimal(out, value < 0.0, std::string_view(digits, count), exponent);
}

std::string FormatFileFloat(double value) {
    std::string out;
    AppendFileFloat(out, value);
    return out;
}

std::string FormatFileInteger(long long value) {
    char buffer[24];
    const auto conversion = std::to_chars(buffer, buffer + sizeof buffer, value);
    return std::string(buffer, conversion.ptr);
}

NumberScan ScanNumber(std::string_view text, char decimalChar, bool skipBlanks) {
    NumberScan scan;
    std::size_t pos = 0;
    const auto skip = [&] {
        while (skipBlanks && pos < text.size() && IsValBlank(text[pos])) {
            ++pos;
        }
    };

    skip();
    bool negative = false;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        negative = text[pos] == '-';
        ++pos;
    }

    // Significant digits without leading zeros; `pointShift` counts the fraction digits kept.
    std::string mantissa;
    long long pointShift = 0;
    bool seenPoint = false;
    bool anyDigit = false;
    for (;;) {
        skip();
        if (pos >= text.size()) {
            break;
        }
        const char c = text[pos];
        if (IsDigit(c)) {
            anyDigit = true;
            if (!(mantissa.empty() && c == '0')) {
                mantissa.push_back(c);
            }
            if (seenPoint) {
                ++pointShift;
            }
            ++pos;
            scan.end = pos;
        } else if (c == decimalChar && !seenPoint) {
            seenPoint = true;
            ++pos;
            if (anyDigit) {
                scan.end = pos;
            }
        } else {
            break;
        }
    }
    if (!anyDigit) {
        return NumberScan{};
    }
    scan.found = true;

    long long exponent = 0;
    if (pos < text.size() && (text[pos] == 'E' || text[pos] == 'e' || text[pos] == 'D' || text[pos] == 'd')) {
        std::size_t look = pos + 1;
        const auto skipLook = [&] {
            while (skipBlanks && look < text.size() && IsValBlank(text[look])) {
                ++look;
            }
        };
        skipLook();
        bool exponentNegative = false;
        if (look < text.size() && (text[look] == '+' || text[look] == '-')) {
            exponentNegative = text[look] == '-';
            ++look;
        }
        bool exponentDigit = false;
        for (;;) {
            skipLook();
            if (look >= text.size() || !IsDigit(text[look])) {
                break;
            }
            exponentDigit = true;
            exponent = std::min(exponent * 10 + (text[look] - '0'), kExponentClamp);
            ++look;
            scan.end = look;
        }
        if (!exponentDigit) {
            exponent = 0;
        } else if (exponentNegative) {
            exponent = -exponent;
        }
    }

    if (mantissa.empty()) {
        scan.value = 0.0;
        return scan;
    }
    // The value is mantissa x 10^(exponent - pointShift); its leading digit stands at the
    // decimal exponent `leading`.
    const long long scale = exponent - pointShift;
    const long long leading = scale + static_cast<long long>(mantissa.size()) - 1;
    if (leading > 400) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    if (leading < -400) {
        return scan;
    }
    mantissa.push_back('e');
    char buffer[24];
    const auto conversion = std::to_chars(buffer, buffer + sizeof buffer, scale);
    mantissa.append(buffer, conversion.ptr);
    double value = 0.0;
    const auto parsed = std::from_chars(mantissa.data(), mantissa.data() + mantissa.size(), value,
                                        std::chars_format::scientific);
    if (parsed.ec == std::errc::result_out_of_range) {
        if (leading > 0) {
            throw CorvaneError(ErrorNumber::Overflow, "Overflow");
        }
        value = 0.0;
    }
    scan.value = negative ? -value : value;
    return scan;
}

namespace {

// True for text in the form the files write: optional "-", digits with at most one ".", and an
// optional exponent "E" or "e" with optional sign and digits. For such text std::from_chars
// reads the same correctly rounded value the full scan reads, at a fraction of the cost.
bool IsPlainFileNumber(std::string_view text) {
    std::size_t pos = 0;
    if (pos < text.size() && text[pos] == '-') {
        ++pos;
    }
    bool digit = false;
    bool point = false;
    for (; pos < text.size(); ++pos) {
        const char c = text[pos];
        if (IsDigit(c)) {
            digit = true;
        } else if (c == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!digit) {
        return false;
    }
    if (pos == text.size()) {
        return true;
    }
    if (text[pos] != 'E' && text[pos] != 'e') {
        return false;
    }
    ++pos;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        ++pos;
    }
    const std::size_t exponentStart = pos;
    while (pos < text.size() && IsDigit(text[pos]) && pos - exponentStart < 4) {
        ++pos;
    }
    return pos > exponentStart && pos == text.size();
}

} // namespace

double ParseLeadingNumber(std::string_view text) {
    if (text.size() <= 40 && IsPlainFileNumber(text)) {
        double value = 0.0;
        const auto parsed = std::from_chars(text.data(), text.data() + text.size(), value);
        // Zero (whose sign the scan drops), overflow and underflow take the full scan's rules.
        if (parsed.ec == std::errc() && parsed.ptr == text.data() + text.size() && value != 0.0) {
            return value;
        }
    }
    return ScanNumber(text, '.', true).value;
}

} // namespace corvane
