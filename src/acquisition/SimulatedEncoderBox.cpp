#include "acquisition/SimulatedEncoderBox.h"

#include <algorithm>
#include <cmath>

namespace corvane {
namespace {

constexpr std::int64_t kSpan24 = std::int64_t{1} << 24;

} // namespace

SimulatedEncoderBox::SimulatedEncoderBox() = default;

void SimulatedEncoderBox::Play(std::shared_ptr<const ArmTrajectory> trajectory) {
    trajectory_ = std::move(trajectory);
    RestartPlayback();
}

void SimulatedEncoderBox::RestartPlayback() {
    playbackStartMs_ = nowMs_;
    if (trajectory_)
        arm_ = trajectory_->At(0);
    pedalAtLastSample_ = arm_.pedal;
}

void SimulatedEncoderBox::MoveArm(const ArmPosition& position) {
    arm_ = position;
}

bool SimulatedEncoderBox::PlaybackEnded() const {
    return trajectory_ && PlaybackMs() >= trajectory_->EndMs();
}

void SimulatedEncoderBox::AdvanceTo(double timeMs) {
    if (!(timeMs > nowMs_))
        return;
    for (double t = std::floor(lastSampleMs_) + kLogPeriodMs; t <= timeMs; t += kLogPeriodMs) {
        if (trajectory_)
            arm_ = trajectory_->At(t - playbackStartMs_);
        Sample(t);
        lastSampleMs_ = t;
    }
    nowMs_ = timeMs;
    if (trajectory_)
        arm_ = trajectory_->At(nowMs_ - playbackStartMs_);
}

void SimulatedEncoderBox::Sample(double timeMs) {
    (void)timeMs;
    if (vanished_)
        return;
    if (fifoEnabled_ && armed_ && !logging_ && log_.a2dTriggerMode[0] == 1 &&
        pedalAtLastSample_ <= log_.a2dThreshold[0] && arm_.pedal > log_.a2dThreshold[0])
        logging_ = true;
    pedalAtLastSample_ = arm_.pedal;
    if (!logging_)
        return;
    const std::size_t limit =
        log_.recordLimit > 0 ? std::min<std::size_t>(capacity_, log_.recordLimit) : capacity_;
    if (fifo_.size() >= limit) {
        overflowed_ = true;
        logging_ = false;
        return;
    }
    USB4FIFORecord record;
    record.counts = Counts();
    fifo_.push_back(record);
}

bool SimulatedEncoderBox::Answers(std::int16_t device, std::int16_t channel) const {
    return !vanished_ && device >= 0 && device < deviceCount_ && channel >= 0 && channel < 4;
}

std::int64_t SimulatedEncoderBox::Whole(double position) {
    return static_cast<std::int64_t>(std::nearbyint(position));
}

std::int64_t SimulatedEncoderBox::Position(int channel) const {
    switch (channel) {
    case kAngleChannel:
        return Whole(arm_.angle);
    case kRadiusChannel:
        return Whole(arm_.radius);
    case kDropChannel:
        return Whole(arm_.drop);
    default:
        return 0;
    }
}

std::int32_t SimulatedEncoderBox::Count(int channel) const {
    const Channel& c = channels_[static_cast<std::size_t>(channel)];
    const std::int64_t raw = (c.forward ? 1 : -1) * (Position(channel) - c.base);
    const std::int64_t span =
        c.mode == kCounterModeModulo && c.preset >= 0 ? std::int64_t{c.preset} + 1 : kSpan24;
    return static_cast<std::int32_t>(((raw % span) + span) % span);
}

std::array<std::int32_t, 4> SimulatedEncoderBox::Counts() const {
    return {Count(0), Count(1), Count(2), Count(3)};
}

void SimulatedEncoderBox::Initialize(std::int16_t& deviceCount) {
    deviceCount = vanished_ ? 0 : deviceCount_;
}

void SimulatedEncoderBox::SetMultiplier(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    // A simulated quadrature count is the same under every multiplier.
    (void)device;
    (void)channel;
    (void)mode;
}

void SimulatedEncoderBox::SetCounterMode(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    if (Answers(device, channel))
        channels_[static_cast<std::size_t>(channel)].mode = mode;
}

void SimulatedEncoderBox::SetPresetValue(std::int16_t device, std::int16_t channel, std::int32_t value) {
    if (Answers(device, channel))
        channels_[static_cast<std::size_t>(channel)].preset = value;
}

void SimulatedEncoderBox::SetForward(std::int16_t device, std::int16_t channel, bool forward) {
    if (!Answers(device, channel))
        return;
    Channel& c = channels_[static_cast<std::size_t>(channel)];
    if (c.forward == forward)
        return;
    // The count it reads stays; from here on it counts the other way.
    const std::int64_t count = (c.forward ? 1 : -1) * (Position(channel) - c.base);
    c.forward = forward;
    c.base = Position(channel) - (forward ? 1 : -1) * count;
}

void SimulatedEncoderBox::SetCounterEnabled(std::int16_t device, std::int16_t channel, bool enabled) {
    if (Answers(device, channel))
        channels_[static_cast<std::size_t>(channel)].enabled = enabled;
}

void SimulatedEncoderBox::ResetCount(std::int16_t device, std::int16_t channel) {
    if (Answers(device, channel))
        channels_[static_cast<std::size_t>(channel)].base = Position(channel);
}

void SimulatedEncoderBox::SetCount(std::int16_t device, std::int16_t channel, std::int32_t count) {
    if (!Answers(device, channel))
        return;
    Channel& c = channels_[static_cast<std::size_t>(channel)];
    c.base = Position(channel) - (c.forward ? 1 : -1) * std::int64_t{count};
}

void SimulatedEncoderBox::SetEnableIndex(std::int16_t device, std::int16_t channel, bool enabled) {
    // Index pulses exist on no simulated encoder.
    (void)device;
    (void)channel;
    (void)enabled;
}

void SimulatedEncoderBox::SetEnableIndexOnMatch(std::int16_t device, std::int16_t channel, bool enabled) {
    (void)device;
    (void)channel;
    (void)enabled;
}

void SimulatedEncoderBox::CaptureTimeAndCounts(std::int16_t device, std::array<std::int32_t, 4>& counts,
                                               std::uint32_t& timeStamp) {
    if (!Answers(device)) {
        counts = frozen_;
        return;
    }
    counts = Counts();
    frozen_ = counts;
    timeStamp = static_cast<std::uint32_t>(static_cast<std::int64_t>(nowMs_));
}

void SimulatedEncoderBox::GetA2D(std::int16_t device, std::int16_t input, std::int32_t& value) {
    if (Answers(device))
        value = input == kPedalInput ? arm_.pedal : 0;
}

void SimulatedEncoderBox::SetSamplingRateMultiplier(std::int16_t device, std::int32_t multiplier) {
    // The simulated log keeps its own rate, kLogPeriodMs.
    (void)device;
    (void)multiplier;
}

void SimulatedEncoderBox::SetTimeBasedLogSettings(std::int16_t device, const TimeBasedLogSettings& settings) {
    if (Answers(device))
        log_ = settings;
}

void SimulatedEncoderBox::EnableFIFOBuffer(std::int16_t device) {
    if (Answers(device))
        fifoEnabled_ = true;
}

void SimulatedEncoderBox::DisableFIFOBuffer(std::int16_t device) {
    if (Answers(device)) {
        fifoEnabled_ = false;
        logging_ = false;
    }
}

void SimulatedEncoderBox::StartAcquisition(std::int16_t device) {
    if (!Answers(device))
        return;
    armed_ = true;
    pedalAtLastSample_ = arm_.pedal;
}

void SimulatedEncoderBox::StopAcquisition(std::int16_t device) {
    if (Answers(device)) {
        armed_ = false;
        logging_ = false;
    }
}

void SimulatedEncoderBox::ClearFIFOBuffer(std::int16_t device) {
    if (Answers(device)) {
        fifo_.clear();
        overflowed_ = false;
    }
}

void SimulatedEncoderBox::GetFIFOBufferCount(std::int16_t device, std::int32_t& count) {
    count = Answers(device) ? static_cast<std::int32_t>(fifo_.size()) : 0;
}

void SimulatedEncoderBox::ReadFIFOBufferStruct(std::int16_t device, std::int32_t& count,
                                               USB4FIFORecord* buffer, std::int32_t timeoutMs) {
    (void)timeoutMs;
    if (!Answers(device) || buffer == nullptr || count <= 0) {
        count = 0;
        return;
    }
    const auto delivered = std::min<std::size_t>(static_cast<std::size_t>(count), fifo_.size());
    std::copy_n(fifo_.begin(), delivered, buffer);
    fifo_.erase(fifo_.begin(), fifo_.begin() + static_cast<std::ptrdiff_t>(delivered));
    count = static_cast<std::int32_t>(delivered);
}

} // namespace corvane
