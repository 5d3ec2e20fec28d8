#include "platform/render/ReportRenderer.h"

#include "files/FileAccess.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <numeric>

namespace corvane {

namespace {

constexpr double kTwipsPerInch = 1440;
constexpr double kCellPadding = 40; // twips between a cell's border and its text

QColor Colour(std::uint32_t rgb) {
    return QColor((rgb >> 16) & 0xFF, (rgb >> 8) & 0xFF, rgb & 0xFF);
}

int AlignFlags(ReportAlign align) {
    switch (align) {
    case ReportAlign::Center:
        return Qt::AlignHCenter;
    case ReportAlign::Right:
        return Qt::AlignRight;
    default:
        return Qt::AlignLeft;
    }
}

double PrintableWidth(const ReportPageOptions& o) {
    return (o.PaperWidthInches() - o.InInches(o.MarginLeft) - o.InInches(o.MarginRight)) * kTwipsPerInch;
}

void PaintCell(QPainter& painter, const ReportCell& cell, const QRectF& box) {
    if (cell.fill)
        painter.fillRect(box, Colour(*cell.fill));
    if (!cell.image.empty()) {
        const QImage image(QString::fromStdString(cell.image));
        if (!image.isNull()) {
            QSizeF size(cell.imageWidth, cell.imageHeight);
            size = size.scaled(box.size(), Qt::KeepAspectRatio);
            const QRectF target(box.left() + (box.width() - size.width()) / 2, box.top(), size.width(),
                                size.height());
            painter.drawImage(target, image);
        }
    }
    if (!cell.text.empty()) {
        const ReportTextStyle style = ReportStyle(cell.style);
        QFont font(QStringLiteral("DejaVu Sans"));
        font.setPixelSize(static_cast<int>(style.points * 20)); // 20 twips to the point
        font.setBold(style.bold);
        painter.setFont(font);
        painter.setPen(Colour(cell.textColour));
        QString text = QString::fromStdString(cell.text);
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        painter.drawText(box.adjusted(kCellPadding, 0, -kCellPadding, 0),
                         AlignFlags(cell.align) | Qt::AlignVCenter | Qt::TextWordWrap, text);
    }
    QPen pen(Qt::black);
    pen.setWidthF(10);
    painter.setPen(pen);
    if (cell.borders[0])
        painter.drawLine(box.topLeft(), box.bottomLeft());
    if (cell.borders[1])
        painter.drawLine(box.topLeft(), box.topRight());
    if (cell.borders[2])
        painter.drawLine(box.topRight(), box.bottomRight());
    if (cell.borders[3])
        painter.drawLine(box.bottomLeft(), box.bottomRight());
}

} // namespace

QPageLayout ReportPageLayout(const ReportPageOptions& o) {
    const bool landscape = o.PaperOrientationIndex == 2;
    const double w = landscape ? o.PaperHeightInches() : o.PaperWidthInches();
    const double h = landscape ? o.PaperWidthInches() : o.PaperHeightInches();
    QPageSize size;
    if (o.PaperSizeIndex == 9)
        size = QPageSize(QPageSize::A4);
    else
        size = QPageSize(QSizeF(w, h), QPageSize::Inch, QString(), QPageSize::ExactMatch);
    const QMarginsF margins(o.InInches(o.MarginLeft), o.InInches(o.MarginTop), o.InInches(o.MarginRight),
                            o.InInches(o.MarginBottom));
    return QPageLayout(size, landscape ? QPageLayout::Landscape : QPageLayout::Portrait, margins,
                       QPageLayout::Inch, QMarginsF(0, 0, 0, 0));
}

void PaintReportPage(QPainter& painter, const ReportDocument& document, int page) {
    if (page < 0 || page >= document.PageCount())
        return;
    const double width = PrintableWidth(document.Options());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    double y = 0;
    for (const ReportRow& row : document.Page(page).rows) {
        const double height = ReportRowHeight(row);
        std::vector<double> weights = row.widths;
        weights.resize(row.cells.size(), 1.0);
        const double total = std::accumulate(weights.begin(), weights.end(), 0.0);
        double x = 0;
        for (std::size_t c = 0; c < row.cells.size(); ++c) {
            const double w = width * weights[c] / total;
            PaintCell(painter, row.cells[c], QRectF(x, y, w, height));
            x += w;
        }
        y += height;
    }
    painter.restore();
}

bool PaintReport(QPagedPaintDevice& device, const ReportDocument& document) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    // The painter starts at the printable area's corner in device pixels; the pages speak twips.
    const double scale = device.logicalDpiX() / kTwipsPerInch;
    for (int p = 0; p < document.PageCount(); ++p) {
        if (p > 0)
            device.newPage();
        painter.save();
        painter.scale(scale, device.logicalDpiY() / kTwipsPerInch);
        PaintReportPage(painter, document, p);
        painter.restore();
    }
    return painter.end();
}

bool SaveReportPdf(const ReportDocument& document, const std::string& path, std::string& reason) {
    QByteArray bytes;
    {
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setTitle(QString::fromStdString(document.Title()));
        writer.setCreator(QStringLiteral("Corvane"));
        writer.setResolution(600);
        writer.setPageLayout(ReportPageLayout(document.Options()));
        if (!PaintReport(writer, document)) {
            reason = "the pages could not be drawn";
            return false;
        }
    }
    if (!WriteFileAtomically(path,
                             std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))) {
        reason = "cannot write " + path;
        return false;
    }
    return true;
}

} // namespace corvane
