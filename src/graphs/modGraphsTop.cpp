#include "graphs/modGraphsTop.h"

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
#include <vector>

namespace corvane {

namespace {

constexpr double kDegToRad = 3.14159265358979 / 180.0;
// ISO class index of class III, which does not judge local pitch.
constexpr int kClassIII = 4;
// Marks along the arc of a panel out of its window.
constexpr int kMarksPerPanel = 3;

struct Points {
    std::vector<double> x, y;
    void Add(double r, double angleDeg) {
        x.push_back(r * std::sin(angleDeg * kDegToRad));
        y.push_back(r * std::cos(angleDeg * kDegToRad));
    }
};

class TopView {
public:
    TopView(clsCoordinateGraph& graph, const GraphRequest& request, const GraphStyle& style, double labelSize)
        : graph_(graph), request_(request), style_(style), labelSize_(labelSize),
          tolerance_(FormatTolerance(LengthFormat(request.project))) {}

    void Build() {
        scan_ = RequestScan(request_);
        if (scan_ == nullptr) {
            return;
        }
        reference_ = RequestReference(request_) != nullptr;
        const int n = scan_->BladeCount();
        scale_ = request_.options.zoom ? (360.0 - n * 10.0) / 360.0 : 1.0;
        half_ = request_.project.MarkedDiameter() / 2;
        std::vector<int> shown;
        for (int b = 0; b < n; ++b) {
            if (scan_->Blades(b)->BladeEnabled() && BladeShown(request_, b)) {
                Blade(b);
                shown.push_back(b);
            }
        }
        Labels(shown);
    }

private:
    // The angle a blade's point is drawn at: narrowed about the blade's generator line.
    double Angle(int blade, double thetaDeg) const {
        const double gl = scan_->Blades(blade)->GLPositionThetaDeg();
        return gl + Wrap180(thetaDeg - gl) * scale_;
    }

    int NewSeries() { return series_++; }

    void Line(const Points& p, int dash, int width, GraphColour colour, int splined = 0) {
        const int s = NewSeries();
        graph_.SetDataSeriesConfiguration(s, true, true, false, false, false, false, false);
        graph_.SetLineStyle(s, splined, dash, width, colour);
        graph_.SetLineData(s, p.x, p.y);
    }

    void Markers(const Points& p, GraphColour outline, GraphColour fill, int opacity) {
        if (p.x.empty()) {
            return;
        }
        const int s = NewSeries();
        graph_.SetDataSeriesConfiguration(s, true, false, true, false, false, false, false);
        graph_.SetMarkerStyle(s, 4, 0, style_.markerSize, 1, outline, fill, 0, 2, "", -1, -1, opacity);
        graph_.SetMarkerData(s, p.x, p.y);
    }

    void Label(const std::string& text, double r, double angleDeg, int code, GraphColour colour) {
        const int s = NewSeries();
        graph_.SetDataSeriesConfiguration(s, true, false, false, false, true, false, false);
        graph_.SetLineStyle(s, 0, 0, style_.lineWidth, colour);
        graph_.SetLineLabelData(s, text, r * std::sin(angleDeg * kDegToRad),
                                r * std::cos(angleDeg * kDegToRad), code, request_.options.fontName,
                                labelSize_, colour);
    }

    void Blade(int b) {
        const auto blade = scan_->Blades(b);
        const GraphColour colour = BladeColour(b);
        const double gl = blade->GLPositionThetaDeg();
        Points te, bcl, le, low, high;
        double hub = 1.0;
        for (int k = 0; k < blade->SectionCount(); ++k) {
            const auto section = blade->Section(k);
            const int count = section->RawOffsetCount();
            if (count <= 0 || !(section->SegmentChord() > 0) || !RowShown(request_, k) || !(half_ > 0)) {
                continue;
            }
            Points arc;
            for (int i = 0; i < count; ++i) {
                arc.Add(section->Radius(i) / half_, Angle(b, section->ThetaDeg(i)));
            }
            Line(arc, 0, style_.lineWidth, colour);
            const double r = blade->RadialPos(k) > 0 ? blade->RadialPos(k) : section->Radius(0) / half_;
            hub = std::min(hub, r);
            te.Add(r, Angle(b, gl + section->SegmentThetaTE()));
            bcl.Add(r, Angle(b, gl + section->SegmentThetaBCL()));
            le.Add(r, Angle(b, gl + section->SegmentThetaLE()));
            Panels(b, k, r, gl + section->SegmentThetaTE(), gl + section->SegmentThetaLE(), low, high);
        }
        Markers(low, colour, kWhite, 255);
        Markers(high, colour, colour, 255);
        // The blade's reference line at its effective angle, from inside the hub row to the rim.
        Points axis;
        const double angle = Angle(b, blade->ISOEffectiveBladeAngleDeg());
        axis.Add(std::max(hub, 0.1) - 0.1, angle);
        axis.Add(1.0, angle);
        Line(axis, 1, style_.thinWidth, colour, 1);
        for (const Points* curve : {&te, &bcl, &le}) {
            Line(*curve, 2, style_.thinWidth, kReferenceColour);
        }
    }

