#pragma once

#include "support/Services.h"

namespace corvane {

// Qt has no tone generator; the system bell stands in for the station's beeps.
class QtSound : public ISound {
public:
    void Beep(int frequencyHz, int durationMs) override;
};

} // namespace corvane
