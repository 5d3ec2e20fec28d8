#pragma once

// The effective angle of a blade: where the blade stands as a whole, taken from the mid-angles
// of its sections. The scan alignment puts blade 0's effective angle on theta 0 and measures
// the spacing of the other blades by theirs.

#include <cstdint>

namespace corvane {

class clsPropeller;

// Mean mid-angle of the blade's sections, in [0, 360), over only those section rows that every
// blade of the propeller holds with at least two offsets, so that blades are compared on the
// same span. A blade with no such sweep in any row takes no part in that test. Mid-angles are taken relative
// to the blade's first counted trailing edge, so a blade that straddles 0/360 averages correctly. The result
// is stored in ISOEffectiveBladeAngleDeg; with no common row the result is the blade's GLPositionThetaDeg and
// nothing is stored. Returns 1, or 0 after an error (a blade index out of range, say).
std::int32_t CalcISOEffectiveBladeAngle(double& result, clsPropeller& propeller, int blade);

} // namespace corvane
