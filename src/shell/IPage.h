#pragma once

class QWidget;

namespace corvane {

// The gate in front of a page, passed before the page opens (PageNavigator::PassGates).
enum class PageGate {
    None,        // the page always opens
    ProjectData, // the required project fields must hold
    Check,       // the project fields, the scan, the reference and the calculations
    Report,      // as Check, but a failed calculation drops the reference and the page opens
};

// What an open page wants of the menus. The File, Edit and Help menus are always open.
struct PageMenus {
    bool scan = false;  // the Scan menu: adding, deleting and importing scans, the scan mode
    bool check = false; // the Check menu: pitch only and the zoom of the graphs
    bool tools = true;  // the Tools menu
};

// One page of the main window as the navigator sees it. The navigator shows the page's widget
// and presses its button; the page does the rest of its opening and closing itself.
class IPage {
public:
    virtual ~IPage() = default;

    // The widget that fills the window while the page is open.
    virtual QWidget* Widget() const = 0;
    virtual PageGate Gate() const = 0;

    // The page has passed its gate and is shown now: it sets up the tool strip and shows the
    // project's data (Refresh).
    virtual void Enter() = 0;
    // Another page is about to open; the page puts back what it changed outside itself.
    virtual void Leave() = 0;
    // Shows the model's present data again.
    virtual void Refresh() = 0;
    // Asked whenever the menus are brought up to date, so the answer may follow the model.
    virtual PageMenus Menus() const = 0;

protected:
    IPage() = default;
    IPage(const IPage&) = default;
    IPage& operator=(const IPage&) = default;
};

} // namespace corvane
