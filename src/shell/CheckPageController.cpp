#include "shell/CheckPageController.h"

#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/MainToolStrip.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"

namespace corvane {

CheckPageController::CheckPageController(frmCorvane& window) : window_(window) {
    page_ = new UnavailablePage(
        QStringLiteral("Check"),
        QStringLiteral("Graphs of pitch, rake, skew and chord, the reference and the ISO 484 classes."));
}

void CheckPageController::Enter() {
    window_.ShowEnabledBlades();
    window_.SetBladeButtonState(2);
    window_.Lock_Controls();
    Refresh();
    window_.UnLock_Controls();
    window_.ctlAll_Raise();
    window_.ctlAll_UpdateDisplay();
}

void CheckPageController::Leave() {
    window_.ToolStrip().ctlAll->SetClickAction(ctlPanelButton::ClickRadio);
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
