#pragma once

// The pitch bar graphs: the mean pitch of the propeller and of each blade, and the nose-tail
// pitch of each section, as bars in the blades' colours under the box of their ISO window.

#include "graphs/modGraphs.h"

#include <string>
#include <vector>

namespace corvane {

class DrawingSurface;
class clsCoordinateGraph;

// One group of bars over X from `from` to `to`, each bar (to - from) / n wide, rising from the
// plot's bottom to its value. With a window (lower below upper) the box of the window is drawn
// over the group: its limits solid when every bar is inside, dashed when not, its middle dashed
// thin, crossed when `inLimits` is false; the name stands above it, boxed "[<b>" name "]" when a
// bar is outside. The value text (the middle and, on a second line, "±" half the window) goes
// under the plot.
struct PitchBarGroup {
    std::string name;
    double from = 0, to = 1;
    std::vector<double> values;
    std::vector<GraphColour> colours;
    double lower = 0, upper = 0;
    bool inLimits = true;
    GraphColour colour = 0;
};
void CreatePitchBarGroup(clsCoordinateGraph& graph, int& series, const GraphRequest& request,
                         const PitchBarGroup& group, double yLow, double yHigh);

// "Prop" (the propeller's mean pitch) and "Blades" (each blade's mean pitch).
void CreatePitchBarSummary(DrawingSurface& surface, const GraphRequest& request);

// "Prop", "Blades" and then one group per section row shown ("95R"...) with the blades' nose-tail
// pitch. `scale` widens (above 1) or narrows the Y range about the mean.
void CreatePitchBarSections(DrawingSurface& surface, const GraphRequest& request, double scale = 1.0);

} // namespace corvane
