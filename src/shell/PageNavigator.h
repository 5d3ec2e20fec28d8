#pragma once

#include "shell/IPage.h"

#include <QObject>

#include <vector>

class QStackedWidget;

namespace corvane {

class frmCorvane;

// Where a page button goes after the gate in front of its page.
enum class GateOutcome {
    Open,          // every gate passed: the page opens
    ToProjectPage, // a required project field is missing
    ToScanPage,    // the scan is not usable, or its calculation failed
};

// Moves the main window between its pages: it keeps the open page, runs the gate in front of
// the page asked for, tells the old page it is left and the new one it is entered, and says
// when anything the menus depend on has changed. Pages are numbered in the order they were
// added, which is the order of the page buttons and of the page list in the Edit menu.
class PageNavigator : public QObject {
    Q_OBJECT

public:
    // stack: where the pages' widgets are shown, one at a time.
    PageNavigator(frmCorvane& window, QStackedWidget& stack);

    // Adds the next page; gives its number.
    int AddPage(IPage& page);
    int PageCount() const { return static_cast<int>(pages_.size()); }
    IPage& Page(int page) const { return *pages_.at(static_cast<std::size_t>(page)); }

    // -1 until the first page opened.
    int CurrentPage() const { return current_; }
    IPage& Current() const { return Page(current_); }

    // Opens a page through its gate. A gate that fails opens the page it sends the user to
    // instead (through that page's gate); gives the page open afterwards.
    int Open(int page);

    // Something the menus depend on changed: the scan mode, the project (replaced, or a field
    // the technician changed), the number of scans, a view switch of the Check menu.
    void NotifyStateChanged() { emit StateChanged(); }

signals:
    // A page opened, or NotifyStateChanged was called: the menus are brought up to date.
    void StateChanged();

private:
    // The gates in front of a page, in their fixed order: the required project fields (through
    // the Project page, which marks the missing ones), then for the Check and Report pages the
    // scan, the reference (a failure drops the reference and goes on) and the calculations.
    // The Report page opens after a failed calculation without its reference, and nothing is
    // calculated again when it is opened from the Check page.
    GateOutcome PassGates(PageGate gate);

    frmCorvane& window_;
    QStackedWidget& stack_;
    std::vector<IPage*> pages_;
    int current_ = -1;
};

} // namespace corvane
