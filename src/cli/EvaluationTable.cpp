#include "cli/EvaluationSummary.h"

#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kAngleFormat = "0.00";
constexpr const char* kRatioFormat = "0.000";
// Class 3 judges no local pitch.
constexpr std::int16_t kClassWithoutLocalPitch = 4;

std::string Cell(std::string text, std::size_t width) {
    if (text.size() < width)
        text.append(width - text.size(), ' ');
    return text + ' ';
}

std::string Length(double value) {
    return FormatNumber(value, gUnits->PropLengthFormat());
}

// The names of the criteria that failed at one section and count for the class verdict, or "-"
// when none did. A row the class does not require counts for nothing; local pitch does not count
// in class 3, pitch continuity only with the secondary criteria.
std::string FailedCriteria(const ISOSectionResults& results, int k) {
    ISOSectionMask mask{};
    GetSectionMask(*gISO484, mask);
    if (k < 0 || k >= kISOSectionRows || !mask[static_cast<std::size_t>(k)])
        return "-";
    std::string names;
    const auto add = [&names](bool failed, const char* name) {
        if (failed)
            names += (names.empty() ? "" : ",") + std::string(name);
    };
    const auto anyFailed = [](const std::vector<ISOWindow>& windows) {
        for (const ISOWindow& window : windows)
            if (!window.Pass)
                return true;
        return false;
    };
    add(!results.NoseTailPitch.Pass, "NoseTailPitch");
    add(gISO484->ISOClassIndex() != kClassWithoutLocalPitch && anyFailed(results.LocalPitch), "LocalPitch");
    // Pitch continuity is a secondary criterion: it is worked out always but only counts then.
    add(gISO484->ISOCriteriaIndex() == 1 &&
            (anyFailed(results.PitchContinuitySum) || anyFailed(results.PitchContinuityDiff)),
        "PitchContinuity");
    add(!results.ChordLength.Pass, "ChordLength");
    add(!results.LEPosition.Pass, "LEPosition");
    add(!results.RakePosition.Pass, "RakePosition");
    return names.empty() ? "-" : names;
}

const ISOSectionResults* SectionResults(const EvaluationSummary& summary, int b, int k) {
    if (!summary.isoEvaluated)
        return nullptr;
    const auto& blades = gISO484->Results().Blades;
    if (b < 0 || static_cast<std::size_t>(b) >= blades.size() ||
        !blades[static_cast<std::size_t>(b)].Evaluated)
        return nullptr;
    const auto& sections = blades[static_cast<std::size_t>(b)].Sections;
    if (k < 0 || static_cast<std::size_t>(k) >= sections.size() ||
        !sections[static_cast<std::size_t>(k)].Measured)
        return nullptr;
    return &sections[static_cast<std::size_t>(k)];
}

std::string ClassCodeText(const EvaluationSummary& summary, int row, int b) {
    const auto& codes = summary.classCodes[static_cast<std::size_t>(row)];
    if (b < 0 || static_cast<std::size_t>(b) >= codes.size())
        return "?";
    const int code = codes[static_cast<std::size_t>(b)];
    return code >= 0 && code < static_cast<int>(kISOClassCellTexts.size())
               ? kISOClassCellTexts[static_cast<std::size_t>(code)]
               : std::to_string(code);
}

void WriteBladeTable(std::ostream& out, clsPropeller& scan, int b, const EvaluationSummary& summary) {
    const auto blade = scan.Blades(b);
    out << "\nBlade " << b + 1 << (blade->BladeEnabled() ? "" : " (not enabled)") << ": GL "
        << FormatNumber(blade->GLPositionThetaDeg(), kAngleFormat) << " deg, effective angle "
        << FormatNumber(blade->ISOEffectiveBladeAngleDeg(), kAngleFormat) << " deg, ISO pitch "
        << Length(blade->ISOBladePitch()) << ", effective pitch " << Length(blade->EffectivePitch()) << "\n";
    if (summary.isoEvaluated) {
        out << "  Class by criterion:";
        for (int row = 0; row < kISOClassRows; ++row)
            out << ' ' << kISOClassRowNames[static_cast<std::size_t>(row)] << '='
                << ClassCodeText(summary, row, b);
        out << "\n";
    }
    out << "  " << Cell("r/R", 6) << Cell("Points", 6) << Cell("Pitch", 9) << Cell("Rake", 9)
        << Cell("Chord", 9) << Cell("Skew", 8) << Cell("Seg.chord", 9) << Cell("BCL rake", 9)
        << Cell("LE arc", 9) << Cell("Panels", 6) << (summary.isoEvaluated ? "Failed" : "") << "\n";
    for (int k = 0; k < blade->SectionCount(); ++k) {
        const auto section = blade->Section(k);
        if (section->RawOffsetCount() < 2) {
            out << "  " << Cell("-", 6) << Cell(std::to_string(section->RawOffsetCount()), 6) << "no data\n";
            continue;
        }
        out << "  " << Cell(FormatNumber(blade->RadialPos(k), kRatioFormat), 6)
            << Cell(std::to_string(section->RawOffsetCount()), 6) << Cell(Length(blade->Pitch(k)), 9)
            << Cell(Length(blade->RakeAft(k)), 9) << Cell(Length(blade->Chord(k)), 9)
            << Cell(FormatNumber(blade->SkewHelix(k), kAngleFormat), 8)
            << Cell(Length(section->SegmentChord()), 9) << Cell(Length(blade->ISOTotalAxialRakeToBCL(k)), 9)
            << Cell(Length(section->ISOLEArcLengthPerSection()), 9)
            << Cell(std::to_string(section->SegmentPanelCount()), 6);
        if (const ISOSectionResults* results = SectionResults(summary, b, k))
            out << FailedCriteria(*results, k);
        out << "\n";
    }
}

} // namespace

void WriteEvaluationTable(std::ostream& out, const EvaluationSummary& summary) {
    const auto scan = gProject->PropellerScan(summary.scanIndex);
    const std::string unit = gUnits->GetUnitPropLengthLabel(-1);
    out << "Project " << gProject->ProjectID() << ": diameter " << Length(gProject->MarkedDiameter()) << ' '
        << unit << ", " << gProject->BladeCount() << " blades, " << gProject->RotationLabel()
        << " hand, scan " << summary.scanLabel << "\n"
        << "ISO propeller pitch:   " << Length(scan->ISOPropellerPitch()) << ' ' << unit << "\n"
        << "Integrated mean pitch: " << Length(scan->PitchMean()) << ' ' << unit << "\n";
    if (summary.isoEvaluated) {
        out << "Reference:             " << gProject->ReferenceSourceLabel() << "\n"
            << "Standard:              " << summary.standardText << ", " << gISO484->ISOClassLabel() << "\n"
            << "Class status:          " << StatusWord(summary.classStatus) << "\n"
            << "Result:                " << summary.sentence << "\n";
    }
    out << "Lengths in " << unit << ", angles in degrees.\n";
    for (int b = 0; b < scan->BladeCount(); ++b)
        WriteBladeTable(out, *scan, b, summary);
}

} // namespace corvane::cli
