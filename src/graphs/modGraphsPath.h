#pragma once

// The path plots: the angular sweep of the arm against the drop, as the arm travelled over the
// blades, one line per blade and section, with the reference's path and the rake windows.

#include "graphs/modGraphs.h"

namespace corvane {

class DrawingSurface;

// Section options.section of every blade the selection shows (the Check page passes only the
// active blade for a single-channel drop encoder), the reference's path dashed, the rake windows
// of the blades, "[TE]" and "[LE]" at the corners.
void CreatePathPlotSection(DrawingSurface& surface, const GraphRequest& request);

// Every section shown of every blade shown, each captioned with its r/R ("70R") at both ends.
void CreatePathPlotAll(DrawingSurface& surface, const GraphRequest& request);

} // namespace corvane
