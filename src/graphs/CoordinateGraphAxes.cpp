// clsCoordinateGraph: bounds, axes, ticks, grid, axis labels, the views (zoom, window, pan) and
// the conversions between the world and the viewport.

#include "graphs/clsCoordinateGraph.h"

#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

// Ticks are a tenth, label ticks a fifth of this unit of twips.
constexpr double kTickUnit = 600.0;
constexpr double kAxisFontSize = 8.75;
constexpr clsCoordinateGraph::Colour kGridColour = 0xBABABA;
constexpr clsCoordinateGraph::Colour kZeroGridColour = 0x404040;

void SwapCodes(int& direction, int a, int b) {
    if (direction == a) {
        direction = b;
    } else if (direction == b) {
        direction = a;
    }
}

// Spreads degenerate bounds: a single point or equal ends become half and one and a half times.
void Spread(int pointCount, double& lo, double& hi) {
    if (pointCount == 1 || lo == hi) {
        lo *= 0.5;
        hi *= 1.5;
    }
}

void Snap(double& lo, double& hi, double step) {
    const double label = 5 * step;
    if (!(label > 0)) {
        return;
    }
    hi = label * std::round(hi / label + 0.499999999999999);
    lo = label * std::round(lo / label - 0.499999999999999);
}

} // namespace

void clsCoordinateGraph::ApplyAxisRules(int pointCount, double& xMin, double& xMax, double& yMin,
                                        double& yMax) {
    Spread(pointCount, yMin, yMax);
    Spread(pointCount, xMin, xMax);
}

void clsCoordinateGraph::AutoAxes(int pointCount, int originMode, double xMin, double xMax, double yMin,
                                  double yMax, int reserved, int xLabelDirection, int yLabelDirection,
                                  int xGrid, int yGrid, bool reverseY, bool snap, double labelFontSize) {
    (void)originMode, (void)reserved;
    ErrorTail tail("plotting graph user defined axes");
    tail.Step([&] {
        equalAxesActive_ = false;
        if (reverseX_) {
            SwapCodes(yLabelDirection, 0, 1);
        }
        reverseY_ = reverseY;
        if (reverseY_) {
            SwapCodes(xLabelDirection, 2, 3);
        }
        xLabelDirection_ = xLabelDirection;
        yLabelDirection_ = yLabelDirection;
        ApplyAxisRules(pointCount, xMin, xMax, yMin, yMax);
        xTickStep_ = TickStep(xMin, xMax);
        yTickStep_ = TickStep(yMin, yMax);
        if (xMin > 5 * xTickStep_) {
            xMin -= 5 * xTickStep_; // the Y axis keeps its lower bound: established look
        }
        if (snap) {
            Snap(xMin, xMax, xTickStep_);
            Snap(yMin, yMax, yTickStep_);
        }
        FinishAxes(xMin, xMax, yMin, yMax, xGrid, yGrid, labelFontSize);
    });
}

void clsCoordinateGraph::EqualAxes(int pointCount, int originMode, double xMin, double xMax, double yMin,
                                   double yMax, bool reverseX, int xLabelDirection, int yLabelDirection,
                                   bool snap, int xGrid, int yGrid, bool reverseY, double fixedStep) {
    (void)originMode;
    ErrorTail tail("plotting graph equal axes 2");
    tail.Step([&] {
        const bool fixed = fixedStep > 0;
        equalAxesActive_ = true;
        reverseX_ = reverseX;
        reverseY_ = reverseY;
        if (reverseX_) {
            SwapCodes(yLabelDirection, 0, 1);
        }
        if (reverseY_) {
            SwapCodes(xLabelDirection, 2, 3);
        }
        xLabelDirection_ = xLabelDirection;
        yLabelDirection_ = yLabelDirection;
        const double dataAspect =
            std::fabs(yMax - yMin) != 0 ? std::fabs(xMax - xMin) / std::fabs(yMax - yMin) : 1e16;
        const double across = (1 - marginRatios_[0] - marginRatios_[2]) * viewWidth_;
        const double down = (1 - marginRatios_[3] - marginRatios_[1]) * viewHeight_;
        const double plotAspect = down != 0 ? across / down : 1e16;
        ApplyAxisRules(pointCount, xMin, xMax, yMin, yMax);
        xTickStep_ = fixed ? fixedStep / 5 : TickStep(xMin, xMax);
        yTickStep_ = fixed ? fixedStep / 5 : TickStep(yMin, yMax);
        if (plotAspect < dataAspect) {
            // X rules: its bounds stay and Y takes the span the plot's shape asks for.
            if (xMin > 5 * xTickStep_) {
                xMin -= 5 * xTickStep_;
            }
            if (snap) {
                Snap(xMin, xMax, xTickStep_);
            }
            const double need = plotAspect != 0 ? (xMax - xMin) / plotAspect : 0;
            const double extra = (need - (yMax - yMin)) / 2;
            yMin -= extra;
            yMax += extra;
            yTickStep_ = xTickStep_;
        } else {
            if (snap) {
                Snap(yMin, yMax, yTickStep_);
            }
            const double need = (yMax - yMin) * plotAspect;
            const double extra = (need - (xMax - xMin)) / 2;
            xMin -= extra;
            xMax += extra;
            xTickStep_ = yTickStep_;
        }
        FinishAxes(xMin, xMax, yMin, yMax, xGrid, yGrid, kAxisFontSize);
    });
}

