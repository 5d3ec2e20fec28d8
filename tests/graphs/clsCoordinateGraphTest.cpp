#include "common/ServicesFixture.h"

#include "graphs/RecordingSurface.h"
#include "graphs/clsCoordinateGraph.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace corvane {
namespace {

using Kind = SurfaceCall::Kind;

class clsCoordinateGraphTest : public test::ServicesTest {
protected:
    void Start(int mode = 1, double margin = 0) {
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, mode, 0xFFFFFF);
        graph.SetPercentWindow(0, 0, 1, 1);
        graph.SetWin2PlotRatio(margin, margin, margin, margin);
        surface.calls.clear();
    }
    std::size_t Count(Kind kind) const {
        return static_cast<std::size_t>(
            std::count_if(surface.calls.begin(), surface.calls.end(),
                          [kind](const SurfaceCall& c) { return c.kind == kind; }));
    }
    double XMin() const {
        double a = 0, b = 0, c = 0, d = 0;
        graph.GetCurrentPlotBounds(a, b, c, d);
        return a;
    }
    double YMin() const {
        double a = 0, b = 0, c = 0, d = 0;
        graph.GetCurrentPlotBounds(a, b, c, d);
        return c;
    }

    RecordingSurface surface{1000, 1000};
    clsCoordinateGraph graph;
};

TEST_F(clsCoordinateGraphTest, AxisBoundsFollowTheRulesOfTheirEdgeCases) {
    Start();
    graph.SetLineData(0, {1, 2}, {1, 2});
    graph.AutoAxes(2, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, false, false, 8.75);
    double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
    graph.GetCurrentPlotBounds(xMin, xMax, yMin, yMax);
    EXPECT_EQ(xMax, 10);
    EXPECT_EQ(yMax, 10);
    EXPECT_EQ(graph.XTickStep(), 0.2);
    EXPECT_EQ(graph.YTickStep(), 0.2);
    EXPECT_TRUE(graph.Series(0).LineX.empty()); // an empty graph shows no stray line

    Start();
    graph.AutoAxes(1, 0, 0, 1, 5, 5, 0, 2, 0, 0, 0, false, false, 8.75);
    graph.GetCurrentPlotBounds(xMin, xMax, yMin, yMax);
    EXPECT_EQ(yMin, 2.5);
    EXPECT_EQ(yMax, 7.5);

    // A lower X bound beyond five ticks moves down by five ticks (step 4 here); Y keeps its own.
    Start();
    graph.AutoAxes(2, 0, 100, 150, 100, 150, 0, 2, 0, 0, 0, false, false, 8.75);
    EXPECT_EQ(XMin(), 80);
    EXPECT_EQ(YMin(), 100);
    // The same in equal axes with a fixed label step of 5 (ticks of 1), X ruling.
    Start();
    graph.EqualAxes(2, 0, 100, 140, 100, 101, false, 2, 0, false, 0, 0, false, 5);
    EXPECT_EQ(XMin(), 95);
}

TEST_F(clsCoordinateGraphTest, WorldPointsMapToTwipsReversedAndClamped) {
    Start();
    graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, false, 0, 0, false, -1);
    PointD p = graph.WorldToTwips(-1, -1);
    EXPECT_NEAR(p.X, 0, 1e-6);
    EXPECT_NEAR(p.Y, 15000, 1e-6);
    p = graph.WorldToTwips(1, 1);
    EXPECT_NEAR(p.X, 15000, 1e-6);
    EXPECT_NEAR(p.Y, 0, 1e-6);
    EXPECT_EQ(graph.WorldToTwips(1e9, 0).X, 32000);
    EXPECT_EQ(graph.WorldToTwips(-1e9, 0).X, -32000);

    Start();
    graph.EqualAxes(0, 0, -1, 1, -1, 1, true, -1, -1, false, 0, 0, true, -1);
    p = graph.WorldToTwips(-1, -1);
    EXPECT_NEAR(p.X, 15000, 1e-6);
    EXPECT_NEAR(p.Y, 0, 1e-6);
    double wx = 0, wy = 0, vx = 0, vy = 0;
    Start(1, 0.1);
    graph.AutoAxes(2, 0, -2, 2, -2, 2, 0, -1, -1, 0, 0, false, false, 8.75);
    graph.GetViewportPositionFromWorldCoordinates(0.5, 0.25, vx, vy);
    graph.GetWorldCoordinatesFromViewportPosition(vx, vy, wx, wy);
    EXPECT_NEAR(wx, 0.5, 1e-9);
    EXPECT_NEAR(wy, 0.25, 1e-9);
}

