#include "acquisition/modDevice.h"
#include "acquisition/modDAQUtilities.h"
#include "model/Globals.h"
#include "model/clsUnits.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

StationSettings Calibrated(double side = 0, double radial = 0) {
    StationSettings s;
    s.angleCalibration = 8000;
    s.radiusCalibration = 200;
    s.dropCalibration = 200;
    s.calibrationRadius = 100; // mm at the calibration pulse
    s.calibrationPulse = 1000;
    s.activeProbeOffsetSide = side;
    s.activeProbeOffsetRadial = radial;
    return s;
}

TEST(modDeviceTest, CountsBecomeMillimetresDegreesAndTheProjectUnit) {
    clsUnits mm;
    mm.SetPropLengthIndex(3);
    clsUnits inches;
    inches.SetPropLengthIndex(2);
    // radius count 21000: (21000 - 1000) / 200 + 100 = 200 mm on the arm's radial line.
    struct Case {
        double side, radial;
        double radiusMM, angleDeg;
    } cases[] = {
        {0, 0, 200, 45},                                                                // straight probe
        {30, 0, std::hypot(30.0, 200.0), 45 + std::atan(30.0 / 200) / kDeviceDegToRad}, // aside: angle turned
        {-30, 0, std::hypot(30.0, 200.0), 45 - std::atan(30.0 / 200) / kDeviceDegToRad}, // the side's sign
        {0, -20, 180, 45},                                                               // towards the hub
    };
    for (const Case& c : cases) {
        const StationSettings s = Calibrated(c.side, c.radial);
        EXPECT_NEAR(CountToRadius(21000, -1, s, mm), c.radiusMM, 1e-9) << c.side << " " << c.radial;
        EXPECT_NEAR(CountToRadius(21000, -1, s, inches), c.radiusMM / 25.4, 1e-9);
        EXPECT_NEAR(CountsToAngleDeg(1000, 21000, s), c.angleDeg, 1e-9);
        EXPECT_NEAR(AngleDegToCount(c.angleDeg, 21000, s), 1000, 1e-6) << "the inverse";
    }
    EXPECT_NEAR(CountToDrop(-500, -1, Calibrated(), mm), -2.5, 1e-12);

    StationSettings uncalibrated = Calibrated();
    uncalibrated.radiusCalibration = 0;
    EXPECT_EQ(CountToRadius(21000, -1, uncalibrated, mm), 0);
    EXPECT_EQ(CountsToAngleDeg(1000, 21000, uncalibrated), 0);
    EXPECT_EQ(AngleDegToCount(45, 21000, uncalibrated), 0);
    // On the axis the angle is undefined and reads 0.
    EXPECT_EQ(CountsToAngleDeg(1000, -19000, Calibrated(30)), 0);
}

TEST(modDeviceTest, PresetsRoundHalfToEvenAndFallBackBelowOne) {
    StationSettings s;
    const struct {
        double calibration;
        double angle, radius;
        std::int32_t radiusCount;
    } cases[] = {
        {8000, 7999, 8000 * 25.4 - 1, 203199},
        {2, 1, 49.8, 50}, // 2 x 25.4 - 1
        {1, 7999, 5079, 5079},
        {-3, 7999, 5079, 5079},
    };
    for (const auto& c : cases) {
        s.angleCalibration = s.radiusCalibration = s.dropCalibration = c.calibration;
        EXPECT_DOUBLE_EQ(AnglePreset(s), c.angle);
        EXPECT_DOUBLE_EQ(RadiusPreset(s), c.radius);
        EXPECT_EQ(ToBoxCount(RadiusPreset(s)), c.radiusCount);
    }
    EXPECT_EQ(ToBoxCount(2.5), 2);
    EXPECT_EQ(ToBoxCount(3.5), 4);
    s.angleCalibration = 8000;
    EXPECT_EQ(ToAngleCounterRange(-1, s), 7999);
    EXPECT_EQ(ToAngleCounterRange(8000.4, s), 0);
    EXPECT_EQ(ToAngleCounterRange(16123, s), 123);
}

TEST(modDeviceTest, TwentyFourBitCountsUnwrapThroughZeroBothWays) {
    // One-sided on purpose: down through zero is a jump of more than half the span.
    const struct {
        double last, value, unwrapped;
    } cases[] = {
        {2, 16777210, -6},       // down through zero
        {-6, 1, 1},              // and back up
        {-6, 16777200, -16},     // further down
        {100, 8388708, 8388708}, // up by exactly half the span: an ordinary step
        {100, 8388709, -8388507},
        {5000, 4000, 4000},
    };
    for (const auto& c : cases) {
        double last = c.last;
        EXPECT_EQ(UnwrapCount(c.value, last), c.unwrapped) << c.last << " -> " << c.value;
        EXPECT_EQ(last, c.unwrapped);
    }
}

} // namespace
} // namespace corvane
