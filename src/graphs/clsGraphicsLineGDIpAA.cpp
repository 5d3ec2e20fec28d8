#include "graphs/clsGraphicsLineGDIpAA.h"

#include "graphs/GraphColours.h"

#include <algorithm>
#include <vector>

namespace corvane {

namespace {

std::vector<PointF> ToFloat(const PointI* points, int count) {
    std::vector<PointF> out(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        out[static_cast<std::size_t>(i)] = {static_cast<float>(points[i].X), static_cast<float>(points[i].Y)};
    }
    return out;
}

} // namespace

clsGraphicsLineGDIpAA::clsGraphicsLineGDIpAA(bool available) {
    // The token is only told apart from 0: there is no library session to start.
    token_ = available ? 1 : 0;
}

clsGraphicsLineGDIpAA::~clsGraphicsLineGDIpAA() {
    Clear();
    graphics_.clear();
    token_ = 0;
}

std::uint32_t clsGraphicsLineGDIpAA::RGBtoARGB(std::int64_t rgb, int alpha) {
    return BGRToARGB(rgb, alpha);
}

std::uint32_t clsGraphicsLineGDIpAA::ARGBtoRGB(std::uint32_t argb, int& alpha) {
    return ARGBToBGR(argb, alpha);
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreatePen(std::uint32_t argb, float width, int dashStyle,
                                                               int dashCap) {
    if (token_ == 0 || !(width > 0)) {
        return 0;
    }
    Resource r;
    r.isPen = true;
    r.pen = PenSpec{argb, width, dashStyle, dashCap, 0, 0};
    const Handle h = NewHandle();
    resources_[h] = r;
    return h;
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreateSolidBrush(std::uint32_t argb) {
    if (token_ == 0) {
        return 0;
    }
    Resource r;
    r.brush.type = kBrushSolid;
    r.brush.argb = argb;
    const Handle h = NewHandle();
    resources_[h] = r;
    return h;
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreateHatchBrush(int style, std::uint32_t foreArgb,
                                                                      std::uint32_t backArgb) {
    if (token_ == 0) {
        return 0;
    }
    Resource r;
    r.brush.type = kBrushHatch;
    r.brush.hatchStyle = style;
    r.brush.argb = foreArgb;
    r.brush.argb2 = backArgb;
    const Handle h = NewHandle();
    resources_[h] = r;
    return h;
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreateGradientLineBrush(float x1, float y1, float x2,
                                                                             float y2, std::uint32_t argb1,
                                                                             std::uint32_t argb2,
                                                                             int wrapMode) {
    if (token_ == 0) {
        return 0;
    }
    Resource r;
    r.brush = BrushSpec{kBrushLinearGradient, argb1, argb2, 0, x1, y1, x2, y2, wrapMode};
    const Handle h = NewHandle();
    resources_[h] = r;
    return h;
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreateGradientBrushRect(float left, float top,
                                                                             float width, float height,
                                                                             std::uint32_t argb1,
                                                                             std::uint32_t argb2, int mode,
                                                                             int wrapMode) {
    // The gradient runs across the rectangle in the direction the mode names.
    const float right = left + width, bottom = top + height;
    switch (mode) {
    case 1:
        return CreateGradientLineBrush(left, top, left, bottom, argb1, argb2, wrapMode);
    case 2:
        return CreateGradientLineBrush(left, top, right, bottom, argb1, argb2, wrapMode);
    case 3:
        return CreateGradientLineBrush(right, top, left, bottom, argb1, argb2, wrapMode);
    default:
        return CreateGradientLineBrush(left, top, right, top, argb1, argb2, wrapMode);
    }
}

bool clsGraphicsLineGDIpAA::DestroyPen(Handle pen) {
    const auto it = resources_.find(pen);
    if (token_ == 0 || it == resources_.end() || !it->second.isPen) {
        return false;
    }
    resources_.erase(it);
    return true;
}

bool clsGraphicsLineGDIpAA::DestroyBrush(Handle brush) {
    const auto it = resources_.find(brush);
    if (token_ == 0 || it == resources_.end() || it->second.isPen) {
        return false;
    }
    resources_.erase(it);
    return true;
}

int clsGraphicsLineGDIpAA::Clear() {
    const int released = static_cast<int>(resources_.size());
    resources_.clear();
    return released;
}

int clsGraphicsLineGDIpAA::GetBrushType(Handle brush) const {
    const BrushSpec* b = Brush(brush);
    return b != nullptr ? b->type : -1;
}

bool clsGraphicsLineGDIpAA::GetPenProps(Handle pen, PenSpec& props) const {
    const PenSpec* p = Pen(pen);
    if (p == nullptr) {
        return false;
    }
    props = *p;
    return true;
}

bool clsGraphicsLineGDIpAA::GetSolidBrushColorARGB(Handle brush, std::uint32_t& argb) const {
    const BrushSpec* b = Brush(brush);
    if (b == nullptr || b->type != kBrushSolid) {
        return false;
    }
    argb = b->argb;
    return true;
}

bool clsGraphicsLineGDIpAA::GetHatchBrushColors(Handle brush, std::uint32_t& foreArgb,
                                                std::uint32_t& backArgb) const {
    const BrushSpec* b = Brush(brush);
    if (b == nullptr || b->type != kBrushHatch) {
        return false;
    }
    foreArgb = b->argb;
    backArgb = b->argb2;
    return true;
}

bool clsGraphicsLineGDIpAA::GetGradientLineBrushColors(Handle brush, std::uint32_t& argb1,
                                                       std::uint32_t& argb2) const {
    const BrushSpec* b = Brush(brush);
    if (b == nullptr || b->type != kBrushLinearGradient) {
        return false;
    }
    argb1 = b->argb;
    argb2 = b->argb2;
    return true;
}

bool clsGraphicsLineGDIpAA::SetPenColor(Handle pen, std::uint32_t argb) {
    auto* p = const_cast<PenSpec*>(Pen(pen));
    if (p == nullptr) {
        return false;
    }
    p->argb = argb;
    return true;
}

bool clsGraphicsLineGDIpAA::SetPenWidth(Handle pen, float width) {
    auto* p = const_cast<PenSpec*>(Pen(pen));
    if (p == nullptr || !(width > 0)) {
        return false;
    }
    p->width = width;
    return true;
}

bool clsGraphicsLineGDIpAA::SetPenEndCaps(Handle pen, int which, int cap) {
    auto* p = const_cast<PenSpec*>(Pen(pen));
    if (p == nullptr) {
        return false;
    }
    (which == 1 ? p->endCap : p->startCap) = cap;
    return true;
}

bool clsGraphicsLineGDIpAA::SetGradientColors(Handle brush, std::uint32_t argb1, std::uint32_t argb2) {
    auto* b = const_cast<BrushSpec*>(Brush(brush));
    if (b == nullptr || b->type != kBrushLinearGradient) {
        return false;
    }
    b->argb = argb1;
    b->argb2 = argb2;
    return true;
}

bool clsGraphicsLineGDIpAA::SetGradientWrapMode(Handle brush, int wrapMode) {
    auto* b = const_cast<BrushSpec*>(Brush(brush));
    if (b == nullptr || b->type != kBrushLinearGradient) {
        return false;
    }
    b->wrapMode = wrapMode;
    return true;
}

clsGraphicsLineGDIpAA::Handle clsGraphicsLineGDIpAA::CreateHGraphics(DrawingSurface& surface) {
    if (token_ == 0) {
        return 0;
    }
    const Handle h = NewHandle();
    graphics_[h] = &surface;
    return h;
}

bool clsGraphicsLineGDIpAA::DestroyHGraphics(Handle graphics) {
    return graphics_.erase(graphics) == 1;
}

int clsGraphicsLineGDIpAA::EraseHGraphics(Handle graphics, std::uint32_t argb) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr) {
        return 0;
    }
    s->AAClear(argb);
    return 1;
}

int clsGraphicsLineGDIpAA::SetHGraphicsQuality(Handle graphics, int interpolation, int smoothing,
                                               int compositing, int pixelOffset) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr) {
        return 0;
    }
    s->AASetQuality(interpolation, smoothing, compositing, pixelOffset);
    return 1;
}

int clsGraphicsLineGDIpAA::RotateHGraphics(Handle graphics, double angleDeg, double centreX, double centreY) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr) {
        return 0;
    }
    s->AASetWorldTransform(angleDeg, centreX, centreY);
    return 1;
}

