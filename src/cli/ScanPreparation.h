#pragma once

// Choosing the scan a command works on, in gProject, and saying why a check stopped.

#include "check/CheckRun.h"

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace corvane::cli {

// Makes the scan the active one of its set: rotationIndex (when given) chooses the set, scan is
// its index in the set as `info` lists it, or its letters ("A" for ScanID 0); empty keeps the
// project's active scan. false with one line on err when the set is empty or there is no such
// scan.
bool SelectScan(const std::string& command, std::optional<std::int16_t> rotationIndex,
                const std::string& scan, std::ostream& err, int& scanIndex);

// The required project fields that hold no value, by their captions on the Project page
// ("customer, pitch"); empty when all hold.
std::string MissingFields(const ProjectFieldCheck& fields);

// false with one line on err naming the gate a check stopped at.
bool CheckPassed(const std::string& command, const CheckOutcome& outcome, std::ostream& err);

} // namespace corvane::cli
