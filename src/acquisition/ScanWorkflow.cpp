// The scan workflow: the acquisition of the main window, the presses of the scan button and the
// other clicks of the Scan page, and the page's refreshes. The tick is in ScanWorkflowTick.cpp.

#include "acquisition/ScanWorkflow.h"

#include "acquisition/ScanRadii.h"
#include "acquisition/ScanRuler.h"
#include "acquisition/modDevice.h"
#include "check/ScanEdits.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace corvane {
namespace {

constexpr const char* kReScanRadiusCaption = "RE-SCAN\r\nRADIUS";
constexpr int kVisibleLetters = 3;

const char* DigitalCaption(int state) {
    static constexpr const char* kCaptions[] = {"HOME", "GO", "STOP", kReScanRadiusCaption, "N/A", "GET"};
    return state >= 0 && state <= 5 ? kCaptions[state] : "N/A";
}

} // namespace

ScanWorkflow::ScanWorkflow(IEncoderBox& box) : daq_(box) {}

ScanEvents ScanWorkflow::TakeEvents() {
    return std::exchange(events_, ScanEvents{});
}

// --- the acquisition of the main window ---

int ScanWorkflow::AcquireInitialize(const ScanContext& ctx) {
    if (DAQDiscover(daq_) != 1) {
        return 0;
    }
    DAQConfigureCounters(daq_, ctx.station);
    daq_.lastRadiusCount = 0;
    daq_.lastDropCount = 0;
    StartTick(ctx);
    return 1;
}

int ScanWorkflow::ResetDropCounter(const ScanContext& ctx) {
    if (ctx.station.dropEncoderType != 2 || DAQDiscover(daq_) != 1) {
        return 0;
    }
    DAQResetDropCounter(daq_);
    daq_.lastDropCount = 0;
    StartTick(ctx);
    return 1;
}

void ScanWorkflow::StartTick(const ScanContext& ctx) {
    DAQConfigureFIFOLog(daq_, true);
    DAQStartFIFO(daq_, ctx.station.footPedal);
    tickRunning_ = true;
    recording_ = false;
    view_.topBarEnabled = true;
}

void ScanWorkflow::AcquireStartRecord() {
    recordPointCount_ = 0;
    recording_ = true;
    view_.topBarEnabled = false;
}

void ScanWorkflow::AcquireStopRecord(const ScanContext& ctx) {
    DAQStopAcquisition(daq_);
    DAQStopFIFO(daq_);
    if (const auto section = ActiveSection(ctx)) {
        const FIFODrainTarget target{
            *section, ctx.project.RotationIndex(),
            nominalRadius_[static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7))]};
        if (DAQReadFIFORecords(daq_, target, ctx.station, *ctx.project.Units()) > 0) {
            events_.projectChanged = true;
        }
    }
    view_.topBarEnabled = true;
    recording_ = false;
}

void ScanWorkflow::AcquireShutdown() {
    view_.topBarEnabled = true;
    recording_ = false;
    scanState_ = 0;
    view_.scanButton.caption = "HOME";
    view_.zeroInstructions = true;
}

void ScanWorkflow::ResetA2DStatus(const ScanContext& ctx) {
    pedalArmed_ = true;
    pedalDown_ = false;
    DAQConfigureFIFOLog(daq_, true);
    DAQStartFIFO(daq_, ctx.station.footPedal);
}

// --- the page ---

void ScanWorkflow::PageLoad(const ScanContext& ctx) {
    ShowZeroInstructions(ctx);
    view_.guidance = "Select and radius and click ENTER to edit data.";
    RefreshLeftBar(ctx);
}

void ScanWorkflow::Activate(const ScanContext& ctx) {
    view_.angle.clear();
    view_.radiusText.clear();
    view_.drop.clear();
    view_.radialPos = false;
    view_.displayRad = "RAD";
    view_.tip.pressed = false;
    nominalRadius_ = NominalRadii(ctx.project, ctx.radialPositions);
    SetISOStandardAndTolerances(ctx.iso, ctx.project);
    ShowZeroInstructions(ctx);
    RefreshLeftBar(ctx);
    view_.bladeSelector = ctx.scanMode == 1 ? 1 : 0;
    if (ctx.scanMode == 1 && HasScans(ctx)) {
        SetState(5);
        view_.radius[static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7))].pressed = true;
    }
    RefreshScanFormData(ctx);
    RefreshRadiusButtons(ctx);
    ResetDropCounter(ctx);
}

