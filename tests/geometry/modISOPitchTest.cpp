#include "geometry/modISOPitch.h"
#include "PropertiesFixture.h"

namespace corvane::test {
namespace {

class modISOPitchTest : public ServicesTest {
protected:
    // Three blades of eight sections with the given pitches (row k of blade b: pitch[b][k]),
    // chord 100 at every row and r/R from the table; sections measured and with a segment.
    void SetUp() override {
        ServicesTest::SetUp();
        prop.SetDiameter(2000.0);
        prop.SetBladeCount(3);
        for (int b = 0; b < 3; ++b) {
            auto blade = prop.Blades(b);
            blade->SetSectionCount(8);
            for (int k = 0; k < 8; ++k) {
                blade->Section(k)->SetRawOffsetCount(5);
                blade->Section(k)->SetSegmentChord(90.0);
                blade->SetRadialPos(k, kStandardRadialPositions[static_cast<std::size_t>(k)]);
                blade->SetChord(k, 100.0);
                blade->SetPitch(k, 2000.0 + 100.0 * b);
            }
        }
    }

    clsPropeller prop;
};

TEST_F(modISOPitchTest, IntegrateRadialValuesTakesTrapezoidsFromTipToHubScaledByTheRadius) {
    const std::vector<double> x = {0.9, 0.6, 0.3};
    const std::vector<double> y = {1.0, 2.0, 3.0};
    EXPECT_NEAR(IntegrateRadialValues(x, y, 3, 2.0, 0.0), 0.9 + 1.5, 1e-12);
    // A limit between two values ends with a strip down to it, y interpolated (2.5 at 0.45).
    EXPECT_NEAR(IntegrateRadialValues(x, y, 3, 2.0, 0.45), 0.9 + 0.15 * 2.0 * (2.5 + 2.0) / 2.0, 1e-12);
    // A limit below the last value extrapolates (3.5 at 0.15).
    EXPECT_NEAR(IntegrateRadialValues(x, y, 3, 2.0, 0.15), 2.4 + 0.15 * 2.0 * (3.5 + 3.0) / 2.0, 1e-12);
    // The strips stop at the first x at or below the limit.
    EXPECT_NEAR(IntegrateRadialValues({0.9, 0.6, 0.0, 0.3}, {1.0, 2.0, 5.0, 3.0}, 4, 2.0, 0.0), 0.9, 1e-12);
    EXPECT_EQ(IntegrateRadialValues(x, y, 1, 2.0, 0.0), 0.0);
    EXPECT_NEAR(IntegrateRadialValues(x, y, 5, 2.0, 0.0), 2.4, 1e-12) << "the arrays bound the count";
    EXPECT_EQ(IntegrateRadialValues({}, {}, 0, 2.0, 0.0), 0.0);
}

// The means themselves are checked against the virtual propeller with the properties
// (modPropellerPropertiesTest); here the cases where there is nothing to take a mean of.
TEST_F(modISOPitchTest, MeansWithNothingToAverageKeepTheirValueOrFail) {
    // Pitches summing to exactly 0 leave the blade pitch as it was.
    auto blade = prop.Blades(1);
    blade->SetISOBladePitch(1234.0);
    for (int k = 0; k < 8; ++k) {
        blade->SetPitch(k, k % 2 == 0 ? 500.0 : -500.0);
    }
    ASSERT_EQ(CalcISOBladePitch(prop, 1), 1);
    EXPECT_EQ(blade->ISOBladePitch(), 1234.0);
    EXPECT_EQ(CalcISOBladePitch(prop, 3), 0);
    prop.Blades(2)->SetSectionCount(1);
    EXPECT_EQ(CalcISOBladePitch(prop, 2), 0) << "a blade of one section";

    // No chord anywhere: the blade keeps its effective pitch and still counts as done.
    blade->SetEffectivePitch(1234.0);
    for (int k = 0; k < 8; ++k) {
        blade->SetChord(k, 0.0);
    }
    ASSERT_EQ(CalcIntegratedBladePitch(prop, 1), 1);
    EXPECT_EQ(blade->EffectivePitch(), 1234.0);
    EXPECT_EQ(CalcIntegratedBladePitch(prop, -1), 0);

    for (int b = 0; b < 3; ++b) {
        prop.Blades(b)->SetISOBladePitch(0.0);
    }
    ASSERT_EQ(CalcISOPropellerPitch(prop), 1);
    EXPECT_EQ(prop.ISOPropellerPitch(), 0.0);
    prop.SetDiameter(0.0);
    EXPECT_EQ(CalcISOPropellerPitch(prop), 0);
}

TEST_F(modISOPitchTest, EffectiveAxialPositionIsTheMeanDropAtTheSectionMidAngles) {
    clsVirtualPropeller virtualProp;
    virtualProp.Diameter = 2000.0;
    virtualProp.BladeCount = 3;
    virtualProp.FirstBladeThetaDeg = 0.0;
    virtualProp.Rake = {{0.3, 0.0}, {0.95, 40.0}};
    virtualProp.GLDrop = 3.0;
    clsPropeller scan;
    virtualProp.FillScan(scan, {kStandardRadialPositions.begin(), kStandardRadialPositions.end()}, 20);
    auto blade = scan.Blades(0);
    double expected = 0.0;
    for (int k = 0; k < 8; ++k) {
        auto s = blade->Section(k);
        s->SetSegmentChord(1.0);
        s->SetRawThetaBCL((Wrap180(s->ThetaDeg(0)) + Wrap180(s->ThetaDeg(19))) / 2.0);
        expected += (3.0 + virtualProp.At(virtualProp.Rake, kStandardRadialPositions[k])) / 8.0;
    }
    double result = 0.0;
    ASSERT_EQ(CalcISOEffectiveBladeAxialDrop(result, scan, 0), 1);
    EXPECT_NEAR(result, expected, 1e-9);
    EXPECT_EQ(blade->ISOEffectiveBladeAxialPosition(), result);

    // A mid-angle off the sweep cannot be read.
    blade->Section(2)->SetRawThetaBCL(90.0);
    EXPECT_EQ(CalcISOEffectiveBladeAxialDrop(result, scan, 0), 0);

    // Without a section that has a segment the GL's axial position answers, and nothing is kept.
    auto empty = scan.Blades(1);
    empty->SetGLPositionAxialX(-7.0);
    for (int k = 0; k < 8; ++k) {
        empty->Section(k)->SetSegmentChord(0.0);
    }
    ASSERT_EQ(CalcISOEffectiveBladeAxialDrop(result, scan, 1), 1);
    EXPECT_EQ(result, -7.0);
    EXPECT_EQ(empty->ISOEffectiveBladeAxialPosition(), 0.0);
}

} // namespace
} // namespace corvane::test
