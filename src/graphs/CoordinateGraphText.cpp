// clsCoordinateGraph: texts on the picture box (placement modes, labels, titles) and the legend.

#include "graphs/clsCoordinateGraph.h"

#include "graphs/GraphColours.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

// Rows of the legend, twips.
constexpr double kLegendRow = 180.0;

std::vector<std::string> SplitLines(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find('\n', start);
        std::string line = text.substr(start, end == std::string::npos ? std::string::npos : end - start);
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        lines.push_back(std::move(line));
        if (end == std::string::npos) {
            return lines;
        }
        start = end + 1;
    }
}

// Removes every "<b>" (and a closing "</b>"); true when there was one.
bool TakeBold(std::string& text) {
    bool bold = false;
    for (const std::string tag : {"</b>", "<b>"}) {
        for (std::size_t at = text.find(tag); at != std::string::npos; at = text.find(tag)) {
            text.erase(at, tag.size());
            bold = true;
        }
    }
    return bold;
}

struct Placement {
    int hMode;
    int vMode;
    int sign; // of the horizontal offset
};

// Label alignment codes 0 to 8.
Placement AlignmentPlacement(int align) {
    switch (align) {
    case 0:
        return {1, 4, 1};
    case 1:
        return {2, 4, -1};
    case 2:
        return {2, 3, -1};
    case 3:
        return {1, 3, 1};
    case 4:
        return {0, 3, 0};
    case 5:
        return {0, 4, 0};
    case 6:
        return {2, 0, -1};
    case 7:
        return {1, 0, 1};
    default:
        return {0, 0, 0};
    }
}

} // namespace

void clsCoordinateGraph::PlaceText(const std::string& text, double x, double y, int hMode, int vMode,
                                   int orientation) {
    if (text.empty() || surface_ == nullptr) {
        return;
    }
    DrawingSurface& s = *surface_;
    if (reverseX_ && (hMode == 1 || hMode == 2)) {
        hMode = 3 - hMode;
    }
    const std::vector<std::string> lines = SplitLines(text);
    s.FontAngle = 0;
    const double lineHeight = s.TextHeight("Temp test text height");
    const double block = lineHeight * static_cast<double>(lines.size());
    double top = y - block / 2;
    if (vMode == 3) {
        top = y - (block - 2);
    } else if (vMode == 4) {
        top = y;
    }
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double w = s.TextWidth(lines[i]);
        const double along = hMode == 0 ? -w / 2 : hMode == 1 ? 0 : -w;
        if (orientation == 1) {
            // Turned a quarter to the left: the lines stand side by side, each read upwards.
            const double left = (hMode == 1 ? x : x - block / 2) + lineHeight * static_cast<double>(i);
            s.FontAngle = 90;
            s.CurrentX = left;
            s.CurrentY = y - along;
        } else {
            s.CurrentX = x + along;
            s.CurrentY = top + lineHeight * static_cast<double>(i);
        }
        s.Print(lines[i]);
    }
    s.FontAngle = 0;
}

void clsCoordinateGraph::PlaceLabel(const std::string& label, double wx, double wy, int align, double offset,
                                    const std::string& font, double size, Colour colour) {
    if (surface_ == nullptr || label.empty()) {
        return;
    }
    DrawingSurface& s = *surface_;
    const std::string oldFont = s.FontName;
    const double oldSize = s.FontSize;
    const bool oldBold = s.FontBold;
    std::string text = label;
    s.FontBold = TakeBold(text);
    s.FontName = font.empty() ? defaultFont_ : font;
    s.FontSize = size > 0 ? size : defaultFontSize_;
    s.ForeColor = static_cast<std::uint32_t>(colour < 0 ? 0 : colour);
    const Placement p = AlignmentPlacement(align);
    const PointD at = WorldToTwips(wx, wy);
    const double dx = reverseX_ ? -p.sign * offset : p.sign * offset;
    PlaceText(text, at.X + dx, at.Y, p.hMode, p.vMode, 0);
    s.FontName = oldFont;
    s.FontSize = oldSize;
    s.FontBold = oldBold;
}

void clsCoordinateGraph::TitleGraph(const std::string& text, int position, const std::string& font,
                                    double size, Colour colour, double angle) {
    (void)angle;
    ErrorTail tail("setting graph title (" + text + ")");
    tail.Step([&] {
        if (surface_ == nullptr) {
            return;
        }
        DrawingSurface& s = *surface_;
        const std::string oldFont = s.FontName;
        const double oldSize = s.FontSize;
        const bool oldBold = s.FontBold;
        std::string title = text;
        s.FontBold = TakeBold(title);
        s.FontName = font.empty() ? defaultFont_ : font;
        s.FontSize = size > 0 ? size : defaultFontSize_;
        s.ForeColor = static_cast<std::uint32_t>(colour < 0 ? 0 : colour);
        const double l = plotRect_[0], t = plotRect_[1], r = plotRect_[2], b = plotRect_[3];
        const double wl = windowRect_[0], wt = windowRect_[1], wr = windowRect_[2], wb = windowRect_[3];
        // Titles are centred whatever the axis direction.
        const int hMode = 0;
        switch (position) {
        case 0:
            PlaceText(title, wl + (l - wl) / 3, (b + t) / 2, hMode, 0, 1);
            break;
        case 1:
            PlaceText(title, (wr + r) / 2, (b + t) / 2, 1, 0, 1);
            break;
        case 2:
            PlaceText(title, (r + l) / 2, b + (wb - b) * 5 / 9, hMode, 0, 0);
            break;
        case 3:
            PlaceText(title, (r + l) / 2, (wt + t) / 2, hMode, 0, 0);
            break;
        default:
            PlaceText(title, (r + l) / 2, t - 30, hMode, 3, 0);
            break;
        }
        s.FontName = oldFont;
        s.FontSize = oldSize;
        s.FontBold = oldBold;
    });
}

