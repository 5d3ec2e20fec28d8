#pragma once

// The rules of the Check page that are not about widgets: its views and the panels they use,
// when a view must be drawn again, the class read-out and the rows of the comparison combo. The
// window only shows what these decide; tests call them without a window.

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

class clsCorvane;
class clsISO484;
class clsPropeller;

// ActiveGraphModeIndex. 3 is not a view: it draws nothing and is never set.
enum CheckView : int {
    kViewTop = 0,
    kViewBlade = 1, // BLADE LOCAL: the map of one blade
    kViewPitch = 2,
    kViewRadius = 4, // RADIUS LOCAL: one small graph per blade
    kViewPath = 5,
    kViewOutline = 6,
};

// "top", "blade", "pitch", "radius", "path", "outline" (the program's --view); none for others.
std::optional<int> CheckViewByName(const std::string& name);
bool IsCheckView(int view);

// Where a view is drawn and what ZOOM may do there.
struct CheckViewLayout {
    bool sectionGraphs = false; // the panel of small graphs, not the one big graph
    int elements = 1;           // small graphs in the panel
    bool zoomEnabled = true;
    bool zoomForced = false; // ZOOM pressed and locked (OUTLINE with a single-channel drop)
};

// view: ActiveGraphModeIndex; referenceOpen: REF pressed; scan: the active scan (its ScanDrop
// and the blades with sections).
CheckViewLayout LayoutOfView(int view, bool referenceOpen, const clsPropeller& scan);

// The zoom a view is drawn with: forced on under zoomForced, off where ZOOM is disabled.
bool EffectiveZoom(const CheckViewLayout& layout, bool zoomActive);

// The blades that get a small graph in RADIUS LOCAL: those with a section with raw points.
std::vector<int> BladesWithSections(const clsPropeller& scan);

// Everything a drawn view depends on. The page draws again only when this changed or the graphs
// are stale.
struct CheckDrawState {
    int view = kViewTop;
    int radius = 0;
    int blade = 0;
    bool zoom = false;
    bool referenceOpen = false;
    int width = 0, height = 0; // pixels of the graph area
    std::array<bool, 7> blades{};
    std::array<bool, 8> radii{};
    std::uint32_t zoomedElements = 0; // small graphs zoomed by a click, one bit each
    bool operator==(const CheckDrawState&) const = default;
};
bool NeedsRedraw(const std::optional<CheckDrawState>& drawn, const CheckDrawState& now, bool graphsStale);

// The class verdict without searching: " N/A" without a usable reference; class 0 passing
// " " + its label; class 4 failing " FAILS ALL"; else " CLICK", which invites the full search.
// verdict: EvaluateClassStatus (1 meets).
std::string QuickClassText(const clsISO484& iso, bool referenceInForce, std::int16_t verdict);

// The full search on a click on the verdict. From a passing class it walks down towards class
// 0 and keeps the last class that passes, stopping at the first that fails; from a failing class
// it walks up towards class 4 until one passes (class 4 failing answers at once). Class 1a is
// passed over for a propeller of 0.8 m and more. Each class goes through the whole evaluation
// chain; after each, `step` is called (the page adds a "." to the label) and the event pump runs
// so that the window keeps painting. The user's class is evaluated again at the end.
struct ClassSearchResult {
    int classIndex = -1; // the class found; -1 when none passed
    std::string text;    // " " + label, " FAILS ALL", or " N/A" for an unknown class
    bool failsAll = false;
    int classesTried = 0;
};
ClassSearchResult SearchBestClass(clsCorvane& project, clsISO484& iso, const std::function<void()>& step);

// The rows of the comparison combo: " None", then for each scan its description, " [", its
// letter and "] Active" for the active scan, "] Empty" for a scan without data, "] " otherwise.
std::vector<std::string> ScanCompareTexts(const clsCorvane& project);

// Whether a scan holds a sweep with raw points.
bool ScanHasData(const clsPropeller& scan);

// The radius buttons that can be pressed: row k when, among the blades in blade order, an
// enabled blade has raw points there.
std::array<bool, 8> RadiusButtonsEnabled(const clsCorvane& project);

// The first row of `blade` with raw points, or -1.
int FirstMeasuredRow(const clsPropeller& scan, int blade);

} // namespace corvane
