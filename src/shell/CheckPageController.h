#pragma once

#include "checkpage/CheckPageRules.h"
#include "checkpage/CheckReferenceUpdate.h"
#include "shell/IPage.h"

#include <optional>
#include <string>

namespace corvane {

class frmCorvane;
class frmPageCheck;

// The Check page inside the main window: a technician judges the active scan here. It shows the
// six views, the class verdict, the comparison scan and the reference panel; the rules behind
// them (layouts, redraw decisions, read-outs, the class search, the reference update) are the
// core's, in src/checkpage. The navigator's gate has run the check before the page opens.
class CheckPageController : public IPage {
public:
    explicit CheckPageController(frmCorvane& window);

    frmPageCheck* Page() const { return page_; }

    // IPage. Entering fills the combos, shows the enabled blades, brings the reference and the
    // verdict up to date and draws the view; leaving gives ctlAll its radio click back.
    QWidget* Widget() const override;
    PageGate Gate() const override { return PageGate::Check; }
    void Enter() override;
    void Leave() override;
    void Refresh() override { Redraw(); }
    PageMenus Menus() const override { return {.scan = false, .check = true, .tools = true}; }

    // ActiveGraphModeIndex: 0 TOP, 1 BLADE LOCAL, 2 PITCH, 4 RADIUS LOCAL, 5 PATH, 6 OUTLINE.
    int ActiveGraphModeIndex() const { return view_; }
    // A view button: the view, the blade buttons, the reference (when REF is open), the radius
    // buttons and the drawing.
    void SetView(int view);
    // Presses the radius buttons of the ISO class (bladeViewMode 1) or all measured ones (0).
    void DepressPanels(int bladeViewMode);
    // Draws the view again when anything it shows has changed or the graphs are stale.
    void Redraw();
    // Opens the reference panel (REF pressed), as the Tools menu does.
    void ShowReferencePanel();
    // The fields of manual entry, shown in manual entry only.
    void SetManualEntryFieldsVisible(bool visible);

    // What the page's controls do.
    void ClickRadius(int row);
    void ToggleZoom();
    void ToggleReference();
    void ApplyReference();
    void ClickVerdict();
    void ChooseClass(int classIndex);
    void ChooseTask(int taskIndex);
    void ChooseCompare(int row);
    void ClickSectionGraph(int element);

    // The recalculation after a reference, class or comparison change, then the verdict.
    void UpdateReference(bool showErrors);
    void UpdateRadiusButtons(int radius);
    // The verdict read-out without searching.
    void RefreshCheckFormData();

    std::string VerdictText() const;
    // How many times a view was drawn (each element of the panel counts).
    int DrawCount() const { return drawCount_; }

private:
    void UpdatingReferenceData();
    void FillCombos();
    void ShowViewButtons();
    void DrawNow(const CheckDrawState& state, const CheckViewLayout& layout);
    CheckDrawState CurrentState(const CheckViewLayout& layout) const;

    frmCorvane& window_;
    frmPageCheck* page_ = nullptr;
    int view_ = kViewTop;
    ReferenceUpdate lastUpdate_{};
    std::optional<CheckDrawState> drawn_;
    std::uint32_t zoomedElements_ = 0;
    int drawCount_ = 0;
    bool redrawQueued_ = false;
    bool filling_ = false;
};

} // namespace corvane
