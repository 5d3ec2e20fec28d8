#include "model/modUtilities.h"

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/NumberText.h"

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

// 10^power for power >= 0, split in two factors where one would overflow (only denormal inputs
// ask for more than 10^308).
void PowerOfTen(int power, double& first, double& second) {
    if (power > 300) {
        first = 1e300;
        second = std::pow(10.0, power - 300);
    } else {
        first = std::pow(10.0, power);
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
        const double scale = std::pow(10.0, e - digits);
        r = RoundHalfUp(x / scale) * scale;
        if (format != nullptr) {
            *format = "#########0";
        }
    }
    return sign * r;
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

double Wrap360(double angle) {
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

double Wrap180(double angle) {
    double a = Wrap360(angle);
    if (a > 180.0) {
        a = -(360.0 - a);
    }
    return a;
}

} // namespace corvane
