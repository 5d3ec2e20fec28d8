// The blade side of the main window's tool strip: ctlAll (ALL, ISO, ANY) and the seven blade
// buttons, on each page.

#include "check/CheckRun.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/MainToolStrip.h"
#include "shell/ReportPageController.h"
#include "shell/frmCorvane.h"

#include <algorithm>

namespace corvane {
namespace {

std::shared_ptr<clsPropeller> ActiveScanOrNull() {
    if (!gProject) {
        return nullptr;
    }
    const int scan = gProject->ActiveScanIndex();
    if (scan < 0 || scan >= gProject->PropellerScanCount()) {
        return nullptr;
    }
    return gProject->PropellerScan(scan);
}

bool IsBladeEnabled(int blade) {
    const auto scan = ActiveScanOrNull();
    return scan && blade >= 0 && blade < scan->BladeCount() && scan->Blades(blade)->BladeEnabled();
}

int BladeButtonCount() {
    return gProject ? std::clamp<int>(gProject->BladeCount(), 0, 7) : 0;
}

bool ProjectHasScans() {
    return gProject && gProject->PropellerScanCount() > 0;
}

} // namespace

void frmCorvane::PressBlade(int blade, bool pressed) {
    if (blade < 0 || blade >= 7) {
        return;
    }
    bladePressed_[static_cast<std::size_t>(blade)] = pressed;
    toolStrip_->SetBladePressed(blade, pressed);
}

void frmCorvane::RestoreBladeButtons() {
    for (int blade = 0; blade < 7; ++blade) {
        toolStrip_->SetBladePressed(blade, bladePressed_[static_cast<std::size_t>(blade)]);
    }
}

void frmCorvane::ctlAll_Click() {
    if (ActivePage() != PageCheck && ActivePage() != PageReport) {
        ctlAll_UpdateDisplay();
        return;
    }
    bladeViewMode_ = bladeViewMode_ == 1 ? 0 : 1;
    UpdateRadiusPanels();
    ctlAll_UpdateDisplay();
}

void frmCorvane::UpdateRadiusPanels() {
    if (ActivePage() == PageReport) {
        for (int blade = 0; blade < 7; ++blade) {
            gShowBladeFlags[static_cast<std::size_t>(blade)] = blade < BladeButtonCount();
        }
        reportPage_->DepressPanels(bladeViewMode_);
        reportPage_->MarkReportDirty();
        Blades_Depress();
    } else if (ActivePage() == PageCheck) {
        checkPage_->DepressPanels(bladeViewMode_);
        if (checkPage_->ActiveGraphModeIndex() != 1) {
            Blades_Or_Prop();
        }
        checkPage_->Redraw();
    } else {
        Blades_Count_Raise();
    }
}

void frmCorvane::ctlBlades_Click(int index) {
    if (index < 0 || index >= 7 || !ProjectHasScans() || ActivePage() == PageProject) {
        RestoreBladeButtons();
        return;
    }
    switch (ActivePage()) {
    case PageScan:
        if (gScanMode == 1) {
            ctlAll_Raise();
            ActiveBlade = static_cast<std::int16_t>(index);
            Blade_Only(index);
        }
        break;
    case PageCheck: {
        bladeViewMode_ = 2;
        if (!IsBladeEnabled(index)) {
            break;
        }
        const auto scan = ActiveScanOrNull();
        const int mode = checkPage_->ActiveGraphModeIndex();
        if (mode == 1 || (mode == 5 && scan && scan->ScanDrop() == 2)) {
            ActiveBlade = static_cast<std::int16_t>(index);
            Blade_Only(index);
        } else {
            auto& shown = gShowBladeFlags[static_cast<std::size_t>(index)];
            shown = !shown;
            Blades_Depress();
        }
        checkPage_->Redraw();
        ctlAll_UpdateDisplay();
        break;
    }
    case PageReport:
        // A toggle: the blade enters the report or leaves it, and the report shown is stale.
        bladeViewMode_ = 2;
        if (IsBladeEnabled(index)) {
            auto& shown = gShowBladeFlags[static_cast<std::size_t>(index)];
            shown = !shown;
            reportPage_->SetReportDirtyBit();
        }
        Blades_Depress();
        ctlAll_UpdateDisplay();
        break;
    default:
        break;
    }
    RestoreBladeButtons();
}

void frmCorvane::Prop_Blades_Disable() {
    for (ctlPanelButton* button : toolStrip_->ctlBlades) {
        button->SetEnabled(false);
    }
    toolStrip_->ctlAll->SetEnabled(false);
}

void frmCorvane::Lock_Controls() {
    for (int page = 0; page < toolStrip_->PageButtonCount(); ++page) {
        toolStrip_->PageButton(page)->SetClickAction(ctlPanelButton::ClickNone);
    }
    toolStrip_->ctlAll->SetClickAction(ctlPanelButton::ClickNone);
    for (ctlPanelButton* button : toolStrip_->ctlBlades) {
        button->SetClickAction(ctlPanelButton::ClickNone);
    }
}

void frmCorvane::UnLock_Controls() {
    for (int page = 0; page < toolStrip_->PageButtonCount(); ++page) {
        toolStrip_->PageButton(page)->SetClickAction(ctlPanelButton::ClickRadio);
    }
    toolStrip_->ctlAll->SetClickAction(ctlPanelButton::ClickMomentary);
    SetBladeClickActions();
}

void frmCorvane::SetBladeClickActions() {
    // On the Check and Report pages a blade button switches its blade on and off; elsewhere it
    // picks one blade. Pressed states stay as they are.
    const bool toggles = ActivePage() == PageCheck || ActivePage() == PageReport;
    for (ctlPanelButton* button : toolStrip_->ctlBlades) {
        button->SetClickAction(toggles ? ctlPanelButton::ClickToggle : ctlPanelButton::ClickRadio);
    }
}

void frmCorvane::SetBladeButtonState(int state) {
    Blades_Count_Show();
    const bool scans = ProjectHasScans();
    for (ctlPanelButton* button : toolStrip_->ctlBlades) {
        button->SetEnabled(scans);
    }
    toolStrip_->ctlAll->SetEnabled(true);
    switch (state) {
    case 1:
        Blades_Count_Raise();
        if (gScanMode == 1 && scans) {
            Blade_Only(ActiveBlade);
        }
        break;
    case 2:
        for (int blade = 0; blade < BladeButtonCount(); ++blade) {
            toolStrip_->ctlBlades[static_cast<std::size_t>(blade)]->SetVisible(IsBladeEnabled(blade));
        }
        Blades_Depress();
        break;
    default:
        Blades_Count_Raise();
        break;
    }
    if (!scans) {
        Prop_Blades_Disable();
    }
    SetBladeClickActions();
}

void frmCorvane::Blades_Depress() {
    for (int blade = 0; blade < 7; ++blade) {
        PressBlade(blade, blade < BladeButtonCount() && gShowBladeFlags[static_cast<std::size_t>(blade)]);
    }
}

void frmCorvane::Blade_Only(int index) {
    for (int blade = 0; blade < 7; ++blade) {
        PressBlade(blade, blade == index);
    }
}

void frmCorvane::Blades_Or_Prop() {
    // ANY keeps the blades the technician picked; ALL and ISO show the whole propeller.
    if (bladeViewMode_ != 2) {
        ShowEnabledBlades();
    }
    Blades_Depress();
}

void frmCorvane::ShowEnabledBlades() {
    const auto scan = gProject ? gProject->PropellerScan(gProject->ActiveScanIndex()) : nullptr;
    gShowBladeFlags = scan ? EnabledBlades(*scan) : std::array<bool, 7>{};
}

void frmCorvane::Blades_Count_Show() {
    for (int blade = 0; blade < 7; ++blade) {
        toolStrip_->ctlBlades[static_cast<std::size_t>(blade)]->SetVisible(blade < BladeButtonCount());
    }
}

void frmCorvane::Blades_Count_Raise() {
    for (int blade = 0; blade < 7; ++blade) {
        PressBlade(blade, false);
    }
}

void frmCorvane::ctlAll_Raise() {
    toolStrip_->ctlAll->SetPressed(false);
}

void frmCorvane::ctlAll_Depress() {
    toolStrip_->ctlAll->SetPressed(true);
}

void frmCorvane::ctlAll_UpdateDisplay() {
    toolStrip_->ShowViewMode(bladeViewMode_);
}

} // namespace corvane
