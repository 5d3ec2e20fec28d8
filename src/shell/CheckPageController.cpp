#include "shell/CheckPageController.h"

#include "geometry/modCheckScanData.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modScanDataUtilities.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "iso484/modISO484Criteria.h"
#include "iso484/modISO484Data.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
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

namespace {

// The reference calculation is not part of the program yet: it reports that it cannot
// calculate, and the pages show the scan alone.
std::int32_t ReferenceCalculationNotBuiltYet(std::int16_t& /*useRawEnds*/) {
    return 0;
}
constexpr bool kReferenceCalculationBuilt = false;

// The geometry routines the ISO data calculation drives, installed once.
void InstallGeometrySteps() {
    if (GetISOGeometrySteps().CalculatePropellerProperties) {
        return;
    }
    ISOGeometrySteps steps;
    steps.CalculatePropellerProperties = [](clsPropeller& propeller, bool panelMode, bool setSegmentLimits) {
        return CalculatePropellerProperties(propeller, panelMode, setSegmentLimits);
    };
    steps.CalculateReferenceProperties = ReferenceCalculationNotBuiltYet;
    steps.CalcLocalPitchDeviations = [](clsPropeller& scan, int blade, int section, clsPropeller& reference) {
        return CalcLocalPitchDeviations(scan, blade, section, reference);
    };
    steps.CalcSectionAxialDrop = [](clsPropeller& propeller, int blade, int section, double theta,
                                    double& result) {
        return CalcSectionAxialDrop(propeller, blade, section, theta, result);
    };
    SetISOGeometrySteps(std::move(steps));
}

} // namespace

int RunPropertyCalculations() {
    InstallGeometrySteps();
    // The reference the user chose stays chosen while its calculation is missing from the
    // program; only a reference that fails its own calculation is dropped.
    const std::int16_t chosenReference = gProject->ReferenceSourceIndex();
    // The chain behind every evaluated page, in this order. CalculateAllISOData runs the
    // section measures of the scan (CalculatePropellerProperties) and the reference
    // (CalculateReferenceProperties, through the installed steps) before the ISO data.
    ClearISOCriteriaStatus();
    SetISOStandardAndTolerances(*gISO484, *gProject);
    std::int16_t useRawEnds = 0;
    const bool calculated = CalculateAllISOData(useRawEnds) == 1;
    if (calculated) {
        EvaluateISOCriteria(*gISO484);
    }
    if (!kReferenceCalculationBuilt) {
        gProject->SetReferenceSourceIndex(chosenReference);
    }
    return calculated ? 1 : 0;
}

CheckPageController::CheckPageController(frmCorvane& window) : window_(window) {
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
