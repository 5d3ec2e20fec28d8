#include "reports/ReportComposer.h"

#include "iso484/clsISO484.h"
#include "model/AppVersion.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"
#include "support/Services.h"

#include <algorithm>
#include <filesystem>

namespace corvane {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kSpacerHeight = 400;
constexpr double kFooterHeight = 400;
constexpr const char* kLogoFile = "CorvaneReportLogo-330x220.jpg";
constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                 "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

std::string Two(int v) {
    return FormatNumber(v, "00");
}

} // namespace

ReportComposer::ReportComposer(clsCorvane& project, clsISO484& iso, const ReportRequest& request,
                               ReportDocument& document, std::string stamp)
    : project_(project), iso_(iso), request_(request), doc_(document), stamp_(std::move(stamp)) {}

const clsPropeller& ReportComposer::Scan() const {
    return *project_.PropellerScan(project_.ActiveScanIndex());
}

bool ReportComposer::Reference() const {
    return project_.ReferenceSourceIndex() != 0;
}

std::string ReportComposer::LengthFormat() const {
    return project_.Units() ? project_.Units()->PropLengthFormat() : "0.00";
}

double ReportComposer::PageWidth() const {
    const ReportPageOptions& o = doc_.Options();
    return (o.PaperWidthInches() - o.InInches(o.MarginLeft) - o.InInches(o.MarginRight)) * kTwipsPerInch;
}

double ReportComposer::PageHeight() const {
    const ReportPageOptions& o = doc_.Options();
    return (o.PaperHeightInches() - o.InInches(o.MarginTop) - o.InInches(o.MarginBottom)) * kTwipsPerInch;
}

double ReportComposer::RemainingHeight() const {
    return PageHeight() - kFooterHeight - used_;
}

int ReportComposer::NextReportRow(int columns, double height) {
    const int row = doc_.AddRow(page_, columns);
    if (height > 0)
        doc_.SetRowHeight(page_, row, height);
    used_ += height > 0 ? height : ReportRowHeight(doc_.Page(page_).rows.back());
    return row;
}

void ReportComposer::Spacer() {
    NextReportRow(1, kSpacerHeight);
}

void ReportComposer::EnsureRoom(double height) {
    // A page that holds only its header takes whatever comes; a table longer than a page goes
    // on over the next ones.
    if (height <= RemainingHeight() || used_ <= pageStart_)
        return;
    AddPageFooter();
    AddPageHeader(pageName_, false);
}

void ReportComposer::Caption(const std::string& text) {
    const int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, text, kStyleSmall, ReportAlign::Center);
}

void ReportComposer::ImageRow(const std::string& file, double aspect, double maxHeight) {
    constexpr double kSmallest = 1000; // twips: a picture smaller than this goes on a new page
    if (maxHeight < kSmallest) {
        EnsureRoom(PageHeight());
        maxHeight = std::max(kSmallest, RemainingHeight() - 600);
    }
    double width = PageWidth();
    double height = width * aspect;
    if (height > maxHeight) {
        height = maxHeight;
        width = height / aspect;
    }
    const int row = NextReportRow(1, height);
    // A missing picture leaves its row empty.
    if (!file.empty() && std::filesystem::exists(file))
        doc_.AddImage(page_, row, 0, file, width, height);
}

std::string ReportComposer::GraphFile(ReportGraph graph) {
    if (request_.graphs == nullptr)
        return {};
    GraphRequest request{project_, iso_, project_.ActiveScanIndex(), request_.selection, {}};
    request.options.report = true;
    return request_.graphs->GraphFile(graph, request, PageWidth(), PageHeight());
}

