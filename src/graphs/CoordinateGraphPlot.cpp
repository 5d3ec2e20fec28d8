// clsCoordinateGraph: plotting of the series (areas, porcupines, lines, markers) and the curves
// behind them.

#include "graphs/clsCoordinateGraph.h"

#include "geometry/clsSplineFit.h"
#include "graphs/GraphColours.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane {

namespace {

constexpr double kLineLabelOffset = 120.0; // twips
constexpr double kTwoPi = 6.28318530717959;
// Points drawn along each Bezier segment of a splined curve.
constexpr int kStepsPerSegment = 8;

void HalfRange(const std::vector<double>& v, double& half) {
    const auto [lo, hi] = std::minmax_element(v.begin(), v.end());
    half = (*hi - *lo) / 2;
}

// The curve through the points by the program's spline, drawn from its control polygon; the
// points divided by `sx`, `sy` before the fit and multiplied back after. False when the fit gives
// nothing.
bool SplineThrough(const std::vector<double>& x, const std::vector<double>& y, double sx, double sy,
                   std::int16_t method, std::vector<double>& outX, std::vector<double>& outY) {
    clsSplineFit fit;
    fit.SetCount(static_cast<std::int32_t>(x.size()));
    fit.SetBaseShift(0);
    for (std::size_t i = 0; i < x.size(); ++i) {
        fit.SetX(static_cast<int>(i), x[i] / sx);
        fit.SetY(static_cast<int>(i), y[i] / sy);
    }
    double a = kSplineUnset, b = kSplineUnset, c = kSplineUnset, d = kSplineUnset;
    fit.MakeControlWithLinearSections(a, b, c, d, method);
    const std::vector<PointDouble>& control = fit.ControlPoints();
    const int segments = fit.count() - 1;
    if (segments < 1 || control.size() < static_cast<std::size_t>(3 * segments + 1)) {
        return false;
    }
    outX.clear();
    outY.clear();
    outX.push_back(control[0].X * sx);
    outY.push_back(control[0].Y * sy);
    for (int seg = 0; seg < segments; ++seg) {
        const PointDouble* p = &control[static_cast<std::size_t>(3 * seg)];
        for (int k = 1; k <= kStepsPerSegment; ++k) {
            const double u = static_cast<double>(k) / kStepsPerSegment;
            const double v = 1 - u;
            const double b0 = v * v * v, b1 = 3 * v * v * u, b2 = 3 * v * u * u, b3 = u * u * u;
            outX.push_back((b0 * p[0].X + b1 * p[1].X + b2 * p[2].X + b3 * p[3].X) * sx);
            outY.push_back((b0 * p[0].Y + b1 * p[1].Y + b2 * p[2].Y + b3 * p[3].Y) * sy);
        }
    }
    return outX.size() > 1;
}

// Liang-Barsky: the part of a segment inside the rectangle; false when none.
bool ClipSegment(PointD& a, PointD& b, double xMin, double xMax, double yMin, double yMax) {
    double t0 = 0, t1 = 1;
    const double dx = b.X - a.X, dy = b.Y - a.Y;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {a.X - xMin, xMax - a.X, a.Y - yMin, yMax - a.Y};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) {
                return false;
            }
            continue;
        }
        const double r = q[i] / p[i];
        if (p[i] < 0) {
            t0 = std::max(t0, r);
        } else {
            t1 = std::min(t1, r);
        }
    }
    if (t0 > t1) {
        return false;
    }
    const PointD start = a;
    a = {start.X + t0 * dx, start.Y + t0 * dy};
    b = {start.X + t1 * dx, start.Y + t1 * dy};
    return true;
}

} // namespace

void clsCoordinateGraph::SplineLine(DataSeriesRecord& s, double resolution) {
    ErrorTail tail("splining internal values for line ");
    const std::size_t n = s.LineX.size();
    if (n < 3) {
        s.LineSplined = 0;
    }
    if (n < 2) {
        s.LineOn = false;
    }
    if (n < 1) {
        return;
    }
    s.SplinedX = s.LineX;
    s.SplinedY = s.LineY;
    if (s.LineSplined == 0) {
        return;
    }
    tail.Step([&] {
        double hx = 0, hy = 0;
        HalfRange(s.LineX, hx);
        HalfRange(s.LineY, hy);
        std::vector<double> x, y;
        if (SplineThrough(s.LineX, s.LineY, hx != 0 ? hx : 1, hy != 0 ? hy : 1,
                          static_cast<std::int16_t>(resolution), x, y)) {
            s.SplinedX = std::move(x);
            s.SplinedY = std::move(y);
        }
    });
}

