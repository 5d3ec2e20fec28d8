#pragma once

// Graphs written to files: PNG, SVG, PDF (one page the size of the picture) and BMP, each written
// whole or not at all (through WriteFileAtomically), and the report's graph bitmaps in the
// platform's cache folder.

#include "graphs/modGraphsReport.h"

#include <QSize>

#include <functional>
#include <optional>
#include <string>

namespace corvane {

class DrawingSurface;

enum class GraphFileFormat { Png, Svg, Pdf, Bmp };

// By the file name's extension, in any case; none for another.
std::optional<GraphFileFormat> GraphFileFormatOf(const std::string& path);

using GraphDrawing = std::function<void(DrawingSurface&)>;

// Draws a picture `pixels` across and down (96 to the inch) and writes it. false with the reason
// when the file cannot be written; the old file, if any, is then untouched.
bool WriteGraphFile(const std::string& path, GraphFileFormat format, QSize pixels, const GraphDrawing& draw,
                    std::string& reason);

// Where graph bitmaps are written for the report pages: the platform's cache location for the
// program, with a trailing separator; created when missing. Never the program's folder.
std::string GraphWorkingFolder();

// Draws one report graph on its surface for a page of the given printable size (twips) and
// writes it into `folder` under the name the report pages know it by ("FullTop.bmp"). The path
// written, or "" with the reason.
std::string WriteReportGraphFile(const std::string& folder, ReportGraph graph, const GraphRequest& request,
                                 double pageWidthTwips, double pageHeightTwips, std::string& reason);

} // namespace corvane
