#include "geometry/clsSplineFit.h"

#include "SplineFitFixture.h"

#include <cmath>

namespace corvane {
namespace {

using test::SplineTangents;

constexpr double kPi = 3.14159265358979323846;
// Asks EvalAtX / EvalAtT for an optional output: any value but the unset marker.
constexpr double kWanted = 0.0;

class clsSplineFitTest : public test::SplineFitTest {
protected:
    static double TangentAt(clsSplineFit& spline, double x) {
        double tangent = kWanted;
        double curvature = kSplineUnset;
        double y = 0.0;
        spline.EvalAtX(x, tangent, curvature, y);
        return tangent;
    }

    static std::vector<PointDouble> Reversed(std::vector<PointDouble> points) {
        return {points.rbegin(), points.rend()};
    }
};

TEST_F(clsSplineFitTest, StraightDataStaysExactlyStraightInsideAndBeyond) {
    // Unequal spacing and a descending copy: every query, extrapolated ones too, is the line.
    auto line = [](double x) { return 0.75 * x - 2.0; };
    std::vector<PointDouble> points;
    for (const double x : {0.0, 0.3, 1.7, 2.0, 5.5, 6.0}) {
        points.push_back({x, line(x)});
    }
    for (auto data : {points, Reversed(points)}) {
        clsSplineFit spline = Fit(data);
        for (double x = -1.0; x <= 7.0; x += 0.125) {
            EXPECT_NEAR(spline.EvalAtX(x), line(x), 1e-12) << "x = " << x;
        }
    }
}

TEST_F(clsSplineFitTest, InnerRowsKeepUniformWeightsWhateverTheSpacing) {
    // Spacing 1 then 2. The 1-4-1 system puts the handles where hand calculation says (the
    // textbook non-uniform spline would give 0.59375 at x = 0.5), in either direction.
    const std::vector<PointDouble> points = {{0, 0}, {1, 1}, {3, 0}};
    for (auto data : {points, Reversed(points)}) {
        clsSplineFit spline = Fit(data);
        EXPECT_NEAR(spline.EvalAtX(0.5), 0.640625, 1e-12);
        EXPECT_NEAR(spline.EvalAtX(2.0), 0.78125, 1e-12);
        // Beyond the ends the parabola through the end handles (a line for natural ends), not
        // the end cubic, which would give -0.640625 and -0.344.
        EXPECT_NEAR(spline.EvalAtX(-0.5), -0.6875, 1e-12);
        EXPECT_NEAR(spline.EvalAtX(3.4), -0.35, 1e-12);
        for (const PointDouble& p : points) {
            EXPECT_NEAR(spline.EvalAtX(p.X), p.Y, 1e-12);
        }
    }
}

TEST_F(clsSplineFitTest, CurvedSpansMeetStraightRunsAlongTheRun) {
    // Points 1 to 4 lie on a line of slope 0.5 between two curved spans.
    const std::vector<PointDouble> points = {{0, 0}, {1, 1.5}, {2, 2}, {3, 2.5}, {4, 3}, {5, 2}, {6, 0}};
    clsSplineFit spline = Fit(points);
    EXPECT_EQ(spline.EvalAtX(2.5), 2.25);
    EXPECT_NEAR(spline.EvalAtX(3.7), 2.85, 1e-12);
    for (const PointDouble& p : points) {
        EXPECT_NEAR(spline.EvalAtX(p.X), p.Y, 1e-12);
    }
    const double run = std::atan(0.5);
    EXPECT_NEAR(TangentAt(spline, 1.0), run, 1e-12);       // end of the curved span before
    EXPECT_NEAR(TangentAt(spline, 4.0 + 1e-7), run, 1e-5); // start of the curved span after
    EXPECT_NEAR(TangentAt(spline, 3.0), run, 1e-12);
}

TEST_F(clsSplineFitTest, RepeatedPointsAreDroppedDownToOne) {
    clsSplineFit spline = Fit({{0, 0}, {1, 1}, {1, 1}, {2, 0}, {2, 0}, {3, 1}});
    EXPECT_EQ(spline.count(), 4);
    EXPECT_NEAR(spline.EvalAtX(1.0), 1.0, 1e-12);
    // All one point: a constant curve of no length.
    clsSplineFit point = Fit({{2, 7}, {2, 7}, {2, 7}});
    EXPECT_EQ(point.count(), 1);
    EXPECT_EQ(point.EvalAtX(-50.0), 7.0);
    double length = -1.0;
    point.ArcLength(length);
    EXPECT_EQ(length, 0.0);
}

TEST_F(clsSplineFitTest, EqualXWithDifferentYIsADivisionFailureForTheHandler) {
    // Spacing along X of zero: callers filter such points first; unfiltered, the handler hears
    // of it once, and the curve is left as the polyline through the points.
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred interpolating spline 2d.");
    clsSplineFit spline = Fit({{0, 0}, {1, 1}, {1, 2}, {3, 0}});
    EXPECT_NEAR(spline.EvalAtX(0.5), 0.5, 1e-12);
    EXPECT_NEAR(spline.EvalAtX(2.0), 1.0, 1e-12);
}

TEST_F(clsSplineFitTest, AnglesComeBackInZeroExclusiveToTwoPi) {
    clsSplineFit flat = Fit({{0, 1}, {1, 1}, {2, 1}, {3, 1}});
    double tangent = kWanted;
    double curvature = kWanted;
    double y = 0.0;
    flat.EvalAtX(1.5, tangent, curvature, y);
    EXPECT_NEAR(tangent, 2.0 * kPi, 1e-12); // a level curve reads 2*pi, never 0
    EXPECT_NEAR(curvature, 2.0 * kPi, 1e-12);

    // Bend sign: a convex run reads in the first quadrant, a concave one in the fourth.
    std::vector<PointDouble> cup;
    std::vector<PointDouble> cap;
    for (int i = -4; i <= 4; ++i) {
        cup.push_back({i * 0.5, 0.25 * i * i});
        cap.push_back({i * 0.5, -0.25 * i * i});
    }
    clsSplineFit convex = Fit(cup);
    clsSplineFit concave = Fit(cap);
    tangent = kSplineUnset;
    curvature = kWanted;
    convex.EvalAtX(0.7, tangent, curvature, y);
    EXPECT_EQ(tangent, kSplineUnset) << "an unset slot is not computed";
    EXPECT_GT(curvature, 0.0);
    EXPECT_LT(curvature, kPi / 2.0);
    curvature = kWanted;
    concave.EvalAtX(0.7, tangent, curvature, y);
    EXPECT_GT(curvature, 1.5 * kPi);
    EXPECT_LE(curvature, 2.0 * kPi);
}

TEST_F(clsSplineFitTest, GivenTangentsSteerTheEndsAndFlagsHandBackFreeOnes) {
    const std::vector<PointDouble> points = {{0, 0}, {1, 2}, {3, 3}, {4, 1}};

    SplineTangents given{1.0, 1.0};
    clsSplineFit clamped = Fit(points, clsSplineFit::kSpacingAlongX, given);
    EXPECT_NEAR(TangentAt(clamped, 1e-9), kPi / 4.0, 1e-6);
    EXPECT_EQ(given.endX, kSplineUnset) << "no flag, nothing handed back";

    // With every flag and chord spacing: natural ends; the free slots get the tangents the
    // fit computed, along the curve's own ends.
    const std::int16_t allFlags = clsSplineFit::kChordSpacing | clsSplineFit::kNaturalStartX |
                                  clsSplineFit::kNaturalStartY | clsSplineFit::kNaturalEndX |
                                  clsSplineFit::kNaturalEndY;
    SplineTangents free;
    clsSplineFit natural = Fit(points, allFlags, free);
    ASSERT_NE(free.startX, kSplineUnset);
    ASSERT_NE(free.endY, kSplineUnset);
    auto direction = [](double dx, double dy) {
        const double a = std::atan2(dy, dx);
        return a <= 0.0 ? a + 2.0 * kPi : a;
    };
    EXPECT_NEAR(TangentAt(natural, 0.0), direction(free.startX, free.startY), 1e-12);
    EXPECT_NEAR(TangentAt(natural, 4.0), direction(free.endX, free.endY), 1e-12);

    // A given start tangent under the start flags is overruled by the natural end and kept.
    SplineTangents start{0.0, 5.0};
    clsSplineFit overruled = Fit(points, allFlags, start);
    EXPECT_EQ(start.startX, 0.0);
    EXPECT_EQ(start.startY, 5.0);
    for (double x = 0.0; x <= 4.0; x += 0.25) {
        EXPECT_NEAR(overruled.EvalAtX(x), natural.EvalAtX(x), 1e-12);
    }
}

TEST_F(clsSplineFitTest, ArcLengthAndPointsAlongIt) {
    clsSplineFit line = Fit({{0, 0}, {1, 4.0 / 3.0}, {2, 8.0 / 3.0}, {3, 4}});
    double length = 0.0;
    line.ArcLength(length);
    EXPECT_NEAR(length, 5.0, 1e-12);
    double x = 0.0;
    double y = 0.0;
    double tangent = kSplineUnset;
    double curvature = kSplineUnset;
    line.EvalAtT(1.0, x, y, tangent, curvature);
    EXPECT_NEAR(x, 3.0, 1e-12);
    EXPECT_NEAR(y, 4.0, 1e-12);

    // A quarter of the unit circle, running back in X: chord spacing.
    std::vector<PointDouble> arc;
    for (int i = 0; i <= 9; ++i) {
        const double a = kPi / 2.0 * i / 9.0;
        arc.push_back({std::cos(a), std::sin(a)});
    }
    clsSplineFit circle = Fit(arc, clsSplineFit::kChordSpacing);
    circle.ArcLength(length);
    EXPECT_NEAR(length, kPi / 2.0, 2e-3);
}

} // namespace
} // namespace corvane
