#pragma once

// The gate in front of the Check and Report pages: is the scan usable for the geometry?

#include "geometry/modScanAlignment.h"

#include <cstdint>

namespace corvane {

// Checks and prepares scan scanIndex of the project's selected set. Puts every blade's GL on its
// nominal angle, runs the sweep assignment and GL alignment (which replace the scan), refuses
// an arm radius at or below 0, drops points that do not move on in the sweep direction, asks
// whether to go on when blades have no measured section, and refuses a scan without data.
// Every refusal is told to the user under "Scan Data Error". Returns 1 when the scan is usable,
// 0 otherwise.
//
// A dropped point is removed from ThetaDeg only: the later angles move down one place and the
// count shrinks, while Radius and AxialDropX stay where they are and lose their last value.
// Stored projects were processed this way and their results must stay reproducible.
std::int32_t CheckScanData(clsCorvane& project, int scanIndex, ILiveArm* liveArm = nullptr);

} // namespace corvane
