#pragma once

// Shared by the command tests: running the command line in-process and writing projects made by
// the virtual propeller.

#include "acquisition/clsVirtualPropeller.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <string>

namespace corvane::cli::test {

// Lookups go through the non-const operator[]: a missing member reads as null, so that a chain
// of lookups fails in the assertion at its end rather than crashing.
using JsonValue = nlohmann::json;

struct CliRun {
    int code = 0;
    std::string out, err;
};

CliRun Cli(std::vector<std::string> args);

// The output of a run that must succeed, parsed; an invalid document (NaN, text after the
// object) fails the test and reads as null.
JsonValue Json(const CliRun& run);

// An ideal propeller of 40 in with constant pitch and chord, no rake or skew: every section of
// every blade must give back the numbers it was made with.
clsVirtualPropeller Ideal(double pitch, std::int16_t rotation = 0);

// Writes a project in inches (ISO class I) with one scan per propeller given, right-hand scans
// first; ScanIDs count up from 0 in that order. `edit` may change the project before it is
// written.
void WriteProject(const std::string& path, const std::vector<clsVirtualPropeller>& right,
                  const std::vector<clsVirtualPropeller>& left = {}, const std::function<void()>& edit = {});

} // namespace corvane::cli::test
