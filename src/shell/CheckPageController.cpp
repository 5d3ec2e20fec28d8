#include "shell/CheckPageController.h"

#include "check/CheckRun.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/ProjectPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

CheckPageController::CheckPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(
        QStringLiteral("Check"),
        QStringLiteral("Graphs of pitch, rake, skew and chord, the reference and the ISO 484 classes."));
}

GateOutcome CheckPageController::PassGates(bool forReport) {
    // The project page marks the missing fields; the check itself decides.
    if (window_.ProjectPage().CheckProjectData(false) != 1) {
        return GateOutcome::ToProjectPage;
    }
    CheckRequest request;
    request.scanIndex = gProject->ActiveScanIndex();
    request.forReport = forReport;
    // Coming from the Check page the report takes the results that page shows.
    request.recalculate = !(forReport && window_.ActivePage() == frmCorvane::PageCheck);
    const CheckOutcome outcome = RunCheck(*gProject, *gISO484, request);
    switch (outcome.stop) {
    case CheckStop::ProjectData:
        return GateOutcome::ToProjectPage;
    case CheckStop::ScanData:
    case CheckStop::Calculation:
        return GateOutcome::ToScanPage;
    case CheckStop::None:
        break;
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
