#include "checkpage/CheckReferenceUpdate.h"

#include "check/CalculationChain.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modScanDataUtilities.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "support/Services.h"

namespace corvane {

namespace {

constexpr const char* kScanDataError = "Scan Data Error";

void SayComparisonFailed() {
    Prompts().MessageBox("An error occurred calculating previous scan data.", MsgBox::Exclamation,
                         kScanDataError);
}

bool Measured(const clsPropeller& scan, int blade, int row) {
    const auto b = scan.Blades(blade);
    return row < b->SectionCount() && b->Section(row)->RawOffsetCount() > 1;
}

// The comparison scan against the reference: its geometry, then for each enabled blade and
// measured section the local pitch deviations and the drop where the reference puts the blade
// centre line. False at the first failure (not yet told).
bool CalculateComparison(clsCorvane& project, int compareIndex) {
    clsPropeller& compare = *project.PropellerScan(compareIndex);
    const auto reference = project.ReferenceScan();
    if (!reference || CalculatePropellerProperties(compare, false, true) != 1) {
        return false;
    }
    for (int b = 0; b < compare.BladeCount() && b < reference->BladeCount(); ++b) {
        if (!compare.Blades(b)->BladeEnabled()) {
            continue;
        }
        for (int k = 0; k < compare.Blades(b)->SectionCount(); ++k) {
            if (!Measured(compare, b, k) || !Measured(*reference, b, k)) {
                continue;
            }
            double drop = 0;
            if (CalcLocalPitchDeviations(compare, b, k, *reference) != 1 ||
                CalcSectionAxialDrop(compare, b, k, reference->Blades(b)->ISOTotalThetaDegToBCL(k), drop) !=
                    1) {
                return false;
            }
            compare.Blades(b)->SetISOTotalAxialRakeToBCL(k, drop);
        }
    }
    return true;
}

} // namespace

ReferenceUpdate UpdateCheckReference(clsCorvane& project, clsISO484& iso,
                                     const ReferenceUpdateRequest& request) {
    ReferenceUpdate update;
    const std::int16_t source = project.ReferenceSourceIndex();
    const bool usable = source != kReferenceNone && ReferenceSettingsUsable(project);
    if (source != kReferenceNone && !usable && request.showErrors) {
        project.SetReferenceSourceIndex(kReferenceNone);
        Prompts().MessageBox("Reference file is invalid or incompatable with scan.\r\n"
                             "non-referenced data will be displayed",
                             MsgBox::Exclamation, "Invalid reference");
    }
    const int active = project.ActiveScanIndex();
    update.calculated = RunISOEvaluationChain(project, iso, update.verdict) == 1;
    if (!update.calculated && project.ReferenceSourceIndex() != kReferenceNone) {
        project.SetReferenceSourceIndex(kReferenceNone);
        update.calculated = RunISOEvaluationChain(project, iso, update.verdict) == 1;
    }
    if (!usable && !request.showErrors) {
        // Quietly: the scan was evaluated alone, but the user's setting stays as it was.
        project.SetReferenceSourceIndex(source);
    }
    update.referenceDropped = source != kReferenceNone && project.ReferenceSourceIndex() == kReferenceNone;
    update.referenceInForce = project.ReferenceSourceIndex() != kReferenceNone && usable && update.calculated;

    const int compare = request.compareScanIndex;
    if (compare >= 0 && compare < project.PropellerScanCount() && compare != active) {
        bool ok = CheckScanData(project, compare, nullptr) == 1;
        project.SetActiveScanIndex(static_cast<std::int16_t>(active));
        if (ok) {
            clsPropeller& scan = *project.PropellerScan(compare);
            for (int b = 0; b < scan.BladeCount(); ++b) {
                bool data = false;
                for (int k = 0; k < scan.Blades(b)->SectionCount(); ++k) {
                    data = data || Measured(scan, b, k);
                }
                scan.Blades(b)->SetBladeEnabled(data);
            }
            ok = !update.referenceInForce || CalculateComparison(project, compare);
        }
        if (ok) {
            update.compareScanIndex = compare;
        } else {
            SayComparisonFailed();
        }
    }
    return update;
}

} // namespace corvane