void clsCoordinateGraph::SplineArea(DataSeriesRecord& s) {
    ErrorTail tail("splining internal values for area ");
    s.AreaSplinedX = s.AreaX;
    s.AreaSplinedY = s.AreaY;
    if (s.AreaSplined == 0 || s.AreaX.size() < 3) {
        return;
    }
    tail.Step([&] {
        std::vector<double> x, y;
        if (SplineThrough(s.AreaX, s.AreaY, 1, 1, 3, x, y)) {
            s.AreaSplinedX = std::move(x);
            s.AreaSplinedY = std::move(y);
        }
    });
}

void clsCoordinateGraph::PlotLine(int index, double resolution) {
    ErrorTail tail("plotting line " + std::to_string(index));
    tail.Step([&] {
        if (surface_ == nullptr || index < 0 || index >= DataSeriesCount()) {
            return;
        }
        DataSeriesRecord& s = series_[static_cast<std::size_t>(index)];
        if (!s.Enabled) {
            return;
        }
        if (s.LineX.size() >= 2 && s.LineWidth != 0 && s.LineOn) {
            SplineLine(s, resolution);
            const double mx = (xMax_ - xMin_) * 0.025;
            const double my = (yMax_ - yMin_) * 0.025;
            s.LinePieces =
                CutAtBounds(s.SplinedX, s.SplinedY, xMin_ - mx, xMax_ + mx, yMin_ - my, yMax_ + my);
            if (s.SplinedX.size() > 1) {
                for (const CurvePiece& piece : s.LinePieces) {
                    if (drawingMode_ == 0) {
                        surface_->DrawWidth = s.LineWidth;
                        surface_->DrawStyle = s.LineDashStyle;
                        surface_->ForeColor = static_cast<std::uint32_t>(s.LineColor);
                        for (std::size_t i = 1; i < piece.X.size(); ++i) {
                            const PointD a = WorldToTwips(piece.X[i - 1], piece.Y[i - 1]);
                            const PointD b = WorldToTwips(piece.X[i], piece.Y[i]);
                            surface_->Line(a.X, a.Y, b.X, b.Y);
                        }
                        continue;
                    }
                    if (s.LineDashStyle == 5) {
                        return; // an invisible line ends the series: no label either
                    }
                    if (s.LineDashStyle == 0) {
                        std::vector<PointF> points(piece.X.size());
                        for (std::size_t i = 0; i < points.size(); ++i) {
                            points[i] = ToPixels(piece.X[i], piece.Y[i]);
                        }
                        const auto pen =
                            layer_.CreatePen(BGRToARGB(s.LineColor, 255), static_cast<float>(s.LineWidth));
                        layer_.DrawLines(graphics_, pen, points.data(), static_cast<int>(points.size()));
                        layer_.DestroyPen(pen);
                    } else {
                        std::vector<PointD> twips(piece.X.size());
                        for (std::size_t i = 0; i < twips.size(); ++i) {
                            twips[i] = WorldToTwips(piece.X[i], piece.Y[i]);
                        }
                        DrawDashed(twips, s.LineDashStyle, s.LineWidth, s.LineColor);
                    }
                }
            }
        }
        if (s.LineLabelOn) {
            PlaceLabel(s.LineLabelText, s.LineLabelX, s.LineLabelY, s.LineLabelAlign, kLineLabelOffset,
                       s.LineLabelFont, s.LineLabelSize,
                       s.LineLabelColor < 0 ? s.LineColor : s.LineLabelColor);
        }
    });
}

void clsCoordinateGraph::DrawDashed(const std::vector<PointD>& twips, int style, int width, Colour colour) {
    ErrorTail tail("drawing dashed line");
    tail.Step([&] {
        const float tpp = static_cast<float>(TwipsPerPixel());
        const float halfWidth = static_cast<float>(width) / 2;
        std::vector<PointF> dashes;
        DashedWalk(twips, style, [&](PointD a, PointD b) {
            dashes.push_back({static_cast<float>(a.X) / tpp, static_cast<float>(a.Y) / tpp});
            dashes.push_back({static_cast<float>(b.X) / tpp, static_cast<float>(b.Y) / tpp});
        });
        const auto pen = layer_.CreatePen(BGRToARGB(colour, 255), 2 * halfWidth);
        layer_.DrawSegments(graphics_, pen, dashes.data(), static_cast<int>(dashes.size()));
        layer_.DestroyPen(pen);
    });
}

