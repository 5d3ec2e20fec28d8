// One tick of the acquisition loop (UpdateAndSaveScanData): read the arm, show where it stands,
// find the radius window it is in, keep the points of a sweep and watch the foot pedal.

#include "acquisition/ScanRadii.h"
#include "acquisition/ScanWorkflow.h"
#include "acquisition/modDevice.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

// The pedal fires above the upper level and must come back below the lower one before it can
// fire again; at exactly either level nothing happens.
constexpr std::int32_t kPedalPressed = 4000;
constexpr std::int32_t kPedalReleased = 2500;
constexpr const char* kReScanRadiusCaption = "RE-SCAN\r\nRADIUS";

// Half of a hundredth of the last digit the project's length format shows.
double FormatTolerance(const std::string& format) {
    const std::size_t point = format.find('.');
    const int decimals = point == std::string::npos ? 0 : static_cast<int>(format.size() - point - 1);
    return 0.01 * std::pow(10.0, -decimals);
}

} // namespace

int ScanWorkflow::Tick(const ScanContext& ctx) {
    if (!tickRunning_) {
        return 0;
    }
    ErrorTail tail("updating the scan data");
    const bool done = tail.Step([&] {
        const clsUnits& units = *ctx.project.Units();
        const double halfWidth = RadiusWindowHalfWidth(ctx.project, ctx.iso);
        std::array<double, 4> counts{};
        std::uint32_t timeStamp = 0;
        DAQReadCounts(daq_, counts, timeStamp);
        const double angle = CountsToAngleDeg(counts[kAngleChannel], counts[kRadiusChannel], ctx.station);
        const double radius =
            ctx.station.radiusEncoderType == 1
                ? CountToRadius(counts[kRadiusChannel], -1, ctx.station, units)
                : nominalRadius_[static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7))];
        double drop = CountToDrop(counts[kDropChannel], -1, ctx.station, units);
        if (ctx.station.dropEncoderType == 2) {
            drop = std::fabs(drop); // a single-channel counter does not know the direction
        }
        ShowReadOuts(ctx, angle, radius, drop);
        view_.fifoCount = DAQFIFOCountText(daq_);

        const bool inWindow = recording_ || WindowTest(ctx, radius, halfWidth);
        if (recording_) {
            bool tickEnds = false;
            SweepStep(ctx, radius, angle, drop, tickEnds);
            if (tickEnds) {
                return;
            }
        } else {
            if (!inWindow) {
                view_.radialPos = false;
            }
            // The log arms only at a valid radius.
            if (radiusInWindow_) {
                DAQStartFIFO(daq_, ctx.station.footPedal);
            } else {
                DAQStopFIFO(daq_);
            }
        }
        WatchPedal(ctx);
    });
    return done ? 1 : 0;
}

void ScanWorkflow::ShowReadOuts(const ScanContext& ctx, double angle, double radius, double drop) {
    const clsUnits& units = *ctx.project.Units();
    const std::string format = units.PropLengthFormat();
    const std::string unit = " " + units.GetUnitPropLengthLabel(-1);
    view_.armAngleDeg = angle;
    view_.armRadius = radius;
    view_.armDrop = drop;
    view_.angle = FormatNumber(angle, "0.000") + " deg";
    view_.radiusText = FormatNumber(radius, format) + unit;
    view_.drop = FormatNumber(drop, format) + unit;
}

bool ScanWorkflow::WindowTest(const ScanContext& ctx, double radius, double halfWidth) {
    if (scanState_ != 1 && scanState_ != 3 && scanState_ != 5) {
        radiusInWindow_ = false;
        return false;
    }
    bool inWindow = false;
    const bool radialEncoder = ctx.station.radiusEncoderType == 1;
    if (radialEncoder) {
        // Every window is tried, so where two overlap the larger index (the smaller radius) wins.
        for (std::size_t i = 0; i < nominalRadius_.size(); ++i) {
            const double lo = nominalRadius_[i] - halfWidth;
            const double hi = nominalRadius_[i] + halfWidth;
            PanelView& button = view_.radius[i];
            if (radius >= lo && radius <= hi && button.enabled && scanState_ != 5) {
                inWindow = true;
                ctx.activeRadius = static_cast<std::int16_t>(i);
                button.pressed = false;
                button.enabled = true;
                ShowTolerance(ctx, lo, hi, radius);
                view_.displayRad = button.caption;
            }
        }
    }
    if (view_.tip.pressed && radialEncoder) {
        if (!AllTipsRecorded(ctx)) {
            inWindow = true;
            SetState(5);
            RefreshLeftBar(ctx);
            view_.guidance = "Check max diameter for Blade " + BladeText(ctx) + ".";
            view_.displayRad = "TIP";
            view_.tolerance = false;
        } else {
            view_.tip.pressed = false;
        }
    }
    if (inWindow) {
        view_.radialPos = true;
        if (scanState_ == 5 || scanState_ == 0) {
            return true;
        }
        EnterRadius(ctx);
        if (scanState_ != 2) {
            const auto section = ActiveSection(ctx);
            if (section && section->RawOffsetCount() > 0) {
                SetState(3);
                RefreshLeftBar(ctx);
                recordPointCount_ = 0;
            } else {
                SetState(1);
                RefreshLeftBar(ctx);
            }
        }
        return true;
    }
    const std::size_t active = static_cast<std::size_t>(std::clamp<int>(ctx.activeRadius, 0, 7));
    if (view_.radius[active].pressed && !radialEncoder) {
        // The operator has chosen the radius by hand.
        radiusInWindow_ = true;
        EnterRadius(ctx);
        return false;
    }
    radiusInWindow_ = false;
    if (scanState_ == 5) {
        SetState(1);
        RefreshLeftBar(ctx);
    }
    view_.radialPos = false;
    const std::string& caption = view_.scanButton.caption;
    if (caption == "GO") {
        view_.scanButton.enabled = false;
        view_.guidance = "Move to a valid radius for Blade " + BladeText(ctx) + ".";
    } else if (caption == "HOME") {
        view_.guidance = "Retract to minimum positions, move to center of Blade 1.";
    } else if (caption == "N/A") {
        view_.guidance = "Scan complete.";
    }
    if (scanState_ == 3 || caption == kReScanRadiusCaption) {
        SetState(1);
        RefreshLeftBar(ctx);
    }
    return false;
}

