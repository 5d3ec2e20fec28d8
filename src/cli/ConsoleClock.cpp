#include "cli/ConsoleClock.h"

#include <chrono>
#include <ctime>

namespace corvane::cli {

DateTime ConsoleClock::Now() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm local{};
    if (localtime_r(&now, &local) == nullptr) {
        return DateTime{};
    }
    return DateTime{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                    local.tm_hour,        local.tm_min,     local.tm_sec};
}

} // namespace corvane::cli