    // Marks of the panels of one section that lie outside their local pitch window.
    void Panels(int b, int k, double r, double teDeg, double leDeg, Points& low, Points& high) {
        const ISOSectionResults* results = SectionResults(request_, b, k);
        if (!reference_ || results == nullptr || request_.iso.ISOClassIndex() == kClassIII) {
            return;
        }
        const int panels = static_cast<int>(results->LocalPitch.size());
        const double lowSteps = request_.options.zoom ? 0.6 : 2.5;
        const double highSteps = request_.options.zoom ? 0.6 : 1.5;
        Points boundary;
        double last = -1e300;
        for (int j = 0; j < panels; ++j) {
            const ISOWindow& w = results->LocalPitch[static_cast<std::size_t>(j)];
            const bool isLow = w.Value < w.Lower - lowSteps * tolerance_;
            const bool isHigh = w.Value > w.Upper + highSteps * tolerance_;
            if (w.Lower == w.Upper || !(isLow || isHigh)) {
                continue;
            }
            const double start = teDeg + (leDeg - teDeg) * j / panels;
            const double end = teDeg + (leDeg - teDeg) * (j + 1) / panels;
            if (start != last) {
                boundary.Add(r, Angle(b, start));
            }
            boundary.Add(r, Angle(b, end));
            last = end;
            double from = Wrap360(std::min(start, end) + 180);
            double to = Wrap360(std::max(start, end) + 180);
            if (to - from > 0 && to - from < 360) {
                for (int m = 1; m <= kMarksPerPanel; ++m) {
                    const double a = from + (to - from) * m / (kMarksPerPanel + 1) - 180;
                    (isLow ? low : high).Add(r, Angle(b, a));
                }
            }
        }
        Markers(boundary, 0, 0, 150);
    }

    // Spacing between neighbours, blade pitch, spacing deviation, blade number, propeller pitch.
    void Labels(const std::vector<int>& shown) {
        const int n = scan_->BladeCount();
        const double nominal = 360.0 / n;
        const std::string& format = LengthFormat(request_.project);
        for (std::size_t i = 0; shown.size() > 1 && i < shown.size(); ++i) {
            const int b = shown[i];
            const int next = shown[(i + 1) % shown.size()];
            const double e1 = Angle(b, scan_->Blades(b)->ISOEffectiveBladeAngleDeg());
            const double e2 = Angle(next, scan_->Blades(next)->ISOEffectiveBladeAngleDeg());
            const double mid = Atan2YX((std::sin(e1 * kDegToRad) + std::sin(e2 * kDegToRad)) / 2,
                                       (std::cos(e1 * kDegToRad) + std::cos(e2 * kDegToRad)) / 2) /
                               kDegToRad;
            const double raw1 = scan_->Blades(b)->ISOEffectiveBladeAngleDeg();
            const double raw2 = scan_->Blades(next)->ISOEffectiveBladeAngleDeg();
            double d = Wrap360(std::max(raw1, raw2) - std::min(raw1, raw2));
            if (d > 1.5 * nominal) {
                d = Wrap360(std::min(raw1, raw2) - std::max(raw1, raw2));
            }
            Label(FormatNumber(d, "0.0"), 0.925, mid, 8, 0);
        }
        for (int b : shown) {
            const auto blade = scan_->Blades(b);
            const double e = Angle(b, blade->ISOEffectiveBladeAngleDeg());
            const ISOBladeResults* results = BladeResults(request_, b);
            const ISOWindow pitch =
                results != nullptr ? results->BladeMeanPitch : ISOWindow{0, 0, blade->ISOBladePitch(), true};
            Label(Bracketed(FormatNumber(pitch.Value, format), " P",
                            OutsideWindow(pitch, tolerance_, reference_)),
                  1.05, e, 4, 0);
            if (results != nullptr && results->BladeSpacing) {
                const ISOWindow& spacing = *results->BladeSpacing;
                Label(Bracketed(FormatNumber(spacing.Value, "0.0"), "",
                                OutsideWindow(spacing, 0.00001, reference_)),
                      1.05, e, 5, 0);
            }
            Label(FormatNumber(b + 1, "0"), 0.2, e, BladeLabelCode(e, false), BladeColour(b));
        }
        const ISOWindow& mean = request_.iso.Results().PropellerMeanPitch;
        const double value = request_.iso.Results().Blades.empty() ? scan_->ISOPropellerPitch() : mean.Value;
        Label(Bracketed(FormatNumber(value, format), " P", OutsideWindow(mean, tolerance_, reference_)), 0, 0,
              8, 0);
    }

    clsCoordinateGraph& graph_;
    const GraphRequest& request_;
    GraphStyle style_;
    double labelSize_;
    double tolerance_;
    const clsPropeller* scan_ = nullptr;
    bool reference_ = false;
    double scale_ = 1;
    double half_ = 0;
    int series_ = 0;
};

} // namespace

void CreateTopGraph(DrawingSurface& surface, const GraphRequest& request) {
    ErrorTail tail("Creating Top Graph");
    tail.Step([&] {
        const GraphOptions& options = request.options;
        const GraphStyle style = GraphStyleSettings(options.report, options.graphSize);
        const double labelSize = options.report ? style.labelSize * 0.75 : style.labelSize;
        clsCoordinateGraph graph;
        graph.SetDefaultFont(options.fontName, options.fontSize);
        graph.ClearAllDataSeries();
        graph.CreateGraph(surface, 1, kWhite);
        graph.SetPercentWindow(0, 0, 1, 1);
        graph.SetWin2PlotRatio(0.1, 0.08, 0.1, 0.08);
        graph.SetGraphConfiguration(false, 1);
        TopView(graph, request, style, labelSize).Build();
        graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, true, 0, 0, false, -1);
        if (!options.report) {
            graph.TitleGraph(kTopViewCaption, 2, options.fontName, labelSize);
        }
        graph.PlotAll();
        graph.Refresh();
    });
}

} // namespace corvane
