#include "acquisition/ManualEntry.h"

#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

std::string Trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

std::string NumberText(double value) {
    return FormatNumber(value, "");
}

} // namespace

std::string ManualEntryCaption(double fraction, int blade) {
    return "Radius = " + NumberText(fraction) + "R - Blade " + std::to_string(blade + 1);
}

std::vector<ManualEntryRow> ManualEntryRows(const clsSection& section) {
    const int count = section.RawOffsetCount();
    if (count <= 1) {
        return {ManualEntryRow{}};
    }
    std::vector<ManualEntryRow> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        rows.push_back({NumberText(section.ThetaDeg(i)), NumberText(section.AxialDropX(i))});
    }
    return rows;
}

ManualEntryResult ApplyManualEntry(clsSection& section, const std::vector<ManualEntryRow>& rows,
                                   int rotationIndex, double nominalRadius) {
    std::vector<double> angle, drop;
    for (const ManualEntryRow& row : rows) {
        if (Trimmed(row.angle).empty() || Trimmed(row.drop).empty()) {
            continue;
        }
        angle.push_back(StringToDouble(row.angle));
        drop.push_back(StringToDouble(row.drop));
    }
    const std::size_t k = angle.size();
    if (k > 1) {
        double d = angle.front() - angle.back();
        if (std::fabs(d) > 180) {
            d = d > 0 ? d - 360 : d + 360; // the shorter way round, through 0/360
        }
        if ((rotationIndex == 0 && d > 0) || (rotationIndex == 1 && d < 0)) {
            Prompts().MessageBox(
                "Note: Points are ordered from Leading edge to Trailing edge.\r\n\r\nThe point order "
                "will now be corrected so the points start at the Trailing edge.",
                MsgBox::OKOnly | MsgBox::Exclamation, "Point order");
            std::reverse(angle.begin(), angle.end());
            std::reverse(drop.begin(), drop.end());
        }
        section.SetRadiusArray(std::vector<double>(k, nominalRadius));
        section.SetThetaDegArray(angle);
        section.SetAxialDropXArray(drop);
        return ManualEntryResult::Stored;
    }
    if (k == 1) {
        Prompts().MessageBox("A valid section requires at least 2 data points.",
                             MsgBox::OKOnly | MsgBox::Critical, "Data error");
        return ManualEntryResult::KeepOpen;
    }
    section.SetRawOffsetCount(0);
    return ManualEntryResult::Cleared;
}

std::vector<std::vector<std::string>> PastedCells(const std::string& text) {
    std::vector<std::vector<std::string>> cells;
    std::string line;
    const auto endLine = [&] {
        std::vector<std::string> row;
        std::size_t start = 0;
        for (;;) {
            const std::size_t tab = line.find('\t', start);
            row.push_back(NumberText(StringToDouble(line.substr(start, tab - start))));
            if (tab == std::string::npos) {
                break;
            }
            start = tab + 1;
        }
        cells.push_back(std::move(row));
        line.clear();
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
            endLine();
        } else {
            line.push_back(text[i]);
        }
    }
    if (!line.empty()) {
        endLine();
    }
    return cells;
}

std::string CellText(const std::string& text) {
    const std::string trimmed = Trimmed(text);
    if (trimmed.empty()) {
        return {};
    }
    return IsNumericText(trimmed, static_cast<char>(gDecimalChar)) || IsNumericText(trimmed, '.') ? trimmed
                                                                                                  : "0";
}

std::string DeleteRowQuestion(const ManualEntryRow& row) {
    return "Delete data point " + row.angle + ", " + row.drop + "?";
}

} // namespace corvane
