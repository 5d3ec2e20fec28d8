#include "shell/ScanCommands.h"

#include "check/ScanEdits.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/PageNavigator.h"
#include "shell/ScanPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/clsFileDialog.h"
#include "shell/frmCorvane.h"
#include "support/ErrorTail.h"
#include "support/Notice.h"
#include "support/Services.h"

#include <QApplication>

namespace corvane {

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
    if (!ScanPageWorking() || !gProject || !gISO484) {
        return;
    }
    clsFileDialog dialog;
    dialog.DialogTitle = "Open file...";
    dialog.Filters = {{"Hale MRI (*.txt)", "*.txt"}};
    dialog.InitDir = gRootDirectory;
    dialog.Parent = &window_;
    if (!dialog.ShowOpen()) {
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ScanImport import = ImportHaleScan(*gProject, *gISO484, dialog.FileName);
    QApplication::restoreOverrideCursor();
    ShowNotices(import.read.notices);
    if (!import.added) {
        Prompts().MessageBox("An error occurred reading the file. All the data was read, but some data is "
                             "missing. Please review the file.",
                             MsgBox::Critical, gAppTitle);
        return;
    }
    if (!import.differences.empty()) {
        Prompts().MessageBox(import.differences, MsgBox::Exclamation, gAppTitle);
    }
    ActiveBlade = 0;
    ActiveRadius = 0;
    gProjectDirty = true;
    GraphsStale = true;
    window_.ScanPage().RefreshScanList();
    window_.Navigator().NotifyStateChanged();
}

void ScanCommands::mnuScanHistoryDelete_Click() {
    if (!ScanPageWorking() || !gProject) {
        return;
    }
    if (DeleteActiveScan(*gProject)) {
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
