#pragma once

// What a graph draws on. Two halves, as the graphs have always drawn:
//   - the picture box: a surface measured in twips (1/1440 inch) with a pen and font state, on
//     which axes, ticks, grid lines and every text are drawn with Line and Print;
//   - the raster operations of the anti-aliased layer (clsGraphicsLineGDIpAA): polylines,
//     polygons and ellipses in pixels with ARGB pens and brushes.
// The core only speaks to this class; the platform paints it with QPainter (images, widgets, PDF,
// SVG, printers) and tests record it. Colours of the picture box are 0xBBGGRR like every colour
// of the program; only the raster half takes ARGB (see GraphColours.h).

#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

// A picture a surface hands out (Image) and takes back as its background (SetPicture). Only the
// surface that made it knows what is inside.
class SurfaceImage {
public:
    virtual ~SurfaceImage() = default;
};

// Points of the raster half, in pixels. Integer points exist for the layer's "L" forms.
struct PointF {
    float X = 0;
    float Y = 0;
};
struct PointI {
    std::int32_t X = 0;
    std::int32_t Y = 0;
};
struct RectF {
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
};

// Dash styles of pens (GDI+ numbering): 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot.
// Line caps: 0 flat, 1 square, 2 round, 3 triangle.
struct PenSpec {
    std::uint32_t argb = 0xFF000000;
    float width = 1;
    std::int32_t dashStyle = 0;
    std::int32_t dashCap = 0;
    std::int32_t startCap = 0;
    std::int32_t endCap = 0;
};

// Brush types (GDI+ numbering).
enum BrushType : std::int32_t {
    kBrushSolid = 0,
    kBrushHatch = 1,
    kBrushTexture = 2,
    kBrushPathGradient = 3,
    kBrushLinearGradient = 4,
};

// A hatch brush paints `argb` lines over `argb2`; a linear gradient runs from `argb` at (x1, y1)
// to `argb2` at (x2, y2), repeating by `wrapMode` (0 tile, 1 flip x, 2 flip y, 3 flip both, 4
// clamp).
struct BrushSpec {
    std::int32_t type = kBrushSolid;
    std::uint32_t argb = 0xFF000000;
    std::uint32_t argb2 = 0xFF000000;
    std::int32_t hatchStyle = 0;
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    std::int32_t wrapMode = 0;
};

class DrawingSurface {
public:
    virtual ~DrawingSurface() = default;

    // Size in twips and the twips one pixel covers. ScaleWidth = pixels across x TwipsPerPixelX.
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    virtual double TwipsPerPixelX() const = 0;
    virtual double TwipsPerPixelY() const = 0;

    // Pen and font state of the picture box, read by Line, Print and the text measures.
    double CurrentX = 0; // twips
    double CurrentY = 0;
    std::int32_t DrawWidth = 1;  // pixels
    std::int32_t DrawStyle = 0;  // 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none
    std::uint32_t ForeColor = 0; // 0xBBGGRR
    std::uint32_t BackColor = 0xFFFFFF;
    std::string FontName = "Arial";
    double FontSize = 9; // points
    bool FontBold = false;
    double FontAngle = 0; // degrees counter-clockwise; 90 reads from bottom to top

    // A line in twips with the pen state; the pen position moves to its end.
    virtual void Line(double x1, double y1, double x2, double y2) = 0;
    // One line of text with its top left corner at the pen position (turned about it by
    // FontAngle).
    virtual void Print(const std::string& text) = 0;
    virtual double TextWidth(const std::string& text) = 0; // twips
    virtual double TextHeight(const std::string& text) = 0;
    // Paints the back colour and, over it, the picture when one is set.
    virtual void Cls() = 0;
    virtual void SetPicture(std::shared_ptr<const SurfaceImage> picture) = 0;
    // What the surface shows now, to be set as a picture later; null when it keeps no raster
    // (a vector file).
    virtual std::shared_ptr<const SurfaceImage> Image() = 0;
    // The drawing is complete: a widget repaints, a file surface keeps what it has.
    virtual void Refresh() {}

    // The raster half, pixels and ARGB. A null pen draws no outline and a null brush fills
    // nothing. Polygon fill mode 0 alternate, 1 winding.
    virtual void AAClear(std::uint32_t argb) = 0;
    virtual void AAPolyline(const PointF* points, int count, const PenSpec& pen) = 0;
    // Separate strokes of one pen, each from points[2i] to points[2i + 1] (a dashed line's
    // dashes); a surface that can stroke them in one go does, the others stroke each as a line.
    virtual void AASegments(const PointF* points, int count, const PenSpec& pen) {
        for (int i = 0; i + 1 < count; i += 2) {
            AAPolyline(points + i, 2, pen);
        }
    }
    virtual void AAPolygon(const PointF* points, int count, int fillMode, const PenSpec* pen,
                           const BrushSpec* brush) = 0;
    virtual void AAEllipse(const RectF& bounds, const PenSpec* pen, const BrushSpec* brush) = 0;
    virtual void AADrawImage(const SurfaceImage& image, const RectF& destination, const RectF& source) = 0;
    // Rotation in degrees about the origin, then a move by (dx, dy); Reset goes back to none.
    virtual void AASetWorldTransform(double rotationDeg, double dx, double dy) = 0;
    virtual void AAResetWorldTransform() = 0;
    // GDI+ quality modes; a surface without such choices ignores them.
    virtual void AASetQuality(int interpolation, int smoothing, int compositing, int pixelOffset) {
        (void)interpolation, (void)smoothing, (void)compositing, (void)pixelOffset;
    }
};

// Twips per pixel for a raster of the given size: the nominal 15 (96 pixels to the inch) when the
// whole raster stays within the graph engine's 16-bit range of +/-32000 twips, otherwise fewer,
// so that a large report surface is drawn whole at a finer scale instead of being cut at the
// clamp. Sizes of 0 or less give the nominal value.
double FittedTwipsPerPixel(double widthPixels, double heightPixels, double nominal = 15.0);

} // namespace corvane
