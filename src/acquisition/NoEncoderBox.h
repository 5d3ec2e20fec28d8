#pragma once

#include "acquisition/IEncoderBox.h"

namespace corvane {

// A station without a box: the library answers that none is attached.
class NoEncoderBox : public IEncoderBox {
public:
    void Initialize(std::int16_t& deviceCount) override { deviceCount = 0; }
    void SetMultiplier(std::int16_t, std::int16_t, std::int16_t) override {}
    void SetCounterMode(std::int16_t, std::int16_t, std::int16_t) override {}
    void SetPresetValue(std::int16_t, std::int16_t, std::int32_t) override {}
    void SetForward(std::int16_t, std::int16_t, bool) override {}
    void SetCounterEnabled(std::int16_t, std::int16_t, bool) override {}
    void ResetCount(std::int16_t, std::int16_t) override {}
    void SetCount(std::int16_t, std::int16_t, std::int32_t) override {}
    void SetEnableIndex(std::int16_t, std::int16_t, bool) override {}
    void SetEnableIndexOnMatch(std::int16_t, std::int16_t, bool) override {}
    void CaptureTimeAndCounts(std::int16_t, std::array<std::int32_t, 4>&, std::uint32_t&) override {}
    void GetA2D(std::int16_t, std::int16_t, std::int32_t&) override {}
    void SetSamplingRateMultiplier(std::int16_t, std::int32_t) override {}
    void SetTimeBasedLogSettings(std::int16_t, const TimeBasedLogSettings&) override {}
    void EnableFIFOBuffer(std::int16_t) override {}
    void DisableFIFOBuffer(std::int16_t) override {}
    void StartAcquisition(std::int16_t) override {}
    void StopAcquisition(std::int16_t) override {}
    void ClearFIFOBuffer(std::int16_t) override {}
    void GetFIFOBufferCount(std::int16_t, std::int32_t& count) override { count = 0; }
    void ReadFIFOBufferStruct(std::int16_t, std::int32_t& count, USB4FIFORecord*, std::int32_t) override {
        count = 0;
    }
};

} // namespace corvane
