#include "cli/EvaluationSummary.h"
#include "cli/JsonWriter.h"

#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"

#include <ostream>

namespace corvane::cli {
namespace {

// A section counts as measured with more than one raw offset: only then has the calculation
// given it numbers, and only then did the evaluation look at it.
bool Measured(clsBlades& blade, int k) {
    return blade.Section(k)->RawOffsetCount() > 1;
}

void Window(JsonWriter& json, std::string_view key, const ISOWindow& window) {
    json.Key(key)
        .BeginObject()
        .Field("Lower", window.Lower)
        .Field("Upper", window.Upper)
        .Field("Value", window.Value)
        .Field("Pass", window.Pass)
        .EndObject();
}

void Windows(JsonWriter& json, std::string_view key, const std::vector<ISOWindow>& windows) {
    json.Key(key).BeginArray();
    for (const ISOWindow& window : windows)
        json.BeginObject()
            .Field("Lower", window.Lower)
            .Field("Upper", window.Upper)
            .Field("Value", window.Value)
            .Field("Pass", window.Pass)
            .EndObject();
    json.EndArray();
}

void OptionalWindow(JsonWriter& json, std::string_view key, const std::optional<ISOWindow>& window) {
    if (window)
        Window(json, key, *window);
    else
        json.Key(key).Null();
}

void SectionCriteria(JsonWriter& json, const ISOSectionResults& results) {
    Window(json, "NoseTailPitch", results.NoseTailPitch);
    Windows(json, "LocalPitch", results.LocalPitch);
    Windows(json, "PitchContinuitySum", results.PitchContinuitySum);
    Windows(json, "PitchContinuityDiff", results.PitchContinuityDiff);
    Window(json, "ChordLength", results.ChordLength);
    Window(json, "LEPosition", results.LEPosition);
    Window(json, "LEPositionHelix", results.LEPositionHelix);
    Window(json, "RakePosition", results.RakePosition);
    json.Key("DeltaRake").BeginArray();
    for (const ISODeltaRake& delta : results.DeltaRake) {
        json.BeginObject().Field("ToSection", delta.ToSection).Field("Position", delta.Position);
        Window(json, "Window", delta.Window);
        json.EndObject();
    }
    json.EndArray();
    OptionalWindow(json, "RakeToPrevBlade", results.RakeToPrevBlade);
    OptionalWindow(json, "RakeToNextBlade", results.RakeToNextBlade);
}

const ISOSectionResults* SectionResults(const ISOBladeResults* blade, int k) {
    if (!blade || k < 0 || static_cast<std::size_t>(k) >= blade->Sections.size())
        return nullptr;
    const ISOSectionResults& section = blade->Sections[static_cast<std::size_t>(k)];
    return section.Measured ? &section : nullptr;
}

void WriteSection(JsonWriter& json, clsBlades& blade, int k, const ISOBladeResults* bladeResults) {
    const auto section = blade.Section(k);
    json.BeginObject().Field("Index", k).Field("RawOffsetCount", section->RawOffsetCount());
    if (!Measured(blade, k)) {
        for (const char* key : {"RadialPos", "Pitch", "RakeAft", "Chord", "SkewHelix", "SegmentChord",
                                "ISOTotalAxialRakeToBCL", "ISOLEArcLengthPerSection", "SegmentPanelPitch"})
            json.Key(key).Null();
        json.EndObject();
        return;
    }
    json.Field("RadialPos", blade.RadialPos(k))
        .Field("Pitch", blade.Pitch(k))
        .Field("RakeAft", blade.RakeAft(k))
        .Field("Chord", blade.Chord(k))
        .Field("SkewHelix", blade.SkewHelix(k))
        .Field("SegmentChord", section->SegmentChord())
        .Field("ISOTotalAxialRakeToBCL", blade.ISOTotalAxialRakeToBCL(k))
        .Field("ISOLEArcLengthPerSection", section->ISOLEArcLengthPerSection())
        .Key("SegmentPanelPitch")
        .BeginArray();
    for (int j = 0; j < section->SegmentPanelCount(); ++j)
        json.Number(section->SegmentPanelPitch(j));
    json.EndArray();
    if (const ISOSectionResults* results = SectionResults(bladeResults, k))
        SectionCriteria(json, *results);
    json.EndObject();
}

void WriteClassCodes(JsonWriter& json, const EvaluationSummary& summary, int b) {
    json.Key("ClassCodes").BeginObject();
    for (int row = 0; row < kISOClassRows; ++row) {
        const auto& codes = summary.classCodes[static_cast<std::size_t>(row)];
        json.Key(kISOClassRowNames[static_cast<std::size_t>(row)]);
        if (b < static_cast<int>(codes.size()))
            json.Integer(codes[static_cast<std::size_t>(b)]);
        else
            json.Null();
    }
    json.EndObject();
}

void WriteBlade(JsonWriter& json, clsPropeller& scan, int b, const EvaluationSummary& summary) {
    const auto blade = scan.Blades(b);
    const ISOResults& results = gISO484->Results();
    const ISOBladeResults* bladeResults =
        summary.isoEvaluated && static_cast<std::size_t>(b) < results.Blades.size()
            ? &results.Blades[static_cast<std::size_t>(b)]
            : nullptr;
    json.BeginObject()
        .Field("Index", b)
        .Field("BladeEnabled", blade->BladeEnabled())
        .Field("GLPositionThetaDeg", blade->GLPositionThetaDeg())
        .Field("ISOEffectiveBladeAngleDeg", blade->ISOEffectiveBladeAngleDeg())
        .Field("ISOBladePitch", blade->ISOBladePitch())
        .Field("EffectivePitch", blade->EffectivePitch());
    if (summary.isoEvaluated) {
        WriteClassCodes(json, summary, b);
        if (bladeResults && bladeResults->Evaluated) {
            Window(json, "MaxDiameter", bladeResults->MaxDiameter);
            Window(json, "BladeMeanPitch", bladeResults->BladeMeanPitch);
            OptionalWindow(json, "BladeSpacing", bladeResults->BladeSpacing);
            json.Field("SpacingToPrev", bladeResults->SpacingToPrev)
                .Field("SpacingToNext", bladeResults->SpacingToNext);
        }
    }
    json.Key("Sections").BeginArray();
    for (int k = 0; k < blade->SectionCount(); ++k)
        WriteSection(json, *blade, k, bladeResults && bladeResults->Evaluated ? bladeResults : nullptr);
    json.EndArray().EndObject();
}

void WriteVerdicts(JsonWriter& json, const EvaluationSummary& summary) {
    json.Field("ReferenceSource", gProject->ReferenceSourceFileTag())
        .Field("ISOStandard", gISO484->ISOStandardLabel())
        .Field("ISOClass", gISO484->ISOClassLabel())
        .Field("ISOCriteria", gISO484->ISOCriteriaLabel());
    json.Key("ClassStatus")
        .BeginObject()
        .Field("Code", summary.classStatus)
        .Field("StatusWord", StatusWord(summary.classStatus))
        .EndObject();
    json.Key("BestClass")
        .BeginObject()
        .Field("Code", summary.bestClass)
        .Field("StatusWord", StatusWord(summary.bestClass))
        .Field("StandardText", summary.standardText)
        .Field("Sentence", summary.sentence)
        .Field("PropellerCode", summary.propellerCode)
        .EndObject();
    Window(json, "PropellerMeanPitch", gISO484->Results().PropellerMeanPitch);
}

} // namespace

std::string StatusWord(int code) {
    if (code < 0 || code >= static_cast<int>(kISOStatusWords.size()))
        return {};
    return kISOStatusWords[static_cast<std::size_t>(code)];
}

void WriteEvaluationJson(std::ostream& out, const EvaluationSummary& summary) {
    const auto scan = gProject->PropellerScan(summary.scanIndex);
    JsonWriter json(out);
    json.BeginObject()
        .Field("ProjectID", gProject->ProjectID())
        .Field("PropLength", gUnits->GetUnitPropLengthLabel(-1))
        .Field("MarkedDiameter", gProject->MarkedDiameter())
        .Field("BladeCount", gProject->BladeCount())
        .Field("Rotation", gProject->RotationLabel())
        .Field("Scan", summary.scanLabel)
        .Field("ISOPropellerPitch", scan->ISOPropellerPitch())
        .Field("PitchMean", scan->PitchMean());
    if (summary.isoEvaluated)
        WriteVerdicts(json, summary);
    json.Key("Blades").BeginArray();
    for (int b = 0; b < scan->BladeCount(); ++b)
        WriteBlade(json, *scan, b, summary);
    json.EndArray().EndObject().Finish();
}

} // namespace corvane::cli
