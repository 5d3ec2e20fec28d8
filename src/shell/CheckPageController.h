#pragma once

#include "shell/IPage.h"

namespace corvane {

class frmCorvane;

// The Check page inside the main window. Until the graphs arrive the page says that it is not
// available yet; the hooks the tool strip calls are here already.
class CheckPageController : public IPage {
public:
    explicit CheckPageController(frmCorvane& window);

    QWidget* Page() const { return page_; }

    // IPage. Entering shows the enabled blades pressed and draws the graphs with the tool strip
    // locked; leaving gives ctlAll its radio click back.
    QWidget* Widget() const override { return page_; }
    PageGate Gate() const override { return PageGate::Check; }
    void Enter() override;
    void Leave() override;
    void Refresh() override { Redraw(); }
    PageMenus Menus() const override { return {.scan = false, .check = true, .tools = true}; }

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
