#pragma once

// An encoder box that exists only in numbers, for work without the hardware: the demo, the
// command line's scan and every test of the acquisition. It holds the three encoder positions
// and the pedal, and keeps the box's own rules:
//
// - A counter reads (forward ? +1 : -1) x (position - position at its last reset). The angle
//   counter in modulo mode runs 0..preset and wraps; plain counters are 24-bit and wrap at 2^24.
//   SetCount moves the reset position so the counter reads the given count; a change of
//   direction keeps the count it reads. The multiplier and the encoder type make no difference
//   to a simulated quadrature count.
// - GetA2D gives the pedal on input 0 and 0 on the others.
// - The log: StartAcquisition with the FIFO enabled arms it; in trigger mode 1 it starts when
//   input 0 rises above its threshold (a pedal already down when arming does not start it) and
//   then logs one record every millisecond of its own (whatever the sampling multiplier says)
//   until StopAcquisition or DisableFIFOBuffer. A full log stops logging. ClearFIFOBuffer
//   empties it.
//
// Time is what the caller says it is: AdvanceTo moves the box's clock, sampling the arm at every
// whole millisecond on the way, so a session replays bit for bit. The arm either follows a
// trajectory (from the moment the playback was restarted) or stands where MoveArm put it.
//
// Faults for tests: 0 or 2 boxes, the box vanishing (calls change nothing and the counts freeze),
// a smaller log that overflows sooner.

#include "acquisition/ArmTrajectory.h"
#include "acquisition/IEncoderBox.h"

#include <deque>
#include <memory>

namespace corvane {

class SimulatedEncoderBox : public IEncoderBox {
public:
    // Milliseconds between two records of the log.
    static constexpr double kLogPeriodMs = 1.0;

    SimulatedEncoderBox();

    // The arm: a trajectory to play, or none to stand still where MoveArm puts it.
    void Play(std::shared_ptr<const ArmTrajectory> trajectory);
    // Playback starts again from the trajectory's time 0 at the box's present moment.
    void RestartPlayback();
    void MoveArm(const ArmPosition& position);
    // Moves the box's clock forward (never back), sampling the arm each millisecond.
    void AdvanceTo(double timeMs);
    double NowMs() const { return nowMs_; }
    // Milliseconds since the playback started; the trajectory's own time.
    double PlaybackMs() const { return nowMs_ - playbackStartMs_; }
    bool PlaybackEnded() const;
    const ArmPosition& Arm() const { return arm_; }

    // Faults.
    void SetDeviceCount(std::int16_t count) { deviceCount_ = count; }
    void Vanish() { vanished_ = true; }
    void SetLogCapacity(std::size_t records) { capacity_ = records; }
    bool LogOverflowed() const { return overflowed_; }
    bool Logging() const { return logging_; }

    // IEncoderBox.
    void Initialize(std::int16_t& deviceCount) override;
    void SetMultiplier(std::int16_t device, std::int16_t channel, std::int16_t mode) override;
    void SetCounterMode(std::int16_t device, std::int16_t channel, std::int16_t mode) override;
    void SetPresetValue(std::int16_t device, std::int16_t channel, std::int32_t value) override;
    void SetForward(std::int16_t device, std::int16_t channel, bool forward) override;
    void SetCounterEnabled(std::int16_t device, std::int16_t channel, bool enabled) override;
    void ResetCount(std::int16_t device, std::int16_t channel) override;
    void SetCount(std::int16_t device, std::int16_t channel, std::int32_t count) override;
    void SetEnableIndex(std::int16_t device, std::int16_t channel, bool enabled) override;
    void SetEnableIndexOnMatch(std::int16_t device, std::int16_t channel, bool enabled) override;
    void CaptureTimeAndCounts(std::int16_t device, std::array<std::int32_t, 4>& counts,
                              std::uint32_t& timeStamp) override;
    void GetA2D(std::int16_t device, std::int16_t input, std::int32_t& value) override;
    void SetSamplingRateMultiplier(std::int16_t device, std::int32_t multiplier) override;
    void SetTimeBasedLogSettings(std::int16_t device, const TimeBasedLogSettings& settings) override;
    void EnableFIFOBuffer(std::int16_t device) override;
    void DisableFIFOBuffer(std::int16_t device) override;
    void StartAcquisition(std::int16_t device) override;
    void StopAcquisition(std::int16_t device) override;
    void ClearFIFOBuffer(std::int16_t device) override;
    void GetFIFOBufferCount(std::int16_t device, std::int32_t& count) override;
    void ReadFIFOBufferStruct(std::int16_t device, std::int32_t& count, USB4FIFORecord* buffer,
                              std::int32_t timeoutMs) override;

private:
    struct Channel {
        std::int16_t mode = kCounterModePlain;
        std::int32_t preset = 0;
        bool forward = true;
        bool enabled = false;
        std::int64_t base = 0; // position at the last reset
    };

    // The call reaches a box that is there.
    bool Answers(std::int16_t device, std::int16_t channel = 0) const;
    static std::int64_t Whole(double position);
    std::int64_t Position(int channel) const;
    std::int32_t Count(int channel) const;
    std::array<std::int32_t, 4> Counts() const;
    // One sample of the arm at a whole millisecond: the trigger and the log.
    void Sample(double timeMs);

    std::shared_ptr<const ArmTrajectory> trajectory_;
    ArmPosition arm_;
    double nowMs_ = 0;
    double playbackStartMs_ = 0;
    double lastSampleMs_ = 0;
    std::int16_t deviceCount_ = 1;
    bool vanished_ = false;
    std::array<Channel, 4> channels_{};
    std::array<std::int32_t, 4> frozen_{};

    TimeBasedLogSettings log_{};
    bool fifoEnabled_ = false;
    bool armed_ = false;
    bool logging_ = false;
    bool overflowed_ = false;
    int pedalAtLastSample_ = 0;
    std::size_t capacity_ = kFIFORecordLimit;
    std::deque<USB4FIFORecord> fifo_;
};

} // namespace corvane
