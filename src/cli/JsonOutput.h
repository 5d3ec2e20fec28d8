#pragma once

// The command line's machine-readable answers: one JSON object, its keys in the order they were
// added, indented by two spaces and closed by a line break.

#include <nlohmann/json.hpp>

#include <ostream>

namespace corvane::cli {

using Json = nlohmann::ordered_json;

// Doubles are written in the shortest form that reads back to the same value, whatever the
// locale, and a NaN or infinity as null, so no reader ever meets one. Text from a file that is
// not valid UTF-8 (an old project typed on a code page) gets U+FFFD for the bad bytes instead of
// stopping the output.
inline void WriteJson(std::ostream& out, const Json& json) {
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace corvane::cli