void clsCoordinateGraph::PlotMarker(int index) {
    ErrorTail tail("plotting marker " + std::to_string(index));
    tail.Step([&] {
        if (surface_ == nullptr || index < 0 || index >= DataSeriesCount()) {
            return;
        }
        const DataSeriesRecord& s = series_[static_cast<std::size_t>(index)];
        if (!s.Enabled || !s.MarkerOn || s.MarkerX.empty() || s.MarkerSize <= 0 || s.MarkerWidth <= 0) {
            return;
        }
        // A lone marker at the origin is what an empty data set leaves behind.
        if (s.MarkerX.size() == 1 && s.MarkerX[0] == 0 && s.MarkerY[0] == 0) {
            return;
        }
        const double mx = (xMax_ - xMin_) * 0.025;
        const double my = (yMax_ - yMin_) * 0.025;
        const double offset = s.MarkerSize * TwipsPerPixel();
        for (std::size_t i = 0; i < s.MarkerX.size(); ++i) {
            const double x = s.MarkerX[i];
            const double y = s.MarkerY[i];
            if (!(x >= xMin_ - mx && x <= xMax_ + mx && y >= yMin_ - my && y <= yMax_ + my)) {
                continue;
            }
            if (s.MarkerType != -1 && s.MarkerDrawStyle != 5) {
                DrawShape(s, x, y);
            }
            if (s.MarkerLabelOn == 1 && i < s.MarkerLabels.size()) {
                PlaceLabel(s.MarkerLabels[i], x, y, s.MarkerLabelAlign, offset, s.MarkerLabelFont,
                           s.MarkerLabelSize, s.MarkerLabelColor < 0 ? s.MarkerColor : s.MarkerLabelColor);
            }
        }
    });
}

void clsCoordinateGraph::DrawShape(const DataSeriesRecord& s, double wx, double wy) {
    const std::vector<PointD>& unit = MarkerShape(s.MarkerType);
    if (unit.empty()) {
        return;
    }
    const double tpp = TwipsPerPixel();
    const double size = s.MarkerSize * tpp; // twips
    PointD centre = WorldToTwips(wx, wy);
    const bool triangle = s.MarkerType == 1 || s.MarkerType == 2;
    if (triangle) {
        // Moved so that the triangle's weight, not its box, sits on the point.
        centre.Y += (s.MarkerType == 1 ? 1 : -1) * size / 8;
    }
    if (drawingMode_ == 0) {
        surface_->DrawWidth = s.MarkerWidth;
        surface_->DrawStyle = 0;
        surface_->ForeColor = static_cast<std::uint32_t>(s.MarkerColor);
        for (std::size_t i = 0; i < unit.size(); ++i) {
            const PointD& a = unit[i];
            const PointD& b = unit[(i + 1) % unit.size()];
            surface_->Line(centre.X + size * a.X, centre.Y - size * a.Y, centre.X + size * b.X,
                           centre.Y - size * b.Y);
        }
        return;
    }
    const double cx = std::round(centre.X / tpp);
    const double cy = std::round(centre.Y / tpp);
    std::vector<PointF> points(unit.size());
    for (std::size_t i = 0; i < unit.size(); ++i) {
        const double uy = triangle ? unit[i].Y * 0.9 : unit[i].Y;
        const double dx = s.MarkerSize * unit[i].X;
        const double dy = s.MarkerSize * uy;
        if (s.MarkerType == 4) {
            points[i] = {static_cast<float>(cx + dx), static_cast<float>(cy - dy)};
        } else {
            points[i] = {static_cast<float>(cx + std::round(dx)), static_cast<float>(cy - std::round(dy))};
        }
    }
    const float width = s.MarkerWidth == 1 ? 1.0f : 0.8f * static_cast<float>(s.MarkerWidth);
    const auto pen = layer_.CreatePen(BGRToARGB(s.MarkerColor, 255), width);
    const Colour fill = s.MarkerFillColor == -1 ? s.LineColor : s.MarkerFillColor;
    const auto brush = layer_.CreateSolidBrush(BGRToARGB(fill, s.MarkerOpacity));
    layer_.DrawPolygon(graphics_, points.data(), static_cast<int>(points.size()), 0, pen, 0, brush);
    layer_.DestroyPen(pen);
    layer_.DestroyBrush(brush);
}

