#include "shell/MenuController.h"

#include "model/Globals.h"
#include "shell/FileCommands.h"
#include "shell/PageNavigator.h"
#include "shell/ScanCommands.h"
#include "shell/ToolsCommands.h"
#include "shell/frmCorvane.h"

#include <QActionGroup>
#include <QIcon>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <functional>

namespace corvane {
namespace {

// An entry named after its control, so that code and tests find it by that name.
QAction* AddEntry(QMenu* menu, const char* name, const char* caption, std::function<void()> handler) {
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(QString::fromLatin1(name));
    QObject::connect(action, &QAction::triggered, menu, [handler = std::move(handler)] { handler(); });
    return action;
}

QMenu* AddMenu(QMenuBar* bar, const char* name, const char* caption) {
    QMenu* menu = bar->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setObjectName(QString::fromLatin1(name));
    return menu;
}

void SetShortcut(QAction* action, QKeySequence::StandardKey key, const char* fallback) {
    const QKeySequence sequence(key);
    action->setShortcut(sequence.isEmpty() ? QKeySequence(QString::fromLatin1(fallback)) : sequence);
}

void OpenMenu(QMenu* menu, bool open) {
    menu->menuAction()->setEnabled(open);
    menu->setEnabled(open);
}

} // namespace

MenuController::MenuController(frmCorvane& window, QMenuBar* bar) : QObject(&window), window_(window) {
    BuildFileMenu(bar);
    BuildEditMenu(bar);
    BuildScanMenu(bar);
    BuildCheckMenu(bar);
    BuildToolsMenu(bar);
    BuildHelpMenu(bar);
    connect(&window_.Navigator(), &PageNavigator::StateChanged, this, &MenuController::UpdateMenuState);
}

void MenuController::BuildFileMenu(QMenuBar* bar) {
    mnuFile = AddMenu(bar, "mnuFile", "&File");
    FileCommands& files = window_.Files();
    mnuFileNew = AddEntry(mnuFile, "mnuFileNew", "&New project", [&files] { files.mnuFileNew_Click(); });
    mnuFileOpen =
        AddEntry(mnuFile, "mnuFileOpen", "&Open project...", [&files] { files.mnuFileOpen_Click(); });
    mnuFile->addSeparator();
    mnuFileSave = AddEntry(mnuFile, "mnuFileSave", "&Save project", [&files] { files.mnuFileSave_Click(); });
    mnuFileSaveAs =
        AddEntry(mnuFile, "mnuFileSaveAs", "&Save project as...", [&files] { files.mnuFileSaveAs_Click(); });
    mnuFile->addSeparator();
    mnuFileViewArchive = AddEntry(mnuFile, "mnuFileViewArchive", "Open &archive...",
                                  [&files] { files.mnuFileViewArchive_Click(); });
    mnuFile->addSeparator();
    mnuFileImport =
        AddEntry(mnuFile, "mnuFileImport", "&Import project...", [&files] { files.mnuFileImport_Click(); });
    mnuFileExport =
        AddEntry(mnuFile, "mnuFileExport", "&Export project...", [&files] { files.mnuFileExport_Click(); });
    mnuFile->addSeparator();
    mnuFileExit = AddEntry(mnuFile, "mnuFileExit", "&Exit Corvane", [this] { window_.close(); });

    SetShortcut(mnuFileNew, QKeySequence::New, "Ctrl+N");
    SetShortcut(mnuFileOpen, QKeySequence::Open, "Ctrl+O");
    SetShortcut(mnuFileSave, QKeySequence::Save, "Ctrl+S");
    SetShortcut(mnuFileSaveAs, QKeySequence::SaveAs, "Ctrl+Shift+S");
    SetShortcut(mnuFileExit, QKeySequence::Quit, "Ctrl+Q");
    mnuFileNew->setIcon(QIcon::fromTheme(QStringLiteral("document-new")));
    mnuFileOpen->setIcon(QIcon::fromTheme(QStringLiteral("document-open")));
    mnuFileSave->setIcon(QIcon::fromTheme(QStringLiteral("document-save")));
    mnuFileSaveAs->setIcon(QIcon::fromTheme(QStringLiteral("document-save-as")));
    mnuFileExit->setIcon(QIcon::fromTheme(QStringLiteral("application-exit")));
    mnuFileExit->setMenuRole(QAction::QuitRole);
}

void MenuController::BuildEditMenu(QMenuBar* bar) {
    mnuEdit = AddMenu(bar, "mnuEdit", "&Edit");
    auto* pages = new QActionGroup(this);
    const std::array<const char*, 4> captions = {"&Project", "&Scan", "&Check", "&Documents"};
    for (int page = 0; page < 4; ++page) {
        const QString name = QStringLiteral("mnuViewPage_%1").arg(page);
        // A gate may open another page than the one chosen; the ticks follow the page opened.
        QAction* action =
            AddEntry(mnuEdit, name.toLatin1().constData(), captions[static_cast<std::size_t>(page)],
                     [this, page] { window_.Navigator().Open(page); });
        action->setCheckable(true);
        pages->addAction(action);
        mnuViewPage[static_cast<std::size_t>(page)] = action;
    }
}

void MenuController::BuildScanMenu(QMenuBar* bar) {
    mnuScan = AddMenu(bar, "mnuScan", "&Scan");
    ScanCommands& scans = window_.Scans();
    mnuScanHistoryAdd =
        AddEntry(mnuScan, "mnuScanHistoryAdd", "&Add...", [&scans] { scans.mnuScanHistoryAdd_Click(); });
    mnuScanHistoryDelete = AddEntry(mnuScan, "mnuScanHistoryDelete", "&Delete...",
                                    [&scans] { scans.mnuScanHistoryDelete_Click(); });
    mnuScanHistoryOverwrite = AddEntry(mnuScan, "mnuScanHistoryOverwrite", "&Overwrite...",
                                       [&scans] { scans.mnuScanHistoryOverwrite_Click(); });
    mnuScanHistoryImport = AddEntry(mnuScan, "mnuScanHistoryImport", "&Import...",
                                    [&scans] { scans.mnuScanHistoryImport_Click(); });
    mnuScan->addSeparator();
    mnuScanResetBuffer = AddEntry(mnuScan, "mnuScanResetBuffer", "Reset scan buffer...",
                                  [&scans] { scans.mnuScanResetBuffer_Click(); });
    mnuScan->addSeparator();
    mnuScanMode = mnuScan->addMenu(QStringLiteral("Scan Mode"));
    mnuScanMode->setObjectName(QStringLiteral("mnuScanMode"));
    mnuScanMode->menuAction()->setObjectName(QStringLiteral("mnuScanMode"));
    mnuScanModeManualEntry = AddEntry(mnuScanMode, "mnuScanModeManualEntry", "Manual entry",
                                      [&scans] { scans.mnuScanModeManualEntry_Click(); });
    mnuScanModeDigitalDAQ = AddEntry(mnuScanMode, "mnuScanModeDigitalDAQ", "Digitial DAQ",
                                     [&scans] { scans.mnuScanModeDigitalDAQ_Click(); });
    mnuScanModeManualEntry->setCheckable(true);
    mnuScanModeDigitalDAQ->setCheckable(true);
    mnuScan->addSeparator();
    mnuScanOptions =
        AddEntry(mnuScan, "mnuScanOptions", "Scan options...", [&scans] { scans.mnuScanOptions_Click(); });
}

void MenuController::BuildCheckMenu(QMenuBar* bar) {
    mnuCheckPlot = AddMenu(bar, "mnuCheckPlot", "&Check");
    ToolsCommands& tools = window_.Tools();
    mnuCheckPitchOnly = AddEntry(mnuCheckPlot, "mnuCheckPitchOnly", "Pitch only (ignore track)",
                                 [&tools] { tools.mnuCheckPitchOnly_Click(); });
    mnuCheckPitchOnly->setCheckable(true);
    mnuCheckPlot->addSeparator();
    mnuCheckPlotZoom[0] = AddEntry(mnuCheckPlot, "mnuCheckPlotZoom_0", "&Equal XY scale...",
                                   [&tools] { tools.mnuCheckPlotZoom_Click(0); });
    mnuCheckPlotZoom[1] = AddEntry(mnuCheckPlot, "mnuCheckPlotZoom_1", "&Magnified Y scale...",
                                   [&tools] { tools.mnuCheckPlotZoom_Click(1); });
    for (QAction* zoom : mnuCheckPlotZoom) {
        zoom->setCheckable(true);
    }
}

void MenuController::BuildToolsMenu(QMenuBar* bar) {
    mnuTools = AddMenu(bar, "mnuTools", "&Tools");
    ToolsCommands& tools = window_.Tools();
    mnuToolsOpenReferencePage = AddEntry(mnuTools, "mnuToolsOpenReferencePage", "&Show REF panel...",
                                         [&tools] { tools.mnuToolsOpenReferencePage_Click(); });
    mnuToolsReferenceEditor = AddEntry(mnuTools, "mnuToolsReferenceEditor", "&Custom Reference editor...",
                                       [&tools] { tools.mnuToolsReferenceEditor_Click(); });
    mnuTools->addSeparator();
    mnuToolsSettings =
        AddEntry(mnuTools, "mnuToolsSettings", "&Settings...", [&tools] { tools.mnuToolsSettings_Click(); });
    mnuToolsSettings->setMenuRole(QAction::PreferencesRole);
}

void MenuController::BuildHelpMenu(QMenuBar* bar) {
    mnuHelp = AddMenu(bar, "mnuHelp", "&Help");
    ToolsCommands& tools = window_.Tools();
    mnuHelpContents =
        AddEntry(mnuHelp, "mnuHelpContents", "&Contents", [&tools] { tools.mnuHelpContents_Click(); });
    mnuHelpSearch = AddEntry(mnuHelp, "mnuHelpSearch", "&Search for help on...",
                             [&tools] { tools.mnuHelpSearch_Click(); });
    mnuHelpTechSupport = AddEntry(mnuHelp, "mnuHelpTechSupport", "&Obtaining Technical Support",
                                  [&tools] { tools.mnuHelpTechSupport_Click(); });
    mnuHelpEmailErrorReport = AddEntry(mnuHelp, "mnuHelpEmailErrorReport", "&Email error report...",
                                       [&tools] { tools.mnuHelpEmailErrorReport_Click(); });
    mnuHelp->addSeparator();
    mnuHelpAbout =
        AddEntry(mnuHelp, "mnuHelpAbout", "&About Corvane...", [&tools] { tools.mnuHelpAbout_Click(); });
    SetShortcut(mnuHelpContents, QKeySequence::HelpContents, "F1");
    mnuHelpAbout->setMenuRole(QAction::AboutRole);
}

void MenuController::UpdateMenuState() {
    const PageNavigator& navigator = window_.Navigator();
    const int page = navigator.CurrentPage();
    for (int i = 0; i < static_cast<int>(mnuViewPage.size()); ++i) {
        mnuViewPage[static_cast<std::size_t>(i)]->setChecked(i == page);
    }
    const PageMenus wanted = page >= 0 ? navigator.Current().Menus() : PageMenus{};
    OpenMenu(mnuScan, wanted.scan);
    OpenMenu(mnuCheckPlot, wanted.check);
    OpenMenu(mnuTools, wanted.tools);

    const bool manualEntry = gScanMode == 1;
    mnuScanResetBuffer->setEnabled(!manualEntry);
    mnuScanOptions->setEnabled(!manualEntry);
    mnuScanModeManualEntry->setChecked(gScanMode == 1);
    mnuScanModeDigitalDAQ->setChecked(gScanMode == 2);

    mnuCheckPitchOnly->setChecked(gPitchIgnoreTrack);
    mnuCheckPlotZoom[0]->setChecked(!ZoomActive);
    mnuCheckPlotZoom[1]->setChecked(ZoomActive);
}

} // namespace corvane