void clsCoordinateGraph::FinishAxes(double xMin, double xMax, double yMin, double yMax, int xGrid, int yGrid,
                                    double fontSize) {
    if (xMin == 0 && xMax == 0 && yMin == 0 && yMax == 0 && !series_.empty()) {
        series_[0].LineX.clear();
        series_[0].LineY.clear();
    }
    if (yMin == 0 && yMax == 0) {
        yMax = 10;
        yTickStep_ = 0.2;
    }
    if (xMin == 0 && xMax == 0) {
        xMax = 10;
        xTickStep_ = 0.2;
    }
    xLabelStep_ = 5 * xTickStep_;
    yLabelStep_ = 5 * yTickStep_;
    SetPlotBounds(xMin, yMin, xMax, yMax);
    xOrigin_ = xMin;
    yOrigin_ = yMin;
    xGrid_ = xGrid;
    yGrid_ = yGrid;
    xAxisDirection_ = xLabelDirection_;
    yAxisDirection_ = yLabelDirection_;
    DrawYAxis();
    DrawXAxis();
    if (xGrid == 1) {
        DrawGrid(true);
    }
    if (yGrid == 1) {
        DrawGrid(false);
    }
    if (surface_ != nullptr) {
        surface_->FontName = defaultFont_;
        surface_->FontSize = fontSize;
        surface_->FontBold = false;
    }
    DrawYLabels();
    DrawXLabels();
}

void clsCoordinateGraph::SurfaceLine(double x1, double y1, double x2, double y2, Colour colour, int width) {
    if (surface_ == nullptr) {
        return;
    }
    surface_->DrawWidth = width;
    surface_->DrawStyle = 0;
    surface_->ForeColor = static_cast<std::uint32_t>(colour);
    surface_->Line(x1, y1, x2, y2);
}

void clsCoordinateGraph::DrawXAxis() {
    if (xLabelDirection_ == -1 || surface_ == nullptr) {
        return;
    }
    const bool atZero = yMin_ <= 0 && 0 <= yMax_;
    const double axisY = atZero ? 0.0 : yOrigin_;
    const PointD a = WorldToTwips(xMin_, axisY);
    const PointD b = WorldToTwips(xMax_, axisY);
    SurfaceLine(a.X, a.Y, b.X, b.Y, atZero ? 0 : 0xBABABA, 1);
    xTickCount_ = xTickStep_ > 0 ? static_cast<int>(std::round((xMax_ - xMin_) / xTickStep_)) : 0;
    const double tick = kTickUnit / 10 * (xLabelDirection_ == 2 ? 1 : -1);
    for (double x : StepsFromZero(xMin_, xMax_, xTickStep_)) {
        const PointD p = WorldToTwips(x, axisY);
        SurfaceLine(p.X, p.Y, p.X, p.Y + tick, 0, 1);
    }
    if (yOrigin_ == 0) {
        SurfaceLine(a.X, a.Y, b.X, b.Y, 0, 1);
    }
}

void clsCoordinateGraph::DrawYAxis() {
    if (yLabelDirection_ == -1 || surface_ == nullptr) {
        return;
    }
    const bool atZero = xMin_ <= 0 && 0 <= xMax_;
    const double axisX = atZero ? 0.0 : xOrigin_;
    const PointD a = WorldToTwips(axisX, yMin_);
    const PointD b = WorldToTwips(axisX, yMax_);
    SurfaceLine(a.X, a.Y, b.X, b.Y, atZero ? 0 : 0xBABABA, 1);
    yTickCount_ = yTickStep_ > 0 ? static_cast<int>(std::round((yMax_ - yMin_) / yTickStep_)) : 0;
    const double tick = kTickUnit / 10 * (yLabelDirection_ == 0 ? -1 : 1);
    for (double y : StepsFromZero(yMin_, yMax_, yTickStep_)) {
        const PointD p = WorldToTwips(axisX, y);
        SurfaceLine(p.X, p.Y, p.X + tick, p.Y, 0, 1);
    }
    if (xOrigin_ == 0) {
        SurfaceLine(a.X, a.Y, b.X, b.Y, 0, 1);
    }
}

