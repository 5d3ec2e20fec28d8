#include "geometry/clsSectionDropCurve.h"
#include "PropertiesFixture.h"
#include "geometry/modScanDataUtilities.h"
#include "geometry/modSplineFit.h"

namespace corvane::test {
namespace {

using clsSectionDropCurveTest = PropertiesTest;

// The curve stands in for the routines' own fits, so it must answer exactly as they do: same
// status, same number to the last bit, on smooth and on quantised sweeps, inside, at and beyond
// the ends.
TEST_F(clsSectionDropCurveTest, AnswersExactlyAsTheRoutinesItStandsInFor) {
    for (double counts : {0.0, 40000.0}) {
        clsVirtualPropeller prop = ShopPropeller(1, 3);
        prop.AngleCountsPerRotation = counts;
        prop.DropCountsPerMM = counts > 0 ? 100.0 : 0.0;
        auto scan = SweepProject(prop, 300);
        const double gl = 20.0;
        scan->Blades(0)->SetGLPositionThetaDeg(gl);
        auto section = scan->Blades(0)->Section(2);
        clsSectionDropCurve curve;
        ASSERT_TRUE(curve.Fit(*section, gl));
        const std::vector<double>& angles = curve.Angles();
        const double first = angles.front();
        const double span = angles.back() - first;
        std::vector<double> at;
        for (int j = -8; j <= 108; ++j) {
            at.push_back(first + span * j / 100.0);
        }
        at.push_back(angles.back());
        for (const double q : at) {
            double cached = -1.0;
            double direct = -1.0;
            EXPECT_EQ(curve.DropAt(q + gl, cached), CalcSectionAxialDrop(*scan, 0, 2, q + gl, direct) == 1)
                << q;
            EXPECT_EQ(cached, direct) << q;
            std::vector<double> one(1, -1.0);
            std::vector<double> two(1, -1.0);
            EXPECT_EQ(
                curve.OffsetValues({q}, one),
                SplineOffsetValues(static_cast<int>(angles.size()), angles, curve.Drops(), 1, {q}, two, 0));
            EXPECT_EQ(one[0], two[0]) << q;
        }
    }
}

TEST_F(clsSectionDropCurveTest, RefusesSweepsItWouldFitDifferently) {
    auto scan = SweepProject(ShopPropeller(0, 2), 20);
    auto section = scan->Blades(0)->Section(4);
    clsSectionDropCurve curve;
    section->SetThetaDeg(6, section->ThetaDeg(5)); // a repeated angle is dropped by one routine only
    EXPECT_FALSE(curve.Fit(*section, 0.0));
    double drop = 0.0;
    EXPECT_FALSE(curve.DropAt(section->ThetaDeg(3), drop));
    section->SetRawOffsetCount(1);
    EXPECT_FALSE(curve.Fit(*section, 0.0));
}

} // namespace
} // namespace corvane::test
