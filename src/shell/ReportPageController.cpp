#include "shell/ReportPageController.h"

#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

ReportPageController::ReportPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(QStringLiteral("Report"),
                                QStringLiteral("The inspection report, to print or to save as PDF or CSV."));
}

void ReportPageController::Refresh() {
    (void)window_;
    reportDirty_ = false;
}

void ReportPageController::DepressPanels(int bladeViewMode) {
    (void)bladeViewMode;
}

} // namespace corvane
