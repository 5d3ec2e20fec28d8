#include "reports/ReportDocument.h"

#include "files/FileAccess.h"

#include <algorithm>
#include <filesystem>

namespace corvane {

ReportTextStyle ReportStyle(int number) {
    switch (number) {
    case kStyleSmall:
        return {7, false};
    case kStyleHeading:
        return {11, true};
    case kStyleTitle:
        return {14, true};
    default:
        return {9, false};
    }
}

int ReportDocument::AddPage() {
    pages_.emplace_back();
    return PageCount() - 1;
}

int ReportDocument::AddRow(int page, int columns) {
    auto& rows = pages_.at(static_cast<std::size_t>(page)).rows;
    rows.emplace_back().cells.resize(static_cast<std::size_t>(std::max(columns, 1)));
    return static_cast<int>(rows.size()) - 1;
}

ReportCell& ReportDocument::Cell(int page, int row, int column) {
    auto& r = pages_.at(static_cast<std::size_t>(page)).rows.at(static_cast<std::size_t>(row));
    return r.cells.at(static_cast<std::size_t>(column));
}

void ReportDocument::SetCellText(int page, int row, int column, const std::string& text, int style,
                                 ReportAlign align) {
    ReportCell& cell = Cell(page, row, column);
    cell.text = text;
    cell.style = style;
    cell.align = align;
}

void ReportDocument::SetRowHeight(int page, int row, double twips) {
    pages_.at(static_cast<std::size_t>(page)).rows.at(static_cast<std::size_t>(row)).height = twips;
}

void ReportDocument::SetRowWidths(int page, int row, std::vector<double> widths) {
    pages_.at(static_cast<std::size_t>(page)).rows.at(static_cast<std::size_t>(row)).widths =
        std::move(widths);
}

void ReportDocument::SetCellFormat(int page, int row, int first, int last, bool borders,
                                   std::optional<std::uint32_t> fill, std::uint32_t textColour) {
    for (int c = first; c <= last; ++c) {
        ReportCell& cell = Cell(page, row, c);
        cell.borders.fill(borders);
        cell.fill = fill;
        cell.textColour = textColour;
    }
}

void ReportDocument::AddImage(int page, int row, int column, const std::string& file, double width,
                              double height) {
    ReportCell& cell = Cell(page, row, column);
    cell.image = file;
    cell.imageWidth = width;
    cell.imageHeight = height;
}

double ReportRowHeight(const ReportRow& row) {
    if (row.height > 0)
        return row.height;
    double tallest = 0;
    for (const ReportCell& cell : row.cells) {
        std::size_t lines = 1;
        for (std::size_t at = cell.text.find("\r\n"); at != std::string::npos;
             at = cell.text.find("\r\n", at + 2))
            ++lines;
        // 20 twips to the point, a line 1.25 times the type.
        tallest = std::max(tallest, static_cast<double>(lines) * ReportStyle(cell.style).points * 25.0);
    }
    return tallest + 60;
}

namespace {

std::string CsvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + "\"";
}

} // namespace

std::string ReportCsvText(const ReportDocument& document) {
    std::string text;
    for (int p = 0; p < document.PageCount(); ++p) {
        for (const ReportRow& row : document.Page(p).rows) {
            // Spacer rows carry no cells worth a line.
            const bool empty = std::all_of(row.cells.begin(), row.cells.end(),
                                           [](const ReportCell& c) { return c.text.empty(); });
            if (empty)
                continue;
            for (std::size_t c = 0; c < row.cells.size(); ++c) {
                if (c > 0)
                    text += ',';
                text += CsvField(row.cells[c].text);
            }
            text += "\r\n";
        }
    }
    return text;
}

bool IsReadOnlyFile(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (error || !std::filesystem::is_regular_file(status))
        return false;
    return (status.permissions() & std::filesystem::perms::owner_write) == std::filesystem::perms::none;
}

bool SaveReportCsv(const ReportDocument& document, const std::string& path) {
    return WriteFileAtomically(path, std::string_view(ReportCsvText(document)));
}

} // namespace corvane
