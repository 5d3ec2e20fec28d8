#pragma once

// Draws the report document: a page on any painter (the Docs page's view), every page on a paged
// device (a printer, a PDF writer), and the PDF file itself, written whole or not at all.

#include "reports/ReportDocument.h"

#include <QPageLayout>

#include <string>

class QPainter;
class QPagedPaintDevice;

namespace corvane {

// The paper, orientation and margins of the options as Qt's page layout.
QPageLayout ReportPageLayout(const ReportPageOptions& options);

// Paints page `page` with the painter's units taken as twips from the top left of the
// printable area (inside the margins).
void PaintReportPage(QPainter& painter, const ReportDocument& document, int page);

// Every page on a device already set to the report's layout, one sheet each; false when the
// device could not be painted on.
bool PaintReport(QPagedPaintDevice& device, const ReportDocument& document);

// The document as a PDF of its pages, with the layout of its options. false with the reason when
// the file cannot be written; an old file is then untouched.
bool SaveReportPdf(const ReportDocument& document, const std::string& path, std::string& reason);

} // namespace corvane
