#pragma once

#include <QPointer>

namespace corvane {

class frmCorvane;
class frmHelp;

// The Check, Tools and Help menus of the main window.
class ToolsCommands {
public:
    explicit ToolsCommands(frmCorvane& window);

    // Flips "Pitch only (ignore track)".
    void mnuCheckPitchOnly_Click();
    // 0 equal XY scale, 1 magnified Y scale of the section plot.
    void mnuCheckPlotZoom_Click(int index);

    void mnuToolsOpenReferencePage_Click();
    void mnuToolsReferenceEditor_Click();
    void mnuToolsSettings_Click();

    void mnuHelpContents_Click();
    void mnuHelpSearch_Click();
    void mnuHelpTechSupport_Click();
    void mnuHelpAbout_Click();
    // The error report with a picture of the screen, the log and a copy of the project.
    void mnuHelpEmailErrorReport_Click();

    // The help window, once opened.
    frmHelp* HelpWindow() const;

private:
    // False, after saying so, when the help file is not there.
    bool HelpFileThere() const;
    void OpenHelp(const char* page, bool search = false);

    frmCorvane& window_;
    QPointer<frmHelp> help_;
};

} // namespace corvane
