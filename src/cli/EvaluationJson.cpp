#include "cli/EvaluationSummary.h"
#include "cli/JsonOutput.h"

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

Json Window(const ISOWindow& window) {
    return {{"Lower", window.Lower}, {"Upper", window.Upper}, {"Value", window.Value}, {"Pass", window.Pass}};
}

Json Windows(const std::vector<ISOWindow>& windows) {
    Json list = Json::array();
    for (const ISOWindow& window : windows)
        list.push_back(Window(window));
    return list;
}

Json OptionalWindow(const std::optional<ISOWindow>& window) {
    return window ? Window(*window) : Json(nullptr);
}

void AddSectionCriteria(Json& json, const ISOSectionResults& results) {
    json["NoseTailPitch"] = Window(results.NoseTailPitch);
    json["LocalPitch"] = Windows(results.LocalPitch);
    json["PitchContinuitySum"] = Windows(results.PitchContinuitySum);
    json["PitchContinuityDiff"] = Windows(results.PitchContinuityDiff);
    json["ChordLength"] = Window(results.ChordLength);
    json["LEPosition"] = Window(results.LEPosition);
    json["LEPositionHelix"] = Window(results.LEPositionHelix);
    json["RakePosition"] = Window(results.RakePosition);
    Json& deltas = json["DeltaRake"] = Json::array();
    for (const ISODeltaRake& delta : results.DeltaRake)
        deltas.push_back(
            {{"ToSection", delta.ToSection}, {"Position", delta.Position}, {"Window", Window(delta.Window)}});
    json["RakeToPrevBlade"] = OptionalWindow(results.RakeToPrevBlade);
    json["RakeToNextBlade"] = OptionalWindow(results.RakeToNextBlade);
}

const ISOSectionResults* SectionResults(const ISOBladeResults* blade, int k) {
    if (!blade || k < 0 || static_cast<std::size_t>(k) >= blade->Sections.size())
        return nullptr;
    const ISOSectionResults& section = blade->Sections[static_cast<std::size_t>(k)];
    return section.Measured ? &section : nullptr;
}

Json Section(clsBlades& blade, int k, const ISOBladeResults* bladeResults) {
    const auto section = blade.Section(k);
    Json json = {{"Index", k}, {"RawOffsetCount", section->RawOffsetCount()}};
    if (!Measured(blade, k)) {
        for (const char* key : {"RadialPos", "Pitch", "RakeAft", "Chord", "SkewHelix", "SegmentChord",
                                "ISOTotalAxialRakeToBCL", "ISOLEArcLengthPerSection", "SegmentPanelPitch"})
            json[key] = nullptr;
        return json;
    }
    json["RadialPos"] = blade.RadialPos(k);
    json["Pitch"] = blade.Pitch(k);
    json["RakeAft"] = blade.RakeAft(k);
    json["Chord"] = blade.Chord(k);
    json["SkewHelix"] = blade.SkewHelix(k);
    json["SegmentChord"] = section->SegmentChord();
    json["ISOTotalAxialRakeToBCL"] = blade.ISOTotalAxialRakeToBCL(k);
    json["ISOLEArcLengthPerSection"] = section->ISOLEArcLengthPerSection();
    Json& panels = json["SegmentPanelPitch"] = Json::array();
    for (int j = 0; j < section->SegmentPanelCount(); ++j)
        panels.push_back(section->SegmentPanelPitch(j));
    if (const ISOSectionResults* results = SectionResults(bladeResults, k))
        AddSectionCriteria(json, *results);
    return json;
}

Json ClassCodes(const EvaluationSummary& summary, int b) {
    Json json = Json::object();
    for (int row = 0; row < kISOClassRows; ++row) {
        const auto& codes = summary.classCodes[static_cast<std::size_t>(row)];
        json[kISOClassRowNames[static_cast<std::size_t>(row)]] =
            b < static_cast<int>(codes.size()) ? Json(codes[static_cast<std::size_t>(b)]) : Json(nullptr);
    }
    return json;
}

Json Blade(clsPropeller& scan, int b, const EvaluationSummary& summary) {
    const auto blade = scan.Blades(b);
    const ISOResults& results = gISO484->Results();
    const ISOBladeResults* bladeResults =
        summary.isoEvaluated && static_cast<std::size_t>(b) < results.Blades.size()
            ? &results.Blades[static_cast<std::size_t>(b)]
            : nullptr;
    Json json = {{"Index", b},
                 {"BladeEnabled", blade->BladeEnabled()},
                 {"GLPositionThetaDeg", blade->GLPositionThetaDeg()},
                 {"ISOEffectiveBladeAngleDeg", blade->ISOEffectiveBladeAngleDeg()},
                 {"ISOBladePitch", blade->ISOBladePitch()},
                 {"EffectivePitch", blade->EffectivePitch()}};
    if (summary.isoEvaluated) {
        json["ClassCodes"] = ClassCodes(summary, b);
        if (bladeResults && bladeResults->Evaluated) {
            json["MaxDiameter"] = Window(bladeResults->MaxDiameter);
            json["BladeMeanPitch"] = Window(bladeResults->BladeMeanPitch);
            json["BladeSpacing"] = OptionalWindow(bladeResults->BladeSpacing);
            json["SpacingToPrev"] = bladeResults->SpacingToPrev;
            json["SpacingToNext"] = bladeResults->SpacingToNext;
        }
    }
    Json& sections = json["Sections"] = Json::array();
    for (int k = 0; k < blade->SectionCount(); ++k)
        sections.push_back(
            Section(*blade, k, bladeResults && bladeResults->Evaluated ? bladeResults : nullptr));
    return json;
}

void AddVerdicts(Json& json, const EvaluationSummary& summary) {
    json["ReferenceSource"] = gProject->ReferenceSourceFileTag();
    json["ISOStandard"] = gISO484->ISOStandardLabel();
    json["ISOClass"] = gISO484->ISOClassLabel();
    json["ISOCriteria"] = gISO484->ISOCriteriaLabel();
    json["ClassStatus"] = {{"Code", summary.classStatus}, {"StatusWord", StatusWord(summary.classStatus)}};
    json["BestClass"] = {{"Code", summary.bestClass},
                         {"StatusWord", StatusWord(summary.bestClass)},
                         {"StandardText", summary.standardText},
                         {"Sentence", summary.sentence},
                         {"PropellerCode", summary.propellerCode}};
    json["PropellerMeanPitch"] = Window(gISO484->Results().PropellerMeanPitch);
}

} // namespace

std::string StatusWord(int code) {
    if (code < 0 || code >= static_cast<int>(kISOStatusWords.size()))
        return {};
    return kISOStatusWords[static_cast<std::size_t>(code)];
}

void WriteEvaluationJson(std::ostream& out, const EvaluationSummary& summary) {
    const auto scan = gProject->PropellerScan(summary.scanIndex);
    Json json = {{"ProjectID", gProject->ProjectID()},
                 {"PropLength", gUnits->GetUnitPropLengthLabel(-1)},
                 {"MarkedDiameter", gProject->MarkedDiameter()},
                 {"BladeCount", gProject->BladeCount()},
                 {"Rotation", gProject->RotationLabel()},
                 {"Scan", summary.scanLabel},
                 {"ISOPropellerPitch", scan->ISOPropellerPitch()},
                 {"PitchMean", scan->PitchMean()}};
    if (summary.isoEvaluated)
        AddVerdicts(json, summary);
    Json& blades = json["Blades"] = Json::array();
    for (int b = 0; b < scan->BladeCount(); ++b)
        blades.push_back(Blade(*scan, b, summary));
    WriteJson(out, json);
}

} // namespace corvane::cli
