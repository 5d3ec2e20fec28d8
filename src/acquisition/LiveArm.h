#pragma once

// The arm while the encoder box runs, as the scan check sees it: after the check has turned the
// scan so that blade 0 stands at theta 0, the arm must go on reading in that turned frame.

#include "geometry/modScanAlignment.h"
#include "model/Globals.h"

namespace corvane {

struct DAQState;

class LiveArm : public ILiveArm {
public:
    LiveArm(DAQState& daq, const StationSettings& station) : daq_(daq), station_(station) {}

    // Reads where the arm stands, turns its angle back by turnDeg (into [0, 360)) and writes the
    // angle counter so, as a count of the modulo counter.
    void TurnFrame(double turnDeg) override;

private:
    DAQState& daq_;
    StationSettings station_;
};

} // namespace corvane