int clsGraphicsLineGDIpAA::ResetWorldTransform(Handle graphics) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr) {
        return 0;
    }
    s->AAResetWorldTransform();
    return 1;
}

int clsGraphicsLineGDIpAA::RenderToHGraphics(const SurfaceImage& image, Handle graphics,
                                             const RectF& destination, const RectF& source) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr) {
        return 0;
    }
    s->AADrawImage(image, destination, source);
    return 1;
}

int clsGraphicsLineGDIpAA::DrawLine(Handle graphics, Handle pen, float x1, float y1, float x2, float y2) {
    const PointF points[2] = {{x1, y1}, {x2, y2}};
    return DrawLines(graphics, pen, points, 2);
}

int clsGraphicsLineGDIpAA::DrawLineL(Handle graphics, Handle pen, int x1, int y1, int x2, int y2) {
    const PointI points[2] = {{x1, y1}, {x2, y2}};
    return DrawLinesL(graphics, pen, points, 2);
}

int clsGraphicsLineGDIpAA::DrawLines(Handle graphics, Handle pen, const PointF* points, int count) {
    DrawingSurface* s = Surface(graphics);
    const PenSpec* p = Pen(pen);
    if (s == nullptr || p == nullptr || points == nullptr || count < 1) {
        return 0;
    }
    s->AAPolyline(points, count, *p);
    return 1;
}

