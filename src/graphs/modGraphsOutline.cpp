#include "graphs/modGraphsOutline.h"

#include "graphs/clsCoordinateGraph.h"
#include "graphs/modGraphsMap.h"
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

constexpr double kPi = 3.14159265358979;
constexpr double kNudge = 0.9999999999;
constexpr int kArcPoints = 11;

bool Measured(const clsBlades& blade, int k) {
    auto& b = const_cast<clsBlades&>(blade);
    return k < b.SectionCount() && b.Section(k)->RawOffsetCount() > 1 && b.RadialPos(k) > 0 && b.Chord(k) > 0;
}

template <class Place>
OutlinePoints Outline(const clsPropeller& propeller, int blade, double half, Place place) {
    OutlinePoints o;
    if (blade < 0 || blade >= propeller.BladeCount() || !(half > 0)) {
        return o;
    }
    const auto b = propeller.Blades(blade);
    for (int k = 0; k < b->SectionCount(); ++k) {
        if (!Measured(*b, k)) {
            continue;
        }
        o.rows.push_back(k);
        place(*b, k, b->RadialPos(k) * half, o);
    }
    return o;
}

} // namespace

OutlinePoints CreateOutlinePoints(int side, const clsPropeller& propeller, int blade, double half) {
    ErrorTail tail("creating outline points for projected view");
    OutlinePoints out;
    tail.Step([&] {
        out = Outline(propeller, blade, half, [side](const clsBlades& b, int k, double r, OutlinePoints& o) {
            const double skew = b.SkewHelix(k), chord = b.Chord(k);
            const double beta = std::atan(b.Pitch(k) / (2 * kPi * r));
            const double mirror = side == 1 ? -1 : 1;
            // Along the chord from the leading edge: 0, C/2, C.
            const auto at = [&](double p, std::vector<double>& x, std::vector<double>& y) {
                const double q = -(chord / 2 - skew - p) * std::cos(beta) / r;
                x.push_back(-r * std::sin(q) * mirror);
                y.push_back(r * std::cos(q));
            };
            at(chord, o.teX, o.teY);
            at(chord / 2, o.midX, o.midY);
            at(0, o.leX, o.leY);
        });
    });
    return out;
}

OutlinePoints CreateFilteredOutlinePoints(int side, const clsPropeller& propeller, int blade, double half) {
    ErrorTail tail("creating filtered outline points");
    OutlinePoints out;
    tail.Step([&] {
        out = Outline(propeller, blade, half, [side](const clsBlades& b, int k, double r, OutlinePoints& o) {
            const double skew = b.SkewHelix(k), chord = b.Chord(k);
            const double mid = side == 1 ? skew : -skew;
            const double toTE = side == 1 ? chord / 2 : -chord / 2;
            o.teX.push_back(mid + toTE);
            o.midX.push_back(mid);
            o.leX.push_back(mid - toTE);
            o.teY.push_back(r);
            o.midY.push_back(r);
            o.leY.push_back(r);
        });
    });
    return out;
}

bool GetOutlineBounds(const GraphRequest& request, double& xLow, double& xHigh, double& yLow, double& yHigh) {
    ErrorTail tail("getting outline bounds for expanded view");
    bool seen = false;
    tail.Step([&] {
        const int side = request.project.RotationIndex();
        const double half = request.project.MarkedDiameter() / 2;
        const auto take = [&](const OutlinePoints& o) {
            for (const auto* xs : {&o.teX, &o.leX}) {
                for (double x : *xs) {
                    xLow = seen ? std::min(xLow, x) : x;
                    xHigh = seen ? std::max(xHigh, x) : x;
                    seen = true;
                }
            }
            for (double y : o.teY) {
                yLow = std::min(yLow, y);
                yHigh = std::max(yHigh, y);
            }
        };
        if (const clsPropeller* scan = RequestScan(request)) {
            for (int b = 0; b < scan->BladeCount(); ++b) {
                if (scan->Blades(b)->BladeEnabled() && BladeShown(request, b)) {
                    const OutlinePoints o = CreateFilteredOutlinePoints(side, *scan, b, half);
                    if (!o.teY.empty() && !seen) {
                        yLow = yHigh = o.teY.front();
                    }
                    take(o);
                }
            }
        }
        if (const clsPropeller* reference = RequestReference(request); reference != nullptr && seen) {
            take(CreateFilteredOutlinePoints(side, *reference, 0, half));
        }
    });
    return seen;
}

