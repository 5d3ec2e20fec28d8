#include "reference/clsReferenceTables.h"

#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "reference/modImportFile.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace corvane {

namespace {

struct CountWords {
    const char* minimum;
    const char* erase;
    const char* title;
};

const CountWords kSectionWords{
    "The minumum number of Sections required is 3.",
    "Changing number of Sections will erase all table data. Do you want to proceed?", "Sections"};
const CountWords kSegmentWords{
    "The minumum number of Segments (local pitch) required is 3.",
    "Changing number of Segments (local pitch) will erase all table data. Do you want to proceed?",
    "Segments"};

bool Asked(const std::string& text, const char* title) {
    return Prompts().MessageBox(text, MsgBox::YesNo | MsgBox::Question, title) == Answer::Yes;
}

// The largest count a field may ask for: far beyond any reference, short of a table the window
// could not show.
constexpr double kMaximumCount = 1000;

} // namespace

void clsReferenceTables::SetDescription(const std::string& text) {
    description_ = text;
    changed_ = true;
}

void clsReferenceTables::SetDiameter(double diameter) {
    diameter_ = diameter;
    changed_ = true;
    UpdatePitchAverages();
}

void clsReferenceTables::Clear() {
    description_.clear();
    diameter_ = 0;
    fileName_.clear();
    rows_.clear();
    segments_ = 0;
    constant_ = false;
    changed_ = false;
}

bool clsReferenceTables::HasData() const {
    for (const ReferenceSectionRow& row : rows_) {
        if (row.radialPct != 0 || row.chord != 0 || row.rake != 0 || row.skew != 0 || row.pitch != 0) {
            return true;
        }
        for (const double local : row.localPitch) {
            if (local != 0) {
                return true;
            }
        }
    }
    return false;
}

int clsReferenceTables::ChangeSectionCount(std::string_view text) {
    return ChangeCount(text, true);
}

int clsReferenceTables::ChangeSegmentCount(std::string_view text) {
    return ChangeCount(text, false);
}

int clsReferenceTables::ChangeCount(std::string_view text, bool sections) {
    const CountWords& words = sections ? kSectionWords : kSegmentWords;
    const int current = sections ? SectionCount() : segments_;
    if (!IsNumericText(text, '.')) {
        return current;
    }
    const double typed = std::nearbyint(StringToDouble(text));
    int count = static_cast<int>(std::clamp(typed, -1.0, kMaximumCount));
    if (count < kMinimumCount) {
        Prompts().MessageBox(words.minimum, MsgBox::OKOnly | MsgBox::Exclamation, words.title);
        count = kMinimumCount;
    }
    if (count == current) {
        return current;
    }
    if (HasData() && !Asked(words.erase, words.title)) {
        return current;
    }
    Resize(sections ? count : SectionCount(), sections ? segments_ : count);
    return count;
}

void clsReferenceTables::Resize(int sections, int segments) {
    rows_.assign(static_cast<std::size_t>(sections), ReferenceSectionRow{});
    segments_ = segments;
    for (ReferenceSectionRow& row : rows_) {
        row.localPitch.assign(static_cast<std::size_t>(segments), 0.0);
    }
    changed_ = true;
}

void clsReferenceTables::AddSection() {
    ReferenceSectionRow row;
    row.localPitch.assign(static_cast<std::size_t>(segments_), 0.0);
    rows_.push_back(std::move(row));
    SortKeeping(-1);
    UpdatePitchAverages();
    changed_ = true;
}

void clsReferenceTables::AddSegment() {
    for (ReferenceSectionRow& row : rows_) {
        row.localPitch.push_back(row.pitch);
    }
    ++segments_;
    UpdatePitchAverages();
    changed_ = true;
}

bool clsReferenceTables::DeleteSection(int row) {
    if (row < 0 || row >= SectionCount() || SectionCount() <= kMinimumCount) {
        return false;
    }
    const double radialPct = rows_[static_cast<std::size_t>(row)].radialPct;
    if (!Asked("Delete section " + FormatPoint(radialPct, ""), "Remove Radius?")) {
        return false;
    }
    rows_.erase(rows_.begin() + row);
    UpdatePitchAverages();
    changed_ = true;
    return true;
}

bool clsReferenceTables::DeleteSegment(int segment) {
    if (segment < 0 || segment >= segments_) {
        Prompts().MessageBox("No segment Selected, Click column header to select a Segment.",
                             MsgBox::OKOnly | MsgBox::Exclamation, "Remove Segment?");
        return false;
    }
    if (segments_ <= kMinimumCount ||
        !Asked("Delete Segment " + std::to_string(segment + 1), "Remove Segment?")) {
        return false;
    }
    for (ReferenceSectionRow& row : rows_) {
        row.localPitch.erase(row.localPitch.begin() + segment);
    }
    --segments_;
    UpdatePitchAverages();
    changed_ = true;
    return true;
}

int clsReferenceTables::SetSectionValue(int row, SectionColumn column, double value) {
    ReferenceSectionRow& edited = rows_.at(static_cast<std::size_t>(row));
    switch (column) {
    case SectionColumn::RadialPos:
        edited.radialPct = value;
        break;
    case SectionColumn::Chord:
        edited.chord = value;
        break;
    case SectionColumn::Rake:
        edited.rake = value;
        break;
    case SectionColumn::Skew:
        edited.skew = value;
        break;
    case SectionColumn::Pitch:
        edited.pitch = value;
        if (constant_) {
            std::fill(edited.localPitch.begin(), edited.localPitch.end(), value);
        }
        break;
    }
    const int now = column == SectionColumn::RadialPos ? SortKeeping(row) : row;
    UpdatePitchAverages();
    changed_ = true;
    return now;
}

