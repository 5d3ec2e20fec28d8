#include "acquisition/clsVirtualPropeller.h"
#include "model/modUtilities.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

constexpr double kPi = 3.14159265358979323846;

// Length of the polyline through a sweep, unrolled on its cylinder: for a helix this is the
// helix length, which the generator promises to be the chord.
double UnrolledLength(const std::vector<double>& r, const std::vector<double>& theta,
                      const std::vector<double>& drop) {
    double length = 0;
    for (std::size_t i = 1; i < r.size(); ++i) {
        const double arc = r[i] * Wrap180(theta[i] - theta[i - 1]) * kPi / 180.0;
        length += std::hypot(arc, drop[i] - drop[i - 1]);
    }
    return length;
}

TEST(clsVirtualPropellerTest, SweepsLieOnTheHelixOfTheirPitchAndChord) {
    for (int rotation : {0, 1}) {
        clsVirtualPropeller prop;
        prop.RotationIndex = static_cast<std::int16_t>(rotation);
        prop.Pitch = {{0.3, 30.0}, {0.95, 42.0}};
        prop.Chord = {{0.0, 9.0}};
        prop.FirstBladeThetaDeg = 350.0; // so that sweeps cross 0/360
        std::vector<double> r, theta, drop;
        prop.Sweep(0, 0.7, 50, r, theta, drop);
        ASSERT_EQ(r.size(), 50u);
        const double pitch = 30.0 + 12.0 * (0.7 - 0.3) / 0.65;
        const double sense = rotation == 0 ? 1.0 : -1.0;
        for (std::size_t i = 1; i < r.size(); ++i) {
            EXPECT_DOUBLE_EQ(r[i], 14.0);
            const double step = sense * Wrap180(theta[i] - theta[i - 1]);
            EXPECT_GT(step, 0) << "theta runs the hand's way from trailing to leading edge";
            EXPECT_NEAR(drop[i] - drop[i - 1], pitch * step / 360.0, 1e-12);
            EXPECT_GE(theta[i], 0.0);
            EXPECT_LT(theta[i], 360.0);
        }
        EXPECT_NEAR(UnrolledLength(r, theta, drop), 9.0, 1e-9);
        // The mid-chord sits on the generator line at the generator line's drop.
        const double mid = prop.TrailingEdgeThetaDeg(0, 0.7) + sense * prop.SpanDeg(0, 0.7) / 2;
        EXPECT_NEAR(Wrap180(mid - 350.0), 0.0, 1e-12);
        EXPECT_NEAR((drop.front() + drop.back()) / 2, prop.GLDrop, 1e-12);
    }
}

TEST(clsVirtualPropellerTest, TheArmFindsTheSurfaceOnlyOverABlade) {
    clsVirtualPropeller prop;
    std::vector<double> r, theta, drop;
    prop.Sweep(1, 0.6, 11, r, theta, drop);
    double found = 0;
    ASSERT_TRUE(prop.DropAt(theta[5], r[5], found));
    EXPECT_NEAR(found, drop[5], 1e-9);
    // Halfway between blades 0 and 1 there is no blade at this chord.
    EXPECT_FALSE(prop.DropAt(prop.GLThetaDeg(0) + 45.0, r[5], found));
    EXPECT_FALSE(prop.DropAt(theta[5], prop.Diameter, found));
    EXPECT_FALSE(prop.DropAt(NAN, r[5], found));
}

TEST(clsVirtualPropellerTest, QuantisedSweepsLandOnEncoderCounts) {
    clsVirtualPropeller prop;
    prop.AngleCountsPerRotation = 8000;
    prop.RadiusCountsPerMM = 200;
    prop.DropCountsPerMM = 200;
    std::vector<double> r, theta, drop;
    prop.Sweep(0, 0.8, 30, r, theta, drop);
    for (std::size_t i = 0; i < r.size(); ++i) {
        const double angleCounts = theta[i] * 8000 / 360;
        EXPECT_NEAR(angleCounts, std::round(angleCounts), 1e-6);
        const double dropCounts = drop[i] * 25.4 * 200;
        EXPECT_NEAR(dropCounts, std::round(dropCounts), 1e-6);
    }
}

} // namespace
} // namespace corvane