void clsCoordinateGraph::DrawXLabels() {
    if (xLabelDirection_ < 0 || surface_ == nullptr) {
        return;
    }
    const double axisY = yOrigin_ < 0 && yMin_ <= 0 && 0 <= yMax_ ? 0.0 : yOrigin_;
    const bool above = xLabelDirection_ == 3;
    const double tick = kTickUnit / 5 * (xLabelDirection_ == 0 || xLabelDirection_ == 2 ? 1 : -1);
    for (double x : StepsFromZero(xMin_, xMax_, xLabelStep_)) {
        const PointD p = WorldToTwips(x, axisY);
        SurfaceLine(p.X, p.Y, p.X, p.Y + tick, 0, 1);
        surface_->ForeColor = 0;
        const double textY = above ? p.Y - std::fabs(tick) : p.Y + std::fabs(tick);
        PlaceText(AxisLabelText(x, xMin_, xMax_, xTickStep_), p.X, textY, 0, above ? 3 : 4, 0);
    }
}

void clsCoordinateGraph::DrawYLabels() {
    if (yLabelDirection_ < 0 || surface_ == nullptr) {
        return;
    }
    const double axisX = xOrigin_ < 0 && xMin_ <= 0 && 0 <= xMax_ ? 0.0 : xOrigin_;
    const bool left = yLabelDirection_ == 0;
    const double tick = kTickUnit / 5 * (left ? -1 : 1);
    for (double y : StepsFromZero(yMin_, yMax_, yLabelStep_)) {
        const PointD p = WorldToTwips(axisX, y);
        SurfaceLine(p.X, p.Y, p.X + tick, p.Y, 0, 1);
        surface_->ForeColor = 0;
        // Text modes 1 and 2 exchange on a reversed X axis; undo that here, labels stay outside.
        int mode = left ? 2 : 1;
        if (reverseX_) {
            mode = 3 - mode;
        }
        PlaceText(AxisLabelText(y, yMin_, yMax_, yTickStep_), p.X + tick * 1.25, p.Y, mode, 0, 0);
    }
}

void clsCoordinateGraph::DrawGrid(bool vertical) {
    if (surface_ == nullptr) {
        return;
    }
    const std::string font = surface_->FontName;
    const double size = surface_->FontSize;
    const bool bold = surface_->FontBold;
    if (vertical) {
        for (double x : StepsFromZero(xMin_, xMax_, xLabelStep_)) {
            const PointD a = WorldToTwips(x, yMin_);
            const PointD b = WorldToTwips(x, yMax_);
            SurfaceLine(a.X, a.Y, b.X, b.Y, x == 0 ? kZeroGridColour : kGridColour, 1);
        }
    } else {
        for (double y : StepsFromZero(yMin_, yMax_, yLabelStep_)) {
            const PointD a = WorldToTwips(xMin_, y);
            const PointD b = WorldToTwips(xMax_, y);
            SurfaceLine(a.X, a.Y, b.X, b.Y, y == 0 ? kZeroGridColour : kGridColour, 1);
        }
    }
    surface_->FontName = font;
    surface_->FontSize = size;
    surface_->FontBold = bold;
}

void clsCoordinateGraph::Redraw(double xMin, double xMax, double yMin, double yMax) {
    if (surface_ == nullptr) {
        return;
    }
    surface_->SetPicture(nullptr);
    surface_->Cls();
    if (drawingMode_ == 1) {
        layer_.DestroyHGraphics(graphics_);
        graphics_ = layer_.CreateHGraphics(*surface_);
        layer_.SetHGraphicsQuality(graphics_, 0, 4, 0, 0);
        layer_.EraseHGraphics(graphics_, 0xFFFFFFFF);
    }
    if (!equalAxesActive_) {
        xTickStep_ = TickStep(xMin, xMax);
        yTickStep_ = TickStep(yMin, yMax);
    }
    FinishAxes(xMin, xMax, yMin, yMax, xGrid_, yGrid_, kAxisFontSize);
    PlotAll();
    Refresh();
}

