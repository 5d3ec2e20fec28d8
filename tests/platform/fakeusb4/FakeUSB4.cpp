// A stand-in for the encoder box's vendor library with the same C functions: one box whose calls
// are written to a log the tests read, and a FIFO log the tests fill.

#include "platform/USB4Api.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

std::string gLog;
std::vector<std::int32_t> gFIFO; // four counts a record

void Log(const std::string& call) {
    gLog += call + ";";
}

std::string Args(std::initializer_list<long long> values) {
    std::string text;
    for (long long v : values)
        text += (text.empty() ? "" : ",") + std::to_string(v);
    return "(" + text + ")";
}

} // namespace

extern "C" {

USB4_EXPORT const char* FakeUSB4_Log() {
    return gLog.c_str();
}

USB4_EXPORT void FakeUSB4_Feed(int records) {
    for (int i = 0; i < records; ++i)
        gFIFO.insert(gFIFO.end(), {100 * i, 40000, 10 * i, 0});
}

USB4_EXPORT int USB4_CALL USB4_Initialize(short* deviceCount) {
    gLog.clear();
    *deviceCount = 1;
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetMultiplier(short d, short e, short m) {
    Log("SetMultiplier" + Args({d, e, m}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetCounterMode(short d, short e, short m) {
    Log("SetCounterMode" + Args({d, e, m}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetPresetValue(short d, short e, std::uint32_t v) {
    Log("SetPresetValue" + Args({d, e, v}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetForward(short d, short e, int f) {
    Log("SetForward" + Args({d, e, f}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetCounterEnabled(short d, short e, int f) {
    Log("SetCounterEnabled" + Args({d, e, f}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_ResetCount(short d, short e) {
    Log("ResetCount" + Args({d, e}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetCount(short d, short e, std::uint32_t v) {
    Log("SetCount" + Args({d, e, v}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetEnableIndex(short d, short e, int f) {
    Log("SetEnableIndex" + Args({d, e, f}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetEnableIndexOnMatch(short d, short e, int f) {
    Log("SetEnableIndexOnMatch" + Args({d, e, f}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_CaptureTimeAndCounts(short, std::uint32_t* counts, std::uint32_t* time) {
    const std::uint32_t values[4] = {123, 16777210, 5, 0};
    std::memcpy(counts, values, sizeof values);
    *time = 42;
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_GetA2D(short, short input, unsigned short* value) {
    *value = input == 0 ? 4001 : 0;
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetSamplingRateMultiplier(short d, std::uint32_t v) {
    Log("SetSamplingRateMultiplier" + Args({d, v}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_SetTimeBasedLogSettings(short d, unsigned char*, unsigned char, unsigned char*,
                                                       unsigned char, unsigned char* a2dMode,
                                                       unsigned short* threshold, unsigned char*,
                                                       std::uint32_t*, unsigned char, std::uint32_t limit) {
    Log("SetTimeBasedLogSettings" + Args({d, a2dMode[0], threshold[0], limit}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_EnableFIFOBuffer(short d) {
    Log("EnableFIFOBuffer" + Args({d}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_DisableFIFOBuffer(short d) {
    Log("DisableFIFOBuffer" + Args({d}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_StartAcquisition(short d) {
    Log("StartAcquisition" + Args({d}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_StopAcquisition(short d) {
    Log("StopAcquisition" + Args({d}));
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_ClearFIFOBuffer(short d) {
    Log("ClearFIFOBuffer" + Args({d}));
    gFIFO.clear();
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_GetFIFOBufferCount(short, std::uint32_t* count) {
    *count = static_cast<std::uint32_t>(gFIFO.size() / 4);
    return 0;
}
USB4_EXPORT int USB4_CALL USB4_ReadFIFOBufferStruct(short, std::uint32_t* count, void* records,
                                                    std::uint32_t) {
    // Records of 40 bytes with the counts at byte offset 12, as the box fills them.
    const std::uint32_t waiting = static_cast<std::uint32_t>(gFIFO.size() / 4);
    *count = *count < waiting ? *count : waiting;
    auto* bytes = static_cast<unsigned char*>(records);
    std::memset(bytes, 0xAB, *count * 40);
    for (std::uint32_t i = 0; i < *count; ++i)
        std::memcpy(bytes + i * 40 + 12, &gFIFO[i * 4], 16);
    gFIFO.erase(gFIFO.begin(), gFIFO.begin() + *count * 4);
    return 0;
}
}
