#include "graphs/modGraphsPath.h"

#include "graphs/clsCoordinateGraph.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane {

namespace {

constexpr double kDegToRad = 3.14159265358979 / 180.0;

class PathPlot {
public:
    PathPlot(DrawingSurface& surface, const GraphRequest& request)
        : request_(request), style_(GraphStyleSettings(request.options.report, request.options.graphSize)) {
        graph_.SetDefaultFont(request.options.fontName, request.options.fontSize);
        graph_.ClearAllDataSeries();
        graph_.CreateGraph(surface, 1, kWhite);
        graph_.SetPercentWindow(0, 0, 1, 1);
        PlotMarginTwips margins;
        margins.bottom = 1000;
        const auto r = PlotMarginRatios(margins, surface.ScaleWidth(), surface.ScaleHeight());
        graph_.SetWin2PlotRatio(r[0], r[1], r[2], r[3]);
        graph_.SetGraphConfiguration(true, 1);
        labelSize_ = request.options.report ? style_.labelSize * 0.75 : style_.labelSize;
        scan_ = RequestScan(request);
        reference_ = RequestReference(request);
    }

    // The sweep of one section: angle from the generator line, continued across 0/360, as arc
    // at half the propeller's radius (`half` is the radius); the drop as measured.
    bool Sweep(const clsBlades& blade, int k, double half, std::vector<double>& x,
               std::vector<double>& y) const {
        if (k < 0 || k >= blade.SectionCount()) {
            return false;
        }
        const auto section = const_cast<clsBlades&>(blade).Section(k);
        const int n = section->RawOffsetCount();
        if (n < 1) {
            return false;
        }
        x.assign(static_cast<std::size_t>(n), 0);
        y = section->AxialDropXArray();
        double a = 0;
        for (int i = 0; i < n; ++i) {
            a = i == 0 ? Wrap180(section->ThetaDeg(0) - blade.GLPositionThetaDeg())
                       : a + Wrap180(section->ThetaDeg(i) - section->ThetaDeg(i - 1));
            x[static_cast<std::size_t>(i)] = a * kDegToRad * half / 2;
        }
        return true;
    }

    int Line(const std::vector<double>& x, const std::vector<double>& y, int dash, int width,
             GraphColour colour) {
        const int s = series_++;
        graph_.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
        graph_.SetLineStyle(s, 0, dash, width, colour);
        graph_.SetLineData(s, x, y);
        return s;
    }

    void Section(int k, bool captions) {
        if (scan_ == nullptr) {
            return;
        }
        const double half = scan_->Diameter() / 2;
        for (int b = 0; b < scan_->BladeCount(); ++b) {
            const auto blade = scan_->Blades(b);
            std::vector<double> x, y;
            if (!BladeShown(request_, b) || !Sweep(*blade, k, half, x, y)) {
                continue;
            }
            const int s = Line(x, y, 0, style_.lineWidth, BladeColour(b));
            graph_.SetDataSeriesConfiguration(s, true, true, false, false, false, !captions, false);
            graph_.SetLegendData(s, "Blade " + std::to_string(b + 1), request_.options.fontName, 0,
                                 BladeColour(b));
            if (captions) {
                const int c = series_++;
                const std::string text = FormatNumber(blade->RadialPos(k) * 100, "0") + "R";
                graph_.SetDataSeriesConfiguration(c, true, false, true, false, false, false, false);
                graph_.SetMarkerStyle(c, -1, 5, style_.markerSize, 1, BladeColour(b), -1, 1, 7,
                                      request_.options.fontName, labelSize_ * 0.75, BladeColour(b), 255);
                graph_.SetMarkerData(c, {x.front(), x.back()}, {y.front(), y.back()}, {text, text});
            }
        }
        if (reference_ != nullptr && reference_->BladeCount() > 0) {
            std::vector<double> x, y;
            if (Sweep(*reference_->Blades(0), k, reference_->Diameter() / 2, x, y)) {
                Line(x, y, 3, 1, 0);
            }
        }
    }

