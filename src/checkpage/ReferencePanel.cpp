#include "checkpage/ReferencePanel.h"

#include "check/modISO484Data.h"
#include "files/modReferenceFile.h"
#include "iso484/modISO484Evaluate.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/clsUnits.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "reference/modImportFile.h"
#include "reference/modReferenceProperties.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace corvane {

namespace {

// The smallest step the unit's length format shows: "0.00" gives 0.01.
double DisplayPrecision(const clsCorvane& project) {
    const std::string format = project.Units() ? project.Units()->PropLengthFormat() : "0.00";
    const auto point = format.find('.');
    const auto decimals = point == std::string::npos ? 0 : format.size() - point - 1;
    return std::pow(10.0, -static_cast<double>(decimals));
}

bool RowMeasured(const clsPropeller& scan, int row) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const auto blade = scan.Blades(b);
        if (row < blade->SectionCount() && blade->Section(row)->RawOffsetCount() > 0) {
            return true;
        }
    }
    return false;
}

// Mid-range of the values above the precision, or nothing when none is.
struct MidRange {
    double lo = 0, hi = 0;
    bool any = false;
    void Add(double p, double precision) {
        if (p <= precision) {
            return;
        }
        lo = any ? std::min(lo, p) : p;
        hi = any ? std::max(hi, p) : p;
        any = true;
    }
    double Middle() const { return (hi + lo) * 0.5; }
};

bool ReadExclusion(const std::string& text, double& stored) {
    if (text.find_first_of("0123456789") == std::string::npos) {
        return false;
    }
    const double value = StringToDouble(text);
    if (!std::isfinite(value) || value < 0) {
        return false;
    }
    stored = value;
    return true;
}

} // namespace

ReferencePanelFields FieldsForSource(int source) {
    ReferencePanelFields fields;
    fields.scan = fields.blades = source == kReferenceScan;
    fields.pitch = source == kReferenceScan || source == kReferenceFilePitch;
    fields.file = IsFileReference(static_cast<std::int16_t>(source));
    return fields;
}

void ReferencePanel::Load(const clsCorvane& project) {
    ReferencePanelSettings s;
    s.source = project.ReferenceSourceIndex();
    s.internalScanSourceIndex = project.InternalScanSourceIndex();
    s.internalScanIndex = project.InternalScanIndex();
    s.bladeCount = std::clamp<int>(project.BladeCount(), 0, kPanelBlades);
    for (int b = 0; b < s.bladeCount; ++b) {
        s.averageBlades[static_cast<std::size_t>(b)] = project.ReferenceScanBladesEnabled(b) != 0;
    }
    const int active = project.ActiveScanIndex();
    if (std::none_of(s.averageBlades.begin(), s.averageBlades.end(), [](bool b) { return b; }) &&
        active >= 0 && active < project.PropellerScanCount()) {
        const clsPropeller& scan = *project.PropellerScan(active);
        for (int b = 0; b < s.bladeCount && b < scan.BladeCount(); ++b) {
            for (int k = 0; k < scan.Blades(b)->SectionCount(); ++k) {
                s.averageBlades[static_cast<std::size_t>(b)] |=
                    scan.Blades(b)->Section(k)->RawOffsetCount() > 0;
            }
        }
    }
    s.pitchDefinition = project.ReferenceSectionPitchSourceIndex();
    s.sectionPitchIndex = project.ReferenceSectionPitchIndex();
    s.localPitchIndex = project.ReferenceLocalPitchIndex();
    s.constantPitch = project.ReferenceConstantPitch();
    for (int row = 0; row < kPanelRows && row < project.ReferenceVariablePitchCount(); ++row) {
        s.variablePitch[static_cast<std::size_t>(row)] = project.ReferenceVariablePitch(row);
        s.radialPos[static_cast<std::size_t>(row)] = project.ReferenceVariablePitchRadialPos(row);
    }
    s.filePath = project.ReferenceSourceFilePath();
    s.cupExclusion = project.CupExclusionDistance();
    s.leExclusion = project.LEExclusionDistance();
    settings_ = s;
    pending_ = false;
}

