#pragma once

#include "acquisition/ArmStation.h"

#include <QMainWindow>

#include <array>
#include <functional>
#include <memory>

class QLabel;
class QStackedWidget;
class QTimer;

namespace corvane {

class CheckPageController;
class FileCommands;
class MainToolStrip;
class MenuController;
class PageNavigator;
class ProjectPageController;
class ReportPageController;
class ScanCommands;
class ScanPageController;
class ToolsCommands;

// The main window: one page at a time under the menus and the tool strip of page and blade
// buttons. The navigator moves between the four pages through the gates in front of them; the
// pages, the file commands and the menus each have a controller of their own.
class frmCorvane : public QMainWindow {
    Q_OBJECT

public:
    enum PageIndex { PageProject = 0, PageScan = 1, PageCheck = 2, PageReport = 3 };

    // arm: the station's measuring arm (the vendor's box, or a simulated one); none without.
    explicit frmCorvane(std::unique_ptr<ArmStation> arm = nullptr, QWidget* parent = nullptr);
    ~frmCorvane() override;

    // Asks to save a changed project: Yes saves, and the answer goes back; 2 (Cancel) stops
    // the command that asked. A Yes whose save did not happen counts as Cancel.
    int QuerySave();
    // "Corvane [Shop]", then " - " and the Project ID, then " - " and the customer.
    void UpdateTitlebarCaption();
    void UpdateTitle() { UpdateTitlebarCaption(); }

    // Page buttons, with their gates (PageNavigator::Open).
    void ctlProjButton_Click();
    void ctlScanButton_Click();
    void ctlCheckButton_Click();
    void ctlDocsButton_Click();

    // Blade view: ctlAll and the seven blade buttons.
    void ctlAll_Click();
    void UpdateRadiusPanels();
    void ctlBlades_Click(int index);
    void Prop_Blades_Disable();
    void Lock_Controls();
    void UnLock_Controls();
    // 0 Project page: blades by count, released; 1 Scan page: the active blade in manual
    // entry; 2 Check and Report pages: the shown blades pressed.
    void SetBladeButtonState(int state);
    void Blades_Depress();
    void Blade_Only(int index);
    void Blades_Or_Prop();
    void Blades_Count_Show();
    void Blades_Count_Raise();
    void ctlAll_Raise();
    void ctlAll_Depress();
    void ctlAll_UpdateDisplay();
    // Every blade of the active scan that is switched on is shown.
    void ShowEnabledBlades();
    void ResizeMainToolbar();

    // File commands (FileCommands does the work).
    void mnuFileExport_Click();
    void mnuFileImport_Click();
    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileViewArchive_Click();
    int mnuFileSave_Click();

    // Acquisition of the measuring arm (the Scan page's workflow does the work). The timer starts
    // once the box was found and programmed, and then runs for the life of the window; its tick
    // reads the arm while the Scan page is open.
    int AcquireInitialize();
    int ResetDropCounter();
    void AcquireStartRecord();
    void AcquireStopRecord();
    void AcquireShutdown();

    // The steps of the program's end that ask nothing, in their order: the open project's lock
    // goes, the timers stop, the acquisition shuts down. Closing the window runs them after its
    // questions, letting events run between them; an Abort in the critical error dialog runs
    // them without (the window installs them for that while it lives).
    void RunShutdownSteps(bool letEventsRun);

    // The open page, or -1 before the first one opened.
    int ActivePage() const;
    int BladeViewMode() const { return bladeViewMode_; }
    void SetBladeViewMode(int mode) { bladeViewMode_ = mode; }
    bool AcquisitionRunning() const;
    ArmStation& Arm() const { return *arm_; }
    QWidget* PageWidget(int page) const;

    PageNavigator& Navigator() const { return *navigator_; }
    MainToolStrip& ToolStrip() const { return *toolStrip_; }
    MenuController& Menus() const { return *menus_; }
    FileCommands& Files() const { return *files_; }
    ScanCommands& Scans() const { return *scans_; }
    ToolsCommands& Tools() const { return *tools_; }
    ProjectPageController& ProjectPage() const { return *projectPage_; }
    ScanPageController& ScanPage() const { return *scanPage_; }
    CheckPageController& CheckPage() const { return *checkPage_; }
    ReportPageController& ReportPage() const { return *reportPage_; }
    QTimer* tmrAcquire() const { return tmrAcquire_; }

    // The QSettings group that remembers the window's size and place.
    static constexpr const char* kPlacementGroup = "Window";

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void PlaceWindow();
    void SavePlacement() const;
    void UpdateStatusBar();
    // The blade buttons' pressed states go through here, so that a click the window refuses
    // can be put back (RestoreBladeButtons).
    void PressBlade(int blade, bool pressed);
    void RestoreBladeButtons();
    // The tool strip's click actions when unlocked on the page now open.
    void SetBladeClickActions();

    // Starts the acquisition timer when the workflow's tick runs.
    void FollowAcquisitionTimer();

    int bladeViewMode_ = 1;
    std::array<bool, 7> bladePressed_{};

    MainToolStrip* toolStrip_ = nullptr;
    QStackedWidget* pages_ = nullptr;
    QLabel* lblFileName_ = nullptr;
    QTimer* tmrAcquire_ = nullptr;
    std::unique_ptr<ArmStation> arm_;
    std::unique_ptr<ProjectPageController> projectPage_;
    std::unique_ptr<ScanPageController> scanPage_;
    std::unique_ptr<CheckPageController> checkPage_;
    std::unique_ptr<ReportPageController> reportPage_;
    // After the pages, which it holds by reference.
    std::unique_ptr<PageNavigator> navigator_;
    std::unique_ptr<FileCommands> files_;
    std::unique_ptr<ScanCommands> scans_;
    std::unique_ptr<ToolsCommands> tools_;
    std::unique_ptr<MenuController> menus_;
    // The shut-down steps that were installed before this window's own.
    std::function<void()> previousShutdownSteps_;
};

} // namespace corvane
