#include "check/CalculationChain.h"

#include "check/modISO484Data.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"
#include "model/modReferenceSource.h"

#include <memory>

namespace corvane {

namespace {

// Whether the chosen reference has anything to be built from: the internal scan and its pitch
// for a scan reference, a read file (a section of blade 0 with a pitch) for a file reference.
bool ReferenceAvailable(const clsCorvane& project) {
    const std::int16_t source = project.ReferenceSourceIndex();
    if (source == kReferenceNone) {
        return true;
    }
    if (source == kReferenceScan) {
        const int index = project.InternalScanIndex();
        return index >= 0 && index < project.PropellerScanCount() && project.PropellerScan(index) &&
               ScanReferencePitchUsable(project);
    }
    if (!IsFileReference(source)) {
        return false;
    }
    const std::shared_ptr<clsPropeller> read = project.ReferenceSource();
    if (!read || read->BladeCount() < 1) {
        return false;
    }
    const std::shared_ptr<clsBlades> blade = read->Blades(0);
    for (int k = 0; k < blade->SectionCount(); ++k) {
        if (blade->RadialPos(k) > 0.0 && blade->Pitch(k) > 0.0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::int32_t RunISOEvaluationChain(clsCorvane& project, clsISO484& iso, std::int16_t& verdict) {
    verdict = 0;
    if (!ReferenceAvailable(project)) {
        project.SetReferenceSourceIndex(kReferenceNone);
    }
    ClearISOCriteriaStatus();
    SetISOStandardAndTolerances(iso, project);
    std::int16_t useRawEnds = 0;
    if (CalculateAllISOData(project, useRawEnds) != 1) {
        return 0;
    }
    EvaluateISOCriteria(project, iso);
    verdict = EvaluateClassStatus(project, iso);
    return 1;
}

} // namespace corvane
