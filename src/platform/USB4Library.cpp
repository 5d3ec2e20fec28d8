#include "platform/USB4Library.h"

#include "platform/USB4Api.h"

namespace corvane {

struct USB4Library::Calls {
    decltype(&USB4_Initialize) initialize = nullptr;
    decltype(&USB4_SetMultiplier) setMultiplier = nullptr;
    decltype(&USB4_SetCounterMode) setCounterMode = nullptr;
    decltype(&USB4_SetPresetValue) setPresetValue = nullptr;
    decltype(&USB4_SetForward) setForward = nullptr;
    decltype(&USB4_SetCounterEnabled) setCounterEnabled = nullptr;
    decltype(&USB4_ResetCount) resetCount = nullptr;
    decltype(&USB4_SetCount) setCount = nullptr;
    decltype(&USB4_SetEnableIndex) setEnableIndex = nullptr;
    decltype(&USB4_SetEnableIndexOnMatch) setEnableIndexOnMatch = nullptr;
    decltype(&USB4_CaptureTimeAndCounts) captureTimeAndCounts = nullptr;
    decltype(&USB4_GetA2D) getA2D = nullptr;
    decltype(&USB4_SetSamplingRateMultiplier) setSamplingRateMultiplier = nullptr;
    decltype(&USB4_SetTimeBasedLogSettings) setTimeBasedLogSettings = nullptr;
    decltype(&USB4_EnableFIFOBuffer) enableFIFOBuffer = nullptr;
    decltype(&USB4_DisableFIFOBuffer) disableFIFOBuffer = nullptr;
    decltype(&USB4_StartAcquisition) startAcquisition = nullptr;
    decltype(&USB4_StopAcquisition) stopAcquisition = nullptr;
    decltype(&USB4_ClearFIFOBuffer) clearFIFOBuffer = nullptr;
    decltype(&USB4_GetFIFOBufferCount) getFIFOBufferCount = nullptr;
    decltype(&USB4_ReadFIFOBufferStruct) readFIFOBufferStruct = nullptr;
};

QString USB4Library::DefaultName() {
#if defined(_WIN32)
    return QStringLiteral("USB4.dll");
#else
    return QStringLiteral("libusb4");
#endif
}

USB4Library::USB4Library(const QString& path) : library_(path) {
    if (!library_.load()) {
        problem_ = library_.errorString();
        return;
    }
    auto calls = std::make_unique<Calls>();
    QString missing;
    const auto resolve = [&](auto& slot, const char* name) {
        slot = reinterpret_cast<std::remove_reference_t<decltype(slot)>>(library_.resolve(name));
        if (slot == nullptr && missing.isEmpty())
            missing = QString::fromLatin1(name);
    };
    resolve(calls->initialize, "USB4_Initialize");
    resolve(calls->setMultiplier, "USB4_SetMultiplier");
    resolve(calls->setCounterMode, "USB4_SetCounterMode");
    resolve(calls->setPresetValue, "USB4_SetPresetValue");
    resolve(calls->setForward, "USB4_SetForward");
    resolve(calls->setCounterEnabled, "USB4_SetCounterEnabled");
    resolve(calls->resetCount, "USB4_ResetCount");
    resolve(calls->setCount, "USB4_SetCount");
    resolve(calls->setEnableIndex, "USB4_SetEnableIndex");
    resolve(calls->setEnableIndexOnMatch, "USB4_SetEnableIndexOnMatch");
    resolve(calls->captureTimeAndCounts, "USB4_CaptureTimeAndCounts");
    resolve(calls->getA2D, "USB4_GetA2D");
    resolve(calls->setSamplingRateMultiplier, "USB4_SetSamplingRateMultiplier");
    resolve(calls->setTimeBasedLogSettings, "USB4_SetTimeBasedLogSettings");
    resolve(calls->enableFIFOBuffer, "USB4_EnableFIFOBuffer");
    resolve(calls->disableFIFOBuffer, "USB4_DisableFIFOBuffer");
    resolve(calls->startAcquisition, "USB4_StartAcquisition");
    resolve(calls->stopAcquisition, "USB4_StopAcquisition");
    resolve(calls->clearFIFOBuffer, "USB4_ClearFIFOBuffer");
    resolve(calls->getFIFOBufferCount, "USB4_GetFIFOBufferCount");
    resolve(calls->readFIFOBufferStruct, "USB4_ReadFIFOBufferStruct");
    if (!missing.isEmpty()) {
        problem_ = QStringLiteral("%1 has no %2").arg(library_.fileName(), missing);
        library_.unload();
        return;
    }
    calls_ = std::move(calls);
}

// The box is left to the library when the program ends, as the vendor asks; nothing is shut.
USB4Library::~USB4Library() = default;

void USB4Library::Initialize(std::int16_t& deviceCount) {
    deviceCount = 0;
    if (calls_)
        calls_->initialize(&deviceCount);
}

void USB4Library::SetMultiplier(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    if (calls_)
        calls_->setMultiplier(device, channel, mode);
}

void USB4Library::SetCounterMode(std::int16_t device, std::int16_t channel, std::int16_t mode) {
    if (calls_)
        calls_->setCounterMode(device, channel, mode);
}

void USB4Library::SetPresetValue(std::int16_t device, std::int16_t channel, std::int32_t value) {
    if (calls_)
        calls_->setPresetValue(device, channel, static_cast<std::uint32_t>(value));
}

void USB4Library::SetForward(std::int16_t device, std::int16_t channel, bool forward) {
    if (calls_)
        calls_->setForward(device, channel, forward ? -1 : 0);
}

void USB4Library::SetCounterEnabled(std::int16_t device, std::int16_t channel, bool enabled) {
    if (calls_)
        calls_->setCounterEnabled(device, channel, enabled ? -1 : 0);
}

void USB4Library::ResetCount(std::int16_t device, std::int16_t channel) {
    if (calls_)
        calls_->resetCount(device, channel);
}

void USB4Library::SetCount(std::int16_t device, std::int16_t channel, std::int32_t count) {
    if (calls_)
        calls_->setCount(device, channel, static_cast<std::uint32_t>(count));
}

void USB4Library::SetEnableIndex(std::int16_t device, std::int16_t channel, bool enabled) {
    if (calls_)
        calls_->setEnableIndex(device, channel, enabled ? -1 : 0);
}

void USB4Library::SetEnableIndexOnMatch(std::int16_t device, std::int16_t channel, bool enabled) {
    if (calls_)
        calls_->setEnableIndexOnMatch(device, channel, enabled ? -1 : 0);
}

void USB4Library::CaptureTimeAndCounts(std::int16_t device, std::array<std::int32_t, 4>& counts,
                                       std::uint32_t& timeStamp) {
    if (!calls_)
        return;
    std::uint32_t raw[4] = {};
    calls_->captureTimeAndCounts(device, raw, &timeStamp);
    for (std::size_t i = 0; i < counts.size(); ++i)
        counts[i] = static_cast<std::int32_t>(raw[i]);
}

void USB4Library::GetA2D(std::int16_t device, std::int16_t input, std::int32_t& value) {
    if (!calls_)
        return;
    unsigned short raw = 0;
    calls_->getA2D(device, input, &raw);
    value = raw;
}

void USB4Library::SetSamplingRateMultiplier(std::int16_t device, std::int32_t multiplier) {
    if (calls_)
        calls_->setSamplingRateMultiplier(device, static_cast<std::uint32_t>(multiplier));
}

void USB4Library::SetTimeBasedLogSettings(std::int16_t device, const TimeBasedLogSettings& settings) {
    if (!calls_)
        return;
    // The library takes the arrays as writable buffers; it gets copies.
    TimeBasedLogSettings s = settings;
    calls_->setTimeBasedLogSettings(
        device, s.digitalTrigger.data(), s.digitalTriggerMode, s.digitalTriggerState.data(),
        s.digitalTriggerStateMode, s.a2dTriggerMode.data(), s.a2dThreshold.data(),
        s.counterTriggerMode.data(), s.counterTriggerValue.data(), s.timerTrigger, s.recordLimit);
}

void USB4Library::EnableFIFOBuffer(std::int16_t device) {
    if (calls_)
        calls_->enableFIFOBuffer(device);
}

void USB4Library::DisableFIFOBuffer(std::int16_t device) {
    if (calls_)
        calls_->disableFIFOBuffer(device);
}

void USB4Library::StartAcquisition(std::int16_t device) {
    if (calls_)
        calls_->startAcquisition(device);
}

void USB4Library::StopAcquisition(std::int16_t device) {
    if (calls_)
        calls_->stopAcquisition(device);
}

void USB4Library::ClearFIFOBuffer(std::int16_t device) {
    if (calls_)
        calls_->clearFIFOBuffer(device);
}

void USB4Library::GetFIFOBufferCount(std::int16_t device, std::int32_t& count) {
    if (!calls_)
        return;
    std::uint32_t raw = 0;
    calls_->getFIFOBufferCount(device, &raw);
    count = static_cast<std::int32_t>(std::min<std::uint32_t>(raw, 0x7fffffff));
}

void USB4Library::ReadFIFOBufferStruct(std::int16_t device, std::int32_t& count, USB4FIFORecord* buffer,
                                       std::int32_t timeoutMs) {
    if (!calls_ || count <= 0) {
        count = 0;
        return;
    }
    std::uint32_t raw = static_cast<std::uint32_t>(count);
    calls_->readFIFOBufferStruct(device, &raw, buffer, static_cast<std::uint32_t>(std::max(0, timeoutMs)));
    // Never more than the buffer that was offered.
    count = static_cast<std::int32_t>(std::min(raw, static_cast<std::uint32_t>(count)));
}

} // namespace corvane
