// Writing a reference as a ppp file.
#include "reference/modImportFile.h"

#include "files/FileAccess.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "reference/modReferenceProperties.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

namespace {

const char* const kContext = "exporting the Michigan Wheel PPP file";
const char* const kCrLf = "\r\n";
constexpr std::size_t kCellWidth = 14;
const char* const kValueFormat = "0.0###";

// A left-justified cell. A value wider than the cell still keeps one blank after it, so that
// the row splits back into the same tokens.
void AppendCell(std::string& line, const std::string& value) {
    line += value;
    line.append(value.size() < kCellWidth ? kCellWidth - value.size() : 1, ' ');
}

std::string Value(double v) {
    return FormatPoint(v, kValueFormat);
}

// Sections of blade 0 that are written: those with offsets, hub first.
std::vector<int> WrittenSections(clsBlades& blade) {
    std::vector<int> out;
    for (int k = blade.SectionCount() - 1; k >= 0; --k) {
        if (blade.Section(k)->RawOffsetCount() > 0) {
            out.push_back(k);
        }
    }
    return out;
}

} // namespace

std::string FormatPPPText(const clsPropeller& propeller) {
    // The blade is read only; Section() is not const because it makes a missing section.
    clsBlades& blade = *propeller.Blades(0);
    const std::vector<int> written = WrittenSections(blade);
    int panels = 1;
    for (const int k : written) {
        panels = std::max<int>(panels, blade.Section(k)->SegmentPanelCount());
    }
    double pitch = blade.ISOBladePitch();
    if (pitch == 0.0 && !written.empty()) {
        double sum = 0.0;
        for (const int k : written) {
            sum += blade.Pitch(k);
        }
        pitch = sum / static_cast<double>(written.size());
    }

    std::string text;
    auto line = [&](const std::string& l) { text += l + kCrLf; };
    auto row = [&](const std::string& first, auto value) {
        std::string l;
        if (!first.empty()) {
            AppendCell(l, first);
        }
        for (const int k : written) {
            AppendCell(l, value(k));
        }
        line(l);
    };

    line("[Prop Description]");
    line(StripControlChars(propeller.Description()));
    line("[Number of Radii + 1]");
    line(std::to_string(written.size()));
    line("[Number of Sectors per Radius + 2]");
    line(std::to_string(panels));
    line("[Pitch Progression Table by Row]");
    row(Value(pitch), [&](int k) { return FormatPoint(blade.RadialPos(k) * 100.0, "0.0"); });
    std::vector<std::vector<double>> grid(static_cast<std::size_t>(blade.SectionCount()));
    for (const int k : written) {
        grid[static_cast<std::size_t>(k)] = PanelPitchesOnGrid(*blade.Section(k), blade.Pitch(k), panels);
    }
    // The LE row first: panel n - 1 is at the leading edge.
    for (int r = 0; r < panels; ++r) {
        const std::string label = r == 0 ? "LE" : r == panels - 1 ? "TE" : "LE+" + std::to_string(r);
        const std::size_t panel = static_cast<std::size_t>(panels - 1 - r);
        row(label, [&](int k) { return Value(grid[static_cast<std::size_t>(k)][panel]); });
    }
    row("Avg", [&](int k) { return Value(blade.Pitch(k)); });
    line("[Chord Lengths]");
    row("", [&](int k) { return Value(blade.Chord(k)); });
    line("[Rake]");
    row("", [&](int k) { return Value(blade.RakeAft(k)); });
    line("[Skew]");
    row("", [&](int k) { return Value(blade.SkewHelix(k)); });
    line("[Diameter]");
    line(Value(propeller.Diameter()));
    return text;
}

std::int32_t WritePPPFile(const std::string& path, const clsPropeller& propeller) {
    ErrorTail tail(kContext);
    std::size_t sections = 0;
    if (!tail.Step([&] { sections = WrittenSections(*propeller.Blades(0)).size(); })) {
        return 0;
    }
    if (sections < 3) {
        Prompts().MessageBox(
            "A minimum of 3 sections are required to create a reference PPP file. The PPP file "
            "cannot be exported.",
            MsgBox::OKOnly | MsgBox::Exclamation, "Export error");
        return 0;
    }
    return tail.Step([&] {
        if (!WriteFileAtomically(path, FormatPPPText(propeller))) {
            throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
        }
    })
               ? 1
               : 0;
}

std::int32_t ExportPPPFile(const std::string& path) {
    std::shared_ptr<clsPropeller> reference;
    {
        ErrorTail tail(kContext);
        bool prepared = false;
        tail.Step([&] {
            std::int16_t useRawEnds = 1;
            prepared = gProject && CalculateReferenceProperties(*gProject, useRawEnds) == 1;
            reference = prepared ? gProject->ReferenceScan() : nullptr;
        });
        if (!reference || tail.Failed()) {
            Prompts().MessageBox(
                "An error occurred preparing the reference data. The PPP file cannot be exported.",
                MsgBox::OKOnly | MsgBox::Exclamation, "Scan Data Error");
            return 0;
        }
    }
    return WritePPPFile(path, *reference);
}

} // namespace corvane
