// The scan workflow's presses: the big scan button by state, RE-SCAN LAST, the buffer reset, the
// tip, radius and letter buttons, and adding or overwriting a scan.

#include "acquisition/ScanRadii.h"
#include "acquisition/ScanWorkflow.h"
#include "acquisition/modDevice.h"
#include "check/ScanEdits.h"
#include "iso484/clsISO484.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr const char* kReScanLastTitle = "RE-SCAN LAST";

} // namespace

void ScanWorkflow::PressScanButton(const ScanContext& ctx) {
    if (ctx.scanMode == 1) {
        // Manual entry: the press opens the entry of the active section, which the front end shows.
        events_.openManualEntry = true;
    } else {
        switch (scanState_) {
        case 0:
            PressHome(ctx);
            break;
        case 5:
            PressGet(ctx);
            break;
        case 1:
            PressGo(ctx);
            break;
        case 2:
            PressStop(ctx);
            break;
        case 3:
            PressReScanRadius(ctx);
            break;
        default:
            PressNotAvailable(ctx);
            break;
        }
    }
    AfterPress(ctx);
}

void ScanWorkflow::AfterPress(const ScanContext& ctx) {
    RefreshLeftBar(ctx);
    events_.graphsStale = true;
}

void ScanWorkflow::PressHome(const ScanContext& ctx) {
    Beep(ctx, 1000);
    AcquireInitialize(ctx);
    if (ctx.station.dropEncoderType == 2) {
        AcquireStopRecord(ctx);
    }
    const int active = ctx.project.ActiveScanIndex();
    if (active >= 0 && active < ctx.project.PropellerScanCount()) {
        PlaceBladesOnGL(*ctx.project.PropellerScan(active), ctx.project.RotationIndex());
    }
    ctx.activeBlade = 0;
    view_.guidance = ctx.station.radiusEncoderType == 1 ? "Check maximum diameter per blade."
                                                        : "Select a radius to measure.";
    SetState(1);
    RefreshRadiusButtons(ctx);
    view_.radius[static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7))].pressed = false;
    events_.homePressed = true;
}

void ScanWorkflow::PressGet(const ScanContext& ctx) {
    std::array<double, 4> counts{};
    std::uint32_t timeStamp = 0;
    DAQReadCounts(daq_, counts, timeStamp);
    ResetDropCounter(ctx);
    const double radius = ctx.station.radiusEncoderType == 1
                              ? CountToRadius(counts[kRadiusChannel], -1, ctx.station, *ctx.project.Units())
                              : 0.0;
    Beep(ctx, 1200);
    if (const auto scan = ctx.project.PropellerScan(ctx.project.ActiveScanIndex());
        ctx.activeBlade >= 0 && ctx.activeBlade < scan->BladeCount()) {
        scan->Blades(ctx.activeBlade)->SetBladeDiameter(2 * radius);
        events_.projectChanged = true;
    }
    ctx.activeBlade =
        static_cast<std::int16_t>(NextBlade(ctx, ctx.activeBlade, ctx.station.scanBladeOrder == 0 ? 1 : -1));
    view_.diamCheckBlade = "Touch off on tip of Blade " + BladeText(ctx);
    view_.guidance = "Check max diameter for Blade " + BladeText(ctx) + ".";
    if (!AllTipsRecorded(ctx)) {
        view_.getButton.enabled = true;
        return;
    }
    SetState(1);
    ctx.activeBlade = 0;
    view_.diamCheckBlade = "Touch off on tip of Blade 1";
    view_.guidance = "Move to a valid radius for Blade " + BladeText(ctx) + ".";
    RefreshLeftBar(ctx);
}

void ScanWorkflow::PressGo(const ScanContext& ctx) {
    view_.ruler = false;
    if (ctx.station.radiusEncoderType != 1) {
        ResetDropCounter(ctx);
    }
    AcquireStartRecord();
    view_.guidance = "Sweep to leading edge of Blade " + BladeText(ctx) + ".";
    view_.radialPos = false;
    view_.oops.visible = true;
    view_.add.enabled = false;
    for (PanelView& letter : view_.history) {
        letter.enabled = false;
    }
    Beep(ctx, 1200);
    view_.tip.clickable = false;
    SetState(2);
    ++events_.sweepsStarted;
}

void ScanWorkflow::PressStop(const ScanContext& ctx) {
    AcquireStopRecord(ctx);
    Beep(ctx, 800);
    const int step = ctx.station.scanBladeOrder == 0 ? 1 : -1;
    const std::string roundDone = ctx.station.radiusEncoderType == 1
                                      ? "Move to a valid radius for Blade "
                                      : "Select and move to the next radius for blade ";
    bool nextBlade = true;
    if (ctx.scanOrderMode == 1) {
        // All radii per blade: the blade moves on after its last radius (in index order, index 0
        // is the outermost).
        nextBlade = ctx.activeRadius == LastRadiusOfBlade(ctx.iso);
    }
    if (nextBlade) {
        ctx.activeBlade = static_cast<std::int16_t>(NextBlade(ctx, ctx.activeBlade, step));
    }
    const bool roundComplete = ctx.scanOrderMode == 1 ? !nextBlade : ctx.activeBlade == 0;
    view_.guidance = roundComplete ? roundDone + BladeText(ctx) + "."
                                   : "Move to trailing edge of Blade " + BladeText(ctx) + ".";
    view_.add.enabled = true;
    for (PanelView& letter : view_.history) {
        letter.enabled = true;
    }
    view_.tip.clickable = true;
    SetState(1);
    ++events_.sweepsEnded;
    events_.projectChanged = true;
}

