#include "shell/ReportPageController.h"

#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "platform/render/QtReportGraphs.h"
#include "platform/render/ReportRenderer.h"
#include "reports/modReports.h"
#include "shell/ReportView.h"
#include "shell/clsFileDialog.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmCorvane.h"
#include "shell/frmPageDocs.h"
#include "support/Services.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>

#include <filesystem>

namespace corvane {

namespace {

std::shared_ptr<clsPropeller> ActiveScan() {
    if (!gProject || gProject->ActiveScanIndex() < 0 ||
        gProject->ActiveScanIndex() >= gProject->PropellerScanCount())
        return nullptr;
    return gProject->PropellerScan(gProject->ActiveScanIndex());
}

bool HasData(const clsPropeller& scan) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const auto blade = scan.Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k)
            if (blade->Section(k)->RawOffsetCount() > 0)
                return true;
    }
    return false;
}

// r/R x 100 of a radial row of the scan, or -1 when no blade has it.
double RowPercent(const clsPropeller& scan, int row) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const auto blade = scan.Blades(b);
        if (row < blade->SectionCount() && blade->RadialPos(row) > 0)
            return blade->RadialPos(row) * 100;
    }
    return -1;
}

} // namespace

ReportPageController::ReportPageController(frmCorvane& window) : window_(window) {
    docs_ = new frmPageDocs();
    QObject::connect(docs_->ctlShowStatus, &ctlPanelButton::Click,
                     [this] { BuildReport(kReportKindStatus); });
    QObject::connect(docs_->ctlShowReport, &ctlPanelButton::Click, [this] { BuildReport(0); });
    QObject::connect(docs_->ctlRepairReport, &ctlPanelButton::Click,
                     [this] { BuildReport(kReportKindRepair); });
    QObject::connect(docs_->ctlPrevPage, &ctlPanelButton::Click,
                     [this] { docs_->MyReports->PreviousPage(); });
    QObject::connect(docs_->ctlNextPage, &ctlPanelButton::Click, [this] { docs_->MyReports->NextPage(); });
    QObject::connect(docs_->MyReports, &ReportView::PageChanged, [this](int) { UpdatePageLabels(); });
    QObject::connect(docs_->ctlPrintReport, &ctlPanelButton::Click, [this] { PrintReport(); });
    QObject::connect(docs_->ctlSaveReport, &ctlPanelButton::Click, [this] { SaveReport(); });
    for (std::size_t k = 0; k < docs_->ctlScanRadius.size(); ++k)
        QObject::connect(docs_->ctlScanRadius[k], &ctlPanelButton::Click, [this, k] {
            gShowRadiusFlags[k] = docs_->ctlScanRadius[k]->Pressed();
            SetReportDirtyBit();
        });
    QObject::connect(docs_->cboScanCompare, QOverload<int>::of(&QComboBox::activated), [this](int index) {
        CompareScanIndex = static_cast<std::int16_t>(docs_->cboScanCompare->itemData(index).toInt());
        docs_->ctlRepairReport->SetEnabled(CompareScanIndex >= 0);
        SetReportDirtyBit();
    });
    UpdatePageLabels();
}

QWidget* ReportPageController::Page() const {
    return docs_;
}

void ReportPageController::Enter() {
    // Another project, or a change of this one since the report was built, makes it stale.
    if (gProject.get() != builtFor_ || (gProjectDirty && !dirtyAtBuild_))
        SetReportDirtyBit();
    DepressPanels(0);
    window_.ShowEnabledBlades();
    window_.SetBladeButtonState(2);
    window_.Lock_Controls();
    Refresh();
    window_.UnLock_Controls();
    window_.ctlAll_Raise();
    window_.ctlAll_UpdateDisplay();
}

void ReportPageController::Refresh() {
    const auto scan = ActiveScan();
    for (std::size_t k = 0; k < docs_->ctlScanRadius.size(); ++k) {
        const double percent = scan ? RowPercent(*scan, static_cast<int>(k)) : -1;
        ctlPanelButton* toggle = docs_->ctlScanRadius[k];
        toggle->SetVisible(percent > 0);
        toggle->SetCaption(QString::fromStdString(FormatNumber(percent, "0") + "R"));
        toggle->SetPressed(gShowRadiusFlags[k]);
    }
    FillCompareScans();
    if (reportDirty_ && docs_->MyReports->HasDocument())
        docs_->MyReports->SetDocument(nullptr);
    docs_->ctlPrintReport->SetEnabled(!reportDirty_);
    docs_->ctlSaveReport->SetEnabled(!reportDirty_);
    UpdatePageLabels();
}

void ReportPageController::DepressPanels(int bladeViewMode) {
    const auto scan = ActiveScan();
    if (bladeViewMode == 1 && gISO484) {
        gShowRadiusFlags = ISOReportRadii(*gISO484);
    } else {
        for (std::size_t k = 0; k < gShowRadiusFlags.size(); ++k)
            gShowRadiusFlags[k] = scan && RowPercent(*scan, static_cast<int>(k)) > 0;
    }
    for (std::size_t k = 0; k < docs_->ctlScanRadius.size(); ++k)
        docs_->ctlScanRadius[k]->SetPressed(gShowRadiusFlags[k]);
}

