#pragma once

#include "support/Services.h"

namespace corvane {

// A clock that shows the time it is set to, for tests and for the stand-in services.
class FixedClock : public IClock {
public:
    FixedClock() = default;
    explicit FixedClock(const DateTime& now) : now_(now) {}
    DateTime Now() override { return now_; }
    void Set(const DateTime& now) { now_ = now; }

private:
    DateTime now_;
};

} // namespace corvane
