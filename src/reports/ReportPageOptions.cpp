#include "reports/ReportPageOptions.h"

#include "model/NumberFormat.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr const char* kRoot = "Software\\Corvane";
constexpr const char* kMarginFormat = "0.0##############";

struct UnitRule {
    std::int16_t index;
    const char* defaultMargin;
    double perInch;
};
constexpr UnitRule kUnits[] = {{1, "864", 1440}, {5, "0.6", 1},    {4, "0.05", 1.0 / 12},
                               {6, "15", 25.4},  {7, "1.5", 2.54}, {8, "0.015", 0.0254}};

const UnitRule* FindUnit(std::int16_t index) {
    for (const UnitRule& u : kUnits)
        if (u.index == index)
            return &u;
    return nullptr;
}

void LimitMargins(ReportPageOptions& o, double perInch) {
    const double w = o.PaperWidthInches() / 4 * perInch;
    const double h = o.PaperHeightInches() / 4 * perInch;
    o.MarginLeft = std::min(o.MarginLeft, w);
    o.MarginRight = std::min(o.MarginRight, w);
    o.MarginTop = std::min(o.MarginTop, h);
    o.MarginBottom = std::min(o.MarginBottom, h);
}

} // namespace

double ReportPageOptions::PaperWidthInches() const {
    double w = 8.5, h = 11;
    switch (PaperSizeIndex) {
    case 5:
        h = 14;
        break;
    case 9:
        w = 8.27, h = 11.69;
        break;
    case 256:
        w = PaperSizeUserWidth, h = PaperSizeUserHeight;
        break;
    default:
        break;
    }
    return PaperOrientationIndex == 2 ? h : w;
}

double ReportPageOptions::PaperHeightInches() const {
    ReportPageOptions turned = *this;
    turned.PaperOrientationIndex = PaperOrientationIndex == 2 ? 1 : 2;
    return turned.PaperWidthInches();
}

double ReportPageOptions::UnitsPerInch() const {
    const UnitRule* unit = FindUnit(UnitsIndex);
    return unit ? unit->perInch : 1;
}

void LimitReportMargins(ReportPageOptions& options) {
    LimitMargins(options, options.UnitsPerInch());
}

ReportPageOptions LoadReportPageOptions(const std::string& name) {
    const std::string key = std::string(kRoot) + "\\" + name;
    ISettingsStore& store = Settings();
    const auto read = [&](const char* field, const std::string& fallback) {
        const std::string value = store.GetValue(key, field);
        return value.empty() ? fallback : value;
    };
    ReportPageOptions o;
    o.UnitsIndex = static_cast<std::int16_t>(StringToDouble(read("UnitsIndex", "5")));
    const UnitRule* unit = FindUnit(o.UnitsIndex);
    // An unknown unit falls back to inch, yet the margins are limited with the twips factor.
    const double perInch = unit ? unit->perInch : 1440;
    if (!unit)
        o.UnitsIndex = 5;
    const std::string margin = unit ? unit->defaultMargin : "0.6";
    o.MarginTop = StringToDouble(read("MarginTop", margin));
    o.MarginBottom = StringToDouble(read("MarginBottom", margin));
    o.MarginLeft = StringToDouble(read("MarginLeft", margin));
    o.MarginRight = StringToDouble(read("MarginRight", margin));
    o.PaperSizeIndex = static_cast<std::int16_t>(StringToDouble(read("PaperSizeIndex", "1")));
    if (o.PaperSizeIndex != 1 && o.PaperSizeIndex != 5 && o.PaperSizeIndex != 9 && o.PaperSizeIndex != 256)
        o.PaperSizeIndex = 1;
    o.PaperOrientationIndex = static_cast<std::int16_t>(StringToDouble(read("PaperOrientationIndex", "1")));
    if (o.PaperOrientationIndex != 1 && o.PaperOrientationIndex != 2)
        o.PaperOrientationIndex = 1;
    o.PaperSizeUserWidth = StringToDouble(read("PaperSizeUserWidth", "8.5"));
    // The height is read from the width's key: the historic behaviour, kept.
    o.PaperSizeUserHeight = StringToDouble(read("PaperSizeUserWidth", "11.0"));
    LimitMargins(o, perInch);
    return o;
}

void SaveReportPageOptions(const ReportPageOptions& o, const std::string& name) {
    const std::string key = std::string(kRoot) + "\\" + name;
    ISettingsStore& store = Settings();
    store.CreateKey(key);
    const auto number = [](double v) { return FormatNumber(v, "0"); };
    store.SetValue(key, "UnitsIndex", number(o.UnitsIndex));
    store.SetValue(key, "MarginTop", FormatNumber(o.MarginTop, kMarginFormat));
    store.SetValue(key, "MarginBottom", FormatNumber(o.MarginBottom, kMarginFormat));
    store.SetValue(key, "MarginLeft", FormatNumber(o.MarginLeft, kMarginFormat));
    store.SetValue(key, "MarginRight", FormatNumber(o.MarginRight, kMarginFormat));
    store.SetValue(key, "PaperSizeIndex", number(o.PaperSizeIndex));
    store.SetValue(key, "PaperOrientationIndex", number(o.PaperOrientationIndex));
    store.SetValue(key, "PaperSizeUserWidth", FormatNumber(o.PaperSizeUserWidth, kMarginFormat));
    store.SetValue(key, "PaperSizeUserHeight", FormatNumber(o.PaperSizeUserHeight, kMarginFormat));
}

} // namespace corvane