void ScanWorkflow::PressReScanRadius(const ScanContext& ctx) {
    const int answer = Prompts().MessageBox(
        "For the selected radius, the data is already populated for some or all the blades. Would you like "
        "to over-write all blades' data for this radius?",
        MsgBox::YesNo | MsgBox::Question, "Data Warning");
    if (answer == Answer::Yes) {
        const auto scan = ctx.project.PropellerScan(ctx.project.ActiveScanIndex());
        for (int b = 0; b < scan->BladeCount(); ++b) {
            if (const auto section = SectionAt(ctx, b, ctx.activeRadius)) {
                section->SetRawOffsetCount(0);
            }
        }
        events_.projectChanged = true;
    }
    SetState(1);
}

void ScanWorkflow::PressNotAvailable(const ScanContext& ctx) {
    Prompts().MessageBox(
        "Cannot add or edit data in this scan because the device has been previously calibrated.",
        MsgBox::OKOnly | MsgBox::Exclamation, ctx.appTitle);
    view_.scanButton.caption = "N/A";
    view_.scanButton.enabled = false;
    view_.guidance = "Scan complete.";
}

void ScanWorkflow::ReScanLast(const ScanContext& ctx) {
    if (scanState_ != 1) {
        // A sweep under way: its points go, and the next tick ends it.
        view_.scanButton.caption = "GO";
        SetState(1);
        if (const auto section = ActiveSection(ctx)) {
            section->SetRawOffsetCount(0);
        }
        abortRecord_ = true;
        events_.projectChanged = true;
        return;
    }
    int radius = ctx.activeRadius;
    int blade = ctx.activeBlade;
    const int back = ctx.station.scanBladeOrder == 0 ? -1 : 1;
    if (ctx.scanOrderMode == 1) {
        radius = ctx.activeRadius - 1;
        if (radius < 0) {
            radius = 0;
            blade = NextBlade(ctx, blade, back);
        }
    } else {
        blade = NextBlade(ctx, blade, back);
    }
    const auto section = SectionAt(ctx, blade, radius);
    const int count = section ? section->RawOffsetCount() : 0;
    const std::string station =
        RadiusPercentText(ctx.radialPositions[static_cast<std::size_t>(std::clamp(radius, 0, 7))]);
    const std::string bladeText = std::to_string(blade + 1);
    if (count <= 0) {
        Prompts().MessageBox("There are no data points in the " + station + " for blade " + bladeText + ".",
                             MsgBox::OKOnly | MsgBox::Information, kReScanLastTitle);
        return;
    }
    if (Prompts().MessageBox("Warning! There are " + std::to_string(count) +
                                 " points in the last scanned radius. Erase this data and re-scan the " +
                                 station + " for blade " + bladeText + "?",
                             MsgBox::YesNo | MsgBox::Exclamation, kReScanLastTitle) != Answer::Yes) {
        return;
    }
    view_.scanButton.caption = "GO";
    SetState(1);
    section->SetRawOffsetCount(0);
    ctx.activeBlade = static_cast<std::int16_t>(blade);
    ctx.activeRadius = static_cast<std::int16_t>(radius);
    events_.projectChanged = true;
    events_.graphsStale = true;
    RefreshLeftBar(ctx);
}

void ScanWorkflow::ResetScanBuffer(const ScanContext& ctx) {
    if (ctx.scanMode == 1) {
        return;
    }
    DAQStopAcquisition(daq_);
    const auto section = ActiveSection(ctx);
    if (!section) {
        return;
    }
    const int waiting = std::max<int>(DAQGetFIFOCount(daq_), section->RawOffsetCount());
    if (waiting <= 0) {
        return;
    }
    const std::string station = RadiusPercentText(
        ctx.radialPositions[static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7))]);
    if (Prompts().MessageBox("Warning! There are " + std::to_string(waiting) +
                                 " points in the buffer. Erase the buffer and re-scan the " + station +
                                 " for blade " + BladeText(ctx) + "?",
                             MsgBox::YesNo | MsgBox::Question, "Reset scan buffer") != Answer::Yes) {
        return;
    }
    recordPointCount_ = 0;
    abortRecord_ = false;
    recording_ = false;
    view_.topBarEnabled = true;
    SetState(1);
    ResetA2DStatus(ctx);
    section->SetRawOffsetCount(0);
    events_.projectChanged = true;
    events_.graphsStale = true;
    RefreshLeftBar(ctx);
}

