#include "acquisition/LiveArm.h"

#include "acquisition/modDAQUtilities.h"
#include "acquisition/modDevice.h"
#include "model/modUtilities.h"

namespace corvane {

void LiveArm::TurnFrame(double turnDeg) {
    std::array<double, 4> counts{};
    std::uint32_t timeStamp = 0;
    DAQReadCounts(daq_, counts, timeStamp);
    const double radiusCount = counts[kRadiusChannel];
    const double turned = Wrap360(CountsToAngleDeg(counts[kAngleChannel], radiusCount, station_) - turnDeg);
    DAQSetAngleCount(daq_, ToAngleCounterRange(AngleDegToCount(turned, radiusCount, station_), station_));
}

} // namespace corvane