void clsCoordinateGraph::Zoom(double factor, double centreX, double centreY) {
    if (factor == 0) {
        return;
    }
    const double cx = centreX == -999 ? (xMin_ + xMax_) / 2 : centreX;
    const double cy = centreY == -999 ? (yMin_ + yMax_) / 2 : centreY;
    const double hw = (xMax_ - xMin_) * factor / 2;
    const double hh = (yMax_ - yMin_) * factor / 2;
    Redraw(cx - hw, cx + hw, cy - hh, cy + hh);
}

void clsCoordinateGraph::Window(double xMin, double yMin, double xMax, double yMax) {
    if (xMin == xMax) {
        xMin -= 0.1;
        xMax += 0.1;
    }
    if (yMin == yMax) {
        yMin -= 0.1;
        yMax += 0.1;
    }
    if (equalAxesActive_) {
        // Re-fit the aspect with the ticks kept.
        const double across = (1 - marginRatios_[0] - marginRatios_[2]) * viewWidth_;
        const double down = (1 - marginRatios_[3] - marginRatios_[1]) * viewHeight_;
        const double plotAspect = down != 0 ? across / down : 1e16;
        const double dataAspect = std::fabs(xMax - xMin) / std::fabs(yMax - yMin);
        if (plotAspect < dataAspect) {
            const double extra = ((xMax - xMin) / plotAspect - (yMax - yMin)) / 2;
            yMin -= extra;
            yMax += extra;
        } else {
            const double extra = ((yMax - yMin) * plotAspect - (xMax - xMin)) / 2;
            xMin -= extra;
            xMax += extra;
        }
    }
    Redraw(xMin, xMax, yMin, yMax);
}

void clsCoordinateGraph::Pan(double deltaX, double deltaY) {
    Redraw(xMin_ + deltaX, xMax_ + deltaX, yMin_ + deltaY, yMax_ + deltaY);
}

void clsCoordinateGraph::GetViewportPositionFromWorldCoordinates(double wx, double wy, double& x,
                                                                 double& y) const {
    const double left = plotRect_[0];
    const double bottom = plotRect_[3];
    x = reverseX_ ? ((window_[2] - window_[0]) - wx) * worldRatioX_ + left
                  : (wx - xMin_) * worldRatioX_ + left;
    y = reverseY_ ? (plotBounds_[3] - wy) * worldRatioY_ + yMin_ : -(wy - yMin_) * worldRatioY_ + bottom;
}

void clsCoordinateGraph::GetWorldCoordinatesFromViewportPosition(double x, double y, double& wx,
                                                                 double& wy) const {
    const double left = plotRect_[0];
    const double bottom = plotRect_[3];
    const double rx = worldRatioX_ != 0 ? worldRatioX_ : 1e-16;
    const double ry = worldRatioY_ != 0 ? worldRatioY_ : 1e-16;
    wx = reverseX_ ? (window_[2] - window_[0]) - (x - left) / rx : (x - left) / rx + xMin_;
    wy = reverseY_ ? plotBounds_[3] - (y - yMin_) / ry : yMin_ - (y - bottom) / ry;
}

void clsCoordinateGraph::GetWorldAxisExtents(double& xMin, double& xMax, double& yMin, double& yMax) const {
    xMin = window_[0];
    xMax = window_[2];
    yMin = window_[1];
    yMax = window_[3];
}

void clsCoordinateGraph::GetCurrentPlotBounds(double& xMin, double& xMax, double& yMin, double& yMax) const {
    xMin = xMin_;
    xMax = xMax_;
    yMin = yMin_;
    yMax = yMax_;
}

void clsCoordinateGraph::DetectAxisBounds(double& xMin, double& xMax, double& yMin, double& yMax) const {
    bool seen = false;
    const auto take = [&seen](const std::vector<double>& values, double& lo, double& hi) {
        for (double v : values) {
            if (!std::isfinite(v)) {
                continue;
            }
            if (!seen) {
                lo = hi = v;
                seen = true;
            } else {
                lo = std::min(lo, v);
                hi = std::max(hi, v);
            }
        }
    };
    // X over all the series first, Y second, each starting from what was passed.
    for (int pass = 0; pass < 2; ++pass) {
        seen = false;
        for (const DataSeriesRecord& s : series_) {
            if (!s.Enabled) {
                continue;
            }
            double& lo = pass == 0 ? xMin : yMin;
            double& hi = pass == 0 ? xMax : yMax;
            if (s.LineOn) {
                take(pass == 0 ? s.LineX : s.LineY, lo, hi);
            }
            if (s.MarkerOn) {
                take(pass == 0 ? s.MarkerX : s.MarkerY, lo, hi);
            }
            if (s.AreaOn) {
                take(pass == 0 ? s.AreaX : s.AreaY, lo, hi);
            }
        }
    }
}

} // namespace corvane