void ScanWorkflow::TipClick(const ScanContext& ctx) {
    const int active = ctx.project.ActiveScanIndex();
    if (active < 0 || active >= ctx.project.PropellerScanCount()) {
        return;
    }
    const auto scan = ctx.project.PropellerScan(active);
    view_.tip.pressed = true;
    const auto clearTips = [&] {
        for (int b = 0; b < scan->BladeCount(); ++b) {
            scan->Blades(b)->SetBladeDiameter(0);
        }
        events_.projectChanged = true;
    };
    bool hasTips = false;
    for (int b = 0; b < scan->BladeCount(); ++b) {
        hasTips = hasTips || scan->Blades(b)->BladeDiameter() > 0;
    }
    const bool typed = ctx.scanMode == 1 || ctx.station.radiusEncoderType == 0;
    if (hasTips) {
        if (Prompts().MessageBox(
                "Warning! The tip diameters have already been recorded.\r\nDo you want to record "
                "the tip diameters again?",
                MsgBox::YesNo | MsgBox::Question, "Tip Data") != Answer::Yes) {
            view_.tip.pressed = !typed && view_.tip.pressed;
            return;
        }
        clearTips();
        ctx.activeBlade = 0;
    }
    if (!typed) {
        return; // with the radial encoder the tick takes the pressed button up
    }
    for (int b = 0; b < scan->BladeCount(); ++b) {
        const std::string n = std::to_string(b + 1);
        const auto answer =
            Prompts().InputBox("Enter the radius of Blade " + n + ":", "Tip Position - Blade " + n, "");
        const double value = answer ? StringToDouble(*answer) : 0.0;
        if (value == 0) {
            clearTips();
            break;
        }
        scan->Blades(b)->SetBladeDiameter(2 * value);
        events_.projectChanged = true;
    }
    view_.tip.pressed = false;
}

void ScanWorkflow::RadiusClick(const ScanContext& ctx, int radius) {
    if (radius < 0 || radius >= static_cast<int>(view_.radius.size())) {
        return;
    }
    if (ctx.scanMode == 1 || ctx.station.radiusEncoderType == 0) {
        ShowRuler(ctx, radius);
    }
    for (std::size_t i = 0; i < view_.radius.size(); ++i) {
        view_.radius[i].pressed = static_cast<int>(i) == radius;
    }
    ctx.activeRadius = static_cast<std::int16_t>(radius);
    view_.tip.pressed = false;
    SetState(ctx.scanMode == 1 ? 5 : 1);
    RefreshLeftBar(ctx);
}

void ScanWorkflow::HistoryClick(const ScanContext& ctx, int scan) {
    if (scan < 0 || scan >= ctx.project.PropellerScanCount()) {
        return;
    }
    ctx.project.SetActiveScanIndex(static_cast<std::int16_t>(scan));
    ctx.activeBlade = 0;
    if (ScanHasData(ctx, scan)) {
        view_.scanButton.caption = "N/A";
        view_.guidance = "Previous scan data exists, scan data cannot be added.";
        SetState(4);
        RefreshRadiusButtons(ctx);
    }
    RefreshLeftBar(ctx);
    events_.graphsStale = true;
    events_.scansChanged = true;
}

bool ScanWorkflow::AddScan(const ScanContext& ctx, const DateTime& now) {
    if (!corvane::AddScan(ctx.project, ctx.station.scanSourceDevice, ctx.station.dropEncoderType, now)) {
        return false;
    }
    view_.historyFirst = std::max(0, ctx.project.PropellerScanCount() - 3);
    ctx.activeBlade = 0;
    ctx.activeRadius = 0;
    if (ctx.scanMode == 1) {
        SetState(5);
        view_.scanButton.caption = "ENTER";
        view_.guidance = "Select a radius and click ENTER to edit data.";
        view_.bladeSelector = 1;
        PlaceBladesOnGL(*ctx.project.PropellerScan(ctx.project.ActiveScanIndex()),
                        ctx.project.RotationIndex());
    } else {
        SetState(0);
        view_.scanButton.caption = "HOME";
        if (ctx.station.radiusEncoderType == 1) {
            view_.guidance = "Retract to minimum, move to center of Blade 1, set Zero.";
        } else {
            ResetDropCounter(ctx);
            view_.guidance = "Move to center of Blade 1, set Zero.";
        }
        view_.bladeSelector = 0;
    }
    RefreshRadiusButtons(ctx);
    if (ctx.scanMode == 1) {
        view_.radius[0].pressed = true;
    }
    RefreshLeftBar(ctx);
    events_.scansChanged = true;
    events_.projectChanged = true;
    events_.graphsStale = true;
    return true;
}

bool ScanWorkflow::OverwriteScan(const ScanContext& ctx) {
    if (!OverwriteActiveScan(ctx.project)) {
        return false;
    }
    ctx.activeBlade = 0;
    ctx.activeRadius = 0;
    SetState(0);
    view_.scanButton.caption = "HOME";
    view_.guidance = "Retract to minimum, move to center of Blade 1, set Zero.";
    RefreshRadiusButtons(ctx);
    RefreshLeftBar(ctx);
    events_.scansChanged = true;
    events_.projectChanged = true;
    events_.graphsStale = true;
    return true;
}

} // namespace corvane
