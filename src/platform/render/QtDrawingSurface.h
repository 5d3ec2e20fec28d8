#pragma once

// The drawing surface painted with QPainter, antialiasing on: on a QImage (screen graphs, PNG and
// BMP files, the Scan page's arm graph), a QPdfWriter, a QSvgGenerator or a QPrinter. The graphs
// speak in twips and pixels; here one pixel is one logical unit of the painter, mapped onto the
// whole device whatever its own resolution, so a PDF page holds the same picture as an image of
// the same size in pixels.

#include "graphs/DrawingSurface.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QSize>
#include <QTransform>

#include <memory>

namespace corvane {

// An image handed out by a raster surface and taken back as a picture.
class QtSurfaceImage : public SurfaceImage {
public:
    explicit QtSurfaceImage(QImage image) : image(std::move(image)) {}
    QImage image;
};

class QtDrawingSurface : public DrawingSurface {
public:
    // A surface on a raster of its own, white until drawn on.
    explicit QtDrawingSurface(QSize pixels, double twipsPerPixel = 0);
    // A surface on another device, `pixels` across and down in logical pixels (the device's
    // whole page or image). A twipsPerPixel of 0 takes FittedTwipsPerPixel. The device must
    // outlive the surface; painting ends when the surface goes.
    QtDrawingSurface(QPaintDevice& device, QSize pixels, double twipsPerPixel = 0);
    ~QtDrawingSurface() override;
    QtDrawingSurface(const QtDrawingSurface&) = delete;
    QtDrawingSurface& operator=(const QtDrawingSurface&) = delete;

    // The raster this surface owns (null on another device). Finish before reading it.
    const QImage* Raster() const { return own_.get(); }
    QSize Pixels() const { return pixels_; }
    // Ends the painting on a raster, so that it can be read or shown; the next drawing resumes
    // it. On other devices painting runs until the surface goes.
    void Finish();

    double ScaleWidth() const override { return pixels_.width() * tpp_; }
    double ScaleHeight() const override { return pixels_.height() * tpp_; }
    double TwipsPerPixelX() const override { return tpp_; }
    double TwipsPerPixelY() const override { return tpp_; }

    void Line(double x1, double y1, double x2, double y2) override;
    void Print(const std::string& text) override;
    double TextWidth(const std::string& text) override;
    double TextHeight(const std::string& text) override;
    void Cls() override;
    void SetPicture(std::shared_ptr<const SurfaceImage> picture) override { picture_ = std::move(picture); }
    std::shared_ptr<const SurfaceImage> Image() override;
    void Refresh() override;

    void AAClear(std::uint32_t argb) override;
    void AAPolyline(const PointF* points, int count, const PenSpec& pen) override;
    void AASegments(const PointF* points, int count, const PenSpec& pen) override;
    void AAPolygon(const PointF* points, int count, int fillMode, const PenSpec* pen,
                   const BrushSpec* brush) override;
    void AAEllipse(const RectF& bounds, const PenSpec* pen, const BrushSpec* brush) override;
    void AADrawImage(const SurfaceImage& image, const RectF& destination, const RectF& source) override;
    void AASetWorldTransform(double rotationDeg, double dx, double dy) override;
    void AAResetWorldTransform() override;

private:
    QPainter& Painter();
    QFont Font() const;

    QPaintDevice* device_ = nullptr;
    std::unique_ptr<QImage> own_;
    QSize pixels_;
    double tpp_ = 15;
    QPainter painter_;
    QTransform layerTransform_;
    std::shared_ptr<const SurfaceImage> picture_;
};

} // namespace corvane
