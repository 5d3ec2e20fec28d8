#include "shell/PageNavigator.h"

#include "geometry/modCheckScanData.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/MainToolStrip.h"
#include "shell/ProjectPageController.h"
#include "shell/frmCorvane.h"

#include <QStackedWidget>

namespace corvane {

PageNavigator::PageNavigator(frmCorvane& window, QStackedWidget& stack) : window_(window), stack_(stack) {}

int PageNavigator::AddPage(IPage& page) {
    pages_.push_back(&page);
    stack_.addWidget(page.Widget());
    return PageCount() - 1;
}

int PageNavigator::Open(int page) {
    switch (PassGates(Page(page).Gate())) {
    case GateOutcome::ToProjectPage:
        return Open(frmCorvane::PageProject);
    case GateOutcome::ToScanPage:
        return Open(frmCorvane::PageScan);
    case GateOutcome::Open:
        break;
    }
    if (current_ >= 0 && current_ != page) {
        Current().Leave();
    }
    current_ = page;
    window_.ToolStrip().PressPageButton(page);
    stack_.setCurrentWidget(Current().Widget());
    window_.ResizeMainToolbar();
    Current().Enter();
    emit StateChanged();
    return current_;
}

GateOutcome PageNavigator::PassGates(PageGate gate) {
    if (gate == PageGate::None) {
        return GateOutcome::Open;
    }
    if (window_.ProjectPage().CheckProjectData(false) != 1) {
        return GateOutcome::ToProjectPage;
    }
    if (gate == PageGate::ProjectData) {
        return GateOutcome::Open;
    }
    const bool forReport = gate == PageGate::Report;
    if (CheckScanData(gProject->ActiveScanIndex()) != 1) {
        return GateOutcome::ToScanPage;
    }
    // Without a usable reference the pages show the scan alone. Not a change the user made, so
    // the project does not count as changed.
    if (CheckReferenceSettings() != 1) {
        gProject->SetReferenceSourceIndex(0);
    }
    if (forReport && current_ == frmCorvane::PageCheck) {
        return GateOutcome::Open;
    }
    if (RunPropertyCalculations() != 1) {
        if (forReport) {
            gProject->SetReferenceSourceIndex(0);
            return GateOutcome::Open;
        }
        return GateOutcome::ToScanPage;
    }
    return GateOutcome::Open;
}

} // namespace corvane
