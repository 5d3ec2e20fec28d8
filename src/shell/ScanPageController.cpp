#include "shell/ScanPageController.h"

#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

ScanPageController::ScanPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(
        QStringLiteral("Scan"),
        QStringLiteral("Measuring with the arm, manual entry of offsets and the history of scans."));
}

void ScanPageController::RefreshScanList() {
    (void)window_;
}

void ScanPageController::RedrawGraphs() {}

bool ScanPageController::AddScanEnabled() const {
    return false;
}

void ScanPageController::ClearAcquisitionState() {}

} // namespace corvane
