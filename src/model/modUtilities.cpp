#include "model/modUtilities.h"

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace corvane {

namespace {

std::string_view TrimView(std::string_view text) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// Int(x + 0.5) > Int(x) rounding of a non-negative magnitude: ties go up, away from zero.
double RoundHalfUp(double x) {
    const double whole = std::floor(x);
    return std::floor(x + 0.5) > whole ? whole + 1.0 : whole;
}

// 10^0 to 10^22: every one of them is exact in a double, so the table gives the very values
// std::pow gives, without its cost on the path every filed number takes.
constexpr std::array<double, 23> kExactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                      1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                      1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

double TenToThe(int power) {
    if (power >= 0 && power < static_cast<int>(kExactPowersOfTen.size())) {
        return kExactPowersOfTen[static_cast<std::size_t>(power)];
    }
    return std::pow(10.0, power);
}

// 10^power for power >= 0, split in two factors where one would overflow (only denormal inputs
// ask for more than 10^308).
void PowerOfTen(int power, double& first, double& second) {
    if (power > 300) {
        first = 1e300;
        second = std::pow(10.0, power - 300);
    } else {
        first = TenToThe(power);
        second = 1.0;
    }
}

// CInt: to the nearest whole number, halves to even, then into 16 bits.
std::int16_t RoundToInt16(double value) {
    double rounded = std::floor(value);
    const double rest = value - rounded;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(rounded, 2.0) != 0.0)) {
        rounded += 1.0;
    }
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() &&
          rounded <= std::numeric_limits<std::int16_t>::max())) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    return static_cast<std::int16_t>(rounded);
}

char UserDecimalChar() {
    return gDecimalChar > 0 && gDecimalChar < 128 ? static_cast<char>(gDecimalChar) : '.';
}

// A field of a date stamp: digits only, at most five of them.
bool ReadStampField(std::string_view text, int& value) {
    text = TrimView(text);
    if (text.empty() || text.size() > 5) {
        return false;
    }
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return false;
        }
    }
    std::from_chars(text.data(), text.data() + text.size(), value);
    return true;
}

} // namespace

double Log10(double x) {
    return std::log(x) / std::log(10.0);
}

double Atan2YX(double y, double x) {
    const double pi = 4.0 * std::atan(1.0);
    if (x == 0.0) {
        return y > 0.0 ? pi / 2.0 : (y < 0.0 ? -pi / 2.0 : 0.0);
    }
    if (y == 0.0) {
        return x < 0.0 ? pi : 0.0;
    }
    if (x < 0.0) {
        return y > 0.0 ? std::atan(y / x) + pi : std::atan(y / x) - pi;
    }
    return std::atan(y / x);
}

std::int32_t ShiftLeft(std::int32_t value, int bits) {
    if (bits < 0 || bits > 31) {
        throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) << bits);
}

double RoundSignificant(double value, int digits, std::string* format) {
    if (value == 0.0 || digits < 1) {
        return 0.0;
    }
    if (!std::isfinite(value)) {
        return value;
    }
    const double sign = value < 0.0 ? -1.0 : 1.0;
    const double x = std::fabs(value);
    // Count of digits before the point; zero or negative below 1.
    const int e = static_cast<int>(std::floor(Log10(x))) + 1;
    double r = 0.0;
    if (digits > e) {
        double first = 1.0;
        double second = 1.0;
        PowerOfTen(digits - e, first, second);
        r = RoundHalfUp(x * first * second) / first / second;
        if (format != nullptr) {
            static constexpr std::string_view kDecimalFormat = "#########0.0000000000";
            *format = std::string(kDecimalFormat.substr(0, static_cast<std::size_t>(11 + digits - e)));
        }
    } else if (digits == e) {
        r = RoundHalfUp(x);
        if (format != nullptr) {
            *format = "#########0";
        }
    } else {
        const double scale = TenToThe(e - digits);
        r = RoundHalfUp(x / scale) * scale;
        if (format != nullptr) {
            *format = "#########0";
        }
    }
    return sign * r;
}

