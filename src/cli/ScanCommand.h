#pragma once

#include <iosfwd>
#include <string>

namespace corvane::cli {

struct ScanOptions {
    std::string projectPath;
    std::string armPath;         // the trajectory the simulated arm plays
    std::string calibrationPath; // a cvst file; empty for the settings' defaults
    std::string outPath;
};

// corvane-cli scan PROJECT --arm TRAJECTORY.cvarm [--calibration FILE.cvst] -o OUT.cvpj: adds a
// scan to the project as ADD does and fills it with the simulated arm playing the trajectory, as
// the Scan page would: HOME pressed at time 0, then a tick every 10 ms of virtual time until the
// trajectory ends, the pedal pressing the scan button. Each new guidance line is printed with its
// time; the project with the new scan is written to OUT. Exit 0, or 2 with the reason on err when
// the project or the trajectory cannot be used, no sweep ended, or OUT cannot be written.
int RunScan(const ScanOptions& options, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