void ReportComposer::AddPageHeader(const std::string& pageName, bool firstPage) {
    pageName_ = pageName;
    page_ = doc_.AddPage();
    used_ = 0;
    int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, "Propeller Inspection [" + pageName + "]", kStyleTitle);
    if (firstPage) {
        row = NextReportRow(3, 1500);
        doc_.SetRowWidths(page_, row, {1, 2, 1});
        doc_.SetCellText(page_, row, 0, "Prepared by:", kStyleTable);
        const std::filesystem::path logo = std::filesystem::path(request_.programFolder) / kLogoFile;
        if (!request_.programFolder.empty() && std::filesystem::exists(logo))
            doc_.AddImage(page_, row, 0, logo.string(), 1650, 1100);
        std::string people = "Customer:\r\n" + project_.Customer();
        for (const std::string* line : {&project_.Inspector(), &project_.RepairShop()})
            if (!line->empty())
                people += "\r\n" + *line;
        doc_.SetCellText(page_, row, 1, people, kStyleTable);
        const DateTime now = Clock().Now();
        doc_.SetCellText(page_, row, 2,
                         Two(now.day) + "-" +
                             kMonths.at(static_cast<std::size_t>(std::clamp(now.month, 1, 12) - 1)) + "-" +
                             FormatNumber(now.year, "0000") + "\r\n" + Two(now.hour) + ":" + Two(now.minute),
                         kStyleTable, ReportAlign::Right);
    }
    const clsPropeller& scan = Scan();
    std::string source = scan.ScanSource();
    std::string brackets = scan.Description();
    if (!scan.ScanDate().empty())
        brackets += (brackets.empty() ? "" : ", ") + scan.ScanDate();
    if (!brackets.empty())
        source += " [" + brackets + "]";
    const std::pair<const char*, std::string> block[] = {{"Customer:", project_.Customer()},
                                                         {"Job:", project_.JobNumber()},
                                                         {"Scan:", ScanLabel(scan.ScanID())},
                                                         {"Source:", source},
                                                         {"Evaluation: ", ClassText()}};
    for (const auto& [label, value] : block) {
        row = NextReportRow(2);
        doc_.SetRowWidths(page_, row, {1, 4});
        doc_.SetCellText(page_, row, 0, label, kStyleTable);
        doc_.SetCellText(page_, row, 1, value, kStyleTable);
    }
    if (firstPage && bestCode_ == 3) {
        std::string blades;
        for (int b : TableBlades())
            blades += (blades.empty() ? "" : ", ") + std::to_string(b + 1);
        row = NextReportRow(2);
        doc_.SetRowWidths(page_, row, {1, 4});
        doc_.SetCellText(page_, row, 0, "Blades:", kStyleTable);
        doc_.SetCellText(page_, row, 1, blades, kStyleTable);
    }
    Spacer();
    pageStart_ = used_;
}

void ReportComposer::AddPageFooter() {
    const double left = RemainingHeight();
    if (left > 0)
        NextReportRow(1, left);
    const int row = NextReportRow(1, kFooterHeight);
    doc_.SetCellText(page_, row, 0, ReportIdText(stamp_), kStyleSmall, ReportAlign::Right);
}

void ReportComposer::AddGraphPageTop() {
    AddPageHeader("Graphs", false);
    ImageRow(GraphFile(ReportGraph::FullTop), 1.0, RemainingHeight() - 2500);
    Caption("Filled marker = pitch high.     Non-filled marker = pitch low.");
    Spacer();
    int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, "Customer notes", kStyleHeading);
    row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, project_.Notes(), kStyleTable);
    AddPageFooter();
}

void ReportComposer::AddGraphPageOutline() {
    AddPageHeader("Graphs", false);
    const bool compare = kind_ == kReportKindRepair;
    const std::string outline = GraphFile(ReportGraph::RakeOutline);
    const double room = RemainingHeight() - 800;
    ImageRow(outline, PageHeight() / PageWidth(), room * 0.55);
    // The pitch bars of the propeller and of its sections, side by side under the outline.
    std::string compound;
    if (request_.graphs != nullptr)
        compound = request_.graphs->CompoundImage(GraphFile(ReportGraph::PitchSum),
                                                  GraphFile(ReportGraph::SectionPitch), "RakOtlCrdBars.bmp");
    ImageRow(compound, 0.3, room * 0.15);
    Caption("Marker number indicates blade out-of-tolerance for shown radial position");
    ImageRow(GraphFile(compare ? ReportGraph::PathCompare : ReportGraph::Path), PageHeight() / PageWidth(),
             RemainingHeight() - 100);
    AddPageFooter();
}

std::string ReportIdText(const std::string& stamp) {
    return "Report ID " + stamp + " Corvane " + std::to_string(kVersionMajor) + "." +
           FormatNumber(kVersionMinor, "00") + "." + FormatNumber(kVersionRevision, "0000");
}

} // namespace corvane
