#pragma once

// The three reports of the Docs page and the command line: the Status report (summary and top
// view), the Full report (every table, with the appendix for Primary and Secondary) and the
// Repair report (the summary and top view of the active scan, then of the compared scan). The
// project and the ISO object come in evaluated (the REPORT gates ran RunCheck); the report is
// returned as a value. Graph pictures come through IReportGraphs, which the platform implements;
// without it the picture rows stay empty.

#include "graphs/modGraphsReport.h"
#include "iso484/ISOResults.h"
#include "reports/ReportDocument.h"

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;

// Report kinds by the criteria names: 0 "Primary", 1 "Primary and Secondary", 2 "Graph",
// 3 "Status", 4 "Repair".
inline constexpr std::int16_t kReportKindStatus = 3;
inline constexpr std::int16_t kReportKindRepair = 4;
inline constexpr std::array<const char*, 5> kReportCriteriaNames = {"Primary", "Primary and Secondary",
                                                                    "Graph", "Status", "Repair"};

class IReportGraphs {
public:
    virtual ~IReportGraphs() = default;
    // Draws one graph for a page of the given printable size (twips) and writes it under its
    // report file name; the path written, or "" when it could not be drawn.
    virtual std::string GraphFile(ReportGraph graph, const GraphRequest& request, double pageWidthTwips,
                                  double pageHeightTwips) = 0;
    // Joins two written graphs side by side into outName (a file name in the same folder); a
    // missing one leaves its half empty. The path written, or "".
    virtual std::string CompoundImage(const std::string& first, const std::string& second,
                                      const std::string& outName) = 0;
};

struct ReportRequest {
    // The Docs page's radius toggles, one per radial row of the scan (95R down to the inner).
    std::array<bool, 8> radii{true, true, true, true, true, true, true, true};
    ISOSelection selection;    // the blades shown
    int compareScanIndex = -1; // the Repair report's second scan, in the selected set
    std::string programFolder; // where the logo "CorvaneReportLogo-330x220.jpg" may lie
    IReportGraphs* graphs = nullptr;
    ReportPageOptions options; // paper and margins
};

struct [[nodiscard]] ReportBuild {
    ReportDocument document;
    std::string reportId; // "Report ID ..." as on every page
    std::string sentence; // the verdict line of the first summary
    // The context of the first page that failed ("adding Pitch pages"); the pages before stay.
    std::string failure;
    bool Complete() const { return failure.empty(); }
};

ReportBuild BuildStatusReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request);
// Kind = ISOCriteriaIndex; Primary and Secondary add the Sum & Diff pages (with a reference and
// a class other than 3) and the appendix.
ReportBuild BuildFullReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request);
// Two passes on one document; the active scan, its blades and the reference blade list are put
// back afterwards and the ISO data calculated again. Fails without a compare scan.
ReportBuild BuildRepairReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request);

// The Docs page's default radius toggles: the rows the ISO class requires (Depress_ISO_Panels).
std::array<bool, 8> ISOReportRadii(const clsISO484& iso);

// Whether a table cell gets the fail mark and the red box: its value rounded as the format
// prints it lies outside the window, compared with the format's tolerance ("0.000" plus "01").
bool ReportCellOutside(const ISOWindow& window, std::string format);

// "Report ID yyyymmdd-hhmmss Corvane 1.00.0000".
std::string ReportIdText(const std::string& stamp);

} // namespace corvane
