#pragma once

#include "acquisition/ScanWorkflow.h"
#include "shell/IPage.h"

#include <QElapsedTimer>

namespace corvane {

class ScanArmView;

class ArmStation;
class frmCorvane;
class frmPageScan;

// The Scan page inside the main window: it runs the scan workflow against the window's arm,
// hands it the project, the settings and the selection of the moment, shows what it decided and
// passes on what happened (unsaved data, stale graphs, a changed scan list, the manual entry to
// open). The window's acquisition timer calls Tick every 10 ms.
class ScanPageController : public IPage {
public:
    ScanPageController(frmCorvane& window, ArmStation& arm);
    ~ScanPageController() override;

    frmPageScan* Page() const { return page_; }

    // IPage. Entering marks the graphs stale, shows all radial stations and, in manual entry,
    // the active blade. The Scan menu is open on a station that scans.
    QWidget* Widget() const override;
    PageGate Gate() const override { return PageGate::ProjectData; }
    void Enter() override;
    void Leave() override {}
    void Refresh() override;
    PageMenus Menus() const override;

    // The page's list of scans after a scan was added or removed.
    void RefreshScanList();
    // The arm and top view graphs of the page.
    void RedrawGraphs();
    // Whether the page would take a new scan now (its add button is enabled).
    bool AddScanEnabled() const;
    // Clears what the acquisition holds of the sweep under way.
    void ClearAcquisitionState();

    // What the Scan menu hands over.
    void AddScan();
    void OverwriteScan();
    void ResetScanBuffer();
    // The demo: the first visit to the page starts on a new scan when the active one holds data.
    void StartOnNewScan() { startOnNewScan_ = true; }

    // The acquisition of the main window.
    int AcquireInitialize();
    int ResetDropCounter();
    void AcquireStartRecord();
    void AcquireStopRecord();
    void AcquireShutdown();
    // One tick of the acquisition timer: only while the page is open and shown.
    void Tick();

    // The arm for the scan check while the box runs; null otherwise.
    ILiveArm* LiveArm();
    ScanWorkflow& Workflow() { return workflow_; }
    // The big button (HOME, GO, STOP...), as a click, the pedal or the trigger key presses it.
    void PressScanButton();
    // The project, settings and selection of the moment. A simulated arm's operator works the
    // pedal, so the foot pedal is on for it whatever the settings say.
    ScanContext Context();

private:
    // Runs one call of the workflow, then shows and passes on what it decided. Calls do not nest:
    // a tick that comes while a question of the page is open waits for the next one.
    template <class F> void Run(F&& call);
    void Apply();
    void FollowTimer();
    void OpenManualEntry();
    void KeyTyped(int key, const QString& text);
    // Draws the arm where the read-outs put it on the picture of the active scan's sweeps.
    void DrawArm();

    frmCorvane& window_;
    ArmStation& arm_;
    ScanWorkflow workflow_;
    frmPageScan* page_ = nullptr;
    ScanArmView* armView_ = nullptr;
    int armScanMode_ = -1;
    bool armEnabled_ = false;
    QElapsedTimer session_;
    StationSettings station_;
    // The simulated arm's own time: 10 ms a tick, so a slow tick delays the arm but never lets a
    // pedal press slip between two ticks, and a session plays the same on every machine.
    double simulatedMs_ = 0;
    bool busy_ = false;
    bool startOnNewScan_ = false;
};

} // namespace corvane
