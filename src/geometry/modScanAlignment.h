#pragma once

// Scan assignment and generator-line alignment. The arm does not know which blade it sweeps, so
// after a scan the sweeps are regrouped by where they lie, the scan is turned so that blade 0's
// effective angle is theta 0, and the blades are renumbered against the direction of rotation,
// each taking the ideal generator-line (GL) angle of its slot. The measured thetas stay as
// they are: a blade's effective angle minus its GL angle is its spacing error.
//
// All three take the project and the index of the scan in its selected scan set, replace that scan
// (so references taken before no longer belong to the project), and return 1, or 0 after an
// error reported through the error handler. A scan with no blades returns 1 untouched. The
// order of use is ReviewScanSweepAssignments, then ShiftScanDataToGL, which ends with
// AssignScanDataToGL.

#include <cstdint>

namespace corvane {

class clsCorvane;

// The arm while the encoder box runs: after ShiftScanDataToGL has turned the scan, the arm must go
// on reading in the turned frame. TurnFrame takes the turn in degrees and sets the angle counter
// to Wrap360(arm angle - turn), in counts. The acquisition layer, which owns the box, hands one
// in while it is running; without one nothing is moved.
class ILiveArm {
public:
    virtual ~ILiveArm() = default;
    virtual void TurnFrame(double turnDeg) = 0;
};

// Moves sweeps stored under the wrong blade to the blade they lie on. Each blade slot follows
// its own blade from the outermost measured section inwards, taking at every section row the
// first sweep (blades in index order) whose trailing edge lies within half a blade spacing of
// the one taken a row further out, so a skewed blade is followed through its drift. Only when
// some slot took another blade's sweep is the scan replaced; sweeps that no slot took are
// dropped with it, and a slot's unclaimed rows come back empty.
std::int32_t ReviewScanSweepAssignments(clsCorvane& project, int scanIndex);

// Turns every offset of the scan by blade 0's effective angle (into [0, 360)), moves the live
// arm into the same frame when one is given, then calls AssignScanDataToGL.
std::int32_t ShiftScanDataToGL(clsCorvane& project, int scanIndex, ILiveArm* liveArm = nullptr);

// Gives the blades their ideal GL angles (right hand 0, -S, -2S, ... wrapped, left hand S, 2S,
// ... from blade 1, blade 0 keeping its own; S = 360 / BladeCount) and reorders them by
// effective angle against the direction of rotation, blade 0 first. A blade without a sweep of
// two points has no angle of its own: the swept blades take the slots nearest where they stand,
// in that order, and the unswept ones the slots left over.
std::int32_t AssignScanDataToGL(clsCorvane& project, int scanIndex);

} // namespace corvane