void clsCoordinateGraph::PlotArea(int index) {
    ErrorTail tail("plotting area for line " + std::to_string(index));
    tail.Step([&] {
        if (surface_ == nullptr || index < 0 || index >= DataSeriesCount() || drawingMode_ != 1) {
            return;
        }
        DataSeriesRecord& s = series_[static_cast<std::size_t>(index)];
        if (!s.Enabled || !s.AreaOn || s.AreaX.size() < 2) {
            return;
        }
        SplineArea(s);
        if (s.AreaSplinedX.size() <= 1) {
            return;
        }
        std::vector<PointF> points(s.AreaSplinedX.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            points[i] = ToPixels(s.AreaSplinedX[i], s.AreaSplinedY[i]);
        }
        // The ends drop to Y = 0, or to the plot's edge when 0 lies outside it, so that a
        // filled bar never spreads over the axis labels.
        const float base = ToPixels(0, std::clamp(0.0, yMin_, yMax_)).Y;
        points.front().Y = base;
        points.back().Y = base;
        const auto brush = layer_.CreateSolidBrush(BGRToARGB(s.AreaColor, s.AreaOpacity));
        const auto pen = layer_.CreatePen(BGRToARGB(s.AreaColor, 255), static_cast<float>(s.LineWidth));
        layer_.DrawPolygon(graphics_, points.data(), static_cast<int>(points.size()), 0, pen,
                           BGRToARGB(s.LineColor, 255), brush);
        layer_.DestroyPen(pen);
        layer_.DestroyBrush(brush);
    });
}

void clsCoordinateGraph::PorcupineSpike(const DataSeriesRecord& s, double x, double y, double angle,
                                        double length) {
    PointD a{x, y};
    PointD b{x + length * std::cos(angle), y + length * std::sin(angle)};
    if (!ClipSegment(a, b, xMin_, xMax_, yMin_, yMax_)) {
        return;
    }
    const PointF pa = ToPixels(a.X, a.Y);
    const PointF pb = ToPixels(b.X, b.Y);
    const auto pen = layer_.CreatePen(BGRToARGB(s.PorcupineColor, 255), static_cast<float>(s.PorcupineWidth));
    const PointF points[2] = {pa, pb};
    layer_.DrawLines(graphics_, pen, points, 2);
    layer_.DestroyPen(pen);
}

