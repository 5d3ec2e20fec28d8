#pragma once

// The report as a document of our own: pages of rows, each row a grid of cells with text, style,
// alignment, borders, fill and an optional image file. The composition fills it; a renderer in
// the platform draws it on the screen, a printer or a PDF; the CSV writer here reads its cells.
// Lengths are twips (1440 to the inch); colours 0xRRGGBB.

#include "reports/ReportPageOptions.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

enum class ReportAlign { Left, Center, Right };

// Text styles by size number, as the pages ask for them.
inline constexpr int kStyleSmall = 2;   // captions and the report ID
inline constexpr int kStyleTable = 4;   // table text
inline constexpr int kStyleHeading = 5; // table titles and headings
inline constexpr int kStyleTitle = 6;   // the page title and the verdict bands

struct ReportTextStyle {
    double points = 9;
    bool bold = false;
};
ReportTextStyle ReportStyle(int number);

inline constexpr std::uint32_t kReportGrey = 0xE0E0E0;
inline constexpr std::uint32_t kReportPaleRed = 0xFFE6E6;
inline constexpr std::uint32_t kReportPaleGreen = 0xE1FFE1;
inline constexpr std::uint32_t kReportRed = 0xFF0000;
inline constexpr std::uint32_t kReportGreen = 0x097A25;

struct ReportCell {
    std::string text; // lines joined by "\r\n"
    int style = kStyleTable;
    ReportAlign align = ReportAlign::Left;
    std::uint32_t textColour = 0;
    std::optional<std::uint32_t> fill;
    std::array<bool, 4> borders{}; // left, top, right, bottom
    std::string image;             // a picture file drawn into the cell, kept in proportion
    double imageWidth = 0, imageHeight = 0;
};

struct ReportRow {
    std::vector<ReportCell> cells;
    double height = 0;          // twips; 0 takes the height of its text
    std::vector<double> widths; // relative widths of the cells; empty shares the width evenly
};

struct ReportPage {
    std::vector<ReportRow> rows;
};

class ReportDocument {
public:
    void Clear() { pages_.clear(); }
    void PageSetup(const ReportPageOptions& options, const std::string& title) {
        options_ = options;
        title_ = title;
    }
    const ReportPageOptions& Options() const { return options_; }
    const std::string& Title() const { return title_; }

    int AddPage();
    int AddRow(int page, int columns);
    void SetCellText(int page, int row, int column, const std::string& text, int style = kStyleTable,
                     ReportAlign align = ReportAlign::Left);
    void SetRowHeight(int page, int row, double twips);
    void SetRowWidths(int page, int row, std::vector<double> widths);
    // Borders on the four sides and the fill of columns first to last; a text colour too.
    void SetCellFormat(int page, int row, int first, int last, bool borders,
                       std::optional<std::uint32_t> fill, std::uint32_t textColour = 0);
    void AddImage(int page, int row, int column, const std::string& file, double width, double height);

    int PageCount() const { return static_cast<int>(pages_.size()); }
    const ReportPage& Page(int page) const { return pages_.at(static_cast<std::size_t>(page)); }
    ReportCell& Cell(int page, int row, int column);

private:
    ReportPageOptions options_;
    std::string title_;
    std::vector<ReportPage> pages_;
};

// The height a row takes when it sets none: its tallest cell's lines at their style's size, plus
// a little air (twips).
double ReportRowHeight(const ReportRow& row);

// The document's table cells in reading order, page by page and row by row, as comma-separated
// values: a field is quoted when it holds a comma, a quote or a line break (quotes doubled), the
// lines of a cell are joined by "\r\n" as written, rows end with "\r\n". Numbers stand as the
// pages wrote them, with "." decimals whatever the locale. Image cells give empty fields.
std::string ReportCsvText(const ReportDocument& document);

// A file that exists and carries no write permission for its owner: a save must leave it alone,
// whatever rights the running user has (root may write anything).
bool IsReadOnlyFile(const std::string& path);
inline constexpr const char* kReportReadOnlyMessage =
    "The report could not be saved. The selected file is Read-only.";
inline constexpr const char* kReportReadOnlyTitle = "Read-Only Error";

// Writes the CSV text whole or not at all; false when the file cannot be written.
[[nodiscard]] bool SaveReportCsv(const ReportDocument& document, const std::string& path);

} // namespace corvane