void ScanWorkflow::EnterRadius(const ScanContext& ctx) {
    if (view_.scanButton.enabled) {
        return;
    }
    view_.scanButton.enabled = true;
    Beep(ctx, 1400);
    view_.guidance = "Move to trailing edge of Blade " + BladeText(ctx) + ".";
    radiusInWindow_ = true;
}

void ScanWorkflow::ShowTolerance(const ScanContext& ctx, double lo, double hi, double radius) {
    view_.tolerance = true;
    view_.toleranceLo = lo;
    view_.toleranceHi = hi;
    view_.toleranceRadius = radius;
    const double slack = FormatTolerance(ctx.project.Units()->PropLengthFormat());
    view_.toleranceLine = hi > lo && radius >= lo - slack && radius <= hi + slack;
    view_.toleranceLineHeight = view_.toleranceLine ? 1 - (radius - lo) / (hi - lo) : 0;
}

void ScanWorkflow::KeepPoint(const ScanContext& ctx, double radius, double angle, double drop) {
    const auto section = ActiveSection(ctx);
    if (!section) {
        return;
    }
    ++recordPointCount_;
    section->SetRawOffsetCount(recordPointCount_);
    const int last = recordPointCount_ - 1;
    section->SetRadius(last, radius);
    section->SetThetaDeg(last, angle);
    section->SetAxialDropX(last, drop);
    events_.projectChanged = true;
}

void ScanWorkflow::SweepStep(const ScanContext& ctx, double radius, double angle, double drop,
                             bool& tickEnds) {
    view_.radialPos = false;
    view_.guidance = "Sweep to leading edge of Blade " + BladeText(ctx) + ".";
    view_.statusLevel = 0;
    view_.statusText.clear();
    if (recordPointCount_ == 0) {
        KeepPoint(ctx, radius, angle, drop);
        firstAngleDeg_ = angle;
        return;
    }
    if (abortRecord_) {
        abortRecord_ = false;
        recording_ = false;
        // The top bar follows the sweep: an aborted sweep must not leave the pages locked.
        view_.topBarEnabled = true;
        SetState(1);
        tickEnds = true;
        return;
    }
    const auto section = ActiveSection(ctx);
    if (!section || recordPointCount_ > section->RawOffsetCount()) {
        return;
    }
    const double last = section->ThetaDeg(recordPointCount_ - 1);
    const double d = ctx.project.RotationIndex() == 0 ? angle - last : last - angle;
    if ((d > 0 && d < 180) || d < -180) {
        // Onwards, or through 0/360 with the counter's wrap.
        KeepPoint(ctx, radius, angle, drop);
    } else if (d < 0) {
        view_.statusLevel = 1;
        view_.statusText = "Not Recording";
    }
}

void ScanWorkflow::WatchPedal(const ScanContext& ctx) {
    if (!view_.scanButton.enabled || !ctx.station.footPedal) {
        return;
    }
    const std::int32_t value = DAQReadA2D(daq_);
    if (value > kPedalPressed && pedalArmed_) {
        pedalDown_ = true;
        pedalArmed_ = false;
        PressScanButton(ctx);
    } else if (value < kPedalReleased) {
        pedalArmed_ = true;
        if (recording_) {
            pedalDown_ = true;
        } else {
            pedalDown_ = false;
            DAQConfigureFIFOLog(daq_, true);
            DAQStartFIFO(daq_, ctx.station.footPedal);
        }
    }
}

} // namespace corvane
