#pragma once

// Records a session with an encoder box as an arm trajectory, so a shop can send it for support
// and have it replayed on the simulated arm. Every call goes on to the box unchanged; on the way
// the recorder follows what the station told the box (resets, set counts, directions, counter
// modes) and what the box answered (counts, the pedal), and from that rebuilds where each
// encoder stood in counts since power-on. A sample is taken whenever the counts or the pedal are
// read; runs of identical samples keep only their ends.
//
// The recorder has no clock of its own: the front end moves its time (milliseconds since the
// session began) with every tick, as it moves the simulated box. The recording's time 0 is the
// session's first HOME, where a replay presses HOME too; what came before it is dropped.

#include "acquisition/ArmTrajectory.h"
#include "acquisition/IEncoderBox.h"

#include <optional>
#include <string>

namespace corvane {

class RecordingEncoderBox : public IEncoderBox {
public:
    explicit RecordingEncoderBox(IEncoderBox& box);

    void AdvanceTo(double timeMs);
    // HOME is about to be pressed: the first time, the recording starts again from here.
    void BeginAtHome();
    const ArmTrajectory& Trajectory();
    // Writes what was recorded so far, the whole file at once. false with the reason in error.
    bool Save(const std::string& path, std::string& error);

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
    // One encoder as the recorder follows it. The counter reads direction x (position - base),
    // wrapped into its span; `value` is that reading unwrapped.
    struct Encoder {
        std::int16_t mode = kCounterModePlain;
        std::int32_t preset = 0;
        bool forward = true;
        std::int64_t base = 0;
        std::int64_t value = 0;
        std::int64_t Span() const;
        std::int64_t Position() const { return base + (forward ? 1 : -1) * value; }
        void Read(std::int32_t count);
    };

    bool Tracks(std::int16_t channel) const { return channel >= 0 && channel <= kDropChannel; }
    void Sample();

    IEncoderBox& box_;
    std::array<Encoder, 3> encoders_{};
    int pedal_ = 0;
    double nowMs_ = 0;
    double originMs_ = 0; // the session's time at the recording's time 0
    bool homeSeen_ = false;
    ArmTrajectory trajectory_;
    std::optional<ArmSample> held_; // the last of a run of identical samples, not yet written
};

} // namespace corvane
