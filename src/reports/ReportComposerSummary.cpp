// The Summary page: the verdict bands, the grid of the ten criteria, the propeller's properties
// and the section pitch bars.

#include "check/CheckRun.h"
#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"
#include "reports/ReportComposer.h"

#include <algorithm>
#include <cctype>

namespace corvane {

namespace {

constexpr std::array<const char*, 5> kClassParts = {"Class S.", "Class 1.", "Class 1a.", "Class 2.",
                                                    "Class 3."};

struct GridCell {
    const char* first;
    const char* second;
};
constexpr std::array<GridCell, 10> kGrid = {{{"ISO", "Radii"},
                                             {"Prop", "Pitch"},
                                             {"Blade", "Pitch"},
                                             {"Section", "Pitch"},
                                             {"Local", "Pitch"},
                                             {"Tip", "Diameters"},
                                             {"Chord", "Length"},
                                             {"LE", "Skew"},
                                             {"Rake", "Track"},
                                             {"Blade", "Spacing"}}};
enum GridIndex {
    kRadii,
    kPropPitch,
    kBladePitch,
    kSectionPitch,
    kLocalPitch,
    kTip,
    kChord,
    kLE,
    kRake,
    kSpacing
};

// The class rows each grid cell judges; the secondary ones only for Primary and Secondary.
struct GridRows {
    std::vector<int> primary;
    std::vector<int> secondary;
};
GridRows RowsOf(int cell) {
    switch (cell) {
    case kRadii:
        return {{kISORowCoverage}, {}};
    case kBladePitch:
        return {{kISORowBladeMeanPitch}, {}};
    case kSectionPitch:
        return {{kISORowNoseTailPitch}, {}};
    case kLocalPitch:
        return {{kISORowLocalPitch}, {kISORowPitchContinuitySum, kISORowPitchContinuityDiff}};
    case kTip:
        return {{kISORowMaxDiameter}, {}};
    case kChord:
        return {{kISORowChordLength}, {}};
    case kLE:
        return {{kISORowLEPosition}, {}};
    case kRake:
        return {{kISORowRakePosition}, {kISORowRakeBetweenBlades, kISORowDeltaRake}};
    case kSpacing:
        return {{kISORowBladeSpacing}, {}};
    default:
        return {};
    }
}

bool TipMeasured(const clsPropeller& scan) {
    for (int b = 0; b < scan.BladeCount(); ++b)
        if (scan.Blades(b)->BladeDiameter() > 0)
            return true;
    return false;
}

} // namespace

void ReportComposer::Evaluate() {
    const BestClass best = FindBestClass(project_, iso_, request_.selection);
    bestCode_ = best.code;
    codes_ = best.codes;
    propellerCode_ = best.propellerCode;
    sentence_ = best.sentence;
}

std::string ReportComposer::ClassText() const {
    const int c = iso_.ISOClassIndex();
    return c >= 0 && c < static_cast<int>(kClassParts.size()) ? kClassParts[static_cast<std::size_t>(c)]
                                                              : "Class Custom.";
}

std::string ReportComposer::HeadingText() const {
    // The standard as the ISO evaluation words it.
    const std::string standard = iso_.ISOStandardIndex() == 0 ? "ISO 484-1  " : "ISO 484-2 ";
    const std::size_t k = static_cast<std::size_t>(std::clamp<int>(kind_, 0, 4));
    return standard + kReportCriteriaNames[k] + " " + ClassText();
}

void ReportComposer::AddSummaryPage() {
    AddPageHeader("Summary", true);
    const bool pass = bestCode_ == 1;
    const std::uint32_t band = pass ? kReportPaleGreen : kReportPaleRed;
    const std::uint32_t ink = pass ? kReportGreen : kReportRed;
    for (const std::string& text : {HeadingText(), sentence_}) {
        const int row = NextReportRow(1);
        doc_.SetCellText(page_, row, 0, text, kStyleTitle, ReportAlign::Center);
        doc_.SetCellFormat(page_, row, 0, 0, false, band, ink);
    }
    Spacer();
    int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, "Summary", kStyleHeading);
    row = NextReportRow(2);
    doc_.SetCellText(page_, row, 0, "Evaluation: " + ClassText() + " Summary", kStyleTable);
    doc_.SetCellText(page_, row, 1, "[X] = Fail", kStyleTable, ReportAlign::Right);
    SummaryGrid();
    Spacer();
    PropertiesBlock();
    Spacer();
    const bool compare = kind_ == kReportKindRepair;
    ImageRow(GraphFile(compare ? ReportGraph::SectionPitchCompare : ReportGraph::SectionPitch), 0.6,
             RemainingHeight() - 600);
    Caption("Red box and text indicates pitch out-of-tolerance ");
    AddPageFooter();
}

