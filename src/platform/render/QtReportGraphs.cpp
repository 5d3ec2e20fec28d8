#include "platform/render/QtReportGraphs.h"

#include "files/FileAccess.h"
#include "platform/render/GraphFile.h"
#include "support/ErrorTail.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace corvane {

namespace {

constexpr int kGutterPixels = 13; // 195 twips at 15 twips to the pixel

} // namespace

QtReportGraphs::QtReportGraphs(std::string folder)
    : folder_(folder.empty() ? GraphWorkingFolder() : std::move(folder)) {}

std::string QtReportGraphs::GraphFile(ReportGraph graph, const GraphRequest& request, double pageWidthTwips,
                                      double pageHeightTwips) {
    std::string reason;
    return WriteReportGraphFile(folder_, graph, request, pageWidthTwips, pageHeightTwips, reason);
}

std::string QtReportGraphs::CompoundImage(const std::string& first, const std::string& second,
                                          const std::string& outName) {
    return BuildCompoundImage(folder_, first, second, outName);
}

std::string BuildCompoundImage(const std::string& folder, const std::string& first, const std::string& second,
                               const std::string& outName) {
    std::string written;
    ErrorTail tail("Building Compound image");
    tail.Step([&] {
        const QImage a = first.empty() ? QImage() : QImage(QString::fromStdString(first));
        const QImage b = second.empty() ? QImage() : QImage(QString::fromStdString(second));
        const int half = std::max({a.width(), b.width(), 64});
        const int height = std::max({a.height(), b.height(), 64});
        QImage joined(2 * half, height, QImage::Format_RGB32);
        joined.fill(Qt::white);
        {
            QPainter painter(&joined);
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            int x = 0;
            for (const QImage* image : {&a, &b}) {
                if (!image->isNull()) {
                    const QSize size =
                        image->size().scaled(half - kGutterPixels, height, Qt::KeepAspectRatio);
                    painter.drawImage(QRect(QPoint(x, 0), size), *image);
                }
                x += half;
            }
        }
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        joined.save(&buffer, "BMP");
        const std::string path = folder + outName;
        if (WriteFileAtomically(path,
                                std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size()))))
            written = path;
    });
    return written;
}

} // namespace corvane
