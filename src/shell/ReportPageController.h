#pragma once

#include "shell/IPage.h"

namespace corvane {

class frmCorvane;

// The Report page inside the main window. Until the report arrives the page says that it is
// not available yet; the hooks the tool strip calls are here already.
class ReportPageController : public IPage {
public:
    explicit ReportPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // IPage. Entering shows every radius and the enabled blades, and composes the report with
    // the tool strip locked.
    QWidget* Widget() const override { return page_; }
    PageGate Gate() const override { return PageGate::Report; }
    void Enter() override;
    void Leave() override {}
    // Rebuilds the pages of the report from the project.
    void Refresh() override;
    PageMenus Menus() const override { return {.scan = false, .check = false, .tools = true}; }
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
