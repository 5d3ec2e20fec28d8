#pragma once

// The operator's scan protocol and the acquisition loop behind the Scan page, free of any
// window: the state of the one big scan button and what each press does, how blades and radii
// advance, the 10 ms tick that reads the arm, finds the radius window, keeps points and watches
// the foot pedal, and the scan history. The page only shows what this decides (View()); the
// window calls the tick from its timer and the command line and the tests call it directly with
// a virtual clock, so a scan replays bit for bit. Questions, messages and tones go through the
// services.
//
// Scan button states: 0 HOME, 1 GO, 2 STOP, 3 RE-SCAN RADIUS, 4 N/A, 5 GET (tips; ENTER in
// manual entry). A new scan starts at HOME; the pedal, the trigger key or a click presses it.
//
// The project, the ISO settings, the station's settings and the selection are handed in with
// every call (ScanContext): the project may be replaced between two ticks.

#include "acquisition/LiveArm.h"
#include "acquisition/ScanPageView.h"
#include "acquisition/modDAQUtilities.h"
#include "model/DateTime.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;
class clsSection;

struct ScanContext {
    clsCorvane& project;
    clsISO484& iso;
    const StationSettings& station;
    std::int32_t scanMode;      // 0 Office (nothing is scanned), 1 manual entry, 2 digital acquisition
    std::int16_t scanOrderMode; // 0 all blades per radius, 1 all radii per blade
    std::int16_t& activeBlade;
    std::int16_t& activeRadius;
    const std::array<double, 8>& radialPositions;
    std::string appTitle = "Corvane";
};

// What happened since the front end last asked (TakeEvents).
struct ScanEvents {
    bool projectChanged = false; // scan data or scans changed: the project is unsaved
    bool graphsStale = false;
    bool scansChanged = false; // a scan was added or emptied: lists, menus and title follow
    bool homePressed = false;
    int sweepsStarted = 0;
    int sweepsEnded = 0;
    bool openManualEntry = false; // manual entry: the press opens the entry of the active section
};

class ScanWorkflow {
public:
    explicit ScanWorkflow(IEncoderBox& box);

    // The acquisition of the main window. AcquireInitialize finds and programs the box and
    // starts the tick (1), or gives 0 without a box: counts then stay zero.
    int AcquireInitialize(const ScanContext& ctx);
    // Only with a single-channel drop encoder: zeroes the drop counter and re-arms the log.
    int ResetDropCounter(const ScanContext& ctx);
    void AcquireStartRecord();
    // Stops the log and drains it into the active section.
    void AcquireStopRecord(const ScanContext& ctx);
    void AcquireShutdown();

    // The page: its load, its activation, and the pedal and log re-armed.
    void PageLoad(const ScanContext& ctx);
    void Activate(const ScanContext& ctx);
    void ResetA2DStatus(const ScanContext& ctx);
    // UpdateAndSaveScanData: one tick. Nothing happens (0) before the tick was started.
    int Tick(const ScanContext& ctx);
    bool TickRunning() const { return tickRunning_; }

    // Presses and clicks of the page.
    void PressScanButton(const ScanContext& ctx); // the big button, the pedal, the key, GET
    void ReScanLast(const ScanContext& ctx);      // RE-SCAN LAST
    void ResetScanBuffer(const ScanContext& ctx); // Scan menu, "Reset scan buffer..."
    void TipClick(const ScanContext& ctx);
    void RadiusClick(const ScanContext& ctx, int radius);
    void HistoryClick(const ScanContext& ctx, int scan);
    void HistoryPage(const ScanContext& ctx, int step); // PREV -1, NEXT +1
    // ADD: a new scan of the station's device, at HOME in digital acquisition, ready for entry in
    // manual entry. False when refused (the scan limit).
    bool AddScan(const ScanContext& ctx, const DateTime& now);
    // Overwrite: the active scan emptied after asking, back to HOME.
    bool OverwriteScan(const ScanContext& ctx);
    // With no scans ADD is offered; with scans the letters page to the last one.
    void RefreshScanFormData(const ScanContext& ctx);
    // A key typed on the page, as its character: the trigger key (in any case) or a blank press
    // the scan button while it is enabled. True when it pressed.
    bool KeyTyped(const ScanContext& ctx, char typed);
    bool TriggersScanButton(const ScanContext& ctx, char typed) const;
    void SetDescription(const ScanContext& ctx, const std::string& text);
    // Closes the radius ruler; the scan button works again unless the scan is done.
    void CloseRuler();

    // The arm for the scan check, while the box runs in digital acquisition; null otherwise.
    ILiveArm* LiveArmForCheck(const ScanContext& ctx);

    const ScanPageView& View() const { return view_; }
    ScanEvents TakeEvents();

    std::int16_t ScanState() const { return scanState_; }
    bool Recording() const { return recording_; }
    std::int32_t RecordPointCount() const { return recordPointCount_; }
    bool RadiusInWindow() const { return radiusInWindow_; }
    DAQState& Daq() { return daq_; }

private:
    // The section the arm fills now; null when the selection points at none.
    std::shared_ptr<clsSection> ActiveSection(const ScanContext& ctx) const;
    std::shared_ptr<clsSection> SectionAt(const ScanContext& ctx, int blade, int radius) const;
    bool HasScans(const ScanContext& ctx) const;
    bool ScanHasData(const ScanContext& ctx, int scan) const;
    bool AllTipsRecorded(const ScanContext& ctx) const;
    std::string BladeText(const ScanContext& ctx) const; // the active blade, 1-based
    void Beep(const ScanContext& ctx, int frequencyHz);
    void SetState(std::int16_t state) { scanState_ = state; }
    // Arms the box's log and the pedal, and starts the tick with the top bar free.
    void StartTick(const ScanContext& ctx);
    int NextBlade(const ScanContext& ctx, int blade, int step) const;

    // Presses by state.
    void PressHome(const ScanContext& ctx);
    void PressGet(const ScanContext& ctx);
    void PressGo(const ScanContext& ctx);
    void PressStop(const ScanContext& ctx);
    void PressReScanRadius(const ScanContext& ctx);
    void PressNotAvailable(const ScanContext& ctx);

    // The tick's steps.
    void ShowReadOuts(const ScanContext& ctx, double angle, double radius, double drop);
    bool WindowTest(const ScanContext& ctx, double radius, double halfWidth);
    void EnterRadius(const ScanContext& ctx);
    void KeepPoint(const ScanContext& ctx, double radius, double angle, double drop);
    void SweepStep(const ScanContext& ctx, double radius, double angle, double drop, bool& tickEnds);
    void WatchPedal(const ScanContext& ctx);

    // The page's refreshes.
    void RefreshLeftBar(const ScanContext& ctx);
    void RefreshRadiusButtons(const ScanContext& ctx);
    void RefreshHistory(const ScanContext& ctx);
    void ShowRuler(const ScanContext& ctx, int radius);
    void ShowZeroInstructions(const ScanContext& ctx);
    void ShowTolerance(const ScanContext& ctx, double lo, double hi, double radius);
    void AfterPress(const ScanContext& ctx);

    DAQState daq_;
    std::unique_ptr<LiveArm> liveArm_;
    ScanPageView view_;
    ScanEvents events_;

    std::int16_t scanState_ = 0;
    bool recording_ = false;
    std::int32_t recordPointCount_ = 0;
    bool abortRecord_ = false;
    bool tickRunning_ = false;
    bool radiusInWindow_ = false;
    bool pedalArmed_ = true;
    bool pedalDown_ = false;
    double firstAngleDeg_ = 0;
    std::array<double, 8> nominalRadius_{};
};

} // namespace corvane