// floor(Log10(x)) + 1 for x > 0, as RoundSignificant counts the digits before the point. Away
// from the powers of ten the historic logarithm cannot land on the wrong side of a whole number
// (its error is below 1e-13 where these magnitudes are concerned), so a look-up in the table of
// powers gives the same count without the logarithm; close to a power of ten the logarithm
// itself decides.
int DigitsBeforePoint(double x) {
    static constexpr std::array<double, 61> kPowers = {
        1e-30, 1e-29, 1e-28, 1e-27, 1e-26, 1e-25, 1e-24, 1e-23, 1e-22, 1e-21, 1e-20, 1e-19, 1e-18,
        1e-17, 1e-16, 1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9,  1e-8,  1e-7,  1e-6,  1e-5,
        1e-4,  1e-3,  1e-2,  1e-1,  1e0,   1e1,   1e2,   1e3,   1e4,   1e5,   1e6,   1e7,   1e8,
        1e9,   1e10,  1e11,  1e12,  1e13,  1e14,  1e15,  1e16,  1e17,  1e18,  1e19,  1e20,  1e21,
        1e22,  1e23,  1e24,  1e25,  1e26,  1e27,  1e28,  1e29,  1e30};
    constexpr double kMargin = 1e-12;
    if (x >= kPowers.front() * (1.0 + kMargin) && x < kPowers.back() * (1.0 - kMargin)) {
        // The first power above x: x lies in [10^d, 10^(d+1)).
        const auto above = std::upper_bound(kPowers.begin(), kPowers.end(), x);
        const double upper = *above;
        const double lower = *(above - 1);
        if (x >= lower * (1.0 + kMargin) && x < upper * (1.0 - kMargin)) {
            return static_cast<int>(above - kPowers.begin()) - 30;
        }
    }
    return static_cast<int>(std::floor(Log10(x))) + 1;
}

void AppendRoundedFileFloat(std::string& out, double value, int digits) {
    // The rounded value is N / 10^k for a whole N of at most 10 digits. Where both N and 10^k
    // are exact doubles the quotient is the double nearest that decimal, and a decimal of at
    // most 15 digits survives the trip to a double and back: the digits of N are the text.
    // Anything else (huge or denormal magnitudes, zero, non-finite) takes the long way.
    if (value != 0.0 && std::isfinite(value) && digits >= 1 && digits <= 15) {
        const double x = std::fabs(value);
        const int e = DigitsBeforePoint(x);
        const int k = digits - e;
        if (k >= 0 && k < static_cast<int>(kExactPowersOfTen.size())) {
            const double n = RoundHalfUp(x * kExactPowersOfTen[static_cast<std::size_t>(k)]);
            if (n >= 1.0 && n < 1e15) {
                char buffer[24];
                const auto written =
                    std::to_chars(buffer, buffer + sizeof buffer, static_cast<unsigned long long>(n));
                std::size_t count = static_cast<std::size_t>(written.ptr - buffer);
                const int exponent = static_cast<int>(count) - 1 - k;
                while (count > 1 && buffer[count - 1] == '0') {
                    --count;
                }
                AppendFileDecimal(out, value < 0.0, std::string_view(buffer, count), exponent);
                return;
            }
        }
    }
    AppendFileFloat(out, RoundSignificant(value, digits));
}

