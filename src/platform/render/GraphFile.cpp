#include "platform/render/GraphFile.h"

#include "files/FileAccess.h"
#include "platform/render/QtDrawingSurface.h"

#include <QBuffer>
#include <QDir>
#include <QPageSize>
#include <QPdfWriter>
#include <QStandardPaths>
#include <QSvgGenerator>

#include <algorithm>
#include <cctype>

namespace corvane {

namespace {

constexpr double kPixelsPerInch = 96.0;
constexpr double kTwipsPerPixel = 15.0;

std::string Lower(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

bool Render(GraphFileFormat format, QSize pixels, const GraphDrawing& draw, QByteArray& bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    switch (format) {
    case GraphFileFormat::Png:
    case GraphFileFormat::Bmp: {
        QtDrawingSurface surface(pixels);
        draw(surface);
        surface.Finish();
        return surface.Raster()->save(&buffer, format == GraphFileFormat::Png ? "PNG" : "BMP");
    }
    case GraphFileFormat::Svg: {
        QSvgGenerator svg;
        svg.setOutputDevice(&buffer);
        svg.setSize(pixels);
        svg.setViewBox(QRect(QPoint(0, 0), pixels));
        svg.setResolution(static_cast<int>(kPixelsPerInch));
        svg.setTitle(QStringLiteral("Corvane graph"));
        {
            QtDrawingSurface surface(svg, pixels);
            draw(surface);
        }
        return bytes.size() > 0;
    }
    case GraphFileFormat::Pdf: {
        QPdfWriter pdf(&buffer);
        pdf.setResolution(static_cast<int>(kPixelsPerInch));
        pdf.setPageSize(QPageSize(QSizeF(pixels.width() / kPixelsPerInch, pixels.height() / kPixelsPerInch),
                                  QPageSize::Inch, QString(), QPageSize::ExactMatch));
        pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
        pdf.setCreator(QStringLiteral("Corvane"));
        {
            QtDrawingSurface surface(pdf, pixels);
            draw(surface);
        }
        return bytes.size() > 0;
    }
    }
    return false;
}

} // namespace

std::optional<GraphFileFormat> GraphFileFormatOf(const std::string& path) {
    const std::size_t dot = path.find_last_of('.');
    const std::string ext = dot == std::string::npos ? "" : Lower(path.substr(dot + 1));
    if (ext == "png") {
        return GraphFileFormat::Png;
    }
    if (ext == "svg") {
        return GraphFileFormat::Svg;
    }
    if (ext == "pdf") {
        return GraphFileFormat::Pdf;
    }
    if (ext == "bmp") {
        return GraphFileFormat::Bmp;
    }
    return std::nullopt;
}

bool WriteGraphFile(const std::string& path, GraphFileFormat format, QSize pixels, const GraphDrawing& draw,
                    std::string& reason) {
    QByteArray bytes;
    if (!Render(format, pixels, draw, bytes)) {
        reason = "the picture could not be drawn";
        return false;
    }
    if (!WriteFileAtomically(path,
                             std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())))) {
        reason = "cannot write " + path;
        return false;
    }
    return true;
}

std::string GraphWorkingFolder() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (folder.isEmpty()) {
        folder = QDir::tempPath() + QStringLiteral("/corvane");
    }
    folder += QStringLiteral("/graphs");
    QDir().mkpath(folder);
    return folder.toStdString() + "/";
}

std::string WriteReportGraphFile(const std::string& folder, ReportGraph graph, const GraphRequest& request,
                                 double pageWidthTwips, double pageHeightTwips, std::string& reason) {
    const ReportGraphFile file = ReportGraphFileOf(graph);
    if (*file.fileName == '\0') {
        reason = std::string("no report page takes the graph ") + file.title + " as a file";
        return "";
    }
    double width = 0, height = 0;
    ReportGraphSize(graph, pageWidthTwips, pageHeightTwips, width, height);
    const QSize pixels(std::max(1, static_cast<int>(width / kTwipsPerPixel)),
                       std::max(1, static_cast<int>(height / kTwipsPerPixel)));
    const std::string path = folder + file.fileName;
    const bool written = WriteGraphFile(
        path, GraphFileFormat::Bmp, pixels,
        [&](DrawingSurface& surface) { CreateReportGraph(surface, request, graph); }, reason);
    return written ? path : "";
}

} // namespace corvane
