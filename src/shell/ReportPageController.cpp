#include "shell/ReportPageController.h"

#include "model/Globals.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

ReportPageController::ReportPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(QStringLiteral("Report"),
                                QStringLiteral("The inspection report, to print or to save as PDF or CSV."));
}

void ReportPageController::Enter() {
    gShowRadiusFlags.fill(true);
    window_.ShowEnabledBlades();
    window_.SetBladeButtonState(2);
    window_.Lock_Controls();
    Refresh();
    window_.UnLock_Controls();
    window_.ctlAll_Raise();
    window_.ctlAll_UpdateDisplay();
}

void ReportPageController::Refresh() {
    reportDirty_ = false;
}

void ReportPageController::DepressPanels(int bladeViewMode) {
    (void)bladeViewMode;
}

} // namespace corvane