void clsReferenceTables::SetLocalPitch(int row, int segment, double value) {
    rows_.at(static_cast<std::size_t>(row)).localPitch.at(static_cast<std::size_t>(segment)) = value;
    UpdatePitchAverages();
    changed_ = true;
}

bool clsReferenceTables::SetUseConstantLocalPitch(bool on) {
    if (!on) {
        constant_ = false;
        return true;
    }
    if (!Asked("Changing to constant pitch values will overwrite all local pitch values, Do you want to "
               "continue?",
               "Constant Pitch Values?")) {
        return false;
    }
    for (ReferenceSectionRow& row : rows_) {
        std::fill(row.localPitch.begin(), row.localPitch.end(), row.pitch);
    }
    constant_ = true;
    UpdatePitchAverages();
    changed_ = true;
    return true;
}

bool clsReferenceTables::LocalPitchesConstant() const {
    for (const ReferenceSectionRow& row : rows_) {
        for (const double local : row.localPitch) {
            if (!CompareDouble(local, kCompareEqual, row.pitch, kPitchTolerance)) {
                return false;
            }
        }
    }
    return true;
}

void clsReferenceTables::UpdatePitchAverages() {
    for (ReferenceSectionRow& row : rows_) {
        const double r = row.radialPct / 100.0 * diameter_ / 2.0;
        row.meanPitch = 0;
        if (!(r > 0.0) || row.localPitch.empty()) {
            continue;
        }
        double sum = 0.0;
        for (const double local : row.localPitch) {
            sum += std::atan(local / (gPi * r)) / gDegToRad;
        }
        const double count = static_cast<double>(row.localPitch.size());
        row.meanPitch = std::tan(gDegToRad * (sum / count)) * gPi * r;
        if (constant_) {
            row.pitch = row.meanPitch;
        }
    }
}

double clsReferenceTables::PropPitch() const {
    if (rows_.empty()) {
        return 0;
    }
    double sum = 0;
    for (const ReferenceSectionRow& row : rows_) {
        sum += row.pitch;
    }
    return sum / static_cast<double>(rows_.size());
}

void clsReferenceTables::Assign(const std::string& description, double diameter,
                                std::vector<ReferenceSectionRow> rows, int segments) {
    description_ = description;
    diameter_ = diameter;
    rows_ = std::move(rows);
    segments_ = segments;
    for (ReferenceSectionRow& row : rows_) {
        row.localPitch.resize(static_cast<std::size_t>(segments), row.pitch);
        if (constant_) {
            std::fill(row.localPitch.begin(), row.localPitch.end(), row.pitch);
        }
    }
    SortKeeping(-1);
    UpdatePitchAverages();
    changed_ = true;
}

int clsReferenceTables::SortKeeping(int row) {
    std::vector<std::size_t> order(rows_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto key = [&](std::size_t i) { return std::isnan(rows_[i].radialPct) ? 0.0 : rows_[i].radialPct; };
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return key(a) > key(b); });
    std::vector<ReferenceSectionRow> sorted;
    sorted.reserve(rows_.size());
    int now = row;
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (static_cast<int>(order[i]) == row) {
            now = static_cast<int>(i);
        }
        sorted.push_back(std::move(rows_[order[i]]));
    }
    rows_ = std::move(sorted);
    return now;
}

std::shared_ptr<clsPropeller> clsReferenceTables::ToPropeller() const {
    auto propeller = std::make_shared<clsPropeller>();
    propeller->SetDescription(description_);
    propeller->SetDiameter(diameter_);
    propeller->SetBladeCount(1);
    clsBlades& blade = *propeller->Blades(0);
    blade.SetSectionCount(static_cast<std::int16_t>(rows_.size()));
    for (std::size_t k = 0; k < rows_.size(); ++k) {
        const ReferenceSectionRow& row = rows_[k];
        const int i = static_cast<int>(k);
        blade.SetRadialPos(i, row.radialPct / 100.0);
        blade.SetChord(i, row.chord);
        blade.SetPitch(i, row.pitch);
        blade.SetRakeAft(i, row.rake);
        blade.SetSkewHelix(i, row.skew);
        clsSection& section = *blade.Section(i);
        section.SetSegmentPanelCount(segments_);
        for (int j = 0; j < segments_; ++j) {
            // Panel 0 lies at the trailing edge, the table's last column.
            section.SetSegmentPanelPitch(j, row.localPitch[static_cast<std::size_t>(segments_ - 1 - j)]);
        }
    }
    return propeller;
}

std::vector<ReferenceSectionRow> clsReferenceTables::RowsOf(const clsPropeller& propeller,
                                                            bool onlyWithOffsets, int& segments) {
    std::vector<ReferenceSectionRow> rows;
    segments = 0;
    if (propeller.BladeCount() < 1) {
        return rows;
    }
    clsBlades& blade = *propeller.Blades(0);
    std::vector<int> used;
    for (int k = 0; k < blade.SectionCount(); ++k) {
        if (!onlyWithOffsets || blade.Section(k)->RawOffsetCount() > 0) {
            used.push_back(k);
            segments = std::max<int>(segments, blade.Section(k)->SegmentPanelCount());
        }
    }
    for (const int k : used) {
        ReferenceSectionRow row;
        // In percent as typed: 0.7 * 100 must read 70, not 70.00000000000001.
        row.radialPct = std::round(blade.RadialPos(k) * 100.0 * 1e9) / 1e9;
        row.chord = blade.Chord(k);
        row.rake = blade.RakeAft(k);
        row.skew = blade.SkewHelix(k);
        row.pitch = blade.Pitch(k);
        const std::vector<double> panels = PanelPitchesOnGrid(*blade.Section(k), row.pitch, segments);
        row.localPitch.assign(panels.rbegin(), panels.rend()); // leading edge first
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace corvane
