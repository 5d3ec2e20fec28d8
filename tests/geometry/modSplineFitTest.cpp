#include "geometry/modSplineFit.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"

#include <cmath>
#include <limits>

namespace corvane {
namespace {

using test::ServicesTest;

class modSplineFitTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder;
        gAppTitle = "Corvane";
        for (int i = 0; i <= 10; ++i) {
            xs.push_back(i);
            ys.push_back(Line(i));
        }
    }

    static double Line(double x) { return 3.0 - 0.5 * x; }

    bool Offsets(const std::vector<double>& xq) {
        yq.assign(xq.size(), -1.0);
        return SplineOffsetValues(static_cast<int>(xs.size()), xs, ys, static_cast<int>(xq.size()), xq, yq,
                                  0);
    }

    std::vector<double> xs; // 0 .. 10 on a line
    std::vector<double> ys;
    std::vector<double> yq;
};

TEST_F(modSplineFitTest, CubicsAndEndParabolasPassTheirControlPoints) {
    const std::vector<PointDouble> control = {{0, 0}, {1, 3}, {2, 3}, {3, 0}, {4, -2}, {5, -2}, {6, 1}};
    double a = 0, b = 0, c = 0, d = 0;
    auto value = [&](double u) { return ((a * u + b) * u + c) * u + d; };
    GetCubicCoeffs(control, 3, a, b, c, d, 1, false);
    EXPECT_DOUBLE_EQ(value(0.0), 0.0);
    EXPECT_DOUBLE_EQ(value(0.5), (0.0 - 6.0 - 6.0 + 1.0) / 8.0); // the Bezier mid-point
    EXPECT_DOUBLE_EQ(value(1.0), 1.0);

    // Extrapolating parabolas pass three control points at u = 0, 0.5 and 1: points 0..2 at the
    // first segment, the last three of the segment anywhere else.
    GetCubicCoeffs(control, 0, a, b, c, d, 1, true);
    EXPECT_EQ(a, 0.0);
    EXPECT_DOUBLE_EQ(value(0.0), 0.0);
    EXPECT_DOUBLE_EQ(value(0.5), 3.0);
    EXPECT_DOUBLE_EQ(value(1.0), 3.0);
    GetCubicCoeffs(control, 3, a, b, c, d, 1, true);
    EXPECT_DOUBLE_EQ(value(0.0), -2.0);
    EXPECT_DOUBLE_EQ(value(0.5), -2.0);
    EXPECT_DOUBLE_EQ(value(1.0), 1.0);

    prompts.Expect(Answer::Ignore, "getting cubic coeffs"); // beyond the control points
    GetCubicCoeffs(control, 6, a, b, c, d, 0, false);
    EXPECT_DOUBLE_EQ(value(1.0), 1.0) << "outputs untouched";
}

TEST_F(modSplineFitTest, InternalValuesResampleAndExtrapolateFreely) {
    std::vector<double> out;
    ASSERT_TRUE(SplineInternalValues(11, xs, ys, 3, {2.5, -4.0, 30.0}, out, 0));
    ASSERT_EQ(out.size(), 3u);
    EXPECT_NEAR(out[0], Line(2.5), 1e-12);
    EXPECT_NEAR(out[1], Line(-4.0), 1e-12);
    EXPECT_NEAR(out[2], Line(30.0), 1e-10);

    // A repeated X is left out, whatever its Y; startIndex skips the leading points.
    const std::vector<double> x2 = {99, 0, 1, 1, 2, 3};
    const std::vector<double> y2 = {-50, 3, 2.5, 100, 2, 1.5};
    ASSERT_TRUE(SplineInternalValues(6, x2, y2, 1, {0.5}, out, 1));
    EXPECT_NEAR(out[0], 2.75, 1e-12);

    // One point, or only one distinct X: that Y everywhere.
    ASSERT_TRUE(SplineInternalValues(1, {4}, {9}, 2, {0, 100}, out, 0));
    EXPECT_EQ(out[0], 9.0);
    EXPECT_EQ(out[1], 9.0);
    ASSERT_TRUE(SplineInternalValues(3, {4, 4, 4}, {9, 8, 7}, 1, {5}, out, 0));
    EXPECT_EQ(out[0], 9.0);
}

TEST_F(modSplineFitTest, InternalValuesWithoutPointsSayDataError) {
    prompts.Expect(Answer::OK, "Data error.");
    std::vector<double> out;
    EXPECT_FALSE(SplineInternalValues(0, {}, {}, 1, {0}, out, 0));
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].text, "Data error.");
    EXPECT_EQ(prompts.History()[0].title, "Corvane");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::OKOnly | MsgBox::Exclamation);
}

TEST_F(modSplineFitTest, OffsetValuesReachFivePercentBeyondTheDataAndNoFurther) {
    ASSERT_TRUE(Offsets({-0.5, 5.25, 10.5}));
    EXPECT_NEAR(yq[0], Line(-0.5), 1e-12);
    EXPECT_NEAR(yq[1], Line(5.25), 1e-12);
    EXPECT_NEAR(yq[2], Line(10.5), 1e-12);
    EXPECT_TRUE(Offsets({10.5 + 1e-12})) << "equal to 12 significant digits";
    EXPECT_FALSE(Offsets({10.5 + 1e-6}));
    EXPECT_FALSE(Offsets({3.0, -0.5 - 1e-6}));
    EXPECT_FALSE(Offsets({std::numeric_limits<double>::quiet_NaN()}));
    EXPECT_TRUE(prompts.History().empty()) << "refusals are silent";
}

TEST_F(modSplineFitTest, OffsetValuesCheckTheirArraysStrictly) {
    std::vector<double> out(1, -1.0);
    EXPECT_FALSE(SplineOffsetValues(10, xs, ys, 1, {1.0}, out, 0)) << "xs holds 11, not 10";
    EXPECT_FALSE(SplineOffsetValues(11, xs, ys, 2, {1.0}, out, 0)) << "xq holds 1, not 2";
    std::vector<double> bad = ys;
    bad[4] = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(SplineOffsetValues(11, xs, bad, 1, {1.0}, out, 0));
    EXPECT_EQ(out[0], -1.0);
    // startIndex: the span and the fit begin there.
    const std::vector<double> x2 = {-100, 0, 1, 2, 3};
    EXPECT_FALSE(SplineOffsetValues(5, x2, x2, 1, {-0.2}, out, 1));
    ASSERT_TRUE(SplineOffsetValues(5, x2, x2, 1, {-0.15}, out, 1));
    EXPECT_NEAR(out[0], -0.15, 1e-12);
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane
