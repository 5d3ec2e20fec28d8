#pragma once

#include "shell/IPage.h"

namespace corvane {

class frmCorvane;

// The Scan page inside the main window: acquisition, manual entry and the scan history. Until
// the scan workflow arrives the page says that it is not available yet; the hooks the menus
// and the tool strip call are here already.
class ScanPageController : public IPage {
public:
    explicit ScanPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // IPage. Entering marks the graphs stale, shows all radial stations and, in manual entry,
    // the active blade. The Scan menu is open on a station that scans.
    QWidget* Widget() const override { return page_; }
    PageGate Gate() const override { return PageGate::ProjectData; }
    void Enter() override;
    void Leave() override {}
    void Refresh() override;
    PageMenus Menus() const override;

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
