// The table pages: pitch, sections, the technical appendix and the pitch sums and differences.

#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "reports/ReportComposer.h"

#include <algorithm>

namespace corvane {

namespace {

constexpr std::array<const char*, 8> kFixedRadii = {"95R", "90R", "80R", "70R", "60R", "50R", "40R", "30R"};
constexpr double kTableRowHeight = 285; // twips of a row of table text
constexpr const char* kAngleFormat = "0.0";
constexpr const char* kPercentFormat = "0.0%";

std::string PanelLabel(int index, int count) {
    if (index == 0)
        return "(TE)";
    if (index == count - 1)
        return "(LE)";
    return std::to_string(index + 1);
}

} // namespace

bool ReportCellOutside(const ISOWindow& window, std::string format) {
    // The value as printed, against the bounds with the format's last place and a digit more
    // ("0.00" gives 0.0001); a percentage works on the fraction.
    const bool percent = !format.empty() && format.back() == '%';
    std::string printed = FormatNumber(window.Value, format);
    if (percent) {
        format.pop_back();
        printed.pop_back();
    }
    const double scale = percent ? 0.01 : 1.0;
    const double value = StringToDouble(printed) * scale;
    const double tolerance = StringToDouble(format + "01") * scale;
    return !(CompareDouble(value, kCompareGreaterOrEqual, window.Lower, tolerance) &&
             CompareDouble(value, kCompareLessOrEqual, window.Upper, tolerance));
}

std::vector<int> ReportComposer::TableBlades() const {
    std::vector<int> blades;
    const clsPropeller& scan = Scan();
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const bool shown = b >= 7 || request_.selection.blades[static_cast<std::size_t>(b)];
        if (shown && scan.Blades(b)->BladeEnabled())
            blades.push_back(b);
    }
    return blades;
}

std::vector<int> ReportComposer::TableSections() const {
    std::vector<int> sections;
    const clsPropeller& scan = Scan();
    const std::vector<int> blades = TableBlades();
    for (int k = 0; k < static_cast<int>(request_.radii.size()); ++k) {
        if (!request_.radii[static_cast<std::size_t>(k)])
            continue;
        const bool measured = std::any_of(blades.begin(), blades.end(), [&](int b) {
            const auto blade = scan.Blades(b);
            return k < blade->SectionCount() && blade->Section(k)->RawOffsetCount() > 1;
        });
        if (measured)
            sections.push_back(k);
    }
    return sections;
}

std::string ReportComposer::SectionLabel(int section) const {
    const clsPropeller& scan = Scan();
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const auto blade = scan.Blades(b);
        if (section < blade->SectionCount() && blade->RadialPos(section) > 0)
            return FormatNumber(blade->RadialPos(section) * 100, "0") + "R";
    }
    return kFixedRadii.at(static_cast<std::size_t>(std::clamp(section, 0, 7)));
}

const ISOSectionResults* ReportComposer::Results(int blade, int section) const {
    const auto& blades = iso_.Results().Blades;
    if (blade < 0 || static_cast<std::size_t>(blade) >= blades.size())
        return nullptr;
    const auto& sections = blades[static_cast<std::size_t>(blade)].Sections;
    if (section < 0 || static_cast<std::size_t>(section) >= sections.size() ||
        !sections[static_cast<std::size_t>(section)].Measured)
        return nullptr;
    return &sections[static_cast<std::size_t>(section)];
}

