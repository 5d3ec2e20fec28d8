#pragma once

// The encoder box through the vendor's own library (USB4.dll on Windows, the vendor's shared
// library elsewhere), loaded when the program starts. The station never speaks the box's USB
// protocol itself. A library that cannot be loaded, or lacks one of the calls, leaves the station
// without a box: Initialize reports none, and Problem() says why.

#include "acquisition/IEncoderBox.h"

#include <QLibrary>
#include <QString>

#include <memory>

namespace corvane {

class USB4Library : public IEncoderBox {
public:
    // The library's name where the system finds libraries: USB4.dll on Windows.
    static QString DefaultName();
    // The library at path: a file name the system looks up, or a full path.
    explicit USB4Library(const QString& path);
    ~USB4Library() override;
    USB4Library(const USB4Library&) = delete;
    USB4Library& operator=(const USB4Library&) = delete;

    bool Loaded() const { return calls_ != nullptr; }
    // Why the library cannot be used; empty when it can.
    const QString& Problem() const { return problem_; }

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

    struct Calls; // the library's functions, resolved by name

private:
    QLibrary library_;
    std::unique_ptr<Calls> calls_;
    QString problem_;
};

} // namespace corvane
