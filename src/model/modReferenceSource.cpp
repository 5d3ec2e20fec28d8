#include "model/modReferenceSource.h"

#include "model/clsCorvane.h"

namespace corvane {

namespace {

constexpr std::int16_t kConstantPitch = 0;
constexpr std::int16_t kVariablePitch = 1;

} // namespace

bool ScanReferencePitchUsable(const clsCorvane& project) {
    if (project.ReferenceSectionPitchIndex() == kConstantPitch) {
        return project.ReferenceConstantPitch() > 0.0;
    }
    if (project.ReferenceSectionPitchIndex() == kVariablePitch) {
        for (int row = 0; row < project.ReferenceVariablePitchCount(); ++row) {
            if (project.ReferenceVariablePitch(row) < 0.0) {
                return false;
            }
        }
    }
    return true;
}

bool ReferenceSettingsUsable(const clsCorvane& project) {
    const std::int16_t source = project.ReferenceSourceIndex();
    if (IsFileReference(source)) {
        return !project.ReferenceSourceFilePath().empty();
    }
    return source != kReferenceScan || ScanReferencePitchUsable(project);
}

} // namespace corvane
