#pragma once

class QWidget;

namespace corvane {

class frmCorvane;

// The Report page inside the main window. Until the report arrives the page says that it is
// not available yet; the hooks the tool strip calls are here already.
class ReportPageController {
public:
    explicit ReportPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // Rebuilds the pages of the report from the project.
    void Refresh();
    // Presses the radial station panels of the ISO stations (bladeViewMode 1) or of all.
    void DepressPanels(int bladeViewMode);
    // The report must be composed again before it is shown or saved.
    void MarkReportDirty() { reportDirty_ = true; }
    bool ReportDirty() const { return reportDirty_; }

private:
    frmCorvane& window_;
    QWidget* page_ = nullptr;
    bool reportDirty_ = true;
};

} // namespace corvane
