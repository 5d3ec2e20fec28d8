#include "geometry/modReferenceSegments.h"
#include "PropertiesFixture.h"

namespace corvane::test {
namespace {

class modReferenceSegmentsTest : public ScanTest {
protected:
    // Segment of 20 degrees about BCL angle 0.5 and axial 5, at radius 600, four panels.
    void SetUp() override {
        ScanTest::SetUp();
        MakeSegment();
    }
    void MakeSegment() {
        section = clsSection{};
        section.SetSegmentThetaTE(-9.5);
        section.SetSegmentThetaLE(10.5);
        section.SetSegmentThetaBCL(0.5);
        section.SetSegmentAxialXTE(5.0 - 2000.0 * 10.0 / 360.0);
        section.SetSegmentAxialXLE(5.0 + 2000.0 * 10.0 / 360.0);
        section.SetSegmentAxialXBCL(5.0);
        section.SetRawThetaTE(-12.0);
        section.SetRawThetaLE(13.0);
        section.SetRawAxialXTE(-60.0);
        section.SetRawAxialXLE(70.0);
        section.SetRawOffsetCount(30);
        section.SetRawOffsetX(0, 3.0);
    }

    // Axial rise of a panel of `pitch` over 5 degrees.
    static double Rise(double pitch) { return pitch * 5.0 / 360.0; }

    clsSection section;
};

TEST_F(modReferenceSegmentsTest, PanelsOfTheNominalPitchGiveBackTheHelix) {
    for (std::int16_t rotation : {0, 1}) {
        SCOPED_TRACE("rotation " + std::to_string(rotation));
        const double sense = rotation == 0 ? 1.0 : -1.0;
        MakeSegment();
        if (rotation == 1) {
            section.SetSegmentThetaTE(10.5);
            section.SetSegmentThetaLE(-9.5);
        }
        // Outer panels flatter, inner ones steeper, symmetric, so the march's mid-point is a node.
        section.SetSegmentPanelPitchArray({1800.0, 2200.0, 2200.0, 1800.0});
        ASSERT_EQ(RebuildSectionFromPanels(rotation, section, 600.0, 2000.0, 0.0, 0.0, 0.0, 1.0, 30.0, true),
                  1);
        const double half = Rise(1800.0) + Rise(2200.0);
        EXPECT_NEAR(section.SegmentAxialXTE(), 5.0 - half, 1e-6);
        EXPECT_NEAR(section.SegmentAxialXLE(), 5.0 + half, 1e-6);
        EXPECT_NEAR(section.SegmentThetaTE(), 0.5 - sense * 10.0, 1e-6);
        EXPECT_NEAR(section.SegmentThetaLE(), 0.5 + sense * 10.0, 1e-6);
        ASSERT_EQ(section.RawOffsetCount(), 5);
        EXPECT_EQ(section.RawOffsetX(0), 0.0);
        const double pitches[] = {1800.0, 2200.0, 2200.0, 1800.0};
        double drop = 5.0 - half + 1.0;
        for (int i = 0; i <= 4; ++i) {
            EXPECT_TRUE(SameAngle(section.ThetaDeg(i), 30.5 + sense * (5.0 * i - 10.0), 1e-6)) << i;
            EXPECT_NEAR(section.AxialDropX(i), drop, 1e-6) << i;
            drop += i < 4 ? Rise(pitches[i]) : 0.0;
        }
    }
}

TEST_F(modReferenceSegmentsTest, RawEndsAnchorTheStationsWithoutWrapping) {
    section.SetSegmentPanelPitchArray({2000.0, 2000.0, 2000.0, 2000.0, 2000.0});
    ASSERT_EQ(RebuildSectionFromPanels(0, section, 600.0, 2000.0, 0.0, 0.0, 0.0, 0.0, 350.0, false), 1);
    ASSERT_EQ(section.RawOffsetCount(), 6);
    EXPECT_DOUBLE_EQ(section.ThetaDeg(0), 338.0);
    EXPECT_DOUBLE_EQ(section.ThetaDeg(5), 363.0) << "raw end plus GL, not wrapped";
    EXPECT_DOUBLE_EQ(section.AxialDropX(0), -60.0);
    EXPECT_DOUBLE_EQ(section.AxialDropX(5), 70.0);
    EXPECT_NEAR(section.ThetaDeg(4), 358.0, 1e-9);
    EXPECT_NEAR(section.AxialDropX(4), -60.0 + 4.0 * Rise(2000.0), 1e-6);

    section.SetSegmentPanelCount(0);
    EXPECT_EQ(RebuildSectionFromPanels(0, section, 600.0, 2000.0, 0.0, 0.0, 0.0, 0.0, 350.0, false), 0);
}

} // namespace
} // namespace corvane::test
