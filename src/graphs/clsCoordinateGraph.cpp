#include "graphs/clsCoordinateGraph.h"

#include "graphs/GraphColours.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cmath>

namespace corvane {

namespace {

// The clamp that keeps every twip value inside the surface's 16-bit coordinates.
constexpr double kTwipLimit = 32000.0;

double Clamp16(double v) {
    if (!(v == v)) {
        return 0; // NaN draws at the origin rather than nowhere at random
    }
    return std::clamp(v, -kTwipLimit, kTwipLimit);
}

struct DefaultStyle {
    clsCoordinateGraph::Colour line;
    int markerType;
    int markerSize;
    int markerWidth;
    clsCoordinateGraph::Colour fill;
};

constexpr std::array<DefaultStyle, 5> kDefaultStyles = {{
    {0x8B0000, 4, 5, 1, 0xED9564},
    {0x26368B, 1, 5, 1, 0x7280FA},
    {0x148030, 2, 5, 1, 0x98FB98},
    {0x8E388E, 3, 7, 1, 0xFFBBFF},
    {0x8B8B00, 0, 7, 2, 0xCDCDB4},
}};

} // namespace

clsCoordinateGraph::clsCoordinateGraph(bool antiAliasLayer) : layer_(antiAliasLayer) {
    legendPosition_ = 1;
    noAntiAliasLayer_ = layer_.Token() == 0;
    ClearAllDataSeries();
}

void clsCoordinateGraph::SetDefaultFont(const std::string& name, double size) {
    defaultFont_ = name.empty() ? "Arial" : name;
    defaultFontSize_ = size > 0 ? size : 9;
}

void clsCoordinateGraph::ClearErrorStack() {
    errorsFound_ = false;
    errorText_.clear();
}

std::string clsCoordinateGraph::Errors() {
    std::string text;
    text.swap(errorText_);
    return text;
}

void clsCoordinateGraph::AddError(const std::string& message) {
    if (errorsFound_ && errorText_.find(message) != std::string::npos) {
        return;
    }
    errorText_ += "\t" + message + "\r\n";
    errorsFound_ = true;
}

clsCoordinateGraph::DataSeriesRecord& clsCoordinateGraph::Record(int index) {
    if (index < 0) {
        index = 0;
    }
    if (static_cast<std::size_t>(index) >= series_.size()) {
        series_.resize(static_cast<std::size_t>(index) + 1);
    }
    return series_[static_cast<std::size_t>(index)];
}

const clsCoordinateGraph::DataSeriesRecord& clsCoordinateGraph::Series(int index) const {
    static const DataSeriesRecord blank;
    return index >= 0 && static_cast<std::size_t>(index) < series_.size()
               ? series_[static_cast<std::size_t>(index)]
               : blank;
}

void clsCoordinateGraph::DefaultStyles() {
    for (std::size_t i = 0; i < kDefaultStyles.size() && i < series_.size(); ++i) {
        DataSeriesRecord& s = series_[i];
        const DefaultStyle& d = kDefaultStyles[i];
        s.LineColor = d.line;
        s.LineDashStyle = 0;
        s.LineWidth = 2;
        s.AreaColor = d.line;
        s.AreaOpacity = 100;
        s.MarkerColor = d.line;
        s.MarkerType = d.markerType;
        s.MarkerSize = d.markerSize;
        s.MarkerWidth = d.markerWidth;
        s.MarkerFillColor = d.fill;
        s.MarkerOpacity = 150;
        s.MarkerLabelAlign = 2;
        s.LineLabelAlign = 2;
    }
}

void clsCoordinateGraph::ClearDataSeries(int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= series_.size()) {
        return;
    }
    series_[static_cast<std::size_t>(index)] = DataSeriesRecord{};
}

void clsCoordinateGraph::ClearAllDataSeries() {
    series_.assign(5, DataSeriesRecord{});
    DefaultStyles();
}

void clsCoordinateGraph::SetLineLabelData(int index, const std::string& text, double x, double y, int align,
                                          const std::string& font, double size, Colour colour) {
    DataSeriesRecord& s = Record(index);
    s.LineLabelText = text;
    s.LineLabelX = x;
    s.LineLabelY = y;
    s.LineLabelAlign = align;
    s.LineLabelFont = font;
    s.LineLabelSize = size;
    s.LineLabelColor = colour;
}

