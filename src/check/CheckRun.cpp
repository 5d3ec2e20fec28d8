#include "check/CheckRun.h"

#include "check/CalculationChain.h"
#include "check/modISO484BestClass.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modISOPitch.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484Class.h"
#include "model/clsCorvane.h"
#include "model/modReferenceSource.h"
#include "support/PromptRecorder.h"

namespace corvane {

namespace {

CheckStop Gates(clsCorvane& project, clsISO484& iso, const CheckRequest& request, CheckOutcome& outcome) {
    outcome.fields = CheckProjectFields(project, iso);
    if (!outcome.fields.AllHold()) {
        return CheckStop::ProjectData;
    }
    if (request.scanIndex >= 0 && request.scanIndex < project.PropellerScanCount()) {
        project.SetActiveScanIndex(static_cast<std::int16_t>(request.scanIndex));
    }
    if (CheckScanData(project, request.scanIndex, request.liveArm) != 1) {
        return CheckStop::ScanData;
    }
    const std::int16_t source = project.ReferenceSourceIndex();
    if (!ReferenceSettingsUsable(project)) {
        project.SetReferenceSourceIndex(kReferenceNone);
    }
    if (!request.recalculate) {
        outcome.referenceDropped = source != project.ReferenceSourceIndex();
        return CheckStop::None;
    }
    // The integrated mean pitch of the scan is shown beside the ISO pitches on every front end.
    const bool calculated =
        RunISOEvaluationChain(project, iso, outcome.verdict) == 1 &&
        CalcIntegratedPropellerPitch(*project.PropellerScan(project.ActiveScanIndex())) == 1;
    outcome.referenceDropped = source != kReferenceNone && project.ReferenceSourceIndex() == kReferenceNone;
    if (!calculated) {
        if (!request.forReport) {
            return CheckStop::Calculation;
        }
        project.SetReferenceSourceIndex(kReferenceNone);
        outcome.referenceDropped = source != kReferenceNone;
    }
    return CheckStop::None;
}

} // namespace

CheckOutcome RunCheck(clsCorvane& project, clsISO484& iso, const CheckRequest& request) {
    CheckOutcome outcome;
    PromptRecorder recorder;
    outcome.stop = Gates(project, iso, request, outcome);
    outcome.told = recorder.Shown();
    return outcome;
}

std::array<bool, 7> EnabledBlades(const clsPropeller& scan) {
    std::array<bool, 7> shown{};
    for (std::size_t b = 0; b < shown.size(); ++b) {
        shown[b] =
            static_cast<int>(b) < scan.BladeCount() && scan.Blades(static_cast<int>(b))->BladeEnabled();
    }
    return shown;
}

BestClass FindBestClass(clsCorvane& project, clsISO484& iso, const ISOSelection& selection) {
    BestClass best;
    best.code = GetBestISOClass(project, iso, project.ActiveScanIndex(), selection,
                                ISOBelowSizeLimit(project), best.codes, best.propellerCode);
    GetEvaluationSentence(iso, best.standardText, best.sentence, best.code);
    return best;
}

} // namespace corvane
