#pragma once

#include "support/Services.h"

namespace corvane {

// An event pump with no window system behind it: it counts the calls so tests can see that a
// long loop let events run, and that an abort asked the program to end.
class RecordingEventPump : public IEventPump {
public:
    int doEventsCalls = 0;
    int endRequests = 0;
    void DoEvents() override { ++doEventsCalls; }
    void CloseAllFormsAndEnd() override { ++endRequests; }
};

// Sound that only remembers the last tone asked for.
class SilentSound : public ISound {
public:
    int beeps = 0;
    int lastFrequencyHz = 0;
    int lastDurationMs = 0;
    void Beep(int frequencyHz, int durationMs) override {
        ++beeps;
        lastFrequencyHz = frequencyHz;
        lastDurationMs = durationMs;
    }
};

} // namespace corvane