int clsGraphicsLineGDIpAA::DrawSegments(Handle graphics, Handle pen, const PointF* points, int count) {
    DrawingSurface* s = Surface(graphics);
    const PenSpec* p = Pen(pen);
    if (s == nullptr || p == nullptr || points == nullptr || count < 2) {
        return 0;
    }
    s->AASegments(points, count, *p);
    return 1;
}

int clsGraphicsLineGDIpAA::DrawLinesL(Handle graphics, Handle pen, const PointI* points, int count) {
    if (points == nullptr || count < 1) {
        return 0;
    }
    const std::vector<PointF> f = ToFloat(points, count);
    return DrawLines(graphics, pen, f.data(), count);
}

int clsGraphicsLineGDIpAA::DrawPolygon(Handle graphics, const PointF* points, int count, int fillMode,
                                       Handle pen, std::uint32_t argb, Handle brush) {
    return Shape(graphics, points, count, fillMode, pen, argb, brush, false, false);
}

int clsGraphicsLineGDIpAA::DrawPolygonL(Handle graphics, const PointI* points, int count, int fillMode,
                                        Handle pen, std::uint32_t argb, Handle brush) {
    if (points == nullptr || count < 1) {
        return 0;
    }
    const std::vector<PointF> f = ToFloat(points, count);
    return DrawPolygon(graphics, f.data(), count, fillMode, pen, argb, brush);
}

int clsGraphicsLineGDIpAA::DrawEllipse(Handle graphics, int left, int top, int width, int height, Handle pen,
                                       std::uint32_t argb, Handle brush) {
    const PointF box[2] = {{static_cast<float>(left), static_cast<float>(top)},
                           {static_cast<float>(left + width), static_cast<float>(top + height)}};
    return Shape(graphics, box, 2, 0, pen, argb, brush, true, false);
}

int clsGraphicsLineGDIpAA::DrawRectangle(Handle graphics, const RectF& rect, Handle pen, std::uint32_t argb,
                                         Handle brush) {
    const PointF corners[4] = {{rect.Left, rect.Top},
                               {rect.Left + rect.Width, rect.Top},
                               {rect.Left + rect.Width, rect.Top + rect.Height},
                               {rect.Left, rect.Top + rect.Height}};
    return Shape(graphics, corners, 4, 0, pen, argb, brush, false, false);
}

int clsGraphicsLineGDIpAA::DrawRectangles(Handle graphics, const RectF* rects, int count, Handle pen,
                                          std::uint32_t argb, Handle brush) {
    if (rects == nullptr || count < 1) {
        return 0;
    }
    int done = 0;
    for (int i = 0; i < count; ++i) {
        const RectF& r = rects[i];
        const PointF corners[4] = {{r.Left, r.Top},
                                   {r.Left + r.Width, r.Top},
                                   {r.Left + r.Width, r.Top + r.Height},
                                   {r.Left, r.Top + r.Height}};
        done = Shape(graphics, corners, 4, 0, pen, argb, brush, false, true);
    }
    return done;
}

const PenSpec* clsGraphicsLineGDIpAA::Pen(Handle pen) const {
    const auto it = resources_.find(pen);
    return token_ != 0 && it != resources_.end() && it->second.isPen ? &it->second.pen : nullptr;
}

const BrushSpec* clsGraphicsLineGDIpAA::Brush(Handle brush) const {
    const auto it = resources_.find(brush);
    return token_ != 0 && it != resources_.end() && !it->second.isPen ? &it->second.brush : nullptr;
}

DrawingSurface* clsGraphicsLineGDIpAA::Surface(Handle graphics) const {
    const auto it = graphics_.find(graphics);
    return token_ != 0 && it != graphics_.end() ? it->second : nullptr;
}

int clsGraphicsLineGDIpAA::Shape(Handle graphics, const PointF* points, int count, int fillMode, Handle pen,
                                 std::uint32_t argb, Handle brush, bool ellipse, bool outlineWithColour) {
    DrawingSurface* s = Surface(graphics);
    if (s == nullptr || points == nullptr || count < 1) {
        return 0;
    }
    const PenSpec* p = Pen(pen);
    const BrushSpec* b = Brush(brush);
    BrushSpec temporary;
    PenSpec colourPen;
    if (b == nullptr && argb != 0) {
        temporary.argb = argb;
        b = &temporary;
        if (outlineWithColour) {
            // The colour branch of the plural rectangles draws where the others fill.
            colourPen.argb = argb;
            b = nullptr;
            p = &colourPen;
        }
    }
    if (b == nullptr && p == nullptr) {
        return 0;
    }
    if (ellipse) {
        const RectF bounds{points[0].X, points[0].Y, points[1].X - points[0].X, points[1].Y - points[0].Y};
        if (b != nullptr) {
            s->AAEllipse(bounds, nullptr, b);
        }
        if (p != nullptr) {
            s->AAEllipse(bounds, p, nullptr);
        }
        return 1;
    }
    if (b != nullptr) {
        s->AAPolygon(points, count, fillMode, nullptr, b);
    }
    if (p != nullptr) {
        s->AAPolygon(points, count, fillMode, p, nullptr);
    }
    return 1;
}

} // namespace corvane