ArcProperties GetArcProperties(double x1, double y1, double x2, double y2, double x3, double y3) {
    ArcProperties a;
    ErrorTail tail("calculating three point arc properties");
    tail.Step([&] {
        const bool same12 = x1 == x2 && y1 == y2, same23 = x2 == x3 && y2 == y3,
                   same13 = x1 == x3 && y1 == y3;
        if (same12 || same23 || same13) {
            return;
        }
        if (x2 - x1 == 0) {
            x2 = x1 * kNudge;
        }
        if (x3 - x2 == 0) {
            x3 = x2 * kNudge;
        }
        const double m1 = (y2 - y1) / (x2 - x1);
        const double m2 = (y3 - y2) / (x3 - x2);
        if (m1 == m2 || !std::isfinite(m1) || !std::isfinite(m2)) {
            a.normalSlope = m1 == 0 ? -99999.0 : -1 / m1;
            return;
        }
        // Where the perpendicular bisectors of the two chords meet.
        double cx = (m1 * m2 * (y1 - y3) + m2 * (x1 + x2) - m1 * (x2 + x3)) / (2 * (m2 - m1));
        if (cx == x1 || cx == x2 || cx == x3) {
            cx *= kNudge;
        }
        const double cy =
            m1 != 0 ? -(cx - (x1 + x2) / 2) / m1 + (y1 + y2) / 2 : -(cx - (x2 + x3) / 2) / m2 + (y2 + y3) / 2;
        a.centreX = cx;
        a.centreY = cy;
        a.radius = std::sqrt((x1 - cx) * (x1 - cx) + (y1 - cy) * (y1 - cy));
        a.normalSlope = m1 == 0 ? -99999.0 : -1 / m1;
    });
    return a;
}

double GetYFromArc(double x1, double y1, double x2, double y2, double x3, double y3, double x) {
    double y = y2;
    ErrorTail tail("calculating Y from arc");
    tail.Step([&] {
        const ArcProperties a = GetArcProperties(x1, y1, x2, y2, x3, y3);
        if (a.radius == 0) {
            y = x3 != x1 ? y1 + (y3 - y1) * (x - x1) / (x3 - x1) : y2;
            return;
        }
        const double d = std::max(0.0, a.radius * a.radius - (x - a.centreX) * (x - a.centreX));
        y = y1 >= a.centreY ? a.centreY + std::sqrt(d) : a.centreY - std::sqrt(d);
    });
    return y;
}

namespace {

class RakeOutline {
public:
    RakeOutline(clsCoordinateGraph& graph, const GraphRequest& request)
        : graph_(graph), request_(request),
          style_(GraphStyleSettings(request.options.report, request.options.graphSize)) {
        labelSize_ = request.options.report ? style_.labelSize * 0.75 : style_.labelSize;
        side_ = request.project.RotationIndex();
        half_ = request.project.MarkedDiameter() / 2;
        expanded_ = request.options.zoom;
    }

    void Build() {
        const clsPropeller* scan = RequestScan(request_);
        if (scan == nullptr || !(half_ > 0)) {
            return;
        }
        const clsPropeller* reference = RequestReference(request_);
        rakeBase_ = -1.15 * half_;
        if (reference != nullptr) {
            Outline(*reference, 0, 1, style_.thinWidth, kReferenceColour, true);
            Rake(*reference, 0, 1, kReferenceColour, true);
        }
        for (int b = 0; b < scan->BladeCount(); ++b) {
            if (scan->Blades(b)->BladeEnabled() && BladeShown(request_, b)) {
                Outline(*scan, b, 0, style_.lineWidth, BladeColour(b),
                        reference == nullptr && b == FirstShown());
                Rake(*scan, b, 0, BladeColour(b), reference == nullptr && b == FirstShown());
                Marks(*scan, b);
            }
        }
        // The r/R ruler between the halves, at the middle of the width.
        std::vector<double> radii;
        if (const int first = FirstShown(); first >= 0) {
            const auto blade = scan->Blades(first);
            for (int k = 0; k < blade->SectionCount(); ++k) {
                if (RowShown(request_, k) && Measured(*blade, k)) {
                    radii.push_back(blade->RadialPos(k));
                }
            }
        }
        // The r/R ruler right of the outlines, its labels between them and it.
        CreateRRLine(graph_, series_, right_ + 0.25 * half_, 0.04 * half_, half_, radii, true,
                     request_.options);
    }