TEST_F(clsCoordinateGraphTest, AxesDrawTicksAndLabelsOnlyWhereTheirDirectionsSay) {
    Start(1, 0.1);
    graph.AutoAxes(2, 0, 0, 1, 0, 100, 0, 2, 0, 1, 1, false, false, 8.75);
    EXPECT_TRUE(surface.Printed("0.20"));
    EXPECT_TRUE(surface.Printed("20"));
    EXPECT_TRUE(surface.Printed("100"));
    const std::size_t withLabels = surface.calls.size();

    Start(1, 0.1);
    graph.AutoAxes(2, 0, 0, 1, 0, 100, 0, -2, -2, 0, 0, false, false, 8.75);
    EXPECT_EQ(Count(Kind::Print), 0u);
    EXPECT_GT(Count(Kind::Line), 10u); // axes and ticks stay
    EXPECT_LT(surface.calls.size(), withLabels);

    Start(1, 0.1);
    graph.AutoAxes(2, 0, 0, 1, 0, 100, 0, -1, -1, 0, 0, false, false, 8.75);
    EXPECT_EQ(surface.calls.size(), 0u);
}

TEST_F(clsCoordinateGraphTest, MarkersSkipTheLoneOriginAndTheFarOutside) {
    const auto markers = [this](std::vector<double> x, std::vector<double> y) {
        Start();
        graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, false, 0, 0, false, -1);
        surface.calls.clear();
        graph.SetDataSeriesConfiguration(0, true, false, true, false, false, false, false);
        graph.SetMarkerData(0, x, y);
        graph.PlotMarker(0);
        return Count(Kind::Polygon);
    };
    EXPECT_EQ(markers({0}, {0}), 0u);
    EXPECT_EQ(markers({0, 0.5}, {0, 0.5}), 4u); // fill and outline of each
    EXPECT_EQ(markers({0.5, 5}, {0.5, 0}), 2u); // the far one is culled
}

TEST_F(clsCoordinateGraphTest, LinesSplineCutDashAndHide) {
    Start();
    graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, false, 0, 0, false, -1);
    surface.calls.clear();
    graph.SetDataSeriesConfiguration(0, true, true, false, false, true, false, false);
    graph.SetLineStyle(0, 1, 0, 2, 0x00FF00);
    graph.SetLineData(0, {-0.5, 0.5}, {0, 0});
    graph.SetLineLabelData(0, "<b>Two points", 0, 0, 8);
    graph.PlotLine(0, 3);
    ASSERT_EQ(Count(Kind::Polyline), 1u);
    EXPECT_EQ(surface.calls[0].points.size(), 2u); // a spline on two points is the straight line
    const SurfaceCall& label = surface.calls.back();
    EXPECT_EQ(label.text, "Two points");
    EXPECT_TRUE(label.bold);

    surface.calls.clear();
    graph.SetLineData(0, {-0.8, -0.4, 0, 0.4, 0.8}, {0, 0.3, 5, 0.3, 0});
    graph.SetLineStyle(0, 1, 0, 2, 0x00FF00);
    graph.PlotLine(0, 3);
    EXPECT_EQ(Count(Kind::Polyline), 2u); // cut where the curve leaves the plot
    EXPECT_GT(surface.calls[0].points.size(), 2u);

    surface.calls.clear();
    graph.SetLineData(0, {-0.9, 0.9}, {0, 0});
    graph.SetLineStyle(0, 0, 2, 2, 0x00FF00);
    graph.PlotLine(0, 3);
    EXPECT_GT(Count(Kind::Polyline), 20u); // one stroke per dot
    EXPECT_EQ(surface.calls[0].points.size(), 2u);

    surface.calls.clear();
    graph.SetLineStyle(0, 0, 5, 2, 0x00FF00);
    graph.PlotLine(0, 3);
    EXPECT_TRUE(surface.calls.empty()); // dash 5: neither line nor label
}

