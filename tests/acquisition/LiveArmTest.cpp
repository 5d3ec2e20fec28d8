#include "acquisition/LiveArm.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "acquisition/modDAQUtilities.h"
#include "acquisition/modDevice.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// After the scan check turned the scan by blade 0's angle, the running arm reads in that frame:
// what read `angle` before reads Wrap360(angle - turn) after, through 0/360 either way.
TEST(LiveArmTest, TheRunningArmTurnsIntoTheFrameOfTheCheckedScan) {
    StationSettings station;
    station.angleCalibration = 8000;
    station.radiusCalibration = 200;
    station.dropCalibration = 200;
    station.activeProbeOffsetSide = 25; // the turn holds for a probe aside of the arm too
    const struct {
        double angleCount, turn, expected;
    } cases[] = {{2000, 30, 60}, {400, 30, 348}, {7900, -10, 5.5}};
    for (const auto& c : cases) {
        SimulatedEncoderBox box;
        DAQState daq(box);
        ASSERT_EQ(DAQDiscover(daq), 1);
        DAQConfigureCounters(daq, station);
        box.MoveArm({-c.angleCount, 40000, 0, 0}); // the angle counter counts backwards by default
        std::array<double, 4> counts{};
        std::uint32_t time = 0;
        DAQReadCounts(daq, counts, time);
        const double side = CountsToAngleDeg(0, counts[1], station);
        ASSERT_NEAR(CountsToAngleDeg(counts[0], counts[1], station), c.angleCount * 0.045 + side, 1e-9);
        LiveArm(daq, station).TurnFrame(c.turn);
        DAQReadCounts(daq, counts, time);
        EXPECT_NEAR(CountsToAngleDeg(counts[0], counts[1], station), c.expected + side, 0.045) << c.turn;
    }
}

} // namespace
} // namespace corvane