void clsCoordinateGraph::PlotLegend() {
    ErrorTail tail("plotting legends box");
    tail.Step([&] {
        if (!legendEnabled_ || surface_ == nullptr) {
            return;
        }
        DrawingSurface& s = *surface_;
        std::vector<int> shown;
        double widest = 0;
        for (int i = 0; i < DataSeriesCount(); ++i) {
            const DataSeriesRecord& r = series_[static_cast<std::size_t>(i)];
            if (!r.Enabled || !r.LegendOn || r.LegendLabel.empty()) {
                continue;
            }
            shown.push_back(i);
            s.FontName = r.LegendFont.empty() ? "Arial" : r.LegendFont;
            s.FontSize = r.LegendSize > 0 ? r.LegendSize : 9;
            widest = std::max(widest, s.TextWidth(LegendLabelText(r.LegendLabel)));
        }
        if (shown.empty()) {
            return;
        }
        const double ratio = worldRatioX_ != 0 ? worldRatioX_ : 1e-16;
        const LegendBox box =
            LayoutLegend(legendPosition_, widest, 100.0 / ratio, static_cast<int>(shown.size()), worldRatioX_,
                         worldRatioY_, plotBounds_[0], yMin_, plotBounds_[2], yMax_);
        const PointD a = WorldToTwips(box.left, box.top);
        const PointD c = WorldToTwips(box.right, box.bottom);
        if (drawingMode_ == 1) {
            const float tpp = static_cast<float>(TwipsPerPixel());
            const RectF rect{static_cast<float>(a.X) / tpp, static_cast<float>(a.Y) / tpp,
                             static_cast<float>(c.X - a.X) / tpp, static_cast<float>(c.Y - a.Y) / tpp};
            const auto pen = layer_.CreatePen(0xFF000000, 1);
            const auto brush = layer_.CreateSolidBrush(0xFFFFFFFF);
            layer_.DrawRectangle(graphics_, rect, pen, 0, brush);
            layer_.DestroyPen(pen);
            layer_.DestroyBrush(brush);
        } else {
            SurfaceLine(a.X, a.Y, c.X, a.Y, 0, 1);
            SurfaceLine(c.X, a.Y, c.X, c.Y, 0, 1);
            SurfaceLine(c.X, c.Y, a.X, c.Y, 0, 1);
            SurfaceLine(a.X, c.Y, a.X, a.Y, 0, 1);
        }
        const bool bottom = legendPosition_ == 2 || legendPosition_ == 3;
        if (bottom) {
            std::reverse(shown.begin(), shown.end());
        }
        const double ry = worldRatioY_ != 0 ? worldRatioY_ : 1e-16;
        for (std::size_t row = 0; row < shown.size(); ++row) {
            const double k = static_cast<double>(row);
            double y =
                bottom ? box.bottom + (k * kLegendRow + 45) / ry : box.top - (k * kLegendRow + 60) / ry;
            double x = legendPosition_ == 1 || legendPosition_ == 3 ? box.left + 100 / ratio
                                                                    : box.right - (box.width - 50 / ratio);
            if (legendPosition_ == 4) {
                x = box.left + box.width / 50;
                y = box.top - (127.5 + k * kLegendRow) / ry;
            }
            LegendEntry(series_[static_cast<std::size_t>(shown[row])], x, y, ratio);
        }
    });
}

void clsCoordinateGraph::LegendEntry(const DataSeriesRecord& r, double x, double y, double ratio) {
    DrawingSurface& s = *surface_;
    if (r.LineOn && r.LineDashStyle != 5 && r.LineWidth > 0) {
        const PointD a = WorldToTwips(x, y);
        const PointD b = WorldToTwips(x + 200 / ratio, y);
        if (drawingMode_ == 1) {
            const float tpp = static_cast<float>(TwipsPerPixel());
            const auto pen = layer_.CreatePen(BGRToARGB(r.LineColor, 255), static_cast<float>(r.LineWidth));
            layer_.DrawLine(graphics_, pen, static_cast<float>(a.X) / tpp, static_cast<float>(a.Y) / tpp,
                            static_cast<float>(b.X) / tpp, static_cast<float>(b.Y) / tpp);
            layer_.DestroyPen(pen);
        } else {
            SurfaceLine(a.X, a.Y, b.X, b.Y, r.LineColor, r.LineWidth);
        }
    }
    if (r.MarkerOn && r.MarkerType >= 0) {
        DataSeriesRecord sample = r;
        double scale = 1.0;
        if (r.MarkerType == 3) {
            scale = 1.6;
        } else if (r.MarkerType == 4) {
            scale = 0.8;
        } else if (r.MarkerType != 5) {
            scale = 1.3;
        }
        sample.MarkerSize = static_cast<int>(std::round(90.0 / TwipsPerPixel() * scale));
        DrawShape(sample, x + 90 / ratio, y);
    }
    s.FontName = r.LegendFont.empty() ? "Arial" : r.LegendFont;
    s.FontSize = r.LegendSize > 0 ? r.LegendSize : 9;
    s.FontBold = false;
    s.ForeColor = static_cast<std::uint32_t>(r.LegendColor < 0 ? 0 : r.LegendColor);
    const PointD at = WorldToTwips(x + 240 / ratio, y);
    PlaceText(LegendLabelText(r.LegendLabel), at.X, at.Y, 1, 0, 0);
}

} // namespace corvane
