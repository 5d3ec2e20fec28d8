#pragma once

// Paper, orientation and margins of the report, from the settings store under
// "Software\Corvane\<name>". Margins are kept in the user's unit (UnitsIndex) and limited to a
// quarter of the paper in their direction.

#include <cstdint>
#include <string>

namespace corvane {

struct ReportPageOptions {
    std::int16_t UnitsIndex = 5; // 1 twips, 4 foot, 5 inch, 6 mm, 7 cm, 8 m
    double MarginTop = 0.6;
    double MarginBottom = 0.6;
    double MarginLeft = 0.6;
    double MarginRight = 0.6;
    std::int16_t PaperSizeIndex = 1;        // printer paper numbers: 1 Letter, 5 Legal, 9 A4, 256 user
    std::int16_t PaperOrientationIndex = 1; // 1 portrait, 2 landscape
    std::int16_t CallerFlag1 = 0;
    std::int16_t CallerFlag2 = 0;
    double PaperSizeUserWidth = 8.5; // inches
    double PaperSizeUserHeight = 11.0;

    // The paper in inches after orientation.
    double PaperWidthInches() const;
    double PaperHeightInches() const;
    // Units of the margins per inch (1440 for twips, 25.4 for mm...).
    double UnitsPerInch() const;
    // A margin in inches.
    double InInches(double margin) const { return margin / UnitsPerInch(); }
};

// Reads the record: missing or empty keys take their defaults, an unknown unit resets to inch
// (keeping the twips factor for the limit), an unknown paper to Letter, an unknown orientation
// to portrait; each margin is then cut to a quarter of the paper. The user paper's height is read
// from "PaperSizeUserWidth", as the program always has.
ReportPageOptions LoadReportPageOptions(const std::string& name = "Report");
void SaveReportPageOptions(const ReportPageOptions& options, const std::string& name = "Report");

// Cuts the four margins to a quarter of the paper's dimension in their direction.
void LimitReportMargins(ReportPageOptions& options);

} // namespace corvane
