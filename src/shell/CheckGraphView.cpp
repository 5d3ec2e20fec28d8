#include "shell/CheckGraphView.h"

#include <QMouseEvent>
#include <QPainter>

namespace corvane {

CheckGraphView::CheckGraphView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(120, 90);
}

void CheckGraphView::SetPicture(QImage picture) {
    picture_ = std::move(picture);
    update();
}

void CheckGraphView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    if (!picture_.isNull()) {
        painter.drawImage(QPoint(0, 0), picture_);
    }
}

void CheckGraphView::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        emit Clicked();
    }
}

void CheckGraphView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    emit Resized();
}

} // namespace corvane
