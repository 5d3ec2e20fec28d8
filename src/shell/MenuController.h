#pragma once

#include <QObject>

#include <array>

class QAction;
class QMenu;
class QMenuBar;

namespace corvane {

class frmCorvane;

// The menus of the main window, their entries by the names the rest of the program uses, and
// the rules that open and close them: the open page says which of the Scan, Check and Tools
// menus it wants; scan options and the buffer reset are closed in manual entry; ticks follow
// the page, the scan mode, the pitch-only switch and the zoom. They are brought up to date
// whenever the navigator says that something they depend on changed.
class MenuController : public QObject {
    Q_OBJECT

public:
    MenuController(frmCorvane& window, QMenuBar* bar);

    // Opens, closes and ticks every entry for the page, the scan mode and the view switches.
    void UpdateMenuState();

    QMenu* mnuFile;
    QAction* mnuFileNew;
    QAction* mnuFileOpen;
    QAction* mnuFileSave;
    QAction* mnuFileSaveAs;
    QAction* mnuFileViewArchive;
    QAction* mnuFileImport;
    QAction* mnuFileExport;
    QAction* mnuFileExit;

    QMenu* mnuEdit;
    std::array<QAction*, 4> mnuViewPage{};

    QMenu* mnuScan;
    QAction* mnuScanHistoryAdd;
    QAction* mnuScanHistoryDelete;
    QAction* mnuScanHistoryOverwrite;
    QAction* mnuScanHistoryImport;
    QAction* mnuScanResetBuffer;
    QMenu* mnuScanMode;
    QAction* mnuScanModeManualEntry;
    QAction* mnuScanModeDigitalDAQ;
    QAction* mnuScanOptions;

    QMenu* mnuCheckPlot;
    QAction* mnuCheckPitchOnly;
    std::array<QAction*, 2> mnuCheckPlotZoom{};

    QMenu* mnuTools;
    QAction* mnuToolsOpenReferencePage;
    QAction* mnuToolsReferenceEditor;
    QAction* mnuToolsSettings;

    QMenu* mnuHelp;
    QAction* mnuHelpContents;
    QAction* mnuHelpSearch;
    QAction* mnuHelpTechSupport;
    QAction* mnuHelpEmailErrorReport;
    QAction* mnuHelpAbout;

private:
    void BuildFileMenu(QMenuBar* bar);
    void BuildEditMenu(QMenuBar* bar);
    void BuildScanMenu(QMenuBar* bar);
    void BuildCheckMenu(QMenuBar* bar);
    void BuildToolsMenu(QMenuBar* bar);
    void BuildHelpMenu(QMenuBar* bar);

    frmCorvane& window_;
};

} // namespace corvane