void ReportPageController::SetReportDirtyBit() {
    reportDirty_ = true;
    PressCommand(-1);
    docs_->ctlPrintReport->SetEnabled(false);
    docs_->ctlSaveReport->SetEnabled(false);
}

void ReportPageController::PressCommand(int which) {
    docs_->ctlShowStatus->SetPressed(which == 0);
    docs_->ctlShowReport->SetPressed(which == 1);
    docs_->ctlRepairReport->SetPressed(which == 2);
}

void ReportPageController::FillCompareScans() {
    QComboBox* combo = docs_->cboScanCompare;
    combo->clear();
    combo->addItem(QStringLiteral(" None"), -1);
    const int active = gProject ? gProject->ActiveScanIndex() : -1;
    for (int i = 0; gProject && i < gProject->PropellerScanCount(); ++i) {
        const auto scan = gProject->PropellerScan(i);
        if (!scan)
            continue;
        const std::string id = ScanLabel(scan->ScanID());
        if (i == active)
            combo->addItem(QString::fromStdString(" [" + id + "] Active"), -1);
        else if (HasData(*scan))
            combo->addItem(QString::fromStdString(" " + id), i);
        else
            combo->addItem(QString::fromStdString(" [" + id + "] Empty"), -1);
        if (i == CompareScanIndex && i != active)
            combo->setCurrentIndex(combo->count() - 1);
    }
    if (CompareScanIndex == active)
        CompareScanIndex = -1;
    docs_->ctlRepairReport->SetEnabled(CompareScanIndex >= 0);
}

void ReportPageController::UpdatePageLabels() {
    const ReportView& view = *docs_->MyReports;
    const int count = view.PageCount();
    docs_->lblPageIndex->setText(QString::number(count > 0 ? view.CurrentPage() + 1 : 0));
    docs_->lblPageOf->setText(QStringLiteral("OF ") + QString::number(count));
    docs_->ctlPrevPage->SetEnabled(count > 0 && view.CurrentPage() > 0);
    docs_->ctlNextPage->SetEnabled(count > 0 && view.CurrentPage() < count - 1);
}

void ReportPageController::BuildReport(std::int16_t kind) {
    if (!gProject || !gISO484 || !ActiveScan())
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QtReportGraphs graphs;
    ReportRequest request;
    request.radii = gShowRadiusFlags;
    request.selection.blades = gShowBladeFlags;
    request.compareScanIndex = CompareScanIndex;
    request.programFolder = QCoreApplication::applicationDirPath().toStdString();
    request.graphs = &graphs;
    request.options = LoadReportPageOptions();
    const ReportBuild build = kind == kReportKindStatus   ? BuildStatusReport(*gProject, *gISO484, request)
                              : kind == kReportKindRepair ? BuildRepairReport(*gProject, *gISO484, request)
                                                          : BuildFullReport(*gProject, *gISO484, request);
    docs_->MyReports->SetDocument(&build.document);
    builtFor_ = gProject.get();
    dirtyAtBuild_ = gProjectDirty;
    Events().DoEvents();
    QApplication::restoreOverrideCursor();
    reportDirty_ = false;
    docs_->ctlPrintReport->SetEnabled(build.document.PageCount() > 0);
    docs_->ctlSaveReport->SetEnabled(build.document.PageCount() > 0);
    PressCommand(kind == kReportKindStatus ? 0 : kind == kReportKindRepair ? 2 : 1);
    UpdatePageLabels();
}

void ReportPageController::PrintReport() {
    if (!docs_->MyReports->HasDocument())
        return;
    const ReportDocument& document = docs_->MyReports->Document();
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageLayout(ReportPageLayout(document.Options()));
    printer.setDocName(QString::fromStdString(document.Title()));
    QPrintDialog dialog(&printer, docs_);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (!PaintReport(printer, document))
        Prompts().MessageBox("The report could not be printed.", MsgBox::Exclamation, "Print");
}

void ReportPageController::SaveReport() {
    if (!docs_->MyReports->HasDocument())
        return;
    clsFileDialog dialog;
    dialog.Filters = {{"Adobe Portable Document (*.pdf)", "*.pdf"},
                      {"Comma Separated Values (*.csv)", "*.csv"}};
    dialog.DialogTitle = "Save file...";
    dialog.Parent = docs_;
    if (!dialog.ShowSave())
        return;
    std::string path = dialog.FileName;
    if (std::filesystem::path(path).extension().empty())
        path += dialog.FilterIndex == 1 ? ".csv" : ".pdf";
    (void)SaveReportAs(path, dialog.FilterIndex);
}

bool ReportPageController::SaveReportAs(const std::string& path, int filterIndex) {
    if (IsReadOnlyFile(path)) {
        Prompts().MessageBox(kReportReadOnlyMessage, MsgBox::Information, kReportReadOnlyTitle);
        return false;
    }
    const ReportDocument& document = docs_->MyReports->Document();
    std::string reason = "cannot write " + path;
    const bool written =
        filterIndex == 1 ? SaveReportCsv(document, path) : SaveReportPdf(document, path, reason);
    if (!written)
        Prompts().MessageBox("The report could not be saved: " + reason + ".", MsgBox::Exclamation,
                             "Save file...");
    return written;
}

} // namespace corvane
