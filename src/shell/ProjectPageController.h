#pragma once

#include "files/modProjectCommands.h"
#include "shell/IPage.h"

namespace corvane {

class frmCorvane;
class frmPageProject;

// The Project page inside the main window: its left bar runs the window's file commands, a
// new blade count refreshes the blade buttons, and a new ID or customer the title. The page's
// check of the required fields guards every other page and the saves.
class ProjectPageController : public IPage {
public:
    explicit ProjectPageController(frmCorvane& window);

    frmPageProject* Page() const { return page_; }

    // IPage. Entering marks the graphs stale, fills the page and shows the blade buttons by the
    // blade count, released, with ctlAll on ISO.
    QWidget* Widget() const override;
    PageGate Gate() const override { return PageGate::None; }
    void Enter() override;
    void Leave() override {}
    void Refresh() override { RefreshProjectFormData(); }
    PageMenus Menus() const override { return {.scan = false, .check = false, .tools = true}; }

    // Fills the page from the project. Showing data marks nothing as changed: the unsaved and
    // the stale flags are as they were before. 1, or 0 when the page could not be filled.
    int RefreshProjectFormData();

    // clearOnly: clears the red marks of missing fields and gives 1. Otherwise marks each
    // required field that fails (Customer, Project ID, a diameter above 0, the pitch, and an
    // inner radius from 1 up to 40 when it is on) and gives 1 only when all hold.
    int CheckProjectData(bool clearOnly);

    // The two marks Save as sets or clears.
    void MarkSaveAsFields(bool diameterMissing, bool customerMissing);

    // The fields marked as missing now (a field that holds is true).
    ProjectFieldCheck Marks() const;

private:
    frmCorvane& window_;
    frmPageProject* page_ = nullptr;
};

} // namespace corvane
