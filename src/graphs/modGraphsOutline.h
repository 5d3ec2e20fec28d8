#pragma once

// The rake and outline graph: the blade outline seen from aft (projected on the disc, or expanded
// with each section laid out straight at its radius) with the reference's, and under it the rake:
// the axial positions of the sections' ends and centre lines over the radius, with the rake
// windows. Also the outline points the map graph lays its sections on, and the arc through three
// points.

#include "graphs/modGraphs.h"

#include <vector>

namespace corvane {

class DrawingSurface;
class clsPropeller;

// Outline points of one blade, one per measured section (RadialPos, Chord and Pitch above 0), in
// the order of the rows. Lengths in the project unit; Y is the radius.
struct OutlinePoints {
    std::vector<int> rows;
    std::vector<double> teX, teY, midX, midY, leX, leY;
};

// Projected on the disc: the section's chord laid on the helix of its pitch and turned by its
// skew, seen along the axis. `side` 1 (left hand) mirrors X. `half` is the propeller's radius.
OutlinePoints CreateOutlinePoints(int side, const clsPropeller& propeller, int blade, double half);
// Expanded: each section straight at its radius, its middle at minus the skew (plus on side 1).
OutlinePoints CreateFilteredOutlinePoints(int side, const clsPropeller& propeller, int blade, double half);
// Bounds of the expanded outlines of the scan's enabled blades and of the reference.
bool GetOutlineBounds(const GraphRequest& request, double& xLow, double& xHigh, double& yLow, double& yHigh);

// The circle through three points: centre and radius, all 0 when the points coincide or lie on
// one line (then the slopes of the line's normal, -99999 for a level line, are given instead).
struct ArcProperties {
    double centreX = 0, centreY = 0, radius = 0;
    double normalSlope = 0;
};
ArcProperties GetArcProperties(double x1, double y1, double x2, double y2, double x3, double y3);
// Y at x on the arc through the three points, on the branch of the first point; on the line
// through them when they lie on one.
double GetYFromArc(double x1, double y1, double x2, double y2, double x3, double y3, double x);

// Under ZOOM the expanded outline, otherwise the projected one; the section arcs of the reference
// dashed and of each blade shown solid; a blade number boxed at a section whose chord or leading
// edge lies outside its window; the rake half under it.
void CreateRakeOutlineGraph(DrawingSurface& surface, const GraphRequest& request);

} // namespace corvane
