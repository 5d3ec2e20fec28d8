#include "graphs/modGraphsRadius.h"

#include "graphs/clsCoordinateGraph.h"
#include "iso484/clsISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

constexpr double kDegToRad = 3.14159265358979 / 180.0;

// Angles along a sweep relative to the generator line, continued across the 0/360 line.
std::vector<double> Unwrapped(const std::vector<double>& thetas, double gl) {
    std::vector<double> out(thetas.size());
    for (std::size_t i = 0; i < thetas.size(); ++i) {
        out[i] = i == 0 ? Wrap180(thetas[0] - gl) : out[i - 1] + Wrap180(thetas[i] - thetas[i - 1]);
    }
    return out;
}

void Turn(std::vector<double>& x, std::vector<double>& y, double x0, double y0, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    for (std::size_t i = 0; i < x.size(); ++i) {
        const double dx = x[i] - x0, dy = y[i] - y0;
        x[i] = dx * c + dy * s;
        y[i] = dy * c - dx * s;
    }
}

const clsBlades* ReferenceBlade(const clsPropeller* reference, int blade) {
    if (reference == nullptr || reference->BladeCount() < 1) {
        return nullptr;
    }
    return reference->Blades(std::min(blade, reference->BladeCount() - 1)).get();
}

bool HasData(const clsBlades& blade, int section) {
    return section >= 0 && section < blade.SectionCount() &&
           const_cast<clsBlades&>(blade).Section(section)->RawOffsetCount() > 0;
}

double RakeShift(const GraphRequest& request, const clsBlades& blade, const clsBlades* reference, int k) {
    if (!request.options.rakeAlignment || reference == nullptr || k >= reference->SectionCount()) {
        return 0;
    }
    return blade.ISOTotalAxialRakeToBCL(k) - reference->ISOTotalAxialRakeToBCL(k);
}

} // namespace

SectionProfile SectionOffsets(const clsBlades& blade, int k, double half) {
    SectionProfile p;
    if (!HasData(blade, k)) {
        return p;
    }
    const auto section = const_cast<clsBlades&>(blade).Section(k);
    const double gl = blade.GLPositionThetaDeg();
    const double arc = half * blade.RadialPos(k) * kDegToRad;
    const std::vector<double> raw = Unwrapped(section->ThetaDegArray(), gl);
    p.rawY = section->AxialDropXArray();
    for (double a : raw) {
        p.rawX.push_back(arc * a);
    }
    const int n = section->SegmentOffsetCount();
    if (n < 2) {
        return p;
    }
    const std::vector<double> seg = Unwrapped(section->SegmentOffsetThetaDegArray(), gl);
    p.segY = section->SegmentOffsetAxialDropXArray();
    for (double a : seg) {
        p.segX.push_back(arc * a);
    }
    const bool firstIsOrigin = p.segX.front() <= p.segX.back();
    const double x0 = firstIsOrigin ? p.segX.front() : p.segX.back();
    const double y0 = firstIsOrigin ? p.segY.front() : p.segY.back();
    const double x1 = firstIsOrigin ? p.segX.back() : p.segX.front();
    const double y1 = firstIsOrigin ? p.segY.back() : p.segY.front();
    const double angle = Atan2YX(y1 - y0, x1 - x0);
    Turn(p.rawX, p.rawY, x0, y0, angle);
    Turn(p.segX, p.segY, x0, y0, angle);
    p.valid = true;
    return p;
}

bool GetYOffsetRange(const GraphRequest& request, int k, double& low, double& high) {
    const clsPropeller* scan = RequestScan(request);
    if (scan == nullptr) {
        return false;
    }
    const double half = scan->Diameter() / 2;
    bool seen = false;
    const auto take = [&](const SectionProfile& p, double shift) {
        if (!p.valid) {
            return;
        }
        for (const std::vector<double>* ys : {&p.rawY, &p.segY}) {
            for (double y : *ys) {
                low = seen ? std::min(low, y + shift) : y + shift;
                high = seen ? std::max(high, y + shift) : y + shift;
                seen = true;
            }
        }
    };
    const clsPropeller* reference = RequestReference(request);
    if (const clsBlades* r = ReferenceBlade(reference, 0); r != nullptr && k < 8) {
        take(SectionOffsets(*r, k, reference->Diameter() / 2), 0);
    }
    for (int b = 0; b < scan->BladeCount(); ++b) {
        const auto blade = scan->Blades(b);
        if (blade->BladeEnabled()) {
            take(SectionOffsets(*blade, k, half),
                 RakeShift(request, *blade, ReferenceBlade(reference, b), k));
        }
    }
    return seen;
}

double RadiusZoomStep(double span) {
    struct Row {
        double upTo;
        double step;
    };
    static constexpr Row rows[] = {
        {0.002, 0.0005}, {0.005, 0.001}, {0.01, 0.0025}, {0.05, 0.01}, {0.1, 0.025}, {0.2, 0.05}, {0.5, 0.1},
        {1, 0.5},        {2, 0.5},       {5, 1},         {10, 2.5},    {20, 5},      {50, 10},    {100, 25},
        {200, 50},       {500, 100},     {1000, 250},    {2000, 500},  {5000, 1000}};
    if (span < 0.001) {
        return -1;
    }
    for (const Row& r : rows) {
        if (span <= r.upTo) {
            return r.step;
        }
    }
    return -1;
}