    int Series() const { return series_; }
    double RakeBase() const { return rakeBase_; }

private:
    int FirstShown() const {
        const clsPropeller* scan = RequestScan(request_);
        for (int b = 0; scan != nullptr && b < scan->BladeCount(); ++b) {
            if (scan->Blades(b)->BladeEnabled() && BladeShown(request_, b)) {
                return b;
            }
        }
        return -1;
    }

    int Line(const std::vector<double>& x, const std::vector<double>& y, int dash, int width,
             GraphColour colour, int splined = 0) {
        const int s = series_++;
        graph_.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
        graph_.SetLineStyle(s, splined, dash, width, colour);
        graph_.SetLineData(s, x, y);
        return s;
    }

    void Text(const std::vector<double>& x, const std::vector<double>& y,
              const std::vector<std::string>& texts, int align, GraphColour colour) {
        const int s = series_++;
        graph_.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
        graph_.SetMarkerStyle(s, -1, 5, style_.markerSize, 1, colour, -1, 1, align, request_.options.fontName,
                              labelSize_ * 0.8, colour, 255);
        graph_.SetMarkerData(s, x, y, texts);
    }

    void Outline(const clsPropeller& p, int blade, int dash, int width, GraphColour colour, bool captions) {
        const OutlinePoints o = expanded_ ? CreateFilteredOutlinePoints(side_, p, blade, half_)
                                          : CreateOutlinePoints(side_, p, blade, half_);
        if (o.rows.empty()) {
            return;
        }
        for (const auto* xs : {&o.teX, &o.midX, &o.leX}) {
            right_ = std::max(right_, *std::max_element(xs->begin(), xs->end()));
        }
        Line(o.teX, o.teY, dash, style_.thinWidth, colour);
        Line(o.leX, o.leY, dash, style_.thinWidth, colour);
        for (std::size_t i = 0; i < o.rows.size(); ++i) {
            std::vector<double> x, y;
            for (int j = 0; j < kArcPoints; ++j) {
                const double px = o.teX[i] + (o.leX[i] - o.teX[i]) * j / (kArcPoints - 1);
                x.push_back(px);
                y.push_back(GetYFromArc(o.teX[i], o.teY[i], o.midX[i], o.midY[i], o.leX[i], o.leY[i], px));
            }
            Line(x, y, dash, width, colour, 1);
        }
        if (captions) {
            Text({o.teX.front(), o.leX.front()}, {o.teY.front(), o.leY.front()}, {"TE", "LE"}, 4, colour);
            Text({o.leX.back(), o.midX.front()}, {o.leY.back(), o.midY.front()}, {"LE Skew", "Chord"}, 5,
                 colour);
        }
    }

    // The rake half: axial position of the ends and the centre line of each section over its
    // radius, drawn under the outline around the centre line's mean.
    void Rake(const clsPropeller& p, int blade, int dash, GraphColour colour, bool captions) {
        if (blade >= p.BladeCount()) {
            return;
        }
        const auto b = p.Blades(blade);
        std::vector<double> te, mid, le, r;
        for (int k = 0; k < b->SectionCount(); ++k) {
            if (!Measured(*b, k) || !RowShown(request_, k)) {
                continue;
            }
            const auto s = b->Section(k);
            te.push_back(s->SegmentAxialXTE());
            mid.push_back(b->ISOTotalAxialRakeToBCL(k));
            le.push_back(s->SegmentAxialXLE());
            r.push_back(rakeBase_ + b->RadialPos(k) * half_);
        }
        if (r.empty()) {
            return;
        }
        if (!centred_) {
            double sum = 0;
            for (double v : mid) {
                sum += v;
            }
            centre_ = sum / static_cast<double>(mid.size());
            centred_ = true;
        }
        for (auto* v : {&te, &mid, &le}) {
            for (double& x : *v) {
                x -= centre_;
            }
        }
        Line(te, r, dash, style_.thinWidth, colour);
        Line(le, r, dash, style_.thinWidth, colour);
        Line(mid, r, dash, dash == 0 ? style_.lineWidth : style_.thinWidth, colour);
        if (captions) {
            const double top = r.front(), edge = 0.3 * half_;
            Text({-edge, edge, mid.front()}, {top, top, top}, {"FWD ", "AFT ", "Rake BCL"}, 4, 0);
        }
    }

