#pragma once

#include "shell/IPage.h"

#include <cstdint>
#include <string>

namespace corvane {

class frmCorvane;
class frmPageDocs;

// The Report page inside the main window: builds the Status, Full and Repair reports of the
// checked scan, pages through them, prints them and saves them as PDF or CSV.
class ReportPageController : public IPage {
public:
    explicit ReportPageController(frmCorvane& window);

    QWidget* Page() const;
    frmPageDocs& Docs() const { return *docs_; }

    // IPage. Entering presses every radius toggle with data and shows the enabled blades.
    QWidget* Widget() const override { return Page(); }
    PageGate Gate() const override { return PageGate::Report; }
    void Enter() override;
    void Leave() override {}
    // The toggles' captions and states, the compare scans; a report gone stale is blanked.
    void Refresh() override;
    PageMenus Menus() const override { return {.scan = false, .check = false, .tools = true}; }
    // Presses the radius toggles the ISO class requires (bladeViewMode 1) or all with data.
    void DepressPanels(int bladeViewMode);
    // The report must be composed again before it is shown or saved.
    void MarkReportDirty() { SetReportDirtyBit(); }
    void SetReportDirtyBit();
    bool ReportDirty() const { return reportDirty_; }

    // The commands, as the page's buttons run them. kind: 3 Status, 0 Full, 4 Repair.
    void BuildReport(std::int16_t kind);
    void PrintReport();
    void SaveReport();
    // Saves without the dialog: filterIndex 0 PDF, 1 CSV. false when nothing was written.
    bool SaveReportAs(const std::string& path, int filterIndex);

private:
    void UpdatePageLabels();
    void FillCompareScans();
    void PressCommand(int which);

    frmCorvane& window_;
    frmPageDocs* docs_ = nullptr;
    bool reportDirty_ = true;
    const void* builtFor_ = nullptr; // the project the report shown was built from
    bool dirtyAtBuild_ = false;
};

} // namespace corvane