void clsCoordinateGraph::PlotPorcupine(int index, double resolution) {
    (void)resolution;
    ErrorTail tail("plotting porcupine " + std::to_string(index) + " for line " + std::to_string(index));
    tail.Step([&] {
        if (surface_ == nullptr || index < 0 || index >= DataSeriesCount()) {
            return;
        }
        DataSeriesRecord& s = series_[static_cast<std::size_t>(index)];
        const std::size_t n = s.PorcupineX.size();
        if (!s.Enabled || n < 1 || s.LineWidth == 0) {
            return;
        }
        if (n < 3) {
            s.PorcupineSplined = 0;
        }
        if (n < 2) {
            s.PorcupineOn = false;
        }
        if (!s.PorcupineOn || drawingMode_ != 1 || s.PorcupineDashStyle != 0) {
            return;
        }
        clsSplineFit shape, length;
        shape.SetCount(static_cast<std::int32_t>(n));
        length.SetCount(static_cast<std::int32_t>(n));
        for (std::size_t i = 0; i < n; ++i) {
            shape.SetX(static_cast<int>(i), s.PorcupineX[i]);
            shape.SetY(static_cast<int>(i), s.PorcupineY[i]);
            length.SetX(static_cast<int>(i), s.PorcupineX[i]);
            length.SetY(static_cast<int>(i), s.PorcupineLength[i]);
        }
        double a = kSplineUnset, b = kSplineUnset, c = kSplineUnset, d = kSplineUnset;
        shape.MakeControlWithLinearSections(a, b, c, d, clsSplineFit::kSpacingAlongX);
        a = b = c = d = kSplineUnset;
        length.MakeControlWithLinearSections(a, b, c, d, clsSplineFit::kSpacingAlongX);
        // Normal direction at x: the slope angle of the curve turned a quarter, in (0, 2 pi].
        const auto normal = [&](double x) {
            double tangent = 0, curvature = kSplineUnset, y = 0;
            shape.EvalAtX(x, tangent, curvature, y);
            double angle = tangent + kTwoPi / 4;
            while (angle > kTwoPi) {
                angle -= kTwoPi;
            }
            while (angle <= 0) {
                angle += kTwoPi;
            }
            return angle;
        };
        const auto dataY = [&](double x) {
            for (std::size_t i = 1; i < n; ++i) {
                const double x0 = s.PorcupineX[i - 1], x1 = s.PorcupineX[i];
                if ((x - x0) * (x - x1) <= 0 && x1 != x0) {
                    return s.PorcupineY[i - 1] +
                           (s.PorcupineY[i] - s.PorcupineY[i - 1]) * (x - x0) / (x1 - x0);
                }
            }
            return s.PorcupineY.back();
        };
        const int mode = s.PorcupineMode;
        if (mode == 0 || mode == 2) {
            for (std::size_t i = 0; i < n; ++i) {
                if (mode == 2 && i + 1 < n) {
                    const double xm = (s.PorcupineX[i] + s.PorcupineX[i + 1]) / 2;
                    const double ym = s.PorcupineSplined == 1 ? shape.EvalAtX(xm)
                                                              : (s.PorcupineY[i] + s.PorcupineY[i + 1]) / 2;
                    PorcupineSpike(s, s.PorcupineX[i], s.PorcupineY[i], normal(s.PorcupineX[i]),
                                   s.PorcupineLength[i]);
                    PorcupineSpike(s, xm, ym, normal(xm), length.EvalAtX(xm));
                } else {
                    PorcupineSpike(s, s.PorcupineX[i], s.PorcupineY[i], normal(s.PorcupineX[i]),
                                   s.PorcupineLength[i]);
                }
            }
        } else if (mode == 1) {
            for (std::size_t i = 0; i + 1 < n; ++i) {
                const double xm = (s.PorcupineX[i] + s.PorcupineX[i + 1]) / 2;
                const double ym =
                    s.PorcupineSplined == 1 ? shape.EvalAtX(xm) : (s.PorcupineY[i] + s.PorcupineY[i + 1]) / 2;
                PorcupineSpike(s, xm, ym, normal(xm), length.EvalAtX(xm));
            }
        } else if ((mode == 3 || mode == 4) && s.PorcupinePointCount > 1) {
            const int count = s.PorcupinePointCount;
            std::vector<double> xs, curvature;
            for (int i = 0; i <= count; ++i) {
                double x = 0, y = 0, tangent = kSplineUnset, curve = kSplineUnset;
                shape.EvalAtT(static_cast<double>(i) / count, x, y, tangent, curve);
                xs.push_back(x);
                // y'' by central differences on the fitted curve.
                const double h = std::max(1e-6, std::fabs(s.PorcupineX.back() - s.PorcupineX.front()) * 1e-4);
                const double y0 = shape.EvalAtX(x - h), y1 = shape.EvalAtX(x), y2 = shape.EvalAtX(x + h);
                const double d1 = (y2 - y0) / (2 * h);
                const double d2 = (y2 - 2 * y1 + y0) / (h * h);
                curvature.push_back(d1 == 0 ? y1 : -d2 / std::pow(1 + d1 * d1, 1.5));
            }
            double largest = 0;
            for (double k : curvature) {
                largest = std::max(largest, std::fabs(k));
            }
            const double scale = largest > 0 ? 1 / largest : 0;
            for (std::size_t i = 0; i < xs.size(); ++i) {
                const double x = xs[i];
                const double y = s.PorcupineSplined == 1 ? shape.EvalAtX(x) : dataY(x);
                const double len =
                    mode == 3 ? length.EvalAtX(x)
                              : curvature[i] * (s.PorcupineScale > 0 ? scale * s.PorcupineScale : scale);
                PorcupineSpike(s, x, y, normal(x), len);
            }
        }
    });
}

} // namespace corvane