void ReportComposer::AddTableHeader(const std::string& title, const std::string& firstHeading, int rows,
                                    bool propColumn) {
    EnsureRoom((rows + 2) * kTableRowHeight + 400);
    Spacer();
    const std::vector<int> blades = TableBlades();
    int column = propColumn ? 2 : 1;
    refColumn_ = Reference() ? column++ : -1;
    firstBladeColumn_ = column;
    columns_ = column + static_cast<int>(blades.size());
    int row = NextReportRow(1);
    doc_.SetCellText(page_, row, 0, title, kStyleHeading);
    row = NextReportRow(columns_);
    std::vector<double> widths(static_cast<std::size_t>(columns_), 1.0);
    widths[0] = 1.4;
    doc_.SetRowWidths(page_, row, widths);
    doc_.SetCellText(page_, row, 0, firstHeading, kStyleTable, ReportAlign::Center);
    if (propColumn)
        doc_.SetCellText(page_, row, 1, "Prop", kStyleTable, ReportAlign::Center);
    if (refColumn_ > 0)
        doc_.SetCellText(page_, row, refColumn_, "Ref", kStyleTable, ReportAlign::Center);
    for (std::size_t i = 0; i < blades.size(); ++i)
        doc_.SetCellText(page_, row, BladeColumn(i), "Blade " + std::to_string(blades[i] + 1), kStyleTable,
                         ReportAlign::Center);
    doc_.SetCellFormat(page_, row, 0, columns_ - 1, true, kReportGrey);
}

int ReportComposer::TableRow(const std::string& label) {
    if (RemainingHeight() < kTableRowHeight) {
        // A long table goes on on the next page, under the same page header.
        AddPageFooter();
        AddPageHeader(pageName_, false);
    }
    const int row = NextReportRow(columns_, kTableRowHeight);
    std::vector<double> widths(static_cast<std::size_t>(columns_), 1.0);
    widths[0] = 1.4;
    doc_.SetRowWidths(page_, row, widths);
    doc_.SetCellFormat(page_, row, 0, columns_ - 1, true, std::nullopt);
    doc_.SetCellText(page_, row, 0, label, kStyleTable, ReportAlign::Center);
    for (int c = 1; c < columns_; ++c)
        doc_.SetCellText(page_, row, c, "-", kStyleTable, ReportAlign::Center);
    return row;
}

void ReportComposer::WindowCell(int row, int column, const ISOWindow* window, const std::string& format,
                                bool tested) {
    ReportCell& cell = doc_.Cell(page_, row, column);
    if (window == nullptr) {
        cell.text = "-";
        return;
    }
    cell.text = FormatNumber(window->Value, format);
    if (tested && Reference() && ReportCellOutside(*window, format)) {
        cell.text += kISOFailMark;
        doc_.SetCellFormat(page_, row, column, column, true, kReportPaleRed, kReportRed);
    }
}

void ReportComposer::ValueCell(int row, int column, std::optional<double> value, const std::string& format) {
    doc_.Cell(page_, row, column).text = value ? FormatNumber(*value, format) : "-";
}

void ReportComposer::WindowRow(const std::string& label, const WindowPick& pick, const std::string& format,
                               bool tested) {
    const int row = TableRow(label);
    const std::vector<int> blades = TableBlades();
    const ISOWindow* first = nullptr;
    for (std::size_t i = 0; i < blades.size(); ++i) {
        const ISOWindow* w = pick(blades[i]);
        if (first == nullptr)
            first = w;
        WindowCell(row, BladeColumn(i), w, format, tested);
    }
    if (refColumn_ > 0 && first != nullptr)
        ValueCell(row, refColumn_, (first->Lower + first->Upper) / 2, format);
}