void CreateRadiusGraph(DrawingSurface& surface, const GraphRequest& request, double yLow, double yHigh) {
    ErrorTail tail("creating radius graphs");
    tail.Step([&] {
        const GraphOptions& o = request.options;
        const GraphStyle style = GraphStyleSettings(o.report, o.graphSize);
        const double labelSize = o.report ? style.labelSize * 0.75 : style.labelSize;
        const int k = o.section;
        clsCoordinateGraph graph;
        graph.SetDefaultFont(o.fontName, o.fontSize);
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, 1, kWhite);
        graph.SetPercentWindow(0, 0, 1, 1);
        PlotMarginTwips margins;
        margins.top = o.report ? 150 : 375;
        const auto ratios = PlotMarginRatios(margins, surface.ScaleWidth(), surface.ScaleHeight());
        graph.SetWin2PlotRatio(ratios[0], ratios[1], ratios[2], ratios[3]);
        graph.SetGraphConfiguration(false, 1);
        const clsPropeller* scan = RequestScan(request);
        if (scan == nullptr || o.blade < 0 || o.blade >= scan->BladeCount()) {
            graph.AutoAxes(0, 0, 0, 0, 0, 0, 0, 2, 0, 1, 1, true, false, 8.75);
            graph.Refresh();
            return;
        }
        const clsPropeller* reference = RequestReference(request);
        const double half = scan->Diameter() / 2;
        const double tolerance = FormatTolerance(LengthFormat(request.project));
        int series = 0;
        const auto next = [&series] { return series++; };

        // The reference's sweep and segment points.
        const clsBlades* refBlade = ReferenceBlade(reference, o.blade);
        SectionProfile ref;
        if (refBlade != nullptr) {
            ref = SectionOffsets(*refBlade, k, reference->Diameter() / 2);
        }
        if (ref.valid) {
            int s = next();
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, style.thinWidth, kReferenceColour);
            graph.SetLineData(s, ref.rawX, ref.rawY);
            if (scan->ScanDrop() != 2) {
                s = next();
                graph.SetDataSeriesConfiguration(s, true, true, true, false, false, false, false);
                graph.SetLineStyle(s, 0, 0, style.thinWidth, kReferenceColour);
                graph.SetMarkerStyle(s, 4, 0, style.markerSize, style.thinWidth, kReferenceColour,
                                     kReferenceColour, 0, 2, "", -1, -1, 150);
                graph.SetLineData(s, ref.segX, ref.segY);
                graph.SetMarkerData(s, ref.segX, ref.segY);
            }
        }

        // Each blade shown: its sweep dotted, its segment solid with markers.
        SectionProfile active;
        for (int b = 0; b < scan->BladeCount(); ++b) {
            const auto blade = scan->Blades(b);
            if (!blade->BladeEnabled() || (b != o.blade && !BladeShown(request, b))) {
                continue;
            }
            SectionProfile p = SectionOffsets(*blade, k, half);
            if (!p.valid) {
                continue;
            }
            const double shift = RakeShift(request, *blade, ReferenceBlade(reference, b), k);
            for (double& y : p.rawY) {
                y += shift;
            }
            for (double& y : p.segY) {
                y += shift;
            }
            int s = next();
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 2, style.lineWidth, BladeColour(b));
            graph.SetLineData(s, p.rawX, p.rawY);
            s = next();
            graph.SetDataSeriesConfiguration(s, true, true, true, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, style.lineWidth, BladeColour(b));
            graph.SetMarkerStyle(s, 4, 0, style.markerSize, 1, BladeColour(b), BladeColour(b), 0, 2, "", -1,
                                 -1, 255);
            graph.SetLineData(s, p.segX, p.segY);
            graph.SetMarkerData(s, p.segX, p.segY);
            if (b == o.blade) {
                active = p;
            }
        }

        // The deviations from the reference where they show in the length format.
        if (active.valid && ref.valid && ref.segY.size() == active.segY.size()) {
            std::vector<std::string> texts;
            for (std::size_t i = 0; i < active.segY.size(); ++i) {
                const std::string mine = FormatLength(request.project, active.segY[i]);
                const bool differs = mine != FormatLength(request.project, ref.segY[i]);
                texts.push_back(differs ? FormatLength(request.project, active.segY[i] - ref.segY[i]) : "");
            }
            const int s = next();
            graph.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
            graph.SetMarkerStyle(s, -1, 5, style.markerSize, 1, BladeColour(o.blade), -1, 1, 5, o.fontName,
                                 labelSize * 0.75, BladeColour(o.blade), 255);
            graph.SetMarkerData(s, active.segX, active.segY, texts);
        }

        // Bounds: the data, then the common range of the section over all blades.
        double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
        graph.DetectAxisBounds(xMin, xMax, yMin, yMax);
        double low = 0, high = 0;
        if (GetYOffsetRange(request, k, low, high)) {
            yMin = std::min(yMin, low);
            yMax = std::max(yMax, high);
        }
        // Offsets of a fair section are only rounding noise: the Y range is at least 2 % of the
        // chord, about the data, so that the graph shows a straight line and not the noise.
        const double least = 0.02 * (xMax - xMin);
        if (yMax - yMin < least) {
            const double middle = (yMax + yMin) / 2;
            yMin = middle - least / 2;
            yMax = middle + least / 2;
        }
        const bool rangeGiven = std::fabs(yHigh - yLow) > 0.0001;
        if (rangeGiven) {
            yMin = std::min(yLow, yHigh);
            yMax = std::max(yLow, yHigh);
        }
        if (!o.zoom) {
            const double width = surface.ScaleWidth() > 0 ? surface.ScaleWidth() : 1;
            xMin = -((xMax - xMin) / width) * 1000;
            graph.AutoAxes(2, 0, xMin, xMax, yMin, yMax, 0, 2, 0, 1, 1, true, false, 8.75);
        } else {
            const double step = RadiusZoomStep(std::max(xMax - xMin, yMax - yMin));
            graph.EqualAxes(2, 0, xMin, xMax, yMin, yMax, false, 2, 0, true, 1, 1, true, step);
        }
        double pxMin = 0, pxMax = 0, pyMin = 0, pyMax = 0;
        graph.GetCurrentPlotBounds(pxMin, pxMax, pyMin, pyMax);
        // Y runs downwards: the top of the plot is its lowest value.
        const double top = pyMin, bottom = pyMax;

        // Panel pitches over the plot, the nose-tail pitch at its top, TE and LE at its corners.
        const auto blade = scan->Blades(o.blade);
        const ISOSectionResults* results = SectionResults(request, o.blade, k);
        const std::string& format = LengthFormat(request.project);
        if (active.valid && k < blade->SectionCount()) {
            const auto section = blade->Section(k);
            const double panelY = rangeGiven ? 0.0 : top + 0.1 * (bottom - top);
            std::vector<double> px, py;
            std::vector<std::string> texts;
            for (int j = 0; j < section->SegmentPanelCount() && j + 1 < static_cast<int>(active.segX.size());
                 ++j) {
                const double value = section->SegmentPanelPitch(j);
                std::string text = FormatNumber(value, format) + " P";
                if (reference != nullptr && results != nullptr &&
                    static_cast<std::size_t>(j) < results->LocalPitch.size()) {
                    const ISOWindow& w = results->LocalPitch[static_cast<std::size_t>(j)];
                    if (OutsideWindow(w, tolerance, true)) {
                        const bool isLow = w.Value < w.Lower;
                        const double beyond = isLow ? w.Lower - w.Value : w.Value - w.Upper;
                        text = "[<b>" + FormatNumber(value, format) + " P]\r\n" +
                               FormatNumber(beyond, format) + (isLow ? " P LOW" : " P HIGH");
                    }
                }
                px.push_back((active.segX[static_cast<std::size_t>(j)] +
                              active.segX[static_cast<std::size_t>(j) + 1]) /
                             2);
                py.push_back(panelY);
                texts.push_back(text);
            }
            const int s = next();
            graph.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
            graph.SetMarkerStyle(s, -1, 5, style.markerSize, 1, 0, -1, 1, 8, o.fontName, labelSize * 0.75, 0,
                                 255);
            graph.SetMarkerData(s, px, py, texts);

            ISOWindow pitch{0, 0, blade->Pitch(k), true};
            if (results != nullptr) {
                pitch = results->NoseTailPitch;
            }
            const int p = next();
            graph.SetDataSeriesConfiguration(p, true, false, false, false, true, false, false);
            graph.SetLineStyle(p, 0, 0, 1, 0);
            graph.SetLineLabelData(p,
                                   Bracketed(FormatNumber(blade->Pitch(k), format), " P",
                                             OutsideWindow(pitch, tolerance, reference != nullptr)),
                                   (pxMin + pxMax) / 2, top, 5, o.fontName, labelSize, 0);
        }
        const bool leftHand = request.project.RotationIndex() == 1;
        const int ends = next();
        graph.SetDataSeriesConfiguration(ends, true, false, true, false, false, false, false);
        graph.SetMarkerStyle(ends, -1, 5, style.markerSize, 1, 0, -1, 1, 8, o.fontName, labelSize, 0, 255);
        const double cornerY = bottom - 0.04 * (bottom - top);
        const double inset = 0.03 * (pxMax - pxMin);
        graph.SetMarkerData(ends, {pxMin + inset, pxMax - inset}, {cornerY, cornerY},
                            {leftHand ? "LE" : "TE", leftHand ? "TE" : "LE"});
        graph.PlotAll();
    });
}

} // namespace corvane
