#include "acquisition/modDAQUtilities.h"

#include "acquisition/modDevice.h"
#include "model/Globals.h"
#include "model/clsSection.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace corvane {
namespace {

constexpr double kSpan24 = 16777216.0; // 2^24
constexpr std::int32_t kSamplingRateMultiplier = 4999;
constexpr std::uint16_t kPedalLogThreshold = 3500;
// A section's point count is read in 16 bits; a drain never stores more.
constexpr std::size_t kMostSectionPoints = 32767;

std::int16_t Multiplier(std::int16_t encoderType) {
    return encoderType == 1 ? kMultiplierQuadrature : kMultiplierClockDirection;
}

void ProgramChannel(DAQState& daq, int channel, std::int16_t encoderType, double preset, std::int16_t mode,
                    bool forward) {
    IEncoderBox& box = *daq.box;
    const auto ch = static_cast<std::int16_t>(channel);
    box.SetMultiplier(daq.deviceNo, ch, Multiplier(encoderType));
    box.SetPresetValue(daq.deviceNo, ch, ToBoxCount(preset));
    box.SetCounterMode(daq.deviceNo, ch, mode);
    box.SetForward(daq.deviceNo, ch, forward);
    box.SetCounterEnabled(daq.deviceNo, ch, true);
    box.ResetCount(daq.deviceNo, ch);
}

} // namespace

double UnwrapCount(double value, double& last) {
    if (value - last > kSpan24 / 2)
        last = -(kSpan24 - value);
    else
        last = value;
    return last;
}

int DAQDiscover(DAQState& daq) {
    daq.deviceCount = 0;
    daq.deviceNo = -1;
    daq.available = true;
    daq.box->Initialize(daq.deviceCount);
    if (daq.deviceCount != 1) {
        // Two boxes are deliberately treated like none: the station cannot tell which is the arm.
        daq.available = false;
        return 0;
    }
    daq.deviceNo = 0;
    return 1;
}

int DAQConfigureCounters(DAQState& daq, const StationSettings& station) {
    if (daq.deviceCount == 0 || !daq.available)
        return 0;
    ProgramChannel(daq, kAngleChannel, station.angleEncoderType, AnglePreset(station), kCounterModeModulo,
                   station.angleEncoderFlip);
    daq.box->SetEnableIndex(daq.deviceNo, kAngleChannel, false);
    daq.box->SetEnableIndexOnMatch(daq.deviceNo, kAngleChannel, false);
    ProgramChannel(daq, kRadiusChannel, station.radiusEncoderType, RadiusPreset(station), kCounterModePlain,
                   station.radiusEncoderFlip);
    ProgramChannel(daq, kDropChannel, station.dropEncoderType, DropPreset(station), kCounterModePlain,
                   station.dropEncoderFlip);
    return 1;
}

void DAQResetDropCounter(DAQState& daq) {
    if (daq.available)
        daq.box->ResetCount(daq.deviceNo, kDropChannel);
}

void DAQSetAngleCount(DAQState& daq, std::int32_t count) {
    if (daq.available)
        daq.box->SetCount(daq.deviceNo, kAngleChannel, count);
}

void DAQReadCounts(DAQState& daq, std::array<double, 4>& counts, std::uint32_t& timeStamp) {
    counts = {};
    if (!daq.available)
        return;
    std::array<std::int32_t, 4> raw{};
    daq.box->CaptureTimeAndCounts(daq.deviceNo, raw, timeStamp);
    counts[kAngleChannel] = raw[kAngleChannel];
    counts[kRadiusChannel] = UnwrapCount(raw[kRadiusChannel], daq.lastRadiusCount);
    counts[kDropChannel] = UnwrapCount(raw[kDropChannel], daq.lastDropCount);
    counts[3] = raw[3];
}

std::int32_t DAQReadA2D(DAQState& daq) {
    std::int32_t value = 0;
    if (daq.available)
        daq.box->GetA2D(daq.deviceNo, kPedalInput, value);
    return value;
}

std::int32_t DAQGetFIFOCount(DAQState& daq) {
    std::int32_t count = 0;
    if (daq.available)
        daq.box->GetFIFOBufferCount(daq.deviceNo, count);
    return count;
}

std::string DAQFIFOCountText(DAQState& daq) {
    return "Count: " + std::to_string(DAQGetFIFOCount(daq));
}

