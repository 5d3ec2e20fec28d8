#pragma once

// Scan dates as text: the date a file of another measuring machine gives, and the form an
// imported scan keeps it in.

#include "model/DateTime.h"

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// A date field: "m/d/yyyy" (or "d/m/yyyy" where the first number cannot be a month),
// "yyyy-mm-dd" or "d-MMM-yyyy", each with an optional "h:mm[:ss]" and "AM" or "PM"; two-digit
// years 00 to 29 fall in this century. Nothing when the text is none of these or no real date.
std::optional<DateTime> ParseScanDate(std::string_view text);

// "dd-MMM-yyyy hh:mm AM/PM": "05-Mar-2024 02:30 PM".
std::string FormatScanDate(const DateTime& date);

} // namespace corvane
