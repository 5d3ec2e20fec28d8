#include "shell/ScanArmView.h"

#include "platform/render/QtDrawingSurface.h"

#include <QPaintEvent>
#include <QPainter>

namespace corvane {

ScanArmView::ScanArmView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ScanArmView"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 120);
}

ScanArmView::~ScanArmView() = default;

void ScanArmView::SetOptions(const GraphOptions& options) {
    options_ = options;
    ScanChanged();
}

void ScanArmView::ScanChanged() {
    graph_.Forget();
}

void ScanArmView::EnsureSurface() {
    const QSize size = this->size().expandedTo(QSize(1, 1));
    if (surface_ == nullptr || surface_->Pixels() != size) {
        surface_ = std::make_unique<QtDrawingSurface>(size);
        graph_.Forget();
    }
}

void ScanArmView::MoveArm(const clsCorvane& project, int scanIndex, const ArmOnGraph& arm, int blade,
                          int section) {
    EnsureSurface();
    if (!graph_.HasBackground()) {
        graph_.Background(*surface_, project, scanIndex, options_);
    }
    graph_.Frame(*surface_, project, scanIndex, arm, blade, section, options_);
    surface_->Finish();
    update();
}

void ScanArmView::DrawStill(const clsCorvane& project, int scanIndex, const ArmOnGraph& arm) {
    EnsureSurface();
    CreateScanArmGraph(*surface_, project, scanIndex, arm, options_);
    surface_->Finish();
    update();
}

QImage ScanArmView::Picture() const {
    return surface_ != nullptr && surface_->Raster() != nullptr ? *surface_->Raster() : QImage();
}

void ScanArmView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (surface_ != nullptr && surface_->Raster() != nullptr) {
        painter.drawImage(event->rect(), *surface_->Raster(), event->rect());
    } else {
        painter.fillRect(event->rect(),
                         options_.surfaceEnabled ? QColor(0xBA, 0xBA, 0xBA) : QColor(Qt::white));
    }
}

void ScanArmView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    graph_.Forget();
}

} // namespace corvane