void DAQConfigureFIFOLog(DAQState& daq, bool trigger) {
    if (daq.available) {
        IEncoderBox& box = *daq.box;
        box.DisableFIFOBuffer(daq.deviceNo);
        box.StopAcquisition(daq.deviceNo);
        box.ClearFIFOBuffer(daq.deviceNo);
        box.SetSamplingRateMultiplier(daq.deviceNo, kSamplingRateMultiplier);
        TimeBasedLogSettings settings;
        settings.a2dTriggerMode[kPedalInput] = trigger ? 1 : 2;
        settings.a2dThreshold[kPedalInput] = kPedalLogThreshold;
        settings.recordLimit = kFIFORecordLimit;
        box.SetTimeBasedLogSettings(daq.deviceNo, settings);
    }
    daq.fifoRunning = false;
}

void DAQStartFIFO(DAQState& daq, bool footPedal) {
    if (daq.fifoRunning || !footPedal)
        return;
    if (daq.available) {
        daq.box->ClearFIFOBuffer(daq.deviceNo);
        daq.box->EnableFIFOBuffer(daq.deviceNo);
        daq.box->StartAcquisition(daq.deviceNo);
    }
    daq.fifoRunning = true;
}

void DAQStopFIFO(DAQState& daq) {
    if (!daq.fifoRunning)
        return;
    if (daq.available) {
        daq.box->DisableFIFOBuffer(daq.deviceNo);
        daq.box->StopAcquisition(daq.deviceNo);
    }
    daq.fifoRunning = false;
}

void DAQStopAcquisition(DAQState& daq) {
    if (daq.available)
        daq.box->StopAcquisition(daq.deviceNo);
}

int DAQReadFIFORecords(DAQState& daq, const FIFODrainTarget& target, const StationSettings& station,
                       const clsUnits& units) {
    if (!daq.available)
        return 0;
    const std::int32_t waiting = DAQGetFIFOCount(daq);
    std::int32_t delivered = 0;
    if (waiting > 0) {
        if (daq.fifoRecords.empty())
            daq.fifoRecords.resize(kFIFOBufferRecords);
        // Two more than announced, as the box may have logged meanwhile; never beyond the buffer.
        const auto asked = std::min<std::int64_t>(std::int64_t{waiting} + 2,
                                                  static_cast<std::int64_t>(daq.fifoRecords.size()));
        delivered = static_cast<std::int32_t>(asked);
        daq.box->ReadFIFOBufferStruct(daq.deviceNo, delivered, daq.fifoRecords.data(), 0);
        delivered = std::clamp<std::int32_t>(delivered, 0, static_cast<std::int32_t>(asked));
    }
    std::vector<double> radius, theta, drop;
    double lastAngle = 0;
    for (std::int32_t i = 0; i < delivered && theta.size() < kMostSectionPoints; ++i) {
        USB4FIFORecord& record = daq.fifoRecords[static_cast<std::size_t>(i)];
        const double radiusCount = UnwrapCount(record.counts[kRadiusChannel], daq.lastRadiusCount);
        const double dropCount = UnwrapCount(record.counts[kDropChannel], daq.lastDropCount);
        record.counts[kRadiusChannel] = static_cast<std::int32_t>(radiusCount);
        record.counts[kDropChannel] = static_cast<std::int32_t>(dropCount);
        const double angle = CountsToAngleDeg(record.counts[kAngleChannel], radiusCount, station);
        if (i > 0) {
            const bool wrapped = std::fabs(angle - lastAngle) > 180;
            const bool forward = target.rotationIndex == 0 ? angle > lastAngle : angle < lastAngle;
            if (!wrapped && !forward)
                continue;
        }
        radius.push_back(station.radiusEncoderType == 1 ? CountToRadius(radiusCount, -1, station, units)
                                                        : target.nominalRadius);
        theta.push_back(angle);
        drop.push_back(CountToDrop(dropCount, -1, station, units));
        lastAngle = angle;
    }
    if (!theta.empty()) {
        target.section.SetRadiusArray(radius);
        target.section.SetThetaDegArray(theta);
        target.section.SetAxialDropXArray(drop);
    }
    daq.box->ClearFIFOBuffer(daq.deviceNo);
    return static_cast<int>(theta.size());
}

} // namespace corvane
