#pragma once

// The C functions of the encoder box's vendor library that the station calls, with the argument
// types the vendor declares (unsigned long and BOOL of the Windows library are 32 bits wide).
// Only the types are used here: the functions are found by name when the library is loaded, and
// the tests build a library of their own with the same functions.

#include <cstdint>

#if defined(_WIN32)
#define USB4_CALL __stdcall
#define USB4_EXPORT __declspec(dllexport)
#else
#define USB4_CALL
#define USB4_EXPORT __attribute__((visibility("default")))
#endif

extern "C" {
int USB4_CALL USB4_Initialize(short* deviceCount);
int USB4_CALL USB4_SetMultiplier(short device, short encoder, short mode);
int USB4_CALL USB4_SetCounterMode(short device, short encoder, short mode);
int USB4_CALL USB4_SetPresetValue(short device, short encoder, std::uint32_t value);
int USB4_CALL USB4_SetForward(short device, short encoder, int forward);
int USB4_CALL USB4_SetCounterEnabled(short device, short encoder, int enabled);
int USB4_CALL USB4_ResetCount(short device, short encoder);
int USB4_CALL USB4_SetCount(short device, short encoder, std::uint32_t value);
int USB4_CALL USB4_SetEnableIndex(short device, short encoder, int enabled);
int USB4_CALL USB4_SetEnableIndexOnMatch(short device, short encoder, int enabled);
int USB4_CALL USB4_CaptureTimeAndCounts(short device, std::uint32_t* counts, std::uint32_t* timeStamp);
int USB4_CALL USB4_GetA2D(short device, short input, unsigned short* value);
int USB4_CALL USB4_SetSamplingRateMultiplier(short device, std::uint32_t multiplier);
int USB4_CALL USB4_SetTimeBasedLogSettings(short device, unsigned char* digitalTrigger,
                                           unsigned char digitalMode, unsigned char* digitalState,
                                           unsigned char digitalStateMode, unsigned char* a2dMode,
                                           unsigned short* a2dThreshold, unsigned char* counterMode,
                                           std::uint32_t* counterValue, unsigned char timerTrigger,
                                           std::uint32_t recordLimit);
int USB4_CALL USB4_EnableFIFOBuffer(short device);
int USB4_CALL USB4_DisableFIFOBuffer(short device);
int USB4_CALL USB4_StartAcquisition(short device);
int USB4_CALL USB4_StopAcquisition(short device);
int USB4_CALL USB4_ClearFIFOBuffer(short device);
int USB4_CALL USB4_GetFIFOBufferCount(short device, std::uint32_t* count);
// Records of 40 bytes with the four signed counts at byte offset 12.
int USB4_CALL USB4_ReadFIFOBufferStruct(short device, std::uint32_t* count, void* records,
                                        std::uint32_t timeoutMs);
}
