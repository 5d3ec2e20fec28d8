#include "platform/render/QtDrawingSurface.h"

#include "graphs/GraphColours.h"

#include <QBrush>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPen>
#include <QPolygonF>

#include <cmath>
#include <vector>

namespace corvane {

namespace {

QColor FromARGB(std::uint32_t argb) {
    return QColor(static_cast<int>((argb >> 16) & 0xFF), static_cast<int>((argb >> 8) & 0xFF),
                  static_cast<int>(argb & 0xFF), static_cast<int>(argb >> 24));
}

QColor FromBGR(std::uint32_t bgr) {
    return FromARGB(BGRToARGB(bgr, 255));
}

Qt::PenStyle DashOf(int style) {
    switch (style) {
    case 1:
        return Qt::DashLine;
    case 2:
        return Qt::DotLine;
    case 3:
        return Qt::DashDotLine;
    case 4:
        return Qt::DashDotDotLine;
    case 5:
        return Qt::NoPen;
    default:
        return Qt::SolidLine;
    }
}

Qt::PenCapStyle CapOf(int cap) {
    switch (cap) {
    case 1:
        return Qt::SquareCap;
    case 2:
        return Qt::RoundCap;
    default:
        return Qt::FlatCap;
    }
}

QPen PenOf(const PenSpec& spec) {
    QPen pen(FromARGB(spec.argb));
    pen.setWidthF(spec.width);
    pen.setStyle(DashOf(spec.dashStyle));
    pen.setCapStyle(CapOf(spec.endCap));
    // Mitred joins, as the anti-aliased layer has always drawn them; round ones cost an arc at
    // every point of a dense sweep.
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

Qt::BrushStyle HatchOf(int style) {
    static constexpr Qt::BrushStyle styles[] = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                                Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    return style >= 0 && style < 6 ? styles[style] : Qt::Dense4Pattern;
}

// A hatch paints its lines over its back colour: two brushes, back first.
void FillWith(QPainter& p, const BrushSpec& spec, const QPainterPath& path) {
    if (spec.type == kBrushHatch) {
        p.fillPath(path, FromARGB(spec.argb2));
        p.fillPath(path, QBrush(FromARGB(spec.argb), HatchOf(spec.hatchStyle)));
        return;
    }
    if (spec.type == kBrushLinearGradient) {
        QLinearGradient g(spec.x1, spec.y1, spec.x2, spec.y2);
        g.setColorAt(0, FromARGB(spec.argb));
        g.setColorAt(1, FromARGB(spec.argb2));
        g.setSpread(spec.wrapMode == 4 ? QGradient::PadSpread : QGradient::ReflectSpread);
        p.fillPath(path, QBrush(g));
        return;
    }
    p.fillPath(path, FromARGB(spec.argb));
}

} // namespace

QtDrawingSurface::QtDrawingSurface(QSize pixels, double twipsPerPixel)
    : own_(std::make_unique<QImage>(pixels.expandedTo(QSize(1, 1)), QImage::Format_RGB32)),
      pixels_(pixels.expandedTo(QSize(1, 1))) {
    device_ = own_.get();
    own_->fill(Qt::white);
    tpp_ = twipsPerPixel > 0 ? twipsPerPixel : FittedTwipsPerPixel(pixels_.width(), pixels_.height());
}

QtDrawingSurface::QtDrawingSurface(QPaintDevice& device, QSize pixels, double twipsPerPixel)
    : device_(&device), pixels_(pixels.expandedTo(QSize(1, 1))) {
    tpp_ = twipsPerPixel > 0 ? twipsPerPixel : FittedTwipsPerPixel(pixels_.width(), pixels_.height());
}

QtDrawingSurface::~QtDrawingSurface() {
    if (painter_.isActive()) {
        painter_.end();
    }
}

QPainter& QtDrawingSurface::Painter() {
    if (!painter_.isActive()) {
        painter_.begin(device_);
        painter_.setRenderHint(QPainter::Antialiasing, true);
        painter_.setRenderHint(QPainter::TextAntialiasing, true);
        painter_.setRenderHint(QPainter::SmoothPixmapTransform, true);
        // One logical unit per pixel of the picture, over the whole device.
        painter_.setWindow(0, 0, pixels_.width(), pixels_.height());
        painter_.setViewport(0, 0, device_->width(), device_->height());
    }
    return painter_;
}

void QtDrawingSurface::Finish() {
    if (own_ != nullptr && painter_.isActive()) {
        painter_.end();
    }
}

QFont QtDrawingSurface::Font() const {
    QFont font(QString::fromStdString(FontName));
    const double pixels = FontSize * 20 / tpp_;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    font.setBold(FontBold);
    return font;
}

void QtDrawingSurface::Line(double x1, double y1, double x2, double y2) {
    QPainter& p = Painter();
    p.setWorldTransform(QTransform());
    QPen pen(FromBGR(ForeColor));
    pen.setWidthF(std::max(1, DrawWidth));
    pen.setStyle(DashOf(DrawStyle));
    pen.setCapStyle(Qt::FlatCap);
    p.setPen(pen);
    p.drawLine(QPointF(x1 / tpp_, y1 / tpp_), QPointF(x2 / tpp_, y2 / tpp_));
    CurrentX = x2;
    CurrentY = y2;
}

void QtDrawingSurface::Print(const std::string& text) {
    QPainter& p = Painter();
    const QFont font = Font();
    p.setFont(font);
    p.setPen(FromBGR(ForeColor));
    const double ascent = QFontMetricsF(font).ascent();
    QTransform t;
    t.translate(CurrentX / tpp_, CurrentY / tpp_);
    t.rotate(-FontAngle);
    p.setWorldTransform(t);
    p.drawText(QPointF(0, ascent), QString::fromStdString(text));
    p.setWorldTransform(QTransform());
    CurrentY += TextHeight(text);
}

double QtDrawingSurface::TextWidth(const std::string& text) {
    return QFontMetricsF(Font()).horizontalAdvance(QString::fromStdString(text)) * tpp_;
}

double QtDrawingSurface::TextHeight(const std::string& text) {
    (void)text;
    return QFontMetricsF(Font()).height() * tpp_;
}

void QtDrawingSurface::Cls() {
    QPainter& p = Painter();
    p.setWorldTransform(QTransform());
    const QRectF all(0, 0, pixels_.width(), pixels_.height());
    const auto* picture = dynamic_cast<const QtSurfaceImage*>(picture_.get());
    if (picture == nullptr) {
        p.fillRect(all, FromBGR(BackColor));
        return;
    }
    // The picture covers the surface: copied over it, not blended, as every frame of the scan
    // arm graph starts this way.
    if (picture->image.hasAlphaChannel() || picture->image.size() != pixels_) {
        p.fillRect(all, FromBGR(BackColor));
        p.drawImage(all, picture->image);
        return;
    }
    p.setCompositionMode(QPainter::CompositionMode_Source);
    p.drawImage(all, picture->image);
    p.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

std::shared_ptr<const SurfaceImage> QtDrawingSurface::Image() {
    if (own_ == nullptr) {
        return nullptr;
    }
    Finish();
    return std::make_shared<QtSurfaceImage>(own_->copy());
}

void QtDrawingSurface::Refresh() {
    Finish();
}

void QtDrawingSurface::AAClear(std::uint32_t argb) {
    QPainter& p = Painter();
    p.setWorldTransform(QTransform());
    p.fillRect(QRectF(0, 0, pixels_.width(), pixels_.height()), FromARGB(argb));
}

void QtDrawingSurface::AAPolyline(const PointF* points, int count, const PenSpec& pen) {
    if (points == nullptr || count < 1) {
        return;
    }
    // Points less than a pixel from the last one kept, either way, add nothing a line of the
    // graphs' widths shows; a dense sweep loses most of its points here, its ends never. The
    // stroking of the rest is what a heavy top view costs.
    QPolygonF line;
    line.reserve(count);
    for (int i = 0; i < count; ++i) {
        const QPointF q(points[i].X, points[i].Y);
        if (!line.isEmpty() && i + 1 < count) {
            const QPointF d = q - line.back();
            if (std::fabs(d.x()) < 1.0 && std::fabs(d.y()) < 1.0) {
                continue;
            }
        }
        line.append(q);
    }
    QPainter& p = Painter();
    p.setWorldTransform(layerTransform_);
    p.setPen(PenOf(pen));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(line);
}

void QtDrawingSurface::AASegments(const PointF* points, int count, const PenSpec& pen) {
    if (points == nullptr || count < 2) {
        return;
    }
    // One stroke call for every dash of a line: painting them one by one is what a dashed graph
    // of many series costs.
    std::vector<QLineF> lines;
    lines.reserve(static_cast<std::size_t>(count / 2));
    for (int i = 0; i + 1 < count; i += 2) {
        lines.emplace_back(points[i].X, points[i].Y, points[i + 1].X, points[i + 1].Y);
    }
    QPainter& p = Painter();
    p.setWorldTransform(layerTransform_);
    p.setPen(PenOf(pen));
    p.setBrush(Qt::NoBrush);
    p.drawLines(lines.data(), static_cast<int>(lines.size()));
}

void QtDrawingSurface::AAPolygon(const PointF* points, int count, int fillMode, const PenSpec* pen,
                                 const BrushSpec* brush) {
    if (points == nullptr || count < 1) {
        return;
    }
    QPolygonF polygon;
    for (int i = 0; i < count; ++i) {
        polygon.append(QPointF(points[i].X, points[i].Y));
    }
    QPainter& p = Painter();
    p.setWorldTransform(layerTransform_);
    if (brush != nullptr) {
        QPainterPath path;
        path.setFillRule(fillMode == 1 ? Qt::WindingFill : Qt::OddEvenFill);
        path.addPolygon(polygon);
        path.closeSubpath();
        FillWith(p, *brush, path);
    }
    if (pen != nullptr) {
        p.setPen(PenOf(*pen));
        p.setBrush(Qt::NoBrush);
        p.drawPolygon(polygon);
    }
}

void QtDrawingSurface::AAEllipse(const RectF& bounds, const PenSpec* pen, const BrushSpec* brush) {
    QPainter& p = Painter();
    p.setWorldTransform(layerTransform_);
    const QRectF rect(bounds.Left, bounds.Top, bounds.Width, bounds.Height);
    if (brush != nullptr) {
        QPainterPath path;
        path.addEllipse(rect);
        FillWith(p, *brush, path);
    }
    if (pen != nullptr) {
        p.setPen(PenOf(*pen));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(rect);
    }
}

void QtDrawingSurface::AADrawImage(const SurfaceImage& image, const RectF& destination, const RectF& source) {
    const auto* qt = dynamic_cast<const QtSurfaceImage*>(&image);
    if (qt == nullptr) {
        return;
    }
    QPainter& p = Painter();
    p.setWorldTransform(layerTransform_);
    p.drawImage(QRectF(destination.Left, destination.Top, destination.Width, destination.Height), qt->image,
                QRectF(source.Left, source.Top, source.Width, source.Height));
}

void QtDrawingSurface::AASetWorldTransform(double rotationDeg, double dx, double dy) {
    QTransform t;
    t.rotate(rotationDeg);
    layerTransform_ = t * QTransform::fromTranslate(dx, dy);
}

void QtDrawingSurface::AAResetWorldTransform() {
    layerTransform_ = QTransform();
}

} // namespace corvane
