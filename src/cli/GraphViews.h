#pragma once

// The views `corvane-cli graph` draws, each by the builder the Check page or the report uses for
// it, with the blade and radial row the command line chose. Qt-free: the command hands in the
// surface.

#include <optional>
#include <string>
#include <vector>

namespace corvane {
class DrawingSurface;
class clsCorvane;
class clsISO484;
class clsPropeller;
} // namespace corvane

namespace corvane::cli {

enum class GraphView { Top, Pitch, PitchSummary, Blade, Radius, Path, Outline, Arm };

// "top", "pitch", "pitch-summary", "blade", "radius", "path", "outline", "arm", in the order of
// GraphView.
const std::vector<std::string>& GraphViewNames();

struct GraphViewRequest {
    GraphView view = GraphView::Top;
    std::optional<int> blade; // 0-based; only this blade is shown
    std::optional<int> row;   // radial row; only this row is shown (the section of radius and path)
    bool zoom = false;
    bool report = false;
};

// The picture size a view is drawn at when none is asked for, in pixels.
void DefaultGraphSize(GraphView view, bool report, int& width, int& height);

// The radial row of the scan nearest to r/R `value` (a fraction, or a percentage above 1, as in
// "70" for 70R), within 0.01; none with the reason otherwise.
std::optional<int> RowAtRadius(const clsPropeller& scan, double value, std::string& reason);

// Draws the view of the checked scan: the blades shown are those with a measured section (or the
// chosen one), the row the chosen one (or every row). The arm graph shows the arm where the last
// sweep ended.
void DrawGraphView(DrawingSurface& surface, const clsCorvane& project, const clsISO484& iso, int scanIndex,
                   const GraphViewRequest& request);

} // namespace corvane::cli
