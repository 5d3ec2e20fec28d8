#pragma once

// The state of one report build and its page builders: which page and row the build stands on,
// how much of the page is used, the kind, the stamp. modReports runs the page flow with it.

#include "reports/modReports.h"
#include "support/ErrorTail.h"

#include <functional>

#include <optional>
#include <string>
#include <vector>

namespace corvane {

class clsBlades;
class clsPropeller;
struct ISOWindow;

class ReportComposer {
public:
    ReportComposer(clsCorvane& project, clsISO484& iso, const ReportRequest& request,
                   ReportDocument& document, std::string stamp);

    void SetKind(std::int16_t kind) { kind_ = kind; }
    // Finds the best class of the active scan for the pages that follow.
    void Evaluate();
    const std::string& Sentence() const { return sentence_; }

    void AddSummaryPage();
    void AddPitchPages();
    void AddRadiusPages();
    void AddAppendixPages();
    void AddSumDiffPages();
    void AddGraphPageTop();
    void AddGraphPageOutline();

    // Runs one page builder; a failure goes to the error handler with its context, keeps the
    // pages built so far and is remembered as the build's failure.
    template <typename F> void Page(const char* context, F&& build) {
        ErrorTail tail(context);
        if (!tail.Step(std::forward<F>(build)) && failure_.empty())
            failure_ = context;
    }
    const std::string& Failure() const { return failure_; }

private:
    // Pages and rows.
    void AddPageHeader(const std::string& pageName, bool firstPage);
    void AddPageFooter();
    int NextReportRow(int columns, double height = 0);
    void Spacer();
    double RemainingHeight() const;
    // Begins a new page of the same name when `height` does not fit any more.
    void EnsureRoom(double height);
    void ImageRow(const std::string& file, double aspect, double maxHeight);
    void Caption(const std::string& text);

    // Tables.
    std::vector<int> TableBlades() const;
    std::vector<int> TableSections() const;
    std::string SectionLabel(int section) const;
    // A table's title and heading row: the first column, "Prop" when asked, "Ref" with a
    // reference, then "Blade n" per blade. Room for `rows` rows is made first.
    void AddTableHeader(const std::string& title, const std::string& firstHeading, int rows,
                        bool propColumn = false);
    int TableRow(const std::string& label);
    void WindowCell(int row, int column, const ISOWindow* window, const std::string& format, bool tested);
    void ValueCell(int row, int column, std::optional<double> value, const std::string& format);
    int RefColumn() const { return refColumn_; }
    int BladeColumn(std::size_t index) const { return firstBladeColumn_ + static_cast<int>(index); }
    // One row of blade values: the reference column holds the middle of the first window found.
    using WindowPick = std::function<const ISOWindow*(int blade)>;
    void WindowRow(const std::string& label, const WindowPick& pick, const std::string& format,
                   bool tested = true);
    const ISOSectionResults* Results(int blade, int section) const;
    void LocalTables();
    void ContinuityTables(int which);

    // The summary.
    std::string ClassText() const;
    std::string HeadingText() const;
    void SummaryGrid();
    void PropertiesBlock();
    std::string ReferenceText() const;

    std::string GraphFile(ReportGraph graph);
    bool Reference() const;
    const clsPropeller& Scan() const;
    std::string LengthFormat() const;
    double PageWidth() const;
    double PageHeight() const;

    clsCorvane& project_;
    clsISO484& iso_;
    const ReportRequest& request_;
    ReportDocument& doc_;
    std::string stamp_;
    std::int16_t kind_ = kReportKindStatus;
    std::string pageName_;
    int page_ = -1;
    double used_ = 0;      // twips of the current page
    double pageStart_ = 0; // twips the page header takes
    std::string sentence_;
    std::string failure_;
    std::int16_t bestCode_ = 0;
    ISOClassCodes codes_;
    std::int16_t propellerCode_ = 4;
    int columns_ = 1;
    int refColumn_ = -1;
    int firstBladeColumn_ = 1;
};

} // namespace corvane
