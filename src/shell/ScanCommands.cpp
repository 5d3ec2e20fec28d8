#include "shell/ScanCommands.h"

#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/PageNavigator.h"
#include "shell/ScanPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

namespace corvane {

std::string ScanLabel(int scanID) {
    if (scanID >= 0 && scanID <= 25) {
        return std::string(1, static_cast<char>('A' + scanID));
    }
    if (scanID >= 26 && scanID <= 701) {
        return {static_cast<char>('A' + scanID / 26 - 1), static_cast<char>('A' + scanID % 26)};
    }
    return std::to_string(scanID);
}

ScanCommands::ScanCommands(frmCorvane& window) : window_(window) {}

bool ScanCommands::ScanPageWorking() const {
    return window_.ActivePage() == frmCorvane::PageScan && !window_.isMinimized() && gScanMode != 0;
}

void ScanCommands::mnuScanHistoryAdd_Click() {
    if (ScanPageWorking()) {
        SayNotAvailableYet("Adding a scan");
    }
}

void ScanCommands::mnuScanHistoryOverwrite_Click() {
    if (ScanPageWorking()) {
        SayNotAvailableYet("Overwriting a scan");
    }
}

void ScanCommands::mnuScanHistoryImport_Click() {
    if (ScanPageWorking()) {
        SayNotAvailableYet("Importing a scan from a Hale MRI file");
    }
}

void ScanCommands::mnuScanHistoryDelete_Click() {
    if (!ScanPageWorking() || !gProject) {
        return;
    }
    const int count = gProject->PropellerScanCount();
    if (count <= 0) {
        Prompts().MessageBox("There is no scan data to remove!", MsgBox::Critical, "Delete scan...");
        return;
    }
    const int active = gProject->ActiveScanIndex();
    if (active < 0 || active > count - 1) {
        Prompts().MessageBox(
            "An error occurred. The selected scan does not exist. Please select a scan and try "
            "again.",
            MsgBox::Critical, "Delete scan...");
        return;
    }
    const std::string label = ScanLabel(gProject->PropellerScan(active)->ScanID());
    if (Prompts().MessageBox("Are you sure you want to delete Scan " + label + "?",
                             MsgBox::YesNo | MsgBox::Question, "Delete scan...") != Answer::Yes) {
        return;
    }
    ErrorTail tail("deleting scan");
    tail.Step([&] {
        for (int i = active; i <= count - 2; ++i) {
            gProject->SetPropellerScan(i, gProject->PropellerScan(i + 1)->CopyClass());
        }
        // A set is never emptied: with one scan the count and the data stay.
        gProject->SetPropellerScanCount(static_cast<std::int16_t>(count - 1));
        if (gProject->ActiveScanIndex() >= gProject->PropellerScanCount()) {
            gProject->SetActiveScanIndex(static_cast<std::int16_t>(gProject->PropellerScanCount() - 1));
        }
    });
    if (gProject->PropellerScanCount() != count) {
        gProjectDirty = true;
        GraphsStale = true;
        window_.Navigator().NotifyStateChanged();
    }
    window_.ScanPage().RefreshScanList();
    window_.ScanPage().RedrawGraphs();
}

std::shared_ptr<clsSection> ScanCommands::ActiveSection() const {
    if (!gProject) {
        return nullptr;
    }
    const int scan = gProject->ActiveScanIndex();
    if (scan < 0 || scan >= gProject->PropellerScanCount()) {
        return nullptr;
    }
    const auto propeller = gProject->PropellerScan(scan);
    if (!propeller || ActiveBlade < 0 || ActiveBlade >= propeller->BladeCount()) {
        return nullptr;
    }
    const auto blade = propeller->Blades(ActiveBlade);
    if (!blade || ActiveRadius < 0 || ActiveRadius >= blade->SectionCount()) {
        return nullptr;
    }
    return blade->Section(ActiveRadius);
}

void ScanCommands::mnuScanResetBuffer_Click() {
    if (gScanMode == 1) {
        return;
    }
    window_.AcquireStopRecord();
    ErrorTail tail("resetting the scan buffer");
    std::shared_ptr<clsSection> section;
    tail.Step([&] { section = ActiveSection(); });
    if (!section || section->RawOffsetCount() <= 0) {
        return;
    }
    const std::string station =
        FormatNumber(gRadialPositions[static_cast<std::size_t>(ActiveRadius)] * 100, "#R");
    const std::string text = "Warning! There are " + std::to_string(section->RawOffsetCount()) +
                             " points in the buffer. Erase the buffer and re-scan the " + station +
                             " for blade " + std::to_string(ActiveBlade + 1) + "?";
    if (Prompts().MessageBox(text, MsgBox::YesNo | MsgBox::Question, "Reset scan buffer") != Answer::Yes) {
        return;
    }
    window_.ScanPage().ClearAcquisitionState();
    tail.Step([&] { section->SetRawOffsetCount(0); });
    gProjectDirty = true;
    GraphsStale = true;
    window_.ScanPage().RedrawGraphs();
}

void ScanCommands::mnuScanModeDigitalDAQ_Click() {
    if (!gDAQConnected) {
        Prompts().MessageBox("The DAQ is not connected! Scan mode will be setup as Manual entry.",
                             MsgBox::Critical, "Error");
        mnuScanModeManualEntry_Click();
        return;
    }
    gScanMode = 2;
    if (window_.ActivePage() == frmCorvane::PageCheck) {
        window_.CheckPage().SetManualEntryFieldsVisible(false);
    }
    ScanModeChanged();
}

void ScanCommands::mnuScanModeManualEntry_Click() {
    gScanMode = 1;
    if (window_.ActivePage() == frmCorvane::PageCheck) {
        window_.CheckPage().SetManualEntryFieldsVisible(true);
    }
    ScanModeChanged();
}

void ScanCommands::ScanModeChanged() {
    window_.Navigator().NotifyStateChanged();
    window_.UpdateTitlebarCaption();
}

void ScanCommands::mnuScanOptions_Click() {
    if (gScanMode != 1) {
        SayNotAvailableYet("The scan options");
    }
}

} // namespace corvane
