#pragma once

#include "support/Services.h"

namespace corvane {

// The computer's clock, local time.
class SystemClock : public IClock {
public:
    DateTime Now() override;
};

} // namespace corvane
