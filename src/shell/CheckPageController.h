#pragma once

class QWidget;

namespace corvane {

class frmCorvane;

// Where a page button goes after the gates in front of the Check and Report pages.
enum class GateOutcome {
    Open,          // every gate passed: the page opens
    ToProjectPage, // a required project field is missing
    ToScanPage,    // the scan is not usable, or its calculation failed
};

// The Check page inside the main window, and the gates in front of it. Until the graphs arrive
// the page says that it is not available yet; the hooks the tool strip calls are here already.
class CheckPageController {
public:
    explicit CheckPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // The gates of the CHECK button, in order: the project fields, the scan, the reference
    // (a failure drops the reference and goes on), the calculations. forReport: the gates of
    // the REPORT button, where a failed calculation drops the reference too and the report
    // still opens, and where nothing is calculated again when the Check page was open.
    GateOutcome PassGates(bool forReport);

    // The page's graph view (ActiveGraphModeIndex); 1 shows one blade at a time.
    int ActiveGraphModeIndex() const { return 0; }
    // Presses the radial station panels of the ISO stations (bladeViewMode 1) or of all.
    void DepressPanels(int bladeViewMode);
    void Redraw();
    // The reference panel of the page.
    void ShowReferencePanel();
    // The fields of manual entry, shown in manual entry only.
    void SetManualEntryFieldsVisible(bool visible);

private:
    frmCorvane& window_;
    QWidget* page_ = nullptr;
};

} // namespace corvane
