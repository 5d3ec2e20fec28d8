#include "shell/ScanCommands.h"

#include "check/ScanEdits.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/PageNavigator.h"
#include "shell/ScanPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/clsFileDialog.h"
#include "shell/frmCorvane.h"
#include "shell/frmScanOptions.h"
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
        window_.ScanPage().AddScan();
    }
}

void ScanCommands::mnuScanHistoryOverwrite_Click() {
    if (ScanPageWorking() && gProject && gProject->ActiveScanIndex() >= 0 &&
        gProject->ActiveScanIndex() < gProject->PropellerScanCount()) {
        window_.ScanPage().OverwriteScan();
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

void ScanCommands::mnuScanResetBuffer_Click() {
    if (gScanMode != 1) {
        window_.ScanPage().ResetScanBuffer();
    }
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
    if (window_.ActivePage() == frmCorvane::PageScan) {
        window_.ScanPage().Enter();
    }
    window_.Navigator().NotifyStateChanged();
    window_.UpdateTitlebarCaption();
}

void ScanCommands::mnuScanOptions_Click() {
    if (gScanMode == 1) {
        return; // manual entry has no scan sequence to choose
    }
    frmScanOptions dialog(&window_);
    if (dialog.exec() == QDialog::Accepted) {
        window_.Navigator().NotifyStateChanged();
    }
}

} // namespace corvane
