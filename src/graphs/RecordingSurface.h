#pragma once

// A drawing surface that paints nothing and remembers every call with its arguments, texts and
// colours: what the tests read to see which series, labels and colours a graph drew. Text is
// measured by a fixed rule (half an em per character, 1.2 em per line), so that layouts come out
// the same on every machine.

#include "graphs/DrawingSurface.h"
#include "graphs/GraphMath.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

struct SurfaceCall {
    enum class Kind { Line, Print, Cls, Clear, Polyline, Polygon, Ellipse, Image, Transform };
    Kind kind = Kind::Line;
    // Line: both ends in twips; Print: the pen position; raster calls: the points in pixels.
    std::vector<PointD> points;
    std::string text;
    std::uint32_t colour = 0; // Line and Print: 0xBBGGRR; raster calls: the pen's ARGB
    std::uint32_t fill = 0;   // raster calls: the brush's ARGB (or the clear colour)
    bool pen = false, brush = false;
    double width = 0; // Line: DrawWidth; raster: the pen width
    int style = 0;    // Line: DrawStyle; raster: the pen's dash style
    std::string font;
    double size = 0;
    bool bold = false;
    double angle = 0;
};

class RecordingSurface : public DrawingSurface {
public:
    RecordingSurface(int widthPixels, int heightPixels, double twipsPerPixel = 15.0);

    double ScaleWidth() const override { return width_ * tpp_; }
    double ScaleHeight() const override { return height_ * tpp_; }
    double TwipsPerPixelX() const override { return tpp_; }
    double TwipsPerPixelY() const override { return tpp_; }

    void Line(double x1, double y1, double x2, double y2) override;
    void Print(const std::string& text) override;
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void Cls() override;
    void SetPicture(std::shared_ptr<const SurfaceImage> picture) override { picture_ = std::move(picture); }
    std::shared_ptr<const SurfaceImage> Image() override;

    void AAClear(std::uint32_t argb) override;
    void AAPolyline(const PointF* points, int count, const PenSpec& pen) override;
    void AAPolygon(const PointF* points, int count, int fillMode, const PenSpec* pen,
                   const BrushSpec* brush) override;
    void AAEllipse(const RectF& bounds, const PenSpec* pen, const BrushSpec* brush) override;
    void AADrawImage(const SurfaceImage& image, const RectF& destination, const RectF& source) override;
    void AASetWorldTransform(double rotationDeg, double dx, double dy) override;
    void AAResetWorldTransform() override;

    std::vector<SurfaceCall> calls;
    const std::shared_ptr<const SurfaceImage>& Picture() const { return picture_; }

    // Every text printed, in order.
    std::vector<std::string> Texts() const;
    bool Printed(const std::string& text) const;
    // The raster calls (polylines and polygons) whose pen or brush has this 0xBBGGRR colour.
    std::vector<const SurfaceCall*> InColour(std::uint32_t bgr) const;

private:
    double width_, height_, tpp_;
    std::shared_ptr<const SurfaceImage> picture_;
};

} // namespace corvane
