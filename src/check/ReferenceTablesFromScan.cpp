#include "check/ReferenceTablesFromScan.h"

#include "check/modISO484Data.h"
#include "files/modProjectCommands.h"
#include "geometry/modCheckScanData.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "reference/clsReferenceTables.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <string>
#include <vector>

namespace corvane {

namespace {

int Refuse(const char* text) {
    Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Critical, "Reference Editor");
    return 0;
}

int SectionsWithOffsets(clsBlades& blade) {
    int count = 0;
    for (int k = 0; k < blade.SectionCount(); ++k) {
        count += blade.Section(k)->RawOffsetCount() > 0 ? 1 : 0;
    }
    return count;
}

} // namespace

int ReferenceTablesFromScan(clsCorvane& project, clsISO484& iso, clsReferenceTables& tables) {
    if (!CheckProjectFields(project, iso).AllHold()) {
        return Refuse("Project data is incomplete. The reference data cannot be generated.");
    }
    if (CheckScanData(project, project.ActiveScanIndex()) != 1) {
        return Refuse("Scan data is incomplete. The reference data cannot be generated.");
    }
    const std::int16_t source = project.ReferenceSourceIndex();
    if (source == kReferenceNone) {
        return Refuse("Reference source is setup as \"None\". The reference data cannot be generated.");
    }
    if (!ReferenceSettingsUsable(project)) {
        return Refuse("The reference source settings are invalid. The reference data cannot be generated.");
    }
    ClearISOCriteriaStatus();
    SetISOStandardAndTolerances(iso, project);
    std::int16_t useRawEnds = 1;
    // A reference that cannot be made is dropped by the calculation without a word; here that is
    // the failure, and the choice stays the user's.
    const bool calculated =
        CalculateAllISOData(project, useRawEnds) == 1 && project.ReferenceSourceIndex() == source;
    project.SetReferenceSourceIndex(source);
    if (!calculated) {
        return Refuse(
            "The reference calculation encountered an error. The reference data cannot be generated.");
    }
    EvaluateISOCriteria(project, iso);
    const std::shared_ptr<clsPropeller> reference = project.ReferenceScan();
    if (!reference || reference->BladeCount() < 1 ||
        SectionsWithOffsets(*reference->Blades(0)) < clsReferenceTables::kMinimumCount) {
        return Refuse(
            "The current reference requires at least 3 sections. The reference data cannot be generated.");
    }
    ErrorTail tail("making the reference tables from the scan");
    return tail.Step([&] {
        int segments = 0;
        std::vector<ReferenceSectionRow> rows = clsReferenceTables::RowsOf(*reference, true, segments);
        const auto scan = project.PropellerScan(project.ActiveScanIndex());
        tables.Assign(project.ProjectID() + " - Scan " + std::to_string(scan->ScanID()),
                      project.ReferenceDiameter(), std::move(rows), segments);
    })
               ? 1
               : 0;
}

} // namespace corvane