void clsCoordinateGraph::SetDataSeriesConfiguration(int index, bool enabled, bool lineOn, bool markerOn,
                                                    bool areaOn, bool lineLabelOn, bool legendOn,
                                                    bool porcupineOn) {
    DataSeriesRecord& s = Record(index);
    s.Enabled = enabled;
    s.LineOn = lineOn;
    s.MarkerOn = markerOn;
    s.AreaOn = areaOn;
    s.LineLabelOn = lineLabelOn;
    s.LegendOn = legendOn;
    s.PorcupineOn = porcupineOn;
}

void clsCoordinateGraph::SetGraphConfiguration(bool legendEnabled, int legendPosition) {
    legendEnabled_ = legendEnabled;
    legendPosition_ = legendPosition;
}

void clsCoordinateGraph::SetPorcupineStyle(int index, int splined, int dash, int width, Colour colour,
                                           int mode, int pointCount, double scale, double resolution) {
    DataSeriesRecord& s = Record(index);
    s.PorcupineSplined = splined;
    s.PorcupineDashStyle = dash;
    s.PorcupineWidth = width;
    s.PorcupineColor = colour;
    s.PorcupineMode = mode;
    s.PorcupinePointCount = pointCount;
    s.PorcupineScale = scale;
    s.PorcupineResolution = resolution;
}

void clsCoordinateGraph::SetLineStyle(int index, int splined, int dash, int width, Colour colour) {
    DataSeriesRecord& s = Record(index);
    s.LineSplined = splined;
    s.LineDashStyle = dash;
    s.LineWidth = width;
    s.LineColor = colour;
}

void clsCoordinateGraph::SetMarkerStyle(int index, int type, int drawStyle, int size, int width,
                                        Colour colour, Colour fillColour, int labelOn, int labelAlign,
                                        const std::string& font, double labelSize, Colour labelColour,
                                        int opacity) {
    DataSeriesRecord& s = Record(index);
    s.MarkerType = type;
    s.MarkerDrawStyle = drawStyle;
    s.MarkerSize = size;
    s.MarkerWidth = width;
    s.MarkerColor = colour;
    s.MarkerFillColor = fillColour;
    s.MarkerLabelOn = labelOn;
    s.MarkerLabelAlign = labelAlign;
    s.MarkerLabelFont = font;
    s.MarkerLabelSize = labelSize;
    s.MarkerLabelColor = labelColour;
    s.MarkerOpacity = std::clamp(opacity, 0, 255);
}

void clsCoordinateGraph::SetAreaStyle(int index, int splined, int opacity, Colour colour, int pattern) {
    DataSeriesRecord& s = Record(index);
    s.AreaSplined = splined;
    s.AreaOpacity = std::clamp(opacity, 0, 255);
    s.AreaColor = colour;
    s.AreaPattern = pattern;
}

void clsCoordinateGraph::SetLegendData(int index, const std::string& label, const std::string& font,
                                       double size, Colour colour) {
    DataSeriesRecord& s = Record(index);
    s.LegendLabel = label.empty() ? "Series " + std::to_string(index) : label;
    s.LegendFont = font;
    s.LegendSize = size;
    s.LegendColor = colour;
}

