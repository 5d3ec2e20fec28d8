#pragma once

namespace corvane {

class frmCorvane;

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

private:
    // False, after saying so, when the help file is not there.
    bool HelpFileThere() const;
    void OpenHelp(const char* topic);

    frmCorvane& window_;
};

} // namespace corvane