TEST_F(clsCoordinateGraphTest, WithoutTheLayerModeOneFallsBackAndDrawsNoArea) {
    clsCoordinateGraph plain(false);
    plain.CreateGraph(surface, 1, 0xFFFFFF);
    EXPECT_EQ(plain.DrawingMode(), 0);
    plain.SetPercentWindow(0, 0, 1, 1);
    plain.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, false, 0, 0, false, -1);
    surface.calls.clear();
    plain.SetDataSeriesConfiguration(0, true, true, false, true, false, false, false);
    plain.SetLineData(0, {-0.5, 0, 0.5}, {0, 0.5, 0});
    plain.SetAreaData(0, {-0.5, 0, 0.5}, {0, 0.5, 0});
    plain.PlotAll();
    EXPECT_EQ(Count(Kind::Polygon), 0u);
    EXPECT_EQ(Count(Kind::Line), 2u);
}

TEST_F(clsCoordinateGraphTest, PorcupineModesPlaceTheirSpikes) {
    struct Row {
        int mode, points;
        std::size_t spikes;
    };
    for (const Row r : {Row{0, 0, 3}, Row{1, 0, 2}, Row{2, 0, 5}, Row{3, 4, 5}, Row{4, 4, 5}, Row{3, 1, 0}}) {
        Start();
        graph.EqualAxes(0, 0, -2, 2, -2, 2, false, -1, -1, false, 0, 0, false, -1);
        surface.calls.clear();
        graph.SetDataSeriesConfiguration(0, true, false, false, false, false, false, true);
        graph.SetPorcupineStyle(0, 1, 0, 1, 0, r.mode, r.points, -1, 3);
        graph.SetPorcupineData(0, {-1, 0, 1}, {0, 0.5, 0}, {0.2, 0.2, 0.2});
        graph.PlotPorcupine(0, 3);
        EXPECT_EQ(Count(Kind::Polyline), r.spikes) << "mode " << r.mode;
    }
}

TEST_F(clsCoordinateGraphTest, LegendBoxShowsTheLabelledSeriesCut) {
    Start(1, 0.1);
    graph.EqualAxes(0, 0, 0, 1, 0, 1, false, -1, -1, false, 0, 0, false, -1);
    graph.SetGraphConfiguration(true, 0);
    graph.SetDataSeriesConfiguration(0, true, true, false, false, false, true, false);
    graph.SetLegendData(0, "", "", 0, 0);
    graph.SetDataSeriesConfiguration(1, true, true, false, false, false, true, false);
    graph.SetLegendData(1, std::string(31, 'x'), "", 0, 0);
    EXPECT_EQ(graph.GetLegendLabel(0), "Series 0");
    surface.calls.clear();
    graph.PlotLegend();
    EXPECT_TRUE(surface.Printed("Series 0"));
    EXPECT_TRUE(surface.Printed(std::string(26, 'x') + "...]"));
    EXPECT_GE(Count(Kind::Polygon), 2u); // the white box and its outline

    graph.SetGraphConfiguration(false, 0);
    surface.calls.clear();
    graph.PlotLegend();
    EXPECT_TRUE(surface.calls.empty());
}

TEST_F(clsCoordinateGraphTest, ErrorsCollectWithoutRepeats) {
    graph.AddError("one");
    graph.AddError("one");
    graph.AddError("two");
    EXPECT_EQ(graph.Errors(), "\tone\r\n\ttwo\r\n");
    EXPECT_EQ(graph.Errors(), "");
    EXPECT_TRUE(graph.ErrorsFound());
}

} // namespace
} // namespace corvane
