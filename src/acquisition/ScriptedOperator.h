#pragma once

// A technician who never tires: the arm trajectory of a whole scan, as an operator at the arm
// would move it. At time 0 the arm stands at HOME (the centre of blade 1 at the minimum radius,
// where HOME zeroes the counters); then for each radius and each blade in the workflow's order
// it moves into the radius window at the blade's trailing edge, presses the pedal (GO), sweeps
// to the leading edge following the blade surface and presses the pedal again (STOP). A press
// holds the pedal above 4000 for longer than two ticks and lets it fall back below 2500.
//
// The surfaces come as a scan (clsPropeller) in the workflow's frame: its blade k is the blade
// the workflow calls blade k, the angles are those the arm reads with HOME at 0, and each section
// runs from the trailing to the leading edge. A measured scan is such a scan already;
// VirtualSweeps makes one of a virtual propeller.

#include "acquisition/ArmTrajectory.h"
#include "acquisition/clsVirtualPropeller.h"
#include "model/Globals.h"

#include <array>
#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

class clsCorvane;
class clsPropeller;
class clsUnits;

struct OperatorPlan {
    StationSettings station;        // calibration, flips, probe offsets, blade order
    std::int16_t scanOrderMode = 0; // 0 all blades per radius, 1 all radii per blade
    std::vector<int> radii;         // the stations in the order they are swept (ScanRadiusOrder)
    double sweepDegPerSecond = 20;  // along the blade
    double moveDegPerSecond = 90;   // between blades
    double moveMMPerSecond = 150;   // radial slide and drop rod
    // Encoder positions at HOME, counts since power-on: HOME zeroes the counters wherever they are.
    std::int64_t homeAngle = 4321;
    std::int64_t homeRadius = 1234;
    std::int64_t homeDrop = 567;
};

// The scripted scan. Sections with fewer than two points are not swept (nor is any radius where
// a blade has none, so the workflow's blade order holds).
ArmTrajectory ScriptOperator(const clsPropeller& sweeps, const clsUnits& units, const OperatorPlan& plan);

// The sweeps of a virtual propeller in the workflow's frame: blade k is the blade at the
// workflow's generator-line slot k (against the direction of rotation from blade 1), angles
// measured from blade 1's generator line; one section per radial position.
std::shared_ptr<clsPropeller> VirtualSweeps(const clsVirtualPropeller& propeller,
                                            const std::array<double, 8>& radialPositions,
                                            int pointsPerSection);

// An ideal propeller of the project's marked diameter, pitch (a number in the project unit),
// blade count and hand: constant pitch, no rake or skew, chords a blade of that count can carry
// without overlapping its neighbours. false when the marked pitch or diameter is not a positive
// number.
bool IdealPropeller(const clsCorvane& project, const std::array<double, 8>& radialPositions,
                    clsVirtualPropeller& propeller);

} // namespace corvane
