#pragma once

#include "support/Services.h"

namespace corvane::cli {

// The computer's local time, for what the command line stamps with the present moment (the date
// of a new scan).
class ConsoleClock : public IClock {
public:
    DateTime Now() override;
};

} // namespace corvane::cli
