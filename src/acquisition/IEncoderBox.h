#pragma once

// The encoder interface box of the measuring arm (a US Digital USB4): one call here for each call
// of the box's library that the station makes, with the same arguments. Every call but
// Initialize takes the device number first. The station never looks at a call's result, so
// none is returned; a box that does not answer simply leaves counts stale or zero.
//
// Counter channels: 0 angle, 1 radius, 2 drop (3 unused). Counts are 24-bit in the box.
// Analogue input 0 carries the foot pedal, 0..4095.

#include <array>
#include <cstddef>
#include <cstdint>

namespace corvane {

inline constexpr int kAngleChannel = 0;
inline constexpr int kRadiusChannel = 1;
inline constexpr int kDropChannel = 2;
inline constexpr int kPedalInput = 0;

// Counter modes and multipliers as the box numbers them.
inline constexpr std::int16_t kCounterModePlain = 0;  // 24-bit counter
inline constexpr std::int16_t kCounterModeModulo = 3; // runs 0..preset and wraps
inline constexpr std::int16_t kMultiplierClockDirection = 0;
inline constexpr std::int16_t kMultiplierQuadrature = 3; // times four quadrature

// The records the box can hold in its FIFO log, and the receive buffer the station drains into.
inline constexpr std::uint32_t kFIFORecordLimit = 819202;
inline constexpr std::size_t kFIFOBufferRecords = 819203;

// One record of the FIFO log, 40 bytes as the library fills it. The station reads the four
// signed counts at byte offset 12 and nothing else; the other bytes are the box's own.
struct USB4FIFORecord {
    std::array<std::uint8_t, 12> head{};
    std::array<std::int32_t, 4> counts{}; // channels 0 to 3
    std::array<std::uint8_t, 12> tail{};
};
static_assert(sizeof(USB4FIFORecord) == 40, "the box fills 40-byte records");
static_assert(offsetof(USB4FIFORecord, counts) == 12, "the counts stand at byte offset 12");

// What starts the time-based log, in the order of the library call's arguments. The station
// binds logging to analogue input 0 crossing a threshold (the pedal); the groups it leaves at
// zero (digital inputs, counters, timer) have the meaning the library gives them.
struct TimeBasedLogSettings {
    std::array<std::uint8_t, 8> digitalTrigger{};
    std::uint8_t digitalTriggerMode = 0;
    std::array<std::uint8_t, 8> digitalTriggerState{};
    std::uint8_t digitalTriggerStateMode = 0;
    // Per analogue input: 1 starts logging when the input rises above its threshold; the
    // station writes 2 when it asks for no trigger. 0 is off.
    std::array<std::uint8_t, 4> a2dTriggerMode{};
    std::array<std::uint16_t, 4> a2dThreshold{};
    std::array<std::uint8_t, 4> counterTriggerMode{};
    std::array<std::uint32_t, 4> counterTriggerValue{};
    std::uint8_t timerTrigger = 0;
    std::uint32_t recordLimit = 0; // records the log takes before it stops
};

class IEncoderBox {
public:
    virtual ~IEncoderBox() = default;

    // Opens the library and reports how many boxes are attached.
    virtual void Initialize(std::int16_t& deviceCount) = 0;
    virtual void SetMultiplier(std::int16_t device, std::int16_t channel, std::int16_t mode) = 0;
    virtual void SetCounterMode(std::int16_t device, std::int16_t channel, std::int16_t mode) = 0;
    // The N-1 of a modulo counter; a plain counter only stores it.
    virtual void SetPresetValue(std::int16_t device, std::int16_t channel, std::int32_t value) = 0;
    // The counting direction.
    virtual void SetForward(std::int16_t device, std::int16_t channel, bool forward) = 0;
    virtual void SetCounterEnabled(std::int16_t device, std::int16_t channel, bool enabled) = 0;
    // Sets the channel to 0.
    virtual void ResetCount(std::int16_t device, std::int16_t channel) = 0;
    virtual void SetCount(std::int16_t device, std::int16_t channel, std::int32_t count) = 0;
    virtual void SetEnableIndex(std::int16_t device, std::int16_t channel, bool enabled) = 0;
    virtual void SetEnableIndexOnMatch(std::int16_t device, std::int16_t channel, bool enabled) = 0;
    // Latches all four counters at one moment.
    virtual void CaptureTimeAndCounts(std::int16_t device, std::array<std::int32_t, 4>& counts,
                                      std::uint32_t& timeStamp) = 0;
    // Raw analogue value, 0..4095 in use.
    virtual void GetA2D(std::int16_t device, std::int16_t input, std::int32_t& value) = 0;
    // The box's time base for the log.
    virtual void SetSamplingRateMultiplier(std::int16_t device, std::int32_t multiplier) = 0;
    virtual void SetTimeBasedLogSettings(std::int16_t device, const TimeBasedLogSettings& settings) = 0;
    virtual void EnableFIFOBuffer(std::int16_t device) = 0;
    virtual void DisableFIFOBuffer(std::int16_t device) = 0;
    virtual void StartAcquisition(std::int16_t device) = 0;
    virtual void StopAcquisition(std::int16_t device) = 0;
    virtual void ClearFIFOBuffer(std::int16_t device) = 0;
    // Records waiting in the log.
    virtual void GetFIFOBufferCount(std::int16_t device, std::int32_t& count) = 0;
    // Copies up to `count` of the oldest waiting records into `buffer` and takes them out of the
    // log; `count` becomes the number delivered.
    virtual void ReadFIFOBufferStruct(std::int16_t device, std::int32_t& count, USB4FIFORecord* buffer,
                                      std::int32_t timeoutMs) = 0;

protected:
    IEncoderBox() = default;
    IEncoderBox(const IEncoderBox&) = default;
    IEncoderBox& operator=(const IEncoderBox&) = default;
};

} // namespace corvane
