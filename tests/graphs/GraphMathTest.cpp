#include "graphs/GraphMath.h"
#include "graphs/DrawingSurface.h"
#include "graphs/GraphColours.h"
#include "graphs/modGraphs.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsRadius.h"
#include "graphs/modGraphsScales.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {
namespace {

TEST(GraphMathTest, TickStepsAndTheirLabelSteps) {
    struct Row {
        double lo, hi, tick;
    };
    // 0..1 ticks every 0.04 and labels every 0.2; 0..100 labels every 20.
    const Row rows[] = {{0, 1, 0.04},    {0, 100, 4},   {-1, 1, 0.1},  {0, 10, 0.4},
                        {2.5, 7.5, 0.2}, {100, 150, 4}, {-50, -10, 2}, {0.001, 0.002, 0.00004}};
    for (const Row& r : rows) {
        EXPECT_NEAR(TickStep(r.lo, r.hi), r.tick, r.tick * 1e-9) << r.lo << ".." << r.hi;
    }
    EXPECT_NEAR(5 * TickStep(0, 1), 0.2, 1e-12);
    EXPECT_NEAR(5 * TickStep(0, 100), 20, 1e-9);
}

TEST(GraphMathTest, LabelTextsByTheAxisExponent) {
    struct Row {
        double v, min, max, step;
        const char* text;
    };
    const Row rows[] = {
        {0.2, 0, 1, 0.04, "0.20"},
        {20, 0, 100, 4, "20"},
        {-3, -5, 5, 0.4, "-3.0"},
        {150000, 0, 200000, 4000, "1.5e+5"},
        {-150000, -200000, 0, 4000, "-1.5"},
        {0.00002, 0, 0.00005, 1e-6, "2.0e-5"},
        {0, 0, 200000, 4000, "0.0"},
    };
    for (const Row& r : rows) {
        EXPECT_EQ(AxisLabelText(r.v, r.min, r.max, r.step), r.text) << r.v;
    }
}

TEST(GraphMathTest, StepsWalkFromZeroWithoutDrift) {
    const std::vector<double> around = StepsFromZero(-0.3, 0.25, 0.1);
    EXPECT_EQ(around, (std::vector<double>{-0.3, -0.2, -0.1, 0, 0.1, 0.2}));
    const std::vector<double> far = StepsFromZero(100.02, 100.5, 0.1);
    ASSERT_EQ(far.size(), 5u);
    EXPECT_EQ(far.front(), 100.1);
    EXPECT_EQ(far.back(), 100.5);
    EXPECT_EQ(StepsFromZero(0, 1, 0.1).back(), 1.0);
    EXPECT_TRUE(StepsFromZero(0, 1, 0).empty());
}

TEST(GraphMathTest, CurvesAreCutIntoTheRunsInsideTheBounds) {
    struct Row {
        std::vector<double> y;
        std::vector<std::size_t> pieces;
    };
    // Bounds 0..10 on both axes; x runs 0, 1, 2...
    const Row rows[] = {
        {{1, 2, 3}, {3}},           // all inside
        {{1, 2, 20, 3, 4}, {2, 2}}, // a point out splits, and is dropped
        {{1, 20, 3, 4}, {1, 2}},    // a run ended by a point out stays, even of one point
        {{1, 2, 20, 3}, {2}},       // the run still open at the end needs two points
        {{20, 30}, {}},
    };
    for (const Row& r : rows) {
        std::vector<double> x(r.y.size());
        for (std::size_t i = 0; i < x.size(); ++i) {
            x[i] = static_cast<double>(i);
        }
        const std::vector<CurvePiece> pieces = CutAtBounds(x, r.y, 0, 10, 0, 10);
        std::vector<std::size_t> sizes;
        for (const CurvePiece& p : pieces) {
            sizes.push_back(p.X.size());
        }
        EXPECT_EQ(sizes, r.pieces);
    }
    EXPECT_DOUBLE_EQ(Round15(1.23456789012345678), 1.23456789012346);
    EXPECT_DOUBLE_EQ(Round15(-123456.7890123456789), -123456.789012346);
    EXPECT_DOUBLE_EQ(Round15(2.5e-7 + 1e-23), 2.5e-7);
}

TEST(GraphMathTest, DashedWalkStartsWithAGapAndCarriesItsPhaseOverVertices) {
    std::vector<std::pair<PointD, PointD>> dashes;
    const auto record = [&](PointD a, PointD b) { dashes.push_back({a, b}); };
    DashedWalk({{0, 0}, {600, 0}}, 2, record);
    ASSERT_EQ(dashes.size(), 5u);
    EXPECT_DOUBLE_EQ(dashes[0].first.X, 60);
    EXPECT_DOUBLE_EQ(dashes[0].second.X, 120);
    EXPECT_DOUBLE_EQ(dashes[4].second.X, 600);

    dashes.clear();
    // Gap 60, dash 180 over a corner: the dash runs on round it for 90 + 60.
    DashedWalk({{0, 0}, {150, 0}, {150, 300}}, 1, record);
    ASSERT_GE(dashes.size(), 2u);
    EXPECT_DOUBLE_EQ(dashes[0].first.X, 60);
    EXPECT_DOUBLE_EQ(dashes[1].first.X, 150);
    EXPECT_DOUBLE_EQ(dashes[1].second.Y, 90);

    dashes.clear();
    DashedWalk({{0, 0}, {600, 0}}, 3, record); // gap 60, dash 360, gap 60, dash 120
    ASSERT_EQ(dashes.size(), 2u);
    EXPECT_DOUBLE_EQ(dashes[0].second.X - dashes[0].first.X, 360);
    EXPECT_DOUBLE_EQ(dashes[1].first.X, 480);
}

TEST(GraphMathTest, MarkerShapesAndLegendSizing) {
    EXPECT_EQ(MarkerShape(4).size(), 20u);
    EXPECT_EQ(MarkerShape(5).size(), 9u);
    EXPECT_TRUE(MarkerShape(-1).empty());
    EXPECT_TRUE(MarkerShape(12).empty());

    EXPECT_EQ(LegendLabelText(std::string(31, 'a')), std::string(26, 'a') + "...]");
    EXPECT_EQ(LegendLabelText(std::string(30, 'a')), std::string(30, 'a'));
    // Ratio 100 twips per unit: 395 twips of allowance, the offset, 500 twips of text.
    LegendBox box = LayoutLegend(0, 500, 1, 2, 100, 100, 0, 0, 100, 50);
    EXPECT_DOUBLE_EQ(box.width, 3.95 + 1 + 5);
    EXPECT_DOUBLE_EQ(box.right, 100 - 0.75);
    EXPECT_DOUBLE_EQ(box.height, 3.6);
    box = LayoutLegend(1, 500, 1, 2, 100, 100, -10, 0, 100, 50); // left bound below 0: 540 twips
    EXPECT_DOUBLE_EQ(box.width, 5.4 + 5);
    EXPECT_DOUBLE_EQ(box.left, -10 + 0.75);
    box = LayoutLegend(0, 1e6, 0, 1, 100, 100, 0, 0, 100, 50); // capped at 0.65 of the plot
    EXPECT_DOUBLE_EQ(box.width, 65);
    box = LayoutLegend(4, 500, 0, 1, 100, 100, 0, 0, 100, 50);
    EXPECT_DOUBLE_EQ(box.width, 100 - 1.5);
    EXPECT_DOUBLE_EQ(box.bottom, 0.75);
}

TEST(GraphMathTest, ColoursScalesAndMargins) {
    EXPECT_EQ(BGRToARGB(0x0000FF, 255), 0xFFFF0000u);         // red
    EXPECT_EQ(BGRToARGB(kBladeColours[0], 150), 0x960000FFu); // blade 0 is blue
    int alpha = 0;
    EXPECT_EQ(ARGBToBGR(0x80123456, alpha), 0x563412u);
    EXPECT_EQ(alpha, 0x80);
    EXPECT_EQ(BladeColour(7), 0);
    EXPECT_EQ(BladeColour(9), 0);

    EXPECT_EQ(FittedTwipsPerPixel(1600, 1600), 15.0);
    EXPECT_NEAR(FittedTwipsPerPixel(2400, 1000) * 2400, 32000, 1e-9);
    EXPECT_EQ(FittedTwipsPerPixel(0, 0), 15.0);

    EXPECT_DOUBLE_EQ(FormatTolerance("0.00"), 0.00001);
    EXPECT_DOUBLE_EQ(FormatTolerance("0.0", "01"), 0.001);
    // A surface narrower than 1800 twips takes the guards.
    const auto narrow = PlotMarginRatios(PlotMarginTwips{}, 1700, 6000);
    EXPECT_DOUBLE_EQ(narrow[0], 0.15);
    EXPECT_NEAR(narrow[2], 0.05, 1e-12);
    EXPECT_DOUBLE_EQ(narrow[1], 375.0 / 6000);
    const auto wide = PlotMarginRatios(PlotMarginTwips{}, 10000, 600);
    EXPECT_NEAR(wide[0], 0.1, 1e-12);
    EXPECT_NEAR(wide[2], 0.08, 1e-12);
    EXPECT_NEAR(wide[3], 0.1, 1e-12); // too low for the margins: the guard
}

TEST(GraphMathTest, LabelCodesByBladeAngle) {
    struct Row {
        double theta;
        int top, arm;
    };
    const Row rows[] = {{0, 4, 4},   {350, 4, 4}, {22.5, 3, 3}, {90, 7, 7},  {135, 0, 0},
                        {180, 5, 5}, {225, 1, 1}, {270, 6, 1},  {300, 2, 2}, {-90, 6, 1}};
    for (const Row& r : rows) {
        EXPECT_EQ(BladeLabelCode(r.theta, false), r.top) << r.theta;
        EXPECT_EQ(BladeLabelCode(r.theta, true), r.arm) << r.theta;
    }
}

TEST(GraphMathTest, ArcsStepsAndFractions) {
    const ArcProperties none = GetArcProperties(1, 1, 1, 1, 1, 1);
    EXPECT_EQ(none.centreX, 0);
    EXPECT_EQ(none.centreY, 0);
    EXPECT_EQ(none.radius, 0);
    const ArcProperties circle = GetArcProperties(-1, 0, 0.6, 0.8, 1, 0);
    EXPECT_NEAR(circle.centreX, 0, 1e-9);
    EXPECT_NEAR(circle.centreY, 0, 1e-9);
    EXPECT_NEAR(circle.radius, 1, 1e-9);
    EXPECT_NEAR(GetYFromArc(-1, 0, 0.6, 0.8, 1, 0, 0), 1, 1e-9);
    EXPECT_NEAR(GetYFromArc(0, 0, 1, 1, 2, 2, 1.5), 1.5, 1e-9); // on one line

    struct Step {
        double span, step;
    };
    for (const Step s : {Step{0.0005, -1}, Step{0.0015, 0.0005}, Step{0.3, 0.1}, Step{1.5, 0.5}, Step{7, 2.5},
                         Step{5000, 1000}, Step{6000, -1}}) {
        EXPECT_EQ(RadiusZoomStep(s.span), s.step) << s.span;
    }
    EXPECT_EQ(NearestBinaryFraction(3.3125), "3 5/16");
    EXPECT_EQ(NearestBinaryFraction(0.5), "1/2");
    EXPECT_EQ(NearestBinaryFraction(2.0), "2");
    EXPECT_EQ(NearestBinaryFraction(0.999), "1");
}

} // namespace
} // namespace corvane