    // Blade numbers boxed where a chord or a leading edge is outside its window; rake windows.
    void Marks(const clsPropeller& scan, int b) {
        const bool reference = RequestReference(request_) != nullptr;
        const double tolerance = FormatTolerance(LengthFormat(request_.project));
        const OutlinePoints o = expanded_ ? CreateFilteredOutlinePoints(side_, scan, b, half_)
                                          : CreateOutlinePoints(side_, scan, b, half_);
        std::vector<double> x, y;
        std::vector<std::string> texts;
        std::vector<double> rx, ry;
        const std::string number = std::to_string(b + 1);
        for (std::size_t i = 0; i < o.rows.size(); ++i) {
            const int k = o.rows[i];
            const ISOSectionResults* r = SectionResults(request_, b, k);
            if (r == nullptr || !RowShown(request_, k)) {
                continue;
            }
            if (OutsideWindow(r->ChordLength, tolerance, reference)) {
                x.push_back(o.midX[i]);
                y.push_back(o.midY[i]);
                texts.push_back(Bracketed(number, "", true));
            }
            if (OutsideWindow(r->LEPosition, tolerance, reference)) {
                x.push_back(o.leX[i]);
                y.push_back(o.leY[i]);
                texts.push_back(Bracketed(number, "", true));
            }
            if (reference && scan.ScanDrop() != 2) {
                const double radius = rakeBase_ + scan.Blades(b)->RadialPos(k) * half_;
                rx.insert(rx.end(), {r->RakePosition.Lower - centre_, r->RakePosition.Upper - centre_});
                ry.insert(ry.end(), {radius, radius});
            }
        }
        if (!x.empty()) {
            Text(x, y, texts, 8, BladeColour(b));
        }
        if (!rx.empty()) {
            const int s = series_++;
            graph_.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
            graph_.SetMarkerStyle(s, 6, 0, 10, 1, BladeColour(b), BladeColour(b), 0, 2, "", -1, -1, 255);
            graph_.SetMarkerData(s, rx, ry);
        }
    }

    clsCoordinateGraph& graph_;
    const GraphRequest& request_;
    GraphStyle style_;
    double labelSize_ = 12;
    int side_ = 0;
    double half_ = 0;
    bool expanded_ = false;
    int series_ = 0;
    double rakeBase_ = 0;
    double centre_ = 0;
    bool centred_ = false;
    double right_ = 0; // the outlines' right edge
};

} // namespace

void CreateRakeOutlineGraph(DrawingSurface& surface, const GraphRequest& request) {
    ErrorTail tail("creating Rake and Outline graph");
    tail.Step([&] {
        clsCoordinateGraph graph;
        graph.SetDefaultFont(request.options.fontName, request.options.fontSize);
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, 1, kWhite);
        graph.SetPercentWindow(0, 0, 1, 1);
        // A report page keeps its lower half for the tables drawn under the graph.
        graph.SetWin2PlotRatio(0.05, 0.05, 0.05, request.options.report ? 0.5 : 0.05);
        graph.SetGraphConfiguration(false, 1);
        RakeOutline view(graph, request);
        view.Build();
        double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
        graph.DetectAxisBounds(xMin, xMax, yMin, yMax);
        if (xMin == xMax && yMin == yMax) {
            xMin = -1, xMax = 1, yMin = -1, yMax = 1;
        }
        xMax += (xMax - xMin) * 0.5 / 2;
        graph.EqualAxes(3, 1, xMin, xMax, yMin, yMax, false, -1, -1, false, 0, 0, false, -1);
        graph.PlotAll();
        graph.Refresh();
    });
}

} // namespace corvane
