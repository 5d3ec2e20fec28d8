#include "shell/ToolsCommands.h"

#include "model/AppVersion.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modReferenceSource.h"
#include "shell/CheckPageController.h"
#include "shell/PageNavigator.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"
#include "shell/frmReferenceEditor.h"
#include "support/Services.h"

#include <QDesktopServices>
#include <QUrl>

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
    SayNotAvailableYet("The settings dialog");
}

bool ToolsCommands::HelpFileThere() const {
    if (gHelpFileFound) {
        return true;
    }
    Prompts().MessageBox(gAppTitle + " Help file not found.", MsgBox::Exclamation,
                         gAppTitle + " Help File Error");
    return false;
}

void ToolsCommands::OpenHelp(const char* topic) {
    if (!HelpFileThere()) {
        return;
    }
    QUrl url = QUrl::fromLocalFile(QString::fromStdString(gHelpFilePath));
    if (topic != nullptr) {
        url.setFragment(QString::fromLatin1(topic));
    }
    QDesktopServices::openUrl(url);
}

void ToolsCommands::mnuHelpContents_Click() {
    OpenHelp(nullptr);
}

void ToolsCommands::mnuHelpSearch_Click() {
    OpenHelp("search");
}

void ToolsCommands::mnuHelpTechSupport_Click() {
    OpenHelp("1010");
}

void ToolsCommands::mnuHelpAbout_Click() {
    Prompts().MessageBox(gAppTitle + " " + kVersionText + gBuildTag + "\r\n\r\n" +
                             "Propeller measurement and ISO 484 inspection.",
                         MsgBox::Information, "About " + gAppTitle);
}

} // namespace corvane
