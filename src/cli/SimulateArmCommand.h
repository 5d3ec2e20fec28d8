#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

// corvane-cli simulate-arm PROJECT -o TRAJECTORY.cvarm [--calibration FILE.cvst]: writes the
// scripted operator's trajectory of a whole scan: of the project's active scan when it holds
// sweeps, else of an ideal propeller of the project's marked diameter, pitch, blade count and
// hand. Exit 0, or 2 with the reason on err.
int RunSimulateArm(const std::string& projectPath, const std::string& outPath,
                   const std::string& calibrationPath, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
