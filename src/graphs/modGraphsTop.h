#pragma once

// The top view of the whole propeller: every measured sweep on its arc, each blade's reference
// line at its effective angle, the curves through the sections' trailing edges, centre lines and
// leading edges, and the marks and numbers of the evaluation: panels out of their local pitch
// window (filled circles along the arc for pitch high, open ones for pitch low), blade spacing,
// blade and propeller mean pitch.

#include "graphs/modGraphs.h"

namespace corvane {

class DrawingSurface;

// Under ZOOM each blade is narrowed about its generator line by (360 - BladeCount x 10) / 360,
// which leaves 10 degrees of free arc at each blade. Only blades with BladeEnabled that the
// selection shows, and rows the selection shows, are drawn.
void CreateTopGraph(DrawingSurface& surface, const GraphRequest& request);

// The caption under a screen top view.
inline constexpr const char* kTopViewCaption =
    "Filled marker = pitch high.     Non-filled marker = pitch low.";

} // namespace corvane