std::string FormatPoint(double value, std::string_view format) {
    std::string text = FormatNumber(value, format);
    for (char& c : text) {
        if (c == ',') {
            c = '.';
        }
    }
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool CompareDouble(double a, int mode, double b, double tolerance) {
    const double d = RoundSignificant(a, 12) - RoundSignificant(b, 12);
    const double tol = std::fabs(tolerance);
    switch (mode) {
    case kCompareGreater:
        return d > 0.0;
    case kCompareGreaterOrEqual:
        return std::fabs(d) <= tol || d > 0.0;
    case kCompareEqual:
        return std::fabs(d) <= tol;
    case kCompareLessOrEqual:
        return std::fabs(d) <= tol || d < 0.0;
    case kCompareLess:
        return d < 0.0;
    case kCompareNotEqual:
        return std::fabs(d) > tol;
    default:
        return false;
    }
}

double MaxDouble(double a, double b) {
    return a > b ? a : b;
}

double MinDouble(double a, double b) {
    return a < b ? a : b;
}

double MaxOfArray(const std::vector<double>& values) {
    if (values.empty()) {
        throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    double result = values.front();
    for (const double v : values) {
        if (v > result) {
            result = v;
        }
    }
    return result;
}

double InterpolateLinear(std::vector<std::pair<double, double>> points, double x) {
    if (points.empty()) {
        return 0.0;
    }
    std::stable_sort(points.begin(), points.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    if (x <= points.front().first) {
        return points.front().second;
    }
    if (x >= points.back().first) {
        return points.back().second;
    }
    std::size_t i = 1;
    while (points[i].first < x) {
        ++i;
    }
    const auto& [x0, y0] = points[i - 1];
    const auto& [x1, y1] = points[i];
    return x1 > x0 ? y0 + (y1 - y0) * (x - x0) / (x1 - x0) : y1;
}

double MinOfArray(const std::vector<double>& values) {
    if (values.empty()) {
        throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
    }
    double result = values.front();
    for (const double v : values) {
        if (v < result) {
            result = v;
        }
    }
    return result;
}

bool IsNumericText(std::string_view text, char decimalChar) {
    text = TrimView(text);
    const NumberScan scan = ScanNumber(text, decimalChar, false);
    return scan.found && scan.end == text.size();
}

double StringToDouble(std::string_view text) {
    text = TrimView(text);
    const NumberScan scan = ScanNumber(text, UserDecimalChar(), false);
    if (scan.found && scan.end == text.size()) {
        return scan.value;
    }
    return ParseLeadingNumber(text);
}

std::int16_t StringToInteger(std::string_view text) {
    return RoundToInt16(StringToDouble(text));
}

int SplitList(std::vector<std::string>& out, std::string_view text, std::string_view delimiter) {
    out.clear();
    if (delimiter.empty()) {
        out.emplace_back(text);
        return 1;
    }
    std::size_t start = 0;
    for (;;) {
        const std::size_t hit = text.find(delimiter, start);
        if (hit == std::string_view::npos) {
            out.emplace_back(text.substr(start));
            break;
        }
        out.emplace_back(text.substr(start, hit - start));
        start = hit + delimiter.size();
    }
    return static_cast<int>(out.size());
}

std::string DateToStamp(const DateTime& date) {
    if (!date.IsValid()) {
        return {};
    }
    const auto n = [](int v) { return FormatFileInteger(v); };
    return n(date.year) + "/" + n(date.month) + "/" + n(date.day) + " " + n(date.hour) + ":" +
           n(date.minute) + ":" + n(date.second);
}

DateTime StampToDate(std::string_view text) {
    text = TrimView(text);
    DateTime date;
    const std::size_t blank = text.find(' ');
    if (blank != std::string_view::npos) {
        std::vector<std::string> dateFields;
        std::vector<std::string> timeFields;
        SplitList(dateFields, text.substr(0, blank), "/");
        const std::string_view timeText = TrimView(text.substr(blank + 1));
        if (!timeText.empty()) {
            SplitList(timeFields, timeText, ":");
        }
        if (dateFields.size() != 3 || timeFields.size() > 3) {
            return DateTime{};
        }
        int* const dateSlots[] = {&date.year, &date.month, &date.day};
        int* const timeSlots[] = {&date.hour, &date.minute, &date.second};
        for (std::size_t i = 0; i < 3; ++i) {
            if (!ReadStampField(dateFields[i], *dateSlots[i])) {
                return DateTime{};
            }
        }
        for (std::size_t i = 0; i < 3; ++i) {
            *timeSlots[i] = 0;
            if (i < timeFields.size() && !ReadStampField(timeFields[i], *timeSlots[i])) {
                return DateTime{};
            }
        }
    } else if (text.find('-') != std::string_view::npos) {
        // "yyyymmdd-hhmm"
        if (text.size() < 13 || text[8] != '-' || !ReadStampField(text.substr(0, 4), date.year) ||
            !ReadStampField(text.substr(4, 2), date.month) || !ReadStampField(text.substr(6, 2), date.day) ||
            !ReadStampField(text.substr(9, 2), date.hour) ||
            !ReadStampField(text.substr(11, 2), date.minute)) {
            return DateTime{};
        }
        date.second = 0;
    } else {
        return DateTime{};
    }
    return date.IsValid() ? date : DateTime{};
}

std::string StripControlChars(std::string_view text, bool keepLineBreaks) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code >= 32 || (keepLineBreaks && (code == 10 || code == 13))) {
            out.push_back(c);
        }
    }
    return out;
}

} // namespace corvane
