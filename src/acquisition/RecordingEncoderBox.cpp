#include "acquisition/RecordingEncoderBox.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr std::int64_t kSpan24 = std::int64_t{1} << 24;

bool SamePlace(const ArmSample& a, const ArmSample& b) {
    return a.angle == b.angle && a.radius == b.radius && a.drop == b.drop && a.pedal == b.pedal;
}

} // namespace

std::int64_t RecordingEncoderBox::Encoder::Span() const {
    return mode == kCounterModeModulo && preset >= 0 ? std::int64_t{preset} + 1 : kSpan24;
}

void RecordingEncoderBox::Encoder::Read(std::int32_t count) {
    // The shortest way from the last reading to this one, through the wrap if that is shorter.
    const std::int64_t span = Span();
    const std::int64_t last = ((value % span) + span) % span;
    std::int64_t step = (std::int64_t{count} - last) % span;
    if (step > span / 2)
        step -= span;
    else if (step < -span / 2)
        step += span;
    value += step;
}

RecordingEncoderBox::RecordingEncoderBox(IEncoderBox& box) : box_(box) {
    trajectory_.comments.push_back("Corvane session recorded from the encoder box");
}

void RecordingEncoderBox::AdvanceTo(double timeMs) {
    nowMs_ = std::max(nowMs_, timeMs);
}

void RecordingEncoderBox::BeginAtHome() {
    if (homeSeen_)
        return;
    homeSeen_ = true;
    originMs_ = nowMs_;
    ArmTrajectory fresh;
    fresh.comments = trajectory_.comments;
    trajectory_ = std::move(fresh);
    held_.reset();
    Sample();
}

void RecordingEncoderBox::Sample() {
    ArmSample sample;
    sample.timeMs = nowMs_ - originMs_;
    sample.angle = encoders_[kAngleChannel].Position();
    sample.radius = encoders_[kRadiusChannel].Position();
    sample.drop = encoders_[kDropChannel].Position();
    sample.pedal = std::clamp(pedal_, 0, kPedalMaximum);
    const auto& samples = trajectory_.Samples();
    if (!samples.empty() && SamePlace(samples.back(), sample)) {
        // Still: remember the end of the run, write it only when something moves.
        if (sample.timeMs > samples.back().timeMs)
            held_ = sample;
        return;
    }
    if (!samples.empty() && sample.timeMs <= samples.back().timeMs) {
        // Two readings in one moment: the later one stands for it.
        sample.timeMs = samples.back().timeMs;
        trajectory_.ReplaceLast(sample);
        held_.reset();
        return;
    }
    if (held_ && held_->timeMs < sample.timeMs)
        trajectory_.Add(*held_);
    held_.reset();
    trajectory_.Add(sample);
}

const ArmTrajectory& RecordingEncoderBox::Trajectory() {
    if (held_) {
        trajectory_.Add(*held_);
        held_.reset();
    }
    return trajectory_;
}

bool RecordingEncoderBox::Save(const std::string& path, std::string& error) {
    return WriteArmTrajectory(path, Trajectory(), error);
}

void RecordingEncoderBox::Initialize(std::int16_t& deviceCount) {
    box_.Initialize(deviceCount);
}

void RecordingEncoderBox::SetMultiplier(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    box_.SetMultiplier(device, channel, mode);
}

void RecordingEncoderBox::SetCounterMode(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    box_.SetCounterMode(device, channel, mode);
    if (Tracks(channel))
        encoders_[static_cast<std::size_t>(channel)].mode = mode;
}

void RecordingEncoderBox::SetPresetValue(std::int16_t device, std::int16_t channel, std::int32_t value) {
    box_.SetPresetValue(device, channel, value);
    if (Tracks(channel))
        encoders_[static_cast<std::size_t>(channel)].preset = value;
}

void RecordingEncoderBox::SetForward(std::int16_t device, std::int16_t channel, bool forward) {
    box_.SetForward(device, channel, forward);
    if (!Tracks(channel))
        return;
    // The reading stays; the encoder counts the other way from here.
    Encoder& e = encoders_[static_cast<std::size_t>(channel)];
    const std::int64_t position = e.Position();
    e.forward = forward;
    e.base = position - (forward ? 1 : -1) * e.value;
}

void RecordingEncoderBox::SetCounterEnabled(std::int16_t device, std::int16_t channel, bool enabled) {
    box_.SetCounterEnabled(device, channel, enabled);
}

void RecordingEncoderBox::ResetCount(std::int16_t device, std::int16_t channel) {
    box_.ResetCount(device, channel);
    if (Tracks(channel)) {
        Encoder& e = encoders_[static_cast<std::size_t>(channel)];
        e.base = e.Position();
        e.value = 0;
    }
}

void RecordingEncoderBox::SetCount(std::int16_t device, std::int16_t channel, std::int32_t count) {
    box_.SetCount(device, channel, count);
    if (Tracks(channel)) {
        Encoder& e = encoders_[static_cast<std::size_t>(channel)];
        const std::int64_t position = e.Position();
        e.value = count;
        e.base = position - (e.forward ? 1 : -1) * e.value;
    }
}

void RecordingEncoderBox::SetEnableIndex(std::int16_t device, std::int16_t channel, bool enabled) {
    box_.SetEnableIndex(device, channel, enabled);
}

void RecordingEncoderBox::SetEnableIndexOnMatch(std::int16_t device, std::int16_t channel, bool enabled) {
    box_.SetEnableIndexOnMatch(device, channel, enabled);
}

void RecordingEncoderBox::CaptureTimeAndCounts(std::int16_t device, std::array<std::int32_t, 4>& counts,
                                               std::uint32_t& timeStamp) {
    box_.CaptureTimeAndCounts(device, counts, timeStamp);
    for (std::size_t channel = 0; channel < encoders_.size(); ++channel)
        encoders_[channel].Read(counts[channel]);
    Sample();
}

void RecordingEncoderBox::GetA2D(std::int16_t device, std::int16_t input, std::int32_t& value) {
    box_.GetA2D(device, input, value);
    if (input == kPedalInput) {
        pedal_ = value;
        Sample();
    }
}

void RecordingEncoderBox::SetSamplingRateMultiplier(std::int16_t device, std::int32_t multiplier) {
    box_.SetSamplingRateMultiplier(device, multiplier);
}

void RecordingEncoderBox::SetTimeBasedLogSettings(std::int16_t device, const TimeBasedLogSettings& settings) {
    box_.SetTimeBasedLogSettings(device, settings);
}

void RecordingEncoderBox::EnableFIFOBuffer(std::int16_t device) {
    box_.EnableFIFOBuffer(device);
}

void RecordingEncoderBox::DisableFIFOBuffer(std::int16_t device) {
    box_.DisableFIFOBuffer(device);
}

void RecordingEncoderBox::StartAcquisition(std::int16_t device) {
    box_.StartAcquisition(device);
}

void RecordingEncoderBox::StopAcquisition(std::int16_t device) {
    box_.StopAcquisition(device);
}

void RecordingEncoderBox::ClearFIFOBuffer(std::int16_t device) {
    box_.ClearFIFOBuffer(device);
}

void RecordingEncoderBox::GetFIFOBufferCount(std::int16_t device, std::int32_t& count) {
    box_.GetFIFOBufferCount(device, count);
}

void RecordingEncoderBox::ReadFIFOBufferStruct(std::int16_t device, std::int32_t& count,
                                               USB4FIFORecord* buffer, std::int32_t timeoutMs) {
    box_.ReadFIFOBufferStruct(device, count, buffer, timeoutMs);
}

} // namespace corvane
