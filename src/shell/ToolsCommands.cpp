#include "shell/ToolsCommands.h"

#include "files/modProjectFile.h"
#include "model/AppVersion.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modReferenceSource.h"
#include "platform/DesktopCapture.h"
#include "platform/InterfaceStyle.h"
#include "reports/modErrorReport.h"
#include "shell/CheckPageController.h"
#include "shell/PageNavigator.h"
#include "shell/ScanPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"
#include "shell/frmHelp.h"
#include "shell/frmOptions.h"
#include "shell/frmReferenceEditor.h"
#include "support/Services.h"

#include "files/modSettings.h"

#include <QApplication>
#include <QTimer>

namespace corvane {

ToolsCommands::ToolsCommands(frmCorvane& window) : window_(window) {}

void ToolsCommands::mnuCheckPitchOnly_Click() {
    gPitchIgnoreTrack = !gPitchIgnoreTrack;
    GraphsStale = true;
    window_.Navigator().NotifyStateChanged();
    window_.CheckPage().Redraw();
}

void ToolsCommands::mnuCheckPlotZoom_Click(int index) {
    ZoomActive = index == 1;
    window_.Navigator().NotifyStateChanged();
    window_.CheckPage().Redraw();
}

void ToolsCommands::mnuToolsOpenReferencePage_Click() {
    if (!gProject) {
        return;
    }
    if (gProject->PropellerScanCount() <= 0) {
        gProject->SetReferenceSourceIndex(kReferenceNone);
        Prompts().MessageBox("No scans are availible ", MsgBox::OKOnly, gAppTitle);
        return;
    }
    if (window_.ActivePage() == frmCorvane::PageCheck) {
        window_.CheckPage().ShowReferencePanel();
    } else {
        SayNotAvailableYet("The reference settings dialog");
    }
}

void ToolsCommands::mnuToolsReferenceEditor_Click() {
    frmReferenceEditor editor(&window_);
    editor.exec();
}

void ToolsCommands::mnuToolsSettings_Click() {
    // The arm is read by the dialog's calibration alone while it is open: the Scan page's
    // polling would take the counts it is about to reset.
    QTimer* timer = window_.tmrAcquire();
    const bool polling = timer != nullptr && timer->isActive();
    if (polling) {
        timer->stop();
    }
    frmOptions dialog(&window_.ScanPage().Workflow().Daq(), &window_);
    QObject::connect(&dialog, &frmOptions::HelpRequested, &dialog, [this] { OpenHelp("settings.html"); });
    dialog.exec();
    if (dialog.Saved()) {
        // The settings written are in force from now on; the scan sequence starts over.
        ReadDefaultOptions();
        gScanOrderMode = 0;
        ApplyInterfaceFont();
        window_.Navigator().NotifyStateChanged();
    }
    if (polling) {
        timer->start();
    }
}

bool ToolsCommands::HelpFileThere() const {
    if (gHelpFileFound) {
        return true;
    }
    Prompts().MessageBox(gAppTitle + " Help file not found.", MsgBox::Exclamation,
                         gAppTitle + " Help File Error");
    return false;
}

void ToolsCommands::OpenHelp(const char* page, bool search) {
    if (!HelpFileThere()) {
        return;
    }
    if (help_ == nullptr) {
        help_ = new frmHelp(QString::fromStdString(gHelpFilePath), &window_);
        help_->setAttribute(Qt::WA_DeleteOnClose);
    }
    help_->ShowPage(QString::fromLatin1(page));
    help_->show();
    help_->raise();
    help_->activateWindow();
    if (search) {
        help_->StartSearch();
    }
}

frmHelp* ToolsCommands::HelpWindow() const {
    return help_;
}

void ToolsCommands::mnuHelpContents_Click() {
    OpenHelp("index.html");
}

void ToolsCommands::mnuHelpSearch_Click() {
    OpenHelp("index.html", true);
}

void ToolsCommands::mnuHelpTechSupport_Click() {
    OpenHelp("support.html");
}

void ToolsCommands::mnuHelpEmailErrorReport_Click() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    (void)SendErrorReport(CaptureDesktop,
                          [](const std::string& path) { return gProject && WriteProjectFile(path) == 1; });
    QApplication::restoreOverrideCursor();
}

void ToolsCommands::mnuHelpAbout_Click() {
    Prompts().MessageBox(gAppTitle + " " + kVersionText + gBuildTag + "\r\n\r\n" +
                             "Propeller measurement and ISO 484 inspection.",
                         MsgBox::Information, "About " + gAppTitle);
}

} // namespace corvane