void clsCoordinateGraph::SetLineData(int index, const std::vector<double>& x, const std::vector<double>& y) {
    ErrorTail tail("setting line data for series " + std::to_string(index));
    tail.Step([&] {
        DataSeriesRecord& s = Record(index);
        const std::size_t n = std::min(x.size(), y.size());
        s.LineX.assign(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
        s.LineY.assign(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
    });
}

void clsCoordinateGraph::SetPorcupineData(int index, const std::vector<double>& x,
                                          const std::vector<double>& y, const std::vector<double>& length) {
    ErrorTail tail("setting porcupine data for series " + std::to_string(index));
    tail.Step([&] {
        DataSeriesRecord& s = Record(index);
        const std::size_t n = std::min({x.size(), y.size(), length.size()});
        s.PorcupineX.assign(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
        s.PorcupineY.assign(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
        s.PorcupineLength.assign(length.begin(), length.begin() + static_cast<std::ptrdiff_t>(n));
    });
}

void clsCoordinateGraph::SetMarkerData(int index, const std::vector<double>& x, const std::vector<double>& y,
                                       const std::vector<std::string>& labels) {
    ErrorTail tail("setting marker data for series " + std::to_string(index));
    tail.Step([&] {
        DataSeriesRecord& s = Record(index);
        const std::size_t n = std::min(x.size(), y.size());
        s.MarkerX.assign(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
        s.MarkerY.assign(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
        s.MarkerLabels.assign(n, std::string());
        for (std::size_t i = 0; i < n && i < labels.size(); ++i) {
            s.MarkerLabels[i] = labels[i];
        }
    });
}

bool clsCoordinateGraph::GetMarkerData(int index, std::vector<double>& x, std::vector<double>& y,
                                       std::vector<std::string>& labels) const {
    if (index < 0 || static_cast<std::size_t>(index) >= series_.size()) {
        return false;
    }
    const DataSeriesRecord& s = series_[static_cast<std::size_t>(index)];
    if (s.MarkerX.empty()) {
        return false;
    }
    x = s.MarkerX;
    y = s.MarkerY;
    labels = s.MarkerLabels;
    return true;
}

void clsCoordinateGraph::SetAreaData(int index, const std::vector<double>& x, const std::vector<double>& y) {
    ErrorTail tail("setting area data for series " + std::to_string(index));
    tail.Step([&] {
        DataSeriesRecord& s = Record(index);
        const std::size_t n = std::min(x.size(), y.size());
        s.AreaX.assign(x.begin(), x.begin() + static_cast<std::ptrdiff_t>(n));
        s.AreaY.assign(y.begin(), y.begin() + static_cast<std::ptrdiff_t>(n));
    });
}

std::string clsCoordinateGraph::MarkerLabel(int index, int point) const {
    const DataSeriesRecord& s = Series(index);
    return point >= 0 && static_cast<std::size_t>(point) < s.MarkerLabels.size()
               ? s.MarkerLabels[static_cast<std::size_t>(point)]
               : std::string();
}

void clsCoordinateGraph::SetMarkerLabel(int index, int point, const std::string& text) {
    DataSeriesRecord& s = Record(index);
    if (point >= 0 && static_cast<std::size_t>(point) < s.MarkerLabels.size()) {
        s.MarkerLabels[static_cast<std::size_t>(point)] = text;
    }
}

std::string clsCoordinateGraph::GetLegendLabel(int index) const {
    return Series(index).LegendLabel;
}

void clsCoordinateGraph::GetAxesDirection(int& x, int& y) const {
    x = xAxisDirection_;
    y = yAxisDirection_;
}

void clsCoordinateGraph::GetAxesLabelDirection(int& x, int& y) const {
    x = xLabelDirection_;
    y = yLabelDirection_;
}

void clsCoordinateGraph::CreateGraph(DrawingSurface& surface, int mode, Colour backColour) {
    ErrorTail tail("creating graph");
    tail.Step([&] {
        const auto old = graphics_;
        surface_ = &surface;
        surface.SetPicture(nullptr);
        surface.BackColor = static_cast<std::uint32_t>(backColour < 0 ? 0xFFFFFF : backColour);
        surface.Cls();
        drawingMode_ = mode == 1 && noAntiAliasLayer_ ? 0 : mode;
        graphics_ = 0;
        if (drawingMode_ == 1) {
            graphics_ = layer_.CreateHGraphics(surface);
            layer_.SetHGraphicsQuality(graphics_, 0, 4, 0, 0);
            layer_.EraseHGraphics(graphics_, BGRToARGB(surface.BackColor, 255));
        }
        layer_.DestroyHGraphics(old);
    });
}

void clsCoordinateGraph::CreateGraphWithBG(DrawingSurface& surface,
                                           std::shared_ptr<const SurfaceImage> background, int mode) {
    ErrorTail tail("creating graph");
    tail.Step([&] {
        const auto old = graphics_;
        surface_ = &surface;
        surface.SetPicture(std::move(background));
        // Cls paints the picture: the stored image is the graph's ground, nothing erases it.
        surface.Cls();
        drawingMode_ = mode == 1 && noAntiAliasLayer_ ? 0 : mode;
        graphics_ = 0;
        if (drawingMode_ == 1) {
            graphics_ = layer_.CreateHGraphics(surface);
            layer_.SetHGraphicsQuality(graphics_, 0, 4, 0, 0);
            layer_.RotateHGraphics(graphics_, 0, 0, 0);
        }
        layer_.DestroyHGraphics(old);
    });
}

void clsCoordinateGraph::EraseGraph() {
    if (drawingMode_ == 1) {
        layer_.EraseHGraphics(graphics_, 0xFFFFFFFF);
    }
}

void clsCoordinateGraph::Refresh() {
    layer_.DestroyHGraphics(graphics_);
    graphics_ = 0;
    layer_.Clear();
    if (surface_ != nullptr) {
        surface_->Refresh();
    }
}

double clsCoordinateGraph::TwipsPerPixel() const {
    const double tpp = surface_ != nullptr ? surface_->TwipsPerPixelX() : 15.0;
    return tpp > 0 ? tpp : 15.0;
}

void clsCoordinateGraph::SetPercentWindow(double left, double top, double right, double bottom) {
    const double w = surface_ != nullptr ? surface_->ScaleWidth() : 0;
    const double h = surface_ != nullptr ? surface_->ScaleHeight() : 0;
    windowRect_ = {
        static_cast<int>(Clamp16(std::round(w * left))), static_cast<int>(Clamp16(std::round(h * top))),
        static_cast<int>(Clamp16(std::round(w * right))), static_cast<int>(Clamp16(std::round(h * bottom)))};
    viewWidth_ = windowRect_[2];
    viewHeight_ = windowRect_[3];
    DerivePlotRect();
}

void clsCoordinateGraph::SetWin2PlotRatio(double left, double top, double right, double bottom) {
    marginRatios_ = {left, bottom, right, top};
    DerivePlotRect();
}

void clsCoordinateGraph::DerivePlotRect() {
    const double w = windowRect_[2] - windowRect_[0];
    const double h = windowRect_[3] - windowRect_[1];
    plotRect_ = {windowRect_[0] + static_cast<int>(std::round(w * marginRatios_[0])),
                 windowRect_[1] + static_cast<int>(std::round(h * marginRatios_[3])),
                 windowRect_[2] - static_cast<int>(std::round(w * marginRatios_[2])),
                 windowRect_[3] - static_cast<int>(std::round(h * marginRatios_[1]))};
}

void clsCoordinateGraph::SetPlotBounds(double left, double bottom, double right, double top) {
    plotBounds_ = {left, bottom, right, top};
    const double mL = marginRatios_[0], mB = marginRatios_[1], mR = marginRatios_[2], mT = marginRatios_[3];
    const double hSpan = 1 - mL - mR != 0 ? 1 - mL - mR : 1e-16;
    const double vSpan = 1 - mB - mT != 0 ? 1 - mB - mT : 1e-16;
    window_[0] = left - (right - left) * mL / hSpan;
    window_[2] = right + (right - left) * mR / hSpan;
    window_[1] = bottom - (top - bottom) * mB / vSpan;
    window_[3] = top + (top - bottom) * mT / vSpan;
    worldX0_ = window_[0];
    worldY0_ = window_[1];
    worldHeight_ = window_[3] - window_[1];
    worldWidth_ = window_[2] - window_[0];
    if (std::fabs(worldHeight_) < 1e-16) {
        worldHeight_ = 1e-16;
    }
    if (std::fabs(worldWidth_) < 1e-16) {
        worldWidth_ = 1e-16;
    }
    worldRatioX_ = (viewWidth_ - windowRect_[0]) / worldWidth_;
    worldRatioY_ = (viewHeight_ - windowRect_[1]) / worldHeight_;
    xMin_ = std::min(left, right);
    xMax_ = std::max(left, right);
    yMin_ = std::min(bottom, top);
    yMax_ = std::max(bottom, top);
}

PointD clsCoordinateGraph::WorldToTwips(double wx, double wy) const {
    const double width = viewWidth_ - windowRect_[0];
    const double height = viewHeight_ - windowRect_[1];
    double x = (wx - worldX0_) * worldRatioX_;
    if (reverseX_) {
        x = width - x;
    }
    double y = (wy - worldY0_) * worldRatioY_;
    if (reverseY_) {
        y = height - y;
    }
    return {Clamp16(windowRect_[0] + x), Clamp16(windowRect_[1] + height - y)};
}

PointF clsCoordinateGraph::ToPixels(double wx, double wy) const {
    const PointD t = WorldToTwips(wx, wy);
    const double tpp = TwipsPerPixel();
    return {static_cast<float>(t.X / tpp), static_cast<float>(t.Y / tpp)};
}

void clsCoordinateGraph::PlotDataSeries(int index) {
    PlotArea(index);
    PlotPorcupine(index, 3);
    PlotLine(index, 3);
    PlotMarker(index);
}

void clsCoordinateGraph::PlotAll() {
    for (int i = 0; i < DataSeriesCount(); ++i) {
        PlotDataSeries(i);
    }
}

} // namespace corvane
