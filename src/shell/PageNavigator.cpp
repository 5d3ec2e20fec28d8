#include "shell/PageNavigator.h"

#include "check/CheckRun.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/MainToolStrip.h"
#include "shell/ProjectPageController.h"
#include "shell/ScanPageController.h"
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
    // The check itself decides; the Project page above has marked any missing field.
    CheckRequest request;
    request.scanIndex = gProject->ActiveScanIndex();
    request.forReport = gate == PageGate::Report;
    // Coming from the Check page the report takes the results that page shows.
    request.recalculate = !(request.forReport && current_ == frmCorvane::PageCheck);
    // While the box runs, the arm turns with the scan into the frame of blade 0.
    request.liveArm = window_.ScanPage().LiveArm();
    switch (RunCheck(*gProject, *gISO484, request).stop) {
    case CheckStop::ProjectData:
        return GateOutcome::ToProjectPage;
    case CheckStop::ScanData:
    case CheckStop::Calculation:
        return GateOutcome::ToScanPage;
    case CheckStop::None:
        break;
    }
    return GateOutcome::Open;
}

} // namespace corvane
