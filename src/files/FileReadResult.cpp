#include "files/FileReadResult.h"

namespace corvane {

std::string FileReadResult::Reason() const {
    const auto end = collected.find_last_not_of(" \r\n");
    if (end == std::string::npos) {
        return {};
    }
    const auto start = collected.find_last_of("\r\n", end);
    const std::size_t from = start == std::string::npos ? 0 : start + 1;
    return collected.substr(from, end + 1 - from);
}

} // namespace corvane
