#include "graphs/ScanArmGraph.h"

#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "support/ErrorTail.h"

#include <cmath>
#include <vector>

namespace corvane {

namespace {

constexpr double kDegToRad = 3.14159265358979 / 180.0;

void StartGraph(clsCoordinateGraph& graph, DrawingSurface& surface, const GraphOptions& options,
                double margin, double marginY) {
    graph.ClearAllDataSeries();
    graph.SetDefaultFont(options.fontName, options.fontSize);
    graph.CreateGraph(surface, 1, options.surfaceEnabled ? kScanSurfaceGrey : kWhite);
    graph.SetPercentWindow(0, 0, 1, 1);
    graph.SetWin2PlotRatio(margin, marginY, margin, marginY);
    graph.SetGraphConfiguration(false, 1);
}

// Series 0 the arm from the centre to the rim, series 1 the marker at the arm's radius.
void AddArm(clsCoordinateGraph& graph, const ArmOnGraph& arm, const GraphStyle& style) {
    const double a = arm.angleDeg * kDegToRad;
    graph.SetDataSeriesConfiguration(0, true, true, false, false, false, false, false);
    graph.SetLineStyle(0, 0, 0, style.lineWidth, 0);
    graph.SetAreaStyle(0, 1, 100, 0, 0);
    graph.SetLineData(0, {0.0, std::sin(a)}, {0.0, std::cos(a)});
    const double r = arm.diameter > 0 ? arm.radius / (arm.diameter / 2) : 0;
    graph.SetDataSeriesConfiguration(1, true, false, true, false, false, false, false);
    graph.SetLineStyle(1, 0, 0, style.lineWidth, 0); // the marker's fill (-1) is the line colour
    graph.SetMarkerStyle(1, 4, 0, style.markerSize, 2, 0, -1, 0, 2, "", -1, -1, 255);
    graph.SetMarkerData(1, {r * std::sin(a)}, {r * std::cos(a)});
}

// One series per measured section: the raw points at their angle and radius. Only `onlyBlade`
// and `onlySection` when they are 0 or above.
void AddRawLines(clsCoordinateGraph& graph, int& series, const clsCorvane& project, const clsPropeller* scan,
                 const GraphStyle& style, int onlyBlade, int onlySection = -1) {
    const double half = project.MarkedDiameter() / 2;
    if (scan == nullptr || !(half > 0)) {
        return;
    }
    for (int b = 0; b < scan->BladeCount(); ++b) {
        if (onlyBlade >= 0 && b != onlyBlade) {
            continue;
        }
        const auto blade = scan->Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (onlySection >= 0 && k != onlySection) {
                continue;
            }
            const auto section = blade->Section(k);
            const int n = section->RawOffsetCount();
            if (n <= 0) {
                continue;
            }
            std::vector<double> x(static_cast<std::size_t>(n)), y(static_cast<std::size_t>(n));
            for (int i = 0; i < n; ++i) {
                const double r = section->Radius(i) / half;
                const double t = section->ThetaDeg(i) * kDegToRad;
                x[static_cast<std::size_t>(i)] = r * std::sin(t);
                y[static_cast<std::size_t>(i)] = r * std::cos(t);
            }
            graph.SetDataSeriesConfiguration(series, true, true, false, false, false, false, false);
            graph.SetLineStyle(series, 0, 0, style.lineWidth, BladeColour(b));
            graph.SetLineData(series, x, y);
            ++series;
        }
    }
}

// Each blade's generator line, dotted, with the blade's number at the rim.
void AddBladeLines(clsCoordinateGraph& graph, int& series, const clsPropeller* scan, const GraphStyle& style,
                   const GraphOptions& options) {
    if (scan == nullptr) {
        return;
    }
    for (int b = 0; b < scan->BladeCount(); ++b) {
        const double gl = scan->Blades(b)->GLPositionThetaDeg();
        const double x = std::sin(gl * kDegToRad);
        const double y = std::cos(gl * kDegToRad);
        graph.SetDataSeriesConfiguration(series, true, true, false, false, true, true, false);
        graph.SetLineStyle(series, 0, 2, style.thinWidth, kBladeLineColour);
        graph.SetLineData(series, {0.0, x}, {0.0, y});
        graph.SetLineLabelData(series, std::to_string(b + 1), x, y, BladeLabelCode(gl, true),
                               options.fontName, style.labelSize, BladeColour(b));
        ++series;
    }
}

void UnitAxes(clsCoordinateGraph& graph) {
    graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -2, -2, true, 0, 0, false, -1);
}

const clsPropeller* ScanOf(const clsCorvane& project, int scanIndex) {
    return scanIndex >= 0 && scanIndex < project.PropellerScanCount() ? project.PropellerScan(scanIndex).get()
                                                                      : nullptr;
}

} // namespace

void CreateScanArmGraph(DrawingSurface& surface, const clsCorvane& project, int scanIndex,
                        const ArmOnGraph& arm, const GraphOptions& options) {
    ErrorTail tail("creating scan arm graph");
    tail.Step([&] {
        const GraphStyle style = GraphStyleSettings(options.report, options.graphSize);
        clsCoordinateGraph graph;
        StartGraph(graph, surface, options, 0.1, 0.08);
        int series = 0;
        if (options.scanMode == 2) {
            AddArm(graph, arm, style);
            series = 2;
        }
        const clsPropeller* scan = ScanOf(project, scanIndex);
        AddRawLines(graph, series, project, scan, style, -1);
        AddBladeLines(graph, series, scan, style, options);
        UnitAxes(graph);
        graph.PlotAll();
        graph.Refresh();
    });
}

void ScanArmGraph::Background(DrawingSurface& surface, const clsCorvane& project, int scanIndex,
                              const GraphOptions& options) {
    ErrorTail tail("creating scan arm graph");
    tail.Step([&] {
        const GraphStyle style = GraphStyleSettings(options.report, options.graphSize);
        StartGraph(graph_, surface, options, 0.05, 0.05);
        int series = 2;
        AddRawLines(graph_, series, project, ScanOf(project, scanIndex), style, -1);
        UnitAxes(graph_);
        graph_.PlotAll();
        graph_.Refresh();
        background_ = surface.Image();
    });
}

void ScanArmGraph::Frame(DrawingSurface& surface, const clsCorvane& project, int scanIndex,
                         const ArmOnGraph& arm, int blade, int section, const GraphOptions& options) {
    ErrorTail tail("creating scan arm graph (f)");
    tail.Step([&] {
        const GraphStyle style = GraphStyleSettings(options.report, options.graphSize);
        graph_.ClearAllDataSeries();
        if (background_ != nullptr) {
            graph_.CreateGraphWithBG(surface, background_, 1);
        } else {
            graph_.CreateGraph(surface, 1, options.surfaceEnabled ? kScanSurfaceGrey : kWhite);
        }
        graph_.SetPercentWindow(0, 0, 1, 1);
        graph_.SetWin2PlotRatio(0.05, 0.05, 0.05, 0.05);
        int series = 0;
        if (options.scanMode == 2) {
            AddArm(graph_, arm, style);
            series = 2;
        }
        AddRawLines(graph_, series, project, ScanOf(project, scanIndex), style, blade, section);
        // The world of the ground is still in force: plot first, then set the axes up for the
        // next frame. The ground already shows them; without one they come first.
        if (background_ == nullptr) {
            UnitAxes(graph_);
        }
        graph_.PlotAll();
        if (background_ != nullptr) {
            UnitAxes(graph_);
        }
        graph_.Refresh();
    });
}

} // namespace corvane
