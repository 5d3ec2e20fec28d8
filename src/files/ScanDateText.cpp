#include "files/ScanDateText.h"

#include "model/modUtilities.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace corvane {

namespace {

const std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                             "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string_view Trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

// A run of 1 to 4 digits, or -1.
int Digits(std::string_view text) {
    if (text.empty() || text.size() > 4) {
        return -1;
    }
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return -1;
        }
        value = value * 10 + (c - '0');
    }
    return value;
}

int MonthOf(std::string_view name) {
    for (std::size_t m = 0; m < kMonths.size(); ++m) {
        const std::string_view month = kMonths[m];
        if (name.size() >= 3 && name.size() <= 9 && month.size() == 3 &&
            std::equal(month.begin(), month.end(), name.begin(),
                       [](char a, char b) { return (a | 0x20) == (b | 0x20); })) {
            return static_cast<int>(m) + 1;
        }
    }
    return -1;
}

// Two-digit years as the station's date type read them: 00 to 29 in this century.
int FullYear(std::string_view text, int year) {
    return text.size() <= 2 ? (year < 30 ? 2000 + year : 1900 + year) : year;
}

bool ReadDay(std::string_view text, DateTime& date) {
    std::vector<std::string> parts;
    const char separator = text.find('/') != std::string_view::npos ? '/' : '-';
    SplitList(parts, text, std::string_view(&separator, 1));
    if (parts.size() != 3) {
        return false;
    }
    const int a = Digits(parts[0]);
    const int b = Digits(parts[1]);
    const int c = Digits(parts[2]);
    if (parts[0].size() == 4) { // yyyy-mm-dd
        date.year = a;
        date.month = b;
        date.day = c;
    } else if (MonthOf(parts[1]) > 0) { // d-MMM-yyyy
        date.day = a;
        date.month = MonthOf(parts[1]);
        date.year = FullYear(parts[2], c);
    } else { // m/d/yyyy, or d/m/yyyy where the first cannot be a month
        date.month = a > 12 ? b : a;
        date.day = a > 12 ? a : b;
        date.year = FullYear(parts[2], c);
    }
    return a >= 0 && c >= 0 && date.IsValid();
}

bool ReadTime(std::string_view text, DateTime& date) {
    bool pm = false;
    bool twelveHour = false;
    if (text.size() >= 2) {
        const std::string_view suffix = text.substr(text.size() - 2);
        if (suffix == "AM" || suffix == "am" || suffix == "PM" || suffix == "pm") {
            twelveHour = true;
            pm = suffix[0] == 'P' || suffix[0] == 'p';
            text = Trim(text.substr(0, text.size() - 2));
        }
    }
    std::vector<std::string> parts;
    SplitList(parts, text, ":");
    if (parts.size() < 2 || parts.size() > 3) {
        return false;
    }
    int* const slots[] = {&date.hour, &date.minute, &date.second};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        *slots[i] = Digits(parts[i]);
        if (*slots[i] < 0) {
            return false;
        }
    }
    if (twelveHour) {
        if (date.hour < 1 || date.hour > 12) {
            return false;
        }
        date.hour = date.hour % 12 + (pm ? 12 : 0);
    }
    return date.IsValid();
}

std::string TwoDigits(int value) {
    return std::string(1, static_cast<char>('0' + value / 10 % 10)) + static_cast<char>('0' + value % 10);
}

} // namespace

std::optional<DateTime> ParseScanDate(std::string_view text) {
    text = Trim(text);
    const std::size_t blank = text.find(' ');
    DateTime date;
    date.hour = date.minute = date.second = 0;
    if (!ReadDay(text.substr(0, blank), date)) {
        return std::nullopt;
    }
    if (blank != std::string_view::npos && !ReadTime(Trim(text.substr(blank + 1)), date)) {
        return std::nullopt;
    }
    return date;
}

std::string FormatScanDate(const DateTime& date) {
    const int hour = date.hour % 12 == 0 ? 12 : date.hour % 12;
    return TwoDigits(date.day) + "-" + kMonths[static_cast<std::size_t>(std::clamp(date.month, 1, 12) - 1)] +
           "-" + std::to_string(date.year) + " " + TwoDigits(hour) + ":" + TwoDigits(date.minute) +
           (date.hour < 12 ? " AM" : " PM");
}

} // namespace corvane