void ReferencePanel::Apply(clsCorvane& project) {
    const ReferencePanelSettings& s = settings_;
    project.SetReferenceSourceIndex(s.source);
    project.SetInternalScanSourceIndex(s.internalScanSourceIndex);
    project.SetInternalScanIndex(s.internalScanIndex);
    for (int b = 0; b < s.bladeCount; ++b) {
        project.SetReferenceScanBladesEnabled(b, s.averageBlades[static_cast<std::size_t>(b)] ? 1 : 0);
    }
    project.SetReferenceSectionPitchSourceIndex(s.pitchDefinition);
    project.SetReferenceSectionPitchIndex(s.sectionPitchIndex);
    project.SetReferenceLocalPitchIndex(s.localPitchIndex);
    project.SetReferenceConstantPitch(s.constantPitch);
    if (project.ReferenceVariablePitchCount() < kPanelRows) {
        project.SetReferenceVariablePitchCount(kPanelRows);
    }
    for (int row = 0; row < kPanelRows; ++row) {
        project.SetReferenceVariablePitch(row, s.variablePitch[static_cast<std::size_t>(row)]);
    }
    project.SetReferenceSourceFilePath(s.filePath);
    project.SetCupExclusionDistance(s.cupExclusion);
    project.SetLEExclusionDistance(s.leExclusion);
    pending_ = false;
}

void ReferencePanel::SetSource(std::int16_t source) {
    if (source < kReferenceNone || source > kReferenceFilePitch) {
        return;
    }
    settings_.source = source;
    pending_ = true;
}

void ReferencePanel::ChooseScan(std::int16_t scanIndex) {
    settings_.internalScanIndex = scanIndex;
    pending_ = true;
}

void ReferencePanel::LockScan(std::int16_t scanIndex) {
    settings_.internalScanIndex = scanIndex;
    settings_.internalScanSourceIndex = 1;
    pending_ = true;
}

void ReferencePanel::SetAverageBlade(int blade, bool on) {
    if (blade < 0 || blade >= settings_.bladeCount) {
        return;
    }
    auto& blades = settings_.averageBlades;
    blades[static_cast<std::size_t>(blade)] = on;
    if (std::none_of(blades.begin(), blades.begin() + settings_.bladeCount, [](bool b) { return b; })) {
        blades[0] = true;
    }
    pending_ = true;
}

void ReferencePanel::SetAllBlades() {
    for (int b = 0; b < settings_.bladeCount; ++b) {
        settings_.averageBlades[static_cast<std::size_t>(b)] = true;
    }
    pending_ = true;
}

void ReferencePanel::SetPitchDefinition(std::int16_t definition) {
    settings_.pitchDefinition = definition == 1 ? 1 : 0;
    pending_ = true;
}

void ReferencePanel::SetSectionPitchIndex(std::int16_t index) {
    settings_.sectionPitchIndex = index == 1 ? 1 : 0;
    pending_ = true;
}

void ReferencePanel::SetLocalPitchIndex(std::int16_t index) {
    settings_.localPitchIndex = index == 1 ? 1 : 0;
    pending_ = true;
}

void ReferencePanel::SetConstantPitch(double pitch) {
    if (settings_.pitchDefinition == 1) {
        return;
    }
    settings_.constantPitch = pitch;
    pending_ = true;
}

void ReferencePanel::SetVariablePitch(int row, double pitch) {
    if (row < 0 || row >= kPanelRows || settings_.pitchDefinition == 1) {
        return;
    }
    settings_.variablePitch[static_cast<std::size_t>(row)] = pitch;
    pending_ = true;
}

bool ReferencePanel::SetCupExclusion(const std::string& text) {
    const bool stored = ReadExclusion(text, settings_.cupExclusion);
    pending_ = pending_ || stored;
    return stored;
}

bool ReferencePanel::SetLEExclusion(const std::string& text) {
    const bool stored = ReadExclusion(text, settings_.leExclusion);
    pending_ = pending_ || stored;
    return stored;
}

void ReferencePanel::SetFilePath(const std::string& path) {
    settings_.filePath = path;
    if (path.empty() && IsFileReference(settings_.source)) {
        settings_.source = kReferenceNone;
    }
    pending_ = true;
}

