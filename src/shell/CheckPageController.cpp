#include "shell/CheckPageController.h"

#include "geometry/modCheckScanData.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "reference/CalculationChain.h"
#include "shell/ProjectPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

int CheckReferenceSettings() {
    if (!gProject) {
        return 0;
    }
    const int source = gProject->ReferenceSourceIndex();
    if ((source == 2 || source == 3) && gProject->ReferenceSourceFilePath().empty()) {
        return 0;
    }
    if (source == 1) {
        if (gProject->ReferenceSectionPitchIndex() == 0 && !(gProject->ReferenceConstantPitch() > 0)) {
            return 0;
        }
        if (gProject->ReferenceSectionPitchIndex() == 1) {
            for (int row = 0; row < gProject->ReferenceVariablePitchCount(); ++row) {
                if (gProject->ReferenceVariablePitch(row) < 0) {
                    return 0;
                }
            }
        }
    }
    return 1;
}

int RunPropertyCalculations() {
    // The chain behind every evaluated page, in its fixed order. CalculateAllISOData inside it
    // runs the section measures of the scan and of the reference before the ISO data; a
    // reference that cannot be calculated is dropped there and the scan is shown alone.
    return RunISOEvaluationChain();
}

CheckPageController::CheckPageController(frmCorvane& window) : window_(window) {
    // The geometry behind the Check and Report pages, and the ppp reader of reference files.
    InstallCalculationSteps();
    page_ = new UnavailablePage(
        QStringLiteral("Check"),
        QStringLiteral("Graphs of pitch, rake, skew and chord, the reference and the ISO 484 classes."));
}

GateOutcome CheckPageController::PassGates(bool forReport) {
    if (window_.ProjectPage().CheckProjectData(false) != 1) {
        return GateOutcome::ToProjectPage;
    }
    if (CheckScanData(gProject->ActiveScanIndex()) != 1) {
        return GateOutcome::ToScanPage;
    }
    // Without a usable reference the pages show the scan alone. Not a change the user made, so
    // the project does not count as changed.
    if (CheckReferenceSettings() != 1) {
        gProject->SetReferenceSourceIndex(0);
    }
    if (forReport && window_.ActivePage() == frmCorvane::PageCheck) {
        return GateOutcome::Open;
    }
    if (RunPropertyCalculations() != 1) {
        if (forReport) {
            gProject->SetReferenceSourceIndex(0);
            return GateOutcome::Open;
        }
        return GateOutcome::ToScanPage;
    }
    return GateOutcome::Open;
}

void CheckPageController::DepressPanels(int bladeViewMode) {
    (void)bladeViewMode;
}

void CheckPageController::Redraw() {}

void CheckPageController::ShowReferencePanel() {
    SayNotAvailableYet("The reference panel of the Check page");
}

void CheckPageController::SetManualEntryFieldsVisible(bool visible) {
    (void)visible;
}

} // namespace corvane