void ReportComposer::SummaryGrid() {
    const clsPropeller& scan = Scan();
    const int asked = iso_.ISOClassIndex();
    const auto fails = [asked](int code) { return code > asked && code < 5; };
    const bool secondary = iso_.ISOCriteriaIndex() == 1;
    const int row = NextReportRow(static_cast<int>(kGrid.size()), 900);
    for (std::size_t c = 0; c < kGrid.size(); ++c) {
        const int cell = static_cast<int>(c);
        bool tested = true;
        if (cell == kTip)
            tested = TipMeasured(scan);
        if (cell == kRake)
            tested = scan.ScanDrop() != 2;
        bool ok = true;
        if (cell == kPropPitch)
            ok = !fails(propellerCode_);
        const GridRows rows = RowsOf(cell);
        std::vector<int> judged = rows.primary;
        if (secondary)
            judged.insert(judged.end(), rows.secondary.begin(), rows.secondary.end());
        if (cell == kLocalPitch && asked == 4)
            judged.clear();
        for (int b : TableBlades())
            for (int r : judged) {
                const auto& codes = codes_[static_cast<std::size_t>(r)];
                if (static_cast<std::size_t>(b) < codes.size() && fails(codes[static_cast<std::size_t>(b)]))
                    ok = false;
            }
        const std::string mark = !tested ? "-" : ok ? "OK" : "[X]";
        doc_.SetCellText(page_, row, cell, mark + "\r\n" + kGrid[c].first + "\r\n" + kGrid[c].second,
                         kStyleTable, ReportAlign::Center);
        if (tested && !ok)
            doc_.SetCellFormat(page_, row, cell, cell, true, kReportPaleRed, kReportRed);
        else
            doc_.SetCellFormat(page_, row, cell, cell, true, kReportGrey);
    }
}

std::string ReportComposer::ReferenceText() const {
    const std::int16_t source = project_.ReferenceSourceIndex();
    std::string text = project_.ReferenceSourceLabel(source);
    if (source == kReferenceScan) {
        text += " " + ScanLabel(project_.PropellerScan(project_.InternalScanIndex())
                                    ? project_.PropellerScan(project_.InternalScanIndex())->ScanID()
                                    : 0);
        std::string blades;
        int count = 0;
        for (int b = 0; b < Scan().BladeCount(); ++b)
            if (project_.ReferenceScanBladesEnabled(b) != 0) {
                blades += (blades.empty() ? "" : ", ") + std::to_string(b + 1);
                ++count;
            }
        text += (count == 1 ? " blade [" : " blades[") + blades + "]";
    } else if (source != kReferenceNone) {
        std::string path = project_.ReferenceSourceFilePath();
        if (path.size() > 40)
            path = "~" + path.substr(path.size() - 39);
        text += " " + path;
    }
    return text;
}

void ReportComposer::PropertiesBlock() {
    const clsPropeller& scan = Scan();
    const std::string f = LengthFormat();
    const auto length = [&f](double v) { return v > 0 ? FormatNumber(v, f) : std::string("-"); };
    const clsPropeller* ref = project_.ReferenceScan().get();
    const std::string diameters = length(project_.MarkedDiameter()) + " / " +
                                  (Reference() && ref ? length(ref->Diameter()) : "-") + " / " +
                                  length(scan.Diameter());
    const std::string pitches = (project_.MarkedPitch().empty() ? "-" : project_.MarkedPitch()) + " / " +
                                (Reference() && ref ? length(ref->ISOPropellerPitch()) : "-") + " / " +
                                length(scan.ISOPropellerPitch());
    const std::array<std::array<std::string, 4>, 6> lines = {{
        {"Manufacturer:", project_.Manufacturer(), "Blades:", std::to_string(scan.BladeCount())},
        {"Model:", project_.ModelNumber(), "Rotation", project_.RotationFileTag()},
        {"Serial Number:", project_.SerialNumber(), "Diam(stamp/ref/scan):", diameters},
        {"Material:", project_.MaterialDescription(), "Pitch(stamp/ref/scan):", pitches},
        {"Bore:", project_.BoreSize(), "LE Exclusion:", FormatNumber(project_.LEExclusionDistance(), f)},
        {"Reference:", ReferenceText(), "TE Exclusion:", FormatNumber(project_.CupExclusionDistance(), f)},
    }};
    int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, "Propeller properties", kStyleHeading);
    for (const auto& line : lines) {
        row = NextReportRow(4);
        doc_.SetRowWidths(page_, row, {1.2, 1.8, 1.4, 1.6});
        for (int c = 0; c < 4; ++c)
            doc_.SetCellText(page_, row, c, line[static_cast<std::size_t>(c)], kStyleTable);
    }
}

} // namespace corvane
