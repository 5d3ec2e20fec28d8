#pragma once

// The Docs page: the report commands, paging, printing and saving, the radius toggles and the
// compare scan, around the report view. Only the controls; ReportPageController gives them
// their meaning.

#include <QWidget>

#include <array>

class QComboBox;
class QLabel;

namespace corvane {

class ctlPanelButton;
class ReportView;

class frmPageDocs : public QWidget {
    Q_OBJECT

public:
    explicit frmPageDocs(QWidget* parent = nullptr);

    ctlPanelButton* ctlShowStatus = nullptr;
    ctlPanelButton* ctlShowReport = nullptr;
    ctlPanelButton* ctlRepairReport = nullptr;
    ctlPanelButton* ctlPrevPage = nullptr;
    ctlPanelButton* ctlNextPage = nullptr;
    ctlPanelButton* ctlPrintReport = nullptr;
    ctlPanelButton* ctlSaveReport = nullptr;
    std::array<ctlPanelButton*, 8> ctlScanRadius{};
    QComboBox* cboScanCompare = nullptr;
    QLabel* lblPageIndex = nullptr;
    QLabel* lblPageOf = nullptr;
    ReportView* MyReports = nullptr;

private:
    ctlPanelButton* NewButton(const char* name, const QString& caption, int clickAction);
};

} // namespace corvane
