#pragma once

class QWidget;

namespace corvane {

class frmCorvane;

// The Scan page inside the main window: acquisition, manual entry and the scan history. Until
// the scan workflow arrives the page says that it is not available yet; the hooks the menus
// and the tool strip call are here already.
class ScanPageController {
public:
    explicit ScanPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // The page's list of scans after a scan was added or removed.
    void RefreshScanList();
    // The arm and top view graphs of the page.
    void RedrawGraphs();
    // Whether the page would take a new scan now (its add button is enabled).
    bool AddScanEnabled() const;
    // Clears what the acquisition holds of the sweep under way.
    void ClearAcquisitionState();

private:
    frmCorvane& window_;
    QWidget* page_ = nullptr;
};

} // namespace corvane
