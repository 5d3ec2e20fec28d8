#include "shell/ReportView.h"

#include "platform/render/ReportRenderer.h"

#include <QPainter>

#include <algorithm>

namespace corvane {

namespace {
constexpr double kTwipsPerInch = 1440;
constexpr int kGap = 12; // pixels of grey around the sheet
} // namespace

ReportView::ReportView(QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(false);
    setMinimumSize(200, 260);
}

void ReportView::SetDocument(const ReportDocument* document) {
    shown_ = document != nullptr;
    document_ = document ? *document : ReportDocument();
    page_ = 0;
    update();
    emit PageChanged(page_);
}

void ReportView::ShowPage(int page) {
    if (!shown_ || page < 0 || page >= document_.PageCount() || page == page_)
        return;
    page_ = page;
    update();
    emit PageChanged(page_);
}

void ReportView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(128, 128, 128));
    if (!shown_ || document_.PageCount() == 0)
        return;
    const ReportPageOptions& o = document_.Options();
    const double paperW = o.PaperWidthInches() * kTwipsPerInch;
    const double paperH = o.PaperHeightInches() * kTwipsPerInch;
    const double scale = std::min((width() - 2 * kGap) / paperW, (height() - 2 * kGap) / paperH);
    if (scale <= 0)
        return;
    const QRectF sheet((width() - paperW * scale) / 2, (height() - paperH * scale) / 2, paperW * scale,
                       paperH * scale);
    painter.fillRect(sheet.translated(3, 3), QColor(60, 60, 60));
    painter.fillRect(sheet, Qt::white);
    painter.translate(sheet.left() + o.InInches(o.MarginLeft) * kTwipsPerInch * scale,
                      sheet.top() + o.InInches(o.MarginTop) * kTwipsPerInch * scale);
    painter.scale(scale, scale);
    PaintReportPage(painter, document_, page_);
}

} // namespace corvane
