#include "graphs/modGraphsBars.h"

#include "graphs/clsCoordinateGraph.h"
#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

// Part of a bar's slot that the bar fills; the rest is the gap to its neighbour.
constexpr double kBarFill = 0.8;
constexpr double kGroupGap = 1.0;

struct BarGraph {
    std::vector<PitchBarGroup> groups;
    double lowest = 0, highest = 0, mean = 0;
    bool seen = false;

    void Take(double v) {
        if (!std::isfinite(v) || !(v > 0)) {
            return;
        }
        lowest = seen ? std::min(lowest, v) : v;
        highest = seen ? std::max(highest, v) : v;
        seen = true;
    }

    // Adds a group after the last one, as wide as its bars need.
    void Add(PitchBarGroup g) {
        const double start = groups.empty() ? 1.0 : groups.back().to + kGroupGap;
        const double width = std::max(2.0, 0.75 * static_cast<double>(g.values.size()));
        g.from = start;
        g.to = start + width;
        for (double v : g.values) {
            Take(v);
        }
        if (g.lower < g.upper) {
            Take(g.lower);
            Take(g.upper);
        }
        groups.push_back(std::move(g));
    }
};

// A group from windows: bars at the values, the box of the first window, in limits when every
// value is inside its own window.
PitchBarGroup FromWindows(const std::string& name, const std::vector<ISOWindow>& windows,
                          const std::vector<GraphColour>& colours, bool reference, double tolerance) {
    PitchBarGroup g;
    g.name = name;
    g.colours = colours;
    for (const ISOWindow& w : windows) {
        g.values.push_back(w.Value);
        g.inLimits = g.inLimits && !OutsideWindow(w, tolerance, reference);
    }
    if (reference && !windows.empty()) {
        g.lower = windows.front().Lower;
        g.upper = windows.front().Upper;
    }
    return g;
}

void StartBars(clsCoordinateGraph& graph, DrawingSurface& surface, const GraphRequest& request,
               bool summary) {
    const GraphOptions& o = request.options;
    graph.SetDefaultFont(o.fontName, o.fontSize);
    graph.ClearAllDataSeries();
    graph.CreateGraph(surface, 1, kWhite);
    graph.SetPercentWindow(0, 0, 1, 1);
    PlotMarginTwips m;
    // The summary's narrow left margin of old left no room for the pitch title; both take 750.
    m.left = 750;
    m.right = 150;
    m.top = o.report ? 150 : 375;
    m.bottom = o.report ? 1350 : 750;
    m.guardLeft = summary ? 0.05 : 0.1;
    const auto r = PlotMarginRatios(m, surface.ScaleWidth(), surface.ScaleHeight());
    graph.SetWin2PlotRatio(r[0], r[1], r[2], r[3]);
    graph.SetGraphConfiguration(false, 1);
}

void DrawBars(clsCoordinateGraph& graph, const GraphRequest& request, BarGraph& bars, double yLow,
              double yHigh) {
    graph.AutoAxes(2, 0, 0, bars.groups.empty() ? 1 : bars.groups.back().to + 1, yLow, yHigh, 0, -1, 0, 0, 1,
                   false, false, 8.75);
    int series = 0;
    for (const PitchBarGroup& g : bars.groups) {
        CreatePitchBarGroup(graph, series, request, g, yLow, yHigh);
    }
    graph.PlotAll();
    graph.Refresh();
}

std::vector<GraphColour> BladeColours(const std::vector<int>& blades) {
    std::vector<GraphColour> c;
    for (int b : blades) {
        c.push_back(BladeColour(b));
    }
    return c;
}

// Prop and Blades groups, common to both graphs.
void SummaryGroups(const GraphRequest& request, BarGraph& bars, std::vector<int>& blades) {
    const clsPropeller* scan = RequestScan(request);
    const bool reference = RequestReference(request) != nullptr;
    const double tolerance = FormatTolerance(LengthFormat(request.project));
    const ISOResults& results = request.iso.Results();
    ISOWindow prop = results.PropellerMeanPitch;
    if (results.Blades.empty() && scan != nullptr) {
        prop = {0, 0, scan->ISOPropellerPitch(), true};
    }
    bars.mean = prop.Value;
    bars.Add(FromWindows("Prop", {prop}, {kPropellerBarColour}, reference, tolerance));
    std::vector<ISOWindow> windows;
    for (int b = 0; scan != nullptr && b < scan->BladeCount(); ++b) {
        const ISOBladeResults* r = BladeResults(request, b);
        if (!scan->Blades(b)->BladeEnabled() || !BladeShown(request, b)) {
            continue;
        }
        windows.push_back(r != nullptr ? r->BladeMeanPitch
                                       : ISOWindow{0, 0, scan->Blades(b)->ISOBladePitch(), true});
        blades.push_back(b);
    }
    bars.Add(FromWindows("Blades", windows, BladeColours(blades), reference, tolerance));
}

} // namespace

