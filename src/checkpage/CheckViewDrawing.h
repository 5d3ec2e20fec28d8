#pragma once

// Which builder draws which view of the Check page, with what. The page hands in the surface
// of its big graph or of one small graph; the command line's screenshots and the benchmarks
// draw the same way.

#include "iso484/ISOResults.h"

#include <string>

namespace corvane {

class DrawingSurface;
class clsCorvane;
class clsISO484;

struct CheckViewDraw {
    int view = 0;    // ActiveGraphModeIndex
    int element = 0; // the small graph of the panel (RADIUS LOCAL: the n-th blade with sections)
    bool referenceOpen = false;
    bool zoom = false; // as the element is drawn (EffectiveZoom, a clicked small graph toggled)
    int activeBlade = 0;
    int activeRadius = 0;     // section row
    ISOSelection selection{}; // blades and rows shown
    std::string fontName = "Arial";
    double fontSize = 9;
};

// Draws one view (or one element of the panel of small graphs) of the project's active scan.
// View 3 and unknown views leave the surface blank.
void DrawCheckView(DrawingSurface& surface, const clsCorvane& project, const clsISO484& iso,
                   const CheckViewDraw& draw);

} // namespace corvane