void ScanWorkflow::RefreshScanFormData(const ScanContext& ctx) {
    if (!HasScans(ctx)) {
        view_.tip.enabled = false;
        view_.oops.visible = false;
        SetState(4);
        RefreshLeftBar(ctx);
        view_.add.enabled = ctx.scanMode != 0;
        view_.guidance = "Add a new scan.";
        return;
    }
    view_.historyFirst = std::max(0, ctx.project.PropellerScanCount() - kVisibleLetters);
    RefreshLeftBar(ctx);
}

void ScanWorkflow::RefreshLeftBar(const ScanContext& ctx) {
    if (ctx.scanMode == 0) {
        SetState(4); // nothing can be scanned or entered on an office station
    }
    const int state = scanState_;
    if (ctx.scanMode == 1) {
        if (state == 4 || state == 5) {
            view_.scanButton.caption = state == 4 ? "N/A" : "ENTER";
        }
    } else {
        view_.scanButton.caption = DigitalCaption(state);
    }
    view_.scanButton.enabled =
        state == 0 ? ctx.project.ActiveScanIndex() < ctx.project.PropellerScanCount() : state != 4;
    view_.oops.enabled = state == 1 || state == 2;
    view_.zeroInstructions = view_.scanButton.caption == "HOME";
    const int active = ctx.project.ActiveScanIndex();
    view_.description = active >= 0 && active < ctx.project.PropellerScanCount()
                            ? ctx.project.PropellerScan(active)->Description()
                            : std::string();
    RefreshHistory(ctx);
    const bool sweeping = state == 2;
    view_.add.enabled = !sweeping && ((ctx.scanMode == 2 && daq_.available) || ctx.scanMode == 1);
    for (PanelView& letter : view_.history) {
        letter.enabled = !sweeping;
    }
}

void ScanWorkflow::RefreshHistory(const ScanContext& ctx) {
    const int count = std::max(0, static_cast<int>(ctx.project.PropellerScanCount()));
    view_.history.resize(static_cast<std::size_t>(count));
    view_.historyFirst = std::clamp(view_.historyFirst, 0, std::max(0, count - kVisibleLetters));
    for (int i = 0; i < count; ++i) {
        PanelView& letter = view_.history[static_cast<std::size_t>(i)];
        letter.caption = ScanLabel(ctx.project.PropellerScan(i)->ScanID());
        letter.visible = i >= view_.historyFirst && i < view_.historyFirst + kVisibleLetters;
        letter.pressed = i == ctx.project.ActiveScanIndex();
    }
    view_.prev.enabled = count >= kVisibleLetters + 1;
    view_.next.enabled = view_.historyFirst + kVisibleLetters < count;
}

void ScanWorkflow::HistoryPage(const ScanContext& ctx, int step) {
    view_.historyFirst += step;
    RefreshHistory(ctx);
}

void ScanWorkflow::RefreshRadiusButtons(const ScanContext& ctx) {
    corvane::RefreshRadiusButtons(RadiusRulesOf(ctx.iso, scanState_, ctx.scanMode,
                                                ctx.station.radiusEncoderType, HasScans(ctx),
                                                ctx.activeRadius),
                                  ctx.radialPositions, view_.radius, view_.tip);
}

void ScanWorkflow::ShowZeroInstructions(const ScanContext& ctx) {
    const bool radial = ctx.station.radiusEncoderType == 1;
    view_.zeroLines = {"1) Move probe to center of Blade 1.",
                       radial ? "2) Slide radius to minimum radius position."
                              : "2) Retract drop rod to highest position.",
                       "3) Press HOME to initialize the device."};
}

void ScanWorkflow::ShowRuler(const ScanContext& ctx, int radius) {
    const double fraction = ctx.radialPositions[static_cast<std::size_t>(radius)];
    const clsUnits& units = *ctx.project.Units();
    view_.rulerRadius = RadiusCaption(fraction);
    view_.rulerMeasurement = RulerMeasurementText(RulerTarget(fraction, ctx.project.MarkedDiameter(),
                                                              ctx.station.activeProbeOffsetSide,
                                                              ctx.station.activeProbeOffsetRadial, units),
                                                  ctx.station.radiusDisplayRulerIndex, units);
    view_.ruler = true;
    ResetDropCounter(ctx);
}

