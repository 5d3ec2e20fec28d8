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

std::string FormatFileFloat(double value) {
    if (std::isnan(value)) {
        return "NaN";
    }
    if (std::isinf(value)) {
        return value < 0.0 ? "-Inf" : "Inf";
    }
    if (value == 0.0) {
        return "0";
    }
    const DecimalDigits d = ToDecimalDigits(value, 15);
    std::string out;
    if (d.negative) {
        out.push_back('-');
    }
    const int count = static_cast<int>(d.digits.size());
    if (d.exponent < -4 || d.exponent >= 15) {
        out.push_back(d.digits.front());
        if (count > 1) {
            out.push_back('.');
            out.append(d.digits, 1, std::string::npos);
        }
        out.push_back('E');
        out.push_back(d.exponent < 0 ? '-' : '+');
        const int magnitude = std::abs(d.exponent);
        if (magnitude < 10) {
            out.push_back('0');
        }
        char buffer[8];
        const auto conversion = std::to_chars(buffer, buffer + sizeof buffer, magnitude);
        out.append(buffer, conversion.ptr);
    } else if (d.exponent >= 0) {
        const int whole = d.exponent + 1;
        if (count <= whole) {
            out.append(d.digits);
            out.append(static_cast<std::size_t>(whole - count), '0');
        } else {
            out.append(d.digits, 0, static_cast<std::size_t>(whole));
            out.push_back('.');
            out.append(d.digits, static_cast<std::size_t>(whole), std::string::npos);
        }
    } else {
        out.push_back('.');
        out.append(static_cast<std::size_t>(-d.exponent - 1), '0');
        out.append(d.digits);
    }
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

double ParseLeadingNumber(std::string_view text) {
    return ScanNumber(text, '.', true).value;
}

} // namespace corvane
