#pragma once

#include "model/Globals.h"

#include <iosfwd>
#include <string>

namespace corvane::cli {

// The station the command line's simulated arm works with: the settings' defaults (8000 pulses a
// turn, 200 a millimetre, the radius and drop counters reversed), or the calibration, flips and
// probe offsets of a cvst file when one is named (the straight probe in force); the foot pedal
// on, no tones, the radial encoder on. false with one line on err when the file cannot be used.
bool SimulatedArmStation(const std::string& command, const std::string& calibrationPath, std::ostream& err,
                         StationSettings& station);

} // namespace corvane::cli