void ReportComposer::AddPitchPages() {
    const clsPropeller& scan = Scan();
    const std::vector<int> blades = TableBlades();
    const auto& results = iso_.Results().Blades;
    const auto blade = [&results](int b) {
        return static_cast<std::size_t>(b) < results.size() && results[static_cast<std::size_t>(b)].Evaluated
                   ? &results[static_cast<std::size_t>(b)]
                   : nullptr;
    };
    const bool tip =
        std::any_of(blades.begin(), blades.end(), [&](int b) { return scan.Blades(b)->BladeDiameter() > 0; });
    const std::string f = LengthFormat();
    AddPageHeader(tip ? "Diam & Pitch" : "Pitch", false);
    if (tip) {
        AddTableHeader("Diameter [Rule 8]", "", 1, true);
        WindowRow(
            "Diameter", [&](int b) { return blade(b) ? &blade(b)->MaxDiameter : nullptr; }, f);
        ValueCell(static_cast<int>(doc_.Page(page_).rows.size()) - 1, 1, scan.Diameter(), f);
    }
    AddTableHeader("Spacing [Rule 12.3]", "", 1, true);
    WindowRow(
        "Spacing",
        [&](int b) { return blade(b) && blade(b)->BladeSpacing ? &*blade(b)->BladeSpacing : nullptr; },
        kAngleFormat);
    AddTableHeader("Pitch [Rules 7c, 7d]", "", 2, true);
    WindowRow(
        "ISO", [&](int b) { return blade(b) ? &blade(b)->BladeMeanPitch : nullptr; }, f);
    const int isoRow = static_cast<int>(doc_.Page(page_).rows.size()) - 1;
    WindowCell(isoRow, 1, &iso_.Results().PropellerMeanPitch, f, true);
    const int effective = TableRow("Effective");
    for (std::size_t i = 0; i < blades.size(); ++i)
        ValueCell(effective, BladeColumn(i), scan.Blades(blades[i])->EffectivePitch(), f);
    const std::vector<int> sections = TableSections();
    AddTableHeader("Section Pitch [Rule 7b]", "", static_cast<int>(sections.size()));
    for (int k : sections)
        WindowRow(
            SectionLabel(k), [&](int b) { return Results(b, k) ? &Results(b, k)->NoseTailPitch : nullptr; },
            f);
    for (int k : sections) {
        std::size_t panels = 0;
        for (int b : blades)
            if (const ISOSectionResults* r = Results(b, k))
                panels = std::max(panels, r->LocalPitch.size());
        if (panels == 0)
            continue;
        AddTableHeader("Local Segment Pitch [Rule 7a, 10.2]", SectionLabel(k), static_cast<int>(panels));
        for (std::size_t j = 0; j < panels; ++j)
            WindowRow(
                PanelLabel(static_cast<int>(j), static_cast<int>(panels)),
                [&](int b) {
                    const ISOSectionResults* r = Results(b, k);
                    return r && j < r->LocalPitch.size() ? &r->LocalPitch[j] : nullptr;
                },
                f);
    }
    AddPageFooter();
}

void ReportComposer::AddRadiusPages() {
    const std::vector<int> sections = TableSections();
    const std::string f = LengthFormat();
    AddPageHeader("Sections", false);
    const auto table = [&](const char* title, ISOWindow ISOSectionResults::*field) {
        AddTableHeader(title, "", static_cast<int>(sections.size()));
        for (int k : sections)
            WindowRow(
                SectionLabel(k), [&](int b) { return Results(b, k) ? &(Results(b, k)->*field) : nullptr; },
                f);
    };
    table("Chord [Rule 11]", &ISOSectionResults::ChordLength);
    table("LE Skew [Rule 12.2]", &ISOSectionResults::LEPosition);
    table("Rake BCL [Rule 13]", &ISOSectionResults::RakePosition);
    AddPageFooter();
}