    // The rake window of each blade at its centre line: a vertical stroke between the limits.
    void RakeWindows(int k) {
        if (scan_ == nullptr || reference_ == nullptr || scan_->ScanDrop() == 2) {
            return;
        }
        const double half = scan_->Diameter() / 2;
        for (int b = 0; b < scan_->BladeCount(); ++b) {
            const ISOSectionResults* results = SectionResults(request_, b, k);
            if (!BladeShown(request_, b) || results == nullptr) {
                continue;
            }
            const auto section = scan_->Blades(b)->Section(k);
            const double x = section->SegmentThetaBCL() * kDegToRad * half / 2;
            const ISOWindow& w = results->RakePosition;
            const int s = Line({x, x}, {w.Lower, w.Upper}, 0, 1, BladeColour(b));
            graph_.SetDataSeriesConfiguration(s, true, true, true, false, false, false, false);
            graph_.SetMarkerStyle(s, 7, 0, 10, 2, BladeColour(b), BladeColour(b), 0, 2, "", -1, -1, 255);
            graph_.SetMarkerData(s, {x, x}, {w.Lower, w.Upper});
        }
    }

    void Finish(const std::string& sweepTitle, const std::string& dropTitle, double defaultXMax,
                double defaultYMax, bool edges) {
        double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
        graph_.DetectAxisBounds(xMin, xMax, yMin, yMax);
        if (series_ == 0) {
            xMin = 0, xMax = defaultXMax, yMin = 0, yMax = defaultYMax;
        }
        if (xMin == xMax) {
            xMin = -1, xMax = 1;
        }
        if (yMin == yMax) {
            yMin = -1, yMax = 1;
        }
        graph_.EqualAxes(2, 1, xMin, xMax, yMin, yMax, false, 2, 0, true, 1, 1, true, -1);
        const std::string unit = UnitLabel(request_.project);
        const std::string& font = request_.options.fontName;
        graph_.TitleGraph(sweepTitle + " [" + unit + "]", 2, font, labelSize_);
        graph_.TitleGraph(dropTitle + " [" + unit + "]", 0, font, labelSize_);
        if (edges) {
            double pxMin = 0, pxMax = 0, pyMin = 0, pyMax = 0;
            graph_.GetCurrentPlotBounds(pxMin, pxMax, pyMin, pyMax);
            const bool leftHand = request_.project.RotationIndex() == 1;
            const int s = series_++;
            graph_.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
            graph_.SetMarkerStyle(s, -1, 5, style_.markerSize, 1, 0, -1, 1, 8, font, labelSize_, 0, 255);
            const double y = pyMax - 0.04 * (pyMax - pyMin);
            const double inset = 0.04 * (pxMax - pxMin);
            graph_.SetMarkerData(s, {pxMin + inset, pxMax - inset}, {y, y},
                                 {leftHand ? "[LE]" : "[TE]", leftHand ? "[TE]" : "[LE]"});
        }
        graph_.PlotAll();
    }

    bool SingleChannelDrop() const { return scan_ != nullptr && scan_->ScanDrop() == 2; }

private:
    const GraphRequest& request_;
    GraphStyle style_;
    double labelSize_ = 12;
    clsCoordinateGraph graph_;
    const clsPropeller* scan_ = nullptr;
    const clsPropeller* reference_ = nullptr;
    int series_ = 0;
};

} // namespace

void CreatePathPlotSection(DrawingSurface& surface, const GraphRequest& request) {
    ErrorTail tail("creating path plot");
    tail.Step([&] {
        PathPlot plot(surface, request);
        plot.Section(request.options.section, false);
        plot.RakeWindows(request.options.section);
        plot.Finish("Angular Sweep", plot.SingleChannelDrop() ? "Relative Drop" : "Drop", 1, 1, true);
    });
}

void CreatePathPlotAll(DrawingSurface& surface, const GraphRequest& request) {
    ErrorTail tail("creating path plot");
    tail.Step([&] {
        PathPlot plot(surface, request);
        for (int k = 0; k < 8; ++k) {
            if (RowShown(request, k)) {
                plot.Section(k, true);
            }
        }
        plot.Finish("Sweep", "Drop", 90, 1, false);
    });
}

} // namespace corvane
