#pragma once

// The steps the command line shares with the CHECK button: choosing the scan and bringing its
// geometry up to date, on gProject.

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

// What CHECK runs first on the scan: CheckScanData (GL positions, sweep assignment and
// alignment, backward points), then the properties of the scan and its integrated pitch. The
// calculation's own messages have gone to the prompts by then; false with one more line on err.
bool CalculateScanGeometry(const std::string& command, int scanIndex, std::ostream& err);

} // namespace corvane::cli