void ReferencePanel::EstimatePitch(clsCorvane& project, const clsISO484& iso) {
    const int scanIndex = project.ActiveScanIndex();
    if (scanIndex < 0 || scanIndex >= project.PropellerScanCount()) {
        return;
    }
    if (pending_) {
        std::int16_t useRawEnds = 0;
        if (CalculateAllISOData(project, useRawEnds) != 1) {
            project.SetReferenceSourceIndex(kReferenceNone);
        }
    }
    const clsPropeller& scan = *project.PropellerScan(scanIndex);
    const double precision = DisplayPrecision(project);
    const int blades = std::min<int>(settings_.bladeCount, scan.BladeCount());
    double lower = 0, upper = 0, value = 0;
    for (int row = 0; row < kPanelRows; ++row) {
        if (!RowMeasured(scan, row)) {
            continue;
        }
        MidRange range;
        for (int b = 0; b < blades; ++b) {
            if (settings_.averageBlades[static_cast<std::size_t>(b)] &&
                row < scan.Blades(b)->SectionCount() &&
                EvaluateNoseTailPitch(iso, project, scanIndex, b, row, lower, upper, value) == 1) {
                range.Add(value, precision);
            }
        }
        if (range.any) {
            settings_.variablePitch[static_cast<std::size_t>(row)] = range.Middle();
        }
    }
    MidRange mean;
    for (int b = 0; b < blades; ++b) {
        if (settings_.averageBlades[static_cast<std::size_t>(b)] &&
            EvaluateBladeMeanPitch(iso, project, scanIndex, b, lower, upper, value) == 1) {
            mean.Add(value, precision);
        }
    }
    if (mean.any) {
        settings_.constantPitch = mean.Middle();
    }
    pending_ = true;
}

void SetVariablePitchRadii(clsCorvane& project, const std::array<double, kPanelRows>& radialPositions) {
    if (project.ReferenceVariablePitchCount() != kPanelRows) {
        project.SetReferenceVariablePitchCount(kPanelRows);
    }
    for (int row = 0; row < kPanelRows; ++row) {
        project.SetReferenceVariablePitchRadialPos(row, radialPositions[static_cast<std::size_t>(row)]);
    }
}

std::string ShortenedPath(const std::string& path, std::size_t maxChars) {
    static const std::string prefix = "...\\";
    if (path.size() <= maxChars) {
        return path;
    }
    const std::size_t keep = maxChars > prefix.size() ? maxChars - prefix.size() : 1;
    std::string tail = path.substr(path.size() - std::min(keep, path.size()));
    const auto separator = tail.find_first_of("/\\");
    if (separator != std::string::npos && separator + 1 < tail.size()) {
        tail = tail.substr(separator + 1);
    }
    return prefix + tail;
}

ReferenceFileRead ReadReferenceFileIntoProject(clsCorvane& project, const std::string& path) {
    ReferenceFileRead result;
    std::string extension =
        path.substr(path.find_last_of('.') == std::string::npos ? path.size() : path.find_last_of('.') + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    auto source = std::make_shared<clsPropeller>();
    bool read = false;
    if (extension == "CVRF") {
        bool flagged = false;
        std::string text;
        read =
            ReadReferenceBlocks(path, *source, flagged, text) == 1 && ResortReferenceSections(*source) == 1;
        if (!read && !text.empty()) {
            Prompts().MessageBox(text, MsgBox::Exclamation, "Reference File Error");
        }
    } else if (extension == "PPP") {
        read = ImportPPPFile(path, *source, project.BladeCount()) == 1;
    } else {
        Prompts().MessageBox("File type is not recognized.", MsgBox::Critical, "Invalid File Type");
    }
    if (!read) {
        project.SetReferenceSourceFilePath("");
        project.SetReferenceSourceIndex(kReferenceNone);
        return result;
    }
    project.SetReferenceSource(source);
    project.SetReferenceSourceFilePath(path);
    result.read = true;
    result.diameter = source->Diameter();
    result.pitch = source->PitchMean();
    if (result.pitch <= 0 && source->BladeCount() > 0) {
        const auto blade = source->Blades(0);
        MidRange range;
        for (int k = 0; k < blade->SectionCount(); ++k) {
            range.Add(blade->Pitch(k), 0);
        }
        result.pitch = range.any ? range.Middle() : 0;
    }
    return result;
}

} // namespace corvane
