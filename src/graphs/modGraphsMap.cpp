#include "graphs/modGraphsMap.h"

#include "graphs/clsCoordinateGraph.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsRadius.h"
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

double LabelSize(const GraphOptions& o) {
    const GraphStyle style = GraphStyleSettings(o.report, o.graphSize);
    return o.report ? style.labelSize * 0.75 : style.labelSize;
}

int TextSeries(clsCoordinateGraph& graph, int& series, const std::vector<double>& x,
               const std::vector<double>& y, const std::vector<std::string>& texts, int align, double size,
               GraphColour colour, const GraphOptions& o) {
    const int s = series++;
    graph.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
    graph.SetMarkerStyle(s, -1, 5, 5, 1, colour, -1, 1, align, o.fontName, size, colour, 255);
    graph.SetMarkerData(s, x, y, texts);
    return s;
}

// The profile along the chord from x0 to x1 at radius r.
void ProfileLine(clsCoordinateGraph& graph, int& series, const SectionProfile& p, double x0, double x1,
                 double r, double scale, int dash, int width, GraphColour colour,
                 std::vector<double>* panelX) {
    if (!p.valid || p.segX.empty()) {
        return;
    }
    const double chord = std::max(p.segX.back(), p.segX.front());
    const double stretch = chord != 0 ? (x1 - x0) / chord : 1;
    // The sweep runs on beyond the segment's ends; the map shows the part between them.
    std::vector<double> x, y;
    for (std::size_t i = 0; i < p.rawX.size(); ++i) {
        if (p.rawX[i] < -1e-9 * chord || p.rawX[i] > chord * (1 + 1e-9)) {
            continue;
        }
        x.push_back(x0 + p.rawX[i] * stretch);
        y.push_back(r - p.rawY[i] * scale);
    }
    const int s = series++;
    graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
    graph.SetLineStyle(s, 0, dash, width, colour);
    graph.SetLineData(s, x, y);
    if (panelX != nullptr) {
        std::vector<double> seg(p.segX);
        std::sort(seg.begin(), seg.end());
        for (std::size_t j = 0; j + 1 < seg.size(); ++j) {
            panelX->push_back(x0 + (seg[j] + seg[j + 1]) / 2 * stretch);
        }
    }
}

} // namespace

void CreateRRLine(clsCoordinateGraph& graph, int& series, double centreX, double halfLength, double half,
                  const std::vector<double>& radii, bool labels, const GraphOptions& options) {
    ErrorTail tail("creating r/R Line graph");
    tail.Step([&] {
        const GraphStyle style = GraphStyleSettings(options.report, options.graphSize);
        std::vector<double> x, y;
        std::vector<std::string> texts;
        for (double ratio : radii) {
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, style.thinWidth, 0);
            graph.SetLineData(s, {centreX - halfLength, centreX + halfLength}, {ratio * half, ratio * half});
            x.push_back(centreX - halfLength);
            y.push_back(ratio * half);
            texts.push_back(FormatNumber(ratio * 100, "0") + "R");
        }
        if (labels && !x.empty()) {
            TextSeries(graph, series, x, y, texts, 6, options.report ? 18 : LabelSize(options) * 0.7, 0,
                       options);
        }
    });
}

