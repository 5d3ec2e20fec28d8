#pragma once

// The anti-aliased drawing layer. The graph engine draws smooth lines, polygons, ellipses and
// rectangles through it, speaking in handles and pixels: pens and brushes are plain numbers that
// this object made and remembers, so that all of them can be released together (Clear), and a
// "graphics" handle stands for one drawing surface. The raster work itself is the surface's
// (DrawingSurface's raster half); nothing above this class depends on what paints.
//
// A layer made unavailable (token 0) turns every operation into a no-op that returns 0 or false:
// the graph engine then draws in its plain mode. No operation raises or reports: a zero handle,
// a null point array or a count of 0 leave the target untouched and give 0.

#include "graphs/DrawingSurface.h"

#include <cstdint>
#include <map>

namespace corvane {

class clsGraphicsLineGDIpAA {
public:
    using Handle = std::uint32_t;

    explicit clsGraphicsLineGDIpAA(bool available = true);
    ~clsGraphicsLineGDIpAA();
    clsGraphicsLineGDIpAA(const clsGraphicsLineGDIpAA&) = delete;
    clsGraphicsLineGDIpAA& operator=(const clsGraphicsLineGDIpAA&) = delete;

    // The session token; 0 when the layer cannot be used.
    Handle Token() const { return token_; }

    // 0xBBGGRR plus alpha to ARGB (red and blue change places); a negative colour is a system
    // colour. ARGBtoRGB is the reverse and gives the alpha separately.
    static std::uint32_t RGBtoARGB(std::int64_t rgb, int alpha);
    static std::uint32_t ARGBtoRGB(std::uint32_t argb, int& alpha);

    // Pens in pixels; a width of 0 or less makes no pen. Every pen and brush is remembered until
    // it is destroyed or Clear runs.
    Handle CreatePen(std::uint32_t argb, float width, int dashStyle = 0, int dashCap = 0);
    Handle CreateSolidBrush(std::uint32_t argb);
    Handle CreateHatchBrush(int style, std::uint32_t foreArgb, std::uint32_t backArgb);
    Handle CreateGradientLineBrush(float x1, float y1, float x2, float y2, std::uint32_t argb1,
                                   std::uint32_t argb2, int wrapMode);
    // Mode 0 horizontal, 1 vertical, 2 forward diagonal, 3 backward diagonal.
    Handle CreateGradientBrushRect(float left, float top, float width, float height, std::uint32_t argb1,
                                   std::uint32_t argb2, int mode, int wrapMode);
    // True when the handle was one of this layer's and is gone now; a foreign handle is harmless.
    bool DestroyPen(Handle pen);
    bool DestroyBrush(Handle brush);
    // Releases every pen and brush, newest first. Returns how many were released.
    int Clear();
    // Pens and brushes alive.
    std::size_t ResourceCount() const { return resources_.size(); }

    // Queries and setters; false or -1 for a handle that is not a live pen or brush of the kind.
    int GetBrushType(Handle brush) const;
    bool GetPenProps(Handle pen, PenSpec& props) const;
    bool GetSolidBrushColorARGB(Handle brush, std::uint32_t& argb) const;
    bool GetHatchBrushColors(Handle brush, std::uint32_t& foreArgb, std::uint32_t& backArgb) const;
    bool GetGradientLineBrushColors(Handle brush, std::uint32_t& argb1, std::uint32_t& argb2) const;
    bool SetPenColor(Handle pen, std::uint32_t argb);
    bool SetPenWidth(Handle pen, float width);
    // which 1 sets the end cap, anything else the start cap.
    bool SetPenEndCaps(Handle pen, int which, int cap);
    bool SetGradientColors(Handle brush, std::uint32_t argb1, std::uint32_t argb2);
    bool SetGradientWrapMode(Handle brush, int wrapMode);

    // A graphics handle for a surface; the surface must outlive it.
    Handle CreateHGraphics(DrawingSurface& surface);
    bool DestroyHGraphics(Handle graphics);
    int EraseHGraphics(Handle graphics, std::uint32_t argb);
    int SetHGraphicsQuality(Handle graphics, int interpolation, int smoothing, int compositing,
                            int pixelOffset);
    int RotateHGraphics(Handle graphics, double angleDeg, double centreX, double centreY);
    int ResetWorldTransform(Handle graphics);
    int RenderToHGraphics(const SurfaceImage& image, Handle graphics, const RectF& destination,
                          const RectF& source);

    int DrawLine(Handle graphics, Handle pen, float x1, float y1, float x2, float y2);
    int DrawLineL(Handle graphics, Handle pen, int x1, int y1, int x2, int y2);
    int DrawLines(Handle graphics, Handle pen, const PointF* points, int count);
    // Separate lines from points[2i] to points[2i + 1], stroked together.
    int DrawSegments(Handle graphics, Handle pen, const PointF* points, int count);
    int DrawLinesL(Handle graphics, Handle pen, const PointI* points, int count);
    // Shapes fill first and outline second: with a brush the brush fills; otherwise a colour
    // that is not 0 fills through a brush made for the call; then the pen, if any, outlines.
    int DrawPolygon(Handle graphics, const PointF* points, int count, int fillMode, Handle pen,
                    std::uint32_t argb, Handle brush);
    int DrawPolygonL(Handle graphics, const PointI* points, int count, int fillMode, Handle pen,
                     std::uint32_t argb, Handle brush);
    int DrawEllipse(Handle graphics, int left, int top, int width, int height, Handle pen, std::uint32_t argb,
                    Handle brush);
    int DrawRectangle(Handle graphics, const RectF& rect, Handle pen, std::uint32_t argb, Handle brush);
    // The plural form outlines with the colour instead of filling with it, as it always has;
    // nothing depends on that branch.
    int DrawRectangles(Handle graphics, const RectF* rects, int count, Handle pen, std::uint32_t argb,
                       Handle brush);

private:
    struct Resource {
        bool isPen = false;
        PenSpec pen;
        BrushSpec brush;
    };
    Handle NewHandle() { return nextHandle_++; }
    const PenSpec* Pen(Handle pen) const;
    const BrushSpec* Brush(Handle brush) const;
    DrawingSurface* Surface(Handle graphics) const;
    int Shape(Handle graphics, const PointF* points, int count, int fillMode, Handle pen, std::uint32_t argb,
              Handle brush, bool ellipse, bool outlineWithColour);

    Handle token_ = 0;
    Handle nextHandle_ = 1;
    std::map<Handle, Resource> resources_;
    std::map<Handle, DrawingSurface*> graphics_;
};

} // namespace corvane
