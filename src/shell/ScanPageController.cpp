#include "shell/ScanPageController.h"

#include "model/Globals.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

ScanPageController::ScanPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(
        QStringLiteral("Scan"),
        QStringLiteral("Measuring with the arm, manual entry of offsets and the history of scans."));
}

void ScanPageController::Enter() {
    GraphsStale = true;
    CompareScanIndex = -1;
    gCheckPageMode = 0;
    Refresh();
    window_.SetBladeViewMode(0);
    window_.ctlAll_UpdateDisplay();
    window_.SetBladeButtonState(1);
}

void ScanPageController::Refresh() {
    RefreshScanList();
    RedrawGraphs();
}

PageMenus ScanPageController::Menus() const {
    return {.scan = gScanMode == 1 || gScanMode == 2, .check = false, .tools = true};
}

void ScanPageController::RefreshScanList() {}

void ScanPageController::RedrawGraphs() {}

bool ScanPageController::AddScanEnabled() const {
    return false;
}

void ScanPageController::ClearAcquisitionState() {}

} // namespace corvane
