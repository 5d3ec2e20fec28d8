#include "reference/modReferenceEditor.h"

#include "files/FileAccess.h"
#include "files/clsFileINI.h"
#include "files/modPPPFile.h"
#include "files/modReferenceFile.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "reference/clsReferenceTables.h"
#include "reference/modImportFile.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <cmath>
#include <cstddef>
#include <vector>

namespace corvane {

namespace {

const char* const kCrLf = "\r\n";
const char* const kNoticeTitle = "File read notice";
constexpr std::size_t kCellWidth = 14;

// A left-justified cell; a wider value keeps one blank after it, so the row splits back the same.
void AppendCell(std::string& line, const std::string& value) {
    line += value;
    line.append(value.size() < kCellWidth ? kCellWidth - value.size() : 1, ' ');
}

std::string Value(double value) {
    return FormatPoint(value, "0.0000");
}

std::string FormatTables(const clsReferenceTables& tables) {
    const std::vector<ReferenceSectionRow>& rows = tables.Rows();
    const int segments = tables.SegmentCount();
    std::string text;
    const auto line = [&](const std::string& l) { text += l + kCrLf; };
    // One cell per section, hub first: the rows run from the tip down.
    const auto row = [&](const std::string& first, auto value) {
        std::string l;
        if (!first.empty()) {
            AppendCell(l, first);
        }
        for (auto r = rows.rbegin(); r != rows.rend(); ++r) {
            AppendCell(l, value(*r));
        }
        line(l);
    };
    line("[Prop Description]");
    line(StripControlChars(tables.Description()));
    line("[Number of Radii + 1]");
    line(std::to_string(rows.size()));
    line("[Number of Sectors per Radius + 2]");
    line(std::to_string(segments));
    line("[Pitch Progression Table by Row]");
    row(Value(tables.PropPitch()), [](const ReferenceSectionRow& r) { return Value(r.radialPct); });
    for (int s = 0; s < segments; ++s) {
        const std::string label = s == 0 ? "LE" : s == segments - 1 ? "TE" : "LE+" + std::to_string(s);
        row(label,
            [&](const ReferenceSectionRow& r) { return Value(r.localPitch[static_cast<std::size_t>(s)]); });
    }
    row("Avg", [](const ReferenceSectionRow& r) { return Value(r.pitch); });
    line("[Chord Lengths]");
    row("", [](const ReferenceSectionRow& r) { return Value(r.chord); });
    line("[Rake]");
    row("", [](const ReferenceSectionRow& r) { return Value(r.rake); });
    line("[Skew]");
    row("", [](const ReferenceSectionRow& r) { return Value(r.skew); });
    line("[Diameter]");
    line(Value(tables.Diameter()));
    return text;
}

void FillTables(const clsPropeller& propeller, const std::string& description, const std::string& path,
                clsReferenceTables& tables) {
    int segments = 0;
    std::vector<ReferenceSectionRow> rows = clsReferenceTables::RowsOf(propeller, false, segments);
    tables.SetConstantLocalPitchFound(false); // a file's segments are taken as they stand
    tables.Assign(description, propeller.Diameter(), std::move(rows), segments);
    tables.SetConstantLocalPitchFound(tables.LocalPitchesConstant());
    tables.SetFileName(path);
    tables.SetChanged(false);
}

[[noreturn]] void ThrowFileAccess() {
    throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
}

} // namespace

int ReadMichWheelReferenceFile(const std::string& path, clsReferenceTables& tables) {
    clsPropeller propeller;
    const PPPRead read = ReadPPPFile(path, propeller, 1);
    if (read.status == PPPReadStatus::Refused) {
        Prompts().MessageBox(read.refusal, MsgBox::OKOnly | MsgBox::Exclamation, "Error reading PPP");
    }
    if (!read.Usable()) {
        return 0;
    }
    if (read.status == PPPReadStatus::Incomplete &&
        Prompts().MessageBox(
            "The file was incomplete. The existing data has been processed, however errors may "
            "occur. Do you wish to continue?",
            MsgBox::YesNo | MsgBox::Question, "Missing Data") == Answer::No) {
        return 0;
    }
    ErrorTail tail("reading the PPP reference file");
    return tail.Step([&] { FillTables(propeller, propeller.Description(), path, tables); }) ? 1 : 0;
}

int WriteMichiganReferenceWheelFile(const std::string& path, const clsReferenceTables& tables) {
    ErrorTail tail("writing the PPP reference file");
    return tail.Step([&] {
        if (!WriteFileAtomically(path, FormatTables(tables))) {
            ThrowFileAccess();
        }
    })
               ? 1
               : 0;
}

int SaveCvrfFile(const std::string& path, const clsReferenceTables& tables) {
    ErrorTail tail("writing the cvrf reference file");
    bool written = false;
    tail.Step([&] {
        written = false;
        const std::shared_ptr<clsPropeller> propeller = tables.ToPropeller();
        if (BuildReferenceOffsets(*propeller) != 1) {
            return;
        }
        clsFileINI file;
        if (file.BeginBatch(path) != 1) {
            ThrowFileAccess();
        }
        bool flag = false;
        std::string text;
        file.ResetArrayIndex();
        file.SetStringToBlockTag("Notes", StripControlChars(tables.Description()), flag, text);
        const bool project = file.WriteBlock("Project", path) == 1;
        // The reference blocks join the batch opened here; the file is written once, at the commit.
        const bool blocks = WriteReferenceBlocks(path, *propeller, flag, text) == 1;
        if (!project || !blocks || file.CommitBatch() != 1) {
            file.DiscardBatch();
            ThrowFileAccess();
        }
        written = true;
    });
    return written ? 1 : 0;
}

int ReadCvrfReferenceFile(const std::string& path, clsReferenceTables& tables) {
    clsPropeller propeller;
    bool flag = false;
    std::string text;
    if (ReadReferenceBlocks(path, propeller, flag, text) != 1) {
        Prompts().MessageBox(text.empty() ? "The file holds no usable reference." : text,
                             MsgBox::OKOnly | MsgBox::Critical, kNoticeTitle);
        return 0;
    }
    if (flag) {
        Prompts().MessageBox("Missing or updated data items:" + std::string(kCrLf) + text,
                             MsgBox::OKOnly | MsgBox::Exclamation, kNoticeTitle);
    }
    ErrorTail tail("reading the cvrf file reference block");
    return tail.Step([&] {
        clsFileINI file;
        bool notesFlag = false;
        std::string notesText;
        std::string description;
        if (file.ReadBlock("Project", path) == 1) {
            description = file.GetStringFromBlockTag("Notes", notesFlag, notesText);
        }
        FillTables(propeller, description, path, tables);
    })
               ? 1
               : 0;
}

int BuildReferenceOffsets(clsPropeller& propeller) {
    ErrorTail tail("updating pitch averages");
    return tail.Step([&] {
        clsBlades& blade = *propeller.Blades(0);
        for (int k = 0; k < blade.SectionCount(); ++k) {
            clsSection& section = *blade.Section(k);
            const double r = propeller.Diameter() / 2.0 * blade.RadialPos(k);
            if (!(r > 0.0) || !std::isfinite(r)) {
                section.SetRawOffsetCount(0);
                continue;
            }
            const double chord = blade.Chord(k) == 0.0 ? 1.0 : blade.Chord(k);
            const std::vector<double> panels =
                PanelPitchesOnGrid(section, blade.Pitch(k), std::max<int>(section.SegmentPanelCount(), 1));
            const int n = static_cast<int>(panels.size());
            const double width = chord / n;
            const double chordAngle = std::atan(blade.Pitch(k) / (2.0 * gPi * r));
            section.SetRawOffsetCount(n + 1);
            section.SetRawOffsetX(0, 0.0);
            section.SetRawOffsetY(0, 0.0);
            double y = 0.0;
            for (int j = 0; j < n; ++j) {
                const double panelAngle = std::atan(panels[static_cast<std::size_t>(j)] / (2.0 * gPi * r));
                y += width * std::tan(panelAngle - chordAngle);
                section.SetRawOffsetX(j + 1, static_cast<double>(j + 1) / n * chord);
                section.SetRawOffsetY(j + 1, y);
            }
        }
    })
               ? 1
               : 0;
}

} // namespace corvane
