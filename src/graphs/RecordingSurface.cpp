#include "graphs/RecordingSurface.h"

#include "graphs/GraphColours.h"

#include <algorithm>

namespace corvane {

namespace {

// The image a recording surface hands out: the number of calls it had seen.
class RecordedImage : public SurfaceImage {
public:
    explicit RecordedImage(std::size_t calls) : calls(calls) {}
    std::size_t calls;
};

std::vector<PointD> Points(const PointF* points, int count) {
    std::vector<PointD> out;
    for (int i = 0; points != nullptr && i < count; ++i) {
        out.push_back({points[i].X, points[i].Y});
    }
    return out;
}

} // namespace

RecordingSurface::RecordingSurface(int widthPixels, int heightPixels, double twipsPerPixel)
    : width_(widthPixels), height_(heightPixels), tpp_(twipsPerPixel) {}

void RecordingSurface::Line(double x1, double y1, double x2, double y2) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Line;
    c.points = {{x1, y1}, {x2, y2}};
    c.colour = ForeColor;
    c.width = DrawWidth;
    c.style = DrawStyle;
    calls.push_back(std::move(c));
    CurrentX = x2;
    CurrentY = y2;
}

void RecordingSurface::Print(const std::string& text) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Print;
    c.points = {{CurrentX, CurrentY}};
    c.text = text;
    c.colour = ForeColor;
    c.font = FontName;
    c.size = FontSize;
    c.bold = FontBold;
    c.angle = FontAngle;
    calls.push_back(std::move(c));
    CurrentY += TextHeight(text);
}

double RecordingSurface::TextWidth(const std::string& text) {
    return static_cast<double>(text.size()) * FontSize * 20 * 0.5;
}

double RecordingSurface::TextHeight(const std::string& text) {
    (void)text;
    return FontSize * 20 * 1.2;
}

void RecordingSurface::Cls() {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Cls;
    c.colour = BackColor;
    calls.push_back(std::move(c));
}

std::shared_ptr<const SurfaceImage> RecordingSurface::Image() {
    return std::make_shared<RecordedImage>(calls.size());
}

void RecordingSurface::AAClear(std::uint32_t argb) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Clear;
    c.fill = argb;
    calls.push_back(std::move(c));
}

void RecordingSurface::AAPolyline(const PointF* points, int count, const PenSpec& pen) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Polyline;
    c.points = Points(points, count);
    c.pen = true;
    c.colour = pen.argb;
    c.width = pen.width;
    c.style = pen.dashStyle;
    calls.push_back(std::move(c));
}

void RecordingSurface::AAPolygon(const PointF* points, int count, int fillMode, const PenSpec* pen,
                                 const BrushSpec* brush) {
    (void)fillMode;
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Polygon;
    c.points = Points(points, count);
    if (pen != nullptr) {
        c.pen = true;
        c.colour = pen->argb;
        c.width = pen->width;
    }
    if (brush != nullptr) {
        c.brush = true;
        c.fill = brush->argb;
    }
    calls.push_back(std::move(c));
}

void RecordingSurface::AAEllipse(const RectF& bounds, const PenSpec* pen, const BrushSpec* brush) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Ellipse;
    c.points = {{bounds.Left, bounds.Top}, {bounds.Left + bounds.Width, bounds.Top + bounds.Height}};
    c.pen = pen != nullptr;
    c.colour = pen != nullptr ? pen->argb : 0;
    c.brush = brush != nullptr;
    c.fill = brush != nullptr ? brush->argb : 0;
    calls.push_back(std::move(c));
}

void RecordingSurface::AADrawImage(const SurfaceImage& image, const RectF& destination, const RectF& source) {
    (void)image, (void)source;
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Image;
    c.points = {{destination.Left, destination.Top},
                {destination.Left + destination.Width, destination.Top + destination.Height}};
    calls.push_back(std::move(c));
}

void RecordingSurface::AASetWorldTransform(double rotationDeg, double dx, double dy) {
    SurfaceCall c;
    c.kind = SurfaceCall::Kind::Transform;
    c.angle = rotationDeg;
    c.points = {{dx, dy}};
    calls.push_back(std::move(c));
}

void RecordingSurface::AAResetWorldTransform() {
    AASetWorldTransform(0, 0, 0);
}

std::vector<std::string> RecordingSurface::Texts() const {
    std::vector<std::string> out;
    for (const SurfaceCall& c : calls) {
        if (c.kind == SurfaceCall::Kind::Print) {
            out.push_back(c.text);
        }
    }
    return out;
}

bool RecordingSurface::Printed(const std::string& text) const {
    const std::vector<std::string> texts = Texts();
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

std::vector<const SurfaceCall*> RecordingSurface::InColour(std::uint32_t bgr) const {
    std::vector<const SurfaceCall*> out;
    for (const SurfaceCall& c : calls) {
        const bool raster = c.kind == SurfaceCall::Kind::Polyline || c.kind == SurfaceCall::Kind::Polygon ||
                            c.kind == SurfaceCall::Kind::Ellipse;
        if (!raster) {
            continue;
        }
        int alpha = 0;
        if ((c.pen && ARGBToBGR(c.colour, alpha) == bgr) || (c.brush && ARGBToBGR(c.fill, alpha) == bgr)) {
            out.push_back(&c);
        }
    }
    return out;
}

} // namespace corvane
