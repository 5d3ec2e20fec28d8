#pragma once

#include <compare>

namespace corvane {

// A calendar date and time of day, local time, to the second. The default value is the
// zero date of the station's historic date type (30 Dec 1899, midnight), which is what
// StampToDate gives for text it cannot read.
struct DateTime {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;

    static constexpr bool IsLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }
    static constexpr int DaysInMonth(int y, int m) {
        constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        return (m == 2 && IsLeapYear(y)) ? 29 : days[m - 1];
    }
    // A real calendar date (years 100 to 9999, as the historic date type allowed).
    constexpr bool IsValid() const {
        return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 &&
               day <= DaysInMonth(year, month) && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 &&
               second >= 0 && second < 60;
    }
    auto operator<=>(const DateTime&) const = default;
};

} // namespace corvane