void CreateRadiusLine(clsCoordinateGraph& graph, int& series, const GraphRequest& request, int blade, int k,
                      double x0, double x1, double r, double scale) {
    ErrorTail tail("creating radius Line for Blade " + std::to_string(blade + 1) + " Section " +
                   std::to_string(k + 1));
    tail.Step([&] {
        const clsPropeller* scan = RequestScan(request);
        if (scan == nullptr || blade >= scan->BladeCount()) {
            return;
        }
        const GraphStyle style = GraphStyleSettings(request.options.report, request.options.graphSize);
        const clsPropeller* reference = RequestReference(request);
        if (reference != nullptr && reference->BladeCount() > 0) {
            const SectionProfile ref =
                SectionOffsets(*reference->Blades(std::min(blade, reference->BladeCount() - 1)), k,
                               reference->Diameter() / 2);
            ProfileLine(graph, series, ref, x0, x1, r, scale, 1, style.thinWidth, kReferenceColour, nullptr);
        }
        const auto b = scan->Blades(blade);
        std::vector<double> panelX;
        ProfileLine(graph, series, SectionOffsets(*b, k, scan->Diameter() / 2), x0, x1, r, scale, 0,
                    style.lineWidth, BladeColour(blade), &panelX);
        const auto section = b->Section(k);
        const ISOSectionResults* results = SectionResults(request, blade, k);
        const double tolerance = FormatTolerance(LengthFormat(request.project));
        const std::string& format = LengthFormat(request.project);
        std::vector<double> y;
        std::vector<std::string> texts;
        for (std::size_t j = 0; j < panelX.size() && static_cast<int>(j) < section->SegmentPanelCount();
             ++j) {
            const double value = section->SegmentPanelPitch(static_cast<int>(j));
            std::string text = FormatNumber(value, format) + " P";
            if (reference != nullptr && results != nullptr && j < results->LocalPitch.size()) {
                const ISOWindow& w = results->LocalPitch[j];
                if (OutsideWindow(w, tolerance, true)) {
                    const bool isLow = w.Value < w.Lower;
                    text = "[<b>" + FormatNumber(value, format) + " P]\r\n" +
                           FormatNumber(isLow ? w.Lower - w.Value : w.Value - w.Upper, format) +
                           (isLow ? " P LOW" : " P HIGH");
                }
            }
            y.push_back(r);
            texts.push_back(text);
        }
        panelX.resize(y.size());
        if (!texts.empty()) {
            TextSeries(graph, series, panelX, y, texts, 4, LabelSize(request.options) * 0.55, 0,
                       request.options);
        }
    });
}