void ReportComposer::AddAppendixPages() {
    const std::vector<int> sections = TableSections();
    const std::vector<int> blades = TableBlades();
    const std::string f = LengthFormat();
    AddPageHeader("Rake & Skew", false);
    AddTableHeader("Rake Diff (between consecutive blades) [Rule 13]", "", static_cast<int>(sections.size()));
    for (int k : sections)
        WindowRow(
            SectionLabel(k),
            [&](int b) {
                const ISOSectionResults* r = Results(b, k);
                return r && r->RakeToNextBlade ? &*r->RakeToNextBlade : nullptr;
            },
            f);
    if (sections.size() > 1) {
        AddTableHeader("Rake Progression (between consecutive sections) [Rule 13]", "",
                       static_cast<int>(sections.size()) - 1);
        for (std::size_t i = 0; i + 1 < sections.size(); ++i) {
            const int outer = sections[i], inner = sections[i + 1];
            const std::string label =
                SectionLabel(outer).substr(0, SectionLabel(outer).size() - 1) + "R-" + SectionLabel(inner);
            WindowRow(
                label,
                [&](int b) -> const ISOWindow* {
                    const ISOSectionResults* r = Results(b, outer);
                    if (r == nullptr)
                        return nullptr;
                    for (const ISODeltaRake& d : r->DeltaRake)
                        if (d.ToSection == inner)
                            return &d.Window;
                    return nullptr;
                },
                f);
        }
    }
    // Shown for the reference only: nothing is judged.
    const clsPropeller& scan = Scan();
    const clsPropeller* ref = Reference() ? project_.ReferenceScan().get() : nullptr;
    const auto shown = [&](const char* title, double (clsBlades::*refValue)(int) const,
                           const std::string& format) {
        AddTableHeader(title, "", static_cast<int>(sections.size()));
        for (int k : sections) {
            const int row = TableRow(SectionLabel(k));
            if (refColumn_ > 0 && ref && ref->BladeCount() > 0 && k < ref->Blades(0)->SectionCount())
                ValueCell(row, refColumn_, (ref->Blades(0).get()->*refValue)(k), format);
            for (std::size_t i = 0; i < blades.size(); ++i)
                if (Results(blades[i], k))
                    ValueCell(row, BladeColumn(i), scan.Blades(blades[i])->SkewHelix(k), format);
        }
    };
    shown("Mid-Chord Skew [Reference only. Not tested.]", &clsBlades::SkewHelix, kAngleFormat);
    // The blade columns of this table have always shown the skew; the column is kept as it stands.
    shown("Rake:GL [Reference only. Not tested.]", &clsBlades::RakeAft, f);
    AddPageFooter();
}

void ReportComposer::ContinuityTables(int which) {
    static constexpr std::array<const char*, 3> kTitles = {"Local Pitch Sum [Rule 7a, 10.2]",
                                                           "Local Pitch Diff [Rule 7a, 10.2]",
                                                           "Local Pitch Dev Diff [Rule 7a, 10.2]"};
    const std::vector<int> blades = TableBlades();
    for (int k : TableSections()) {
        std::size_t stations = 0;
        for (int b : blades)
            if (const ISOSectionResults* r = Results(b, k))
                stations = std::max(stations, r->PitchContinuitySum.size());
        if (stations == 0)
            continue;
        AddTableHeader(kTitles.at(static_cast<std::size_t>(which)), SectionLabel(k),
                       static_cast<int>(stations));
        std::vector<ISOWindow> deviation(blades.size());
        for (std::size_t j = 0; j < stations; ++j)
            WindowRow(
                PanelLabel(static_cast<int>(j), static_cast<int>(stations)),
                [&](int b) -> const ISOWindow* {
                    const ISOSectionResults* r = Results(b, k);
                    if (r == nullptr || j >= r->PitchContinuitySum.size())
                        return nullptr;
                    if (which == 0)
                        return &r->PitchContinuitySum[j];
                    if (which == 1 || j == 0)
                        return &r->PitchContinuityDiff[j];
                    // The change of the difference from the station before, in the same window.
                    const std::size_t i =
                        static_cast<std::size_t>(std::find(blades.begin(), blades.end(), b) - blades.begin());
                    deviation[i] = r->PitchContinuityDiff[j];
                    deviation[i].Value -= r->PitchContinuityDiff[j - 1].Value;
                    return &deviation[i];
                },
                kPercentFormat);
    }
}

void ReportComposer::AddSumDiffPages() {
    AddPageHeader("Sum & Diff", false);
    for (int which = 0; which < 3; ++which)
        ContinuityTables(which);
    AddPageFooter();
}

} // namespace corvane