void CreatePitchBarGroup(clsCoordinateGraph& graph, int& series, const GraphRequest& request,
                         const PitchBarGroup& g, double yLow, double yHigh) {
    ErrorTail tail("creating Pitch Bar Graph Group");
    tail.Step([&] {
        const GraphOptions& o = request.options;
        const GraphStyle style = GraphStyleSettings(o.report, o.graphSize);
        const double labelSize = o.report ? style.labelSize * 0.75 : style.labelSize;
        const std::size_t n = g.values.size();
        const double slot = n > 0 ? (g.to - g.from) / static_cast<double>(n) : 0;
        for (std::size_t i = 0; i < n; ++i) {
            const double centre = g.from + slot * (static_cast<double>(i) + 0.5);
            const double half = slot * kBarFill / 2;
            // A bar taller than the plot stops at its top.
            const double top = std::clamp(g.values[i], yLow, yHigh);
            const GraphColour colour = i < g.colours.size() ? g.colours[i] : g.colour;
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, false, false, true, false, false, false);
            graph.SetAreaStyle(s, 0, 255, colour, 0);
            graph.SetLineStyle(s, 0, 0, 1, colour);
            graph.SetAreaData(s, {centre - half, centre - half, centre + half, centre + half},
                              {yLow, top, top, yLow});
        }
        const std::string& format = LengthFormat(request.project);
        const double middle = (g.lower + g.upper) / 2;
        const bool box = g.lower < g.upper;
        const bool allIn = g.inLimits;
        const auto line = [&](std::vector<double> x, std::vector<double> y, int dash, int width) {
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, dash, width, g.colour);
            graph.SetLineData(s, x, y);
        };
        if (box) {
            line({g.from, g.to}, {g.upper, g.upper}, allIn ? 0 : 1, 2);
            line({g.from, g.to}, {g.lower, g.lower}, allIn ? 0 : 1, 2);
            line({g.from, g.from}, {g.lower, g.upper}, 0, 1);
            line({g.to, g.to}, {g.lower, g.upper}, 0, 1);
            line({g.from, g.to}, {middle, middle}, 1, 1);
            if (!allIn) {
                line({g.from, g.to}, {g.lower, g.upper}, 0, 1);
                line({g.from, g.to}, {g.upper, g.lower}, 0, 1);
            }
        }
        // The name above the box (or the bars), the values under the plot.
        double highest = box ? g.upper : yLow;
        for (double v : g.values) {
            highest = std::max(highest, v);
        }
        const double nameY = std::min(highest, yLow + 0.95 * (yHigh - yLow));
        const double centre = (g.from + g.to) / 2;
        std::string value = FormatNumber(box ? middle : (n > 0 ? g.values[0] : 0), format);
        if (box) {
            value += "\r\n\xC2\xB1" + FormatNumber((g.upper - g.lower) / 2, format);
        }
        const int s = series++;
        graph.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
        graph.SetMarkerStyle(s, -1, 5, style.markerSize, 1, 0, -1, 1, 4, o.fontName, labelSize, 0, 255);
        graph.SetMarkerData(s, {centre}, {nameY}, {Bracketed(g.name, "", box && !allIn)});
        const int t = series++;
        graph.SetDataSeriesConfiguration(t, true, false, true, false, false, false, false);
        graph.SetMarkerStyle(t, -1, 5, 1, 1, 0, -1, 1, 5, o.fontName, labelSize * 0.8, 0, 255);
        graph.SetMarkerData(t, {centre}, {yLow - 0.025 * (yHigh - yLow)}, {value});
    });
}

void CreatePitchBarSummary(DrawingSurface& surface, const GraphRequest& request) {
    ErrorTail tail("creating Pitch Bar graph");
    tail.Step([&] {
        clsCoordinateGraph graph;
        StartBars(graph, surface, request, true);
        BarGraph bars;
        std::vector<int> blades;
        SummaryGroups(request, bars, blades);
        const double mean = bars.mean > 0 ? bars.mean : 1;
        DrawBars(graph, request, bars, 0.75 * mean, 1.2 * mean);
    });
}

void CreatePitchBarSections(DrawingSurface& surface, const GraphRequest& request, double scale) {
    ErrorTail tail("creating Pitch Bar graph");
    tail.Step([&] {
        const GraphOptions& o = request.options;
        clsCoordinateGraph graph;
        StartBars(graph, surface, request, false);
        BarGraph bars;
        std::vector<int> blades;
        SummaryGroups(request, bars, blades);
        const clsPropeller* scan = RequestScan(request);
        const bool reference = RequestReference(request) != nullptr;
        const double tolerance = FormatTolerance(LengthFormat(request.project));
        for (int k = 0; scan != nullptr && k < 8; ++k) {
            if (!RowShown(request, k)) {
                continue;
            }
            std::vector<ISOWindow> windows;
            std::vector<GraphColour> colours;
            double position = 0;
            for (int b : blades) {
                const auto blade = scan->Blades(b);
                if (k >= blade->SectionCount() || blade->Section(k)->RawOffsetCount() < 2 ||
                    !(blade->Section(k)->SegmentChord() > 0)) {
                    continue;
                }
                const ISOSectionResults* r = SectionResults(request, b, k);
                windows.push_back(r != nullptr ? r->NoseTailPitch : ISOWindow{0, 0, blade->Pitch(k), true});
                colours.push_back(BladeColour(b));
                position = blade->RadialPos(k);
            }
            if (!windows.empty()) {
                bars.Add(FromWindows(FormatNumber(position * 100, "0") + "R", windows, colours, reference,
                                     tolerance));
            }
        }
        const double mean = bars.mean > 0 ? bars.mean : 1;
        double low = 0.75, high = 1.25;
        if (o.zoom) {
            low = 0.91, high = 1.09;
        } else if (o.report) {
            low = 0.875, high = 1.125;
        }
        double yLow = mean * (1 - (1 - low) * scale);
        double yHigh = mean * (1 + (high - 1) * scale);
        if (reference && bars.seen) {
            // Room above and below the outermost window or bar.
            const double margin = 0.02 * mean;
            yLow = std::min(yLow, bars.lowest - margin);
            yHigh = std::max(yHigh, bars.highest + margin);
        }
        DrawBars(graph, request, bars, yLow, yHigh);
    });
}

} // namespace corvane