void CreateMapGraph(DrawingSurface& surface, const GraphRequest& request, double offsetRange) {
    ErrorTail tail("creating map graph");
    tail.Step([&] {
        const GraphOptions& o = request.options;
        const GraphStyle style = GraphStyleSettings(o.report, o.graphSize);
        const double labelSize = LabelSize(o);
        clsCoordinateGraph graph;
        graph.SetDefaultFont(o.fontName, o.fontSize);
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, 1, kWhite);
        graph.SetPercentWindow(0, 0, 1, 1);
        const double height = surface.ScaleHeight();
        const double bottom = height > 840 / 0.15 ? 840 / height : 0.15;
        graph.SetWin2PlotRatio(0.05, 0.05, 0.05, bottom);
        graph.SetGraphConfiguration(false, 1);
        const clsPropeller* scan = RequestScan(request);
        const double half = request.project.MarkedDiameter() / 2;
        const int blade = o.blade;
        if (scan == nullptr || blade < 0 || blade >= scan->BladeCount() || !(half > 0)) {
            graph.AutoAxes(0, 0, 0, 1, 0, 1, 0, -1, -1, 0, 0, false, false, 8.75);
            graph.Refresh();
            return;
        }
        const int side = request.project.RotationIndex();
        const OutlinePoints outline = CreateFilteredOutlinePoints(side, *scan, blade, half);
        const clsPropeller* reference = RequestReference(request);
        const OutlinePoints ref =
            reference != nullptr ? CreateFilteredOutlinePoints(side, *reference, 0, half) : OutlinePoints{};
        double xLow = -half * 0.2, xHigh = half * 0.2, yLow = 0.2 * half, yHigh = half;
        bool seen = false;
        for (const OutlinePoints* p : {&outline, &ref}) {
            for (std::size_t i = 0; i < p->rows.size(); ++i) {
                const double lo = std::min(p->teX[i], p->leX[i]), hi = std::max(p->teX[i], p->leX[i]);
                xLow = seen ? std::min(xLow, lo) : lo;
                xHigh = seen ? std::max(xHigh, hi) : hi;
                yLow = seen ? std::min(yLow, p->teY[i]) : p->teY[i];
                yHigh = seen ? std::max(yHigh, p->teY[i]) : p->teY[i];
                seen = true;
            }
        }
        const double span = xHigh - xLow;
        const double rise = std::max(yHigh - yLow, 0.1 * half);
        yLow -= 0.03 * rise + 0.06 * half;
        const double ruler = xLow - 0.16 * span;
        const double column = xHigh + 0.12 * span;
        int series = 0;

        // The outlines, the reference's dashed.
        if (!ref.rows.empty()) {
            for (const auto* x : {&ref.teX, &ref.leX}) {
                const int s = series++;
                graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
                graph.SetLineStyle(s, 0, 1, style.thinWidth, kReferenceColour);
                graph.SetLineData(s, *x, ref.teY);
            }
        }
        for (const auto* x : {&outline.teX, &outline.leX}) {
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, style.thinWidth, BladeColour(blade));
            graph.SetLineData(s, *x, outline.teY);
        }
        if (!outline.rows.empty()) {
            TextSeries(graph, series, {outline.teX.front(), outline.leX.front()},
                       {outline.teY.front() + 0.02 * half, outline.leY.front() + 0.02 * half}, {"TE", "LE"},
                       4, labelSize * 0.8, BladeColour(blade), o);
        }

        // Each section: its offsets and panels, its pitch in the right column.
        double largest = offsetRange;
        const auto b = scan->Blades(blade);
        for (int k : outline.rows) {
            const SectionProfile p = SectionOffsets(*b, k, scan->Diameter() / 2);
            if (p.valid && offsetRange <= 0) {
                const auto [lo, hi] = std::minmax_element(p.rawY.begin(), p.rawY.end());
                largest = std::max(largest, *hi - *lo);
            }
        }
        // A fair helix has no offsets to speak of: below 2 % of the widest chord the offsets are
        // drawn at that scale, so that rounding noise is never blown up into a shape.
        largest = std::max(largest, 0.02 * span);
        const double scale = largest > 0 ? 0.04 * half / largest : 1;
        const double tolerance = FormatTolerance(LengthFormat(request.project));
        std::vector<double> pitchY;
        std::vector<std::string> pitchTexts;
        for (std::size_t i = 0; i < outline.rows.size(); ++i) {
            const int k = outline.rows[i];
            const double r = outline.teY[i];
            const double x0 = std::min(outline.teX[i], outline.leX[i]);
            const double x1 = std::max(outline.teX[i], outline.leX[i]);
            CreateRadiusLine(graph, series, request, blade, k, x0, x1, r, scale);
            const int s = series++;
            graph.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
            graph.SetLineStyle(s, 0, 0, style.thinWidth, 0);
            graph.SetLineData(s, {column - 0.04 * span, column}, {r, r});
            const ISOSectionResults* results = SectionResults(request, blade, k);
            const bool outside =
                results != nullptr && OutsideWindow(results->NoseTailPitch, tolerance, reference != nullptr);
            pitchY.push_back(r);
            pitchTexts.push_back(Bracketed(FormatLength(request.project, b->Pitch(k)), " P", outside));
        }
        TextSeries(graph, series, std::vector<double>(pitchY.size(), column), pitchY, pitchTexts, 7,
                   labelSize * 0.7, 0, o);
        TextSeries(graph, series, {column}, {yHigh + 0.06 * half}, {"Section Pitch"}, 4, labelSize * 0.7, 0,
                   o);
        std::vector<double> radii;
        for (int k : outline.rows) {
            radii.push_back(b->RadialPos(k));
        }
        CreateRRLine(graph, series, ruler, 0.03 * span, half, radii, true, o);

        graph.AutoAxes(0, 0, ruler - 0.12 * span, column + 0.3 * span, yLow, yHigh + 0.1 * half, 0, -1, -1, 0,
                       0, false, false, 8.75);
        graph.TitleGraph("Local Pitch Map [ Blade " + std::to_string(blade + 1) + " ]", 3, o.fontName,
                         labelSize);
        graph.PlotAll();
        graph.Refresh();
    });
}

} // namespace corvane