void ScanWorkflow::CloseRuler() {
    view_.ruler = false;
    if (scanState_ != 4) {
        view_.scanButton.enabled = true;
    }
}

void ScanWorkflow::SetDescription(const ScanContext& ctx, const std::string& text) {
    const int active = ctx.project.ActiveScanIndex();
    if (active < 0 || active >= ctx.project.PropellerScanCount() ||
        ctx.project.PropellerScan(active)->Description() == text) {
        return;
    }
    ctx.project.PropellerScan(active)->SetDescription(text);
    view_.description = text;
    events_.projectChanged = true;
}

// --- selection helpers ---

bool ScanWorkflow::HasScans(const ScanContext& ctx) const {
    return ctx.project.PropellerScanCount() > 0;
}

std::shared_ptr<clsSection> ScanWorkflow::SectionAt(const ScanContext& ctx, int blade, int radius) const {
    const int active = ctx.project.ActiveScanIndex();
    if (active < 0 || active >= ctx.project.PropellerScanCount()) {
        return nullptr;
    }
    const auto scan = ctx.project.PropellerScan(active);
    if (!scan || blade < 0 || blade >= scan->BladeCount()) {
        return nullptr;
    }
    const auto b = scan->Blades(blade);
    if (!b || radius < 0 || radius >= b->SectionCount()) {
        return nullptr;
    }
    return b->Section(radius);
}

std::shared_ptr<clsSection> ScanWorkflow::ActiveSection(const ScanContext& ctx) const {
    return SectionAt(ctx, ctx.activeBlade, ctx.activeRadius);
}

bool ScanWorkflow::ScanHasData(const ScanContext& ctx, int scan) const {
    const auto propeller = ctx.project.PropellerScan(scan);
    for (int b = 0; b < propeller->BladeCount(); ++b) {
        const auto blade = propeller->Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (blade->Section(k)->RawOffsetCount() > 0) {
                return true;
            }
        }
    }
    return false;
}

bool ScanWorkflow::AllTipsRecorded(const ScanContext& ctx) const {
    const int active = ctx.project.ActiveScanIndex();
    if (active < 0 || active >= ctx.project.PropellerScanCount()) {
        return true;
    }
    const auto scan = ctx.project.PropellerScan(active);
    for (int b = 0; b < scan->BladeCount(); ++b) {
        if (!(scan->Blades(b)->BladeDiameter() > 0)) {
            return false;
        }
    }
    return true;
}

std::string ScanWorkflow::BladeText(const ScanContext& ctx) const {
    return std::to_string(ctx.activeBlade + 1);
}

int ScanWorkflow::NextBlade(const ScanContext& ctx, int blade, int step) const {
    const int count = std::max<int>(1, ctx.project.BladeCount());
    return ((blade + step) % count + count) % count;
}

void ScanWorkflow::Beep(const ScanContext& ctx, int frequencyHz) {
    if (ctx.station.audioFeedback) {
        Sound().Beep(frequencyHz, 250);
    }
}

ILiveArm* ScanWorkflow::LiveArmForCheck(const ScanContext& ctx) {
    if (ctx.scanMode != 2 || !daq_.available || !tickRunning_) {
        return nullptr;
    }
    liveArm_ = std::make_unique<LiveArm>(daq_, ctx.station);
    return liveArm_.get();
}

bool ScanWorkflow::TriggersScanButton(const ScanContext& ctx, char typed) const {
    if (!view_.scanButton.enabled) {
        return false;
    }
    // The trigger is stored as an upper-case key code; a key typed without Shift arrives in
    // lower case and must fire all the same. The blank always works.
    const int trigger = ctx.station.keyboardTrigger;
    const bool isTrigger =
        trigger > 0 && trigger < 256 &&
        std::toupper(static_cast<unsigned char>(typed)) == std::toupper(static_cast<unsigned char>(trigger));
    return isTrigger || typed == ' ';
}

bool ScanWorkflow::KeyTyped(const ScanContext& ctx, char typed) {
    if (!TriggersScanButton(ctx, typed)) {
        return false;
    }
    PressScanButton(ctx);
    return true;
}

} // namespace corvane
