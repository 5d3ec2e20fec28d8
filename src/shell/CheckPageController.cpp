#include "shell/CheckPageController.h"

#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "reference/CalculationChain.h"
#include "shell/MainToolStrip.h"
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
